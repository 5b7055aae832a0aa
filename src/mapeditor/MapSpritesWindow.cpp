#include "mapeditor/MapSpritesWindow.h"

#include "mapeditor/SpriteAnimSelector.h"

#include <QResizeEvent>
#include <QScrollArea>

MapSpritesWindow::MapSpritesWindow(QWidget *parent)
    : DockWidget(parent)
    , m_selector(new SpriteAnimSelector)
{
    setObjectName(QStringLiteral("MapSpritesWindow"));
    setWindowTitle(tr("Map Sprites"));
    setPlaceholderText(tr("No sprite banks"));
    setContentWidget(m_selector);
    scrollArea()->viewport()->installEventFilter(this);
    connect(m_selector, &SpriteAnimSelector::selectionChanged, this,
            &MapSpritesWindow::selectionChanged);
    connect(m_selector, &SpriteAnimSelector::spriteChosen, this, &MapSpritesWindow::spriteChosen);
}

void MapSpritesWindow::setBanks(const QList<QPointer<SpriteBank>> &banks)
{
    m_selector->setBanks(banks);
}

void MapSpritesWindow::showNames()
{
    m_selector->showNames();
}

bool MapSpritesWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        m_selector->setRoom(static_cast<QResizeEvent *>(event)->size());
    return DockWidget::eventFilter(watched, event);
}
