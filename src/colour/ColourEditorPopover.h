#pragma once

#include "uikit/Popover.h"

class ColourEditor;

/// A colour editor in a floating panel beside the swatch that it changes.
///
/// It closes when the colour is confirmed or cancelled, on Escape, and on a press outside.
class ColourEditorPopover : public Popover
{
    Q_OBJECT

public:
    explicit ColourEditorPopover(QWidget *parent = nullptr);

    ColourEditor *editor() const { return m_editor; }

    /// Opens for a colour, pointing at @p cell of @p owner, in that widget's pixels.
    void openFor(const QWidget *owner, const QRect &cell, const QColor &colour, bool priority);

signals:
    void colourChanged(QColor colour, bool priority);
    void closed();

public slots:
    /// Emits colourChanged() and closes.
    void confirmColourChanged(QColor colour, bool priority);
    /// Closes.
    void cancelled();

protected:
    /// Return closes it, also where there is nothing to apply.
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void fitToSide();

    ColourEditor *m_editor;
};
