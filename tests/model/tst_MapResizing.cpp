#include "model/Map.h"

#include "model/AnimatedBlocks.h"
#include "model/MapObjects.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"
#include "support/TestMaps.h"

#include <QSignalSpy>
#include <QTest>

#include <limits>

using TestMaps::cell;
using TestMaps::indices;
using TestMaps::placedRects;
using TestMaps::positions;
using TestMaps::spriteAt;

namespace {

using Indices = QList<QList<int>>;
constexpr int Least = std::numeric_limits<int>::min();
constexpr int Most = std::numeric_limits<int>::max();

} // namespace

class tst_MapResizing : public QObject
{
    Q_OBJECT

private slots:
    void resizingWithoutALayerWarnsAndSendsNothing();
    void resizingWithoutAnObjectLayer();
    void resizingMovesLayersSpritesAndBlocks();
    void resizedIsSentWhenAllHasMoved();
    void resizingToTheRightMovesSpritesAlong();
    void resizingToWhatIsNotAllowedDoesNothing();
    void aBlockCutByAShrinkIsRemovedAndCleared();
    void equalBlocksAreRemovedOneByOne();
    void blocksAtTheLimitsAreRemoved_data();
    void blocksAtTheLimitsAreRemoved();
    void spritesOutsideAreRemoved_data();
    void spritesOutsideAreRemoved();
    void aSpriteIsRemovedWithItsColumns();
    void shiftingWithoutLayersRemovesAll();
};

void tst_MapResizing::resizingWithoutALayerWarnsAndSendsNothing()
{
    Map map(QStringLiteral("level"));
    map.setSprites({spriteAt(0, 0)});
    QSignalSpy resized(&map, &Map::resized);

    QTest::ignoreMessage(QtWarningMsg, "_tileMap==nullptr");
    map.resize({3, 3}, Qt::AlignLeft);

    QCOMPARE(resized.count(), 0);
    QCOMPARE(map.sprites().size(), 1);
}

void tst_MapResizing::resizingWithoutAnObjectLayer()
{
    Map map(QStringLiteral("level"));
    map.setTileLayer(new TileMap({2, 2}));
    QSignalSpy resized(&map, &Map::resized);

    map.resize({3, 1}, Qt::AlignLeft);

    QCOMPARE(map.tileLayer()->size(), QSize(3, 1));
    QCOMPARE(resized.count(), 1);
}

void tst_MapResizing::resizingMovesLayersSpritesAndBlocks()
{
    TileSet tiles(nullptr, 16);
    const auto map = TestMaps::map({1, 1}, &tiles);
    map->tileLayer()->setTiles(TestMaps::counted(2, 2));
    map->objectLayer()->setTiles(TestMaps::counted(2, 2));
    map->addAnimation({QUuid::createUuid(), {0, 1, 2, 1}, 0, 0, 0});
    map->setSprites({spriteAt(3, 9)});
    QSignalSpy resized(map.get(), &Map::resized);

    map->resize({4, 3}, Qt::AlignHCenter | Qt::AlignBottom);

    const Indices expected{{0, 0, 0, 0}, {0, 0, 1, 0}, {0, 2, 3, 0}};
    QCOMPARE(indices(*map->tileLayer()), expected);
    QCOMPARE(indices(*map->objectLayer()), expected);
    QCOMPARE(placedRects(*map), (QList<QRect>{{1, 2, 2, 1}}));
    QCOMPARE(positions(*map), (QList<QPoint>{{11, 17}}));
    QCOMPARE(resized.count(), 1);
    QCOMPARE(resized.at(0).at(0).value<QPointer<Map>>(), map.get());
}

void tst_MapResizing::resizedIsSentWhenAllHasMoved()
{
    const auto map = TestMaps::map({2, 2}, nullptr);
    map->addAnimation({QUuid::createUuid(), {0, 0, 1, 1}, 0, 0, 0});
    map->setSprites({spriteAt(0, 0)});
    QList<QRect> blocks;
    QList<QPoint> sprites;
    QSize objectSize;
    connect(map.get(), &Map::resized, this, [&](const QPointer<Map> &resized) {
        blocks = placedRects(*resized);
        sprites = positions(*resized);
        objectSize = resized->objectLayer()->size();
    });

    map->resize({3, 3}, Qt::AlignRight | Qt::AlignBottom);

    QCOMPARE(blocks, (QList<QRect>{{1, 1, 1, 1}}));
    QCOMPARE(sprites, (QList<QPoint>{{8, 8}}));
    QCOMPARE(objectSize, QSize(3, 3));
}

void tst_MapResizing::resizingToTheRightMovesSpritesAlong()
{
    const auto map = TestMaps::map({7, 1}, nullptr);
    map->setSprites({spriteAt(0, 0)});

    map->resize({10, 1}, Qt::AlignRight);

    QCOMPARE(positions(*map), (QList<QPoint>{{24, 0}}));
}

void tst_MapResizing::resizingToWhatIsNotAllowedDoesNothing()
{
    const auto map = TestMaps::map({2, 2}, nullptr);
    map->setSprites({spriteAt(0, 0)});
    QSignalSpy resized(map.get(), &Map::resized);

    map->resize({1 << 14, 1 << 14}, Qt::AlignLeft);
    map->resize({-1, 1}, Qt::AlignLeft);

    QCOMPARE(map->tileLayer()->size(), QSize(2, 2));
    QCOMPARE(map->sprites().size(), 1);
    QCOMPARE(resized.count(), 0);
}

void tst_MapResizing::aBlockCutByAShrinkIsRemovedAndCleared()
{
    TileSet tiles(nullptr, 16);
    const auto map = TestMaps::map({1, 1}, &tiles);
    map->tileLayer()->setTiles(TestMaps::counted(4, 2));
    map->objectLayer()->setTiles(TestMaps::counted(4, 2));
    map->addAnimation({QUuid::createUuid(), {0, 0, 1, 2}, 0, 0, 0});
    map->addAnimation({QUuid::createUuid(), {1, 0, 2, 1}, 0, 0, 0});
    const QPointer<AnimationProperties> cut = map->animatedBlocks()->blocks().at(1);

    map->resize({2, 2}, Qt::AlignLeft | Qt::AlignTop);

    QVERIFY(cut.isNull());
    QCOMPARE(placedRects(*map), (QList<QRect>{{0, 0, 1, 2}}));
    QCOMPARE(indices(*map->objectLayer()), (Indices{{0, 0}, {4, 5}}));
    QVERIFY(map->objectLayer()->cell({1, 0}).occupied);
    QCOMPARE(indices(*map->tileLayer()), (Indices{{0, 1}, {4, 5}}));
}

void tst_MapResizing::equalBlocksAreRemovedOneByOne()
{
    const auto map = TestMaps::map({4, 4}, nullptr);
    const QRect rect(2, 0, 2, 2);
    map->addAnimation({QUuid::createUuid(), rect, 0, 0, 0});
    map->addAnimation({QUuid::createUuid(), rect, 0, 0, 0});

    map->shiftContents({1, 0});

    QVERIFY(map->animatedBlocks()->blocks().isEmpty());
}

void tst_MapResizing::blocksAtTheLimitsAreRemoved_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QPoint>("offset");
    QTest::newRow("far right") << QRect(QPoint(Most - 1, 0), QPoint(Most, 0)) << QPoint(5, 5);
    QTest::newRow("far left") << QRect(QPoint(Least, 0), QPoint(Least + 1, 0)) << QPoint(-5, -5);
    QTest::newRow("everywhere") << QRect(QPoint(Least, Least), QPoint(Most, Most)) << QPoint(1, 1);
    QTest::newRow("no cells") << QRect(1, 1, 0, 0) << QPoint(0, 0);
    QTest::newRow("inside out") << QRect(QPoint(3, 3), QPoint(0, 0)) << QPoint(0, 0);
    QTest::newRow("over the left edge") << QRect(-1, 0, 2, 2) << QPoint(0, 0);
    QTest::newRow("over the top edge") << QRect(0, 0, 2, 2) << QPoint(0, -1);
    QTest::newRow("over the right edge") << QRect(2, 0, 2, 2) << QPoint(1, 0);
    QTest::newRow("over the bottom edge") << QRect(2, 2, 2, 2) << QPoint(0, 1);
}

void tst_MapResizing::blocksAtTheLimitsAreRemoved()
{
    QFETCH(QRect, rect);
    QFETCH(QPoint, offset);
    const auto map = TestMaps::map({4, 4}, nullptr);
    map->addAnimation({QUuid::createUuid(), rect, 0, 0, 0});

    map->shiftContents(offset);

    QVERIFY(map->animatedBlocks()->blocks().isEmpty());
}

void tst_MapResizing::spritesOutsideAreRemoved_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<bool>("stays");
    QTest::newRow("first pixel") << QPoint(-8, -8) << true;
    QTest::newRow("left of it") << QPoint(-9, -8) << false;
    QTest::newRow("above it") << QPoint(-8, -9) << false;
    QTest::newRow("last pixel") << QPoint(15, 7) << true;
    QTest::newRow("right of it") << QPoint(16, 7) << false;
    QTest::newRow("below it") << QPoint(15, 8) << false;
    QTest::newRow("at the upper limit") << QPoint(Most, Most) << false;
    QTest::newRow("at the lower limit") << QPoint(Least, Least) << false;
}

void tst_MapResizing::spritesOutsideAreRemoved()
{
    QFETCH(QPoint, position);
    QFETCH(bool, stays);
    const auto map = TestMaps::map({3, 2}, nullptr);
    map->setSprites({spriteAt(position.x(), position.y())});

    map->shiftContents({1, 1});

    QCOMPARE(map->sprites().size(), stays ? 1 : 0);
}

void tst_MapResizing::aSpriteIsRemovedWithItsColumns()
{
    const auto map = TestMaps::map({5, 1}, nullptr);
    map->setSprites({spriteAt(8, 0), spriteAt(16, 0)});

    for (int i = 0; i < 2; ++i) {
        map->tileLayer()->removeColumn(Tessaril::Position::Begin);
        map->objectLayer()->removeColumn(Tessaril::Position::Begin);
        map->shiftContents({-1, 0});
    }

    QCOMPARE(positions(*map), (QList<QPoint>{{0, 0}}));
}

void tst_MapResizing::shiftingWithoutLayersRemovesAll()
{
    Map map(QStringLiteral("level"));
    map.setSprites({spriteAt(0, 0)});
    map.addAnimation({QUuid::createUuid(), {0, 0, 1, 1}, 0, 0, 0});

    map.shiftContents({0, 0});

    QVERIFY(map.sprites().isEmpty());
    QVERIFY(map.animatedBlocks()->blocks().isEmpty());
}

QTEST_GUILESS_MAIN(tst_MapResizing)
#include "tst_MapResizing.moc"
