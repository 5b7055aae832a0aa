#pragma once

#include "mapeditor/CellTool.h"

namespace MapEditor {

/// Paints the current tile with the left button and erases with the right one.
class DrawTool : public CellTool
{
public:
    using CellTool::CellTool;

    Tessaril::Ui::ToolButton id() const override { return Tessaril::Ui::ToolButton::Draw; }
    bool activate() override;
    bool isBlocked() const override;
    void mouseRelease(QMouseEvent *event) override;
    void paintUnderGrid(QPainter &painter) override;
};

} // namespace MapEditor
