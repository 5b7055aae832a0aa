#pragma once

#include "app/MainWindow.h"
#include "tour/Tour.h"

#include <QApplication>
#include <QTest>

#include <functional>

class QAction;
class QMenu;

/// The real window and the hands of its user: its menus, dialogs and mouse.
///
/// What cannot be done is a failed row of the tour's table.
class WindowTour
{
public:
    /// Opens the window. Unsaved changes are thrown away, and a project is saved to projectFile().
    explicit WindowTour(Tour &tour);

    Tour &tour() { return m_tour; }
    MainWindow &window() { return m_window; }
    const DocumentViews &views() const { return m_window.views(); }
    Project *project() { return m_window.projectController()->project(); }
    QString projectFile() const { return m_projectFile; }
    QDir folder() const { return m_folder; }

    /// Tells and counts, with what is being shown as the subject.
    bool check(bool holds, const QString &what);
    void setSubject(const QString &subject) { m_subject = subject; }

    /// Triggers the item of @p menu whose text begins with @p text, if it is on.
    bool choose(const QMenu *menu, const QString &text);
    bool undo() { return choose(views().menuBar->editMenu(), QStringLiteral("Undo")); }
    bool redo() { return choose(views().menuBar->editMenu(), QStringLiteral("Redo")); }
    /// Makes the window the active one again, as a window manager does when a dialog closes.
    void activate();
    /// Types @p file into the file dialog on the screen.
    bool chooseFile(const QString &file);
    /// Does @p open, which shows a context menu, and presses its entry @p text; false if there is
    /// none, or it is off.
    bool chooseInPopup(const QString &text, const std::function<void()> &open);

    /// The dialog of that kind on the screen, after a while; null and a failed row if there is
    /// none.
    template <typename Dialog>
    Dialog *dialog()
    {
        Dialog *found = nullptr;
        const bool shown = QTest::qWaitFor([&found] {
            for (QWidget *widget : QApplication::topLevelWidgets()) {
                auto *const one = qobject_cast<Dialog *>(widget);
                if (one && one->isVisible())
                    found = one;
            }
            return found != nullptr;
        });
        if (!shown)
            check(false, QStringLiteral("%1 shows").arg(Dialog::staticMetaObject.className()));
        return found;
    }

    /// Saves a picture of @p widget, or of the whole window, as "window-NAME.png".
    void picture(const QString &name, QWidget *widget = nullptr);
    /// The same in light colours and, as "window-NAME-dark.png", in dark ones.
    void pictures(const QString &name, QWidget *widget = nullptr);

private:
    Tour &m_tour;
    MainWindow m_window;
    QDir m_folder;
    QString m_projectFile;
    QString m_subject;
};

/// The chapters in the window; each goes on with the project of the one before.
void shellChapter(WindowTour &tour, const QString &reader);
void documentChapter(WindowTour &tour);
