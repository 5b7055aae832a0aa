#pragma once

#include "model/AnimationProperties.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <QUuid>

/// The block animations placed on one map, in order of placing. Owns its records.
class AnimatedBlocks : public QObject
{
    Q_OBJECT

public:
    explicit AnimatedBlocks(QObject *parent = nullptr);

    const QList<QPointer<AnimationProperties>> &blocks() const { return m_blocks; }

    /// Appends @p block, which becomes a child of the list.
    void add(AnimationProperties *block);
    /// Deletes the first record with exactly that rectangle, if there is one.
    void remove(QRect rect);
    /// Deletes the records that do not lie wholly in a map of @p size cells, and returns their
    /// rectangles.
    QList<QRect> removeOutside(QSize size);
    /// The animation of the record with exactly that rectangle, or the null id.
    QUuid find(QRect rect) const;
    /// Deletes all records.
    void clear();

private:
    QList<QPointer<AnimationProperties>> m_blocks;
};
