#include "formats/ImageSlicer.h"

#include "formats/NxImage.h"
#include "support/TestImages.h"

#include <QHash>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

using Orientation = ImageSlicer::Orientation;

namespace {

const QRgb Black = qRgb(0, 0, 0);

/// A tile that no turn brings back onto itself, in the colours of two digits.
const QStringList Crooked = {"1222222a", "12222222", "12222222", "22222222",
                             "22222222", "22222222", "22222222", "22222222"};

QImage tileOf(const QStringList &rows)
{
    return TestImages::coloured(rows);
}

/// Pictures of one height side by side.
QImage sideBySide(const QList<QImage> &pictures)
{
    int width = 0;
    for (const QImage &picture : pictures)
        width += picture.width();
    QImage joined(width, pictures.first().height(), QImage::Format_RGB32);
    int left = 0;
    for (const QImage &picture : pictures) {
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                joined.setPixel(left + x, y, picture.pixel(x, y));
        }
        left += picture.width();
    }
    return joined;
}

/// A tile with @p count colours on the grid, beginning with colour @p first; the rest is the last.
QImage tileWithColours(int first, int count)
{
    QImage tile(8, 8, QImage::Format_RGB32);
    for (int pixel = 0; pixel < 64; ++pixel) {
        const int number = first + qMin(pixel, count - 1);
        tile.setPixel(pixel % 8, pixel / 8, qRgb(number % 16 * 16, number / 16 * 16, 128));
    }
    return tile;
}

/// The rule by which squares are found, step by step: a key for each orientation, and a later key
/// overwrites an earlier one.
QList<Orientation> cellsByTheRule(const QImage &indexed, int side)
{
    QHash<QString, Orientation> hashes;
    QList<Orientation> cells;
    int count = 0;
    for (int y = 0; y + side <= indexed.height(); y += side) {
        for (int x = 0; x + side <= indexed.width(); x += side) {
            const QImage square = indexed.copy(x, y, side, side);
            QStringList keys;
            for (int n = 0; n < 8; ++n)
                keys += ImageSlicer::hash(ImageSlicer::transformed(square, n & 4, n & 1, n & 2));
            if (hashes.contains(keys.first())) {
                cells += hashes.value(keys.first());
                continue;
            }
            for (int n = 0; n < 8; ++n)
                hashes[keys.at(n)] = {count, n};
            cells += Orientation{count++, 0};
        }
    }
    return cells;
}

/// 64 by 64 tiles, mostly made of few pixels in few places so that they recur in all orientations.
QImage noise()
{
    QRandomGenerator random(20);
    QImage picture(512, 512, QImage::Format_RGB32);
    picture.fill(TestImages::colour(0));
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const bool corner = x % 8 % 7 == 0 && y % 8 % 7 == 0;
            if (corner || ((x % 8) == 3 && (y % 8) == 1))
                picture.setPixel(x, y, TestImages::colour(random.bounded(3)));
        }
    }
    return picture;
}

} // namespace

class tst_ImageSlicer : public QObject
{
    Q_OBJECT

private slots:
    void aNewSlicerKnowsThePicturesSizeInTiles();
    void aKeyIsTheDigestOfThePixelsAlone();
    void turnsBeforeItMirrors();
    void aTileAndItsMirrorImageAreOneTile();
    void aPlainPictureIsOneTileInTheHighestOrientation();
    void agreesWithTheRuleOfKeys_data();
    void agreesWithTheRuleOfKeys();
    void whatIsOverAtTheRightAndTheBottomIsLeftOut();
    void aPictureWithoutAWholeSquareGivesNothing_data();
    void aPictureWithoutAWholeSquareGivesNothing();
    void aTileHasItsOwnColoursInOrderOfFirstUse();
    void tellsTheProgressOfEachSquare();
    void tilesOfTheSameColoursShareABank();
    void aTileThatDoesNotFitMovesToTheNextBank();
    void theFirstBankThatFitsIsTakenNotTheBest();
    void dealtTilesPointIntoTheirBank();
    void unusedSlotsAreBlack();
    void aTileOfMoreThanSixteenColoursEndsTheDealing();
    void sixteenFullBanksEndTheDealing();
    void tilesBehindTheLimitGetTheirPictureWhenDealt();
    void spritesKeepTheWholeTableAndNoFlags();
    void slicingAgainStartsAfresh();
};

void tst_ImageSlicer::aNewSlicerKnowsThePicturesSizeInTiles()
{
    const ImageSlicer slicer(QImage(39, 24, QImage::Format_RGB32));

    QCOMPARE(slicer.columns(), 4);
    QCOMPARE(slicer.rows(), 3);
    QCOMPARE(slicer.banks().size(), ImageSlicer::BankCount);
    QVERIFY(slicer.tiles().isEmpty());
    QVERIFY(slicer.cells().isEmpty());
}

void tst_ImageSlicer::aKeyIsTheDigestOfThePixelsAlone()
{
    QImage square = TestImages::indexed(QStringList(8, QStringLiteral("00000000")));

    const QString key = ImageSlicer::hash(square);
    square.setColor(0, qRgb(255, 0, 0));

    QCOMPARE(key, QStringLiteral("c8d7d0ef0eedfa82d2ea1aa592845b9a6d4b02b7"));
    QCOMPARE(ImageSlicer::hash(square), key);
}

void tst_ImageSlicer::turnsBeforeItMirrors()
{
    const QImage square = TestImages::indexed({"12", "34"});

    QCOMPARE(TestImages::rows(ImageSlicer::transformed(square, true, false, false)),
             QStringList({"31", "42"}));
    QCOMPARE(TestImages::rows(ImageSlicer::transformed(square, true, true, false)),
             QStringList({"42", "31"}));
    QCOMPARE(TestImages::rows(ImageSlicer::transformed(square, true, false, true)),
             QStringList({"13", "24"}));
}

void tst_ImageSlicer::aTileAndItsMirrorImageAreOneTile()
{
    const QImage tile = tileOf(Crooked);
    ImageSlicer slicer(sideBySide({tile, tile.mirrored(true, false)}));

    slicer.sliceTiles();

    QCOMPARE(slicer.tiles().size(), 1);
    QCOMPARE(slicer.cells(), QList<Orientation>({{0, 0}, {0, 2}}));
}

void tst_ImageSlicer::aPlainPictureIsOneTileInTheHighestOrientation()
{
    QImage plain(32, 8, QImage::Format_RGB32);
    plain.fill(qRgb(32, 64, 96));
    ImageSlicer slicer(plain);

    slicer.sliceTiles();

    QCOMPARE(slicer.tiles().size(), 1);
    QCOMPARE(slicer.cells(), QList<Orientation>({{0, 0}, {0, 7}, {0, 7}, {0, 7}}));
}

void tst_ImageSlicer::agreesWithTheRuleOfKeys_data()
{
    QTest::addColumn<QImage>("picture");
    QTest::newRow("noise") << noise();
    QTest::newRow("distinct") << TestImages::distinctSquares(300, 20);
}

void tst_ImageSlicer::agreesWithTheRuleOfKeys()
{
    QFETCH(QImage, picture);
    NxImage converted;
    converted.setImage(picture);
    ImageSlicer slicer(picture);

    slicer.sliceTiles();

    QCOMPARE(slicer.cells(), cellsByTheRule(converted.toIndexed(), 8));
}

void tst_ImageSlicer::whatIsOverAtTheRightAndTheBottomIsLeftOut()
{
    QImage picture(23, 15, QImage::Format_RGB32);
    picture.fill(qRgb(16, 16, 16));
    for (int y = 0; y < 8; ++y)
        picture.setPixel(16, y, qRgb(32, 0, 0));
    for (int x = 0; x < 23; ++x)
        picture.setPixel(x, 8, qRgb(0, 32, 0));
    ImageSlicer slicer(picture);

    slicer.sliceTiles();

    QCOMPARE(slicer.columns(), 2);
    QCOMPARE(slicer.rows(), 1);
    QCOMPARE(slicer.cells().size(), 2);
    QCOMPARE(slicer.tiles().size(), 1);
}

void tst_ImageSlicer::aPictureWithoutAWholeSquareGivesNothing_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("null") << QSize(0, 0);
    QTest::newRow("small") << QSize(7, 7);
    QTest::newRow("narrow") << QSize(7, 100);
    QTest::newRow("low") << QSize(100, 7);
}

void tst_ImageSlicer::aPictureWithoutAWholeSquareGivesNothing()
{
    QFETCH(QSize, size);
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ImageSlicer slicer(picture);
    QSignalSpy processed(&slicer, &ImageSlicer::processed);

    slicer.sliceTiles();

    QVERIFY(slicer.tiles().isEmpty());
    QVERIFY(slicer.cells().isEmpty());
    QCOMPARE(processed.count(), 0);
    QVERIFY(slicer.assignBanks());
    QCOMPARE(slicer.bankColours(), QList<QRgb>(256, Black));
}

void tst_ImageSlicer::aTileHasItsOwnColoursInOrderOfFirstUse()
{
    const QStringList plain(8, QStringLiteral("33333333"));
    ImageSlicer slicer(sideBySide({tileOf(plain), tileOf(Crooked)}));

    slicer.sliceTiles();

    const QImage tile = slicer.tiles().at(1).image;
    QCOMPARE(tile.format(), QImage::Format_Indexed8);
    QCOMPARE(tile.colorTable(),
             QList<QRgb>({TestImages::colour(1), TestImages::colour(2), TestImages::colour(10)}));
    QCOMPARE(TestImages::rows(tile).first(), QStringLiteral("01111112"));
    QCOMPARE(slicer.tiles().at(1).bank, 0);
    QCOMPARE(slicer.colours().first(), TestImages::colour(3));
    QCOMPARE(slicer.colours().size(), 256);
}

void tst_ImageSlicer::tellsTheProgressOfEachSquare()
{
    ImageSlicer slicer(TestImages::distinctSquares(6, 3));
    QSignalSpy processed(&slicer, &ImageSlicer::processed);

    slicer.sliceTiles();

    QCOMPARE(processed.count(), 6);
    for (int square = 0; square < 6; ++square)
        QCOMPARE(processed.at(square).first().toInt(), square);
}

void tst_ImageSlicer::tilesOfTheSameColoursShareABank()
{
    ImageSlicer slicer(TestImages::distinctSquares(20, 5));
    slicer.sliceTiles();

    QVERIFY(slicer.assignBanks());

    for (const auto &tile : slicer.tiles())
        QCOMPARE(tile.bank, 0);
    QCOMPARE(slicer.banks().first().used.count(true), 2);
}

void tst_ImageSlicer::aTileThatDoesNotFitMovesToTheNextBank()
{
    const QImage first = tileWithColours(0, 8);
    QImage second = first;
    second.setPixel(7, 7, first.pixel(0, 0));
    ImageSlicer slicer(sideBySide({first, second, tileWithColours(8, 9), tileWithColours(17, 8)}));
    slicer.sliceTiles();

    QVERIFY(slicer.assignBanks());

    QList<int> banks;
    for (const auto &tile : slicer.tiles())
        banks += tile.bank;
    QCOMPARE(banks, QList<int>({0, 0, 1, 0}));
    QCOMPARE(slicer.banks().at(0).used.count(true), 16);
    QCOMPARE(slicer.banks().at(1).used.count(true), 9);
}

void tst_ImageSlicer::theFirstBankThatFitsIsTakenNotTheBest()
{
    ImageSlicer slicer(
        sideBySide({tileWithColours(0, 12), tileWithColours(20, 12), tileWithColours(28, 4)}));
    slicer.sliceTiles();

    QVERIFY(slicer.assignBanks());

    // The last tile's colours stand in bank 1 already, but bank 0 has four slots free.
    QCOMPARE(slicer.tiles().at(1).bank, 1);
    QCOMPARE(slicer.tiles().at(2).bank, 0);
}

void tst_ImageSlicer::dealtTilesPointIntoTheirBank()
{
    ImageSlicer slicer(
        sideBySide({tileWithColours(0, 9), tileWithColours(30, 9), tileOf(Crooked)}));
    slicer.sliceTiles();

    QVERIFY(slicer.assignBanks());

    const QImage tile = slicer.tiles().at(2).image;
    QCOMPARE(slicer.tiles().at(2).bank, 0);
    QCOMPARE(TestImages::rows(tile).first(), QStringLiteral("9aaaaaab"));
    const QList<QRgb> joined = slicer.bankColours();
    QCOMPARE(tile.colorTable(), joined);
    QCOMPARE(joined.size(), 256);
    QCOMPARE(joined.at(9), TestImages::colour(1));
    QCOMPARE(joined.at(16), tileWithColours(30, 1).pixel(0, 0));
}

void tst_ImageSlicer::unusedSlotsAreBlack()
{
    ImageSlicer slicer(tileWithColours(20, 3));
    slicer.sliceTiles();

    QVERIFY(slicer.assignBanks());

    const QList<QRgb> joined = slicer.bankColours();
    QCOMPARE(joined.mid(3), QList<QRgb>(253, Black));
    QVERIFY(joined.at(2) != Black);
}

void tst_ImageSlicer::aTileOfMoreThanSixteenColoursEndsTheDealing()
{
    ImageSlicer slicer(
        sideBySide({tileWithColours(0, 3), tileWithColours(100, 17), tileWithColours(200, 3)}));
    slicer.sliceTiles();
    QTest::ignoreMessage(QtWarningMsg, "Palette full!");

    QVERIFY(!slicer.assignBanks());

    // The tile before it is dealt but has no joined table; those from there on are as they were.
    QCOMPARE(slicer.tiles().at(0).image.colorTable().at(16), QRgb(0));
    QCOMPARE(slicer.tiles().at(1).image.colorTable().size(), 17);
    QCOMPARE(slicer.tiles().at(2).image.colorTable().size(), 3);
    QCOMPARE(slicer.tiles().at(2).bank, 0);
    QCOMPARE(slicer.banks().at(0).used.count(true), 3);
    QCOMPARE(slicer.banks().at(1).used.count(true), 0);
}

void tst_ImageSlicer::sixteenFullBanksEndTheDealing()
{
    QList<QImage> tiles;
    for (int bank = 0; bank < ImageSlicer::BankCount; ++bank)
        tiles += tileWithColours(bank * 16, 16);
    ImageSlicer full(sideBySide(tiles));
    full.sliceTiles();
    QVERIFY(full.assignBanks());
    QCOMPARE(full.tiles().last().bank, 15);

    // Two colours that are there, but in different banks.
    QImage mixed(8, 8, QImage::Format_RGB32);
    mixed.fill(tiles.at(0).pixel(0, 0));
    mixed.setPixel(3, 3, tiles.at(1).pixel(0, 0));
    tiles += mixed;
    ImageSlicer over(sideBySide(tiles));
    over.sliceTiles();
    QTest::ignoreMessage(QtWarningMsg, "Palette full!");
    QVERIFY(!over.assignBanks());
}

void tst_ImageSlicer::tilesBehindTheLimitGetTheirPictureWhenDealt()
{
    ImageSlicer slicer(TestImages::distinctSquares(514, 257));
    slicer.sliceTiles();
    QCOMPARE(slicer.tiles().size(), 514);
    QVERIFY(!slicer.tiles().at(511).image.isNull());
    QVERIFY(slicer.tiles().at(512).image.isNull());

    QVERIFY(slicer.assignBanks());

    // Number 513 has its highest bit and its lowest one.
    const QImage tile = slicer.tiles().at(513).image;
    QCOMPARE(TestImages::rows(tile).at(2), QStringLiteral("11011111"));
    QCOMPARE(TestImages::rows(tile).at(4), QStringLiteral("11101111"));
}

void tst_ImageSlicer::spritesKeepTheWholeTableAndNoFlags()
{
    QImage square = TestImages::distinctSquares(4, 2);
    ImageSlicer slicer(sideBySide({square, square.mirrored(true, false), square}));
    QSignalSpy processed(&slicer, &ImageSlicer::processed);

    slicer.sliceSprites();

    QCOMPARE(slicer.columns(), 3);
    QCOMPARE(slicer.rows(), 1);
    QCOMPARE(slicer.tiles().size(), 1);
    QCOMPARE(slicer.cells(), QList<Orientation>(3, {0, 0}));
    QCOMPARE(slicer.tiles().first().image.size(), QSize(16, 16));
    QCOMPARE(slicer.tiles().first().image.colorTable(), slicer.colours());
    QCOMPARE(processed.count(), 3);
}

void tst_ImageSlicer::slicingAgainStartsAfresh()
{
    ImageSlicer slicer(TestImages::distinctSquares(3, 3));
    slicer.sliceTiles();
    QVERIFY(slicer.assignBanks());

    slicer.reset();
    QVERIFY(slicer.tiles().isEmpty());
    QVERIFY(slicer.cells().isEmpty());
    QCOMPARE(slicer.bankColours(), QList<QRgb>(256, Black));
    slicer.sliceTiles();

    QCOMPARE(slicer.tiles().size(), 3);
    QCOMPARE(slicer.cells().first(), (Orientation{0, 0}));
}

QTEST_GUILESS_MAIN(tst_ImageSlicer)
#include "tst_ImageSlicer.moc"
