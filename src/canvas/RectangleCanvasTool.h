#pragma once

#include "canvas/ShapeCanvasTool.h"

/// A rectangle between the corners, as an outline or filled.
class RectangleCanvasTool : public ShapeCanvasTool
{
public:
    RectangleCanvasTool(Canvas *canvas, bool filled);

protected:
    void drawShape(QImage &image, QPoint start, QPoint end, int index) const override;
    QString text() const override;

private:
    bool m_filled;
};
