#include "control/DocumentTabBar.h"

#include <QHelpEvent>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr int LeastLetters = 8; // of a shortened text

} // namespace

QSize DocumentTabBar::minimumTabSizeHint(int index) const
{
    const int letters = LeastLetters * fontMetrics().averageCharWidth();
    const QSize shortest = QTabBar::minimumTabSizeHint(index);
    const QSize whole = tabSizeHint(index);
    return {std::min(shortest.width() + letters, whole.width()), shortest.height()};
}

bool DocumentTabBar::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QTabBar::event(event);
    const auto *const help = static_cast<QHelpEvent *>(event);
    const int index = tabAt(help->pos());
    if (index < 0 || tabRect(index).width() >= tabSizeHint(index).width())
        return QTabBar::event(event);

    const QString text = tabText(index);
    QToolTip::showText(help->globalPos(), Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text,
                       this);
    return true;
}
