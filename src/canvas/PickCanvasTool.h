#pragma once

#include "canvas/CanvasTool.h"

/// Takes the colour under the mouse: as ink with the left button, as paper with the right one. Left
/// wins.
class PickCanvasTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void activate() override;
    void mouseReleased(QMouseEvent *event) override;
};
