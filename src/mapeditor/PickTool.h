#pragma once

#include "mapeditor/MapTool.h"

namespace MapEditor {

/// Takes the cell under the mouse, then gives way to the tool before it.
class PickTool : public MapTool
{
public:
    using MapTool::MapTool;

    Tessaril::Ui::ToolButton id() const override { return Tessaril::Ui::ToolButton::Pick; }
    bool activate() override;
    void mouseRelease(QMouseEvent *event) override;

private:
    Tessaril::Ui::ToolButton m_rememberedMode = Tessaril::Ui::ToolButton::Draw;
};

} // namespace MapEditor
