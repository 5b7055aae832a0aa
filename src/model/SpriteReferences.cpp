#include "model/SpriteReferences.h"

namespace {

/// Sprites placed as animations name the animation and do not follow the order of the bank.
bool isSpriteOf(const Map::PlacedSprite &placed, const QUuid &bank)
{
    return placed.bank == bank && placed.animation.isNull() && placed.sprite >= 0;
}

} // namespace

int SpriteReferences::moved(int sprite, int from, int to)
{
    if (sprite == from)
        return to;
    if (from < sprite && sprite <= to)
        return sprite - 1;
    if (to <= sprite && sprite < from)
        return sprite + 1;
    return sprite;
}

void SpriteReferences::followMove(QList<Map::PlacedSprite> *sprites, const QUuid &bank, int from,
                                  int to)
{
    for (Map::PlacedSprite &placed : *sprites) {
        if (isSpriteOf(placed, bank))
            placed.sprite = moved(placed.sprite, from, to);
    }
}

void SpriteReferences::followDelete(QList<Map::PlacedSprite> *sprites, const QUuid &bank, int index)
{
    sprites->removeIf([&](const Map::PlacedSprite &placed) {
        return isSpriteOf(placed, bank) && placed.sprite == index;
    });
    for (Map::PlacedSprite &placed : *sprites) {
        if (isSpriteOf(placed, bank) && placed.sprite > index)
            --placed.sprite;
    }
}
