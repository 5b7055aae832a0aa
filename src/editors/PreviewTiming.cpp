#include "editors/PreviewTiming.h"

#include <QtGlobal>

#include <algorithm>
#include <limits>

namespace AnimationEditor {

int previewIntervalMs(int delay)
{
    const qint64 interval = (std::max<qint64>(delay, 0) * 5 + 5) * 4;
    return static_cast<int>(std::min<qint64>(interval, std::numeric_limits<int>::max()));
}

} // namespace AnimationEditor
