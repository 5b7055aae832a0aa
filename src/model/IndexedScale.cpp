#include "model/IndexedScale.h"

#include <QTransform>

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

/// A part of the source's axis, the length it is scaled to, and which pixels of that are wanted.
struct Axis
{
    int partStart;
    int partLength;
    int targetLength;
    int first;
    int count;
};

/// For each wanted pixel of one target axis, the pixel of the source, with the 12-bit fixed point
/// of QImage::transformed().
std::vector<int> sourcePositions(const Axis &axis)
{
    constexpr int FractionBits = 12;
    constexpr double One = 1 << FractionBits;
    const bool isScaled = axis.targetLength != axis.partLength;
    const double scale = static_cast<double>(axis.targetLength) / axis.partLength;
    const qint64 step =
        isScaled ? static_cast<qint64>(QTransform::fromScale(scale, scale).inverted().m11() * One)
                 : qint64(1) << FractionBits;
    std::vector<int> positions(static_cast<size_t>(axis.count));
    qint64 position = (isScaled ? step / 2 : 0) + step * axis.first;
    for (int &at : positions) {
        at = axis.partStart + static_cast<int>(position >> FractionBits);
        position += step;
    }
    return positions;
}

/// Copies one row by its column positions; those outside [0, sourceWidth) give 0.
class RowScaler
{
public:
    RowScaler(std::vector<int> columns, int sourceWidth)
        : m_columns(std::move(columns))
    {
        const auto begin = std::lower_bound(m_columns.cbegin(), m_columns.cend(), 0);
        const auto end = std::lower_bound(begin, m_columns.cend(), sourceWidth);
        m_begin = static_cast<size_t>(begin - m_columns.cbegin());
        m_end = static_cast<size_t>(end - m_columns.cbegin());
        findRuns();
    }

    void copy(uchar *target, const uchar *source) const
    {
        if (m_runs.empty()) {
            std::memset(target, 0, m_columns.size());
            return;
        }
        std::memset(target, 0, m_begin);
        if (m_runs.size() == m_end - m_begin && m_isGapless)
            std::memcpy(target + m_begin, source + m_columns[m_begin], m_end - m_begin);
        else if (m_runs.size() <= (m_end - m_begin) / 2)
            copyRuns(target, source);
        else
            copyPixels(target, source, m_begin);
        std::memset(target + m_end, 0, m_columns.size() - m_end);
    }

private:
    static constexpr size_t Word = sizeof(quint64);

    /// Columns from start to before end show one pixel of the source.
    struct Run
    {
        size_t start;
        size_t end;
    };

    void findRuns()
    {
        for (size_t x = m_begin; x < m_end; ++x) {
            if (x > m_begin && m_columns[x] == m_columns[x - 1]) {
                ++m_runs.back().end;
                continue;
            }
            m_isGapless = m_isGapless && (x == m_begin || m_columns[x] == m_columns[x - 1] + 1);
            m_runs.push_back({x, x + 1});
        }
    }

    void copyPixels(uchar *target, const uchar *source, size_t from) const
    {
        for (size_t x = from; x < m_end; ++x)
            target[x] = source[m_columns[x]];
    }

    /// Writes whole words, of which the next run overwrites what is too much.
    void copyRuns(uchar *target, const uchar *source) const
    {
        for (const Run &run : m_runs) {
            if (run.end + Word > m_columns.size()) {
                copyPixels(target, source, run.start);
                return;
            }
            const quint64 pixels = source[m_columns[run.start]] * Q_UINT64_C(0x0101010101010101);
            for (size_t x = run.start; x < run.end; x += Word)
                std::memcpy(target + x, &pixels, Word);
        }
    }

    std::vector<int> m_columns;
    size_t m_begin = 0; // the columns inside the source
    size_t m_end = 0;
    std::vector<Run> m_runs;
    bool m_isGapless = true; // no pixel of the source is left out
};

} // namespace

QImage IndexedScale::scaledPart(const QImage &source, QRect part, QSize size)
{
    return scaledPart(source, part, size, QRect(QPoint(), size));
}

QImage IndexedScale::scaledPart(const QImage &source, QRect part, QSize size, QRect piece)
{
    const QRect wanted = piece.intersected(QRect(QPoint(), size));
    if (part.isEmpty() || size.isEmpty() || wanted.isEmpty())
        return {};
    QImage target(wanted.size(), QImage::Format_Indexed8);
    if (target.isNull())
        return {};

    const RowScaler scaler(
        sourcePositions({part.left(), part.width(), size.width(), wanted.left(), wanted.width()}),
        source.width());
    const std::vector<int> rows =
        sourcePositions({part.top(), part.height(), size.height(), wanted.top(), wanted.height()});
    const auto width = static_cast<size_t>(target.width());
    const qsizetype stride = target.bytesPerLine();
    uchar *to = target.bits();
    for (size_t y = 0; y < rows.size(); ++y, to += stride) {
        if (rows[y] < 0 || rows[y] >= source.height())
            std::memset(to, 0, width);
        else if (y > 0 && rows[y] == rows[y - 1])
            std::memcpy(to, to - stride, width);
        else
            scaler.copy(to, source.constScanLine(rows[y]));
    }
    return target;
}
