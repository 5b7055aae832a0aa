#include "tour/MapPicture.h"

#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/Tile.h"
#include "model/TileMap.h"
#include "model/TileSet.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int TileSide = 8;    // pixels
constexpr int SpriteSide = 16; // pixels
constexpr int BankSize = 16;   // colours of one palette offset

struct Turn
{
    bool rotate = false;
    bool flip = false;
    bool mirror = false;
};

/// Where in a picture of @p size the pixel at (x, y) of the turned one comes from. What is turned
/// is first rotated clockwise, then flipped, then mirrored; so this goes back from the last.
QPoint source(QPoint turned, QSize size, const Turn &turn)
{
    const QSize after = turn.rotate ? size.transposed() : size;
    if (turn.mirror)
        turned.setX(after.width() - 1 - turned.x());
    if (turn.flip)
        turned.setY(after.height() - 1 - turned.y());
    return turn.rotate ? QPoint(turned.y(), size.height() - 1 - turned.x()) : turned;
}

/// The palette index that a cell has at one of its pixels.
int cellIndex(const TileSet &tiles, const TileMap::TileData &cell, QPoint pixel)
{
    if (!cell.occupied || cell.index < 0 || cell.index >= tiles.count())
        return 0;
    const QPoint from = source(pixel, {TileSide, TileSide}, {cell.rotate, cell.flip, cell.mirror});
    const int value = tiles.tile(cell.index)->image().pixelIndex(from) % BankSize;
    return value + cell.offset * BankSize;
}

void drawLayer(QImage *image, const TileMap &layer, const Map &map)
{
    const auto tiles = map.tileSet();
    for (int y = 0; y < image->height(); ++y) {
        for (int x = 0; x < image->width(); ++x) {
            const QPoint cell(x / TileSide, y / TileSide);
            const int index = cellIndex(*tiles, layer.cell(cell), {x % TileSide, y % TileSide});
            if (map.tileTransparencyIndex() < 0 || index % BankSize != map.tileTransparencyIndex())
                image->setPixelColor(x, y, tiles->palette()->colour(index));
        }
    }
}

void drawBackground(QImage *image, const Map &map, QPoint scroll)
{
    image->fill(Qt::black);
    const auto tiles = map.tileSet();
    const int tile = map.backgroundTileIndex();
    if (tile < 0 || tile >= tiles->count())
        return;
    for (int y = scroll.y() * TileSide; y < image->height(); ++y) {
        for (int x = scroll.x() * TileSide; x < image->width(); ++x) {
            const int value = tiles->tile(tile)->image().pixelIndex(x % TileSide, y % TileSide);
            const int offset = tiles->tile(tile)->offset();
            image->setPixelColor(x, y, tiles->palette()->colour(value + offset * BankSize));
        }
    }
}

/// One sprite as it stands in the bank, transparent pixels left out.
QImage spritePicture(const SpriteBank &bank, int index, int offset)
{
    QImage picture(SpriteSide, SpriteSide, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    if (index < 0 || index >= bank.count())
        return picture;
    const bool wide = bank.depth() == Tessaril::Sprite::EightBit;
    for (int y = 0; y < SpriteSide; ++y) {
        for (int x = 0; x < SpriteSide; ++x) {
            const int value = bank.image().pixelIndex(x, index * SpriteSide + y);
            const int low = value % BankSize;
            const bool blank =
                wide ? value == bank.transparency() : low == bank.transparency() % BankSize;
            if (!blank)
                picture.setPixelColor(
                    x, y, bank.palette()->colour(wide ? value : low + offset * BankSize));
        }
    }
    return picture;
}

QImage turned(const QImage &picture, const Turn &turn)
{
    QImage result(turn.rotate ? picture.size().transposed() : picture.size(), picture.format());
    for (int y = 0; y < result.height(); ++y) {
        for (int x = 0; x < result.width(); ++x)
            result.setPixel(x, y, picture.pixel(source({x, y}, picture.size(), turn)));
    }
    return result;
}

/// Puts the pixels of @p over that are not transparent on @p image.
void lay(QImage *image, const QImage &over, QPoint at)
{
    for (int y = 0; y < over.height(); ++y) {
        for (int x = 0; x < over.width(); ++x) {
            const QPoint to = at + QPoint(x, y);
            if (qAlpha(over.pixel(x, y)) != 0 && image->rect().contains(to))
                image->setPixel(to, over.pixel(x, y));
        }
    }
}

QImage animationPicture(const SpriteBank &bank, const SpriteAnim &animation,
                        const Map::PlacedSprite &sprite, qint64 ticks)
{
    QImage picture(animation.size() * SpriteSide, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    const int index = MapPicture::frameAt(sprite, animation.frameCount(), animation.delay(), ticks);
    const AnimationFrame::Cells &cells = animation.frame(index)->cells();
    for (int row = 0; row < cells.size(); ++row) {
        for (int column = 0; column < cells.at(row).size(); ++column) {
            const AnimationFrame::Cell &cell = cells.at(row).at(column);
            lay(&picture,
                turned(spritePicture(bank, cell.index, sprite.paletteOffset),
                       {cell.rotate, cell.flip, cell.mirror}),
                QPoint(column, row) * SpriteSide);
        }
    }
    return picture;
}

void drawSprite(QImage *image, const Map::PlacedSprite &sprite, const MapPicture::Banks &banks,
                qint64 ticks)
{
    for (const auto &bank : banks) {
        if (!bank || bank->id() != sprite.bank)
            continue;
        const auto animation = bank->animation(sprite.animation);
        const QImage plain = animation ? animationPicture(*bank, *animation, sprite, ticks)
                                       : spritePicture(*bank, sprite.sprite, sprite.paletteOffset);
        lay(image, turned(plain, {sprite.rotate, sprite.flip, sprite.mirror}),
            {sprite.x, sprite.y});
    }
}

} // namespace

int MapPicture::frameAt(const Map::PlacedSprite &sprite, int count, int delay, qint64 ticks)
{
    const int start = std::clamp(sprite.startFrame, 0, count - 1);
    if (delay == 0 || ticks < sprite.initialDelay)
        return start;
    const qint64 played = (ticks - sprite.initialDelay) % (sprite.repeatDelay + count * delay);
    const qint64 step = std::min<qint64>(played / delay, count - 1);
    return static_cast<int>((start + step) % count);
}

QImage MapPicture::drawn(const Map &map, const Banks &banks, qint64 ticks, QPoint scroll)
{
    QImage image(map.tileLayer()->size() * TileSide, QImage::Format_ARGB32);
    drawBackground(&image, map, scroll);
    if (map.tileLayer()->isVisible())
        drawLayer(&image, *map.tileLayer(), map);
    if (map.objectLayer()->isVisible())
        drawLayer(&image, *map.objectLayer(), map);
    if (map.isSpriteLayerVisible()) {
        for (const Map::PlacedSprite &sprite : map.sprites())
            drawSprite(&image, sprite, banks, ticks);
    }
    return image;
}
