#pragma once

#include "model/Map.h"

#include <QList>
#include <QUuid>

/// Keeps the sprites that are placed on a map in step with their bank, which they name by index.
/// Sprites of other banks stay as they are, and so do those placed as animations and without an
/// index.
namespace SpriteReferences {

/// What becomes of the index @p sprite when sprite @p from of its bank moves to @p to.
int moved(int sprite, int from, int to);
/// Sprite @p from of the bank has moved to @p to; those between have closed up.
void followMove(QList<Map::PlacedSprite> *sprites, const QUuid &bank, int from, int to);
/// A sprite of the bank has gone: its placements go, too, and those behind it count one less.
void followDelete(QList<Map::PlacedSprite> *sprites, const QUuid &bank, int index);

} // namespace SpriteReferences
