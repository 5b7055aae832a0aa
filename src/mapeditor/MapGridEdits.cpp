// What a map grid does to its map: batches of edits, the selection, sizes, and what is placed.

#include "history/MapEditCommand.h"
#include "mapeditor/MapGrid.h"
#include "model/AnimatedBlocks.h"
#include "model/Palette.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QUndoStack>

#include <utility>

using namespace MapEditor;
using Tessaril::Position;

void MapGrid::makeContextMenu()
{
    const auto add = [this](const QString &text, auto function) {
        connect(m_contextMenu.addAction(text), &QAction::triggered, this, function);
    };
    add(tr("Cut"), &MapGrid::cutSelection);
    add(tr("Copy"), &MapGrid::copySelection);
    add(tr("Copy to new map"), &MapGrid::mapFromSelection);
    add(tr("Copy as Image"), &MapGrid::copyAsImage);
    add(tr("Fill"), &MapGrid::fillSelection);
}

void MapGrid::beginEdit()
{
    if (m_editDepth++ == 0 && m_map)
        m_editBefore = m_map->state();
}

void MapGrid::endEdit(const QString &text)
{
    if (m_editDepth == 0 || --m_editDepth > 0 || !m_map)
        return;
    const Map::State before = std::exchange(m_editBefore, Map::State());
    const Map::State after = m_map->state();
    if (m_undoStack && before != after)
        m_undoStack->push(new MapEditCommand(text, m_map, before, after));
}

void MapGrid::mapRestored()
{
    if (!m_map)
        return;
    // A gesture under way goes on from here: what the undo did is no part of it.
    if (m_editDepth > 0)
        m_editBefore = m_map->state();
    m_selection = m_selection.intersected(m_map->tileLayer()->rect());
    m_hoverSprite = -1;
    m_hoverAnimationRect = QRect();
    if (m_selectedSprite >= m_map->sprites().size())
        m_selectedSprite = -1;
    emit selectedSpriteChanged(m_selectedSprite);
    emit mapResized(m_map->tileLayer()->size());
    updateGeometryMetrics();
    update();
}

void MapGrid::placedSpritesRenumbered()
{
    m_hoverSprite = -1;
    selectSprite(-1);
    update();
}

void MapGrid::copySelection()
{
    if (!m_map || !m_selection.isValid())
        return;
    const QRect copied = m_selection;
    auto *const block = new QMimeData;
    block->setData(TileMap::mimeType(), m_map->tileLayer()->toData(copied));
    QGuiApplication::clipboard()->setMimeData(block);
    update();
    setMode(m_previousMode);
    m_pasteRect = copied;
}

void MapGrid::cutSelection()
{
    if (!m_map || !m_selection.isValid())
        return;
    const QRect cells = m_selection; // going back to the mode before drops it
    beginEdit();
    copySelection();
    m_map->tileLayer()->fill(cells, true);
    m_rubberBand.hide();
    m_selection = QRect();
    endEdit(QStringLiteral("Cut"));
    update();
}

void MapGrid::clearSelection()
{
    if (!m_map || !m_selection.isValid())
        return;
    beginEdit();
    m_map->tileLayer()->fill(m_selection, true);
    endEdit(QStringLiteral("Clear"));
    update();
}

void MapGrid::fillSelection()
{
    if (!m_map || !m_selection.isValid() || m_currentTile < 0)
        return;
    const TileMap::TileData cell = currentTileData(true);
    const QRect cells = m_selection.intersected(m_map->tileLayer()->rect());
    beginEdit();
    for (int y = cells.top(); y <= cells.bottom(); ++y) {
        for (int x = cells.left(); x <= cells.right(); ++x)
            m_map->tileLayer()->setCell({x, y}, cell);
    }
    endEdit(QStringLiteral("Fill"));
    update();
}

void MapGrid::copyAsImage()
{
    if (!m_map || !m_selection.isValid())
        return;
    QImage image =
        m_map->tileLayer()->picture(m_selection, GridGeometry::CellPixels, m_transparencyIndex);
    const auto tileSet = m_map->tileSet();
    const auto palette = tileSet ? tileSet->palette() : nullptr;
    image.setText(QStringLiteral("paletteid"), (palette ? palette->id() : QUuid()).toString());
    QGuiApplication::clipboard()->setImage(image);
}

void MapGrid::mapFromSelection()
{
    if (!m_map || !m_selection.isValid())
        return;
    const QSize size = m_selection.size();
    copySelection();
    emit createMapFromSelection(m_map->id(), size);
}

void MapGrid::addRows(Position where, int count)
{
    const QPoint shift = where == Position::Begin ? QPoint(0, 1) : QPoint();
    changeSize(QStringLiteral("Add Rows"), where, shift, count, &TileMap::addRow);
}

void MapGrid::addColumns(Position where, int count)
{
    const QPoint shift = where == Position::Begin ? QPoint(1, 0) : QPoint();
    changeSize(QStringLiteral("Add Columns"), where, shift, count, &TileMap::addColumn);
}

void MapGrid::removeRows(Position where, int count)
{
    if (!m_map)
        return;
    const int possible = std::max(0, std::min(count, m_map->tileLayer()->height() - 1));
    const QPoint shift = where == Position::Begin ? QPoint(0, -1) : QPoint();
    m_selection = m_selection.intersected(m_map->tileLayer()->rect().adjusted(0, 0, 0, -possible));
    changeSize(QStringLiteral("Remove Rows"), where, shift, possible, &TileMap::removeRow);
}

void MapGrid::removeColumns(Position where, int count)
{
    if (!m_map)
        return;
    const int possible = std::max(0, std::min(count, m_map->tileLayer()->width() - 1));
    const QPoint shift = where == Position::Begin ? QPoint(-1, 0) : QPoint();
    m_selection = m_selection.intersected(m_map->tileLayer()->rect().adjusted(0, 0, -possible, 0));
    changeSize(QStringLiteral("Remove Columns"), where, shift, possible, &TileMap::removeColumn);
}

void MapGrid::changeSize(const QString &text, Position where, QPoint shift, int count,
                         LayerStep step)
{
    if (!m_map)
        return;
    beginEdit();
    for (int i = 0; i < count; ++i) {
        (m_map->tileLayer()->*step)(where);
        (m_map->objectLayer()->*step)(where);
        m_map->shiftContents(shift);
    }
    endEdit(text);
    finishResize();
}

void MapGrid::resizeMap(QSize size, Qt::Alignment alignment)
{
    if (!m_map)
        return;
    beginEdit();
    m_map->resize(size, alignment);
    endEdit(QStringLiteral("Resize Map"));
    finishResize();
}

void MapGrid::finishResize()
{
    emit mapResized(m_map->tileLayer()->size());
    updateGeometryMetrics();
    update();
}

void MapGrid::applySpriteEdit(const Map::PlacedSprite &sprite)
{
    if (!m_map || m_selectedSprite < 0 || m_selectedSprite >= m_map->sprites().size())
        return;
    beginEdit();
    m_map->sprites()[m_selectedSprite] = sprite;
    endEdit(QStringLiteral("Sprite Properties"));
    update();
}

void MapGrid::deleteHovered()
{
    if (!m_map)
        return;
    if (m_hoverSprite >= 0 && m_hoverSprite < m_map->sprites().size())
        deleteSprite(m_hoverSprite);
    else if (m_hoverAnimationRect.isValid())
        deletePlacedObject(m_hoverAnimationRect);
    else
        clearSelection();
}

void MapGrid::deleteSprite(int index)
{
    beginEdit();
    m_map->sprites().removeAt(index);
    endEdit(QStringLiteral("Delete Sprite"));
    m_hoverSprite = -1;
    if (m_selectedSprite == index)
        selectSprite(-1);
    else if (m_selectedSprite > index)
        selectSprite(m_selectedSprite - 1);
    update();
}

void MapGrid::deletePlacedObject(const QRect &rect)
{
    if (m_map->animatedBlocks()->find(rect).isNull()) {
        clearSelection();
        return;
    }
    const QRect cells = rect;
    beginEdit();
    m_map->animatedBlocks()->remove(cells);
    m_map->tileLayer()->fill(cells, false);
    m_map->objectLayer()->fill(cells, true);
    endEdit(QStringLiteral("Remove Animation"));
    m_hoverAnimationRect = QRect();
    update();
}
