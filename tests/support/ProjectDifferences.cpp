#include "support/ProjectDifferences.h"

#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/PictureEquality.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

template <typename Value>
void compare(QStringList &found, QLatin1String what, const Value &first, const Value &second)
{
    if (!(first == second))
        found += what;
}

void comparePictures(QStringList &found, QLatin1String what, const QImage &first,
                     const QImage &second)
{
    if (!PictureEquality::areEqual(first, second))
        found += what;
}

QList<AnimationFrame::Cells> cellsOf(const Animation *animation)
{
    QList<AnimationFrame::Cells> cells;
    for (const auto &frame : animation->frames())
        cells += frame->cells();
    return cells;
}

QList<QUuid> frameIdsOf(const Animation *animation)
{
    QList<QUuid> ids;
    for (const auto &frame : animation->frames())
        ids += frame->id();
    return ids;
}

void compareAnimations(QStringList &found, const Animation *first, const Animation *second)
{
    compare(found, "animation name"_L1, first->name(), second->name());
    compare(found, "animation size"_L1, first->size(), second->size());
    compare(found, "animation delay"_L1, first->delay(), second->delay());
    compare(found, "animation cells"_L1, cellsOf(first), cellsOf(second));
}

void comparePalettes(QStringList &found, const Palette *first, const Palette *second)
{
    compare(found, "palette name"_L1, first->name(), second->name());
    compare(found, "palette transparency"_L1, first->transparencyIndex(),
            second->transparencyIndex());
    for (int i = 0; i < Palette::Size; ++i)
        compare(found, "palette word"_L1, first->word(i), second->word(i));
}

/// The tiles of a set without their colour tables: a file keeps the colours of the palette, and a
/// tile keeps those of its picture.
TileSet::State statesOf(const TileSet *tileSet)
{
    TileSet::State state = tileSet->state();
    for (TileSet::TileState &tile : state)
        tile.image.setColorTable({});
    return state;
}

void compareTileSets(QStringList &found, const TileSet *first, const TileSet *second)
{
    compare(found, "tile set name"_L1, first->name(), second->name());
    compare(found, "tile set hi-res"_L1, first->hiRes(), second->hiRes());
    compare(found, "tile set palette"_L1, first->paletteId(), second->paletteId());
    compare(found, "tiles"_L1, statesOf(first), statesOf(second));
}

void compareBanks(QStringList &found, const SpriteBank *first, const SpriteBank *second)
{
    compare(found, "bank name"_L1, first->name(), second->name());
    compare(found, "bank depth"_L1, first->depth(), second->depth());
    compare(found, "bank transparency"_L1, first->transparency(), second->transparency());
    compare(found, "bank offsets"_L1, first->offsets(), second->offsets());
    comparePictures(found, "bank strip"_L1, first->image(), second->image());
    compare(found, "bank palette"_L1, first->palette() ? first->palette()->id() : QUuid(),
            second->palette() ? second->palette()->id() : QUuid());
    compare(found, "bank animations"_L1, first->animations().size(), second->animations().size());
    for (const auto &animation : first->animations()) {
        if (const auto other = second->animation(animation->id()))
            compareAnimations(found, animation, other);
        else
            found += "bank animation"_L1;
    }
}

void compareBlocks(QStringList &found, const MapObjects *first, const MapObjects *second)
{
    compare(found, "block list name"_L1, first->name(), second->name());
    compare(found, "block list tile set"_L1, first->tileSet() ? first->tileSet()->id() : QUuid(),
            second->tileSet() ? second->tileSet()->id() : QUuid());
    compare(found, "blocks"_L1, first->animations().size(), second->animations().size());
    for (const auto &animation : first->animations()) {
        const auto other = second->animation(animation->id());
        if (!other) {
            found += "block"_L1;
            continue;
        }
        compareAnimations(found, animation, other);
        compare(found, "block type"_L1, animation->type(), other->type());
        compare(found, "block frame ids"_L1, frameIdsOf(animation), frameIdsOf(other));
        compare(found, "block bound"_L1, animation->tileSet().isNull(), other->tileSet().isNull());
    }
}

void compareMaps(QStringList &found, const Map *first, const Map *second)
{
    compare(found, "map name"_L1, first->name(), second->name());
    compare(found, "map tile set"_L1, first->tileSetId(), second->tileSetId());
    const Map::State before = first->state();
    const Map::State after = second->state();
    compare(found, "tile layer"_L1, before.tileRows, after.tileRows);
    compare(found, "object layer"_L1, before.objectRows, after.objectRows);
    compare(found, "placed blocks"_L1, before.animations, after.animations);
    compare(found, "placed sprites"_L1, before.sprites, after.sprites);
    compare(found, "tile layer shown"_L1, first->tileLayer()->isVisible(),
            second->tileLayer()->isVisible());
    compare(found, "object layer shown"_L1, first->objectLayer()->isVisible(),
            second->objectLayer()->isVisible());
    compare(found, "sprite layer shown"_L1, first->isSpriteLayerVisible(),
            second->isSpriteLayerVisible());
    compare(found, "grid shown"_L1, first->isGridVisible(), second->isGridVisible());
    compare(found, "map transparency"_L1, first->tileTransparencyIndex(),
            second->tileTransparencyIndex());
    compare(found, "map background"_L1, first->backgroundTileIndex(),
            second->backgroundTileIndex());
}

void compareImages(QStringList &found, const Image *first, const Image *second)
{
    compare(found, "image name"_L1, first->name(), second->name());
    compare(found, "image mode"_L1, first->mode(), second->mode());
    comparePictures(found, "image pixels"_L1, first->image(), second->image());
    compare(found, "image palette"_L1, first->palette() ? first->palette()->id() : QUuid(),
            second->palette() ? second->palette()->id() : QUuid());
}

/// By id in the lists, as the project itself never finds a document that bears the null id.
template <typename Documents, typename Compare>
void compareAll(QStringList &found, QLatin1String what, const Documents &first,
                const Documents &second, Compare compareTwo)
{
    compare(found, what, first.size(), second.size());
    for (const auto &document : first) {
        const auto other =
            std::find_if(second.cbegin(), second.cend(), [&document](const auto &candidate) {
                return candidate->id() == document->id();
            });
        if (other != second.cend())
            compareTwo(found, document, *other);
        else
            found += what;
    }
}

} // namespace

QStringList ProjectDifferences::between(const Project &first, const Project &second)
{
    QStringList found;
    compare(found, "id"_L1, first.id(), second.id());
    compare(found, "name"_L1, first.name(), second.name());
    compare(found, "screen size"_L1, first.screenSize(), second.screenSize());
    compare(found, "play area"_L1, first.playArea(), second.playArea());
    compare(found, "open documents"_L1, first.openDocuments(), second.openDocuments());
    compare(found, "scratch palette"_L1, first.scratchPaletteId(), second.scratchPaletteId());
    comparePictures(found, "scratch image"_L1, first.scratchImage(), second.scratchImage());
    compareAll(found, "palettes"_L1, first.palettes(), second.palettes(), comparePalettes);
    compareAll(found, "tile sets"_L1, first.tileSets(), second.tileSets(), compareTileSets);
    compareAll(found, "sprite banks"_L1, first.spriteBanks(), second.spriteBanks(), compareBanks);
    compareAll(found, "images"_L1, first.images(), second.images(), compareImages);
    compareAll(found, "maps"_L1, first.maps(), second.maps(), compareMaps);
    compareAll(found, "block lists"_L1, first.mapObjects(), second.mapObjects(), compareBlocks);
    return found;
}
