#include "formats/PictureFile.h"

#include "formats/FileBytes.h"

QImage PictureFile::read(const QString &fileName)
{
    QImage picture;
    if (!FileBytes::isRegular(fileName) || !picture.load(fileName))
        return {};
    return picture;
}
