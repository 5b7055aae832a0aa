#include "formats/NxImage.h"

#include "formats/PixelOrder.h"
#include "model/NextColour.h"
#include "model/Palette.h"

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>

namespace {

constexpr int MaxIndexed = 256; // colours of an indexed picture
constexpr int NoIndex = -1;

/// All colours that the snap can give, numbered, so that what is known of a colour stands in an
/// array and each pixel takes three look-ups.
class ColourGrid
{
public:
    static constexpr int Side = static_cast<int>(NextColour::Levels.size());
    static constexpr int Size = Side * Side * Side;

    ColourGrid()
    {
        for (int value = 0; value < ValueCount; ++value) {
            const int level = NextColour::snappedLevel(value);
            const auto found = std::ranges::find(NextColour::Levels, level);
            const auto place = static_cast<int>(found - NextColour::Levels.begin());
            m_red[static_cast<size_t>(value)] = place * Side * Side;
            m_green[static_cast<size_t>(value)] = place * Side;
            m_blue[static_cast<size_t>(value)] = place;
        }
        for (int i = 0; i < Size; ++i) {
            m_colours[static_cast<size_t>(i)] =
                qRgb(levelAt(i / (Side * Side)), levelAt(i / Side % Side), levelAt(i % Side));
        }
    }

    static const ColourGrid &instance()
    {
        static const ColourGrid grid;
        return grid;
    }

    /// The number of the colour that @p colour snaps to.
    size_t place(QRgb colour) const
    {
        return static_cast<size_t>(m_red[(colour >> 16) & 0xFF] + m_green[(colour >> 8) & 0xFF] +
                                   m_blue[colour & 0xFF]);
    }
    QRgb colour(size_t place) const { return m_colours[place]; }

private:
    static constexpr int ValueCount = 256; // of a channel

    static int levelAt(int place) { return NextColour::Levels[static_cast<size_t>(place)]; }

    std::array<int, ValueCount> m_red;
    std::array<int, ValueCount> m_green;
    std::array<int, ValueCount> m_blue;
    std::array<QRgb, Size> m_colours;
};

const QRgb *pixels(const QImage &image, int y)
{
    return reinterpret_cast<const QRgb *>(image.constScanLine(y));
}

/// The place of the colour with the least squared distance, the lowest of equals; alpha does not
/// count.
int nearest(const QList<QRgb> &colours, QRgb wanted)
{
    int best = NoIndex;
    int bestDistance = std::numeric_limits<int>::max();
    for (int i = 0; i < colours.size(); ++i) {
        const int red = qRed(colours.at(i)) - qRed(wanted);
        const int green = qGreen(colours.at(i)) - qGreen(wanted);
        const int blue = qBlue(colours.at(i)) - qBlue(wanted);
        const int distance = red * red + green * green + blue * blue;
        if (distance < bestDistance) {
            bestDistance = distance;
            best = i;
        }
    }
    return best;
}

/// A snapped picture over at least one and at most 256 colours, each pixel the nearest of them.
QImage matched(const QImage &snapped, const QList<QRgb> &colours)
{
    QImage result(snapped.size(), QImage::Format_Indexed8);
    if (result.isNull() || colours.isEmpty())
        return {};

    const ColourGrid &grid = ColourGrid::instance();
    std::array<qint16, ColourGrid::Size> found;
    found.fill(NoIndex);
    for (int y = 0; y < snapped.height(); ++y) {
        const QRgb *from = pixels(snapped, y);
        uchar *to = result.scanLine(y);
        for (int x = 0; x < snapped.width(); ++x) {
            qint16 &index = found[grid.place(from[x])];
            if (index == NoIndex)
                index = static_cast<qint16>(nearest(colours, from[x]));
            to[x] = static_cast<uchar>(index);
        }
    }
    result.setColorTable(colours);
    return result;
}

std::array<qsizetype, ColourGrid::Size> countColours(const QImage &snapped)
{
    const ColourGrid &grid = ColourGrid::instance();
    std::array<qsizetype, ColourGrid::Size> counts{};
    for (int y = 0; y < snapped.height(); ++y) {
        const QRgb *line = pixels(snapped, y);
        for (int x = 0; x < snapped.width(); ++x)
            ++counts[grid.place(line[x])];
    }
    return counts;
}

/// The 256 most frequent of @p colours, in their old order; of equals the earlier ones stay.
QList<QRgb> mostFrequent(const QImage &snapped, const QList<QRgb> &colours)
{
    const auto counts = countColours(snapped);
    QList<qsizetype> order(colours.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, std::greater<>(), [&](qsizetype i) {
        return counts[ColourGrid::instance().place(colours.at(i))];
    });
    order.resize(MaxIndexed);
    std::ranges::sort(order);

    QList<QRgb> kept;
    kept.reserve(MaxIndexed);
    for (const qsizetype i : std::as_const(order))
        kept.append(colours.at(i));
    return kept;
}

template <typename Pixel>
void reorder(const QImage &from, QImage &to, bool rotate, bool flip, bool mirror)
{
    const qsizetype pitch = to.bytesPerLine() / static_cast<qsizetype>(sizeof(Pixel));
    const PixelOrder order = PixelOrder::of(from.size(), pitch, rotate, flip, mirror);
    auto *pixel = reinterpret_cast<Pixel *>(to.bits());
    for (int y = 0; y < from.height(); ++y) {
        const auto *line = reinterpret_cast<const Pixel *>(from.constScanLine(y));
        qsizetype place = order.first + y * order.down;
        for (int x = 0; x < from.width(); ++x, place += order.right)
            pixel[place] = line[x];
    }
}

} // namespace

NxImage::NxImage(QObject *parent)
    : QObject(parent)
{
}

void NxImage::setImage(const QImage &image)
{
    // A converted picture is snapped where it stands, so that no third copy of a big one is needed.
    const QImage source = image; // which may be ours
    const bool isConverted = source.format() != QImage::Format_RGB32;
    m_image = isConverted ? source.convertToFormat(QImage::Format_RGB32, Qt::NoFormatConversion)
                          : QImage(source.size(), QImage::Format_RGB32);
    m_colours.clear();
    if (m_image.isNull())
        return;

    const ColourGrid &grid = ColourGrid::instance();
    std::array<bool, ColourGrid::Size> seen{};
    for (int y = 0; y < m_image.height(); ++y) {
        auto *to = reinterpret_cast<QRgb *>(m_image.scanLine(y));
        const QRgb *from = isConverted ? to : pixels(source, y);
        for (int x = 0; x < m_image.width(); ++x) {
            const size_t place = grid.place(from[x]);
            to[x] = grid.colour(place);
            if (!seen[place]) {
                seen[place] = true;
                m_colours.append(to[x]);
            }
        }
    }
}

QImage NxImage::toIndexed() const
{
    if (m_image.isNull())
        return {};

    QList<QRgb> kept = m_colours;
    if (kept.size() > MaxIndexed) {
        qInfo() << "Kept the 256 most frequent colours of" << m_colours.size();
        kept = mostFrequent(m_image, m_colours);
    }
    QImage indexed = matched(m_image, kept);
    indexed.setColorCount(MaxIndexed);
    return indexed;
}

QImage NxImage::remap(const QPointer<Palette> &palette) const
{
    if (!palette)
        return {};
    return matched(m_image, palette->colourTable());
}

QImage NxImage::transformed(const QImage &square, bool rotate, bool flip, bool mirror)
{
    if (square.isNull() || !(rotate || flip || mirror))
        return square;
    if (square.depth() != 8 && square.depth() != 32)
        return transformed(square.convertToFormat(QImage::Format_ARGB32), rotate, flip, mirror);

    QImage turned(rotate ? square.size().transposed() : square.size(), square.format());
    if (turned.isNull())
        return {};
    turned.setColorTable(square.colorTable());
    if (square.depth() == 8)
        reorder<uchar>(square, turned, rotate, flip, mirror);
    else
        reorder<QRgb>(square, turned, rotate, flip, mirror);
    return turned;
}
