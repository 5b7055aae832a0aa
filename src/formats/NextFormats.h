#pragma once

#include <QByteArray>
#include <QImage>
#include <QRgb>

#include <optional>

#include "model/TileMap.h"

/// The byte layouts of the files that a Next program loads. None has a header; all are pure
/// functions of plain values.
namespace NextFormats {

inline constexpr int PaletteBytes = 512;
inline constexpr int TileBytes = 32;     // two pixels a byte
inline constexpr int WideTileBytes = 64; // one pixel a byte
inline constexpr int SpriteBytes = 256;  // one pixel a byte
inline constexpr int MapCellBytes = 2;

/// Whether a name ends in ".npl", in any case: such a palette has a zero byte behind it.
bool isNpl(const QString &fileName);

/// An 8 by 8 tile: the high nibble is the left pixel; only the low four bits of each index.
QByteArray tileBytes(const QImage &tile);
/// The picture of the 32 bytes at @p offset of @p data.
QImage tileImage(const QByteArray &data, qsizetype offset, const QList<QRgb> &colourTable);

/// Each pixel index of an indexed picture as it is, row by row.
QByteArray pixelBytes(const QImage &image);

/// The two bytes of a map cell: index, then its bit 8, rotate, flip, mirror and the palette offset.
QByteArray mapBytes(const TileMap::Rows &rows);

} // namespace NextFormats
