#pragma once

#include <QByteArray>
#include <QImage>

#include <optional>

/// The pictures of a project archive: 8-bit PNG whose pixel indices are what counts.
namespace ArchivePicture {

/// @p table with exactly 256 colours: opaque black behind its own, so that no index is without one.
QList<QRgb> filledUp(QList<QRgb> table);

/// PNG bytes of an indexed picture, always of the palette kind with 256 colours, whatever its
/// colour table: every index reads back. Empty for a null picture.
QByteArray encoded(const QImage &image);

/// The bytes of the largest PNG whose picture Qt's allocation limit lets be decoded, with room for
/// what else stands in such a file.
qint64 maxSize();

/// The picture as the file holds it, decoded as PNG and as nothing else within Qt's allocation
/// limit; null if that fails.
QImage decoded(const QByteArray &png);

/// The picture as indices: an indexed one with its table filled up to 256 colours, an 8-bit grey
/// one with its greys as indices. Nothing for any other kind.
std::optional<QImage> decodedIndices(const QByteArray &png);

} // namespace ArchivePicture
