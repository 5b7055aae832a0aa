#include "editors/PreviewTiming.h"

#include <QTest>

#include <limits>

class tst_PreviewTiming : public QObject
{
    Q_OBJECT

private slots:
    void eachDelayAddsTwentyMilliseconds_data();
    void eachDelayAddsTwentyMilliseconds();
};

void tst_PreviewTiming::eachDelayAddsTwentyMilliseconds_data()
{
    QTest::addColumn<int>("delay");
    QTest::addColumn<int>("milliseconds");

    QTest::newRow("none") << 0 << 20;
    QTest::newRow("25 fps") << 1 << 40;
    QTest::newRow("two") << 2 << 60;
    QTest::newRow("the longest") << 50 << 1020;
    QTest::newRow("below nothing") << -3 << 20;
    QTest::newRow("beyond all time")
        << std::numeric_limits<int>::max() << std::numeric_limits<int>::max();
}

void tst_PreviewTiming::eachDelayAddsTwentyMilliseconds()
{
    QFETCH(int, delay);
    QFETCH(int, milliseconds);

    QCOMPARE(AnimationEditor::previewIntervalMs(delay), milliseconds);
}

QTEST_MAIN(tst_PreviewTiming)
#include "tst_PreviewTiming.moc"
