#include "editors/AnimationEditorWidget.h"

#include "editors/BlockEditorToolBar.h"
#include "editors/FrameEditorWidget.h"
#include "editors/FrameTools.h"
#include "editors/PreviewTiming.h"
#include "model/TileSet.h"
#include "uikit/ToolPalette.h"
#include "uikit/UndoKeys.h"

#include <QAction>
#include <QDebug>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>

using AnimationEditor::previewIntervalMs;

namespace BlockEditor {

namespace {

constexpr int BoxSpacing = 2;     // pixels
constexpr int OffsetGap = 5;      // pixels, between the tools and the palette offset
constexpr int SideStretch = 1000; // of the room below the palette offset
constexpr int SideWidth = 48;     // pixels, of the tools and the palette offset

} // namespace

AnimationEditorWidget::AnimationEditorWidget(QWidget *parent)
    : QWidget(parent)
    , m_toolBar(new BlockEditorToolBar)
    , m_frameEditor(new AnimationEditor::FrameEditorWidget)
    , m_paletteOffsetSpin(new QSpinBox)
    , m_toolPalette(new ToolPalette)
    , m_controls(new AnimationControlWidget)
{
    m_paletteOffsetSpin->setRange(0, MaxPaletteOffset);
    UndoKeys::leaveToMenu(m_paletteOffsetSpin);
    m_paletteOffsetSpin->setToolTip(tr("Palette offset of the selected cell"));
    m_paletteOffsetSpin->setAccessibleName(tr("Palette offset"));
    makeToolPalette();
    layOut();
    connectChildren();
    setAnimation(nullptr);
}

void AnimationEditorWidget::makeToolPalette()
{
    AnimationEditor::FrameTools::add(m_toolPalette, m_frameEditor, this);
    QAction *reset = m_toolPalette->addButton(ToolButton::PaintPalette, this);
    reset->setCheckable(false);
    reset->setToolTip(tr("Update palette offsets to default values"));
}

void AnimationEditorWidget::layOut()
{
    auto *side = new QVBoxLayout;
    side->setSpacing(BoxSpacing);
    side->addWidget(m_toolPalette);
    side->addSpacing(OffsetGap);
    side->addWidget(m_paletteOffsetSpin);
    side->addStretch(SideStretch);
    m_toolPalette->setFixedWidth(SideWidth);
    m_paletteOffsetSpin->setFixedWidth(SideWidth);

    auto *scroller = new QScrollArea;
    scroller->setAccessibleName(tr("Frame area"));
    scroller->setAlignment(Qt::AlignCenter);
    scroller->setWidgetResizable(true);
    scroller->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    scroller->setWidget(m_frameEditor);
    auto *main = new QVBoxLayout;
    main->setSpacing(BoxSpacing);
    main->addWidget(m_toolBar);
    main->addWidget(scroller);
    main->addWidget(m_controls);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(BoxSpacing, BoxSpacing, BoxSpacing, BoxSpacing);
    row->addLayout(side);
    row->addLayout(main);
}

void AnimationEditorWidget::connectChildren()
{
    using AnimationEditor::FrameEditorWidget;
    connect(m_toolBar, &BlockEditorToolBar::delayChanged, this,
            &AnimationEditorWidget::setAnimationDelay);
    connect(m_toolPalette, &ToolPalette::actionActivated, this,
            &AnimationEditorWidget::changeTileState);
    connect(m_controls, &AnimationControlWidget::buttonClicked, this,
            &AnimationEditorWidget::mediaControlButtonClicked);
    connect(m_frameEditor, &FrameEditorWidget::selectedCellChanged, this,
            &AnimationEditorWidget::selectionChanged);
    connect(m_frameEditor, &FrameEditorWidget::currentFrameChanged, this,
            &AnimationEditorWidget::showFrame);
    connect(&m_timer, &QTimer::timeout, this, &AnimationEditorWidget::animate);
}

void AnimationEditorWidget::setAnimation(TileAnimation *anim)
{
    stop();
    if (m_animation) {
        disconnect(m_toolBar, nullptr, m_animation, nullptr);
        disconnect(m_animation, nullptr, this, nullptr);
        disconnect(m_paletteOffsetSpin, nullptr, m_frameEditor, nullptr);
    }
    m_animation = anim;
    m_frame = 0;
    m_frameEditor->setAnimation(m_animation);
    m_frameEditor->setVisible(m_animation != nullptr);
    selectionChanged();
    setEnabled(m_animation != nullptr);
    if (!m_animation) {
        m_toolBar->showName({});
        m_controls->setFrame(1, 1);
        return;
    }
    connectAnimation();
    showProperties();
    emit m_animation->delayChanged(m_animation->delay());
}

void AnimationEditorWidget::connectAnimation()
{
    TileAnimation *const animation = m_animation;
    connect(m_paletteOffsetSpin, &QSpinBox::valueChanged, m_frameEditor,
            &AnimationEditor::FrameEditorWidget::setOffset);
    connect(m_toolBar, &BlockEditorToolBar::nameChanged, animation, &Animation::setName);
    connect(m_toolBar, &BlockEditorToolBar::blockTypeChanged, animation,
            &TileAnimation::setMapObjectType);
    connect(m_toolBar, &BlockEditorToolBar::widthChanged, animation, &Animation::setWidth);
    connect(m_toolBar, &BlockEditorToolBar::heightChanged, animation, &Animation::setHeight);

    connect(animation, &Animation::nameChanged, this, &AnimationEditorWidget::showProperties);
    connect(animation, &Animation::sizeChanged, this, &AnimationEditorWidget::showProperties);
    connect(animation, &Animation::delayChanged, this, &AnimationEditorWidget::showProperties);
    connect(animation, &Animation::contentChanged, this, &AnimationEditorWidget::showProperties);
    connect(animation, &Animation::frameChanged, this, &AnimationEditorWidget::selectionChanged);
    connect(animation, &QObject::destroyed, this, &AnimationEditorWidget::animationDied);
}

void AnimationEditorWidget::animationDied()
{
    // Who heard of it earlier may have given us another one.
    if (!m_animation)
        setAnimation(nullptr);
}

/// Shows all of the block but its cells. An undo brings type, delay and frames back without a word
/// of each.
void AnimationEditorWidget::showProperties()
{
    m_toolBar->showName(m_animation->name());
    m_toolBar->showSize(m_animation->size());
    m_toolBar->showDelay(m_animation->delay());
    m_toolBar->showType(m_animation->type());
    const int interval = previewIntervalMs(m_animation->delay());
    if (interval != m_timer.interval())
        m_timer.setInterval(interval); // would begin the interval under way again
    m_controls->setFrame(m_frame + 1, m_animation->frameCount());
}

/// The frame editor shows that frame, -1 for a block without frames.
void AnimationEditorWidget::showFrame(int frame)
{
    m_frame = std::max(frame, 0);
    if (m_animation)
        m_controls->setFrame(m_frame + 1, m_animation->frameCount());
}

void AnimationEditorWidget::setAnimationDelay(int delay)
{
    if (m_animation)
        m_animation->setDelay(delay);
    m_timer.setInterval(previewIntervalMs(delay));
}

void AnimationEditorWidget::play()
{
    if (!m_animation)
        return;
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(previewIntervalMs(m_animation->delay()));
    m_timer.start();
}

void AnimationEditorWidget::pause()
{
    m_timer.stop();
}

void AnimationEditorWidget::stop()
{
    m_timer.stop();
}

void AnimationEditorWidget::animate()
{
    if (!m_animation)
        return;
    const int next = m_frame + 1;
    m_frameEditor->setCurrentFrame(next < m_animation->frameCount() ? next : 0);
}

void AnimationEditorWidget::setCurrentFrame(int index)
{
    if (!m_animation || index == m_frame || index < 0 || index >= m_animation->frameCount())
        return;
    m_frameEditor->setCurrentFrame(index);
}

void AnimationEditorWidget::mediaControlButtonClicked(AnimationControlWidget::Action action, bool)
{
    if (!m_animation)
        return;

    const auto destination =
        AnimationControlWidget::destination(action, m_frame, m_animation->frameCount());
    if (destination)
        setCurrentFrame(*destination);
    switch (action) {
    case AnimationControlWidget::Play:
        play();
        break;
    case AnimationControlWidget::Pause:
        pause();
        break;
    case AnimationControlWidget::Stop:
        stop();
        break;
    case AnimationControlWidget::Add:
        addFrame();
        break;
    case AnimationControlWidget::Delete:
        deleteFrame();
        break;
    default:
        break; // the preview always loops
    }
    update();
}

void AnimationEditorWidget::addFrame()
{
    m_animation->addFrame();
    m_animation->notifyContentChanged();
    setCurrentFrame(m_animation->frameCount() - 1);
}

void AnimationEditorWidget::deleteFrame()
{
    const int previous = std::max(m_frame - 1, 0);
    m_animation->removeFrame(m_frame);
    m_frameEditor->setCurrentFrame(previous);
}

void AnimationEditorWidget::selectionChanged()
{
    AnimationEditor::FrameTools::showSelectedCell(*m_toolPalette, *m_frameEditor);
    // The spin holds less than a cell of a file can: showing an offset must not change it.
    const QSignalBlocker blocker(m_paletteOffsetSpin);
    m_paletteOffsetSpin->setValue(m_frameEditor->selectedCellData().offset);
}

void AnimationEditorWidget::changeTileState(ToolButton button, bool checked)
{
    if (AnimationEditor::FrameTools::use(m_frameEditor, button, checked))
        selectionChanged(); // a flag has no effect without a selected cell
    else if (button == ToolButton::PaintPalette)
        resetPaletteOffsets();
    else
        qWarning() << "Unhandled tool button" << button;
}

void AnimationEditorWidget::resetPaletteOffsets()
{
    const QPointer<TileSet> tiles = m_animation ? m_animation->tileSet() : QPointer<TileSet>();
    if (!tiles)
        return;

    const QSize size = m_animation->size();
    for (const auto &frame : m_animation->frames()) {
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                AnimationFrame::Cell cell = frame->cell({x, y});
                cell.offset = tiles->tileOffset(cell.index);
                frame->setCell({x, y}, cell);
                frame->notifyChanged();
            }
        }
    }
}

} // namespace BlockEditor
