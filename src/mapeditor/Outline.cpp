#include "mapeditor/Outline.h"

#include <QPainter>

namespace {

constexpr double FrameWidth = 2.0;  // pixels
constexpr double HandleWidth = 0.5; // of a handle's edge
const QPoint BeforeCorner(3, 3);    // a handle reaches this far up and left of its corner,
const QPoint BehindCorner(2, 2);    // and this far down and right

} // namespace

void MapEditor::drawOutline(QPainter &painter, const QRect &rect)
{
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(
        QPen(QColor(Qt::darkGray), FrameWidth, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.drawRects(&rect, 1);
    painter.setPen(
        QPen(QColor(Qt::lightGray), FrameWidth, Qt::DotLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawRects(&rect, 1);

    painter.setBrush(QColor(Qt::darkCyan));
    painter.setPen(QPen(QColor(Qt::white), HandleWidth, Qt::SolidLine));
    const int right = rect.right() + 1;
    const int bottom = rect.bottom() + 1;
    for (const QPoint corner : {rect.topLeft(), QPoint(right, rect.top()), QPoint(right, bottom),
                                QPoint(rect.left(), bottom)})
        painter.drawEllipse(QRect(corner - BeforeCorner, corner + BehindCorner));
    painter.restore();
}
