#include "formats/SquareIndex.h"

#include <QHashSeed>

SquareIndex::SquareIndex(int side)
    : m_area(side * side)
{
    Q_ASSERT(side > 0 && side <= MaxSide);
    const int last = side - 1;
    for (int flags = 0; flags < OrientationCount; ++flags) {
        for (int pixel = 0; pixel < m_area; ++pixel) {
            const int x = flags & Mirror ? last - pixel % side : pixel % side;
            const int y = flags & Flip ? last - pixel / side : pixel / side;
            const int source = flags & Rotate ? (last - x) * side + y : y * side + x;
            m_permutation[static_cast<size_t>(flags)][static_cast<size_t>(pixel)] =
                static_cast<quint8>(source);
        }
    }
}

SquareIndex::Orientation SquareIndex::place(const uchar *pixels)
{
    const auto known = m_places.constFind(key(pixels));
    if (known != m_places.constEnd())
        return *known;

    add(pixels);
    return {m_count - 1, 0};
}

bool SquareIndex::shows(Orientation place, const uchar *pixels) const
{
    const auto *square =
        reinterpret_cast<const uchar *>(m_pixels.constData()) + qsizetype(place.tile) * m_area;
    const Permutation &sources = m_permutation[static_cast<size_t>(place.flags)];
    for (int pixel = 0; pixel < m_area; ++pixel) {
        if (pixels[pixel] != square[sources[static_cast<size_t>(pixel)]])
            return false;
    }
    return true;
}

// Where two different squares have one hash, the later one takes the next key that is free.
size_t SquareIndex::key(const uchar *pixels) const
{
    size_t key = qHashBits(pixels, static_cast<size_t>(m_area), QHashSeed::globalSeed());
    auto found = m_places.constFind(key);
    while (found != m_places.constEnd() && !shows(*found, pixels))
        found = m_places.constFind(++key);
    return key;
}

void SquareIndex::add(const uchar *pixels)
{
    m_pixels.append(reinterpret_cast<const char *>(pixels), m_area);
    std::array<uchar, MaxSide * MaxSide> turned;
    for (int flags = 0; flags < OrientationCount; ++flags) {
        const Permutation &sources = m_permutation[static_cast<size_t>(flags)];
        for (int pixel = 0; pixel < m_area; ++pixel)
            turned[static_cast<size_t>(pixel)] = pixels[sources[static_cast<size_t>(pixel)]];
        m_places.insert(key(turned.data()), {m_count, flags});
    }
    ++m_count;
}
