// The conversions of the core as a program, from files to files, for tools/bench-peers.
//
//   tessaril_convert inputs FOLDER             writes the inputs
//   tessaril_convert import PICTURE FOLDER     a picture to palette, tiles and map of the Next
//   tessaril_convert remap PICTURE OUT         a picture to the colours of the start-up palette
//   tessaril_convert fill PICTURE X Y INDEX OUT
//   tessaril_convert time-fill PICTURE X Y     prints the milliseconds of a fill in memory
//   tessaril_convert draw PROJECT OUT          the first map, 8 pixels a cell
//   tessaril_convert compare ONE OTHER SOURCE  prints how many pixels differ, and how many of them
//                                              not only by the choice between equally near colours
//
// Exits with 1 if something cannot be read or written, with 2 for anything else.

#include "bench/peers/ConvertInputs.h"

#include "canvas/Raster.h"
#include "formats/NxImage.h"
#include "formats/PictureImport.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/TileSet.h"
#include "store/ProjectStore.h"

#include <QCoreApplication>
#include <QDir>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>

namespace {

constexpr int TimedFills = 21;

QImage read(const QString &fileName)
{
    return QImage(fileName);
}

bool import(const QStringList &arguments)
{
    Project project;
    PictureImport work(arguments.at(0));
    const PictureImport::Outcome outcome = work.run(&project);
    const QDir folder(arguments.at(1));
    return outcome.map &&
           outcome.palette->exportData(folder.filePath(QStringLiteral("level.pal"))) &&
           outcome.tileSet->exportData(folder.filePath(QStringLiteral("level.nxt"))) &&
           outcome.map->exportData(folder.filePath(QStringLiteral("level.map")));
}

bool remap(const QStringList &arguments)
{
    Palette palette;
    palette.setDefaultColours();
    NxImage picture;
    picture.setImage(read(arguments.at(0)));
    return picture.remap(&palette).save(arguments.at(1));
}

bool fill(const QStringList &arguments)
{
    QImage picture = read(arguments.at(0));
    const QPoint start(arguments.at(1).toInt(), arguments.at(2).toInt());
    return picture.format() == QImage::Format_Indexed8 &&
           Raster::floodFill(picture, start, arguments.at(3).toInt()) &&
           picture.save(arguments.at(4));
}

bool timeFill(const QStringList &arguments)
{
    const QImage picture = read(arguments.at(0));
    const QPoint start(arguments.at(1).toInt(), arguments.at(2).toInt());
    QList<double> times;
    for (int i = 0; i < TimedFills; ++i) {
        QImage copy = picture.copy();
        const std::clock_t begin = std::clock(); // of the processor
        if (!Raster::floodFill(copy, start, 2))
            return false;
        times.append(1e3 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
    }
    std::sort(times.begin(), times.end());
    std::printf("%.3f\n", times.at(TimedFills / 2));
    return true;
}

bool draw(const QStringList &arguments)
{
    ProjectStore store;
    if (!store.load(arguments.at(0)) || store.project()->maps().isEmpty())
        return false;
    TileMap *const layer = store.project()->maps().first()->tileLayer();
    return layer->picture(layer->rect(), TileMap::CellSide, -1).save(arguments.at(1));
}

int distance(QRgb one, QRgb other)
{
    const int red = qRed(one) - qRed(other);
    const int green = qGreen(one) - qGreen(other);
    const int blue = qBlue(one) - qBlue(other);
    return red * red + green * green + blue * blue;
}

bool compare(const QStringList &arguments)
{
    QImageReader::setAllocationLimit(0);
    std::array<QImage, 3> pictures;
    for (qsizetype i = 0; i < arguments.size(); ++i)
        pictures[static_cast<size_t>(i)] =
            read(arguments.at(i)).convertToFormat(QImage::Format_RGB32);
    const auto &[one, other, source] = pictures;
    if (one.isNull() || one.size() != other.size() || one.size() != source.size())
        return false;
    qint64 differing = 0;
    qint64 byDistance = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb ours = one.pixel(x, y);
            const QRgb theirs = other.pixel(x, y);
            if (ours == theirs)
                continue;
            const QRgb from = source.pixel(x, y);
            ++differing;
            byDistance += distance(ours, from) != distance(theirs, from) ? 1 : 0;
        }
    }
    std::printf("%lld %lld\n", static_cast<long long>(differing),
                static_cast<long long>(byDistance));
    return true;
}

struct Command
{
    const char *name;
    int arguments;
    bool (*run)(const QStringList &arguments);
};

const Command Commands[] = {
    {"inputs", 1, [](const QStringList &names) { return Bench::writeConvertInputs(names.at(0)); }},
    {"import", 2, import},
    {"remap", 2, remap},
    {"fill", 5, fill},
    {"time-fill", 3, timeFill},
    {"draw", 2, draw},
    {"compare", 3, compare},
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    for (const Command &command : Commands) {
        if (arguments.value(1) == QLatin1String(command.name) &&
            arguments.size() == 2 + command.arguments)
            return command.run(arguments.mid(2)) ? 0 : 1;
    }
    std::fputs("tessaril_convert: see the head of bench/peers/Convert.cpp\n", stderr);
    return 2;
}
