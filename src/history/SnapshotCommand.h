#pragma once

#include <QUndoCommand>
#include <QVariant>

#include <functional>

/// An undo step that holds a whole state before and after an edit.
///
/// The state is a value whose images and lists are shared with the model until one side changes, so
/// that a step costs what the edit changed. The step is made after the edit: its first redo(),
/// which QUndoStack::push() calls at once, does nothing. Times are milliseconds.
template <typename T>
class SnapshotCommand : public QUndoCommand
{
public:
    using Apply = std::function<void(const T &)>;

    /// How a step merges with the one before it: by equal ids other than -1 and equal keys, within
    /// the window if that is not negative.
    struct Merging
    {
        int id = -1;
        QVariant key;
        qint64 window = -1;
    };

    /// @p apply puts a state into the model; it must not be empty. @p timestamp is the time of the
    /// edit.
    SnapshotCommand(const QString &text, const T &before, const T &after, Apply apply,
                    const Merging &merging, qint64 timestamp)
        : QUndoCommand(text)
        , m_before(before)
        , m_after(after)
        , m_apply(std::move(apply))
        , m_commandId(merging.id)
        , m_mergeKey(merging.key)
        , m_mergeWindow(merging.window)
        , m_timestamp(timestamp)
    {
        Q_ASSERT(m_apply);
    }

    void undo() override
    {
        m_apply(m_before);
        QUndoCommand::undo();
        m_applied = false;
    }

    void redo() override
    {
        if (m_applied)
            return;
        m_apply(m_after);
        QUndoCommand::redo();
        m_applied = true;
    }

    int id() const override { return m_commandId; }

    /// The window is measured from the latest edit merged so far, so that a steady stream of edits
    /// stays one step.
    bool mergeWith(const QUndoCommand *other) override
    {
        const auto *next = dynamic_cast<const SnapshotCommand *>(other);
        if (next == nullptr || m_mergeKey != next->m_mergeKey)
            return false;
        if (m_mergeWindow >= 0 && next->m_timestamp - m_timestamp > m_mergeWindow)
            return false;

        m_after = next->m_after;
        m_timestamp = next->m_timestamp;
        return true;
    }

    const T &before() const { return m_before; }
    const T &after() const { return m_after; }

private:
    T m_before;
    T m_after;
    Apply m_apply;
    int m_commandId;
    QVariant m_mergeKey;
    qint64 m_mergeWindow;
    qint64 m_timestamp;
    bool m_applied = true;
};
