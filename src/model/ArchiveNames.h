#pragma once

#include <QString>

class QUuid;

/// The names of the entries of a project archive: one place for writer and reader alike.
namespace ArchiveNames {

extern const QString Project; // the JSON description
extern const QString Scratch; // the scratch image

QString tileSet(const QUuid &id);
QString tileMap(const QUuid &id);
bool isTileMap(const QString &name);
QString sprite(const QUuid &id);
QString image(const QUuid &id);

} // namespace ArchiveNames
