#include "uikit/Popover.h"

#include <QBitmap>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace {

constexpr qreal CornerRadius = 10;  // pixels, as all below
constexpr qreal PointerRoom = 10;   // by which the rectangle is narrower
constexpr qreal PointerDepth = 15;  // so the triangle's base lies inside the rectangle
constexpr qreal PointerLength = 40; // along the side

// Half the pen, so that the outermost line covers whole pixels.
constexpr qreal Inset = 0.5;

QPainterPath pointer(QPointF tip, qreal depth)
{
    QPainterPath path(tip);
    path.lineTo(tip.x() + depth, tip.y() - PointerLength / 2);
    path.lineTo(tip.x() + depth, tip.y() + PointerLength / 2);
    path.closeSubpath();
    return path;
}

} // namespace

Popover::Popover(QWidget *parent)
    : QWidget(parent)
{
}

void Popover::setSide(DialogPosition side)
{
    if (side == m_side)
        return;

    m_side = side;
    cutToShape();
    update();
}

void Popover::placeAt(QPoint anchor, DialogPosition side)
{
    setSide(side);
    QPoint offset;
    switch (side) {
    case DialogPosition::TopCentre:
        offset = {width(), height() / 2};
        break;
    case DialogPosition::LeftOf:
    case DialogPosition::RightOf:
        offset = {0, height() / 2};
        break;
    case DialogPosition::Above:
        offset = {width() / 2, height()};
        break;
    case DialogPosition::Below:
        offset = {width() / 2, 0};
        break;
    }
    move(anchor - offset);
}

void Popover::placeBeside(QPoint leftAnchor, QPoint rightAnchor)
{
    const QScreen *screen = QGuiApplication::screenAt(rightAnchor);
    if (screen == nullptr)
        screen = QGuiApplication::screenAt(leftAnchor);
    if (screen == nullptr) {
        placeAt(rightAnchor, DialogPosition::LeftOf);
        return;
    }
    const QRect available = screen->availableGeometry();
    if (rightAnchor.x() + width() > available.right())
        placeAt(leftAnchor, DialogPosition::TopCentre);
    else
        placeAt(rightAnchor, DialogPosition::LeftOf);
    const auto inside = [](int place, int first, int last) {
        return std::max(first, std::min(place, last));
    };
    move(inside(x(), available.left(), available.right() - width()),
         inside(y(), available.top(), available.bottom() - height()));
}

QPainterPath Popover::shapeFor(QSize size, DialogPosition side)
{
    QRectF body = QRectF(QPointF(), size).adjusted(Inset, Inset, -Inset, -Inset);
    const QRectF bounds = body;
    QPainterPath triangle;
    if (side == DialogPosition::TopCentre) {
        body.setRight(body.right() - PointerRoom);
        triangle = pointer({bounds.right(), bounds.center().y()}, -PointerDepth);
    } else if (side == DialogPosition::LeftOf) {
        body.setLeft(body.left() + PointerRoom);
        triangle = pointer({bounds.left(), bounds.center().y()}, PointerDepth);
    }
    QPainterPath shape;
    shape.addRoundedRect(body, CornerRadius, CornerRadius);
    return shape.united(triangle);
}

/// Screens without a compositor show black where a window has no pixels of its own.
void Popover::cutToShape()
{
    if (size().isEmpty())
        return;
    QPixmap shape(size());
    shape.fill(Qt::transparent);
    QPainter painter(&shape);
    paintShape(&painter);
    painter.end();
    setMask(shape.createMaskFromColor(Qt::transparent));
}

void Popover::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    cutToShape();
}

QMargins Popover::marginsWithPointer(int margin) const
{
    const bool isLeft = m_side == DialogPosition::LeftOf;
    return {margin + (isLeft ? int(PointerRoom) : 0), margin,
            margin + (isLeft ? 0 : int(PointerRoom)), margin};
}

void Popover::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paintShape(&painter);
}

void Popover::paintShape(QPainter *painter) const
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(palette().color(QPalette::Mid), 1));
    painter->setBrush(palette().color(QPalette::Window));
    painter->drawPath(shapeFor(size(), m_side));
}
