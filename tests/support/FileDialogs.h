#pragma once

#include <QString>

class QFileDialog;

/// Drives the file dialogs that the program opens, without looking into the program.
namespace FileDialogs {

/// The file dialog on the screen, null if there is none.
QFileDialog *visible();

/// Types @p fileName, an absolute path, into the open dialog and presses Return.
void choose(QFileDialog *dialog, const QString &fileName);

/// Presses Escape.
void cancel(QFileDialog *dialog);

} // namespace FileDialogs
