#include "tour/Tour.h"

#include "formats/FileBytes.h"
#include "formats/NextFormats.h"
#include "formats/TileExport.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"

#include <QJsonDocument>
#include <QProcess>

namespace {

constexpr int ReaderTimeoutMs = 240000;

void exportSprites(Tour &tour, const QUuid &id)
{
    const QPointer<SpriteBank> bank = tour.project()->spriteBank(id);
    const QString file = tour.folder().filePath(bank->name() + QStringLiteral(".spr"));
    tour.check(FileBytes::write(file, NextFormats::pixelBytes(bank->image())), bank->name(),
               QStringLiteral("sprites exported"));
}

} // namespace

void exportLevel(Tour &tour, ProjectStore &store, const QDir &directory, const Tour::Level &level)
{
    QStringList told;
    QStringList errors;
    QObject context;
    QObject::connect(&store, &ProjectStore::showMessage, &context,
                     [&told](const QString &message, int) { told += message; });
    QObject::connect(&store, &ProjectStore::saveError, &context,
                     [&errors](const QString &message) { errors += message; });

    const QString folder = directory.path();
    store.exportPalette(folder, level.palette);
    store.exportTiles(folder, level.tileSet);
    store.exportMap(folder, level.map);
    const QString wide = directory.filePath(level.name + QStringLiteral("_tiles.bin"));
    const QPointer<TileSet> tileSet = store.project()->tileSet(level.tileSet);
    const bool wideWritten = TileExport::write(tileSet, wide, {1, level.tileCount, false});

    tour.check(errors.isEmpty() && wideWritten, level.name,
               QStringLiteral("palette, tiles and map exported"));
    tour.check(told == QStringList({"Palette exported", "Tile set exported", "Map exported"}),
               level.name, QStringLiteral("and each was told"));
}

void readBack(Tour &tour, const QString &reader, const QDir &directory, const QJsonObject &contents)
{
    const QString manifest = directory.filePath(QStringLiteral("manifest.json"));
    tour.check(FileBytes::write(manifest, QJsonDocument(contents).toJson()),
               QStringLiteral("reader"), QStringLiteral("is told what there is"));
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QStringLiteral("python3"), {reader, manifest});
    const bool ended = process.waitForFinished(ReaderTimeoutMs);
    tour.check(ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
               QStringLiteral("reader"), QStringLiteral("finds every pixel in the exports"));
}

void exportChapter(Tour &tour, const QString &reader)
{
    tour.beginChapter(QStringLiteral("The documents are exported and read by somebody else"));
    for (const Tour::Level &level : tour.levels)
        exportLevel(tour, tour.store(), tour.folder(), level);
    for (const QUuid &bank : tour.banks)
        exportSprites(tour, bank);
    readBack(tour, reader, tour.folder(), tour.manifest);
}
