#include "uikit/FileDialogs.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

class tst_FileDialogs : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsLeftToCompleteForAFolderReadLate();
    void completionsOnShowGoWithTheDialog();
    void nothingInTheListIsCutOff();
};

void tst_FileDialogs::nothingIsLeftToCompleteForAFolderReadLate()
{
    QFileDialog dialog(nullptr, "Open", QDir::rootPath());
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    FileDialogs::prepare(&dialog);
    dialog.open();
    auto *const edit = dialog.findChild<QLineEdit *>("fileNameEdit");
    QTest::keyClicks(edit, "some/where/mo");
    QVERIFY(!edit->completer()->completionPrefix().isEmpty());

    dialog.reject();

    QCOMPARE(edit->completer()->completionPrefix(), QString());
    QCOMPARE(edit->text(), QStringLiteral("some/where/mo")); // the owner reads it
}

void tst_FileDialogs::completionsOnShowGoWithTheDialog()
{
    const QTemporaryDir folder;
    QFile file(folder.path() + "/moor.tessaril");
    QVERIFY(file.open(QIODevice::WriteOnly));
    QFileDialog dialog(nullptr, "Open", folder.path());
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    FileDialogs::prepare(&dialog);
    dialog.open();
    auto *const edit = dialog.findChild<QLineEdit *>("fileNameEdit");
    QTest::keyClicks(edit, "mo");
    QTRY_VERIFY(edit->completer()->completionCount() > 0);
    edit->completer()->complete();
    QVERIFY(edit->completer()->popup()->isVisible());

    dialog.reject();

    QVERIFY(!edit->completer()->popup()->isVisible());
    dialog.open();
    QTest::keyClicks(edit, "or");
    QCOMPARE(edit->completer()->completionPrefix(), QStringLiteral("moor"));
}

void tst_FileDialogs::nothingInTheListIsCutOff()
{
    const QTemporaryDir folder;
    QFile file(folder.path() + "/moor.tessaril");
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(123456));
    QFileDialog dialog(nullptr, "Open", folder.path());
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setViewMode(QFileDialog::Detail);
    FileDialogs::prepare(&dialog);
    dialog.open();

    const auto *const list = dialog.findChild<QTreeView *>("treeView");
    QTRY_COMPARE(list->model()->rowCount(list->rootIndex()), 1);
    for (int column = 0; column < list->header()->count(); ++column) {
        const QModelIndex item = list->model()->index(0, column, list->rootIndex());
        QTRY_VERIFY(list->columnWidth(column) >=
                    list->fontMetrics().horizontalAdvance(item.data().toString()));
    }
    QCOMPARE(list->header()->length(), list->viewport()->width());
}

QTEST_MAIN(tst_FileDialogs)

#include "tst_FileDialogs.moc"
