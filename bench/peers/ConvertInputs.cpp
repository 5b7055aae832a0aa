#include "bench/peers/ConvertInputs.h"

#include "bench/Inputs.h"
#include "formats/NxImage.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "store/ProjectStore.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

namespace {

constexpr QSize PictureSize(2048, 2048);
constexpr int MapSide = 1024; // cells
constexpr int SheetColumns = 32;

/// Snapped to the grid that the core matches colours on, so that only the matching is left to do.
QImage snappedPhoto()
{
    NxImage photo;
    photo.setImage(Bench::photo(PictureSize));
    return photo.image();
}

QImage colourChart(const Palette &palette)
{
    QImage chart(16, 16, QImage::Format_RGB32);
    for (int i = 0; i < Palette::Size; ++i)
        chart.setPixelColor(i % 16, i / 16, palette.colour(i));
    return chart;
}

/// Walls on a third of the pixels, in 256 colours that all differ.
QImage caves()
{
    QRandomGenerator generator(20261015);
    QImage image(PictureSize, QImage::Format_Indexed8);
    for (int i = 0; i < Palette::Size; ++i)
        image.setColor(i, qRgb(i, 255 - i, (i * 7) & 255));
    for (int y = 0; y < image.height(); ++y) {
        uchar *const row = image.scanLine(y);
        for (int x = 0; x < image.width(); ++x)
            row[x] = y > 0 && generator.bounded(3) == 0 ? 1 : 0;
    }
    return image;
}

/// Cells that another editor can show too: with turns, but in the tiles' own colours.
TileMap::Rows cells()
{
    QRandomGenerator generator(256);
    TileMap::Rows rows(MapSide, QList<TileMap::TileData>(MapSide));
    for (auto &row : rows) {
        for (TileMap::TileData &cell : row) {
            cell = Bench::anyCell(generator.bounded(1 << 12));
            cell.offset = 0;
        }
    }
    return rows;
}

QImage sheetOf(const TileSet &tiles)
{
    const int rows = (tiles.count() + SheetColumns - 1) / SheetColumns;
    QImage sheet(QSize(SheetColumns, rows) * Tile::Side, QImage::Format_RGB32);
    for (int i = 0; i < tiles.count(); ++i) {
        const QPoint corner = QPoint(i % SheetColumns, i / SheetColumns) * Tile::Side;
        for (int pixel = 0; pixel < Tile::Side * Tile::Side; ++pixel) {
            const QPoint inside(pixel % Tile::Side, pixel / Tile::Side);
            sheet.setPixel(corner + inside, tiles.tile(i)->image().pixel(inside));
        }
    }
    return sheet;
}

/// The tile's number with the flags of the other editor, which turns over a diagonal first.
quint32 foreignCell(const TileMap::TileData &cell)
{
    constexpr quint32 FlippedAcross = 0x80000000;
    constexpr quint32 FlippedDown = 0x40000000;
    constexpr quint32 FlippedOverDiagonal = 0x20000000;
    return (static_cast<quint32>(cell.index) + 1) | (cell.rotate ? FlippedOverDiagonal : 0) |
           (cell.rotate != cell.mirror ? FlippedAcross : 0) | (cell.flip ? FlippedDown : 0);
}

QByteArray foreignMap(const TileMap::Rows &rows, int tileCount)
{
    const QByteArray side = QByteArray::number(MapSide);
    QByteArray text =
        "<?xml version=\"1.0\"?>\n<map version=\"1.8\" orientation=\"orthogonal\" "
        "renderorder=\"right-down\" width=\"" +
        side + "\" height=\"" + side +
        "\" tilewidth=\"8\" tileheight=\"8\">\n<tileset firstgid=\"1\" name=\"tiles\" "
        "tilewidth=\"8\" tileheight=\"8\" tilecount=\"" +
        QByteArray::number(tileCount) + "\" columns=\"" + QByteArray::number(SheetColumns) +
        "\"><image source=\"tiles.png\"/></tileset>\n<layer id=\"1\" name=\"tiles\" width=\"" +
        side + "\" height=\"" + side + "\"><data encoding=\"csv\">\n";
    for (const auto &row : rows) {
        for (const TileMap::TileData &cell : row)
            text += QByteArray::number(foreignCell(cell)) + ',';
        text += '\n';
    }
    text.chop(2);
    return text + "\n</data></layer></map>\n";
}

bool write(const QString &fileName, const QByteArray &content)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

} // namespace

bool Bench::writeConvertInputs(const QString &folder)
{
    const QDir directory(folder);
    ProjectStore store;
    Project *const project = store.create(QStringLiteral("level"));
    const auto palette = project->createPalette(CreateDefault, QStringLiteral("palette"));
    const auto tiles = project->createTileSet(QStringLiteral("tiles"), palette->id());
    fillTiles(tiles);
    const auto map = project->createMap(QStringLiteral("level"), tiles->id(), QSize(1, 1));
    const TileMap::Rows rows = cells();
    map->tileLayer()->setTiles(rows);
    map->objectLayer()->setTiles(TileMap({MapSide, MapSide}).rows());
    store.setFileName(directory.filePath(QStringLiteral("level.tessaril")));

    return store.save(false) &&
           write(directory.filePath(QStringLiteral("level.tmx")),
                 foreignMap(rows, tiles->count())) &&
           sheetOf(*tiles).save(directory.filePath(QStringLiteral("tiles.png"))) &&
           snappedPhoto().save(directory.filePath(QStringLiteral("photo.png"))) &&
           colourChart(*palette).save(directory.filePath(QStringLiteral("palette.png"))) &&
           caves().save(directory.filePath(QStringLiteral("caves.png"))) &&
           pictureOfTiles(PictureSize).save(directory.filePath(QStringLiteral("picture.png")));
}
