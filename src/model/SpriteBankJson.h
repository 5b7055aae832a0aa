#pragma once

#include <QJsonObject>

class LoadContext;
class SpriteBank;

/// A sprite bank in project.json with its animations. Its strip is an entry of its own.
namespace SpriteBankJson {

QJsonObject write(const SpriteBank &bank);
/// Makes the bank and adds it to the project. The frames of its animations get new ids.
[[nodiscard]] bool read(const QJsonObject &object, LoadContext &context);

} // namespace SpriteBankJson
