#include "canvas/PasteCanvasTool.h"

#include "canvas/Canvas.h"
#include "canvas/CanvasClipboard.h"
#include "canvas/Raster.h"
#include "model/Palette.h"

#include <QPainter>

void PasteCanvasTool::activate() {}

void PasteCanvasTool::mouseReleased(QMouseEvent *)
{
    const QImage pasted = picture();
    if (pasted.isNull())
        return;

    const QPoint corner = target(pasted.size()).topLeft();
    const auto put = [&pasted, corner](QImage &image) {
        for (int y = 0; y < pasted.height(); ++y) {
            for (int x = 0; x < pasted.width(); ++x)
                Raster::setPixel(image, corner + QPoint(x, y), pasted.pixelIndex(x, y));
        }
    };
    m_canvas->changeImage(QStringLiteral("Paste"), PixelEditCommand::Kind::Edit, put);
}

void PasteCanvasTool::paintOver(QPainter &painter)
{
    QImage pasted = picture();
    if (pasted.isNull() || !m_canvas->m_palette)
        return;

    pasted.setColorTable(m_canvas->m_palette->colourTable());
    const QRect frame = m_canvas->cellRect(target(pasted.size()));
    painter.save();
    painter.setClipRect(m_canvas->viewRect());
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.drawImage(frame, pasted);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 2, Qt::SolidLine));
    painter.drawRect(frame);
    painter.setPen(QPen(Qt::white, 2, Qt::DotLine));
    painter.drawRect(frame);
    painter.restore();
}

QImage PasteCanvasTool::picture() const
{
    const CanvasClipboard *const clipboard = m_canvas->clipboard();
    if (clipboard->imageType() == Tessaril::Ui::ImageType::Undefined)
        return {};
    return clipboard->image();
}

QRect PasteCanvasTool::target(QSize size) const
{
    return {m_canvas->m_lastPixel - QPoint(size.width() / 2, size.height() / 2), size};
}
