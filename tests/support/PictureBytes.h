#pragma once

#include <QByteArray>
#include <QSize>

/// Picture files that are made without Qt, so that they may be such as Qt would not write.
namespace PictureBytes {

struct Png
{
    enum ColourType { Grey = 0, Rgb = 2, Indexed = 3, GreyAlpha = 4, RgbAlpha = 6 };

    ColourType type = Indexed;
    int depth = 8;
    bool isInterlaced = false;
    int colours = 256;
    QSize change{0, 0};  ///< of the size that is asked for
    QSize claimed = {};  ///< what the header says instead, if valid
    QByteArray bad = {}; ///< the chunk with a wrong checksum
};

/// The lines are of one index or sample each, which counts up with them.
QByteArray png(QSize size, const Png &png);

/// A GIF of @p frames frames, of the colours 0, 1, 0 ... of a palette of black and white.
QByteArray gif(QSize size, int frames);

/// A BMP of 24 bits whose header says @p claimed, with @p pixels bytes of pixels.
QByteArray bmp(QSize claimed, int pixels);

/// An icon file whose directory names @p count pictures, with one of @p picture bytes, which it
/// says are @p claimedSize and stand at @p offset.
QByteArray ico(int count, const QByteArray &picture, quint32 claimedSize, quint32 offset);

} // namespace PictureBytes
