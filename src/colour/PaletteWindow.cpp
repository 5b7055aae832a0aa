#include "colour/PaletteWindow.h"

#include "colour/ColourEditor.h"
#include "colour/PaletteGrid.h"
#include "model/Palette.h"
#include "uikit/PlainText.h"
#include "uikit/ThemedIcon.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace {

constexpr QSize IconSize(24, 24);

} // namespace

PaletteWindow::PaletteWindow(QWidget *parent)
    : DockWidget(parent)
    , m_grid(new PaletteGrid)
    , m_editor(new ColourEditor)
{
    setObjectName(QStringLiteral("paletteWindow"));
    setWindowIcon(themedIcon(QStringLiteral(":/Palette")));
    setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    setPlaceholderText(tr("No palette selected"));
    setContentWidget(makeContent());
    connect(m_editor, &ColourEditor::colourChanged, this, &PaletteWindow::colourChanged);
    connect(m_grid, &PaletteGrid::selectionChanged, this, &PaletteWindow::selectionChanged);
    connect(m_lighten, &QPushButton::pressed, m_editor, &ColourEditor::lighten);
    connect(m_darken, &QPushButton::pressed, m_editor, &ColourEditor::darken);
    connect(m_gradient, &QPushButton::pressed, this, &PaletteWindow::createGradient);
    m_editor->setEnabled(false);
    enableButtons();
    showTitle();
    showPlaceholder();
}

QPushButton *PaletteWindow::addButton(QHBoxLayout *layout, const QString &icon,
                                      const QString &toolTip)
{
    auto *button = new QPushButton;
    button->setIcon(themedIcon(icon));
    button->setIconSize(IconSize);
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    layout->addWidget(button);
    return button;
}

QWidget *PaletteWindow::makeContent()
{
    auto *buttons = new QHBoxLayout;
    m_darken = addButton(buttons, QStringLiteral(":/Darken"), tr("Darkens the selected colour(s)"));
    m_lighten =
        addButton(buttons, QStringLiteral(":/Lighten"), tr("Lightens the selected colour(s)"));
    m_gradient = addButton(buttons, QStringLiteral(":/Gradient"), tr("Create a gradient"));
    buttons->addStretch();
    auto *gridRow = new QHBoxLayout;
    gridRow->addWidget(m_grid);

    auto *content = new QWidget;
    content->setObjectName(QStringLiteral("paletteWidget"));
    auto *layout = new QVBoxLayout(content);
    layout->addLayout(buttons);
    layout->addLayout(gridRow);
    layout->addWidget(m_editor);
    layout->addStretch();
    return content;
}

void PaletteWindow::setPalette(QPointer<Palette> palette)
{
    // A null one counts as another: the palette may just have died.
    if (!palette || palette != m_range.palette) {
        if (m_range.palette)
            m_range.palette->disconnect(this);
        m_range = {palette, -1, -1};
        m_grid->setPalette(palette);
        m_grid->setSelection(-1, -1);
        if (palette) {
            connect(palette, &Palette::nameChanged, this, &PaletteWindow::showTitle);
            connect(palette, &QObject::destroyed, this, [this] { setPalette(nullptr); });
            connect(palette, &Palette::colourChanged, this, [this](int index) {
                if (index == m_range.first)
                    showColour();
            });
        }
        enableButtons();
        showColour();
    }
    showTitle();
    if (palette)
        showContent();
    else
        showPlaceholder();
}

void PaletteWindow::colourChanged(QColor color, bool priority)
{
    if (!m_range.isValid())
        return;
    m_range.fill(color, priority);
    // Also where no entry changed, as the palette may round to what it had.
    showColour();
    emit paletteChanged();
}

void PaletteWindow::selectionChanged(int first, int last)
{
    m_range.first = first;
    m_range.last = last;
    enableButtons();
    showColour();
}

void PaletteWindow::createGradient()
{
    if (m_range.blend())
        emit paletteChanged();
}

void PaletteWindow::enableButtons()
{
    const bool selected = m_range.isValid();
    m_darken->setEnabled(selected);
    m_lighten->setEnabled(selected);
    m_gradient->setEnabled(selected && m_range.first != m_range.last);
    m_editor->setEnabled(selected);
}

void PaletteWindow::showTitle()
{
    setWindowTitle(m_range.palette
                       ? tr("Palette: %1").arg(PlainText::shown(m_range.palette->name()))
                       : tr("Palette Editor"));
}

void PaletteWindow::showColour()
{
    m_editor->setColour(m_range.colour(), m_range.priority());
}
