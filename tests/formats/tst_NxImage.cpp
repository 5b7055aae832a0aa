#include "formats/NxImage.h"

#include "model/Palette.h"
#include "support/TestImages.h"

#include <QTest>

#include <limits>

namespace {

/// A picture of one line.
QImage line(const QList<QRgb> &colours, QImage::Format format = QImage::Format_ARGB32)
{
    QImage image(static_cast<int>(colours.size()), 1, format);
    for (int x = 0; x < image.width(); ++x)
        image.setPixel(x, 0, colours.at(x));
    return image;
}

QList<int> indices(const QImage &image)
{
    QList<int> indices;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            indices.append(image.pixelIndex(x, y));
    }
    return indices;
}

/// Colour i of a row of colours on the grid, all different: 17 levels of blue, then of green.
QRgb gridColour(int i)
{
    const auto level = [](int place) { return place == 16 ? 255 : place * 16; };
    return qRgb(level(i / 289 % 17), level(i / 17 % 17), level(i % 17));
}

QImage mixedPicture()
{
    QImage image(97, 61, QImage::Format_RGB32);
    uint state = 1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            state = state * 1664525u + 1013904223u;
            image.setPixel(x, y, state | 0xFF000000u);
        }
    }
    return image;
}

/// The matching rule, one pixel at a time.
int nearestByTheRule(const Palette &palette, const QColor &wanted)
{
    int best = -1;
    int bestDistance = std::numeric_limits<int>::max();
    for (int i = 0; i < 256; ++i) {
        const QColor colour = QColor::fromRgb(palette.colour(i).rgb());
        const int red = colour.red() - wanted.red();
        const int green = colour.green() - wanted.green();
        const int blue = colour.blue() - wanted.blue();
        const int distance = red * red + green * green + blue * blue;
        if (distance < bestDistance) {
            best = i;
            bestDistance = distance;
        }
    }
    return best;
}

} // namespace

class tst_NxImage : public QObject
{
    Q_OBJECT

private slots:
    void snapsAPixel();
    void listsColoursInOrderOfFirstAppearance();
    void keepsTheColoursOfTransparentPixels();
    void takesPicturesOfAnyFormat_data();
    void takesPicturesOfAnyFormat();
    void aSecondPictureReplacesTheFirst();
    void doesNotTouchThePictureItIsGiven();
    void snapsEveryPixelOfAMixedPictureByTheRule();
    void indexesOverItsOwnColours();
    void indexesExactly256ColoursAsTheyAre();
    void keepsTheMostFrequentOf257Colours();
    void ofEqualCountsTheFirstColourStays();
    void mapsToTheNearestPaletteColour_data();
    void mapsToTheNearestPaletteColour();
    void noChannelWeighsMoreThanAnother_data();
    void noChannelWeighsMoreThanAnother();
    void equalPaletteColoursGiveTheLowerIndex();
    void theTransparentEntryIsMatchedLikeAnyOther();
    void mapsEveryPixelOfAMixedPictureByTheRule();
    void withoutAPictureOrPaletteThereIsNoResult();
    void turnsFlipsAndMirrors_data();
    void turnsFlipsAndMirrors();
    void turningKeepsColourTables();
    void turnsPicturesOf32Bits();
    void turnsPicturesOf24BitsByColour();
};

void tst_NxImage::snapsAPixel()
{
    NxImage picture;

    picture.setImage(line({qRgb(8, 9, 248)}));

    QCOMPARE(picture.image().format(), QImage::Format_RGB32);
    QCOMPARE(picture.image().pixel(0, 0), qRgb(0, 16, 255));
    QCOMPARE(picture.colours(), QList<QRgb>{qRgb(0, 16, 255)});
}

void tst_NxImage::listsColoursInOrderOfFirstAppearance()
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.setPixel(0, 0, qRgb(255, 255, 255));
    image.setPixel(1, 0, qRgb(0, 0, 17));
    image.setPixel(0, 1, qRgb(254, 250, 249));
    image.setPixel(1, 1, qRgb(3, 0, 0));
    NxImage picture;

    picture.setImage(image);

    const QList<QRgb> expected{qRgb(255, 255, 255), qRgb(0, 0, 16), qRgb(0, 0, 0)};
    QCOMPARE(picture.colours(), expected);
}

void tst_NxImage::keepsTheColoursOfTransparentPixels()
{
    NxImage picture;

    picture.setImage(line({qRgba(200, 100, 50, 0)}));

    QCOMPARE(picture.image().pixel(0, 0), qRgb(192, 96, 48));
}

void tst_NxImage::takesPicturesOfAnyFormat_data()
{
    QTest::addColumn<QImage>("image");
    QTest::addColumn<QRgb>("colour");
    QImage indexed = TestImages::indexed({"3"});
    indexed.setColor(3, qRgba(100, 0, 255, 0));
    QTest::newRow("indexed") << indexed << qRgb(96, 0, 255);
    QTest::newRow("24 bits") << line({qRgb(1, 255, 40)}, QImage::Format_RGB888) << qRgb(0, 255, 32);
    QTest::newRow("grey") << line({qRgb(120, 120, 120)}, QImage::Format_Grayscale8)
                          << qRgb(112, 112, 112);
    QImage noTable(1, 1, QImage::Format_Indexed8);
    noTable.fill(7);
    QTest::newRow("no colour table") << noTable << qRgb(0, 0, 0);
}

void tst_NxImage::takesPicturesOfAnyFormat()
{
    QFETCH(QImage, image);
    NxImage picture;

    picture.setImage(image);

    QTEST(picture.image().pixel(0, 0), "colour");
}

void tst_NxImage::aSecondPictureReplacesTheFirst()
{
    NxImage picture;
    picture.setImage(line({qRgb(255, 0, 0), qRgb(0, 255, 0)}));

    picture.setImage(line({qRgb(0, 0, 255)}));

    QCOMPARE(picture.colours(), QList<QRgb>{qRgb(0, 0, 255)});
    QCOMPARE(picture.image().size(), QSize(1, 1));

    picture.setImage(picture.image());
    QCOMPARE(picture.image().pixel(0, 0), qRgb(0, 0, 255));
}

void tst_NxImage::doesNotTouchThePictureItIsGiven()
{
    const QImage image = line({qRgb(9, 9, 9)}, QImage::Format_RGB32);
    NxImage picture;

    picture.setImage(image);

    QCOMPARE(image.pixel(0, 0), qRgb(9, 9, 9));
}

void tst_NxImage::snapsEveryPixelOfAMixedPictureByTheRule()
{
    const QImage image = mixedPicture();
    NxImage picture;
    QList<QRgb> colours;

    picture.setImage(image);

    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb snapped = Palette::nearestColour(QColor(image.pixel(x, y))).rgb();
            QCOMPARE(picture.image().pixel(x, y), snapped);
            if (!colours.contains(snapped))
                colours.append(snapped);
        }
    }
    QCOMPARE(picture.colours(), colours);
}

void tst_NxImage::indexesOverItsOwnColours()
{
    NxImage picture;
    picture.setImage(line({qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(250, 0, 1), qRgb(0, 0, 0)}));

    const QImage indexed = picture.toIndexed();

    QCOMPARE(indexed.format(), QImage::Format_Indexed8);
    QCOMPARE(indices(indexed), QList<int>({0, 1, 0, 2}));
    const QList<QRgb> expected{qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 0)};
    QCOMPARE(indexed.colorCount(), 256);
    QCOMPARE(indexed.colorTable().first(3), expected);
    QCOMPARE(indexed.colorTable().sliced(3), QList<QRgb>(253, 0));
}

void tst_NxImage::indexesExactly256ColoursAsTheyAre()
{
    QList<QRgb> colours;
    for (int i = 0; i < 256; ++i)
        colours.append(gridColour(i));
    NxImage picture;
    picture.setImage(line(colours));

    const QImage indexed = picture.toIndexed();

    QCOMPARE(indexed.colorTable(), colours);
    for (int i = 0; i < 256; ++i)
        QCOMPARE(indexed.pixelIndex(i, 0), i);
}

void tst_NxImage::keepsTheMostFrequentOf257Colours()
{
    // Colour 0, at the front, appears once and all others twice.
    QList<QRgb> colours{gridColour(0)};
    for (int i = 1; i < 257; ++i)
        colours << gridColour(i) << gridColour(i);
    NxImage picture;
    picture.setImage(line(colours));
    QTest::ignoreMessage(QtInfoMsg, "Kept the 256 most frequent colours of 257");

    const QImage indexed = picture.toIndexed();

    QCOMPARE(picture.colours().size(), 257);
    for (int i = 0; i < 256; ++i)
        QCOMPARE(indexed.color(i), gridColour(i + 1));
    QCOMPARE(indexed.pixelIndex(1, 0), 0);
    QCOMPARE(indexed.pixelIndex(512, 0), 255);
    // Black lies as far from the darkest blue as from the darkest green, of which blue is first.
    QCOMPARE(indexed.pixelIndex(0, 0), 0);
}

void tst_NxImage::ofEqualCountsTheFirstColourStays()
{
    // The last colour appears twice, the others once: it stays, and of the others all but the last.
    QList<QRgb> colours;
    for (int i = 0; i < 258; ++i)
        colours.append(gridColour(i));
    colours.append(gridColour(257));
    NxImage picture;
    picture.setImage(line(colours));
    QTest::ignoreMessage(QtInfoMsg, "Kept the 256 most frequent colours of 258");

    const QImage indexed = picture.toIndexed();

    for (int i = 0; i < 255; ++i)
        QCOMPARE(indexed.color(i), gridColour(i));
    QCOMPARE(indexed.color(255), gridColour(257));
    QCOMPARE(indexed.colorCount(), 256);
    // (0, 240, 0) and (0, 240, 16) went. The second is as far from (0, 224, 16) as from (0, 240,
    // 32), of which the first one is earlier.
    QCOMPARE(indexed.pixelIndex(255, 0), 238);
    QCOMPARE(indexed.pixelIndex(256, 0), 239);
}

void tst_NxImage::mapsToTheNearestPaletteColour_data()
{
    QTest::addColumn<QRgb>("colour");
    QTest::addColumn<int>("index");
    // The palette: black, red 7 at 2, green 7 at 3, blue levels 1 (37) at 4 and 2 (73) at 5.
    QTest::newRow("black") << qRgb(0, 0, 0) << 0;
    QTest::newRow("exactly red") << qRgb(255, 0, 0) << 2;
    QTest::newRow("greenish") << qRgb(64, 200, 64) << 3;
    QTest::newRow("between two blues, nearer the lower") << qRgb(0, 0, 48) << 4;
    QTest::newRow("between two blues, nearer the upper") << qRgb(0, 0, 64) << 5;
    // (128, 128, 0) is as far from red as from green: 127 and 128 each.
    QTest::newRow("exactly between two") << qRgb(240, 240, 0) << 2;
}

void tst_NxImage::mapsToTheNearestPaletteColour()
{
    QFETCH(QRgb, colour);
    QFETCH(int, index);
    Palette palette;
    palette.setWord(2, 0xE000);
    palette.setWord(3, 0x1C00);
    palette.setWord(4, 0x0001);
    palette.setWord(5, 0x0100);
    NxImage picture;
    picture.setImage(line({colour}));

    const QImage mapped = picture.remap(&palette);

    QCOMPARE(mapped.format(), QImage::Format_Indexed8);
    QCOMPARE(mapped.size(), QSize(1, 1));
    QCOMPARE(mapped.colorTable(), palette.colourTable());
    QCOMPARE(mapped.pixelIndex(0, 0), index);
}

void tst_NxImage::noChannelWeighsMoreThanAnother_data()
{
    // Levels 3 and 4 of a channel show as 110 and 146.
    constexpr quint16 red = 0x2000;
    constexpr quint16 green = 0x0400;
    QTest::addColumn<quint16>("nearer");
    QTest::addColumn<quint16>("farther");
    QTest::newRow("red, green") << quint16(3 * red) << quint16(4 * green);
    QTest::newRow("red, blue") << quint16(3 * red) << quint16(0x0200);
    QTest::newRow("green, red") << quint16(3 * green) << quint16(4 * red);
    QTest::newRow("green, blue") << quint16(3 * green) << quint16(0x0200);
    QTest::newRow("blue, red") << quint16(0x0101) << quint16(4 * red);
    QTest::newRow("blue, green") << quint16(0x0101) << quint16(4 * green);
}

void tst_NxImage::noChannelWeighsMoreThanAnother()
{
    QFETCH(quint16, nearer);
    QFETCH(quint16, farther);
    Palette palette;
    for (int i = 0; i < Palette::Size; ++i)
        palette.setWord(i, 0xFF01); // white, the farthest of all
    palette.setWord(7, farther);
    palette.setWord(9, nearer);
    NxImage picture;
    picture.setImage(line({qRgb(0, 0, 0)}));

    QCOMPARE(indices(picture.remap(&palette)), QList<int>{9});
}

void tst_NxImage::equalPaletteColoursGiveTheLowerIndex()
{
    Palette palette;
    palette.setWord(9, 0xFF81); // white, with priority
    palette.setWord(200, 0xFF01);
    NxImage picture;
    picture.setImage(line({qRgb(255, 255, 255), qRgb(240, 240, 240)}));

    QCOMPARE(indices(picture.remap(&palette)), QList<int>({9, 9}));
}

void tst_NxImage::theTransparentEntryIsMatchedLikeAnyOther()
{
    Palette palette;
    palette.setWord(9, 0xFF01);
    palette.setWord(10, 0xFF01);
    palette.setTransparencyIndex(9);
    NxImage picture;
    picture.setImage(line({qRgb(255, 255, 255)}));

    QCOMPARE(indices(picture.remap(&palette)), QList<int>{9});
}

void tst_NxImage::mapsEveryPixelOfAMixedPictureByTheRule()
{
    Palette palette;
    palette.setDefaultColours();
    NxImage picture;
    picture.setImage(mixedPicture());

    const QImage mapped = picture.remap(&palette);

    for (int y = 0; y < mapped.height(); ++y) {
        for (int x = 0; x < mapped.width(); ++x) {
            const QColor snapped(picture.image().pixel(x, y));
            QCOMPARE(mapped.pixelIndex(x, y), nearestByTheRule(palette, snapped));
        }
    }
}

void tst_NxImage::withoutAPictureOrPaletteThereIsNoResult()
{
    Palette palette;
    NxImage picture;

    picture.setImage(QImage());
    QVERIFY(picture.image().isNull());
    QVERIFY(picture.colours().isEmpty());
    QVERIFY(picture.toIndexed().isNull());
    QVERIFY(picture.remap(&palette).isNull());

    picture.setImage(line({qRgb(1, 2, 3)}));
    QVERIFY(picture.remap(nullptr).isNull());
}

void tst_NxImage::turnsFlipsAndMirrors_data()
{
    QTest::addColumn<bool>("rotate");
    QTest::addColumn<bool>("flip");
    QTest::addColumn<bool>("mirror");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("as it is") << false << false << false << QStringList{"12", "34", "56"};
    QTest::newRow("flip") << false << true << false << QStringList{"56", "34", "12"};
    QTest::newRow("mirror") << false << false << true << QStringList{"21", "43", "65"};
    QTest::newRow("flip, mirror") << false << true << true << QStringList{"65", "43", "21"};
    QTest::newRow("rotate") << true << false << false << QStringList{"531", "642"};
    QTest::newRow("rotate, flip") << true << true << false << QStringList{"642", "531"};
    QTest::newRow("rotate, mirror") << true << false << true << QStringList{"135", "246"};
    QTest::newRow("all") << true << true << true << QStringList{"246", "135"};
}

void tst_NxImage::turnsFlipsAndMirrors()
{
    QFETCH(bool, rotate);
    QFETCH(bool, flip);
    QFETCH(bool, mirror);
    const QImage image = TestImages::indexed({"12", "34", "56"});

    const QImage turned = NxImage::transformed(image, rotate, flip, mirror);

    QCOMPARE(turned.format(), QImage::Format_Indexed8);
    QTEST(TestImages::rows(turned), "rows");
}

void tst_NxImage::turningKeepsColourTables()
{
    QImage image = TestImages::indexed({"12", "34"});
    const QList<QRgb> table{1, 2, 3, 4, 5};
    image.setColorTable(table);

    QCOMPARE(NxImage::transformed(image, true, false, false).colorTable(), table);
    QVERIFY(NxImage::transformed(QImage(), true, true, true).isNull());
}

void tst_NxImage::turnsPicturesOf32Bits()
{
    const QList<QRgb> colours{qRgba(1, 2, 3, 4), qRgba(5, 6, 7, 8), qRgba(9, 10, 11, 0)};

    const QImage turned = NxImage::transformed(line(colours), true, true, false);

    QCOMPARE(turned.size(), QSize(1, 3));
    QCOMPARE(turned.format(), QImage::Format_ARGB32);
    for (int y = 0; y < 3; ++y)
        QCOMPARE(turned.pixel(0, y), colours.at(2 - y));
}

void tst_NxImage::turnsPicturesOf24BitsByColour()
{
    const QImage image = line({qRgb(1, 2, 3), qRgb(5, 6, 7)}, QImage::Format_RGB888);

    const QImage turned = NxImage::transformed(image, false, false, true);

    QCOMPARE(turned.pixel(0, 0), qRgb(5, 6, 7));
    QCOMPARE(turned.pixel(1, 0), qRgb(1, 2, 3));
}

QTEST_GUILESS_MAIN(tst_NxImage)
#include "tst_NxImage.moc"
