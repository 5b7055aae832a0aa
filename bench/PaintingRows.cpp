#include "bench/Rows.h"

#include "canvas/Raster.h"

#include <QImage>

#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <random>

namespace {

using Bench::Pair;
using Bench::Row;
using Bench::Work;

constexpr uchar Floor = 0;
constexpr uchar Wall = 1;
constexpr uchar Paint = 2;

using Pattern = std::function<uchar(int x, int y)>;

QImage drawn(QSize size, const Pattern &pattern)
{
    QImage image(size, QImage::Format_Indexed8);
    image.setColorCount(256);
    for (int y = 0; y < size.height(); ++y) {
        uchar *const row = image.scanLine(y);
        for (int x = 0; x < size.width(); ++x)
            row[x] = pattern(x, y);
    }
    return image;
}

uchar blank(int, int)
{
    return Floor;
}

/// Walls at random on a third of the pixels, but never in the way from the top to the rest.
Pattern caves()
{
    const auto random = std::make_shared<std::mt19937>(20261015);
    return [random](int, int y) { return y > 0 && (*random)() % 3 == 0 ? Wall : Floor; };
}

/// One way, a pixel wide, up and down through the whole picture.
Pattern corridor(int height)
{
    return [height](int x, int y) {
        if (x % 2 == 0)
            return Floor;
        const bool turnsBelow = x % 4 == 1;
        return y == (turnsBelow ? height - 1 : 0) ? Floor : Wall;
    };
}

uchar lattice(int x, int y)
{
    return x % 2 == 1 && y % 2 == 1 ? Wall : Floor;
}

/// A fill, less nothing: each repetition fills a fresh copy, and so does the bound.
Row fill(const std::string &kind, QSize size, double budget, const Pattern &pattern)
{
    const std::string input =
        kind + ", " + std::to_string(size.width()) + " x " + std::to_string(size.height());
    return {"flood fill", input, budget, [size, pattern] {
                const auto source = std::make_shared<QImage>(drawn(size, pattern));
                const auto target = std::make_shared<QImage>(source->copy());
                const auto index = std::make_shared<int>(Paint);
                // The area bears one index, so that the next fill finds it whole again.
                const Work measured = [target, index] {
                    *index = *index == Paint ? Paint + 1 : Paint;
                    Raster::floodFill(*target, {0, 0}, *index);
                    benchmark::DoNotOptimize(target->constBits());
                };
                const auto bytes = std::make_shared<QByteArray>(source->sizeInBytes(), 'x');
                const Work bound = [bytes] {
                    std::memset(bytes->data(), Paint, static_cast<size_t>(bytes->size()));
                    benchmark::DoNotOptimize(bytes->data());
                    benchmark::ClobberMemory();
                };
                return Pair{measured, bound};
            }};
}

} // namespace

void Bench::addPaintingRows(std::vector<Row> *rows)
{
    for (const QSize size : {QSize(640, 256), QSize(1024, 1024), QSize(2048, 2048)}) {
        rows->push_back(fill("one blank area", size, 50, blank));
        rows->push_back(fill("irregular caves", size, 250, caves()));
        rows->push_back(fill("a corridor of one pixel", size, 200, corridor(size.height())));
        rows->push_back(fill("a lattice of small branches", size, 400, lattice));
    }
}
