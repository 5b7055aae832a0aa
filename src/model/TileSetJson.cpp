#include "model/TileSetJson.h"

#include "model/ArchiveNames.h"
#include "model/ArchivePicture.h"
#include "model/JsonValues.h"
#include "model/LoadContext.h"
#include "model/Palette.h"
#include "model/Tile.h"
#include "model/TileSet.h"

#include <QJsonArray>

#include <cstring>

using namespace Qt::StringLiterals;

namespace TileSetJson {

namespace {

void copyRows(QImage &to, int toRow, const QImage &from, int fromRow)
{
    for (int y = 0; y < Tile::Side; ++y)
        std::memcpy(to.scanLine(toRow + y), from.constScanLine(fromRow + y), Tile::Side);
}

void readTiles(const QJsonObject &object, TileSet *tileSet)
{
    const QJsonArray offsets = object.value("offsets"_L1).toArray();
    for (int i = 0; i < tileSet->count() && i < offsets.size(); ++i)
        tileSet->tile(i)->setOffset(offsets.at(i).toInt());

    const QJsonArray tiles = object.value("tiles"_L1).toArray();
    for (int i = 0; i < tileSet->count() && i < tiles.size(); ++i) {
        const QJsonObject record = tiles.at(i).toObject();
        Tile *tile = tileSet->tile(i);
        tile->setOffset(record.value("offset"_L1).toInt());
        tile->setAttributes(record.value("attributes"_L1).toInt());
        tile->setValue(record.value("value"_L1).toInt());
    }
}

/// Reads the picture of @p count tiles.
bool readPicture(const QUuid &id, const QString &name, int count, QImage *picture,
                 LoadContext &context)
{
    const QString entryName = ArchiveNames::tileSet(id);
    const QByteArray png = context.entry(entryName);
    if (png.isEmpty()) {
        return context.fail(
            QStringLiteral("Failed to load tile set tileImage \"%1\" from project file")
                .arg(entryName));
    }
    *picture = ArchivePicture::decoded(png);
    if (picture->size() != QSize(Tile::Side, Tile::Side * count) ||
        picture->format() != QImage::Format_Indexed8)
        return context.fail(QStringLiteral("Error setting tile set anim - %1").arg(name));
    return true;
}

void cutTiles(const QImage &picture, TileSet *tileSet)
{
    const QList<QRgb> colours = ArchivePicture::filledUp(picture.colorTable());
    for (int i = 0; i < tileSet->count(); ++i) {
        QImage image(Tile::Side, Tile::Side, QImage::Format_Indexed8);
        image.setColorTable(colours);
        copyRows(image, 0, picture, i * Tile::Side);
        tileSet->tile(i)->setImage(image);
    }
}

} // namespace

QJsonObject write(const TileSet &tileSet)
{
    QJsonArray offsets;
    QJsonArray tiles;
    for (const Tile *tile : tileSet.tiles()) {
        offsets.append(tile->offset());
        tiles.append(QJsonObject{{"offset"_L1, tile->offset()},
                                 {"attributes"_L1, tile->attributes()},
                                 {"value"_L1, tile->value()}});
    }
    return {{"id"_L1, tileSet.id().toString()},
            {"name"_L1, tileSet.name()},
            {"hires"_L1, tileSet.hiRes()},
            {"palette"_L1, JsonValues::idTextOrEmpty(tileSet.palette())},
            {"count"_L1, tileSet.count()},
            {"offsets"_L1, offsets},
            {"tiles"_L1, tiles}};
}

QByteArray picture(const TileSet &tileSet)
{
    if (tileSet.count() == 0)
        return {};

    QImage image(Tile::Side, Tile::Side * tileSet.count(), QImage::Format_Indexed8);
    if (tileSet.palette())
        image.setColorTable(tileSet.palette()->colourTable());
    for (int i = 0; i < tileSet.count(); ++i)
        copyRows(image, i * Tile::Side, tileSet.tile(i)->image(), 0);
    return ArchivePicture::encoded(image);
}

bool read(const QJsonObject &object, LoadContext &context)
{
    const int count = object.value("count"_L1).toInt(TileSet::DefaultCount);
    if (count < 0 || count > MaxCount)
        return context.failAsInvalid();
    const QUuid id = JsonValues::idOrNew(object, "id"_L1);
    const QString name = object.value("name"_L1).toString();
    QImage picture;
    // The picture first: it proves that the tiles are there before any is made.
    if (count > 0 && !readPicture(id, name, count, &picture, context))
        return false;
    if (!context.takeTiles(count))
        return false;

    auto *tileSet = new TileSet(context.project(), count);
    tileSet->setId(id);
    tileSet->setName(name);
    tileSet->setHiRes(object.value("hires"_L1).toBool());
    readTiles(object, tileSet);
    cutTiles(picture, tileSet);
    tileSet->setPalette(context.project()->palette(JsonValues::idOrNew(object, "palette"_L1)));
    context.project()->addTileSet(tileSet);
    return true;
}

} // namespace TileSetJson
