#include "uikit/FlowLayout.h"

#include <QWidget>

#include <algorithm>

FlowLayout::FlowLayout(QWidget *parent)
    : QLayout(parent)
{
}

FlowLayout::~FlowLayout()
{
    qDeleteAll(m_items);
}

void FlowLayout::setSpacing(int spacing)
{
    if (spacing == m_spacing)
        return;

    m_spacing = spacing;
    invalidate();
}

void FlowLayout::addItem(QLayoutItem *item)
{
    m_items.append(item);
    invalidate();
}

int FlowLayout::count() const
{
    return static_cast<int>(m_items.size());
}

QLayoutItem *FlowLayout::itemAt(int index) const
{
    return m_items.value(index);
}

QLayoutItem *FlowLayout::takeAt(int index)
{
    if (index < 0 || index >= m_items.size())
        return nullptr;

    QLayoutItem *const item = m_items.takeAt(index);
    invalidate();
    return item;
}

Qt::Orientations FlowLayout::expandingDirections() const
{
    return {};
}

bool FlowLayout::hasHeightForWidth() const
{
    return true;
}

int FlowLayout::heightForWidth(int width) const
{
    return layOut(QRect(0, 0, width, 0), Run::Test);
}

void FlowLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    layOut(rect, Run::Place);
}

QSize FlowLayout::sizeHint() const
{
    return minimumSize();
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const QLayoutItem *item : m_items)
        size = size.expandedTo(item->minimumSize());
    const QMargins margins = contentsMargins();
    return size.grownBy(margins);
}

QList<FlowLayout::Row> FlowLayout::rowsFor(int availableWidth) const
{
    QList<Row> rows;
    int used = 0;
    for (QLayoutItem *item : m_items) {
        if (item->isEmpty())
            continue;
        const int width = item->sizeHint().width();
        if (!rows.isEmpty() && used + gap() + width <= availableWidth) {
            rows.last().append(item);
            used += gap() + width;
        } else {
            rows.append(Row{item});
            used = width;
        }
    }
    return rows;
}

int FlowLayout::rowWidth(const Row &row) const
{
    int width = gap() * (static_cast<int>(row.size()) - 1);
    for (const QLayoutItem *item : row)
        width += item->sizeHint().width();
    return width;
}

int FlowLayout::gap() const
{
    return std::max(0, spacing());
}

int FlowLayout::layOut(const QRect &rect, Run run) const
{
    const QMargins margins = contentsMargins();
    const QRect inner = rect.marginsRemoved(margins);
    const QList<Row> rows = rowsFor(inner.width());

    int y = inner.top();
    for (const Row &row : rows) {
        int height = 0;
        for (const QLayoutItem *item : row)
            height = std::max(height, item->sizeHint().height());
        if (run == Run::Place)
            place(row, QRect(inner.left(), y, inner.width(), height));
        y += height + gap();
    }
    if (!rows.isEmpty())
        y -= gap();
    return y - rect.top() + margins.bottom();
}

void FlowLayout::place(const Row &row, const QRect &line) const
{
    const int free = line.width() - rowWidth(row);
    int x = free > 1 ? line.left() + free / 2 : line.left();
    for (QLayoutItem *item : row) {
        const QSize size = item->sizeHint();
        item->setGeometry(QRect(QPoint(x, line.top()), size));
        x += size.width() + gap();
    }
}
