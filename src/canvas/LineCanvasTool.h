#pragma once

#include "canvas/ShapeCanvasTool.h"

/// A straight line from corner to corner.
class LineCanvasTool : public ShapeCanvasTool
{
public:
    using ShapeCanvasTool::ShapeCanvasTool;

protected:
    void drawShape(QImage &image, QPoint start, QPoint end, int index) const override;
    QString text() const override;
};
