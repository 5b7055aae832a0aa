#pragma once

#include <QMenu>

/// What of the window is shown.
class ViewMenu : public QMenu
{
    Q_OBJECT

public:
    /// The items that can be ticked from outside.
    enum class CheckableItem { Scratch, StatusBar };
    Q_ENUM(CheckableItem)

    explicit ViewMenu(QWidget *parent = nullptr);

    /// Adds the toggle action of a dock to the "Window" submenu, before the scratch editor's.
    void addDockAction(QAction *action);

signals:
    void toggleScratch(bool visible);
    void toggleStatusBar(bool visible);
    void resetLayout();

public slots:
    void setScratchEnabled(bool enabled);
    /// Ticks an item to show what is; sends nothing.
    void setChecked(CheckableItem item, bool checked);

private:
    QMenu *m_windowMenu;
    QAction *m_scratchAction;
    QAction *m_statusBarAction;
};
