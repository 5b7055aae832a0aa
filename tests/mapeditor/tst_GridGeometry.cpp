#include "mapeditor/GridGeometry.h"

#include <QTest>

#include <limits>

using MapEditor::GridGeometry;

class tst_GridGeometry : public QObject
{
    Q_OBJECT

private slots:
    void wholeCellsStandInTheCentre_data();
    void wholeCellsStandInTheCentre();
    void theFittingCellIsAtLeastOnePixel_data();
    void theFittingCellIsAtLeastOnePixel();
    void widgetPointsBecomeCellsAndMapPixels_data();
    void widgetPointsBecomeCellsAndMapPixels();
    void mapPixelsBecomeWidgetPoints_data();
    void mapPixelsBecomeWidgetPoints();
    void cellsBecomeWidgetRectangles();
    void whatIsFarAwayStaysOffTheScreen_data();
    void whatIsFarAwayStaysOffTheScreen();
    void positionsRoundHalfAwayFromZero_data();
    void positionsRoundHalfAwayFromZero();
    void snapTruncatesTowardsZero();
};

void tst_GridGeometry::wholeCellsStandInTheCentre_data()
{
    QTest::addColumn<QSize>("widget");
    QTest::addColumn<QSize>("map");
    QTest::addColumn<QSize>("viewport");
    QTest::addColumn<int>("cellSize");
    QTest::addColumn<QRect>("expected");

    QTest::newRow("small map") << QSize(400, 300) << QSize(6, 4) << QSize() << 32
                               << QRect(104, 86, 192, 128);
    QTest::newRow("large map") << QSize(101, 75) << QSize(100, 100) << QSize() << 8
                               << QRect(2, 1, 96, 72);
    QTest::newRow("viewport") << QSize(101, 75) << QSize(100, 100) << QSize(3, 2) << 8
                              << QRect(38, 29, 24, 16);
    QTest::newRow("viewport beyond the map")
        << QSize(400, 300) << QSize(6, 4) << QSize(40, 32) << 32 << QRect(104, 86, 192, 128);
    QTest::newRow("no whole cell")
        << QSize(20, 20) << QSize(6, 4) << QSize() << 32 << QRect(10, 10, 0, 0);
}

void tst_GridGeometry::wholeCellsStandInTheCentre()
{
    QFETCH(QSize, widget);
    QFETCH(QSize, map);
    QFETCH(QSize, viewport);
    QFETCH(int, cellSize);

    QTEST(GridGeometry::centred(widget, map, viewport, cellSize), "expected");
}

void tst_GridGeometry::theFittingCellIsAtLeastOnePixel_data()
{
    QTest::addColumn<QSize>("widget");
    QTest::addColumn<QSize>("cells");
    QTest::addColumn<int>("expected");

    QTest::newRow("width decides") << QSize(400, 300) << QSize(10, 4) << 40;
    QTest::newRow("height decides") << QSize(400, 300) << QSize(6, 8) << 37;
    QTest::newRow("huge map") << QSize(400, 300) << QSize(1024, 1024) << 1;
}

void tst_GridGeometry::theFittingCellIsAtLeastOnePixel()
{
    QFETCH(QSize, widget);
    QFETCH(QSize, cells);

    QTEST(GridGeometry::fittingCellSize(widget, cells), "expected");
}

void tst_GridGeometry::widgetPointsBecomeCellsAndMapPixels_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QPoint>("cell");
    QTest::addColumn<QPoint>("mapPixel");

    QTest::newRow("corner") << QPoint(100, 50) << QPoint(3, 5) << QPoint(24, 40);
    QTest::newRow("last pixel of a cell") << QPoint(119, 69) << QPoint(3, 5) << QPoint(31, 47);
    QTest::newRow("next cell") << QPoint(120, 70) << QPoint(4, 6) << QPoint(32, 48);
    QTest::newRow("inside a cell") << QPoint(105, 57) << QPoint(3, 5) << QPoint(26, 42);
    QTest::newRow("left of the grid") << QPoint(95, 45) << QPoint(3, 5) << QPoint(22, 38);
    QTest::newRow("a cell left") << QPoint(79, 29) << QPoint(2, 4) << QPoint(16, 32);
}

void tst_GridGeometry::widgetPointsBecomeCellsAndMapPixels()
{
    const GridGeometry geometry{.gridRect = {100, 50, 200, 100}, .cellSize = 20, .scroll = {3, 5}};
    QFETCH(QPoint, point);

    QTEST(geometry.cellAt(point), "cell");
    QTEST(geometry.mapPixelAt(point), "mapPixel");
}

void tst_GridGeometry::mapPixelsBecomeWidgetPoints_data()
{
    QTest::addColumn<int>("cellSize");
    QTest::addColumn<QPoint>("mapPixel");
    QTest::addColumn<QPoint>("expected");

    QTest::newRow("corner") << 32 << QPoint(24, 40) << QPoint(100, 50);
    QTest::newRow("whole steps") << 32 << QPoint(25, 42) << QPoint(104, 58);
    QTest::newRow("half goes up") << 20 << QPoint(25, 41) << QPoint(103, 53);
    QTest::newRow("half goes down below zero") << 20 << QPoint(23, 39) << QPoint(97, 47);
    QTest::newRow("under half") << 9 << QPoint(26, 43) << QPoint(102, 53);
}

void tst_GridGeometry::mapPixelsBecomeWidgetPoints()
{
    QFETCH(int, cellSize);
    QFETCH(QPoint, mapPixel);
    const GridGeometry geometry{
        .gridRect = {100, 50, 200, 100}, .cellSize = cellSize, .scroll = {3, 5}};

    QTEST(geometry.fromMapPixel(mapPixel), "expected");
}

void tst_GridGeometry::cellsBecomeWidgetRectangles()
{
    const GridGeometry geometry{.gridRect = {100, 50, 200, 100}, .cellSize = 20, .scroll = {3, 5}};

    QCOMPARE(geometry.visibleCells(), QRect(3, 5, 10, 5));
    QCOMPARE(geometry.fromCells({4, 7, 2, 3}), QRect(120, 90, 40, 60));
    QCOMPARE(geometry.fromCells({2, 4, 1, 1}), QRect(80, 30, 20, 20));
}

void tst_GridGeometry::whatIsFarAwayStaysOffTheScreen_data()
{
    constexpr int Far = 1 << 28; // cells or map pixels, the most that a file gives
    QTest::addColumn<QPoint>("place");

    QTest::newRow("right") << QPoint(Far, 0);
    QTest::newRow("left") << QPoint(-Far, 0);
    QTest::newRow("below") << QPoint(0, Far);
    QTest::newRow("above") << QPoint(0, -Far);
}

void tst_GridGeometry::whatIsFarAwayStaysOffTheScreen()
{
    QFETCH(QPoint, place);
    const QRect screen(-10000, -10000, 20000, 20000);
    const QRect all(-(1 << 28), -(1 << 28), 1 << 29, 1 << 29);

    for (const int cellSize : {8, 32, 64, 128, 512}) {
        const GridGeometry geometry{
            .gridRect = {0, 0, 512, 512}, .cellSize = cellSize, .scroll = {}};
        QVERIFY(!screen.contains(geometry.fromMapPixel(place)));
        QVERIFY(!screen.intersects(geometry.fromCells({place, QSize(2, 2)})));
        QVERIFY(geometry.fromCells(all).contains(screen));
    }
}

void tst_GridGeometry::positionsRoundHalfAwayFromZero_data()
{
    constexpr auto Limits = std::numeric_limits<int>();
    QTest::addColumn<QPointF>("position");
    QTest::addColumn<QPoint>("expected");

    QTest::newRow("half") << QPointF(2.5, -2.5) << QPoint(3, -3);
    QTest::newRow("under half") << QPointF(2.4, -2.4) << QPoint(2, -2);
    QTest::newRow("beyond int") << QPointF(1e12, -1e12) << QPoint(Limits.max(), Limits.min());
}

void tst_GridGeometry::positionsRoundHalfAwayFromZero()
{
    QFETCH(QPointF, position);

    QTEST(MapEditor::wholePosition(position), "expected");
}

void tst_GridGeometry::snapTruncatesTowardsZero()
{
    QCOMPARE(MapEditor::snappedCell({7, -7}, 1), QPoint(7, -7));
    QCOMPARE(MapEditor::snappedCell({7, -7}, 4), QPoint(4, -4));
    QCOMPARE(MapEditor::snappedPixel({37, -37}, 1), QPoint(37, -37));
    QCOMPARE(MapEditor::snappedPixel({37, -37}, 2), QPoint(32, -32));
}

QTEST_GUILESS_MAIN(tst_GridGeometry)

#include "tst_GridGeometry.moc"
