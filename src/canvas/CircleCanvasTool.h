#pragma once

#include "canvas/ShapeCanvasTool.h"

/// The outline of the ellipse within the dragged rectangle.
class CircleCanvasTool : public ShapeCanvasTool
{
public:
    using ShapeCanvasTool::ShapeCanvasTool;

protected:
    void drawShape(QImage &image, QPoint start, QPoint end, int index) const override;
    QString text() const override;
};
