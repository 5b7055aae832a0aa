#pragma once

#include <QEvent>
#include <QObject>
#include <QPoint>
#include <QRect>

#include <functional>

class QKeyEvent;
class QWidget;

/// Lets keys do on a field of cells what the mouse does there.
///
/// Arrow keys move a pointer from cell to cell, and Space is the left button: it is held as long as
/// the key. The widget gets ordinary mouse events at the centre of the cell. Cells are counted as
/// the owner likes. Keys that bring the focus show the pointer where it is.
class PointerKeys : public QObject
{
    Q_OBJECT

public:
    /// What the owner tells of its field.
    struct Field
    {
        std::function<QRect()> cells;            ///< all there are; empty for no pointer
        std::function<QRect()> visible;          ///< those on view, maybe with some beyond the edge
        std::function<QPoint()> current;         ///< under the pointer now; may be outside
        std::function<void(QPoint cell)> reveal; ///< scrolls until the cell is on view
        std::function<QRect(QPoint cell)> rectOf; ///< in widget pixels
    };

    /// Sends to @p widget, which owns this, the events for keys that reach @p focus. The arrows
    /// count with exactly @p modifier held.
    PointerKeys(QWidget *widget, QWidget *focus, const Field &field,
                Qt::KeyboardModifier modifier = Qt::NoModifier);

    /// Whether keys moved or showed the pointer last.
    bool isInUse() const { return m_isInUse; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void enter();
    bool keyPressed(const QKeyEvent &event);
    bool keyReleased(const QKeyEvent &event);
    void moveBy(QPoint step);
    void letGo();
    void send(QEvent::Type type, Qt::MouseButton button);

    QWidget *m_widget;
    QWidget *m_focus;
    Field m_field;
    Qt::KeyboardModifier m_modifier;
    bool m_isHeld = false;
    bool m_isInUse = false;
    bool m_isSending = false;
};
