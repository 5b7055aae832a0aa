#pragma once

#include <QImage>
#include <QPoint>

/// The rules by which shapes become pixels of an indexed image.
///
/// Coordinates are image pixels and may lie anywhere; what falls outside the image is left out. All
/// functions set palette indices and leave the colour table alone. The image is Format_Indexed8.
namespace Raster {

/// One pixel.
void setPixel(QImage &image, QPoint position, int index);

/// A line with both ends. It sets the same pixels from either end.
void drawLine(QImage &image, QPoint from, QPoint to, int index);

/// The outline of the rectangle between two opposite corners.
void drawRectangle(QImage &image, QPoint corner, QPoint opposite, int index);

/// The area of the rectangle between two opposite corners.
void fillRectangle(QImage &image, QPoint corner, QPoint opposite, int index);

/// The outline of the ellipse that touches the rectangle between two opposite corners.
void drawEllipse(QImage &image, QPoint corner, QPoint opposite, int index);

/// Fills the 4-connected area of equal indices around @p start. False, with nothing changed, if the
/// start lies outside or bears @p index already. Needs an eighth of the picture as memory.
bool floodFill(QImage &image, QPoint start, int index);

/// The image turned a quarter clockwise within its own size: pixel (x, y) goes to (width - 1 - y,
/// x) where that exists; pixels that nothing reaches are 0.
QImage rotatedClockwise(const QImage &image);
/// The reverse turn.
QImage rotatedCounterClockwise(const QImage &image);

/// The image moved by @p offset with what leaves at one side coming in at the other.
QImage scrolled(const QImage &image, QPoint offset);

} // namespace Raster
