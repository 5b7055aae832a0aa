#pragma once

#include <QList>
#include <QMessageBox>
#include <QStringList>
#include <QTimer>

/// Answers the message boxes that block their caller, while it lives, and keeps what they said.
class Boxes
{
public:
    /// Every box is answered with @p answer; with NoButton it is closed.
    explicit Boxes(QMessageBox::StandardButton answer);

    /// "title: text" of each box.
    const QStringList &texts() const { return m_texts; }
    /// The standard buttons of each box, or-ed, and the one that Return presses.
    const QList<QMessageBox::StandardButtons> &buttons() const { return m_buttons; }
    const QList<QMessageBox::StandardButton> &defaults() const { return m_defaults; }

private:
    void answerVisible();

    QMessageBox::StandardButton m_answer;
    QStringList m_texts;
    QList<QMessageBox::StandardButtons> m_buttons;
    QList<QMessageBox::StandardButton> m_defaults;
    QTimer m_timer;
};
