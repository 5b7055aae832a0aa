#pragma once

#include <QJsonObject>

class LoadContext;
class Palette;

/// A palette in project.json.
namespace PaletteJson {

QJsonObject write(const Palette &palette);
/// Makes the palette and adds it to the project.
[[nodiscard]] bool read(const QJsonObject &object, LoadContext &context);

} // namespace PaletteJson
