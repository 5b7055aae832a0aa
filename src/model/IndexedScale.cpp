#include "model/IndexedScale.h"

#include <QTransform>

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

/// For each pixel of one target axis, the pixel of the source, with the 12-bit fixed point of
/// QImage::transformed().
std::vector<int> sourcePositions(int partStart, int partLength, int targetLength)
{
    constexpr int FractionBits = 12;
    constexpr double One = 1 << FractionBits;
    const double scale = static_cast<double>(targetLength) / partLength;
    const auto step =
        static_cast<qint64>(QTransform::fromScale(scale, scale).inverted().m11() * One);
    std::vector<int> positions(static_cast<size_t>(targetLength));
    qint64 position = targetLength == partLength ? 0 : step / 2;
    for (int &at : positions) {
        at = partStart + static_cast<int>(position >> FractionBits);
        position += targetLength == partLength ? (1 << FractionBits) : step;
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
        m_unscaled =
            m_begin < m_end &&
            static_cast<size_t>(m_columns[m_end - 1] - m_columns[m_begin]) == m_end - 1 - m_begin &&
            std::adjacent_find(m_columns.cbegin(), m_columns.cend()) == m_columns.cend();
    }

    void copy(uchar *target, const uchar *source) const
    {
        std::memset(target, 0, m_begin);
        if (m_unscaled) {
            std::memcpy(target + m_begin, source + m_columns[m_begin], m_end - m_begin);
        } else {
            for (size_t x = m_begin; x < m_end; ++x)
                target[x] = source[m_columns[x]];
        }
        std::memset(target + m_end, 0, m_columns.size() - m_end);
    }

private:
    std::vector<int> m_columns;
    size_t m_begin = 0; // the columns inside the source
    size_t m_end = 0;
    bool m_unscaled = false;
};

} // namespace

QImage IndexedScale::scaledPart(const QImage &source, QRect part, QSize size)
{
    if (part.isEmpty() || size.isEmpty())
        return {};
    QImage target(size, QImage::Format_Indexed8);
    if (target.isNull())
        return {};

    const RowScaler scaler(sourcePositions(part.left(), part.width(), target.width()),
                           source.width());
    const std::vector<int> rows = sourcePositions(part.top(), part.height(), target.height());
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
