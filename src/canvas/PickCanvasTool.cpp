#include "canvas/PickCanvasTool.h"

#include "canvas/Canvas.h"
#include "canvas/ToolCursors.h"

void PickCanvasTool::activate()
{
    m_canvas->setCursor(ToolCursors::picker());
}

void PickCanvasTool::mouseReleased(QMouseEvent *)
{
    const QPoint pixel = m_canvas->m_lastPixel;
    if (!m_canvas->image().rect().contains(pixel))
        return;

    const int index = m_canvas->image().pixelIndex(pixel);
    if (m_canvas->m_buttons.testFlag(Qt::LeftButton)) {
        m_canvas->setInk(index);
        emit m_canvas->foregroundPicked(index);
    } else if (m_canvas->m_buttons.testFlag(Qt::RightButton)) {
        m_canvas->setPaper(index);
        emit m_canvas->backgroundPicked(index);
    }
}
