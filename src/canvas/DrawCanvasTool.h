#pragma once

#include "canvas/CanvasTool.h"

/// Sets the pixel under the mouse: ink with the left button, paper with the right one. Nothing is
/// drawn between two events.
class DrawCanvasTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void activate() override;
    void mousePressed(QMouseEvent *event) override;
    void mouseMoved(QMouseEvent *event) override;
    void mouseReleased(QMouseEvent *event) override;

private:
    void draw();
};
