#pragma once

#include <QSize>

/// Where the pixels of a turned picture go, as steps through the target's memory.
///
/// A picture is first turned a quarter clockwise if @p rotate, then flipped (top to bottom) and
/// mirrored (left to right). The source pixel (x, y) goes to place first + x * right + y * down.
/// All counts are pixels, not bytes.
struct PixelOrder
{
    qsizetype first; ///< the place of the source's top left pixel
    qsizetype right; ///< one pixel to the right in the source
    qsizetype down;  ///< one line down in the source

    /// The order for a source of @p size; @p pitch is the length of a line of the target.
    static constexpr PixelOrder of(QSize size, qsizetype pitch, bool rotate, bool flip, bool mirror)
    {
        const qsizetype lastColumn = (rotate ? size.height() : size.width()) - 1;
        const qsizetype lastLine = ((rotate ? size.width() : size.height()) - 1) * pitch;
        const qsizetype column = mirror ? -1 : 1;
        const qsizetype line = flip ? -pitch : pitch;
        const qsizetype top = flip ? lastLine : 0;
        if (rotate)
            return {top + (mirror ? 0 : lastColumn), line, -column};
        return {top + (mirror ? lastColumn : 0), column, line};
    }
};
