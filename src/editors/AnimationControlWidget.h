#pragma once

#include <QHash>
#include <QWidget>

#include <optional>

class FlowLayout;
class QAction;
class QHBoxLayout;
class QLabel;

/// The transport row of an animation: which frame of how many, and the buttons that play, step, add
/// and delete. It changes nothing itself; its owner acts and tells it the frame.
class AnimationControlWidget : public QWidget
{
    Q_OBJECT

public:
    enum Action {
        First = 0,
        Previous = 1,
        Play = 2,
        Pause = 3, ///< checkable
        Stop = 4,
        Next = 5,
        Last = 6,
        Add = 7,
        Delete = 8,
        Loop = 9,     ///< checkable, the only play mode
        PingPong = 10 ///< checkable, always disabled
    };
    Q_ENUM(Action)

    explicit AnimationControlWidget(QWidget *parent = nullptr);

    /// The frame (from 0) that a button goes to from @p frame of @p count; it may lie outside of
    /// the animation. None for the buttons that do something else.
    static std::optional<int> destination(Action action, int frame, int count);

    int current() const { return m_current; }
    int count() const { return m_count; }
    QAction *action(Action action) const { return m_actions.value(action); }

public slots:
    /// Frames are shown from 1; @p current is brought between 1 and @p count, the latter going
    /// first.
    void setFrame(int current, int count);

signals:
    void buttonClicked(AnimationControlWidget::Action action, bool checked);

private:
    static QHBoxLayout *addGroup(FlowLayout *rows);
    void addButton(QHBoxLayout *row, Action action);

    int m_current = 1;
    int m_count = 1;
    QLabel *m_label;
    QHash<Action, QAction *> m_actions;
};
