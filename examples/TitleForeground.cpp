#include "examples/TitleForeground.h"

#include "examples/Brush.h"
#include "examples/Figures.h"

namespace {

/// Where the bank begins at a column.
int bankTop(int x)
{
    const int left = 212 + x * x / 420;
    const int right = 226 + (320 - x) * (320 - x) / 500;
    return std::min(left, right) + Brush::cloudNoise(x, 7, 24, 31) / 40;
}

void drawBank(Brush &brush)
{
    const QList<int> earth = {0241, 0131, 0021, 0011, 0001, 0000};
    for (int x = 0; x < 320; ++x) {
        const int top = bankTop(x);
        for (int y = top; y < 256; ++y) {
            const int rough = Brush::noise(x, y, 12) / 24;
            brush.dot(x, y, Brush::ramp(earth, (y - top) * 3 + rough, 100, x, y));
        }
        const int blade = Brush::noise(x, 1, 33) % 7;
        for (int y = 0; y < blade; ++y)
            brush.dot(x + y / 3, top - y, y > blade - 3 ? 0251 : 0131);
    }
}

void drawLantern(Brush &brush, QPoint foot)
{
    brush.glow(foot + QPoint(8, -58), 46, 0520);
    brush.glow(foot + QPoint(8, -58), 26, 0740);
    brush.fill(QRect(foot.x() - 2, foot.y() - 74, 4, 78), 0100);
    brush.fill(QRect(foot.x() - 1, foot.y() - 74, 1, 78), 0310);
    brush.fill(QRect(foot.x() - 2, foot.y() - 74, 14, 3), 0100);
    brush.fill(QRect(foot.x() + 8, foot.y() - 71, 1, 4), 0222);
    brush.stamp(foot + QPoint(2, -67),
                {"....000....", "..0033300..", ".033333330.", "00000000000", ".044555440.",
                 ".0455W5540.", ".045WWW540.", ".045WWW540.", ".0455W5540.", ".0445W5440.",
                 ".04455544..", "00000000000", ".033333330.", "..0000000.."},
                {{'0', 0001}, {'3', 0321}, {'4', 0630}, {'5', 0751}, {'W', 0776}});
}

void drawFlowers(Brush &brush)
{
    for (int flower = 0; flower < 26; ++flower) {
        const int x = Brush::noise(flower, 5, 2) * 320 / 256;
        const int y = bankTop(x) - 2 + Brush::noise(flower, 6, 2) % 20;
        const int petal = flower % 3 == 0 ? 0757 : flower % 3 == 1 ? 0675 : 0772;
        for (const QPoint step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)})
            brush.dot(x + step.x(), y + step.y(), petal);
        brush.dot(x, y, 0740);
        brush.dot(x, y + 2, 0131);
    }
}

/// The bearer, twice the size of its sprite.
void drawBearer(Brush &brush, QPoint foot)
{
    Brush small(QSize(Figures::Side, Figures::Side));
    constexpr int Blank = 0707;
    small.fill(QRect(0, 0, Figures::Side, Figures::Side), Blank);
    Figures::draw(small, {0, 0}, Figures::bearer().at(0), Figures::bearerColours());
    brush.glow(foot + QPoint(11, -9), 22, 0741);
    for (int y = 0; y < Figures::Side; ++y) {
        for (int x = 0; x < Figures::Side; ++x) {
            const QRgb seen = small.picture().pixel(x, y);
            if (seen == Brush::colour(Blank))
                continue;
            const auto level = [](int channel) { return (channel * 7 + 127) / 255; };
            brush.fill(QRect(foot.x() - 16 + x * 2, foot.y() - 31 + y * 2, 2, 2),
                       level(qRed(seen)) << 6 | level(qGreen(seen)) << 3 | level(qBlue(seen)));
        }
    }
}

} // namespace

void Examples::drawTitleForeground(Brush &brush)
{
    drawBank(brush);
    drawFlowers(brush);
    drawLantern(brush, {286, bankTop(286)});
    drawBearer(brush, {44, bankTop(44) + 3});
}
