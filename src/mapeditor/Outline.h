#pragma once

class QPainter;
class QRect;

namespace MapEditor {

/// Draws a frame that reads on any picture, with a handle at each corner, around a widget
/// rectangle.
void drawOutline(QPainter &painter, const QRect &rect);

} // namespace MapEditor
