#include "colour/PaletteGrid.h"

#include "model/Palette.h"
#include "support/PaintCounter.h"
#include "support/Screen.h"

#include <QSignalSpy>
#include <QTest>

class tst_PaletteGrid : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void paintsASquareForEachEntry();
    void anEmptyGridIsPlain();
    void framesTheSelectedRun();
    void theFramesAreDotted();
    void aDisabledGridShowsNoSelection();
    void aChangedColourIsRepainted();
    void onlyTheChangedCellIsRepainted();
    void theSelectionIsRepainted();
    void aPressSelectsOneEntry();
    void aDragSelectsTheRunBetween();
    void aDragBeyondTheBorderEndsAtIt();
    void theRunShowsDuringADrag();
    void aMoveAloneTellsNothing();
    void arrowsMoveTheSelection();
    void shiftStretchesTheRun();
    void theFirstKeySelectsTheFirstEntry();
    void settingTheSelectionTellsNothing();
    void aDeadPaletteLeavesAnEmptyGrid();
    void aDeadPaletteLeavesTheScreen();
    void aFormerPaletteIsNotHeard();

private:
    static QPoint middleOf(int index) { return {index % 16 * 16 + 7, index / 16 * 16 + 7}; }
    QColor pixel(int x, int y) { return m_grid->grab().toImage().pixelColor(x, y); }
    int whitePixels(const QRect &area);
    bool hasWhite(const QRect &area) { return whitePixels(area) > 0; }

    std::unique_ptr<Palette> m_palette;
    std::unique_ptr<PaletteGrid> m_grid;
};

namespace {

const QColor Background(88, 88, 88);

} // namespace

void tst_PaletteGrid::init()
{
    m_palette = std::make_unique<Palette>();
    m_palette->setColour(17, Qt::red, false);
    m_palette->setColour(255, Qt::green, false);
    m_grid = std::make_unique<PaletteGrid>();
    m_grid->setPalette(QPointer<Palette>(m_palette.get()));
}

int tst_PaletteGrid::whitePixels(const QRect &area)
{
    const QImage image = m_grid->grab(area).toImage();
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            pixels += image.pixelColor(x, y) == QColor(Qt::white);
    }
    return pixels;
}

void tst_PaletteGrid::paintsASquareForEachEntry()
{
    const QImage image = m_grid->grab().toImage();

    QCOMPARE(image.size(), QSize(256, 256));
    QCOMPARE(image.pixelColor(16, 16), QColor(255, 0, 0));
    QCOMPARE(image.pixelColor(30, 30), QColor(255, 0, 0));
    QCOMPARE(image.pixelColor(31, 30), Background);
    QCOMPARE(image.pixelColor(30, 31), Background);
    QCOMPARE(image.pixelColor(15, 16), Background);
    QCOMPARE(image.pixelColor(254, 254), QColor(0, 255, 0));
    QCOMPARE(image.pixelColor(255, 255), Background);
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::black));
}

void tst_PaletteGrid::anEmptyGridIsPlain()
{
    m_grid->setPalette(QPointer<Palette>());

    QCOMPARE(pixel(20, 20), Background);
}

void tst_PaletteGrid::framesTheSelectedRun()
{
    QVERIFY(!hasWhite(m_grid->rect()));

    m_grid->setSelection(17, 18);

    QVERIFY(hasWhite({16, 16, 16, 1}));
    QVERIFY(hasWhite({16, 31, 16, 1}));
    QVERIFY(hasWhite({32, 16, 1, 16}));
    QVERIFY(hasWhite({47, 16, 1, 16}));
    QVERIFY(!hasWhite({17, 17, 14, 14}));
    QVERIFY(!hasWhite({48, 0, 16, 64}));
    QVERIFY(!hasWhite({0, 0, 16, 64}));
}

void tst_PaletteGrid::theFramesAreDotted()
{
    m_grid->setSelection(17, 18);

    // Each of the two cells has a frame of its own, of which about every second pixel is a dot.
    for (const QRect &edge : {QRect(16, 16, 16, 1), QRect(32, 16, 16, 1), QRect(16, 31, 16, 1),
                              QRect(16, 16, 1, 16), QRect(31, 16, 1, 16), QRect(32, 16, 1, 16)}) {
        QVERIFY(whitePixels(edge) >= 4);
        QVERIFY(whitePixels(edge) <= 12);
    }
}

void tst_PaletteGrid::aDisabledGridShowsNoSelection()
{
    m_grid->setSelection(17, 18);
    m_grid->setEnabled(false);

    QVERIFY(!hasWhite(m_grid->rect()));
}

void tst_PaletteGrid::aChangedColourIsRepainted()
{
    m_grid->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_grid.get()));

    m_palette->setColour(40, Qt::blue, false);

    QCOMPARE(pixel(middleOf(40).x(), middleOf(40).y()), QColor(0, 0, 255));
}

void tst_PaletteGrid::onlyTheChangedCellIsRepainted()
{
    m_grid->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_grid.get()));

    const PaintCounter edited(*m_grid);
    m_palette->setColour(40, Qt::blue, false);
    QTRY_COMPARE(edited.count(), 1);
    QCOMPARE(edited.region(), QRegion(8 * 16, 2 * 16, 16, 16));

    const PaintCounter told(*m_grid);
    m_grid->updateColour(17, Qt::red);
    QTRY_COMPARE(told.count(), 1);
    QCOMPARE(told.region(), QRegion(16, 16, 16, 16));
}

void tst_PaletteGrid::theSelectionIsRepainted()
{
    m_grid->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_grid.get()));
    const PaintCounter paints(*m_grid);

    m_grid->setSelection(17, 18);
    QTRY_COMPARE(paints.count(), 1);
    QTest::mousePress(m_grid.get(), Qt::LeftButton, {}, middleOf(40));
    QTRY_COMPARE(paints.count(), 2);
    QTest::mouseMove(m_grid.get(), middleOf(42));
    QTRY_COMPARE(paints.count(), 3);
    m_palette.reset();
    QTRY_COMPARE(paints.count(), 4);
}

void tst_PaletteGrid::aPressSelectsOneEntry()
{
    QSignalSpy selected(m_grid.get(), &PaletteGrid::selectionChanged);

    QTest::mousePress(m_grid.get(), Qt::LeftButton, {}, {33, 31});
    QCOMPARE(selected, (QList<QVariantList>{{18, 18}}));

    QTest::mouseRelease(m_grid.get(), Qt::LeftButton, {}, {33, 31});
    QCOMPARE(selected.count(), 2);
    QCOMPARE(selected.at(1), (QVariantList{18, 18}));
}

void tst_PaletteGrid::aDragSelectsTheRunBetween()
{
    QSignalSpy selected(m_grid.get(), &PaletteGrid::selectionChanged);

    QTest::mousePress(m_grid.get(), Qt::LeftButton, {}, middleOf(40));
    QTest::mouseMove(m_grid.get(), middleOf(30));
    QTest::mouseRelease(m_grid.get(), Qt::LeftButton, {}, middleOf(17));

    QCOMPARE(selected, (QList<QVariantList>{{40, 40}, {17, 40}}));
    QCOMPARE(m_grid->first(), 17);
    QCOMPARE(m_grid->last(), 40);
}

void tst_PaletteGrid::aDragBeyondTheBorderEndsAtIt()
{
    QSignalSpy selected(m_grid.get(), &PaletteGrid::selectionChanged);

    QTest::mousePress(m_grid.get(), Qt::LeftButton, {}, middleOf(40));
    QTest::mouseRelease(m_grid.get(), Qt::LeftButton, {}, {900, 900});
    QCOMPARE(selected.last(), (QVariantList{40, 255}));

    QTest::mousePress(m_grid.get(), Qt::LeftButton, {}, middleOf(40));
    QTest::mouseRelease(m_grid.get(), Qt::LeftButton, {}, {-90, -1});
    QCOMPARE(selected.last(), (QVariantList{0, 40}));
}

void tst_PaletteGrid::theRunShowsDuringADrag()
{
    QTest::mousePress(m_grid.get(), Qt::LeftButton, {}, middleOf(40));
    QTest::mouseMove(m_grid.get(), middleOf(42));

    QVERIFY(hasWhite(QRect(10 * 16, 2 * 16, 16, 16)));
}

void tst_PaletteGrid::aMoveAloneTellsNothing()
{
    QTest::mousePress(m_grid.get(), Qt::LeftButton, {}, middleOf(40));
    QSignalSpy selected(m_grid.get(), &PaletteGrid::selectionChanged);

    QTest::mouseMove(m_grid.get(), middleOf(42));

    QCOMPARE(selected.count(), 0);
}

void tst_PaletteGrid::arrowsMoveTheSelection()
{
    m_grid->setSelection(17, 19);
    QSignalSpy selected(m_grid.get(), &PaletteGrid::selectionChanged);

    QTest::keyClick(m_grid.get(), Qt::Key_Right);
    QTest::keyClick(m_grid.get(), Qt::Key_Down);
    QTest::keyClick(m_grid.get(), Qt::Key_Home);

    QCOMPARE(selected, (QList<QVariantList>{{20, 20}, {36, 36}, {0, 0}}));
}

void tst_PaletteGrid::shiftStretchesTheRun()
{
    m_grid->setSelection(17, 17);
    QSignalSpy selected(m_grid.get(), &PaletteGrid::selectionChanged);

    QTest::keyClick(m_grid.get(), Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(m_grid.get(), Qt::Key_Up, Qt::ShiftModifier);

    QCOMPARE(selected, (QList<QVariantList>{{17, 18}, {2, 17}}));
}

void tst_PaletteGrid::theFirstKeySelectsTheFirstEntry()
{
    QSignalSpy selected(m_grid.get(), &PaletteGrid::selectionChanged);

    QTest::keyClick(m_grid.get(), Qt::Key_Right);
    QTest::keyClick(m_grid.get(), Qt::Key_A);

    QCOMPARE(selected, (QList<QVariantList>{{0, 0}}));
}

void tst_PaletteGrid::settingTheSelectionTellsNothing()
{
    QSignalSpy selected(m_grid.get(), &PaletteGrid::selectionChanged);

    m_grid->setSelection(17, 20);

    QCOMPARE(selected.count(), 0);
    QCOMPARE(m_grid->first(), 17);
    QCOMPARE(m_grid->last(), 20);
}

void tst_PaletteGrid::aDeadPaletteLeavesAnEmptyGrid()
{
    m_palette.reset();

    QCOMPARE(pixel(20, 20), Background);
}

void tst_PaletteGrid::aDeadPaletteLeavesTheScreen()
{
    m_grid->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_grid.get()));
    QCOMPARE(Screen::staleParts(), QStringList());

    m_palette.reset();

    QCOMPARE(Screen::staleParts(), QStringList());
}

void tst_PaletteGrid::aFormerPaletteIsNotHeard()
{
    Palette other;
    m_grid->setPalette(&other);
    m_grid->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_grid.get()));
    PaintCounter paints(*m_grid);

    m_palette->setColour(3, Qt::red, false);

    QCoreApplication::processEvents();
    QCOMPARE(paints.count(), 0);
}

QTEST_MAIN(tst_PaletteGrid)
#include "tst_PaletteGrid.moc"
