#include "colour/SwatchGrid.h"

#include <QTest>

class tst_SwatchGrid : public QObject
{
    Q_OBJECT

private slots:
    void aCellIsFoundByItsPosition_data();
    void aCellIsFoundByItsPosition();
    void everyCellIsFoundInItsOwnRectangle();
    void theSizeHoldsAPartlyFilledRow();
    void cellsFitTheWidth_data();
    void cellsFitTheWidth();
    void keysStepAndStopAtTheBorder_data();
    void keysStepAndStopAtTheBorder();
};

namespace {

constexpr SwatchGrid Upright{8, 24, 16, Qt::Vertical};
constexpr SwatchGrid Turned{8, 24, 16, Qt::Horizontal};

} // namespace

void tst_SwatchGrid::aCellIsFoundByItsPosition_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<int>("upright");
    QTest::addColumn<int>("turned");
    QTest::newRow("the first pixel") << QPoint(0, 0) << 0 << 0;
    QTest::newRow("the first cell's last") << QPoint(23, 23) << 0 << 0;
    QTest::newRow("the next to the right") << QPoint(24, 0) << 1 << 8;
    QTest::newRow("the next below") << QPoint(0, 24) << 8 << 1;
    QTest::newRow("right of the row") << QPoint(192, 0) << -1 << -1;
    QTest::newRow("below the last row") << QPoint(0, 48) << -1 << 2;
    QTest::newRow("the last of the row") << QPoint(191, 47) << 15 << -1;
    QTest::newRow("above") << QPoint(3, -1) << -1 << -1;
    QTest::newRow("to the left") << QPoint(-1, 3) << -1 << -1;
}

void tst_SwatchGrid::aCellIsFoundByItsPosition()
{
    QFETCH(QPoint, position);
    QFETCH(int, upright);
    QFETCH(int, turned);

    QCOMPARE(Upright.cellAt(position), upright);
    QCOMPARE(Turned.cellAt(position), turned);
}

void tst_SwatchGrid::everyCellIsFoundInItsOwnRectangle()
{
    for (const SwatchGrid &grid : {Upright, Turned, SwatchGrid{5, 7, 16, Qt::Horizontal}}) {
        for (int cell = 0; cell < grid.count; ++cell) {
            QCOMPARE(grid.cellAt(grid.rectOf(cell).topLeft()), cell);
            QCOMPARE(grid.cellAt(grid.rectOf(cell).bottomRight()), cell);
        }
    }
}

void tst_SwatchGrid::theSizeHoldsAPartlyFilledRow()
{
    QCOMPARE(Upright.size(), QSize(192, 48));
    QCOMPARE(Turned.size(), QSize(48, 192));
    QCOMPARE((SwatchGrid{5, 10, 16, Qt::Vertical}.size()), QSize(50, 40));
}

void tst_SwatchGrid::cellsFitTheWidth_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("count");
    QTest::addColumn<QSize>("columnsAndSide");
    QTest::newRow("no width") << 0 << 256 << QSize(8, 8);
    QTest::newRow("narrow") << 127 << 256 << QSize(8, 15);
    QTest::newRow("smallest cells") << 128 << 256 << QSize(16, 8);
    QTest::newRow("a dock") << 300 << 256 << QSize(16, 18);
    QTest::newRow("double rows") << 512 << 256 << QSize(32, 16);
    QTest::newRow("four rows at most") << 1300 << 256 << QSize(64, 20);
    QTest::newRow("largest cells") << 4000 << 256 << QSize(64, 24);
    QTest::newRow("sixteen colours") << 300 << 16 << QSize(16, 18);
    QTest::newRow("sixteen, wide") << 900 << 16 << QSize(16, 24);
    QTest::newRow("sixteen, narrow") << 100 << 16 << QSize(8, 12);
    QTest::newRow("sixty-four") << 520 << 64 << QSize(32, 16);
}

void tst_SwatchGrid::cellsFitTheWidth()
{
    QFETCH(int, width);
    QFETCH(int, count);
    QFETCH(QSize, columnsAndSide);

    const SwatchGrid grid = SwatchGrid::fitting(width, count);

    QCOMPARE(QSize(grid.columns, grid.cellSide), columnsAndSide);
    QCOMPARE(grid.count, count);
}

void tst_SwatchGrid::keysStepAndStopAtTheBorder_data()
{
    QTest::addColumn<int>("cell");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("upright");
    QTest::addColumn<int>("turned");
    QTest::newRow("right") << 2 << int(Qt::Key_Right) << 3 << 10;
    QTest::newRow("left") << 2 << int(Qt::Key_Left) << 1 << 2;
    QTest::newRow("down") << 2 << int(Qt::Key_Down) << 10 << 3;
    QTest::newRow("up") << 9 << int(Qt::Key_Up) << 1 << 8;
    QTest::newRow("up at the border") << 0 << int(Qt::Key_Up) << 0 << 0;
    QTest::newRow("down at the border") << 15 << int(Qt::Key_Down) << 15 << 15;
    QTest::newRow("home") << 9 << int(Qt::Key_Home) << 0 << 0;
    QTest::newRow("end") << 9 << int(Qt::Key_End) << 15 << 15;
    QTest::newRow("another key") << 9 << int(Qt::Key_A) << -1 << -1;
}

void tst_SwatchGrid::keysStepAndStopAtTheBorder()
{
    QFETCH(int, cell);
    QFETCH(int, key);
    QFETCH(int, upright);
    QFETCH(int, turned);

    QCOMPARE(Upright.stepped(cell, key), upright);
    QCOMPARE(Turned.stepped(cell, key), turned);
}

QTEST_GUILESS_MAIN(tst_SwatchGrid)
#include "tst_SwatchGrid.moc"
