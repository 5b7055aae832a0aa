#include "uikit/FileDialogs.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QTreeView>

namespace {

void endCompletion(const QObject *dialog)
{
    const auto *name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    if (QCompleter *const completer = name ? name->completer() : nullptr) {
        completer->popup()->hide();
        completer->setCompletionPrefix(QString());
    }
}

void showWholeColumns(const QObject *dialog)
{
    const auto *list = dialog->findChild<QTreeView *>(QStringLiteral("treeView"));
    if (!list || list->header()->count() == 0)
        return;
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

/// Follows a dialog, whose parts are there only if it is not the desktop's.
class Mender : public QObject
{
public:
    explicit Mender(QFileDialog *dialog)
        : QObject(dialog)
    {
        dialog->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            showWholeColumns(watched);
        else if (event->type() == QEvent::Hide)
            endCompletion(watched);
        return false;
    }
};

} // namespace

void FileDialogs::prepare(QFileDialog *dialog)
{
    new Mender(dialog);
}
