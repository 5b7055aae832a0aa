#include "mapeditor/View.h"

#include "dialogs/ExportMapDialog.h"
#include "dialogs/ResizeMapDialog.h"
#include "mapeditor/MapGrid.h"
#include "mapeditor/MapToolPalette.h"
#include "mapeditor/ToolBar.h"
#include "mapeditor/ViewBuilder.h"
#include "model/AnimatedBlocks.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"
#include "uikit/PlainText.h"
#include "uikit/ScrollBar.h"
#include "uikit/WaitCursor.h"

#include <QFileDialog>
#include <QTabWidget>
#include <QUndoStack>

using namespace MapEditor;
using Tessaril::Position;
using Tool = Tessaril::Ui::ToolButton;

namespace {

constexpr int BytesPerCell = 2; // of an exported map

} // namespace

View::View(QWidget *parent)
    : QSplitter(Qt::Horizontal, parent)
    , m_resizeDialog(new ResizeMapDialog)
    , m_grid(new MapGrid(this))
    , m_toolPalette(new MapToolPalette(this))
    , m_horizontalScrollBar(new ScrollBar(Qt::Horizontal, this))
    , m_verticalScrollBar(new ScrollBar(Qt::Vertical, this))
{
    // Windows by now: a splitter takes for a pane what is none yet.
    m_resizeDialog->setParent(this, m_resizeDialog->windowFlags());
    m_spritePopover.setParent(this, m_spritePopover.windowFlags());
    ViewBuilder(this).build();
}

View::~View() = default;

void View::setMap(const QPointer<Map> &map)
{
    if (m_map) {
        if (const auto tileSet = m_map->tileSet())
            disconnect(tileSet, nullptr, m_grid, nullptr);
        for (TileMap *layer : {m_map->tileLayer().data(), m_map->objectLayer().data()}) {
            if (layer)
                disconnect(layer, nullptr, m_grid, nullptr);
        }
        disconnect(m_map, nullptr, this, nullptr);
    }
    m_map = map;
    m_animator.setMap(map);
    if (m_map) {
        if (const auto tileSet = m_map->tileSet()) {
            connect(tileSet, &TileSet::tileChanged, m_grid, &MapGrid::tileMapChanged);
            // Inserted and deleted tiles renumber cells, and tell no picture.
            connect(tileSet, &TileSet::structureChanged, m_grid, &MapGrid::tileMapChanged);
            connect(tileSet, &TileSet::restored, m_grid, &MapGrid::tileMapChanged);
        }
        for (TileMap *layer : {m_map->tileLayer().data(), m_map->objectLayer().data()}) {
            if (layer)
                connect(layer, &TileMap::tilesChanged, m_grid, &MapGrid::tileMapChanged);
        }
        connect(m_map, &Map::nameChanged, this, &View::updateTabText);
        connect(m_map, &Map::restored, this, &View::updateSizeText);
        clearCoveredCells();
        m_toolPalette->setShowGridChecked(m_map->isGridVisible());
    }
    m_grid->setMap(map);
    updateSizeText();
}

void View::setUndoStack(QUndoStack *stack)
{
    if (m_undoStack)
        disconnect(m_undoStack, nullptr, this, nullptr);
    m_undoStack = stack;
    m_grid->setUndoStack(stack);
    if (stack)
        connect(stack, &QUndoStack::indexChanged, this, &View::refreshSpriteProperties);
}

void View::applySettings(const ViewSettings &settings)
{
    m_grid->setGridColours(settings.firstGridColour, settings.secondGridColour);
    m_grid->setCellMetrics(settings.gridSize, settings.defaultZoom);
}

void View::setSpriteBanks(const QList<QPointer<SpriteBank>> &banks)
{
    m_grid->setSpriteBanks(banks);
    for (const auto &bank : banks) {
        if (!bank)
            continue;
        connect(bank, &SpriteBank::imageChanged, this, &View::spritesChanged, Qt::UniqueConnection);
        connect(bank, &SpriteBank::restored, this, &View::spritesChanged, Qt::UniqueConnection);
        // A deletion changes no picture. The placed sprites are up to date when this is sent.
        connect(bank, &SpriteBank::structureChanged, this, &View::spritesChanged,
                Qt::UniqueConnection);
        connect(bank, &SpriteBank::spriteDeleted, m_grid, &MapGrid::placedSpritesRenumbered,
                Qt::UniqueConnection);
        connect(bank, &SpriteBank::animationsChanged, this, &View::spritesChanged,
                Qt::UniqueConnection);
        followLook(*bank);
    }
}

/// Of what is placed on the map: its colours and frames.
void View::followLook(const SpriteBank &bank)
{
    const auto follow = [this](const auto *sender, auto signal) {
        connect(sender, signal, m_grid, &MapGrid::tileMapChanged, Qt::UniqueConnection);
    };
    if (const auto palette = bank.palette())
        follow(palette.data(), &Palette::colourChanged);
    for (const auto &animation : bank.animations()) {
        follow(animation.data(), &Animation::frameChanged);
        follow(animation.data(), &Animation::contentChanged);
        follow(animation.data(), &Animation::sizeChanged);
        follow(animation.data(), &Animation::delayChanged);
    }
}

/// With its picture a bank may have got another palette, for which it has no signal.
void View::spritesChanged()
{
    if (const auto *const bank = qobject_cast<SpriteBank *>(sender()))
        followLook(*bank);
    m_grid->update();
}

void View::clearCoveredCells()
{
    for (const auto &block : m_map->animatedBlocks()->blocks())
        m_map->tileLayer()->fill(block->rect, true);
}

void View::cut()
{
    m_grid->cutSelection();
}

void View::copy()
{
    m_grid->copySelection();
}

void View::paste()
{
    m_grid->setMode(Tool::Paste);
}

void View::selectAll()
{
    if (!m_map)
        return;
    m_grid->setMode(Tool::Select);
    m_grid->setSelection(m_map->tileLayer()->rect());
}

void View::selectNone()
{
    m_grid->hideRubberBand();
}

void View::cancel()
{
    if (m_spritePopover.isVisible()) {
        m_spritePopover.hide();
        return;
    }
    m_grid->setMode(Tool::Draw);
    m_grid->hideRubberBand();
}

void View::setTileIndex(int index)
{
    m_grid->setCurrentTileIndex(index);
}

void View::setMapObject(QPointer<TileAnimation> animation)
{
    m_grid->setCurrentTileAnimation(animation);
}

void View::setSpriteAnimation(QPointer<SpriteAnim> animation)
{
    m_grid->setCurrentSpriteAnimation(animation);
}

void View::setSingleSprite(QUuid bankId, int index)
{
    m_grid->setCurrentSprite(bankId, index);
}

void View::toolPaletteClicked(Tool action)
{
    toolPaletteClicked(action, false);
}

void View::toolPaletteClicked(Tool action, bool checked)
{
    switch (action) {
    case Tool::Draw:
    case Tool::Select:
    case Tool::Pick:
    case Tool::PlaceAnim:
    case Tool::PlaceSprite:
        m_grid->setMode(action);
        break;
    case Tool::Resize:
        showResizeDialog();
        break;
    case Tool::Grid:
        if (m_map)
            m_map->setGridVisible(checked);
        m_grid->setGridVisible(checked);
        break;
    case Tool::ZoomIn:
        m_grid->zoomIn();
        break;
    case Tool::ZoomOut:
        m_grid->zoomOut();
        break;
    case Tool::RotateCW:
        m_grid->setOrientation(checked, m_grid->isFlipped(), m_grid->isMirrored());
        break;
    case Tool::Flip:
        m_grid->setOrientation(m_grid->isRotated(), checked, m_grid->isMirrored());
        break;
    case Tool::Mirror:
        m_grid->setOrientation(m_grid->isRotated(), m_grid->isFlipped(), checked);
        break;
    case Tool::MoveUp:
        m_grid->scrollUp();
        break;
    case Tool::MoveDown:
        m_grid->scrollDown();
        break;
    case Tool::MoveLeft:
        m_grid->scrollLeft();
        break;
    case Tool::MoveRight:
        m_grid->scrollRight();
        break;
    case Tool::PaintPalette:
        resetPaletteOffsets();
        break;
    case Tool::Save:
        showExportDialog();
        break;
    case Tool::AnimPlay:
    case Tool::AnimStop:
        if (checked)
            m_animator.timer().start();
        else
            m_animator.timer().stop();
        break;
    case Tool::ExpandToFit:
    case Tool::ShrinkToFit:
        m_grid->fitTo(true);
        break;
    case Tool::ToggleViewport:
        m_grid->setViewPort(checked, m_viewportSize);
        break;
    default:
        break;
    }
}

void View::resetPaletteOffsets()
{
    if (!m_map || !m_map->tileSet())
        return;
    const WaitCursor wait;
    const auto layer = m_map->tileLayer();
    TileMap::Rows rows = layer->rows();
    for (auto &row : rows) {
        for (TileMap::TileData &cell : row)
            cell.offset = m_map->tileSet()->tileOffset(cell.index);
    }
    if (rows != layer->rows())
        layer->setTiles(rows);
    m_grid->update();
}

void View::showResizeDialog()
{
    if (!m_map)
        return;
    m_resizeDialog->setMapSize(m_map->tileLayer()->size());
    m_resizeDialog->open();
}

QString View::spokenValue() const
{
    return m_grid->spokenValue();
}

void View::resizeMap()
{
    if (!m_map || m_resizeDialog->mapSize() == m_map->tileLayer()->size())
        return;
    const WaitCursor wait;
    m_grid->resizeMap(m_resizeDialog->mapSize(), m_resizeDialog->alignment());
    updateSizeText();
}

void View::showExportDialog()
{
    if (!m_exportDialog) {
        m_exportDialog = new ExportMapDialog(window());
        connect(this, &QObject::destroyed, m_exportDialog, &QObject::deleteLater);
        connect(m_exportDialog, &QDialog::accepted, this, [this] {
            QFileDialog dialog(this, tr("Choose a directory to export anim into"));
            dialog.setFileMode(QFileDialog::Directory);
            dialog.setOption(QFileDialog::ShowDirsOnly);
            if (dialog.exec() == QDialog::Accepted)
                exportTo(dialog.selectedFiles().value(0));
        });
    }
    m_exportDialog->open();
}

void View::exportTo(const QString &directory)
{
    if (!m_map || directory.isEmpty())
        return;
    const WaitCursor wait;
    const auto tileSet = m_map->tileSet();
    const auto palette = tileSet ? tileSet->palette() : nullptr;
    if (m_exportDialog->exportsMap())
        emit exportTileMap(directory, m_map->id());
    if (m_exportDialog->exportsTiles())
        emit exportTiles(directory, tileSet ? tileSet->id() : QUuid());
    if (m_exportDialog->exportsPalette())
        emit exportTilePalette(directory, palette ? palette->id() : QUuid());
}

void View::updateScrollValues(int h, int v)
{
    m_horizontalScrollBar->setRange(0, h);
    m_verticalScrollBar->setRange(0, v);
    const QSize visible = m_grid->cellGeometry().visibleCells().size();
    m_horizontalScrollBar->setPageStep(visible.width());
    m_verticalScrollBar->setPageStep(visible.height());
}

void View::updateScrollBars(QPoint pos)
{
    m_horizontalScrollBar->setValue(pos.x());
    m_verticalScrollBar->setValue(pos.y());
}

void View::setSelectedTile(TileMap::TileData tileData)
{
    m_grid->setCurrentTileIndex(tileData.index);
    m_toolPalette->setActionChecked(Tool::RotateCW, tileData.rotate);
    m_toolPalette->setActionChecked(Tool::Flip, tileData.flip);
    m_toolPalette->setActionChecked(Tool::Mirror, tileData.mirror);
    emit tilePicked(tileData.index);
}

void View::addRow(Position position)
{
    const WaitCursor wait;
    m_grid->addRows(position, 1);
    updateSizeText();
}

void View::addColumn(Position position)
{
    const WaitCursor wait;
    m_grid->addColumns(position, 1);
    updateSizeText();
}

void View::removeRow(Position position)
{
    const WaitCursor wait;
    m_grid->removeRows(position, 1);
    updateSizeText();
}

void View::removeColumn(Position position)
{
    const WaitCursor wait;
    m_grid->removeColumns(position, 1);
    updateSizeText();
}

void View::updateTabText(QString text)
{
    for (QWidget *ancestor = parentWidget(); ancestor; ancestor = ancestor->parentWidget()) {
        if (auto *const tabs = qobject_cast<QTabWidget *>(ancestor)) {
            tabs->setTabText(tabs->indexOf(this), PlainText::label(text));
            return;
        }
    }
}

void View::advanceFrames()
{
    m_grid->setSpriteTicks(m_animator.ticks());
    m_grid->updateChanged();
}

void View::announceMode(Tool mode)
{
    if (mode == Tool::PlaceAnim)
        emit placeAnimModeEnabled();
    else if (mode == Tool::PlaceSprite)
        emit placeSpriteModeEnabled();
}

void View::showSpriteProperties(int index)
{
    const QRect area = m_grid->spriteScreenRect(index);
    if (area.isValid())
        m_spritePopover.showFor(m_map->sprites().at(index), area);
}

void View::followSelectedSprite(int index)
{
    if (!m_spritePopover.isVisible())
        return;
    if (m_grid->spriteScreenRect(index).isValid())
        showSpriteProperties(index);
    else
        m_spritePopover.hide();
}

/// A drag moves the sprite without choosing another one: an edit of the form, which holds the place
/// as well, would put it back.
void View::refreshSpriteProperties()
{
    const int index = m_grid->selectedSprite();
    if (m_spritePopover.isVisible() && m_grid->spriteScreenRect(index).isValid() &&
        m_map->sprites().at(index) != m_spritePopover.sprite())
        showSpriteProperties(index);
}

bool View::isOverSprite(QPoint globalPosition) const
{
    const QPoint position = m_grid->mapFromGlobal(globalPosition);
    return m_map && m_grid->rect().contains(position) &&
           m_grid->spriteAt(m_grid->cellGeometry().mapPixelAt(position)) >= 0;
}

void View::updateSizeText()
{
    if (!m_map)
        return;
    const QSize size = m_map->tileLayer()->size();
    m_sizeText = QStringLiteral("%1x%2 (%3 bytes)")
                     .arg(size.width())
                     .arg(size.height())
                     .arg(qint64(size.width()) * size.height() * BytesPerCell);
    if (m_toolBar)
        m_toolBar->setSizeText(m_sizeText);
}

void View::bindToolBar(ToolBar *toolBar)
{
    if (m_toolBar == toolBar)
        return;
    m_toolBar = toolBar;
    syncToolBar();
    m_toolBarConnections = {
        connect(toolBar, &ToolBar::transparencyIndexChanged, this,
                [this](int index) {
                    if (m_map)
                        m_map->setTileTransparencyIndex(index);
                    m_grid->setTransparencyIndex(index);
                }),
        connect(toolBar, &ToolBar::backgroundTileIndexChanged, this,
                [this](int index) {
                    if (m_map)
                        m_map->setBackgroundTileIndex(index);
                    m_grid->setBackgroundTileIndex(index);
                }),
        connect(toolBar, &ToolBar::snapToValueChanged, this,
                [this](int size) {
                    m_snapSize = size;
                    m_grid->setSnapToSize(size);
                }),
        connect(toolBar, &ToolBar::viewPortChanged, this,
                [this](QSize size) { m_viewportSize = size; }),
        connect(toolBar, &ToolBar::mapVisibilityChanged, m_grid, &MapGrid::setMapVisibility),
        connect(toolBar, &ToolBar::objectVisibilityChanged, m_grid, &MapGrid::setObjectVisibility),
        connect(toolBar, &ToolBar::spriteVisibilityChanged, m_grid, &MapGrid::setSpriteVisibility),
    };
}

void View::unbindToolBar()
{
    for (const auto &connection : std::as_const(m_toolBarConnections))
        disconnect(connection);
    m_toolBarConnections.clear();
    m_toolBar = nullptr;
}

void View::syncToolBar()
{
    if (!m_map)
        return;
    m_toolBar->setValues({.tilesVisible = m_map->tileLayer()->isVisible(),
                          .objectsVisible = m_map->objectLayer()->isVisible(),
                          .spritesVisible = m_map->isSpriteLayerVisible(),
                          .viewport = m_viewportSize,
                          .backgroundTile = m_map->backgroundTileIndex(),
                          .transparencyIndex = m_map->tileTransparencyIndex(),
                          .snap = m_snapSize,
                          .sizeText = m_sizeText});
}

void View::hideEvent(QHideEvent *event)
{
    m_wasAnimating = m_animator.timer().isActive();
    m_animator.timer().stop();
    m_spritePopover.hide();
    QSplitter::hideEvent(event);
}

void View::showEvent(QShowEvent *event)
{
    if (m_wasAnimating)
        m_animator.timer().start();
    QSplitter::showEvent(event);
}
