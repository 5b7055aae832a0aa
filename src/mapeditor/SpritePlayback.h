#pragma once

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

/// The picture, with everything applied but the zoom; null if bank or animation is not found.
QImage spriteImage(const SpriteBanks &banks, const Map::PlacedSprite &sprite, qint64 ticks);

/// The map pixels covered; an invalid rectangle if bank, sprite or animation is not found.
QRect spriteBounds(const SpriteBanks &banks, const Map::PlacedSprite &sprite);

} // namespace MapEditor
