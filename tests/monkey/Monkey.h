#pragma once

#include <QEvent>
#include <QObject>
#include <QRandomGenerator>
#include <QStringList>
#include <QTimer>

class MainWindow;
class QAction;
class QMenu;
class QWidget;

/// A user without any plan: presses keys and buttons, drags the mouse over whatever is visible and
/// chooses from menus, by a seed that repeats the same day.
///
/// Boxes and menus that wait for an answer get one, at random, before the action returns.
class Monkey : public QObject
{
    Q_OBJECT

public:
    /// What it may do.
    enum class Reach {
        Editors,   ///< all that can be undone: the views and docks that edit
        Everything ///< also the tree, tabs, menus and dialogs, undo among them
    };

    Monkey(MainWindow *window, quint32 seed, Reach reach);
    /// Lets go of what is still being dragged.
    ~Monkey() override;

    void act();
    /// The latest actions, one a line.
    QString diary() const { return m_diary.join(QLatin1Char('\n')); }

private:
    using Gesture = void (Monkey::*)(QWidget *);

    int pick(int count) { return m_random.bounded(count); }
    QList<QWidget *> targets();
    bool isAllowed(const QWidget *widget) const;
    bool isAllowed(const QAction *action) const;

    void useMouse(QWidget *widget);
    void useWheel(QWidget *widget);
    void useKeys(QWidget *widget);
    void useMenu(QWidget *);
    void sendMouse(QWidget *widget, QEvent::Type type, QPoint position, Qt::MouseButton button,
                   Qt::MouseButtons held, Qt::KeyboardModifiers modifiers);

    void answer();
    void answerMenu(QMenu *menu);
    void answerDialog(QWidget *dialog);
    void note(const QString &what);

    MainWindow *m_window;
    QRandomGenerator m_random;
    Reach m_reach;
    QStringList m_diary;
    QTimer m_answering;
    bool m_isActing = false;
    int m_waited = 0; // rounds, while an action runs
};
