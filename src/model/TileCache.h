#pragma once

#include <QHash>

#include <array>
#include <deque>
#include <vector>

class TileSet;

/// The pixels of tiles, turned as the cells of a map ask for them, kept for one drawing.
///
/// An entry is made by TileSet::tileImage() when it is first asked for. Palette offsets are left to
/// the drawing, so one entry serves all sixteen: a large map of ever different cells needs few.
class TileCache
{
public:
    static constexpr int Side = 8; // pixels

    /// Eight rows of eight pixel indices without a palette offset, the left pixel first in memory.
    using Pixels = std::array<quint64, Side>;

    /// The three flags of a cell, applied in this order.
    struct Turn
    {
        bool rotate = false;
        bool flip = false;
        bool mirror = false;
    };

    /// Eight pixels of palette offset @p offset, to be or-ed to a row.
    static quint64 offsetBits(int offset)
    {
        return (static_cast<unsigned>(offset) & 15U) * Q_UINT64_C(0x1010101010101010);
    }
    /// The pixels of one tile, past any cache.
    static Pixels pixelsOf(const TileSet &tiles, int index, Turn turn);

    /// Drops all entries and draws from @p tiles from now on; null for none.
    void reset(const TileSet *tiles);
    /// Whether the set given to reset(), if it is @p tiles, has the same pixels in its tiles as it
    /// had then; their colours do not count. False without a set.
    bool isCurrent(const TileSet *tiles) const;
    /// The pixels of a tile of the set given to reset(). Valid until the next reset(). The entry of
    /// an index out of range serves all turns, so that each is logged once.
    const Pixels &pixels(int index, Turn turn);
    /// How many entries there are.
    int size() const { return static_cast<int>(m_pixels.size()); }
    /// Swaps the entries of two tiles, turn by turn, where both are there.
    void swapTiles(int first, int second);

private:
    static constexpr int TurnCount = 8;

    static size_t slotOf(int index, Turn turn)
    {
        const int bits = (turn.rotate ? 1 : 0) | (turn.flip ? 2 : 0) | (turn.mirror ? 4 : 0);
        return static_cast<size_t>(index) * TurnCount + static_cast<size_t>(bits);
    }
    const Pixels *made(int index, Turn turn);
    static std::vector<Pixels> tilePixels(const TileSet *tiles);

    const TileSet *m_tiles = nullptr;
    int m_count = 0;                  // of tiles
    std::vector<Pixels> m_tilePixels; // at the time of the reset
    std::deque<Pixels> m_pixels;
    std::vector<const Pixels *> m_slots; // by slotOf(), null where there is none yet
    QHash<int, const Pixels *> m_outOfRange;
};
