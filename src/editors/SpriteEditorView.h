#pragma once

#include "editors/AnimationControlWidget.h"
#include "history/EditTarget.h"
#include "model/Enums.h"

#include <QColor>
#include <QImage>
#include <QPointer>
#include <QSplitter>
#include <QTimer>

class Animation;
class Palette;
class SpriteBank;
class ToolPalette;

namespace AnimationEditor {
class AnimationListWidget;
class FrameEditorWidget;
} // namespace AnimationEditor

namespace SpriteEditor {

class ToolBar;

/// The tab that builds frame animations from the sprites of a bank and plays them.
///
/// Frames count from 0. The view does not own the bank; when that dies the view is empty. The
/// clipboard commands work on the selected cell: a copied cell is a sprite that can be pasted.
class View : public QSplitter, public EditTarget
{
    Q_OBJECT

public:
    using ToolButton = Tessaril::Ui::ToolButton;

    explicit View(SpriteBank *bank, QWidget *parent = nullptr);

    QPointer<SpriteBank> bank() const { return m_bank; }

    void cut() override;
    void copy() override;
    void paste() override;
    void selectAll() override;
    void selectNone() override;

public slots:
    void addAnimation();
    /// Shows an animation, none for null.
    void changeAnim(Animation *animation);
    void animButtonClicked(AnimationControlWidget::Action action, bool checked);
    /// Deletes the selected animation.
    void deleteAnimation();
    void spriteChanged(int index);
    void setAnimationDelay(int delay);
    /// Shows the next frame of the playback.
    void animate();
    void updateToolPalette();
    void updatePalette(int index, QColor colour, bool priority);
    void cloneAnimation(Animation *animation);
    void toolClicked(Tessaril::Ui::ToolButton button, bool checked);

private:
    friend class ViewBuilder;

    Animation *currentAnimation() const;
    void listAnimations();
    void showFrame(int frame);
    void animationEdited();
    void appendFrame();
    void deleteFrame();
    void bankChanged();
    /// Listens to the palette that the bank has now.
    void followPalette();

    QPointer<SpriteBank> m_bank;
    QPointer<Palette> m_palette;
    AnimationEditor::AnimationListWidget *m_animationList = nullptr;
    ToolBar *m_toolBar = nullptr;
    ToolPalette *m_toolPalette = nullptr;
    AnimationControlWidget *m_controls = nullptr;
    AnimationEditor::FrameEditorWidget *m_frameEditor = nullptr;
    QTimer *m_timer = nullptr;
    int m_playFrame = 0; // the next to be played
    QTimer m_iconUpdate; // once for many changes of sprites
};

} // namespace SpriteEditor
