#include "uikit/CurrentItem.h"

#include <QListWidget>
#include <QMouseEvent>

bool isPressOnCurrentItem(const QListWidget &list, const QEvent &event)
{
    if (event.type() != QEvent::MouseButtonPress)
        return false;
    const auto &press = static_cast<const QMouseEvent &>(event);
    const QListWidgetItem *const item = list.itemAt(press.position().toPoint());
    return press.button() == Qt::LeftButton && item && item == list.currentItem();
}
