#include "store/ProjectStore.h"

#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/TileSet.h"
#include "support/ProjectDifferences.h"
#include "support/TestProjects.h"
#include "support/ZipBytes.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

class tst_ProjectStore : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void createReplacesTheProject();
    void closeEndsTheProjectAndForgetsTheFile();
    void withoutAProjectThereIsNothingToSaveOrDigest();

    void aRichProjectSurvivesSaveAndLoad();
    void theFileHoldsTheEntriesInSortedOrder();
    void anEmptyProjectIsTwoEntries();
    void savingReportsTheNameAndTheFile();
    void loadingAnnouncesTheProject();
    void theProjectIsCalledLoadingMeanwhile();
    void loadReplacesTheOpenProject();
    void noProjectStaysAfterAFailedLoad_data();
    void noProjectStaysAfterAFailedLoad();
    void aProjectJsonBombIsRefused();
    void everyTruncationIsRefused();
    void randomDamageLoadsOrIsRefused();

    void theDigestCoversNamesAndBytes();
    void theDigestStaysUntilSomethingChanges();
    void openTabsAreNoChange();

    void exportsWriteUnderTheDocumentsName_data();
    void exportsWriteUnderTheDocumentsName();
    void exportsOfUnknownIdsWriteNothing_data();
    void exportsOfUnknownIdsWriteNothing();
    void exportsIntoAMissingFolderFail_data();
    void exportsIntoAMissingFolderFail();
    void exportsStayInTheirFolder_data();
    void exportsStayInTheirFolder();
    void anExportReplacesItsNamesake();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QByteArray stored(const QString &name) const;
    void store(const QString &name, const QByteArray &bytes) const;
    Project *richProject();
    void callExport(int kind, const QString &dir, const QUuid &id);
    QUuid idOf(int kind) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ProjectStore> m_store;
    QStringList m_events; ///< the store's signals in order
};

namespace {

constexpr int Maps = 0;
constexpr int Tiles = 1;
constexpr int Palettes = 2;

void addKinds()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("file");
    QTest::addColumn<qint64>("size");
    QTest::newRow("map") << Maps << "map"
                         << "level_tilemap.bin" << qint64(12 * 9 * 2);
    QTest::newRow("tile set") << Tiles << "tile set"
                              << "level_tiles.nxt" << qint64(5 * 32);
    QTest::newRow("palette") << Palettes << "palette"
                             << "level_palette.bin" << qint64(512);
}

} // namespace

void tst_ProjectStore::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_store = std::make_unique<ProjectStore>();
    m_events.clear();
    connect(m_store.get(), &ProjectStore::projectLoad, this,
            [this](const QString &name) { m_events += "load " + name; });
    connect(m_store.get(), &ProjectStore::loadError, this,
            [this](const QString &text) { m_events += "load error " + text; });
    connect(m_store.get(), &ProjectStore::saveError, this,
            [this](const QString &text) { m_events += "save error " + text; });
    connect(m_store.get(), &ProjectStore::showMessage, this, [this](const QString &text, int ms) {
        m_events += "show " + text + ' ' + QString::number(ms);
    });
}

void tst_ProjectStore::cleanup()
{
    m_store.reset();
    m_folder.reset();
}

QByteArray tst_ProjectStore::stored(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_ProjectStore::store(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

Project *tst_ProjectStore::richProject()
{
    Project *project = m_store->create("rich");
    TestProjects::fill(project);
    m_store->setFileName(path("a.tessaril"));
    return project;
}

void tst_ProjectStore::callExport(int kind, const QString &dir, const QUuid &id)
{
    if (kind == Maps)
        m_store->exportMap(dir, id);
    else if (kind == Tiles)
        m_store->exportTiles(dir, id);
    else
        m_store->exportPalette(dir, id);
}

QUuid tst_ProjectStore::idOf(int kind) const
{
    const auto project = m_store->project();
    if (kind == Maps)
        return project->maps().first()->id();
    if (kind == Tiles)
        return project->tileSets().first()->id();
    return project->palettes().first()->id();
}

void tst_ProjectStore::createReplacesTheProject()
{
    m_store->setFileName(path("old"));
    const QPointer<Project> first = m_store->create("first");

    const QPointer<Project> second = m_store->create("second");

    QVERIFY(!first);
    QCOMPARE(m_store->project(), second);
    QCOMPARE(second->name(), QStringLiteral("second"));
    QCOMPARE(second->parent(), m_store.get());
    QCOMPARE(m_store->fileName(), QString());
    QVERIFY(m_events.isEmpty());
}

void tst_ProjectStore::closeEndsTheProjectAndForgetsTheFile()
{
    const QPointer<Project> project = richProject();

    m_store->close();

    QVERIFY(!project);
    QVERIFY(!m_store->project());
    QCOMPARE(m_store->fileName(), QString());
    m_store->close();
    QVERIFY(m_events.isEmpty());
}

void tst_ProjectStore::withoutAProjectThereIsNothingToSaveOrDigest()
{
    m_store->setFileName(path("a.tessaril"));

    QVERIFY(!m_store->save(false));
    QCOMPARE(m_store->digest(), QByteArray());
    QVERIFY(!QFile::exists(path("a.tessaril")));
}

void tst_ProjectStore::aRichProjectSurvivesSaveAndLoad()
{
    Project original;
    TestProjects::fill(&original);
    Project *project = m_store->create("other");
    QString error;
    QVERIFY(project->load(TestProjects::reader(original.archiveEntries(true)), &error));
    m_store->setFileName(path("a.tessaril"));

    QVERIFY(m_store->save(false));
    QVERIFY(m_store->load(path("a.tessaril")));

    QCOMPARE(ProjectDifferences::between(original, *m_store->project()), QStringList());
}

void tst_ProjectStore::theFileHoldsTheEntriesInSortedOrder()
{
    const auto entries = richProject()->archiveEntries(true);

    QVERIFY(m_store->save(false));

    QList<QByteArray> names;
    for (const QString &name : entries.keys())
        names += name.toUtf8();
    QCOMPARE(ZipBytes::names(stored("a.tessaril")), names);
    QVERIFY(m_store->save(false));
    QCOMPARE(ZipBytes::names(stored("a.tessaril")), names);
}

void tst_ProjectStore::anEmptyProjectIsTwoEntries()
{
    m_store->create("empty");
    m_store->setFileName(path("a.tessaril"));

    QVERIFY(m_store->save(false));

    QCOMPARE(ZipBytes::names(stored("a.tessaril")),
             (QList<QByteArray>{"project.json", "scratch.png"}));
}

void tst_ProjectStore::savingReportsTheNameAndTheFile()
{
    m_store->create("50%1 %2");
    m_store->setFileName(path("a.tessaril"));

    QVERIFY(m_store->save(true));

    QCOMPARE(m_events, QStringList{"show Saved 50%1 %2 to " + path("a.tessaril") + " 2500"});
}

void tst_ProjectStore::loadingAnnouncesTheProject()
{
    richProject();
    const QString name = m_store->project()->name();
    QVERIFY(m_store->save(false));
    m_events.clear();
    QStringList fileNames; // as each signal finds it
    const auto look = [&] { fileNames += m_store->fileName(); };
    connect(m_store.get(), &ProjectStore::projectLoad, this, look);
    connect(m_store.get(), &ProjectStore::showMessage, this, look);

    QVERIFY(m_store->load(path("a.tessaril")));

    QCOMPARE(fileNames, (QStringList{QString(), path("a.tessaril")}));
    QCOMPARE(m_events, (QStringList{"load " + name, "show Project loaded 2500"}));
    QCOMPARE(m_store->fileName(), path("a.tessaril"));
    QCOMPARE(m_store->project()->parent(), m_store.get());
}

void tst_ProjectStore::theProjectIsCalledLoadingMeanwhile()
{
    store("a.tessaril", "hello");
    QString name;
    connect(m_store.get(), &ProjectStore::loadError, this,
            [&] { name = m_store->project()->name(); });

    QVERIFY(!m_store->load(path("a.tessaril")));

    QCOMPARE(name, QStringLiteral("loading..."));
}

void tst_ProjectStore::loadReplacesTheOpenProject()
{
    richProject();
    QVERIFY(m_store->save(false));
    const QPointer<Project> open = m_store->create("open");

    QVERIFY(m_store->load(path("a.tessaril")));

    QVERIFY(!open);
}

void tst_ProjectStore::noProjectStaysAfterAFailedLoad_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");
    const QString invalid = "Invalid project file";
    QTest::newRow("empty") << QByteArray() << invalid;
    QTest::newRow("21 bytes") << QByteArray(21, 'P') << invalid;
    QTest::newRow("garbage") << QByteArray("garbage ").repeated(1000) << invalid;
    QTest::newRow("an archive of something else")
        << ZipBytes::archive({{"hello.txt", "hello"}}) << invalid;
    QTest::newRow("version 3") << ZipBytes::archive({{"project.json", "{\"formatVersion\":3}"}})
                               << "Project file is from a newer version of Tessaril";
    QTest::newRow("a map without cells")
        << ZipBytes::archive({{"project.json", "{\"maps\":[{\"name\":\"Cave\"}]}"}})
        << "Failed to load tile map anim for map Cave";
}

void tst_ProjectStore::noProjectStaysAfterAFailedLoad()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);
    store("a.tessaril", bytes);
    m_store->create("open");
    m_store->setFileName(path("open.tessaril"));

    QVERIFY(!m_store->load(path("a.tessaril")));

    QCOMPARE(m_events, QStringList{"load error " + error});
    QVERIFY(!m_store->project());
    QCOMPARE(m_store->fileName(), QString());
    QCOMPARE(stored("a.tessaril"), bytes);
}

void tst_ProjectStore::aProjectJsonBombIsRefused()
{
    store("a.tessaril",
          ZipBytes::archive({{"project.json", "{}" + QByteArray(64 * 1024 * 1024, ' ')}}));

    QVERIFY(!m_store->load(path("a.tessaril")));

    QCOMPARE(m_events, QStringList{"load error Invalid project file"});
}

void tst_ProjectStore::everyTruncationIsRefused()
{
    richProject();
    QVERIFY(m_store->save(false));
    const QByteArray whole = stored("a.tessaril");
    for (qsizetype size = 0; size < whole.size(); size += size < whole.size() - 100 ? 37 : 1) {
        store("b.tessaril", whole.left(size));
        QVERIFY2(!m_store->load(path("b.tessaril")), qPrintable(QString::number(size)));
        QVERIFY(!m_store->project());
    }
}

void tst_ProjectStore::randomDamageLoadsOrIsRefused()
{
    richProject();
    QVERIFY(m_store->save(false));
    const QByteArray whole = stored("a.tessaril");
    QRandomGenerator random(3);
    for (int round = 0; round < 300; ++round) {
        QByteArray bytes = whole;
        for (int flip = random.bounded(1, 5); flip > 0; --flip)
            bytes[random.bounded(int(bytes.size()))] ^= char(1 << random.bounded(8));
        store("b.tessaril", bytes);
        if (!m_store->load(path("b.tessaril")))
            continue;
        // What was accepted can be saved and loaded again.
        m_store->setFileName(path("c.tessaril"));
        QVERIFY(m_store->save(false));
        QVERIFY(m_store->load(path("c.tessaril")));
    }
}

void tst_ProjectStore::theDigestCoversNamesAndBytes()
{
    const auto entries = richProject()->archiveEntries(false);
    QByteArray all;
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry)
        all += entry.key().toUtf8() + *entry;

    QCOMPARE(m_store->digest(), QCryptographicHash::hash(all, QCryptographicHash::Sha1));
}

void tst_ProjectStore::theDigestStaysUntilSomethingChanges()
{
    Project *project = richProject();
    const QByteArray digest = m_store->digest();
    QCOMPARE(m_store->digest(), digest);

    QVERIFY(m_store->save(false));
    QCOMPARE(m_store->digest(), digest);
    project->maps().first()->tileLayer()->setCell({0, 0}, {4, false, false, false, 0, true});

    QVERIFY(m_store->digest() != digest);
}

void tst_ProjectStore::openTabsAreNoChange()
{
    Project *project = richProject();
    const QByteArray digest = m_store->digest();

    project->setOpenDocuments({"{11111111-2222-4333-8444-555555555555}"});

    QCOMPARE(m_store->digest(), digest);
}

void tst_ProjectStore::exportsWriteUnderTheDocumentsName_data()
{
    addKinds();
}

void tst_ProjectStore::exportsWriteUnderTheDocumentsName()
{
    QFETCH(int, kind);
    QFETCH(QString, what);
    QFETCH(QString, file);
    QFETCH(qint64, size);
    Project *project = richProject();
    project->maps().first()->setName("level");
    project->tileSets().first()->setName("level");
    project->palettes().first()->setName("level");

    callExport(kind, m_folder->path(), idOf(kind));

    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{file});
    QCOMPARE(qint64(stored(file).size()), size);
    const QString done = what.at(0).toUpper() + what.mid(1) + " exported";
    QCOMPARE(m_events, QStringList{"show " + done + " 2000"});
}

void tst_ProjectStore::exportsOfUnknownIdsWriteNothing_data()
{
    addKinds();
}

void tst_ProjectStore::exportsOfUnknownIdsWriteNothing()
{
    QFETCH(int, kind);
    QFETCH(QString, what);
    const QStringList refused{"save error Invalid " + what + " id"};
    callExport(kind, m_folder->path(), QUuid::createUuid());
    QCOMPARE(m_events, refused);

    richProject();
    callExport(kind, m_folder->path(), QUuid::createUuid());
    callExport(kind, path("missing"), QUuid());

    QCOMPARE(m_events, refused + refused + refused);
    QVERIFY(QDir(m_folder->path()).isEmpty());
}

void tst_ProjectStore::exportsIntoAMissingFolderFail_data()
{
    addKinds();
}

void tst_ProjectStore::exportsIntoAMissingFolderFail()
{
    QFETCH(int, kind);
    QFETCH(QString, what);
    richProject();

    callExport(kind, path("missing"), idOf(kind));

    QCOMPARE(m_events, QStringList{"save error Exporting the " + what + " failed"});
    QVERIFY(!QFile::exists(path("missing")));
}

void tst_ProjectStore::exportsStayInTheirFolder_data()
{
    addKinds();
}

void tst_ProjectStore::exportsStayInTheirFolder()
{
    QFETCH(int, kind);
    QFETCH(QString, what);
    Project *project = richProject();
    QVERIFY(QDir(m_folder->path()).mkdir("inner"));
    for (const QString &name : {QStringLiteral("../out"), path("out"), QStringLiteral("a/b"),
                                QString(QChar::Null) + "x"}) {
        project->maps().first()->setName(name);
        project->tileSets().first()->setName(name);
        project->palettes().first()->setName(name);
        m_events.clear();

        callExport(kind, path("inner"), idOf(kind));

        QCOMPARE(m_events, QStringList{"save error Exporting the " + what + " failed"});
    }
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
             QStringList{"inner"});
    QVERIFY(QDir(path("inner")).isEmpty());
}

void tst_ProjectStore::anExportReplacesItsNamesake()
{
    Project *project = richProject();
    project->tileSets().first()->setName("same");
    const auto other = project->createTileSet("same", QUuid(), 2);

    m_store->exportTiles(m_folder->path(), idOf(Tiles) == other->id()
                                               ? project->tileSets().last()->id()
                                               : idOf(Tiles));
    QCOMPARE(stored("same_tiles.nxt").size(), 5 * 32);
    m_store->exportTiles(m_folder->path(), other->id());

    QCOMPARE(stored("same_tiles.nxt").size(), 2 * 32);
    QCOMPARE(m_events, (QStringList{"show Tile set exported 2000", "show Tile set exported 2000"}));
}

QTEST_GUILESS_MAIN(tst_ProjectStore)
#include "tst_ProjectStore.moc"
