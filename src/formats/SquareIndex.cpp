#include "formats/SquareIndex.h"

#include "formats/PixelOrder.h"

#include <QHashSeed>
#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

/// The orientation that undoes each one. A mirror undoes itself, and so does a quarter turn with
/// one mirror; the other two quarter turns undo each other.
constexpr std::array<int, SquareIndex::OrientationCount> Inverse = {0, 1, 2, 3, 7, 5, 6, 4};

using Word = quint64;
constexpr int WordBytes = sizeof(Word);

/// A quarter clockwise.
void turn(const uchar *from, uchar *to, int side)
{
    const PixelOrder order = PixelOrder::of(QSize(side, side), side, true, false, false);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            to[order.first + x * order.right + y * order.down] = from[y * side + x];
    }
}

/// Top to bottom.
void flip(const uchar *from, uchar *to, int side)
{
    for (int y = 0; y < side; ++y)
        std::memcpy(to + (side - 1 - y) * side, from + y * side, static_cast<size_t>(side));
}

/// Left to right, eight pixels at a time.
void mirror(const uchar *from, uchar *to, int side)
{
    for (int row = 0; row < side * side; row += side) {
        for (int x = 0; x < side; x += WordBytes) {
            const Word word = qbswap(qFromUnaligned<Word>(from + row + x));
            qToUnaligned(word, to + row + side - WordBytes - x);
        }
    }
}

} // namespace

SquareIndex::SquareIndex(int side)
    : m_side(side)
{
    Q_ASSERT(side % SideStep == 0 && side <= MaxSide);
}

SquareIndex::Orientation SquareIndex::place(const uchar *pixels)
{
    makeForms(pixels);
    size_t key = hash();
    // Where two different squares have one hash, the later one takes the next key that is free.
    for (auto found = m_tiles.constFind(key); found != m_tiles.constEnd();
         found = m_tiles.constFind(++key)) {
        const int flags = orientationOf(*found);
        if (flags >= 0)
            return {*found, flags};
    }
    m_tiles.insert(key, m_count);
    m_pixels.append(reinterpret_cast<const char *>(pixels), area());
    return {m_count++, 0};
}

void SquareIndex::makeForms(const uchar *pixels)
{
    const auto form = [this](int flags) { return m_forms[static_cast<size_t>(flags)].data(); };
    std::copy_n(pixels, area(), form(0));
    turn(form(0), form(Rotate), m_side);
    for (const int turned : {0, int(Rotate)}) {
        flip(form(turned), form(turned | Flip), m_side);
        mirror(form(turned), form(turned | Mirror), m_side);
        mirror(form(turned | Flip), form(turned | Flip | Mirror), m_side);
    }
}

size_t SquareIndex::hash() const
{
    const size_t seed = static_cast<size_t>(QHashSeed::globalSeed());
    const auto bytes = static_cast<size_t>(area());
    size_t least = std::numeric_limits<size_t>::max();
    for (const Square &form : m_forms)
        least = std::min(least, qHashBits(form.data(), bytes, seed));
    return least;
}

int SquareIndex::orientationOf(int tile) const
{
    const auto bytes = static_cast<size_t>(area());
    int flags = OrientationCount - 1;
    while (flags >= 0) {
        const auto undone = static_cast<size_t>(Inverse[static_cast<size_t>(flags)]);
        if (std::memcmp(pixels(tile), m_forms[undone].data(), bytes) == 0)
            break;
        --flags;
    }
    return flags;
}
