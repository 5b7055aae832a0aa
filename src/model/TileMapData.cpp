#include "model/TileMapData.h"

#include <QtEndian>

#include <algorithm>

namespace {

char *putInt(char *to, int value)
{
    qToBigEndian<qint32>(value, to);
    return to + sizeof(qint32);
}

char *putCell(char *to, const TileMap::TileData &cell)
{
    to = putInt(to, cell.index);
    *to++ = cell.occupied ? 1 : 0;
    to = putInt(to, cell.offset);
    *to++ = cell.rotate ? 1 : 0;
    *to++ = cell.flip ? 1 : 0;
    *to++ = cell.mirror ? 1 : 0;
    return to;
}

TileMap::TileData cellAt(const char *from)
{
    TileMap::TileData cell;
    cell.index = qFromBigEndian<qint32>(from);
    cell.occupied = from[4] != 0;
    cell.offset = qFromBigEndian<qint32>(from + 5);
    cell.rotate = from[9] != 0;
    cell.flip = from[10] != 0;
    cell.mirror = from[11] != 0;
    return cell;
}

/// Writes columns @p left to @p left + @p width - 1 of a row, zero where the row has none.
char *putRow(char *to, const QList<TileMap::TileData> &row, qint64 left, qint64 width)
{
    for (qint64 x = left; x < left + width; ++x)
        to = putCell(to, x >= 0 && x < row.size() ? row.at(x) : TileMap::TileData());
    return to;
}

/// The size in cells that a header tells; one that no map may have if it is not whole.
QSize sizeOf(const QByteArray &data)
{
    if (data.size() < TileMapData::HeaderBytes)
        return {-1, -1};
    return {qFromBigEndian<qint32>(data.constData() + sizeof(qint32)),
            qFromBigEndian<qint32>(data.constData())};
}

} // namespace

QByteArray TileMapData::write(const TileMap::Rows &rows, QRect rect, const QUuid &tileSet)
{
    const qint64 height = std::max(rect.height(), 0);
    const qint64 width = std::max(rect.width(), 0);
    const QByteArray id = tileSet.toRfc4122();
    QByteArray data(HeaderBytes + height * width * CellBytes + id.size(), Qt::Uninitialized);
    char *to = putInt(data.data(), static_cast<int>(height));
    to = putInt(to, static_cast<int>(width));
    const QList<TileMap::TileData> outside;
    for (qint64 y = rect.top(); y < rect.top() + height; ++y)
        to = putRow(to, y >= 0 && y < rows.size() ? rows.at(y) : outside, rect.left(), width);
    std::copy(id.cbegin(), id.cend(), to);
    return data;
}

qint64 TileMapData::claimedSize(const QByteArray &start)
{
    const QSize size = sizeOf(start);
    return TileMap::isAllowed(size) ? HeaderBytes + qint64(size.width()) * size.height() * CellBytes
                                    : 0;
}

std::optional<TileMapData::Block> TileMapData::read(const QByteArray &data)
{
    const QSize size = sizeOf(data);
    if (!TileMap::isAllowed(size))
        return std::nullopt;
    const qint64 count = qint64(size.width()) * size.height();
    if (count > (data.size() - HeaderBytes) / CellBytes)
        return std::nullopt;

    Block block{size, TileMap::Rows(size.height(), QList<TileMap::TileData>(size.width()))};
    const char *from = data.constData() + HeaderBytes;
    for (QList<TileMap::TileData> &row : block.rows) {
        for (TileMap::TileData &cell : row) {
            cell = cellAt(from);
            from += CellBytes;
        }
    }
    return block;
}
