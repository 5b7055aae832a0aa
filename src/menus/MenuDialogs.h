#pragma once

#include <QFileDialog>
#include <QString>
#include <QStringList>

#include <optional>

class QMenu;
class QWidget;

/// What the menus share around the dialogs that they open.
namespace MenuDialogs {

/// How a file dialog asks.
struct FileQuestion
{
    QString title;
    QStringList filters;
    QFileDialog::AcceptMode acceptMode = QFileDialog::AcceptOpen;
    QString defaultSuffix = {}; ///< of a name typed without one
};

/// The window that holds the menu bar of @p menu: a menu is a window of its own and makes a poor
/// parent for dialogs, which would block and follow the menu instead. The menu itself if it is in
/// no bar.
QWidget *parentFor(QMenu *menu);

/// A dialog that belongs to the window of @p menu and is not shown yet.
QFileDialog *makeFileDialog(QMenu *menu, const FileQuestion &question);

/// The answer if it is exactly one file.
std::optional<QString> singleFile(const QFileDialog *dialog);

/// The box that tells that an export failed. Returns when it is answered.
void warnOfFailedExport(QMenu *menu);

} // namespace MenuDialogs
