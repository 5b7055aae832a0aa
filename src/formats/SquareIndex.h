#pragma once

#include <QByteArray>
#include <QHash>

#include <array>

/// The distinct squares of a picture, each found again in any of the eight orientations of the
/// Next.
///
/// Squares are given as their pixel indices, row by row. Only equal pixels count as equal: a hash
/// that is the same for all orientations finds the candidate, and all pixels are compared.
class SquareIndex
{
public:
    /// Bits of an orientation number; rotation, a quarter clockwise, comes first.
    enum OrientationFlag { Flip = 1, Mirror = 2, Rotate = 4 };

    static constexpr int OrientationCount = 8;
    static constexpr int MaxSide = 16; // pixels
    static constexpr int SideStep = 8; // pixels

    /// Where a square is found: the number of the distinct square, and the orientation number in
    /// which that one shows it.
    struct Orientation
    {
        int tile = 0;
        int flags = 0;

        bool operator==(const Orientation &) const = default;
    };

    /// For squares of @p side pixels, 8 or 16.
    explicit SquareIndex(int side);

    int count() const { return m_count; }
    /// The indices of a distinct square, until the next one is added.
    const uchar *pixels(int tile) const
    {
        return reinterpret_cast<const uchar *>(m_pixels.constData()) + area() * tile;
    }

    /// The place of the square whose side * side indices start at @p pixels; a new one is added
    /// behind the others with flags 0. A square with symmetry is found again in the highest of the
    /// orientations that look the same.
    Orientation place(const uchar *pixels);

private:
    using Square = std::array<uchar, MaxSide * MaxSide>;
    using Forms = std::array<Square, OrientationCount>;

    qsizetype area() const { return qsizetype(m_side) * m_side; }
    void makeForms(const uchar *pixels);
    size_t hash() const;
    /// The highest orientation in which @p tile shows the first form; -1 if it does not in any.
    int orientationOf(int tile) const;

    int m_side;
    int m_count = 0;
    QByteArray m_pixels; // of the distinct squares
    Forms m_forms;       // of the square in hand, by orientation
    QHash<size_t, int> m_tiles;
};
