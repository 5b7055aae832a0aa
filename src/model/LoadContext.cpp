#include "model/LoadContext.h"

#include "model/TileMap.h"

#include <algorithm>

LoadContext::LoadContext(Project *project, const Project::EntryReader &read)
    : m_project(project)
    , m_read(read)
{
}

bool LoadContext::fail(const QString &message)
{
    m_error = message;
    return false;
}

bool LoadContext::failAsInvalid()
{
    return fail(QStringLiteral("Invalid project file"));
}

bool LoadContext::takeDocuments(qint64 count)
{
    return count <= MaxDocuments || failAsInvalid();
}

bool LoadContext::takeRecords(qint64 count)
{
    return take(m_records, count, MaxRecords) || failAsInvalid();
}

bool LoadContext::takeTiles(qint64 count)
{
    return take(m_tiles, count, MaxTiles) || failAsInvalid();
}

bool LoadContext::takePixels(QSize size)
{
    return take(m_pixels, qint64(size.width()) * size.height(), MaxPixels) || failAsInvalid();
}

bool LoadContext::takeFrames(qint64 frames, QSize size)
{
    const qint64 cells = frames * size.width() * size.height();
    return takeRecords(frames) && ((take(m_documentCells, cells, MaxDocumentCells) &&
                                    take(m_frameCells, cells, MaxFrameCells)) ||
                                   failAsInvalid());
}

bool LoadContext::takePlacedCells(qint64 count)
{
    return take(m_placedCells, count, MaxPlacedCells) || failAsInvalid();
}

bool LoadContext::takeMapCells(QSize size)
{
    // A row costs memory even without cells.
    const qint64 cells = qint64(std::max(size.width(), 1)) * size.height();
    return take(m_mapCells, cells, TileMap::MaxCells);
}

bool LoadContext::take(qint64 &taken, qint64 count, qint64 limit)
{
    if (count > limit - taken)
        return false;

    taken += count;
    return true;
}
