#include "mapeditor/SpritePlayback.h"

#include "formats/NxImage.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"

#include <QPainter>

#include <algorithm>

using namespace MapEditor;

namespace {

SpriteBank *findBank(const SpriteBanks &banks, const QUuid &id)
{
    for (const auto &bank : banks) {
        if (bank && bank->id() == id)
            return bank;
    }
    return nullptr;
}

SpriteAnim *findAnimation(const SpriteBanks &banks, const Map::PlacedSprite &sprite)
{
    SpriteBank *const bank = findBank(banks, sprite.bank);
    return bank ? bank->animation(sprite.animation).data() : nullptr;
}

/// A frame drawn from the bank's sprites with the palette offset of the placed sprite.
QImage frameImage(const SpriteLook &look)
{
    QImage image(look.size * SpriteBank::SpriteSide, QImage::Format_ARGB32);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    QPainter painter(&image);
    for (int row = 0; row < look.cells.size(); ++row) {
        for (int column = 0; column < look.cells.at(row).size(); ++column) {
            const AnimationFrame::Cell &cell = look.cells.at(row).at(column);
            painter.drawImage(column * SpriteBank::SpriteSide, row * SpriteBank::SpriteSide,
                              look.bank->spriteImage(cell.index, look.paletteOffset, cell.rotate,
                                                     cell.flip, cell.mirror));
        }
    }
    return image;
}

} // namespace

int MapEditor::frameAt(const FrameTiming &timing, qint64 ticks)
{
    if (timing.frameCount <= 0)
        return 0;

    const qint64 count = timing.frameCount;
    const int start = std::clamp(timing.startFrame, 0, timing.frameCount - 1);
    if (timing.delay <= 0 || ticks < timing.initialDelay)
        return start;

    const qint64 run = count * timing.delay;
    const qint64 cycle = std::max(timing.repeatDelay, 0) + run;
    const qint64 passed = (ticks - timing.initialDelay) % cycle;
    const qint64 step = passed < run ? passed / timing.delay : count - 1;
    return static_cast<int>((step + start) % count);
}

size_t MapEditor::qHash(const SpriteLook &look, size_t seed)
{
    const bool hasCell = !look.cells.isEmpty() && !look.cells.first().isEmpty();
    return qHashMulti(seed, look.strip, look.sprite, look.paletteOffset, look.rotate, look.flip,
                      look.mirror, hasCell ? look.cells.first().first().index : -1);
}

SpriteLook MapEditor::spriteLook(const SpriteBanks &banks, const Map::PlacedSprite &sprite,
                                 qint64 ticks)
{
    const SpriteBank *const bank = findBank(banks, sprite.bank);
    if (!bank)
        return {};

    SpriteLook look{.bank = bank,
                    .strip = bank->image().cacheKey(),
                    .transparency = bank->transparency(),
                    .sprite = sprite.sprite,
                    .paletteOffset = sprite.paletteOffset,
                    .rotate = sprite.rotate,
                    .flip = sprite.flip,
                    .mirror = sprite.mirror};
    if (sprite.animation.isNull())
        return look;

    const auto animation = bank->animation(sprite.animation);
    const auto frame =
        animation && animation->bank() == bank
            ? animation->frame(frameAt({sprite.startFrame, sprite.initialDelay, sprite.repeatDelay,
                                        animation->frameCount(), animation->delay()},
                                       ticks))
            : nullptr;
    if (!frame)
        return {};
    look.sprite = -1;
    look.cells = frame->cells();
    look.size = animation->size();
    return look;
}

QImage MapEditor::spriteImage(const SpriteLook &look)
{
    if (!look.bank)
        return {};
    if (look.size.isEmpty())
        return look.bank->spriteImage(look.sprite, look.paletteOffset, look.rotate, look.flip,
                                      look.mirror);
    return NxImage::transformed(frameImage(look), look.rotate, look.flip, look.mirror);
}

QImage MapEditor::spriteImage(const SpriteBanks &banks, const Map::PlacedSprite &sprite,
                              qint64 ticks)
{
    return spriteImage(spriteLook(banks, sprite, ticks));
}

QRect MapEditor::spriteBounds(const SpriteBanks &banks, const Map::PlacedSprite &sprite)
{
    const QPoint position(sprite.x, sprite.y);
    if (sprite.animation.isNull()) {
        const SpriteBank *const bank = findBank(banks, sprite.bank);
        if (!bank || sprite.sprite < 0 || sprite.sprite >= bank->count())
            return {};
        return {position, QSize(SpriteBank::SpriteSide, SpriteBank::SpriteSide)};
    }

    const SpriteAnim *const animation = findAnimation(banks, sprite);
    if (!animation)
        return {};
    const QSize size = animation->size() * SpriteBank::SpriteSide;
    return {position, sprite.rotate ? size.transposed() : size};
}
