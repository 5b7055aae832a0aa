#include "Sweep.h"

#include "model/Image.h"
#include "model/LoadContext.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"
#include "support/ProjectDifferences.h"
#include "support/TestProjects.h"
#include "support/UseProject.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <limits>

using TestProjects::Entries;

/// Texts and ids that no save would write: deep, long, in other encodings, dangling and doubled.
class tst_HostileJson : public QObject
{
    Q_OBJECT

private slots:
    void oddTextsLoadOrAreRefusedAtOnce_data();
    void oddTextsLoadOrAreRefusedAtOnce();
    void theLastOfTwoEqualKeysCounts();
    void anyIdMayStandForAnyOther();
    void cellsAtTheLimitsAreDrawn_data();
    void cellsAtTheLimitsAreDrawn();
    void oddNamesAreKeptToTheLetter_data();
    void oddNamesAreKeptToTheLetter();
};

namespace {

constexpr int MaxMs = 2000;
constexpr int Max = std::numeric_limits<int>::max();
const QString JsonName = QStringLiteral("project.json");

Entries richEntries()
{
    Project project;
    TestProjects::fill(&project);
    return project.archiveEntries(true);
}

/// Takes out every document, in the order in which the program allows it.
void deleteAll(Project *project)
{
    for (const auto &map : project->maps())
        project->deleteMap(map->id());
    for (const auto &blocks : project->mapObjects())
        project->deleteBlocks(blocks->id());
    for (const auto &bank : project->spriteBanks())
        project->deleteSpriteBank(bank->id());
    for (const auto &tiles : project->tileSets())
        project->deleteTileSet(tiles->id());
    for (const auto &palette : project->palettes())
        project->deletePalette(palette->id());
}

/// Whether what was loaded saves, loads as the same, can be worked with, emptied and saved again.
QStringList faultsOf(const Project &project)
{
    Project copy;
    QString error;
    if (!copy.load(TestProjects::reader(project.archiveEntries(true)), &error))
        return {error};
    const QStringList found = ProjectDifferences::between(project, copy);
    useProject(&copy);
    deleteAll(&copy);
    return copy.archiveEntries(true).isEmpty() ? found + QStringList("nothing saved") : found;
}

} // namespace

void tst_HostileJson::oddTextsLoadOrAreRefusedAtOnce_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("outcome"); // a message, or the name of what loads
    const QByteArray plain = "{\"name\":\"x\"}";
    const QString invalid = QStringLiteral("Invalid project file");
    const auto nested = [](int depth) {
        return "{\"name\":\"x\",\"y\":" + QByteArray(depth, '[') + QByteArray(depth, ']') + "}";
    };
    QTest::newRow("depth 1000") << nested(1000) << "x";
    QTest::newRow("depth 1025") << nested(1025) << QString();
    QTest::newRow("depth a million") << nested(1'000'000) << QString();
    QTest::newRow("depth three million") << nested(3'000'000) << invalid;
    QTest::newRow("200 MB of blanks") << plain + QByteArray(200 * 1024 * 1024, ' ') << invalid;
    QTest::newRow("60 MB of blanks") << plain + QByteArray(60 * 1024 * 1024, ' ') << "x";
    QTest::newRow("a million items")
        << "{\"name\":\"x\",\"palettes\":[" + QByteArray("0,").repeated(1'000'000) + "0]}"
        << invalid;
    QTest::newRow("a million tabs")
        << "{\"name\":\"x\",\"opendocuments\":[" + QByteArray("0,").repeated(1'000'000) + "0]}"
        << "x";
    QTest::newRow("a byte order mark") << "\xef\xbb\xbf" + plain << "x";
    QTest::newRow("two bytes a letter")
        << QByteArray(reinterpret_cast<const char *>(u"{\"name\":\"x\"}"), 24) << QString();
    QTest::newRow("cut") << plain.chopped(1) << QString();
    QTest::newRow("binary") << QByteArray("\0\1\2\3qbjs\xff", 9) << QString();
    QTest::newRow("an array") << QByteArray("[]") << QString();
}

void tst_HostileJson::oddTextsLoadOrAreRefusedAtOnce()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, outcome);
    Project project;
    QString error;
    const qint64 start = Sweep::usedMs();

    const bool loaded = project.load(TestProjects::reader({{JsonName, text}}), &error);

    QVERIFY(Sweep::usedMs() - start < MaxMs * (Sweep::peakMegabytes() ? 1 : 20));
    QCOMPARE(loaded ? project.name() : error, outcome);
}

void tst_HostileJson::theLastOfTwoEqualKeysCounts()
{
    Project project;
    QString error;

    QVERIFY(project.load(
        TestProjects::reader({{JsonName, "{\"name\":\"first\",\"name\":\"last\"}"}}), &error));

    QCOMPARE(project.name(), QStringLiteral("last"));
}

/// Every id of a rich project is replaced by every other one, by none, and by one of nothing.
void tst_HostileJson::anyIdMayStandForAnyOther()
{
    const Entries whole = richEntries();
    const QString json = QString::fromUtf8(whole.value(JsonName));
    static const QRegularExpression idPattern(QStringLiteral("\\{[0-9a-f-]{36}\\}"));
    QStringList ids{QUuid().toString(), QUuid::createUuid().toString(), QString()};
    QList<qsizetype> places;
    for (auto match = idPattern.globalMatch(json); match.hasNext();) {
        const auto found = match.next();
        places += found.capturedStart();
        ids += found.captured();
    }
    ids.removeDuplicates();
    QVERIFY(places.size() > 15 && ids.size() > 10);
    int accepted = 0;
    for (const qsizetype place : std::as_const(places)) {
        for (const QString &id : std::as_const(ids)) {
            Entries entries = whole;
            entries[JsonName] = QString(json).replace(place, 38, id).toUtf8();
            Project project;
            QString error;
            if (!project.load(TestProjects::reader(entries), &error)) {
                QVERIFY(!error.isEmpty());
                continue;
            }
            ++accepted;
            const QStringList faults = faultsOf(project);
            QVERIFY2(faults.isEmpty(),
                     qPrintable(json.mid(place - 20, 60) + " by " + id + ": " + faults.join(", ")));
        }
    }
    QVERIFY(accepted > places.size());
    Sweep::report(QStringLiteral("C3: %1 ids exchanged, %2 accepted")
                      .arg(places.size() * ids.size())
                      .arg(accepted));
}

void tst_HostileJson::cellsAtTheLimitsAreDrawn_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("value");
    for (const char *key :
         {"index", "offset", "delay", "width", "height", "initialDelay", "repeatDelay",
          "startFrame", "x", "y", "sprite", "paletteOffset", "tile_transparency",
          "backgroundTileIndex", "transparency_index", "transparency", "value", "attributes"}) {
        for (const int value : {-5, -2, -1, 0, 99, 1 << 30, Max, -Max - 1})
            QTest::addRow("%s %d", key, value) << QString::fromLatin1(key) << value;
    }
}

/// One key of all documents at once, drawn and saved.
void tst_HostileJson::cellsAtTheLimitsAreDrawn()
{
    QFETCH(QString, key);
    QFETCH(int, value);
    Entries entries = richEntries();
    const QRegularExpression member("\"" + key + "\": -?[0-9]+");
    QString json = QString::fromUtf8(entries.value(JsonName));
    QVERIFY(json.contains(member));
    json.replace(member, "\"" + key + "\": " + QString::number(value));
    entries[JsonName] = json.toUtf8();
    Project project;
    QString error;
    if (!project.load(TestProjects::reader(entries), &error)) {
        QCOMPARE(error, QStringLiteral("Invalid project file"));
        return;
    }

    QCOMPARE(faultsOf(project), QStringList());
}

void tst_HostileJson::oddNamesAreKeptToTheLetter_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QString();
    QTest::newRow("a megabyte") << QString(1 << 20, u'n');
    QTest::newRow("a line break") << "a\nb\r\tc";
    QTest::newRow("right to left") << QStringLiteral("\u202egnp.exe");
    QTest::newRow("HTML") << "<b>a</b><img src='file:///etc/passwd'>";
    QTest::newRow("place holders") << "%1%2%3 %n %L1";
    QTest::newRow("a path") << "../../a/b\\c";
    QTest::newRow("dots") << "..";
    QTest::newRow("NUL") << QString::fromUtf8(QByteArray("a\0b", 3));
    QTest::newRow("beyond the first plane") << QStringLiteral("\U0001F3AE\u0301");
}

void tst_HostileJson::oddNamesAreKeptToTheLetter()
{
    QFETCH(QString, name);
    Project project;
    TestProjects::fill(&project);
    project.setName(name);
    for (const auto &map : project.maps())
        map->setName(name);
    for (const auto &tiles : project.tileSets())
        tiles->setName(name);
    for (const auto &palette : project.palettes())
        palette->setName(name);
    Project copy;
    QString error;

    QVERIFY(copy.load(TestProjects::reader(project.archiveEntries(true)), &error));

    QCOMPARE(copy.name(), name);
    QCOMPARE(copy.maps().first()->name(), name);
    QCOMPARE(copy.tileSets().first()->name(), name);
    QCOMPARE(copy.palettes().first()->name(), name);
    // A failure repeats the name as it is.
    Entries entries = project.archiveEntries(true);
    entries.remove("tilemap/" + project.maps().first()->id().toString());
    Project broken;
    QVERIFY(!broken.load(TestProjects::reader(entries), &error));
    QCOMPARE(error, "Failed to load tile map anim for map " + name);
}

QTEST_GUILESS_MAIN(tst_HostileJson)
#include "tst_HostileJson.moc"
