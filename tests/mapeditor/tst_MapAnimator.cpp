#include "mapeditor/MapAnimator.h"

#include "model/AnimatedBlocks.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"
#include "support/TestMaps.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using MapEditor::MapAnimator;

class tst_MapAnimator : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theClockStandsUntilItIsStarted();
    void withoutMapNothingCounts();
    void anEmptyMapSendsNothing();
    void placedSpritesSendEveryTick();
    void aBlockTakesItsFramesInTurn();
    void aBlockWithoutDelayStands();
    void framesChangeEveryDelayTicks();
    void twoPlacementsRunInStep();
    void ofTwoInOnePlaceTheLaterPlays();
    void aNarrowFrameWritesOnlyItsCells();
    void cellsBeyondTheMapAreNotWritten();
    void frameCellsComeWithTheirAttributes();
    void everyTickIsAsWrittenDown_data();
    void everyTickIsAsWrittenDown();
    void ofEqualPlacesTheLaterPlays();
    void aSecondPlacementShowsWhereTheFirstStands();
    void aFrameOutOfRangeShowsTheFirst();
    void aNegativeFrameIsSkippedOnlyWhenSeen();
    void whatIsUnknownIsPassedOver();
    void oneTickSendsOnce();
    void aStopKeepsThePhase();

private:
    int cellAt(int x, int y) const { return m_map->objectLayer()->cell({x, y}).index; }
    TileAnimation *makeBlock(int delay);

    std::unique_ptr<TestMaps::PlainTiles> m_tiles;
    std::unique_ptr<MapObjects> m_blocks;
    std::unique_ptr<Map> m_map; // 6 by 4 cells
    std::unique_ptr<MapAnimator> m_animator;
};

void tst_MapAnimator::init()
{
    m_tiles = std::make_unique<TestMaps::PlainTiles>(16);
    m_blocks = std::make_unique<MapObjects>();
    m_blocks->setTileSet(m_tiles->set.get());
    m_map = TestMaps::map({6, 4}, m_tiles->set.get());
    m_animator = std::make_unique<MapAnimator>();
    m_animator->setMap(m_map.get());
}

void tst_MapAnimator::cleanup()
{
    m_animator.reset();
    m_map.reset();
    m_blocks.reset();
    m_tiles.reset();
}

/// Two frames of two cells: 5 and 6, then 7 and 8.
TileAnimation *tst_MapAnimator::makeBlock(int delay)
{
    TileAnimation *block = m_blocks->createTileAnimation(QStringLiteral("Door"));
    block->setTileSet(m_tiles->set.get());
    block->setSize({2, 1});
    block->setDelay(delay);
    for (int frame = 0; frame < 2; ++frame) {
        AnimationFrame *cells = block->addFrame();
        cells->setCell({0, 0}, {.index = 5 + 2 * frame});
        cells->setCell({1, 0}, {.index = 6 + 2 * frame});
    }
    return block;
}

void tst_MapAnimator::theClockStandsUntilItIsStarted()
{
    QVERIFY(!m_animator->timer().isActive());
    QCOMPARE(m_animator->timer().interval(), 20);

    m_animator->timer().start();
    QTRY_VERIFY(m_animator->ticks() > 0);
}

void tst_MapAnimator::withoutMapNothingCounts()
{
    m_animator->setMap(nullptr);
    m_animator->tick();
    QCOMPARE(m_animator->ticks(), 0);

    m_animator->setMap(m_map.get());
    m_animator->tick();
    m_map.reset();
    m_animator->tick();
    QCOMPARE(m_animator->ticks(), 1);
}

void tst_MapAnimator::anEmptyMapSendsNothing()
{
    QSignalSpy advanced(m_animator.get(), &MapAnimator::framesAdvanced);

    m_animator->tick();
    m_animator->tick();

    QCOMPARE(advanced.count(), 0);
    QCOMPARE(m_animator->ticks(), 2);
}

void tst_MapAnimator::placedSpritesSendEveryTick()
{
    m_map->sprites().append(Map::PlacedSprite());
    QSignalSpy advanced(m_animator.get(), &MapAnimator::framesAdvanced);

    m_animator->tick();
    m_animator->tick();

    QCOMPARE(advanced.count(), 2);
}

void tst_MapAnimator::aBlockTakesItsFramesInTurn()
{
    TileAnimation *block = makeBlock(1);
    m_map->addAnimation({.id = block->id(), .rect = {1, 2, 2, 1}});
    m_animator->tick(); // tick 0 counts as seen by a new block: it shows where it stands
    QCOMPARE(cellAt(1, 2), 5);
    QSignalSpy advanced(m_animator.get(), &MapAnimator::framesAdvanced);

    m_animator->tick();
    QCOMPARE(cellAt(1, 2), 7);
    QCOMPARE(cellAt(2, 2), 8);
    m_animator->tick();
    QCOMPARE(cellAt(1, 2), 5);
    QCOMPARE(cellAt(2, 2), 6);
    QCOMPARE(advanced.count(), 2);
}

void tst_MapAnimator::aBlockWithoutDelayStands()
{
    TileAnimation *block = makeBlock(0);
    m_map->addAnimation({.id = block->id(), .rect = {1, 2, 2, 1}});
    m_animator->tick();
    QSignalSpy advanced(m_animator.get(), &MapAnimator::framesAdvanced);

    for (int tick = 0; tick < 10; ++tick)
        m_animator->tick();

    QCOMPARE(advanced.count(), 0);
    QCOMPARE(block->currentFrame, 0);
}

void tst_MapAnimator::framesChangeEveryDelayTicks()
{
    TileAnimation *block = makeBlock(3);
    m_map->addAnimation({.id = block->id(), .rect = {1, 2, 2, 1}});
    QList<int> frames;

    for (int tick = 0; tick < 10; ++tick) {
        m_animator->tick();
        frames.append(block->currentFrame);
    }

    QCOMPARE(frames, QList<int>({0, 0, 0, 1, 1, 1, 0, 0, 0, 1}));
}

void tst_MapAnimator::twoPlacementsRunInStep()
{
    TileAnimation *block = makeBlock(1);
    m_map->addAnimation({.id = block->id(), .rect = {0, 0, 2, 1}});
    m_map->addAnimation({.id = block->id(), .rect = {3, 3, 2, 1}});
    m_animator->tick();

    for (const int expected : {7, 5, 7}) {
        m_animator->tick();
        QCOMPARE(cellAt(0, 0), expected);
        QCOMPARE(cellAt(3, 3), expected);
    }
}

void tst_MapAnimator::ofTwoInOnePlaceTheLaterPlays()
{
    TileAnimation *first = makeBlock(1);
    TileAnimation *later = makeBlock(1);
    later->frame(1)->setCell({0, 0}, {.index = 12});
    m_map->addAnimation({.id = first->id(), .rect = {1, 2, 2, 1}});
    m_map->addAnimation({.id = later->id(), .rect = {1, 2, 2, 1}});
    m_map->addAnimation({.id = first->id(), .rect = {3, 0, 2, 1}});

    m_animator->tick();
    m_animator->tick();

    QCOMPARE(cellAt(1, 2), 12);
    QCOMPARE(cellAt(3, 0), 7);
}

void tst_MapAnimator::aNarrowFrameWritesOnlyItsCells()
{
    TileAnimation *block = makeBlock(1);
    m_map->objectLayer()->setCell({3, 1}, TestMaps::cell(9));
    m_map->objectLayer()->setCell({1, 2}, TestMaps::cell(10));
    m_map->addAnimation({.id = block->id(), .rect = {1, 1, 4, 3}});

    m_animator->tick();
    m_animator->tick();

    QCOMPARE(cellAt(1, 1), 7);
    QCOMPARE(cellAt(3, 1), 9);
    QCOMPARE(cellAt(1, 2), 10);
}

void tst_MapAnimator::cellsBeyondTheMapAreNotWritten()
{
    TileAnimation *block = makeBlock(1);
    m_map->addAnimation({.id = block->id(), .rect = {-1, 0, 2, 1}});
    m_map->addAnimation({.id = block->id(), .rect = {5, 3, 2, 1}});
    m_map->addAnimation({.id = block->id(), .rect = {2, 2147483640, 2, 1}});

    m_animator->tick();
    m_animator->tick();

    QCOMPARE(cellAt(0, 0), 8);
    QCOMPARE(cellAt(1, 0), 0);
    QCOMPARE(cellAt(5, 3), 7);
}

void tst_MapAnimator::frameCellsComeWithTheirAttributes()
{
    TileAnimation *block = makeBlock(1);
    block->frame(1)->setCell({0, 0}, {3, 4, true, false, true});
    m_map->addAnimation({.id = block->id(), .rect = {0, 0, 2, 1}});

    m_animator->tick();
    m_animator->tick();

    const auto cell = m_map->objectLayer()->cell({0, 0});
    const auto source = block->frame(1)->cells().at(0).at(0);
    const TileMap::TileData expected{.index = 3,
                                     .rotate = source.rotate,
                                     .flip = source.flip,
                                     .mirror = source.mirror,
                                     .offset = 4,
                                     .occupied = true};
    QVERIFY(cell == expected);
}

void tst_MapAnimator::everyTickIsAsWrittenDown_data()
{
    QTest::addColumn<int>("delay");
    QTest::addColumn<QList<int>>("cells"); // at the block's corner, after each tick
    QTest::addColumn<QList<int>>("sent");  // signals in each tick

    // Tick 0 counts as seen by a new block, so it is written there whatever its delay.
    QTest::newRow("every tick") << 1 << QList<int>{5, 7, 5, 7, 5, 7, 5, 7}
                                << QList<int>{1, 1, 1, 1, 1, 1, 1, 1};
    QTest::newRow("every second") << 2 << QList<int>{5, 5, 7, 7, 5, 5, 7, 7}
                                  << QList<int>{1, 0, 1, 0, 1, 0, 1, 0};
    QTest::newRow("every third") << 3 << QList<int>{5, 5, 5, 7, 7, 7, 5, 5}
                                 << QList<int>{1, 0, 0, 1, 0, 0, 1, 0};
    QTest::newRow("never") << 0 << QList<int>{5, 5, 5, 5, 5, 5, 5, 5}
                           << QList<int>{1, 0, 0, 0, 0, 0, 0, 0};
}

void tst_MapAnimator::everyTickIsAsWrittenDown()
{
    QFETCH(int, delay);
    TileAnimation *block = makeBlock(delay);
    m_map->addAnimation({.id = block->id(), .rect = {1, 2, 2, 1}});
    QSignalSpy advanced(m_animator.get(), &MapAnimator::framesAdvanced);
    QList<int> cells;
    QList<int> sent;

    for (int tick = 0; tick < 8; ++tick) {
        m_animator->tick();
        cells.append(cellAt(1, 2));
        sent.append(static_cast<int>(advanced.count()));
        advanced.clear();
    }

    QTEST(cells, "cells");
    QTEST(sent, "sent");
    QCOMPARE(m_animator->ticks(), 8);
}

void tst_MapAnimator::ofEqualPlacesTheLaterPlays()
{
    TileAnimation *first = makeBlock(1);
    TileAnimation *second = makeBlock(1);
    second->frame(0)->setCell({0, 0}, {.index = 11});
    second->frame(1)->setCell({0, 0}, {.index = 12});
    m_map->addAnimation({.id = first->id(), .rect = {1, 2, 2, 1}});
    m_map->addAnimation({.id = second->id(), .rect = {1, 2, 2, 1}});

    m_animator->tick();
    QCOMPARE(cellAt(1, 2), 11);
    m_animator->tick();

    QCOMPARE(cellAt(1, 2), 12);
    QCOMPARE(first->currentFrame, 0);
}

void tst_MapAnimator::aSecondPlacementShowsWhereTheFirstStands()
{
    TileAnimation *block = makeBlock(0);
    m_map->addAnimation({.id = block->id(), .rect = {0, 0, 2, 1}});
    m_map->addAnimation({.id = block->id(), .rect = {3, 3, 2, 1}});
    m_animator->tick();
    m_map->objectLayer()->fill(m_map->objectLayer()->rect(), true);
    QSignalSpy advanced(m_animator.get(), &MapAnimator::framesAdvanced);

    m_animator->tick();

    QCOMPARE(cellAt(0, 0) + cellAt(3, 3), 5); // one of the two
    QCOMPARE(advanced.count(), 1);
    QCOMPARE(block->currentFrame, 0);
}

void tst_MapAnimator::aFrameOutOfRangeShowsTheFirst()
{
    TileAnimation *block = makeBlock(0);
    block->currentFrame = 9;
    m_map->addAnimation({.id = block->id(), .rect = {1, 2, 2, 1}});

    m_animator->tick();

    QCOMPARE(cellAt(1, 2), 5);
    QCOMPARE(block->currentFrame, 9);
}

void tst_MapAnimator::aNegativeFrameIsSkippedOnlyWhenSeen()
{
    TileAnimation *block = makeBlock(1);
    block->currentFrame = -1;
    m_map->addAnimation({.id = block->id(), .rect = {1, 2, 2, 1}});
    QSignalSpy advanced(m_animator.get(), &MapAnimator::framesAdvanced);

    m_animator->tick();
    QCOMPARE(cellAt(1, 2), 0);
    QCOMPARE(advanced.count(), 0);
    m_animator->tick();

    QCOMPARE(cellAt(1, 2), 5);
    QCOMPARE(block->currentFrame, 0);
}

void tst_MapAnimator::whatIsUnknownIsPassedOver()
{
    TileAnimation *block = makeBlock(1);
    m_map->addAnimation({.id = QUuid::createUuid(), .rect = {3, 0, 2, 1}});
    m_map->addAnimation({.id = block->id(), .rect = {1, 2, 2, 1}});
    MapObjects others; // of another tile set
    TileAnimation *stranger = others.createTileAnimation(QStringLiteral("Stranger"));
    stranger->setDelay(1);
    stranger->addFrame()->setCell({0, 0}, {.index = 13});
    m_map->addAnimation({.id = stranger->id(), .rect = {5, 0, 1, 1}});

    m_animator->tick();
    m_animator->tick();

    QCOMPARE(cellAt(1, 2), 7);
    QCOMPARE(cellAt(3, 0), 0);
    QCOMPARE(cellAt(5, 0), 0);
}

void tst_MapAnimator::oneTickSendsOnce()
{
    TileAnimation *block = makeBlock(1);
    m_map->addAnimation({.id = block->id(), .rect = {0, 0, 2, 1}});
    m_map->addAnimation({.id = block->id(), .rect = {3, 3, 2, 1}});
    m_map->sprites().append(Map::PlacedSprite());
    QList<qint64> seen;
    connect(m_animator.get(), &MapAnimator::framesAdvanced, this,
            [this, &seen] { seen.append(m_animator->ticks()); });

    m_animator->tick();
    m_animator->tick();

    QCOMPARE(seen, QList<qint64>({1, 2})); // raised by then
}

void tst_MapAnimator::aStopKeepsThePhase()
{
    m_animator->tick();
    m_animator->tick();
    m_animator->timer().start();
    m_animator->timer().stop();
    QCOMPARE(m_animator->ticks(), 2);

    m_animator->tick();

    QCOMPARE(m_animator->ticks(), 3);
}

QTEST_GUILESS_MAIN(tst_MapAnimator)

#include "tst_MapAnimator.moc"
