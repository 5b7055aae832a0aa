#include "examples/IslandThings.h"

#include <algorithm>
#include <array>

namespace {

constexpr int Side = 16; // pixels
const QList<int> Leaves = {0010, 0140, 0251, 0251, 0473};

void shadow(Brush &brush, QPoint centre, int half)
{
    for (int y = -3; y <= 3; ++y) {
        for (int x = -half; x <= half; ++x) {
            if (x * x * 9 + y * y * half * half <= half * half * 9)
                brush.dot(centre.x() + x, centre.y() + y, 0140);
        }
    }
}

} // namespace

void IslandThings::tree(Brush &brush, QPoint at)
{
    shadow(brush, at + QPoint(8, 28), 7);
    brush.fill(QRect(at.x() + 5, at.y() + 19, 6, 10), 0100);
    brush.fill(QRect(at.x() + 6, at.y() + 19, 2, 9), 0421);
    brush.fill(QRect(at.x() + 8, at.y() + 19, 2, 9), 0310);
    brush.disc(at + QPoint(8, 13), 7, 0010);
    brush.disc(at + QPoint(8, 9), 6, 0010);
    brush.ball(at + QPoint(8, 15), 6, Leaves, 5);
    brush.ball(at + QPoint(8, 9), 6, Leaves, 5);
}

void IslandThings::pine(Brush &brush, QPoint at)
{
    shadow(brush, at + QPoint(8, 29), 6);
    brush.fill(QRect(at.x() + 6, at.y() + 25, 4, 5), 0100);
    brush.fill(QRect(at.x() + 7, at.y() + 25, 1, 4), 0310);
    for (int y = 0; y < 26; ++y) {
        const int half = std::min(7, 1 + y % 9 * 5 / 8 + y / 9 * 2);
        for (int x = -half; x < half; ++x) {
            const bool rim = x == -half || x == half - 1 || y % 9 == 8;
            const int lit =
                Brush::ramp({0010, 0010, 0140, 0251}, 60 - x * 8 - y % 9 * 4, 100, x, y);
            brush.dot(at.x() + 8 + x, at.y() + y, rim ? 0001 : lit);
        }
    }
}

void IslandThings::house(Brush &brush, QPoint at, const QList<int> &roof)
{
    for (int y = 0; y < 26; ++y) {
        const int inset = y < 5 ? 5 - y : 0;
        for (int x = inset; x < 48 - inset; ++x) {
            const int course = y / 5;
            const bool joint = y % 5 == 4 || (x + course % 2 * 4) % 8 == 7;
            const bool rim = x == inset || x == 47 - inset || y == 0 || y == 25;
            const int light = 100 - y * 3 - ((x + course % 2 * 4) % 8) * 4;
            brush.dot(at.x() + x, at.y() + y,
                      rim     ? 0001
                      : joint ? roof.first()
                              : Brush::ramp(roof, light, 100, x, y));
        }
    }
    for (int y = 26; y < 47; ++y) {
        for (int x = 3; x < 45; ++x) {
            const bool rim = x == 3 || x == 44 || y == 46;
            const bool beam = x < 6 || x > 41 || y < 29;
            brush.dot(at.x() + x, at.y() + y,
                      rim       ? 0001
                      : y == 26 ? 0210
                      : beam    ? 0421
                      : y > 42  ? 0766
                                : 0765);
        }
    }
    for (const int x : {9, 31}) {
        brush.fill(QRect(at.x() + x, at.y() + 31, 9, 9), 0310);
        brush.fill(QRect(at.x() + x + 1, at.y() + 32, 7, 7), 0134);
        brush.fill(QRect(at.x() + x + 1, at.y() + 32, 3, 3), 0467);
        brush.fill(QRect(at.x() + x + 4, at.y() + 32, 1, 7), 0310);
        brush.fill(QRect(at.x() + x - 1, at.y() + 40, 11, 2), 0510);
    }
    brush.fill(QRect(at.x() + 20, at.y() + 32, 9, 15), 0100);
    brush.fill(QRect(at.x() + 21, at.y() + 33, 7, 14), 0420);
    brush.fill(QRect(at.x() + 23, at.y() + 33, 1, 14), 0310);
    brush.fill(QRect(at.x() + 26, at.y() + 40, 1, 2), 0760);
    brush.fill(QRect(at.x() + 35, at.y() + 1, 7, 9), 0001);
    brush.fill(QRect(at.x() + 36, at.y() + 2, 5, 7), 0544);
    brush.fill(QRect(at.x() + 36, at.y() + 2, 5, 2), 0111);
}

void IslandThings::lighthouse(Brush &brush, QPoint at)
{
    constexpr std::array<int, 8> Light = {0777, 0777, 0766, 0766, 0544, 0544, 0544, 0333};
    constexpr std::array<int, 8> Red = {0621, 0621, 0510, 0510, 0400, 0400, 0400, 0400};
    shadow(brush, at + QPoint(17, 60), 15);
    for (int y = 16; y < 62; ++y) {
        const int half = 8 + (y - 16) / 9;
        for (int x = -half; x < half; ++x) {
            const auto shade = static_cast<size_t>((x + half) * 8 / (2 * half));
            const bool rim = x == -half || x == half - 1 || y == 61;
            brush.dot(at.x() + 16 + x, at.y() + y,
                      rim                 ? 0001
                      : (y - 16) / 12 % 2 ? Light[shade]
                                          : Red[shade]);
        }
    }
    brush.fill(QRect(at.x() + 5, at.y() + 13, 22, 4), 0001);
    brush.fill(QRect(at.x() + 6, at.y() + 14, 20, 1), 0544);
    brush.fill(QRect(at.x() + 9, at.y() + 4, 14, 9), 0001);
    brush.fill(QRect(at.x() + 10, at.y() + 5, 12, 8), 0761);
    brush.fill(QRect(at.x() + 13, at.y() + 6, 5, 6), 0777);
    for (int y = 0; y < 5; ++y)
        brush.fill(QRect(at.x() + 15 - y * 2, at.y() + y, 2 + y * 4, 1), y == 4 ? 0001 : 0400);
    brush.fill(QRect(at.x() + 13, at.y() + 50, 6, 11), 0100);
    brush.fill(QRect(at.x() + 14, at.y() + 51, 4, 10), 0420);
}

void IslandThings::jetty(Brush &brush, QRect pixels)
{
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        for (int x = pixels.left(); x <= pixels.right(); ++x) {
            const bool rim = x == pixels.left() || x == pixels.right();
            const int board = y % 4;
            const bool nail = board == 1 && (x == pixels.left() + 2 || x == pixels.right() - 2);
            brush.dot(x, y, rim || nail ? 0100 : board == 3 ? 0310 : board == 0 ? 0642 : 0531);
        }
    }
}

void IslandThings::boat(Brush &brush, QPoint at)
{
    for (int y = 0; y < 12; ++y) {
        for (int x = y / 2; x < 46 - y; ++x) {
            const bool rim = y == 11 || x == y / 2 || x == 45 - y || y == 0;
            brush.dot(at.x() + x, at.y() + 20 + y,
                      rim          ? 0100
                      : y < 3      ? 0642
                      : y % 4 == 3 ? 0310
                      : y > 7      ? 0510
                                   : 0531);
        }
    }
    brush.fill(QRect(at.x() + 21, at.y(), 2, 20), 0210);
    for (int y = 0; y < 16; ++y) {
        brush.fill(QRect(at.x() + 24, at.y() + 2 + y, 2 + y, 1), y % 6 > 3 ? 0544 : 0766);
        brush.fill(QRect(at.x() + 19 - y * 2 / 3, at.y() + 2 + y, 1 + y * 2 / 3, 1), 0777);
        brush.dot(at.x() + 26 + y, at.y() + 2 + y, 0001);
        brush.dot(at.x() + 18 - y * 2 / 3, at.y() + 2 + y, 0001);
    }
}

void IslandThings::well(Brush &brush, QPoint at)
{
    brush.stamp(at,
                {"......0000......", "....00333300....", "..003333332200..", ".03333322222220.",
                 "0333222222222220", "0000000000000000", "..0a0......0a0..", "..0a0......0a0..",
                 "..0a00000000a0..", ".00a0bbbbbb0a00.", "0550bbbbbbbb0540", "0555000000005440",
                 "0545554555454440", "0555455545554540", ".05555455544440.", "..000000000000.."},
                {{'0', 0001},
                 {'2', 0510},
                 {'3', 0621},
                 {'a', 0421},
                 {'b', 0013},
                 {'4', 0333},
                 {'5', 0544}});
}

void IslandThings::rock(Brush &brush, QPoint at)
{
    shadow(brush, at + QPoint(8, 13), 7);
    brush.disc(at + QPoint(8, 8), 6, 0001);
    brush.ball(at + QPoint(8, 8), 5, {0111, 0111, 0333, 0544, 0544}, 3);
}

void IslandThings::flowerBed(Brush &brush, QPoint at)
{
    brush.stamp(at,
                {"................", "..p.......y.....", ".pwp..g..ywy....", "..p.....g.y..g..",
                 "...g........p...", ".......r...pwp..", "..g...rwr...p...", ".......r....g...",
                 "...y......g.....", "..ywy.......r...", "...y..p....rwr..", "..g..pwp....r...",
                 "......p....g....", "...g........y...", ".........g.ywy..", "............y..."},
                {{'p', 0746}, {'w', 0777}, {'y', 0761}, {'r', 0621}, {'g', 0140}});
}

void IslandThings::fence(Brush &brush, QPoint at)
{
    for (int x = 0; x < Side; ++x) {
        const bool post = x % 8 > 1 && x % 8 < 5;
        for (int y = 4; y < 14; ++y) {
            const bool rail = y == 7 || y == 8 || y == 11 || y == 12;
            if (post || rail)
                brush.dot(at.x() + x, at.y() + y,
                          y == 13 || (post && x % 8 == 4) ? 0210
                          : y % 4 == 0 && !post           ? 0421
                                                          : 0642);
        }
    }
}

void IslandThings::barrel(Brush &brush, QPoint at)
{
    brush.stamp(at,
                {"................", "....00000000....", "..004444433300..", "..044433333330..",
                 "..004444433300..", "..020000000010..", "..0aaaaaaaaaa0..", ".0322322231221 0",
                 ".032232223122110", ".032232223122110", ".032232223122110", "..0aaaaaaaaaa0..",
                 "..032232231210..", "..032232231210..", "...0000000000...", "................"},
                {{'0', 0100}, {'1', 0210}, {'2', 0421}, {'3', 0531}, {'4', 0642}, {'a', 0333}});
}

void IslandThings::campfire(Brush &brush, QPoint at, int step)
{
    const QList<int> fire = {0400, 0642, 0761, 0761, 0777};
    brush.fill(QRect(at.x() + 2, at.y() + 12, 12, 3), 0100);
    brush.fill(QRect(at.x() + 3, at.y() + 12, 10, 1), 0421);
    const int tall = 9 + step % 2 * 2;
    const int lean = step == 1 ? 2 : step == 3 ? -2 : 0;
    for (int y = 0; y < tall; ++y) {
        const int half = std::min(4, 1 + (tall - y) / 2);
        for (int x = -half; x < half; ++x) {
            const int heat = 100 - y * 7 - std::abs(2 * x + 1) * 7;
            brush.dot(at.x() + 8 + x + lean * y / tall, at.y() + 12 - y,
                      Brush::ramp(fire, heat, 100, x, y));
        }
    }
}

void IslandThings::ripple(Brush &brush, QPoint at, int step)
{
    const int half = 2 + step * 2;
    for (int x = -half; x <= half; ++x) {
        const int rise = std::abs(x) > half / 2 ? 1 : 0;
        brush.dot(at.x() + 8 + x, at.y() + 6 + rise, step == 3 ? 0135 : 0467);
        if (step > 0)
            brush.dot(at.x() + 8 + x, at.y() + 10 - rise, 0135);
    }
}

void IslandThings::flag(Brush &brush, QPoint at, int step)
{
    brush.fill(QRect(at.x() + 1, at.y(), 2, Side), 0210);
    for (int x = 3; x < 15; ++x) {
        const int phase = (x + step * 3) % 12;
        const int wave = phase < 6 ? phase / 2 : (11 - phase) / 2;
        for (int y = 0; y < 8; ++y)
            brush.dot(at.x() + x, at.y() + 1 + wave + y,
                      y == 0 || y == 7 ? 0400
                      : y > 2 && y < 5 ? 0777
                      : phase < 6      ? 0621
                                       : 0510);
    }
}
