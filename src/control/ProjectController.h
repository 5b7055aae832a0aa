#pragma once

#include "model/Project.h"
#include "store/ProjectStore.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class FileMenu;
class QFileDialog;
class QWidget;

/// Owns the life of the one open project: new, open, save, save as, close, and whether there is
/// anything unsaved.
///
/// It knows neither undo stacks nor preferences; what it needs of them comes through hooks that the
/// owner fills. Failures of reading and writing are told by the store's own signals.
class ProjectController : public QObject
{
    Q_OBJECT

public:
    enum UnsavedAnswer { SaveChanges = 0, DiscardChanges = 1, CancelClosing = 2 };

    /// @p mainWindow is frozen during a load and is the parent of the dialogs; @p fileMenu hears of
    /// the recent projects. Both outlive the controller.
    ProjectController(QWidget *mainWindow, FileMenu *fileMenu);
    ~ProjectController() override;

    /// Whether a save keeps a backup of the file.
    std::function<bool()> _backupOnSave = [] { return true; };
    /// Whether every undo stack is clean; with none it counts as clean.
    std::function<bool()> _isClean = [] { return true; };
    /// Marks every undo stack clean.
    std::function<void()> _markClean = [] {};
    /// Asks what to do with the unsaved changes of the project of that name; an UnsavedAnswer.
    std::function<int(const QString &)> _unsavedPrompt;
    /// Asks where to save; empty if the user cancels.
    std::function<QString()> _savePath;

    /// The open project, or null.
    Project *project() const { return m_project; }
    ProjectStore *store() { return &m_store; }

    /// Whether the project may be closed. Asks the user if there are unsaved changes, and saves if
    /// told so.
    bool canClose();
    /// Whether the open project differs from its last clean point. Makes the whole archive content,
    /// so it takes a moment.
    bool isDirty() const;
    /// Takes the present state as the clean point.
    void markClean();

signals:
    /// Each save starts with the first and ends with the second, also a cancelled or failed one.
    void aboutToSave();
    void saveFinished();
    void projectOpened(Project *project);
    /// The project is still whole, but its own signals reach nobody any more.
    void projectClosing();
    void projectClosed();
    void error(QString message);

public slots:
    void newProject(QString name);
    /// If the file cannot be loaded no project is open afterwards.
    void openProject(QString filePath);
    void save();
    /// Asks for a new file. The old one stays the project's if that is cancelled or fails.
    void saveAs();
    /// Asks nothing. Nothing happens with no project open.
    void close();

private:
    int askAboutChanges(const QString &name);
    QString askForPath();
    QString suggestedFile() const;
    bool load(const QString &filePath);
    bool write(bool backup);
    void saveToFile();
    void saveToNewFile();

    QPointer<QWidget> m_mainWindow;
    QPointer<FileMenu> m_fileMenu;
    ProjectStore m_store;
    QPointer<Project> m_project;
    QByteArray m_cleanDigest;            // of the store, at the last clean point
    QString m_fileBeforeSaveAs;          // while Save As asks for another
    QFileDialog *m_saveDialog = nullptr; // of the main window
};
