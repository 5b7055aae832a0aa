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

/// One frame drawn from the bank's sprites with the palette offset of the placed sprite.
QImage frameImage(const SpriteAnim &animation, const AnimationFrame &frame, int paletteOffset)
{
    const QSize size = animation.size() * SpriteBank::SpriteSide;
    QImage image(size, QImage::Format_ARGB32);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const AnimationFrame::Cells &cells = frame.cells();
    for (int row = 0; row < cells.size(); ++row) {
        for (int column = 0; column < cells.at(row).size(); ++column) {
            const AnimationFrame::Cell &cell = cells.at(row).at(column);
            painter.drawImage(column * SpriteBank::SpriteSide, row * SpriteBank::SpriteSide,
                              animation.bank()->spriteImage(cell.index, paletteOffset, cell.rotate,
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

QImage MapEditor::spriteImage(const SpriteBanks &banks, const Map::PlacedSprite &sprite,
                              qint64 ticks)
{
    if (sprite.animation.isNull()) {
        const SpriteBank *const bank = findBank(banks, sprite.bank);
        return bank ? bank->spriteImage(sprite.sprite, sprite.paletteOffset, sprite.rotate,
                                        sprite.flip, sprite.mirror)
                    : QImage();
    }

    const SpriteAnim *const animation = findAnimation(banks, sprite);
    if (!animation || !animation->bank())
        return {};
    const int index = frameAt({sprite.startFrame, sprite.initialDelay, sprite.repeatDelay,
                               animation->frameCount(), animation->delay()},
                              ticks);
    const auto frame = animation->frame(index);
    if (!frame)
        return {};
    return NxImage::transformed(frameImage(*animation, *frame, sprite.paletteOffset), sprite.rotate,
                                sprite.flip, sprite.mirror);
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
