#pragma once

#include "model/Enums.h"

#include <QPainterPath>
#include <QWidget>

/// A floating panel with a pointer, painted by itself; what it holds is its subclass's business.
///
/// The side says where the pointer is: TopCentre points to the right, so the panel stands at the
/// left of its anchor; LeftOf points to the left, so it stands at the right of its anchor; others
/// have no pointer.
class Popover : public QWidget
{
    Q_OBJECT

public:
    using DialogPosition = Tessaril::Ui::DialogPosition;

    explicit Popover(QWidget *parent = nullptr);

    DialogPosition side() const { return m_side; }
    void setSide(DialogPosition side);

    /// Takes @p side and moves so that the pointer's tip is at @p anchor, in the coordinates of
    /// move() (global ones for a window). Without a pointer the panel touches the anchor: RightOf
    /// with the middle of its left edge, Above with that of its lower edge, Below with that of its
    /// upper one.
    void placeAt(QPoint anchor, DialogPosition side);

    /// Stands at the right of what lies between the two global anchors, where the screen has room,
    /// else at its left; then moves into the screen.
    void placeBeside(QPoint leftAnchor, QPoint rightAnchor);

    /// The outline of a panel of @p size pixels: a rounded rectangle and the triangle of its
    /// pointer.
    static QPainterPath shapeFor(QSize size, DialogPosition side);

protected:
    /// @p margin on all sides, and the room of the pointer on its own. Without a pointer that room
    /// is at the right, so that no side makes the panel larger.
    QMargins marginsWithPointer(int margin) const;

    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void cutToShape();
    void paintShape(QPainter *painter) const;

    DialogPosition m_side = DialogPosition::Default;
};
