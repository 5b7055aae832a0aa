#include "model/Image.h"
#include "model/LoadContext.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/ProjectReader.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"
#include "support/ProjectDifferences.h"
#include "support/TestProjects.h"
#include "support/UseProject.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include <limits>

using TestProjects::Entries;

/// Projects that are made to harm: any value under any key, and more of everything than there is.
class tst_HostileProject : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void everyKeyTakesAnyValue_data();
    void everyKeyTakesAnyValue();
    void everyKeyMayBeMissing();
    void positionsAtTheLimitsDoNotOverflow();

    void numbersOutsideAnEnumerationAreClamped_data();
    void numbersOutsideAnEnumerationAreClamped();

    void tooManyDocumentsAreRefused_data();
    void tooManyDocumentsAreRefused();
    void asManyDocumentsAsAllowedLoad();
    void tooManyPlacedThingsAreRefused_data();
    void tooManyPlacedThingsAreRefused();
    void tooManyFramesAreRefused();
    void tooManyFrameCellsAreRefused();
    void tooMuchJsonIsRefused();
    void blocksThatCoverTooMuchAreRefused();
    void blocksThatStampTooMuchAreRefused();
    void blocksSoughtInTooManyListsAreRefused();
    void manySmallBlocksAreRestored();

private:
    bool load(const Entries &entries);
    bool load(const QJsonObject &root) { return load(TestProjects::jsonEntries(root)); }

    std::unique_ptr<Project> m_project;
    QString m_error;
};

namespace {

using Path = QList<QVariant>; // keys and, in arrays, places

const QString SetId = QStringLiteral("{11111111-2222-4333-8444-555555555555}");
const QString MapId = QStringLiteral("{99999999-2222-4333-8444-555555555555}");
const QString BlockId = QStringLiteral("{77777777-2222-4333-8444-555555555555}");
const QString Invalid = QStringLiteral("Invalid project file");

/// The paths of all values in @p value; of an array only the first item counts.
void collect(const QJsonValue &value, const Path &path, QList<Path> *paths)
{
    if (!path.isEmpty())
        paths->append(path);
    const QJsonObject object = value.toObject();
    for (auto it = object.constBegin(); it != object.constEnd(); ++it)
        collect(it.value(), path + Path{it.key()}, paths);
    if (value.isArray() && !value.toArray().isEmpty())
        collect(value.toArray().first(), path + Path{0}, paths);
}

/// @p value with what stands at @p path replaced, or taken out if @p with is undefined.
QJsonValue changed(const QJsonValue &value, const Path &path, const QJsonValue &with)
{
    if (path.isEmpty())
        return with;

    const Path rest = path.mid(1);
    if (value.isArray()) {
        QJsonArray array = value.toArray();
        array[0] = changed(array.at(0), rest, with);
        return array;
    }
    QJsonObject object = value.toObject();
    const QString key = path.first().toString();
    if (rest.isEmpty() && with.isUndefined())
        object.remove(key);
    else
        object[key] = changed(object.value(key), rest, with);
    return object;
}

QByteArray textOf(const Path &path)
{
    QStringList parts;
    for (const QVariant &part : path)
        parts += part.toString();
    return parts.join('/').toUtf8();
}

/// Whether nothing can be loaded without what stands at @p path: without its id a document does not
/// find its entry, a map needs its tile set, and without a count there should be 512 tiles.
bool isNeeded(const Path &path)
{
    const QString text = QString::fromUtf8(textOf(path));
    return QStringList{"tilesets",       "tilesets/0/id", "tilesets/0/count", "maps/0/id",
                       "maps/0/tileset", "sprites/0/id",  "images/0/id"}
        .contains(text);
}

Entries richEntries()
{
    Project project;
    TestProjects::fill(&project);
    project.setScratchImage(QImage(1, 1, QImage::Format_Indexed8));
    return project.archiveEntries(true);
}

Entries withJson(Entries entries, const QJsonValue &root)
{
    entries[QStringLiteral("project.json")] = QJsonDocument(root.toObject()).toJson();
    return entries;
}

/// A tile set of one tile, a map of @p side by @p side cells with @p placed block animations, and
/// block lists.
Entries placedEntries(int side, const QJsonArray &placed, const QJsonArray &blocks = {})
{
    Entries entries = TestProjects::jsonEntries(
        {{"tilesets", QJsonArray{QJsonObject{{"id", SetId}, {"count", 1}}}},
         {"maps",
          QJsonArray{QJsonObject{{"id", MapId}, {"tileset", SetId}, {"animations", placed}}}},
         {"mapObjects", blocks}});
    entries["tileset/" + SetId + ".png"] = TestProjects::png({8, 8});
    entries["tilemap/" + MapId] = TestProjects::tileMap(side, side);
    return entries;
}

QJsonArray repeated(const QJsonValue &value, qint64 count)
{
    QJsonArray array;
    for (qint64 i = 0; i < count; ++i)
        array.append(value);
    return array;
}

QJsonObject placedBlock(int side)
{
    return {{"id", BlockId}, {"width", side}, {"height", side}};
}

} // namespace

void tst_HostileProject::init()
{
    m_project = std::make_unique<Project>();
    m_error.clear();
}

bool tst_HostileProject::load(const Entries &entries)
{
    return m_project->load(TestProjects::reader(entries), &m_error);
}

void tst_HostileProject::everyKeyTakesAnyValue_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::newRow("null") << QJsonValue();
    QTest::newRow("true") << QJsonValue(true);
    QTest::newRow("-1") << QJsonValue(-1);
    QTest::newRow("most") << QJsonValue(std::numeric_limits<int>::max());
    QTest::newRow("least") << QJsonValue(std::numeric_limits<int>::min());
    QTest::newRow("fraction") << QJsonValue(3.5);
    QTest::newRow("huge") << QJsonValue(1e99);
    QTest::newRow("text") << QJsonValue("7%1%2");
    QTest::newRow("array") << QJsonValue(QJsonArray{QJsonObject{{"id", 1}}});
    QTest::newRow("object") << QJsonValue(QJsonObject{{"id", QJsonArray()}});
}

void tst_HostileProject::everyKeyTakesAnyValue()
{
    QFETCH(QJsonValue, value);
    const Entries entries = richEntries();
    const QJsonValue root = TestProjects::json(entries);
    QList<Path> paths;
    collect(root, {}, &paths);
    QVERIFY(paths.size() > 100);

    for (const Path &path : std::as_const(paths)) {
        init();
        if (!load(withJson(entries, changed(root, path, value)))) {
            QVERIFY2(!m_error.isEmpty(), textOf(path));
            continue;
        }
        // What was accepted survives another save, and can be worked with.
        Project again;
        QVERIFY2(again.load(TestProjects::reader(m_project->archiveEntries(true)), &m_error),
                 textOf(path));
        const QStringList found = ProjectDifferences::between(*m_project, again);
        QVERIFY2(found.isEmpty(), textOf(path) + ": " + found.join(", ").toUtf8());
        useProject(&again);
    }
}

void tst_HostileProject::everyKeyMayBeMissing()
{
    const Entries entries = richEntries();
    const QJsonValue root = TestProjects::json(entries);
    QList<Path> paths;
    collect(root, {}, &paths);

    for (const Path &path : std::as_const(paths)) {
        if (path.last().typeId() != QMetaType::QString)
            continue;
        init();
        const bool loaded =
            load(withJson(entries, changed(root, path, QJsonValue(QJsonValue::Undefined))));
        QVERIFY2(loaded != isNeeded(path), textOf(path));
    }
}

void tst_HostileProject::positionsAtTheLimitsDoNotOverflow()
{
    constexpr int Max = std::numeric_limits<int>::max();
    constexpr int Min = std::numeric_limits<int>::min();
    const QJsonObject far{{"id", BlockId}, {"x", Max}, {"y", Min}, {"width", Max}, {"height", Max}};
    const QJsonObject near{
        {"id", BlockId}, {"x", Min}, {"y", Min}, {"width", Min}, {"height", Min}};
    const QJsonObject block{
        {"id", BlockId}, {"width", 2}, {"height", 2}, {"frames", QJsonArray{QJsonObject()}}};
    const QJsonObject list{{"animations", QJsonArray{block}}};
    const Entries entries = placedEntries(2, {far, near}, {list});
    QJsonObject root = TestProjects::json(entries);
    root["play_area"] = far;
    root["screen_size"] = far;

    QVERIFY(load(withJson(entries, root)));

    QCOMPARE(m_project->playArea().topLeft(), QPoint(1 << 28, -(1 << 28)));
    useProject(m_project.get());
    QVERIFY(m_project->archiveEntries(true).size() > 2);
}

void tst_HostileProject::numbersOutsideAnEnumerationAreClamped_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("depth");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("type");
    QTest::newRow("below") << -1 << 0 << 0 << 0;
    QTest::newRow("one beyond the smallest") << 2 << 1 << 2 << 1;
    QTest::newRow("one beyond the largest") << 4 << 1 << 3 << 1;
    QTest::newRow("most") << std::numeric_limits<int>::max() << 1 << 3 << 1;
}

void tst_HostileProject::numbersOutsideAnEnumerationAreClamped()
{
    QFETCH(int, number);
    const Entries entries = richEntries();
    QJsonValue root = TestProjects::json(entries);
    root = changed(root, {"sprites", 0, "depth"}, number);
    root = changed(root, {"images", 0, "type"}, number);
    root = changed(root, {"mapObjects", 0, "animations", 0, "type"}, number);

    QVERIFY(load(withJson(entries, root)));

    const auto animation = m_project->mapObjects().first()->animations().cbegin().value();
    QTEST(int(m_project->spriteBanks().first()->depth()), "depth");
    QTEST(int(m_project->images().first()->mode()), "mode");
    QTEST(int(animation->type()), "type");
}

void tst_HostileProject::tooManyDocumentsAreRefused_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"palettes", "tilesets", "maps", "mapObjects", "sprites", "images"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void tst_HostileProject::tooManyDocumentsAreRefused()
{
    QFETCH(QString, kind);
    const QJsonArray documents = repeated(QJsonObject{{"count", 0}}, LoadContext::MaxDocuments + 1);

    QVERIFY(!load(QJsonObject{{kind, documents}}));
    QCOMPARE(m_error, Invalid);
    QVERIFY(m_project->children().isEmpty());
}

void tst_HostileProject::asManyDocumentsAsAllowedLoad()
{
    const QJsonArray tileSets = repeated(QJsonObject{{"count", 0}}, LoadContext::MaxDocuments);

    QVERIFY(load(QJsonObject{{"tilesets", tileSets}}));

    QCOMPARE(m_project->tileSets().size(), LoadContext::MaxDocuments);
}

void tst_HostileProject::tooManyPlacedThingsAreRefused_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("sprites") << "sprites";
    QTest::newRow("blocks") << "animations";
}

void tst_HostileProject::tooManyPlacedThingsAreRefused()
{
    QFETCH(QString, kind);
    const Entries entries = placedEntries(1, {});
    const QJsonValue things = repeated(QJsonObject{{"x", 1}}, LoadContext::MaxRecords + 1);
    const QJsonValue root = TestProjects::json(entries);

    QVERIFY(!load(withJson(entries, changed(root, {"maps", 0, kind}, things))));

    QCOMPARE(m_error, Invalid);
    QVERIFY(m_project->maps().isEmpty());
}

void tst_HostileProject::tooManyFramesAreRefused()
{
    const QJsonObject animation{{"frames", repeated(0, LoadContext::MaxRecords)}};
    const QJsonObject list{{"animations", QJsonArray{animation}}};

    QVERIFY(!load(QJsonObject{{"mapObjects", QJsonArray{list}}}));

    QCOMPARE(m_error, Invalid);
}

void tst_HostileProject::tooManyFrameCellsAreRefused()
{
    const QJsonArray frames = repeated(QJsonObject(), 256);
    const QJsonObject full{{"width", 256}, {"height", 256}, {"frames", frames}};
    const QJsonObject little{{"width", 1}, {"height", 1}, {"frames", QJsonArray{QJsonObject()}}};
    const QJsonObject list{{"animations", QJsonArray{little, full}}};

    QVERIFY(!load(QJsonObject{{"mapObjects", QJsonArray{list}}}));

    QCOMPARE(m_error, Invalid);
}

void tst_HostileProject::tooMuchJsonIsRefused()
{
    const QByteArray blanks(ProjectReader::MaxJsonSize, ' ');
    QVERIFY(!load(Entries{{"project.json", "{}" + blanks}}));
    QCOMPARE(m_error, Invalid);

    m_error.clear();
    const QByteArray nodes = QByteArray("[],").repeated(ProjectReader::MaxJsonNodes);
    QVERIFY(!load(Entries{{"project.json", "{\"x\":[" + nodes + "0]}"}}));
    QCOMPARE(m_error, Invalid);
}

void tst_HostileProject::blocksThatCoverTooMuchAreRefused()
{
    constexpr int Side = 512;
    const qint64 count = LoadContext::MaxPlacedCells / (Side * Side) + 1;

    QVERIFY(!load(placedEntries(Side, repeated(placedBlock(Side + 1), count))));

    QCOMPARE(m_error, Invalid);
}

void tst_HostileProject::blocksThatStampTooMuchAreRefused()
{
    constexpr int Side = 256;
    const QJsonObject block{
        {"id", BlockId}, {"width", Side}, {"height", Side}, {"frames", QJsonArray{QJsonObject()}}};
    const QJsonObject list{{"animations", QJsonArray{block}}};
    const qint64 count = LoadContext::MaxPlacedCells / (Side * Side) + 1;

    QVERIFY(!load(placedEntries(Side, repeated(placedBlock(0), count), {list})));

    QCOMPARE(m_error, Invalid);
}

void tst_HostileProject::blocksSoughtInTooManyListsAreRefused()
{
    QJsonArray lists;
    for (int i = 0; i < LoadContext::MaxDocuments; ++i)
        lists.append(QJsonObject{{"id", QUuid::createUuid().toString()}});
    const qint64 count = LoadContext::MaxPlacedCells / LoadContext::MaxDocuments + 1;

    QVERIFY(!load(placedEntries(1, repeated(placedBlock(0), count), lists)));

    QCOMPARE(m_error, Invalid);
}

void tst_HostileProject::manySmallBlocksAreRestored()
{
    QVERIFY(load(placedEntries(64, repeated(placedBlock(2), 10'000),
                               repeated(QJsonObject{{"name", "list"}}, 100))));

    QVERIFY(m_project->map(QUuid(MapId))->tileLayer()->cell({1, 1}).occupied);
    QCOMPARE(m_project->map(QUuid(MapId))->tileLayer()->cell({1, 1}).index, 0);
    QCOMPARE(m_project->map(QUuid(MapId))->tileLayer()->cell({2, 1}).index, 66);
}

QTEST_GUILESS_MAIN(tst_HostileProject)
#include "tst_HostileProject.moc"
