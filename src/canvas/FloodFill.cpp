#include "canvas/Raster.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <vector>

namespace {

constexpr int WordBits = 64;
constexpr quint64 EachByte = 0x0101010101010101;

/// The first x from @p x on, up to @p end, whose byte is not @p value.
int endOfRun(const uchar *row, int x, int end, uchar value)
{
    const quint64 pattern = EachByte * value;
    while (end - x >= 8) {
        quint64 eight;
        std::memcpy(&eight, row + x, sizeof eight);
        if (eight != pattern)
            break;
        x += 8;
    }
    while (x < end && row[x] == value)
        ++x;
    return x;
}

/// The first x of the run of @p value that ends before @p x.
int startOfRun(const uchar *row, int x, uchar value)
{
    const quint64 pattern = EachByte * value;
    while (x >= 8) {
        quint64 eight;
        std::memcpy(&eight, row + x - 8, sizeof eight);
        if (eight != pattern)
            break;
        x -= 8;
    }
    while (x > 0 && row[x - 1] == value)
        --x;
    return x;
}

/// Runs of an area are filled row by row. What a run touches above and below is noted as one bit a
/// pixel, so that no area, however branched, needs more than an eighth of the picture.
class SpanFill
{
public:
    SpanFill(QImage &image, uchar target, uchar index)
        : m_bits(image.bits())
        , m_stride(image.bytesPerLine())
        , m_width(image.width())
        , m_target(target)
        , m_index(index)
        , m_words(static_cast<size_t>((image.width() + WordBits - 1) / WordBits))
        , m_rows(static_cast<size_t>(image.height()))
        , m_seeds(m_words * m_rows.size())
    {
    }

    void fillFrom(QPoint start)
    {
        addSeed(start.x(), start.y());
        while (!m_waiting.empty()) {
            const int y = m_waiting.back();
            m_waiting.pop_back();
            fillRow(y);
        }
    }

private:
    struct Row
    {
        int first = 0; // words that hold seeds, first above last for none
        int last = -1;
    };

    uchar *line(int y) { return m_bits + y * m_stride; }
    quint64 *seedsOf(int y) { return m_seeds.data() + static_cast<size_t>(y) * m_words; }

    void addSeed(int x, int y)
    {
        Row &row = m_rows[static_cast<size_t>(y)];
        const int word = x / WordBits;
        if (row.first > row.last) {
            row = {word, word};
            m_waiting.push_back(y);
        } else {
            row.first = std::min(row.first, word);
            row.last = std::max(row.last, word);
        }
        seedsOf(y)[word] |= quint64(1) << (x % WordBits);
    }

    void fillRow(int y)
    {
        const Row range = std::exchange(m_rows[static_cast<size_t>(y)], Row());
        for (int word = range.first; word <= range.last; ++word) {
            quint64 seeds = std::exchange(seedsOf(y)[word], 0);
            for (; seeds != 0; seeds &= seeds - 1)
                fillRun(word * WordBits + std::countr_zero(seeds), y);
        }
    }

    void fillRun(int x, int y)
    {
        uchar *const row = line(y);
        if (row[x] != m_target)
            return; // another seed of the same run came first
        const int first = startOfRun(row, x, m_target);
        const int end = endOfRun(row, x, m_width, m_target);
        std::memset(row + first, m_index, static_cast<size_t>(end - first));
        if (y > 0)
            seedRow(first, end, y - 1);
        if (y + 1 < static_cast<int>(m_rows.size()))
            seedRow(first, end, y + 1);
    }

    /// One seed for each run of the target that lies beside pixels first to end - 1.
    void seedRow(int first, int end, int y)
    {
        const uchar *const row = line(y);
        int x = first;
        while (x < end) {
            const auto *const found = static_cast<const uchar *>(
                std::memchr(row + x, m_target, static_cast<size_t>(end - x)));
            if (!found)
                return;
            x = static_cast<int>(found - row);
            addSeed(x, y);
            x = endOfRun(row, x, end, m_target);
        }
    }

    uchar *m_bits;
    qsizetype m_stride;
    int m_width;
    uchar m_target;
    uchar m_index;
    size_t m_words;
    std::vector<Row> m_rows;
    std::vector<quint64> m_seeds;
    std::vector<int> m_waiting; // rows with seeds, each once
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

    SpanFill(image, target, value).fillFrom(start);
    return true;
}
