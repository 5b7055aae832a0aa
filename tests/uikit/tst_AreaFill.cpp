#include "uikit/AreaFill.h"

#include "support/PaintCounter.h"

#include <QTest>

class tst_AreaFill : public QObject
{
    Q_OBJECT

private slots:
    void paintsItsWholeArea();
    void anotherColourIsRepainted();
    void startsBlack();
};

void tst_AreaFill::paintsItsWholeArea()
{
    AreaFill swatch;
    swatch.resize(7, 5);

    swatch.setColour(QColor(12, 34, 56));

    QImage expected(7, 5, QImage::Format_RGB32);
    expected.fill(QColor(12, 34, 56));
    QCOMPARE(swatch.grab().toImage().convertToFormat(QImage::Format_RGB32), expected);
    QCOMPARE(swatch.colour(), QColor(12, 34, 56));
}

void tst_AreaFill::anotherColourIsRepainted()
{
    AreaFill swatch;
    swatch.resize(7, 5);
    swatch.show();
    QVERIFY(QTest::qWaitForWindowExposed(&swatch));
    const PaintCounter paints(swatch);

    swatch.setColour(Qt::black);
    QCoreApplication::processEvents();
    QCOMPARE(paints.count(), 0);

    swatch.setColour(Qt::red);
    QTRY_COMPARE(paints.count(), 1);
}

void tst_AreaFill::startsBlack()
{
    AreaFill swatch;

    QCOMPARE(swatch.colour(), QColor(Qt::black));
}

QTEST_MAIN(tst_AreaFill)
#include "tst_AreaFill.moc"
