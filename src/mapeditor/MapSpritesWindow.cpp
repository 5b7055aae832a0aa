#include "mapeditor/MapSpritesWindow.h"

#include "mapeditor/SpriteAnimSelector.h"

MapSpritesWindow::MapSpritesWindow(QWidget *parent)
    : DockWidget(parent)
    , m_selector(new SpriteAnimSelector)
{
    setObjectName(QStringLiteral("MapSpritesWindow"));
    setWindowTitle(tr("Map Sprites"));
    setPlaceholderText(tr("No sprite banks"));
    setContentWidget(m_selector);
    connect(m_selector, &SpriteAnimSelector::selectionChanged, this,
            &MapSpritesWindow::selectionChanged);
    connect(m_selector, &SpriteAnimSelector::spriteChosen, this, &MapSpritesWindow::spriteChosen);
}

void MapSpritesWindow::setBanks(const QList<QPointer<SpriteBank>> &banks)
{
    m_selector->setBanks(banks);
}
