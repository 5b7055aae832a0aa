#pragma once

class QTimer;
class TileSet;

/// What is drawn of tiles follows their looks.
namespace TileLooks {

/// Has @p redraw started whenever tiles look different, count differently or are gone. Its interval
/// makes one of many changes.
void follow(const TileSet *tiles, QTimer *redraw);

} // namespace TileLooks
