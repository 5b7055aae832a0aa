#pragma once

#include "model/Map.h"

#include <QPointer>
#include <QUndoCommand>

/// One finished batch of cell edits on a map. Never merges.
///
/// Made after the edit, so that its first redo() does nothing. A map that is gone is skipped.
class MapEditCommand : public QUndoCommand
{
public:
    MapEditCommand(const QString &text, Map *map, const Map::State &before,
                   const Map::State &after);

    void undo() override;
    void redo() override;

private:
    QPointer<Map> m_map;
    Map::State m_before;
    Map::State m_after;
    bool m_applied = true;
};
