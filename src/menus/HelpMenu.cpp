#include "menus/HelpMenu.h"

#include "dialogs/About.h"
#include "menus/MenuDialogs.h"

HelpMenu::HelpMenu(QWidget *parent)
    : QMenu(tr("Help"), parent)
    , m_checkAction(addAction(tr("Check for Updates…")))
{
    m_checkAction->setMenuRole(QAction::NoRole);
    connect(m_checkAction, &QAction::triggered, this, &HelpMenu::checkForUpdates);
    setUpdateCheckEnabled(false);

    QAction *about = addAction(tr("About"));
    connect(about, &QAction::triggered, this, &HelpMenu::displayAbout);
}

About *HelpMenu::about()
{
    if (!m_about) {
        m_about = new About(MenuDialogs::parentFor(this));
        m_about->setUpdateStatus(m_updateStatus);
        connect(m_about, &About::checkForUpdates, this, &HelpMenu::checkFromAbout);
    }
    return m_about;
}

void HelpMenu::setUpdateStatus(const QString &text)
{
    m_updateStatus = text;
    if (m_about)
        m_about->setUpdateStatus(text);
}

void HelpMenu::setUpdateCheckEnabled(bool enabled)
{
    m_checkAction->setEnabled(enabled);
}

void HelpMenu::displayAbout()
{
    about()->open();
}
