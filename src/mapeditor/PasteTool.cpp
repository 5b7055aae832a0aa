#include "mapeditor/PasteTool.h"

#include "mapeditor/MapGrid.h"

#include <QClipboard>
#include <QDataStream>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>

using namespace MapEditor;

namespace {

constexpr qint64 HeaderBytes = 8; // rows and columns
constexpr qint64 CellBytes = 12;
constexpr qint64 IdBytes = 16; // of the tile set

struct Block
{
    QSize size; // cells; empty for none
    QUuid tileSetId;
};

Block blockOnClipboard()
{
    const QMimeData *const data = QGuiApplication::clipboard()->mimeData();
    const QByteArray bytes = data ? data->data(TileMap::mimeType()) : QByteArray();
    if (bytes.size() < HeaderBytes + IdBytes)
        return {};

    qint32 rows = 0;
    qint32 columns = 0;
    QDataStream stream(bytes);
    stream >> rows >> columns;
    const bool fits = rows > 0 && columns > 0 &&
                      qint64(rows) <= (bytes.size() - HeaderBytes - IdBytes) / CellBytes / columns;
    if (!fits)
        return {};

    Block block;
    block.size = QSize(columns, rows);
    stream.skipRawData(static_cast<int>(CellBytes * rows * columns));
    stream >> block.tileSetId;
    return block;
}

} // namespace

bool PasteTool::activate()
{
    const Block block = blockOnClipboard();
    if (block.size.isEmpty() || !m_grid->m_map || block.tileSetId != m_grid->m_map->tileSetId())
        return false;
    m_grid->m_pasteRect = QRect(QPoint(), block.size);
    m_grid->updateCursor();
    return true;
}

bool PasteTool::isBlocked() const
{
    return !m_grid->m_map->tileLayer()->isVisible();
}

bool PasteTool::mousePress(QMouseEvent *)
{
    if (!m_grid->m_pasteRect.isValid() || isBlocked())
        return false;
    m_grid->beginEdit();
    m_grid->m_map->tileLayer()->fromData(m_grid->m_pasteRect.topLeft(),
                                         QGuiApplication::clipboard()->mimeData());
    m_grid->endEdit(QStringLiteral("Paste"));
    m_grid->update();
    return true;
}

void PasteTool::mouseMove(QMouseEvent *event)
{
    QRect &rect = m_grid->m_pasteRect;
    if (!rect.isValid())
        return;
    const GridGeometry &geometry = m_grid->cellGeometry();
    const QPoint offset = geometry.cellOffset(wholePosition(event->position()));
    rect.moveTopLeft(snappedCell(offset, m_grid->m_snapSize) + geometry.scroll -
                     QPoint(rect.width() / 2, rect.height() / 2));
    m_grid->update();
}

void PasteTool::paintOverGrid(QPainter &painter)
{
    if (m_grid->m_pasteRect.isValid())
        m_grid->paintCellOutline(painter, m_grid->m_pasteRect);
}
