#include "model/AnimationFrame.h"

#include <algorithm>

AnimationFrame::AnimationFrame(QObject *parent)
    : QObject(parent)
    , m_id(QUuid::createUuid())
{
    resize({1, 1});
}

AnimationFrame::Cell AnimationFrame::cell(QPoint position) const
{
    return m_cells.value(position.y()).value(position.x());
}

void AnimationFrame::setCell(QPoint position, const Cell &cell)
{
    if (position.y() < 0 || position.y() >= m_cells.size())
        return;
    QList<Cell> &row = m_cells[position.y()];
    if (position.x() < 0 || position.x() >= row.size())
        return;

    row[position.x()] = cell;
}

void AnimationFrame::resize(QSize size)
{
    m_cells.resize(std::max(size.height(), 0));
    for (QList<Cell> &row : m_cells)
        row.resize(std::max(size.width(), 0));
}

void AnimationFrame::notifyChanged()
{
    emit frameChanged(m_id);
}
