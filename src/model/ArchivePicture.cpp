#include "model/ArchivePicture.h"

#include <QBuffer>
#include <QImageReader>

#include <cstring>

namespace ArchivePicture {

namespace {

constexpr int ColourCount = 256;
constexpr QRgb Black = qRgb(0, 0, 0);

QList<QRgb> greyRamp()
{
    QList<QRgb> ramp(ColourCount);
    for (int i = 0; i < ColourCount; ++i)
        ramp[i] = qRgb(i, i, i);
    return ramp;
}

/// A table with which Qt writes a palette PNG. A plain grey ramp would make it a grey one, so the
/// last of its colours gives way by one step of blue.
QList<QRgb> paletteTable(const QImage &image)
{
    QList<QRgb> table = filledUp(image.colorTable());
    if (table == greyRamp())
        table.last() = qRgb(255, 255, 254);
    return table;
}

QImage indicesOfGreys(const QImage &grey)
{
    QImage result(grey.size(), QImage::Format_Indexed8);
    result.setColorTable(greyRamp());
    for (int y = 0; y < grey.height(); ++y)
        std::memcpy(result.scanLine(y), grey.constScanLine(y), static_cast<size_t>(grey.width()));
    return result;
}

} // namespace

QList<QRgb> filledUp(QList<QRgb> table)
{
    const qsizetype given = table.size();
    table.resize(ColourCount);
    for (qsizetype i = given; i < ColourCount; ++i)
        table[i] = Black;
    return table;
}

QByteArray encoded(const QImage &image)
{
    QImage picture = image;
    if (picture.format() == QImage::Format_Indexed8)
        picture.setColorTable(paletteTable(image));
    QBuffer buffer;
    if (!buffer.open(QIODevice::WriteOnly) || !picture.save(&buffer, "PNG"))
        return {};
    return buffer.data();
}

qint64 maxSize()
{
    constexpr qint64 Megabyte = 1024 * 1024;
    const qint64 pixels = QImageReader::allocationLimit() * Megabyte;
    // What cannot be packed grows by a little, each line by its filter's byte.
    return pixels + pixels / 8;
}

QImage decoded(const QByteArray &png)
{
    QBuffer buffer;
    buffer.setData(png);
    QImageReader reader(&buffer, "png");
    reader.setAutoDetectImageFormat(false);
    return reader.read();
}

std::optional<QImage> decodedIndices(const QByteArray &png)
{
    QImage image = decoded(png);
    if (image.format() == QImage::Format_Grayscale8)
        return indicesOfGreys(image);
    if (image.isNull() || image.format() != QImage::Format_Indexed8)
        return std::nullopt;
    image.setColorTable(filledUp(image.colorTable()));
    return image;
}

} // namespace ArchivePicture
