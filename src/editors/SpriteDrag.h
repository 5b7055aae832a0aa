#pragma once

#include <QString>

#include <memory>
#include <optional>

class QMimeData;

/// A sprite on its way from the sprite list to another place of it, or into a frame.
namespace SpriteDrag {

/// The name of the private format: the sprite's index as a 32-bit integer, high byte first.
QString mimeType();
/// @p index counts from 0.
std::unique_ptr<QMimeData> mimeData(int index);
/// Nothing if the format is absent or too short.
std::optional<int> index(const QMimeData *data);

} // namespace SpriteDrag
