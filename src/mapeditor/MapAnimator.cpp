#include "mapeditor/MapAnimator.h"

#include "model/AnimatedBlocks.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

#include <QHash>

#include <utility>

using namespace MapEditor;

namespace {

/// Two placements in one place play as one, the later one.
struct Placement
{
    QRect rect;
    QUuid animation;
};

QList<Placement> placementsOf(const Map &map)
{
    QList<Placement> placements;
    QHash<std::pair<QPoint, QPoint>, qsizetype> indices;
    for (const auto &block : map.animatedBlocks()->blocks()) {
        const std::pair corners(block->rect.topLeft(), block->rect.bottomRight());
        const auto known = indices.constFind(corners);
        if (known == indices.cend()) {
            indices.insert(corners, placements.size());
            placements.append({block->rect, block->id});
        } else {
            placements[*known].animation = block->id;
        }
    }
    return placements;
}

} // namespace

MapAnimator::MapAnimator(QObject *parent)
    : QObject(parent)
{
    m_timer.setInterval(TickMs);
    connect(&m_timer, &QTimer::timeout, this, &MapAnimator::tick);
}

void MapAnimator::tick()
{
    if (!m_map)
        return;

    const bool changed = playBlocks();
    ++m_ticks;
    if (changed || !m_map->sprites().isEmpty())
        emit framesAdvanced();
}

bool MapAnimator::playBlocks()
{
    if (!m_map->animatedBlocks() || !m_map->tileSet())
        return false;

    bool changed = false;
    const auto blockLists = m_map->tileSet()->blockLists().values();
    const QList<Placement> placements = placementsOf(*m_map);
    for (const Placement &placement : placements) {
        for (const auto &blocks : blockLists) {
            const auto animation = blocks ? blocks->animation(placement.animation) : nullptr;
            if (animation && play(*animation, placement.rect))
                changed = true;
        }
    }
    return changed;
}

bool MapAnimator::play(TileAnimation &animation, const QRect &rect)
{
    if (animation.lastTick != m_ticks) {
        animation.lastTick = m_ticks;
        if (animation.delay() <= 0 || m_ticks % animation.delay() != 0)
            return false;
        if (++animation.currentFrame >= animation.frameCount())
            animation.currentFrame = 0;
    } else if (animation.currentFrame < 0) {
        return false;
    }

    const bool inRange = animation.currentFrame < animation.frameCount();
    const auto frame = animation.frame(inRange ? animation.currentFrame : 0);
    if (!frame)
        return false;
    writeFrame(*frame, rect);
    return true;
}

void MapAnimator::writeFrame(const AnimationFrame &frame, const QRect &rect)
{
    const auto layer = m_map->objectLayer();
    if (!layer)
        return;

    // In 64 bits, as a placement may come from a file with any position.
    const AnimationFrame::Cells &cells = frame.cells();
    for (qsizetype row = 0; row < cells.size(); ++row) {
        const qint64 y = rect.top() + row;
        for (qsizetype column = 0; column < cells.at(row).size(); ++column) {
            const qint64 x = rect.left() + column;
            if (x < 0 || y < 0 || x >= layer->width() || y >= layer->height())
                continue;
            const AnimationFrame::Cell &cell = cells.at(row).at(column);
            layer->setCell({static_cast<int>(x), static_cast<int>(y)}, {.index = cell.index,
                                                                        .rotate = cell.rotate,
                                                                        .flip = cell.flip,
                                                                        .mirror = cell.mirror,
                                                                        .offset = cell.offset,
                                                                        .occupied = true});
        }
    }
}
