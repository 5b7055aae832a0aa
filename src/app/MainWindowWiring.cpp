// How the main window connects what it holds.

#include "app/Identity.h"
#include "app/MainWindow.h"
#include "dialogs/About.h"
#include "dialogs/GeneralPage.h"

#include <QMessageBox>
#include <QStatusBar>

using Origin = UpdateController::Origin;

void MainWindow::connectProjectControl()
{
    FileMenu *const menu = m_menuBar.fileMenu();
    connect(menu, &FileMenu::newProject, &m_projectController, &ProjectController::newProject);
    connect(menu, &FileMenu::openProject, &m_projectController, &ProjectController::openProject);
    connect(menu, &FileMenu::saveProject, &m_projectController, &ProjectController::save);
    connect(menu, &FileMenu::saveProjectAs, &m_projectController, &ProjectController::saveAs);
    connect(menu, &FileMenu::closeProject, this, [this] {
        if (m_projectController.canClose())
            m_projectController.close();
    });
}

void MainWindow::connectActions()
{
    ProjectActions *const actions = &m_projectActions;
    connect(m_menuBar.spriteMenu(), &SpriteMenu::create, actions, &ProjectActions::createSprites);
    connect(m_menuBar.tileMenu(), &TileMenu::createTiles, actions, &ProjectActions::createTileSet);
    connect(m_menuBar.mapMenu(), &MapMenu::create, actions, &ProjectActions::createMap);
    connect(m_menuBar.mapMenu(), &MapMenu::importRequested, actions, &ProjectActions::importMap);
    connect(&m_projectWindow, &ProjectWindow::deleteItemTriggered, actions,
            &ProjectActions::deleteItem);
    connect(&m_projectWindow, &ProjectWindow::copyItemTriggered, actions,
            &ProjectActions::copyItem);
    connect(&m_documentController, &DocumentController::createMapFromSelection, actions,
            &ProjectActions::createMapFromSelection);
}

void MainWindow::connectMessages()
{
    m_menuBar.tileMenu()->setAnimationDialog([this](const TileMenu::TileSets &sets) {
        if (!m_tileAnimationDialog) {
            m_tileAnimationDialog = std::make_unique<TileAnimationDialog>(this);
            connect(m_tileAnimationDialog.get(), &TileAnimationDialog::accepted, &m_projectActions,
                    &ProjectActions::createBlocks);
        }
        m_tileAnimationDialog->show(sets);
        m_tileAnimationDialog->chooseTileSet(m_menuBar.tileMenu()->tileSetId());
    });
    connect(m_projectController.store(), &ProjectStore::showMessage, statusBar(),
            &QStatusBar::showMessage);
    connect(statusBar(), &QStatusBar::messageChanged, this, &MainWindow::messageChanged);
}

void MainWindow::connectMenus()
{
    connect(m_menuBar.spriteMenu(), &SpriteMenu::swapPalette, this,
            &MainWindow::changeSpritePalette);
    TileMenu *const tiles = m_menuBar.tileMenu();
    connect(tiles, &TileMenu::swapPalette, this, &MainWindow::changeTilePalette);
    connect(tiles, &TileMenu::importZXFont, this, &MainWindow::importZXFont);
    connect(tiles, &TileMenu::nextTile, this, &MainWindow::nextTile);
    connect(tiles, &TileMenu::previousTile, this, &MainWindow::previousTile);
    tiles->magnificationMenu()->addActions(m_tilePicker.zoomActions());

    m_projectController._backupOnSave = [this] {
        return m_preferences.generalPage()->backupOnSave();
    };
    m_projectController._isClean = [this] { return m_documentController.isClean(); };
    m_projectController._markClean = [this] { m_documentController.markClean(); };
}

void MainWindow::connectProjectLife()
{
    ProjectController *const control = &m_projectController;
    DocumentController *const documents = &m_documentController;
    connect(control, &ProjectController::aboutToSave, documents,
            &DocumentController::recordOpenDocuments);
    connect(control, &ProjectController::saveFinished, documents,
            &DocumentController::restartAnimations);
    connect(control, &ProjectController::projectOpened, this, &MainWindow::projectOpened);
    connect(control, &ProjectController::projectClosing, documents,
            &DocumentController::endProject);
    connect(control, &ProjectController::projectClosed, documents, &DocumentController::clearViews);
    connect(control, &ProjectController::projectClosed, this, &MainWindow::followProject);
    connect(control, &ProjectController::error, this, &MainWindow::showError);

    connect(m_menuBar.fileMenu(), &FileMenu::displayPreferences, &m_preferences, &QDialog::show);
    connect(m_menuBar.fileMenu(), &FileMenu::quit, this, &QWidget::close);
    connect(m_menuBar.viewMenu(), &ViewMenu::toggleStatusBar, statusBar(), &QWidget::setVisible);
    connect(m_menuBar.viewMenu(), &ViewMenu::toggleScratch, &m_tabs,
            &DocumentTabView::setScratchEditorVisible);
    m_menuBar.viewMenu()->setScratchEnabled(false);
}

void MainWindow::connectUpdates()
{
    HelpMenu *const menu = m_menuBar.helpMenu();
    menu->setUpdateCheckEnabled(true);
    connect(menu, &HelpMenu::checkForUpdates, this, [this] { checkForUpdates(Origin::Menu); });
    connect(menu, &HelpMenu::checkFromAbout, this, [this] { checkForUpdates(Origin::About); });
    connect(&m_updateDialog, &UpdateDialog::skipVersion, &_updates, &UpdateController::skipVersion);
    connect(&_updates, &UpdateController::updateAvailable, this, &MainWindow::updateAvailable);
    connect(&_updates, &UpdateController::upToDate, this, &MainWindow::upToDate);
    connect(&_updates, &UpdateController::checkFailed, this, &MainWindow::updateCheckFailed);
}

void MainWindow::checkForUpdates(Origin origin)
{
    _updates.origin = origin;
    _updates.fetch();
}

void MainWindow::updateAvailable(const Update::Release &release, Origin origin)
{
    m_menuBar.helpMenu()->setUpdateStatus(tr("Update available: %1").arg(release.version));
    if (origin != Origin::About)
        m_updateDialog.showRelease(release, {QString::fromLatin1(Identity::Version),
                                             QString::fromLatin1(Identity::BuildDate)});
}

void MainWindow::upToDate(Origin origin)
{
    m_menuBar.helpMenu()->setUpdateStatus(tr("You’re up to date"));
    if (origin == Origin::Menu)
        QMessageBox::information(
            this, tr("Check for Updates"),
            tr("Tessaril %1 is up to date.").arg(QString::fromLatin1(Identity::Version)));
}

void MainWindow::updateCheckFailed(const QString &error, Origin origin)
{
    m_menuBar.helpMenu()->setUpdateStatus(tr("Could not reach the update server"));
    if (origin == Origin::Menu)
        QMessageBox::warning(this, tr("Check for Updates"),
                             tr("Could not reach the update server.\n%1").arg(error));
}
