#include "examples/Chapters.h"
#include "examples/Figures.h"
#include "examples/Ground.h"
#include "examples/LevelDecor.h"
#include "examples/SpriteSheet.h"
#include "model/Map.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"

namespace {

using Ground::Plan;
using Ground::Side;

constexpr QSize Cells(80, 32);

/// A place in squares, in pixels.
QPoint square(int x, int y)
{
    return QPoint(x, y) * Side;
}

QRect squares(int x, int y, int width, int height)
{
    return QRect(square(x, y), QSize(width, height) * Side);
}

Plan makePlan()
{
    Plan plan(Cells / 2, Ground::Sky);
    for (const QRect rock : {QRect(0, 10, 40, 6), QRect(33, 8, 7, 2), QRect(11, 6, 4, 1),
                             QRect(12, 7, 2, 1), QRect(28, 4, 4, 1), QRect(29, 5, 2, 1)})
        plan.put(rock, Ground::Solid);
    plan.put(QRect(15, 10, 5, 2), Ground::Water);
    plan.put(QRect(2, 13, 11, 2), Ground::Cave);
    plan.put(QRect(20, 12, 17, 3), Ground::Cave);
    plan.put(QRect(10, 12, 2, 1), Ground::Cave);
    plan.put(QRect(24, 10, 2, 2), Ground::Cave);
    plan.put(QRect(32, 14, 5, 1), Ground::Water);
    return plan;
}

void drawDecor(Brush &brush)
{
    for (const int x : {40, 168, 424}) // where the hills behind are the same
        LevelDecor::tree(brush, {x, 160});
    for (const int x : {5, 21, 37})
        LevelDecor::bush(brush, square(x, x == 37 ? 8 : 10));
    for (const int x : {1, 7, 13, 30, 34})
        LevelDecor::flowers(brush, square(x, x == 13 ? 6 : x == 34 ? 8 : 10));
    LevelDecor::mushroom(brush, square(12, 10));
    LevelDecor::mushroom(brush, square(31, 4));
    LevelDecor::lanternPost(brush, square(7, 10) + QPoint(6, 0));
    LevelDecor::lanternPost(brush, square(23, 10) + QPoint(6, 0));
    LevelDecor::sign(brush, square(3, 9) + QPoint(8, 0));
    LevelDecor::crate(brush, square(31, 9));
    LevelDecor::crate(brush, square(32, 9));
    LevelDecor::crate(brush, square(32, 8));
    LevelDecor::door(brush, square(35, 6));
    LevelDecor::column(brush, square(34, 8), 40);
    LevelDecor::column(brush, square(37, 8), 40);
    LevelDecor::planks(brush, QRect(square(20, 7), QSize(64, 8)));
    LevelDecor::planks(brush, QRect(square(25, 10), QSize(16, 8)));
    LevelDecor::ladder(brush, squares(24, 10, 1, 5));
    LevelDecor::chest(brush, square(4, 14));
    LevelDecor::chest(brush, square(31, 13));
    for (const int x : {6, 11, 22})
        LevelDecor::crystal(brush, square(x, 14));
    for (const int x : {8, 9, 28, 29})
        LevelDecor::spikes(brush, square(x, 14));
}

void mark(Scene &scene, const Plan &plan)
{
    for (int y = 0; y < plan.height(); ++y) {
        for (int x = 0; x < plan.width(); ++x) {
            if (plan.at(x, y) == Ground::Solid)
                scene.mark(squares(x, y, 1, 1), Tile::TA_SOLID);
        }
    }
    scene.mark(QRect(square(20, 7), QSize(64, 8)), Tile::TA_TOPSOLID);
    scene.mark(squares(24, 10, 1, 5), Tile::TA_LADDER);
    scene.mark(squares(35, 6, 2, 2), Tile::TA_DOOR);
    scene.mark(squares(31, 9, 2, 1), Tile::TA_SOLID);
    scene.mark(squares(4, 14, 1, 1), Tile::TA_COLLECTIBLE);
    scene.mark(QRect(square(8, 14) + QPoint(0, 8), QSize(32, 8)), Tile::TA_DEADLY);
}

void addBlocks(Scene &scene)
{
    QList<QPoint> torches;
    for (const QPoint at : {QPoint(4, 13), QPoint(8, 13), QPoint(12, 13), QPoint(22, 13),
                            QPoint(26, 13), QPoint(30, 13)})
        torches += at * Side;
    for (const QPoint torch : torches)
        scene.brush().glow(torch + QPoint(8, 5), 13, 0310);
    QList<QPoint> pond;
    for (int x = 15; x < 20; ++x)
        pond += square(x, 10);
    scene.animate({QStringLiteral("Torch"), {2, 2}, 6, 4}, LevelDecor::flame, torches);
    scene.animate({QStringLiteral("Pond"), {2, 2}, 10, 4}, LevelDecor::waterTop, pond);
    scene.animate({QStringLiteral("Waterfall"), {2, 2}, 5, 4}, LevelDecor::waterfall,
                  {square(35, 12), square(35, 13)});
    scene.animate({QStringLiteral("Lift"), {6, 1}, 25, 2, true}, LevelDecor::platform,
                  {square(16, 9), square(30, 7)});
}

struct Placing
{
    const char *animation;
    QPoint at; ///< in pixels
    int bank;
    int startFrame;
};

void placeSprites(Map *map, SpriteBank *bank)
{
    const QList<Placing> placings = {
        {"Bearer", {20, 144}, 0, 0}, {"Coin", {190, 70}, 1, 0},   {"Coin", {206, 70}, 1, 1},
        {"Coin", {222, 70}, 1, 2},   {"Coin", {326, 90}, 1, 0},   {"Coin", {344, 90}, 1, 1},
        {"Coin", {362, 90}, 1, 2},   {"Coin", {454, 44}, 1, 3},   {"Coin", {472, 44}, 1, 0},
        {"Slime", {210, 144}, 2, 0}, {"Slime", {440, 144}, 2, 1}, {"Slime", {450, 224}, 3, 0},
        {"Slime", {80, 224}, 3, 1},  {"Bat", {120, 208}, 4, 0},   {"Bat", {400, 196}, 4, 1},
        {"Bat", {270, 96}, 4, 1},    {"Coin", {150, 224}, 1, 2},
    };
    QList<Map::PlacedSprite> sprites;
    for (const Placing &placing : placings) {
        Map::PlacedSprite sprite;
        sprite.bank = bank->id();
        for (const auto &animation : bank->animations()) {
            if (animation->name() == QLatin1String(placing.animation))
                sprite.animation = animation->id();
        }
        sprite.sprite = 0;
        sprite.x = placing.at.x();
        sprite.y = placing.at.y();
        sprite.paletteOffset = placing.bank;
        sprite.startFrame = placing.startFrame;
        sprite.name = QLatin1String(placing.animation);
        sprites += sprite;
    }
    map->setSprites(sprites);
}

SpriteBank *makeSprites(Project *project)
{
    SpriteSheet sheet;
    sheet.add(QStringLiteral("Bearer"), 8, Figures::bearer(), {0, 1, 0, 2});
    sheet.add(QStringLiteral("Coin"), 6, Figures::coin(), {0, 1, 2, 3});
    sheet.add(QStringLiteral("Slime"), 16, Figures::slime(), {0, 1});
    sheet.add(QStringLiteral("Bat"), 7, Figures::bat(), {0, 1});
    return sheet.makeBank(project, QStringLiteral("Creatures"),
                          {Figures::bearerColours(), Figures::coinColours(),
                           Figures::slimeColours(), Figures::frostSlimeColours(),
                           Figures::batColours()});
}

} // namespace

void Examples::makeLevel(Project *project)
{
    const Plan plan = makePlan();
    Scene scene(Cells);
    LevelDecor::sky(scene.brush(), Cells * 8);
    Ground::draw(scene.brush(), plan);
    LevelDecor::water(scene.brush(), squares(15, 10, 5, 2));
    LevelDecor::water(scene.brush(), squares(32, 14, 5, 1));
    drawDecor(scene.brush());
    mark(scene, plan);
    addBlocks(scene);
    if (const auto map = scene.makeMap(project, QStringLiteral("Hollow")))
        placeSprites(map, makeSprites(project));
}
