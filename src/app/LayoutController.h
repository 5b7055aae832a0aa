#pragma once

#include "app/DockRoom.h"

#include <QObject>

class DockWidget;
class QMainWindow;
class ViewMenu;

/// Sets where the docks stand.
class LayoutController : public QObject
{
    Q_OBJECT

public:
    struct Docks
    {
        DockWidget *project;
        DockWidget *palette;
        DockWidget *tile;
        DockWidget *sprite;
        DockWidget *tilePicker;
        DockWidget *blockSelector;
        DockWidget *mapSprites;
    };

    /// The window and the docks outlive this. The docks' toggle actions go into @p viewMenu.
    LayoutController(QMainWindow *window, const Docks &docks, ViewMenu *viewMenu,
                     QObject *parent = nullptr);

public slots:
    /// Every dock in its place of the beginning, shown. The tile picker is not taken out before.
    void resetLayout();

    /// Gives the docks the room that their content and tabs need and the documents all the rest.
    /// Without it docks grow with the names in their titles. Counts only once the window is shown.
    void shareRoom();
    /// After a smaller window the docks come back to the room that they have now.
    void keepRoom() { m_room.keep(); }

private:
    QMainWindow *m_window;
    Docks m_docks;
    DockRoom m_room;
    QStringList m_leftTabs; // their titles without the names of documents
};
