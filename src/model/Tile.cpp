#include "model/Tile.h"

Tile::Tile(int offset, QObject *parent)
    : QObject(parent)
    , m_image(blankImage(QList<QRgb>(256, qRgb(0, 0, 0))))
    , m_offset(offset)
{
}

void Tile::setImage(const QImage &image)
{
    if (image.format() != QImage::Format_Indexed8)
        return;

    // What a copy takes from beyond a picture is 0.
    const QRect area(0, 0, Side, Side);
    m_image = image.rect() == area ? image : image.copy(area);
}

QImage Tile::blankImage(const QList<QRgb> &colourTable)
{
    QImage image(Side, Side, QImage::Format_Indexed8);
    image.setColorTable(colourTable);
    image.fill(0);
    return image;
}

void Tile::setValue(int value)
{
    m_value = value;
}
