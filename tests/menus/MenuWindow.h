#pragma once

#include "menus/MenuBar.h"
#include "model/Project.h"

#include <QMainWindow>

/// A shown window with the menu bar and an open, empty project.
class MenuWindow
{
public:
    MenuWindow()
    {
        m_window.setMenuBar(&m_bar);
        m_window.show();
        m_bar.setProject(&m_project);
    }

    QMainWindow *window() { return &m_window; }
    MenuBar *bar() { return &m_bar; }
    Project *project() { return &m_project; }

    /// The item with that text, in the menu itself.
    static QAction *item(const QMenu *menu, const QString &text)
    {
        const QList<QAction *> actions = menu->actions();
        for (QAction *action : actions) {
            if (action->text() == text)
                return action;
        }
        return nullptr;
    }

private:
    Project m_project;
    QMainWindow m_window;
    MenuBar m_bar{&m_window};
};
