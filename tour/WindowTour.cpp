#include "tour/WindowTour.h"

#include "support/FileDialogs.h"

#include <QFileDialog>
#include <QMenu>
#include <QTimer>

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
    setSubject(QStringLiteral("window"));
    activate();
    check(m_window.isActiveWindow(), QStringLiteral("opens"));
}

void WindowTour::activate()
{
    if (QApplication::activeWindow() != &m_window) {
        m_window.activateWindow();
        static_cast<void>(
            QTest::qWaitFor([this] { return QApplication::activeWindow() == &m_window; }));
    }
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

bool WindowTour::chooseInPopup(const QString &text, const std::function<void()> &open)
{
    bool chosen = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        timer.stop();
        for (QAction *const action : menu->actions()) {
            if (action->text() == text && action->isEnabled()) {
                chosen = true;
                menu->setActiveAction(action);
                QTest::keyClick(menu, Qt::Key_Return);
                return;
            }
        }
        menu->close();
    });
    timer.start(0);
    open();
    static_cast<void>(QTest::qWaitFor([&timer] { return !timer.isActive(); }));
    return chosen;
}

void WindowTour::pictures(const QString &name, QWidget *widget)
{
    picture(name, widget);
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(0x3a3a3a), QColor(0x2b2b2b)));
    picture(name + QStringLiteral("-dark"), widget);
    QApplication::setPalette(before);
}

void WindowTour::picture(const QString &name, QWidget *widget)
{
    QApplication::processEvents();
    const QString file = m_tour.folder().filePath(QStringLiteral("window-%1.png").arg(name));
    if (!(widget ? widget : &m_window)->grab().save(file))
        check(false, QStringLiteral("picture %1 saved").arg(name));
}
