#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

#include <array>

/// The distinct squares of a picture, each found again in any of the eight orientations of the
/// Next.
///
/// Squares are given as their pixel indices, row by row. Only equal pixels count as equal: a hash
/// finds the candidates, and all pixels are compared.
class SquareIndex
{
public:
    /// Bits of an orientation number; rotation, a quarter clockwise, comes first.
    enum OrientationFlag { Flip = 1, Mirror = 2, Rotate = 4 };

    static constexpr int OrientationCount = 8;
    static constexpr int MaxSide = 16; // pixels

    /// Where a square is found: the number of the distinct square, and the orientation number in
    /// which that one shows it.
    struct Orientation
    {
        int tile = 0;
        int flags = 0;

        bool operator==(const Orientation &) const = default;
    };

    /// For squares of @p side pixels, at most MaxSide.
    explicit SquareIndex(int side);

    int count() const { return m_count; }

    /// The place of the square whose side * side indices start at @p pixels; a new one is added
    /// behind the others with flags 0. A square with symmetry is found again in the highest of the
    /// orientations that look the same.
    Orientation place(const uchar *pixels);

private:
    using Permutation = std::array<quint8, MaxSide * MaxSide>;

    bool shows(Orientation place, const uchar *pixels) const;
    size_t key(const uchar *pixels) const;
    void add(const uchar *pixels);

    int m_area; // pixels of a square
    int m_count = 0;
    QByteArray m_pixels;                                     // of the distinct squares
    std::array<Permutation, OrientationCount> m_permutation; // [orientation][pixel]: its source
    QHash<size_t, Orientation> m_places;
};
