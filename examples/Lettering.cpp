#include "examples/Lettering.h"

#include "examples/Brush.h"

#include <functional>

namespace {

constexpr int LetterWidth = 7; // of the letter's pixels
constexpr int LetterHeight = 9;

const QHash<QChar, QStringList> &letters()
{
    static const QHash<QChar, QStringList> all = {
        {'A',
         {"..###..", ".#####.", "##...##", "##...##", "#######", "#######", "##...##", "##...##",
          "##...##"}},
        {'E',
         {"#######", "#######", "##.....", "#####..", "#####..", "##.....", "##.....", "#######",
          "#######"}},
        {'H',
         {"##...##", "##...##", "##...##", "#######", "#######", "##...##", "##...##", "##...##",
          "##...##"}},
        {'L',
         {"##.....", "##.....", "##.....", "##.....", "##.....", "##.....", "##.....", "#######",
          "#######"}},
        {'N',
         {"##...##", "###..##", "####.##", "####.##", "##.####", "##.####", "##..###", "##...##",
          "##...##"}},
        {'O',
         {".#####.", "#######", "##...##", "##...##", "##...##", "##...##", "##...##", "#######",
          ".#####."}},
        {'R',
         {"######.", "#######", "##...##", "##...##", "######.", "#####..", "##.###.", "##..###",
          "##...##"}},
        {'T',
         {"#######", "#######", "..###..", "..###..", "..###..", "..###..", "..###..", "..###..",
          "..###.."}},
        {'W',
         {"##...##", "##...##", "##...##", "##.#.##", "##.#.##", "#######", "#######", "###.###",
          "##...##"}},
    };
    return all;
}

/// Calls @p paint for each big pixel of the text, with its place on the picture and its row.
void eachPixel(QPoint at, const QString &text, int scale,
               const std::function<void(QRect, int)> &paint)
{
    for (int letter = 0; letter < text.size(); ++letter) {
        const QStringList rows = letters().value(text.at(letter));
        for (int y = 0; y < rows.size(); ++y) {
            for (int x = 0; x < LetterWidth; ++x) {
                const QPoint place(letter * (LetterWidth + 1) + x, y);
                if (rows.at(y).at(x) == '#')
                    paint(QRect(at + place * scale, QSize(scale, scale)), y);
            }
        }
    }
}

} // namespace

void Lettering::draw(Brush &brush, QPoint at, const QString &text, int scale)
{
    const QList<int> shine = {0777, 0774, 0762, 0751, 0640, 0520, 0410};
    eachPixel(at, text, scale, [&](QRect pixel, int) {
        brush.fill(pixel.translated(scale, scale).adjusted(-1, -1, 2, 2), 0001);
    });
    eachPixel(at, text, scale,
              [&](QRect pixel, int) { brush.fill(pixel.adjusted(-2, -2, 2, 2), 0200); });
    eachPixel(at, text, scale, [&](QRect pixel, int row) {
        for (int y = pixel.top(); y <= pixel.bottom(); ++y) {
            const int place = row * scale + y - pixel.top();
            for (int x = pixel.left(); x <= pixel.right(); ++x)
                brush.dot(x, y, Brush::ramp(shine, place, LetterHeight * scale, x, y));
        }
    });
}
