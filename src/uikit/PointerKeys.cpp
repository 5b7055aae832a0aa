#include "uikit/PointerKeys.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

#include <algorithm>

namespace {

bool isByKey(const QFocusEvent &event)
{
    return event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason ||
           event.reason() == Qt::ShortcutFocusReason;
}

QPoint stepOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

} // namespace

PointerKeys::PointerKeys(QWidget *widget, QWidget *focus, const Field &field,
                         Qt::KeyboardModifier modifier)
    : QObject(widget)
    , m_widget(widget)
    , m_focus(focus)
    , m_field(field)
    , m_modifier(modifier)
{
    widget->installEventFilter(this);
    if (focus != widget)
        focus->installEventFilter(this);
}

bool PointerKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_focus) {
        if (event->type() == QEvent::KeyPress)
            return keyPressed(*static_cast<QKeyEvent *>(event));
        if (event->type() == QEvent::KeyRelease)
            return keyReleased(*static_cast<QKeyEvent *>(event));
        if (event->type() == QEvent::FocusIn && isByKey(*static_cast<QFocusEvent *>(event)))
            enter();
        if (event->type() == QEvent::FocusOut)
            letGo();
    }
    const bool isMouse =
        event->type() == QEvent::MouseMove || event->type() == QEvent::MouseButtonPress;
    if (watched == m_widget && isMouse && !m_isSending)
        m_isInUse = false;
    return false;
}

/// Shows where the pointer is, without scrolling to it.
void PointerKeys::enter()
{
    if (!m_widget->isEnabled() || m_field.cells().isEmpty())
        return;
    if (!m_field.cells().contains(m_field.current()))
        moveBy({});
    m_isInUse = true;
    m_widget->update();
}

bool PointerKeys::keyPressed(const QKeyEvent &event)
{
    if (!m_widget->isEnabled() || m_field.cells().isEmpty())
        return false;
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    if (const QPoint step = stepOf(event.key()); !step.isNull() && held == m_modifier) {
        moveBy(step);
        return true;
    }
    if (event.key() != Qt::Key_Space || held != Qt::NoModifier)
        return false;
    if (!event.isAutoRepeat() && !m_isHeld) {
        if (!m_isInUse)
            moveBy({});
        m_isHeld = true;
        send(QEvent::MouseButtonPress, Qt::LeftButton);
    }
    return true;
}

bool PointerKeys::keyReleased(const QKeyEvent &event)
{
    if (event.key() != Qt::Key_Space || !m_isHeld)
        return false;
    if (!event.isAutoRepeat())
        letGo();
    return true;
}

void PointerKeys::moveBy(QPoint step)
{
    const QRect cells = m_field.cells();
    // A pointer that is nowhere enters at the first cell on view.
    const bool isInside = cells.contains(m_field.current());
    const QPoint target = isInside ? m_field.current() + step : m_field.visible().topLeft();
    const QPoint cell(std::clamp(target.x(), cells.left(), cells.right()),
                      std::clamp(target.y(), cells.top(), cells.bottom()));
    m_field.reveal(cell);
    m_isInUse = true;
    m_isSending = true;
    const QPointF position = m_field.rectOf(cell).center();
    QMouseEvent move(QEvent::MouseMove, position, m_widget->mapToGlobal(position), Qt::NoButton,
                     m_isHeld ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_widget, &move);
    m_isSending = false;
    m_widget->update();
}

void PointerKeys::letGo()
{
    if (!m_isHeld)
        return;
    m_isHeld = false;
    send(QEvent::MouseButtonRelease, Qt::LeftButton);
}

void PointerKeys::send(QEvent::Type type, Qt::MouseButton button)
{
    m_isSending = true;
    const QPointF position = m_field.rectOf(m_field.current()).center();
    QMouseEvent event(type, position, m_widget->mapToGlobal(position), button,
                      m_isHeld ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_widget, &event);
    m_isSending = false;
}
