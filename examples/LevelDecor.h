#pragma once

#include "examples/Scene.h"

/// The things that stand in the platform level. Positions are pixels; trees, bushes and posts stand
/// on @p foot.
namespace LevelDecor {

void sky(Brush &brush, QSize pixels);
void tree(Brush &brush, QPoint foot);
void bush(Brush &brush, QPoint foot);
void flowers(Brush &brush, QPoint foot);
void mushroom(Brush &brush, QPoint foot);
void crate(Brush &brush, QPoint at);
void chest(Brush &brush, QPoint at);
void sign(Brush &brush, QPoint at);
void door(Brush &brush, QPoint at);
void crystal(Brush &brush, QPoint at);
void spikes(Brush &brush, QPoint at);
void lanternPost(Brush &brush, QPoint foot);
void ladder(Brush &brush, QRect pixels);
void planks(Brush &brush, QRect pixels);
void column(Brush &brush, QPoint foot, int height);

/// Frame number @p step of four.
void flame(Brush &brush, QPoint at, int step);
void waterTop(Brush &brush, QPoint at, int step);
void waterfall(Brush &brush, QPoint at, int step);
void water(Brush &brush, QRect pixels);
/// A moving platform, 48 by 8 pixels; frame number @p step of two.
void platform(Brush &brush, QPoint at, int step);

} // namespace LevelDecor
