#include "canvas/PixelScaler.h"

#include <algorithm>
#include <array>
#include <cstring>

void PixelScaler::scale(const QImage &image, const QRect &source, QSize pixelSize, QImage *target)
{
    const QSize size(source.width() * pixelSize.width(), source.height() * pixelSize.height());
    if (target->size() != size || target->format() != QImage::Format_RGB32)
        *target = QImage(size, QImage::Format_RGB32);
    if (target->isNull())
        return;

    std::array<QRgb, 256> colours;
    colours.fill(qRgb(0, 0, 0));
    for (int i = 0; i < std::min(image.colorCount(), 256); ++i)
        colours[static_cast<size_t>(i)] = image.color(i) | 0xFF000000;

    for (int y = 0; y < source.height(); ++y) {
        const uchar *const from = image.constScanLine(source.top() + y) + source.left();
        auto *const first = reinterpret_cast<QRgb *>(target->scanLine(y * pixelSize.height()));
        QRgb *to = first;
        for (int x = 0; x < source.width(); ++x)
            to = std::fill_n(to, pixelSize.width(), colours[from[x]]);
        for (int copy = 1; copy < pixelSize.height(); ++copy)
            std::memcpy(target->scanLine(y * pixelSize.height() + copy), first,
                        static_cast<size_t>(size.width()) * sizeof(QRgb));
    }
}
