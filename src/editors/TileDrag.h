#pragma once

#include <QString>

#include <memory>
#include <optional>

class QMimeData;

/// A tile on its way from the tile picker to another place of it, or into a frame.
namespace TileDrag {

/// What is dragged. @p index counts from 0, @p offset is the tile's palette offset.
struct Content
{
    int index = -1;
    int offset = 0;

    bool operator==(const Content &other) const = default;
};

/// The name of the private format: index and offset as two 32-bit integers, high byte first.
QString mimeType();
std::unique_ptr<QMimeData> mimeData(const Content &content);
/// Nothing if the format is absent or not exactly two numbers long.
std::optional<Content> content(const QMimeData *data);

} // namespace TileDrag
