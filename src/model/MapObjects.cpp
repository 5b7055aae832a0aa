#include "model/MapObjects.h"

#include "model/TileAnimation.h"
#include "model/TileSet.h"

namespace {

void swapIndices(AnimationFrame *frame, int first, int second)
{
    AnimationFrame::Cells cells = frame->cells();
    for (QList<AnimationFrame::Cell> &row : cells) {
        for (AnimationFrame::Cell &cell : row) {
            if (cell.index == first)
                cell.index = second;
            else if (cell.index == second)
                cell.index = first;
        }
    }
    frame->setCells(cells);
}

} // namespace

MapObjects::MapObjects(QObject *parent)
    : QObject(parent)
    , m_id(QUuid::createUuid())
    , m_name(QStringLiteral("Empty"))
{
}

void MapObjects::addAnimation(TileAnimation *animation)
{
    // Two animations of a damaged file may bear one id: the later one replaces the earlier.
    const QPointer<TileAnimation> earlier = m_animations.value(animation->id());
    if (earlier && earlier != animation)
        delete earlier;
    m_animations.insert(animation->id(), animation);
    emit animationsChanged();
}

void MapObjects::removeAnimation(const QUuid &id)
{
    if (!m_animations.contains(id))
        return;

    delete m_animations.take(id);
    emit animationsChanged();
}

QPointer<TileAnimation> MapObjects::createTileAnimation(QString name)
{
    auto *animation = new TileAnimation(this);
    animation->setName(name);
    addAnimation(animation);
    return animation;
}

void MapObjects::setName(QString name)
{
    if (name == m_name)
        return;

    m_name = name;
    emit nameChanged(m_name);
}

void MapObjects::setTileSet(QPointer<TileSet> tiles)
{
    m_tileSet = tiles;
    if (!tiles)
        return;

    tiles->addBlockList(m_id, this);
    // Unique, as swapping twice for one move would swap nothing.
    connect(tiles, &TileSet::tileSwapped, this, &MapObjects::swapTiles, Qt::UniqueConnection);
}

void MapObjects::swapTiles(int first, int second)
{
    for (const auto &animation : std::as_const(m_animations)) {
        if (!animation)
            continue;
        for (const auto &frame : animation->frames()) {
            if (frame)
                swapIndices(frame, first, second);
        }
    }
}
