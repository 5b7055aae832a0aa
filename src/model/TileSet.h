#pragma once

#include <QColor>
#include <QHash>
#include <QImage>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QUuid>

class MapObjects;
class Palette;
class Tile;

/// A document: an ordered list of 8 by 8 tiles bound to one palette.
///
/// Indices count from 0 and are not checked unless said. A structural change is bracketed by
/// structureAboutToChange() and structureChanged(), between which undo takes its snapshots;
/// restore() sends neither, only restored().
class TileSet : public QObject
{
    Q_OBJECT

public:
    static constexpr int DefaultCount = 512; // tiles

    /// One tile as an undo snapshot keeps it.
    struct TileState
    {
        QImage image;
        int offset = 0;
        int attributes = 0;
        int value = 0;

        /// Compares indices and colour tables, not looks.
        bool operator==(const TileState &other) const;
    };
    using State = QList<TileState>;

    /// @p tileCount fresh tiles with offset 0; a count under 1 makes an empty set.
    explicit TileSet(QObject *parent = nullptr, int tileCount = DefaultCount);
    ~TileSet() override;

    QUuid id() const { return m_id; }
    void setId(const QUuid &id) { m_id = id; }
    QString name() const { return m_name; }
    bool hiRes() const { return m_hiRes; }

    /// The id of the bound palette, null with none.
    QUuid paletteId() const { return m_paletteId; }
    QPointer<Palette> palette() const { return m_palette; }

    int count() const { return static_cast<int>(m_tiles.size()); }
    Tile *tile(int index) const { return m_tiles.at(index); }
    const QList<Tile *> &tiles() const { return m_tiles; }
    /// The palette offset of a tile, 0 for an index out of range.
    int tileOffset(int index) const;

    /// Deletes all tiles; sends nothing. For clones and restores, which append their own.
    void clearTiles();
    /// Appends @p tile, which becomes a child of the set; sends nothing.
    void appendTile(Tile *tile);

    /// Gives tile @p to the picture and the offset of @p from, bracketed as one structural change
    /// with the text "Copy Tile". Nothing if they are equal or one is out of range.
    void copyTile(int to, int from);
    /// Lifts tile @p from out and puts it back at @p to, bracketed as one structural change with
    /// the text "Move Tile"; each tile that it passes is told by tileSwapped(). Nothing if they are
    /// equal or one is out of range.
    void moveTile(int from, int to);

    /// The picture of a tile as a screen shows it: every pixel is (pixel & 15) | offset * 16, then
    /// rotated, flipped (top to bottom) and mirrored (left to right). Out of range gives some 8 by
    /// 8 indexed image and a log line.
    QImage tileImage(int index, bool rotate, bool flip, bool mirror, int paletteOffset) const;

    /// Writes all tiles, 32 bytes each, two pixels a byte. False if not every byte was written.
    bool exportData(QString fileName);

    /// All tiles by value; pictures are shared until edited.
    State state() const;
    /// Replaces all tiles and sends nothing; the caller ends with notifyRestored().
    void restore(const State &state);
    /// Sends restored().
    void notifyRestored();

    /// The block lists bound to this set, entered by MapObjects::setTileSet().
    const QHash<QUuid, QPointer<MapObjects>> &blockLists() const { return m_blockLists; }
    void addBlockList(const QUuid &id, const QPointer<MapObjects> &blocks);

signals:
    void nameChanged(QString name);
    void tileChanged(int index);
    void tileDeleted(int index);
    void tileInserted(int index);
    /// Sent by moveTile() for each adjacent swap.
    void tileSwapped(int first, int second);
    void structureAboutToChange();
    /// @p text is the title of the undo step.
    void structureChanged(QString text);
    void restored();

public slots:
    void setName(QString name);
    void setHiRes(bool hiRes);
    /// Binds a palette, or none, whose colour changes then reach updateColour(). Tile pictures stay
    /// as they are.
    void setPalette(QPointer<Palette> palette);
    void notifyImageChanged(int index);
    /// Reads 8-byte characters from @p filename into the tiles from @p index on, set bits as
    /// @p foreIndex and clear ones as @p backIndex. False if the file cannot be opened or ends
    /// within a character; what was read by then stays.
    bool importZXFont(int index, int foreIndex, int backIndex, int offset, QString filename);
    /// Matches @p image against the palette and makes it the tile's picture, cut to 8 by 8. Without
    /// a palette or a picture only the offset is set.
    void importImage(int index, QImage image, int offset);
    /// Reads 32-byte tiles into the set, as many as there are of both; their offsets become 0.
    /// Sends nothing. False only if the file cannot be opened.
    bool importNxt(QString filename);
    void clearImage(int index);
    void deleteTile(int index);
    /// Inserts a blank tile with palette offset 1 before @p index.
    void insertTile(int index);
    /// Sets one colour in every tile's table, then sends tileChanged(0).
    void updateColour(int index, QColor colour);

private:
    bool contains(int index) const;
    /// The palette's colours, 256 times black without one.
    QList<QRgb> colourTable() const;

    QUuid m_id;
    QUuid m_paletteId;
    QString m_name;
    bool m_hiRes = false;
    QList<Tile *> m_tiles;
    QPointer<Palette> m_palette;
    QHash<QUuid, QPointer<MapObjects>> m_blockLists;
};
