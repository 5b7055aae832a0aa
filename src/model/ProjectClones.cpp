#include "model/ProjectClones.h"

#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/Tile.h"
#include "model/TileMap.h"
#include "model/TileSet.h"

namespace {

QString copyName(const QString &name)
{
    return name + QStringLiteral(" (copy)");
}

} // namespace

void ProjectClones::copyWords(Palette *to, const Palette &from)
{
    for (int i = 0; i < Palette::Size; ++i)
        to->setWord(i, from.word(i));
}

QPointer<Map> ProjectClones::clone(Project *project, const Map &source)
{
    const QPointer<TileMap> from = source.tileLayer();
    if (!from)
        return nullptr;

    const QPointer<Map> copy =
        project->createMap(copyName(source.name()), source.tileSetId(), from->size());
    if (!copy)
        return nullptr;
    for (int y = 0; y < from->height(); ++y) {
        for (int x = 0; x < from->width(); ++x)
            copy->tileLayer()->setCell({x, y}, from->cell({x, y}));
    }
    return copy;
}

QPointer<Palette> ProjectClones::clone(Project *project, const Palette &source)
{
    const QPointer<Palette> copy = project->createPalette(CreateBlank, copyName(source.name()));
    copyWords(copy, source);
    return copy;
}

QPointer<TileSet> ProjectClones::clone(Project *project, const TileSet &source)
{
    const QUuid paletteId = source.palette() ? source.paletteId() : QUuid();
    const QPointer<TileSet> copy = project->createTileSet(copyName(source.name()), paletteId);
    copy->clearTiles();
    for (const Tile *tile : source.tiles()) {
        auto *twin = new Tile(tile->offset(), copy);
        twin->setImage(tile->image().copy());
        twin->setAttributes(tile->attributes());
        twin->setValue(tile->value());
        copy->appendTile(twin);
    }
    return copy;
}
