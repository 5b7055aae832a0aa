#include "FurnishedGrid.h"
#include "model/Palette.h"
#include "model/Tile.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>

using MapEditor::MapGrid;
using Tool = Tessaril::Ui::ToolButton;

/// The rarer turns of the tools of a map: snapping, hiding, refusing, previewing.
class tst_MapToolEdges : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_shown = std::make_unique<FurnishedGrid>(); }
    void cleanup() { m_shown.reset(); }

    void snapCountsFromTheViewForPaint();
    void snapCountsFromTheMapForObjects();
    void aStrokeFromElsewhereCrossesAPlacedObject();
    void aBlockedToolShowsNoHandOverObjects();
    void ofTwoObjectsTheEarlierIsHovered();
    void aTileBeyondTheSetIsPaintedWithoutOffset();
    void thePreviewTurnsLikeTheTile();
    void noTileIsPreviewedOverObjects();
    void eitherButtonPlacesAnObject();
    void anObjectIsPlacedOncePerStroke();
    void pastingCentresOddBlocksAndSnaps();
    void pastingIntoAHiddenLayerChangesNothing();
    void theRightButtonPastesToo();
    void aPastedBlockKeepsUnoccupiedCells();
    void pickingOutsideGivesZerosAndGoesBack();
    void onlyTheLeftButtonPicks();
    void thePickerPointsWithItsTip();
    void aShortPullOnASpriteIsAClick();
    void aSpriteBroughtBackIsNoStepAndNoClick();
    void snapOfADragKeepsTheSignOfTheRemainder();
    void aSelectionRunsBeyondTheGridByFloor();
    void shiftInSelectionModeIsSentOnce();
    void activatingSelectDropsTheSelection();

private:
    MapGrid &grid() const { return m_shown->grid; }
    Map &map() const { return *m_shown->map; }
    static QPoint at(int x, int y) { return ShownGrid::at(x, y); }
    QPoint inView(int x, int y) const
    {
        return grid().cellGeometry().gridRect.topLeft() + QPoint(32 * x + 16, 32 * y + 16);
    }
    void copyToClipboard(QRect cells);

    std::unique_ptr<FurnishedGrid> m_shown;
};

void tst_MapToolEdges::copyToClipboard(QRect cells)
{
    grid().setSelection(cells);
    grid().copySelection();
}

void tst_MapToolEdges::snapCountsFromTheViewForPaint()
{
    grid().resize(100, 80); // 3 by 2 cells
    grid().setHorizontalScrollPosition(1);
    grid().setSnapToSize(2);
    grid().setCurrentTileIndex(5);

    m_shown->click(inView(1, 0)); // offset 1 is 0 of the view, so cell 1
    QCOMPARE(m_shown->tileAt(1, 0), 5);
    m_shown->click(inView(2, 0)); // offset 2, so cell 3

    QCOMPARE(m_shown->tileAt(3, 0), 5);
    QCOMPARE(m_shown->tileAt(2, 0), 1);
    QCOMPARE(m_shown->tileAt(0, 0), 1);
}

void tst_MapToolEdges::snapCountsFromTheMapForObjects()
{
    grid().resize(100, 80);
    grid().setHorizontalScrollPosition(1);
    grid().setSnapToSize(2);
    grid().setCurrentTileAnimation(m_shown->door);

    m_shown->click(inView(2, 1)); // cell 3, which the map's own snap makes 2

    QCOMPARE(map().animatedBlocks()->find({2, 0, 2, 1}), m_shown->door->id());
}

void tst_MapToolEdges::aStrokeFromElsewhereCrossesAPlacedObject()
{
    map().addAnimation({.id = m_shown->door->id(), .rect = {2, 1, 2, 1}});
    grid().setCurrentTileIndex(5);

    m_shown->move(at(1, 1));
    m_shown->press(at(1, 1));
    m_shown->move(at(2, 1), Qt::LeftButton);
    m_shown->release(at(2, 1));

    QCOMPARE(m_shown->tileAt(2, 1), 5);
}

void tst_MapToolEdges::aBlockedToolShowsNoHandOverObjects()
{
    map().addAnimation({.id = m_shown->door->id(), .rect = {2, 1, 2, 1}});
    grid().setMapVisibility(false);

    m_shown->move(at(2, 1));
    QCOMPARE(grid().cursor().shape(), Qt::ForbiddenCursor);
    grid().setMode(Tool::PlaceAnim);
    m_shown->move(at(2, 1));
    QCOMPARE(grid().cursor().shape(), Qt::SizeAllCursor);
    m_shown->move(at(1, 1));

    QCOMPARE(grid().cursor().shape(), Qt::OpenHandCursor);
}

void tst_MapToolEdges::ofTwoObjectsTheEarlierIsHovered()
{
    map().addAnimation({.id = m_shown->door->id(), .rect = {2, 1, 2, 1}});
    map().addAnimation({.id = m_shown->door->id(), .rect = {1, 0, 3, 3}});
    m_shown->move(at(2, 1));

    grid().deleteHovered();

    QVERIFY(map().animatedBlocks()->find({2, 1, 2, 1}).isNull());
    QVERIFY(!map().animatedBlocks()->find({1, 0, 3, 3}).isNull());
}

void tst_MapToolEdges::aTileBeyondTheSetIsPaintedWithoutOffset()
{
    grid().setCurrentTileIndex(99);
    const QColor before = m_shown->pixel(at(1, 1));
    m_shown->move(at(1, 1));
    QCOMPARE(m_shown->pixel(at(1, 1)), before);

    m_shown->click(at(1, 1));

    QVERIFY(map().tileLayer()->cell({1, 1}) == TestMaps::cell(99, 0));
}

void tst_MapToolEdges::thePreviewTurnsLikeTheTile()
{
    TileSet &set = *m_shown->tiles.set;
    QImage marked = set.tile(5)->image();
    marked.setPixel(0, 0, 9);
    set.tile(5)->setImage(marked);
    set.tile(5)->setOffset(2);
    grid().setCurrentTileIndex(5);
    const auto corners = [this] {
        const QPoint first = ShownGrid::Corner + QPoint(64 + 2, 64 + 2);
        QList<QColor> colours;
        for (const QPoint corner : {QPoint(0, 0), QPoint(27, 0), QPoint(0, 27), QPoint(27, 27)})
            colours.append(m_shown->pixel(first + corner));
        return colours;
    };
    const QColor mark = set.tileImage(5, false, false, false, 2).pixelColor(0, 0);
    const QColor plain = set.tileImage(5, false, false, false, 2).pixelColor(1, 0);
    QVERIFY(mark != plain);
    m_shown->move(at(2, 2));

    QCOMPARE(corners(), QList<QColor>({mark, plain, plain, plain}));
    grid().setOrientation(true, false, false);
    QCOMPARE(corners(), QList<QColor>({plain, mark, plain, plain}));
    grid().setOrientation(false, true, false);
    QCOMPARE(corners(), QList<QColor>({plain, plain, mark, plain}));
    grid().setOrientation(false, true, true);
    QCOMPARE(corners(), QList<QColor>({plain, plain, plain, mark}));
}

void tst_MapToolEdges::noTileIsPreviewedOverObjects()
{
    map().addAnimation({.id = m_shown->door->id(), .rect = {2, 1, 2, 1}});
    grid().setCurrentTileIndex(5);
    const QColor before = m_shown->pixel(at(2, 1));

    m_shown->move(at(2, 1));
    QCOMPARE(m_shown->pixel(at(2, 1)), before);
    m_shown->move(at(1, 1));

    QVERIFY(m_shown->pixel(at(1, 1)) != before);
}

void tst_MapToolEdges::eitherButtonPlacesAnObject()
{
    grid().setCurrentTileAnimation(m_shown->door);

    m_shown->click(at(1, 2), Qt::RightButton);

    QCOMPARE(map().animatedBlocks()->find({1, 2, 2, 1}), m_shown->door->id());
    QVERIFY(map().tileLayer()->cell({1, 2}).occupied);
    QVERIFY(map().objectLayer()->cell({2, 2}).occupied);
}

void tst_MapToolEdges::anObjectIsPlacedOncePerStroke()
{
    grid().setCurrentTileAnimation(m_shown->door);
    m_shown->click(at(0, 0));
    m_shown->click(at(0, 0)); // still over the one just placed
    QCOMPARE(map().animatedBlocks()->blocks().size(), 1);
    QCOMPARE(m_shown->stack.count(), 1);
    m_shown->move(at(3, 3));
    m_shown->click(at(3, 3));
    QCOMPARE(map().animatedBlocks()->blocks().size(), 2);

    delete m_shown->door.data();
    m_shown->move(at(0, 2));
    m_shown->click(at(0, 2));

    QCOMPARE(map().animatedBlocks()->blocks().size(), 2);
    QCOMPARE(m_shown->stack.count(), 2);
}

void tst_MapToolEdges::pastingCentresOddBlocksAndSnaps()
{
    copyToClipboard({0, 0, 3, 1});
    grid().setMode(Tool::Paste);

    m_shown->move(at(3, 2));
    QCOMPARE(grid().pasteRect(), QRect(2, 2, 3, 1));
    grid().setSnapToSize(2);
    m_shown->move(at(3, 3));
    QCOMPARE(grid().pasteRect(), QRect(1, 2, 3, 1));
    m_shown->move({390, 290});

    QCOMPARE(grid().pasteRect(), QRect(1, 2, 3, 1));
}

void tst_MapToolEdges::pastingIntoAHiddenLayerChangesNothing()
{
    map().tileLayer()->setCell({0, 0}, TestMaps::cell(4));
    copyToClipboard({0, 0, 2, 2});
    grid().setMode(Tool::Paste);
    grid().setMapVisibility(false);
    QCOMPARE(grid().cursor().shape(), Qt::ForbiddenCursor);

    m_shown->move(at(3, 2));
    m_shown->click(at(3, 2));

    QCOMPARE(m_shown->stack.count(), 0);
    QCOMPARE(m_shown->tileAt(2, 1), 1);
}

void tst_MapToolEdges::theRightButtonPastesToo()
{
    map().tileLayer()->setCell({0, 0}, TestMaps::cell(4));
    copyToClipboard({0, 0, 1, 1});
    grid().setMode(Tool::Paste);

    m_shown->move(at(3, 2));
    m_shown->click(at(3, 2), Qt::RightButton);

    QCOMPARE(m_shown->tileAt(3, 2), 4);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Paste"));
}

void tst_MapToolEdges::aPastedBlockKeepsUnoccupiedCells()
{
    map().tileLayer()->setCell({0, 0}, {.index = 4, .flip = true, .offset = 3});
    copyToClipboard({0, 0, 1, 1});
    grid().setMode(Tool::Paste);

    m_shown->move(at(3, 2));
    m_shown->click(at(3, 2));

    const TileMap::TileData expected{.index = 4, .flip = true, .offset = 3};
    QVERIFY(map().tileLayer()->cell({3, 2}) == expected);
}

void tst_MapToolEdges::pickingOutsideGivesZerosAndGoesBack()
{
    QSignalSpy picked(&grid(), &MapGrid::tilePicked);
    grid().setMode(Tool::Select);
    grid().setMode(Tool::Pick);

    m_shown->click({390, 290});

    QCOMPARE(picked.count(), 1);
    QVERIFY(picked.at(0).at(0).value<TileMap::TileData>() == TileMap::TileData());
    QCOMPARE(grid().mode(), Tool::Select);
}

void tst_MapToolEdges::onlyTheLeftButtonPicks()
{
    QSignalSpy picked(&grid(), &MapGrid::tilePicked);
    grid().setMode(Tool::Pick);

    m_shown->click(at(1, 1), Qt::RightButton);

    QCOMPARE(picked.count(), 0);
    QCOMPARE(grid().mode(), Tool::Pick);
}

void tst_MapToolEdges::thePickerPointsWithItsTip()
{
    grid().setMode(Tool::Pick);

    QCOMPARE(grid().cursor().shape(), Qt::BitmapCursor);
    QCOMPARE(grid().cursor().hotSpot(), QPoint(5, 28));
    grid().setMode(Tool::Select);
    QCOMPARE(grid().cursor().shape(), Qt::CrossCursor);
}

void tst_MapToolEdges::aShortPullOnASpriteIsAClick()
{
    m_shown->placeSpriteAt({8, 8});
    grid().setMode(Tool::PlaceSprite);
    QSignalSpy clicked(&grid(), &MapGrid::spriteClicked);
    const int distance = QApplication::startDragDistance();

    m_shown->press(at(1, 1));
    m_shown->move(at(1, 1) + QPoint(distance - 1, 0), Qt::LeftButton);
    m_shown->release(at(1, 1) + QPoint(distance - 1, 0));
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(map().sprites().at(0).x, 8);
    m_shown->press(at(1, 1));
    m_shown->move(at(1, 1) + QPoint(0, distance), Qt::LeftButton);
    m_shown->release(at(1, 1) + QPoint(0, distance));

    QCOMPARE(clicked.count(), 1);
    QCOMPARE(map().sprites().at(0).y, 8 + distance / 4);
}

void tst_MapToolEdges::aSpriteBroughtBackIsNoStepAndNoClick()
{
    m_shown->placeSpriteAt({8, 8});
    grid().setMode(Tool::PlaceSprite);
    QSignalSpy clicked(&grid(), &MapGrid::spriteClicked);

    m_shown->press(at(1, 1));
    m_shown->move(at(3, 2), Qt::LeftButton);
    QCOMPARE(map().sprites().at(0).x, 24);
    m_shown->move(at(1, 1), Qt::LeftButton);
    m_shown->release(at(1, 1));

    QCOMPARE(map().sprites().at(0).x, 8);
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(m_shown->stack.count(), 0);
}

void tst_MapToolEdges::snapOfADragKeepsTheSignOfTheRemainder()
{
    m_shown->placeSpriteAt({4, 20});
    grid().setMode(Tool::PlaceSprite);
    grid().setSnapToSize(2);

    m_shown->press(at(1, 3)); // 8 and 8 map pixels within the sprite
    m_shown->move(at(0, 3), Qt::LeftButton);
    QCOMPARE(map().sprites().at(0).x, 0); // -4 less its remainder of -4
    QCOMPARE(map().sprites().at(0).y, 16);
    m_shown->release(at(0, 3));

    QCOMPARE(m_shown->undoText(), QStringLiteral("Move Sprite"));
}

void tst_MapToolEdges::aSelectionRunsBeyondTheGridByFloor()
{
    grid().setMode(Tool::Select);

    m_shown->press(ShownGrid::Corner - QPoint(1, 33));
    m_shown->move(at(1, 1), Qt::LeftButton);
    m_shown->release(at(1, 1));

    QCOMPARE(grid().selection(), QRect(QPoint(-1, -2), QPoint(1, 1)));
}

void tst_MapToolEdges::shiftInSelectionModeIsSentOnce()
{
    grid().setMode(Tool::Select);
    QSignalSpy modes(&grid(), &MapGrid::modeChanged);

    m_shown->press(at(1, 1), Qt::LeftButton, Qt::ShiftModifier);

    QCOMPARE(modes.count(), 1);
    QVERIFY(!grid().selection().isValid()); // the press itself is not forwarded
}

void tst_MapToolEdges::activatingSelectDropsTheSelection()
{
    copyToClipboard({0, 0, 2, 2});
    grid().setSelection({1, 1, 2, 2});
    QCOMPARE(grid().pasteRect(), QRect(0, 0, 2, 2));

    grid().setMode(Tool::Select);

    QVERIFY(!grid().selection().isValid());
    QVERIFY(!grid().pasteRect().isValid());
}

QTEST_MAIN(tst_MapToolEdges)

#include "tst_MapToolEdges.moc"
