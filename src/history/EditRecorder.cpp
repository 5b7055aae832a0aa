#include "history/EditRecorder.h"

#include "history/PaletteColourCommand.h"
#include "history/PlacedSpritesCommand.h"
#include "history/SnapshotCommand.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/Tile.h"

#include <QDateTime>
#include <QScopedValueRollback>
#include <QUndoStack>

namespace {

/// Brings to the tiles what has changed in the palette since their snapshot, as it reached those
/// that the set had by then.
void updateColours(TileSet *tileSet, const EditRecorder::TileSetEdit &edit)
{
    const QPointer<Palette> palette = tileSet->palette();
    if (!palette || palette->id() != edit.palette)
        return;
    const QList<QRgb> present = palette->colourTable();
    for (int index = 0; index < edit.colours.size(); ++index) {
        if (present.at(index) == edit.colours.at(index))
            continue;
        for (Tile *tile : tileSet->tiles())
            tile->setColourTableEntry(index, present.at(index));
    }
}

QUuid documentOf(const MapObjects *blocks)
{
    const QPointer<TileSet> tileSet = blocks->tileSet();
    return tileSet ? tileSet->id() : blocks->id();
}

} // namespace

qint64 EditRecorder::currentTime()
{
    return QDateTime::currentMSecsSinceEpoch();
}

EditRecorder::EditRecorder(Project *project, StackFinder stackFor, QObject *parent, Clock clock)
    : QObject(parent)
    , m_project(project)
    , m_stackFor(std::move(stackFor))
    , m_clock(std::move(clock))
{
    for (const auto &palette : project->palettes())
        trackPalette(palette);
    for (const auto &tileSet : project->tileSets())
        trackTileSet(tileSet);
    for (const auto &sprites : project->spriteBanks())
        trackSprites(sprites);
    for (const auto &blocks : project->mapObjects())
        trackBlocks(blocks);

    connect(project, &Project::paletteCreated, this, &EditRecorder::trackPalette);
    connect(project, &Project::tilesetCreated, this, &EditRecorder::trackTileSet);
    connect(project, &Project::spritesCreated, this, &EditRecorder::trackSprites);
    connect(project, &Project::blocksCreated, this, &EditRecorder::trackBlocks);
}

void EditRecorder::trackPalette(Palette *palette)
{
    if (!firstTimeFor(palette))
        return;
    connect(palette, &Palette::colourEdited, this,
            [this, palette](int index, quint16 before, quint16 after) {
                push(std::make_unique<PaletteColourCommand>(
                         palette, PaletteColourCommand::Words{{index, before}},
                         PaletteColourCommand::Words{{index, after}}, m_clock()),
                     palette->id());
            });
}

void EditRecorder::trackTileSet(TileSet *tileSet)
{
    if (!firstTimeFor(tileSet))
        return;
    connect(tileSet, &TileSet::structureAboutToChange, this, [this, tileSet] {
        if (!m_restoring)
            m_pendingTileSets.insert(tileSet, snapshot(tileSet));
    });
    connect(tileSet, &TileSet::structureChanged, this,
            [this, tileSet](const QString &text) { tileSetChanged(tileSet, text); });
    connect(tileSet, &QObject::destroyed, this,
            [this, tileSet] { m_pendingTileSets.remove(tileSet); });
}

void EditRecorder::trackSprites(SpriteBank *sprites)
{
    if (!firstTimeFor(sprites))
        return;
    connect(sprites, &SpriteBank::structureAboutToChange, this, [this, sprites] {
        if (m_restoring)
            return;
        m_pendingSprites.insert(sprites, sprites->state());
        m_pendingPlacedSprites.insert(sprites, placedSprites());
    });
    connect(sprites, &SpriteBank::structureChanged, this,
            [this, sprites](const QString &text) { spritesChanged(sprites, text); });
    connect(sprites, &SpriteBank::animationsChanged, this,
            [this, sprites] { trackSpriteAnimations(sprites); });
    connect(sprites, &QObject::destroyed, this, [this, sprites] {
        m_pendingSprites.remove(sprites);
        m_pendingPlacedSprites.remove(sprites);
    });
    trackSpriteAnimations(sprites);
}

void EditRecorder::trackBlocks(MapObjects *blocks)
{
    if (!firstTimeFor(blocks))
        return;
    connect(blocks, &MapObjects::animationsChanged, this,
            [this, blocks] { trackTileAnimations(blocks); });
    trackTileAnimations(blocks);
}

void EditRecorder::trackTileAnimations(MapObjects *blocks)
{
    for (const auto &animation : blocks->animations()) {
        if (animation && !m_tileAnimations.contains(animation))
            track(animation, blocks);
    }
}

void EditRecorder::trackSpriteAnimations(SpriteBank *sprites)
{
    for (const auto &animation : sprites->animations()) {
        if (animation && !m_spriteAnimations.contains(animation))
            track(animation, sprites);
    }
}

void EditRecorder::track(TileAnimation *animation, MapObjects *blocks)
{
    m_tileAnimations.insert(animation, animation->tileState());
    const auto changed = [this, animation, blocks] {
        tileAnimationChanged(animation, documentOf(blocks));
    };
    connect(animation, &Animation::sizeChanged, this, changed);
    connect(animation, &Animation::frameChanged, this, changed);
    connect(animation, &Animation::contentChanged, this, changed);
    connect(animation, &Animation::delayChanged, this, changed);
    connect(animation, &QObject::destroyed, this,
            [this, animation] { m_tileAnimations.remove(animation); });
}

void EditRecorder::track(SpriteAnim *animation, SpriteBank *sprites)
{
    m_spriteAnimations.insert(animation, {animation->state()});
    const auto changed = [this, animation, sprites] {
        spriteAnimationChanged(animation, sprites->id());
    };
    connect(animation, &Animation::sizeChanged, this, changed);
    connect(animation, &Animation::frameChanged, this, changed);
    connect(animation, &Animation::contentChanged, this, changed);
    connect(animation, &Animation::delayChanged, this, changed);
    connect(animation, &QObject::destroyed, this,
            [this, animation] { m_spriteAnimations.remove(animation); });
}

void EditRecorder::tileAnimationChanged(TileAnimation *animation, const QUuid &id)
{
    const auto record = m_tileAnimations.find(animation);
    if (m_restoring || record == m_tileAnimations.end())
        return;
    const TileAnimation::State before = *record;
    const TileAnimation::State after = animation->tileState();
    if (before == after)
        return;

    *record = after;
    using Command = SnapshotCommand<TileAnimation::State>;
    const Command::Merging merging{TileAnimationId, QVariant::fromValue(animation->id()),
                                   FrameMergeWindowMs};
    push(std::make_unique<Command>(
             QStringLiteral("Edit Frames"), before, after,
             applier<TileAnimation::State>(animation, &TileAnimation::restoreTileState), merging,
             m_clock()),
         id);
}

void EditRecorder::spriteAnimationChanged(SpriteAnim *animation, const QUuid &id)
{
    const auto record = m_spriteAnimations.find(animation);
    if (m_restoring || record == m_spriteAnimations.end())
        return;
    const Animation::State before = record->animation;
    const Animation::State after = animation->state();
    if (before == after)
        return;

    record->animation = after;
    using Command = SnapshotCommand<Animation::State>;
    const Command::Merging merging{SpriteAnimationId, QVariant::fromValue(animation->id()),
                                   FrameMergeWindowMs};
    push(std::make_unique<Command>(QStringLiteral("Edit Frames"), before, after,
                                   applier<Animation::State>(animation, &Animation::restore),
                                   merging, m_clock()),
         id);
}

void EditRecorder::tileSetChanged(TileSet *tileSet, const QString &text)
{
    if (m_restoring || !m_pendingTileSets.contains(tileSet))
        return;
    const TileSetEdit before = m_pendingTileSets.take(tileSet);
    const TileSetEdit after = snapshot(tileSet);
    refreshBaselines();
    const auto restore = [this](TileSet *target, const TileSetEdit &edit) {
        restoreTileSet(target, edit);
    };
    using Command = SnapshotCommand<TileSetEdit>;
    push(std::make_unique<Command>(text, before, after, applier<TileSetEdit>(tileSet, restore),
                                   Command::Merging{}, m_clock()),
         tileSet->id());
}

void EditRecorder::spritesChanged(SpriteBank *sprites, const QString &text)
{
    if (m_restoring || !m_pendingSprites.contains(sprites))
        return;
    const SpriteBank::State before = m_pendingSprites.take(sprites);
    const SpriteBank::State after = sprites->state();
    refreshBaselines();
    using Command = SnapshotCommand<SpriteBank::State>;
    auto step = std::make_unique<Command>(text, before, after,
                                          applier<SpriteBank::State>(sprites, &SpriteBank::restore),
                                          Command::Merging{}, m_clock());
    addPlacedSprites(m_pendingPlacedSprites.take(sprites), step.get());
    push(std::move(step), sprites->id());
}

void EditRecorder::addPlacedSprites(const PlacedSprites &before, QUndoCommand *step) const
{
    for (const auto &map : m_project->maps()) {
        const auto sprites = map ? before.constFind(map->id()) : before.cend();
        if (sprites != before.cend() && *sprites != std::as_const(*map).sprites())
            new PlacedSpritesCommand(map, *sprites, step);
    }
}

EditRecorder::PlacedSprites EditRecorder::placedSprites() const
{
    PlacedSprites sprites;
    for (const auto &map : m_project->maps()) {
        if (map)
            sprites.insert(map->id(), std::as_const(*map).sprites());
    }
    return sprites;
}

EditRecorder::TileSetEdit EditRecorder::snapshot(const TileSet *tileSet) const
{
    TileSetEdit edit;
    edit.tiles = tileSet->state();
    for (const auto &map : m_project->maps()) {
        if (map && map->tileSet() == tileSet)
            edit.maps.insert(map->id(), map->state());
    }
    for (const auto &blocks : tileSet->blockLists()) {
        if (!blocks)
            continue;
        for (const auto &animation : blocks->animations())
            edit.animations.insert(animation->id(), animation->tileState());
    }
    if (const QPointer<Palette> palette = tileSet->palette()) {
        edit.palette = palette->id();
        edit.colours = palette->colourTable();
    }
    return edit;
}

void EditRecorder::restoreTileSet(TileSet *tileSet, const TileSetEdit &edit)
{
    tileSet->restore(edit.tiles);
    updateColours(tileSet, edit);
    for (auto it = edit.maps.cbegin(); it != edit.maps.cend(); ++it) {
        if (const QPointer<Map> map = m_project->map(it.key()))
            map->restore(it.value());
    }
    // A copy: what listens to a restored animation may bind another list.
    const auto blockLists = tileSet->blockLists();
    for (const auto &blocks : blockLists) {
        if (!blocks)
            continue;
        for (const auto &animation : blocks->animations()) {
            const auto state = edit.animations.constFind(animation->id());
            if (state != edit.animations.cend())
                animation->restoreTileState(*state);
        }
    }
    tileSet->notifyRestored();
}

void EditRecorder::refreshBaselines()
{
    for (auto it = m_tileAnimations.begin(); it != m_tileAnimations.end(); ++it)
        it.value() = it.key()->tileState();
    for (auto it = m_spriteAnimations.begin(); it != m_spriteAnimations.end(); ++it)
        it.value().animation = it.key()->state();
    if (!m_project)
        return;
    for (const auto &blocks : m_project->mapObjects())
        trackTileAnimations(blocks);
    for (const auto &sprites : m_project->spriteBanks())
        trackSpriteAnimations(sprites);
}

template <typename State, typename Object, typename Restore>
std::function<void(const State &)> EditRecorder::applier(Object *object, Restore restore)
{
    return [recorder = QPointer<EditRecorder>(this), target = QPointer<Object>(object),
            restore](const State &state) {
        if (!recorder || !target || !recorder->m_project)
            return;
        {
            const QScopedValueRollback<bool> guard(recorder->m_restoring, true);
            std::invoke(restore, target.data(), state);
        }
        recorder->refreshBaselines();
    };
}

bool EditRecorder::firstTimeFor(QObject *document)
{
    if (document == nullptr || m_tracked.contains(document))
        return false;
    m_tracked.insert(document);
    connect(document, &QObject::destroyed, this, [this](QObject *gone) { m_tracked.remove(gone); });
    return true;
}

void EditRecorder::push(std::unique_ptr<QUndoCommand> command, const QUuid &id)
{
    if (QUndoStack *stack = m_stackFor(id))
        stack->push(command.release());
}
