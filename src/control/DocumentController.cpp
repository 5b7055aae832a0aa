#include "control/DocumentController.h"

#include "colour/PaletteWindow.h"
#include "control/ProjectController.h"
#include "dialogs/MapEditorPage.h"
#include "dialogs/PreferencesDialog.h"
#include "editors/BlockEditorView.h"
#include "editors/SpriteEditorView.h"
#include "editors/SpriteWindow.h"
#include "editors/TilePickerGrid.h"
#include "editors/TilePickerTool.h"
#include "editors/TileWindow.h"
#include "history/EditRecorder.h"
#include "mapeditor/BlockSelectorWindow.h"
#include "mapeditor/MapGrid.h"
#include "mapeditor/MapSpritesWindow.h"
#include "mapeditor/ToolBar.h"
#include "mapeditor/View.h"
#include "menus/MenuBar.h"
#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "tree/ProjectWindow.h"

#include <QApplication>
#include <QUndoStack>

using Type = DocumentTabView::DocumentType;

namespace {

MapEditor::ViewSettings settingsOf(const MapEditorPage &page)
{
    return {.checkerBoard = page.checkerBoard(),
            .overlayGrid = page.overlayGrid(),
            .gridSize = page.gridSize(),
            .firstGridColour = page.gridColour1(),
            .secondGridColour = page.gridColour2(),
            .defaultZoom = page.defaultZoom()};
}

} // namespace

Project *DocumentController::project() const
{
    return m_controller->project();
}

void DocumentController::setActivePalette(QUuid paletteId)
{
    if (!project() || !project()->palette(paletteId))
        return;
    m_views.paletteWindow->setEnabled(true);
    m_views.paletteWindow->showContent();
    m_views.paletteWindow->setPalette(project()->palette(paletteId));
    m_views.paletteWindow->raise();
    m_views.menuBar->paletteMenu()->setPalette(paletteId);
}

void DocumentController::setActiveTileSet(QUuid tileSetId)
{
    if (!project())
        return;
    m_views.tileWindow->setEnabled(true);
    m_views.tileWindow->showContent();
    const auto tileSet = project()->tileSet(tileSetId);
    m_views.tilePicker->setTileSet(tileSet);
    m_views.blockSelector->setTileSet(tileSet);
    m_views.tileWindow->setPalette(tileSet ? tileSet->palette() : QPointer<Palette>());
    m_views.tileWindow->setTileSet(tileSet);
    m_views.tileWindow->raise();
    followDock(m_views.tileWindow);

    TileMenu *const menu = m_views.menuBar->tileMenu();
    menu->setTileSet(tileSetId);
    menu->setEnabled(true);
    menu->setNewTileSetEnabled(true);
    menu->setTileSetActionsEnabled(true);
    m_views.menuBar->mapMenu()->setTileSet(tileSetId);
}

void DocumentController::setActiveMap(QUuid mapId)
{
    const auto map = project() ? project()->map(mapId) : QPointer<Map>();
    if (!map)
        return;

    QWidget *tab = m_views.tabs->documentWidget(mapId);
    if (tab)
        m_views.tabs->setCurrentWidget(tab);
    else
        tab = openMap(map);
    auto *const view = qobject_cast<MapEditor::View *>(tab);
    bindMapView(view);
    setActiveTileSet(view ? map->tileSetId() : QUuid());
    m_views.menuBar->mapMenu()->setMap(mapId);
}

MapEditor::View *DocumentController::openMap(const QPointer<Map> &map)
{
    auto *const view = new MapEditor::View(m_views.tabs);
    view->setMap(map);
    view->setUndoStack(undoStack(map->id()));
    view->applySettings(settingsOf(*m_views.preferences->mapEditorPage()));
    connectMapView(view);
    m_views.tabs->addDocument(view, Type::Map, map->id(), map->name());
    return view;
}

/// What stays connected as long as the view lives.
void DocumentController::connectMapView(MapEditor::View *view)
{
    ProjectStore *const store = m_controller->store();
    connect(view, &MapEditor::View::createMapFromSelection, this,
            &DocumentController::createMapFromSelection);
    connect(view, &MapEditor::View::exportTileMap, store, &ProjectStore::exportMap);
    connect(view, &MapEditor::View::exportTiles, store, &ProjectStore::exportTiles);
    connect(view, &MapEditor::View::exportTilePalette, store, &ProjectStore::exportPalette);
    connect(view, &MapEditor::View::tilePicked, m_views.tilePicker->grid(),
            &TilePickerGrid::selectedIndexChanged);
    connect(view, &MapEditor::View::tilePicked, m_views.tileWindow,
            [this](int index) { m_views.tileWindow->setTileIndex(index + 1); });
}

/// Points the docks at @p view, and no other; null for a tab that is no map view.
void DocumentController::bindMapView(MapEditor::View *view)
{
    disconnect(m_views.tilePicker, &TilePickerTool::tileDoubleClicked, nullptr, nullptr);
    disconnect(m_views.tilePicker, &TilePickerTool::selectedTileChanged, nullptr, nullptr);
    disconnect(m_views.blockSelector, &BlockSelectorWindow::selectedItemChanged, nullptr, nullptr);
    for (const auto &connection : std::as_const(m_mapConnections))
        disconnect(connection);
    m_mapConnections.clear();
    connect(m_views.tilePicker, &TilePickerTool::tileDoubleClicked, m_views.tileWindow,
            &TileWindow::setTileIndex);
    offerSprites(view);
    if (!view)
        return;

    const auto present = [](QWidget *dock) {
        return [dock] {
            dock->show();
            dock->raise();
        };
    };
    m_mapConnections = {
        connect(m_views.mapSprites, &MapSpritesWindow::selectionChanged, view,
                &MapEditor::View::setSpriteAnimation),
        connect(m_views.mapSprites, &MapSpritesWindow::spriteChosen, view,
                &MapEditor::View::setSingleSprite),
        connect(view, &MapEditor::View::placeAnimModeEnabled, m_views.blockSelector,
                present(m_views.blockSelector)),
        connect(view, &MapEditor::View::placeSpriteModeEnabled, m_views.mapSprites,
                present(m_views.mapSprites)),
    };
    connect(m_views.blockSelector, &BlockSelectorWindow::selectedItemChanged, view,
            &MapEditor::View::setMapObject);
    connect(m_views.tilePicker, &TilePickerTool::selectedTileChanged, view,
            &MapEditor::View::setTileIndex);
}

void DocumentController::offerSprites(MapEditor::View *view)
{
    const auto banks = project()->spriteBanks();
    if (view)
        view->setSpriteBanks(banks);
    m_views.mapSprites->setBanks(banks);
    if (banks.isEmpty())
        m_views.mapSprites->showPlaceholder();
    else
        m_views.mapSprites->showContent();
}

void DocumentController::setActiveSpriteEditor(QUuid spriteBankId)
{
    const auto bank = project() ? project()->spriteBank(spriteBankId) : QPointer<SpriteBank>();
    if (!bank)
        return;
    m_views.spriteWindow->setSprites(bank);
    m_views.spriteWindow->raise();
    followDock(m_views.spriteWindow);
    if (QWidget *const tab = m_views.tabs->documentWidget(spriteBankId))
        m_views.tabs->setCurrentWidget(tab);
    else
        m_views.tabs->addDocument(new SpriteEditor::View(bank, m_views.tabs), Type::Sprites,
                                  spriteBankId, bank->name());
    SpriteMenu *const menu = m_views.menuBar->spriteMenu();
    menu->setSpriteBank(bank);
    menu->setSpriteActionsEnabled(true);
}

void DocumentController::setActiveBlockEditor(QUuid blocksId)
{
    const auto blocks = project() ? project()->blocks(blocksId) : QPointer<MapObjects>();
    if (!blocks)
        return;
    auto *view = qobject_cast<BlockEditor::View *>(m_views.tabs->documentWidget(blocksId));
    if (view) {
        m_views.tabs->setCurrentWidget(view);
    } else {
        view = new BlockEditor::View(blocks, m_views.tabs);
        connect(view, &BlockEditor::View::tileDoubleClicked, m_views.tileWindow,
                &TileWindow::setTileIndex);
        m_views.tabs->addDocument(view, Type::Blocks, blocksId, blocks->name());
    }
    view->followTilePicker(m_views.tilePicker); // a map may have taken the picker for itself
    setActiveTileSet(blocks->tileSet() ? blocks->tileSet()->id() : QUuid());
}

void DocumentController::setActiveImageEditor(QUuid imageId)
{
    const auto image = project() ? project()->image(imageId) : QPointer<Image>();
    if (!image)
        return;
    if (QWidget *const tab = m_views.tabs->documentWidget(imageId))
        m_views.tabs->setCurrentWidget(tab);
    else
        openImage(image);
    if (image->palette())
        setActivePalette(image->palette()->id());
}

void DocumentController::showName(const QUuid &id, const QString &name)
{
    m_views.tabs->setDocumentText(id, name);
    m_views.spriteWindow->showTitle();
    m_views.mapSprites->showNames();
}

void DocumentController::openImage(const QPointer<Image> &image)
{
    const QUuid id = image->id();
    auto *const view = new ImageEditor::View(m_views.tabs);
    view->setMode(image->mode());
    view->setPalette(image->palette());
    view->setImage(image->image());
    connect(view, &ImageEditor::View::imageChanged, image.data(), &Image::setImage);
    view->setUndoStack(undoStack(id));
    m_views.tabs->addDocument(view, Type::Image, id, image->name());
    // Closing the tab drops the history; with the project all stacks go anyway.
    connect(view, &QObject::destroyed, this, [this, id] { removeUndoStack(id); });
}

void DocumentController::scratchEditorActivated()
{
    if (!project())
        return;
    m_views.paletteWindow->setPalette(project()->scratchPalette());
    m_views.paletteWindow->raise();
    SpriteMenu *const menu = m_views.menuBar->spriteMenu();
    menu->setSpriteBank(nullptr);
    menu->setSpriteActionsEnabled(false);
}

void DocumentController::openProject(Project *project)
{
    m_recorder = new EditRecorder(
        project, [this](const QUuid &id) { return m_undoStacks.recordingStack(id); }, this);
    connect(project, &Project::imageCreated, this,
            [this](const QPointer<Image> &image) { setActiveImageEditor(image->id()); });
    // A map on display offers at once what has just been made.
    connect(project, &Project::spritesCreated, this, [this] {
        if (m_mapView)
            offerSprites(m_mapView);
    });
    connect(project, &Project::blocksCreated, this,
            [this] { m_views.blockSelector->setTileSet(m_views.tilePicker->tileSet()); });
}

void DocumentController::restoreOpenDocuments()
{
    const QStringList documents = project()->openDocuments();
    for (const QString &document : documents) {
        const QUuid id = QUuid::fromString(document);
        if (project()->map(id))
            setActiveMap(id);
        else if (project()->blocks(id))
            setActiveBlockEditor(id);
        else if (project()->spriteBank(id))
            setActiveSpriteEditor(id);
    }
}

void DocumentController::recordOpenDocuments()
{
    m_wasAnimated.clear();
    for (MapEditor::View *const view : m_views.tabs->mapViews()) {
        m_wasAnimated.insert(view, view->animator().timer().isActive());
        view->animator().timer().stop();
    }
    QStringList documents;
    for (const QUuid &id : m_views.tabs->documentIds())
        documents += id.isNull() ? QString() : id.toString();
    project()->setOpenDocuments(documents);
}

void DocumentController::restartAnimations()
{
    for (MapEditor::View *const view : m_views.tabs->mapViews()) {
        if (m_wasAnimated.value(view))
            view->animator().timer().start();
        else
            view->animator().timer().stop();
    }
    m_wasAnimated.clear();
}

void DocumentController::endProject()
{
    m_views.tabs->setEnabled(false);
    m_views.tabs->setUpdatesEnabled(false);
    m_views.tabs->closeAll();
    m_views.tabs->setUpdatesEnabled(true);
    m_views.menuBar->viewMenu()->setScratchEnabled(false);
    m_views.projectWindow->showPlaceholder();
    m_views.tileWindow->showPlaceholder();
    m_views.paletteWindow->showPlaceholder();
    m_views.spriteWindow->setSprites(nullptr);
    delete m_recorder;
    m_undoStacks.clear();
    m_editTarget.clear();
    m_views.menuBar->editMenu()->setClipboardEnabled(false);
}

void DocumentController::clearViews()
{
    m_views.tabs->setEnabled(true);
    m_views.menuBar->setProject(nullptr);
    m_views.tilePicker->setTileSet(nullptr);
    m_views.blockSelector->setTileSet(nullptr);
    m_views.mapSprites->setBanks({});
    m_views.mapSprites->showPlaceholder();
}
