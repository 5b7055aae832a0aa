#include "model/ArchiveNames.h"

#include <QUuid>

namespace ArchiveNames {

const QString Project = QStringLiteral("project.json");
const QString Scratch = QStringLiteral("scratch.png");

QString tileSet(const QUuid &id)
{
    return QStringLiteral("tileset/%1.png").arg(id.toString());
}

QString tileMap(const QUuid &id)
{
    return QStringLiteral("tilemap/%1").arg(id.toString());
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
