#pragma once

#include "examples/Brush.h"

#include <QList>
#include <QPointer>
#include <QString>
#include <QUuid>

class Map;
class Project;

/// A level that is drawn as one big picture and then cut into tiles.
///
/// Below the level the picture has a strip for the frames of animated blocks, which so become tiles
/// of the same set. Cells are 8 by 8 pixels.
class Scene
{
public:
    /// Draws frame number @p step of something at a place in pixels.
    using DrawStep = void (*)(Brush &brush, QPoint at, int step);

    /// What an animated block is.
    struct Block
    {
        QString name;
        QSize size;     ///< in cells
        int delayTicks; ///< of 20 milliseconds
        int frameCount;
        bool isPlatform = false;
    };

    /// @p size of the level in cells.
    explicit Scene(QSize size);

    Brush &brush() { return m_brush; }
    QSize size() const { return m_size; }

    /// Gives the tiles that show these pixels an attribute.
    void mark(QRect pixels, int attribute);

    /// Places a block at @p places, in pixels, which must look alike. @p draw draws on what the
    /// picture shows there: the first frame at each place, all frames in the strip.
    void animate(const Block &block, DrawStep draw, const QList<QPoint> &places);

    /// Cuts the picture and makes palette, tiles, blocks and map, all named @p name. Null with a
    /// text on the error output if the art asks for too much.
    QPointer<Map> makeMap(Project *project, const QString &name) const;

private:
    struct Mark
    {
        QPoint cell;
        int attribute;
    };

    struct PlacedBlock
    {
        Block block;
        QList<QPoint> frames; ///< cells in the strip
        QList<QPoint> places; ///< cells in the level
    };

    QPoint takeStrip(QSize cells);
    void makeBlocks(Project *project, Map *map, const QString &name) const;

    QSize m_size;
    Brush m_brush;
    QPoint m_free; // the next free cell of the strip
    QList<Mark> m_marks;
    QList<PlacedBlock> m_blocks;
};
