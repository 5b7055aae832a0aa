#pragma once

#include "mapeditor/MapTool.h"

namespace MapEditor {

/// Places, picks and drags sprites. All positions are map pixels.
class PlaceSpriteTool : public MapTool
{
public:
    using MapTool::MapTool;

    Tessaril::Ui::ToolButton id() const override { return Tessaril::Ui::ToolButton::PlaceSprite; }
    bool activate() override;
    QCursor cursor() const override { return Qt::CrossCursor; }
    bool isBlocked() const override;
    bool mousePress(QMouseEvent *event) override;
    void mouseMove(QMouseEvent *event) override;
    void mouseRelease(QMouseEvent *event) override;
    void paintOverGrid(QPainter &painter) override;

private:
    void startDrag(int index, QPoint pixel, QPoint position);
    void placeTemplate(QPoint pixel);
    bool holdsSprite() const;
    void drag(QPoint pixel, QPoint position);

    int m_dragIndex = -1;
    bool m_moved = false;
    QPoint m_pressPos;   // widget
    QPoint m_grabOffset; // from the sprite's corner
    QPoint m_ghostPos;   // of the sprite to place
};

} // namespace MapEditor
