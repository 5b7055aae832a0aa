#pragma once

#include "control/ProjectActions.h"
#include "control/ProjectController.h"
#include "menus/MenuBar.h"

#include <QMainWindow>

/// A window with nothing but its menus, a new project, and the actions that make documents in it.
struct ActionsDesk
{
    explicit ActionsDesk(const QString &name)
    {
        window.setMenuBar(bar);
        window.show();
        control.newProject(name);
    }

    DocumentViews views() const
    {
        DocumentViews views;
        views.menuBar = bar;
        return views;
    }
    Project *project() const { return control.project(); }

    QMainWindow window;
    MenuBar *bar = new MenuBar(&window);
    ProjectController control{&window, bar->fileMenu()};
    ProjectActions actions{views(), &control, nullptr};
};
