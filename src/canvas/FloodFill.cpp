#include "canvas/Raster.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>
#include <vector>

namespace {

constexpr int WordBits = 64;
constexpr int GroupBytes = 8; // pixels that are compared or written at once
constexpr quint64 EachByte = 0x0101010101010101;
constexpr quint64 HighBits = 0x80 * EachByte;
constexpr quint64 OneBit = 1;
constexpr quint64 LastBit = OneBit << (WordBits - 1);
constexpr quint64 AllBits = ~quint64(0);

/// The bytes of @p group that equal those of @p pattern, as a bit each; the first byte is bit 0.
quint64 equalBytes(quint64 group, quint64 pattern)
{
    const quint64 differing = group ^ pattern;
    const quint64 nonZero = ((differing & ~HighBits) + ~HighBits) | differing;
    constexpr quint64 GatherBits = 0x0002040810204081;
    return ((~nonZero & HighBits) * GatherBits) >> 56;
}

/// Bytes of 0xFF where @p bits, eight of them, are set.
quint64 byteMask(quint64 bits)
{
    constexpr quint64 BitOfByte = 0x8040201008040201;
    const quint64 spread = (bits * EachByte) & BitOfByte;
    const quint64 isSet = ((spread + ~HighBits) | spread) & HighBits;
    return (isSet >> 7) * 0xFF;
}

/// Whether the next 64 bytes all equal those of @p pattern: the usual case in drawn pictures.
bool isFilledWith(quint64 pattern, const uchar *bytes)
{
    quint64 differing = 0;
    for (int x = 0; x < WordBits; x += GroupBytes) {
        quint64 group;
        std::memcpy(&group, bytes + x, sizeof group);
        differing |= group ^ pattern;
    }
    return differing == 0;
}

/// Whether a whole row does; this looks at many more bytes at once.
bool isRowFilledWith(uchar index, const uchar *row, int width)
{
    return row[0] == index && std::memcmp(row, row + 1, static_cast<size_t>(width) - 1) == 0;
}

/// The pixels of a row, from @p x on, that bear the byte of @p pattern; beyond the end of the row
/// none.
quint64 equalPixels(const uchar *row, int x, int width, quint64 pattern)
{
    if (x + WordBits <= width && isFilledWith(pattern, row + x))
        return AllBits;
    quint64 bits = 0;
    const int end = std::min(x + WordBits, width);
    for (int shift = 0; x < end; x += GroupBytes, shift += GroupBytes) {
        const int count = std::min(GroupBytes, end - x);
        quint64 group = ~pattern;
        std::memcpy(&group, row + x, static_cast<size_t>(count));
        bits |= equalBytes(group, pattern) << shift;
    }
    return bits;
}

/// The whole runs of set bits in @p open that hold a bit of @p seeds, which lie in @p open.
quint64 runsWith(quint64 seeds, quint64 open)
{
    if (((seeds << 1 | seeds >> 1) & open & ~seeds) == 0)
        return seeds; // so it is in narrow ways up and down, and in blank areas
    // A carry runs from each seed to the upper end of its run.
    quint64 filled = (((open + seeds) ^ open) | seeds) & open;
    quint64 passable = open;
    for (int step = 1; step < WordBits; step *= 2) {
        filled |= passable & (filled >> step);
        passable &= passable >> step;
    }
    return filled;
}

/// Fills an area on bits, 64 pixels of a row at once: what is still open to the fill, and what of
/// it has been reached from beside. Both, and the words that wait, take less than half of the
/// picture.
class WordFill
{
public:
    WordFill(QImage &image, uchar target)
        : m_image(image)
        , m_pattern(EachByte * target)
        , m_words((image.width() + WordBits - 1) / WordBits)
        , m_rowStep(static_cast<size_t>(m_words) + 1)
        , m_open(m_rowStep * (static_cast<size_t>(image.height()) + 2))
        , m_seeds(m_open.size())
        , m_wasOpen(static_cast<size_t>(image.height()))
    {
        for (int y = 0; y < image.height(); ++y)
            readRow(y, target);
    }

    void fillFrom(QPoint start)
    {
        addSeeds(at(start.x() / WordBits, start.y()), OneBit << (start.x() % WordBits));
        while (!m_waiting.empty()) {
            const size_t place = m_waiting.back();
            m_waiting.pop_back();
            fillFrom(place, std::exchange(m_seeds[place], 0));
        }
    }

    /// Gives the pixels that the fill reached the index.
    void paint(uchar index)
    {
        for (int y = 0; y < m_image.height(); ++y) {
            if (isFilled(y))
                std::memset(m_image.scanLine(y), index, static_cast<size_t>(m_image.width()));
            else
                paintRow(m_image.scanLine(y), &m_open[at(0, y)], index);
        }
    }

private:
    /// Where the word lies. A closed row above and below and a closed word between rows spare every
    /// check of the picture's edges.
    size_t at(int word, int y) const
    {
        return (static_cast<size_t>(y) + 1) * m_rowStep + static_cast<size_t>(word);
    }

    // Both rows' functions stay apart: inlined, they take registers that the fill needs.
    Q_NEVER_INLINE void readRow(int y, uchar target)
    {
        const int width = m_image.width();
        const uchar *const row = m_image.constScanLine(y);
        quint64 *const open = &m_open[at(0, y)];
        const bool isOpen = isRowFilledWith(target, row, width);
        m_wasOpen[static_cast<size_t>(y)] = isOpen;
        if (isOpen)
            std::fill_n(open, m_words - 1, AllBits);
        for (int word = isOpen ? m_words - 1 : 0; word < m_words; ++word)
            open[word] = equalPixels(row, word * WordBits, width, m_pattern);
    }

    Q_NEVER_INLINE void paintRow(uchar *row, const quint64 *open, uchar index) const
    {
        for (int word = 0; word < m_words; ++word)
            paintWord(row, word * WordBits, ~open[word], index);
    }

    /// Whether the fill has reached every pixel of a row.
    bool isFilled(int y) const
    {
        const quint64 *const open = &m_open[at(0, y)];
        return m_wasOpen[static_cast<size_t>(y)] &&
               std::all_of(open, open + m_words, [](quint64 bits) { return bits == 0; });
    }

    void addSeeds(size_t place, quint64 seeds)
    {
        if (m_seeds[place] == 0)
            m_waiting.push_back(static_cast<quint32>(place));
        m_seeds[place] |= seeds;
    }

    /// Fills the runs of the seeds and what can be reached from them straight up and down.
    void fillFrom(size_t place, quint64 seeds)
    {
        const auto rowStep = static_cast<std::ptrdiff_t>(m_rowStep);
        const quint64 filled = fillWord(place, seeds & m_open[place]);
        sweep(place, filled, rowStep);
        sweep(place, filled, -rowStep);
    }

    /// Goes on by @p step as long as there is something to fill; what lies behind or beside waits.
    void sweep(size_t place, quint64 filled, std::ptrdiff_t step)
    {
        for (;;) {
            place += static_cast<size_t>(step);
            const quint64 seeds = filled & m_open[place];
            if (seeds == 0)
                return;
            filled = fillWord(place, seeds);
            const size_t behind = place - static_cast<size_t>(step);
            if (const quint64 left = filled & m_open[behind])
                addSeeds(behind, left);
        }
    }

    /// Fills the runs of the seeds within a word, and tells which pixels these are.
    quint64 fillWord(size_t place, quint64 seeds)
    {
        const quint64 filled = runsWith(seeds, m_open[place]);
        m_open[place] &= ~filled;
        if (filled & (OneBit | LastBit))
            seedBeside(place, filled);
        return filled;
    }

    void seedBeside(size_t place, quint64 filled)
    {
        if ((filled & OneBit) && (m_open[place - 1] & LastBit))
            addSeeds(place - 1, LastBit);
        if ((filled & LastBit) && (m_open[place + 1] & OneBit))
            addSeeds(place + 1, OneBit);
    }

    void paintWord(uchar *row, int x, quint64 closed, uchar colour) const
    {
        const int end = std::min(x + WordBits, m_image.width());
        if (closed == AllBits && end - x == WordBits && isFilledWith(m_pattern, row + x)) {
            std::memset(row + x, colour, WordBits);
            return;
        }
        for (; x < end; x += GroupBytes, closed >>= GroupBytes) {
            const auto count = static_cast<size_t>(std::min(GroupBytes, end - x));
            quint64 group = ~m_pattern;
            std::memcpy(&group, row + x, count);
            const quint64 mask = byteMask(equalBytes(group, m_pattern) & closed & 0xFF);
            group = (group & ~mask) | (EachByte * colour & mask);
            std::memcpy(row + x, &group, count);
        }
    }

    QImage &m_image;
    quint64 m_pattern;
    int m_words; // to a row
    size_t m_rowStep;
    std::vector<quint64> m_open;
    std::vector<quint64> m_seeds;
    std::vector<bool> m_wasOpen;    // whole rows, before the fill
    std::vector<quint32> m_waiting; // places with seeds, each once
};

} // namespace

bool Raster::floodFill(QImage &image, QPoint start, int index)
{
    if (!image.rect().contains(start))
        return false;
    const uchar target = image.constScanLine(start.y())[start.x()];
    const auto value = static_cast<uchar>(index);
    if (target == value)
        return false;

    WordFill fill(image, target);
    fill.fillFrom(start);
    fill.paint(value);
    return true;
}
