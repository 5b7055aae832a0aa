#pragma once

#include <QObject>

class QMainWindow;
class QWidget;

/// F6 and Shift+F6 lead the focus from pane to pane of a window: the page in the middle and the
/// docks in front, from left to right and down.
///
/// They also lead where Tab does not, as to a page that takes the focus by a click.
class PaneKeys : public QObject
{
    Q_OBJECT

public:
    /// Adds the two actions to @p window, which owns this.
    explicit PaneKeys(QMainWindow *window);

private:
    void addKey(const QString &text, const QKeySequence &key, int step);
    void go(int step);
    QList<QWidget *> panes() const;

    QMainWindow *m_window;
};
