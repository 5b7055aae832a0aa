#include "mapeditor/PlaceSpriteTool.h"

#include "mapeditor/MapGrid.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

using namespace MapEditor;

namespace {

constexpr double GhostOpacity = 0.6;

} // namespace

bool PlaceSpriteTool::activate()
{
    m_grid->updateCursor();
    return true;
}

bool PlaceSpriteTool::isBlocked() const
{
    return !m_grid->m_map->isSpriteLayerVisible();
}

bool PlaceSpriteTool::mousePress(QMouseEvent *event)
{
    if (isBlocked() || !m_grid->m_buttons.testFlag(Qt::LeftButton))
        return true;

    const QPoint position = wholePosition(event->position());
    const QPoint pixel = m_grid->cellGeometry().mapPixelAt(position);
    const int index = m_grid->spriteAt(pixel);
    if (index >= 0)
        startDrag(index, pixel, position);
    else if (m_grid->m_hasSpriteTemplate)
        placeTemplate(snappedPixel(pixel, m_grid->m_snapSize));
    else
        m_grid->selectSprite(-1);
    return true;
}

void PlaceSpriteTool::startDrag(int index, QPoint pixel, QPoint position)
{
    const Map::PlacedSprite &sprite = m_grid->m_map->sprites().at(index);
    m_dragIndex = index;
    m_moved = false;
    m_pressPos = position;
    m_grabOffset = pixel - QPoint(sprite.x, sprite.y);
    m_grid->m_hoverSprite = index;
    m_grid->selectSprite(index);
    m_grid->beginEdit();
}

void PlaceSpriteTool::placeTemplate(QPoint pixel)
{
    Map &map = *m_grid->m_map;
    const QRect area(QPoint(), map.tileLayer()->size() * GridGeometry::CellPixels);
    if (!area.contains(pixel))
        return;

    Map::PlacedSprite sprite = m_grid->m_spriteTemplate;
    sprite.x = pixel.x();
    sprite.y = pixel.y();
    m_grid->beginEdit();
    map.sprites().append(sprite);
    const int index = static_cast<int>(map.sprites().size()) - 1;
    m_grid->m_hoverSprite = index;
    m_grid->endEdit(QStringLiteral("Place Sprite"));
    // Also when a sprite that has gone by now had this number.
    m_grid->m_selectedSprite = index;
    emit m_grid->selectedSpriteChanged(index);
    m_grid->update();
}

void PlaceSpriteTool::mouseMove(QMouseEvent *event)
{
    const QPoint position = wholePosition(event->position());
    const QPoint pixel = m_grid->cellGeometry().mapPixelAt(position);
    m_ghostPos = snappedPixel(pixel, m_grid->m_snapSize);
    m_grid->m_hoverCell = m_grid->cellGeometry().cellAt(position);
    m_grid->update();
    if (!holdsSprite())
        m_dragIndex = -1;
    if (m_dragIndex >= 0)
        drag(pixel, position);
    else
        m_grid->m_hoverSprite = m_grid->spriteAt(pixel);
}

/// Another tool, a deletion or an undo in the middle of a drag ends the hover, and the drag with
/// it: by its number another sprite would be meant.
bool PlaceSpriteTool::holdsSprite() const
{
    return m_dragIndex >= 0 && m_grid->m_hoverSprite == m_dragIndex;
}

void PlaceSpriteTool::drag(QPoint pixel, QPoint position)
{
    if (!m_moved && (position - m_pressPos).manhattanLength() < QApplication::startDragDistance())
        return;
    QList<Map::PlacedSprite> &sprites = m_grid->m_map->sprites();
    const QPoint target = snappedPixel(pixel - m_grabOffset, m_grid->m_snapSize);
    Map::PlacedSprite &sprite = sprites[m_dragIndex];
    if (target == QPoint(sprite.x, sprite.y))
        return;
    sprite.x = target.x();
    sprite.y = target.y();
    m_moved = true;
    m_grid->update();
}

void PlaceSpriteTool::mouseRelease(QMouseEvent *)
{
    if (m_dragIndex < 0)
        return;
    const bool isClick = holdsSprite() && !m_moved;
    const int index = std::exchange(m_dragIndex, -1);
    m_grid->endEdit(QStringLiteral("Move Sprite"));
    if (isClick)
        emit m_grid->spriteClicked(index);
}

void PlaceSpriteTool::paintOverGrid(QPainter &painter)
{
    if (!m_grid->m_hasSpriteTemplate || m_dragIndex >= 0 || m_grid->m_hoverSprite >= 0 ||
        m_grid->m_hoverCell.x() == -1)
        return;
    Map::PlacedSprite ghost = m_grid->m_spriteTemplate;
    ghost.x = m_ghostPos.x();
    ghost.y = m_ghostPos.y();
    painter.setOpacity(GhostOpacity);
    m_grid->paintSprite(painter, ghost, 0);
    painter.setOpacity(1.0);
}
