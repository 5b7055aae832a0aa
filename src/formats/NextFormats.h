#pragma once

#include "model/TileMap.h"

#include <QByteArray>
#include <QImage>
#include <QRgb>

#include <array>

/// The byte layouts of the files that a Next program loads. None has a header; all are pure
/// functions of plain values.
namespace NextFormats {

inline constexpr int PaletteBytes = 512; // two bytes an entry
inline constexpr int TileBytes = 32;     // two pixels a byte
inline constexpr int WideTileBytes = 64; // one pixel a byte
inline constexpr int SpriteBytes = 256;  // one pixel a byte
inline constexpr int MapCellBytes = 2;

/// The colour words of a palette.
using PaletteWords = std::array<quint16, PaletteBytes / 2>;

/// Whether a name ends in ".npl", in any case: such a palette has a zero byte behind it.
bool isNpl(const QString &fileName);

/// The words high byte first, entry 0 first.
QByteArray paletteBytes(const PaletteWords &words);
/// The words of the first 512 bytes of @p data, which holds that many.
PaletteWords paletteWords(const QByteArray &data);

/// An 8 by 8 indexed tile: the high nibble is the left pixel; only the low four bits of each index.
QByteArray tileBytes(const QImage &tile);
/// The picture of the 32 bytes at @p offset of @p data, which holds that many.
QImage tileImage(const QByteArray &data, qsizetype offset, const QList<QRgb> &colourTable);

/// Each pixel index of an indexed picture as it is, row by row; nothing for any other picture.
QByteArray pixelBytes(const QImage &image);

/// The two bytes of a map cell: index, then its bit 8, rotate, flip, mirror and the palette offset.
QByteArray mapBytes(const TileMap::Rows &rows);

} // namespace NextFormats
