#include "editors/SpriteEditorViewBuilder.h"

#include "editors/AnimationListWidget.h"
#include "editors/FrameEditorWidget.h"
#include "editors/FrameTools.h"
#include "editors/SpriteEditorToolBar.h"
#include "editors/SpriteEditorView.h"
#include "uikit/ToolPalette.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

using AnimationEditor::AnimationListWidget;
using AnimationEditor::FrameEditorWidget;

namespace SpriteEditor {

namespace {

constexpr int PaneMargin = 2;     // pixels
constexpr int PaletteWidth = 37;  // pixels: one column of tools
constexpr int ListWidth = 230;    // pixels, at first
constexpr int MinListWidth = 130; // pixels: an icon and a few words beside it
constexpr int ListMode = AnimationListWidget::WithButtons | AnimationListWidget::WithMenu |
                         AnimationListWidget::WithText;
constexpr int RowStretch = 10;

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
    m_view->m_animationList->setMinimumWidth(MinListWidth);
    m_view->addWidget(m_view->m_animationList);
    m_view->addWidget(makeEditorPane());
    m_view->setStretchFactor(1, 1);
    m_view->setSizes({ListWidth, 3 * ListWidth});
    connectChildren();
}

void ViewBuilder::makeChildren()
{
    m_view->m_animationList = new AnimationListWidget(ListMode);
    m_view->m_toolBar = new ToolBar;
    m_view->m_controls = new AnimationControlWidget;
    m_view->m_frameEditor = new FrameEditorWidget;
    m_view->m_timer = new QTimer(m_view);
    m_view->m_iconUpdate.setSingleShot(true);

    auto *tools = new ToolPalette;
    AnimationEditor::FrameTools::add(tools, m_view->m_frameEditor, m_view);
    tools->setFixedWidth(PaletteWidth);
    m_view->m_toolPalette = tools;
}

QWidget *ViewBuilder::makeEditorPane()
{
    // Large frames are scrolled: they must not set the least size of the window.
    auto *scroller = new QScrollArea;
    scroller->setAccessibleName(View::tr("Frame area"));
    scroller->setAlignment(Qt::AlignCenter);
    scroller->setWidget(m_view->m_frameEditor);

    auto *row = new QHBoxLayout;
    row->addWidget(m_view->m_toolPalette, 0, Qt::AlignLeft | Qt::AlignTop);
    row->addWidget(scroller, 1);
    auto *pane = new QWidget;
    auto *layout = new QVBoxLayout(pane);
    layout->setContentsMargins(PaneMargin, PaneMargin, PaneMargin, PaneMargin);
    layout->addWidget(m_view->m_toolBar, 0, Qt::AlignTop);
    layout->addLayout(row, RowStretch);
    layout->addWidget(m_view->m_controls);
    return pane;
}

void ViewBuilder::connectChildren()
{
    View *const view = m_view;
    const AnimationListWidget *list = view->m_animationList;
    QObject::connect(list, &AnimationListWidget::addRequested, view, &View::addAnimation);
    QObject::connect(list, &AnimationListWidget::removeRequested, view, &View::deleteAnimation);
    QObject::connect(list, &AnimationListWidget::cloneRequested, view, &View::cloneAnimation);
    QObject::connect(list, &AnimationListWidget::selectedItemChanged, view, &View::changeAnim);
    QObject::connect(view->m_toolBar, &ToolBar::delayChanged, view, &View::setAnimationDelay);
    QObject::connect(view->m_toolPalette, &ToolPalette::actionActivated, view, &View::toolClicked);
    QObject::connect(view->m_controls, &AnimationControlWidget::buttonClicked, view,
                     &View::animButtonClicked);
    QObject::connect(view->m_frameEditor, &FrameEditorWidget::selectedCellChanged, view,
                     &View::updateToolPalette);
    QObject::connect(view->m_frameEditor, &FrameEditorWidget::currentFrameChanged, view,
                     &View::showFrame);
    QObject::connect(view->m_timer, &QTimer::timeout, view, &View::animate);
    QObject::connect(&view->m_iconUpdate, &QTimer::timeout, view->m_animationList,
                     &AnimationListWidget::updateIcons);
}

} // namespace SpriteEditor
