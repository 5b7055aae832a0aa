#include "model/TileCache.h"

#include "model/Tile.h"
#include "model/TileSet.h"

#include <QImage>

#include <cstring>
#include <utility>

namespace {

/// Eight pixels of an image that is so wide.
quint64 rowOf(const QImage &image, size_t y)
{
    quint64 row = 0;
    std::memcpy(&row, image.constScanLine(static_cast<int>(y)), sizeof(row));
    return row;
}

} // namespace

TileCache::Pixels TileCache::pixelsOf(const TileSet &tiles, int index, Turn turn)
{
    // An image out of range has any content, and so maybe more than four bits a pixel.
    constexpr quint64 LowNibbles = Q_UINT64_C(0x0F0F0F0F0F0F0F0F);
    const QImage image = tiles.tileImage(index, turn.rotate, turn.flip, turn.mirror, 0);
    Pixels pixels{};
    if (image.format() != QImage::Format_Indexed8 || image.size() != QSize(Side, Side))
        return pixels;

    for (size_t y = 0; y < Side; ++y)
        pixels[y] = rowOf(image, y) & LowNibbles;
    return pixels;
}

void TileCache::reset(const TileSet *tiles)
{
    m_tiles = tiles;
    m_count = tiles ? tiles->count() : 0;
    m_pixels.clear();
    m_slots.assign(slotOf(m_count, {}), nullptr);
    m_outOfRange.clear();
    m_tilePixels = tilePixels(tiles);
}

bool TileCache::isCurrent(const TileSet *tiles) const
{
    return tiles && tiles == m_tiles && m_tilePixels == tilePixels(tiles);
}

const TileCache::Pixels &TileCache::pixels(int index, Turn turn)
{
    const bool inRange = index >= 0 && index < m_count;
    const Pixels *&entry = inRange ? m_slots[slotOf(index, turn)] : m_outOfRange[index];
    if (!entry)
        entry = made(index, turn);
    return *entry;
}

void TileCache::swapTiles(int first, int second)
{
    if (std::min(first, second) < 0 || std::max(first, second) >= m_count)
        return;

    for (size_t turn = 0; turn < TurnCount; ++turn) {
        const Pixels *&one = m_slots[slotOf(first, {}) + turn];
        const Pixels *&other = m_slots[slotOf(second, {}) + turn];
        if (one && other)
            std::swap(one, other);
    }
}

const TileCache::Pixels *TileCache::made(int index, Turn turn)
{
    m_pixels.push_back(m_tiles ? pixelsOf(*m_tiles, index, turn) : Pixels{});
    return &m_pixels.back();
}

std::vector<TileCache::Pixels> TileCache::tilePixels(const TileSet *tiles)
{
    std::vector<Pixels> pixels(tiles ? static_cast<size_t>(tiles->count()) : 0);
    for (size_t i = 0; i < pixels.size(); ++i) {
        const QImage &image = tiles->tile(static_cast<int>(i))->image();
        for (size_t y = 0; y < Side; ++y)
            pixels[i][y] = rowOf(image, y);
    }
    return pixels;
}
