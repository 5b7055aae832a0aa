#include "menus/MenuDialogs.h"

#include "uikit/FileDialogs.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>

namespace MenuDialogs {

namespace {

/// Else a name typed into a dialog that opens again would be added to the files chosen before.
void forgetAnswer(QFileDialog *dialog)
{
    if (auto *const name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit")))
        name->clear(); // which selects the folder itself, so it comes first
    for (auto *const view : dialog->findChildren<QAbstractItemView *>()) {
        if (view->selectionModel())
            view->clearSelection();
    }
}

} // namespace

QWidget *parentFor(QMenu *menu)
{
    QWidget *bar = menu->parentWidget();
    return bar ? bar->window() : menu;
}

QFileDialog *makeFileDialog(QMenu *menu, const FileQuestion &question)
{
    auto *dialog = new QFileDialog(parentFor(menu), question.title);
    dialog->setAcceptMode(question.acceptMode);
    dialog->setNameFilters(question.filters);
    dialog->setDefaultSuffix(question.defaultSuffix);
    FileDialogs::prepare(dialog);
    // Queued, as the answer is read when the dialog has closed.
    QObject::connect(
        dialog, &QDialog::finished, dialog, [dialog] { forgetAnswer(dialog); },
        Qt::QueuedConnection);
    return dialog;
}

std::optional<QString> singleFile(const QFileDialog *dialog)
{
    const QStringList files = dialog->selectedFiles();
    if (files.size() != 1)
        return std::nullopt;
    return files.first();
}

void warnOfFailedExport(QMenu *menu)
{
    QMessageBox::warning(parentFor(menu), QStringLiteral("Save Error"),
                         QStringLiteral("There was a problem exporting data"), QMessageBox::Ok);
}

} // namespace MenuDialogs
