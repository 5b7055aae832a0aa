#include "model/PictureEquality.h"

#include "support/TestImages.h"

#include <QTest>

class tst_PictureEquality : public QObject
{
    Q_OBJECT

private slots:
    void comparesIndicesAndTables_data();
    void comparesIndicesAndTables();
    void comparesPicturesWithoutAColourTable();
    void comparesIndicesBeyondTheTable();
    void theFillingBehindALineDoesNotCount();
    void copiesAreEqualUntilOneIsChanged();
    void comparesOtherFormatsByColour();
    void indicesAreComparedWithoutTables();
};

namespace {

QImage withTable(const QStringList &rows, const QList<QRgb> &table)
{
    QImage image = TestImages::indexed(rows);
    image.setColorTable(table);
    return image;
}

/// A picture in which every index looks the same.
QImage black(const QStringList &rows)
{
    return withTable(rows, QList<QRgb>(256, qRgb(0, 0, 0)));
}

} // namespace

void tst_PictureEquality::comparesIndicesAndTables_data()
{
    QTest::addColumn<QImage>("other");
    QTest::addColumn<bool>("equal");
    QTest::newRow("the same") << black({"0123", "4567"}) << true;
    QTest::newRow("another index of the same colour") << black({"0123", "4568"}) << false;
    QTest::newRow("another first index") << black({"1123", "4567"}) << false;
    QTest::newRow("another colour that no pixel has")
        << withTable({"0123", "4567"}, QList<QRgb>(256, qRgb(0, 0, 1))) << false;
    QTest::newRow("a shorter table")
        << withTable({"0123", "4567"}, QList<QRgb>(255, qRgb(0, 0, 0))) << false;
    QTest::newRow("wider") << black({"01230", "45670"}) << false;
    QTest::newRow("higher") << black({"0123", "4567", "0000"}) << false;
    QTest::newRow("no picture") << QImage() << false;
    QTest::newRow("32 bits") << black({"0123", "4567"}).convertToFormat(QImage::Format_RGB32)
                             << false;
}

void tst_PictureEquality::comparesIndicesAndTables()
{
    QFETCH(QImage, other);
    QFETCH(bool, equal);
    const QImage picture = black({"0123", "4567"});

    QCOMPARE(PictureEquality::areEqual(picture, other), equal);
    QCOMPARE(PictureEquality::areEqual(other, picture), equal);
}

void tst_PictureEquality::comparesPicturesWithoutAColourTable()
{
    const QImage picture = withTable({"0123"}, {});

    QVERIFY(PictureEquality::areEqual(picture, withTable({"0123"}, {})));
    QVERIFY(!PictureEquality::areEqual(picture, withTable({"0124"}, {})));
    QVERIFY(!PictureEquality::areEqual(picture, TestImages::indexed({"0123"})));
}

void tst_PictureEquality::comparesIndicesBeyondTheTable()
{
    const QList<QRgb> table{qRgb(1, 2, 3)};

    QVERIFY(PictureEquality::areEqual(withTable({"00ff"}, table), withTable({"00ff"}, table)));
    QVERIFY(!PictureEquality::areEqual(withTable({"00ff"}, table), withTable({"00fe"}, table)));
}

void tst_PictureEquality::theFillingBehindALineDoesNotCount()
{
    QImage first = TestImages::indexed({"012", "345"});
    QImage second = TestImages::indexed({"012", "345"});
    QVERIFY(first.bytesPerLine() > first.width());
    first.scanLine(0)[3] = 7;
    second.scanLine(0)[3] = 8;

    QVERIFY(PictureEquality::areEqual(first, second));
}

void tst_PictureEquality::copiesAreEqualUntilOneIsChanged()
{
    const QImage picture = withTable({"0123"}, {});
    QImage copy = picture;
    QVERIFY(PictureEquality::areEqual(picture, copy));
    QVERIFY(PictureEquality::areEqual(QImage(), QImage()));

    copy.scanLine(0)[3] = 9;

    QVERIFY(!PictureEquality::areEqual(picture, copy));
}

void tst_PictureEquality::comparesOtherFormatsByColour()
{
    const QImage picture = TestImages::coloured({"0123"});

    QVERIFY(PictureEquality::areEqual(picture, TestImages::coloured({"0123"})));
    QVERIFY(!PictureEquality::areEqual(picture, TestImages::coloured({"0124"})));
}

void tst_PictureEquality::indicesAreComparedWithoutTables()
{
    const QImage picture = withTable({"0123"}, {qRgb(1, 2, 3)});

    QVERIFY(PictureEquality::haveEqualIndices(picture, TestImages::indexed({"0123"})));
    QVERIFY(PictureEquality::haveEqualIndices(picture, withTable({"0123"}, {})));
    QVERIFY(!PictureEquality::haveEqualIndices(picture, withTable({"0124"}, {})));
    QVERIFY(!PictureEquality::haveEqualIndices(picture, withTable({"01230"}, {})));
}

QTEST_GUILESS_MAIN(tst_PictureEquality)
#include "tst_PictureEquality.moc"
