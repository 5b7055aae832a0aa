#pragma once

#include "mapeditor/SpritePlayback.h"

#include <QCache>
#include <QImage>
#include <QList>
#include <QRect>
#include <QRegion>
#include <QSize>

class QPainter;

namespace MapEditor {

struct GridGeometry;

/// The placed sprites of a map on view, with their pictures at the zoom kept from paint to paint.
class SpriteLayer
{
public:
    /// Looks which of @p sprites show within @p area, in widget pixels, and how. Returns where that
    /// differs from the last update.
    QRegion update(const QList<Map::PlacedSprite> &sprites, const SpriteBanks &banks,
                   const GridGeometry &geometry, qint64 ticks, const QRect &area);
    /// Draws, in order of placing, those that the last update found and that reach into @p area.
    void paint(QPainter &painter, const QRegion &area);
    /// Draws one sprite, wherever it is.
    void paintOne(QPainter &painter, const Map::PlacedSprite &sprite, const SpriteBanks &banks,
                  const GridGeometry &geometry, qint64 ticks);

private:
    static constexpr int MaxCacheBytes = 16 << 20;
    /// A larger one is stretched at each paint.
    static constexpr qint64 MaxKeptPixels = 1 << 20;
    /// If more sprites differ, everything may.
    static constexpr qsizetype MaxParts = 512;

    struct Shown
    {
        QRect rect; // widget pixels
        SpriteLook look;

        bool operator==(const Shown &) const = default;
    };
    struct Scaled
    {
        SpriteLook look;
        QSize size; ///< in pixels of the device that is painted on; empty for the sprite's own

        bool operator==(const Scaled &) const = default;
    };
    friend size_t qHash(const Scaled &scaled, size_t seed = 0)
    {
        return qHashMulti(seed, scaled.look, scaled.size.width(), scaled.size.height());
    }

    void paintShown(QPainter &painter, const Shown &shown);

    QList<Shown> m_shown;
    QCache<Scaled, QImage> m_pictures{MaxCacheBytes};
};

} // namespace MapEditor
