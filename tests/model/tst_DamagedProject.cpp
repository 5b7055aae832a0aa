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
using BareEntries::pngOf;
using BareEntries::replaced;
using BareEntries::SetName;
using BareEntries::with;
using BareEntries::without;
using TestProjects::Entries;

class tst_DamagedProject : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void textThatIsNotJsonIsAnEmptyProject();
    void surplusAndWrongColoursAreLeftOut();
    void missingIdsAreNewOrNull();
    void shortCellArraysLeaveZerosAndSurplusIsIgnored();
    void aMissingScratchPictureIsNoError();
    void theScratchPictureMayBeGreyButNotColoured();
    void aGreyStripAndImageCountAsIndices();
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

    std::unique_ptr<Project> m_project;
    QString m_error;
};

void tst_DamagedProject::init()
{
    m_project = std::make_unique<Project>();
    m_error.clear();
}

bool tst_DamagedProject::load(const Entries &entries)
{
    return m_project->load(TestProjects::reader(entries), &m_error);
}

void tst_DamagedProject::textThatIsNotJsonIsAnEmptyProject()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("project.json cannot be parsed"));

    QVERIFY(load(Entries{{"project.json", "hello {"}}));

    QCOMPARE(m_project->name(), QString());
    QCOMPARE(m_project->screenSize(), QSize(320, 256));
}

void tst_DamagedProject::surplusAndWrongColoursAreLeftOut()
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

void tst_DamagedProject::missingIdsAreNewOrNull()
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

void tst_DamagedProject::shortCellArraysLeaveZerosAndSurplusIsIgnored()
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

void tst_DamagedProject::aMissingScratchPictureIsNoError()
{
    QVERIFY(load(without(TestProjects::richEntries(), "scratch.png")));

    const QImage scratch = m_project->scratchImage();
    QCOMPARE(scratch.size(), QSize(256, 192));
    QCOMPARE(scratch.format(), QImage::Format_Indexed8);
    QCOMPARE(QByteArray(reinterpret_cast<const char *>(scratch.constBits()), 256 * 192),
             QByteArray(256 * 192, '\0'));
}

void tst_DamagedProject::theScratchPictureMayBeGreyButNotColoured()
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

void tst_DamagedProject::aGreyStripAndImageCountAsIndices()
{
    Entries entries = BareEntries::bank();
    entries["sprite/" + Id + ".png"] = pngOf(QImage::Format_Grayscale8, {16, 16});
    QVERIFY(load(entries));
    QCOMPARE(m_project->spriteBank(QUuid(Id))->image().pixelIndex(0, 0), 0x40);

    Project other;
    entries = BareEntries::image();
    entries["images/" + Id + ".png"] = pngOf(QImage::Format_Grayscale8, {16, 16});
    QVERIFY(other.load(TestProjects::reader(entries), &m_error));
    QCOMPARE(other.image(QUuid(Id))->image().format(), QImage::Format_Indexed8);
    QCOMPARE(other.image(QUuid(Id))->image().pixelIndex(0, 0), 0x40);
}

void tst_DamagedProject::failuresAreWordedAsTold_data()
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
    const Entries image = BareEntries::image({{"name", "Title"}});
    const QString strip = "sprite/" + Id + ".png";
    const QString pixels = "images/" + Id + ".png";
    const auto row = [](const char *name, const Entries &entries, const QString &error) {
        QTest::newRow(name) << entries << error;
    };
    row("no project.json", {}, invalid);
    row("empty project.json", {{"project.json", ""}}, invalid);
    row("newer version", TestProjects::jsonEntries({{"formatVersion", 3}}),
        "Project file is from a newer version of Tessaril");
    row("no tile picture", without(BareEntries::map(), SetName), noTiles);
    row("tile picture of one tile for 512", with(BareEntries::map(), "tilesets", "count", 512),
        wrongTiles);
    row("tile picture too wide", replaced(BareEntries::map(), SetName, TestProjects::png({9, 8})),
        wrongTiles);
    row("grey tile picture",
        replaced(BareEntries::map(), SetName, pngOf(QImage::Format_Grayscale8, {8, 8})),
        wrongTiles);
    row("coloured tile picture",
        replaced(BareEntries::map(), SetName, pngOf(QImage::Format_RGB32, {8, 8})), wrongTiles);
    row("tile picture that is none", replaced(BareEntries::map(), SetName, "hello"), wrongTiles);
    row("fewer than no tiles", with(BareEntries::map(), "tilesets", "count", -1), invalid);
    row("too many tiles", with(BareEntries::map(), "tilesets", "count", 65537), invalid);
    row("no cells", without(BareEntries::map(), MapName), noMap);
    row("7 bytes of cells", replaced(BareEntries::map(), MapName, QByteArray(7, '\0')), noMap);
    row("negative width",
        replaced(BareEntries::map(), MapName, QByteArray("\0\0\0\1\xff\xff\xff\xff", 8)), noMap);
    row("both sides negative", replaced(BareEntries::map(), MapName, QByteArray(200, '\xff')),
        noMap);
    row("more cells than there are",
        replaced(BareEntries::map(), MapName, TestProjects::tileMap(2, 2).left(8 + 4 * 12 - 1)),
        noMap);
    row("a product over 2^64",
        replaced(BareEntries::map(), MapName,
                 QByteArray("\x7f\xff\xff\xff\x7f\xff\xff\xff", 8) + QByteArray(100, '\0')),
        noMap);
    row("no width and 65,536 rows",
        replaced(BareEntries::map(), MapName,
                 QByteArray("\0\1\0\0\0\0\0\0", 8) + QByteArray(100, '\0')),
        noMap);
    row("map without tile set", with(BareEntries::map(), "maps", "tileset", OtherId), noMap);
    row("map with the null tile set",
        with(BareEntries::map(), "maps", "tileset", QUuid().toString()), noMap);
    row("no strip", without(BareEntries::bank(), strip), noSprites);
    row("strip that is no picture", replaced(BareEntries::bank(), strip, "hello"), noSprites);
    row("coloured strip",
        replaced(BareEntries::bank(), strip, pngOf(QImage::Format_RGB32, {16, 16})), noSprites);
    row("strip 15 wide", replaced(BareEntries::bank(), strip, TestProjects::png({15, 16})),
        noSprites);
    row("strip a row short", replaced(BareEntries::bank(), strip, TestProjects::png({16, 31})),
        noSprites);
    row("no image", without(image, pixels), noImage);
    row("image that is none", replaced(image, pixels, "hello"), noImage);
    row("coloured image", replaced(image, pixels, pngOf(QImage::Format_RGB32, {16, 16})), noImage);
    const auto animated = [](const QString &key, int side) {
        return QJsonArray{QJsonObject{{key, side}}};
    };
    row("sprite animation 257 wide", BareEntries::bank({{"animations", animated("width", 257)}}),
        invalid);
    row("sprite animation -1 high", BareEntries::bank({{"animations", animated("height", -1)}}),
        invalid);
    row("block 257 high",
        TestProjects::jsonEntries(one("mapObjects", {{"animations", animated("height", 257)}})),
        invalid);
}

void tst_DamagedProject::failuresAreWordedAsTold()
{
    QFETCH(Entries, entries);
    QFETCH(QString, error);

    QVERIFY(!load(entries));

    QCOMPARE(m_error, error);
}

void tst_DamagedProject::onlyAFailureIsExplained()
{
    const Project::EntryReader damaged =
        TestProjects::reader(TestProjects::jsonEntries({{"formatVersion", 3}}));
    QVERIFY(!m_project->load(damaged, nullptr));

    m_error = QStringLiteral("none");
    Project other;
    QVERIFY(other.load(TestProjects::reader(TestProjects::jsonEntries({})), &m_error));
    QCOMPARE(m_error, QStringLiteral("none"));
}

void tst_DamagedProject::aNewerVersionMakesNoDocument()
{
    QSignalSpy shown(m_project.get(), qOverload<QString, int>(&Project::showMessage));

    QVERIFY(!load(QJsonObject{{"formatVersion", 3}, {"palettes", QJsonArray{QJsonObject()}}}));

    QCOMPARE(shown.count(), 0);
    QVERIFY(m_project->palettes().isEmpty());
}

void tst_DamagedProject::aFractionalVersionCountsAsAbsent()
{
    QVERIFY(load(QJsonObject{{"formatVersion", 3.5}}));
}

void tst_DamagedProject::wrongValuesTakeTheirDefault_data()
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

void tst_DamagedProject::wrongValuesTakeTheirDefault()
{
    QFETCH(QJsonValue, value);
    // The value stands in the place of everything that a project, a map and a bank hold.
    QJsonObject map;
    for (const char *key : {"tile_transparency", "backgroundTileIndex", "animations", "sprites"})
        map[QLatin1String(key)] = value;
    Entries entries = BareEntries::map(map);
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

void tst_DamagedProject::aTwinReplacesTheEarlierDocument()
{
    const QJsonObject first{{"id", Id}, {"name", "first"}};
    const QJsonObject second{{"id", Id}, {"name", "second"}};

    QVERIFY(load(QJsonObject{{"palettes", QJsonArray{first, second}}}));

    QCOMPARE(m_project->palettes().size(), 1);
    QCOMPARE(m_project->palette(QUuid(Id))->name(), QStringLiteral("second"));
    QCOMPARE(m_project->findChildren<Palette *>().size(), 1);
}

QTEST_GUILESS_MAIN(tst_DamagedProject)
#include "tst_DamagedProject.moc"
