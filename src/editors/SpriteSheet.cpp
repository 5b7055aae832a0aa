#include "editors/SpriteSheet.h"

#include "model/SpriteBank.h"

#include <QPainter>

#include <cmath>

namespace SpriteEditor {

namespace {

constexpr double MaxPixels = 32.0 * 1024 * 1024;

} // namespace

void SpriteSheet::prepare(const SpriteBank &bank, const Shape &shape)
{
    if (shape == m_shape && bank.count() == m_count) {
        const QList<QRgb> colours = bank.image().colorTable();
        if (colours != m_colours)
            invalidate();
        m_colours = colours;
        return;
    }

    m_shape = shape;
    m_count = bank.count();
    m_colours = bank.image().colorTable();
    m_isStale = QBitArray(m_count, true);
    const int rows = (m_count + shape.columns - 1) / shape.columns;
    const QSizeF size = QSizeF(shape.columns * shape.cell, rows * shape.cell) * shape.pixelRatio;
    m_picture = QImage();
    if (size.width() * size.height() > MaxPixels)
        return;
    m_picture =
        QImage(int(std::ceil(size.width())), int(std::ceil(size.height())), QImage::Format_RGB32);
    m_picture.setDevicePixelRatio(shape.pixelRatio);
    m_picture.fill(shape.background);
}

void SpriteSheet::invalidate(int index)
{
    if (index >= 0 && index < m_isStale.size())
        m_isStale.setBit(index);
}

void SpriteSheet::invalidate()
{
    m_isStale.fill(true);
}

QRect SpriteSheet::cellRect(int index) const
{
    return {index % m_shape.columns * m_shape.cell, index / m_shape.columns * m_shape.cell,
            m_shape.cell, m_shape.cell};
}

template <typename Function>
void SpriteSheet::forEachIn(const QRect &area, const Function &function) const
{
    const int firstColumn = std::max(area.left() / m_shape.cell, 0);
    const int lastColumn = std::min(area.right() / m_shape.cell, m_shape.columns - 1);
    for (int row = std::max(area.top() / m_shape.cell, 0); row <= area.bottom() / m_shape.cell;
         ++row) {
        for (int column = firstColumn; column <= lastColumn; ++column) {
            const int index = row * m_shape.columns + column;
            if (index < m_count)
                function(index);
        }
    }
}

void SpriteSheet::drawCell(QPainter *painter, const SpriteBank &bank, int index,
                           QPoint origin) const
{
    const QRect cell = cellRect(index).translated(origin);
    painter->fillRect(cell, m_shape.background);
    painter->drawImage(cell, bank.spriteImage(index, 0, false, false, false)
                                 .convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

void SpriteSheet::drawStale(const SpriteBank &bank, const QRect &area)
{
    if (m_isStale.count(true) == 0)
        return;

    QPainter painter(&m_picture);
    forEachIn(area, [&](int index) {
        if (!m_isStale.testBit(index))
            return;
        drawCell(&painter, bank, index, {});
        m_isStale.clearBit(index);
    });
}

void SpriteSheet::paint(QPainter *painter, const SpriteBank &bank, const QRect &area, QPoint origin)
{
    if (m_picture.isNull()) {
        forEachIn(area, [&](int index) { drawCell(painter, bank, index, origin); });
        return;
    }
    drawStale(bank, area);
    const qreal ratio = m_shape.pixelRatio;
    const QRect whole(0, 0, m_shape.columns * m_shape.cell,
                      (m_count + m_shape.columns - 1) / m_shape.columns * m_shape.cell);
    const QRect part = area.intersected(whole);
    if (part.isEmpty())
        return;
    if (ratio == 1) { // the plain copy is the fastest
        painter->drawImage(part.topLeft() + origin, m_picture, part);
        return;
    }
    painter->drawImage(QRectF(part.translated(origin)), m_picture,
                       QRectF(part.topLeft() * ratio, QSizeF(part.size()) * ratio));
}

} // namespace SpriteEditor
