#include "menus/ViewMenu.h"

ViewMenu::ViewMenu(QWidget *parent)
    : QMenu(tr("View"), parent)
    , m_windowMenu(addMenu(tr("Window")))
    , m_scratchAction(m_windowMenu->addAction(tr("Scratch Image Editor")))
{
    // By the user's hand only: what setChecked() shows has happened already.
    m_scratchAction->setCheckable(true);
    connect(m_scratchAction, &QAction::triggered, this, &ViewMenu::toggleScratch);

    QAction *reset = addAction(tr("Reset Layout"));
    connect(reset, &QAction::triggered, this, &ViewMenu::resetLayout);

    m_statusBarAction = addAction(tr("Status Bar"));
    m_statusBarAction->setCheckable(true);
    m_statusBarAction->setChecked(true);
    connect(m_statusBarAction, &QAction::triggered, this, &ViewMenu::toggleStatusBar);
}

void ViewMenu::addDockAction(QAction *action)
{
    m_windowMenu->insertAction(m_scratchAction, action);
}

void ViewMenu::setScratchEnabled(bool enabled)
{
    m_scratchAction->setEnabled(enabled);
}

void ViewMenu::setChecked(CheckableItem item, bool checked)
{
    QAction *action = item == CheckableItem::Scratch ? m_scratchAction : m_statusBarAction;
    action->setChecked(checked);
}
