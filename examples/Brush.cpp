#include "examples/Brush.h"

#include "model/NextColour.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

constexpr int MixLevels = 16;
constexpr std::array<std::array<int, 4>, 4> MixPattern = {
    {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}}};

/// Rounds down for negative numbers as well.
int cellOf(int value, int side)
{
    return value >= 0 ? value / side : -((side - 1 - value) / side);
}

int lengthSquared(QPoint vector)
{
    return QPoint::dotProduct(vector, vector);
}

} // namespace

Brush::Brush(QSize size)
    : m_picture(size, QImage::Format_RGB32)
{
    m_picture.fill(colour(0));
}

QRgb Brush::colour(int octal)
{
    const int red = octal >> 6 & 7;
    const int green = octal >> 3 & 7;
    const int blue = octal & 7;
    return NextColour::fromWord(
        static_cast<quint16>(red << 13 | green << 10 | blue >> 1 << 8 | (blue & 1)));
}

int Brush::noise(int x, int y, int seed)
{
    quint32 value = static_cast<quint32>(x) * 0x9E3779B1u ^ static_cast<quint32>(y) * 0x85EBCA77u ^
                    static_cast<quint32>(seed) * 0xC2B2AE3Du;
    value = (value ^ value >> 15) * 0x2C1B3C6Du;
    value = (value ^ value >> 12) * 0x297A2D39u;
    return static_cast<int>((value ^ value >> 15) >> 8 & 255);
}

int Brush::smoothNoise(int x, int y, int side, int seed)
{
    const int left = cellOf(x, side);
    const int top = cellOf(y, side);
    const int right = x - left * side;
    const int below = y - top * side;
    const auto row = [&](int number) {
        return noise(left, number, seed) * (side - right) + noise(left + 1, number, seed) * right;
    };
    return (row(top) * (side - below) + row(top + 1) * below) / (side * side);
}

int Brush::cloudNoise(int x, int y, int side, int seed)
{
    int sum = 0;
    int weights = 0;
    for (int weight = 8; weight > 0 && side > 1; weight /= 2, side /= 2) {
        sum += weight * smoothNoise(x, y, side, seed + weight);
        weights += weight;
    }
    return sum / std::max(weights, 1);
}

bool Brush::isMixed(int x, int y, int level)
{
    return MixPattern[static_cast<size_t>(y & 3)][static_cast<size_t>(x & 3)] < level;
}

int Brush::ramp(const QList<int> &colours, int place, int length, int x, int y)
{
    const int last = static_cast<int>(colours.size()) - 1;
    const int scaled = std::clamp(place, 0, length) * last * MixLevels / length;
    const int index = scaled / MixLevels;
    const bool next = index < last && isMixed(x, y, scaled % MixLevels);
    return colours.at(next ? index + 1 : index);
}

void Brush::dot(int x, int y, int octal)
{
    if (octal != None && contains(x, y))
        m_picture.setPixel(x, y, colour(octal));
}

void Brush::fill(QRect rect, int octal)
{
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x)
            dot(x, y, octal);
    }
}

void Brush::disc(QPoint centre, int radius, int octal)
{
    for (int y = -radius; y <= radius; ++y) {
        for (int x = -radius; x <= radius; ++x) {
            if (x * x + y * y <= radius * radius + radius / 2)
                dot(centre.x() + x, centre.y() + y, octal);
        }
    }
}

void Brush::line(QPoint from, QPoint to, int octal)
{
    const QPoint way = to - from;
    const int steps = std::max({std::abs(way.x()), std::abs(way.y()), 1});
    for (int step = 0; step <= steps; ++step)
        dot(from.x() + way.x() * step / steps, from.y() + way.y() * step / steps, octal);
}

void Brush::ball(QPoint centre, int radius, const QList<int> &colours, int seed)
{
    const QPoint light(-radius * 2 / 5, -radius / 2);
    for (int y = -radius; y <= radius; ++y) {
        for (int x = -radius; x <= radius; ++x) {
            const int bumps = noise(x / 2, y / 2, seed) % (radius + 1);
            if (x * x + y * y + bumps > radius * radius + 1)
                continue;
            const int shade = lengthSquared(QPoint(x, y) - light) + bumps * 2;
            const int place = 100 - shade * 100 / (radius * radius * 2);
            const QPoint at = centre + QPoint(x, y);
            dot(at.x(), at.y(), ramp(colours, place, 100, at.x(), at.y()));
        }
    }
}

void Brush::glow(QPoint centre, int radius, int octal)
{
    for (int y = -radius; y <= radius; ++y) {
        for (int x = -radius; x <= radius; ++x) {
            const int part = 10 - 10 * (x * x + y * y) / (radius * radius);
            if (part > 0 && isMixed(centre.x() + x, centre.y() + y, part))
                dot(centre.x() + x, centre.y() + y, octal);
        }
    }
}

void Brush::stamp(QPoint at, const QStringList &rows, const Legend &legend, bool mirrored)
{
    for (int y = 0; y < rows.size(); ++y) {
        const QString &row = rows.at(y);
        for (int x = 0; x < row.size(); ++x) {
            const QChar letter = row.at(mirrored ? row.size() - 1 - x : x);
            dot(at.x() + x, at.y() + y, legend.value(letter, None));
        }
    }
}

void Brush::copy(QRect from, QPoint to)
{
    const QImage part = m_picture.copy(from);
    for (int y = 0; y < part.height(); ++y) {
        for (int x = 0; x < part.width(); ++x) {
            if (contains(to.x() + x, to.y() + y))
                m_picture.setPixel(to.x() + x, to.y() + y, part.pixel(x, y));
        }
    }
}
