#include "model/PictureEquality.h"

#include <algorithm>

bool PictureEquality::areEqual(const QImage &first, const QImage &second)
{
    return first.colorTable() == second.colorTable() && haveEqualIndices(first, second);
}

bool PictureEquality::haveEqualIndices(const QImage &first, const QImage &second)
{
    if (first.cacheKey() == second.cacheKey())
        return true; // They share their memory.
    if (first.size() != second.size() || first.format() != second.format())
        return false;
    if (first.format() != QImage::Format_Indexed8)
        return first == second;

    for (int y = 0; y < first.height(); ++y) {
        const uchar *line = first.constScanLine(y);
        if (!std::equal(line, line + first.width(), second.constScanLine(y)))
            return false;
    }
    return true;
}
