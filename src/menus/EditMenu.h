#pragma once

#include <QMenu>

class QActionGroup;

/// The clipboard and the selection of whatever has the focus. Undo and redo are put at the top by
/// the owner of the undo stacks.
class EditMenu : public QMenu
{
    Q_OBJECT

public:
    explicit EditMenu(QWidget *parent = nullptr);

    /// Turns the menu's own five actions on or off together.
    void setClipboardEnabled(bool enabled);
    /// Puts the two on top, with a separator under them. To be called once.
    void insertUndoActions(QAction *undo, QAction *redo);

signals:
    void cut();
    void copy();
    void paste();
    void selectAll();
    void selectNone();

private:
    QAction *addClipboardAction(const QString &text, QKeySequence::StandardKey key);

    QActionGroup *m_clipboardActions;
};
