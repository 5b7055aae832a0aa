#include "colour/ChannelLabel.h"

#include <QPainter>
#include <QStyle>

ChannelLabel::ChannelLabel(const QString &text, QWidget *parent)
    : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    setToolTip(text);
}

void ChannelLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRect area = contentsRect();
    const bool fits = fontMetrics().horizontalAdvance(text()) <= area.width();
    style()->drawItemText(&painter, area, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                          fits ? text() : text().left(1), foregroundRole());
}
