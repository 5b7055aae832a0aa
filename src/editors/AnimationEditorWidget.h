#pragma once

#include "editors/AnimationControlWidget.h"
#include "model/Enums.h"
#include "model/TileAnimation.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

class BlockEditorToolBar;
class QBoxLayout;
class QSpinBox;
class ToolPalette;

namespace AnimationEditor {
class FrameEditorWidget;
}

namespace BlockEditor {

/// The pane that edits one block: its properties, its frames and their cells, and a preview.
///
/// Frames count from 0. The pane does not own the block; without one, or when it dies, it is
/// disabled.
class AnimationEditorWidget : public QWidget
{
    Q_OBJECT

public:
    using ToolButton = Tessaril::Ui::ToolButton;

    static constexpr int MaxPaletteOffset = 15;

    explicit AnimationEditorWidget(QWidget *parent = nullptr);

    TileAnimation *animation() const { return m_animation; }
    int currentFrame() const { return m_frame; }
    BlockEditorToolBar *toolBar() const { return m_toolBar; }
    AnimationEditor::FrameEditorWidget *frameEditor() const { return m_frameEditor; }
    ToolPalette *toolPalette() const { return m_toolPalette; }
    AnimationControlWidget *controls() const { return m_controls; }
    const QTimer &timer() const { return m_timer; }

public slots:
    /// Shows the first frame of a block and stops the preview; null disables. Has the block repeat
    /// its delay.
    void setAnimation(TileAnimation *anim);
    void play();
    void pause();
    void stop();
    /// Takes the flags and the palette offset of the selected cell.
    void selectionChanged();
    void changeTileState(Tessaril::Ui::ToolButton button, bool checked);
    void mediaControlButtonClicked(AnimationControlWidget::Action action, bool checked);
    /// Nothing out of range or if it is on show.
    void setCurrentFrame(int index);
    /// Shows the next frame of the preview, after the last one the first.
    void animate();
    void setAnimationDelay(int delay);

private:
    void makeToolPalette();
    void layOut();
    void connectChildren();
    void connectAnimation();
    void animationDied();

    void showProperties();
    void showFrame(int frame);
    void addFrame();
    void deleteFrame();
    void resetPaletteOffsets();

    QPointer<TileAnimation> m_animation;
    int m_frame = 0;
    BlockEditorToolBar *m_toolBar;
    AnimationEditor::FrameEditorWidget *m_frameEditor;
    QSpinBox *m_paletteOffsetSpin;
    ToolPalette *m_toolPalette;
    AnimationControlWidget *m_controls;
    QTimer m_timer;
};

} // namespace BlockEditor
