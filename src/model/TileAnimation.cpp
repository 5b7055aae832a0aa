#include "model/TileAnimation.h"

#include "model/MapObjects.h"
#include "model/Tile.h"
#include "model/TileSet.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr QRgb ThumbnailBackground = qRgb(32, 32, 32);

QImage darkImage(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(ThumbnailBackground);
    return image;
}

} // namespace

TileAnimation::TileAnimation(MapObjects *parent)
    : Animation(false, QStringLiteral("Blocks!"), parent)
{
}

TileAnimation::State TileAnimation::tileState() const
{
    return {state(), m_type};
}

void TileAnimation::restoreTileState(const State &state)
{
    m_type = state.type;
    restore(state.animation);
}

QImage TileAnimation::thumbnail(QSize size) const
{
    const QPointer<AnimationFrame> first = frame(0);
    const QSize cells = this->size();
    if (!first || !m_tileSet || cells.isEmpty())
        return darkImage(size);

    const QSize drawn = cells * Tile::Side;
    const int side = std::max(drawn.width(), drawn.height());
    const QPoint margin((side - drawn.width()) / 2, (side - drawn.height()) / 2);
    QImage image = darkImage({side, side});
    QPainter painter(&image);
    for (int y = 0; y < cells.height(); ++y) {
        for (int x = 0; x < cells.width(); ++x) {
            const AnimationFrame::Cell cell = first->cell({x, y});
            painter.drawImage(
                margin + QPoint(x, y) * Tile::Side,
                m_tileSet->tileImage(cell.index, cell.rotate, cell.flip, cell.mirror, cell.offset));
        }
    }
    painter.end();
    return image.scaled(size, Qt::KeepAspectRatio, Qt::FastTransformation);
}

void TileAnimation::setMapObjectType(MapObjectType type)
{
    m_type = type;
    notifyContentChanged();
}
