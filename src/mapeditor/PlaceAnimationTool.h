#pragma once

#include "mapeditor/CellTool.h"

namespace MapEditor {

/// Places the current block animation at a press.
class PlaceAnimationTool : public CellTool
{
public:
    using CellTool::CellTool;

    Tessaril::Ui::ToolButton id() const override { return Tessaril::Ui::ToolButton::PlaceAnim; }
    bool activate() override;
    QCursor cursor() const override { return Qt::OpenHandCursor; }
    bool isBlocked() const override;
    void mouseRelease(QMouseEvent *event) override;
    void paintOverGrid(QPainter &painter) override;
};

} // namespace MapEditor
