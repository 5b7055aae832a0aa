#pragma once

#include "colour/PaletteRange.h"

#include <QWidget>

class ColourEditor;
class PaletteGrid;

/// A palette's grid with a colour editor below it, inside another editor.
///
/// A confirmed colour goes to every entry of the selected run.
class PaletteEditor : public QWidget
{
    Q_OBJECT

public:
    explicit PaletteEditor(QWidget *parent = nullptr);

    using QWidget::setPalette;

    int first() const { return m_range.first; }
    int last() const { return m_range.last; }

signals:
    /// A colour was given to the run.
    void paletteChanged(int first, int last, QColor colour);

public slots:
    void colourChanged(QColor color, bool priority);
    void selectionChanged(int first, int last);
    /// Null disables the editor.
    void setPalette(QPointer<Palette> palette);
    /// Selects one entry, 0 to 255.
    void setSelectedIndex(int index);

private:
    void showColour();

    PaletteRange m_range{{}, 0, 0};
    PaletteGrid *m_grid;
    ColourEditor *m_editor;
};
