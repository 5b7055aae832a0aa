#include "control/ProjectController.h"

#include "menus/FileMenu.h"
#include "uikit/FileDialogs.h"
#include "uikit/WaitCursor.h"

#include <QFileDialog>
#include <QMessageBox>

ProjectController::ProjectController(QWidget *mainWindow, FileMenu *fileMenu)
    : _unsavedPrompt([this](const QString &name) { return askAboutChanges(name); })
    , _savePath([this] { return askForPath(); })
    , m_mainWindow(mainWindow)
    , m_fileMenu(fileMenu)
    , m_store(this)
{
}

ProjectController::~ProjectController() = default;

int ProjectController::askAboutChanges(const QString &name)
{
    QMessageBox box(QMessageBox::Warning, tr("Unsaved Changes"),
                    tr("Save the changes to %1 before closing it?").arg(name),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, m_mainWindow);
    box.setDefaultButton(QMessageBox::Save);
    box.setTextFormat(Qt::PlainText);
    switch (box.exec()) {
    case QMessageBox::Save:
        return SaveChanges;
    case QMessageBox::Discard:
        return DiscardChanges;
    default:
        return CancelClosing;
    }
}

/// What the save dialog begins with: never the name of a project that was saved before.
QString ProjectController::suggestedFile() const
{
    if (!m_fileBeforeSaveAs.isEmpty())
        return m_fileBeforeSaveAs;
    QString name = m_project ? m_project->name() : QString();
    return name.replace(QLatin1Char('/'), QLatin1Char('_'));
}

QString ProjectController::askForPath()
{
    if (!m_saveDialog) {
        // At its first use: a file dialog reads its folder at once, which the start can do without.
        m_saveDialog = new QFileDialog(m_mainWindow, tr("Save project"), QString(),
                                       tr("Project file (*.tessaril)"));
        m_saveDialog->setAcceptMode(QFileDialog::AcceptSave);
        m_saveDialog->setDefaultSuffix(QStringLiteral("tessaril"));
        FileDialogs::prepare(m_saveDialog);
    }
    m_saveDialog->selectFile(suggestedFile());
    if (m_saveDialog->exec() != QDialog::Accepted)
        return {};
    return m_saveDialog->selectedFiles().value(0);
}

bool ProjectController::isDirty() const
{
    if (!m_project)
        return false;
    return !_isClean() || m_store.digest() != m_cleanDigest;
}

void ProjectController::markClean()
{
    m_cleanDigest = m_store.digest();
    _markClean();
}

bool ProjectController::canClose()
{
    const auto isUnsaved = [this] {
        const WaitCursor wait; // a large project takes its time to compare
        return isDirty();
    };
    if (!m_project || !isUnsaved())
        return true;

    switch (_unsavedPrompt(m_project->name())) {
    case SaveChanges:
        // A cancelled file dialog and a failed save both leave the project dirty.
        save();
        return !isDirty();
    case DiscardChanges:
        return true;
    default:
        return false;
    }
}

void ProjectController::close()
{
    if (!m_project)
        return;

    m_project->disconnect();
    emit projectClosing();
    m_store.close();
    m_project.clear();
    emit projectClosed();
}

void ProjectController::newProject(QString name)
{
    if (!canClose())
        return;

    close();
    m_project = m_store.create(name);
    if (!m_project) {
        emit error(tr("Unable to create a new project"));
        return;
    }
    emit projectOpened(m_project);
    markClean();
}

void ProjectController::openProject(QString filePath)
{
    if (!canClose())
        return;

    close();
    m_mainWindow->setUpdatesEnabled(false);
    if (load(filePath)) {
        m_project = m_store.project();
        emit projectOpened(m_project);
        m_fileMenu->addRecent(filePath);
        markClean();
    } else {
        m_project.clear();
    }
    m_mainWindow->setUpdatesEnabled(true);
}

bool ProjectController::load(const QString &filePath)
{
    const WaitCursor wait;
    return m_store.load(filePath);
}

bool ProjectController::write(bool backup)
{
    const WaitCursor wait;
    return m_store.save(backup);
}

void ProjectController::save()
{
    if (!m_project)
        return;

    emit aboutToSave();
    if (m_store.fileName().isEmpty())
        saveToNewFile();
    else
        saveToFile();
    emit saveFinished();
}

void ProjectController::saveToFile()
{
    if (write(_backupOnSave()))
        markClean();
}

void ProjectController::saveToNewFile()
{
    const QString path = _savePath();
    if (path.isEmpty())
        return;

    m_store.setFileName(path);
    // Nothing is there to keep.
    if (write(false)) {
        m_fileMenu->addRecent(path);
        markClean();
    } else {
        m_store.setFileName(QString());
    }
}

void ProjectController::saveAs()
{
    m_fileBeforeSaveAs = m_store.fileName();
    m_store.setFileName(QString());
    save();
    if (m_store.fileName().isEmpty())
        m_store.setFileName(m_fileBeforeSaveAs);
    m_fileBeforeSaveAs.clear();
}
