#include "model/Map.h"

#include "formats/FileBytes.h"
#include "formats/NextFormats.h"
#include "model/AnimatedBlocks.h"
#include "model/MapObjects.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

#include <algorithm>
#include <limits>

namespace {

int clampedToInt(qint64 value)
{
    return static_cast<int>(std::clamp<qint64>(value, std::numeric_limits<int>::min(),
                                               std::numeric_limits<int>::max()));
}

/// Positions come from files, and may lie near the limits of int.
QPoint moved(QPoint point, QPoint offset)
{
    return {clampedToInt(qint64(point.x()) + offset.x()),
            clampedToInt(qint64(point.y()) + offset.y())};
}

QRect moved(QRect rect, QPoint offset)
{
    return {moved(rect.topLeft(), offset), moved(rect.bottomRight(), offset)};
}

Map::PlacedBlock valueOf(const AnimationProperties *block)
{
    return {block->id, block->rect, block->initialDelay, block->repeatDelay, block->startFrame};
}

TileMap::TileData cellOf(const AnimationFrame::Cell &cell)
{
    TileMap::TileData data;
    data.index = cell.index;
    data.rotate = cell.rotate;
    data.flip = cell.flip;
    data.mirror = cell.mirror;
    data.offset = cell.offset;
    data.occupied = true;
    return data;
}

void warnOfNoTileLayer()
{
    qWarning("_tileMap==nullptr");
}

} // namespace

Map::Map(const QString &name, QObject *parent)
    : QObject(parent)
    , m_id(QUuid::createUuid())
    , m_name(name)
    , m_animatedBlocks(new AnimatedBlocks(this))
{
}

Map::~Map()
{
    // They are not its children, so the map has to end them itself.
    delete m_tileLayer;
    delete m_objectLayer;
}

void Map::setTileSet(const QPointer<TileSet> &tileSet)
{
    if (m_tileSet)
        disconnect(m_tileSet, nullptr, this, nullptr);
    m_tileSet = tileSet;
    m_tileSetId = tileSet ? tileSet->id() : QUuid();
    if (tileSet) {
        connect(tileSet, &TileSet::tileDeleted, this, [this](int i) { adjustIndices(i, -1); });
        connect(tileSet, &TileSet::tileInserted, this, [this](int i) { adjustIndices(i, 1); });
    }
    if (!m_tileLayer) {
        warnOfNoTileLayer();
        return;
    }
    m_tileLayer->setTileSet(tileSet);
    if (m_objectLayer)
        m_objectLayer->setTileSet(tileSet);
}

void Map::setTileLayer(TileMap *layer)
{
    m_tileLayer = layer;
}

void Map::setObjectLayer(TileMap *layer)
{
    m_objectLayer = layer;
}

void Map::resize(QSize size, Qt::Alignment alignment)
{
    if (!m_tileLayer) {
        warnOfNoTileLayer();
        return;
    }
    if (!TileMap::isAllowed(size))
        return;

    const QPoint shift = m_tileLayer->resize(size, alignment);
    if (m_objectLayer)
        m_objectLayer->resize(size, alignment);
    shiftContents(shift);
    emit resized(this);
}

void Map::shiftContents(QPoint offset)
{
    const QSize size = m_tileLayer ? m_tileLayer->size() : QSize(0, 0);
    for (const auto &block : m_animatedBlocks->blocks()) {
        if (block)
            block->rect = moved(block->rect, offset);
    }
    const QList<QRect> cut = m_animatedBlocks->removeOutside(size);
    for (const QRect &rect : cut) {
        if (m_objectLayer)
            m_objectLayer->fill(rect, true);
    }

    const QRect pixels(QPoint(0, 0), size * TileMap::CellSide);
    for (PlacedSprite &sprite : m_sprites) {
        const QPoint position = moved(QPoint(sprite.x, sprite.y), offset * TileMap::CellSide);
        sprite.x = position.x();
        sprite.y = position.y();
    }
    m_sprites.removeIf(
        [&pixels](const PlacedSprite &sprite) { return !pixels.contains(sprite.x, sprite.y); });
}

void Map::addAnimation(const PlacedBlock &block)
{
    auto *record = new AnimationProperties(m_animatedBlocks);
    record->id = block.id;
    record->rect = block.rect;
    record->initialDelay = block.initialDelay;
    record->repeatDelay = block.repeatDelay;
    record->startFrame = block.startFrame;
    m_animatedBlocks->add(record);
}

void Map::restoreAnimations(const QList<MapObjects *> &blocks)
{
    for (const auto &record : m_animatedBlocks->blocks()) {
        if (!record)
            continue;
        if (m_tileLayer)
            m_tileLayer->fill(record->rect, true);
        // The null id stands for no animation, also where a damaged file gives it to one.
        if (record->id.isNull())
            continue;
        for (const MapObjects *list : blocks) {
            if (const auto animation = list->animation(record->id))
                stampAnimation(animation, record->rect.topLeft());
        }
    }
}

void Map::stampAnimation(const TileAnimation *animation, QPoint topLeft)
{
    const QPointer<AnimationFrame> first = animation->frame(0);
    if (!m_objectLayer || !first)
        return;

    const AnimationFrame::Cells &cells = first->cells();
    for (qsizetype y = std::max<qint64>(0, -qint64(topLeft.y())); y < cells.size(); ++y) {
        if (topLeft.y() + y >= m_objectLayer->height())
            break;
        const QList<AnimationFrame::Cell> &row = cells.at(y);
        for (qsizetype x = std::max<qint64>(0, -qint64(topLeft.x())); x < row.size(); ++x) {
            if (topLeft.x() + x >= m_objectLayer->width())
                break;
            const QPoint position(static_cast<int>(topLeft.x() + x),
                                  static_cast<int>(topLeft.y() + y));
            m_objectLayer->setCell(position, cellOf(row.at(x)));
        }
    }
}

Map::State Map::state() const
{
    State state;
    if (m_tileLayer)
        state.tileRows = m_tileLayer->rows();
    if (m_objectLayer)
        state.objectRows = m_objectLayer->rows();
    for (const auto &block : m_animatedBlocks->blocks()) {
        if (block)
            state.animations.append(valueOf(block));
    }
    state.sprites = m_sprites;
    return state;
}

void Map::restore(const State &state)
{
    if (m_tileLayer)
        m_tileLayer->setTiles(state.tileRows);
    if (m_objectLayer)
        m_objectLayer->setTiles(state.objectRows);
    m_animatedBlocks->clear();
    for (const PlacedBlock &block : state.animations)
        addAnimation(block);
    m_sprites = state.sprites;
    emit restored();
}

bool Map::exportData(QString fileName)
{
    const TileMap::Rows rows = m_tileLayer ? m_tileLayer->rows() : TileMap::Rows();
    return FileBytes::write(fileName, NextFormats::mapBytes(rows));
}

void Map::setName(QString name)
{
    if (name == m_name)
        return;

    m_name = name;
    emit nameChanged(m_name);
}

void Map::setTileTransparencyIndex(int index)
{
    m_tileTransparencyIndex = index;
}

void Map::setBackgroundTileIndex(int index)
{
    m_backgroundTileIndex = index;
}

void Map::adjustIndices(int index, int direction)
{
    if (m_tileLayer)
        m_tileLayer->adjustIndices(index, direction);
    if (m_objectLayer)
        m_objectLayer->adjustIndices(index, direction);
}
