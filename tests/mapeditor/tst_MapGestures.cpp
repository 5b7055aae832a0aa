#include "ShownGrid.h"
#include "model/AnimatedBlocks.h"
#include "model/MapObjects.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "support/TestSprites.h"

#include <QSignalSpy>

using MapEditor::MapGrid;
using Tool = Tessaril::Ui::ToolButton;

/// Gestures on a map that something interrupts, and buttons that no tool takes: whatever changes
/// the map is in an undo step.
class tst_MapGestures : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theMiddleButtonPaintsNothingOnItsWay();
    void theMiddleButtonPlacesNoObjectOnItsWay();
    void aToolChosenInASelectionPaintsFromTheNextPress();
    void aToolChosenInASpriteDragEndsIt();
    void aPickInASpriteDragEndsIt();
    void aPickKeepsTheSelectedSprite();
    void deletingTheDraggedSpriteLeavesTheOthers();
    void undoInASpriteDragEndsIt();
    void undoInAStrokeIsNoPartOfIt();

private:
    MapGrid &grid() const { return m_shown->grid; }
    Map &map() const { return *m_shown->map; }
    static QPoint at(int x, int y) { return ShownGrid::at(x, y); }
    void placeSpriteAt(int cell);
    QList<int> spritePlaces() const;

    std::unique_ptr<ShownGrid> m_shown;
    std::unique_ptr<SpriteBank> m_bank;
};

void tst_MapGestures::init()
{
    m_shown = std::make_unique<ShownGrid>();
    m_bank = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
    TestSprites::fill(*m_bank, 2);
    grid().setSpriteBanks({m_bank.get()});
    grid().setCurrentTileIndex(5);
}

void tst_MapGestures::cleanup()
{
    m_shown.reset();
    m_bank.reset();
}

/// A sprite over the two cells from @p cell on, in the first row.
void tst_MapGestures::placeSpriteAt(int cell)
{
    Map::PlacedSprite sprite;
    sprite.bank = m_bank->id();
    sprite.sprite = 1;
    sprite.x = cell * 8;
    map().sprites().append(sprite);
}

/// The left edges, in map pixels.
QList<int> tst_MapGestures::spritePlaces() const
{
    QList<int> places;
    for (const Map::PlacedSprite &sprite : std::as_const(map()).sprites())
        places.append(sprite.x);
    return places;
}

void tst_MapGestures::theMiddleButtonPaintsNothingOnItsWay()
{
    const Map::State before = map().state();
    QSignalSpy picked(&grid(), &MapGrid::tilePicked);

    m_shown->press(at(1, 1), Qt::MiddleButton);
    m_shown->move(at(1, 1) + QPoint(1, 0), Qt::MiddleButton);
    m_shown->move(at(2, 1), Qt::MiddleButton);
    m_shown->release(at(2, 1), Qt::MiddleButton);

    QVERIFY(map().state() == before);
    QCOMPARE(picked.count(), 1);
    QVERIFY(picked.at(0).at(0).value<TileMap::TileData>() == TestMaps::cell(1));
    QCOMPARE(m_shown->stack.count(), 0);
}

void tst_MapGestures::theMiddleButtonPlacesNoObjectOnItsWay()
{
    MapObjects blocks;
    blocks.setTileSet(m_shown->tiles.set.get());
    const auto door = blocks.createTileAnimation(QStringLiteral("Door"));
    door->addFrame();
    grid().setCurrentTileAnimation(door);

    m_shown->press(at(1, 1), Qt::MiddleButton);
    m_shown->move(at(2, 1), Qt::MiddleButton);
    m_shown->release(at(2, 1), Qt::MiddleButton);

    QVERIFY(map().animatedBlocks()->blocks().isEmpty());
    QCOMPARE(m_shown->stack.count(), 0);
}

void tst_MapGestures::aToolChosenInASelectionPaintsFromTheNextPress()
{
    grid().setMode(Tool::Select);
    m_shown->press(at(1, 1));
    grid().setMode(Tool::Draw);
    m_shown->move(at(3, 1), Qt::LeftButton);
    QCOMPARE(m_shown->tileAt(3, 1), 1);
    m_shown->release(at(3, 1));
    QCOMPARE(m_shown->stack.count(), 0);

    m_shown->click(at(3, 1));

    QCOMPARE(m_shown->tileAt(3, 1), 5);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Paint"));
}

void tst_MapGestures::aToolChosenInASpriteDragEndsIt()
{
    placeSpriteAt(0);
    grid().setMode(Tool::PlaceSprite);
    m_shown->press(at(0, 0));
    m_shown->move(at(1, 0), Qt::LeftButton);
    grid().setMode(Tool::Select);
    m_shown->release(at(1, 0));
    QCOMPARE(m_shown->stack.count(), 1);

    grid().setMode(Tool::PlaceSprite);
    m_shown->move(at(1, 0));
    m_shown->move(at(4, 2));
    m_shown->release(at(4, 2));

    QCOMPARE(spritePlaces(), QList<int>({8}));
    QCOMPARE(m_shown->stack.count(), 1);
}

void tst_MapGestures::aPickInASpriteDragEndsIt()
{
    placeSpriteAt(0);
    grid().setMode(Tool::PlaceSprite);
    m_shown->press(at(0, 0));
    m_shown->press(at(0, 0), Qt::MiddleButton);
    m_shown->release(at(0, 0), Qt::MiddleButton);

    m_shown->move(at(1, 0));
    m_shown->move(at(4, 2));

    QCOMPARE(spritePlaces(), QList<int>({0}));
    QCOMPARE(grid().mode(), Tool::PlaceSprite);
}

void tst_MapGestures::aPickKeepsTheSelectedSprite()
{
    placeSpriteAt(0);
    grid().setMode(Tool::PlaceSprite);
    m_shown->click(at(0, 0));
    QCOMPARE(grid().selectedSprite(), 0);
    QSignalSpy selected(&grid(), &MapGrid::selectedSpriteChanged);

    m_shown->click(at(5, 3), Qt::MiddleButton); // goes back to this tool

    QCOMPARE(grid().selectedSprite(), 0);
    QCOMPARE(selected.count(), 0);
}

void tst_MapGestures::deletingTheDraggedSpriteLeavesTheOthers()
{
    placeSpriteAt(0);
    placeSpriteAt(3);
    grid().setMode(Tool::PlaceSprite);
    QSignalSpy clicked(&grid(), &MapGrid::spriteClicked);

    m_shown->press(at(0, 0));
    grid().deleteHovered();
    m_shown->move(at(2, 2), Qt::LeftButton);
    m_shown->release(at(2, 2));

    QCOMPARE(spritePlaces(), QList<int>({24}));
    QCOMPARE(clicked.count(), 0);
    m_shown->stack.undo();
    QCOMPARE(spritePlaces(), QList<int>({0, 24}));
}

void tst_MapGestures::undoInASpriteDragEndsIt()
{
    placeSpriteAt(0);
    grid().setMode(Tool::PlaceSprite);
    m_shown->press(at(0, 0));
    m_shown->move(at(2, 0), Qt::LeftButton);
    m_shown->release(at(2, 0));
    QSignalSpy clicked(&grid(), &MapGrid::spriteClicked);

    m_shown->press(at(2, 0));
    m_shown->stack.undo();
    m_shown->move(at(5, 0), Qt::LeftButton);
    m_shown->release(at(5, 0));

    QCOMPARE(spritePlaces(), QList<int>({0}));
    QCOMPARE(clicked.count(), 0);
    QVERIFY(m_shown->stack.canRedo());
    m_shown->stack.redo();
    QCOMPARE(spritePlaces(), QList<int>({16}));
}

void tst_MapGestures::undoInAStrokeIsNoPartOfIt()
{
    m_shown->click(at(0, 0));
    m_shown->press(at(1, 0));
    m_shown->stack.undo();
    m_shown->move(at(2, 0), Qt::LeftButton);
    m_shown->release(at(2, 0));
    QCOMPARE(TestMaps::indices(*map().tileLayer()).first(), QList<int>({1, 1, 5, 1, 1, 1}));

    m_shown->stack.undo();

    QCOMPARE(TestMaps::indices(*map().tileLayer()).first(), QList<int>({1, 1, 1, 1, 1, 1}));
    QVERIFY(!m_shown->stack.canUndo());
}

QTEST_MAIN(tst_MapGestures)
#include "tst_MapGestures.moc"
