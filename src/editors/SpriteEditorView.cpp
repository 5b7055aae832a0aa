#include "editors/SpriteEditorView.h"

#include "editors/AnimationListWidget.h"
#include "editors/FrameEditorWidget.h"
#include "editors/FrameTools.h"
#include "editors/PreviewTiming.h"
#include "editors/SpriteDrag.h"
#include "editors/SpriteEditorToolBar.h"
#include "editors/SpriteEditorViewBuilder.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "uikit/ToolPalette.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimer>

namespace SpriteEditor {

View::View(SpriteBank *bank, QWidget *parent)
    : QSplitter(parent)
    , m_bank(bank)
{
    ViewBuilder(this).build();
    m_frameEditor->setRenderCell([bank = m_bank](const AnimationFrame::Cell &cell) {
        return bank
                   ? bank->spriteImage(cell.index, cell.offset, cell.rotate, cell.flip, cell.mirror)
                   : QImage();
    });
    if (m_bank) {
        connect(m_bank, &SpriteBank::imageChanged, this, &View::spriteChanged);
        connect(m_bank, &SpriteBank::countChanged, this, &View::bankChanged);
        connect(m_bank, &SpriteBank::restored, this, &View::bankChanged);
        // The only one that tells that the last sprite was cleared.
        connect(m_bank, &SpriteBank::structureChanged, this, &View::bankChanged);
        connect(m_bank, &SpriteBank::animationsChanged, this, &View::listAnimations);
        connect(m_bank, &QObject::destroyed, m_animationList,
                &AnimationEditor::AnimationListWidget::clear);
        followPalette();
    }
    listAnimations();
    changeAnim(nullptr);
}

Animation *View::currentAnimation() const
{
    return m_frameEditor->animation();
}

/// Brings the list up to date with the bank.
void View::listAnimations()
{
    if (!m_bank)
        return;
    for (const auto &animation : m_bank->animations())
        m_animationList->addAnimation(animation, false);
}

void View::changeAnim(Animation *animation)
{
    if (Animation *before = currentAnimation())
        disconnect(before, nullptr, this, nullptr);
    m_toolBar->setAnimation(animation);
    m_frameEditor->setAnimation(animation);
    m_frameEditor->setVisible(animation != nullptr);
    updateToolPalette(); // no cell is selected yet
    m_controls->setEnabled(animation != nullptr);
    m_toolPalette->setEnabled(animation != nullptr);
    m_controls->setFrame(1, animation ? animation->frameCount() : 1);
    if (!animation)
        return;

    setAnimationDelay(animation->delay());
    connect(animation, &Animation::contentChanged, this, &View::animationEdited);
}

/// An undo brings back frame count and delay without a word of either.
void View::animationEdited()
{
    const Animation *animation = currentAnimation();
    if (!animation)
        return;
    if (m_timer->interval() != AnimationEditor::previewIntervalMs(animation->delay()))
        setAnimationDelay(animation->delay());
    showFrame(m_frameEditor->currentFrame());
}

void View::showFrame(int frame)
{
    if (const Animation *animation = currentAnimation())
        m_controls->setFrame(frame + 1, animation->frameCount());
}

void View::setAnimationDelay(int delay)
{
    m_timer->setInterval(AnimationEditor::previewIntervalMs(delay));
}

void View::addAnimation()
{
    m_timer->stop();
    if (m_bank)
        m_animationList->addAnimation(m_bank->createAnimation(), true);
}

void View::cloneAnimation(Animation *animation)
{
    m_timer->stop();
    if (!m_bank || !animation)
        return;

    // Entered when it is whole, so that an undo never finds it half copied.
    auto *copy = new SpriteAnim(m_bank);
    copy->setName(animation->name() + QStringLiteral(" (copy)"));
    copy->setDelay(animation->delay());
    copy->copyFrom(animation, true);
    m_bank->addAnimation(copy);
    m_animationList->addAnimation(copy, true);
}

void View::deleteAnimation()
{
    m_timer->stop();
    const Animation *animation = m_animationList->currentAnimation();
    if (!animation)
        return;

    const QUuid id = animation->id();
    m_frameEditor->setAnimation(nullptr);
    m_animationList->removeAnimation(id);
    if (m_bank)
        m_bank->removeAnimation(id);
}

void View::animButtonClicked(AnimationControlWidget::Action action, bool checked)
{
    const Animation *animation = currentAnimation();
    if (!animation)
        return;

    const auto destination = AnimationControlWidget::destination(
        action, m_frameEditor->currentFrame(), animation->frameCount());
    if (destination)
        m_frameEditor->setCurrentFrame(*destination);
    switch (action) {
    case AnimationControlWidget::Play:
        m_timer->start();
        break;
    case AnimationControlWidget::Pause:
        checked ? m_timer->stop() : m_timer->start();
        break;
    case AnimationControlWidget::Stop:
        m_timer->stop();
        break;
    case AnimationControlWidget::Add:
        appendFrame();
        break;
    case AnimationControlWidget::Delete:
        deleteFrame();
        break;
    default:
        break; // play always loops
    }
}

void View::appendFrame()
{
    Animation *animation = currentAnimation();
    animation->addFrame();
    animation->notifyContentChanged();
    m_frameEditor->setCurrentFrame(animation->frameCount() - 1);
}

void View::deleteFrame()
{
    const int current = m_frameEditor->currentFrame();
    currentAnimation()->removeFrame(current);
    m_frameEditor->setCurrentFrame(current - 1);
}

void View::animate()
{
    const Animation *animation = currentAnimation();
    if (!animation) {
        m_timer->stop();
        return;
    }
    m_controls->setFrame(m_playFrame + 1, animation->frameCount());
    m_frameEditor->setCurrentFrame(m_playFrame);
    ++m_playFrame;
    if (m_playFrame >= animation->frameCount())
        m_playFrame = 0;
}

void View::toolClicked(ToolButton button, bool checked)
{
    if (AnimationEditor::FrameTools::use(m_frameEditor, button, checked))
        updateToolPalette(); // a flag has no effect without a selected cell
}

void View::updateToolPalette()
{
    AnimationEditor::FrameTools::showSelectedCell(*m_toolPalette, *m_frameEditor);
}

void View::spriteChanged(int)
{
    followPalette();
    bankChanged();
}

void View::updatePalette(int, QColor, bool)
{
    bankChanged();
}

void View::bankChanged()
{
    m_frameEditor->redraw();
    m_iconUpdate.start();
}

void View::followPalette()
{
    const QPointer<Palette> palette = m_bank ? m_bank->palette() : QPointer<Palette>();
    if (palette == m_palette)
        return;
    if (m_palette)
        disconnect(m_palette, &Palette::colourChanged, this, &View::updatePalette);
    m_palette = palette;
    if (m_palette)
        connect(m_palette, &Palette::colourChanged, this, &View::updatePalette);
}

void View::copy()
{
    if (!m_bank || m_frameEditor->selectedCell().x() < 0)
        return;
    const AnimationFrame::Cell cell = m_frameEditor->selectedCellData();
    auto dragged = SpriteDrag::mimeData(cell.index);
    dragged->setImageData(
        m_bank->spriteImage(cell.index, cell.offset, cell.rotate, cell.flip, cell.mirror));
    QGuiApplication::clipboard()->setMimeData(dragged.release());
}

void View::cut()
{
    copy();
    m_frameEditor->setSelectedCellData({});
}

void View::paste()
{
    m_frameEditor->place(m_frameEditor->selectedCell(), QGuiApplication::clipboard()->mimeData());
}

void View::selectAll()
{
    // A frame has one selected cell at most.
}

void View::selectNone()
{
    m_frameEditor->selectNone();
}

} // namespace SpriteEditor
