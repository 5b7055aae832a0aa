#include "history/MapEditCommand.h"

MapEditCommand::MapEditCommand(const QString &text, Map *map, const Map::State &before,
                               const Map::State &after)
    : QUndoCommand(text)
    , m_map(map)
    , m_before(before)
    , m_after(after)
{
}

void MapEditCommand::undo()
{
    if (m_map)
        m_map->restore(m_before);
    m_applied = false;
}

void MapEditCommand::redo()
{
    if (m_applied)
        return;
    if (m_map)
        m_map->restore(m_after);
    m_applied = true;
}
