#pragma once

#include <QImage>
#include <QString>

/// Picture files that a user brings in.
namespace PictureFile {

/// The picture in a regular file of any format that Qt can read; a null image for anything else.
/// Qt refuses a picture that would take more than 128 MiB at 32 bits a pixel.
QImage read(const QString &fileName);

} // namespace PictureFile
