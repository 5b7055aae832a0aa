#pragma once

#include <QString>

namespace Bench {

/// Writes what tools/bench-peers converts into @p folder: a photo, a palette, caves to fill, and a
/// map of 1024 by 1024 cells both as a project of ours and as the map of another editor with its
/// tiles. False if a file could not be written.
bool writeConvertInputs(const QString &folder);

} // namespace Bench
