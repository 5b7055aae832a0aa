#pragma once

class QWidget;

/// Finds where the keyboard enters a part of the window.
namespace FocusEntry {

/// @p pane itself, if it takes the focus in any way, or else its first child, in the tab order,
/// that Tab can reach now. Null if there is none.
QWidget *of(QWidget *pane);

} // namespace FocusEntry
