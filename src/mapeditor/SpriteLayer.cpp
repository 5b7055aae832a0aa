#include "mapeditor/SpriteLayer.h"

#include "mapeditor/GridGeometry.h"

#include <QPainter>

#include <algorithm>
#include <numeric>

using namespace MapEditor;

namespace {

QRect onScreen(const QRect &mapPixels, const GridGeometry &geometry)
{
    return {geometry.fromMapPixel(mapPixels.topLeft()),
            QSize(geometry.scaled(mapPixels.width()), geometry.scaled(mapPixels.height()))};
}

QImage scaledTo(const QImage &image, QSize size)
{
    QImage scaled(size, QImage::Format_ARGB32_Premultiplied);
    if (scaled.isNull() || image.isNull())
        return {};
    scaled.fill(Qt::transparent);
    QPainter(&scaled).drawImage(scaled.rect(), image);
    return scaled;
}

} // namespace

QRegion SpriteLayer::update(const QList<Map::PlacedSprite> &sprites, const SpriteBanks &banks,
                            const GridGeometry &geometry, qint64 ticks, const QRect &area)
{
    QList<Shown> shown;
    for (const Map::PlacedSprite &sprite : sprites) {
        // Most sprites of a large map are off the view.
        const QRect bounds = spriteBounds(banks, sprite);
        const QRect rect = onScreen(bounds, geometry);
        if (bounds.isValid() && rect.intersects(area))
            shown.append({rect, spriteLook(banks, sprite, ticks)});
    }

    QList<QRect> changed;
    for (qsizetype i = 0; i < std::max(shown.size(), m_shown.size()); ++i) {
        const bool isBoth = i < shown.size() && i < m_shown.size();
        if (isBoth && shown.at(i) == m_shown.at(i))
            continue;
        if (i < shown.size())
            changed.append(shown.at(i).rect);
        if (i < m_shown.size())
            changed.append(m_shown.at(i).rect);
    }
    m_shown = shown;
    return changed.size() > MaxParts ? QRegion(area)
                                     : std::accumulate(changed.cbegin(), changed.cend(), QRegion());
}

void SpriteLayer::paint(QPainter &painter, const QRegion &area)
{
    for (const Shown &shown : std::as_const(m_shown)) {
        if (area.intersects(shown.rect))
            paintShown(painter, shown);
    }
}

void SpriteLayer::paintOne(QPainter &painter, const Map::PlacedSprite &sprite,
                           const SpriteBanks &banks, const GridGeometry &geometry, qint64 ticks)
{
    const QRect bounds = spriteBounds(banks, sprite);
    if (bounds.isValid())
        paintShown(painter, {onScreen(bounds, geometry), spriteLook(banks, sprite, ticks)});
}

void SpriteLayer::paintShown(QPainter &painter, const Shown &shown)
{
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QSize size = (QSizeF(shown.rect.size()) * ratio).toSize();
    const bool isKept = qint64(size.width()) * size.height() <= MaxKeptPixels;
    const Scaled key{shown.look, isKept ? size : QSize()};
    QImage picture;
    if (const QImage *const kept = m_pictures.object(key)) {
        picture = *kept;
    } else {
        picture = spriteImage(shown.look);
        if (isKept)
            picture = scaledTo(picture, size);
        m_pictures.insert(key, new QImage(picture), std::max<qsizetype>(1, picture.sizeInBytes()));
    }
    painter.drawImage(shown.rect, picture);
}
