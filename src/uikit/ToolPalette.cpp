#include "uikit/ToolPalette.h"

#include "uikit/FlowLayout.h"
#include "uikit/ThemedIcon.h"

#include <QAction>
#include <QActionGroup>
#include <QToolButton>

namespace {

constexpr int IconSide = 32;   // pixels
constexpr int ButtonSide = 36; // pixels

bool isExclusive(Tessaril::Ui::ToolButton tool)
{
    return tool < Tessaril::Ui::ToolButton::_end_toggles;
}

} // namespace

ToolPalette::ToolPalette(QWidget *parent)
    : QWidget(parent)
    , m_layout(new FlowLayout(this))
    , m_group(new QActionGroup(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(1);
    m_group->setExclusive(true);
    setAccessibleName(tr("Tools"));
    fillTable();
}

void ToolPalette::fillTable()
{
    using enum Tessaril::Ui::ToolButton;
    const auto add = [this](ToolButton tool, const QString &text, const char *icon,
                            bool checkable = false, const char *shortcut = "") {
        const QKeySequence keys(QString::fromLatin1(shortcut));
        m_buttons.insert(tool,
                         {tool, text, themedIcon(QString::fromLatin1(icon)), checkable, keys});
    };
    constexpr bool Checkable = true;
    add(Draw, tr("Draw"), ":/Paint", Checkable, "D");
    add(Line, tr("Line"), ":/Line", Checkable, "L");
    add(Rectangle, tr("Rectangle"), ":/Rectangle", Checkable, "R");
    add(RectangleFill, tr("Filled Rectangle"), ":/RectangleFill", Checkable);
    add(Circle, tr("Circle/Oval"), ":/Circle", Checkable, "C");
    add(Fill, tr("Fill"), ":/Fill", Checkable, "F");
    add(Erase, tr("Erase"), ":/Erase", Checkable, "E");
    add(Pick, tr("Pick"), ":/Picker", Checkable, "P");
    add(Select, tr("Select"), ":/Select", Checkable, "S");
    add(Resize, tr("Resize"), ":/Resize");
    add(Grid, tr("Toggle Grid"), ":/Grid", Checkable, "G");
    add(ZoomIn, tr("Increase Magnification"), ":/ZoomIn", !Checkable, "=");
    add(ZoomOut, tr("Decrease Magnification"), ":/ZoomOut", !Checkable, "-");
    add(MoveUp, tr("Move Up"), ":/Arrow/N");
    add(MoveDown, tr("Move Down"), ":/Arrow/S");
    add(MoveLeft, tr("Move Left"), ":/Arrow/W");
    add(MoveRight, tr("Move Right"), ":/Arrow/E");
    add(Cut, tr("Cut"), ":/Cut");
    add(Copy, tr("Copy"), ":/Copy");
    add(Paste, tr("Paste"), ":/Paste");
    add(Crop, tr("Crop"), ":/Crop");
    add(Open, tr("Import Image"), ":/OpenIcon");
    add(Save, tr("Export Image"), ":/SaveIcon");
    add(RotateCW, tr("Rotate CW"), ":/RotateCW");
    add(RotateCCW, tr("Rotate CCW"), ":/RotateCCW");
    add(Flip, tr("Flip"), ":/Flip");
    add(Mirror, tr("Mirror"), ":/Mirror");
    add(PaintPalette, tr("Palette"), ":/Palette");
}

QAction *ToolPalette::addButton(ToolButton button, QWidget *owner)
{
    const auto record = m_buttons.constFind(button);
    if (record == m_buttons.constEnd()) {
        qWarning("Unhandled tool button");
        return nullptr;
    }
    if (QAction *shown = action(button))
        return shown;

    QAction *const added = makeAction(*record);
    m_actions.insert(button, added);
    (owner ? owner : this)->addAction(added);
    showButton(button, added);
    return added;
}

void ToolPalette::addButtons(const QList<ToolButton> &buttons, QWidget *owner)
{
    for (const ToolButton button : buttons)
        addButton(button, owner);
}

void ToolPalette::removeButton(ToolButton button)
{
    delete m_widgets.take(button);
    delete m_actions.take(button);
}

QAction *ToolPalette::makeAction(const Button &record)
{
    auto *action = new QAction(record.icon, record.text, this);
    action->setCheckable(record.checkable);
    action->setShortcut(record.shortcut);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    const QString keys = record.shortcut.toString(QKeySequence::NativeText);
    action->setToolTip(keys.isEmpty() ? record.text
                                      : QStringLiteral("%1 [%2]").arg(record.text, keys));
    if (isExclusive(record.tool))
        m_group->addAction(action);
    connect(action, &QAction::triggered, this,
            [this, tool = record.tool](bool checked) { emit actionActivated(tool, checked); });
    return action;
}

void ToolPalette::showButton(ToolButton tool, QAction *action)
{
    auto *widget = new QToolButton(this);
    widget->setDefaultAction(action);
    widget->setIconSize({IconSide, IconSide});
    widget->setFixedSize(ButtonSide, ButtonSide);
    widget->setAutoRaise(true);
    widget->setAccessibleName(action->text());
    m_widgets.insert(tool, widget);
    m_layout->addWidget(widget);
}

QAction *ToolPalette::handledAction(ToolButton tool) const
{
    if (!m_buttons.contains(tool))
        qWarning("Unhandled button");
    return action(tool);
}

void ToolPalette::setState(Tessaril::Ui::ToolButton mode)
{
    if (QAction *const shown = handledAction(mode))
        shown->setChecked(true);
}

void ToolPalette::setButtonEnabled(Tessaril::Ui::ToolButton button, bool enabled)
{
    if (QAction *const shown = handledAction(button))
        shown->setEnabled(enabled);
}
