#include "editors/AnimationControlWidget.h"

#include "uikit/FlowLayout.h"
#include "uikit/ThemedIcon.h"

#include <QAction>
#include <QActionGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int ButtonSide = 34; // pixels
constexpr int IconSide = 24;   // pixels
constexpr int GroupGap = 10;   // pixels

struct Button
{
    const char *toolTip;
    const char *icon;
    bool isCheckable;
};

/// In the order of the actions.
constexpr Button Buttons[] = {
    {QT_TRANSLATE_NOOP("AnimationControlWidget", "Goto first frame"), ":Media/Start", false},
    {QT_TRANSLATE_NOOP("AnimationControlWidget", "Previous frame"), ":Arrow/W", false},
    {QT_TRANSLATE_NOOP("AnimationControlWidget", "Play"), ":Media/Play", false},
    {QT_TRANSLATE_NOOP("AnimationControlWidget", "Pause playback"), ":Media/Pause", true},
    {QT_TRANSLATE_NOOP("AnimationControlWidget", "Stop"), ":Media/Stop", false},
    {QT_TRANSLATE_NOOP("AnimationControlWidget", "Next frame"), ":Arrow/E", false},
    {QT_TRANSLATE_NOOP("AnimationControlWidget", "Goto last frame"), ":Media/End", false},
    {QT_TRANSLATE_NOOP("AnimationControlWidget", "Add a frame"), ":NewIcon", false},
    {QT_TRANSLATE_NOOP("AnimationControlWidget", "Delete current frame"), ":Trashcan", false},
    {QT_TRANSLATE_NOOP("AnimationControlWidget", "Loop"), ":Media/Loop", true},
    {QT_TRANSLATE_NOOP("AnimationControlWidget", "Ping pong"), ":Media/PingPong", true},
};

} // namespace

AnimationControlWidget::AnimationControlWidget(QWidget *parent)
    : QWidget(parent)
    , m_label(new QLabel)
{
    m_label->setAlignment(Qt::AlignCenter);
    // One row, centred, or more in a narrow tab.
    auto *rows = new FlowLayout;
    rows->setSpacing(GroupGap);
    QHBoxLayout *group = nullptr;
    for (int i = First; i <= PingPong; ++i) {
        const auto action = static_cast<Action>(i);
        if (action == First || action == Add || action == Loop)
            group = addGroup(rows);
        addButton(group, action);
    }
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
    layout->addLayout(rows);

    auto *playModes = new QActionGroup(this);
    playModes->addAction(m_actions.value(Loop));
    playModes->addAction(m_actions.value(PingPong));
    m_actions.value(Loop)->setChecked(true);
    m_actions.value(PingPong)->setEnabled(false);
    setFrame(m_current, m_count);
}

QHBoxLayout *AnimationControlWidget::addGroup(FlowLayout *rows)
{
    auto *group = new QWidget;
    auto *row = new QHBoxLayout(group);
    row->setSpacing(0);
    row->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(group);
    return row;
}

void AnimationControlWidget::addButton(QHBoxLayout *row, Action action)
{
    const Button &button = Buttons[action];
    auto *item = new QAction(themedIcon(QLatin1String(button.icon)), tr(button.toolTip), this);
    item->setCheckable(button.isCheckable);
    m_actions.insert(action, item);
    connect(item, &QAction::triggered, this, [this, action](bool checked) {
        if (action == Play || action == Stop)
            m_actions.value(Pause)->setChecked(false);
        emit buttonClicked(action, checked);
    });

    auto *widget = new QToolButton;
    widget->setDefaultAction(item);
    widget->setAutoRaise(true);
    widget->setFixedSize(ButtonSide, ButtonSide);
    widget->setIconSize({IconSide, IconSide});
    widget->setAccessibleName(item->text());
    row->addWidget(widget);
}

std::optional<int> AnimationControlWidget::destination(Action action, int frame, int count)
{
    switch (action) {
    case First:
        return 0;
    case Previous:
        return frame - 1;
    case Next:
        return frame + 1;
    case Last:
        return count - 1;
    default:
        return std::nullopt;
    }
}

void AnimationControlWidget::setFrame(int current, int count)
{
    m_count = count;
    m_current = std::min(std::max(current, 1), count);
    m_label->setText(tr("Frame %1 of %2").arg(m_current).arg(m_count));
}
