#pragma once

#include <QJsonObject>

class LoadContext;
class TileSet;

/// A tile set in project.json, and its picture of all tiles, one below the other.
namespace TileSetJson {

inline constexpr int MaxCount = 65'536; // tiles

QJsonObject write(const TileSet &tileSet);
/// PNG bytes of the tiles in the palette's colours; empty for a set without tiles.
QByteArray picture(const TileSet &tileSet);
/// Makes the tile set and adds it to the project; a "count" of 0 asks for no picture.
[[nodiscard]] bool read(const QJsonObject &object, LoadContext &context);

} // namespace TileSetJson
