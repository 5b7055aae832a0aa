#pragma once

#include <QImage>
#include <QUndoCommand>
#include <QVariant>

#include <functional>

/// One stroke, or a run of scrolls, on a canvas: the whole picture before and after.
///
/// Made after the edit, so that its first redo() does nothing.
class PixelEditCommand : public QUndoCommand
{
public:
    using Apply = std::function<void(const QImage &)>;

    /// The id of the command, too.
    enum class Kind : int {
        Edit = -1, ///< never merges
        Scroll = 1 ///< merges with the scroll before it, however long ago
    };

    /// @p apply puts a picture back and must not be empty; it guards its own target. @p mergeKey
    /// identifies the edited object.
    PixelEditCommand(const QString &text, const QImage &before, const QImage &after, Apply apply,
                     const QVariant &mergeKey, Kind kind);

    void undo() override;
    void redo() override;
    int id() const override { return static_cast<int>(m_kind); }
    bool mergeWith(const QUndoCommand *other) override;

private:
    QImage m_before;
    QImage m_after;
    Apply m_apply;
    QVariant m_mergeKey;
    Kind m_kind;
    bool m_applied = true;
};
