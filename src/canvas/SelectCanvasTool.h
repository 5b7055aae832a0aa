#pragma once

#include "canvas/CanvasTool.h"

/// Drags a selection out with the left button; the right one opens the context menu.
class SelectCanvasTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void activate() override;
    void mousePressed(QMouseEvent *event) override;
    void mouseMoved(QMouseEvent *event) override;
    void mouseReleased(QMouseEvent *event) override;

private:
    void selectTo(QPoint pixel);
};
