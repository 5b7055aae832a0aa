#pragma once

#include "colour/SwatchGrid.h"
#include "uikit/Spoken.h"

#include <QColor>
#include <QPointer>
#include <QWidget>

class ColourEditorPopover;
class Palette;

/// What the two swatch strips share: cells of a palette with a first and a second pick.
///
/// Indices are those of the palette. The left button picks first, the right one second; a double
/// click opens a colour editor beside the cell. Arrow keys move the first pick, with Shift the
/// second; Return opens the editor.
class SwatchStrip : public QWidget, public Spoken
{
    Q_OBJECT

public:
    static constexpr int BankSize = 16; // entries that a palette offset counts
    static constexpr int MaxOffset = 15;

    using QWidget::setPalette;

    int offset() const { return m_offset; }
    const SwatchGrid &grid() const { return m_grid; }

    /// The first pick.
    QString spokenValue() const override;

public slots:
    /// Null shows an empty field.
    void setPalette(QPointer<Palette> palette);
    /// Repaints an entry that changed.
    void paletteEntryChanged(int index, QColor colour, bool priority);
    /// Writes a colour to the entry that the colour editor was opened for, if it was.
    void updateColour(QColor colour, bool priority);

protected:
    SwatchStrip(const QColor &background, QWidget *parent);

    virtual void pickFirst(int index) = 0;
    virtual void pickSecond(int index) = 0;
    virtual void pickTransparent(int index);
    virtual void pickTwice(int index);

    /// What the background colour fills: the whole widget.
    virtual QRect ground() const { return rect(); }
    /// The index of the first cell on show.
    virtual int base() const { return m_offset * BankSize; }

    QPointer<Palette> swatches() const { return m_palette; }
    int firstIndex() const { return m_first; }
    int secondIndex() const { return m_second; }
    void setFirst(int index);
    void setSecond(int index);
    void setBank(int offset);
    void setGrid(const SwatchGrid &grid);
    /// The index at a position, -1 if there is none.
    int indexAt(QPoint position) const;
    QRect rectOf(int index) const;

    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void openEditor(int index);
    void paintMarks(QPainter *painter) const;

    QColor m_background;
    SwatchGrid m_grid;
    QPointer<Palette> m_palette;
    QPointer<ColourEditorPopover> m_popover;
    int m_offset = 0;
    int m_first = 0;
    int m_second = 0;
    int m_edited = -1; // the entry that the editor is open for
};
