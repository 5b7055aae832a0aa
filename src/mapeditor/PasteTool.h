#pragma once

#include "mapeditor/MapTool.h"

namespace MapEditor {

/// Puts the clipboard's block of cells down at each click. Refuses a block of another tile set.
class PasteTool : public MapTool
{
public:
    using MapTool::MapTool;

    Tessaril::Ui::ToolButton id() const override { return Tessaril::Ui::ToolButton::Paste; }
    bool activate() override;
    bool isBlocked() const override;
    bool mousePress(QMouseEvent *event) override;
    void mouseMove(QMouseEvent *event) override;
    void paintOverGrid(QPainter &painter) override;
};

} // namespace MapEditor
