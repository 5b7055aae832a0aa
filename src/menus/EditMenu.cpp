#include "menus/EditMenu.h"

#include <QActionGroup>

EditMenu::EditMenu(QWidget *parent)
    : QMenu(tr("Edit"), parent)
    , m_clipboardActions(new QActionGroup(this))
{
    m_clipboardActions->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);

    connect(addClipboardAction(tr("Cut"), QKeySequence::Cut), &QAction::triggered, this,
            &EditMenu::cut);
    connect(addClipboardAction(tr("Copy"), QKeySequence::Copy), &QAction::triggered, this,
            &EditMenu::copy);
    connect(addClipboardAction(tr("Paste"), QKeySequence::Paste), &QAction::triggered, this,
            &EditMenu::paste);
    addSeparator();
    connect(addClipboardAction(tr("Select All"), QKeySequence::SelectAll), &QAction::triggered,
            this, &EditMenu::selectAll);
    connect(addClipboardAction(tr("Clear Selection"), QKeySequence::Deselect), &QAction::triggered,
            this, &EditMenu::selectNone);

    setClipboardEnabled(false);
}

QAction *EditMenu::addClipboardAction(const QString &text, QKeySequence::StandardKey key)
{
    QAction *action = addAction(text);
    action->setShortcuts(key);
    action->setShortcutContext(Qt::ApplicationShortcut);
    m_clipboardActions->addAction(action);
    return action;
}

void EditMenu::setClipboardEnabled(bool enabled)
{
    m_clipboardActions->setEnabled(enabled);
}

void EditMenu::insertUndoActions(QAction *undo, QAction *redo)
{
    QAction *first = actions().value(0);
    insertAction(first, undo);
    insertAction(first, redo);
    insertSeparator(first);
}
