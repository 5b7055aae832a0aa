#pragma once

#include <QWidget>

class Canvas;
class ToolPalette;

namespace ImageEditor {

/// The tools of an image view, and the menu of its two overlays.
class ToolBar : public QWidget
{
    Q_OBJECT

public:
    /// The shortcuts of the tools work while the focus is in @p owner.
    ToolBar(Canvas *canvas, QWidget *owner, QWidget *parent = nullptr);

    ToolPalette *toolPalette() const { return m_toolPalette; }

private:
    ToolPalette *m_toolPalette;
};

} // namespace ImageEditor
