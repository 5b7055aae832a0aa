#include "canvas/Raster.h"

#include <QRect>

#include <cstdlib>
#include <cstring>

namespace {

/// An image with the colour table and size of @p image, all pixels 0.
QImage blankLike(const QImage &image)
{
    QImage blank(image.size(), image.format());
    blank.setColorTable(image.colorTable());
    blank.setDevicePixelRatio(image.devicePixelRatio());
    blank.fill(0);
    return blank;
}

template <typename Target>
QImage moved(const QImage &image, Target target)
{
    QImage result = blankLike(image);
    for (int y = 0; y < image.height(); ++y) {
        const uchar *const row = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x)
            Raster::setPixel(result, target(x, y), row[x]);
    }
    return result;
}

/// The four points of an ellipse that mirror each other.
void plotQuarters(QImage &image, int left, int right, int lower, int upper, int index)
{
    Raster::setPixel(image, {right, lower}, index);
    Raster::setPixel(image, {left, lower}, index);
    Raster::setPixel(image, {left, upper}, index);
    Raster::setPixel(image, {right, upper}, index);
}

} // namespace

void Raster::setPixel(QImage &image, QPoint position, int index)
{
    if (image.rect().contains(position))
        image.scanLine(position.y())[position.x()] = static_cast<uchar>(index);
}

void Raster::drawLine(QImage &image, QPoint from, QPoint to, int index)
{
    const bool steep = std::abs(from.y() - to.y()) > std::abs(from.x() - to.x());
    QPoint first = steep ? from.transposed() : from;
    QPoint last = steep ? to.transposed() : to;
    if (first.x() > last.x())
        std::swap(first, last);

    const int step = first.y() < last.y() ? 1 : -1;
    const auto length = static_cast<float>(last.x() - first.x());
    const auto rise = static_cast<float>(std::abs(last.y() - first.y()));
    float error = length * 0.5f;
    int across = first.y();
    for (int along = first.x(); along <= last.x(); ++along) {
        setPixel(image, steep ? QPoint(across, along) : QPoint(along, across), index);
        error -= rise;
        if (error < 0) {
            error += length;
            across += step;
        }
    }
}

void Raster::drawRectangle(QImage &image, QPoint corner, QPoint opposite, int index)
{
    const int left = std::min(corner.x(), opposite.x());
    const int right = std::max(corner.x(), opposite.x());
    const int top = std::min(corner.y(), opposite.y());
    const int bottom = std::max(corner.y(), opposite.y());
    drawLine(image, {left, top}, {right, top}, index);
    drawLine(image, {left, bottom}, {right, bottom}, index);
    drawLine(image, {left, top}, {left, bottom}, index);
    drawLine(image, {right, top}, {right, bottom}, index);
}

void Raster::fillRectangle(QImage &image, QPoint corner, QPoint opposite, int index)
{
    const QRect area =
        QRect(QPoint(std::min(corner.x(), opposite.x()), std::min(corner.y(), opposite.y())),
              QPoint(std::max(corner.x(), opposite.x()), std::max(corner.y(), opposite.y())))
            .intersected(image.rect());
    for (int y = area.top(); y <= area.bottom(); ++y)
        std::memset(image.scanLine(y) + area.left(), index, static_cast<size_t>(area.width()));
}

void Raster::drawEllipse(QImage &image, QPoint corner, QPoint opposite, int index)
{
    const int left = std::min(corner.x(), opposite.x());
    const int right = std::max(corner.x(), opposite.x());
    const int top = std::min(corner.y(), opposite.y());
    const int bottom = std::max(corner.y(), opposite.y());

    const qint64 width = right - left;
    const qint64 height = bottom - top;
    const qint64 odd = height & 1;
    qint64 dx = 4 * (1 - width) * height * height;
    qint64 dy = 4 * (odd + 1) * width * width;
    qint64 error = dx + dy + odd * width * width;
    const qint64 stepX = 8 * height * height;
    const qint64 stepY = 8 * width * width;

    int lower = static_cast<int>(top + (height + 1) / 2);
    int upper = static_cast<int>(lower - odd);
    int x0 = left;
    int x1 = right;
    do {
        plotQuarters(image, x0, x1, lower, upper, index);
        const qint64 twice = 2 * error;
        if (twice <= dy) {
            ++lower;
            --upper;
            dy += stepY;
            error += dy;
        }
        if (twice >= dx || 2 * error > dy) {
            ++x0;
            --x1;
            dx += stepX;
            error += dx;
        }
    } while (x0 <= x1);

    // A flat ellipse runs out of columns before its tips are drawn.
    while (lower - upper <= height) {
        plotQuarters(image, x0 - 1, x1 + 1, lower, upper, index);
        ++lower;
        --upper;
    }
}

QImage Raster::rotatedClockwise(const QImage &image)
{
    return moved(image, [&image](int x, int y) { return QPoint(image.width() - 1 - y, x); });
}

QImage Raster::rotatedCounterClockwise(const QImage &image)
{
    return moved(image, [&image](int x, int y) { return QPoint(y, image.height() - 1 - x); });
}

QImage Raster::scrolled(const QImage &image, QPoint offset)
{
    const int width = image.width();
    const int height = image.height();
    return moved(image, [=](int x, int y) {
        return QPoint(((x + offset.x()) % width + width) % width,
                      ((y + offset.y()) % height + height) % height);
    });
}
