#include "colour/ChannelSlider.h"

#include <QPainter>
#include <QStyleOptionSlider>

namespace {

constexpr qreal GrooveHeight = 10; // pixels, as all below
constexpr qreal GrooveRadius = 3;
constexpr qreal HandleWidth = 10;
constexpr qreal HandleRadius = 3;
constexpr qreal HalfPen = 0.5;
constexpr qreal DisabledOpacity = 0.4;

} // namespace

ChannelSlider::ChannelSlider(const QColor &handle, QWidget *parent)
    : QSlider(Qt::Horizontal, parent)
    , m_handle(handle)
{
}

void ChannelSlider::setEnds(const QColor &low, const QColor &high)
{
    if (low == m_low && high == m_high)
        return;

    m_low = low;
    m_high = high;
    update();
}

void ChannelSlider::paintEvent(QPaintEvent *)
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    // Where the style takes hold of it, so that the pointer grabs what it sees.
    const QRectF grip =
        style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(DisabledOpacity);

    const QRectF area = QRectF(rect()).adjusted(HalfPen, 0, -HalfPen, 0);
    QRectF groove(area.left(), 0, area.width(), GrooveHeight);
    groove.moveCenter(area.center());
    QLinearGradient gradient(groove.topLeft(), groove.topRight());
    gradient.setColorAt(0, m_low);
    gradient.setColorAt(1, m_high);
    painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(gradient);
    painter.drawRoundedRect(groove, GrooveRadius, GrooveRadius);

    QRectF handle(0, HalfPen, HandleWidth, height() - 2 * HalfPen);
    handle.moveCenter({grip.center().x(), area.center().y()});
    const QColor outline = hasFocus() ? palette().color(QPalette::Highlight) : m_handle.darker();
    painter.setPen(QPen(outline, hasFocus() ? 2 : 1));
    painter.setBrush(m_handle);
    painter.drawRoundedRect(handle, HandleRadius, HandleRadius);
}
