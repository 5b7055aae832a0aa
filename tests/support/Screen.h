#pragma once

#include <QStringList>

/// What is on the screen, against what a fresh paint would show there. Where the two differ
/// something has changed without asking for a paint. Needs the offscreen platform.
namespace Screen {

/// Ends what changes with time alone: cursors that blink and docks that slide into place.
void holdStill();

/// Lets all waiting paints happen, and tells which widgets of the windows on show are out of date,
/// one a line with the differing pixels of the window; nothing if none is.
///
/// Left out is the line on which a map tells how long its paint took.
QStringList staleParts();

} // namespace Screen
