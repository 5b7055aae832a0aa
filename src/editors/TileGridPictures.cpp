#include "editors/TileGridPictures.h"

#include "model/Palette.h"
#include "model/Tile.h"
#include "model/TileSet.h"

#include <QPainter>

#include <cmath>

namespace {

constexpr qsizetype MaxKibibytes = 128 * 1024;
constexpr int Gap = 1; // pixels, to the right of and below each tile

} // namespace

TileGridPictures::TileGridPictures()
    : m_rows(MaxKibibytes)
{
}

void TileGridPictures::setTileSet(const QPointer<TileSet> &tileSet)
{
    m_tileSet = tileSet;
    m_rows.clear();
    takeOverColours();
}

void TileGridPictures::setShape(const Shape &shape)
{
    if (shape == m_shape)
        return;
    m_shape = shape;
    m_rows.clear();
}

QRect TileGridPictures::tileRect(QPoint corner) const
{
    return {corner, QSize(m_shape.cell - Gap, m_shape.cell - Gap)};
}

QImage TileGridPictures::tilePicture(int index) const
{
    QImage image =
        m_tileSet->tileImage(index, false, false, false, m_tileSet->tile(index)->offset());
    if (!m_colours.isEmpty())
        image.setColorTable(m_colours);
    return image;
}

const QImage &TileGridPictures::row(int row)
{
    if (const Row *kept = m_rows.object(row))
        return kept->picture;

    auto fresh = std::make_unique<Row>();
    const QSizeF size = QSizeF(m_shape.columns * m_shape.cell, m_shape.cell) * m_shape.pixelRatio;
    fresh->picture =
        QImage(int(std::ceil(size.width())), int(std::ceil(size.height())), QImage::Format_RGB32);
    fresh->picture.setDevicePixelRatio(m_shape.pixelRatio);
    fresh->picture.fill(Qt::black);
    QPainter painter(&fresh->picture);
    for (int column = 0; column < m_shape.columns; ++column) {
        drawCell(&painter, row, column);
        fresh->marks.append(markOf(row * m_shape.columns + column));
    }
    painter.end();

    Row *const kept = fresh.get();
    // One row alone is always kept.
    const qsizetype cost = std::min(kept->picture.sizeInBytes() / 1024, MaxKibibytes);
    m_rows.insert(row, fresh.release(), cost);
    return kept->picture;
}

QList<int> TileGridPictures::refresh()
{
    const bool coloursChanged = takeOverColours();
    QList<int> changed;
    const QList<int> rows = m_rows.keys();
    for (const int row : rows) {
        Row *const kept = m_rows.object(row);
        for (int column = 0; column < m_shape.columns; ++column) {
            const int index = row * m_shape.columns + column;
            const Mark mark = markOf(index);
            if (!coloursChanged && mark == kept->marks.at(column))
                continue;
            QPainter painter(&kept->picture);
            drawCell(&painter, row, column);
            kept->marks[column] = mark;
            changed.append(index);
        }
    }
    return changed;
}

TileGridPictures::Mark TileGridPictures::markOf(int index) const
{
    if (!m_tileSet || index >= m_tileSet->count())
        return {};
    const Tile *tile = m_tileSet->tile(index);
    return {tile->image().cacheKey(), tile->offset()};
}

/// True if they differ from those of before.
bool TileGridPictures::takeOverColours()
{
    const QPointer<Palette> palette = m_tileSet ? m_tileSet->palette() : QPointer<Palette>();
    const QList<QRgb> colours = palette ? palette->colourTable() : QList<QRgb>();
    if (colours == m_colours)
        return false;
    m_colours = colours;
    return true;
}

void TileGridPictures::drawCell(QPainter *painter, int row, int column) const
{
    const int index = row * m_shape.columns + column;
    const QRect rect = tileRect({column * m_shape.cell, 0});
    if (m_tileSet && index < m_tileSet->count())
        painter->drawImage(rect, tilePicture(index));
    else
        painter->fillRect(rect, Qt::black);
}
