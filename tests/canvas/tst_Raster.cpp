#include "canvas/Raster.h"
#include "model/PictureEquality.h"
#include "support/TestImages.h"

#include <QRandomGenerator>
#include <QTest>

using TestImages::indexed;
using TestImages::rows;

namespace {

QImage blank(int width, int height)
{
    return indexed(QStringList(height, QString(width, '0')));
}

/// The fill by the book: one pixel at a time.
QImage filledByTheRule(QImage image, QPoint start, int index)
{
    const int target = image.pixelIndex(start);
    QList<QPoint> stack = {start};
    while (!stack.isEmpty() && target != index) {
        const QPoint point = stack.takeLast();
        image.setPixel(point, static_cast<uint>(index));
        for (const QPoint step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
            const QPoint next = point + step;
            if (image.rect().contains(next) && image.pixelIndex(next) == target)
                stack.append(next);
        }
    }
    return image;
}

/// The ellipse by the book, with a point set one at a time.
QImage ellipseByTheRule(QImage image, const QRect &rect)
{
    const auto plot = [&image](qint64 x, qint64 y) {
        if (image.valid(int(x), int(y)))
            image.setPixel(int(x), int(y), 1);
    };
    const qint64 a = rect.right() - rect.left();
    const qint64 b = rect.bottom() - rect.top();
    const qint64 b1 = b % 2;
    qint64 dx = 4 * (1 - a) * b * b;
    qint64 dy = 4 * (b1 + 1) * a * a;
    qint64 err = dx + dy + b1 * a * a;
    qint64 y = rect.top() + (b + 1) / 2;
    qint64 y2 = y - b1;
    qint64 x0 = rect.left();
    qint64 x1 = rect.right();
    const auto plotFour = [&] {
        for (const qint64 x : {x0, x1}) {
            plot(x, y);
            plot(x, y2);
        }
    };
    do {
        plotFour();
        const qint64 e2 = 2 * err;
        if (e2 <= dy) {
            y += 1;
            y2 -= 1;
            err += dy += 8 * a * a;
        }
        if (e2 >= dx || 2 * err > dy) {
            x0 += 1;
            x1 -= 1;
            err += dx += 8 * b * b;
        }
    } while (x0 <= x1);
    for (x0 -= 1, x1 += 1; y - y2 <= b; y += 1, y2 -= 1)
        plotFour();
    return image;
}

} // namespace

class tst_Raster : public QObject
{
    Q_OBJECT

private slots:
    void drawsLines_data();
    void drawsLines();
    void aLineIsTheSameFromEitherEnd();
    void whatLiesOutsideIsLeftOut();
    void drawsRectanglesFromAnyCorner_data();
    void drawsRectanglesFromAnyCorner();
    void drawsEllipses_data();
    void drawsEllipses();
    void ellipsesEqualTheRuleInAnyRectangle();
    void anEllipseTouchesItsRectangle();
    void fillStaysWithinItsAreaAndIsFourConnected();
    void fillWithTheSameIndexDoesNothing();
    void fillOutsideDoesNothing();
    void fillEqualsTheRuleOnAnyPicture_data();
    void fillEqualsTheRuleOnAnyPicture();
    void openRowsBehindAWallStay_data();
    void openRowsBehindAWallStay();
    void turnsASquare();
    void turnsARectangleWithinItsSize();
    void scrollsAroundTheEdges_data();
    void scrollsAroundTheEdges();
};

void tst_Raster::drawsLines_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QStringList>("picture");
    QTest::newRow("point") << QPoint(1, 1) << QPoint(1, 1)
                           << QStringList{"00000", "07000", "00000", "00000"};
    QTest::newRow("flat") << QPoint(0, 0) << QPoint(3, 1)
                          << QStringList{"77000", "00770", "00000", "00000"};
    QTest::newRow("flat, upwards")
        << QPoint(0, 1) << QPoint(3, 0) << QStringList{"00770", "77000", "00000", "00000"};
    QTest::newRow("diagonal") << QPoint(0, 0) << QPoint(3, 3)
                              << QStringList{"70000", "07000", "00700", "00070"};
    QTest::newRow("steep") << QPoint(2, 0) << QPoint(3, 3)
                           << QStringList{"00700", "00700", "00070", "00070"};
    QTest::newRow("level") << QPoint(4, 2) << QPoint(0, 2)
                           << QStringList{"00000", "00000", "77777", "00000"};
}

void tst_Raster::drawsLines()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(QStringList, picture);
    QImage image = blank(5, 4);

    Raster::drawLine(image, from, to, 7);

    QCOMPARE(rows(image), picture);
}

void tst_Raster::aLineIsTheSameFromEitherEnd()
{
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            QImage there = blank(16, 16);
            QImage back = blank(16, 16);
            Raster::drawLine(there, {5, 9}, {x, y}, 1);
            Raster::drawLine(back, {x, y}, {5, 9}, 1);
            QCOMPARE(rows(there), rows(back));
        }
    }
}

void tst_Raster::whatLiesOutsideIsLeftOut()
{
    QImage image = blank(4, 3);

    Raster::drawLine(image, {-5, 1}, {9, 1}, 2);
    Raster::drawRectangle(image, {-3, -3}, {8, 8}, 3);
    Raster::fillRectangle(image, {3, 2}, {9, 9}, 4);
    Raster::drawEllipse(image, {-20, -20}, {-10, -10}, 5);
    Raster::setPixel(image, {4, 0}, 6);

    QCOMPARE(rows(image), QStringList({"0000", "2222", "0004"}));
}

void tst_Raster::drawsRectanglesFromAnyCorner_data()
{
    QTest::addColumn<QPoint>("corner");
    QTest::addColumn<QPoint>("opposite");
    QTest::newRow("left top first") << QPoint(1, 1) << QPoint(4, 3);
    QTest::newRow("right bottom first") << QPoint(4, 3) << QPoint(1, 1);
    QTest::newRow("right top first") << QPoint(4, 1) << QPoint(1, 3);
}

void tst_Raster::drawsRectanglesFromAnyCorner()
{
    QFETCH(QPoint, corner);
    QFETCH(QPoint, opposite);
    QImage outline = blank(6, 5);
    QImage area = blank(6, 5);

    Raster::drawRectangle(outline, corner, opposite, 9);
    Raster::fillRectangle(area, corner, opposite, 9);

    QCOMPARE(rows(outline), QStringList({"000000", "099990", "090090", "099990", "000000"}));
    QCOMPARE(rows(area), QStringList({"000000", "099990", "099990", "099990", "000000"}));
}

void tst_Raster::drawsEllipses_data()
{
    QTest::addColumn<QPoint>("corner");
    QTest::addColumn<QPoint>("opposite");
    QTest::addColumn<QStringList>("picture");
    QTest::newRow("round, odd") << QPoint(0, 0) << QPoint(4, 4)
                                << QStringList{"011100", "100010", "100010", "100010", "011100"};
    QTest::newRow("from the other corner")
        << QPoint(4, 4) << QPoint(0, 0)
        << QStringList{"011100", "100010", "100010", "100010", "011100"};
    QTest::newRow("one column") << QPoint(2, 1) << QPoint(2, 3)
                                << QStringList{"000000", "001000", "001000", "001000", "000000"};
    QTest::newRow("one row") << QPoint(1, 2) << QPoint(4, 2)
                             << QStringList{"000000", "000000", "011110", "000000", "000000"};
    QTest::newRow("two by two") << QPoint(1, 1) << QPoint(2, 2)
                                << QStringList{"000000", "011000", "011000", "000000", "000000"};
}

void tst_Raster::drawsEllipses()
{
    QFETCH(QPoint, corner);
    QFETCH(QPoint, opposite);
    QFETCH(QStringList, picture);
    QImage image = blank(6, 5);

    Raster::drawEllipse(image, corner, opposite, 1);

    QCOMPARE(rows(image), picture);
}

void tst_Raster::ellipsesEqualTheRuleInAnyRectangle()
{
    const QImage empty = blank(24, 20);
    for (int right = 3; right < 28; ++right) {
        for (int bottom = 2; bottom < 24; ++bottom) {
            const QRect rect(QPoint(3, 2), QPoint(right, bottom));
            const QImage expected = ellipseByTheRule(empty, rect);
            QImage image = empty;
            Raster::drawEllipse(image, rect.topLeft(), rect.bottomRight(), 1);
            QCOMPARE(rows(image), rows(expected));

            image = empty;
            Raster::drawEllipse(image, rect.bottomLeft(), rect.topRight(), 1);
            QCOMPARE(rows(image), rows(expected));
        }
    }
}

void tst_Raster::anEllipseTouchesItsRectangle()
{
    for (int right = 0; right < 12; ++right) {
        for (int bottom = 0; bottom < 12; ++bottom) {
            QImage image = blank(16, 16);
            Raster::drawEllipse(image, {2, 1}, {2 + right, 1 + bottom}, 1);

            QRect touched;
            for (int y = 0; y < 16; ++y) {
                for (int x = 0; x < 16; ++x)
                    touched |= image.pixelIndex(x, y) == 1 ? QRect(x, y, 1, 1) : QRect();
            }
            QCOMPARE(touched, QRect(QPoint(2, 1), QPoint(2 + right, 1 + bottom)));
        }
    }
}

void tst_Raster::fillStaysWithinItsAreaAndIsFourConnected()
{
    QImage image = indexed({"0010", "0100", "1000", "0001"});

    QVERIFY(Raster::floodFill(image, {0, 0}, 8));

    QCOMPARE(rows(image), QStringList({"8810", "8100", "1000", "0001"}));
}

void tst_Raster::fillWithTheSameIndexDoesNothing()
{
    QImage image = indexed({"33", "33"});

    QVERIFY(!Raster::floodFill(image, {1, 1}, 3));

    QCOMPARE(rows(image), QStringList({"33", "33"}));
}

void tst_Raster::fillOutsideDoesNothing()
{
    QImage image = indexed({"33", "33"});

    QVERIFY(!Raster::floodFill(image, {2, 0}, 5));
    QVERIFY(!Raster::floodFill(image, {0, -1}, 5));

    QCOMPARE(rows(image), QStringList({"33", "33"}));
}

void tst_Raster::fillEqualsTheRuleOnAnyPicture_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("walls"); // in a hundred pixels
    for (const int walls : {0, 10, 30, 40, 50}) {
        QTest::addRow("wide, %d", walls) << QSize(201, 40) << walls;
        QTest::addRow("tall, %d", walls) << QSize(7, 150) << walls;
        QTest::addRow("words, %d", walls) << QSize(128, 64) << walls;
    }
}

void tst_Raster::fillEqualsTheRuleOnAnyPicture()
{
    QFETCH(QSize, size);
    QFETCH(int, walls);
    QRandomGenerator random(20261015);
    for (int round = 0; round < 10; ++round) {
        QImage image = blank(size.width(), size.height());
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x)
                image.setPixel(x, y, random.bounded(100) < walls ? 1 : 0);
        }
        const QPoint start(random.bounded(size.width()), random.bounded(size.height()));
        const QImage expected = filledByTheRule(image, start, 9);

        QVERIFY(Raster::floodFill(image, start, 9));

        QVERIFY(PictureEquality::haveEqualIndices(image, expected));
    }
}

void tst_Raster::openRowsBehindAWallStay_data()
{
    QTest::addColumn<int>("width");
    for (const int width : {1, 2, 63, 64, 65, 130})
        QTest::addRow("%d pixels", width) << width;
}

void tst_Raster::openRowsBehindAWallStay()
{
    QFETCH(int, width);
    QImage image = blank(width, 5);
    for (int x = 0; x < width; ++x)
        image.setPixel(x, 2, 1);

    QVERIFY(Raster::floodFill(image, {width - 1, 0}, 9));

    QStringList expected;
    for (const char index : {'9', '9', '1', '0', '0'})
        expected << QString(width, QLatin1Char(index));
    QCOMPARE(rows(image), expected);
}

void tst_Raster::turnsASquare()
{
    const QImage image = indexed({"123", "456", "789"});

    QCOMPARE(rows(Raster::rotatedClockwise(image)), QStringList({"741", "852", "963"}));
    QCOMPARE(rows(Raster::rotatedCounterClockwise(image)), QStringList({"369", "258", "147"}));
    QCOMPARE(Raster::rotatedClockwise(image).colorTable(), image.colorTable());
}

void tst_Raster::turnsARectangleWithinItsSize()
{
    const QImage image = indexed({"123", "456"});

    const QImage turned = Raster::rotatedClockwise(image);

    QCOMPARE(turned.size(), image.size());
    QCOMPARE(rows(turned), QStringList({"041", "052"}));
}

void tst_Raster::scrollsAroundTheEdges_data()
{
    QTest::addColumn<QPoint>("offset");
    QTest::addColumn<QStringList>("picture");
    QTest::newRow("up") << QPoint(0, -1) << QStringList{"456", "789", "123"};
    QTest::newRow("down") << QPoint(0, 1) << QStringList{"789", "123", "456"};
    QTest::newRow("left") << QPoint(-1, 0) << QStringList{"231", "564", "897"};
    QTest::newRow("right") << QPoint(1, 0) << QStringList{"312", "645", "978"};
}

void tst_Raster::scrollsAroundTheEdges()
{
    QFETCH(QPoint, offset);
    QFETCH(QStringList, picture);

    QCOMPARE(rows(Raster::scrolled(indexed({"123", "456", "789"}), offset)), picture);
}

QTEST_GUILESS_MAIN(tst_Raster)
#include "tst_Raster.moc"
