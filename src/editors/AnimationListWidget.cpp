#include "editors/AnimationListWidget.h"

#include "uikit/CurrentItem.h"
#include "uikit/PlainText.h"
#include "uikit/ThemedIcon.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <QVBoxLayout>

namespace AnimationEditor {

namespace {

constexpr int ButtonIconSide = 32; // pixels
constexpr int ContentsMargin = 2;  // pixels

/// Sorts by its text; lists without texts, and equal texts, by name.
class AnimationItem : public QListWidgetItem
{
public:
    using QListWidgetItem::QListWidgetItem;

    bool operator<(const QListWidgetItem &other) const override
    {
        if (text() != other.text())
            return QListWidgetItem::operator<(other);
        return toolTip() < other.toolTip();
    }
};

/// Shows the tool tips of the items, which are names, as plain text.
class NameTipDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override
    {
        if (event->type() != QEvent::ToolTip)
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        const QString name = index.data(Qt::ToolTipRole).toString();
        QToolTip::showText(event->globalPos(), PlainText::toolTip(name), view);
        return true;
    }
};

/// Says what it lacks while it is empty.
class AnimationList : public QListWidget
{
public:
    void setHint(const QString &hint) { m_hint = hint; }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QListWidget::paintEvent(event);
        if (count() > 0)
            return;
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, m_hint);
    }

private:
    QString m_hint;
};

QPushButton *makeButton(const QString &icon, const QString &toolTip)
{
    auto *button = new QPushButton;
    button->setIcon(themedIcon(icon));
    button->setIconSize({ButtonIconSide, ButtonIconSide});
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    return button;
}

} // namespace

AnimationListWidget::AnimationListWidget(int mode, QWidget *parent)
    : QWidget(parent)
    , m_mode(mode)
    , m_renderIcon(
          [](const Animation *animation, QSize size) { return animation->thumbnail(size); })
{
    auto *const list = new AnimationList;
    m_list = list;
    if (m_mode & WithButtons)
        list->setHint(tr("No animations"));
    auto *layout = new QVBoxLayout(this);
    const int margin = (m_mode & WithButtons) ? ContentsMargin : 0;
    layout->setContentsMargins(margin, margin, margin, margin);
    if (m_mode & WithButtons)
        addButtons(layout);
    setUpList();
    layout->addWidget(m_list, 1);
    if (m_mode & WithMenu)
        addContextMenu();
    if (m_mode & Narrow)
        setFixedWidth(NarrowWidth);

    connect(m_list, &QListWidget::currentItemChanged, this,
            &AnimationListWidget::currentItemChanged);
    updateActions();
}

void AnimationListWidget::setUpList()
{
    m_list->setIconSize({IconSide, IconSide});
    m_list->setAccessibleName(tr("Animations"));
    m_list->setItemDelegate(new NameTipDelegate(m_list));
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setWordWrap(true); // long names
    m_list->setResizeMode(QListView::Adjust);
    // No focus proxy: Tab would enter at the list and pass over the buttons above it.
    m_list->viewport()->installEventFilter(this);
    keepUnselected();
    if (m_mode & Narrow) {
        m_list->setSpacing(1);
        m_list->setUniformItemSizes(true);
    } else if (!(m_mode & WithText)) {
        // Icons alone stand side by side.
        m_list->setFlow(QListView::LeftToRight);
        m_list->setWrapping(true);
    }
}

void AnimationListWidget::addButtons(QVBoxLayout *layout)
{
    auto *addButton = makeButton(QStringLiteral(":NewIcon"), tr("Add a new animation"));
    m_deleteButton = makeButton(QStringLiteral(":Trashcan"), tr("Delete the selected animation"));
    connect(addButton, &QPushButton::clicked, this, &AnimationListWidget::addRequested);
    connect(m_deleteButton, &QPushButton::clicked, this, &AnimationListWidget::removeRequested);

    auto *row = new QHBoxLayout;
    row->addWidget(addButton);
    row->addWidget(m_deleteButton);
    row->addStretch();
    layout->addLayout(row);
}

void AnimationListWidget::addContextMenu()
{
    m_contextMenu = new QMenu(this);
    m_contextMenu->addAction(tr("Delete"), this, &AnimationListWidget::removeRequested);
    m_contextMenu->addAction(tr("Clone"), this, &AnimationListWidget::requestClone);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_list, &QListWidget::customContextMenuRequested, this,
            &AnimationListWidget::showContextMenu);
}

void AnimationListWidget::addAnimation(Animation *animation, bool select)
{
    if (!animation)
        return;

    const QUuid id = animation->id();
    if (!m_entries.contains(id)) {
        auto *item = new AnimationItem;
        item->setData(IdRole, id);
        m_list->addItem(item);
        m_entries.insert(id, {animation, item});
        updateItem(id);
        connectAnimation(animation);
        m_list->sortItems(Qt::AscendingOrder);
    }
    if (select) {
        QListWidgetItem *item = m_entries.value(id).item;
        m_list->setCurrentItem(item);
        m_list->scrollToItem(item);
    }
}

void AnimationListWidget::connectAnimation(Animation *animation)
{
    const auto update = [this, id = animation->id()] { updateItem(id); };
    connect(animation, &Animation::nameChanged, this, update);
    connect(animation, &Animation::sizeChanged, this, update);
    connect(animation, &Animation::frameChanged, this, update);
    connect(animation, &Animation::contentChanged, this, update);
    connect(animation, &QObject::destroyed, this,
            [this, id = animation->id()] { removeAnimation(id); });
}

void AnimationListWidget::removeAnimation(QUuid id)
{
    const Entry entry = m_entries.take(id);
    if (entry.animation)
        disconnect(entry.animation, nullptr, this, nullptr);
    delete entry.item;
    updateActions();
}

void AnimationListWidget::clear()
{
    const auto entries = std::exchange(m_entries, {});
    for (const Entry &entry : entries) {
        if (entry.animation)
            disconnect(entry.animation, nullptr, this, nullptr);
    }
    m_list->clear();
    keepUnselected();
    updateActions();
}

void AnimationListWidget::keepUnselected()
{
    // A view in which nobody has set an index yet picks the first one when it gets the focus.
    m_list->setCurrentIndex({});
}

void AnimationListWidget::clearSelection()
{
    const QSignalBlocker blocker(m_list);
    m_list->setCurrentItem(nullptr);
    m_list->clearSelection();
    updateActions();
}

bool AnimationListWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_list->viewport() && isPressOnCurrentItem(*m_list, *event))
        emit currentItemPressed(currentAnimation());
    return QWidget::eventFilter(watched, event);
}

Animation *AnimationListWidget::currentAnimation() const
{
    const QListWidgetItem *item = m_list->currentItem();
    return item ? m_entries.value(item->data(IdRole).toUuid()).animation.data() : nullptr;
}

int AnimationListWidget::count() const
{
    return m_list->count();
}

void AnimationListWidget::setIconRenderer(IconRenderer renderer)
{
    m_renderIcon = std::move(renderer);
    updateIcons();
}

void AnimationListWidget::updateIcons()
{
    for (const Entry &entry : std::as_const(m_entries))
        updateIcon(entry);
}

void AnimationListWidget::updateItem(const QUuid &id)
{
    const Entry entry = m_entries.value(id);
    if (!entry.animation)
        return;

    const QSize size = entry.animation->size();
    if (m_mode & WithText) {
        entry.item->setText(tr("%1\n%4 frame(s) [%2x%3]")
                                .arg(entry.animation->name(), QString::number(size.width()),
                                     QString::number(size.height()),
                                     QString::number(entry.animation->frameCount())));
    }
    entry.item->setToolTip(entry.animation->name());
    updateIcon(entry);
}

void AnimationListWidget::updateIcon(const Entry &entry)
{
    if (!entry.animation || !m_renderIcon)
        return;

    QPixmap pixmap =
        QPixmap::fromImage(m_renderIcon(entry.animation, m_list->iconSize() * devicePixelRatioF()));
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    // Selected too: a highlight drawn over the picture would change its colours.
    QIcon icon(pixmap);
    icon.addPixmap(pixmap, QIcon::Selected);
    entry.item->setIcon(icon);
}

void AnimationListWidget::updateActions()
{
    if (m_deleteButton)
        m_deleteButton->setEnabled(m_list->currentItem() != nullptr);
}

void AnimationListWidget::currentItemChanged()
{
    updateActions();
    emit selectedItemChanged(currentAnimation());
}

void AnimationListWidget::requestClone()
{
    if (Animation *animation = currentAnimation())
        emit cloneRequested(animation);
}

void AnimationListWidget::showContextMenu(QPoint position)
{
    if (m_list->itemAt(position))
        m_contextMenu->popup(m_list->viewport()->mapToGlobal(position));
}

} // namespace AnimationEditor
