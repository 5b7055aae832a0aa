#pragma once

#include <QJsonObject>

class LoadContext;
class Map;

/// A map in project.json with what is placed on it. Its tile layer is an entry of its own.
namespace MapJson {

QJsonObject write(const Map &map);
/// Makes the map and inserts it into the project. Placed block animations are resolved later, by
/// Map::restoreAnimations().
[[nodiscard]] bool read(const QJsonObject &object, LoadContext &context);

} // namespace MapJson
