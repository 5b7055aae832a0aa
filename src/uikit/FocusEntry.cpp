#include "uikit/FocusEntry.h"

#include <QWidget>

QWidget *FocusEntry::of(QWidget *pane)
{
    if (pane->focusPolicy() != Qt::NoFocus)
        return pane;
    for (QWidget *widget = pane->nextInFocusChain(); widget && widget != pane;
         widget = widget->nextInFocusChain()) {
        const bool isStop = (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (isStop && pane->isAncestorOf(widget) && widget->isEnabled() && widget->isVisible())
            return widget;
    }
    return nullptr;
}
