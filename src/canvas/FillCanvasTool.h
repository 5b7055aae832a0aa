#pragma once

#include "canvas/CanvasTool.h"

/// Fills the area under the mouse at the release: ink with the left button, paper with the right
/// one.
class FillCanvasTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void activate() override;
    void mouseReleased(QMouseEvent *event) override;
};
