#include "uikit/WaitCursor.h"

#include <QCursor>
#include <QGuiApplication>
#include <QTest>

class tst_WaitCursor : public QObject
{
    Q_OBJECT

private slots:
    void itShowsWhileItLives();
    void itNests();
};

void tst_WaitCursor::itShowsWhileItLives()
{
    {
        const WaitCursor cursor;
        QVERIFY(QGuiApplication::overrideCursor());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }

    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_WaitCursor::itNests()
{
    const WaitCursor outer;
    {
        const WaitCursor inner;
    }

    QVERIFY(QGuiApplication::overrideCursor());
}

QTEST_MAIN(tst_WaitCursor)
#include "tst_WaitCursor.moc"
