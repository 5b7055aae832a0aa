#pragma once

#include <QList>

class Map;
class Palette;
class TileSet;

/// Deals the colours of tiles out again, so that in every bank of sixteen the first entry is free.
///
/// The Next shows one of a tile's sixteen values as transparent, and so does a map in the editor,
/// where an empty cell of the object layer is of value 0. An import fills a bank from its first
/// entry on; a finished game leaves that entry alone.
namespace BankDealer {

inline constexpr int FreeEntry = 0; // of each bank

/// Rewrites the first @p count tiles, the palette and the palette offsets of the map's cells. False
/// with nothing changed if the colours do not fit.
[[nodiscard]] bool deal(TileSet *tiles, int count, Palette *palette, Map *map);

} // namespace BankDealer
