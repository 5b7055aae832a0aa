#pragma once

#include "menus/EditMenu.h"
#include "menus/FileMenu.h"
#include "menus/HelpMenu.h"
#include "menus/ImageMenu.h"
#include "menus/MapMenu.h"
#include "menus/PaletteMenu.h"
#include "menus/SpriteMenu.h"
#include "menus/TileMenu.h"
#include "menus/ViewMenu.h"

#include <QMenuBar>

/// The nine menus, and their common way of hearing that a project comes or goes.
class MenuBar : public QMenuBar
{
    Q_OBJECT

public:
    explicit MenuBar(QWidget *parent = nullptr);

    FileMenu *fileMenu() { return &m_fileMenu; }
    EditMenu *editMenu() { return &m_editMenu; }
    PaletteMenu *paletteMenu() { return &m_paletteMenu; }
    TileMenu *tileMenu() { return &m_tileMenu; }
    MapMenu *mapMenu() { return &m_mapMenu; }
    SpriteMenu *spriteMenu() { return &m_spriteMenu; }
    ImageMenu *imageMenu() { return &m_imageMenu; }
    ViewMenu *viewMenu() { return &m_viewMenu; }
    HelpMenu *helpMenu() { return &m_helpMenu; }

    /// Null at the start and after a close.
    void setProject(QPointer<Project> project);

private:
    FileMenu m_fileMenu;
    EditMenu m_editMenu;
    PaletteMenu m_paletteMenu;
    TileMenu m_tileMenu;
    MapMenu m_mapMenu;
    SpriteMenu m_spriteMenu;
    ImageMenu m_imageMenu;
    ViewMenu m_viewMenu;
    HelpMenu m_helpMenu;
};
