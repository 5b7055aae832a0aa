#include "editors/BlockEditorViewBuilder.h"

#include "editors/AnimationEditorWidget.h"
#include "editors/AnimationListWidget.h"
#include "editors/BlockEditorView.h"
#include "editors/FrameEditorWidget.h"
#include "model/TileSet.h"

using AnimationEditor::AnimationListWidget;

namespace BlockEditor {

namespace {

constexpr int ListWidth = 150;   // pixels, at first
constexpr int EditorWidth = 600; // pixels, at first
constexpr int ListMode = AnimationListWidget::WithButtons | AnimationListWidget::WithMenu;

QImage renderCell(const TileAnimation *animation, const AnimationFrame::Cell &cell)
{
    const QPointer<TileSet> tiles = animation ? animation->tileSet() : QPointer<TileSet>();
    return tiles ? tiles->tileImage(cell.index, cell.rotate, cell.flip, cell.mirror, cell.offset)
                 : QImage();
}

} // namespace

ViewBuilder::ViewBuilder(View *view)
    : m_view(view)
{
}

void ViewBuilder::build()
{
    makeChildren();
    m_view->setOrientation(Qt::Horizontal);
    m_view->setChildrenCollapsible(false);
    m_view->addWidget(m_view->m_animationList);
    m_view->addWidget(m_view->m_editor);
    m_view->setStretchFactor(1, 1);
    m_view->setSizes({ListWidth, EditorWidth});
    connectChildren();
}

void ViewBuilder::makeChildren()
{
    // The list draws its icons by Animation::thumbnail(), which applies all that a cell says.
    m_view->m_animationList = new AnimationListWidget(ListMode);
    m_view->m_editor = new AnimationEditorWidget;
    const AnimationEditorWidget *const editor = m_view->m_editor;
    editor->frameEditor()->setRenderCell([editor](const AnimationFrame::Cell &cell) {
        return renderCell(editor->animation(), cell);
    });
    m_view->m_redraw.setSingleShot(true);
    m_view->m_redraw.setInterval(0);
}

void ViewBuilder::connectChildren()
{
    View *const view = m_view;
    const AnimationListWidget *list = view->m_animationList;
    connect(list, &AnimationListWidget::addRequested, view, &View::addNewAnimation);
    connect(list, &AnimationListWidget::removeRequested, view, &View::deleteAnimation);
    connect(list, &AnimationListWidget::cloneRequested, view, &View::cloneAnimation);
    connect(list, &AnimationListWidget::selectedItemChanged, view, &View::showAnimation);
    connect(&view->m_redraw, &QTimer::timeout, view, &View::redraw);
}

} // namespace BlockEditor
