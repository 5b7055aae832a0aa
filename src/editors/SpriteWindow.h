#pragma once

#include "history/EditTarget.h"
#include "history/PixelEditCommand.h"
#include "uikit/DockWidget.h"

#include <QPointer>
#include <QUuid>

#include <functional>

class Canvas;
class ColourPalette;
class NumberRange;
class Palette;
class QUndoStack;
class ScrollCanvas;
class SpriteBank;
class ToolPalette;

namespace SpriteEditor {
class SpriteList;
}

/// The dock in which the sprites of a bank are painted, one at a time, and put in order.
///
/// Sprites count from 1 here, as the number beside the canvas shows them. The dock shows its
/// placeholder while there is no bank.
class SpriteWindow : public DockWidget, public EditTarget
{
    Q_OBJECT

public:
    /// The undo stack for edits of a document; null drops the edit's step.
    using StackFor = std::function<QUndoStack *(const QUuid &)>;

    explicit SpriteWindow(QWidget *parent = nullptr);

    void setStackFor(const StackFor &stackFor) { m_stackFor = stackFor; }
    QPointer<SpriteBank> sprites() const { return m_sprites; }
    /// The number of the sprite on the canvas, from 1.
    int spriteIndex() const { return m_spriteIndex; }

    void cut() override;
    void copy() override;
    void paste() override;
    void selectAll() override;
    void selectNone() override;

public slots:
    /// Puts the bank's name into the title; a bank does not tell when it gets another.
    void showTitle();
    /// Writes the canvas's picture into the bank.
    void updateSpriteImage();
    /// Shows sprite number @p index, from 1, on the canvas.
    void changeSprite(int index);
    /// Takes count and pixels from the bank anew.
    void refresh();
    /// Null shows the placeholder.
    void setSprites(QPointer<SpriteBank> sprites);
    /// Binds the bank to a palette.
    void setSpritePalette(Palette *palette);

private:
    void makeContent();
    QWidget *makeCanvasRow();
    void connectWidgets();
    void connectBank();

    void pushEdit(const QString &text, const QImage &before, const QImage &after,
                  PixelEditCommand::Kind kind);
    void bankImageChanged(int index);
    void showSprite();
    /// Runs @p change on the bank as one step of the undo stack.
    void changeStructure(const QString &text, const std::function<void()> &change);
    void addSprite();
    void deleteSprite(int index);
    void clearSprite(int index);
    void copySprite(int source, int dest);
    void moveSprite(int source, int dest);

    QPointer<SpriteBank> m_sprites;
    int m_spriteIndex = 1;    // from 1
    int m_paletteOffset = 0;  // of the colours offered for a four-bit bank
    bool m_isLoading = false; // while the bank's pixels go to the canvas

    ScrollCanvas *m_scrollCanvas;
    Canvas *m_canvas;
    ToolPalette *m_tools;
    ColourPalette *m_colours;
    NumberRange *m_number;
    SpriteEditor::SpriteList *m_list;
    StackFor m_stackFor;
};
