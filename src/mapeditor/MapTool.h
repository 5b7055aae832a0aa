#pragma once

#include "model/Enums.h"

#include <QCursor>
#include <QPoint>

class QMouseEvent;
class QPainter;

namespace MapEditor {

class MapGrid;

/// What a gesture on a map grid does. The grid owns its tools and hands them the events; a tool
/// holds no map and reaches the model through the grid.
class MapTool
{
public:
    explicit MapTool(MapGrid *grid)
        : m_grid(grid)
    {
    }
    virtual ~MapTool();

    virtual Tessaril::Ui::ToolButton id() const = 0;
    /// Called when the tool is chosen; false refuses.
    virtual bool activate() = 0;
    virtual QCursor cursor() const;
    /// Whether the layer that the tool works on is hidden.
    virtual bool isBlocked() const;
    /// Asked first at a press; true ends it.
    virtual bool contextPress(QMouseEvent *event);
    /// False lets the grid treat the press as a move as well.
    virtual bool mousePress(QMouseEvent *event);
    virtual void mouseMove(QMouseEvent *event);
    virtual void mouseRelease(QMouseEvent *event);
    virtual void paintUnderGrid(QPainter &painter);
    virtual void paintOverGrid(QPainter &painter);

protected:
    MapGrid *m_grid;
};

} // namespace MapEditor
