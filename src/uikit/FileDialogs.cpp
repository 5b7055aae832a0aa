#include "uikit/FileDialogs.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QEvent>
#include <QFileDialog>
#include <QLineEdit>

namespace {

class CompletionEnd : public QObject
{
public:
    explicit CompletionEnd(QFileDialog *dialog)
        : QObject(dialog)
    {
        dialog->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Hide) {
            // Native dialogs have none.
            const auto *name = watched->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
            if (QCompleter *const completer = name ? name->completer() : nullptr) {
                completer->popup()->hide();
                completer->setCompletionPrefix(QString());
            }
        }
        return false;
    }
};

} // namespace

void FileDialogs::endCompletionWith(QFileDialog *dialog)
{
    new CompletionEnd(dialog);
}
