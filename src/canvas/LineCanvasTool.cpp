#include "canvas/LineCanvasTool.h"

#include "canvas/Raster.h"

void LineCanvasTool::drawShape(QImage &image, QPoint start, QPoint end, int index) const
{
    Raster::drawLine(image, start, end, index);
}

QString LineCanvasTool::text() const
{
    return QStringLiteral("Line");
}
