#include "app/LayoutController.h"

#include "menus/ViewMenu.h"
#include "uikit/DockWidget.h"

#include <QAction>
#include <QMainWindow>
#include <QTabBar>

#include <algorithm>

namespace {

/// Of the tabs of docks that share a place, none cut short.
int widthOfTabs(const QStringList &titles)
{
    QTabBar bar;
    bar.setShape(QTabBar::RoundedSouth);
    for (const QString &title : titles)
        bar.addTab(title);
    return bar.sizeHint().width();
}

} // namespace

LayoutController::LayoutController(QMainWindow *window, const Docks &docks, ViewMenu *viewMenu,
                                   QObject *parent)
    : QObject(parent)
    , m_window(window)
    , m_docks(docks)
    , m_room(window, {docks.project, docks.palette, docks.tile, docks.sprite, docks.tilePicker,
                      docks.blockSelector, docks.mapSprites})
    , m_leftTabs{docks.blockSelector->windowTitle(), docks.mapSprites->windowTitle()}
{
    for (DockWidget *const dock : {docks.project, docks.palette, docks.tile, docks.sprite,
                                   docks.tilePicker, docks.blockSelector, docks.mapSprites})
        viewMenu->addDockAction(dock->toggleViewAction());
    connect(viewMenu, &ViewMenu::resetLayout, this, &LayoutController::resetLayout);
}

void LayoutController::resetLayout()
{
    m_window->setTabShape(QTabWidget::Rounded);
    m_window->setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::South);
    for (DockWidget *const dock : {m_docks.project, m_docks.sprite, m_docks.tile, m_docks.palette,
                                   m_docks.blockSelector, m_docks.mapSprites})
        m_window->removeDockWidget(dock);

    m_window->addDockWidget(Qt::LeftDockWidgetArea, m_docks.project);
    m_window->addDockWidget(Qt::LeftDockWidgetArea, m_docks.blockSelector);
    m_window->addDockWidget(Qt::LeftDockWidgetArea, m_docks.mapSprites);
    m_window->tabifyDockWidget(m_docks.blockSelector, m_docks.mapSprites);
    m_window->addDockWidget(Qt::RightDockWidgetArea, m_docks.tile);
    m_window->addDockWidget(Qt::RightDockWidgetArea, m_docks.palette);
    m_window->tabifyDockWidget(m_docks.palette, m_docks.tile);
    m_window->addDockWidget(Qt::RightDockWidgetArea, m_docks.sprite);
    m_window->tabifyDockWidget(m_docks.palette, m_docks.sprite);
    m_window->addDockWidget(Qt::BottomDockWidgetArea, m_docks.tilePicker);

    const auto all = {m_docks.project, m_docks.blockSelector, m_docks.mapSprites, m_docks.sprite,
                      m_docks.tile,    m_docks.palette,       m_docks.tilePicker};
    for (DockWidget *const dock : all)
        dock->setFloating(false);
    for (DockWidget *const dock : all)
        dock->setVisible(true);
    shareRoom();
}

void LayoutController::shareRoom()
{
    constexpr int PickerHeight = 120; // pixels: two rows of tiles
    const auto width = [](const DockWidget *dock) { return dock->sizeHint().width(); };
    const int left = std::max(width(m_docks.project), widthOfTabs(m_leftTabs));
    m_room.give({m_docks.project, m_docks.tile}, {left, width(m_docks.tile)}, Qt::Horizontal);
    m_room.give({m_docks.tilePicker}, {PickerHeight}, Qt::Vertical);
}
