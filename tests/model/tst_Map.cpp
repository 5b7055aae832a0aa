#include "model/Map.h"

#include "model/AnimatedBlocks.h"
#include "model/MapObjects.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"
#include "support/TestMaps.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
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

/// An animation of @p size whose first frame holds tiles 1, 2, 3 and on, row by row.
TileAnimation *countedAnimation(MapObjects *list, QSize size)
{
    TileAnimation *animation = list->createTileAnimation(QStringLiteral("block"));
    animation->setSize(size);
    AnimationFrame *frame = animation->addFrame();
    for (int i = 0; i < size.width() * size.height(); ++i)
        frame->setCell({i % size.width(), i / size.width()}, {.index = i + 1});
    return animation;
}

} // namespace

class tst_Map : public QObject
{
    Q_OBJECT

private slots:
    void aNewMapHasItsDefaults();
    void signalsAndSlotsStandInTheAgreedOrder();
    void namesSendOnlyWhenTheyDiffer();
    void settingsSendNothing();
    void layersKeepTheirParentAndEndWithTheMap();
    void aLayerMayEndBeforeTheMap();
    void bindingASetBindsBothLayers();
    void bindingASetWithoutALayerWarns();
    void deletedTilesRenumberBothLayers();
    void insertedTilesRenumberBothLayers();
    void anotherSetIsNoLongerFollowed();
    void addedAnimationsBelongToTheList();
    void restoredAnimationsClearTheTilesAndStamp();
    void everyListWithTheIdStamps();
    void restoredAnimationsReachOnlyIntoTheMap();
    void theNullIdIsNeverStamped();
    void stampsTurnsAndOffsets();
    void stampsOnlyInsideTheMap_data();
    void stampsOnlyInsideTheMap();
    void anAnimationWithoutFramesStampsNothing();
    void aStateIsAValue();
    void restoringEndsWithRestored();
    void restoringBringsBackEverything();
    void stateRowsAreShared();
    void withoutLayersThePlacedThingsStay();
    void exportsTwoBytesACell();
    void exportIntoAMissingFolderFails();
};

void tst_Map::aNewMapHasItsDefaults()
{
    const Map map(QStringLiteral("level"));

    QCOMPARE(map.name(), QStringLiteral("level"));
    QVERIFY(!map.id().isNull());
    QVERIFY(map.tileSetId().isNull());
    QVERIFY(map.tileSet().isNull());
    QVERIFY(map.tileLayer().isNull());
    QVERIFY(map.objectLayer().isNull());
    QCOMPARE(map.animatedBlocks()->parent(), &map);
    QVERIFY(map.sprites().isEmpty());
    QVERIFY(map.isSpriteLayerVisible());
    QVERIFY(!map.isGridVisible());
    QCOMPARE(map.tileTransparencyIndex(), -1);
    QCOMPARE(map.backgroundTileIndex(), -1);
    QCOMPARE(Map::PlacedSprite().sprite, -1);
}

void tst_Map::signalsAndSlotsStandInTheAgreedOrder()
{
    const QMetaObject &meta = Map::staticMetaObject;
    QByteArrayList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names << meta.method(i).name();

    QCOMPARE(names, (QByteArrayList{"nameChanged", "resized", "restored", "setName",
                                    "setTileTransparencyIndex", "setBackgroundTileIndex"}));
}

void tst_Map::namesSendOnlyWhenTheyDiffer()
{
    Map map(QStringLiteral("level"));
    QSignalSpy renamed(&map, &Map::nameChanged);

    map.setName(QStringLiteral("level"));
    map.setName(QStringLiteral("cave"));

    QCOMPARE(renamed.count(), 1);
    QCOMPARE(renamed.at(0).at(0).toString(), QStringLiteral("cave"));
    QCOMPARE(map.name(), QStringLiteral("cave"));
}

void tst_Map::settingsSendNothing()
{
    const auto map = TestMaps::map({2, 2}, nullptr);
    QSignalSpy renamed(map.get(), &Map::nameChanged);
    QSignalSpy resized(map.get(), &Map::resized);
    QSignalSpy restored(map.get(), &Map::restored);

    map->setTileTransparencyIndex(15);
    map->setBackgroundTileIndex(7);

    QCOMPARE(map->tileTransparencyIndex(), 15);
    QCOMPARE(map->backgroundTileIndex(), 7);
    QCOMPARE(renamed.count() + resized.count() + restored.count(), 0);
}

void tst_Map::layersKeepTheirParentAndEndWithTheMap()
{
    QObject project;
    auto map = std::make_unique<Map>(QStringLiteral("level"));
    const QPointer<TileMap> tileLayer = new TileMap({2, 2}, &project);
    const QPointer<TileMap> objectLayer = new TileMap({2, 2}, &project);

    map->setTileLayer(tileLayer);
    map->setObjectLayer(objectLayer);

    QCOMPARE(tileLayer->parent(), &project);
    QCOMPARE(objectLayer->parent(), &project);
    map.reset();
    QVERIFY(tileLayer.isNull());
    QVERIFY(objectLayer.isNull());
}

void tst_Map::aLayerMayEndBeforeTheMap()
{
    Map map(QStringLiteral("level"));
    auto project = std::make_unique<QObject>();
    map.setTileLayer(new TileMap({2, 2}, project.get()));
    map.setObjectLayer(new TileMap({2, 2}, project.get()));

    project.reset();

    QVERIFY(map.tileLayer().isNull());
    QVERIFY(map.objectLayer().isNull());
}

void tst_Map::bindingASetBindsBothLayers()
{
    TileSet tiles(nullptr, 4);
    const auto map = TestMaps::map({2, 2}, &tiles);

    QCOMPARE(map->tileSet(), &tiles);
    QCOMPARE(map->tileSetId(), tiles.id());
    QCOMPARE(map->tileLayer()->tileSet(), &tiles);
    QCOMPARE(map->objectLayer()->tileSet(), &tiles);
}

void tst_Map::bindingASetWithoutALayerWarns()
{
    TileSet tiles(nullptr, 4);
    Map map(QStringLiteral("level"));

    QTest::ignoreMessage(QtWarningMsg, "_tileMap==nullptr");
    map.setTileSet(&tiles);

    QCOMPARE(map.tileSetId(), tiles.id());
}

void tst_Map::deletedTilesRenumberBothLayers()
{
    TileSet tiles(nullptr, 9);
    const auto map = TestMaps::map({3, 1}, &tiles);
    map->tileLayer()->setTiles({{cell(4), cell(5), cell(6)}});
    map->objectLayer()->setTiles({{cell(8), cell(5), cell(0)}});

    tiles.deleteTile(5);

    QCOMPARE(indices(*map->tileLayer()), (Indices{{4, 0, 5}}));
    QCOMPARE(indices(*map->objectLayer()), (Indices{{7, 0, 0}}));
    QVERIFY(map->tileLayer()->cell({1, 0}).occupied);
}

void tst_Map::insertedTilesRenumberBothLayers()
{
    TileSet tiles(nullptr, 9);
    const auto map = TestMaps::map({3, 1}, &tiles);
    map->tileLayer()->setTiles({{cell(4), cell(5), cell(6)}});
    map->objectLayer()->setTiles({{cell(8), cell(5), cell(0)}});

    tiles.insertTile(5);

    QCOMPARE(indices(*map->tileLayer()), (Indices{{4, 6, 7}}));
    QCOMPARE(indices(*map->objectLayer()), (Indices{{9, 6, 0}}));
}

void tst_Map::anotherSetIsNoLongerFollowed()
{
    TileSet first(nullptr, 9);
    TileSet second(nullptr, 9);
    const auto map = TestMaps::map({1, 1}, &first);
    map->tileLayer()->setTiles({{cell(4)}});
    map->setTileSet(&second);

    first.deleteTile(0);
    QCOMPARE(indices(*map->tileLayer()), (Indices{{4}}));
    second.deleteTile(0);

    QCOMPARE(indices(*map->tileLayer()), (Indices{{3}}));
}

void tst_Map::addedAnimationsBelongToTheList()
{
    const auto map = TestMaps::map({4, 4}, nullptr);
    const QUuid id = QUuid::createUuid();

    map->addAnimation({id, {1, 2, 3, 1}, 4, 5, 6});

    const QPointer<AnimationProperties> record = map->animatedBlocks()->blocks().first();
    QCOMPARE(record->parent(), map->animatedBlocks());
    QCOMPARE(record->id, id);
    QCOMPARE(record->rect, QRect(1, 2, 3, 1));
    QCOMPARE(record->initialDelay, 4);
    QCOMPARE(record->repeatDelay, 5);
    QCOMPARE(record->startFrame, 6);
    QCOMPARE(indices(*map->objectLayer()), Indices(4, QList<int>(4, 0)));
}

void tst_Map::restoredAnimationsClearTheTilesAndStamp()
{
    TileSet tiles(nullptr, 16);
    const auto map = TestMaps::map({1, 1}, &tiles);
    map->tileLayer()->setTiles(TestMaps::counted(3, 2));
    map->objectLayer()->setTiles(TileMap::Rows(2, QList<TileMap::TileData>(3)));
    MapObjects other;
    MapObjects list;
    const TileAnimation *animation = countedAnimation(&list, {2, 1});
    map->addAnimation({animation->id(), {1, 1, 2, 1}, 0, 0, 0});
    map->addAnimation({QUuid::createUuid(), {0, 0, 2, 1}, 0, 0, 0});

    map->restoreAnimations({&other, &list});

    QCOMPARE(indices(*map->tileLayer()), (Indices{{0, 0, 2}, {3, 0, 0}}));
    QVERIFY(map->tileLayer()->cell({2, 1}).occupied);
    QCOMPARE(indices(*map->objectLayer()), (Indices{{0, 0, 0}, {0, 1, 2}}));
    QVERIFY(map->objectLayer()->cell({1, 1}).occupied);
    QVERIFY(!map->objectLayer()->cell({0, 0}).occupied);
}

void tst_Map::everyListWithTheIdStamps()
{
    const auto map = TestMaps::map({2, 1}, nullptr);
    MapObjects wide;
    MapObjects narrow;
    const QUuid id = countedAnimation(&wide, {2, 1})->id();
    auto *twin = new TileAnimation(&narrow);
    twin->setId(id);
    twin->addFrame()->setCell({0, 0}, {.index = 9});
    narrow.addAnimation(twin);
    map->addAnimation({id, {0, 0, 2, 1}, 0, 0, 0});

    map->restoreAnimations({&wide, &narrow});

    QCOMPARE(indices(*map->objectLayer()), (Indices{{9, 2}}));
}

void tst_Map::restoredAnimationsReachOnlyIntoTheMap()
{
    const auto map = TestMaps::map({1, 1}, nullptr);
    map->tileLayer()->setTiles(TestMaps::counted(3, 1));
    MapObjects list;
    const TileAnimation *animation = countedAnimation(&list, {2, 1});
    map->addAnimation({animation->id(), QRect(QPoint(1, Least), QPoint(Most, Most)), 0, 0, 0});

    map->restoreAnimations({&list});

    QCOMPARE(indices(*map->tileLayer()), (Indices{{0, 0, 0}}));
    QCOMPARE(map->tileLayer()->cell({0, 0}).occupied, true);
    QCOMPARE(indices(*map->objectLayer()), (Indices{{0}}));
}

void tst_Map::theNullIdIsNeverStamped()
{
    const auto map = TestMaps::map({2, 1}, nullptr);
    MapObjects list;
    TileAnimation *animation = countedAnimation(&list, {2, 1});
    animation->setId(QUuid());
    list.addAnimation(animation);
    map->addAnimation({QUuid(), {0, 0, 2, 1}, 0, 0, 0});

    map->restoreAnimations({&list});

    QCOMPARE(indices(*map->objectLayer()), (Indices{{0, 0}}));
}

void tst_Map::stampsTurnsAndOffsets()
{
    const auto map = TestMaps::map({1, 1}, nullptr);
    MapObjects list;
    TileAnimation *animation = countedAnimation(&list, {1, 1});
    AnimationFrame::Cell source{7, 3, true, false, true};
    animation->frame(0)->setCell({0, 0}, source);
    animation->addFrame();

    map->stampAnimation(animation, {0, 0});

    TileMap::TileData expected = cell(7, 3);
    expected.flip = true;
    expected.rotate = true;
    QVERIFY(map->objectLayer()->cell({0, 0}) == expected);
}

void tst_Map::stampsOnlyInsideTheMap_data()
{
    QTest::addColumn<QPoint>("topLeft");
    QTest::addColumn<Indices>("expected");
    const Indices blank{{0, 0, 0}, {0, 0, 0}};
    QTest::newRow("inside") << QPoint(1, 0) << Indices{{0, 1, 2}, {0, 3, 4}};
    QTest::newRow("over the top left") << QPoint(-1, -1) << Indices{{4, 0, 0}, {0, 0, 0}};
    QTest::newRow("over the bottom right") << QPoint(2, 1) << Indices{{0, 0, 0}, {0, 0, 1}};
    QTest::newRow("left of it") << QPoint(-2, 0) << blank;
    QTest::newRow("below it") << QPoint(0, 2) << blank;
    QTest::newRow("at the lower limit") << QPoint(Least, Least) << blank;
    QTest::newRow("at the upper limit") << QPoint(Most, Most) << blank;
}

void tst_Map::stampsOnlyInsideTheMap()
{
    QFETCH(QPoint, topLeft);
    QFETCH(Indices, expected);
    const auto map = TestMaps::map({3, 2}, nullptr);
    MapObjects list;

    map->stampAnimation(countedAnimation(&list, {2, 2}), topLeft);

    QCOMPARE(indices(*map->objectLayer()), expected);
}

void tst_Map::anAnimationWithoutFramesStampsNothing()
{
    const auto map = TestMaps::map({1, 1}, nullptr);
    MapObjects list;
    const TileAnimation *animation = list.createTileAnimation(QStringLiteral("block"));

    map->stampAnimation(animation, {0, 0});

    QVERIFY(!map->objectLayer()->cell({0, 0}).occupied);
}

void tst_Map::aStateIsAValue()
{
    const auto map = TestMaps::map({2, 1}, nullptr);
    map->addAnimation({QUuid::createUuid(), {0, 0, 1, 1}, 1, 2, 3});
    map->setSprites({spriteAt(1, 2)});
    const Map::State state = map->state();
    QVERIFY(state == map->state());

    map->tileLayer()->setCell({0, 0}, cell(1));
    QVERIFY(!(state == map->state()));
    map->restore(state);
    map->objectLayer()->setCell({0, 0}, cell(1));
    QVERIFY(!(state == map->state()));
    map->restore(state);
    map->animatedBlocks()->blocks().first()->startFrame = 4;
    QVERIFY(!(state == map->state()));
    map->restore(state);
    map->sprites().first().name = QStringLiteral("hero");
    QVERIFY(!(state == map->state()));
    map->restore(state);

    QVERIFY(state == map->state());
}

void tst_Map::restoringEndsWithRestored()
{
    const auto map = TestMaps::map({2, 1}, nullptr);
    map->setSprites({spriteAt(1, 2)});
    const Map::State state = map->state();
    map->setSprites({});
    QStringList order;
    connect(map->tileLayer(), &TileMap::tilesChanged, this, [&order] { order << "tiles"; });
    connect(map->objectLayer(), &TileMap::tilesChanged, this, [&order] { order << "objects"; });
    connect(map.get(), &Map::restored, this, [&order, &map] {
        order << "restored";
        QCOMPARE(map->sprites().size(), 1);
    });
    QSignalSpy resized(map.get(), &Map::resized);

    map->restore(state);

    QCOMPARE(order, (QStringList{"tiles", "objects", "restored"}));
    QCOMPARE(resized.count(), 0);
}

void tst_Map::restoringBringsBackEverything()
{
    const auto map = TestMaps::map({1, 1}, nullptr);
    map->tileLayer()->setTiles(TestMaps::counted(3, 2));
    map->objectLayer()->setTiles(TestMaps::counted(3, 2));
    map->addAnimation({QUuid::createUuid(), {0, 0, 2, 1}, 1, 2, 3});
    map->setSprites({spriteAt(1, 2), spriteAt(3, 4)});
    const Map::State state = map->state();

    map->resize({1, 1}, Qt::AlignRight);
    map->restore(state);

    QCOMPARE(map->tileLayer()->size(), QSize(3, 2));
    QCOMPARE(indices(*map->objectLayer()), (Indices{{0, 1, 2}, {3, 4, 5}}));
    QCOMPARE(map->animatedBlocks()->blocks().first()->repeatDelay, 2);
    QCOMPARE(positions(*map), (QList<QPoint>{{1, 2}, {3, 4}}));
    QVERIFY(map->state() == state);
}

void tst_Map::stateRowsAreShared()
{
    const auto map = TestMaps::map({3, 2}, nullptr);
    const Map::State state = map->state();

    map->tileLayer()->setCell({1, 1}, cell(4));

    QVERIFY(state.objectRows.isSharedWith(map->objectLayer()->rows()));
    QVERIFY(state.tileRows.at(0).isSharedWith(map->tileLayer()->rows().at(0)));
    QCOMPARE(state.tileRows.at(1).at(1).index, 0);
}

void tst_Map::withoutLayersThePlacedThingsStay()
{
    TileSet tiles(nullptr, 2);
    MapObjects list;
    const TileAnimation *animation = countedAnimation(&list, {1, 1});
    Map map(QStringLiteral("level"));
    QTest::ignoreMessage(QtWarningMsg, "_tileMap==nullptr");
    map.setTileSet(&tiles);
    map.addAnimation({animation->id(), {0, 0, 1, 1}, 0, 0, 0});
    map.setSprites({spriteAt(3, 4)});
    const Map::State before = map.state();
    QSignalSpy restored(&map, &Map::restored);

    tiles.insertTile(0);
    map.restoreAnimations({&list});
    map.restore(before);

    QCOMPARE(map.state(), before);
    QCOMPARE(placedRects(map), (QList<QRect>{{0, 0, 1, 1}}));
    QCOMPARE(positions(map), (QList<QPoint>{{3, 4}}));
    QCOMPARE(restored.count(), 1);
}

void tst_Map::exportsTwoBytesACell()
{
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("level.map"));
    const auto map = TestMaps::map({40, 32}, nullptr);
    TileMap::TileData data = cell(300, 2);
    data.flip = true;
    map->tileLayer()->setCell({1, 0}, data);

    QVERIFY(map->exportData(fileName));

    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QCOMPARE(bytes.size(), 2560);
    QCOMPARE(bytes.left(4).toHex(), QByteArray("00002c25"));
}

void tst_Map::exportIntoAMissingFolderFails()
{
    const QTemporaryDir folder;

    QVERIFY(!TestMaps::map({1, 1}, nullptr)->exportData(folder.filePath("none/level.map")));
}

QTEST_GUILESS_MAIN(tst_Map)
#include "tst_Map.moc"
