#pragma once

#include "formats/SquareIndex.h"

#include <QBitArray>
#include <QImage>
#include <QList>
#include <QObject>
#include <QString>

/// Cuts a picture into the smallest set of squares that can show it in the eight orientations of
/// the Next, and deals tiles' colours out over 16 banks of 16. Lives on the stack of one
/// conversion.
class ImageSlicer : public QObject
{
    Q_OBJECT

public:
    static constexpr int BankCount = 16;
    static constexpr int BankSize = 16;   // colours
    static constexpr int TileSide = 8;    // pixels
    static constexpr int SpriteSide = 16; // pixels
    static constexpr int MaxTiles = 512;  // that a map can name

    using Orientation = SquareIndex::Orientation;

    struct Slice
    {
        QImage image;
        int bank = 0;
    };
    struct ColourBank
    {
        QBitArray used;
        QList<QRgb> colours;
    };

    explicit ImageSlicer(const QImage &image);

    /// Forgets what was sliced and dealt; the banks are unused and black.
    void reset();

    /// The key by which squares of one indexed picture are the same: SHA-1 of the bytes in
    /// lower-case hexadecimal. Colour tables do not count.
    static QString hash(const QImage &square);
    static QImage transformed(const QImage &square, bool rotate, bool flip, bool mirror);

    /// Slices the picture into 8 by 8 tiles, each with a private table of its own colours in order
    /// of first use. Sends processed() for each square.
    void sliceTiles();
    /// Slices the picture into 16 by 16 sprites with the picture's own table; columns() and rows()
    /// then count those, and cells() have flags 0 whatever was found. Sends processed() too.
    void sliceSprites();
    /// Deals the tiles' colours out and gives each tile its bank and the table of all banks. False,
    /// and logged, when a tile fits no bank: the tiles from there on keep bank 0 and their private
    /// tables.
    bool assignBanks();
    /// The 16 banks in order: 256 colours, black where no tile used one.
    QList<QRgb> bankColours() const;

    /// The picture's size in squares; what is over at the right and the bottom is left out.
    int columns() const { return m_columns; }
    int rows() const { return m_rows; }
    /// The distinct squares in order of first appearance. Tiles behind the first MaxTiles have no
    /// picture until they are dealt: nothing can show them, and there can be very many.
    const QList<Slice> &tiles() const { return m_tiles; }
    /// Always 16.
    const QList<ColourBank> &banks() const { return m_banks; }
    /// One for each square of the picture, row by row.
    const QList<Orientation> &cells() const { return m_cells; }
    /// The colour table of the whole indexed picture.
    const QList<QRgb> &colours() const { return m_colours; }

signals:
    /// The number of squares done before this one.
    void processed(int progress);

private:
    void slice(int side);
    QImage indexed();
    QImage compacted(const uchar *pixels) const;
    QImage picture(int tile, int side) const;
    static int bankFor(const QList<ColourBank> &banks, const QList<QRgb> &table);
    static bool deal(ColourBank &bank, const QList<QRgb> &table);
    static QImage rebuilt(const QImage &tile, const ColourBank &bank);

    QImage m_image;
    int m_columns;
    int m_rows;
    SquareIndex m_squares; // the same squares as m_tiles
    QList<Slice> m_tiles;
    QList<ColourBank> m_banks;
    QList<Orientation> m_cells;
    QList<QRgb> m_colours;
};
