#include "model/ArchiveNames.h"

#include <QUuid>

namespace ArchiveNames {

namespace {

const QString TileMapFolder = QStringLiteral("tilemap/");

} // namespace

const QString Project = QStringLiteral("project.json");
const QString Scratch = QStringLiteral("scratch.png");

QString tileSet(const QUuid &id)
{
    return QStringLiteral("tileset/%1.png").arg(id.toString());
}

QString tileMap(const QUuid &id)
{
    return TileMapFolder + id.toString();
}

bool isTileMap(const QString &name)
{
    return name.startsWith(TileMapFolder);
}

QString sprite(const QUuid &id)
{
    return QStringLiteral("sprite/%1.png").arg(id.toString());
}

QString image(const QUuid &id)
{
    return QStringLiteral("images/%1.png").arg(id.toString());
}

} // namespace ArchiveNames
