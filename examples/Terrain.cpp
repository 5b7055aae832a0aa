#include "examples/Terrain.h"

#include <algorithm>

namespace {

constexpr QChar Deep = 'd';
constexpr QChar Shallow = 's';
constexpr QChar Sand = ',';
constexpr QChar Grass = '.';
constexpr QChar Path = 'p';
constexpr QChar Field = 'f';
constexpr int Border = 128;

/// What chance alone makes of a corner.
QChar naturalCorner(int x, int y, QSize squares)
{
    const int dx = (2 * x - squares.width()) * 100 / squares.width();
    const int down = (2 * y - squares.height()) * 100 / squares.height();
    const int dy = down > 0 ? down * 5 / 4 : down;
    const int away =
        (dx * dx + dy * dy) / 100 + (Brush::cloudNoise(x * 4, y * 4, 24, 15) - 128) / 2;
    return away < 52 ? Grass : away < 68 ? Sand : away < 92 ? Shallow : Deep;
}

int deepColour(int x, int y)
{
    const bool crest = (x + y / 8 % 2 * 7) % 16 < 5 && y % 8 == 3;
    return crest ? 0135 : (x + y / 8 % 2 * 7) % 16 == 5 && y % 8 == 4 ? 0013 : 0024;
}

int shallowColour(int x, int y)
{
    const bool crest = (x + y / 8 % 2 * 7) % 16 < 4 && y % 8 == 5;
    return crest ? 0467 : 0246;
}

int sandColour(int x, int y)
{
    const int grain = Brush::noise(x % 16, y % 16, 4);
    return grain > 244 ? 0542 : grain < 16 ? 0777 : 0764;
}

int grassColour(int x, int y)
{
    const int px = x % 16;
    const int py = y % 16;
    const int tuft = Brush::noise(px / 4, py / 4, 8);
    const bool blade = tuft > 226 && (px % 4 == 1 || (px % 4 == 2 && py % 4 > 1));
    return blade ? (px % 4 == 1 ? 0251 : 0473) : Brush::noise(px, py, 2) > 250 ? 0473 : 0362;
}

int pathColour(int x, int y)
{
    const int grain = Brush::noise(x % 16 / 2, y % 16 / 2, 6);
    return grain > 228 ? 0764 : grain < 30 ? 0531 : 0642;
}

int fieldColour(int x, int y)
{
    const int row = y % 8;
    const bool sprout = row < 4 && x % 8 > 2 && x % 8 < 6 && (x % 8 == 4 || row == 2);
    return sprout ? (row < 2 ? 0473 : 0251) : row == 6 ? 0200 : row > 3 ? 0310 : 0421;
}

} // namespace

Terrain::Terrain(QSize squares)
    : m_size(squares)
{
    for (int y = 0; y <= squares.height(); ++y) {
        QString row;
        for (int x = 0; x <= squares.width(); ++x)
            row += naturalCorner(x, y, squares);
        m_corners += row;
    }
}

void Terrain::layPath(const QList<QPoint> &corners)
{
    for (int leg = 1; leg < corners.size(); ++leg) {
        const QPoint from = corners.at(leg - 1);
        const QPoint way = corners.at(leg) - from;
        const int steps = std::max(std::abs(way.x()), std::abs(way.y()));
        for (int step = 0; step <= steps; ++step) {
            const QPoint at = from + way * step / std::max(steps, 1);
            m_corners[at.y()][at.x()] = Path;
        }
    }
}

void Terrain::plough(QRect corners)
{
    for (int y = corners.top(); y <= corners.bottom(); ++y) {
        for (int x = corners.left(); x <= corners.right(); ++x)
            m_corners[y][x] = Field;
    }
}

QChar Terrain::corner(int x, int y) const
{
    return m_corners.at(std::clamp(y, 0, m_size.height())).at(std::clamp(x, 0, m_size.width()));
}

bool Terrain::isGrass(QPoint square) const
{
    for (const QPoint step : {QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(1, 1)}) {
        if (corner(square.x() + step.x(), square.y() + step.y()) != Grass)
            return false;
    }
    return true;
}

bool Terrain::isSea(QPoint square) const
{
    const QChar here = corner(square.x(), square.y());
    const QChar there = corner(square.x() + 1, square.y() + 1);
    return (here == Deep || here == Shallow) && (there == Deep || there == Shallow);
}

int Terrain::inside(int x, int y, const QString &letters) const
{
    const int left = x / Side;
    const int top = y / Side;
    const int right = x % Side;
    const int below = y % Side;
    const auto holds = [&](int dx, int dy) {
        return letters.contains(corner(left + dx, top + dy)) ? 1 : 0;
    };
    const int above = holds(0, 0) * (Side - right) + holds(1, 0) * right;
    const int under = holds(0, 1) * (Side - right) + holds(1, 1) * right;
    const int blend = above * (Side - below) + under * below;
    const int wobble = Brush::smoothNoise(right, below, 4, 19) - Border;
    return blend == 0 || blend == 256 ? blend : blend + wobble / 5;
}

int Terrain::colour(int x, int y) const
{
    const int sea = inside(x, y, QStringLiteral("s,.pf"));
    const int land = inside(x, y, QStringLiteral(",.pf"));
    const int grass = inside(x, y, QStringLiteral(".pf"));
    if (sea < Border)
        return deepColour(x, y);
    if (land < Border)
        return land > 104               ? 0777
               : land > 64              ? 0467
               : land == 0 && sea < 150 ? 0135
                                        : shallowColour(x, y);
    if (grass < Border)
        return land < 150 ? 0542 : grass > 108 ? 0642 : sandColour(x, y);
    if (grass < 144)
        return 0140;
    if (const int path = inside(x, y, QStringLiteral("p")); path >= Border)
        return path < 140 ? 0420 : pathColour(x, y);
    if (const int field = inside(x, y, QStringLiteral("f")); field >= Border)
        return field < 140 ? 0200 : fieldColour(x, y);
    return grass < 158 ? 0251 : grassColour(x, y);
}

void Terrain::draw(Brush &brush) const
{
    for (int y = 0; y < m_size.height() * Side; ++y) {
        for (int x = 0; x < m_size.width() * Side; ++x)
            brush.dot(x, y, colour(x, y));
    }
}
