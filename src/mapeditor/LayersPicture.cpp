#include "mapeditor/LayersPicture.h"

#include "mapeditor/GridGeometry.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/TileSet.h"

#include <QPainter>

#include <algorithm>
#include <cstring>

using namespace MapEditor;

namespace {

constexpr qsizetype BytesPerPixel = sizeof(QRgb);

/// Gives each pixel of @p row the colour of its index, unless that is transparent.
void blend(QRgb *row, const uchar *indices, int width, const QList<QRgb> &colours)
{
    const QRgb *const colour = colours.constData();
    for (int x = 0; x < width; ++x) {
        const QRgb shown = colour[indices[x]];
        row[x] = shown != 0 ? shown : row[x];
    }
}

bool isSame(const uchar *line, const uchar *other, size_t bytes)
{
    return line == other || std::memcmp(line, other, bytes) == 0;
}

/// Whether line @p y shows what the one above does, as most do in enlarged cells.
bool repeatsLine(const QImage &layer, int y)
{
    if (y >= layer.height())
        return y > layer.height() || layer.isNull();
    return isSame(layer.constScanLine(y), layer.constScanLine(y - 1),
                  static_cast<size_t>(layer.width()));
}

QImage backgroundTileOf(const TileSet *tiles, int index)
{
    if (!tiles || index < 0 || index >= tiles->count())
        return {};
    return tiles->tileImage(index, false, false, false, tiles->tileOffset(index));
}

} // namespace

QRegion LayersPicture::update(Map &map, const Look &look)
{
    const auto shown = [](TileMap *layer) { return layer && layer->isVisible() ? layer : nullptr; };
    const Layers layers{shown(map.tileLayer()), shown(map.objectLayer())};
    const Source source = sourceOf(map, look, layers);

    QRegion changed;
    if (m_image.size() != look.size || !(source == m_source)) {
        if (m_image.size() != look.size)
            m_image = QImage(look.size, QImage::Format_RGB32);
        m_source = source;
        makeBackground();
        changed = m_image.rect();
    } else {
        for (size_t i = 0; i < LayerCount; ++i) {
            if (layers[i])
                changed += writtenPart(*layers[i], m_revisions[i]);
        }
    }
    for (size_t i = 0; i < LayerCount; ++i)
        m_revisions[i] = layers[i] ? layers[i]->revision() : 0;
    for (const QRect &piece : changed)
        draw(piece, layers);
    return changed;
}

LayersPicture::Source LayersPicture::sourceOf(Map &map, const Look &look, const Layers &layers)
{
    const auto tileSet = map.tileSet();
    Source source;
    source.look = look;
    source.tileSet = tileSet.data();
    source.palette = tileSet ? tileSet->palette().data() : nullptr;
    source.backgroundTile = backgroundTileOf(tileSet, look.backgroundTile);
    for (size_t i = 0; i < LayerCount; ++i)
        source.layers[i] = layers[i] ? layers[i]->id() : QUuid();
    TileMap *const any = layers[0] ? layers[0] : layers[1];
    source.colours = any ? any->colours(look.transparencyIndex) : QList<QRgb>();
    for (QRgb &colour : source.colours)
        colour = qAlpha(colour) == 0 ? 0 : colour;
    return source;
}

QRegion LayersPicture::writtenPart(const TileMap &layer, quint64 revision) const
{
    constexpr qsizetype MaxParts = 1024;
    const auto cells = layer.cellsWrittenSince(revision);
    if (!cells || cells->size() > MaxParts)
        return m_image.rect();

    QRegion part;
    for (const QPoint cell : *cells) {
        if (m_source.look.cells.contains(cell))
            part += pixelsOf(cell);
    }
    return part;
}

/// A little more than the cell: scaling in whole steps of a fixed point lags behind, by up to a
/// pixel of the source in 4096 of the picture.
QRect LayersPicture::pixelsOf(QPoint cell) const
{
    constexpr int OneSourcePixel = 4096;
    const Look &look = m_source.look;
    const int lag = std::max(look.size.width(), look.size.height()) / OneSourcePixel + 1;
    const int margin = lag * (look.cellSize / GridGeometry::CellPixels + 1);
    const QPoint corner = (cell - look.cells.topLeft()) * look.cellSize;
    return QRect(corner, QSize(look.cellSize, look.cellSize))
        .adjusted(-margin, -margin, margin, margin)
        .intersected(m_image.rect());
}

/// One row of cells, or of pixels if it is plain.
void LayersPicture::makeBackground()
{
    const bool isPlain = m_source.backgroundTile.isNull();
    const int cellSize = m_source.look.cellSize;
    m_background = QImage(m_image.width(), isPlain ? 1 : cellSize, QImage::Format_RGB32);
    if (m_background.isNull())
        return;
    m_background.fill(Qt::black);
    if (isPlain)
        return;
    QPainter painter(&m_background);
    painter.fillRect(m_background.rect(),
                     QBrush(m_source.backgroundTile.scaled(cellSize, cellSize)));
}

const uchar *LayersPicture::backgroundLine(int y) const
{
    return m_background.constScanLine(y % m_background.height());
}

void LayersPicture::draw(const QRect &piece, const Layers &layers)
{
    const Look &look = m_source.look;
    std::array<QImage, LayerCount> indices;
    for (size_t i = 0; i < LayerCount; ++i) {
        if (layers[i])
            indices[i] = layers[i]->indices(look.cells, look.cellSize, piece);
    }
    const qsizetype left = piece.left() * BytesPerPixel;
    const auto bytes = static_cast<size_t>(piece.width() * BytesPerPixel);
    const qsizetype stride = m_image.bytesPerLine();
    uchar *to = m_image.bits() + piece.top() * stride + left;
    for (int y = 0; y < piece.height(); ++y, to += stride) {
        const uchar *const below = backgroundLine(piece.top() + y) + left;
        const bool isAsAbove =
            y > 0 && isSame(below, backgroundLine(piece.top() + y - 1) + left, bytes) &&
            std::all_of(indices.cbegin(), indices.cend(),
                        [y](const QImage &layer) { return repeatsLine(layer, y); });
        std::memcpy(to, isAsAbove ? to - stride : below, bytes);
        for (const QImage &layer : indices) {
            if (!isAsAbove && y < layer.height())
                blend(reinterpret_cast<QRgb *>(to), layer.constScanLine(y), layer.width(),
                      m_source.colours);
        }
    }
}
