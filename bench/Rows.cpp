#include "bench/Rows.h"

#include <QByteArray>
#include <QImage>
#include <QPainter>

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

Bench::Work Bench::pictureOf(QSize size)
{
    QImage ready(size, QImage::Format_RGB32);
    ready.fill(Qt::darkCyan);
    const auto target = std::make_shared<QImage>(size, QImage::Format_RGB32);
    return [ready, target] {
        QPainter(target.get()).drawImage(0, 0, ready);
        benchmark::DoNotOptimize(target->constBits());
    };
}

std::vector<Bench::Row> Bench::allRows()
{
    std::vector<Row> rows;
    addMapRows(&rows);
    addMapPaintRows(&rows);
    addPictureRows(&rows);
    addProjectRows(&rows);
    addPaintingRows(&rows);
    addCanvasRows(&rows);
    addPickerRows(&rows);
    addPaletteRows(&rows);
    addImportRows(&rows);
    return rows;
}
