#pragma once

#include "model/TileMap.h"

#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QUuid>

class AnimatedBlocks;
class MapObjects;
class TileAnimation;
class TileSet;

/// A document: a level of two tile layers, placed block animations and placed sprites.
///
/// The layers are made elsewhere, children of the project like the map, and bound here; they end
/// with the map. Sizes count cells; placed sprites are positioned in map pixels, 8 to a cell.
class Map : public QObject
{
    Q_OBJECT

public:
    static constexpr int Off = -1; // of the two tile index settings

    /// A sprite, or an animation of sprites, placed on the map.
    struct PlacedSprite
    {
        QUuid bank;
        QUuid animation; ///< null for a single sprite
        int sprite = -1; ///< index in the bank, -1 for none
        int x = 0;
        int y = 0;
        bool mirror = false;
        bool flip = false;
        bool rotate = false;
        int startFrame = 0;
        int initialDelay = 0;
        int repeatDelay = 0;
        int paletteOffset = 0;
        QString name;

        bool operator==(const PlacedSprite &) const = default;
    };

    /// A placed block animation by value.
    struct PlacedBlock
    {
        QUuid id; ///< of the TileAnimation
        QRect rect;
        int initialDelay = 0;
        int repeatDelay = 0;
        int startFrame = 0;

        bool operator==(const PlacedBlock &) const = default;
    };

    /// What an undo snapshot holds. Rows are shared with the map until one of them is edited.
    struct State
    {
        TileMap::Rows tileRows;
        TileMap::Rows objectRows;
        QList<PlacedBlock> animations;
        QList<PlacedSprite> sprites;

        bool operator==(const State &) const = default;
    };

    /// A map without layers; @p parent is the project.
    explicit Map(const QString &name, QObject *parent = nullptr);
    ~Map() override;

    QUuid id() const { return m_id; }
    void setId(const QUuid &id) { m_id = id; }
    QString name() const { return m_name; }

    QUuid tileSetId() const { return m_tileSetId; }
    QPointer<TileSet> tileSet() const { return m_tileSet; }
    /// Binds a set, which must be valid, to the map and both layers.
    void setTileSet(const QPointer<TileSet> &tileSet);

    QPointer<TileMap> tileLayer() const { return m_tileLayer; }
    QPointer<TileMap> objectLayer() const { return m_objectLayer; }
    void setTileLayer(TileMap *layer);
    void setObjectLayer(TileMap *layer);

    QPointer<AnimatedBlocks> animatedBlocks() const { return m_animatedBlocks; }

    const QList<PlacedSprite> &sprites() const { return m_sprites; }
    QList<PlacedSprite> &sprites() { return m_sprites; }
    void setSprites(const QList<PlacedSprite> &sprites) { m_sprites = sprites; }

    bool isSpriteLayerVisible() const { return m_spriteLayerVisible; }
    void setSpriteLayerVisible(bool visible) { m_spriteLayerVisible = visible; }
    bool isGridVisible() const { return m_gridVisible; }
    void setGridVisible(bool visible) { m_gridVisible = visible; }
    int tileTransparencyIndex() const { return m_tileTransparencyIndex; }
    int backgroundTileIndex() const { return m_backgroundTileIndex; }

    /// Resizes both layers, moves what is placed along, and sends resized().
    void resize(QSize size, Qt::Alignment alignment);
    /// Moves placed blocks and sprites by @p offset cells after a resize. Blocks no longer wholly
    /// inside are removed and their cells on the object layer filled; sprites outside are removed.
    void shiftContents(QPoint offset);

    /// Places a block animation; nothing is stamped.
    void addAnimation(const PlacedBlock &block);
    /// After a load: clears the tile layer below each placed block and stamps its first frame into
    /// the object layer, if one of @p blocks holds its animation.
    void restoreAnimations(const QList<MapObjects *> &blocks);
    /// Writes the first frame of @p animation to the object layer at @p topLeft; cells outside the
    /// map are left out.
    void stampAnimation(const TileAnimation *animation, QPoint topLeft);

    State state() const;
    /// Puts a snapshot back, and sends restored() last.
    void restore(const State &state);

    /// Writes the tile layer, two bytes a cell. False if not every byte was written.
    bool exportData(QString fileName);

signals:
    void nameChanged(QString name);
    void resized(QPointer<Map> map);
    void restored();

public slots:
    void setName(QString name);
    void setTileTransparencyIndex(int index);
    void setBackgroundTileIndex(int index);

private:
    void adjustIndices(int index, int direction);

    QUuid m_id;
    QString m_name;
    QUuid m_tileSetId;
    QPointer<TileSet> m_tileSet;
    QPointer<TileMap> m_tileLayer;
    QPointer<TileMap> m_objectLayer;
    QPointer<AnimatedBlocks> m_animatedBlocks;
    QList<PlacedSprite> m_sprites;
    bool m_spriteLayerVisible = true;
    bool m_gridVisible = false;
    int m_tileTransparencyIndex = Off;
    int m_backgroundTileIndex = Off;
};

Q_DECLARE_METATYPE(Map::PlacedSprite)
