#pragma once

#include <QImage>

/// Whether two pictures are the same to the last index. QImage's own comparison tells how they
/// look: it takes different indices of one colour for equal, and reads past the end of a colour
/// table that is too short for the pixels.
namespace PictureEquality {

/// Same size and format, and for indexed pictures the same indices and colour tables; the filling
/// behind a line does not count. Pictures of other formats have the same pixels' colours.
bool areEqual(const QImage &first, const QImage &second);

/// The same without regard to the colour tables.
bool haveEqualIndices(const QImage &first, const QImage &second);

} // namespace PictureEquality
