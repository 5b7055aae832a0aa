#pragma once

#include "canvas/CanvasTool.h"

#include <QString>

class QImage;

/// A tool that drags a shape out between two corners, shown as a preview until the release. Always
/// draws in ink, whatever the button.
class ShapeCanvasTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void activate() override;
    void mousePressed(QMouseEvent *event) override;
    void mouseReleased(QMouseEvent *event) override;
    void preview(Layer2Image &surface) override;

protected:
    /// Draws the shape between the two corners.
    virtual void drawShape(QImage &image, QPoint start, QPoint end, int index) const = 0;
    /// The name of the edit.
    virtual QString text() const = 0;

private:
    // The corners cannot tell: a drag may begin at (-1, -1), beside the image.
    bool m_isDragging = false;
};
