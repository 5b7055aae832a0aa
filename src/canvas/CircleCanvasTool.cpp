#include "canvas/CircleCanvasTool.h"

#include "canvas/Raster.h"

void CircleCanvasTool::drawShape(QImage &image, QPoint start, QPoint end, int index) const
{
    Raster::drawEllipse(image, start, end, index);
}

QString CircleCanvasTool::text() const
{
    return QStringLiteral("Circle");
}
