#pragma once

#include <QCursor>

/// The cursors of the painting tools, drawn dark with a light edge, so that they show on any
/// picture.
namespace ToolCursors {

/// The tip of the pouring paint is the hot spot.
QCursor fill();
/// The tip of the pipette is the hot spot.
QCursor picker();

} // namespace ToolCursors
