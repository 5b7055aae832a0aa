#include "support/TestImages.h"

QImage TestImages::indexed(const QStringList &rows)
{
    const int width = rows.isEmpty() ? 0 : static_cast<int>(rows.first().size());
    QImage image(width, static_cast<int>(rows.size()), QImage::Format_Indexed8);
    image.setColorTable(QList<QRgb>(256, qRgb(0, 0, 0)));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, rows.at(y).mid(x, 1).toUInt(nullptr, 16));
    }
    return image;
}

QStringList TestImages::rows(const QImage &image)
{
    QStringList rows;
    for (int y = 0; y < image.height(); ++y) {
        QString row;
        for (int x = 0; x < image.width(); ++x)
            row += QString::number(image.pixelIndex(x, y) & 15, 16);
        rows += row;
    }
    return rows;
}
