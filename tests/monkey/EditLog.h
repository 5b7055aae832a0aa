#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QUndoStack>

/// The order in which the commands of several stacks were made, so that all can be undone the way
/// they came.
class EditLog : public QObject
{
    Q_OBJECT

public:
    /// Follows @p stack, which must be empty.
    void follow(QUndoStack *stack)
    {
        connect(stack, &QUndoStack::indexChanged, this, [this, stack](int index) {
            if (!m_replaying && index > countOf(stack))
                m_order.append(stack);
        });
    }

    qsizetype size() const { return m_order.size(); }

    void undoAll()
    {
        m_replaying = true;
        for (auto stack = m_order.crbegin(); stack != m_order.crend(); ++stack)
            (*stack)->undo();
        m_replaying = false;
    }

    void redoAll()
    {
        m_replaying = true;
        for (QUndoStack *const stack : std::as_const(m_order))
            stack->redo();
        m_replaying = false;
    }

private:
    qsizetype countOf(QUndoStack *stack) const { return m_order.count(stack); }

    QList<QUndoStack *> m_order;
    bool m_replaying = false;
};
