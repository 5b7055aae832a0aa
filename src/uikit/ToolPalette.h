#pragma once

#include "model/Enums.h"

#include <QHash>
#include <QIcon>
#include <QWidget>

class FlowLayout;
class QAction;
class QActionGroup;
class QToolButton;

/// A strip of tool buttons that wraps to its width.
///
/// It knows the text, icon and shortcut of every tool, and shows only those that its owner adds, in
/// the order added. The tools of value 0 to 9 exclude each other; the rest keep states of their
/// own.
class ToolPalette : public QWidget
{
    Q_OBJECT

public:
    using ToolButton = Tessaril::Ui::ToolButton;

    explicit ToolPalette(QWidget *parent = nullptr);

    /// Adds a button behind the others and returns its action. The shortcut works while the focus
    /// is in @p owner, or in the palette if that is null. A tool without a record or one that is
    /// shown already adds nothing; the former is logged, and gives null.
    QAction *addButton(ToolButton button, QWidget *owner = nullptr);
    /// addButton() for each.
    void addButtons(const QList<ToolButton> &buttons, QWidget *owner = nullptr);
    /// Takes a button off the palette and deletes its action; nothing if it is not there.
    void removeButton(ToolButton button);

    /// The action of a button of this palette, else null.
    QAction *action(ToolButton button) const { return m_actions.value(button); }

public slots:
    /// Checks the button of a tool, and so unchecks its exclusive siblings. Emits nothing.
    void setState(Tessaril::Ui::ToolButton mode);
    void setButtonEnabled(Tessaril::Ui::ToolButton button, bool enabled);

signals:
    /// The user has triggered a button; @p checked is its state after that.
    void actionActivated(Tessaril::Ui::ToolButton action, bool checked);

private:
    struct Button
    {
        ToolButton tool = ToolButton::Draw;
        QString text;
        QIcon icon;
        bool checkable = false;
        QKeySequence shortcut;
    };

    void fillTable();
    QAction *makeAction(const Button &record);
    void showButton(ToolButton tool, QAction *action);
    /// The action that a slot is to change. Null if it is not shown; a tool unknown altogether is
    /// logged.
    QAction *handledAction(ToolButton tool) const;

    FlowLayout *m_layout;
    QActionGroup *m_group;
    QHash<ToolButton, QAction *> m_actions;
    QHash<ToolButton, Button> m_buttons;
    QHash<ToolButton, QToolButton *> m_widgets;
};
