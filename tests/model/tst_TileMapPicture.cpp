#include "model/Map.h"
#include "model/Palette.h"
#include "model/Tile.h"
#include "model/TileMap.h"
#include "model/TileSet.h"
#include "support/TestImages.h"
#include "support/TestMaps.h"

#include <QMimeData>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <functional>

using TestMaps::cell;

namespace {

constexpr int Off = -1; // no transparent index

QImage whole(TileMap &map)
{
    return map.picture(map.rect(), TileMap::CellSide, Off);
}

/// The pixel index in the middle of a cell.
int pixelOf(TileMap &map, QPoint position)
{
    return map.picture({position, QSize(1, 1)}, TileMap::CellSide, Off).pixelIndex(4, 4);
}

bool isBlank(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelIndex(x, y) != 0)
                return false;
        }
    }
    return true;
}

/// The picture pixel by pixel from TileSet::tileImage(), without any cache.
QImage plainlyDrawn(const TileMap &map)
{
    QImage image(map.size() * TileMap::CellSide, QImage::Format_Indexed8);
    image.setColorTable(map.tileSet()->palette()->colourTable());
    image.fill(0);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const TileMap::TileData data = map.cell({x / 8, y / 8});
            const QImage tile = map.tileSet()->tileImage(data.index, data.rotate, data.flip,
                                                         data.mirror, data.offset);
            if (data.occupied)
                image.setPixel(x, y, static_cast<uint>(tile.pixelIndex(x % 8, y % 8)));
        }
    }
    return image;
}

/// Tiles of noise and a map of cells with all turns and offsets, some of them unoccupied.
void fillWithNoise(TileSet *tiles, TileMap *map)
{
    QRandomGenerator generator(11);
    for (Tile *tile : tiles->tiles()) {
        QImage image = tile->image();
        for (int i = 0; i < 64; ++i)
            image.setPixel(i % 8, i / 8, generator.bounded(16U));
        tile->setImage(image);
    }
    for (int i = 0; i < map->width() * map->height(); ++i) {
        TileMap::TileData data = cell(generator.bounded(tiles->count()), generator.bounded(16));
        const unsigned bits = generator.bounded(64U);
        data.rotate = bits & 1;
        data.flip = bits & 2;
        data.mirror = bits & 4;
        data.occupied = bits & 56;
        map->setCell({i % map->width(), i / map->width()}, data);
    }
}

} // namespace

class tst_TileMapPicture : public QObject
{
    Q_OBJECT

private slots:
    void aFreshMapIsAllZero();
    void equalsAPlainDrawingOfEveryCell();
    void writtenCellsEqualAFreshDrawing();
    void writingTheSameCellDoesNotRedraw();
    void fillingEqualsAFreshDrawing();
    void changesThrowThePictureAway_data();
    void changesThrowThePictureAway();
    void listenersFindThePictureOfTheNewRows();
    void listenersFindThePictureOfTheSwappedTiles();
    void deletingTheFirstTileShowsItsSuccessor();
    void aRedrawnPictureKeepsNothingOfTheLast();
    void aChangedTileIsDrawnAnew();
    void aRestoredTileSetIsDrawnAnew();
    void anotherTileSetIsDrawnAnew();
    void aNewPaletteOfTheSetGivesItsColours();
    void fillingUnderAnotherPaletteIsDrawn();
    void aCellWrittenUnderAnotherPaletteIsDrawn();
    void coloursEditedUnderAnotherPaletteAreShown();
    void coloursAreThePalettes();
    void aTransparentIndexWorksOnAllBanks();
    void withoutATransparentIndexAllColoursAreOpaque();
    void withoutATileSetItWarnsAndIsBlank();
    void withoutAPaletteItWarnsAndIsBlank();
    void aDeletedTileSetLeavesABlankPicture();
    void scalesToTheRoundedSize_data();
    void scalesToTheRoundedSize();
    void scaledPixelsEqualQts();
    void cellsOutsideTheMapAreZero();
    void anEmptyRectangleIsNull();
    void tilesOutOfRangeAreLoggedOncePerDrawing();
    void aHugeMapIsDrawnInParts();
};

void tst_TileMapPicture::aFreshMapIsAllZero()
{
    TestMaps::PlainTiles tiles(2);
    tiles.set->tile(0)->setImage(TestImages::indexed(QStringList(8, "ffffffff")));
    TileMap map({3, 2});
    map.setTileSet(tiles.set.get());

    const QImage image = whole(map);

    QCOMPARE(image.size(), QSize(24, 16));
    QCOMPARE(image.format(), QImage::Format_Indexed8);
    QVERIFY(isBlank(image));
}

void tst_TileMapPicture::equalsAPlainDrawingOfEveryCell()
{
    TestMaps::PlainTiles tiles(20);
    TileMap map({23, 17});
    map.setTileSet(tiles.set.get());
    fillWithNoise(tiles.set.get(), &map);

    QCOMPARE(whole(map), plainlyDrawn(map));
}

void tst_TileMapPicture::writtenCellsEqualAFreshDrawing()
{
    TestMaps::PlainTiles tiles(20);
    TileMap map({9, 7});
    map.setTileSet(tiles.set.get());
    whole(map);
    fillWithNoise(tiles.set.get(), &map);

    QCOMPARE(whole(map), plainlyDrawn(map));
    TileMap::TileData emptied = map.cell({8, 6});
    emptied.occupied = !emptied.occupied;
    map.setCell({8, 6}, emptied);
    map.setCell({0, 0}, cell(3, 5));
    QCOMPARE(whole(map), plainlyDrawn(map));
}

void tst_TileMapPicture::writingTheSameCellDoesNotRedraw()
{
    TestMaps::PlainTiles tiles(2);
    TileMap map({2, 1});
    map.setTileSet(tiles.set.get());
    map.setCell({0, 0}, cell(1));
    QCOMPARE(pixelOf(map, {0, 0}), 1);
    // A tile that changes without a word shows whether a cell was drawn again.
    tiles.set->tile(1)->setImage(TestImages::indexed(QStringList(8, "99999999")));

    map.setCell({0, 0}, cell(1));
    QCOMPARE(pixelOf(map, {0, 0}), 1);
    map.setCell({1, 0}, cell(1));

    QCOMPARE(pixelOf(map, {0, 0}), 1);
    QCOMPARE(pixelOf(map, {1, 0}), 9);
}

void tst_TileMapPicture::fillingEqualsAFreshDrawing()
{
    TestMaps::PlainTiles tiles(12);
    tiles.set->tile(0)->setImage(TestImages::indexed(QStringList(8, "77777777")));
    tiles.set->tile(0)->setOffset(2);
    TileMap map({4, 3});
    map.setTileSet(tiles.set.get());
    map.setTiles(TestMaps::counted(4, 3));
    whole(map);

    map.fill({1, 1, 9, 1}, true);
    map.fill({0, 2, 2, 1}, false);

    QCOMPARE(pixelOf(map, {1, 1}), 2 * 16 + 7);
    QCOMPARE(pixelOf(map, {0, 2}), 0);
    QCOMPARE(whole(map), plainlyDrawn(map));
}

using Change = std::function<void(TileMap &)>;
Q_DECLARE_METATYPE(Change)

void tst_TileMapPicture::changesThrowThePictureAway_data()
{
    using Tessaril::Position;
    QTest::addColumn<Change>("change");
    const auto row = [](const char *name, const Change &change) { QTest::newRow(name) << change; };
    row("a row above", [](TileMap &map) { map.addRow(Position::Begin); });
    row("a row below", [](TileMap &map) { map.addRow(Position::End); });
    row("a column left", [](TileMap &map) { map.addColumn(Position::Begin); });
    row("no first row", [](TileMap &map) { map.removeRow(Position::Begin); });
    row("no first column", [](TileMap &map) { map.removeColumn(Position::Begin); });
    row("a new size", [](TileMap &map) { map.resize({5, 5}, Qt::AlignRight | Qt::AlignBottom); });
    row("new rows", [](TileMap &map) { map.setTiles(TestMaps::counted(2, 2)); });
    row("a tile went", [](TileMap &map) { map.adjustIndices(2, -1); });
    row("a tile came", [](TileMap &map) { map.adjustIndices(2, 1); });
    row("tiles swapped", [](TileMap &map) { emit map.tileSet()->tileSwapped(1, 3); });
    row("a paste", [](TileMap &map) {
        TileMap source({1, 1});
        source.setTiles({{cell(3)}});
        QMimeData mime;
        mime.setData(TileMap::mimeType(), source.toData(source.rect()));
        map.fromData({1, 1}, &mime);
    });
}

void tst_TileMapPicture::changesThrowThePictureAway()
{
    QFETCH(Change, change);
    TestMaps::PlainTiles tiles(16);
    TileMap map({1, 1});
    map.setTiles(TestMaps::counted(3, 3));
    map.setTileSet(tiles.set.get());
    const QImage before = whole(map);

    change(map);

    QVERIFY(whole(map) != before);
    QCOMPARE(whole(map), plainlyDrawn(map));
}

void tst_TileMapPicture::listenersFindThePictureOfTheNewRows()
{
    TestMaps::PlainTiles tiles(4);
    TileMap map({1, 1});
    map.setTileSet(tiles.set.get());
    QCOMPARE(pixelOf(map, {0, 0}), 0);
    int shown = -1;
    connect(&map, &TileMap::tilesChanged, this, [&] { shown = pixelOf(map, {0, 0}); });

    map.setTiles({{cell(3)}});

    QCOMPARE(shown, 3);
}

void tst_TileMapPicture::listenersFindThePictureOfTheSwappedTiles()
{
    TestMaps::PlainTiles tiles(4);
    TileMap map({2, 1});
    map.setTileSet(tiles.set.get());
    map.setTiles({{cell(1), cell(2)}});
    QCOMPARE(pixelOf(map, {0, 0}), 1);
    int shown = -1;
    connect(&map, &TileMap::tilesChanged, this, [&] { shown = pixelOf(map, {0, 0}); });

    emit tiles.set->tileSwapped(1, 2); // the tiles themselves stay, so the cells show the other

    QCOMPARE(shown, 2);
}

void tst_TileMapPicture::deletingTheFirstTileShowsItsSuccessor()
{
    TestMaps::PlainTiles tiles(2);
    Map map(QStringLiteral("level"));
    map.setTileLayer(new TileMap({1, 1}));
    map.setTileSet(tiles.set.get());
    map.tileLayer()->setCell({0, 0}, cell(0));
    QCOMPARE(pixelOf(*map.tileLayer(), {0, 0}), 0);

    tiles.set->deleteTile(0);

    QCOMPARE(map.tileLayer()->cell({0, 0}).index, 0);
    QCOMPARE(pixelOf(*map.tileLayer(), {0, 0}), 1);
}

void tst_TileMapPicture::aRedrawnPictureKeepsNothingOfTheLast()
{
    TestMaps::PlainTiles tiles(16);
    TileMap map({1, 1});
    map.setTiles(TestMaps::counted(3, 3));
    map.setTileSet(tiles.set.get());
    QVERIFY(!isBlank(whole(map)));

    map.setTiles(TileMap({3, 3}).rows());
    QVERIFY(isBlank(whole(map)));
    map.setTiles(TestMaps::counted(3, 3));
    QVERIFY(!isBlank(whole(map)));
    map.setTileSet(nullptr);

    QTest::ignoreMessage(QtWarningMsg, "_tiles==nullptr");
    QVERIFY(isBlank(whole(map)));
}

void tst_TileMapPicture::aChangedTileIsDrawnAnew()
{
    TestMaps::PlainTiles tiles(2);
    TileMap map({1, 1});
    map.setTileSet(tiles.set.get());
    map.setCell({0, 0}, cell(1));
    whole(map);

    tiles.set->tile(1)->setImage(TestImages::indexed(QStringList(8, "99999999")));
    tiles.set->notifyImageChanged(1);

    QCOMPARE(pixelOf(map, {0, 0}), 9);
}

void tst_TileMapPicture::aRestoredTileSetIsDrawnAnew()
{
    TestMaps::PlainTiles tiles(2);
    TileMap map({1, 1});
    map.setTileSet(tiles.set.get());
    map.setCell({0, 0}, cell(1));
    const TileSet::State state = tiles.set->state();
    tiles.set->clearImage(1);
    QCOMPARE(pixelOf(map, {0, 0}), 0);

    tiles.set->restore(state);
    tiles.set->notifyRestored();

    QCOMPARE(pixelOf(map, {0, 0}), 1);
}

void tst_TileMapPicture::anotherTileSetIsDrawnAnew()
{
    TestMaps::PlainTiles first(4);
    TestMaps::PlainTiles second(4);
    second.set->tile(2)->setImage(TestImages::indexed(QStringList(8, "99999999")));
    TileMap map({1, 1});
    map.setTileSet(first.set.get());
    map.setCell({0, 0}, cell(2));
    QCOMPARE(pixelOf(map, {0, 0}), 2);

    map.setTileSet(second.set.get());
    QCOMPARE(pixelOf(map, {0, 0}), 9);
    first.set->notifyImageChanged(2);
    second.set->tile(2)->setImage(TestImages::indexed(QStringList(8, "88888888")));
    QCOMPARE(pixelOf(map, {0, 0}), 9);
}

void tst_TileMapPicture::aNewPaletteOfTheSetGivesItsColours()
{
    TestMaps::PlainTiles tiles(2);
    TileMap map({1, 1});
    map.setTileSet(tiles.set.get());
    whole(map);
    Palette other;
    other.setColour(1, Qt::red);

    tiles.set->setPalette(&other);

    QCOMPARE(whole(map).color(1), qRgb(255, 0, 0));
}

void tst_TileMapPicture::fillingUnderAnotherPaletteIsDrawn()
{
    TestMaps::PlainTiles tiles(2);
    TileMap map({1, 1});
    map.setTileSet(tiles.set.get());
    map.setCell({0, 0}, cell(1));
    QCOMPARE(pixelOf(map, {0, 0}), 1);
    Palette other;
    tiles.set->setPalette(&other);

    map.fill(map.rect(), true);
    tiles.set->setPalette(tiles.palette.get());

    QCOMPARE(pixelOf(map, {0, 0}), 0);
}

void tst_TileMapPicture::aCellWrittenUnderAnotherPaletteIsDrawn()
{
    TestMaps::PlainTiles tiles(2);
    TileMap map({1, 1});
    map.setTileSet(tiles.set.get());
    QCOMPARE(pixelOf(map, {0, 0}), 0);
    Palette other;
    tiles.set->setPalette(&other);

    map.setCell({0, 0}, cell(1));
    tiles.set->setPalette(tiles.palette.get());

    QCOMPARE(pixelOf(map, {0, 0}), 1);
}

void tst_TileMapPicture::coloursEditedUnderAnotherPaletteAreShown()
{
    TestMaps::PlainTiles tiles(2);
    TileMap map({1, 1});
    map.setTileSet(tiles.set.get());
    whole(map);
    Palette other;
    tiles.set->setPalette(&other);

    tiles.palette->setColour(35, Qt::blue);
    tiles.set->setPalette(tiles.palette.get());

    QCOMPARE(whole(map).color(35), qRgb(0, 0, 255));
}

void tst_TileMapPicture::coloursAreThePalettes()
{
    TestMaps::PlainTiles tiles(2);
    TileMap map({1, 1});
    map.setTileSet(tiles.set.get());
    QCOMPARE(whole(map).colorTable(), tiles.palette->colourTable());

    tiles.palette->setColour(35, Qt::blue);

    QCOMPARE(whole(map).color(35), qRgb(0, 0, 255));
}

void tst_TileMapPicture::aTransparentIndexWorksOnAllBanks()
{
    TestMaps::PlainTiles tiles(2);
    TileMap map({1, 1});
    map.setTileSet(tiles.set.get());

    const QImage image = map.picture(map.rect(), 8, 3);

    const QList<QRgb> colours = tiles.palette->colourTable();
    QCOMPARE(image.colorCount(), 256);
    for (int i = 0; i < 256; ++i) {
        const bool isTransparent = i % 16 == 3;
        QCOMPARE(qAlpha(image.color(i)), isTransparent ? 0 : 255);
        QCOMPARE(image.color(i) & 0xFFFFFF, colours.at(i) & 0xFFFFFF);
    }
}

void tst_TileMapPicture::withoutATransparentIndexAllColoursAreOpaque()
{
    TestMaps::PlainTiles tiles(2);
    tiles.palette->setTransparencyIndex(3);
    TileMap map({1, 1});
    map.setTileSet(tiles.set.get());
    map.picture(map.rect(), 8, 3);

    const QImage image = whole(map);

    for (int i = 0; i < 256; ++i)
        QCOMPARE(qAlpha(image.color(i)), 255);
}

void tst_TileMapPicture::withoutATileSetItWarnsAndIsBlank()
{
    TileMap map({2, 1});
    map.setCell({0, 0}, cell(1));

    QTest::ignoreMessage(QtWarningMsg, "_tiles==nullptr");
    const QImage image = whole(map);

    QCOMPARE(image.size(), QSize(16, 8));
    QVERIFY(isBlank(image));
    QCOMPARE(image.colorCount(), 256);
    map.setCell({1, 0}, cell(1));
    QVERIFY(isBlank(whole(map)));
}

void tst_TileMapPicture::withoutAPaletteItWarnsAndIsBlank()
{
    TestMaps::PlainTiles tiles(2);
    tiles.set->setPalette(nullptr);
    TileMap map({1, 1});
    map.setTileSet(tiles.set.get());
    map.setCell({0, 0}, cell(1));

    QTest::ignoreMessage(QtWarningMsg, "_tiles==nullptr");
    QVERIFY(isBlank(whole(map)));
    tiles.set->setPalette(tiles.palette.get());

    QCOMPARE(pixelOf(map, {0, 0}), 1);
}

void tst_TileMapPicture::aDeletedTileSetLeavesABlankPicture()
{
    TestMaps::PlainTiles tiles(2);
    TileMap map({1, 1});
    map.setTileSet(tiles.set.get());
    map.setCell({0, 0}, cell(1));
    QCOMPARE(pixelOf(map, {0, 0}), 1);

    tiles.set.reset();

    QTest::ignoreMessage(QtWarningMsg, "_tiles==nullptr");
    QVERIFY(isBlank(whole(map)));
}

void tst_TileMapPicture::scalesToTheRoundedSize_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QSize>("size");
    QTest::newRow("8") << 8.0 << QSize(24, 16);
    QTest::newRow("32") << 32.0 << QSize(96, 64);
    QTest::newRow("3") << 3.0 << QSize(9, 6);
    QTest::newRow("down") << 2.4 << QSize(7, 5);
    QTest::newRow("up") << 2.6 << QSize(8, 5);
    QTest::newRow("half up") << 0.5 << QSize(2, 1);
}

void tst_TileMapPicture::scalesToTheRoundedSize()
{
    QFETCH(double, scale);
    QFETCH(QSize, size);
    TestMaps::PlainTiles tiles(2);
    TileMap map({5, 5});
    map.setTileSet(tiles.set.get());

    QCOMPARE(map.picture({1, 1, 3, 2}, scale, Off).size(), size);
}

void tst_TileMapPicture::scaledPixelsEqualQts()
{
    TestMaps::PlainTiles tiles(20);
    TileMap map({23, 17});
    map.setTileSet(tiles.set.get());
    fillWithNoise(tiles.set.get(), &map);
    const QImage image = plainlyDrawn(map);

    for (const double scale : {1.0, 2.0, 5.0, 7.3, 8.0, 12.5, 16.0, 32.0, 41.0}) {
        const QRect cells(3, 2, 7, 5);
        const QImage expected = image.copy(24, 16, 56, 40)
                                    .scaled(qRound(7 * scale), qRound(5 * scale),
                                            Qt::IgnoreAspectRatio, Qt::FastTransformation);
        QCOMPARE(map.picture(cells, scale, Off), expected);
    }
}

void tst_TileMapPicture::cellsOutsideTheMapAreZero()
{
    TestMaps::PlainTiles tiles(4);
    TileMap map({1, 1});
    map.setTiles({{cell(1), cell(2)}});
    map.setTileSet(tiles.set.get());

    const QImage image = map.picture({-1, -1, 4, 3}, 1, Off);

    QCOMPARE(TestImages::rows(image), (QStringList{"0000", "0120", "0000"}));
}

void tst_TileMapPicture::anEmptyRectangleIsNull()
{
    TestMaps::PlainTiles tiles(4);
    TileMap map({2, 2});
    map.setTileSet(tiles.set.get());

    QVERIFY(map.picture(QRect(), 8, Off).isNull());
    QVERIFY(map.picture({0, 0, 0, 2}, 8, Off).isNull());
}

void tst_TileMapPicture::tilesOutOfRangeAreLoggedOncePerDrawing()
{
    static int lines = 0;
    lines = 0;
    TestMaps::PlainTiles tiles(2);
    TileMap map({100, 100});
    map.setTiles(TileMap::Rows(100, QList<TileMap::TileData>(100, cell(77))));
    map.setTileSet(tiles.set.get());

    const auto previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &text) {
            lines += text.contains("out of range") ? 1 : 0;
        });
    whole(map);
    qInstallMessageHandler(previous);

    QCOMPARE(lines, 1);
}

void tst_TileMapPicture::aHugeMapIsDrawnInParts()
{
    TestMaps::PlainTiles tiles(4);
    TileMap map({(1 << 24) + 1, 1});
    map.setTileSet(tiles.set.get());
    map.setCell({1 << 24, 0}, cell(3));
    map.setCell({(1 << 24) - 1, 0}, cell(2, 1));

    const QImage image = map.picture({(1 << 24) - 2, 0, 4, 1}, 1, Off);

    QCOMPARE(image.pixelIndex(0, 0), 0);
    QCOMPARE(image.pixelIndex(1, 0), 18);
    QCOMPARE(image.pixelIndex(2, 0), 3);
    QCOMPARE(image.pixelIndex(3, 0), 0);
}

QTEST_GUILESS_MAIN(tst_TileMapPicture)
#include "tst_TileMapPicture.moc"
