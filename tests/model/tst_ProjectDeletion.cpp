#include "model/Project.h"

#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"
#include "model/TileSet.h"

#include <QTest>

class tst_ProjectDeletion : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aBoundPaletteCannotBeDeleted_data();
    void aBoundPaletteCannotBeDeleted();
    void theScratchPaletteCannotBeDeleted();
    void aTileSetOfAMapCannotBeDeleted();
    void aTileSetOfABlockListCanBeDeleted();
    void blocksCannotBeDeletedWhileAMapUsesTheirTileSet();
    void mapsAndBanksAreAlwaysDeleted();
    void unknownIdsCountAsDeleted();
    void unknownIdsCountAsDeletedEvenIfTheyAreNamed();

    void movedSpritesArePlacedOn_data();
    void movedSpritesArePlacedOn();
    void aDeletedSpriteIsTakenOffTheMaps();
    void spritesOfOtherBanksAndAnimationsStay();

    void deletingTheProjectDeletesItsDocuments();

private:
    Map *mapWithSprites(const QList<int> &sprites);
    QList<int> placed() const;

    std::unique_ptr<Project> m_project;
    SpriteBank *m_bank = nullptr;
    Map *m_map = nullptr;
};

namespace {

using Strings = QStringList;

} // namespace

void tst_ProjectDeletion::init()
{
    m_project = std::make_unique<Project>();
}

void tst_ProjectDeletion::cleanup()
{
    m_project.reset();
    m_bank = nullptr;
    m_map = nullptr;
}

/// A map on which these sprites of m_bank stand, and one animation and one sprite of another bank.
Map *tst_ProjectDeletion::mapWithSprites(const QList<int> &sprites)
{
    m_bank = m_project->createSpriteBank(Tessaril::Sprite::FourBit, "bank", QUuid());
    const auto tiles = m_project->createTileSet("tiles", QUuid(), 4);
    m_map = m_project->createMap("map", tiles->id(), {4, 4});
    for (const int sprite : sprites) {
        Map::PlacedSprite placedSprite;
        placedSprite.bank = m_bank->id();
        placedSprite.sprite = sprite;
        m_map->sprites().append(placedSprite);
    }
    return m_map;
}

QList<int> tst_ProjectDeletion::placed() const
{
    QList<int> sprites;
    for (const Map::PlacedSprite &sprite : m_map->sprites())
        sprites += sprite.sprite;
    return sprites;
}

void tst_ProjectDeletion::aBoundPaletteCannotBeDeleted_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("tile set") << 0;
    QTest::newRow("sprite bank") << 1;
    QTest::newRow("image") << 2;
}

void tst_ProjectDeletion::aBoundPaletteCannotBeDeleted()
{
    QFETCH(int, kind);
    const auto bound = m_project->createPalette(CreateBlank, "bound");
    const auto free = m_project->createPalette(CreateBlank, "free");
    if (kind == 0)
        m_project->createTileSet("user", bound->id(), 1);
    if (kind == 1)
        m_project->createSpriteBank(Tessaril::Sprite::FourBit, "user", bound->id());
    if (kind == 2)
        m_project->createImage(Tessaril::ImageMode::LoRes_128x96, "user", bound->id());

    QVERIFY(!m_project->deletePalette(bound->id()));
    QVERIFY(m_project->deletePalette(free->id()));

    QVERIFY(bound);
    QVERIFY(!free);
    QCOMPARE(m_project->palettes(), QList{bound});
}

void tst_ProjectDeletion::theScratchPaletteCannotBeDeleted()
{
    const auto palette = m_project->createPalette(CreateBlank, "scratch");
    m_project->setScratchPaletteId(palette->id());

    QVERIFY(!m_project->deletePalette(palette->id()));
    QCOMPARE(m_project->scratchPalette(), palette);
}

void tst_ProjectDeletion::aTileSetOfAMapCannotBeDeleted()
{
    const auto tiles = m_project->createTileSet("tiles", QUuid(), 1);
    const auto map = m_project->createMap("map", tiles->id(), {1, 1});

    QVERIFY(!m_project->deleteTileSet(tiles->id()));
    QVERIFY(m_project->deleteMap(map->id()));
    QVERIFY(m_project->deleteTileSet(tiles->id()));
    QVERIFY(!tiles);
}

void tst_ProjectDeletion::aTileSetOfABlockListCanBeDeleted()
{
    const auto tiles = m_project->createTileSet("tiles", QUuid(), 1);
    const auto blocks = m_project->createBlockList("blocks", tiles->id());

    QVERIFY(m_project->deleteTileSet(tiles->id()));

    QVERIFY(blocks);
    QVERIFY(!blocks->tileSet());
}

void tst_ProjectDeletion::blocksCannotBeDeletedWhileAMapUsesTheirTileSet()
{
    const auto tiles = m_project->createTileSet("tiles", QUuid(), 1);
    const auto used = m_project->createBlockList("used", tiles->id());
    m_project->createMap("map", tiles->id(), {1, 1});
    const auto others = m_project->createTileSet("others", QUuid(), 1);
    const auto unused = m_project->createBlockList("unused", others->id());

    QVERIFY(!m_project->deleteBlocks(used->id()));
    QVERIFY(m_project->deleteBlocks(unused->id()));

    QVERIFY(used);
    QVERIFY(!unused);
}

void tst_ProjectDeletion::mapsAndBanksAreAlwaysDeleted()
{
    const QPointer<Map> map = mapWithSprites({0});
    const QPointer<SpriteBank> bank = m_bank;

    QVERIFY(m_project->deleteSpriteBank(bank->id()));
    QVERIFY(!bank);
    QCOMPARE(map->sprites().size(), 1);
    QVERIFY(m_project->deleteMap(map->id()));
    QVERIFY(!map);
    QVERIFY(m_project->maps().isEmpty());
}

void tst_ProjectDeletion::unknownIdsCountAsDeleted()
{
    const QUuid id = QUuid::createUuid();

    QVERIFY(m_project->deletePalette(id));
    QVERIFY(m_project->deleteTileSet(id));
    QVERIFY(m_project->deleteBlocks(id));
    QVERIFY(m_project->deleteMap(id));
    QVERIFY(m_project->deleteSpriteBank(id));
}

void tst_ProjectDeletion::unknownIdsCountAsDeletedEvenIfTheyAreNamed()
{
    const QUuid id = QUuid::createUuid();
    m_project->setScratchPaletteId(id);
    const auto tiles = m_project->createTileSet("tiles", QUuid(), 4);
    const auto blocks = m_project->createBlockList("blocks", tiles->id());
    const QUuid gone = blocks->id();
    QVERIFY(m_project->deleteBlocks(gone));
    const auto map = m_project->createMap("level", tiles->id(), {1, 1});
    TileSet stranger;
    map->setTileSet(&stranger);

    QVERIFY(m_project->deletePalette(id));
    QVERIFY(m_project->deleteTileSet(stranger.id()));
    map->setTileSet(tiles);
    QVERIFY(m_project->deleteBlocks(gone));
}

void tst_ProjectDeletion::movedSpritesArePlacedOn_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QList<int>>("after");
    QTest::newRow("up") << 2 << 5 << QList{-1, 1, 5, 2, 3, 4, 6};
    QTest::newRow("down") << 5 << 2 << QList{-1, 1, 3, 4, 5, 2, 6};
    QTest::newRow("nowhere") << 3 << 3 << QList{-1, 1, 2, 3, 4, 5, 6};
}

void tst_ProjectDeletion::movedSpritesArePlacedOn()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QList<int>, after);
    mapWithSprites({-1, 1, 2, 3, 4, 5, 6});

    emit m_bank->spriteMoved(from, to);

    QCOMPARE(placed(), after);
}

void tst_ProjectDeletion::aDeletedSpriteIsTakenOffTheMaps()
{
    mapWithSprites({-1, 3, 2, 4, 3, 9});

    emit m_bank->spriteDeleted(3);

    QCOMPARE(placed(), (QList{-1, 2, 3, 8}));
}

void tst_ProjectDeletion::spritesOfOtherBanksAndAnimationsStay()
{
    Map *map = mapWithSprites({3, 3});
    map->sprites()[0].animation = QUuid::createUuid();
    map->sprites()[1].bank = QUuid::createUuid();

    emit m_bank->spriteMoved(3, 0);
    QCOMPARE(placed(), (QList{3, 3}));
    emit m_bank->spriteDeleted(3);
    QCOMPARE(placed(), (QList{3, 3}));
}

void tst_ProjectDeletion::deletingTheProjectDeletesItsDocuments()
{
    QStringList order;
    const auto image = m_project->createImage(Tessaril::ImageMode::LoRes_128x96, "first", QUuid());
    connect(image, &QObject::destroyed, this, [&] { order += "image"; });
    const QPointer<Map> map = mapWithSprites({0});
    connect(map, &QObject::destroyed, this, [&] { order += "map"; });
    connect(map->tileSet(), &QObject::destroyed, this, [&] { order += "tile set"; });
    connect(map->tileSet()->palette(), &QObject::destroyed, this, [&] { order += "palette"; });

    m_project.reset();

    QCOMPARE(order, (Strings{"map", "tile set", "palette", "image"}));
}

QTEST_GUILESS_MAIN(tst_ProjectDeletion)
#include "tst_ProjectDeletion.moc"
