#include "control/ImportProgress.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QWindow>

class tst_ImportProgress : public QObject
{
    Q_OBJECT

private slots:
    void theDialogCannotBeCancelledAndBlocksTheWindow();
    void theDialogHearsOfTheValueOnlySoOften();

private:
    static QProgressDialog *dialog()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows) {
            if (auto *found = qobject_cast<QProgressDialog *>(window))
                return found;
        }
        return nullptr;
    }
};

void tst_ImportProgress::theDialogCannotBeCancelledAndBlocksTheWindow()
{
    QWidget window;
    window.show();
    const ImportProgress progress(&window, 100);

    QVERIFY(dialog());
    QCOMPARE(dialog()->labelText(), QString("Processing image"));
    QCOMPARE(dialog()->minimum(), 0);
    QCOMPARE(dialog()->maximum(), 100);
    QCOMPARE(dialog()->windowModality(), Qt::WindowModal);
    QVERIFY(!dialog()->parent());
    QVERIFY(!dialog()->findChild<QPushButton *>());
    QCOMPARE(dialog()->windowHandle()->transientParent(), window.windowHandle());
}

void tst_ImportProgress::theDialogHearsOfTheValueOnlySoOften()
{
    constexpr int Count = 1'000'000;
    ImportProgress progress(nullptr, Count);
    QList<int> shown;
    QElapsedTimer time;
    time.start();

    for (int done = 0; done < Count; ++done) {
        progress.setValue(done);
        if (shown.isEmpty() || shown.last() != dialog()->value())
            shown.append(dialog()->value());
        if (time.elapsed() > 200)
            break;
    }

    QVERIFY(shown.size() > 1);
    QVERIFY(shown.size() <= time.elapsed() / 40 + 1);
}

QTEST_MAIN(tst_ImportProgress)
#include "tst_ImportProgress.moc"
