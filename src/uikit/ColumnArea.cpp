#include "uikit/ColumnArea.h"

#include <QScrollBar>

ColumnArea::ColumnArea(QWidget *column, QWidget *parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setWidget(column);
    setFixedWidth(column->sizeHint().width());
}

QSize ColumnArea::sizeHint() const
{
    return widget()->sizeHint();
}

bool ColumnArea::fits() const
{
    return height() >= widget()->sizeHint().height();
}

void ColumnArea::resizeEvent(QResizeEvent *event)
{
    QScrollArea::resizeEvent(event);
    setFixedWidth(widget()->sizeHint().width() +
                  (fits() ? 0 : verticalScrollBar()->sizeHint().width()));
}
