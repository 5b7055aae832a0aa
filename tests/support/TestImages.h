#pragma once

#include <QImage>
#include <QStringList>

/// Small pictures written as text, so that a test shows its input and its expectation.
namespace TestImages {

/// An indexed picture from rows of hexadecimal digits, one digit a pixel, with 256 colours by
/// indexColour(): pictures of other indices are not the same to QImage either.
QImage indexed(const QStringList &rows);
/// The colour of an index in indexed(), opaque; no two are the same.
QRgb indexColour(int index);

/// The rows of an indexed picture, one lower-case hexadecimal digit a pixel (the low nibble).
QStringList rows(const QImage &image);

/// A 32-bit picture from rows of hexadecimal digits, one digit a pixel, each a colour of its own by
/// colour().
QImage coloured(const QStringList &rows);
/// The colour of a digit in coloured(), on the grid of 17 levels.
QRgb colour(int digit);

/// A 32-bit picture of @p count squares of 8 by 8 in two colours, @p columns a row, of which no two
/// are the same in any orientation; at most 65,536. Squares beyond the count are plain.
QImage distinctSquares(int count, int columns);

} // namespace TestImages
