#pragma once

#include <QPainter>

/// Moves lines of one pixel to the middle of the pixels that they are meant for.
///
/// Where a pixel is more than one point of the screen a line lies half beside its own pixel: at the
/// edge of a widget, half of it or all is lost.
inline void moveLinesIntoPixels(QPainter *painter)
{
    if (painter->deviceTransform().m11() > 1)
        painter->translate(0.5, 0.5);
}
