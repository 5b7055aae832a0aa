#pragma once

#include "history/EditTarget.h"
#include "history/PixelEditCommand.h"
#include "model/Enums.h"

#include <QImage>
#include <QPointer>
#include <QWidget>

class Canvas;
class ColourPalette;
class Palette;
class QFileDialog;
class QScrollBar;
class QUndoStack;
class ScrollCanvas;
class ToolPalette;

namespace ImageEditor {

/// The tab that paints one picture: a canvas with scroll bars, its tools and its colours.
///
/// It knows the picture and the palette, not the document: what changes goes out by imageChanged(),
/// also when an undo puts a picture back and when a colour of the palette changes, as the document
/// does not follow its palette. Its undo commands go on the stack handed in.
class View : public QWidget, public EditTarget
{
    Q_OBJECT

public:
    explicit View(QWidget *parent = nullptr);
    ~View() override;

    Canvas *canvas() const;
    ColourPalette *colourPalette() const { return m_colourPalette; }
    ToolPalette *toolPalette() const { return m_toolPalette; }

    /// Takes the palette for the canvas and its colours; null leaves the canvas blank.
    void setPalette(const QPointer<Palette> &palette);
    /// Shows a picture and sends imageChanged().
    void setImage(const QImage &image);
    /// The shape of the pixels follows the screen mode.
    void setMode(Tessaril::ImageMode mode);
    void setUndoStack(QUndoStack *stack);

    /// Reads a picture into the canvas and its colours into the palette. False, with nothing
    /// changed, if it cannot be read.
    bool importImage(const QString &fileName);

    void cut() override;
    void copy() override;
    void paste() override;
    void selectAll() override;
    void selectNone() override;

signals:
    void imageChanged(QImage image);

public slots:
    void updateScrollAmounts(int horizontal, int vertical);
    void updateScrollBars(QPoint pos);
    /// Open and Save open their dialogs; everything else is the canvas's.
    void changeMode(Tessaril::Ui::ToolButton action, bool checked);
    /// Writes the picture in the format of the name's suffix.
    void exportImage(QString name);
    void setForeIndex(int index);
    void setBackIndex(int index);

private:
    friend class ViewBuilder;

    void announceImage();
    void pushEdit(const QString &text, const QImage &before, const QImage &after,
                  PixelEditCommand::Kind kind);
    void loadImage(const QString &fileName);
    QFileDialog *fileDialog(bool saves);

    ScrollCanvas *m_scrollCanvas = nullptr;
    ColourPalette *m_colourPalette = nullptr;
    ToolPalette *m_toolPalette = nullptr;
    QPointer<Palette> m_palette;
    QPointer<QUndoStack> m_undoStack;
    // Made at their first use.
    QPointer<QFileDialog> m_openDialog;
    QPointer<QFileDialog> m_saveDialog;
};

} // namespace ImageEditor
