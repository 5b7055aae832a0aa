#include "examples/LevelDecor.h"

#include <algorithm>

namespace {

constexpr int Period = 128; // pixels, of the hills

/// A ridge that repeats every @p period pixels, its peaks alike but not equal.
int ridge(int x, int period, int height, int seed)
{
    const int half = period / 4;
    int top = 0;
    for (int peak = 0; peak < 4; ++peak) {
        const int at = peak * period / 4 + Brush::noise(peak, 0, seed) % half;
        const int tall = height / 2 + Brush::noise(peak, 1, seed) * height / 512;
        const int behind = (x % period - at + period) % period;
        const int away = std::min(behind, period - behind);
        top = std::max(top, tall - away * height / half / 2);
    }
    return top;
}

int hillColour(int x, int y)
{
    const int far = 144 - ridge(x, Period, 66, 7);
    const int middle = 164 - ridge(x + 40, Period, 44, 12);
    const int step = x % 16 < 8 ? x % 16 : 15 - x % 16;
    const int trees = 152 - step * 2 + (x / 16 % 2) * 6;
    if (y >= trees)
        return 0001;
    if (y >= middle)
        return y < middle + 2 ? 0203 : 0102;
    if (y >= far)
        return y < far + 8 && (x + y / 2) % 4 ? 0424 : Brush::isMixed(x, y, 6) ? 0313 : 0203;
    return Brush::None;
}

void star(Brush &brush, int number)
{
    const int x = Brush::noise(number, 1, 77) * 640 / 256;
    const int y = Brush::noise(number, 2, 77) * 84 / 256;
    brush.dot(x, y, number % 3 ? 0424 : 0777);
}

void moon(Brush &brush, QPoint centre)
{
    brush.disc(centre, 15, 0755);
    brush.disc(centre + QPoint(-2, -2), 12, 0766);
    brush.disc(centre + QPoint(-3, -3), 8, 0777);
    for (const QPoint crater : {QPoint(5, 4), QPoint(-4, 7), QPoint(6, -5)})
        brush.disc(centre + crater, 2, 0644);
}

const QList<int> Leaves = {0010, 0021, 0131, 0241, 0352};

} // namespace

void LevelDecor::sky(Brush &brush, QSize pixels)
{
    const QList<int> dusk = {0001, 0002, 0102, 0103, 0203, 0313, 0413, 0523, 0632, 0742, 0753};
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x) {
            const int hill = hillColour(x, y);
            brush.dot(x, y, hill == Brush::None ? Brush::ramp(dusk, y, 150, x, y) : hill);
        }
    }
    for (int number = 0; number < 12; ++number)
        star(brush, number);
    moon(brush, {88, 36});
}

void LevelDecor::tree(Brush &brush, QPoint foot)
{
    for (int y = 0; y < 40; ++y) {
        const int half = 3 + y / 14 + (y > 35 ? y - 35 : 0);
        for (int x = -half; x <= half; ++x) {
            const bool bark = Brush::noise(x, y / 3, 4) > 150;
            brush.dot(foot.x() + x, foot.y() - 40 + y,
                      x == -half || x == half ? 0001
                      : bark                  ? 0100
                      : x < 0                 ? 0321
                                              : 0210);
        }
    }
    const QList<QPoint> clumps = {{0, -62},  {-17, -56}, {17, -54}, {-24, -43}, {24, -42},
                                  {-9, -46}, {9, -44},   {0, -74},  {-12, -69}, {13, -68}};
    for (const QPoint clump : clumps)
        brush.disc(foot + clump + QPoint(0, 1), 14, 0001);
    for (const QPoint clump : clumps)
        brush.ball(foot + clump, 13, Leaves, clump.x());
}

void LevelDecor::bush(Brush &brush, QPoint foot)
{
    for (const QPoint clump : {QPoint(7, -5), QPoint(24, -5), QPoint(15, -9)}) {
        brush.disc(foot + clump, 8, 0001);
        brush.ball(foot + clump, 7, Leaves, 2);
    }
    for (const QPoint berry : {QPoint(9, -6), QPoint(18, -10), QPoint(23, -5)})
        brush.dot(foot.x() + berry.x(), foot.y() + berry.y(), 0731);
}

void LevelDecor::flowers(Brush &brush, QPoint foot)
{
    brush.stamp(foot - QPoint(0, 8),
                {"..p.......y.....", ".pwp.....ywy..p.", "..p...y...y..pwp", "..g..ywy..g...p.",
                 "..g...y...g...g.", ".gg.g.g.g.gg..g.", "..ggg.gg..g.g.gg", "..g.ggg..gggg.g."},
                {{'p', 0746}, {'w', 0777}, {'y', 0761}, {'g', 0251}});
}

void LevelDecor::mushroom(Brush &brush, QPoint foot)
{
    brush.stamp(foot - QPoint(0, 14),
                {".....000000.....", "...0022222200...", "..02244222w220..", ".02w222222ww220.",
                 ".0ww2222222w220.", "022w22ww2222222 ", "012222ww222w2210", "0112222222222110",
                 ".00111111111100.", "...00055550 00..", ".....055540.....", ".....055540.....",
                 "....05555440....", "....00000000...."},
                {{'0', 0001}, {'1', 0301}, {'2', 0510}, {'4', 0643}, {'w', 0766}, {'5', 0765}});
}

void LevelDecor::crate(Brush &brush, QPoint at)
{
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            const bool rim = x == 0 || y == 0 || x == 15 || y == 15;
            const bool frame = x < 3 || y < 3 || x > 12 || y > 12;
            const bool brace = std::abs(x - y) < 2;
            const bool seam = y % 4 == 2;
            const int wood = frame || brace ? (x < 2 || y < 2 ? 0642 : 0531) : seam ? 0210 : 0420;
            brush.dot(at.x() + x, at.y() + y, rim ? 0100 : wood);
        }
    }
}

void LevelDecor::chest(Brush &brush, QPoint at)
{
    brush.stamp(at,
                {"................", "................", "................", "..000000000000..",
                 ".03333333333330.", ".03222322223220.", "0332223222232230", "0111112yy2111110",
                 "0yyyyyyooyyyyyy0", "0222222oo2222220", "02222212212222 0", "0212222222222120",
                 "0212222222222120", "0212222222222120", "0111111111111110", ".00000000000000."},
                {{'0', 0001}, {'1', 0200}, {'2', 0420}, {'3', 0531}, {'y', 0751}, {'o', 0310}});
}

void LevelDecor::sign(Brush &brush, QPoint at)
{
    brush.stamp(at,
                {"................", "................", "..00000000000...", ".0333333333330..",
                 ".03222222122230.", ".032222221122230", ".032111111112230", ".032222221122230",
                 ".03222222122230.", ".0333333333330..", "..00000000000...", "......0210......",
                 "......0210......", "......0210......", "......0210......", ".....002100....."},
                {{'0', 0001}, {'1', 0210}, {'2', 0531}, {'3', 0642}});
}
