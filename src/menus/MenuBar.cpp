#include "menus/MenuBar.h"

#include "model/Project.h"

MenuBar::MenuBar(QWidget *parent)
    : QMenuBar(parent)
    , m_fileMenu(this)
    , m_editMenu(this)
    , m_paletteMenu(this)
    , m_tileMenu(this)
    , m_mapMenu(this)
    , m_spriteMenu(this)
    , m_imageMenu(this)
    , m_viewMenu(this)
    , m_helpMenu(this)
{
    for (QMenu *menu : std::initializer_list<QMenu *>{&m_fileMenu, &m_editMenu, &m_paletteMenu,
                                                      &m_tileMenu, &m_mapMenu, &m_spriteMenu,
                                                      &m_imageMenu, &m_viewMenu, &m_helpMenu}) {
        addMenu(menu);
    }
}

void MenuBar::setProject(QPointer<Project> project)
{
    m_spriteMenu.setProject(project);
    m_tileMenu.setProject(project);
    m_fileMenu.setProject(project);
    m_paletteMenu.setProject(project);
    m_mapMenu.setProject(project);
    m_imageMenu.setProject(project);
}
