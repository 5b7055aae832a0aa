#include "editors/HoverMark.h"

#include <QPainter>

#include <cmath>

namespace {

constexpr int PenWidth = 2; // pixels, half of them beyond the tile
constexpr int Beyond = PenWidth / 2;
const QColor Line(160, 160, 255, 128);
const QColor Tint(160, 160, 255, 80);

void drawFrame(QPainter *painter, const QRect &tile)
{
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(Line, PenWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter->drawRects(&tile, 1);
    painter->setPen(QPen(Qt::white, PenWidth, Qt::DotLine, Qt::FlatCap, Qt::MiterJoin));
    painter->drawRects(&tile, 1);
}

} // namespace

void HoverMark::paint(QPainter *painter, const QRect &tile)
{
    painter->fillRect(tile, Tint);
    const qreal ratio = painter->device()->devicePixelRatioF();
    if (ratio != std::floor(ratio)) { // it then lies otherwise between the pixels at each place
        drawFrame(painter, tile);
        return;
    }
    if (m_tile != tile.size() || m_frame.devicePixelRatio() != ratio)
        makeFrame(tile.size(), ratio);
    painter->drawImage(tile.topLeft() - QPoint(Beyond, Beyond), m_frame);
}

void HoverMark::makeFrame(QSize tile, qreal pixelRatio)
{
    m_tile = tile;
    const QSize size = (tile + QSize(2 * Beyond, 2 * Beyond)) * pixelRatio;
    m_frame = QImage(size, QImage::Format_ARGB32_Premultiplied);
    m_frame.setDevicePixelRatio(pixelRatio);
    m_frame.fill(Qt::transparent);
    QPainter painter(&m_frame);
    drawFrame(&painter, QRect(QPoint(Beyond, Beyond), tile));
}
