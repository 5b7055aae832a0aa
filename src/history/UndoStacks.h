#pragma once

#include <QHash>
#include <QUndoGroup>
#include <QUuid>

class QUndoStack;

/// The undo stacks of the open documents, one for each id, in one group.
///
/// The null id names the stack of the scratch image. Owns the stacks.
class UndoStacks
{
public:
    UndoStacks() = default;
    ~UndoStacks();
    Q_DISABLE_COPY_MOVE(UndoStacks)

    QUndoGroup *group() { return &m_undoGroup; }

    /// The stack of a document, made at the first request.
    QUndoStack *stack(const QUuid &id);
    /// Where an edit of document @p id is recorded: on the active stack, which is that of the
    /// document on display, or without one on the document's own.
    QUndoStack *recordingStack(const QUuid &id);

    void setActive(const QUuid &id);
    void clearActive();
    /// Deletes the stack of a document, if it has one.
    void remove(const QUuid &id);
    /// Deletes all stacks.
    void clear();

    /// True if every stack is at its clean index, and also if there are none.
    bool isClean() const;
    void markClean();

private:
    QUndoGroup m_undoGroup;
    QHash<QUuid, QUndoStack *> m_undoStacks;
};
