#include "bench/Inputs.h"
#include "bench/Rows.h"

#include "formats/NxImage.h"
#include "formats/PictureImport.h"
#include "model/Palette.h"
#include "model/Project.h"

#include <benchmark/benchmark.h>

namespace {

using Bench::Pair;
using Bench::Row;
using Bench::Work;

constexpr QSize Small(256, 192); // pixels
constexpr QSize Wide(640, 256);
constexpr QSize Large(2048, 2048);

std::string text(QSize size)
{
    return std::to_string(size.width()) + " x " + std::to_string(size.height());
}

qsizetype area(QSize size)
{
    return qsizetype(size.width()) * size.height();
}

/// From the decoded picture to palette, tile set and map in a new project.
Work importOf(const QImage &picture)
{
    return [picture] {
        Project project;
        PictureImport work(picture, QStringLiteral("picture"));
        benchmark::DoNotOptimize(work.run(&project).tileCount);
    };
}

Work copyOf(QSize size)
{
    return Bench::copyOf(area(size) * qsizetype(sizeof(QRgb)));
}

Row imported(QSize size, double budget)
{
    return {"picture of 512 tiles to map", text(size), budget, [size] {
                return Pair{importOf(Bench::pictureOfTiles(size)), copyOf(size)};
            }};
}

/// The bound is the smaller picture; a square may cost half as much again in the larger one.
Row growth()
{
    const double squares = static_cast<double>(area(Large)) / static_cast<double>(area(Wide));
    return {"the same, against a smaller", text(Large) + " to " + text(Wide), 1.5 * squares, [] {
                return Pair{importOf(Bench::pictureOfTiles(Large)),
                            importOf(Bench::pictureOfTiles(Wide))};
            }};
}

/// The smaller ones only show how it grows.
double budgetOf(QSize size, double budget)
{
    return size == Large ? budget : Bench::NoBudget;
}

Row refused(QSize size)
{
    return {"photo refused as a map", text(size), budgetOf(size, 40), [size] {
                return Pair{importOf(Bench::photo(size)), copyOf(size)};
            }};
}

Row matched(QSize size)
{
    return {"colours snapped and matched", text(size) + ", each pixel its own", budgetOf(size, 16),
            [size] {
                const QImage picture = Bench::pictureOfColours(size);
                const auto palette = std::make_shared<Palette>();
                palette->setDefaultColours();
                const Work measured = [picture, palette] {
                    NxImage converted;
                    converted.setImage(picture);
                    benchmark::DoNotOptimize(converted.remap(palette.get()));
                };
                return Pair{measured, copyOf(size)};
            }};
}

} // namespace

void Bench::addPictureRows(std::vector<Row> *rows)
{
    rows->push_back(imported(Small, Bench::NoBudget));
    rows->push_back(imported(Wide, Bench::NoBudget));
    rows->push_back(imported(Large, 40));
    rows->push_back(growth());
    for (const QSize size : {QSize(512, 512), QSize(1024, 1024), Large}) {
        rows->push_back(refused(size));
        rows->push_back(matched(size));
    }
}
