#pragma once

#include <QImage>
#include <QRect>
#include <QSize>

/// Nearest-neighbour scaling of a part of an indexed picture.
namespace IndexedScale {

/// What QImage::copy() and QImage::scaled() with Qt::IgnoreAspectRatio and Qt::FastTransformation
/// give, but without copying the part first: pixels of @p part outside @p source are 0. The colour
/// table is left to the caller. Null for an empty part or size.
QImage scaledPart(const QImage &source, QRect part, QSize size);
/// What lies of that within @p piece, in pixels of the result.
QImage scaledPart(const QImage &source, QRect part, QSize size, QRect piece);

} // namespace IndexedScale
