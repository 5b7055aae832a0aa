#include "model/CellLog.h"

#include <QTest>

class tst_CellLog : public QObject
{
    Q_OBJECT

private slots:
    void cellsAreTheOnesWrittenSince();
    void everythingHidesTheCellsBefore();
    void onlyTheLatestCellsAreKnown();
    void aRevisionToComeIsUnknown();
};

void tst_CellLog::cellsAreTheOnesWrittenSince()
{
    CellLog log;
    log.add({1, 2});
    const quint64 between = log.revision();
    log.add({3, 4});
    log.add({1, 2});

    QCOMPARE(*log.since(0), QList<QPoint>({{1, 2}, {3, 4}, {1, 2}}));
    QCOMPARE(*log.since(between), QList<QPoint>({{3, 4}, {1, 2}}));
    QCOMPARE(*log.since(log.revision()), QList<QPoint>());
}

void tst_CellLog::everythingHidesTheCellsBefore()
{
    CellLog log;
    log.add({1, 2});
    const quint64 before = log.revision();
    log.addAll();
    const quint64 behind = log.revision();
    log.add({5, 6});

    QVERIFY(behind != before);
    QVERIFY(!log.since(0).has_value());
    QVERIFY(!log.since(before).has_value());
    QCOMPARE(*log.since(behind), QList<QPoint>({{5, 6}}));
}

void tst_CellLog::onlyTheLatestCellsAreKnown()
{
    CellLog log;
    for (int i = 0; i < 3 * CellLog::MinKept; ++i)
        log.add({i, 0});
    const auto count = static_cast<quint64>(CellLog::MinKept);

    QVERIFY(!log.since(0).has_value());
    const QList<QPoint> latest = *log.since(log.revision() - count);
    QCOMPARE(latest.size(), CellLog::MinKept);
    QCOMPARE(latest.first(), QPoint(2 * CellLog::MinKept, 0));
    QCOMPARE(latest.last(), QPoint(3 * CellLog::MinKept - 1, 0));
}

void tst_CellLog::aRevisionToComeIsUnknown()
{
    CellLog log;
    log.add({1, 2});

    QVERIFY(!log.since(log.revision() + 1).has_value());
}

QTEST_GUILESS_MAIN(tst_CellLog)

#include "tst_CellLog.moc"
