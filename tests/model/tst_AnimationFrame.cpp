#include "model/AnimationFrame.h"

#include <QSignalSpy>
#include <QTest>

class tst_AnimationFrame : public QObject
{
    Q_OBJECT

private slots:
    void aNewFrameHasOneZeroCellAndItsOwnId();
    void cellsOutsideTheFrameAreZero();
    void writingACellOutsideChangesNothing();
    void growingKeepsCellsAndAddsZeroOnes();
    void shrinkingLosesTheCutCells();
    void aNegativeSizeLeavesNoCells();
    void notifyingSendsTheOwnId();
};

void tst_AnimationFrame::aNewFrameHasOneZeroCellAndItsOwnId()
{
    const AnimationFrame frame;
    const AnimationFrame other;

    QCOMPARE(frame.cells().size(), 1);
    QCOMPARE(frame.cells().first().size(), 1);
    QCOMPARE(frame.cell({0, 0}), AnimationFrame::Cell());
    QVERIFY(!frame.id().isNull());
    QVERIFY(frame.id() != other.id());
}

void tst_AnimationFrame::cellsOutsideTheFrameAreZero()
{
    AnimationFrame frame;
    frame.setCell({0, 0}, {.index = 7});

    QCOMPARE(frame.cell({0, 0}).index, 7);
    QCOMPARE(frame.cell({-1, 0}), AnimationFrame::Cell());
    QCOMPARE(frame.cell({0, -1}), AnimationFrame::Cell());
    QCOMPARE(frame.cell({1, 0}), AnimationFrame::Cell());
    QCOMPARE(frame.cell({0, 1}), AnimationFrame::Cell());
}

void tst_AnimationFrame::writingACellOutsideChangesNothing()
{
    AnimationFrame frame;
    const AnimationFrame::Cells before = frame.cells();

    for (const QPoint position : {QPoint(-1, 0), QPoint(0, -1), QPoint(1, 0), QPoint(0, 1)})
        frame.setCell(position, {.index = 7});

    QCOMPARE(frame.cells(), before);
}

void tst_AnimationFrame::growingKeepsCellsAndAddsZeroOnes()
{
    AnimationFrame frame;
    const AnimationFrame::Cell cell{3, 2, true, false, true};
    frame.setCell({0, 0}, cell);

    frame.resize({3, 2});

    const AnimationFrame::Cell zero;
    QCOMPARE(frame.cells(), (AnimationFrame::Cells{{cell, zero, zero}, {zero, zero, zero}}));
}

void tst_AnimationFrame::shrinkingLosesTheCutCells()
{
    AnimationFrame frame;
    frame.resize({2, 2});
    for (const QPoint position : {QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(1, 1)})
        frame.setCell(position, {.index = 9});

    frame.resize({1, 1});
    frame.resize({2, 2});

    const AnimationFrame::Cell zero;
    QCOMPARE(frame.cells(), (AnimationFrame::Cells{{{.index = 9}, zero}, {zero, zero}}));
}

void tst_AnimationFrame::aNegativeSizeLeavesNoCells()
{
    AnimationFrame frame;

    frame.resize({-3, -1});

    QVERIFY(frame.cells().isEmpty());
}

void tst_AnimationFrame::notifyingSendsTheOwnId()
{
    AnimationFrame frame;
    QSignalSpy changed(&frame, &AnimationFrame::frameChanged);

    frame.setCell({0, 0}, {.index = 1});
    frame.resize({2, 2});
    frame.setCells({});
    QCOMPARE(changed.count(), 0);
    frame.notifyChanged();

    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toUuid(), frame.id());
}

QTEST_GUILESS_MAIN(tst_AnimationFrame)
#include "tst_AnimationFrame.moc"
