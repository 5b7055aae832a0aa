#pragma once

#include <QColor>
#include <QHash>
#include <QImage>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QStringList>

/// Draws the examples' art on a picture, in whole numbers only, so that every machine makes the
/// same pixels.
///
/// Coordinates are pixels; what falls outside the picture is left out. Colours are three octal
/// digits, the levels of red, green and blue: 0750 is full red, five sevenths green, no blue.
class Brush
{
public:
    using Legend = QHash<QChar, int>;

    static constexpr int None = -1; ///< no colour

    explicit Brush(QSize size);

    /// The screen colour of three octal digits.
    static QRgb colour(int octal);
    /// An even spread of 0 to 255 that depends on nothing but its arguments.
    static int noise(int x, int y, int seed);
    /// noise() of the corners of squares @p side wide, blended in between; 0 to 255.
    static int smoothNoise(int x, int y, int side, int seed);
    /// Several octaves of smoothNoise(), the widest @p side wide; 0 to 255.
    static int cloudNoise(int x, int y, int side, int seed);
    /// Whether a pixel takes the second of two colours mixed @p level in 16, in an ordered pattern.
    static bool isMixed(int x, int y, int level);
    /// The colour of a pixel in a ramp of colours at @p place out of @p length, mixed in between.
    static int ramp(const QList<int> &colours, int place, int length, int x, int y);

    const QImage &picture() const { return m_picture; }
    bool contains(int x, int y) const { return m_picture.valid(x, y); }

    void dot(int x, int y, int octal);
    void fill(QRect rect, int octal);
    void disc(QPoint centre, int radius, int octal);
    void line(QPoint from, QPoint to, int octal);
    /// A ball lit from the upper left, in colours from dark to light.
    void ball(QPoint centre, int radius, const QList<int> &colours, int seed);
    /// Mixes a colour into everything around a light, less with the distance.
    void glow(QPoint centre, int radius, int octal);
    /// Draws rows of letters with their colours; a letter that the legend lacks is left out.
    void stamp(QPoint at, const QStringList &rows, const Legend &legend, bool mirrored = false);
    /// Copies a part of the picture to another place.
    void copy(QRect from, QPoint to);

private:
    QImage m_picture;
};
