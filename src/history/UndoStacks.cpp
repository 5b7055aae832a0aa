#include "history/UndoStacks.h"

#include <QUndoStack>

#include <algorithm>

UndoStacks::~UndoStacks()
{
    clear();
}

QUndoStack *UndoStacks::stack(const QUuid &id)
{
    if (QUndoStack *found = m_undoStacks.value(id))
        return found;

    auto *stack = new QUndoStack(&m_undoGroup);
    m_undoGroup.addStack(stack);
    m_undoStacks.insert(id, stack);
    return stack;
}

QUndoStack *UndoStacks::recordingStack(const QUuid &id)
{
    QUndoStack *active = m_undoGroup.activeStack();
    return active != nullptr ? active : stack(id);
}

void UndoStacks::setActive(const QUuid &id)
{
    m_undoGroup.setActiveStack(stack(id));
}

void UndoStacks::clearActive()
{
    m_undoGroup.setActiveStack(nullptr);
}

void UndoStacks::remove(const QUuid &id)
{
    delete m_undoStacks.take(id);
}

void UndoStacks::clear()
{
    clearActive();
    qDeleteAll(std::exchange(m_undoStacks, {}));
}

bool UndoStacks::isClean() const
{
    return std::all_of(m_undoStacks.cbegin(), m_undoStacks.cend(),
                       [](const QUndoStack *stack) { return stack->isClean(); });
}

void UndoStacks::markClean()
{
    for (QUndoStack *stack : std::as_const(m_undoStacks))
        stack->setClean();
}
