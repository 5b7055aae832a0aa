#pragma once

#include <QImage>
#include <QRect>
#include <QSize>

/// Blows indexed pixels up to screen pixels, whole numbers of them, without smoothing.
namespace PixelScaler {

/// Draws the pixels @p source of @p image, which must lie inside, into @p target as Format_RGB32,
/// each
/// @p pixelSize screen pixels. A target of the right size keeps its memory. Indices beyond the
/// colour table show black.
void scale(const QImage &image, const QRect &source, QSize pixelSize, QImage *target);

} // namespace PixelScaler
