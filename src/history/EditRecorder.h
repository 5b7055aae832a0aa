#pragma once

#include "model/Map.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>

#include <functional>
#include <memory>

class MapObjects;
class Palette;
class Project;
class QUndoCommand;
class QUndoStack;
class SpriteAnim;

/// Watches a project and makes undo steps of what its documents tell: colour edits, structure
/// changes of tile sets and sprite banks, and edits of animations.
///
/// Neither the model nor the views know of it. It tracks every document of the project, also those
/// made later; a document or animation that dies is forgotten. Restoring records nothing.
class EditRecorder : public QObject
{
    Q_OBJECT

public:
    /// The stack for the edits of a document; null drops the edit's step.
    using StackFinder = std::function<QUndoStack *(const QUuid &)>;
    /// The time in milliseconds.
    using Clock = std::function<qint64()>;

    /// A tile set as a structure change leaves it, with what the change renumbers beside it.
    struct TileSetEdit
    {
        TileSet::State tiles;
        QHash<QUuid, Map::State> maps;                 ///< those that use the set, by map
        QHash<QUuid, TileAnimation::State> animations; ///< of the set's block lists
        /// The palette of that moment: what has changed in it since is brought to restored tiles.
        QUuid palette;
        QList<QRgb> colours;
    };

    static constexpr int TileAnimationId = 1002;
    static constexpr int SpriteAnimationId = 1003;
    static constexpr qint64 FrameMergeWindowMs = 100;

    static qint64 currentTime();

    /// Tracks all of @p project.
    EditRecorder(Project *project, StackFinder stackFor, QObject *parent = nullptr,
                 Clock clock = currentTime);

    /// A document that is tracked already is left as it is.
    void trackPalette(Palette *palette);
    void trackTileSet(TileSet *tileSet);
    void trackSprites(SpriteBank *sprites);
    void trackBlocks(MapObjects *blocks);

    /// Records the difference of @p animation to its last known state, if it is tracked and there
    /// is one. @p id is the document that holds it: the tile set or the sprite bank.
    void tileAnimationChanged(TileAnimation *animation, const QUuid &id);
    void spriteAnimationChanged(SpriteAnim *animation, const QUuid &id);

private:
    /// The last known state; a sprite animation leaves the type alone.
    using AnimationRecord = TileAnimation::State;
    /// By map. The project renumbers and drops placed sprites when a bank changes.
    using PlacedSprites = QHash<QUuid, QList<Map::PlacedSprite>>;

    void trackTileAnimations(MapObjects *blocks);
    void trackSpriteAnimations(SpriteBank *sprites);
    void track(TileAnimation *animation, MapObjects *blocks);
    void track(SpriteAnim *animation, SpriteBank *sprites);
    void refreshBaselines();

    void tileSetChanged(TileSet *tileSet, const QString &text);
    void spritesChanged(SpriteBank *sprites, const QString &text);
    void addPlacedSprites(const PlacedSprites &before, QUndoCommand *step) const;
    TileSetEdit snapshot(const TileSet *tileSet) const;
    PlacedSprites placedSprites() const;
    void restoreTileSet(TileSet *tileSet, const TileSetEdit &edit);

    /// What a command calls: restores under the flag and refreshes the baselines; does nothing if
    /// the object or the recorder is gone.
    template <typename State, typename Object, typename Restore>
    std::function<void(const State &)> applier(Object *object, Restore restore);
    bool firstTimeFor(QObject *document);
    void push(std::unique_ptr<QUndoCommand> command, const QUuid &id);

    QPointer<Project> m_project;
    StackFinder m_stackFor;
    bool m_restoring = false;
    QHash<TileAnimation *, AnimationRecord> m_tileAnimations;
    QHash<SpriteAnim *, AnimationRecord> m_spriteAnimations;
    QHash<TileSet *, TileSetEdit> m_pendingTileSets;
    QHash<SpriteBank *, SpriteBank::State> m_pendingSprites;
    QHash<SpriteBank *, PlacedSprites> m_pendingPlacedSprites;
    QSet<QObject *> m_tracked;
    Clock m_clock;
};
