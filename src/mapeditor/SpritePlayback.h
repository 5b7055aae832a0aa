#pragma once

#include "model/AnimationFrame.h"
#include "model/Map.h"

#include <QImage>
#include <QList>
#include <QPointer>
#include <QRect>

class SpriteBank;

/// What a placed sprite shows, and where, at a time of the frame clock.
namespace MapEditor {

using SpriteBanks = QList<QPointer<SpriteBank>>;

/// How a placed sprite runs through its frames. All times count ticks of the frame clock.
struct FrameTiming
{
    int startFrame = 0;
    int initialDelay = 0;
    int repeatDelay = 0;
    int frameCount = 0;
    int delay = 0; ///< ticks a frame; 0 stands still
};

/// The frame at @p ticks; 0 for an animation without frames.
int frameAt(const FrameTiming &timing, qint64 ticks);

/// Everything that the picture of a placed sprite depends on: equal looks, equal pictures.
struct SpriteLook
{
    const SpriteBank *bank = nullptr; ///< null for no picture
    qint64 strip = 0;                 ///< stands for the pixels and colours of the bank
    int transparency = 0;             ///< of the bank
    int sprite = -1;                  ///< -1 for a frame of an animation
    AnimationFrame::Cells cells{};    ///< of that frame
    QSize size{};                     ///< of that frame, in cells
    int paletteOffset = 0;
    bool rotate = false;
    bool flip = false;
    bool mirror = false;

    bool operator==(const SpriteLook &) const = default;
};
size_t qHash(const SpriteLook &look, size_t seed = 0);

/// What @p sprite looks like at a time; without a bank if it, or the animation, is not found.
SpriteLook spriteLook(const SpriteBanks &banks, const Map::PlacedSprite &sprite, qint64 ticks);
/// The picture, with everything applied but the zoom; null without one.
QImage spriteImage(const SpriteLook &look);
/// The picture of a sprite at a time, with everything applied but the zoom; null if bank or
/// animation is not found.
QImage spriteImage(const SpriteBanks &banks, const Map::PlacedSprite &sprite, qint64 ticks);

/// The map pixels covered; an invalid rectangle if bank, sprite or animation is not found.
QRect spriteBounds(const SpriteBanks &banks, const Map::PlacedSprite &sprite);

} // namespace MapEditor
