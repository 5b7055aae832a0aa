#include "model/ProjectReader.h"

#include "model/AnimatedBlocks.h"
#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"
#include "support/BareEntries.h"
#include "support/ProjectDifferences.h"
#include "support/TestProjects.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using BareEntries::Id;
using BareEntries::MapName;
using BareEntries::one;
using BareEntries::OtherId;
using BareEntries::SetName;
using TestProjects::Entries;

class tst_ProjectReader : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aRichProjectReadsBackWhole();
    void documentsAreAnnouncedInTheOrderOfLoading();
    void announcedDocumentsAreEnteredAndBound();
    void anEmptyObjectTakesAllDefaults();
    void aPaletteTakesItsDefaults();
    void aTileSetTakesItsDefaults();
    void tilesWinOverOffsets();
    void aTileSetWithoutTilesNeedsNoPicture();
    void aMapTakesItsDefaults();
    void aMapWithoutCellsKeepsItsSize_data();
    void aMapWithoutCellsKeepsItsSize();
    void animationsMayBe256CellsLong();
    void emptyPlacedBlocksAreSkippedAndEmptySpritesKept();
    void aSpriteBankTakesItsDefaults();
    void aBlockListTakesItsDefaults();
    void anImageTakesItsDefaults();
    void frameIdsAreKeptForBlocksOnly();
    void aNewSpriteAnimationLosesItsFirstFrame();
    void aBlockThatIsNowhereLeavesABlankPatch();
    void theScratchPaletteIsTheOneThatIsNamed();
    void theScratchPaletteFallsBackToTheFirst();
    void boundPalettesColourStripAndImage();

private:
    bool load(const Entries &entries);
    bool load(const QJsonObject &root) { return load(TestProjects::jsonEntries(root)); }

    std::unique_ptr<Project> m_project;
    QString m_error;
};

void tst_ProjectReader::init()
{
    m_project = std::make_unique<Project>();
    m_error.clear();
}

bool tst_ProjectReader::load(const Entries &entries)
{
    return m_project->load(TestProjects::reader(entries), &m_error);
}

void tst_ProjectReader::aRichProjectReadsBackWhole()
{
    Project rich;
    TestProjects::fill(&rich);
    QTest::failOnWarning(QRegularExpression("cannot be parsed"));

    QVERIFY(load(rich.archiveEntries(true)));

    QCOMPARE(ProjectDifferences::between(rich, *m_project), QStringList());
    Project third;
    QVERIFY(third.load(TestProjects::reader(m_project->archiveEntries(true)), &m_error));
    QCOMPARE(ProjectDifferences::between(*m_project, third), QStringList());
}

void tst_ProjectReader::documentsAreAnnouncedInTheOrderOfLoading()
{
    const Entries entries = TestProjects::richEntries();
    QStringList shown;
    connect(m_project.get(), qOverload<QString, int>(&Project::showMessage), this,
            [&](const QString &text, int ms) { shown += text + u' ' + QString::number(ms); });
    QSignalSpy created(m_project.get(), &Project::paletteCreated);

    QVERIFY(load(entries));

    QCOMPARE(shown, (QStringList{"New palette added: Day 2500", "New tile set added: Rocks 2500",
                                 "New map added: Level 1 2500", "New Sprite Bank Added 0",
                                 "New block set added: Doors 2500"}));
    QCOMPARE(created.count(), 0);
}

void tst_ProjectReader::announcedDocumentsAreEnteredAndBound()
{
    const Entries entries = TestProjects::richEntries();
    QStringList found; // with each message
    connect(m_project.get(), qOverload<QString, int>(&Project::showMessage), this, [&] {
        const auto tileSets = m_project->tileSets();
        found += QStringLiteral("%1 palettes, %2 sets, %3 maps, %4 banks, %5 lists%6")
                     .arg(m_project->palettes().size())
                     .arg(tileSets.size())
                     .arg(m_project->maps().size())
                     .arg(m_project->spriteBanks().size())
                     .arg(m_project->mapObjects().size())
                     .arg(!tileSets.isEmpty() && tileSets.first()->palette() ? ", bound" : "");
    });

    QVERIFY(load(entries));

    QCOMPARE(found, (QStringList{"1 palettes, 0 sets, 0 maps, 0 banks, 0 lists",
                                 "1 palettes, 1 sets, 0 maps, 0 banks, 0 lists, bound",
                                 "1 palettes, 1 sets, 1 maps, 0 banks, 0 lists, bound",
                                 "1 palettes, 1 sets, 1 maps, 1 banks, 0 lists, bound",
                                 "1 palettes, 1 sets, 1 maps, 1 banks, 1 lists, bound"}));
}

void tst_ProjectReader::anEmptyObjectTakesAllDefaults()
{
    QVERIFY(load(QJsonObject()));

    QVERIFY(m_project->id().isNull());
    QCOMPARE(m_project->name(), QString());
    QCOMPARE(m_project->screenSize(), QSize(320, 256));
    QCOMPARE(m_project->playArea(), QRect(0, 0, 320, 256));
    QVERIFY(m_project->scratchPaletteId().isNull());
    QVERIFY(m_project->openDocuments().isEmpty());
    QVERIFY(m_project->palettes().isEmpty());
}

void tst_ProjectReader::aPaletteTakesItsDefaults()
{
    QVERIFY(load(one("palettes", {})));

    const auto palette = m_project->palettes().value(0);
    QVERIFY(palette && !palette->id().isNull());
    QCOMPARE(palette->name(), QString());
    QCOMPARE(palette->transparencyIndex(), -1);
    QCOMPARE(palette->word(0), quint16(0));
}

void tst_ProjectReader::aTileSetTakesItsDefaults()
{
    Entries entries = TestProjects::jsonEntries(one("tilesets", {{"id", Id}}));
    entries[SetName] = TestProjects::png({8, 4096});

    QVERIFY(load(entries));

    const auto tileSet = m_project->tileSet(QUuid(Id));
    QVERIFY(tileSet);
    QCOMPARE(tileSet->name(), QString());
    QVERIFY(!tileSet->hiRes());
    QVERIFY(!tileSet->palette());
    QCOMPARE(tileSet->count(), 512);
    QCOMPARE(tileSet->tile(0)->offset(), 0);
    QCOMPARE(tileSet->tile(0)->image().pixelIndex(7, 7), 63);
    QCOMPARE(tileSet->tile(1)->image().pixelIndex(0, 0), 64);
    QCOMPARE(tileSet->tile(1)->image().color(1), qRgb(1, 254, 7));
}

void tst_ProjectReader::tilesWinOverOffsets()
{
    const QJsonObject tile{{"offset", 5}, {"attributes", 6}, {"value", 7}};
    Entries entries =
        TestProjects::jsonEntries(one("tilesets", {{"id", Id},
                                                   {"count", 3},
                                                   {"offsets", QJsonArray{1, 2, 3, 4, 5}},
                                                   {"tiles", QJsonArray{tile, QJsonObject()}}}));
    entries[SetName] = TestProjects::png({8, 24});

    QVERIFY(load(entries));

    const auto tileSet = m_project->tileSet(QUuid(Id));
    QCOMPARE(tileSet->tile(0)->offset(), 5);
    QCOMPARE(tileSet->tile(0)->attributes(), 6);
    QCOMPARE(tileSet->tile(0)->value(), 7);
    QCOMPARE(tileSet->tile(1)->offset(), 0);
    QCOMPARE(tileSet->tile(1)->attributes(), 0);
    QCOMPARE(tileSet->tile(1)->value(), 0);
    QCOMPARE(tileSet->tile(2)->offset(), 3);
}

void tst_ProjectReader::aTileSetWithoutTilesNeedsNoPicture()
{
    Project project;
    const QUuid id = project.createTileSet("none", QUuid(), 0)->id();

    QVERIFY(load(project.archiveEntries(true)));

    QVERIFY(m_project->tileSet(id));
    QCOMPARE(m_project->tileSet(id)->count(), 0);
}

void tst_ProjectReader::aMapTakesItsDefaults()
{
    QVERIFY(load(BareEntries::map()));

    const auto map = m_project->map(QUuid(OtherId));
    QVERIFY(map);
    QCOMPARE(map->tileTransparencyIndex(), -1);
    QVERIFY(map->isGridVisible());
    QVERIFY(map->tileLayer()->isVisible());
    QVERIFY(!map->objectLayer()->isVisible());
    QVERIFY(map->isSpriteLayerVisible());
    QCOMPARE(map->backgroundTileIndex(), -1);
    QCOMPARE(map->tileLayer()->parent(), m_project.get());
    QCOMPARE(map->objectLayer()->parent(), m_project.get());
    QCOMPARE(map->objectLayer()->size(), QSize(2, 2));
    QCOMPARE(map->tileLayer()->cell({1, 1}).index, 3);
    QVERIFY(map->tileLayer()->cell({1, 1}).occupied);
    QCOMPARE(map->tileLayer()->tileSet(), m_project->tileSet(QUuid(Id)));
}

void tst_ProjectReader::aMapWithoutCellsKeepsItsSize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("no row") << QSize(12, 0);
    QTest::newRow("no column") << QSize(0, 12);
    QTest::newRow("neither") << QSize(0, 0);
}

void tst_ProjectReader::aMapWithoutCellsKeepsItsSize()
{
    QFETCH(QSize, size);
    Entries entries = BareEntries::map();
    entries[MapName] = TestProjects::tileMap(size.height(), size.width());

    QVERIFY(load(entries));

    const auto map = m_project->map(QUuid(OtherId));
    QCOMPARE(map->tileLayer()->size(), size);
    QCOMPARE(map->objectLayer()->size(), size);
}

void tst_ProjectReader::animationsMayBe256CellsLong()
{
    const QJsonObject wide{{"id", Id}, {"width", 256}, {"height", 1}};
    const QJsonObject high{{"id", OtherId}, {"width", 1}, {"height", 256}};

    QVERIFY(load(one("mapObjects", {{"id", Id}, {"animations", QJsonArray{wide, high}}})));

    const auto blocks = m_project->blocks(QUuid(Id));
    QCOMPARE(blocks->animation(QUuid(Id))->size(), QSize(256, 1));
    QCOMPARE(blocks->animation(QUuid(OtherId))->size(), QSize(1, 256));
}

void tst_ProjectReader::emptyPlacedBlocksAreSkippedAndEmptySpritesKept()
{
    QVERIFY(
        load(BareEntries::map({{"animations", QJsonArray{QJsonObject(), QJsonObject{{"x", 1}}, 7}},
                               {"sprites", QJsonArray{QJsonObject()}}})));

    const auto map = m_project->map(QUuid(OtherId));
    const auto blocks = map->state().animations;
    QCOMPARE(blocks, (QList<Map::PlacedBlock>{{QUuid(), QRect(1, 0, 0, 0), 0, 0, 0}}));
    QCOMPARE(map->sprites(), QList{Map::PlacedSprite()});
    QCOMPARE(map->sprites().first().sprite, -1);
}

void tst_ProjectReader::aSpriteBankTakesItsDefaults()
{
    QVERIFY(load(BareEntries::bank({{"animations", QJsonArray{QJsonObject()}}})));

    const auto bank = m_project->spriteBank(QUuid(Id));
    QVERIFY(bank);
    QCOMPARE(bank->name(), QString());
    QVERIFY(!bank->palette());
    QCOMPARE(bank->transparency(), -1);
    QCOMPARE(bank->depth(), Tessaril::Sprite::EightBit);
    QCOMPARE(bank->offsets(), QByteArray(1, '\0'));
    QCOMPARE(bank->count(), 2);
    const auto animation = bank->animations().cbegin().value();
    QVERIFY(animation->id().isNull());
    QCOMPARE(animation->name(), QString());
    QCOMPARE(animation->size(), QSize(1, 1));
    QCOMPARE(animation->delay(), 0);
}

void tst_ProjectReader::aBlockListTakesItsDefaults()
{
    QVERIFY(load(one("mapObjects", {{"animations", QJsonArray{QJsonObject()}}})));

    const auto blocks = m_project->mapObjects().value(0);
    QVERIFY(blocks && blocks->id().isNull());
    QCOMPARE(blocks->name(), QString());
    QVERIFY(!blocks->tileSet());
    const auto animation = blocks->animations().cbegin().value();
    QVERIFY(animation->id().isNull());
    QCOMPARE(animation->size(), QSize(0, 0));
    QCOMPARE(animation->delay(), 0);
    QCOMPARE(animation->type(), MapObjectType::Normal);
    QCOMPARE(animation->frameCount(), 0);
}

void tst_ProjectReader::anImageTakesItsDefaults()
{
    QVERIFY(load(BareEntries::image()));

    const auto image = m_project->image(QUuid(Id));
    QVERIFY(image);
    QCOMPARE(image->name(), QString());
    QCOMPARE(image->mode(), Tessaril::ImageMode::Layer2_256x192);
    QVERIFY(!image->palette());
    QCOMPARE(image->image().pixelIndex(3, 3), 15);
}

void tst_ProjectReader::frameIdsAreKeptForBlocksOnly()
{
    const QJsonObject animation{{"id", OtherId}, {"frames", QJsonArray{QJsonObject{{"id", Id}}}}};
    QJsonObject root =
        TestProjects::json(BareEntries::bank({{"animations", QJsonArray{animation}}}));
    root["mapObjects"] = QJsonArray{QJsonObject{{"animations", QJsonArray{animation}}}};
    Entries entries = BareEntries::bank();
    entries["project.json"] = QJsonDocument(root).toJson();

    QVERIFY(load(entries));

    const auto sprite = m_project->spriteBank(QUuid(Id))->animation(QUuid(OtherId));
    const auto block = m_project->mapObjects().value(0)->animation(QUuid(OtherId));
    QVERIFY(sprite && block);
    QCOMPARE(block->frame(0)->id(), QUuid(Id));
    QVERIFY(sprite->frame(0)->id() != QUuid(Id));
    QVERIFY(!sprite->frame(0)->id().isNull());
}

void tst_ProjectReader::aNewSpriteAnimationLosesItsFirstFrame()
{
    QVERIFY(load(BareEntries::bank({{"animations", QJsonArray{QJsonObject{{"id", OtherId}}}}})));

    QCOMPARE(m_project->spriteBank(QUuid(Id))->animation(QUuid(OtherId))->frameCount(), 0);
}

void tst_ProjectReader::aBlockThatIsNowhereLeavesABlankPatch()
{
    const QJsonObject block{{"id", Id}, {"x", 1}, {"y", 0}, {"width", 5}, {"height", 1}};

    QVERIFY(load(BareEntries::map({{"animations", QJsonArray{block}}})));

    const auto map = m_project->map(QUuid(OtherId));
    QCOMPARE(map->tileLayer()->cell({0, 1}).index, 2);
    QCOMPARE(map->tileLayer()->cell({1, 0}).index, 0);
    QVERIFY(map->tileLayer()->cell({1, 0}).occupied);
    QCOMPARE(map->tileLayer()->cell({1, 1}).index, 3);
    QCOMPARE(map->objectLayer()->cell({1, 0}), TileMap::TileData());
}

void tst_ProjectReader::theScratchPaletteIsTheOneThatIsNamed()
{
    const QJsonArray palettes{QJsonObject{{"id", Id}}, QJsonObject{{"id", OtherId}}};
    for (const QString &named : {Id, OtherId}) {
        init();
        QVERIFY(load(QJsonObject{{"scratchPalette", named}, {"palettes", palettes}}));
        QCOMPARE(m_project->scratchPaletteId(), QUuid(named));
    }
}

void tst_ProjectReader::theScratchPaletteFallsBackToTheFirst()
{
    QVERIFY(load(QJsonObject{{"scratchPalette", OtherId},
                             {"palettes", QJsonArray{QJsonObject{{"id", Id}}}}}));
    QCOMPARE(m_project->scratchPaletteId(), QUuid(Id));

    Project without;
    QVERIFY(without.load(TestProjects::reader(Project().archiveEntries(true)), &m_error));
    QVERIFY(without.scratchPaletteId().isNull());
    QVERIFY(!without.scratchPalette());
}

void tst_ProjectReader::boundPalettesColourStripAndImage()
{
    const QJsonArray palettes{QJsonObject{{"id", OtherId}, {"colours", QJsonArray{0xe000}}}};
    QVERIFY(load(BareEntries::bank({{"palette", OtherId}}, palettes)));
    const auto bank = m_project->spriteBank(QUuid(Id));
    QCOMPARE(bank->palette(), m_project->palette(QUuid(OtherId)));
    QCOMPARE(bank->image().color(0), qRgb(255, 0, 0));

    Project other;
    QVERIFY(other.load(TestProjects::reader(BareEntries::image({{"palette", OtherId}}, palettes)),
                       &m_error));
    const auto image = other.image(QUuid(Id));
    QCOMPARE(image->palette(), other.palette(QUuid(OtherId)));
    QCOMPARE(image->image().color(0), qRgb(255, 0, 0));
}

QTEST_GUILESS_MAIN(tst_ProjectReader)
#include "tst_ProjectReader.moc"
