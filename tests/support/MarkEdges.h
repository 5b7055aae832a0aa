#pragma once

#include <QImage>
#include <QMargins>
#include <QTest>
#include <QWidget>

#include <memory>

/// The lines of a mark around a cell, on screens of every density.
namespace MarkEdges {

/// A widget as a screen of @p ratio points a pixel shows it.
inline QImage shown(QWidget &widget, double ratio)
{
    QImage image((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::darkYellow);
    widget.render(&image);
    return image;
}

/// How many points wide the line at each edge of @p cell, in widget pixels, is: rows and columns
/// in which most points of the two pictures differ.
inline QMargins between(const QImage &plain, const QImage &marked, const QRect &cell)
{
    const double ratio = plain.devicePixelRatio();
    const QRect area =
        QRectF(QPointF(cell.topLeft()) * ratio, QSizeF(cell.size()) * ratio).toRect();
    const auto isLine = [&](int at, bool isRow) {
        const int length = isRow ? area.width() : area.height();
        int different = 0;
        for (int i = 0; i < length; ++i) {
            const QPoint point = isRow ? QPoint(area.left() + i, at) : QPoint(at, area.top() + i);
            different += plain.rect().contains(point) && plain.pixel(point) != marked.pixel(point);
        }
        return different > length * 3 / 4;
    };
    QMargins lines;
    for (int i = 0; i < area.height() / 4; ++i) {
        lines += QMargins(0, isLine(area.top() + i, true), 0, isLine(area.bottom() - i, true));
        lines += QMargins(isLine(area.left() + i, false), 0, isLine(area.right() - i, false), 0);
    }
    return lines;
}

/// Whether each line is about @p ratio points wide.
inline bool areWhole(const QMargins &lines, double ratio)
{
    for (const int line : {lines.left(), lines.top(), lines.right(), lines.bottom()}) {
        if (line < int(ratio) || line > ratio + 1)
            return false;
    }
    return true;
}

/// What a failed test shows of them.
inline QByteArray text(const QMargins &lines)
{
    const std::unique_ptr<char[]> text(QTest::toString(lines));
    return text.get();
}

} // namespace MarkEdges
