#include "colour/PaletteEditor.h"

#include "colour/ColourEditor.h"
#include "colour/PaletteGrid.h"
#include "model/Palette.h"

#include <QVBoxLayout>

PaletteEditor::PaletteEditor(QWidget *parent)
    : QWidget(parent)
    , m_grid(new PaletteGrid)
    , m_editor(new ColourEditor)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_grid, 0, Qt::AlignHCenter);
    layout->addWidget(m_editor);
    m_grid->setSelection(first(), last());
    m_grid->setEnabled(false);
    m_editor->setEnabled(false);
    connect(m_grid, &PaletteGrid::selectionChanged, this, &PaletteEditor::selectionChanged);
    connect(m_editor, &ColourEditor::colourChanged, this, &PaletteEditor::colourChanged);
}

void PaletteEditor::setPalette(QPointer<Palette> palette)
{
    if (m_range.palette)
        m_range.palette->disconnect(this);
    m_range.palette = palette;
    if (palette) {
        connect(palette, &Palette::colourChanged, this, [this](int index) {
            if (index == first())
                showColour();
        });
        connect(palette, &QObject::destroyed, this, [this] { setPalette(nullptr); });
    }
    m_grid->setPalette(palette);
    m_grid->setEnabled(palette);
    m_editor->setEnabled(palette);
    showColour();
}

void PaletteEditor::setSelectedIndex(int index)
{
    if (index < 0 || index >= Palette::Size)
        return;
    m_grid->setSelection(index, index);
    selectionChanged(index, index);
}

void PaletteEditor::selectionChanged(int first, int last)
{
    m_range.first = first;
    m_range.last = last;
    showColour();
}

void PaletteEditor::colourChanged(QColor color, bool priority)
{
    if (!m_range.isValid())
        return;
    m_range.fill(color, priority);
    // Also where no entry changed, as the palette may round to what it had.
    showColour();
    m_grid->update();
    emit paletteChanged(first(), last(), color);
}

void PaletteEditor::showColour()
{
    m_editor->setColour(m_range.colour(), m_range.priority());
}
