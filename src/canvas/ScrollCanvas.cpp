#include "canvas/ScrollCanvas.h"

#include "canvas/Canvas.h"

#include <QGridLayout>
#include <QScrollBar>

ScrollCanvas::ScrollCanvas(QWidget *parent)
    : QWidget(parent)
    , m_canvas(new Canvas(this))
    , m_horizontal(new QScrollBar(Qt::Horizontal, this))
    , m_vertical(new QScrollBar(Qt::Vertical, this))
{
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_canvas, 0, 0);
    layout->addWidget(m_vertical, 0, 1);
    layout->addWidget(m_horizontal, 1, 0);
    layout->setRowStretch(0, 1);
    layout->setColumnStretch(0, 1);
    updateScrollAmounts(0, 0);

    connect(m_canvas, &Canvas::scrollValuesChanged, this, &ScrollCanvas::updateScrollAmounts);
    connect(m_canvas, &Canvas::scrollPositionChanged, this, &ScrollCanvas::updateScrollBars);
    connect(m_horizontal, &QScrollBar::valueChanged, m_canvas, &Canvas::setHorizontalPosition);
    connect(m_vertical, &QScrollBar::valueChanged, m_canvas, &Canvas::setVerticalPosition);
}

void ScrollCanvas::updateScrollAmounts(int horizontal, int vertical)
{
    m_horizontal->setRange(0, horizontal);
    m_horizontal->setPageStep(m_canvas->visiblePixels().width());
    m_horizontal->setEnabled(horizontal > 0);
    m_vertical->setRange(0, vertical);
    m_vertical->setPageStep(m_canvas->visiblePixels().height());
    m_vertical->setEnabled(vertical > 0);
}

void ScrollCanvas::updateScrollBars(QPoint pos)
{
    m_horizontal->setValue(pos.x());
    m_vertical->setValue(pos.y());
}
