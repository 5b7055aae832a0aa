#include "app/DockRoom.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QMouseEvent>

#include <array>

namespace {

constexpr std::array Areas{Qt::LeftDockWidgetArea, Qt::RightDockWidgetArea, Qt::TopDockWidgetArea,
                           Qt::BottomDockWidgetArea};

Qt::Orientation acrossOf(Qt::DockWidgetArea area)
{
    const bool isAtSide = area == Qt::LeftDockWidgetArea || area == Qt::RightDockWidgetArea;
    return isAtSide ? Qt::Horizontal : Qt::Vertical;
}

int extent(QSize size, Qt::Orientation orientation)
{
    return orientation == Qt::Horizontal ? size.width() : size.height();
}

} // namespace

DockRoom::DockRoom(QMainWindow *window, const QList<QDockWidget *> &docks, QObject *parent)
    : QObject(parent)
    , m_window(window)
    , m_docks(docks)
{
    window->installEventFilter(this);
    // Whoever moves a dock to another area gets as much room there as the dock takes.
    for (QDockWidget *const dock : docks)
        connect(dock, &QDockWidget::dockLocationChanged, this, &DockRoom::keepAtLeast,
                Qt::QueuedConnection);
}

void DockRoom::give(const QList<QDockWidget *> &docks, const QList<int> &sizes,
                    Qt::Orientation orientation)
{
    for (qsizetype i = 0; i < docks.size(); ++i)
        m_room.insert(m_window->dockWidgetArea(docks.at(i)), sizes.at(i));
    m_window->resizeDocks(docks, sizes, orientation);
}

void DockRoom::keep()
{
    m_room.clear();
    for (const Qt::DockWidgetArea area : Areas)
        keepAtLeast(area);
}

void DockRoom::keepAtLeast(Qt::DockWidgetArea area)
{
    if (const int room = across(area); room > m_room.value(area))
        m_room.insert(area, room);
}

QList<QDockWidget *> DockRoom::shownIn(Qt::DockWidgetArea area) const
{
    QList<QDockWidget *> docks;
    for (QDockWidget *const dock : m_docks) {
        // One behind another lies beside the window.
        if (!dock->isFloating() && dock->isVisible() && m_window->dockWidgetArea(dock) == area &&
            m_window->rect().intersects(dock->geometry()))
            docks.append(dock);
    }
    return docks;
}

int DockRoom::across(Qt::DockWidgetArea area) const
{
    QRect taken;
    for (const QDockWidget *const dock : shownIn(area))
        taken |= dock->geometry();
    return extent(taken.size(), acrossOf(area));
}

bool DockRoom::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window && event->type() == QEvent::Resize) {
        // The layout has followed the window already.
        giveBack(Qt::Horizontal);
        giveBack(Qt::Vertical);
    } else if (watched == m_window && event->type() == QEvent::MouseButtonPress) {
        const auto *const press = static_cast<QMouseEvent *>(event);
        m_isPulled = m_window->isSeparator(press->position().toPoint());
    } else if (watched == m_window && event->type() == QEvent::MouseButtonRelease && m_isPulled) {
        m_isPulled = false;
        keep();
    }
    return QObject::eventFilter(watched, event);
}

void DockRoom::giveBack(Qt::Orientation orientation)
{
    QList<QDockWidget *> docks;
    QList<int> sizes;
    for (const Qt::DockWidgetArea area : Areas) {
        if (acrossOf(area) != orientation)
            continue;
        const int missing = m_room.value(area) - across(area);
        const auto shown = shownIn(area);
        if (missing <= 0 || shown.isEmpty())
            continue;
        // What one of several gets more, its area gets.
        docks.append(shown.first());
        sizes.append(extent(shown.first()->size(), orientation) + missing);
    }
    if (!docks.isEmpty())
        m_window->resizeDocks(docks, sizes, orientation);
}
