#pragma once

class QFileDialog;

namespace FileDialogs {

/// Lets the completion of a file name end with its dialog.
///
/// Qt reads folders beside the program, so that the list of completions for a name that was typed
/// and taken fast appears when the dialog has gone, and stays.
void endCompletionWith(QFileDialog *dialog);

} // namespace FileDialogs
