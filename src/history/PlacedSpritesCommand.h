#pragma once

#include "model/Map.h"

#include <QPointer>
#include <QUndoCommand>

/// What a change of a sprite bank did to the sprites placed on one map. A child of that step.
///
/// Made after the edit; a map that is gone is skipped. Everything else on the map stays.
class PlacedSpritesCommand : public QUndoCommand
{
public:
    PlacedSpritesCommand(Map *map, const QList<Map::PlacedSprite> &before, QUndoCommand *parent);

    void undo() override;
    void redo() override;

private:
    void place(const QList<Map::PlacedSprite> &sprites);

    QPointer<Map> m_map;
    QList<Map::PlacedSprite> m_before;
    QList<Map::PlacedSprite> m_after;
};
