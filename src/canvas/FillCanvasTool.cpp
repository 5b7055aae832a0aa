#include "canvas/FillCanvasTool.h"

#include "canvas/Canvas.h"
#include "canvas/Raster.h"
#include "canvas/ToolCursors.h"

void FillCanvasTool::activate()
{
    m_canvas->setCursor(ToolCursors::fill());
}

void FillCanvasTool::mouseReleased(QMouseEvent *)
{
    m_canvas->beginEdit();
    QImage &image = m_canvas->m_surface.pixels();
    if (m_canvas->m_buttons.testFlag(Qt::LeftButton))
        Raster::floodFill(image, m_canvas->m_lastPixel, m_canvas->m_ink);
    if (m_canvas->m_buttons.testFlag(Qt::RightButton))
        Raster::floodFill(image, m_canvas->m_lastPixel, m_canvas->m_paper);
    m_canvas->update();
    emit m_canvas->imageChanged();
    m_canvas->finishEdit(QStringLiteral("Fill"), PixelEditCommand::Kind::Edit);
}
