#pragma once

#include "colour/SwatchStrip.h"

/// The sixteen colours of one palette bank, to choose the foreground and the background from.
///
/// Swatches are 24 pixels wide and high and stand in lines of a given number. Indices are those of
/// the palette, so they hold the bank in their high four bits.
class ColourSelector : public SwatchStrip
{
    Q_OBJECT

public:
    /// @p columns swatches in a line, 1 to 16; @p orientation is the way in which lines follow.
    explicit ColourSelector(int columns = 8, Qt::Orientation orientation = Qt::Vertical,
                            QWidget *parent = nullptr);

    QSize sizeHint() const override { return grid().size(); }
    QSize minimumSizeHint() const override { return grid().size(); }

signals:
    void foreColourChanged(int index);
    void backColourChanged(int index);
    void doubleClicked(int index);

public slots:
    /// Shows a bank, 0 to 15; nothing out of range. The chosen indices stay.
    void setOffset(int offset);
    /// The setters emit nothing.
    void setForeIndex(int index);
    void setBackIndex(int index);
    /// Repaints.
    void paletteChanged(int first, int last, QColor colour);
    int foreIndex() const { return firstIndex(); }
    int backIndex() const { return secondIndex(); }

protected:
    void pickFirst(int index) override;
    void pickSecond(int index) override;
    void pickTwice(int index) override;
};
