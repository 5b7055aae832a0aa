#include "mapeditor/MapTool.h"

#include "FurnishedGrid.h"
#include "model/Tile.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QSignalSpy>

using MapEditor::MapGrid;
using Tool = Tessaril::Ui::ToolButton;

/// The tools of a map, driven by the mouse.
class tst_MapTools : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_shown = std::make_unique<FurnishedGrid>(); }
    void cleanup() { m_shown.reset(); }

    void aStrokeIsOnePaintStep();
    void paintedCellsTakeTurnsAndTheOffsetOfTheTile();
    void theRightButtonErases();
    void aHiddenTileLayerIsNotPainted();
    void snapPaintsTheFirstCellOfEachGroup();
    void theTileIsPreviewedUnderTheMouse();
    void placedObjectsAreNotPaintedOver();
    void placingAnObjectIsOneStep();
    void aHiddenObjectLayerTakesNoObject();
    void deletingAPlacedObjectEmptiesItsCells();
    void selectingFollowsTheDrag();
    void aRightPressWithoutSelectionDoesNothing();
    void aBlockIsPastedAtEveryClick();
    void aBlockOfOtherTilesIsRefused();
    void pickingGoesBackToTheToolBefore();
    void aSpriteIsPlacedAtTheVeryPixel();
    void snapPlacesSpritesOnWholeCells();
    void noSpriteIsPlacedOutsideTheMap();
    void aClickOnASpriteOpensItAndRecordsNothing();
    void aDragMovesASpriteAsOneStep();
    void aDragMayLeaveTheMap();
    void pressingBesideSpritesUnselects();
    void deletingSpritesFollowsTheSelection();
    void editingASpriteIsOneStep();

private:
    MapGrid &grid() const { return m_shown->grid; }
    Map &map() const { return *m_shown->map; }
    static QPoint at(int x, int y) { return ShownGrid::at(x, y); }

    std::unique_ptr<FurnishedGrid> m_shown;
};

void tst_MapTools::aStrokeIsOnePaintStep()
{
    grid().setCurrentTileIndex(5);

    m_shown->press(at(0, 0));
    QCOMPARE(m_shown->tileAt(0, 0), 5);
    m_shown->move(at(1, 0), Qt::LeftButton);
    m_shown->move(at(2, 0), Qt::LeftButton);
    QCOMPARE(m_shown->stack.count(), 0);
    m_shown->release(at(2, 0));

    QCOMPARE(m_shown->stack.count(), 1);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Paint"));
    QCOMPARE(m_shown->tileAt(2, 0), 5);
    m_shown->stack.undo();
    QCOMPARE(m_shown->tileAt(0, 0), 1);
    m_shown->click(at(3, 3));
    m_shown->click(at(3, 3));
    QCOMPARE(m_shown->stack.count(), 1);
}

void tst_MapTools::paintedCellsTakeTurnsAndTheOffsetOfTheTile()
{
    m_shown->tiles.set->tile(5)->setOffset(3);
    grid().setCurrentTileIndex(5);
    grid().setOrientation(true, false, true);

    m_shown->click(at(1, 1));

    TileMap::TileData expected = TestMaps::cell(5, 3);
    expected.rotate = true;
    expected.mirror = true;
    QVERIFY(map().tileLayer()->cell({1, 1}) == expected);
}

void tst_MapTools::theRightButtonErases()
{
    grid().setCurrentTileIndex(5);

    m_shown->click(at(1, 1), Qt::RightButton);

    QVERIFY(!map().tileLayer()->cell({1, 1}).occupied);
    grid().setCurrentTileIndex(-1);
    QCOMPARE(m_shown->pixel(at(1, 1)), QColor(Qt::black));
}

void tst_MapTools::aHiddenTileLayerIsNotPainted()
{
    grid().setMapVisibility(false);
    grid().setCurrentTileIndex(5);

    m_shown->click(at(1, 1));

    QCOMPARE(m_shown->tileAt(1, 1), 1);
    QCOMPARE(m_shown->stack.count(), 0);
}

void tst_MapTools::snapPaintsTheFirstCellOfEachGroup()
{
    grid().setSnapToSize(2);
    grid().setCurrentTileIndex(5);

    m_shown->click(at(3, 3));

    QCOMPARE(m_shown->tileAt(2, 2), 5);
    QCOMPARE(m_shown->tileAt(3, 3), 1);
}

void tst_MapTools::theTileIsPreviewedUnderTheMouse()
{
    const QColor tile = m_shown->tiles.set->tileImage(5, false, false, false, 0).pixelColor(0, 0);
    grid().setCurrentTileIndex(5);

    m_shown->move(at(2, 2));
    QCOMPARE(m_shown->pixel(at(2, 2)), tile);
    m_shown->move({390, 290});
    QVERIFY(m_shown->pixel(at(2, 2)) != tile);
    m_shown->move(at(2, 2));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&grid(), &leave);

    QVERIFY(m_shown->pixel(at(2, 2)) != tile);
    QCOMPARE(m_shown->tileAt(2, 2), 1);
}

void tst_MapTools::placedObjectsAreNotPaintedOver()
{
    map().addAnimation({.id = m_shown->door->id(), .rect = {1, 1, 2, 1}});
    grid().setCurrentTileIndex(5);

    m_shown->move(at(2, 1));
    QCOMPARE(grid().cursor().shape(), Qt::SizeAllCursor);
    m_shown->click(at(2, 1));
    QCOMPARE(m_shown->tileAt(2, 1), 1);
    m_shown->move(at(3, 1));

    QCOMPARE(grid().cursor().shape(), Qt::ArrowCursor);
    m_shown->click(at(3, 1));
    QCOMPARE(m_shown->tileAt(3, 1), 5);
}

void tst_MapTools::placingAnObjectIsOneStep()
{
    map().objectLayer()->setCell({0, 0}, TestMaps::cell(12));
    grid().setCurrentTileAnimation(m_shown->door);
    QCOMPARE(grid().mode(), Tool::PlaceAnim);

    m_shown->move(at(1, 2));
    m_shown->press(at(1, 2));
    m_shown->move(at(3, 3), Qt::LeftButton);
    m_shown->release(at(3, 3));

    QCOMPARE(m_shown->stack.count(), 1);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Place Animation"));
    QCOMPARE(map().animatedBlocks()->blocks().size(), 1);
    QCOMPARE(map().animatedBlocks()->find({1, 2, 2, 1}), m_shown->door->id());
    QCOMPARE(map().objectLayer()->cell({1, 2}).index, 8);
    QCOMPARE(map().objectLayer()->cell({2, 2}).index, 9);
    QCOMPARE(map().objectLayer()->cell({0, 0}).index, 12);
    QCOMPARE(m_shown->tileAt(1, 2), 0);
    QCOMPARE(m_shown->tileAt(3, 2), 1);
    m_shown->stack.undo();
    QVERIFY(map().animatedBlocks()->blocks().isEmpty());
    QCOMPARE(m_shown->tileAt(1, 2), 1);
}

void tst_MapTools::aHiddenObjectLayerTakesNoObject()
{
    grid().setCurrentTileAnimation(m_shown->door);
    grid().setObjectVisibility(false);

    m_shown->click(at(1, 2));

    QVERIFY(map().animatedBlocks()->blocks().isEmpty());
    QCOMPARE(m_shown->stack.count(), 0);
}

void tst_MapTools::deletingAPlacedObjectEmptiesItsCells()
{
    map().addAnimation({.id = m_shown->door->id(), .rect = {1, 1, 2, 1}});
    m_shown->move(at(1, 1));

    grid().deleteHovered();

    QCOMPARE(m_shown->undoText(), QStringLiteral("Remove Animation"));
    QVERIFY(map().animatedBlocks()->blocks().isEmpty());
    QVERIFY(!map().tileLayer()->cell({1, 1}).occupied);
    QVERIFY(map().objectLayer()->cell({1, 1}).occupied);
}

void tst_MapTools::selectingFollowsTheDrag()
{
    grid().setMode(Tool::Select);

    m_shown->press(at(3, 2));
    QCOMPARE(grid().selection(), QRect(3, 2, 1, 1));
    m_shown->move(at(1, 0), Qt::LeftButton);
    m_shown->release(at(1, 0));

    QCOMPARE(grid().selection(), QRect(1, 0, 3, 3));
    m_shown->move(at(5, 3));
    QCOMPARE(grid().selection(), QRect(1, 0, 3, 3));
    // The middle of the outline's left side.
    const QColor onOutline = m_shown->pixel(ShownGrid::Corner + QPoint(32, 50));
    QVERIFY(onOutline == QColor(Qt::darkGray) || onOutline == QColor(Qt::lightGray));
    grid().setMode(Tool::Draw);
    QVERIFY(!grid().selection().isValid());
}

void tst_MapTools::aRightPressWithoutSelectionDoesNothing()
{
    grid().setMode(Tool::Select);

    m_shown->press(at(3, 2), Qt::RightButton);
    m_shown->move(at(1, 0), Qt::RightButton);
    m_shown->release(at(1, 0), Qt::RightButton);

    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(!grid().selection().isValid());
    grid().setMode(Tool::Draw);
    m_shown->press(at(3, 2), Qt::RightButton, Qt::ShiftModifier);
    QCOMPARE(grid().mode(), Tool::Select);
    m_shown->release(at(3, 2), Qt::RightButton);
}

void tst_MapTools::aBlockIsPastedAtEveryClick()
{
    map().tileLayer()->setCell({0, 0}, TestMaps::cell(4));
    map().tileLayer()->setCell({1, 1}, TestMaps::cell(6));
    grid().setSelection({0, 0, 2, 2});
    grid().copySelection();
    grid().setMode(Tool::Paste);
    QCOMPARE(grid().pasteRect(), QRect(0, 0, 2, 2));

    m_shown->move(at(3, 2));
    QCOMPARE(grid().pasteRect(), QRect(2, 1, 2, 2));
    m_shown->click(at(3, 2));
    QCOMPARE(grid().mode(), Tool::Paste);
    QCOMPARE(m_shown->tileAt(2, 1), 4);
    QCOMPARE(m_shown->tileAt(3, 2), 6);
    m_shown->move(at(0, 0));
    m_shown->click(at(0, 0));

    QCOMPARE(m_shown->tileAt(0, 0), 6); // the block's first row and column are dropped
    QCOMPARE(m_shown->stack.count(), 2);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Paste"));
}

void tst_MapTools::aBlockOfOtherTilesIsRefused()
{
    TestMaps::PlainTiles others(4);
    const auto other = TestMaps::map({2, 2}, others.set.get());
    auto *data = new QMimeData;
    data->setData(TileMap::mimeType(), other->tileLayer()->toData({0, 0, 2, 2}));
    QGuiApplication::clipboard()->setMimeData(data);
    grid().setMode(Tool::Pick);

    grid().setMode(Tool::Paste);
    QCOMPARE(grid().mode(), Tool::Pick);
    auto *cut = new QMimeData;
    cut->setData(TileMap::mimeType(), QByteArray("\0\0\0\2\0\0\0\2", 8));
    QGuiApplication::clipboard()->setMimeData(cut);
    grid().setMode(Tool::Paste);
    QCOMPARE(grid().mode(), Tool::Pick);
    QGuiApplication::clipboard()->clear();
    grid().setMode(Tool::Paste);
    QCOMPARE(grid().mode(), Tool::Pick);
}

void tst_MapTools::pickingGoesBackToTheToolBefore()
{
    map().tileLayer()->setCell({2, 2}, TestMaps::cell(9));
    QSignalSpy picked(&grid(), &MapGrid::tilePicked);
    grid().setMode(Tool::Select);
    grid().setMode(Tool::Pick);
    grid().setMode(Tool::Pick);

    m_shown->click(at(2, 2));

    QCOMPARE(grid().mode(), Tool::Select);
    QCOMPARE(picked.count(), 1);
    QVERIFY(picked.at(0).at(0).value<TileMap::TileData>() == TestMaps::cell(9));
}

void tst_MapTools::aSpriteIsPlacedAtTheVeryPixel()
{
    QSignalSpy selected(&grid(), &MapGrid::selectedSpriteChanged);
    grid().setCurrentSprite(m_shown->bank.id(), 1);
    QCOMPARE(grid().mode(), Tool::PlaceSprite);

    m_shown->click(ShownGrid::Corner + QPoint(4 * 11, 4 * 5));

    QCOMPARE(map().sprites().size(), 1);
    QCOMPARE(map().sprites().at(0).x, 11);
    QCOMPARE(map().sprites().at(0).y, 5);
    QCOMPARE(map().sprites().at(0).sprite, 1);
    QCOMPARE(map().sprites().at(0).bank, m_shown->bank.id());
    QCOMPARE(m_shown->stack.count(), 1);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Place Sprite"));
    QCOMPARE(selected.count(), 1);
    QCOMPARE(grid().selectedSprite(), 0);
}

void tst_MapTools::snapPlacesSpritesOnWholeCells()
{
    grid().setSnapToSize(2);
    grid().setCurrentSprite(m_shown->bank.id(), 1);

    m_shown->click(at(3, 3));

    QCOMPARE(map().sprites().at(0).x, 16);
    QCOMPARE(map().sprites().at(0).y, 16);
}

void tst_MapTools::noSpriteIsPlacedOutsideTheMap()
{
    grid().setCurrentSprite(m_shown->bank.id(), 1);

    m_shown->click({390, 290});
    grid().setSpriteVisibility(false);
    m_shown->click(at(1, 1));
    m_shown->click(at(1, 1), Qt::RightButton);

    QVERIFY(map().sprites().isEmpty());
    QCOMPARE(m_shown->stack.count(), 0);
}

void tst_MapTools::aClickOnASpriteOpensItAndRecordsNothing()
{
    m_shown->placeSpriteAt({8, 8});
    m_shown->placeSpriteAt({16, 8});
    grid().setMode(Tool::PlaceSprite);
    QSignalSpy clicked(&grid(), &MapGrid::spriteClicked);
    QSignalSpy selected(&grid(), &MapGrid::selectedSpriteChanged);

    m_shown->click(at(2, 1));

    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).toInt(), 1); // the later one is on top
    QCOMPARE(selected.count(), 1);
    QCOMPARE(m_shown->stack.count(), 0);
}

void tst_MapTools::aDragMovesASpriteAsOneStep()
{
    m_shown->placeSpriteAt({8, 8});
    grid().setMode(Tool::PlaceSprite);
    QSignalSpy clicked(&grid(), &MapGrid::spriteClicked);

    m_shown->press(at(1, 1));
    m_shown->move(at(1, 1) + QPoint(4, 0), Qt::LeftButton);
    QCOMPARE(map().sprites().at(0).x, 8); // not far enough for a drag
    m_shown->move(at(3, 2), Qt::LeftButton);
    m_shown->release(at(3, 2));

    QCOMPARE(map().sprites().at(0).x, 24);
    QCOMPARE(map().sprites().at(0).y, 16);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Move Sprite"));
    QCOMPARE(m_shown->stack.count(), 1);
    QCOMPARE(clicked.count(), 0);
}

void tst_MapTools::aDragMayLeaveTheMap()
{
    m_shown->placeSpriteAt({8, 8});
    grid().setMode(Tool::PlaceSprite);

    m_shown->press(at(2, 2));
    m_shown->move(at(0, 0), Qt::LeftButton);
    m_shown->release(at(0, 0));

    QCOMPARE(map().sprites().at(0).x, -8);
    QCOMPARE(map().sprites().at(0).y, -8);
}

void tst_MapTools::pressingBesideSpritesUnselects()
{
    m_shown->placeSpriteAt({8, 8});
    grid().setMode(Tool::PlaceSprite);
    m_shown->click(at(1, 1));
    QSignalSpy selected(&grid(), &MapGrid::selectedSpriteChanged);

    m_shown->click(at(5, 3));
    m_shown->click(at(5, 3));

    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).toInt(), -1);
}

void tst_MapTools::deletingSpritesFollowsTheSelection()
{
    for (const int x : {0, 16, 32})
        m_shown->placeSpriteAt({x, 0});
    grid().setMode(Tool::PlaceSprite);
    m_shown->click(at(4, 1)); // selects the third
    QCOMPARE(grid().selectedSprite(), 2);
    m_shown->move(at(0, 0));

    grid().deleteHovered();
    QCOMPARE(m_shown->undoText(), QStringLiteral("Delete Sprite"));
    QCOMPARE(map().sprites().size(), 2);
    QCOMPARE(grid().selectedSprite(), 1);
    m_shown->move(at(4, 1));
    grid().deleteHovered();

    QCOMPARE(grid().selectedSprite(), -1);
    QCOMPARE(map().sprites().size(), 1);
}

void tst_MapTools::editingASpriteIsOneStep()
{
    m_shown->placeSpriteAt({8, 8});
    Map::PlacedSprite edited = map().sprites().at(0);
    edited.startFrame = 7;
    grid().applySpriteEdit(edited);
    QCOMPARE(m_shown->stack.count(), 0); // none is selected
    grid().setMode(Tool::PlaceSprite);
    m_shown->click(at(1, 1));

    grid().applySpriteEdit(edited);
    grid().applySpriteEdit(edited);

    QCOMPARE(m_shown->stack.count(), 1);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Sprite Properties"));
    QCOMPARE(map().sprites().at(0).startFrame, 7);
}

QTEST_MAIN(tst_MapTools)

#include "tst_MapTools.moc"
