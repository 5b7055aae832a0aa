#include "bench/Inputs.h"

#include "model/Map.h"
#include "model/Palette.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"
#include "model/TileSet.h"

#include <QRandomGenerator>

Bench::Level::Level(int side)
    : palette(std::make_unique<Palette>())
    , tiles(std::make_unique<TileSet>())
    , map(std::make_unique<Map>(QStringLiteral("level")))
{
    palette->setDefaultColours();
    tiles->setPalette(palette.get());
    fillTiles(tiles.get());

    QRandomGenerator generator(256);
    TileMap::Rows rows(side, QList<TileMap::TileData>(side));
    for (QList<TileMap::TileData> &row : rows) {
        for (TileMap::TileData &cell : row)
            cell = anyCell(generator.bounded(1 << 16));
    }
    map->setTileLayer(new TileMap({side, side}));
    map->setObjectLayer(new TileMap({side, side}));
    map->tileLayer()->setTiles(rows);
    map->setTileSet(tiles.get());
}

Bench::Level::~Level() = default;

void Bench::fillTiles(TileSet *tiles)
{
    QRandomGenerator generator(512);
    const QPointer<Palette> palette = tiles->palette();
    for (Tile *tile : tiles->tiles()) {
        QImage image = Tile::blankImage(palette->colourTable());
        for (int i = 0; i < Tile::Side * Tile::Side; ++i)
            image.setPixel(i % Tile::Side, i / Tile::Side, generator.bounded(16U));
        tile->setImage(image);
    }
}

void Bench::fillBank(SpriteBank *bank, int count)
{
    QRandomGenerator generator(200);
    bank->grow(count - bank->count());
    QImage picture(SpriteBank::SpriteSide, SpriteBank::SpriteSide, QImage::Format_Indexed8);
    for (int i = 0; i < bank->count(); ++i) {
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                picture.scanLine(y)[x] = static_cast<uchar>(generator.bounded(256));
        }
        bank->setImage(i, picture);
    }
}

TileMap::TileData Bench::anyCell(int number)
{
    const auto bits = static_cast<unsigned>(number);
    TileMap::TileData cell;
    cell.index = static_cast<int>(bits % TileSet::DefaultCount);
    cell.rotate = (bits >> 9) & 1;
    cell.flip = (bits >> 10) & 1;
    cell.mirror = (bits >> 11) & 1;
    cell.offset = static_cast<int>((bits >> 12) & 15);
    cell.occupied = true;
    return cell;
}

QImage Bench::pictureOfTiles(QSize size)
{
    constexpr unsigned Scatter = 2654435761U; // odd, so that squares and tiles do not keep step
    const int columns = size.width() / Tile::Side;
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const int square = y / Tile::Side * columns + x / Tile::Side;
            const unsigned tile = static_cast<unsigned>(square) * Scatter % TileSet::DefaultCount;
            const int column = x % Tile::Side;
            const int row = y % Tile::Side;
            // An angle in one corner, and the tile's number in binary.
            const bool angle = (row == 0 && column < 3) || (row == 1 && column == 0);
            const bool digit = row >= 2 && row < 5 && column >= 2 && column < 5 &&
                               (tile >> ((row - 2) * 3 + column - 2) & 1);
            line[x] = angle || digit ? qRgb(240, 192, 32) : qRgb(32, 32, 64);
        }
    }
    return picture;
}

QImage Bench::photo(QSize size)
{
    QRandomGenerator generator(2048);
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const int grain = generator.bounded(64);
            line[x] = qRgb(x * 191 / size.width() + grain, y * 191 / size.height() + grain,
                           (x + y) * 191 / (size.width() + size.height()) + grain);
        }
    }
    return picture;
}

QImage Bench::pictureOfColours(QSize size)
{
    constexpr unsigned Scatter = 10368889U; // odd, so that every number comes once
    QImage picture(size, QImage::Format_RGB32);
    unsigned number = 0;
    for (int y = 0; y < size.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            line[x] = 0xFF000000U | (number++ * Scatter & 0x00FFFFFFU);
    }
    return picture;
}
