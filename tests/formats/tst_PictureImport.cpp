#include "formats/PictureImport.h"

#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/Tile.h"
#include "model/TileMap.h"
#include "model/TileSet.h"
#include "support/TestFiles.h"
#include "support/TestImages.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <sys/mman.h>
#include <sys/stat.h>

using Result = PictureImport::Result;

namespace {

/// Two tiles of different banks, and the first one again upside down and left to right.
QImage threeSquares()
{
    QImage picture(24, 8, QImage::Format_RGB32);
    for (int pixel = 0; pixel < 64; ++pixel) {
        const int x = pixel % 8;
        const int y = pixel / 8;
        const int number = qMin(pixel, 11);
        picture.setPixel(x, y, qRgb(number * 16, 0, 0));
        picture.setPixel(8 + x, y, qRgb(0, number * 16 + 16, 0));
        picture.setPixel(23 - x, 7 - y, qRgb(number * 16, 0, 0));
    }
    return picture;
}

/// A picture with a tile of seventeen colours.
QImage overfull()
{
    QImage picture(16, 8, QImage::Format_RGB32);
    picture.fill(qRgb(64, 64, 64));
    for (int number = 0; number < 17; ++number)
        picture.setPixel(8 + number % 8, number / 8, qRgb(number % 16 * 16, number / 16 * 32, 0));
    return picture;
}

void verifyEmpty(const Project &project)
{
    QVERIFY(project.palettes().isEmpty());
    QVERIFY(project.tileSets().isEmpty());
    QVERIFY(project.maps().isEmpty());
}

} // namespace

class tst_PictureImport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void makesPaletteTileSetAndMapInThisOrder();
    void namesThemAfterTheFileUpToItsFirstDot();
    void thePaletteHoldsTheBanks();
    void tilesHoldWholeIndicesAndTheirBank();
    void tilesHaveTheColoursThatThePaletteShows();
    void cellsNameTileFlagsAndBankAndAreOccupied();
    void theMapShowsThePicture();
    void tellsTheProgressOfEachSquare();
    void aFileThatIsNoPictureMakesNothing_data();
    void aFileThatIsNoPictureMakesNothing();
    void aPictureWithoutAWholeSquareMakesAnEmptyMap();
    void fiveHundredAndTwelveTilesPass();
    void oneTileMoreIsRefused();
    void aFullPaletteIsToldAndTheRestGoesOn();
    void tooManyTilesIsAllThatIsToldWhenThePaletteIsFullToo();
    void aPictureForTooLargeAMapMakesNothing();
    void aProjectThatEndsDuringTheWorkIsLeftAlone();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_PictureImport::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_PictureImport::makesPaletteTileSetAndMapInThisOrder()
{
    Project project;
    QStringList order;
    connect(&project, &Project::paletteCreated, this, [&] { order += "palette"; });
    connect(&project, &Project::tilesetCreated, this, [&] { order += "tile set"; });
    connect(&project, &Project::mapCreated, this, [&] { order += "map"; });

    const PictureImport::Outcome outcome =
        PictureImport(threeSquares(), QStringLiteral("three")).run(&project);

    QCOMPARE(outcome.result, Result::Done);
    QCOMPARE(outcome.message(), QString());
    QCOMPARE(order, QStringList({"palette", "tile set", "map"}));
    QCOMPARE(outcome.tileSet->palette(), outcome.palette);
    QCOMPARE(outcome.tileSet->count(), 512);
    QCOMPARE(outcome.map->tileSet(), outcome.tileSet);
    QCOMPARE(project.map(outcome.map->id()), outcome.map);
}

void tst_PictureImport::namesThemAfterTheFileUpToItsFirstDot()
{
    const QString file = path(QStringLiteral("level.one.png"));
    QVERIFY(threeSquares().save(file));
    Project project;

    const PictureImport::Outcome outcome = PictureImport(file).run(&project);

    QCOMPARE(outcome.palette->name(), QStringLiteral("level"));
    QCOMPARE(outcome.tileSet->name(), QStringLiteral("level"));
    QCOMPARE(outcome.map->name(), QStringLiteral("level"));
    QCOMPARE(project.palettes().size(), 1);
}

void tst_PictureImport::thePaletteHoldsTheBanks()
{
    Project project;

    const PictureImport::Outcome outcome = PictureImport(threeSquares(), "three").run(&project);

    // Red 0, 16, 32 ... and from entry 16 on green 16, 32, 48 ... in levels of three bits.
    QCOMPARE(outcome.palette->word(0), quint16(0x0000));
    QCOMPARE(outcome.palette->word(2), quint16(0x2000));
    QCOMPARE(outcome.palette->word(11), quint16(0xA000));
    QCOMPARE(outcome.palette->word(12), quint16(0x0000));
    QCOMPARE(outcome.palette->word(17), quint16(0x0400));
    QCOMPARE(outcome.palette->word(27), quint16(0x1800));
    QCOMPARE(outcome.palette->word(255), quint16(0x0000));
}

void tst_PictureImport::tilesHoldWholeIndicesAndTheirBank()
{
    Project project;

    const PictureImport::Outcome outcome = PictureImport(threeSquares(), "three").run(&project);

    QCOMPARE(outcome.tileCount, 2);
    const Tile *second = outcome.tileSet->tile(1);
    QCOMPARE(second->offset(), 1);
    QCOMPARE(second->image().pixelIndex(0, 0), 16);
    QCOMPARE(second->image().pixelIndex(5, 0), 21);
    QCOMPARE(second->image().pixelIndex(7, 7), 27);
    QCOMPARE(outcome.tileSet->tile(0)->offset(), 0);
    QCOMPARE(outcome.tileSet->tile(2)->image().pixelIndex(0, 0), 0);
}

void tst_PictureImport::cellsNameTileFlagsAndBankAndAreOccupied()
{
    Project project;

    const PictureImport::Outcome outcome = PictureImport(threeSquares(), "three").run(&project);

    const QPointer<TileMap> layer = outcome.map->tileLayer();
    QCOMPARE(layer->size(), QSize(3, 1));
    QCOMPARE(layer->cell({0, 0}), (TileMap::TileData{0, false, false, false, 0, true}));
    QCOMPARE(layer->cell({1, 0}), (TileMap::TileData{1, false, false, false, 1, true}));
    QCOMPARE(layer->cell({2, 0}), (TileMap::TileData{0, false, true, true, 0, true}));
}

void tst_PictureImport::theMapShowsThePicture()
{
    const QImage source = threeSquares();
    Project project;

    const PictureImport::Outcome outcome = PictureImport(source, "three").run(&project);

    const QPointer<TileMap> layer = outcome.map->tileLayer();
    const QImage shown = layer->picture(layer->rect(), 8.0, -1);
    QCOMPARE(shown.size(), source.size());
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x) {
            Palette probe;
            probe.setColour(0, source.pixelColor(x, y));
            QCOMPARE(shown.pixelColor(x, y), probe.colour(0));
        }
    }
}

void tst_PictureImport::tellsTheProgressOfEachSquare()
{
    Project project;
    PictureImport work(TestImages::distinctSquares(6, 3), "six");
    QCOMPARE(work.squareCount(), 6);
    QSignalSpy processed(&work.slicer(), &ImageSlicer::processed);

    work.run(&project);

    QCOMPARE(processed.count(), 6);
    QCOMPARE(processed.first().first().toInt(), 0);
    QCOMPARE(processed.last().first().toInt(), 5);
}

void tst_PictureImport::aFileThatIsNoPictureMakesNothing_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"missing.png", "text.png", "empty.png", "folder", "pipe.png"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_PictureImport::aFileThatIsNoPictureMakesNothing()
{
    QFETCH(QString, name);
    QVERIFY(TestFiles::make(path(QStringLiteral("text.png")), "no picture"));
    QVERIFY(TestFiles::make(path(QStringLiteral("empty.png")), {}));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    QCOMPARE(mkfifo(QFile::encodeName(path(QStringLiteral("pipe.png"))).constData(), 0600), 0);
    Project project;

    PictureImport work(path(name));
    const PictureImport::Outcome outcome = work.run(&project);

    QVERIFY(!work.isRead());
    QCOMPARE(outcome.result, Result::Unreadable);
    QCOMPARE(outcome.message(), QStringLiteral("Could not read the image file"));
    verifyEmpty(project);
}

void tst_PictureImport::aPictureWithoutAWholeSquareMakesAnEmptyMap()
{
    QImage picture(7, 7, QImage::Format_RGB32);
    picture.fill(Qt::red);
    Project project;

    const PictureImport::Outcome outcome = PictureImport(picture, "small").run(&project);

    QCOMPARE(outcome.result, Result::Done);
    QCOMPARE(outcome.map->tileLayer()->size(), QSize(0, 0));
    QCOMPARE(outcome.tileSet->count(), 512);
    QCOMPARE(outcome.palette->word(0), quint16(0));
}

void tst_PictureImport::fiveHundredAndTwelveTilesPass()
{
    Project project;

    const PictureImport::Outcome outcome =
        PictureImport(TestImages::distinctSquares(512, 32), "many").run(&project);

    QCOMPARE(outcome.result, Result::Done);
    QCOMPARE(outcome.tileCount, 512);
    QCOMPARE(outcome.map->tileLayer()->cell({31, 15}).index, 511);
}

void tst_PictureImport::oneTileMoreIsRefused()
{
    Project project;

    const PictureImport::Outcome outcome =
        PictureImport(TestImages::distinctSquares(513, 27), "many").run(&project);

    QCOMPARE(outcome.result, Result::TooManyTiles);
    QCOMPARE(outcome.message(),
             QStringLiteral("Cannot import the image as it would need more than 512 tiles\n"
                            "513 required"));
    verifyEmpty(project);
}

void tst_PictureImport::aFullPaletteIsToldAndTheRestGoesOn()
{
    Project project;
    QTest::ignoreMessage(QtWarningMsg, "Palette full!");

    const PictureImport::Outcome outcome = PictureImport(overfull(), "full").run(&project);

    QCOMPARE(outcome.result, Result::PaletteFull);
    QCOMPARE(outcome.message(),
             QStringLiteral("The palette is full, so some tiles have wrong colours"));
    QCOMPARE(outcome.tileCount, 2);
    // Of the places in its private table, which has eighteen colours, the low four bits are left.
    const QImage second = outcome.tileSet->tile(1)->image();
    QCOMPARE(second.pixelIndex(7, 1), 15);
    QCOMPARE(second.pixelIndex(0, 2), 0);
    QCOMPARE(second.pixelIndex(7, 7), 1);
    QCOMPARE(outcome.map->tileLayer()->cell({1, 0}).index, 1);
}

void tst_PictureImport::tooManyTilesIsAllThatIsToldWhenThePaletteIsFullToo()
{
    QImage picture = TestImages::distinctSquares(520, 20);
    const QPoint behindTheLimit(15 * 8, 25 * 8); // square 515
    for (int number = 0; number < 17; ++number)
        picture.setPixel(behindTheLimit + QPoint(number % 8, number / 8),
                         qRgb(number % 16 * 16, number / 16 * 32, 0));
    Project project;
    QTest::ignoreMessage(QtWarningMsg, "Palette full!");

    const PictureImport::Outcome outcome = PictureImport(picture, "both").run(&project);

    QCOMPARE(outcome.result, Result::TooManyTiles);
    QCOMPARE(outcome.tileCount, 520);
    verifyEmpty(project);
}

void tst_PictureImport::aPictureForTooLargeAMapMakesNothing()
{
    // Pages that nobody reads or writes, as wide and high as one map may not be.
    constexpr int Side = 11590 * 8;
    constexpr qsizetype LineBytes = 11592;
    constexpr size_t Bytes = size_t(Side) * LineBytes;
    void *pages =
        mmap(nullptr, Bytes, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    QVERIFY(pages != MAP_FAILED);
    {
        const QImage picture(static_cast<const uchar *>(pages), Side, Side, LineBytes,
                             QImage::Format_Mono);
        QVERIFY(!picture.isNull());
        Project project;

        const PictureImport::Outcome outcome = PictureImport(picture, "vast").run(&project);

        QCOMPARE(outcome.result, Result::MapTooLarge);
        QCOMPARE(outcome.message(), QStringLiteral("The map is too large"));
        verifyEmpty(project);
    }
    munmap(pages, Bytes);
}

void tst_PictureImport::aProjectThatEndsDuringTheWorkIsLeftAlone()
{
    auto *project = new Project;
    PictureImport work(threeSquares(), "three");
    connect(&work.slicer(), &ImageSlicer::processed, project, [project](int square) {
        if (square == 1)
            delete project;
    });

    const PictureImport::Outcome outcome = work.run(project);

    QVERIFY(outcome.palette.isNull());
    QVERIFY(outcome.map.isNull());
}

void tst_PictureImport::tilesHaveTheColoursThatThePaletteShows()
{
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(qRgb(90, 150, 255)); // 96, 144, 255 by the import; 110, 146, 255 by nine bits
    Project project;

    const PictureImport::Outcome outcome = PictureImport(picture, "sky").run(&project);

    QCOMPARE(outcome.tileSet->tile(0)->image().pixel(0, 0), qRgb(110, 146, 255));
    QCOMPARE(outcome.tileSet->tile(0)->image().colorTable(), outcome.palette->colourTable());
}

QTEST_GUILESS_MAIN(tst_PictureImport)
#include "tst_PictureImport.moc"
