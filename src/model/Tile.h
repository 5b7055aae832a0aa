#pragma once

#include <QImage>
#include <QObject>

/// One 8 by 8 tile of a tile set.
///
/// Pixels hold values 0 to 15 in QImage::Format_Indexed8; offset() says which bank of 16 palette
/// entries a tile draws from unless the map cell says otherwise.
class Tile : public QObject
{
    Q_OBJECT

public:
    static constexpr int Side = 8; // pixels

    enum Attribute {
        TA_NONE = 0x00,
        TA_TOPSOLID = 0x01,
        TA_LEFTSOLID = 0x02,
        TA_RIGHTSOLID = 0x04,
        TA_BOTTOMSOLID = 0x08,
        TA_SOLID = 0x0F,
        TA_DEADLY = 0x10,
        TA_COLLECTIBLE = 0x20,
        TA_LADDER = 0x40,
        TA_DOOR = 0x80
    };

    /// A tile of pixel value 0 with 256 opaque black colours; @p parent is the tile set.
    explicit Tile(int offset, QObject *parent = nullptr);

    const QImage &image() const { return m_image; }
    /// For the owner set, which also tells the views. A picture of another size is cut to 8 by 8 or
    /// filled up with value 0; one that is not indexed changes nothing.
    void setImage(const QImage &image);
    void setColourTableEntry(int index, QRgb colour) { m_image.setColor(index, colour); }

    int offset() const { return m_offset; }
    void setOffset(int offset) { m_offset = offset; }
    /// A mask of Attribute bits.
    int attributes() const { return m_attributes; }
    void setAttributes(int attributes) { m_attributes = attributes; }
    /// A free number for the game.
    int value() const { return m_value; }

    /// An 8 by 8 indexed image of pixel value 0 with the given colour table.
    static QImage blankImage(const QList<QRgb> &colourTable);

public slots:
    void setValue(int value);

private:
    QImage m_image;
    int m_offset;
    int m_attributes = TA_NONE;
    int m_value = 0;
};
