#include "formats/FourFileImport.h"

#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/Tile.h"
#include "model/TileMap.h"
#include "model/TileSet.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <sys/stat.h>

namespace {

constexpr qint64 TooLarge = 100 * 1024 * 1024; // bytes
constexpr int FirstTile = 4;                   // of block 1

/// Little-endian words.
QByteArray words(const QList<int> &values)
{
    QByteArray bytes;
    for (const int value : values) {
        bytes += static_cast<char>(value & 0xFF);
        bytes += static_cast<char>(value >> 8);
    }
    return bytes;
}

/// Rows of block numbers as .nxm holds them.
QByteArray mapBytes(int width, int height, const QList<QList<int>> &rows)
{
    QByteArray bytes;
    bytes += static_cast<char>(width);
    bytes += static_cast<char>(height);
    for (const QList<int> &row : rows)
        bytes += words(row) + QByteArray(256 - width, '\x55');
    return bytes;
}

QList<int> indices(const TileMap &layer, int row)
{
    QList<int> list;
    for (int x = 0; x < layer.width(); ++x)
        list += layer.cell({x, row}).index;
    return list;
}

} // namespace

class tst_FourFileImport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void anyOfTheFourBringsThemAll_data();
    void anyOfTheFourBringsThemAll();
    void namesThemAfterTheFileUpToItsLastDot();
    void cellsAreOccupiedAndPlain();
    void oddSizesDropTheHalvesOutside();
    void aWordIsATileIndexAsAWhole();
    void aMissingFileMakesNothing_data();
    void aMissingFileMakesNothing();
    void aWrongPaletteStops_data();
    void aWrongPaletteStops();
    void tilesThatCannotBeOpenedStop_data();
    void tilesThatCannotBeOpenedStop();
    void blocksThatCannotBeReadEndInTheMapsMessage_data();
    void blocksThatCannotBeReadEndInTheMapsMessage();
    void aMapThatCannotBeOpenedKeepsItsOneCell_data();
    void aMapThatCannotBeOpenedKeepsItsOneCell();
    void aBlockBeyondTheListStopsWithTheCellsBefore();
    void aShortMapGoesOnWithBlockZero();
    void whatIsBehindTheLastRowIsNotRead();
    void anEmptyMapFileMakesAnEmptyMap();
    void theWidestMapIsRead();

private:
    QString path(const QString &suffix) const { return m_folder->filePath("level." + suffix); }
    void write(const QString &suffix, const QByteArray &bytes) const;
    /// Puts something that cannot be read in the place of a file.
    void spoil(const QString &suffix, const QString &how) const;
    static void addHowToSpoil();

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_FourFileImport::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QByteArray palette(512, '\0');
    palette[2] = '\xFF';
    palette[3] = '\x81';
    write("nxp", palette);
    QByteArray tiles(32, '\x12');
    tiles += QByteArray(32, '\x34');
    write("nxt", tiles);
    write("nxb", words({0, 1, 2, 3, 4, 5, 6, 7}));
    write("nxm", mapBytes(4, 4, {{1, 0}, {0, 1}}));
}

void tst_FourFileImport::write(const QString &suffix, const QByteArray &bytes) const
{
    QVERIFY(TestFiles::make(path(suffix), bytes));
}

void tst_FourFileImport::addHowToSpoil()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("a folder") << "folder";
    QTest::newRow("a pipe") << "pipe";
    QTest::newRow("a hundred megabytes") << "huge";
}

void tst_FourFileImport::spoil(const QString &suffix, const QString &how) const
{
    const QString name = path(suffix);
    QVERIFY(QFile::remove(name));
    if (how == u"folder") {
        QVERIFY(QDir().mkdir(name));
    } else if (how == u"pipe") {
        QCOMPARE(mkfifo(QFile::encodeName(name).constData(), 0600), 0);
    } else {
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.resize(TooLarge));
    }
}

void tst_FourFileImport::anyOfTheFourBringsThemAll_data()
{
    QTest::addColumn<QString>("suffix");
    for (const char *suffix : {"nxp", "nxt", "nxm", "nxb"})
        QTest::newRow(suffix) << QString::fromLatin1(suffix);
}

void tst_FourFileImport::anyOfTheFourBringsThemAll()
{
    QFETCH(QString, suffix);
    Project project;
    QStringList order;
    connect(&project, &Project::paletteCreated, this, [&] { order += "palette"; });
    connect(&project, &Project::tilesetCreated, this, [&] { order += "tile set"; });
    connect(&project, &Project::mapCreated, this, [&] { order += "map"; });

    const FourFileImport::Outcome outcome = FourFileImport::run(&project, path(suffix));

    QVERIFY(outcome.done);
    QCOMPARE(outcome.message, QString());
    QCOMPARE(order, QStringList({"palette", "tile set", "map"}));
    QCOMPARE(outcome.palette->word(1), quint16(0xFF81));
    QCOMPARE(outcome.tileSet->palette(), outcome.palette);
    QCOMPARE(outcome.tileSet->tile(1)->image().pixelIndex(0, 0), 3);
    QCOMPARE(outcome.map->tileSet(), outcome.tileSet);
    const QPointer<TileMap> layer = outcome.map->tileLayer();
    QCOMPARE(indices(*layer, 0), QList<int>({4, 5, 0, 1}));
    QCOMPARE(indices(*layer, 1), QList<int>({6, 7, 2, 3}));
    QCOMPARE(indices(*layer, 2), QList<int>({0, 1, 4, 5}));
    QCOMPARE(indices(*layer, 3), QList<int>({2, 3, 6, 7}));
    QCOMPARE(outcome.map->objectLayer()->size(), layer->size());
}

void tst_FourFileImport::namesThemAfterTheFileUpToItsLastDot()
{
    for (const char *suffix : {"nxp", "nxt", "nxm", "nxb"})
        QVERIFY(QFile::rename(path(suffix), m_folder->filePath(QString("a.b.%1").arg(suffix))));
    Project project;

    const FourFileImport::Outcome outcome =
        FourFileImport::run(&project, m_folder->filePath("a.b.nxt"));

    QVERIFY(outcome.done);
    QCOMPARE(outcome.palette->name(), QStringLiteral("a.b"));
    QCOMPARE(outcome.tileSet->name(), QStringLiteral("a.b"));
    QCOMPARE(outcome.map->name(), QStringLiteral("a.b"));
}

void tst_FourFileImport::cellsAreOccupiedAndPlain()
{
    Project project;

    const FourFileImport::Outcome outcome = FourFileImport::run(&project, path("nxm"));

    const QPointer<TileMap> layer = outcome.map->tileLayer();
    QCOMPARE(layer->cell({1, 1}), (TileMap::TileData{7, false, false, false, 0, true}));
}

void tst_FourFileImport::oddSizesDropTheHalvesOutside()
{
    write("nxm", mapBytes(3, 3, {{1, 1}, {1, 0}}));
    Project project;

    const FourFileImport::Outcome outcome = FourFileImport::run(&project, path("nxm"));

    // The width is odd: three columns and 253 bytes of filling make 257 bytes a pair.
    QVERIFY(outcome.done);
    const QPointer<TileMap> layer = outcome.map->tileLayer();
    QCOMPARE(layer->size(), QSize(3, 3));
    QCOMPARE(indices(*layer, 0), QList<int>({4, 5, 4}));
    QCOMPARE(indices(*layer, 1), QList<int>({6, 7, 6}));
    QCOMPARE(indices(*layer, 2), QList<int>({4, 5, 0}));
}

void tst_FourFileImport::aWordIsATileIndexAsAWhole()
{
    write("nxb", words({0xFFFF, 0x8001, 300, 512}));
    write("nxm", mapBytes(2, 2, {{0}}));
    Project project;

    const FourFileImport::Outcome outcome = FourFileImport::run(&project, path("nxm"));

    const QPointer<TileMap> layer = outcome.map->tileLayer();
    QCOMPARE(indices(*layer, 0), QList<int>({0xFFFF, 0x8001}));
    QCOMPARE(indices(*layer, 1), QList<int>({300, 512}));
    QVERIFY(!layer->cell({0, 0}).rotate);
    QCOMPARE(layer->cell({0, 0}).offset, 0);
}

void tst_FourFileImport::aMissingFileMakesNothing_data()
{
    anyOfTheFourBringsThemAll_data();
}

void tst_FourFileImport::aMissingFileMakesNothing()
{
    QFETCH(QString, suffix);
    QVERIFY(QFile::remove(path(suffix)));
    Project project;

    const FourFileImport::Outcome outcome = FourFileImport::run(&project, path("nxm"));

    QVERIFY(!outcome.done);
    QCOMPARE(outcome.message, QStringLiteral("Some of the required files are missing"));
    QVERIFY(project.palettes().isEmpty());
    QVERIFY(project.tileSets().isEmpty());
    QVERIFY(project.maps().isEmpty());
}

void tst_FourFileImport::aWrongPaletteStops_data()
{
    addHowToSpoil();
    QTest::newRow("a byte too few") << "511";
    QTest::newRow("a byte too many") << "513";
}

void tst_FourFileImport::aWrongPaletteStops()
{
    QFETCH(QString, how);
    const int size = how.toInt();
    if (size > 0)
        write("nxp", QByteArray(size, '\0'));
    else
        spoil("nxp", how);
    Project project;

    const FourFileImport::Outcome outcome = FourFileImport::run(&project, path("nxm"));

    QVERIFY(!outcome.done);
    QCOMPARE(outcome.message, QStringLiteral("Could not import the palette data"));
    QCOMPARE(project.palettes().size(), 1);
    QCOMPARE(outcome.palette->word(1), quint16(0));
    QVERIFY(project.tileSets().isEmpty());
}

void tst_FourFileImport::tilesThatCannotBeOpenedStop_data()
{
    addHowToSpoil();
}

void tst_FourFileImport::tilesThatCannotBeOpenedStop()
{
    QFETCH(QString, how);
    spoil("nxt", how);
    Project project;

    const FourFileImport::Outcome outcome = FourFileImport::run(&project, path("nxm"));

    QVERIFY(!outcome.done);
    QCOMPARE(outcome.message, QStringLiteral("Could not import the tile data"));
    QCOMPARE(project.palettes().size(), 1);
    QCOMPARE(project.tileSets().size(), 1);
    QVERIFY(project.maps().isEmpty());
}

void tst_FourFileImport::blocksThatCannotBeReadEndInTheMapsMessage_data()
{
    addHowToSpoil();
    QTest::newRow("seven bytes") << "seven";
}

void tst_FourFileImport::blocksThatCannotBeReadEndInTheMapsMessage()
{
    QFETCH(QString, how);
    if (how == u"seven")
        write("nxb", words({0, 1, 2, 3}).chopped(1));
    else
        spoil("nxb", how);
    Project project;

    const FourFileImport::Outcome outcome = FourFileImport::run(&project, path("nxm"));

    QVERIFY(!outcome.done);
    QCOMPARE(outcome.message, QStringLiteral("Could not import the map data"));
    QCOMPARE(project.maps().size(), 1);
    QCOMPARE(outcome.map->tileLayer()->size(), QSize(4, 4));
    QVERIFY(!outcome.map->tileLayer()->cell({0, 0}).occupied);
}

void tst_FourFileImport::aMapThatCannotBeOpenedKeepsItsOneCell_data()
{
    addHowToSpoil();
}

void tst_FourFileImport::aMapThatCannotBeOpenedKeepsItsOneCell()
{
    QFETCH(QString, how);
    spoil("nxm", how);
    Project project;

    const FourFileImport::Outcome outcome = FourFileImport::run(&project, path("nxp"));

    QVERIFY(!outcome.done);
    QCOMPARE(outcome.message, QStringLiteral("Could not import the map data"));
    QCOMPARE(outcome.map->tileLayer()->size(), QSize(1, 1));
}

void tst_FourFileImport::aBlockBeyondTheListStopsWithTheCellsBefore()
{
    write("nxm", mapBytes(4, 4, {{1, 1}, {2, 1}}));
    Project project;

    const FourFileImport::Outcome outcome = FourFileImport::run(&project, path("nxm"));

    QVERIFY(!outcome.done);
    QCOMPARE(outcome.message, QStringLiteral("Could not import the map data"));
    const QPointer<TileMap> layer = outcome.map->tileLayer();
    QCOMPARE(indices(*layer, 1), QList<int>({6, 7, 6, 7}));
    QVERIFY(layer->cell({3, 1}).occupied);
    QCOMPARE(layer->cell({0, 2}), TileMap::TileData());
    QCOMPARE(project.palettes().size(), 1);
    QCOMPARE(project.tileSets().size(), 1);
}

void tst_FourFileImport::aShortMapGoesOnWithBlockZero()
{
    // One whole block number and half of the next.
    write("nxm", mapBytes(4, 6, {{1, 1}}).first(5));
    Project project;

    const FourFileImport::Outcome outcome = FourFileImport::run(&project, path("nxm"));

    QVERIFY(outcome.done);
    const QPointer<TileMap> layer = outcome.map->tileLayer();
    QCOMPARE(indices(*layer, 0), QList<int>({FirstTile, FirstTile + 1, 0, 1}));
    QCOMPARE(indices(*layer, 5), QList<int>({2, 3, 2, 3}));
}

void tst_FourFileImport::whatIsBehindTheLastRowIsNotRead()
{
    write("nxm", mapBytes(4, 4, {{1, 0}, {0, 1}, {0xFFFF, 0xFFFF}}));
    Project project;

    const FourFileImport::Outcome outcome = FourFileImport::run(&project, path("nxm"));

    QVERIFY(outcome.done);
    QCOMPARE(outcome.map->tileLayer()->size(), QSize(4, 4));
}

void tst_FourFileImport::anEmptyMapFileMakesAnEmptyMap()
{
    write("nxm", {});
    Project project;

    const FourFileImport::Outcome outcome = FourFileImport::run(&project, path("nxm"));

    QVERIFY(outcome.done);
    QCOMPARE(outcome.map->tileLayer()->size(), QSize(0, 0));
}

void tst_FourFileImport::theWidestMapIsRead()
{
    QList<QList<int>> rows(128, QList<int>(128, 0));
    rows[127][127] = 1;
    write("nxm", mapBytes(255, 255, rows));
    Project project;

    const FourFileImport::Outcome outcome = FourFileImport::run(&project, path("nxm"));

    // 256 bytes of block numbers and one of filling.
    QVERIFY(outcome.done);
    const QPointer<TileMap> layer = outcome.map->tileLayer();
    QCOMPARE(layer->size(), QSize(255, 255));
    QCOMPARE(layer->cell({254, 254}).index, FirstTile);
    QCOMPARE(layer->cell({253, 254}).index, 1);
}

QTEST_GUILESS_MAIN(tst_FourFileImport)
#include "tst_FourFileImport.moc"
