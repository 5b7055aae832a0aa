#pragma once

#include "model/TileMap.h"

#include <QImage>
#include <QList>
#include <QRect>
#include <QRegion>
#include <QSize>
#include <QUuid>

#include <array>

class Map;

namespace MapEditor {

/// The picture of what lies below a map's sprites, at the zoom: the background, then both layers.
///
/// It is kept from paint to paint. Cells that were written are redrawn by themselves; everything is
/// drawn anew when the part on view, a colour or anything else that it shows has become another.
class LayersPicture
{
public:
    /// What the picture shows of a map, and how.
    struct Look
    {
        QRect cells;                ///< on view; the first is drawn in the top left corner
        int cellSize = 0;           ///< screen pixels of a cell's side
        QSize size;                 ///< of the picture; what the cells leave free is background
        int transparencyIndex = -1; ///< as for TileMap::picture()
        int backgroundTile = -1;    ///< out of range for black

        bool operator==(const Look &) const = default;
    };

    /// Brings the picture up to date, and tells which of its pixels may have changed.
    QRegion update(Map &map, const Look &look);
    /// Null before the first update.
    const QImage &image() const { return m_image; }

private:
    static constexpr size_t LayerCount = 2;
    using Layers = std::array<TileMap *, LayerCount>; // from the bottom; null when hidden

    /// All that the picture depends on, but for single cells.
    struct Source
    {
        Look look;
        std::array<QUuid, LayerCount> layers;
        const void *tileSet = nullptr; // only compared
        const void *palette = nullptr;
        QList<QRgb> colours;
        QImage backgroundTile; // 8 by 8, null for none

        bool operator==(const Source &) const = default;
    };

    static Source sourceOf(Map &map, const Look &look, const Layers &layers);
    /// Where cells of @p layer were written since the last update.
    QRegion writtenPart(const TileMap &layer, quint64 revision) const;
    QRect pixelsOf(QPoint cell) const;
    void makeBackground();
    const uchar *backgroundLine(int y) const;
    void draw(const QRect &piece, const Layers &layers);

    QImage m_image;
    QImage m_background; // one row of cells of it
    Source m_source;
    std::array<quint64, LayerCount> m_revisions{};
};

} // namespace MapEditor
