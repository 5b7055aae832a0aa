// The frame editor's painting.

#include "editors/FrameEditorWidget.h"

#include "model/Animation.h"
#include "uikit/PixelLines.h"

#include <QPaintEvent>
#include <QPainter>

namespace AnimationEditor {

namespace {

const QColor SelectionDots(127, 127, 127);
constexpr int HoverAlpha = 128;

} // namespace

void FrameEditorWidget::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    if (!isEnabled() || !m_animation) {
        painter.fillRect(event->rect(), Qt::darkGray);
        return;
    }
    painter.fillRect(event->rect(), Qt::black);
    painter.drawImage(QRect(QPoint(), sizeHint()), picture());
    paintMarks(&painter);
}

/// The frame in its own pixels, kept until something of it changes.
const QImage &FrameEditorWidget::picture()
{
    if (!m_picture.isNull())
        return m_picture;

    m_picture = QImage(m_animation->size() * unit(), QImage::Format_RGB32);
    m_picture.fill(Qt::black);
    const AnimationFrame *frame = frameOnShow();
    if (!frame || !m_renderCell || m_picture.isNull())
        return m_picture;

    QPainter painter(&m_picture);
    for (int y = 0; y < m_animation->size().height(); ++y) {
        for (int x = 0; x < m_animation->size().width(); ++x) {
            // In true colours: a painter reads past the end of a colour table that is too short.
            const QImage image = m_renderCell(frame->cell({x, y}))
                                     .convertToFormat(QImage::Format_ARGB32_Premultiplied);
            painter.drawImage(QRect(QPoint(x, y) * unit(), QSize(unit(), unit())), image);
        }
    }
    return m_picture;
}

void FrameEditorWidget::paintMarks(QPainter *painter) const
{
    moveLinesIntoPixels(painter);
    const auto frameOf = [this](QPoint cell) { return cellRect(cell).adjusted(0, 0, -1, -1); };
    if (contains(m_hoverCell)) {
        QColor highlight = palette().color(QPalette::Highlight);
        highlight.setAlpha(HoverAlpha);
        painter->setPen(highlight);
        painter->setBrush(highlight);
        painter->drawRect(frameOf(m_hoverCell));
    }
    if (contains(m_selectedCell)) {
        painter->setBrush(Qt::NoBrush);
        painter->setPen(Qt::black);
        painter->drawRect(frameOf(m_selectedCell));
        painter->setPen(QPen(SelectionDots, 1, Qt::DotLine));
        painter->drawRect(frameOf(m_selectedCell));
    }
}

QString FrameEditorWidget::spokenValue() const
{
    const AnimationFrame *frame = frameOnShow();
    if (!frame)
        return {};
    QStringList words{tr("frame %1").arg(m_currentFrame + 1)};
    if (contains(m_selectedCell)) {
        const AnimationFrame::Cell cell = frame->cell(m_selectedCell);
        words += tr("column %1, row %2").arg(m_selectedCell.x()).arg(m_selectedCell.y());
        words += (m_animation->isSprite() ? tr("sprite %1, offset %2") : tr("tile %1, offset %2"))
                     .arg(cell.index + 1)
                     .arg(cell.offset + 1);
        words += Spoken::orientation(cell.rotate, cell.flip, cell.mirror);
    }
    return words.join(QStringLiteral(", "));
}

} // namespace AnimationEditor
