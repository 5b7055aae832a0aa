#pragma once

#include "mapeditor/MapTool.h"

namespace MapEditor {

/// The base of the tools that work cell by cell: paints the current tile, or places the current
/// object when there is no tile.
class CellTool : public MapTool
{
public:
    using MapTool::MapTool;

    /// Begins an edit and lets the first cell be acted on at once.
    bool mousePress(QMouseEvent *event) override;
    void mouseMove(QMouseEvent *event) override;

private:
    /// The arguments named before are what was hovered until now.
    void hover(QPoint cellBefore);
    void paintCell(QPoint cell, QPoint hoverBefore);
    void placeObject(bool moved);
};

} // namespace MapEditor
