#pragma once

#include <QBitArray>
#include <QColor>
#include <QImage>
#include <QList>

class QPainter;
class SpriteBank;

namespace SpriteEditor {

/// The sprites of a bank in the grid of a list, drawn once and kept as one picture.
///
/// Sprites count from 0, from left to right and then down. Only what is asked for is drawn. A
/// picture beyond a limit of memory is not kept; its sprites are then drawn each time.
class SpriteSheet
{
public:
    struct Shape
    {
        int columns = 1;
        int cell = 16; ///< side in widget pixels
        qreal pixelRatio = 1;
        QColor background;

        bool operator==(const Shape &) const = default;
    };

    /// Brings the shape, the number of sprites and their colours up to date.
    void prepare(const SpriteBank &bank, const Shape &shape);
    /// Draws the part @p area of the grid with its top left at @p origin.
    void paint(QPainter *painter, const SpriteBank &bank, const QRect &area, QPoint origin);

    /// Forgets the picture of one sprite.
    void invalidate(int index);
    /// Forgets all.
    void invalidate();

private:
    QRect cellRect(int index) const;
    void drawStale(const SpriteBank &bank, const QRect &area);
    void drawCell(QPainter *painter, const SpriteBank &bank, int index, QPoint origin) const;
    template <typename Function>
    void forEachIn(const QRect &area, const Function &function) const;

    Shape m_shape;
    int m_count = 0;
    QList<QRgb> m_colours;
    QImage m_picture;    // null if it is too large to keep
    QBitArray m_isStale; // by sprite
};

} // namespace SpriteEditor
