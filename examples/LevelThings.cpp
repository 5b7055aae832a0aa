#include "examples/LevelDecor.h"

#include <algorithm>
#include <array>

namespace {

constexpr int Side = 16; // pixels

const QList<int> Fire = {0400, 0520, 0640, 0751, 0775};

/// The levels of a wave @p length pixels long.
int wave(int x, int length)
{
    const int place = x % length;
    return place < length / 2 ? place : length - 1 - place;
}

} // namespace

void LevelDecor::door(Brush &brush, QPoint at)
{
    for (int y = 0; y < 2 * Side; ++y) {
        for (int x = 0; x < 2 * Side; ++x) {
            const int dx = 2 * x - 31;
            const int dy = y < 16 ? 2 * (16 - y) : 0;
            const int away = dx * dx + dy * dy;
            if (away > 31 * 31)
                continue;
            const bool arch = away > 22 * 22;
            const bool joint = (y < 16 ? (x + y) % 6 : y % 6) == 0;
            const bool plank = x % 5 == 1;
            const bool band = y == 14 || y == 24;
            const int wood = band ? 0222 : plank ? 0100 : x % 5 == 2 ? 0421 : 0310;
            brush.dot(at.x() + x, at.y() + y, arch ? (joint ? 0111 : dx < 0 ? 0444 : 0333) : wood);
        }
    }
    brush.fill(QRect(at.x() + 21, at.y() + 19, 2, 2), 0751);
}

void LevelDecor::crystal(Brush &brush, QPoint at)
{
    brush.stamp(at,
                {"................", ".......0........", "......030.......", "......0320......",
                 ".....03320......", ".....033210.0...", ".0...03321 030..", "030..0332103320.",
                 "0320.0332103210.", "03210033210321 0", ".032103321032100", ".03210332103210.",
                 "..0321332133210.", "..032133213210..", "...03213321210..", "...0000000000..."},
                {{'0', 0001}, {'1', 0024}, {'2', 0146}, {'3', 0467}});
}

void LevelDecor::spikes(Brush &brush, QPoint at)
{
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < Side; ++x) {
            const int from = x % 8 - 3;
            const int half = (y + 1) / 2;
            if (from >= -half && from <= half)
                brush.dot(at.x() + x, at.y() + 8 + y,
                          from == half || from == -half ? 0001
                          : from < 0                    ? 0666
                                                        : 0333);
        }
    }
}

void LevelDecor::lanternPost(Brush &brush, QPoint foot)
{
    brush.glow(foot + QPoint(8, -39), 15, 0641);
    brush.fill(QRect(foot.x() + 6, foot.y() - 34, 4, 34), 0001);
    brush.fill(QRect(foot.x() + 7, foot.y() - 34, 1, 34), 0321);
    brush.fill(QRect(foot.x() + 8, foot.y() - 34, 1, 34), 0210);
    brush.fill(QRect(foot.x() + 4, foot.y() - 3, 8, 3), 0001);
    brush.stamp(foot - QPoint(0, 48),
                {".......00.......", "......0220......", ".....022110.....", "....02221110....",
                 "...0000000000...", "....05677650....", "....067ww760....", "....067ww760....",
                 "....05677650....", "....05566550....", "...0000000000...", "....02221110....",
                 ".....000000....."},
                {{'0', 0001},
                 {'1', 0210},
                 {'2', 0321},
                 {'5', 0630},
                 {'6', 0751},
                 {'7', 0763},
                 {'w', 0776}});
}

void LevelDecor::ladder(Brush &brush, QRect pixels)
{
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        for (int x = 0; x < Side; ++x) {
            const bool rail = x == 2 || x == 3 || x == 12 || x == 13;
            const bool rung = x > 2 && x < 13 && y % 4 == 1;
            const bool edge = x == 1 || x == 4 || x == 11 || x == 14;
            const bool under = x > 3 && x < 12 && y % 4 == 2;
            const int colour = rail ? (x % 10 == 2 ? 0642 : 0420) : rung ? 0531 : 0001;
            if (rail || rung || edge || under)
                brush.dot(pixels.left() + x, y, colour);
        }
    }
}

void LevelDecor::planks(Brush &brush, QRect pixels)
{
    for (int y = 0; y < 8; ++y) {
        for (int x = pixels.left(); x <= pixels.right(); ++x) {
            const bool gap = x % 8 == 7 || y == 7;
            const int wood = y == 0 ? 0642 : y < 3 ? 0531 : y < 5 ? 0420 : 0310;
            brush.dot(x, pixels.top() + y, gap ? 0100 : wood);
        }
    }
    for (int x = pixels.left() + 3; x <= pixels.right(); x += 8)
        brush.dot(x, pixels.top() + 2, 0100);
}

void LevelDecor::column(Brush &brush, QPoint foot, int height)
{
    constexpr std::array<int, 12> Shades = {0001, 0222, 0444, 0555, 0444, 0333,
                                            0444, 0333, 0222, 0222, 0111, 0001};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < 12; ++x) {
            const bool crack = Brush::noise(x / 2, y / 3, 6) > 236;
            brush.dot(foot.x() + 2 + x, foot.y() - height + y,
                      crack ? 0111 : Shades[static_cast<size_t>(x)]);
        }
    }
    for (const int y : {foot.y() - height, foot.y() - 5}) {
        brush.fill(QRect(foot.x(), y, Side, 5), 0001);
        brush.fill(QRect(foot.x() + 1, y + 1, Side - 2, 2), 0555);
        brush.fill(QRect(foot.x() + 1, y + 3, Side - 2, 1), 0333);
    }
}

void LevelDecor::flame(Brush &brush, QPoint at, int step)
{
    brush.fill(QRect(at.x() + 6, at.y() + 9, 4, 6), 0001);
    brush.fill(QRect(at.x() + 7, at.y() + 9, 2, 6), 0421);
    brush.fill(QRect(at.x() + 5, at.y() + 8, 6, 2), 0210);
    const int lean = step == 1 ? 1 : step == 3 ? -1 : 0;
    const int tall = 7 + step % 2;
    for (int y = 0; y < tall; ++y) {
        const int half = y < 3 ? 2 + (y + 1) / 2 : (tall - y + 1) / 2;
        for (int x = -half; x < half; ++x) {
            const int heat = 90 - y * 8 - std::abs(2 * x + 1) * 12;
            brush.dot(at.x() + 8 + x + lean * y / 4, at.y() + 7 - y,
                      Brush::ramp(Fire, heat, 90, x, y));
        }
    }
}

void LevelDecor::water(Brush &brush, QRect pixels)
{
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        for (int x = pixels.left(); x <= pixels.right(); ++x) {
            const int depth = (y - pixels.top()) / Side * 40 + 20;
            const bool streak = (x + y * 5) % 32 < 3 && y % 8 == 3;
            brush.dot(x, y,
                      streak ? 0125 : Brush::ramp({0125, 0024, 0013, 0002}, depth, 100, x, y));
        }
    }
}

void LevelDecor::waterTop(Brush &brush, QPoint at, int step)
{
    for (int x = 0; x < Side; ++x) {
        const int crest = 1 + wave(x + step * 4, Side) / 3;
        for (int y = 0; y < Side; ++y) {
            const int colour = y < crest ? 0314 : y == crest ? 0677 : y == crest + 1 ? 0357 : 0136;
            const bool glint = y > 6 && (x + step * 4 + y * 7) % Side < 3 && y % 4 == 0;
            brush.dot(at.x() + x, at.y() + y,
                      glint           ? 0357
                      : y > crest + 4 ? Brush::ramp({0136, 0125}, y, Side, x, y)
                                      : colour);
        }
    }
}

void LevelDecor::waterfall(Brush &brush, QPoint at, int step)
{
    for (int x = 0; x < Side; ++x) {
        for (int y = 0; y < Side; ++y) {
            const int streak = Brush::noise(x, 0, 3) % Side;
            const int place = (y - step * 4 + streak + 2 * Side) % Side;
            const bool rim = x == 0 || x == Side - 1;
            const int foam = place < 3 ? 0677 : place < 7 ? 0357 : place < 12 ? 0136 : 0125;
            brush.dot(at.x() + x, at.y() + y, rim ? 0467 : foam);
        }
    }
}

void LevelDecor::platform(Brush &brush, QPoint at, int step)
{
    constexpr int Width = 48;
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < Width; ++x) {
            const bool rim = y == 0 || y == 7 || x == 0 || x == Width - 1;
            const bool lamp = y > 2 && y < 5 && x % 16 > 6 && x % 16 < 9;
            const bool lit = (x / 16 + step) % 2 == 0;
            const int metal = y == 1 ? 0666 : y < 4 ? 0444 : 0333;
            brush.dot(at.x() + x, at.y() + y, rim ? 0001 : lamp ? (lit ? 0763 : 0420) : metal);
        }
    }
}
