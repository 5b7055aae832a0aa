#include "tour/WindowTour.h"

#include "support/FileDialogs.h"

#include <QFileDialog>
#include <QMenu>

WindowTour::WindowTour(Tour &tour)
    : m_tour(tour)
    , m_folder(tour.folder().filePath(QStringLiteral("window")))
    , m_projectFile(m_folder.filePath(QStringLiteral("window.tessaril")))
{
    m_folder.removeRecursively();
    m_folder.mkpath(QStringLiteral("."));
    ProjectController *const controller = m_window.projectController();
    controller->_unsavedPrompt = [](const QString &) { return ProjectController::DiscardChanges; };
    controller->_savePath = [this] { return m_projectFile; };
    m_window.resize(1280, 900);
    m_window.show();
    m_window.activateWindow();
    setSubject(QStringLiteral("window"));
    check(QTest::qWaitForWindowActive(&m_window), QStringLiteral("opens"));
}

bool WindowTour::check(bool holds, const QString &what)
{
    return m_tour.check(holds, m_subject, what);
}

bool WindowTour::choose(const QMenu *menu, const QString &text)
{
    for (QAction *const action : menu->actions()) {
        if (action->text().startsWith(text) && action->isEnabled()) {
            action->trigger();
            return true;
        }
    }
    return check(false, QStringLiteral("%1 > %2 is on").arg(menu->title(), text));
}

bool WindowTour::chooseFile(const QString &file)
{
    auto *const dialog = this->dialog<QFileDialog>();
    if (dialog)
        FileDialogs::choose(dialog, file);
    return dialog;
}

void WindowTour::picture(const QString &name, QWidget *widget)
{
    QApplication::processEvents();
    const QString file = m_tour.folder().filePath(QStringLiteral("window-%1.png").arg(name));
    if (!(widget ? widget : &m_window)->grab().save(file))
        check(false, QStringLiteral("picture %1 saved").arg(name));
}
