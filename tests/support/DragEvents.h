#pragma once

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QWidget>

/// Drags over a widget as the window system reports them.
namespace DragEvents {

/// Whether @p widget takes the drag.
inline bool enter(QWidget *widget, QPoint position, const QMimeData *data)
{
    QDragEnterEvent event(position, Qt::CopyAction | Qt::MoveAction, data, Qt::LeftButton,
                          Qt::NoModifier);
    event.ignore();
    QCoreApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

inline bool move(QWidget *widget, QPoint position, const QMimeData *data)
{
    QDragMoveEvent event(position, Qt::CopyAction | Qt::MoveAction, data, Qt::LeftButton,
                         Qt::NoModifier);
    event.ignore();
    QCoreApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

inline void leave(QWidget *widget)
{
    QDragLeaveEvent event;
    QCoreApplication::sendEvent(widget, &event);
}

/// Enters, moves and drops. Whether @p widget took what was dropped.
inline bool drop(QWidget *widget, QPoint position, const QMimeData *data,
                 Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    if (!enter(widget, position, data))
        return false;
    move(widget, position, data);
    QDropEvent event(position, Qt::CopyAction | Qt::MoveAction, data, Qt::LeftButton, modifiers);
    event.ignore();
    QCoreApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

} // namespace DragEvents
