#include "mapeditor/DrawTool.h"

#include "mapeditor/MapGrid.h"
#include "model/TileSet.h"

#include <QPainter>

using namespace MapEditor;

bool DrawTool::activate()
{
    m_grid->updateCursor();
    m_grid->m_rubberBand.hide();
    m_grid->m_selection = QRect();
    return true;
}

bool DrawTool::isBlocked() const
{
    return !m_grid->m_map->tileLayer()->isVisible();
}

void DrawTool::mouseRelease(QMouseEvent *)
{
    m_grid->endEdit(QStringLiteral("Paint"));
}

void DrawTool::paintUnderGrid(QPainter &painter)
{
    const bool shows = m_grid->m_hoverCell.x() != -1 && m_grid->m_currentTile >= 0 &&
                       !m_grid->m_hoverAnimationRect.isValid();
    const auto tileSet = m_grid->m_map->tileSet();
    if (shows && tileSet && m_grid->m_currentTile < tileSet->count()) {
        const auto data = m_grid->currentTileData(true);
        const QImage tile =
            tileSet->tileImage(data.index, data.rotate, data.flip, data.mirror, data.offset);
        painter.drawImage(m_grid->cellGeometry().fromCells({m_grid->m_hoverCell, QSize(1, 1)}),
                          tile);
    }
    m_grid->paintSelection(painter);
}
