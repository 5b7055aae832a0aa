#pragma once

#include <QList>
#include <QObject>
#include <QPoint>
#include <QSize>
#include <QUuid>

/// One frame of an animation: a small grid of cells that name tiles or sprites.
class AnimationFrame : public QObject
{
    Q_OBJECT

public:
    struct Cell
    {
        int index = 0;  ///< of the tile or sprite
        int offset = 0; ///< palette offset
        bool flip = false;
        bool mirror = false;
        bool rotate = false;

        bool operator==(const Cell &) const = default;
    };
    using Cells = QList<QList<Cell>>;

    /// A frame of 1 by 1 cell with a new id; @p parent is the animation.
    explicit AnimationFrame(QObject *parent = nullptr);

    QUuid id() const { return m_id; }
    void setId(const QUuid &id) { m_id = id; }
    /// cells()[y][x].
    const Cells &cells() const { return m_cells; }

    /// The cell at a position, a zero one outside the frame.
    Cell cell(QPoint position) const;
    /// Writes a cell inside the frame; sends nothing.
    void setCell(QPoint position, const Cell &cell);
    /// Replaces all cells; sends nothing.
    void setCells(const Cells &cells) { m_cells = cells; }
    /// Keeps what stays inside; new cells are zero. Sends nothing.
    void resize(QSize size);
    /// Sends frameChanged() with the frame's id.
    void notifyChanged();

signals:
    void frameChanged(QUuid id);

private:
    QUuid m_id;
    Cells m_cells;
};

Q_DECLARE_METATYPE(AnimationFrame::Cell)
