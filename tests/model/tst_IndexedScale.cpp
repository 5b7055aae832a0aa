#include "model/IndexedScale.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

QImage noise(QSize size)
{
    QRandomGenerator generator(20260101);
    QImage image(size, QImage::Format_Indexed8);
    image.setColorTable(QList<QRgb>(256, qRgb(0, 0, 0)));
    for (int y = 0; y < size.height(); ++y) {
        uchar *row = image.scanLine(y);
        for (int x = 0; x < size.width(); ++x)
            row[x] = static_cast<uchar>(generator.bounded(256));
    }
    return image;
}

/// The same by Qt's own way.
QImage reference(const QImage &source, QRect part, QSize size)
{
    return source.copy(part).scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

/// Where the pixels differ, or an empty string.
QString difference(const QImage &image, const QImage &expected)
{
    if (image.size() != expected.size())
        return QStringLiteral("%1x%2").arg(image.width()).arg(image.height());
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.constScanLine(y)[x] != expected.constScanLine(y)[x])
                return QStringLiteral("(%1, %2)").arg(x).arg(y);
        }
    }
    return {};
}

} // namespace

class tst_IndexedScale : public QObject
{
    Q_OBJECT

private slots:
    void equalsQtsFastTransformation_data();
    void equalsQtsFastTransformation();
    void equalsQtForRandomSizes();
    void aPieceIsCutFromTheWhole();
    void anEmptyPartOrSizeIsNull();
    void withoutASourceEverythingIsZero();
};

void tst_IndexedScale::equalsQtsFastTransformation_data()
{
    QTest::addColumn<QRect>("part");
    QTest::addColumn<QSize>("size");
    const QRect part(8, 16, 40, 24);
    QTest::newRow("unscaled") << part << part.size();
    QTest::newRow("twice") << part << QSize(80, 48);
    QTest::newRow("four times") << part << QSize(160, 96);
    QTest::newRow("half") << part << QSize(20, 12);
    QTest::newRow("an eighth") << part << QSize(5, 3);
    QTest::newRow("a third more") << part << QSize(53, 32);
    QTest::newRow("7 over 8") << part << QSize(35, 21);
    QTest::newRow("only wider") << part << QSize(41, 24);
    QTest::newRow("only lower") << part << QSize(40, 23);
    QTest::newRow("rounded up at the bottom") << part << QSize(42, 26);
    QTest::newRow("to one pixel") << part << QSize(1, 1);
    QTest::newRow("over the right and bottom edge") << QRect(80, 56, 48, 40) << QSize(96, 80);
    QTest::newRow("over the left and top edge") << QRect(-16, -8, 40, 40) << QSize(40, 40);
    QTest::newRow("around the whole") << QRect(-8, -8, 120, 90) << QSize(200, 77);
    QTest::newRow("right of it") << QRect(96, 0, 16, 16) << QSize(32, 32);
    QTest::newRow("left of it") << QRect(-16, 0, 16, 16) << QSize(32, 32);
    QTest::newRow("below it") << QRect(0, 64, 16, 16) << QSize(8, 8);
}

void tst_IndexedScale::equalsQtsFastTransformation()
{
    QFETCH(QRect, part);
    QFETCH(QSize, size);
    const QImage source = noise({96, 64});

    const QImage scaled = IndexedScale::scaledPart(source, part, size);

    QCOMPARE(scaled.format(), QImage::Format_Indexed8);
    QCOMPARE(difference(scaled, reference(source, part, size)), QString());
}

void tst_IndexedScale::equalsQtForRandomSizes()
{
    QRandomGenerator generator(7);
    const QImage source = noise({96, 64});

    for (int i = 0; i < 500; ++i) {
        const QRect part(generator.bounded(-20, 100), generator.bounded(-20, 70),
                         generator.bounded(1, 130), generator.bounded(1, 90));
        const QSize size(generator.bounded(1, 400), generator.bounded(1, 300));
        const QImage scaled = IndexedScale::scaledPart(source, part, size);
        const QString where = difference(scaled, reference(source, part, size));
        QVERIFY2(where.isEmpty(), qPrintable(where));
    }
}

void tst_IndexedScale::aPieceIsCutFromTheWhole()
{
    QRandomGenerator generator(8);
    const QImage source = noise({96, 64});

    for (int i = 0; i < 500; ++i) {
        const QRect part(generator.bounded(-20, 100), generator.bounded(-20, 70),
                         generator.bounded(1, 130), generator.bounded(1, 90));
        const QSize size(generator.bounded(1, 400), generator.bounded(1, 300));
        const QRect piece(generator.bounded(-10, size.width()),
                          generator.bounded(-10, size.height()), generator.bounded(11, 90),
                          generator.bounded(11, 90));
        const QImage scaled = IndexedScale::scaledPart(source, part, size, piece);
        const QRect inside = piece.intersected(QRect(QPoint(), size));
        const QString where = difference(scaled, reference(source, part, size).copy(inside));
        QVERIFY2(where.isEmpty(), qPrintable(where));
    }
    QVERIFY(IndexedScale::scaledPart(source, {0, 0, 8, 8}, {16, 16}, {16, 0, 4, 4}).isNull());
}

void tst_IndexedScale::anEmptyPartOrSizeIsNull()
{
    const QImage source = noise({16, 16});

    QVERIFY(IndexedScale::scaledPart(source, {}, {8, 8}).isNull());
    QVERIFY(IndexedScale::scaledPart(source, {4, 4, 0, 8}, {8, 8}).isNull());
    QVERIFY(IndexedScale::scaledPart(source, {0, 0, 8, 8}, {0, 8}).isNull());
    QVERIFY(IndexedScale::scaledPart(source, {0, 0, 8, 8}, {8, -1}).isNull());
}

void tst_IndexedScale::withoutASourceEverythingIsZero()
{
    const QImage scaled = IndexedScale::scaledPart({}, {0, 0, 8, 8}, {16, 16});

    QImage blank(16, 16, QImage::Format_Indexed8);
    blank.fill(0);
    QCOMPARE(difference(scaled, blank), QString());
}

QTEST_GUILESS_MAIN(tst_IndexedScale)
#include "tst_IndexedScale.moc"
