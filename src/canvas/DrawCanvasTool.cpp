#include "canvas/DrawCanvasTool.h"

#include "canvas/Canvas.h"
#include "canvas/Raster.h"

void DrawCanvasTool::activate()
{
    m_canvas->setCursor(Qt::CrossCursor);
}

void DrawCanvasTool::mousePressed(QMouseEvent *)
{
    draw();
}

void DrawCanvasTool::mouseMoved(QMouseEvent *)
{
    draw();
}

void DrawCanvasTool::mouseReleased(QMouseEvent *)
{
    m_canvas->endStroke();
}

void DrawCanvasTool::draw()
{
    const bool isInk = m_canvas->m_buttons.testFlag(Qt::LeftButton);
    if (!isInk && !m_canvas->m_buttons.testFlag(Qt::RightButton))
        return;

    // A second button goes on with the stroke of the first, and may outlast it.
    if (m_canvas->m_beforeImage.isNull())
        m_canvas->beginEdit();
    Raster::setPixel(m_canvas->m_surface.pixels(), m_canvas->m_lastPixel,
                     isInk ? m_canvas->m_ink : m_canvas->m_paper);
    m_canvas->update();
}
