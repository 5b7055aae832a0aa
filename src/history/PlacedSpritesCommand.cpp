#include "history/PlacedSpritesCommand.h"

PlacedSpritesCommand::PlacedSpritesCommand(Map *map, const QList<Map::PlacedSprite> &before,
                                           QUndoCommand *parent)
    : QUndoCommand(parent)
    , m_map(map)
    , m_before(before)
    , m_after(std::as_const(*map).sprites())
{
}

void PlacedSpritesCommand::undo()
{
    place(m_before);
}

void PlacedSpritesCommand::redo()
{
    place(m_after);
}

void PlacedSpritesCommand::place(const QList<Map::PlacedSprite> &sprites)
{
    if (!m_map)
        return;
    Map::State state = m_map->state();
    state.sprites = sprites;
    m_map->restore(state);
}
