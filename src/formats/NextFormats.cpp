#include "formats/NextFormats.h"

#include "model/Tile.h"

namespace {

constexpr uint NibbleMask = 0x0F;

// The second byte of a map cell.
constexpr uint IndexHighBit = 0x01;
constexpr int RotateShift = 1;
constexpr int FlipShift = 2;
constexpr int MirrorShift = 3;
constexpr int OffsetShift = 4;

char toByte(uint value)
{
    return static_cast<char>(static_cast<uchar>(value));
}

char attributeByte(const TileMap::TileData &cell)
{
    return toByte(((static_cast<uint>(cell.index) >> 8) & IndexHighBit) |
                  static_cast<uint>(cell.rotate) << RotateShift |
                  static_cast<uint>(cell.flip) << FlipShift |
                  static_cast<uint>(cell.mirror) << MirrorShift |
                  static_cast<uint>(cell.offset) << OffsetShift);
}

} // namespace

bool NextFormats::isNpl(const QString &fileName)
{
    return fileName.endsWith(QLatin1String(".npl"), Qt::CaseInsensitive);
}

QByteArray NextFormats::paletteBytes(const PaletteWords &words)
{
    QByteArray bytes;
    bytes.reserve(PaletteBytes + 1);
    for (const quint16 word : words) {
        bytes.append(toByte(word >> 8u));
        bytes.append(toByte(word));
    }
    return bytes;
}

NextFormats::PaletteWords NextFormats::paletteWords(const QByteArray &data)
{
    PaletteWords words;
    qsizetype place = 0;
    for (quint16 &word : words) {
        const uint high = static_cast<uchar>(data.at(place));
        const uint low = static_cast<uchar>(data.at(place + 1));
        word = static_cast<quint16>(high << 8 | low);
        place += 2;
    }
    return words;
}

QByteArray NextFormats::tileBytes(const QImage &tile)
{
    QByteArray bytes;
    bytes.reserve(TileBytes);
    for (int y = 0; y < Tile::Side; ++y) {
        const uchar *line = tile.constScanLine(y);
        for (int x = 0; x < Tile::Side; x += 2)
            bytes.append(toByte(static_cast<uint>(line[x]) << 4 | (line[x + 1] & NibbleMask)));
    }
    return bytes;
}

QImage NextFormats::tileImage(const QByteArray &data, qsizetype offset,
                              const QList<QRgb> &colourTable)
{
    QImage image = Tile::blankImage(colourTable);
    for (int y = 0; y < Tile::Side; ++y) {
        uchar *line = image.scanLine(y);
        for (int x = 0; x < Tile::Side; x += 2) {
            const uchar pair = static_cast<uchar>(data.at(offset++));
            line[x] = pair >> 4;
            line[x + 1] = pair & NibbleMask;
        }
    }
    return image;
}

QByteArray NextFormats::pixelBytes(const QImage &image)
{
    QByteArray bytes;
    if (image.format() != QImage::Format_Indexed8)
        return bytes;

    bytes.reserve(static_cast<qsizetype>(image.width()) * image.height());
    for (int y = 0; y < image.height(); ++y)
        bytes.append(reinterpret_cast<const char *>(image.constScanLine(y)), image.width());
    return bytes;
}

QByteArray NextFormats::mapBytes(const TileMap::Rows &rows)
{
    QByteArray bytes;
    if (!rows.isEmpty())
        bytes.reserve(rows.size() * rows.first().size() * MapCellBytes);
    for (const auto &row : rows) {
        for (const TileMap::TileData &cell : row) {
            bytes.append(toByte(static_cast<uint>(cell.index)));
            bytes.append(attributeByte(cell));
        }
    }
    return bytes;
}
