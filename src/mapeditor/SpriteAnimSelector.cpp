#include "mapeditor/SpriteAnimSelector.h"

#include "editors/AnimationListWidget.h"
#include "model/Palette.h"
#include "model/SpriteBank.h"
#include "uikit/CurrentItem.h"
#include "uikit/PlainText.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int IconSide = 32;    // pixels
constexpr int LeastList = 80;   // pixels in height: a row and a little of the next
constexpr int ReadOnlyMode = 0; // of the animation list

} // namespace

SpriteAnimSelector::SpriteAnimSelector(QWidget *parent)
    : QWidget(parent)
    , m_bankCombo(new QComboBox(this))
    , m_animationsLabel(new QLabel(tr("Animations"), this))
    , m_animations(new AnimationEditor::AnimationListWidget(ReadOnlyMode, this))
    , m_empty(new QLabel(this))
    , m_spritesLabel(new QLabel(tr("Sprites"), this))
    , m_sprites(new QListWidget(this))
{
    m_bankCombo->setAccessibleName(tr("Sprite bank"));
    m_empty->setWordWrap(true);
    m_empty->setAlignment(Qt::AlignCenter);
    m_sprites->setObjectName(QStringLiteral("sprites"));
    m_sprites->setAccessibleName(tr("Sprites"));
    m_sprites->setViewMode(QListView::IconMode);
    m_sprites->setIconSize(QSize(IconSide, IconSide));
    m_sprites->setResizeMode(QListView::Adjust);
    m_sprites->setMovement(QListView::Static);

    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_bankCombo);
    layout->addWidget(m_animationsLabel);
    layout->addWidget(m_animations, 1);
    layout->addWidget(m_empty);
    layout->addWidget(m_spritesLabel);
    layout->addWidget(m_sprites, 1);

    m_iconUpdate.setSingleShot(true);
    connect(&m_iconUpdate, &QTimer::timeout, this, &SpriteAnimSelector::updateIcons);
    connect(m_bankCombo, &QComboBox::currentIndexChanged, this,
            &SpriteAnimSelector::updateAnimations);
    connect(m_animations, &AnimationEditor::AnimationListWidget::selectedItemChanged, this,
            &SpriteAnimSelector::animationPicked);
    connect(m_sprites, &QListWidget::currentRowChanged, this, &SpriteAnimSelector::spritePicked);
    // Since another tool was taken the map no longer places what is still marked here.
    connect(m_animations, &AnimationEditor::AnimationListWidget::currentItemPressed, this,
            &SpriteAnimSelector::animationPicked);
    m_sprites->viewport()->installEventFilter(this);
    updateAnimations();
}

void SpriteAnimSelector::setBanks(const QList<QPointer<SpriteBank>> &banks)
{
    for (const auto &bank : std::as_const(m_banks)) {
        if (bank)
            disconnect(bank, nullptr, this, nullptr);
    }
    m_banks = banks;
    m_banks.removeAll(nullptr);

    const QString chosen = m_bankCombo->currentText();
    {
        const QSignalBlocker blocker(m_bankCombo);
        m_bankCombo->clear();
        for (const auto &bank : std::as_const(m_banks)) {
            m_bankCombo->addItem(PlainText::shown(bank->name()), bank->id());
            connect(bank, &SpriteBank::animationsChanged, this,
                    &SpriteAnimSelector::updateAnimations);
            connect(bank, &SpriteBank::countChanged, this, &SpriteAnimSelector::updateAnimations);
            connect(bank, &SpriteBank::imageChanged, this, &SpriteAnimSelector::updateAnimations);
            connect(bank, &SpriteBank::restored, this, &SpriteAnimSelector::updateAnimations);
            // Deleted, it is still in the list, but its pointer reads null.
            connect(bank, &QObject::destroyed, this, [this] { setBanks(livingBanks()); });
        }
        const int index = m_bankCombo->findText(chosen);
        m_bankCombo->setCurrentIndex(index >= 0 ? index : (m_banks.isEmpty() ? -1 : 0));
    }
    updateAnimations();
}

void SpriteAnimSelector::showNames()
{
    for (const auto &bank : std::as_const(m_banks)) {
        if (bank)
            m_bankCombo->setItemText(m_bankCombo->findData(bank->id()),
                                     PlainText::shown(bank->name()));
    }
}

QList<QPointer<SpriteBank>> SpriteAnimSelector::livingBanks() const
{
    QList<QPointer<SpriteBank>> living;
    for (const auto &bank : m_banks) {
        if (bank)
            living.append(bank);
    }
    return living;
}

SpriteBank *SpriteAnimSelector::currentBank() const
{
    return m_banks.value(m_bankCombo->currentIndex());
}

void SpriteAnimSelector::updateAnimations()
{
    const SpriteBank *const bank = currentBank();
    if (bank)
        followPalette(*bank);
    {
        const QSignalBlocker blocker(m_animations);
        m_animations->clear();
        if (bank) {
            for (const auto &animation : bank->animations())
                m_animations->addAnimation(animation, false);
        }
    }
    const bool hasAnimations = m_animations->count() > 0;
    m_animations->setVisible(hasAnimations);
    m_empty->setVisible(!hasAnimations);
    m_empty->setText(m_banks.isEmpty() ? tr("No sprite banks") : tr("No animations in this bank"));
    m_animationsLabel->setVisible(!m_banks.isEmpty());
    fillSprites(bank);
    m_spritesLabel->setVisible(bank != nullptr);
    m_sprites->setVisible(bank != nullptr);
    fitRoom();
}

void SpriteAnimSelector::setRoom(QSize room)
{
    if (room == m_room)
        return;

    m_room = room;
    fitRoom();
}

void SpriteAnimSelector::fitRoom()
{
    if (m_room.isEmpty())
        return;

    QList<QWidget *> lists;
    int left = m_room.height();
    for (QWidget *const part : QList<QWidget *>{m_bankCombo, m_animationsLabel, m_animations,
                                                m_empty, m_spritesLabel, m_sprites}) {
        if (part->isHidden())
            continue;
        left -= part == m_bankCombo ? 0 : layout()->spacing();
        part->setFixedWidth(m_room.width());
        if (part == m_animations || part == m_sprites)
            lists.append(part);
        else
            left -= part->sizeHint().height();
    }
    for (QWidget *const list : std::as_const(lists))
        list->setFixedHeight(std::max(left / static_cast<int>(lists.size()), LeastList));
    layout()->activate();
}

QIcon SpriteAnimSelector::iconOf(const SpriteBank &bank, int sprite) const
{
    QPixmap picture = QPixmap::fromImage(bank.spriteImage(sprite, 0, false, false, false))
                          .scaled(QSize(IconSide, IconSide) * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    // Marked too: the mark would change its colours.
    QIcon icon(picture);
    icon.addPixmap(picture, QIcon::Selected);
    return icon;
}

/// A bank has no signal for another palette, but its picture is announced then.
void SpriteAnimSelector::followPalette(const SpriteBank &bank)
{
    if (const auto palette = bank.palette())
        connect(palette, &Palette::colourChanged, &m_iconUpdate, qOverload<>(&QTimer::start),
                Qt::UniqueConnection);
}

/// Other colours make no other lists: what is chosen stays.
void SpriteAnimSelector::updateIcons()
{
    const SpriteBank *const bank = currentBank();
    if (!bank)
        return;
    m_animations->updateIcons();
    for (int i = 0; i < std::min(m_sprites->count(), bank->count()); ++i)
        m_sprites->item(i)->setIcon(iconOf(*bank, i));
}

void SpriteAnimSelector::fillSprites(const SpriteBank *bank)
{
    const QSignalBlocker blocker(m_sprites);
    const int row = m_sprites->currentRow();
    m_sprites->clear();
    for (int i = 0; bank && i < bank->count(); ++i) {
        m_sprites->addItem(new QListWidgetItem(iconOf(*bank, i), QString::number(i)));
    }
    // The view's own function: one that was never given an index picks the first when it gets the
    // focus.
    m_sprites->setCurrentIndex({});
    if (row < m_sprites->count())
        m_sprites->setCurrentRow(row);
}

bool SpriteAnimSelector::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_sprites->viewport() && isPressOnCurrentItem(*m_sprites, *event))
        spritePicked(m_sprites->currentRow());
    return QWidget::eventFilter(watched, event);
}

void SpriteAnimSelector::animationPicked(Animation *animation)
{
    if (!animation)
        return;
    {
        const QSignalBlocker blocker(m_sprites);
        m_sprites->setCurrentItem(nullptr);
    }
    emit selectionChanged(qobject_cast<SpriteAnim *>(animation));
}

void SpriteAnimSelector::spritePicked(int row)
{
    const SpriteBank *const bank = currentBank();
    if (row < 0 || !bank)
        return;
    m_animations->clearSelection();
    emit spriteChosen(bank->id(), row);
}
