#pragma once

#include "examples/Brush.h"

#include <QPoint>
#include <QSize>
#include <QStringList>

/// An island seen from above: kinds of land at the corners of squares of 16 by 16 pixels, with
/// rounded borders between them.
class Terrain
{
public:
    static constexpr int Side = 16; // pixels of a square

    /// The sea, with one island in its middle. @p squares is its size.
    explicit Terrain(QSize squares);

    /// Lays a way of trodden earth along corners, each in line with the next.
    void layPath(const QList<QPoint> &corners);
    /// Makes the corners of a rectangle a ploughed field.
    void plough(QRect corners);

    bool isGrass(QPoint square) const;
    bool isSea(QPoint square) const;

    void draw(Brush &brush) const;

private:
    QChar corner(int x, int y) const;
    /// How far inside the land of some letters a pixel is: 128 at the border, 0 to 256.
    int inside(int x, int y, const QString &letters) const;
    int colour(int x, int y) const;

    QSize m_size;
    QStringList m_corners;
};
