#include "formats/TileExport.h"

#include "formats/FileBytes.h"
#include "formats/NextFormats.h"
#include "model/TileSet.h"

#include <QFileInfo>

#include <algorithm>

QByteArray TileExport::wideBytes(const TileSet &tileSet, const Range &range)
{
    const int first = std::max(range.first, 1);
    const int last = std::min(range.last, tileSet.count());
    QByteArray bytes;
    for (int index = first - 1; index < last; ++index) {
        const QImage tile = tileSet.tileImage(index, range.transposed, false, range.transposed,
                                              tileSet.tileOffset(index));
        bytes += NextFormats::pixelBytes(tile);
    }
    return bytes;
}

bool TileExport::write(TileSet *tileSet, const QString &fileName, const Range &range)
{
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    if (suffix == u"nxt")
        return tileSet->exportData(fileName);
    if (suffix == u"bin")
        return FileBytes::write(fileName, wideBytes(*tileSet, range));
    return true;
}
