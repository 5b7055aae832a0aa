// How the document controller follows the tabs and the focus, and routes undo and the Edit menu.

#include "control/DocumentController.h"
#include "control/ProjectController.h"
#include "editors/SpriteWindow.h"
#include "editors/TileWindow.h"
#include "history/EditRecorder.h"
#include "mapeditor/BlockSelectorWindow.h"
#include "mapeditor/MapGrid.h"
#include "mapeditor/MapSpritesWindow.h"
#include "mapeditor/ToolBar.h"
#include "mapeditor/View.h"
#include "menus/MenuBar.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "tree/ProjectWindow.h"
#include "uikit/WaitCursor.h"

#include <QApplication>
#include <QUndoStack>

using Tool = Tessaril::Ui::ToolButton;

DocumentController::DocumentController(const DocumentViews &views, ProjectController *controller,
                                       QObject *parent)
    : QObject(parent)
    , m_views(views)
    , m_controller(controller)
{
    connectViews();
    makeUndoActions();
    connect(m_views.tabs, &QTabWidget::currentChanged, this, &DocumentController::tabChanged);
    connectEditMenu();
    const auto stackFor = [this](const QUuid &id) { return undoStack(id); };
    m_views.tileWindow->setStackFor(stackFor);
    m_views.spriteWindow->setStackFor(stackFor);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget *, QWidget *now) { routeFocus(now); });
    connect(m_views.blockSelector, &QDockWidget::visibilityChanged, this, [this](bool visible) {
        followPlacementDock(m_views.blockSelector, visible, Tool::PlaceAnim);
    });
    connect(m_views.mapSprites, &QDockWidget::visibilityChanged, this, [this](bool visible) {
        followPlacementDock(m_views.mapSprites, visible, Tool::PlaceSprite);
    });
}

DocumentController::~DocumentController()
{
    // The stacks die before what they belong to may still change.
    delete m_recorder;
}

void DocumentController::connectViews()
{
    ProjectWindow *const window = m_views.projectWindow;
    connect(window, &ProjectWindow::selectedPaletteChanged, this,
            &DocumentController::setActivePalette);
    connect(window, &ProjectWindow::selectedTileSetChanged, this,
            &DocumentController::setActiveTileSet);
    connect(window, &ProjectWindow::selectedBlocksChanged, this,
            &DocumentController::setActiveBlockEditor);
    connect(window, &ProjectWindow::selectedSpritesChanged, this,
            &DocumentController::setActiveSpriteEditor);
    connect(window, &ProjectWindow::selectedMapChanged, this, &DocumentController::setActiveMap);
    connect(window, &ProjectWindow::selectedImageChanged, this,
            &DocumentController::setActiveImageEditor);
    // What is opened there is what the next keys are for.
    const auto enter = [this] { m_views.tabs->enterCurrent(); };
    connect(window, &ProjectWindow::selectedBlocksChanged, this, enter);
    connect(window, &ProjectWindow::selectedSpritesChanged, this, enter);
    connect(window, &ProjectWindow::selectedMapChanged, this, enter);
    connect(window, &ProjectWindow::selectedImageChanged, this, enter);
    connect(window, &ProjectWindow::documentRenamed, this, &DocumentController::showName);
    connect(m_views.tabs, &DocumentTabView::MapEditorActivated, this,
            &DocumentController::setActiveMap);
    connect(m_views.tabs, &DocumentTabView::ScratchEditorActivated, this,
            &DocumentController::scratchEditorActivated);
    connect(m_views.tabs, &DocumentTabView::SpriteEditorActivated, this,
            &DocumentController::setActiveSpriteEditor);
    connect(m_views.tabs->scratchEditor(), &ImageEditor::View::imageChanged, this,
            [this](const QImage &image) {
                if (project())
                    project()->setScratchImage(image);
            });
    connect(m_views.tabs, &DocumentTabView::scratchEditorShown, this, [this](bool shown) {
        m_views.menuBar->viewMenu()->setChecked(ViewMenu::CheckableItem::Scratch, shown);
    });
}

void DocumentController::makeUndoActions()
{
    EditMenu *const menu = m_views.menuBar->editMenu();
    QUndoGroup *const group = m_undoStacks.group();
    // A step can be a whole map; the group's own connections show nothing while it is taken.
    const auto take = [group](QAction *action, void (QUndoGroup::*step)()) {
        disconnect(action, &QAction::triggered, group, nullptr);
        connect(action, &QAction::triggered, group, [group, step] {
            const WaitCursor wait;
            (group->*step)();
        });
    };
    QAction *const undo = group->createUndoAction(menu);
    undo->setShortcut(QKeySequence::Undo);
    take(undo, &QUndoGroup::undo);
    QAction *const redo = group->createRedoAction(menu);
    redo->setShortcut(QKeySequence::Redo);
    take(redo, &QUndoGroup::redo);
    menu->insertUndoActions(undo, redo);
}

void DocumentController::connectEditMenu()
{
    const auto route = [this](void (EditMenu::*signal)(), void (EditTarget::*operation)()) {
        connect(m_views.menuBar->editMenu(), signal, this, [this, operation] {
            if (EditTarget *const target = editTarget())
                (target->*operation)();
        });
    };
    route(&EditMenu::cut, &EditTarget::cut);
    route(&EditMenu::copy, &EditTarget::copy);
    route(&EditMenu::paste, &EditTarget::paste);
    route(&EditMenu::selectAll, &EditTarget::selectAll);
    route(&EditMenu::selectNone, &EditTarget::selectNone);
}

EditTarget *DocumentController::editTarget() const
{
    return dynamic_cast<EditTarget *>(m_editTarget.data());
}

void DocumentController::tabChanged()
{
    QWidget *const current = m_views.tabs->currentWidget();
    auto *const view = project() ? qobject_cast<MapEditor::View *>(current) : nullptr;
    attachToolBar(view);
    if (project() && current) {
        m_undoStacks.setActive(current->property("document_id").toUuid());
        setEditTarget(current);
        return;
    }
    m_editTarget = current;
    m_undoStacks.clearActive();
    m_views.menuBar->editMenu()->setClipboardEnabled(false);
}

void DocumentController::attachToolBar(MapEditor::View *view)
{
    if (m_mapView && m_mapView != view)
        m_mapView->unbindToolBar();
    m_mapView = view;
    if (view)
        view->bindToolBar(m_views.mapToolBar);
    else
        m_views.mapToolBar->setSizeText({});
    m_views.mapToolBar->setEnabled(view != nullptr);
}

void DocumentController::setEditTarget(QWidget *target)
{
    m_editTarget = target;
    m_views.menuBar->editMenu()->setClipboardEnabled(editTarget() != nullptr);
}

void DocumentController::targetDock(QWidget *dock)
{
    QUuid id;
    if (const auto tileSet = m_views.tileWindow->tileSet(); tileSet && dock == m_views.tileWindow)
        id = tileSet->id();
    if (const auto bank = m_views.spriteWindow->sprites(); bank && dock == m_views.spriteWindow)
        id = bank->id();
    // The null id would be the scratch picture's stack.
    if (id.isNull())
        m_undoStacks.clearActive();
    else
        m_undoStacks.setActive(id);
    setEditTarget(dock);
}

void DocumentController::followDock(QWidget *dock)
{
    if (m_editTarget == dock)
        targetDock(dock);
}

void DocumentController::routeFocus(QWidget *now)
{
    if (!project() || !now)
        return;
    const auto holds = [now](const QWidget *window) {
        return window == now || window->isAncestorOf(now);
    };
    if (holds(m_views.tileWindow))
        targetDock(m_views.tileWindow);
    else if (holds(m_views.spriteWindow))
        targetDock(m_views.spriteWindow);
    else if (holds(m_views.tabs) &&
             (m_editTarget == m_views.tileWindow || m_editTarget == m_views.spriteWindow))
        tabChanged();
}

void DocumentController::followPlacementDock(QDockWidget *dock, bool visible, Tool mode)
{
    if (!visible) {
        if (dock->window()->isMinimized())
            m_docksAway.insert(dock);
        return;
    }
    // A dock that comes back with its minimised window is no wish to place something.
    if (m_docksAway.remove(dock))
        return;
    auto *const view = qobject_cast<MapEditor::View *>(m_views.tabs->currentWidget());
    if (view && project() && view->grid()->mode() != mode)
        view->grid()->setMode(mode); // which the tool palette follows
}
