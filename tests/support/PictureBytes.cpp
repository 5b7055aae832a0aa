#include "support/PictureBytes.h"

#include "support/ZipBytes.h"

#include <QList>
#include <QPair>
#include <QPoint>
#include <QtEndian>

namespace PictureBytes {

namespace {

QByteArray number(int value)
{
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian<qint32>(value, bytes.data());
    return bytes;
}

template <typename Number>
QByteArray little(Number value)
{
    QByteArray bytes(sizeof(Number), Qt::Uninitialized);
    qToLittleEndian<Number>(value, bytes.data());
    return bytes;
}

QByteArray chunk(const QByteArray &name, const QByteArray &data, const Png &png)
{
    const quint32 crc = ZipBytes::crc32(name + data) ^ (png.bad == name ? 1u : 0u);
    return number(int(data.size())) + name + data + number(int(crc));
}

int channelsOf(Png::ColourType type)
{
    switch (type) {
    case Png::Rgb:
        return 3;
    case Png::GreyAlpha:
        return 2;
    case Png::RgbAlpha:
        return 4;
    default:
        return 1;
    }
}

/// One pass over every @p step'th pixel: a filter byte of 0 and the bytes of each line.
QByteArray lines(QSize size, QPoint first, QPoint step, const Png &png)
{
    const int columns = (size.width() - first.x() + step.x() - 1) / step.x();
    const int bits = columns * channelsOf(png.type) * png.depth;
    QByteArray data;
    for (int y = first.y(); columns > 0 && y < size.height(); y += step.y())
        data += '\0' + QByteArray((bits + 7) / 8, char(y % 16));
    return data;
}

QByteArray pixels(QSize size, const Png &png)
{
    if (!png.isInterlaced)
        return lines(size, {0, 0}, {1, 1}, png);
    QByteArray data;
    const QList<QPair<QPoint, QPoint>> passes{{{0, 0}, {8, 8}}, {{4, 0}, {8, 8}}, {{0, 4}, {4, 8}},
                                              {{2, 0}, {4, 4}}, {{0, 2}, {2, 4}}, {{1, 0}, {2, 2}},
                                              {{0, 1}, {1, 2}}};
    for (const auto &[first, step] : passes)
        data += lines(size, first, step, png);
    return data;
}

/// Codes of three bits for pixels of one colour: with a new table before each pair of pixels, no
/// code ever grows.
QByteArray gifCodes(int pixelCount, int colour)
{
    constexpr int Clear = 4;
    constexpr int End = 5;
    QList<int> codes;
    for (int i = 0; i < pixelCount; ++i) {
        if (i % 2 == 0)
            codes += Clear;
        codes += colour;
    }
    codes += End;
    QByteArray bytes((codes.size() * 3 + 7) / 8, '\0');
    for (qsizetype i = 0; i < codes.size() * 3; ++i) {
        if (codes.at(i / 3) >> (i % 3) & 1)
            bytes[i / 8] = char(bytes.at(i / 8) | 1 << (i % 8));
    }
    return bytes;
}

QByteArray gifFrame(QSize size, int colour)
{
    constexpr int MaxBlock = 255; // bytes
    QByteArray frame = QByteArray("\x21\xf9\x04\x04\x0a\0\0\0", 8) + QByteArray("\x2c\0\0\0\0", 5) +
                       little(quint16(size.width())) + little(quint16(size.height())) +
                       QByteArray("\0\2", 2);
    const QByteArray codes = gifCodes(size.width() * size.height(), colour);
    for (qsizetype at = 0; at < codes.size(); at += MaxBlock) {
        const QByteArray block = codes.mid(at, MaxBlock);
        frame += char(block.size()) + block;
    }
    return frame + '\0';
}

} // namespace

QByteArray png(QSize asked, const Png &png)
{
    const QSize size = asked + png.change;
    const QSize claimed = png.claimed.isValid() ? png.claimed : size;
    const QByteArray header = number(claimed.width()) + number(claimed.height()) + char(png.depth) +
                              char(png.type) + '\0' + '\0' + char(png.isInterlaced ? 1 : 0);
    QByteArray file("\x89PNG\r\n\x1a\n", 8);
    file += chunk("IHDR", header, png);
    if (png.type == Png::Indexed)
        file += chunk("PLTE", QByteArray(3 * png.colours, '\x7f'), png);
    file += chunk("IDAT", qCompress(pixels(size, png)).mid(4), png);
    return file + chunk("IEND", {}, png);
}

QByteArray gif(QSize size, int frames)
{
    QByteArray file = "GIF89a" + little(quint16(size.width())) + little(quint16(size.height())) +
                      QByteArray("\x81\0\0", 3) +
                      QByteArray("\0\0\0\xff\xff\xff\x7f\0\0\0\x7f\0", 12) +
                      QByteArray("\x21\xff\x0bNETSCAPE2.0\x03\x01\0\0\0", 19);
    for (int frame = 0; frame < frames; ++frame)
        file += gifFrame(size, frame % 2);
    return file + ';';
}

QByteArray bmp(QSize claimed, int pixelBytes)
{
    constexpr quint32 HeaderBytes = 54;
    return "BM" + little(quint32(HeaderBytes + quint32(pixelBytes))) + little(quint32(0)) +
           little(HeaderBytes) + little(quint32(40)) + little(qint32(claimed.width())) +
           little(qint32(claimed.height())) + little(quint16(1)) + little(quint16(24)) +
           QByteArray(24, '\0') + QByteArray(pixelBytes, '\x40');
}

QByteArray ico(int count, const QByteArray &picture, quint32 claimedSize, quint32 offset)
{
    return QByteArray("\0\0\1\0", 4) + little(quint16(count)) +
           QByteArray("\x10\x10\0\0\1\0\x18\0", 8) + little(claimedSize) + little(offset) + picture;
}

} // namespace PictureBytes
