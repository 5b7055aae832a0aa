#pragma once

class QFileDialog;

namespace FileDialogs {

/// Mends what Qt's own dialog does badly; the desktop's are left alone.
///
/// Qt reads folders beside the program, so that the list of completions for a name that was typed
/// and taken fast appears when the dialog has gone, and stays: it ends with the dialog. Sizes,
/// types and dates have the room that they need, and the names all the rest.
void prepare(QFileDialog *dialog);

} // namespace FileDialogs
