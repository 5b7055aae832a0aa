#include "formats/ImageSlicer.h"

#include "formats/NxImage.h"

#include <QCryptographicHash>
#include <QDebug>

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr QRgb Black = 0xFF000000;
constexpr int TableSize = 256; // colours
constexpr int NoBank = -1;

} // namespace

ImageSlicer::ImageSlicer(const QImage &image)
    : m_image(image)
    , m_columns(image.width() / TileSide)
    , m_rows(image.height() / TileSide)
    , m_squares(TileSide)
{
    reset();
}

void ImageSlicer::reset()
{
    m_squares = SquareIndex(TileSide);
    m_tiles.clear();
    m_cells.clear();
    m_banks.fill({QBitArray(BankSize), QList<QRgb>(BankSize, Black)}, BankCount);
}

QString ImageSlicer::hash(const QImage &square)
{
    const QByteArrayView bytes(square.constBits(), square.sizeInBytes());
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex());
}

QImage ImageSlicer::transformed(const QImage &square, bool rotate, bool flip, bool mirror)
{
    return NxImage::transformed(square, rotate, flip, mirror);
}

void ImageSlicer::sliceTiles()
{
    slice(TileSide);
}

void ImageSlicer::sliceSprites()
{
    slice(SpriteSide);
    for (Orientation &cell : m_cells)
        cell.flags = 0;
}

void ImageSlicer::slice(int side)
{
    reset();
    m_columns = m_image.width() / side;
    m_rows = m_image.height() / side;
    const QImage source = indexed();

    m_squares = SquareIndex(side);
    std::array<uchar, SpriteSide * SpriteSide> pixels;
    for (int row = 0; row < m_rows; ++row) {
        for (int column = 0; column < m_columns; ++column) {
            for (int y = 0; y < side; ++y) {
                const uchar *line = source.constScanLine(row * side + y) + column * side;
                std::copy_n(line, side, pixels.data() + y * side);
            }
            const Orientation cell = m_squares.place(pixels.data());
            if (cell.tile == m_tiles.size())
                m_tiles.append({picture(cell.tile, side)});
            m_cells.append(cell);
            emit processed(static_cast<int>(m_cells.size()) - 1);
        }
    }
}

QImage ImageSlicer::indexed()
{
    m_colours.clear();
    if (m_image.isNull())
        return {};

    NxImage converted;
    converted.setImage(m_image);
    const QImage picture = converted.toIndexed();
    m_colours = picture.colorTable();
    return picture;
}

QImage ImageSlicer::compacted(const uchar *pixels) const
{
    constexpr qint16 Unseen = -1;
    std::array<qint16, TableSize> places;
    places.fill(Unseen);
    QList<QRgb> table;
    table.reserve(TileSide * TileSide);
    QImage tile(TileSide, TileSide, QImage::Format_Indexed8);
    uchar *bytes = tile.bits();
    for (int pixel = 0; pixel < TileSide * TileSide; ++pixel) {
        const uchar index = pixels[pixel]; // No two of an indexed picture have one colour.
        if (places[index] == Unseen) {
            places[index] = static_cast<qint16>(table.size());
            table.append(m_colours.at(index));
        }
        bytes[pixel] = static_cast<uchar>(places[index]);
    }
    tile.setColorTable(table);
    return tile;
}

QImage ImageSlicer::picture(int tile, int side) const
{
    if (side == TileSide)
        return tile < MaxTiles ? compacted(m_squares.pixels(tile)) : QImage();

    QImage sprite(side, side, QImage::Format_Indexed8);
    sprite.setColorTable(m_colours);
    std::memcpy(sprite.bits(), m_squares.pixels(tile), static_cast<size_t>(side * side));
    return sprite;
}

bool ImageSlicer::assignBanks()
{
    for (int index = 0; index < m_tiles.size(); ++index) {
        Slice &tile = m_tiles[index];
        if (tile.image.isNull())
            tile.image = compacted(m_squares.pixels(index));
        const QList<QRgb> table = tile.image.colorTable();
        const int bank = bankFor(m_banks, table);
        if (bank == NoBank) {
            qWarning("Palette full!");
            return false;
        }
        tile.bank = bank;
        if (!deal(m_banks[bank], table)) {
            qWarning("Palette index out of range");
            return false;
        }
        tile.image = rebuilt(tile.image, m_banks.at(bank));
    }

    const QList<QRgb> joined = bankColours();
    for (Slice &tile : m_tiles)
        tile.image.setColorTable(joined);
    return true;
}

QList<QRgb> ImageSlicer::bankColours() const
{
    QList<QRgb> joined;
    for (const ColourBank &bank : m_banks)
        joined += bank.colours;
    return joined;
}

// The first bank that fits, never the best: tiles made of few colours must not be moved by others
// that come later.
int ImageSlicer::bankFor(const QList<ColourBank> &banks, const QList<QRgb> &table)
{
    for (int number = 0; number < banks.size(); ++number) {
        const ColourBank &bank = banks.at(number);
        qsizetype matches = 0;
        for (int slot = 0; slot < BankSize; ++slot) {
            if (bank.used.testBit(slot))
                matches += table.count(bank.colours.at(slot));
        }
        if (table.size() - matches <= bank.used.count(false))
            return number;
    }
    return NoBank;
}

bool ImageSlicer::deal(ColourBank &bank, const QList<QRgb> &table)
{
    for (const QRgb colour : table) {
        int slot = 0;
        while (slot < BankSize && bank.used.testBit(slot) && bank.colours.at(slot) != colour)
            ++slot;
        if (slot == BankSize)
            return false;

        bank.colours[slot] = colour;
        bank.used.setBit(slot);
    }
    return true;
}

QImage ImageSlicer::rebuilt(const QImage &tile, const ColourBank &bank)
{
    const QList<QRgb> table = tile.colorTable();
    QImage image(TileSide, TileSide, QImage::Format_Indexed8);
    image.setColorTable(bank.colours);
    image.setColorCount(TableSize);
    for (int y = 0; y < TileSide; ++y) {
        const uchar *source = tile.constScanLine(y);
        uchar *target = image.scanLine(y);
        for (int x = 0; x < TileSide; ++x)
            target[x] = static_cast<uchar>(bank.colours.indexOf(table.at(source[x])));
    }
    return image;
}
