#pragma once

#include "colour/PaletteRange.h"
#include "uikit/DockWidget.h"

class ColourEditor;
class PaletteGrid;
class QHBoxLayout;
class QPushButton;

/// The dock of the palette editor: the grid, the colour editor, and commands for a run of colours.
class PaletteWindow : public DockWidget
{
    Q_OBJECT

public:
    explicit PaletteWindow(QWidget *parent = nullptr);

    using QWidget::setPalette;

signals:
    /// A colour or a gradient was given to the run.
    void paletteChanged();

public slots:
    /// Null shows the placeholder. Another palette than before starts without a selection.
    void setPalette(QPointer<Palette> palette);
    void colourChanged(QColor color, bool priority);
    void selectionChanged(int first, int last);
    /// Sets what lies between the ends of the run to the colours between theirs.
    void createGradient();

private:
    QPushButton *addButton(QHBoxLayout *layout, const QString &icon, const QString &toolTip);
    QWidget *makeContent();
    void enableButtons();
    void showTitle();
    void showColour();

    PaletteRange m_range;
    QPushButton *m_darken = nullptr;
    QPushButton *m_lighten = nullptr;
    QPushButton *m_gradient = nullptr;
    PaletteGrid *m_grid;
    ColourEditor *m_editor;
};
