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
#include "support/ProjectDifferences.h"
#include "support/TestProjects.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

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
    void textThatIsNotJsonIsAnEmptyProject();
    void aPaletteTakesItsDefaults();
    void surplusAndWrongColoursAreLeftOut();
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
    void missingIdsAreNewOrNull();
    void shortCellArraysLeaveZerosAndSurplusIsIgnored();
    void frameIdsAreKeptForBlocksOnly();
    void aNewSpriteAnimationLosesItsFirstFrame();
    void aBlockThatIsNowhereLeavesABlankPatch();
    void theScratchPaletteIsTheOneThatIsNamed();
    void theScratchPaletteFallsBackToTheFirst();
    void aMissingScratchPictureIsNoError();
    void theScratchPictureMayBeGreyButNotColoured();
    void aGreyStripAndImageCountAsIndices();
    void boundPalettesColourStripAndImage();

    void failuresAreWordedAsTold_data();
    void failuresAreWordedAsTold();
    void onlyAFailureIsExplained();
    void aNewerVersionMakesNoDocument();
    void aFractionalVersionCountsAsAbsent();
    void wrongValuesTakeTheirDefault_data();
    void wrongValuesTakeTheirDefault();
    void aTwinReplacesTheEarlierDocument();

private:
    bool load(const Entries &entries);
    bool load(const QJsonObject &root) { return load(TestProjects::jsonEntries(root)); }
    Entries richEntries() const;

    std::unique_ptr<Project> m_project;
    QString m_error;
};

namespace {

const QString Id = QStringLiteral("{11111111-2222-4333-8444-555555555555}");
const QString OtherId = QStringLiteral("{99999999-2222-4333-8444-555555555555}");
const QString SetName = "tileset/" + Id + ".png";
const QString MapName = "tilemap/" + OtherId;

/// A tile set of one tile, and a map of 2 by 2 cells over it, with what the map is given.
Entries mapEntries(const QJsonObject &map = {})
{
    QJsonObject complete = map;
    complete["id"] = OtherId;
    complete["tileset"] = Id;
    complete["name"] = "Cave";
    Entries entries = TestProjects::jsonEntries(
        {{"tilesets", QJsonArray{QJsonObject{{"id", Id}, {"name", "Rock"}, {"count", 1}}}},
         {"maps", QJsonArray{complete}}});
    entries[SetName] = TestProjects::png({8, 8});
    entries[MapName] = TestProjects::tileMap(2, 2);
    return entries;
}

Entries bankEntries(const QJsonObject &bank = {}, const QJsonArray &palettes = {})
{
    QJsonObject complete = bank;
    complete["id"] = Id;
    Entries entries =
        TestProjects::jsonEntries({{"sprites", QJsonArray{complete}}, {"palettes", palettes}});
    entries["sprite/" + Id + ".png"] = TestProjects::png({16, 32});
    return entries;
}

Entries imageEntries(const QJsonObject &image = {}, const QJsonArray &palettes = {})
{
    QJsonObject complete = image;
    complete["id"] = Id;
    Entries entries =
        TestProjects::jsonEntries({{"images", QJsonArray{complete}}, {"palettes", palettes}});
    entries["images/" + Id + ".png"] = TestProjects::png({4, 4});
    return entries;
}

QByteArray pngOf(QImage::Format format, QSize size)
{
    QImage image(size, format);
    image.fill(0x40);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

QJsonObject one(const QString &key, const QJsonObject &document)
{
    return {{key, QJsonArray{document}}};
}

/// Replaces the JSON of a document, keeping the entries.
Entries with(Entries entries, const QString &kind, const QString &key, const QJsonValue &value)
{
    QJsonObject root = TestProjects::json(entries);
    QJsonObject document = root.value(kind).toArray().at(0).toObject();
    document[key] = value;
    root[kind] = QJsonArray{document};
    entries["project.json"] = QJsonDocument(root).toJson();
    return entries;
}

Entries without(Entries entries, const QString &name)
{
    entries.remove(name);
    return entries;
}

Entries replaced(Entries entries, const QString &name, const QByteArray &data)
{
    entries[name] = data;
    return entries;
}

} // namespace

void tst_ProjectReader::init()
{
    m_project = std::make_unique<Project>();
    m_error.clear();
}

bool tst_ProjectReader::load(const Entries &entries)
{
    return m_project->load(TestProjects::reader(entries), &m_error);
}

Entries tst_ProjectReader::richEntries() const
{
    Project project;
    TestProjects::fill(&project);
    return project.archiveEntries(true);
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
    const Entries entries = richEntries();
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
    const Entries entries = richEntries();
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

void tst_ProjectReader::textThatIsNotJsonIsAnEmptyProject()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("project.json cannot be parsed"));

    QVERIFY(load(Entries{{"project.json", "hello {"}}));

    QCOMPARE(m_project->name(), QString());
    QCOMPARE(m_project->screenSize(), QSize(320, 256));
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

void tst_ProjectReader::surplusAndWrongColoursAreLeftOut()
{
    QJsonArray colours{1, "2", 0x1ffff};
    while (colours.size() < 300)
        colours.append(7);

    QVERIFY(load(one("palettes", {{"colours", colours}})));

    const auto palette = m_project->palettes().value(0);
    QCOMPARE(palette->word(0), quint16(1));
    QCOMPARE(palette->word(1), quint16(0));
    QCOMPARE(palette->word(2), quint16(0xffff));
    QCOMPARE(palette->word(255), quint16(7));
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
    QVERIFY(load(mapEntries()));

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
    Entries entries = mapEntries();
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
    QVERIFY(load(mapEntries({{"animations", QJsonArray{QJsonObject(), QJsonObject{{"x", 1}}, 7}},
                             {"sprites", QJsonArray{QJsonObject()}}})));

    const auto map = m_project->map(QUuid(OtherId));
    const auto blocks = map->state().animations;
    QCOMPARE(blocks, (QList<Map::PlacedBlock>{{QUuid(), QRect(1, 0, 0, 0), 0, 0, 0}}));
    QCOMPARE(map->sprites(), QList{Map::PlacedSprite()});
    QCOMPARE(map->sprites().first().sprite, -1);
}

void tst_ProjectReader::aSpriteBankTakesItsDefaults()
{
    QVERIFY(load(bankEntries({{"animations", QJsonArray{QJsonObject()}}})));

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
    QVERIFY(load(imageEntries()));

    const auto image = m_project->image(QUuid(Id));
    QVERIFY(image);
    QCOMPARE(image->name(), QString());
    QCOMPARE(image->mode(), Tessaril::ImageMode::Layer2_256x192);
    QVERIFY(!image->palette());
    QCOMPARE(image->image().pixelIndex(3, 3), 15);
}

void tst_ProjectReader::missingIdsAreNewOrNull()
{
    const QJsonObject animation{{"frames", QJsonArray{QJsonObject()}}};
    QJsonObject root;
    for (const char *kind : {"palettes", "sprites", "images"})
        root[QLatin1String(kind)] = QJsonArray{QJsonObject()};
    root["tilesets"] = QJsonArray{QJsonObject{{"id", Id}, {"count", 1}}, QJsonObject{{"count", 1}}};
    root["maps"] = QJsonArray{QJsonObject{{"tileset", Id}}};
    root["mapObjects"] = QJsonArray{QJsonObject{{"animations", QJsonArray{animation}}}};
    // An entry's name cannot be known before, so every one of a folder is there.
    const auto read = [json = QJsonDocument(root).toJson()](const QString &name) {
        if (name == "project.json")
            return json;
        if (name.startsWith("tilemap/"))
            return TestProjects::tileMap(1, 1);
        return TestProjects::png(name.startsWith("tileset/") ? QSize(8, 8) : QSize(16, 16));
    };

    QVERIFY2(m_project->load(read, &m_error), qPrintable(m_error));

    QVERIFY(!m_project->palettes().first()->id().isNull());
    QCOMPARE(m_project->tileSets().size(), 2);
    for (const auto &tileSet : m_project->tileSets())
        QVERIFY(!tileSet->id().isNull());
    QVERIFY(!m_project->maps().first()->id().isNull());
    QVERIFY(!m_project->spriteBanks().first()->id().isNull());
    QVERIFY(m_project->images().first()->id().isNull());
    const auto blocks = m_project->mapObjects().first();
    QVERIFY(blocks->id().isNull());
    QVERIFY(blocks->animation(QUuid()));
    QVERIFY(blocks->animation(QUuid())->frame(0)->id().isNull());
}

void tst_ProjectReader::shortCellArraysLeaveZerosAndSurplusIsIgnored()
{
    const QJsonObject cell{
        {"index", 3}, {"offset", 4}, {"flip", true}, {"mirror", true}, {"rotate", true}};
    const QJsonObject shortFrame{{"tileData", QJsonArray{cell, "x"}}};
    const QJsonObject longFrame{{"tileData", QJsonArray{cell, cell, cell, cell, cell, cell}}};
    const QJsonObject animation{
        {"width", 2}, {"height", 2}, {"frames", QJsonArray{shortFrame, longFrame, QJsonObject()}}};

    QVERIFY(load(one("mapObjects", {{"animations", QJsonArray{animation}}})));

    const AnimationFrame::Cell full{3, 4, true, true, true};
    const AnimationFrame::Cell zero;
    const auto read = m_project->mapObjects().value(0)->animations().cbegin().value();
    QCOMPARE(read->frameCount(), 3);
    QCOMPARE(read->frame(0)->cells(), (AnimationFrame::Cells{{full, zero}, {zero, zero}}));
    QCOMPARE(read->frame(1)->cells(), (AnimationFrame::Cells{{full, full}, {full, full}}));
    QCOMPARE(read->frame(2)->cells(), (AnimationFrame::Cells{{zero, zero}, {zero, zero}}));
}

void tst_ProjectReader::frameIdsAreKeptForBlocksOnly()
{
    const QJsonObject animation{{"id", OtherId}, {"frames", QJsonArray{QJsonObject{{"id", Id}}}}};
    QJsonObject root = TestProjects::json(bankEntries({{"animations", QJsonArray{animation}}}));
    root["mapObjects"] = QJsonArray{QJsonObject{{"animations", QJsonArray{animation}}}};
    Entries entries = bankEntries();
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
    QVERIFY(load(bankEntries({{"animations", QJsonArray{QJsonObject{{"id", OtherId}}}}})));

    QCOMPARE(m_project->spriteBank(QUuid(Id))->animation(QUuid(OtherId))->frameCount(), 0);
}

void tst_ProjectReader::aBlockThatIsNowhereLeavesABlankPatch()
{
    const QJsonObject block{{"id", Id}, {"x", 1}, {"y", 0}, {"width", 5}, {"height", 1}};

    QVERIFY(load(mapEntries({{"animations", QJsonArray{block}}})));

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

void tst_ProjectReader::aMissingScratchPictureIsNoError()
{
    QVERIFY(load(without(richEntries(), "scratch.png")));

    const QImage scratch = m_project->scratchImage();
    QCOMPARE(scratch.size(), QSize(256, 192));
    QCOMPARE(scratch.format(), QImage::Format_Indexed8);
    QCOMPARE(QByteArray(reinterpret_cast<const char *>(scratch.constBits()), 256 * 192),
             QByteArray(256 * 192, '\0'));
}

void tst_ProjectReader::theScratchPictureMayBeGreyButNotColoured()
{
    QVERIFY(
        load({{"project.json", "{}"}, {"scratch.png", pngOf(QImage::Format_Grayscale8, {5, 5})}}));
    QCOMPARE(m_project->scratchImage().format(), QImage::Format_Indexed8);
    QCOMPARE(m_project->scratchImage().pixelIndex(4, 4), 0x40);

    Project coloured;
    QVERIFY(
        coloured.load(TestProjects::reader({{"project.json", "{}"},
                                            {"scratch.png", pngOf(QImage::Format_RGB32, {5, 5})}}),
                      &m_error));
    QCOMPARE(coloured.scratchImage().size(), QSize(256, 192));
}

void tst_ProjectReader::aGreyStripAndImageCountAsIndices()
{
    Entries entries = bankEntries();
    entries["sprite/" + Id + ".png"] = pngOf(QImage::Format_Grayscale8, {16, 16});
    QVERIFY(load(entries));
    QCOMPARE(m_project->spriteBank(QUuid(Id))->image().pixelIndex(0, 0), 0x40);

    Project other;
    entries = imageEntries();
    entries["images/" + Id + ".png"] = pngOf(QImage::Format_Grayscale8, {16, 16});
    QVERIFY(other.load(TestProjects::reader(entries), &m_error));
    QCOMPARE(other.image(QUuid(Id))->image().format(), QImage::Format_Indexed8);
    QCOMPARE(other.image(QUuid(Id))->image().pixelIndex(0, 0), 0x40);
}

void tst_ProjectReader::boundPalettesColourStripAndImage()
{
    const QJsonArray palettes{QJsonObject{{"id", OtherId}, {"colours", QJsonArray{0xe000}}}};
    QVERIFY(load(bankEntries({{"palette", OtherId}}, palettes)));
    const auto bank = m_project->spriteBank(QUuid(Id));
    QCOMPARE(bank->palette(), m_project->palette(QUuid(OtherId)));
    QCOMPARE(bank->image().color(0), qRgb(255, 0, 0));

    Project other;
    QVERIFY(
        other.load(TestProjects::reader(imageEntries({{"palette", OtherId}}, palettes)), &m_error));
    const auto image = other.image(QUuid(Id));
    QCOMPARE(image->palette(), other.palette(QUuid(OtherId)));
    QCOMPARE(image->image().color(0), qRgb(255, 0, 0));
}

void tst_ProjectReader::failuresAreWordedAsTold_data()
{
    QTest::addColumn<Entries>("entries");
    QTest::addColumn<QString>("error");
    const QString invalid = "Invalid project file";
    const QString noTiles =
        "Failed to load tile set tileImage \"" + SetName + "\" from project file";
    const QString wrongTiles = "Error setting tile set anim - Rock";
    const QString noMap = "Failed to load tile map anim for map Cave";
    const QString noSprites = "Project has a missing sprite anim";
    const QString noImage = "Failed to load tile image Title";
    const Entries image = imageEntries({{"name", "Title"}});
    const QString strip = "sprite/" + Id + ".png";
    const QString pixels = "images/" + Id + ".png";
    const auto row = [](const char *name, const Entries &entries, const QString &error) {
        QTest::newRow(name) << entries << error;
    };
    row("no project.json", {}, invalid);
    row("empty project.json", {{"project.json", ""}}, invalid);
    row("newer version", TestProjects::jsonEntries({{"formatVersion", 3}}),
        "Project file is from a newer version of Tessaril");
    row("no tile picture", without(mapEntries(), SetName), noTiles);
    row("tile picture of one tile for 512", with(mapEntries(), "tilesets", "count", 512),
        wrongTiles);
    row("tile picture too wide", replaced(mapEntries(), SetName, TestProjects::png({9, 8})),
        wrongTiles);
    row("grey tile picture",
        replaced(mapEntries(), SetName, pngOf(QImage::Format_Grayscale8, {8, 8})), wrongTiles);
    row("coloured tile picture",
        replaced(mapEntries(), SetName, pngOf(QImage::Format_RGB32, {8, 8})), wrongTiles);
    row("tile picture that is none", replaced(mapEntries(), SetName, "hello"), wrongTiles);
    row("fewer than no tiles", with(mapEntries(), "tilesets", "count", -1), invalid);
    row("too many tiles", with(mapEntries(), "tilesets", "count", 65537), invalid);
    row("no cells", without(mapEntries(), MapName), noMap);
    row("7 bytes of cells", replaced(mapEntries(), MapName, QByteArray(7, '\0')), noMap);
    row("negative width",
        replaced(mapEntries(), MapName, QByteArray("\0\0\0\1\xff\xff\xff\xff", 8)), noMap);
    row("both sides negative", replaced(mapEntries(), MapName, QByteArray(200, '\xff')), noMap);
    row("more cells than there are",
        replaced(mapEntries(), MapName, TestProjects::tileMap(2, 2).left(8 + 4 * 12 - 1)), noMap);
    row("a product over 2^64",
        replaced(mapEntries(), MapName,
                 QByteArray("\x7f\xff\xff\xff\x7f\xff\xff\xff", 8) + QByteArray(100, '\0')),
        noMap);
    row("no width and 65,536 rows",
        replaced(mapEntries(), MapName, QByteArray("\0\1\0\0\0\0\0\0", 8) + QByteArray(100, '\0')),
        noMap);
    row("map without tile set", with(mapEntries(), "maps", "tileset", OtherId), noMap);
    row("map with the null tile set", with(mapEntries(), "maps", "tileset", QUuid().toString()),
        noMap);
    row("no strip", without(bankEntries(), strip), noSprites);
    row("strip that is no picture", replaced(bankEntries(), strip, "hello"), noSprites);
    row("coloured strip", replaced(bankEntries(), strip, pngOf(QImage::Format_RGB32, {16, 16})),
        noSprites);
    row("strip 15 wide", replaced(bankEntries(), strip, TestProjects::png({15, 16})), noSprites);
    row("strip a row short", replaced(bankEntries(), strip, TestProjects::png({16, 31})),
        noSprites);
    row("no image", without(image, pixels), noImage);
    row("image that is none", replaced(image, pixels, "hello"), noImage);
    row("coloured image", replaced(image, pixels, pngOf(QImage::Format_RGB32, {16, 16})), noImage);
    const auto animated = [](const QString &key, int side) {
        return QJsonArray{QJsonObject{{key, side}}};
    };
    row("sprite animation 257 wide", bankEntries({{"animations", animated("width", 257)}}),
        invalid);
    row("sprite animation -1 high", bankEntries({{"animations", animated("height", -1)}}), invalid);
    row("block 257 high",
        TestProjects::jsonEntries(one("mapObjects", {{"animations", animated("height", 257)}})),
        invalid);
}

void tst_ProjectReader::failuresAreWordedAsTold()
{
    QFETCH(Entries, entries);
    QFETCH(QString, error);

    QVERIFY(!load(entries));

    QCOMPARE(m_error, error);
}

void tst_ProjectReader::onlyAFailureIsExplained()
{
    const Project::EntryReader damaged =
        TestProjects::reader(TestProjects::jsonEntries({{"formatVersion", 3}}));
    QVERIFY(!m_project->load(damaged, nullptr));

    m_error = QStringLiteral("none");
    Project other;
    QVERIFY(other.load(TestProjects::reader(TestProjects::jsonEntries({})), &m_error));
    QCOMPARE(m_error, QStringLiteral("none"));
}

void tst_ProjectReader::aNewerVersionMakesNoDocument()
{
    QSignalSpy shown(m_project.get(), qOverload<QString, int>(&Project::showMessage));

    QVERIFY(!load(QJsonObject{{"formatVersion", 3}, {"palettes", QJsonArray{QJsonObject()}}}));

    QCOMPARE(shown.count(), 0);
    QVERIFY(m_project->palettes().isEmpty());
}

void tst_ProjectReader::aFractionalVersionCountsAsAbsent()
{
    QVERIFY(load(QJsonObject{{"formatVersion", 3.5}}));
}

void tst_ProjectReader::wrongValuesTakeTheirDefault_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::newRow("null") << QJsonValue();
    QTest::newRow("fraction") << QJsonValue(3.5);
    QTest::newRow("huge") << QJsonValue(1e99);
    QTest::newRow("2^32") << QJsonValue(4294967296.0);
    QTest::newRow("text") << QJsonValue("7x");
    QTest::newRow("an array") << QJsonValue(QJsonArray{1});
    QTest::newRow("an object") << QJsonValue(QJsonObject{{"a", 1}});
    QTest::newRow("true") << QJsonValue(true);
}

void tst_ProjectReader::wrongValuesTakeTheirDefault()
{
    QFETCH(QJsonValue, value);
    // The value stands in the place of everything that a project, a map and a bank hold.
    QJsonObject map;
    for (const char *key : {"tile_transparency", "backgroundTileIndex", "animations", "sprites"})
        map[QLatin1String(key)] = value;
    Entries entries = mapEntries(map);
    QJsonObject root = TestProjects::json(entries);
    for (const char *key : {"formatVersion", "id", "screen_size", "play_area", "scratchPalette",
                            "opendocuments", "palettes", "mapObjects", "sprites", "images"})
        root[QLatin1String(key)] = value;
    entries["project.json"] = QJsonDocument(root).toJson();

    QVERIFY2(load(entries) || !m_error.isEmpty(), "a refusal has words");

    if (!m_error
             .isEmpty()) // An array holds one thing that is no document: an image without a file.
        QVERIFY(value.isArray());
    else
        QCOMPARE(m_project->map(QUuid(OtherId))->backgroundTileIndex(), -1);
    QCOMPARE(m_project->screenSize(), QSize(320, 256));
    QVERIFY(m_project->id().isNull());
}

void tst_ProjectReader::aTwinReplacesTheEarlierDocument()
{
    const QJsonObject first{{"id", Id}, {"name", "first"}};
    const QJsonObject second{{"id", Id}, {"name", "second"}};

    QVERIFY(load(QJsonObject{{"palettes", QJsonArray{first, second}}}));

    QCOMPARE(m_project->palettes().size(), 1);
    QCOMPARE(m_project->palette(QUuid(Id))->name(), QStringLiteral("second"));
    QCOMPARE(m_project->findChildren<Palette *>().size(), 1);
}

QTEST_GUILESS_MAIN(tst_ProjectReader)
#include "tst_ProjectReader.moc"
