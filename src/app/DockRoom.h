#pragma once

#include <QHash>
#include <QList>
#include <QObject>

class QDockWidget;
class QMainWindow;

/// Gives docks that a small window squeezed their room back as soon as it has grown.
///
/// Theirs is what they were given last: by give(), by keep() or by the user, who pulls at the line
/// beside them. Counts pixels across each area of the window: widths at its sides, heights above
/// and below the documents.
class DockRoom : public QObject
{
    Q_OBJECT

public:
    /// The window and the docks outlive this.
    DockRoom(QMainWindow *window, const QList<QDockWidget *> &docks, QObject *parent = nullptr);

    /// Makes the areas of @p docks as wide, or as high, as @p sizes tells one by one. Where the
    /// window is too small for that, later.
    void give(const QList<QDockWidget *> &docks, const QList<int> &sizes,
              Qt::Orientation orientation);
    /// From here on theirs is the room that they have.
    void keep();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QList<QDockWidget *> shownIn(Qt::DockWidgetArea area) const;
    int across(Qt::DockWidgetArea area) const;
    void keepAtLeast(Qt::DockWidgetArea area);
    void giveBack(Qt::Orientation orientation);

    QMainWindow *m_window;
    QList<QDockWidget *> m_docks;
    QHash<Qt::DockWidgetArea, int> m_room;
    bool m_isPulled = false; // the user has hold of a line between docks
};
