#pragma once

#include "examples/Brush.h"

/// The things that stand on the island. @p at is the upper left pixel of their squares.
namespace IslandThings {

/// 16 by 32 pixels.
void tree(Brush &brush, QPoint at);
void pine(Brush &brush, QPoint at);
/// 48 by 48 pixels, with roof tiles in colours from dark to light.
void house(Brush &brush, QPoint at, const QList<int> &roof);
/// 32 by 64 pixels.
void lighthouse(Brush &brush, QPoint at);
/// Planks over the sea.
void jetty(Brush &brush, QRect pixels);
/// 48 by 32 pixels.
void boat(Brush &brush, QPoint at);
/// 16 by 16 pixels each.
void well(Brush &brush, QPoint at);
void rock(Brush &brush, QPoint at);
void flowerBed(Brush &brush, QPoint at);
void fence(Brush &brush, QPoint at);
void barrel(Brush &brush, QPoint at);

/// Frame number @p step of four.
void campfire(Brush &brush, QPoint at, int step);
void ripple(Brush &brush, QPoint at, int step);
void flag(Brush &brush, QPoint at, int step);

} // namespace IslandThings
