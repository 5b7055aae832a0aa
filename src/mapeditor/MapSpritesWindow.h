#pragma once

#include "model/SpriteAnim.h"
#include "uikit/DockWidget.h"

#include <QList>
#include <QPointer>
#include <QUuid>

class SpriteAnimSelector;
class SpriteBank;

/// The dock from which sprites and their animations are chosen to be placed on a map.
class MapSpritesWindow : public DockWidget
{
    Q_OBJECT

public:
    explicit MapSpritesWindow(QWidget *parent = nullptr);

    /// Offers @p banks; which page is shown is the owner's business.
    void setBanks(const QList<QPointer<SpriteBank>> &banks);
    /// Reads the banks' names anew.
    void showNames();

signals:
    void selectionChanged(QPointer<SpriteAnim> animation);
    void spriteChosen(QUuid bankId, int index);

protected:
    /// Lets the selector use the room that the dock has.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    SpriteAnimSelector *m_selector;
};
