#include "editors/PickerFixture.h"

#include <QSignalSpy>
#include <QWheelEvent>

class tst_TilePickerGrid : public QObject
{
    Q_OBJECT

private slots:
    void itsHeightFollowsTheWidth_data();
    void itsHeightFollowsTheWidth();
    void withoutASetItIsTwoCellsHigh();
    void anEmptySetIsOneRowThatTakesNoClicks();
    void narrowerThanACellItHasOneColumn();
    void indexAtKnowsTheBorders_data();
    void indexAtKnowsTheBorders();
    void aClickPicksOnce();
    void theReleaseDecidesWhichTile();
    void selectingFromOutsideSendsNothing();
    void whoTellsOfAPickMovesTheSelection();
    void aDoubleClickTellsANumber();
    void theToolTipTellsIndexAndOffset();
    void leavingForgetsTheHoveredTile();
    void keysMoveThePick_data();
    void keysMoveThePick();
    void returnOpensThePickedTile();
    void theWheelScrollsUnlessControlIsHeld();
    void theMagnificationStaysInRange();
    void zoomingInFromTheStartGivesSeven();
    void theEntryOfTheMagnificationIsChecked();
    void choosingTheCheckedEntryKeepsIt();
    void theMenuHasItsEntries();
    void clearingEmptiesTheTile();
    void pastingNeedsACopy();
    void pastingCopiesTheTile();
    void insertingAndDeletingAreDoneAtTheTile();
    void anotherSetForgetsEverything();
    void restoringForgetsEverything();
    void itGrowsWithTheSet();
};

void tst_TilePickerGrid::itsHeightFollowsTheWidth_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");

    // 32 pixels a cell.
    QTest::newRow("part of a row") << 3 << 128 << 32;
    QTest::newRow("a full row has an empty one after it") << 4 << 128 << 64;
    QTest::newRow("more than a row") << 5 << 128 << 64;
    QTest::newRow("odd pixels") << 5 << 159 << 64;
    QTest::newRow("narrower than a cell") << 5 << 31 << 64;
    QTest::newRow("no width") << 5 << 0 << 64;
    QTest::newRow("no tiles") << 0 << 128 << 32;
}

void tst_TilePickerGrid::itsHeightFollowsTheWidth()
{
    QFETCH(int, count);
    QFETCH(int, width);
    QFETCH(int, height);
    TileSet set(nullptr, count);
    TilePickerGrid grid;
    grid.setMagnification(4);
    grid.setTileSet(&set);

    QCOMPARE(grid.heightForWidth(width), height);

    grid.resize(width, 7);
    QCOMPARE(grid.sizeHint(), QSize(width, height));
}

void tst_TilePickerGrid::withoutASetItIsTwoCellsHigh()
{
    TilePickerGrid grid;

    QCOMPARE(grid.heightForWidth(500), 6 * 16);
    QVERIFY(grid.hasHeightForWidth());
    QVERIFY(grid.sizePolicy().hasHeightForWidth());
}

void tst_TilePickerGrid::anEmptySetIsOneRowThatTakesNoClicks()
{
    PickerFixture fixture(0);
    QSignalSpy picked(&fixture.grid, &TilePickerGrid::selectedIndexChanged);
    QSignalSpy opened(&fixture.grid, &TilePickerGrid::itemDoubleClicked);

    fixture.click(0);
    QTest::mouseDClick(&fixture.grid, Qt::LeftButton, {}, fixture.at(0));
    fixture.click(0, Qt::RightButton);

    QCOMPARE(fixture.grid.heightForWidth(128), 32);
    QCOMPARE(picked.count(), 0);
    QCOMPARE(opened.count(), 0);
    QVERIFY(!fixture.menu());
    QCOMPARE(fixture.colourAt(fixture.at(0)), QColor(Qt::black));
}

void tst_TilePickerGrid::narrowerThanACellItHasOneColumn()
{
    PickerFixture fixture(3);
    fixture.grid.resize(20, 96);

    QCOMPARE(fixture.grid.columns(), 1);
    QCOMPARE(fixture.grid.indexAt({10, 70}), 2);
    QCOMPARE(fixture.grid.cellRect(2), QRect(0, 64, 32, 32));
}

void tst_TilePickerGrid::indexAtKnowsTheBorders_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<int>("index");

    // Ten tiles in four columns of 32 pixels, in a grid 140 wide.
    QTest::newRow("top left") << QPoint(0, 0) << 0;
    QTest::newRow("the gap belongs to the tile before") << QPoint(31, 31) << 0;
    QTest::newRow("next column") << QPoint(32, 0) << 1;
    QTest::newRow("next row") << QPoint(0, 32) << 4;
    QTest::newRow("last tile") << QPoint(63, 95) << 9;
    QTest::newRow("behind the last tile") << QPoint(64, 95) << -1;
    QTest::newRow("right of the columns") << QPoint(128, 0) << -1;
    QTest::newRow("below the rows") << QPoint(0, 96) << -1;
    QTest::newRow("negative x") << QPoint(-1, 0) << -1;
    QTest::newRow("negative y") << QPoint(0, -1) << -1;
}

void tst_TilePickerGrid::indexAtKnowsTheBorders()
{
    QFETCH(QPoint, position);
    QFETCH(int, index);
    PickerFixture fixture;
    fixture.grid.resize(140, 128);

    QCOMPARE(fixture.grid.indexAt(position), index);
}

void tst_TilePickerGrid::aClickPicksOnce()
{
    PickerFixture fixture;
    QSignalSpy picked(&fixture.grid, &TilePickerGrid::selectedIndexChanged);

    fixture.click(6);
    fixture.click(6);
    fixture.click(11);
    fixture.click(0, Qt::MiddleButton);

    QCOMPARE(picked, QList<QVariantList>{{6}});
    QCOMPARE(fixture.grid.selectedIndex(), 6);
}

void tst_TilePickerGrid::theReleaseDecidesWhichTile()
{
    PickerFixture fixture;

    QTest::mousePress(&fixture.grid, Qt::LeftButton, {}, fixture.at(1));
    QTest::mouseRelease(&fixture.grid, Qt::LeftButton, {}, fixture.at(2));

    QCOMPARE(fixture.grid.selectedIndex(), 2);
}

void tst_TilePickerGrid::selectingFromOutsideSendsNothing()
{
    PickerFixture fixture;
    QSignalSpy picked(&fixture.grid, &TilePickerGrid::selectedIndexChanged);

    fixture.grid.setSelectedIndex(3);
    QCOMPARE(fixture.grid.selectedIndex(), 3);
    fixture.grid.setSelectedIndex(10);
    QCOMPARE(fixture.grid.selectedIndex(), -1);

    QCOMPARE(picked.count(), 0);
}

void tst_TilePickerGrid::whoTellsOfAPickMovesTheSelection()
{
    PickerFixture fixture;

    emit fixture.grid.selectedIndexChanged(5);

    QCOMPARE(fixture.grid.selectedIndex(), 5);
}

void tst_TilePickerGrid::aDoubleClickTellsANumber()
{
    PickerFixture fixture;
    QSignalSpy opened(&fixture.grid, &TilePickerGrid::itemDoubleClicked);

    QTest::mouseDClick(&fixture.grid, Qt::LeftButton, {}, fixture.at(9));
    QTest::mouseDClick(&fixture.grid, Qt::LeftButton, {}, fixture.at(10));

    QCOMPARE(opened, QList<QVariantList>{{10}});
}

void tst_TilePickerGrid::theToolTipTellsIndexAndOffset()
{
    PickerFixture fixture;
    fixture.tiles.set->tile(5)->setOffset(3);

    fixture.hover(5);
    QCOMPARE(fixture.grid.hoverIndex(), 5);
    QCOMPARE(fixture.grid.toolTip(), QString("Index: 5\nPalette Offset: 3"));

    fixture.hover(11);
    QCOMPARE(fixture.grid.hoverIndex(), -1);
    QCOMPARE(fixture.grid.toolTip(), QString());
}

void tst_TilePickerGrid::leavingForgetsTheHoveredTile()
{
    PickerFixture fixture;
    fixture.hover(5);

    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&fixture.grid, &leave);

    QCOMPARE(fixture.grid.hoverIndex(), -1);
}

void tst_TilePickerGrid::keysMoveThePick_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("to");

    QTest::newRow("left") << 5 << int(Qt::Key_Left) << 4;
    QTest::newRow("left of the first") << 0 << int(Qt::Key_Left) << 0;
    QTest::newRow("right") << 5 << int(Qt::Key_Right) << 6;
    QTest::newRow("right of the last") << 9 << int(Qt::Key_Right) << 9;
    QTest::newRow("up") << 5 << int(Qt::Key_Up) << 1;
    QTest::newRow("up from the first row") << 2 << int(Qt::Key_Up) << 2;
    QTest::newRow("down") << 5 << int(Qt::Key_Down) << 9;
    QTest::newRow("down from the last row") << 7 << int(Qt::Key_Down) << 9;
    QTest::newRow("home") << 5 << int(Qt::Key_Home) << 0;
    QTest::newRow("end") << 5 << int(Qt::Key_End) << 9;
    QTest::newRow("first pick") << -1 << int(Qt::Key_Down) << 0;
}

void tst_TilePickerGrid::keysMoveThePick()
{
    QFETCH(int, from);
    QFETCH(int, key);
    QFETCH(int, to);
    PickerFixture fixture;
    fixture.grid.setSelectedIndex(from);
    QSignalSpy picked(&fixture.grid, &TilePickerGrid::selectedIndexChanged);

    QTest::keyClick(&fixture.grid, Qt::Key(key));

    QCOMPARE(fixture.grid.selectedIndex(), to);
    QCOMPARE(picked.count(), from == to ? 0 : 1);
}

void tst_TilePickerGrid::returnOpensThePickedTile()
{
    PickerFixture fixture;
    QSignalSpy opened(&fixture.grid, &TilePickerGrid::itemDoubleClicked);

    QTest::keyClick(&fixture.grid, Qt::Key_Return);
    fixture.grid.setSelectedIndex(4);
    QTest::keyClick(&fixture.grid, Qt::Key_Return);
    fixture.grid.setSelectedIndex(9);
    fixture.tiles.set->deleteTile(9);
    QTest::keyClick(&fixture.grid, Qt::Key_Return);

    QCOMPARE(opened, QList<QVariantList>{{5}});
}

void tst_TilePickerGrid::theWheelScrollsUnlessControlIsHeld()
{
    PickerFixture fixture;
    const auto turn = [&fixture](int delta, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event(fixture.at(0), fixture.globalAt(0), {}, {0, delta}, Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&fixture.grid, &event);
        return event.isAccepted();
    };

    QVERIFY(!turn(120, Qt::NoModifier));
    QCOMPARE(fixture.grid.magnification(), 4);
    QVERIFY(turn(120, Qt::ControlModifier));
    QCOMPARE(fixture.grid.magnification(), 5);
    QVERIFY(turn(-120, Qt::ControlModifier));
    QVERIFY(turn(-120, Qt::ControlModifier));
    QCOMPARE(fixture.grid.magnification(), 3);
}

void tst_TilePickerGrid::theMagnificationStaysInRange()
{
    TilePickerGrid grid;
    QCOMPARE(grid.magnification(), 6);

    grid.setMagnification(17);
    QCOMPARE(grid.magnification(), 16);
    grid.zoomActions().at(0)->trigger();
    QCOMPARE(grid.magnification(), 16);

    grid.setMagnification(0);
    QCOMPARE(grid.magnification(), 1);
    grid.zoomActions().at(1)->trigger();
    QCOMPARE(grid.magnification(), 1);
}

void tst_TilePickerGrid::zoomingInFromTheStartGivesSeven()
{
    TilePickerGrid grid;

    grid.zoomActions().at(0)->trigger();

    QCOMPARE(grid.magnification(), 7);
}

void tst_TilePickerGrid::theEntryOfTheMagnificationIsChecked()
{
    TilePickerGrid grid;
    const auto checked = [&grid] {
        QStringList texts;
        for (const QAction *action : grid.zoomActions()) {
            if (action->isChecked())
                texts += action->text();
        }
        return texts;
    };

    QCOMPARE(checked(), QStringList());
    grid.setMagnification(8);
    QCOMPARE(checked(), QStringList("8x"));
    grid.setMagnification(7);
    QCOMPARE(checked(), QStringList());
    grid.zoomActions().at(4)->trigger();
    QCOMPARE(checked(), QStringList("2x"));
    QCOMPARE(grid.magnification(), 2);
}

void tst_TilePickerGrid::choosingTheCheckedEntryKeepsIt()
{
    TilePickerGrid grid;
    QAction *const four = grid.zoomActions().at(5);

    four->trigger();
    four->trigger();

    QCOMPARE(grid.magnification(), 4);
    QVERIFY(four->isChecked());
}

void tst_TilePickerGrid::theMenuHasItsEntries()
{
    PickerFixture fixture;

    fixture.click(2, Qt::RightButton);
    QStringList texts;
    for (const QAction *action : fixture.menu()->actions())
        texts += action->isSeparator() ? QString("-") : action->text();
    fixture.menu()->hide();

    QCOMPARE(texts, QStringList({"Zoom In", "Zoom Out", "-", "1x", "2x", "4x", "8x", "16x", "-",
                                 "Clear", "Copy Image", "Paste Image", "Insert", "Delete"}));
    QCOMPARE(fixture.grid.selectedIndex(), -1);
}

void tst_TilePickerGrid::clearingEmptiesTheTile()
{
    PickerFixture fixture;

    fixture.choose(2, "Clear");

    QCOMPARE(fixture.tiles.set->tile(2)->image().pixelIndex(0, 0), 0);
    QCOMPARE(fixture.order().size(), 10);
}

void tst_TilePickerGrid::pastingNeedsACopy()
{
    PickerFixture fixture;
    QSignalSpy changed(fixture.tiles.set.get(), &TileSet::structureChanged);

    fixture.choose(2, "Paste Image");

    QCOMPARE(changed.count(), 0);
}

void tst_TilePickerGrid::pastingCopiesTheTile()
{
    PickerFixture fixture;
    fixture.tiles.set->tile(7)->setOffset(5);
    QSignalSpy changed(fixture.tiles.set.get(), &TileSet::structureChanged);

    fixture.choose(7, "Copy Image");
    fixture.choose(2, "Paste Image");

    QCOMPARE(fixture.grid.copiedIndex(), 7);
    QCOMPARE(fixture.tiles.set->tile(2)->image().pixelIndex(0, 0), 7);
    QCOMPARE(fixture.tiles.set->tile(2)->offset(), 5);
    QCOMPARE(changed, QList<QVariantList>{{"Copy Tile"}});
}

void tst_TilePickerGrid::insertingAndDeletingAreDoneAtTheTile()
{
    PickerFixture fixture(4);

    fixture.choose(2, "Insert");
    QCOMPARE(fixture.order(), QList<int>({0, 1, 0, 2, 3}));
    fixture.choose(1, "Delete");
    QCOMPARE(fixture.order(), QList<int>({0, 0, 2, 3}));
}

void tst_TilePickerGrid::anotherSetForgetsEverything()
{
    PickerFixture fixture;
    TileSet other(nullptr, 3);
    fixture.choose(7, "Copy Image");
    fixture.click(7);
    fixture.hover(7);

    fixture.grid.setTileSet(&other);

    QCOMPARE(fixture.grid.selectedIndex(), -1);
    QCOMPARE(fixture.grid.hoverIndex(), -1);
    QCOMPARE(fixture.grid.copiedIndex(), -1);
    QCOMPARE(fixture.grid.dropIndex(), -1);
    QCOMPARE(fixture.grid.size(), QSize(128, 32));
    fixture.grid.setSelectedIndex(0);
    fixture.tiles.set->notifyRestored();
    QCOMPARE(fixture.grid.selectedIndex(), 0);
}

void tst_TilePickerGrid::restoringForgetsEverything()
{
    PickerFixture fixture;
    fixture.click(7);
    fixture.choose(7, "Copy Image");
    const TileSet::State state = TileSet(nullptr, 5).state();

    fixture.tiles.set->restore(state);
    fixture.tiles.set->notifyRestored();

    QCOMPARE(fixture.grid.selectedIndex(), -1);
    QCOMPARE(fixture.grid.copiedIndex(), -1);
    QCOMPARE(fixture.grid.size(), QSize(128, 64));
}

void tst_TilePickerGrid::itGrowsWithTheSet()
{
    PickerFixture fixture(3);
    QCOMPARE(fixture.grid.sizeHint(), QSize(128, 32));

    fixture.tiles.set->insertTile(0);

    QCOMPARE(fixture.grid.size(), QSize(128, 64));
}

QTEST_MAIN(tst_TilePickerGrid)
#include "tst_TilePickerGrid.moc"
