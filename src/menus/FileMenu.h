#pragma once

#include <QDir>
#include <QMenu>
#include <QPointer>
#include <QStringList>

class Project;
class ProjectDialog;
class QFileDialog;

/// The life of the project as the user asks for it, and the list of recently opened projects.
class FileMenu : public QMenu
{
    Q_OBJECT

public:
    static constexpr int MaxRecent = 10; // projects

    explicit FileMenu(QWidget *parent = nullptr);

    /// Saving and closing are on only with a project.
    void setProject(const QPointer<Project> &project);

    /// For the tool bar, which shows the same actions.
    QAction *newAction() const { return m_newAction; }
    QAction *openAction() const { return m_openAction; }
    QAction *saveAction() const { return m_saveAction; }
    QAction *saveAsAction() const { return m_saveAsAction; }
    QAction *closeAction() const { return m_closeAction; }
    QAction *quitAction() const { return m_quitAction; }

    /// Absolute paths, newest first. Files that have vanished stay until they fall off the end.
    QStringList recent() const { return m_recent; }
    void setRecent(const QStringList &paths);
    /// Puts @p path in front; it is never there twice.
    void addRecent(const QString &path);

    /// Where the Open dialog starts.
    QDir lastDirectory() const { return m_lastDirectory; }
    /// @p path is taken as it is; "~" is not expanded.
    void setLastPath(const QString &path) { m_lastDirectory.setPath(path); }

signals:
    void quit();
    void openProject(QString file);
    void newProject(QString name);
    void saveProject();
    void saveProjectAs();
    void closeProject();
    void displayPreferences();

public slots:
    void displayNewProjectDialog();
    void newAccepted();
    void displayOpenProjectDialog();
    /// Ignores any selection but that of exactly one file.
    void openAccepted();
    void clearRecent();

private:
    void addProjectItems();
    void addProgramItems();
    void rebuildRecent();
    void openRecent();

    QPointer<Project> m_project;
    QMenu *m_recentMenu = nullptr;
    QAction *m_newAction = nullptr;
    QAction *m_openAction = nullptr;
    QAction *m_saveAction = nullptr;
    QAction *m_saveAsAction = nullptr;
    QAction *m_closeAction = nullptr;
    QAction *m_quitAction = nullptr;
    QStringList m_recent;
    QDir m_lastDirectory;
    // Made at their first use.
    QPointer<ProjectDialog> m_projectDialog;
    QPointer<QFileDialog> m_openDialog;
};
