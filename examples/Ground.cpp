#include "examples/Ground.h"

#include <algorithm>
#include <array>

namespace {

constexpr int Period = 32; // pixels
constexpr int Far = 99;    // from any edge

using Ground::Plan;
using Ground::Side;

/// The way from each edge of a square of rock to a pixel in it, Far where rock goes on.
struct Edges
{
    int top = Far;
    int left = Far;
    int right = Far;
    int bottom = Far;
    int corner = Far; ///< the nearest corner that only air touches

    int nearest() const { return std::min({top, left, right, bottom, corner}); }
};

bool isRock(const Plan &plan, int x, int y)
{
    return plan.at(x, y) == Ground::Solid;
}

Edges edgesOf(const Plan &plan, int x, int y)
{
    const int column = x / Side;
    const int row = y / Side;
    const int right = Side - 1 - x % Side;
    const int below = Side - 1 - y % Side;
    Edges edges;
    if (!isRock(plan, column, row - 1))
        edges.top = y % Side;
    if (!isRock(plan, column - 1, row))
        edges.left = x % Side;
    if (!isRock(plan, column + 1, row))
        edges.right = right;
    if (!isRock(plan, column, row + 1))
        edges.bottom = below;
    const auto corner = [&](int dx, int dy, int away) {
        if (!isRock(plan, column + dx, row + dy))
            edges.corner = std::min(edges.corner, away);
    };
    corner(-1, -1, std::max(x % Side, y % Side));
    corner(1, -1, std::max(right, y % Side));
    corner(-1, 1, std::max(x % Side, below));
    corner(1, 1, std::max(right, below));
    return edges;
}

/// Whether rounding the corners of the rock takes a pixel away.
bool isRoundedOff(const Edges &edges)
{
    const int side = std::min(edges.left, edges.right);
    return side + edges.top < 2 || side + edges.bottom < 3;
}

int rockColour(const Plan &plan, int x, int y)
{
    const Edges edges = edgesOf(plan, x, y);
    const bool outside = plan.at(x / Side, y / Side - 1) == Ground::Sky;
    if (outside && edges.top < Side) {
        constexpr std::array<int, 16> Fringe = {4, 5, 7, 6, 4, 3, 5, 8, 6, 4, 5, 6, 9, 7, 4, 3};
        const int end = Fringe[static_cast<size_t>(x % Side)];
        if (edges.top < end)
            return edges.top == 0         ? 0372
                   : edges.top < 3        ? 0251
                   : edges.top == end - 1 ? 0020
                                          : 0130;
        if (edges.top == end)
            return 0100;
    }
    const int nearest = edges.nearest();
    if (nearest == 0)
        return 0001;
    const int seen = Ground::stone(x, y, 3);
    if (seen < 22)
        return nearest > 12 ? 0001 : 0100;
    if (!outside && edges.top == 1)
        return 0432;
    const QList<int> earth = {0101, 0210, 0311, 0421};
    const int light = nearest > 12 ? 6 : nearest > 5 ? 30 : 52;
    return Brush::ramp(earth, light + seen / 5 - 10, 100, x, y);
}

int caveColour(int x, int y)
{
    const int seen = Ground::stone(x, y, 8);
    return seen < 16                              ? 0000
           : seen > 110                           ? 0102
           : Brush::isMixed(x, y, 8) && seen > 70 ? 0102
                                                  : 0001;
}

} // namespace

Ground::Plan::Plan(QSize size, QChar letter)
{
    for (int y = 0; y < size.height(); ++y)
        m_rows += QString(size.width(), letter);
}

void Ground::Plan::put(QRect squares, QChar letter)
{
    for (int y = squares.top(); y <= squares.bottom(); ++y) {
        for (int x = squares.left(); x <= squares.right(); ++x)
            m_rows[y][x] = letter;
    }
}

QChar Ground::Plan::at(int x, int y) const
{
    return m_rows.at(std::clamp(y, 0, height() - 1)).at(std::clamp(x, 0, width() - 1));
}

int Ground::stone(int x, int y, int seed)
{
    constexpr int Stones = 4; // a side of the pattern
    constexpr int Pitch = Period / Stones;
    int first = Period * Period;
    int second = first;
    const int column = x % Period / Pitch;
    const int row = y % Period / Pitch;
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            const int stoneX = (column + dx + Stones) % Stones;
            const int stoneY = (row + dy + Stones) % Stones;
            const int wayX =
                (column + dx) * Pitch + Brush::noise(stoneX, stoneY, seed) % Pitch - x % Period;
            const int wayY =
                (row + dy) * Pitch + Brush::noise(stoneX, stoneY, seed + 1) % Pitch - y % Period;
            const int distance = wayX * wayX + wayY * wayY;
            second = std::min(second, std::max(first, distance));
            first = std::min(first, distance);
        }
    }
    return std::clamp((second - first) * 4, 0, 255);
}

void Ground::draw(Brush &brush, const Plan &plan)
{
    for (int y = 0; y < plan.height() * Side; ++y) {
        for (int x = 0; x < plan.width() * Side; ++x) {
            const QChar letter = plan.at(x / Side, y / Side);
            if (letter == Cave)
                brush.dot(x, y, caveColour(x, y));
            if (letter != Solid)
                continue;
            if (isRoundedOff(edgesOf(plan, x, y))) {
                if (plan.at(x / Side, y / Side + 1) == Cave ||
                    plan.at(x / Side, y / Side - 1) == Cave)
                    brush.dot(x, y, caveColour(x, y));
                continue;
            }
            brush.dot(x, y, rockColour(plan, x, y));
        }
    }
}
