#include "canvas/ShapeCanvasTool.h"

#include "canvas/Canvas.h"

#include <utility>

namespace {

const QPoint NoCorner(-1, -1);

} // namespace

void ShapeCanvasTool::activate()
{
    m_canvas->setCursor(Qt::CrossCursor);
    m_canvas->m_shapeStart = NoCorner;
    m_canvas->m_shapeEnd = NoCorner;
    m_isDragging = false;
}

void ShapeCanvasTool::mousePressed(QMouseEvent *)
{
    m_isDragging = true;
    m_canvas->update(); // the shape begins as one pixel
}

void ShapeCanvasTool::mouseReleased(QMouseEvent *)
{
    // Of two buttons the first to be released ends the drag.
    if (!std::exchange(m_isDragging, false))
        return;

    m_canvas->beginEdit();
    drawShape(m_canvas->m_surface.pixels(), m_canvas->m_shapeStart, m_canvas->m_shapeEnd,
              m_canvas->m_surface.ink());
    m_canvas->m_shapeStart = NoCorner;
    m_canvas->m_shapeEnd = NoCorner;
    m_canvas->repaint();
    emit m_canvas->imageChanged();
    m_canvas->finishEdit(text(), PixelEditCommand::Kind::Edit);
}

void ShapeCanvasTool::preview(Layer2Image &surface)
{
    if (m_isDragging)
        drawShape(surface.pixels(), m_canvas->m_shapeStart, m_canvas->m_shapeEnd, surface.ink());
}
