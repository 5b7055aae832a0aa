#pragma once

#include "model/CellLog.h"
#include "model/Enums.h"
#include "model/TileCache.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QUuid>

class QMimeData;
class TileSet;

/// A grid of cells that name tiles: one layer of a map, and its cached picture.
///
/// Sizes and positions count cells; a cell is 8 by 8 pixels in the picture. Everything but
/// setCell() throws the cached picture away; it is made again when somebody asks for it. It holds
/// indices, so that a set whose tiles only have other colours by then needs no new one.
class TileMap : public QObject
{
    Q_OBJECT

public:
    /// One cell.
    struct TileData
    {
        int index = 0;
        bool rotate = false; ///< a quarter turn clockwise, before the two others
        bool flip = false;   ///< top to bottom
        bool mirror = false; ///< left to right
        int offset = 0;      ///< palette offset, 0 to 15
        /// The cell has been filled; one that has not draws as pixel value 0.
        bool occupied = false;

        bool operator==(const TileData &) const = default;
    };
    using Rows = QList<QList<TileData>>;

    static constexpr int CellSide = TileCache::Side; // pixels
    /// A larger map is never made: the callers refuse before they ask for one.
    static constexpr qint64 MaxCells = qint64(1) << 27;
    static constexpr int MaxEmptySide = 65535; // of a map whose other side is 0

    /// No side is negative, and neither limit is passed.
    static bool isAllowed(QSize size);
    /// The clipboard's name for toData().
    static QString mimeType();

    /// All cells zero; @p parent is the project. A size that is not allowed makes a map of no
    /// cells.
    explicit TileMap(QSize size, QObject *parent = nullptr);

    QUuid id() const { return m_id; }
    int width() const { return m_width; }
    int height() const { return m_height; }
    QSize size() const { return {m_width, m_height}; }
    QRect rect() const { return {0, 0, m_width, m_height}; }
    /// rows()[y][x].
    const Rows &rows() const { return m_rows; }
    QPointer<TileSet> tileSet() const { return m_tiles; }

    bool isVisible() const { return m_visible; }
    void setVisible(bool visible) { m_visible = visible; }

    bool contains(QPoint position) const { return rect().contains(position); }
    /// The cell at a position inside the map.
    const TileData &cell(QPoint position) const { return m_rows.at(position.y()).at(position.x()); }
    /// Writes a cell and redraws it in the cached picture, if there is one. Sends nothing; outside
    /// the map it does nothing.
    void setCell(QPoint position, const TileData &data);

    /// The part of @p rect inside the map, for any rectangle that a file can hold.
    QRect insidePart(QRect rect) const;
    /// Sets the cells of @p rect inside the map to tile 0 with that tile's own offset.
    void fill(QRect rect, bool occupied);

    /// One row or column of zero cells more; nothing if the map were not allowed then.
    void addRow(Tessaril::Position position);
    void addColumn(Tessaril::Position position);
    /// The caller keeps the size at 1 or more.
    void removeRow(Tessaril::Position position);
    void removeColumn(Tessaril::Position position);

    /// Takes a new size; @p alignment says where the old content stays. Returns its shift in cells,
    /// negative when it moved left or up. Does not send tilesChanged(). A size that is not allowed
    /// changes nothing.
    QPoint resize(QSize size, Qt::Alignment alignment);

    /// Replaces all rows, takes the size from them and sends tilesChanged(). Every row gets the
    /// length of the first.
    void setTiles(const Rows &rows);

    /// Binds a tile set, whose swaps and changes the map then follows. Null is allowed.
    void setTileSet(const QPointer<TileSet> &tiles);

    /// Renumbers cells after a tile came in at @p index (direction 1) or went (direction -1; cells
    /// of that tile become tile 0). Unoccupied cells are treated alike.
    void adjustIndices(int index, int direction);

    /// The cells of @p rect as an indexed picture, @p scale screen pixels a cell. Colours i with
    /// (i & 15) == @p transparentIndex have alpha 0, all others are opaque; -1 for none. Pixels
    /// outside the map are 0.
    QImage picture(QRect rect, double scale, int transparentIndex);
    /// The pixel indices of that picture within @p piece, in its pixels; without colours.
    QImage indices(QRect rect, double scale, QRect piece);
    /// The colours of that picture.
    QList<QRgb> colours(int transparentIndex) const;

    /// Where the record of written cells stands; one that does not move means the same indices.
    quint64 revision() const { return m_log.revision(); }
    /// The cells written since then; nothing if others may show something else as well.
    std::optional<QList<QPoint>> cellsWrittenSince(quint64 revision) const
    {
        return m_log.since(revision);
    }

    /// Height, width, the cells of @p rect row by row and the tile set's id, as a big-endian
    /// QDataStream. Cells outside the map are all zero.
    QByteArray toData(QRect rect) const;
    /// Reads a block of toData() from the clipboard and puts it at @p topLeft; what falls outside
    /// the map is dropped. Data that is cut or claims more cells than it holds changes nothing.
    void fromData(QPoint topLeft, const QMimeData *mimeData);

signals:
    void tilesChanged();

private:
    void swapTiles(int first, int second);
    bool hasPicture();
    void tilesMayDiffer();
    void dropPicture();
    void keepSpare();
    QImage blankPicture(QSize size);
    QImage drawn(QRect cells);
    void drawRow(uchar *to, qsizetype stride, int y, int left, int right);
    TileCache::Pixels pixelsOf(const TileData &data) const;
    void paint(QPoint position, const TileCache::Pixels &pixels);

    QUuid m_id;
    int m_width;
    int m_height;
    Rows m_rows;
    QPointer<TileSet> m_tiles;
    QImage m_image;                  // null when it must be drawn again
    QImage m_spare;                  // the last picture, for its memory
    TileSet *m_drawnTiles = nullptr; // what the picture was drawn with; only compared
    QUuid m_drawnPalette;            // null for none
    bool m_tilesMayDiffer = false;   // from what was drawn
    TileCache m_tileCache;
    int m_cacheHits = 0;
    CellLog m_log;
    bool m_visible = true;
};

Q_DECLARE_METATYPE(TileMap::TileData)
