#include "mapeditor/MapGrid.h"

#include "mapeditor/DrawTool.h"
#include "mapeditor/PasteTool.h"
#include "mapeditor/PickTool.h"
#include "mapeditor/PlaceAnimationTool.h"
#include "mapeditor/PlaceSpriteTool.h"
#include "mapeditor/SelectTool.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"
#include "uikit/PointerKeys.h"

#include <QMetaEnum>
#include <QMouseEvent>
#include <QUndoStack>
#include <QWheelEvent>

#include <algorithm>

using namespace MapEditor;
using Tool = Tessaril::Ui::ToolButton;

namespace {

const QPoint NoCell(-1, 0);

} // namespace

MapGrid::MapGrid(QWidget *parent)
    : QWidget(parent)
    , m_rubberBand(QRubberBand::Rectangle, this)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setEnabled(false);
    setAccessibleName(tr("Map"));
    makeTools();
    makeContextMenu();
}

MapGrid::~MapGrid() = default;

void MapGrid::makeTools()
{
    const auto add = [this](std::shared_ptr<MapTool> tool) { m_tools.insert(tool->id(), tool); };
    add(std::make_shared<DrawTool>(this));
    add(std::make_shared<PasteTool>(this));
    add(std::make_shared<PickTool>(this));
    add(std::make_shared<SelectTool>(this));
    add(std::make_shared<PlaceSpriteTool>(this));
    add(std::make_shared<PlaceAnimationTool>(this));
    m_currentTool = m_tools.value(Tool::Draw).get();
}

void MapGrid::setMap(const QPointer<Map> &map)
{
    if (m_map)
        disconnect(m_map, nullptr, this, nullptr);
    m_map = map;
    setEnabled(!m_map.isNull());
    if (!m_map)
        return;

    m_gridVisible = m_map->isGridVisible();
    m_gridPreference = m_gridVisible;
    m_transparencyIndex = m_map->tileTransparencyIndex();
    m_backgroundTileIndex = m_map->backgroundTileIndex();
    connect(m_map, &Map::restored, this, &MapGrid::mapRestored, Qt::UniqueConnection);
    updateGeometryMetrics();
    update();
}

void MapGrid::setUndoStack(QUndoStack *stack)
{
    m_undoStack = stack;
}

void MapGrid::setCellMetrics(int tileSize, int zoomLevel)
{
    m_tileSize = std::max(1, tileSize);
    const bool isLevel = zoomLevel >= MinZoomLevel && zoomLevel <= MaxZoomLevel;
    setZoom(isLevel ? zoomLevel : m_zoomLevel);
}

void MapGrid::setGridColours(const QColor &first, const QColor &second)
{
    m_firstGridColour = first;
    m_secondGridColour = second;
}

void MapGrid::setMode(Tool mode)
{
    m_previousMode = m_mode;
    m_mode = mode;
    m_hoverSprite = -1;
    if (mode != Tool::PlaceSprite && m_selectedSprite >= 0)
        selectSprite(-1);

    const auto tool = m_tools.value(mode);
    if (tool) {
        m_currentTool = tool.get();
        if (!m_currentTool->activate() && m_previousMode != Tool::Paste) {
            setMode(m_previousMode);
            return;
        }
    } else {
        qInfo("MapWidget::setMode(%s) Unhandled switch case",
              QMetaEnum::fromType<Tool>().valueToKey(static_cast<int>(mode)));
    }
    if (m_mode != m_previousMode)
        emit modeChanged(m_mode);
    update();
}

void MapGrid::setOrientation(bool rotated, bool flipped, bool mirrored)
{
    m_rotated = rotated;
    m_flipped = flipped;
    m_mirrored = mirrored;
    update();
}

void MapGrid::setSelection(const QRect &cells)
{
    m_selection = cells;
    update();
}

void MapGrid::updateCursor()
{
    if (m_currentTool && m_map)
        setCursor(m_currentTool->isBlocked() ? QCursor(Qt::ForbiddenCursor)
                                             : m_currentTool->cursor());
}

void MapGrid::updateGeometryMetrics()
{
    if (!m_map || !m_map->tileLayer())
        return;
    const QSize map = m_map->tileLayer()->size();
    const QSize viewport = m_viewportEnabled ? m_viewportSize : QSize();
    m_geometry.gridRect = GridGeometry::centred(size(), map, viewport, m_geometry.cellSize);
    const QSize visible = m_geometry.visibleCells().size();
    emit scrollDeltaChanged(map.width() - visible.width(), map.height() - visible.height());
}

void MapGrid::setZoom(int level)
{
    m_zoomLevel = level;
    m_geometry.cellSize = m_zoomLevel * m_tileSize;
    updateGeometryMetrics();
    update();
}

void MapGrid::zoomIn()
{
    setZoom(m_zoomLevel < MaxZoomLevel ? m_zoomLevel + 1 : m_zoomLevel);
}

void MapGrid::zoomOut()
{
    setZoom(m_zoomLevel >= 2 && m_zoomLevel <= 9 ? m_zoomLevel - 1 : m_zoomLevel);
}

void MapGrid::fitTo(bool doEvent)
{
    if (!m_map || !m_map->tileLayer())
        return;
    m_zoomLevel = MinZoomLevel;
    m_geometry.cellSize = GridGeometry::fittingCellSize(
        size(), m_viewportEnabled ? m_viewportSize : m_map->tileLayer()->size());
    if (doEvent) {
        updateGeometryMetrics();
        update();
    }
}

void MapGrid::scrollBy(QPoint delta)
{
    if (!m_map)
        return;
    const QSize map = m_map->tileLayer()->size();
    const QSize visible = m_geometry.visibleCells().size();
    const auto step = [](int wanted, int position, int room) {
        if (wanted > 0 && position < room)
            return 1;
        return wanted < 0 && position > 0 ? -1 : 0;
    };
    QPoint moved(step(delta.x(), m_geometry.scroll.x(), map.width() - visible.width()), 0);
    if (moved.isNull())
        moved.setY(step(delta.y(), m_geometry.scroll.y(), map.height() - visible.height()));
    if (moved.isNull())
        return;

    m_geometry.scroll += moved;
    m_hoverCell.setX(-1);
    if (m_rubberBand.isVisible())
        m_rubberBand.move(m_rubberBand.pos() - moved * m_geometry.cellSize);
    update();
    emit scrollPositionChanged(m_geometry.scroll);
}

void MapGrid::reveal(QPoint cell)
{
    const auto wanted = [](int position, int first, int last) {
        return position > last ? 1 : position < first ? -1 : 0;
    };
    QPoint before(-1, -1);
    while (before != m_geometry.scroll) {
        before = m_geometry.scroll;
        const QRect visible = m_geometry.visibleCells();
        scrollBy({wanted(cell.x(), visible.left(), visible.right()),
                  wanted(cell.y(), visible.top(), visible.bottom())});
    }
}

void MapGrid::takeKeysOf(QWidget *view)
{
    new PointerKeys(this, view,
                    {.cells = [this] { return m_map ? m_map->tileLayer()->rect() : QRect(); },
                     .visible = [this] { return m_geometry.visibleCells(); },
                     .current = [this] { return m_hoverCell; },
                     .reveal = [this](QPoint cell) { reveal(cell); },
                     .rectOf =
                         [this](QPoint cell) {
                             return m_geometry.fromCells({cell, QSize(1, 1)});
                         }},
                    Qt::ShiftModifier);
}

void MapGrid::setHorizontalScrollPosition(int pos)
{
    m_geometry.scroll.setX(pos);
    update();
}

void MapGrid::setVerticalScrollPosition(int pos)
{
    m_geometry.scroll.setY(pos);
    update();
}

void MapGrid::setViewPort(bool enabled, QSize size)
{
    m_viewportEnabled = enabled;
    m_viewportSize = size;
    if (enabled) {
        updateGeometryMetrics();
        update();
    }
}

void MapGrid::setCurrentTileIndex(int index)
{
    m_currentAnimation = nullptr;
    m_currentTile = index;
    update();
}

void MapGrid::setCurrentTileAnimation(QPointer<TileAnimation> anim)
{
    m_currentTile = -1;
    m_currentAnimation = anim;
    setMode(Tool::PlaceAnim);
    update();
}

void MapGrid::setCurrentSpriteAnimation(QPointer<SpriteAnim> anim)
{
    Map::PlacedSprite sprite;
    if (anim) {
        sprite.bank = anim->bank() ? anim->bank()->id() : QUuid();
        sprite.animation = anim->id();
    }
    chooseTemplate(sprite, !anim.isNull());
}

void MapGrid::setCurrentSprite(QUuid bankId, int index)
{
    Map::PlacedSprite sprite;
    sprite.bank = bankId;
    sprite.sprite = index;
    chooseTemplate(sprite, index >= 0);
}

void MapGrid::chooseTemplate(const Map::PlacedSprite &sprite, bool isUsable)
{
    m_currentTile = -1;
    m_hasSpriteTemplate = isUsable;
    m_spriteTemplate = isUsable ? sprite : Map::PlacedSprite();
    if (isUsable)
        setMode(Tool::PlaceSprite);
    update();
}

void MapGrid::setGridVisible(bool visible)
{
    m_gridVisible = visible;
    m_gridPreference = visible;
    update();
}

void MapGrid::setTransparencyIndex(int index)
{
    m_transparencyIndex = index;
    update();
}

void MapGrid::setBackgroundTileIndex(int index)
{
    m_backgroundTileIndex = index;
    update();
}

void MapGrid::setSnapToSize(int size)
{
    m_snapSize = size;
}

void MapGrid::setSpriteBanks(QList<QPointer<SpriteBank>> banks)
{
    m_spriteBanks = banks;
    update();
}

void MapGrid::setSpriteTicks(qint64 ticks)
{
    m_spriteTicks = ticks;
}

void MapGrid::setMapVisibility(bool visible)
{
    if (m_map)
        m_map->tileLayer()->setVisible(visible);
    updateCursor();
    update();
}

void MapGrid::setObjectVisibility(bool visible)
{
    if (m_map)
        m_map->objectLayer()->setVisible(visible);
    updateCursor();
    update();
}

void MapGrid::setSpriteVisibility(bool visible)
{
    if (m_map)
        m_map->setSpriteLayerVisible(visible);
    updateCursor();
    update();
}

void MapGrid::tileMapChanged()
{
    update();
}

int MapGrid::spriteAt(QPoint mapPixel) const
{
    const auto &sprites = m_map->sprites();
    for (auto i = sprites.size() - 1; i >= 0; --i) {
        if (spriteBounds(m_spriteBanks, sprites.at(i)).contains(mapPixel))
            return static_cast<int>(i);
    }
    return -1;
}

QRect MapGrid::spriteScreenRect(int index) const
{
    if (!m_map || index < 0 || index >= m_map->sprites().size())
        return {};
    const QRect bounds = spriteBounds(m_spriteBanks, m_map->sprites().at(index));
    if (!bounds.isValid())
        return {};
    const QPoint topLeft = m_geometry.fromMapPixel(bounds.topLeft());
    const QPoint beyond = m_geometry.fromMapPixel(bounds.bottomRight() + QPoint(1, 1));
    return {mapToGlobal(topLeft), QSize(beyond.x() - topLeft.x(), beyond.y() - topLeft.y())};
}

void MapGrid::selectSprite(int index)
{
    if (index == m_selectedSprite)
        return;
    m_selectedSprite = index;
    emit selectedSpriteChanged(index);
}

TileMap::TileData MapGrid::currentTileData(bool occupied) const
{
    const auto tileSet = m_map->tileSet();
    return {.index = m_currentTile,
            .rotate = m_rotated,
            .flip = m_flipped,
            .mirror = m_mirrored,
            .offset = tileSet ? tileSet->tileOffset(m_currentTile) : 0,
            .occupied = occupied};
}

void MapGrid::resizeEvent(QResizeEvent *)
{
    updateGeometryMetrics();
}

void MapGrid::mousePressEvent(QMouseEvent *event)
{
    m_pressPos = wholePosition(event->position());
    m_previousMode = m_mode;
    m_buttons = event->buttons();
    if (!m_map || m_buttons.testFlag(Qt::MiddleButton) || m_currentTool->contextPress(event))
        return;

    if (event->modifiers().testFlag(Qt::ShiftModifier)) {
        setMode(Tool::Select);
        emit modeChanged(Tool::Select);
        return;
    }
    if (!m_currentTool->mousePress(event))
        moveTo(event);
}

void MapGrid::mouseMoveEvent(QMouseEvent *event)
{
    moveTo(event);
}

void MapGrid::moveTo(QMouseEvent *event)
{
    if (m_map && m_geometry.gridRect.contains(wholePosition(event->position()))) {
        m_currentTool->mouseMove(event);
        tellChange(focusProxy() ? focusProxy() : this);
    } else {
        m_hoverCell.setX(-1);
        update();
    }
}

void MapGrid::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_map)
        return;
    if (m_buttons.testFlag(Qt::MiddleButton)) {
        pickAt(wholePosition(event->position()));
        setMode(m_previousMode);
    } else {
        m_currentTool->mouseRelease(event);
    }
    if (m_editDepth > 0) {
        m_editDepth = 1;
        endEdit(QStringLiteral("Edit"));
    }
    m_rubberBand.hide();
    m_buttons = Qt::NoButton;
}

void MapGrid::pickAt(QPoint position)
{
    const QPoint cell = m_geometry.cellAt(position);
    const auto layer = m_map->tileLayer();
    emit tilePicked(layer->contains(cell) ? layer->cell(cell) : TileMap::TileData());
}

void MapGrid::leaveEvent(QEvent *)
{
    m_hoverCell.setX(-1);
    update();
}

void MapGrid::wheelEvent(QWheelEvent *event)
{
    // Some systems turn the wheel sideways while Shift or Alt is held.
    const QPoint delta = event->angleDelta();
    const int amount = delta.y() != 0 ? delta.y() : delta.x();
    if (amount == 0) // a touchpad tells so that a gesture begins or ends
        return;
    const bool isForward = amount > 0;
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        if (isForward)
            zoomIn();
        else
            zoomOut();
    } else if (event->modifiers().testFlag(Qt::ShiftModifier)) {
        scrollBy({isForward ? -1 : 1, 0});
    } else {
        scrollBy({0, isForward ? -1 : 1});
    }
    event->accept();
}
