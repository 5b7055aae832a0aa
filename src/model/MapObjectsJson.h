#pragma once

#include <QJsonObject>

class LoadContext;
class MapObjects;

/// A block list in project.json with its animations.
namespace MapObjectsJson {

QJsonObject write(const MapObjects &blocks);
/// Makes the block list and adds it to the project.
[[nodiscard]] bool read(const QJsonObject &object, LoadContext &context);

} // namespace MapObjectsJson
