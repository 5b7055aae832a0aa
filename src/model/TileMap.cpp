#include "model/TileMap.h"

#include "model/IndexedScale.h"
#include "model/Palette.h"
#include "model/TileMapData.h"
#include "model/TileSet.h"

#include <QMimeData>

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace {

// A picture of more cells is not kept, as it would take a gigabyte and more.
constexpr qint64 MaxPictureCells = qint64(1) << 24;

/// How the old and the new extent of one axis overlap.
struct Overlap
{
    int from = 0; // in the old cells
    int to = 0;   // in the new cells
    int count = 0;
};

Overlap overlapOf(int before, int after, bool centred, bool atEnd)
{
    const int difference = std::abs(before - after);
    const int start = centred ? difference / 2 : (atEnd ? difference : 0);
    if (after < before)
        return {start, 0, after};
    return {0, start, before};
}

/// The colours of @p table, those of all banks at @p transparentIndex with alpha 0.
QList<QRgb> withTransparency(QList<QRgb> table, int transparentIndex)
{
    for (int i = 0; i < table.size(); ++i)
        table[i] = (i & 15) == transparentIndex ? table.at(i) & RGB_MASK : table.at(i) | ~RGB_MASK;
    return table;
}

QUuid paletteIdOf(const TileSet *tiles)
{
    const QPointer<Palette> palette = tiles ? tiles->palette() : QPointer<Palette>();
    return palette ? palette->id() : QUuid();
}

/// The colours of the set's palette, black without one.
QList<QRgb> colourTableOf(const TileSet *tiles)
{
    const QPointer<Palette> palette = tiles ? tiles->palette() : QPointer<Palette>();
    return palette ? palette->colourTable() : QList<QRgb>(Palette::Size, qRgb(0, 0, 0));
}

/// Gives every cell of @p rows the index that @p renumbered tells; false if none changes. Rows
/// without a change stay shared.
template <typename Function>
bool renumber(TileMap::Rows &rows, Function renumbered)
{
    const auto changes = [&renumbered](const TileMap::TileData &cell) {
        return renumbered(cell.index) != cell.index;
    };
    bool changed = false;
    for (qsizetype y = 0; y < rows.size(); ++y) {
        const QList<TileMap::TileData> &row = rows.at(y);
        if (std::none_of(row.cbegin(), row.cend(), changes))
            continue;
        for (TileMap::TileData &cell : rows[y])
            cell.index = renumbered(cell.index);
        changed = true;
    }
    return changed;
}

void putPixels(uchar *to, qsizetype stride, const TileCache::Pixels &pixels, quint64 offset)
{
    for (const quint64 row : pixels) {
        const quint64 shown = row | offset;
        std::memcpy(to, &shown, sizeof(shown));
        to += stride;
    }
}

TileCache::Turn turnOf(const TileMap::TileData &cell)
{
    return {cell.rotate, cell.flip, cell.mirror};
}

} // namespace

bool TileMap::isAllowed(QSize size)
{
    const qint64 count = qint64(size.width()) * size.height();
    const int longer = std::max(size.width(), size.height());
    return std::min(size.width(), size.height()) >= 0 && count <= MaxCells &&
           (count > 0 || longer <= MaxEmptySide);
}

QString TileMap::mimeType()
{
    return QStringLiteral("tessaril-map-toNextData");
}

TileMap::TileMap(QSize size, QObject *parent)
    : QObject(parent)
    , m_id(QUuid::createUuid())
    , m_width(isAllowed(size) ? size.width() : 0)
    , m_height(isAllowed(size) ? size.height() : 0)
    , m_rows(m_height, QList<TileData>(m_width))
{
}

void TileMap::setCell(QPoint position, const TileData &data)
{
    if (!contains(position) || cell(position) == data)
        return;

    m_rows[position.y()][position.x()] = data;
    m_log.add(position);
    if (hasPicture())
        paint(position, pixelsOf(data));
    else
        keepSpare();
}

QRect TileMap::insidePart(QRect rect) const
{
    // QRect's own intersection overflows on rectangles near the limits of int.
    const int left = std::max(rect.left(), 0);
    const int top = std::max(rect.top(), 0);
    const int right = std::min(rect.right(), m_width - 1);
    const int bottom = std::min(rect.bottom(), m_height - 1);
    return left > right || top > bottom ? QRect() : QRect(QPoint(left, top), QPoint(right, bottom));
}

void TileMap::fill(QRect rect, bool occupied)
{
    TileData data;
    data.offset = m_tiles ? m_tiles->tileOffset(0) : 0;
    data.occupied = occupied;
    const bool isDrawn = hasPicture();
    const TileCache::Pixels pixels = isDrawn ? pixelsOf(data) : TileCache::Pixels{};
    if (!isDrawn)
        keepSpare();
    const QRect inside = insidePart(rect);
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            if (m_rows.at(y).at(x) == data)
                continue;
            m_rows[y][x] = data;
            m_log.add({x, y});
            if (isDrawn)
                paint({x, y}, pixels);
        }
    }
}

void TileMap::addRow(Tessaril::Position position)
{
    if (!isAllowed({m_width, m_height + 1}))
        return;

    const int at = position == Tessaril::Position::Begin ? 0 : m_height;
    m_rows.insert(at, QList<TileData>(m_width));
    ++m_height;
    dropPicture();
}

void TileMap::addColumn(Tessaril::Position position)
{
    if (!isAllowed({m_width + 1, m_height}))
        return;

    const int at = position == Tessaril::Position::Begin ? 0 : m_width;
    for (QList<TileData> &row : m_rows)
        row.insert(at, TileData());
    ++m_width;
    dropPicture();
}

void TileMap::removeRow(Tessaril::Position position)
{
    if (m_height == 0)
        return;

    --m_height;
    m_rows.removeAt(position == Tessaril::Position::Begin ? 0 : m_height);
    dropPicture();
}

void TileMap::removeColumn(Tessaril::Position position)
{
    if (m_width == 0)
        return;

    --m_width;
    for (QList<TileData> &row : m_rows)
        row.removeAt(position == Tessaril::Position::Begin ? 0 : m_width);
    dropPicture();
}

QPoint TileMap::resize(QSize size, Qt::Alignment alignment)
{
    if (!isAllowed(size))
        return {};

    const Overlap across =
        overlapOf(m_width, size.width(), alignment & Qt::AlignHCenter, alignment & Qt::AlignRight);
    const Overlap down = overlapOf(m_height, size.height(), alignment & Qt::AlignVCenter,
                                   alignment & Qt::AlignBottom);
    Rows rows(size.height(), QList<TileData>(size.width()));
    for (int y = 0; y < down.count; ++y) {
        const auto from = m_rows.at(down.from + y).cbegin() + across.from;
        std::copy_n(from, across.count, rows[down.to + y].begin() + across.to);
    }
    m_rows = rows;
    m_width = size.width();
    m_height = size.height();
    dropPicture();
    return {across.to - across.from, down.to - down.from};
}

void TileMap::setTiles(const Rows &rows)
{
    m_rows = rows;
    m_height = static_cast<int>(rows.size());
    m_width = rows.isEmpty() ? 0 : static_cast<int>(rows.first().size());
    for (qsizetype y = 0; y < m_rows.size(); ++y) {
        if (m_rows.at(y).size() != m_width)
            m_rows[y].resize(m_width);
    }
    dropPicture();
    emit tilesChanged();
}

void TileMap::setTileSet(const QPointer<TileSet> &tiles)
{
    if (m_tiles)
        disconnect(m_tiles, nullptr, this, nullptr);
    m_tiles = tiles;
    m_drawnTiles = tiles;
    m_tileCache.reset(nullptr);
    dropPicture();
    if (!tiles)
        return;

    connect(tiles, &TileSet::tileSwapped, this, &TileMap::swapTiles);
    connect(tiles, &TileSet::tileChanged, this, &TileMap::tilesMayDiffer);
    connect(tiles, &TileSet::restored, this, &TileMap::dropPicture);
}

void TileMap::adjustIndices(int index, int direction)
{
    const auto renumbered = [index, direction](int tile) {
        if (direction > 0)
            return tile >= index && tile < std::numeric_limits<int>::max() ? tile + 1 : tile;
        if (tile == index)
            return 0;
        return tile > index ? tile - 1 : tile;
    };
    // Cells of tile 0 keep their number when it goes, but the tile behind it takes its place.
    const bool firstWent = direction < 0 && index == 0;
    if (!renumber(m_rows, renumbered) && !firstWent)
        return;

    m_tileCache.reset(nullptr);
    m_cacheHits = 0;
    m_drawnTiles = m_tiles;
    dropPicture();
}

void TileMap::swapTiles(int first, int second)
{
    const auto renumbered = [first, second](int tile) {
        if (tile == first)
            return second;
        return tile == second ? first : tile;
    };
    if (!renumber(m_rows, renumbered))
        return;

    m_tileCache.swapTiles(first, second);
    dropPicture();
    emit tilesChanged();
}

QImage TileMap::picture(QRect rect, double scale, int transparentIndex)
{
    const QSize size(qRound(rect.width() * scale), qRound(rect.height() * scale));
    QImage picture = indices(rect, scale, QRect(QPoint(), size));
    // Anew each time: the palette may have changed while the set had another.
    picture.setColorTable(colours(transparentIndex));
    return picture;
}

QImage TileMap::indices(QRect rect, double scale, QRect piece)
{
    if (rect.isEmpty())
        return {};
    const bool isKept = qint64(m_width) * m_height <= MaxPictureCells;
    if (isKept && !hasPicture())
        m_image = drawn(this->rect());

    const QRect cells = isKept ? this->rect() : insidePart(rect);
    const QImage source = isKept ? m_image : drawn(cells);
    const QRect part((rect.topLeft() - cells.topLeft()) * CellSide, rect.size() * CellSide);
    const QSize size(qRound(rect.width() * scale), qRound(rect.height() * scale));
    return IndexedScale::scaledPart(source, part, size, piece);
}

QList<QRgb> TileMap::colours(int transparentIndex) const
{
    return withTransparency(colourTableOf(m_tiles), transparentIndex);
}

QByteArray TileMap::toData(QRect rect) const
{
    return TileMapData::write(m_rows, rect, m_tiles ? m_tiles->id() : QUuid());
}

void TileMap::fromData(QPoint topLeft, const QMimeData *mimeData)
{
    const auto block = TileMapData::read(mimeData ? mimeData->data(mimeType()) : QByteArray());
    if (!block)
        return;

    const QRect target = insidePart({topLeft, block->size});
    for (int y = target.top(); y <= target.bottom(); ++y) {
        const auto from = block->rows.at(y - topLeft.y()).cbegin() + (target.left() - topLeft.x());
        std::copy_n(from, target.width(), m_rows[y].begin() + target.left());
    }
    dropPicture();
}

bool TileMap::hasPicture()
{
    if (m_image.isNull() || m_drawnTiles != m_tiles || m_drawnPalette != paletteIdOf(m_tiles))
        return false;
    m_tilesMayDiffer = m_tilesMayDiffer && !m_tileCache.isCurrent(m_tiles);
    return !m_tilesMayDiffer;
}

/// A change is told for each tile of an import, and for a mere colour too: what there is to do is
/// found out once, when the picture is asked for.
void TileMap::tilesMayDiffer()
{
    m_log.addAll();
    m_tilesMayDiffer = true;
}

void TileMap::dropPicture()
{
    m_log.addAll();
    keepSpare();
}

/// Throws the picture away, but not its memory.
void TileMap::keepSpare()
{
    if (!m_image.isNull())
        m_spare = std::exchange(m_image, QImage());
}

/// The memory of the last picture if it has the right size: to get so much anew from the system
/// costs more than to draw.
QImage TileMap::blankPicture(QSize size)
{
    QImage image = std::exchange(m_spare, QImage());
    return image.size() == size ? image : QImage(size, QImage::Format_Indexed8);
}

QImage TileMap::drawn(QRect cells)
{
    m_drawnTiles = m_tiles;
    m_drawnPalette = paletteIdOf(m_tiles);
    m_tilesMayDiffer = false;
    QImage image = blankPicture(cells.size() * CellSide);
    if (image.isNull())
        return image;
    if (!m_tiles || !m_tiles->palette()) {
        qWarning("_tiles==nullptr");
        m_tileCache.reset(nullptr);
        image.fill(0);
        return image;
    }

    m_tileCache.reset(m_tiles);
    m_cacheHits = 0;
    const qsizetype stride = image.bytesPerLine();
    uchar *to = image.bits();
    for (int y = cells.top(); y <= cells.bottom(); ++y, to += stride * CellSide)
        drawRow(to, stride, y, cells.left(), cells.right());
    return image;
}

/// Draws columns @p left to @p right of row @p y as eight rows of pixels.
void TileMap::drawRow(uchar *to, qsizetype stride, int y, int left, int right)
{
    const QList<TileData> &row = m_rows.at(y);
    const int entries = m_tileCache.size();
    for (int x = left; x <= right; ++x, to += CellSide) {
        const TileData &cell = row.at(x);
        const TileCache::Pixels &pixels = m_tileCache.pixels(cell.index, turnOf(cell));
        if (cell.occupied)
            putPixels(to, stride, pixels, TileCache::offsetBits(cell.offset));
        else
            putPixels(to, stride, {}, 0);
    }
    m_cacheHits += (right - left + 1) - (m_tileCache.size() - entries);
}

/// What a cell shows: blank unless it is occupied, and without a set that can draw.
TileCache::Pixels TileMap::pixelsOf(const TileData &data) const
{
    if (!data.occupied || !m_tiles || !m_tiles->palette())
        return {};

    TileCache::Pixels pixels = TileCache::pixelsOf(*m_tiles, data.index, turnOf(data));
    for (quint64 &row : pixels)
        row |= TileCache::offsetBits(data.offset);
    return pixels;
}

void TileMap::paint(QPoint position, const TileCache::Pixels &pixels)
{
    const qsizetype stride = m_image.bytesPerLine();
    uchar *to = m_image.bits() + position.y() * CellSide * stride + position.x() * CellSide;
    putPixels(to, stride, pixels, 0);
}
