#include "support/UseProject.h"

#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

namespace {

void useMap(Map *map)
{
    map->tileLayer()->picture({0, 0, 4, 4}, 8, map->tileTransparencyIndex());
    map->objectLayer()->picture({0, 0, 4, 4}, 8, -1);
    map->resize({3, 3}, Qt::AlignRight | Qt::AlignBottom);
    map->restore(map->state());
}

void useSprites(SpriteBank *bank)
{
    for (const auto &animation : bank->animations())
        animation->thumbnail({16, 16});
    bank->spriteImage(0, -1, true, true, true);
    bank->moveSprite(0, bank->count() - 1);
    bank->deleteSprite(0);
}

} // namespace

void useProject(Project *project)
{
    for (const auto &map : project->maps())
        useMap(map);
    for (const auto &blocks : project->mapObjects()) {
        for (const auto &animation : blocks->animations())
            animation->thumbnail({16, 16});
    }
    for (const auto &bank : project->spriteBanks())
        useSprites(bank);
    for (const auto &tileSet : project->tileSets())
        tileSet->insertTile(0);
}
