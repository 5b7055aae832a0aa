#pragma once

#include <QCache>
#include <QImage>
#include <QList>
#include <QPointer>

class QPainter;
class TileSet;

/// The tiles of a set as a grid shows them, drawn once and kept, one picture for each row.
///
/// Rows, columns and tiles count from 0; sides are in widget pixels. A row never asked for costs
/// nothing, and beyond a limit of memory those longest unused are dropped. Colours are those of the
/// set's palette, without one those of each tile.
class TileGridPictures
{
public:
    struct Shape
    {
        int columns = 1;
        int cell = 8; ///< the distance from tile to tile, of which the last pixel is a gap
        qreal pixelRatio = 1;

        bool operator==(const Shape &other) const = default;
    };

    TileGridPictures();

    void setTileSet(const QPointer<TileSet> &tileSet);
    void setShape(const Shape &shape);

    /// The picture of a row, black where there is no tile. Valid until the next call of any
    /// function here.
    const QImage &row(int row);
    /// Looks for tiles that differ from their pictures, draws these anew and returns their indices.
    QList<int> refresh();
    /// The part of a cell, at @p corner, that its tile covers.
    QRect tileRect(QPoint corner) const;
    /// A tile of the set in its colours; @p index is in range.
    QImage tilePicture(int index) const;

private:
    /// By what a drawn tile is known again; default for a cell without a tile.
    struct Mark
    {
        qint64 imageKey = 0;
        int offset = 0;

        bool operator==(const Mark &other) const = default;
    };
    struct Row
    {
        QImage picture;
        QList<Mark> marks;
    };

    Mark markOf(int index) const;
    bool takeOverColours();
    void drawCell(QPainter *painter, int row, int column) const;

    QPointer<TileSet> m_tileSet;
    Shape m_shape;
    QList<QRgb> m_colours; // empty without a palette
    QCache<int, Row> m_rows;
};
