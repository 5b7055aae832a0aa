#include "uikit/FillingFlowLayout.h"

#include <QHBoxLayout>
#include <QWidget>

#include <algorithm>

namespace {

bool expands(const QLayoutItem *item)
{
    return item->expandingDirections().testFlag(Qt::Horizontal);
}

} // namespace

QHBoxLayout *FillingFlowLayout::addGroup()
{
    auto *group = new QWidget;
    auto *row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    addWidget(group);
    return row;
}

QSize FillingFlowLayout::sizeHint() const
{
    Row all;
    QSize size = minimumSize();
    for (int i = 0; i < count(); ++i) {
        if (!itemAt(i)->isEmpty())
            all.append(itemAt(i));
    }
    const QMargins margins = contentsMargins();
    size.setWidth(std::max(size.width(), rowWidth(all) + margins.left() + margins.right()));
    return size;
}

void FillingFlowLayout::place(const Row &row, const QRect &line) const
{
    const auto expanding = std::count_if(row.begin(), row.end(), expands);
    int free = line.width() - rowWidth(row);
    int shares = static_cast<int>(expanding);
    int x = line.left();
    for (QLayoutItem *item : row) {
        int width = item->sizeHint().width();
        if (free < 0) {
            width = std::max(width + free, item->minimumSize().width());
        } else if (expands(item)) {
            const int share = free / shares--;
            width += share;
            free -= share;
        }
        item->setGeometry(QRect(x, line.top(), width, line.height()));
        x += width + gap();
    }
}
