#include "canvas/ViewBuilder.h"

#include "canvas/Canvas.h"
#include "canvas/ScrollCanvas.h"
#include "canvas/ToolBar.h"
#include "canvas/View.h"
#include "colour/ColourPalette.h"
#include "uikit/ToolPalette.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

using namespace ImageEditor;

namespace {

constexpr int SideWidth = 190; // pixels, for the tools and the colours

} // namespace

void ViewBuilder::build()
{
    m_view->m_scrollCanvas = new ScrollCanvas(m_view);
    m_view->m_colourPalette = new ColourPalette;
    layOut();
    connectParts();
}

void ViewBuilder::layOut()
{
    auto *const side = new QWidget;
    auto *const column = new QVBoxLayout(side);
    column->setContentsMargins(4, 4, 4, 4);
    auto *const tools = new ToolBar(m_view->canvas(), m_view);
    m_view->m_toolPalette = tools->toolPalette();
    column->addWidget(tools);
    column->addWidget(m_view->m_colourPalette);
    column->addStretch();

    auto *const scroller = new QScrollArea(m_view);
    scroller->setAccessibleName(View::tr("Tools and colours"));
    scroller->setWidget(side);
    scroller->setWidgetResizable(true);
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroller->setFixedWidth(SideWidth);

    auto *const row = new QHBoxLayout(m_view);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    row->addWidget(m_view->m_scrollCanvas, 1);
    row->addWidget(scroller);
    m_view->setFocusPolicy(Qt::ClickFocus);
    m_view->setFocusProxy(m_view->canvas());
    m_view->canvas()->setZoomLevel(2);
    // In front of the many tools, most of which have keys.
    QWidget::setTabOrder(m_view->canvas(), m_view->m_colourPalette);
}

void ViewBuilder::connectParts()
{
    View *const view = m_view;
    Canvas *const canvas = view->canvas();
    QObject::connect(canvas, &Canvas::scrollValuesChanged, view, &View::updateScrollAmounts);
    QObject::connect(canvas, &Canvas::scrollPositionChanged, view, &View::updateScrollBars);
    QObject::connect(view->m_toolPalette, &ToolPalette::actionActivated, view, &View::changeMode);
    QObject::connect(view->m_colourPalette, &ColourPalette::primaryIndexChanged, view,
                     &View::setForeIndex);
    QObject::connect(view->m_colourPalette, &ColourPalette::secondaryIndexChanged, view,
                     &View::setBackIndex);
    QObject::connect(canvas, &Canvas::foregroundPicked, view->m_colourPalette,
                     &ColourPalette::setPrimaryColour);
    QObject::connect(canvas, &Canvas::backgroundPicked, view->m_colourPalette,
                     &ColourPalette::setSecondaryColour);
    QObject::connect(canvas, &Canvas::imageChanged, view,
                     [view, canvas] { emit view->imageChanged(canvas->image()); });
    QObject::connect(canvas, &Canvas::edited, view, &View::pushEdit);
}
