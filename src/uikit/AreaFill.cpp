#include "uikit/AreaFill.h"

#include <QPainter>

AreaFill::AreaFill(QWidget *parent)
    : QWidget(parent)
{
}

void AreaFill::setColour(const QColor &colour)
{
    if (colour == m_colour)
        return;

    m_colour = colour;
    update();
}

void AreaFill::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), m_colour);
}
