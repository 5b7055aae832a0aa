#include "canvas/DrawCanvasTool.h"

#include "canvas/Canvas.h"
#include "canvas/Raster.h"

void DrawCanvasTool::activate()
{
    m_canvas->setCursor(Qt::CrossCursor);
}

void DrawCanvasTool::mousePressed(QMouseEvent *)
{
    m_canvas->m_beforeImage = m_canvas->image();
    draw();
}

void DrawCanvasTool::mouseMoved(QMouseEvent *)
{
    draw();
}

void DrawCanvasTool::mouseReleased(QMouseEvent *)
{
    emit m_canvas->imageChanged();
    m_canvas->finishEdit(QStringLiteral("Draw"), PixelEditCommand::Kind::Edit);
}

void DrawCanvasTool::draw()
{
    QImage &image = m_canvas->m_surface.pixels();
    if (m_canvas->m_buttons.testFlag(Qt::LeftButton))
        Raster::setPixel(image, m_canvas->m_lastPixel, m_canvas->m_ink);
    else if (m_canvas->m_buttons.testFlag(Qt::RightButton))
        Raster::setPixel(image, m_canvas->m_lastPixel, m_canvas->m_paper);
    m_canvas->update();
}
