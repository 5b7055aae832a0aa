#pragma once

#include "mapeditor/MapTool.h"

namespace MapEditor {

/// Drags a selection of cells out with the left button; the right one opens the menu of the
/// selection.
class SelectTool : public MapTool
{
public:
    using MapTool::MapTool;

    Tessaril::Ui::ToolButton id() const override { return Tessaril::Ui::ToolButton::Select; }
    bool activate() override;
    bool contextPress(QMouseEvent *event) override;
    void mouseMove(QMouseEvent *event) override;
    void paintUnderGrid(QPainter &painter) override;
};

} // namespace MapEditor
