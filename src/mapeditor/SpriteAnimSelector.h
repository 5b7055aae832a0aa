#pragma once

#include "model/SpriteAnim.h"

#include <QList>
#include <QPointer>
#include <QTimer>
#include <QUuid>
#include <QWidget>

class QComboBox;
class QLabel;
class QListWidget;
class SpriteBank;

namespace AnimationEditor {
class AnimationListWidget;
}

/// Chooses a bank, and one of its animations or sprites. What is chosen in one list is unchosen in
/// the other. Reads the banks and owns none.
class SpriteAnimSelector : public QWidget
{
    Q_OBJECT

public:
    explicit SpriteAnimSelector(QWidget *parent = nullptr);

    /// Offers @p banks and keeps the bank of the same name chosen.
    void setBanks(const QList<QPointer<SpriteBank>> &banks);
    /// Reads the banks' names anew; a bank does not tell when it gets another.
    void showNames();

    /// The size that the lists share with the fields above them, in pixels. They keep a height at
    /// which they can be used, so that the selector can be higher than its room.
    void setRoom(QSize room);

signals:
    /// These also come when what is chosen already is pressed once more.
    void selectionChanged(QPointer<SpriteAnim> anim);
    void spriteChosen(QUuid bankId, int index);

public slots:
    /// Shows the chosen bank anew.
    void updateAnimations();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QList<QPointer<SpriteBank>> livingBanks() const;
    SpriteBank *currentBank() const;
    void fillSprites(const SpriteBank *bank);
    QIcon iconOf(const SpriteBank &bank, int sprite) const;
    void updateIcons();
    void followPalette(const SpriteBank &bank);
    void fitRoom();
    void animationPicked(Animation *animation);
    void spritePicked(int row);

    QList<QPointer<SpriteBank>> m_banks;
    QComboBox *m_bankCombo;
    QLabel *m_animationsLabel;
    AnimationEditor::AnimationListWidget *m_animations;
    QLabel *m_empty;
    QLabel *m_spritesLabel;
    QListWidget *m_sprites;
    QTimer m_iconUpdate; // once for many changes of colours
    QSize m_room;
};
