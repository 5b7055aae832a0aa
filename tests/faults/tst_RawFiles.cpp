#include "formats/FourFileImport.h"
#include "formats/SpriteImport.h"
#include "history/EditRecorder.h"
#include "history/UndoStacks.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "support/TestFiles.h"
#include "support/TestProjects.h"
#include "support/UseProject.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <QUndoStack>

#include <sys/stat.h>

/// Files without a header, of every wrong size, and things that are no files, to each importer.
class tst_RawFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void everyImporterAnswersAtOnce_data();
    void everyImporterAnswersAtOnce();
    void aHostilePartOfALevelLeavesAWholeProject_data();
    void aHostilePartOfALevelLeavesAWholeProject();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QString makeFile(const QString &kind, const QString &suffix, int whole);

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

constexpr int MaxMs = 5000; // waiting, on a machine that others use

enum Importer { RawPalette, Npl, Tiles, Font, Sprites, ImporterCount };

struct Kind
{
    const char *suffix;
    int whole; // bytes of the smallest whole file
};

const Kind Kinds[ImporterCount] = {
    {"pal", 512}, {"npl", 513}, {"nxt", 32}, {"chr", 8}, {"spr", 256}};

bool import(Importer importer, const QString &fileName, Project *project)
{
    const auto palette = project->createPalette(CreateDefault, QStringLiteral("Day"));
    const auto tiles = project->createTileSet(QStringLiteral("Rocks"), palette->id(), 4);
    switch (importer) {
    case RawPalette:
    case Npl:
        return palette->importData(fileName);
    case Tiles:
        return tiles->importNxt(fileName);
    case Font:
        return tiles->importZXFont(1, 7, 0, 0, fileName);
    default:
        return SpriteImport::importRaw(project, nullptr, fileName, SpriteImport::UseExistingPalette,
                                       palette->id())
                   .bank->count() > 1;
    }
}

bool loadsAgain(const Project &project)
{
    Project copy;
    QString error;
    return copy.load(TestProjects::reader(project.archiveEntries(true)), &error);
}

} // namespace

void tst_RawFiles::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

/// Makes what @p kind names; the name of it.
QString tst_RawFiles::makeFile(const QString &kind, const QString &suffix, int whole)
{
    const QString name = path("a." + suffix);
    if (kind == QLatin1String("folder"))
        QDir().mkdir(name);
    else if (kind == QLatin1String("pipe"))
        mkfifo(qPrintable(name), 0600);
    else if (kind == QLatin1String("circle"))
        QFile::link("a." + suffix, name);
    else if (kind == QLatin1String("device"))
        QFile::link(QStringLiteral("/dev/zero"), name);
    else if (kind == QLatin1String("large")) {
        QFile file(name);
        if (file.open(QIODevice::WriteOnly))
            file.resize(100 * 1024 * 1024);
    } else if (kind != QLatin1String("missing")) {
        const bool made = TestFiles::make(name, QByteArray(whole + kind.toInt(), '\x12'));
        return made ? name : QString();
    }
    return name;
}

void tst_RawFiles::everyImporterAnswersAtOnce_data()
{
    QTest::addColumn<int>("importer");
    QTest::addColumn<QString>("kind"); // bytes more than a whole file, or another thing
    QTest::addColumn<bool>("done");
    for (int importer = 0; importer < ImporterCount; ++importer) {
        const Kind &one = Kinds[importer];
        // Palettes are of one size; tiles stop at a part of one, a font fails there.
        const bool isPalette = importer <= Npl;
        const auto row = [&](const QString &kind, bool done) {
            QTest::addRow("%s %s", one.suffix, qPrintable(kind)) << importer << kind << done;
        };
        row(QString::number(-one.whole), importer == Tiles || importer == Font);
        row(QString::number(1 - one.whole), importer == Tiles);
        row(QStringLiteral("-1"), importer == Tiles);
        row(QStringLiteral("0"), true);
        row(QStringLiteral("1"), !isPalette && importer != Font);
        for (const char *thing : {"large", "folder", "pipe", "circle", "device", "missing"})
            row(QString::fromLatin1(thing), false);
    }
}

void tst_RawFiles::everyImporterAnswersAtOnce()
{
    QFETCH(int, importer);
    QFETCH(QString, kind);
    QFETCH(bool, done);
    const QString name =
        makeFile(kind, QString::fromLatin1(Kinds[importer].suffix), Kinds[importer].whole);
    Project project;
    QElapsedTimer clock;
    clock.start();

    QCOMPARE(import(Importer(importer), name, &project), done);

    QVERIFY(clock.elapsed() < MaxMs);
    useProject(&project);
    QVERIFY(loadsAgain(project));
}

void tst_RawFiles::aHostilePartOfALevelLeavesAWholeProject_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QByteArray>("content"); // null for a folder in place of the file
    QTest::addColumn<QString>("message");
    const QString map = QStringLiteral("Could not import the map data");
    QTest::newRow("palette cut") << "nxp" << QByteArray(511, 'x')
                                 << "Could not import the palette data";
    QTest::newRow("palette folder") << "nxp" << QByteArray() << "Could not import the palette data";
    QTest::newRow("tiles folder") << "nxt" << QByteArray() << "Could not import the tile data";
    QTest::newRow("tiles cut") << "nxt" << QByteArray(31, 'x') << QString();
    QTest::newRow("map folder") << "nxm" << QByteArray() << map;
    QTest::newRow("map empty") << "nxm" << QByteArray("") << QString();
    QTest::newRow("block 65535") << "nxm" << QByteArray("\4\4\xff\xff\xff\xff", 6) << map;
    QTest::newRow("255 by 255 and no more") << "nxm" << QByteArray("\xff\xff") << QString();
    QTest::newRow("255 by 0") << "nxm" << QByteArray("\xff\0", 2) << QString();
    QTest::newRow("blocks cut") << "nxb" << QByteArray(7, '\1') << map;
    QTest::newRow("tiles 65535 in blocks") << "nxb" << QByteArray(64, '\xff') << QString();
}

void tst_RawFiles::aHostilePartOfALevelLeavesAWholeProject()
{
    QFETCH(QString, suffix);
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    const QMap<QString, QByteArray> whole{{"nxp", QByteArray(512, '\1')},
                                          {"nxt", QByteArray(64, '\x23')},
                                          {"nxm", QByteArray("\2\2\0\0", 4)},
                                          {"nxb", QByteArray(8, '\0')}};
    for (auto file = whole.cbegin(); file != whole.cend(); ++file) {
        const bool isPart = file.key() == suffix;
        if (isPart && content.isNull())
            QVERIFY(QDir(m_folder->path()).mkdir("level." + suffix));
        else
            QVERIFY(TestFiles::make(path("level." + file.key()), isPart ? content : *file));
    }
    Project project;
    UndoStacks stacks;
    EditRecorder recorder(
        &project, [&](const QUuid &id) { return stacks.recordingStack(id); }, nullptr,
        [] { return 0; });

    const auto outcome = FourFileImport::run(&project, path(QStringLiteral("level.nxm")));

    QCOMPARE(outcome.message, message);
    QCOMPARE(outcome.done, message.isEmpty());
    QVERIFY(loadsAgain(project));
    useProject(&project);
    QVERIFY(loadsAgain(project));
    QVERIFY(!outcome.map || project.deleteMap(outcome.map->id()));
    QVERIFY(!outcome.tileSet || project.deleteTileSet(outcome.tileSet->id()));
    QVERIFY(loadsAgain(project));
}

QTEST_GUILESS_MAIN(tst_RawFiles)
#include "tst_RawFiles.moc"
