#include "support/FileDialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>

namespace FileDialogs {

QFileDialog *visible()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        if (dialog && dialog->isVisible())
            return dialog;
    }
    return nullptr;
}

void choose(QFileDialog *dialog, const QString &fileName)
{
    auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    edit->setText(fileName);
    QTest::keyClick(edit, Qt::Key_Return);
}

void cancel(QFileDialog *dialog)
{
    QTest::keyClick(dialog, Qt::Key_Escape);
}

} // namespace FileDialogs
