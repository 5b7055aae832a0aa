#pragma once

#include <QList>

class Map;
class Palette;
class TileSet;

/// Deals the colours of tiles out again, so that in every bank of sixteen the last entry is free.
///
/// The Next shows one of a tile's sixteen values as transparent, after a reset the last one. An
/// import fills a bank to its end; a finished game leaves that entry alone.
namespace BankDealer {

inline constexpr int FreeEntry = 15; // of each bank

/// Rewrites the first @p count tiles, the palette and the palette offsets of the map's cells. False
/// with nothing changed if the colours do not fit.
[[nodiscard]] bool deal(TileSet *tiles, int count, Palette *palette, Map *map);

} // namespace BankDealer
