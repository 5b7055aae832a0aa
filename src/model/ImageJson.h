#pragma once

#include <QJsonObject>

class LoadContext;
class Image;

/// An image document in project.json. Its pixels are an entry of their own.
namespace ImageJson {

QJsonObject write(const Image &image);
/// The pixels as PNG, in the present colours of the bound palette.
QByteArray picture(const Image &image);
/// Makes the image and inserts it into the project.
[[nodiscard]] bool read(const QJsonObject &object, LoadContext &context);

} // namespace ImageJson
