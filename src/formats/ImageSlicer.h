#pragma once

#include <QBitArray>
#include <QHash>
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
    static constexpr int BankSize = 16;  // colours
    static constexpr int TileSide = 8;   // pixels
    static constexpr int MaxTiles = 512; // that a map can name

    /// Bits of an orientation number; rotation comes first.
    enum OrientationFlag { Flip = 1, Mirror = 2, Rotate = 4 };

    /// Where a square is found: the place in tiles() and the orientation number 0 to 7.
    struct Orientation
    {
        int tile = 0;
        int flags = 0;

        bool operator==(const Orientation &) const = default;
    };
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

    void reset();

    /// The key of a square: SHA-1 of its bytes in lower-case hexadecimal. Colour tables do not
    /// count.
    static QString hash(const QImage &square);
    static QImage transformed(const QImage &square, bool rotate, bool flip, bool mirror);

    /// Slices the picture into 8 by 8 tiles with private colour tables and fills cells(). Sends
    /// processed() for each square.
    void sliceTiles();
    /// Slices the picture into 16 by 16 sprites; cells() then have flags 0 whatever was found.
    void sliceSprites();
    /// Deals the tiles' colours out. False, and logged, when a tile fits no bank: the tiles from
    /// there on keep bank 0 and their private tables.
    bool assignBanks();
    /// The 16 banks in order: 256 colours.
    QList<QRgb> bankColours() const;

    /// The picture's size in squares.
    int columns() const { return m_columns; }
    int rows() const { return m_rows; }
    const QList<Slice> &tiles() const { return m_tiles; }
    const QList<ColourBank> &banks() const { return m_banks; }
    /// One for each square of the picture, row by row.
    const QList<Orientation> &cells() const { return m_cells; }
    /// The colour table of the whole indexed picture.
    const QList<QRgb> &colours() const { return m_colours; }

signals:
    /// The number of squares done before this one.
    void processed(int progress);

private:
    QHash<QString, Orientation> m_hashes;
    QImage m_image;
    int m_columns;
    int m_rows;
    QList<Slice> m_tiles;
    QList<ColourBank> m_banks;
    QList<Orientation> m_cells;
    QList<QRgb> m_colours;
};
