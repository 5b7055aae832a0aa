#include "canvas/RectangleCanvasTool.h"

#include "canvas/Canvas.h"
#include "canvas/Raster.h"

RectangleCanvasTool::RectangleCanvasTool(Canvas *canvas, bool filled)
    : ShapeCanvasTool(canvas)
    , m_filled(filled)
{
}

void RectangleCanvasTool::drawShape(QImage &image, QPoint start, QPoint end, int index) const
{
    // The filled form takes the canvas's ink, which may lie beyond what the surface accepts.
    if (m_filled)
        Raster::fillRectangle(image, start, end, m_canvas->ink());
    else
        Raster::drawRectangle(image, start, end, index);
}

QString RectangleCanvasTool::text() const
{
    return m_filled ? QStringLiteral("Filled Rectangle") : QStringLiteral("Rectangle");
}
