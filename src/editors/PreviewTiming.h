#pragma once

namespace AnimationEditor {

/// The milliseconds that a frame stays on show in the previews of the editors: 20 for a delay of 0,
/// 20 more for each that follows. A delay of a damaged file gives at least the former.
int previewIntervalMs(int delay);

} // namespace AnimationEditor
