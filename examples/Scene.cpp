#include "examples/Scene.h"

#include "examples/BankDealer.h"
#include "formats/PictureImport.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/Tile.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

#include <cstdio>

namespace {

constexpr int CellSide = TileMap::CellSide;
constexpr int StripRows = 16; // cells
constexpr int StripPitch = 4; // cells, as high as the highest block

QSize withStrip(QSize size)
{
    return QSize(size.width(), size.height() + StripRows) * CellSide;
}

void copyCells(const TileMap &from, QPoint topLeft, AnimationFrame *frame)
{
    const AnimationFrame::Cells cells = frame->cells();
    for (int y = 0; y < cells.size(); ++y) {
        for (int x = 0; x < cells.at(y).size(); ++x) {
            const TileMap::TileData &cell = from.cell(topLeft + QPoint(x, y));
            frame->setCell({x, y}, {cell.index, cell.offset, cell.flip, cell.mirror, cell.rotate});
        }
    }
}

} // namespace

Scene::Scene(QSize size)
    : m_size(size)
    , m_brush(withStrip(size))
    , m_free(0, size.height())
{
}

void Scene::mark(QRect pixels, int attribute)
{
    for (int y = pixels.top() / CellSide; y <= pixels.bottom() / CellSide; ++y) {
        for (int x = pixels.left() / CellSide; x <= pixels.right() / CellSide; ++x)
            m_marks.append({{x, y}, attribute});
    }
}

/// The next free cells of the strip.
QPoint Scene::takeStrip(QSize cells)
{
    if (m_free.x() + cells.width() > m_size.width())
        m_free = {0, m_free.y() + StripPitch};
    const QPoint taken = m_free;
    m_free.rx() += cells.width();
    return taken;
}

void Scene::animate(const Block &block, DrawStep draw, const QList<QPoint> &places)
{
    PlacedBlock placed{block, {}, {}};
    for (int step = 0; step < block.frameCount; ++step) {
        const QPoint frame = takeStrip(block.size);
        m_brush.copy(QRect(places.first(), block.size * CellSide), frame * CellSide);
        draw(m_brush, frame * CellSide, step);
        placed.frames += frame;
    }
    for (const QPoint place : places) {
        draw(m_brush, place, 0);
        placed.places += place / CellSide;
    }
    m_blocks += placed;
}

QPointer<Map> Scene::makeMap(Project *project, const QString &name) const
{
    PictureImport import(m_brush.picture(), name);
    const PictureImport::Outcome outcome = import.run(project);
    if (outcome.result != PictureImport::Result::Done) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(name), qPrintable(outcome.message()));
        return nullptr;
    }

    if (!BankDealer::deal(outcome.tileSet, outcome.tileCount, outcome.palette, outcome.map)) {
        std::fprintf(stderr, "%s: too many colours\n", qPrintable(name));
        return nullptr;
    }
    const TileMap &layer = *outcome.map->tileLayer();
    for (const Mark &mark : m_marks) {
        Tile *tile = outcome.tileSet->tile(layer.cell(mark.cell).index);
        tile->setAttributes(tile->attributes() | mark.attribute);
    }
    makeBlocks(project, outcome.map, name);
    outcome.map->objectLayer()->setVisible(true);
    outcome.map->setTileTransparencyIndex(BankDealer::FreeEntry);
    outcome.map->resize(m_size, Qt::AlignTop | Qt::AlignLeft);
    return outcome.map;
}

void Scene::makeBlocks(Project *project, Map *map, const QString &name) const
{
    if (m_blocks.isEmpty())
        return;

    const auto list = project->createBlockList(name, map->tileSetId());
    for (const PlacedBlock &placed : m_blocks) {
        TileAnimation *const animation = list->createTileAnimation(placed.block.name);
        animation->setTileSet(map->tileSet());
        animation->setSize(placed.block.size);
        animation->setDelay(placed.block.delayTicks);
        if (placed.block.isPlatform)
            animation->setMapObjectType(MapObjectType::HorizontalPlatform);
        for (const QPoint frame : placed.frames)
            copyCells(*map->tileLayer(), frame, animation->addFrame());
        for (const QPoint place : placed.places)
            map->addAnimation({animation->id(), QRect(place, placed.block.size), 0, 0, 0});
    }
}
