#include "canvas/SelectCanvasTool.h"

#include "canvas/Canvas.h"

#include <QMouseEvent>

void SelectCanvasTool::activate()
{
    m_canvas->setCursor(Qt::ArrowCursor);
}

void SelectCanvasTool::mousePressed(QMouseEvent *)
{
    m_canvas->m_selectionStart = m_canvas->m_lastPixel;
    if (m_canvas->m_buttons.testFlag(Qt::LeftButton))
        selectTo(m_canvas->m_lastPixel);
}

void SelectCanvasTool::mouseMoved(QMouseEvent *)
{
    if (m_canvas->m_buttons.testFlag(Qt::LeftButton))
        selectTo(m_canvas->m_lastPixel);
}

void SelectCanvasTool::mouseReleased(QMouseEvent *event)
{
    if (m_canvas->m_buttons.testFlag(Qt::RightButton))
        m_canvas->m_contextMenu.popup(event->globalPosition().toPoint());
    else
        m_canvas->m_selectionStart.setX(-1);
}

void SelectCanvasTool::selectTo(QPoint pixel)
{
    const QPoint start = m_canvas->m_selectionStart;
    const QPoint topLeft(std::min(start.x(), pixel.x()), std::min(start.y(), pixel.y()));
    const QPoint bottomRight(std::max(start.x(), pixel.x()), std::max(start.y(), pixel.y()));
    m_canvas->select(QRect(topLeft, bottomRight).intersected(m_canvas->m_scrollOrigin));
}
