#include "editors/BlockEditorView.h"

#include "editors/AnimationEditorWidget.h"
#include "editors/AnimationListWidget.h"
#include "editors/BlockEditorViewBuilder.h"
#include "editors/FrameEditorWidget.h"
#include "editors/TileDrag.h"
#include "editors/TileLooks.h"
#include "editors/TilePickerTool.h"
#include "model/MapObjects.h"
#include "model/TileSet.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMessageBox>
#include <QMimeData>

namespace BlockEditor {

View::View(MapObjects *blocks, QWidget *parent)
    : QSplitter(parent)
    , m_blocks(blocks)
{
    ViewBuilder(this).build();
    if (!m_blocks)
        return;

    connect(m_blocks, &MapObjects::animationsChanged, this, &View::listAnimations);
    connect(m_blocks, &QObject::destroyed, m_animationList,
            &AnimationEditor::AnimationListWidget::clear);
    if (const QPointer<TileSet> tiles = m_blocks->tileSet())
        TileLooks::follow(tiles, &m_redraw);
    listAnimations();
}

void View::redraw()
{
    m_animationList->updateIcons();
    m_editor->frameEditor()->redraw();
}

void View::followTilePicker(TilePickerTool *picker)
{
    connect(picker, &TilePickerTool::tileDoubleClicked, this, &View::tileDoubleClicked,
            Qt::UniqueConnection);
}

/// Lists what the block list holds; what has died is gone from the list already.
void View::listAnimations()
{
    if (!m_blocks)
        return;
    for (const auto &animation : m_blocks->animations())
        m_animationList->addAnimation(animation, false);
}

void View::showAnimation(Animation *animation)
{
    m_editor->setAnimation(qobject_cast<TileAnimation *>(animation));
}

void View::addNewAnimation()
{
    if (!m_blocks)
        return;

    auto *created = new TileAnimation(m_blocks);
    created->setName(tr("New Object"));
    created->addFrame();
    enter(created);
}

void View::cloneAnimation(Animation *animation)
{
    const QPointer<TileAnimation> source =
        m_blocks && animation ? m_blocks->animation(animation->id()) : QPointer<TileAnimation>();
    if (!source)
        return;

    auto *copy = new TileAnimation(m_blocks);
    copy->setName(tr("%1 (Copy)").arg(source->name()));
    copy->setDelay(source->delay());
    copy->setMapObjectType(source->type());
    copy->copyFrom(source, true);
    enter(copy);
}

/// Enters a block that is whole, so that no undo finds it half made, and opens it.
void View::enter(TileAnimation *animation)
{
    animation->setTileSet(m_blocks->tileSet());
    m_blocks->addAnimation(animation);
    m_animationList->addAnimation(animation, true);
    emit animationAdded(animation);
}

bool View::confirmDeletion()
{
    return QMessageBox::question(
               this, tr("Delete?"), tr("Are you sure you want to remove this animation?"),
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

void View::deleteAnimation()
{
    const QPointer<TileAnimation> animation =
        qobject_cast<TileAnimation *>(m_animationList->currentAnimation());
    if (!animation)
        return;

    m_editor->setAnimation(nullptr);
    const QPointer<View> self = this;
    const bool isConfirmed = confirmDeletion();
    if (!self)
        return;
    if (!isConfirmed || !animation || !m_blocks) {
        showAnimation(m_animationList->currentAnimation());
        return;
    }
    const QUuid id = animation->id();
    emit animationRemoved(animation);
    m_animationList->removeAnimation(id);
    if (m_blocks)
        m_blocks->removeAnimation(id);
}

void View::copy()
{
    const auto *frameEditor = m_editor->frameEditor();
    const TileAnimation *animation = m_editor->animation();
    if (!animation || frameEditor->selectedCell().x() < 0)
        return;

    const AnimationFrame::Cell cell = frameEditor->selectedCellData();
    auto copied = TileDrag::mimeData({cell.index, cell.offset});
    if (animation->tileSet()) {
        copied->setImageData(animation->tileSet()->tileImage(cell.index, cell.rotate, cell.flip,
                                                             cell.mirror, cell.offset));
    }
    QGuiApplication::clipboard()->setMimeData(copied.release());
}

void View::cut()
{
    copy();
    m_editor->frameEditor()->setSelectedCellData({});
}

void View::paste()
{
    auto *frameEditor = m_editor->frameEditor();
    frameEditor->place(frameEditor->selectedCell(), QGuiApplication::clipboard()->mimeData());
}

void View::selectAll()
{
    // A frame has one selected cell at most.
}

void View::selectNone()
{
    m_editor->frameEditor()->selectNone();
}

} // namespace BlockEditor
