#pragma once

#include "store/ProjectStore.h"

#include <QRandomGenerator>
#include <QTemporaryDir>

namespace Bench {

/// Maps, as many as asked for, 10 tile sets of 512 and 10 banks of 128: noise in the pixels,
/// stretches of like cells in the maps, as games have them.
class LargeProject
{
public:
    explicit LargeProject(int mapCount = 20);

    QString path() const { return m_folder.filePath(QStringLiteral("large.tessaril")); }

    ProjectStore store;

private:
    void addTileSet(const QUuid &palette);
    void addBank(const QUuid &palette);
    void addMap(const QUuid &tileSet);

    QTemporaryDir m_folder;
    QRandomGenerator m_random{20};
};

} // namespace Bench
