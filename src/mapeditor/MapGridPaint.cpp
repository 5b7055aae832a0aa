// How a map grid paints, from the bottom: background, layers, sprites, grid, what the tool shows.

#include "mapeditor/MapGrid.h"
#include "mapeditor/Outline.h"

#include <QElapsedTimer>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

using namespace MapEditor;

namespace {

const QColor GridLineColour(0x40, 0x40, 0x40);
const QPointF StatusPosition(10.0, 10.0);
constexpr int MaxParts = 16; // of the widget that are painted one by one

} // namespace

void MapGrid::paintEvent(QPaintEvent *event)
{
    QElapsedTimer timer;
    timer.start();
    if (!isEnabled() || !m_map)
        return;

    // Some changes of a model are not announced; what shows one elsewhere follows.
    const QRegion late = refreshPictures().subtracted(event->region());
    if (!late.isEmpty())
        update(late);
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform, false);
    painter.setBackgroundMode(Qt::TransparentMode);
    painter.setClipRect(rect());
    paintLayers(painter);
    if (m_map->isSpriteLayerVisible())
        m_sprites.paint(painter, event->region());
    paintHoveredSprite(painter);
    m_currentTool->paintUnderGrid(painter);
    if (m_gridVisible)
        paintGridLines(painter, event->region());
    if (m_hoverAnimationRect.isValid())
        paintCellOutline(painter, m_hoverAnimationRect);
    m_currentTool->paintOverGrid(painter);

    painter.setClipRect(rect());
    painter.setPen(Qt::white);
    painter.setBrush(Qt::transparent);
    painter.drawText(StatusPosition, QStringLiteral("  [%1:%2] %4ms  ")
                                         .arg(m_hoverCell.x())
                                         .arg(m_hoverCell.y())
                                         .arg(timer.elapsed()));
}

QString MapGrid::spokenValue() const
{
    if (!m_map || !m_map->tileLayer()->contains(m_hoverCell))
        return {};
    const QString place = tr("column %1, row %2").arg(m_hoverCell.x()).arg(m_hoverCell.y());
    const TileMap::TileData cell = m_map->tileLayer()->cell(m_hoverCell);
    QStringList words{place};
    if (cell.occupied)
        words += tr("tile %1, offset %2").arg(cell.index + 1).arg(cell.offset + 1);
    else
        words += tr("empty");
    words += Spoken::orientation(cell.rotate, cell.flip, cell.mirror);
    return words.join(QStringLiteral(", "));
}

QRegion MapGrid::refreshPictures()
{
    const QPoint corner = m_geometry.gridRect.topLeft();
    const LayersPicture::Look look{.cells = m_geometry.visibleCells(),
                                   .cellSize = m_geometry.cellSize,
                                   .size = m_geometry.gridRect.size(),
                                   .transparencyIndex = m_transparencyIndex,
                                   .backgroundTile = m_backgroundTileIndex};
    const QRegion changed = m_layers.update(*m_map, look).translated(corner);
    return changed +
           m_sprites.update(m_map->sprites(), m_spriteBanks, m_geometry, m_spriteTicks, rect());
}

void MapGrid::updateChanged(const QRegion &region)
{
    if (!m_map)
        return;
    const QRect status = statusArea();
    const QRegion changed = refreshPictures() + region;
    // All of that line or nothing: it reads otherwise at each paint. And a painter that clips to
    // many parts takes longer than for all between them.
    const QRegion part = changed.intersects(status) ? changed + status : changed;
    update(part.rectCount() > MaxParts ? part.boundingRect() : part);
}

QRect MapGrid::statusArea() const
{
    return {0, 0, width(), qRound(StatusPosition.y()) + fontMetrics().descent() + 1};
}

void MapGrid::updateHover(QPoint cellBefore, const QRect &objectBefore)
{
    if (objectBefore != m_hoverAnimationRect) {
        update();
        return;
    }
    const QSize preview = m_currentAnimation ? m_currentAnimation->size() : QSize(1, 1);
    updateChanged(QRegion(statusArea()) + m_geometry.fromCells({cellBefore, preview}) +
                  m_geometry.fromCells({m_hoverCell, preview}));
}

void MapGrid::paintLayers(QPainter &painter)
{
    const QRect &gridRect = m_geometry.gridRect;
    for (const QRect &margin : QRegion(rect()).subtracted(gridRect))
        painter.fillRect(margin, palette().brush(QPalette::Window));
    painter.drawImage(gridRect.topLeft(), m_layers.image());
}

void MapGrid::paintSprite(QPainter &painter, const Map::PlacedSprite &sprite, qint64 ticks)
{
    m_sprites.paintOne(painter, sprite, m_spriteBanks, m_geometry, ticks);
}

void MapGrid::paintHoveredSprite(QPainter &painter)
{
    if (m_hoverSprite < 0 || m_hoverSprite >= m_map->sprites().size())
        return;
    const QRect bounds = spriteBounds(m_spriteBanks, m_map->sprites().at(m_hoverSprite));
    if (bounds.isEmpty())
        return;
    const QPoint beyond = m_geometry.fromMapPixel(bounds.bottomRight() + QPoint(1, 1));
    drawOutline(painter, QRect(m_geometry.fromMapPixel(bounds.topLeft()), beyond - QPoint(1, 1)));
}

void MapGrid::paintGridLines(QPainter &painter, const QRegion &region)
{
    const QRect &grid = m_geometry.gridRect;
    const int step = m_geometry.cellSize;
    QList<QLine> lines;
    // Only what is in each part: a painter that clips to several is slow at long lines.
    for (const QRect &exposed : region) {
        const QRect part = exposed.adjusted(-1, -1, 1, 1).intersected(grid);
        const int top = grid.top() + (part.top() - grid.top()) / step * step;
        const int left = grid.left() + (part.left() - grid.left()) / step * step;
        for (int y = top; y <= part.bottom() && y < grid.bottom(); y += step)
            lines.append(QLine(part.left(), y, part.right(), y));
        for (int x = left; x <= part.right() && x < grid.right(); x += step)
            lines.append(QLine(x, part.top(), x, part.bottom()));
    }
    painter.setPen(QPen(GridLineColour, 0));
    painter.drawLines(lines);
}

void MapGrid::paintSelection(QPainter &painter)
{
    if (m_rubberBand.isVisible())
        m_rubberBand.hide();
    if (m_selection.isValid())
        paintCellOutline(painter, m_selection);
}

void MapGrid::paintCellOutline(QPainter &painter, const QRect &cells)
{
    drawOutline(painter, m_geometry.fromCells(cells));
}
