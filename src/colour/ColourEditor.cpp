#include "colour/ColourEditor.h"

#include "colour/ColourSteps.h"
#include "colour/RgbEditor.h"
#include "uikit/AreaFill.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

constexpr int PreviewWidth = 100; // pixels, at least
constexpr QSize ButtonSize(48, 32);

} // namespace

ColourEditor::ColourEditor(QWidget *parent)
    : QWidget(parent)
    , m_rgb(new RgbEditor)
    , m_preview(new AreaFill)
    , m_priorityBox(new QCheckBox(tr("Priority")))
{
    m_preview->setMinimumWidth(PreviewWidth);
    m_preview->setAccessibleName(tr("New colour"));
    m_priorityBox->setToolTip(
        tr("Layer 2 priority\nIf set, this colour will always appear on top"));

    auto *buttons = new QHBoxLayout;
    m_ok = addButton(buttons, QStringLiteral("✓"), tr("Apply"), &ColourEditor::okClick);
    addButton(buttons, QStringLiteral("⨉"), tr("Cancel"), &ColourEditor::cancelClick);
    auto *side = new QVBoxLayout;
    side->addWidget(m_priorityBox);
    side->addLayout(buttons);
    auto *below = new QHBoxLayout;
    below->addWidget(m_preview, 1);
    below->addLayout(side);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_rgb);
    layout->addLayout(below);
    setFocusProxy(m_rgb);

    connect(m_rgb, &RgbEditor::colourChanged, this, &ColourEditor::rgbValueChanged);
    connect(m_priorityBox, &QCheckBox::toggled, this, &ColourEditor::priorityChanged);
    refresh();
}

QPushButton *ColourEditor::addButton(QHBoxLayout *layout, const QString &text, const QString &name,
                                     void (ColourEditor::*click)())
{
    auto *button = new QPushButton(text);
    button->setFixedSize(ButtonSize);
    button->setToolTip(name);
    button->setAccessibleName(name);
    connect(button, &QPushButton::clicked, this, click);
    layout->addWidget(button);
    return button;
}

bool ColourEditor::isChanged() const
{
    // By levels: the sliders spell some of them a little differently than a palette does.
    return ColourSteps::nearest(m_colour) != ColourSteps::nearest(m_given) ||
           m_priority != m_givenPriority;
}

void ColourEditor::setColour(const QColor &colour, bool priority)
{
    m_given = QColor(colour.rgb());
    m_givenPriority = priority;
    m_colour = m_given;
    m_priority = priority;
    m_rgb->setColour(m_colour);
    const QSignalBlocker blocker(m_priorityBox);
    m_priorityBox->setChecked(priority);
    refresh();
}

void ColourEditor::rgbValueChanged(QColor colour)
{
    m_colour = colour;
    refresh();
}

void ColourEditor::okClick()
{
    emit colourChanged(m_colour, m_priority);
}

void ColourEditor::cancelClick()
{
    setColour(m_given, m_givenPriority);
    emit cancelled();
}

void ColourEditor::priorityChanged(bool checked)
{
    m_priority = checked;
    refresh();
}

void ColourEditor::darken()
{
    if (const auto levels = ColourSteps::darker(shownColour()))
        m_rgb->setLevels(*levels);
}

void ColourEditor::lighten()
{
    if (const auto levels = ColourSteps::lighter(shownColour()))
        m_rgb->setLevels(*levels);
}

void ColourEditor::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && m_ok->isEnabled())
        okClick();
    else
        QWidget::keyPressEvent(event);
}

// As the palette shows the levels: the sliders' own rounding would put some of them a level lower.
QColor ColourEditor::shownColour() const
{
    return ColourSteps::shown(ColourSteps::nearest(m_colour));
}

void ColourEditor::refresh()
{
    m_preview->setColour(m_colour);
    m_ok->setEnabled(isChanged());
}
