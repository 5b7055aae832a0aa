#pragma once

#include "app/MainWindow.h"

#include <QString>

#include <functional>
#include <memory>

class QMenu;

/// The program with an example open, and all that it can show: the window with each tab in front,
/// its docks and every dialog of its own.
class Surfaces
{
public:
    using Visit = std::function<void(const QString &name, QWidget *surface)>;

    /// Opens the window and the example. Needs a home of its own, as each test has.
    Surfaces();
    ~Surfaces();

    MainWindow *window() { return m_window.get(); }
    const DocumentViews &views() const { return m_window->views(); }
    Project *project() const { return m_window->projectController()->project(); }

    void visitTabs(const Visit &visit);
    void visitDocks(const Visit &visit);
    /// Each dialog is on the screen while it is visited, and closed behind it.
    void visitDialogs(const Visit &visit);
    void visitAll(const Visit &visit);

    /// The widgets of a surface that are on the screen with it.
    static QList<QWidget *> shownIn(const QWidget *surface);

private:
    void openTabs();
    void visitMenu(const QString &path, const QMenu *menu, const Visit &visit);
    void visitImports(const Visit &visit);
    void visitMapDialogs(const Visit &visit);
    void visitMessages(const Visit &visit);
    void visitPreferencePages(const QString &name, QWidget *dialog, const Visit &visit);
    /// Does @p open and visits the dialog that it brings, if any.
    void visitDialog(const QString &name, const std::function<void()> &open, const Visit &visit);

    std::unique_ptr<MainWindow> m_window;
};
