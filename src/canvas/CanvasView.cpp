// The canvas as a widget: geometry, scrolling, painting and the events of the mouse.

#include "canvas/Canvas.h"
#include "canvas/CanvasTool.h"
#include "model/Palette.h"
#include "uikit/CellPoint.h"
#include "uikit/PointerKeys.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QWheelEvent>
#include <QtMath>

#include <algorithm>

namespace {

const QColor GridLineColour = QColor::fromRgba64(0xFFFF, 0xFFFF, 0xFFFF, 0x3030);

int stepOf(int delta, int step)
{
    return delta > 0 ? step : delta < 0 ? -step : 0;
}

} // namespace

QSize Canvas::sizeHint() const
{
    const QSize pixel = pixelSize();
    return {image().width() * pixel.width(), image().height() * pixel.height()};
}

QSize Canvas::minimumSizeHint() const
{
    return pixelSize();
}

QPoint Canvas::pixelAt(QPoint position) const
{
    const QPoint inside = position - m_viewRect.topLeft();
    const QSize pixel = pixelSize();
    return QPoint(inside.x() / pixel.width(), inside.y() / pixel.height()) +
           m_scrollOrigin.topLeft();
}

QRect Canvas::cellRect(const QRect &pixels) const
{
    const QSize pixel = pixelSize();
    const QPoint inside = pixels.topLeft() - m_scrollOrigin.topLeft();
    return {m_viewRect.left() + inside.x() * pixel.width(),
            m_viewRect.top() + inside.y() * pixel.height(), pixels.width() * pixel.width(),
            pixels.height() * pixel.height()};
}

void Canvas::layoutImage()
{
    const QSize pixel = pixelSize();
    const QSize whole(std::max(1, width() / pixel.width()), std::max(1, height() / pixel.height()));
    const QSize visible = whole.boundedTo(image().size());
    const QPoint oldPosition = m_scrollOrigin.topLeft();
    const QSize range = image().size() - visible;
    const QPoint position(std::clamp(oldPosition.x(), 0, range.width()),
                          std::clamp(oldPosition.y(), 0, range.height()));
    m_scrollOrigin = QRect(position, visible);
    m_selection = m_selection.intersected(image().rect());
    m_viewRect = QStyle::alignedRect(
        Qt::LeftToRight, Qt::AlignCenter,
        QSize(visible.width() * pixel.width(), visible.height() * pixel.height()), rect());
    placeRubberBand();
    update();
    emit scrollValuesChanged(range.width(), range.height());
    if (position != oldPosition)
        emit scrollPositionChanged(position);
}

void Canvas::scrollTo(QPoint position)
{
    const QSize range = image().size() - m_scrollOrigin.size();
    const QPoint target(std::clamp(position.x(), 0, std::max(0, range.width())),
                        std::clamp(position.y(), 0, std::max(0, range.height())));
    if (target == m_scrollOrigin.topLeft())
        return;
    m_scrollOrigin.moveTopLeft(target);
    placeRubberBand();
    update();
    emit scrollPositionChanged(target);
}

void Canvas::reveal(QPoint pixel)
{
    const auto nearest = [](int position, int size, int wanted) {
        return std::clamp(position, wanted - size + 1, wanted);
    };
    scrollTo({nearest(m_scrollOrigin.left(), m_scrollOrigin.width(), pixel.x()),
              nearest(m_scrollOrigin.top(), m_scrollOrigin.height(), pixel.y())});
}

void Canvas::setHorizontalPosition(int pos)
{
    scrollTo({pos, m_scrollOrigin.top()});
}

void Canvas::setVerticalPosition(int pos)
{
    scrollTo({m_scrollOrigin.left(), pos});
}

void Canvas::setZoomLevel(int level)
{
    m_zoom = std::clamp(level, MinZoom, MaxZoom);
    updateGeometry();
    layoutImage();
}

void Canvas::changeZoom(int step)
{
    setZoomLevel(m_zoom + step);
}

void Canvas::resizeEvent(QResizeEvent *)
{
    layoutImage();
}

void Canvas::mousePressEvent(QMouseEvent *event)
{
    m_buttons = event->buttons();
    m_lastPixel = pixelAt(cellPoint(event->position()));
    m_shapeStart = m_lastPixel;
    m_shapeEnd = m_lastPixel;
    if (!image().isNull())
        m_tool->mousePressed(event);
}

void Canvas::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint pixel = pixelAt(cellPoint(event->position()));
    if (pixel == m_lastPixel)
        return;
    m_lastPixel = pixel;
    m_shapeEnd = pixel;
    m_buttons = event->buttons();
    if (image().isNull())
        return;
    m_tool->mouseMoved(event);
    update();
    tellChange(this);
}

void Canvas::mouseReleaseEvent(QMouseEvent *event)
{
    m_lastPixel = pixelAt(cellPoint(event->position()));
    if (!image().isNull())
        m_tool->mouseReleased(event);
    m_buttons = Qt::NoButton;
    tellChange(this);
}

void Canvas::wheelEvent(QWheelEvent *event)
{
    if (!m_viewRect.contains(cellPoint(event->position()))) {
        event->ignore();
        return;
    }

    const QPoint delta = event->angleDelta();
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        changeZoom(delta.y() > 0 ? ZoomStep : -ZoomStep);
        event->accept();
        return;
    }
    const QPoint step(stepOf(delta.x(), ZoomStep), stepOf(delta.y(), ZoomStep));
    const QRect before = m_scrollOrigin;
    scrollTo(before.topLeft() - step);
    // At its end the wheel is for what lies around the canvas, such as a dock that scrolls.
    event->setAccepted(m_scrollOrigin != before);
}

void Canvas::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape || !cancel())
        QWidget::keyPressEvent(event);
}

void Canvas::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (image().isNull() || !m_palette)
        return;

    painter.fillRect(rect(), QWidget::palette().window());
    painter.drawImage(m_viewRect.topLeft(), viewPicture());
    m_tool->paintOver(painter);
    if (m_keys->isInUse() && hasFocus())
        paintPointer(&painter);
}

/// A frame that shows on every colour around the pixel that the keys have reached.
void Canvas::paintPointer(QPainter *painter) const
{
    const QRect frame = cellRect({m_lastPixel, m_lastPixel}).adjusted(-1, -1, 0, 0);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(Qt::black);
    painter->drawRect(frame);
    painter->setPen(QPen(Qt::white, 1, Qt::DotLine));
    painter->drawRect(frame);
}

QString Canvas::spokenValue() const
{
    if (!image().rect().contains(m_lastPixel))
        return {};
    return tr("pixel %1, %2, colour %3")
        .arg(m_lastPixel.x())
        .arg(m_lastPixel.y())
        .arg(image().pixelIndex(m_lastPixel));
}

/// The image with what the tool is about to draw.
QImage Canvas::previewImage()
{
    m_previewSurface.setImage(m_surface.image());
    m_previewSurface.setInk(m_surface.ink());
    m_previewSurface.setPaper(m_surface.paper());
    m_previewSurface.setInk(m_ink);
    m_previewSurface.setPaper(m_paper);
    m_tool->preview(m_previewSurface);
    const QImage preview = m_previewSurface.image();
    m_previewSurface.setImage(QImage()); // lets the image's next edit do without a copy
    return preview;
}

const QImage &Canvas::viewPicture()
{
    ViewPicture::View view{m_scrollOrigin,     pixelSize(),      m_checkersVisible,
                           m_gridLinesVisible, m_checkerColours, GridLineColour};
    for (QColor &colour : view.checkerColours)
        colour.setAlpha(m_checkerAlpha);
    return m_viewPicture.of(previewImage(), view);
}
