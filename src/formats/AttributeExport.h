#pragma once

#include <QByteArray>
#include <QString>

class TileSet;

/// The export of the tiles' attributes for a game's collision code.
namespace AttributeExport {

inline constexpr int ValuesPerLine = 16;

/// Assembler source: the names of the bits, then "db" lines of hexadecimal values.
QByteArray assembler(const TileSet &tileSet);
/// One byte a tile.
QByteArray binary(const TileSet &tileSet);

/// Writes by the suffix of @p fileName: ".asm" the source, anything else the bytes. False if that
/// failed.
[[nodiscard]] bool write(const TileSet &tileSet, const QString &fileName);

} // namespace AttributeExport
