#pragma once

#include "model/Animation.h"

class MapObjects;
class TileSet;

enum class MapObjectType { Normal = 0, HorizontalPlatform = 1 };

/// An animation whose cells name tiles: one block of a block list. Without a frame until the first
/// addFrame().
class TileAnimation : public Animation
{
    Q_OBJECT

public:
    /// An undo snapshot, by value.
    struct State
    {
        Animation::State animation;
        MapObjectType type = MapObjectType::Normal;

        bool operator==(const State &) const = default;
    };

    /// Named "Blocks!", without frames and tile set.
    explicit TileAnimation(MapObjects *parent);

    QPointer<TileSet> tileSet() const { return m_tileSet; }
    void setTileSet(const QPointer<TileSet> &tileSet) { m_tileSet = tileSet; }
    MapObjectType type() const { return m_type; }

    /// Where the map's frame clock stands: shared by all placements, neither saved nor undone.
    int currentFrame = 0;
    qint64 lastTick = 0;

    State tileState() const;
    /// Puts the type back, then the rest as Animation::restore().
    void restoreTileState(const State &state);

    /// The first frame centred in a dark square, 8 pixels a cell.
    QImage thumbnail(QSize size) const override;

public slots:
    /// Sends contentChanged().
    void setMapObjectType(MapObjectType type);

private:
    QPointer<TileSet> m_tileSet;
    MapObjectType m_type = MapObjectType::Normal;
};

Q_DECLARE_METATYPE(MapObjectType)
