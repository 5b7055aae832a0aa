#include "app/PaneKeys.h"

#include "uikit/FocusEntry.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QTabWidget>

#include <algorithm>

namespace {

bool holdsFocus(const QWidget *pane)
{
    const QWidget *const focus = QApplication::focusWidget();
    return focus && (pane == focus || pane->isAncestorOf(focus));
}

/// Where the focus goes in a pane: its main widget, which may take it by a click alone.
QWidget *entry(QWidget *pane)
{
    auto *const dock = qobject_cast<QDockWidget *>(pane);
    QWidget *const main = dock ? dock->widget() : pane;
    if (!main || !main->isEnabled())
        return nullptr;
    if (QWidget *const proxy = dock ? dock->focusProxy() : nullptr)
        return proxy;
    return FocusEntry::of(main);
}

} // namespace

PaneKeys::PaneKeys(QMainWindow *window)
    : QObject(window)
    , m_window(window)
{
    addKey(tr("Next Pane"), QKeySequence(Qt::Key_F6), 1);
    addKey(tr("Previous Pane"), QKeySequence(Qt::SHIFT | Qt::Key_F6), -1);
}

void PaneKeys::addKey(const QString &text, const QKeySequence &key, int step)
{
    auto *const action = new QAction(text, m_window);
    action->setShortcut(key);
    m_window->addAction(action);
    connect(action, &QAction::triggered, this, [this, step] { go(step); });
}

void PaneKeys::go(int step)
{
    const QList<QWidget *> all = panes();
    if (all.isEmpty())
        return;
    const auto at = std::find_if(all.begin(), all.end(), holdsFocus);
    const auto count = int(all.size());
    const int start = at == all.end() ? (step > 0 ? -1 : 0) : int(at - all.begin());
    entry(all.at((start + step + count) % count))->setFocus(Qt::ShortcutFocusReason);
}

QList<QWidget *> PaneKeys::panes() const
{
    QList<QWidget *> all;
    for (auto *const dock : m_window->findChildren<QDockWidget *>()) {
        if (!dock->visibleRegion().isEmpty() && entry(dock))
            all += dock;
    }
    if (const auto *tabs = qobject_cast<QTabWidget *>(m_window->centralWidget())) {
        if (tabs->currentWidget() && entry(tabs->currentWidget()))
            all += tabs->currentWidget();
    }
    const auto placeOf = [this](const QWidget *pane) {
        const QPoint place = pane->mapTo(m_window, QPoint());
        return std::pair(place.x(), place.y());
    };
    std::sort(all.begin(), all.end(), [&placeOf](const QWidget *one, const QWidget *other) {
        return placeOf(one) < placeOf(other);
    });
    return all;
}
