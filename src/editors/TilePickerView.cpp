// The tile picker's painting, and dragging from and to its cells.

#include "editors/TileDrag.h"
#include "editors/TilePickerGrid.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "uikit/CellPoint.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPainter>

#include <set>

namespace {

constexpr int PenWidth = 2; // pixels
constexpr int LastPlainIndex = 512;
const QColor BeyondFill(0, 0, 0, 64); // over tiles past those that a map can address

QPen markPen(const QColor &colour, Qt::PenStyle style)
{
    return {colour, PenWidth, style, Qt::FlatCap, Qt::MiterJoin};
}

} // namespace

void TilePickerGrid::paintEvent(QPaintEvent *event)
{
    m_pictures.setShape({columns(), cellSide(), devicePixelRatioF()});
    refreshPictures();
    QPainter painter(this);
    for (const QRect &area : event->region())
        paintCells(&painter, area);
    paintMarks(&painter, event->region());
    const QRect area = event->region().boundingRect();
    const int first = area.top() / cellSide() * columns();
    const int end = std::min((area.bottom() / cellSide() + 1) * columns(), count());
    for (int index = std::max(first, LastPlainIndex + 1); index < end; ++index) {
        const QRect tile = m_pictures.tileRect(cellRect(index).topLeft());
        if (event->region().intersects(tile))
            painter.fillRect(tile, BeyondFill);
    }
}

void TilePickerGrid::paintCells(QPainter *painter, const QRect &area)
{
    painter->fillRect(area, Qt::black);
    if (count() == 0)
        return;

    const int side = cellSide();
    const int lastRow = std::min(area.bottom() / side, (count() - 1) / columns());
    for (int row = area.top() / side; row <= lastRow; ++row) {
        const QRect band(0, row * side, columns() * side, side);
        const QRect part = band.intersected(area);
        if (part.isEmpty())
            continue;
        const QImage &picture = m_pictures.row(row);
        const qreal ratio = picture.devicePixelRatio();
        const QRect source = part.translated(0, -band.top());
        painter->drawImage(QRectF(part), picture,
                           QRectF(source.topLeft() * ratio, QSizeF(source.size()) * ratio));
    }
}

void TilePickerGrid::paintMarks(QPainter *painter, const QRegion &region)
{
    for (const int index : std::set<int>{m_dropIndex, m_hoverIndex, m_selectedIndex}) {
        if (contains(index) && region.intersects(markRect(index)))
            paintMarkedTile(painter, index);
    }
}

void TilePickerGrid::paintMarkedTile(QPainter *painter, int index)
{
    const QRect tile = m_pictures.tileRect(cellRect(index).topLeft());
    const auto drawFrame = [painter](const QRect &rect) {
        painter->setBrush(Qt::NoBrush);
        painter->setPen(markPen(Qt::black, Qt::SolidLine));
        painter->drawRects(&rect, 1);
        painter->setPen(markPen(Qt::white, Qt::DotLine));
        painter->drawRects(&rect, 1);
    };
    if (index == m_dropIndex)
        drawFrame(tile);
    else if (index == m_hoverIndex && underMouse())
        m_hoverMark.paint(painter, tile);
    if (index == m_selectedIndex)
        drawFrame(tile.adjusted(0, 0, -1, -1));
}

void TilePickerGrid::startDrag(int index)
{
    m_buttons = Qt::NoButton;
    setHoverIndex(-1);
    auto *drag = new QDrag(this);
    drag->setMimeData(TileDrag::mimeData({index, m_tileSet->tileOffset(index)}).release());
    const QImage picture = m_pictures.tilePicture(index).convertToFormat(QImage::Format_RGB32);
    const int side = qRound(cellSide() * devicePixelRatioF());
    QPixmap pixmap = QPixmap::fromImage(picture.scaled(side, side));
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    drag->setPixmap(pixmap);
    drag->exec(Qt::MoveAction);
}

/// Whether @p event carries the tile on which the mouse was pressed here.
bool TilePickerGrid::isOwnDrag(const QDropEvent *event) const
{
    const std::optional<TileDrag::Content> content = TileDrag::content(event->mimeData());
    const int pressed = indexAt(m_pressPos);
    return content && pressed >= 0 && content->index == pressed &&
           (!event->source() || event->source() == this);
}

void TilePickerGrid::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasFormat(TileDrag::mimeType()))
        event->acceptProposedAction();
}

void TilePickerGrid::dragMoveEvent(QDragMoveEvent *event)
{
    setDropIndex(indexAt(cellPoint(event->position())));
    event->acceptProposedAction();
}

void TilePickerGrid::dragLeaveEvent(QDragLeaveEvent *)
{
    setDropIndex(-1);
}

void TilePickerGrid::dropEvent(QDropEvent *event)
{
    const int source = indexAt(m_pressPos);
    const int target = m_dropIndex;
    setDropIndex(-1);
    if (target < 0 || !isOwnDrag(event)) {
        event->ignore();
        return;
    }

    event->acceptProposedAction();
    if (event->modifiers() == Qt::ShiftModifier)
        m_tileSet->copyTile(target, source);
    else if (event->modifiers() == Qt::NoModifier)
        m_tileSet->moveTile(source, target);
}

void TilePickerGrid::setDropIndex(int index)
{
    if (index == m_dropIndex)
        return;
    updateCell(m_dropIndex);
    m_dropIndex = index;
    updateCell(m_dropIndex);
}

QString TilePickerGrid::spokenValue() const
{
    if (!contains(m_selectedIndex))
        return {};
    return tr("tile %1, offset %2")
        .arg(m_selectedIndex + 1)
        .arg(m_tileSet->tile(m_selectedIndex)->offset() + 1);
}
