#include "bench/Rows.h"

#include <QByteArray>

#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>

Bench::Work Bench::copyOf(qsizetype bytes)
{
    const QByteArray source(bytes, 'x');
    const auto target = std::make_shared<QByteArray>(bytes, 'y');
    return [source, target] {
        std::memcpy(target->data(), source.constData(), static_cast<size_t>(source.size()));
        benchmark::DoNotOptimize(target->data());
        benchmark::ClobberMemory();
    };
}

std::vector<Bench::Row> Bench::allRows()
{
    std::vector<Row> rows;
    addMapRows(&rows);
    addPictureRows(&rows);
    addProjectRows(&rows);
    addPaintingRows(&rows);
    return rows;
}
