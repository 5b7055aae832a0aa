#pragma once

#include <QImage>
#include <QList>
#include <QObject>
#include <QPointer>

class Palette;

/// A picture on its way to what the Next can show: colours snapped to the grid of NextColour, then
/// either indexed over its own list of colours or matched against a palette. Lives on the stack of
/// one conversion.
class NxImage : public QObject
{
    Q_OBJECT

public:
    explicit NxImage(QObject *parent = nullptr);

    /// Takes a picture, snaps its colours and lists them. Alpha is dropped.
    void setImage(const QImage &image);

    /// The snapped picture, Format_RGB32; null before setImage().
    const QImage &image() const { return m_image; }
    /// The distinct snapped colours in order of first appearance, row by row. Any number.
    const QList<QRgb> &colours() const { return m_colours; }

    /// The picture in Format_Indexed8 over 256 colours, its own first. With more than 256 the most
    /// frequent ones are kept, in order of first appearance, the other pixels take the nearest, and
    /// a log line tells it. Null before setImage().
    QImage toIndexed() const;

    /// The picture in Format_Indexed8 over the palette's colours, each pixel the entry with the
    /// least squared RGB distance, the lowest of equals. Null without a palette or a picture.
    QImage remap(const QPointer<Palette> &palette) const;

    /// @p square turned a quarter clockwise if @p rotate, then flipped (top to bottom) and mirrored
    /// (left to right). Pixel indices move for Format_Indexed8, colours otherwise; a format that
    /// has neither 8 nor 32 bits a pixel becomes Format_ARGB32.
    static QImage transformed(const QImage &square, bool rotate, bool flip, bool mirror);

private:
    QImage m_image;
    QList<QRgb> m_colours;
};
