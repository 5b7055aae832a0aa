#include "examples/Chapters.h"
#include "examples/IslandThings.h"
#include "examples/Scene.h"
#include "examples/SpriteSheet.h"
#include "examples/Terrain.h"
#include "model/Map.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"

namespace {

constexpr QSize Cells(64, 48);
constexpr int Side = Terrain::Side;

QPoint square(int x, int y)
{
    return QPoint(x, y) * Side;
}

/// A thing, the squares that it covers, and what its tiles are to the game.
struct Thing
{
    using Draw = void (*)(Brush &, QPoint);

    Draw draw;
    QSize squares;
    int attribute;
    QList<QPoint> places; ///< in squares
};

Terrain makeTerrain()
{
    Terrain terrain(Cells / 2);
    terrain.layPath({{9, 11}, {16, 11}, {22, 11}});
    terrain.layPath({{16, 8}, {16, 18}});
    terrain.layPath({{22, 11}, {22, 8}});
    terrain.layPath({{11, 11}, {11, 15}});
    terrain.plough(QRect(18, 13, 5, 3));
    return terrain;
}

const QList<Thing> &things()
{
    using namespace IslandThings;
    static const QList<Thing> all = {
        {[](Brush &brush, QPoint at) {
             house(brush, at, {0200, 0400, 0510, 0621});
         },
         {3, 3},
         Tile::TA_SOLID,
         {{12, 7}, {18, 7}}},
        {[](Brush &brush, QPoint at) {
             house(brush, at, {0012, 0023, 0134, 0246});
         },
         {3, 3},
         Tile::TA_SOLID,
         {{12, 12}}},
        {lighthouse, {2, 4}, Tile::TA_SOLID, {{22, 4}}},
        {well, {1, 1}, Tile::TA_SOLID, {{17, 11}}},
        {fence, {1, 1}, Tile::TA_SOLID, {{18, 12}, {19, 12}, {20, 12}, {21, 12}}},
        {barrel, {1, 1}, Tile::TA_SOLID, {{15, 9}, {21, 9}, {15, 14}}},
        {flowerBed,
         {1, 1},
         Tile::TA_NONE,
         {{11, 9}, {17, 9}, {11, 13}, {10, 8}, {23, 10}, {17, 16}}},
        {rock, {1, 1}, Tile::TA_SOLID, {{8, 9}, {14, 17}, {24, 12}}},
        {pine,
         {1, 2},
         Tile::TA_SOLID,
         {{9, 5}, {11, 4}, {13, 4}, {15, 3}, {17, 4}, {19, 4}, {10, 6}, {14, 5}, {18, 5}}},
        {tree,
         {1, 2},
         Tile::TA_SOLID,
         {{8, 12}, {9, 14}, {8, 7}, {13, 16}, {18, 17}, {20, 17}, {23, 13}, {24, 8}, {10, 16}}},
    };
    return all;
}

void drawThings(Scene &scene)
{
    for (const Thing &thing : things()) {
        for (const QPoint place : thing.places) {
            thing.draw(scene.brush(), place * Side);
            scene.mark(QRect(place * Side, thing.squares * Side), thing.attribute);
        }
    }
    IslandThings::jetty(scene.brush(), QRect(square(16, 18) - QPoint(12, 0), QSize(24, 64)));
    IslandThings::boat(scene.brush(), square(18, 20));
}

const QList<QStringList> &folk()
{
    static const QList<QStringList> frames = {
        {"................", ".....000000.....", "....01111110....", "...0111111110...",
         "...0115555110...", "...0150550510...", "...0155555510...", "....06555560....",
         "...0072772700...", "..077222222770..", "..052222222250..", "..050222222050..",
         "...00884488 0...", "....08800880....", "....09900990....", "....00000000...."},
        {"................", "................", ".....000000.....", "....01111110....",
         "...0111111110...", "...0115555110...", "...0150550510...", "...0155555510...",
         "....06555560....", "...0072772700...", "..077222222770..", "..052222222250..",
         "..050888888050..", "...0088008800...", "....09900990....", "....00000000...."},
    };
    return frames;
}

void placeFolk(Project *project, Map *map)
{
    SpriteSheet sheet;
    sheet.add(QStringLiteral("Islander"), 14, folk(), {0, 1});
    const SpriteBank *bank =
        sheet.makeBank(project, QStringLiteral("Folk"),
                       {{0001, 0310, 0135, 0707, 0761, 0754, 0642, 0024, 0111, 0100},
                        {0001, 0640, 0511, 0707, 0761, 0764, 0642, 0400, 0134, 0100},
                        {0001, 0101, 0251, 0707, 0761, 0532, 0421, 0130, 0421, 0100}});
    const QList<QPoint> places = {{166, 202}, {290, 166}, {262, 240}};
    QList<Map::PlacedSprite> sprites;
    for (int number = 0; number < places.size(); ++number) {
        Map::PlacedSprite sprite;
        sprite.bank = bank->id();
        sprite.animation = bank->animations().cbegin().key();
        sprite.sprite = 0;
        sprite.x = places.at(number).x();
        sprite.y = places.at(number).y();
        sprite.paletteOffset = number;
        sprite.startFrame = number % 2;
        sprite.name = QStringLiteral("Islander");
        sprites += sprite;
    }
    map->setSprites(sprites);
}

} // namespace

void Examples::makeIsland(Project *project)
{
    Scene scene(Cells);
    const Terrain terrain = makeTerrain();
    terrain.draw(scene.brush());
    for (int y = 0; y < Cells.height() / 2; ++y) {
        for (int x = 0; x < Cells.width() / 2; ++x) {
            if (terrain.isSea({x, y}))
                scene.mark(QRect(square(x, y), QSize(Side, Side)), Tile::TA_DEADLY);
        }
    }
    drawThings(scene);
    IslandThings::campfire(scene.brush(), square(20, 10), 0);
    IslandThings::flag(scene.brush(), square(15, 19), 0);
    // Only on the open sea, which is tile 0: a map's file has that tile below its blocks.
    scene.animate({QStringLiteral("Ripple"), {2, 2}, 12, 4}, IslandThings::ripple,
                  {square(2, 2), square(4, 21), square(28, 4), square(26, 20), square(7, 22)});
    if (const auto map = scene.makeMap(project, QStringLiteral("Saltmere")))
        placeFolk(project, map);
}
