#include "mapeditor/MapToolPalette.h"

#include "uikit/ThemedIcon.h"

#include <QActionGroup>
#include <QGridLayout>
#include <QKeySequence>
#include <QToolButton>

using namespace MapEditor;
using Button = Tessaril::Ui::ToolButton;

namespace {

constexpr int ButtonSide = 32; // pixels
constexpr int ModeCount = 5;   // the first entries are exclusive

} // namespace

struct MapToolPalette::Entry
{
    Button button;
    QString text;
    QString icon;
    bool checkable;
    QList<QKeySequence> keys;
};

const QList<MapToolPalette::Entry> &MapToolPalette::entries()
{
    const auto key = [](const char *text) { return QKeySequence(QString::fromLatin1(text)); };
    static const QList<Entry> all = {
        {Button::Draw, tr("Draw"), ":/Draw", true, {key("D")}},
        {Button::Select, tr("Select"), ":/Select", true, {key("S")}},
        {Button::Pick, tr("Pick"), ":/Picker", true, {key("P")}},
        {Button::PlaceAnim, tr("Place animations"), ":/PlaceAnim", true, {}},
        {Button::PlaceSprite, tr("Place sprites"), ":/PlaceSprite", true, {}},
        {Button::RotateCW, tr("Rotated"), ":/RotateCW", true, {key("Ctrl+R")}},
        {Button::Flip, tr("Flipped"), ":/Flip", true, {key("Shift+F")}},
        {Button::Mirror, tr("Mirrored"), ":/Mirror", true, {key("Shift+M")}},
        {Button::Grid, tr("Toggle Grid"), ":/Grid", true, {key("G")}},
        {Button::MoveUp, tr("Up"), ":/Arrow/N", false, {key("Up")}},
        {Button::MoveDown, tr("Down"), ":/Arrow/S", false, {key("Down")}},
        {Button::MoveLeft, tr("Left"), ":/Arrow/W", false, {key("Left")}},
        {Button::MoveRight, tr("Right"), ":/Arrow/E", false, {key("Right")}},
        {Button::ZoomOut, tr("Zoom Out"), ":/ZoomOut", false, {key("-")}},
        {Button::ZoomIn, tr("Zoom In"), ":/ZoomIn", false, {key("="), key("+")}},
        {Button::ExpandToFit, tr("Fit to window"), ":/ExpandToFit", false, {}},
        {Button::ToggleViewport, tr("Toggle viewport"), ":/ToggleViewport", true, {}},
        {Button::AnimPlay, tr("Play Animations"), ":/AnimPlay", true, {}},
        {Button::PaintPalette, tr("Reset all palette offsets"), ":/Palette", false, {}},
    };
    return all;
}

MapToolPalette::MapToolPalette(QWidget *parent)
    : QWidget(parent)
    , m_modes(new QActionGroup(this))
{
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    for (const Entry &entry : entries())
        addEntry(entry, layout);

    QAction *const play = action(Button::AnimPlay);
    connect(play, &QAction::toggled, this, [play](bool on) {
        play->setIcon(themedIcon(on ? QStringLiteral(":/AnimStop") : QStringLiteral(":/AnimPlay")));
    });
}

void MapToolPalette::addEntry(const Entry &entry, QGridLayout *layout)
{
    auto *const action = new QAction(themedIcon(entry.icon), entry.text, this);
    action->setCheckable(entry.checkable);
    action->setShortcuts(entry.keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    if (!entry.keys.isEmpty())
        action->setToolTip(QStringLiteral("%1 [%2]").arg(
            entry.text, entry.keys.first().toString(QKeySequence::NativeText)));
    if (m_actions.size() < ModeCount)
        m_modes->addAction(action);
    const Button value = entry.button;
    connect(action, &QAction::triggered, this,
            [this, value](bool checked) { emit actionActivated(value, checked); });

    auto *const button = new QToolButton(this);
    button->setDefaultAction(action);
    button->setIconSize(QSize(ButtonSide, ButtonSide));
    button->setFixedSize(ButtonSide, ButtonSide);
    button->setAutoRaise(true);
    button->setAccessibleName(entry.text);
    layout->addWidget(button, static_cast<int>(m_actions.size()), 0);
    m_actions.insert(value, action);
    m_buttons.insert(value, button);
}

void MapToolPalette::setShowGridChecked(bool checked)
{
    action(Button::Grid)->setChecked(checked);
}

void MapToolPalette::setMode(Button mode)
{
    QAction *const found = action(mode);
    if (found && found->actionGroup() == m_modes)
        found->setChecked(true);
}

void MapToolPalette::toggleAction(Button button)
{
    if (QAction *const found = action(button))
        found->trigger();
}

void MapToolPalette::setActionChecked(Button button, bool checked)
{
    QAction *const found = action(button);
    if (!found || !found->isCheckable())
        return;
    found->setChecked(checked);
    emit actionActivated(button, checked);
}

void MapToolPalette::setToolEnabled(Button button, bool enabled)
{
    if (QAction *const found = action(button))
        found->setEnabled(enabled);
}
