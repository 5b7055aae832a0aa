#include "tour/Tour.h"

#include "model/Image.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"
#include "model/TileMap.h"
#include "model/TileSet.h"

#include <QMap>

namespace {

QByteArray indices(const QImage &image)
{
    QByteArray bytes;
    for (int y = 0; y < image.height(); ++y)
        bytes.append(reinterpret_cast<const char *>(image.constScanLine(y)), image.width());
    return bytes;
}

QByteArray contents(const Palette &palette)
{
    QByteArray bytes;
    for (int index = 0; index < Palette::Size; ++index)
        bytes += QByteArray::number(palette.word(index), 16) + ' ';
    return bytes;
}

QByteArray contents(const TileSet &tileSet)
{
    QByteArray bytes = tileSet.paletteId().toByteArray();
    for (const Tile *tile : tileSet.tiles())
        bytes += QByteArray::number(tile->offset()) + ':' + indices(tile->image());
    return bytes;
}

QByteArray contents(const Map &map)
{
    QByteArray bytes = map.tileSetId().toByteArray();
    for (const auto &row : map.tileLayer()->rows()) {
        for (const TileMap::TileData &cell : row)
            for (const int field : {cell.index, int(cell.rotate), int(cell.flip), int(cell.mirror),
                                    cell.offset, int(cell.occupied)})
                bytes += QByteArray::number(field) + ' ';
        bytes += '\n';
    }
    return bytes;
}

/// Every document by its kind and id, with its name and all that it holds.
QMap<QString, QByteArray> described(const Project &project)
{
    QMap<QString, QByteArray> documents;
    const auto enter = [&documents](const char *kind, const QUuid &id, const QString &name,
                                    const QByteArray &contents) {
        documents[QString::fromLatin1(kind) + id.toString()] = name.toUtf8() + ' ' + contents;
    };
    for (const auto &palette : project.palettes())
        enter("palette", palette->id(), palette->name(), contents(*palette));
    for (const auto &tileSet : project.tileSets())
        enter("tile set", tileSet->id(), tileSet->name(), contents(*tileSet));
    for (const auto &map : project.maps())
        enter("map", map->id(), map->name(), contents(*map));
    for (const auto &bank : project.spriteBanks())
        enter("sprite bank", bank->id(), bank->name(),
              bank->palette()->id().toByteArray() + indices(bank->image()));
    for (const auto &image : project.images())
        enter("image", image->id(), image->name(),
              image->palette()->id().toByteArray() + indices(image->image()));
    return documents;
}

} // namespace

void projectChapter(Tour &tour)
{
    tour.beginChapter(QStringLiteral("The project is saved and loaded again"));
    const QString file = tour.folder().filePath(QStringLiteral("tour.tessaril"));
    const QMap<QString, QByteArray> before = described(*tour.project());
    tour.store().setFileName(file);
    tour.check(tour.store().save(false), QStringLiteral("project"),
               QStringLiteral("saved with %1 documents").arg(before.size()));
    tour.manifest["project"] = file;

    tour.store().close();
    if (!tour.check(tour.store().load(file), QStringLiteral("project"), QStringLiteral("loaded")))
        return;

    const QMap<QString, QByteArray> after = described(*tour.project());
    tour.check(before.keys() == after.keys(), QStringLiteral("project"),
               QStringLiteral("has the same documents"));
    for (auto document = before.cbegin(); document != before.cend(); ++document) {
        if (after.value(document.key()) != document.value())
            tour.check(false, QString::fromUtf8(document.value().split(' ').first()),
                       document.key());
    }
    tour.check(before == after, QStringLiteral("project"),
               QStringLiteral("each of them holds the same"));
}
