#include "support/TestImages.h"

QImage TestImages::indexed(const QStringList &rows)
{
    const int width = rows.isEmpty() ? 0 : static_cast<int>(rows.first().size());
    QImage image(width, static_cast<int>(rows.size()), QImage::Format_Indexed8);
    QList<QRgb> colours;
    for (int index = 0; index < 256; ++index)
        colours.append(indexColour(index));
    image.setColorTable(colours);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, rows.at(y).mid(x, 1).toUInt(nullptr, 16));
    }
    return image;
}

QRgb TestImages::indexColour(int index)
{
    return qRgb(index, 255 - index, 128);
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

QImage TestImages::coloured(const QStringList &rows)
{
    const int width = rows.isEmpty() ? 0 : static_cast<int>(rows.first().size());
    QImage image(width, static_cast<int>(rows.size()), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, colour(rows.at(y).mid(x, 1).toInt(nullptr, 16)));
    }
    return image;
}

QRgb TestImages::colour(int digit)
{
    return qRgb(digit * 16, 240 - digit * 16, 64);
}

QImage TestImages::distinctSquares(int count, int columns)
{
    constexpr int Side = 8;
    const int rows = (count + columns - 1) / columns;
    QImage image(columns * Side, rows * Side, QImage::Format_RGB32);
    image.fill(colour(1));
    for (int number = 0; number < count; ++number) {
        const QPoint corner(number % columns * Side, number / columns * Side);
        // Three pixels along one edge and two along the other: no turn brings that corner back.
        for (const QPoint mark : {QPoint(0, 0), QPoint(1, 0), QPoint(2, 0), QPoint(0, 1)})
            image.setPixel(corner + mark, colour(2));
        for (int bit = 0; bit < 16; ++bit) {
            if (number >> bit & 1)
                image.setPixel(corner + QPoint(2 + bit % 4, 2 + bit / 4), colour(2));
        }
    }
    return image;
}
