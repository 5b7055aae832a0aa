#include "mapeditor/CellTool.h"

#include "mapeditor/MapGrid.h"
#include "model/AnimatedBlocks.h"
#include "model/TileAnimation.h"

#include <QMouseEvent>

using namespace MapEditor;

bool CellTool::mousePress(QMouseEvent *)
{
    m_grid->beginEdit();
    return false;
}

void CellTool::mouseMove(QMouseEvent *event)
{
    const GridGeometry &geometry = m_grid->cellGeometry();
    const QPoint offset = geometry.cellOffset(wholePosition(event->position()));
    const QPoint cell = snappedCell(offset, m_grid->m_snapSize) + geometry.scroll;
    const QPoint hovered = snappedCell(cell, m_grid->m_snapSize);
    const QPoint before = m_grid->m_hoverCell;
    const bool moved = hovered != before;
    m_grid->m_hoverCell = hovered;

    if (m_grid->m_buttons == Qt::NoButton)
        hover(before);
    else if (m_grid->m_hoverAnimationRect.isValid())
        return; // what lies below a placed object is not painted by a stroke that starts on it
    else if (m_grid->m_editDepth == 0) // pressed for another tool, or to pick a tile
        m_grid->updateHover(before, m_grid->m_hoverAnimationRect);
    else if (m_grid->m_currentTile >= 0)
        paintCell(cell, before);
    else
        placeObject(moved);
}

void CellTool::hover(QPoint cellBefore)
{
    const QRect objectBefore = m_grid->m_hoverAnimationRect;
    QRect found;
    for (const auto &block : m_grid->m_map->animatedBlocks()->blocks()) {
        if (block->rect.contains(m_grid->m_hoverCell)) {
            found = block->rect;
            break;
        }
    }
    if (found.isValid()) {
        m_grid->m_hoverAnimationRect = found;
        if (!isBlocked())
            m_grid->setCursor(Qt::SizeAllCursor);
    } else if (m_grid->m_hoverAnimationRect.isValid()) {
        m_grid->updateCursor();
        m_grid->m_hoverAnimationRect = QRect();
    }
    m_grid->updateHover(cellBefore, objectBefore);
}

void CellTool::paintCell(QPoint cell, QPoint hoverBefore)
{
    const auto layer = m_grid->m_map->tileLayer();
    bool changed = false;
    if (layer->isVisible() && layer->contains(cell)) {
        const auto data = m_grid->currentTileData(m_grid->m_buttons.testFlag(Qt::LeftButton));
        changed = layer->cell(cell) != data;
        layer->setCell(cell, data);
    }
    if (changed || m_grid->m_hoverCell != hoverBefore)
        m_grid->updateHover(hoverBefore, m_grid->m_hoverAnimationRect);
}

void CellTool::placeObject(bool moved)
{
    Map &map = *m_grid->m_map;
    const auto animation = m_grid->m_currentAnimation;
    if (!animation || !map.objectLayer()->isVisible()) {
        if (moved)
            m_grid->update();
        return;
    }

    const QRect rect(m_grid->m_hoverCell, animation->size());
    m_grid->m_hoverAnimationRect = rect;
    m_grid->beginEdit();
    map.tileLayer()->fill(rect, true);
    map.stampAnimation(animation, rect.topLeft());
    map.addAnimation({.id = animation->id(), .rect = rect});
    m_grid->endEdit(QStringLiteral("Place Animation"));
    m_grid->update();
}
