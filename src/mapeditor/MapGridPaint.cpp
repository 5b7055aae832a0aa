// How a map grid paints, from the bottom: background, layers, sprites, grid, what the tool shows.

#include "mapeditor/MapGrid.h"
#include "mapeditor/Outline.h"
#include "model/TileSet.h"

#include <QElapsedTimer>
#include <QPainter>

using namespace MapEditor;

namespace {

const QColor GridLineColour(0x40, 0x40, 0x40);
const QPointF StatusPosition(10.0, 10.0);

} // namespace

void MapGrid::paintEvent(QPaintEvent *)
{
    QElapsedTimer timer;
    timer.start();
    if (!isEnabled() || !m_map)
        return;

    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform, false);
    painter.setBackgroundMode(Qt::TransparentMode);
    painter.setClipRect(rect());
    paintBackground(painter);
    if (m_map->tileLayer()->isVisible())
        paintLayer(painter, *m_map->tileLayer());
    if (m_map->objectLayer()->isVisible())
        paintLayer(painter, *m_map->objectLayer());
    if (m_map->isSpriteLayerVisible())
        paintSprites(painter);
    paintHoveredSprite(painter);
    m_currentTool->paintUnderGrid(painter);
    if (m_gridVisible)
        paintGridLines(painter);
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

void MapGrid::paintBackground(QPainter &painter)
{
    const auto &gridRect = m_geometry.gridRect;
    painter.fillRect(rect(), palette().brush(QPalette::Window));
    painter.fillRect(gridRect, Qt::black);

    const auto tileSet = m_map->tileSet();
    if (!tileSet || m_backgroundTileIndex < 0 || m_backgroundTileIndex >= tileSet->count())
        return;
    const QImage tile = tileSet->tileImage(m_backgroundTileIndex, false, false, false,
                                           tileSet->tileOffset(m_backgroundTileIndex));
    // From the grid's corner, so that it stays where it is when the map scrolls.
    painter.setBrushOrigin(gridRect.topLeft());
    painter.fillRect(gridRect, QBrush(tile.scaled(m_geometry.cellSize, m_geometry.cellSize)));
}

void MapGrid::paintLayer(QPainter &painter, TileMap &layer)
{
    painter.drawImage(
        m_geometry.gridRect.topLeft(),
        layer.picture(m_geometry.visibleCells(), m_geometry.cellSize, m_transparencyIndex));
}

void MapGrid::paintSprites(QPainter &painter)
{
    for (const Map::PlacedSprite &sprite : std::as_const(m_map->sprites())) {
        // Most sprites of a large map are off the view, and composing a picture is dear.
        const QRect bounds = spriteBounds(m_spriteBanks, sprite);
        const QRect onScreen(
            m_geometry.fromMapPixel(bounds.topLeft()),
            QSize(m_geometry.scaled(bounds.width()), m_geometry.scaled(bounds.height())));
        if (bounds.isValid() && onScreen.intersects(rect()))
            paintSprite(painter, sprite, m_spriteTicks);
    }
}

void MapGrid::paintSprite(QPainter &painter, const Map::PlacedSprite &sprite, qint64 ticks)
{
    const QImage image = spriteImage(m_spriteBanks, sprite, ticks);
    if (image.isNull())
        return;
    painter.drawImage(
        QRect(m_geometry.fromMapPixel({sprite.x, sprite.y}),
              QSize(m_geometry.scaled(image.width()), m_geometry.scaled(image.height()))),
        image);
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

void MapGrid::paintGridLines(QPainter &painter)
{
    const QRect &grid = m_geometry.gridRect;
    QList<QLine> lines;
    for (int y = grid.top(); y < grid.bottom(); y += m_geometry.cellSize)
        lines.append(QLine(grid.left(), y, grid.right(), y));
    for (int x = grid.left(); x < grid.right(); x += m_geometry.cellSize)
        lines.append(QLine(x, grid.top(), x, grid.bottom()));
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
