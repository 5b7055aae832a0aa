#include "examples/Brush.h"
#include "examples/Chapters.h"
#include "examples/Lettering.h"
#include "examples/TitleForeground.h"
#include "formats/NxImage.h"
#include "model/Image.h"
#include "model/Palette.h"
#include "model/Project.h"

#include <algorithm>

namespace {

constexpr QSize Size(320, 256);
constexpr int Shore = 186; // where the lake begins
constexpr QPoint Moon(232, 62);

void drawSky(Brush &brush)
{
    const QList<int> night = {0001, 0002, 0102, 0103, 0113, 0214,
                              0314, 0324, 0435, 0535, 0646, 0756};
    for (int y = 0; y < Shore; ++y) {
        for (int x = 0; x < Size.width(); ++x) {
            const QPoint way = QPoint(x, y) - Moon;
            const int halo = std::max(0, 60 - QPoint::dotProduct(way, way) / 90);
            const int cloud = std::max(0, Brush::cloudNoise(x, y * 4, 96, 5) - 140);
            brush.dot(x, y, Brush::ramp(night, y * 200 / Shore + halo + cloud / 2, 260, x, y));
        }
    }
    for (int star = 0; star < 130; ++star) {
        const int x = Brush::noise(star, 1, 9) * 320 / 256 + (star & 1);
        const int y = Brush::noise(star, 2, 9) * 110 / 256;
        const bool bright = star % 9 == 0;
        brush.dot(x, y, bright ? 0777 : star % 3 ? 0436 : 0657);
        if (bright) {
            for (const QPoint step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)})
                brush.dot(x + step.x(), y + step.y(), 0435);
        }
    }
}

void drawMoon(Brush &brush)
{
    constexpr int Radius = 30;
    const QList<int> shades = {0545, 0656, 0766, 0776, 0777};
    for (int y = -Radius; y <= Radius; ++y) {
        for (int x = -Radius; x <= Radius; ++x) {
            if (x * x + y * y > Radius * Radius + 14)
                continue;
            const int seas = std::max(0, Brush::cloudNoise(x + 64, y + 64, 24, 3) - 118);
            const int light = 62 - (x + y) * 2 / 3 - seas * 2;
            brush.dot(Moon.x() + x, Moon.y() + y,
                      Brush::ramp(shades, light, 100, Moon.x() + x, Moon.y() + y));
        }
    }
}

/// One chain of mountains: its ridge line from noise, lit from the moon's side, misty at its foot.
void drawRidge(Brush &brush, int top, int height, int side, int seed, const QList<int> &colours)
{
    for (int x = 0; x < Size.width(); ++x) {
        const int ridge = top + height - Brush::cloudNoise(x, seed * 40, side, seed) * height / 160;
        const int next =
            top + height - Brush::cloudNoise(x + 4, seed * 40, side, seed) * height / 160;
        for (int y = std::max(0, ridge); y < Shore; ++y) {
            const int rough = Brush::cloudNoise(x * 2 + y, y - x, 16, seed + 1) / 6;
            const int slope = (next - ridge) * 6;
            const int mist = (y - ridge) * 60 / (Shore - ridge + 1);
            brush.dot(x, y, Brush::ramp(colours, rough + slope + mist, 100, x, y));
        }
    }
}

void drawPine(Brush &brush, QPoint foot, int height, int dark, int light)
{
    for (int y = 0; y < height; ++y) {
        const int half = (y % 7 + y / 2) * height / 90 + y / 9;
        for (int x = -half; x <= half; ++x) {
            const bool lit = x > half / 3 && Brush::noise(x, y, height) > 120;
            brush.dot(foot.x() + x, foot.y() - height + y, lit ? light : dark);
        }
    }
    brush.fill(QRect(foot.x() - 1, foot.y(), 2, 3), dark);
}

void drawForest(Brush &brush)
{
    for (int tree = 0; tree < 52; ++tree) {
        const int x = tree * 320 / 51 + Brush::noise(tree, 3, 4) % 5;
        const int height = 16 + Brush::noise(tree, 4, 4) % 16;
        drawPine(brush, {x, Shore - 1}, height, 0012, 0123);
    }
}

/// A cabin on the far shore, with light in its windows.
void drawCabin(Brush &brush)
{
    const QPoint at(74, Shore - 20);
    for (int y = 0; y < 11; ++y) {
        for (int x = -y - 3; x <= y + 23; ++x)
            brush.dot(at.x() + x, at.y() - 10 + y,
                      (x + y * 3) % 5 == 0 ? 0111
                      : y < 2              ? 0222
                                           : 0101);
    }
    for (int y = 1; y < 20; ++y)
        brush.fill(QRect(at.x() - 10, at.y() + y, 41, 1), y % 4 == 0 ? 0100 : 0210);
    brush.fill(QRect(at.x() + 22, at.y() - 14, 6, 11), 0222);
    for (const int x : {-5, 17}) {
        brush.fill(QRect(at.x() + x, at.y() + 6, 9, 8), 0100);
        brush.fill(QRect(at.x() + x + 1, at.y() + 7, 3, 6), 0761);
        brush.fill(QRect(at.x() + x + 5, at.y() + 7, 3, 6), 0762);
    }
    brush.fill(QRect(at.x() + 7, at.y() + 8, 7, 12), 0100);
    for (int puff = 0; puff < 9; ++puff)
        brush.glow({at.x() + 25 + puff * puff / 5, at.y() - 18 - puff * 5}, 4 + puff, 0324);
    brush.glow(at + QPoint(0, 10), 8, 0641);
    brush.glow(at + QPoint(21, 10), 8, 0641);
}

/// The lake shows the picture above it upside down, darker, and torn by ripples.
void drawLake(Brush &brush)
{
    const QImage above = brush.picture();
    for (int y = Shore; y < Size.height(); ++y) {
        const int depth = y - Shore;
        for (int x = 0; x < Size.width(); ++x) {
            const int ripple = (Brush::cloudNoise(x, y * 7, 40, 8) - 128) * depth / 260;
            const int mirror = std::clamp(Shore - 1 - depth * 9 / 4 + ripple / 3, 0, Shore - 1);
            const int column = std::clamp(x + ripple, 0, Size.width() - 1);
            const QRgb seen = above.pixel(column, mirror);
            const int red = std::max(0, (qRed(seen) * 7 + 127) / 255 - 1);
            const int green = std::max(0, (qGreen(seen) * 7 + 127) / 255 - 1);
            const int blue = (qBlue(seen) * 7 + 127) / 255;
            brush.dot(x, y, red << 6 | green << 3 | blue);
        }
    }
    for (int streak = 0; streak < 90; ++streak) {
        const int y = Shore + 3 + Brush::noise(streak, 1, 6) * 68 / 256;
        const int spread = 8 + (y - Shore) / 2;
        const int x = Moon.x() - spread + Brush::noise(streak, 2, 6) * spread * 2 / 256;
        const int length = 3 + Brush::noise(streak, 3, 6) % 10;
        brush.fill(QRect(x - length / 2, y, length, 1), streak % 3 ? 0657 : 0777);
    }
}

} // namespace

void Examples::makeTitle(Project *project)
{
    Brush brush(Size);
    drawSky(brush);
    drawMoon(brush);
    drawRidge(brush, 66, 92, 110, 21, {0113, 0214, 0325, 0436, 0546, 0646});
    drawRidge(brush, 108, 64, 80, 14, {0012, 0113, 0123, 0224, 0325, 0435});
    drawForest(brush);
    drawCabin(brush);
    drawLake(brush);
    drawTitleForeground(brush);
    Lettering::draw(brush, {22, 20}, QStringLiteral("LANTERN"), 3);
    Lettering::draw(brush, {22, 48}, QStringLiteral("HOLLOW"), 3);

    NxImage converter;
    converter.setImage(brush.picture());
    const QImage indexed = converter.toIndexed();
    const auto palette = project->createPalette(CreateBlank, QStringLiteral("Title colours"));
    const QList<QRgb> colours = indexed.colorTable();
    for (int index = 0; index < colours.size(); ++index)
        palette->setColour(index, QColor(colours.at(index)));
    const auto image = project->createImage(Tessaril::ImageMode::Layer2_320x256,
                                            QStringLiteral("Title"), palette->id());
    image->setImage(indexed);
}
