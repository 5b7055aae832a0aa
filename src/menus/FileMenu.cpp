#include "menus/FileMenu.h"

#include "dialogs/ProjectDialog.h"
#include "menus/MenuDialogs.h"
#include "model/Project.h"
#include "uikit/PlainText.h"
#include "uikit/ThemedIcon.h"

#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr const char *FilePathProperty = "filePath";
// A list from a damaged file may hold any number, and each item takes its time.
constexpr qsizetype MaxShown = 100;

} // namespace

FileMenu::FileMenu(QWidget *parent)
    : QMenu(tr("File"), parent)
{
    addProjectItems();
    addSeparator();
    addProgramItems();
    rebuildRecent();
    setProject(nullptr);
}

void FileMenu::addProjectItems()
{
    m_newAction = addAction(themedIcon(QStringLiteral(":/tb-new-file")), tr("New"));
    m_newAction->setShortcuts(QKeySequence::New);
    connect(m_newAction, &QAction::triggered, this, &FileMenu::displayNewProjectDialog);

    m_openAction = addAction(themedIcon(QStringLiteral(":/tb-open-file")), tr("Open"));
    m_openAction->setShortcuts(QKeySequence::Open);
    connect(m_openAction, &QAction::triggered, this, &FileMenu::displayOpenProjectDialog);

    m_recentMenu = addMenu(tr("Recent"));
    m_recentMenu->setToolTipsVisible(true);

    m_saveAction = addAction(themedIcon(QStringLiteral(":/tb-save-file")), tr("Save"));
    m_saveAction->setShortcuts(QKeySequence::Save);
    connect(m_saveAction, &QAction::triggered, this, &FileMenu::saveProject);

    m_saveAsAction = addAction(themedIcon(QStringLiteral(":/tb-save-file-as")), tr("Save As"));
    m_saveAsAction->setShortcuts(QKeySequence::SaveAs);
    connect(m_saveAsAction, &QAction::triggered, this, &FileMenu::saveProjectAs);

    m_closeAction = addAction(themedIcon(QStringLiteral(":/tb-close-document")), tr("Close"));
    m_closeAction->setShortcuts(QKeySequence::Close);
    connect(m_closeAction, &QAction::triggered, this, &FileMenu::closeProject);
}

void FileMenu::addProgramItems()
{
    QAction *preferences = addAction(tr("Preferences"));
    preferences->setMenuRole(QAction::PreferencesRole);
    connect(preferences, &QAction::triggered, this, &FileMenu::displayPreferences);

    addSeparator();

    m_quitAction = addAction(themedIcon(QStringLiteral(":/tb-exit-application")), tr("Quit"));
    m_quitAction->setMenuRole(QAction::QuitRole);
    connect(m_quitAction, &QAction::triggered, this, &FileMenu::quit);
}

void FileMenu::setProject(const QPointer<Project> &project)
{
    m_project = project;
    for (QAction *action : {m_saveAction, m_saveAsAction, m_closeAction})
        action->setEnabled(!m_project.isNull());
}

void FileMenu::setRecent(const QStringList &paths)
{
    m_recent = paths;
    rebuildRecent();
}

void FileMenu::addRecent(const QString &path)
{
    m_recent.removeOne(path);
    m_recent.prepend(path);
    while (m_recent.size() > MaxRecent)
        m_recent.removeLast();
    rebuildRecent();
}

void FileMenu::clearRecent()
{
    m_recent.clear();
    rebuildRecent();
}

void FileMenu::rebuildRecent()
{
    // Later, as the item that brought about the change may still be sending its signal.
    const QList<QAction *> items = m_recentMenu->actions();
    for (QAction *action : items) {
        m_recentMenu->removeAction(action);
        action->deleteLater();
    }

    if (m_recent.isEmpty()) {
        m_recentMenu->addAction(tr("None"))->setEnabled(false);
        return;
    }
    for (const QString &path : m_recent.first(std::min(m_recent.size(), MaxShown))) {
        const QString name = QFileInfo(path).fileName();
        QAction *action = m_recentMenu->addAction(PlainText::label(name));
        action->setProperty(FilePathProperty, path);
        action->setToolTip(PlainText::toolTip(QDir::toNativeSeparators(path)));
        connect(action, &QAction::triggered, this, &FileMenu::openRecent);
    }
    m_recentMenu->addSeparator();
    QAction *clear = m_recentMenu->addAction(tr("Clear"));
    connect(clear, &QAction::triggered, this, &FileMenu::clearRecent);
}

void FileMenu::openRecent()
{
    emit openProject(sender()->property(FilePathProperty).toString());
}

void FileMenu::displayNewProjectDialog()
{
    if (!m_projectDialog) {
        m_projectDialog = new ProjectDialog(MenuDialogs::parentFor(this));
        connect(m_projectDialog, &ProjectDialog::accepted, this, &FileMenu::newAccepted);
    }
    m_projectDialog->show();
}

void FileMenu::newAccepted()
{
    emit newProject(m_projectDialog->text());
}

void FileMenu::displayOpenProjectDialog()
{
    if (!m_openDialog) {
        m_openDialog =
            MenuDialogs::makeFileDialog(this, {.title = tr("Open project"),
                                               .filters = {tr("Project file (*.tessaril)")},
                                               .defaultSuffix = QStringLiteral("tessaril")});
        m_openDialog->setFileMode(QFileDialog::ExistingFile);
        connect(m_openDialog, &QFileDialog::accepted, this, &FileMenu::openAccepted);
    }
    m_openDialog->setDirectory(m_lastDirectory.absolutePath());
    m_openDialog->open();
}

void FileMenu::openAccepted()
{
    const std::optional<QString> file = MenuDialogs::singleFile(m_openDialog);
    if (!file)
        return;

    m_lastDirectory = m_openDialog->directory();
    emit openProject(*file);
}
