#include "examples/Figures.h"

#include "examples/Brush.h"

#include <array>

namespace {

constexpr int Unused = 0707; // at the transparent value

/// Frames drawn as their left half.
QStringList bothHalves(const QStringList &left)
{
    QStringList rows;
    for (const QString &half : left) {
        QString row = half;
        for (auto letter = half.crbegin(); letter != half.crend(); ++letter)
            row += *letter;
        rows += row;
    }
    return rows;
}

QStringList withLegs(const QStringList &body, const QStringList &legs)
{
    return body + legs;
}

const QStringList &body()
{
    static const QStringList rows = {
        "......00000.....", "....002244200...", "...02224442220..", "..0222242222220.",
        "..01222255550...", "..01122555050...", "..01122655550...", "...011226660....",
        "...0012222100...", "..0788111887000.", "..07888888870C0.", "..06788888760D0.",
        "...0778887700C0.",
    };
    return rows;
}

QString coinRow(int y, int half)
{
    constexpr int Radius = 6;
    QString row(Figures::Side, '.');
    for (int x = -half; x < half; ++x) {
        const int wide = (2 * x + 1) * Radius / (2 * half);
        const int distance = wide * wide * 4 + (2 * y + 1) * (2 * y + 1);
        if (distance > 4 * Radius * Radius + 8)
            continue;
        const bool rim = distance > 4 * (Radius - 1) * (Radius - 1) - 8;
        const bool mark = half > 3 && wide > -2 && wide < 2 && y > -4 && y < 3;
        row[8 + x] = rim ? '0' : mark ? '1' : x + y < -2 ? '4' : '2';
    }
    return row;
}

} // namespace

const QList<QStringList> &Figures::bearer()
{
    static const QList<QStringList> frames = {
        withLegs(body(), {"....099009900...", "....09A009A0....", "....0000.0000..."}),
        withLegs(body(), {"...0990..0990...", "..09A0....09A0..", "..0000....0000.."}),
        withLegs(body(), {"....0999990.....", "....09A9A00.....", "....0000000....."}),
    };
    return frames;
}

const QList<QStringList> &Figures::slime()
{
    static const QList<QStringList> frames = {
        bothHalves({"........", "........", "........", "........", "......00", "....0011",
                    "...01122", "..011221", "..012211", ".0112111", ".0111B01", ".0111B01",
                    ".0111111", "05111111", "05511111", ".0000000"}),
        bothHalves({"........", "........", "........", "........", "........", "........",
                    "........", ".....000", "...00112", "..011221", ".0112211", ".0111B01",
                    "01111B01", "05111111", "05551111", ".0000000"}),
    };
    return frames;
}

const QList<QStringList> &Figures::bat()
{
    static const QList<QStringList> frames = {
        bothHalves({"........", "00......", "0100....", "01110..0", "01211000", "01122111",
                    "00112121", ".0011C01", "..001111", "....011B", ".....011", "......00",
                    "........", "........", "........", "........"}),
        bothHalves({"........", "........", "........", ".......0", ".....000", "....0111",
                    "...01121", ".0011C01", "01121111", "0121011B", "0110.011", "010...00",
                    "00......", "........", "........", "........"}),
    };
    return frames;
}

QList<QStringList> Figures::coin()
{
    QList<QStringList> frames;
    for (const int half : {6, 5, 2, 5}) {
        QStringList rows;
        for (int y = -8; y < 8; ++y)
            rows += coinRow(y, half);
        frames += rows;
    }
    return frames;
}

const QList<int> &Figures::bearerColours()
{
    static const QList<int> colours = {0001, 0400, 0610, Unused, 0732, 0754, 0642, 0013,
                                       0135, 0310, 0521, 0777,   0760, 0775, 0333, 0555};
    return colours;
}

const QList<int> &Figures::coinColours()
{
    static const QList<int> colours = {0310, 0530, 0751, Unused, 0775, 0640};
    return colours;
}

const QList<int> &Figures::slimeColours()
{
    static const QList<int> colours = {0010, 0151, 0373, Unused, 0575, 0031, 0, 0, 0, 0, 0, 0777};
    return colours;
}

const QList<int> &Figures::frostSlimeColours()
{
    static const QList<int> colours = {0002, 0146, 0267, Unused, 0577, 0024, 0, 0, 0, 0, 0, 0777};
    return colours;
}

const QList<int> &Figures::batColours()
{
    static const QList<int> colours = {0001, 0203, 0415, Unused, 0626, 0,   0,
                                       0,    0,    0,    0,      0777, 0760};
    return colours;
}

void Figures::draw(Brush &brush, QPoint at, const QStringList &frame, const QList<int> &colours)
{
    Brush::Legend legend;
    for (int value = 0; value < colours.size(); ++value)
        legend.insert(QString::number(value, 16).toUpper().at(0), colours.at(value));
    legend.remove('3'); // the transparent value
    brush.stamp(at, frame, legend);
}
