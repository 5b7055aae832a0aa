#pragma once

#include "formats/NextFormats.h"
#include "model/SpriteBank.h"

/// Sprite banks whose sprites can be told apart by one number.
namespace TestSprites {

/// A 16 by 16 indexed picture of one value.
inline QImage filled(int value)
{
    QImage image(SpriteBank::SpriteSide, SpriteBank::SpriteSide, QImage::Format_Indexed8);
    image.fill(value);
    return image;
}

/// The top left pixel of each sprite.
inline QList<int> values(const SpriteBank &bank)
{
    QList<int> values;
    for (int i = 0; i < bank.count(); ++i)
        values.append(bank.image().pixelIndex(0, i * SpriteBank::SpriteSide));
    return values;
}

/// The value of all pixels of each sprite, -1 for a sprite of more than one value.
inline QList<int> plainValues(const SpriteBank &bank)
{
    QList<int> plain;
    for (int i = 0; i < bank.count(); ++i) {
        const QByteArray pixels = NextFormats::pixelBytes(bank.sprite(i));
        plain.append(pixels.count(pixels.front()) == pixels.size() ? uchar(pixels.front()) : -1);
    }
    return plain;
}

/// Makes it @p count sprites and fills sprite i with the value i + 1.
inline void fill(SpriteBank &bank, int count)
{
    while (bank.count() < count)
        bank.addSprite(false);
    for (int i = 0; i < count; ++i)
        bank.setImage(i, filled(i + 1));
}

} // namespace TestSprites
