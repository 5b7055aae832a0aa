#include "app/MainWindow.h"

#include "app/Identity.h"
#include "app/PaneKeys.h"
#include "dialogs/GeneralPage.h"
#include "editors/TilePickerGrid.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "uikit/PlainText.h"

#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>

namespace {

constexpr int FileIconSide = 18; // pixels
constexpr int MinShown = 100;    // pixels of the window, at its upper edge

Update::Build runningBuild()
{
    return {QString::fromLatin1(Identity::Version), QString::fromLatin1(Identity::BuildDate)};
}

} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_projectWindow(this)
    , m_paletteWindow(this)
    , m_tileWindow(this)
    , m_spriteWindow(this)
    , m_tilePicker(this)
    , m_blockSelector(this)
    , m_mapSprites(this)
    , m_mapToolBar(this)
    , m_tabs(this)
    , m_label(this)
    , m_menuBar(this)
    , m_projectController(this, m_menuBar.fileMenu())
    , m_state(this)
    , m_preferences(this)
    , m_messageDialog(this)
    , m_updateDialog(this)
    , _updates(
          m_preferences.generalPage(), runningBuild(), [this] { persistPreferences(); }, this)
    , m_views(makeViews())
    , m_documentController(m_views, &m_projectController, this)
    , m_projectActions(m_views, &m_projectController, &m_documentController)
    , m_layoutController(this, makeDocks(), m_menuBar.viewMenu(), this)
{
    connectProjectControl();
    connectActions();
    setUpFrame();
    m_layoutController.resetLayout();
    connect(m_projectController.store(), &ProjectStore::loadError, this, &MainWindow::showError);
    connect(m_projectController.store(), &ProjectStore::saveError, this, &MainWindow::showError);
    setMenuBar(&m_menuBar);
    makeFileToolBar();
    connectMessages();
    connectMenus();
    connectProjectLife();
    connectUpdates();
    show();
    messageChanged({});
    m_menuBar.tileMenu()->setEnabled(false);
    m_menuBar.spriteMenu()->setEnabled(false);
    m_menuBar.setProject(nullptr);
}

MainWindow::~MainWindow()
{
    // While the docks are alive, as they still show the project.
    m_projectController.close();
    disconnect(qApp, nullptr, &m_documentController, nullptr);
    // Members all, and none of them a child to delete.
    setMenuBar(nullptr);
    takeCentralWidget();
}

DocumentViews MainWindow::makeViews()
{
    return {.tabs = &m_tabs,
            .projectWindow = &m_projectWindow,
            .paletteWindow = &m_paletteWindow,
            .tileWindow = &m_tileWindow,
            .spriteWindow = &m_spriteWindow,
            .tilePicker = &m_tilePicker,
            .blockSelector = &m_blockSelector,
            .mapSprites = &m_mapSprites,
            .mapToolBar = &m_mapToolBar,
            .menuBar = &m_menuBar,
            .preferences = &m_preferences};
}

LayoutController::Docks MainWindow::makeDocks()
{
    return {.project = &m_projectWindow,
            .palette = &m_paletteWindow,
            .tile = &m_tileWindow,
            .sprite = &m_spriteWindow,
            .tilePicker = &m_tilePicker,
            .blockSelector = &m_blockSelector,
            .mapSprites = &m_mapSprites};
}

void MainWindow::setUpFrame()
{
    setUnifiedTitleAndToolBarOnMac(true);
    setDocumentMode(true);
    statusBar()->addPermanentWidget(&m_label);
    setWindowTitle(QApplication::applicationName());
    resize(1024, 768);
    setWindowIcon(QIcon(QStringLiteral(":Application")));
    setCentralWidget(&m_tabs);
    new PaneKeys(this);
}

void MainWindow::makeFileToolBar()
{
    QToolBar *const bar = addToolBar(tr("File"));
    bar->setObjectName(QStringLiteral("File Toolbar"));
    bar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setIconSize(QSize(FileIconSide, FileIconSide));
    const FileMenu *const menu = m_menuBar.fileMenu();
    bar->addActions({menu->newAction(), menu->openAction(), menu->saveAction(),
                     menu->saveAsAction(), menu->closeAction()});
    bar->addSeparator();
    bar->addAction(menu->quitAction());
    addToolBar(&m_mapToolBar);
    m_mapToolBar.setEnabled(false);
}

void MainWindow::showError(QString name)
{
    m_messageDialog.showMessage(tr("Warning!"), name);
}

void MainWindow::messageChanged(QString message)
{
    if (!message.isEmpty())
        return;
    const QString file = m_projectController.store()->fileName();
    const Project *const project = m_projectController.project();
    m_identity = project && !file.isEmpty() ? QStringLiteral("%1 [%2]").arg(project->name(), file)
                                            : windowTitle();
    statusBar()->showMessage(m_identity);
}

void MainWindow::followProject()
{
    if (statusBar()->currentMessage() == m_identity)
        messageChanged({});
}

void MainWindow::nextTile()
{
    showTile(1);
}

void MainWindow::previousTile()
{
    showTile(-1);
}

void MainWindow::showTile(int step)
{
    const auto tileSet = m_tileWindow.tileSet();
    if (!tileSet)
        return;
    const int number = m_tileWindow.tileNumber() + step;
    if (number < 1 || number > tileSet->count())
        return;
    m_tileWindow.setTileIndex(number);
    m_tilePicker.grid()->setSelectedIndex(number - 1);
    m_tilePicker.grid()->update();
    emit m_tilePicker.grid()->selectedIndexChanged(number - 1);
}

void MainWindow::changeSpritePalette(QUuid paletteId)
{
    const Project *const project = m_projectController.project();
    const auto palette = project ? project->palette(paletteId) : QPointer<Palette>();
    if (palette)
        m_spriteWindow.setSpritePalette(palette);
}

void MainWindow::changeTilePalette(QUuid paletteId)
{
    const Project *const project = m_projectController.project();
    const auto palette = project ? project->palette(paletteId) : QPointer<Palette>();
    const auto tileSet = m_tileWindow.tileSet();
    if (!palette || !tileSet)
        return;
    tileSet->setPalette(palette);
    m_tileWindow.setPalette(palette);
    // A set has no signal for its palette; its views look at the colours with every picture.
    tileSet->notifyImageChanged(0);
}

void MainWindow::importZXFont(int index, int foreIndex, int backIndex, int offset, QString file)
{
    if (const auto tileSet = m_tileWindow.tileSet())
        tileSet->importZXFont(index, foreIndex, backIndex, offset, file);
}

void MainWindow::projectOpened(Project *project)
{
    setWindowTitle(QStringLiteral("%2 - %1").arg(PlainText::shown(project->name()),
                                                 QApplication::applicationName()));
    m_projectWindow.setEnabled(true);
    m_projectWindow.showContent();
    m_projectWindow.setProject(project);
    connect(project, qOverload<QString, int>(&Project::showMessage), statusBar(),
            &QStatusBar::showMessage);
    connect(project, qOverload<QString>(&Project::showMessage), statusBar(),
            [this](const QString &message) { statusBar()->showMessage(message); });
    connect(project, &Project::error, this, &MainWindow::showError);
    m_menuBar.viewMenu()->setScratchEnabled(true);
    m_menuBar.tileMenu()->setEnabled(false);
    m_menuBar.setProject(project);
    m_documentController.openProject(project);

    ImageEditor::View *const scratch = m_tabs.scratchEditor();
    scratch->setPalette(project->scratchPalette());
    scratch->setImage(project->scratchImage());
    scratch->setUndoStack(m_documentController.undoStack(QUuid()));
    m_documentController.restoreOpenDocuments();
    followProject();
}

void MainWindow::showEvent(QShowEvent *event)
{
    if (m_isFirstShow) {
        m_isFirstShow = false;
        m_layoutController.shareRoom();
        readState();
        m_menuBar.viewMenu()->setChecked(ViewMenu::CheckableItem::StatusBar,
                                         statusBar()->isVisibleTo(this));
        _updates.checkAtStart();
    }
    QMainWindow::showEvent(event);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (!m_projectController.canClose()) {
        event->setAccepted(false);
        return;
    }
    m_tabs.setUpdatesEnabled(false);
    m_tabs.closeAll();
    m_tabs.setUpdatesEnabled(true);
    writeState();
    event->setAccepted(true);
}

void MainWindow::readState()
{
    const bool isStateRead = m_state.load();
    m_preferences.restore(m_state.loadPreferences());
    if (isStateRead) {
        const QSize firstSize = size();
        restoreDocks();
        if (!m_state.windowGeometry.isEmpty())
            restoreGeometry(m_state.windowGeometry);
        bringToScreen();
        // The window was too small for the docks of a larger one.
        if (size() != firstSize)
            restoreDocks();
        if (!m_state.recent.isEmpty())
            m_menuBar.fileMenu()->setRecent(m_state.recent);
        if (!m_state.lastPath.isEmpty())
            m_menuBar.fileMenu()->setLastPath(m_state.lastPath);
    }
    m_tilePicker.setZoom(m_state.tileZoom);
}

void MainWindow::restoreDocks()
{
    if (m_state.windowState.isEmpty())
        return;
    restoreState(m_state.windowState);
    m_layoutController.keepRoom();
}

/// A geometry from another screen may leave nothing of the window in sight that could be taken hold
/// of.
void MainWindow::bringToScreen()
{
    if (isMaximized() || isFullScreen())
        return;
    const QRect frame = frameGeometry();
    const auto screens = QGuiApplication::screens();
    for (const QScreen *const screen : screens) {
        const QRect part = frame & screen->availableGeometry();
        if (part.top() == frame.top() && part.width() >= MinShown && part.height() >= MinShown)
            return;
    }
    move(screen()->availableGeometry().topLeft());
}

void MainWindow::writeState()
{
    m_state.windowState = saveState();
    m_state.windowGeometry = saveGeometry();
    m_state.recent = m_menuBar.fileMenu()->recent();
    m_state.tileZoom = m_tilePicker.zoom();
    m_state.lastPath = m_menuBar.fileMenu()->lastDirectory().absolutePath();
    m_state.save();
    persistPreferences();
}

void MainWindow::persistPreferences()
{
    m_state.savePreferences(m_preferences.snapshot());
}
