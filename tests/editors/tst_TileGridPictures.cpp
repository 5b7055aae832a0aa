#include "editors/TileGridPictures.h"
#include "model/Palette.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "support/TestMaps.h"

#include <QTest>

class tst_TileGridPictures : public QObject
{
    Q_OBJECT

private slots:
    void aRowHoldsItsTiles();
    void aRowIsDrawnOnce();
    void refreshFindsWhatChanged();
    void refreshFindsMovedTiles();
    void refreshFindsAnotherPalette();
    void anotherShapeDrawsAnew();
    void itIsAsSharpAsTheScreen();
    void withoutAPaletteTilesHaveTheirOwnColours();
    void withoutASetAllIsBlack();

private:
    static QColor at(TileGridPictures *pictures, int column, int row)
    {
        return pictures->row(row).pixelColor(column * 16 + 8, 8);
    }
};

void tst_TileGridPictures::aRowHoldsItsTiles()
{
    const TestMaps::PlainTiles tiles(5);
    TileGridPictures pictures;
    pictures.setTileSet(tiles.set.get());
    pictures.setShape({3, 16, 1});

    QCOMPARE(pictures.row(0).size(), QSize(48, 16));
    QCOMPARE(at(&pictures, 2, 0), tiles.palette->colour(2));
    QCOMPARE(at(&pictures, 1, 1), tiles.palette->colour(4));
    QCOMPARE(at(&pictures, 2, 1), QColor(Qt::black));
    QCOMPARE(pictures.tileRect({32, 16}), QRect(32, 16, 15, 15));
    QCOMPARE(pictures.row(0).pixelColor(46, 14), tiles.palette->colour(2));
    QCOMPARE(pictures.row(0).pixelColor(47, 14), QColor(Qt::black));
}

void tst_TileGridPictures::aRowIsDrawnOnce()
{
    const TestMaps::PlainTiles tiles(5);
    TileGridPictures pictures;
    pictures.setTileSet(tiles.set.get());
    pictures.setShape({3, 16, 1});

    const qint64 key = pictures.row(0).cacheKey();
    pictures.row(1);
    pictures.setShape({3, 16, 1});

    QCOMPARE(pictures.refresh(), QList<int>());
    QCOMPARE(pictures.row(0).cacheKey(), key);
}

void tst_TileGridPictures::refreshFindsWhatChanged()
{
    const TestMaps::PlainTiles tiles(6);
    TileGridPictures pictures;
    pictures.setTileSet(tiles.set.get());
    pictures.setShape({3, 16, 1});
    pictures.row(0);

    tiles.set->clearImage(1);
    tiles.set->tile(2)->setOffset(1);
    tiles.set->clearImage(4); // in a row that nobody has asked for

    QCOMPARE(pictures.refresh(), QList<int>({1, 2}));
    QCOMPARE(pictures.refresh(), QList<int>());
    QCOMPARE(at(&pictures, 1, 0), tiles.palette->colour(0));
    QCOMPARE(at(&pictures, 2, 0), tiles.palette->colour(18));
    QCOMPARE(at(&pictures, 1, 1), tiles.palette->colour(0));
}

void tst_TileGridPictures::refreshFindsMovedTiles()
{
    const TestMaps::PlainTiles tiles(3);
    TileGridPictures pictures;
    pictures.setTileSet(tiles.set.get());
    pictures.setShape({3, 16, 1});
    pictures.row(0);

    tiles.set->deleteTile(1);

    QCOMPARE(pictures.refresh(), QList<int>({1, 2}));
    QCOMPARE(at(&pictures, 1, 0), tiles.palette->colour(2));
    QCOMPARE(at(&pictures, 2, 0), QColor(Qt::black));
}

void tst_TileGridPictures::refreshFindsAnotherPalette()
{
    const TestMaps::PlainTiles tiles(3);
    Palette other;
    other.setColour(1, QColor(255, 0, 255));
    TileGridPictures pictures;
    pictures.setTileSet(tiles.set.get());
    pictures.setShape({3, 16, 1});
    pictures.row(0);

    tiles.set->setPalette(&other);

    QCOMPARE(pictures.refresh().size(), 3);
    QCOMPARE(at(&pictures, 1, 0), QColor(255, 0, 255));
}

void tst_TileGridPictures::anotherShapeDrawsAnew()
{
    const TestMaps::PlainTiles tiles(5);
    TileGridPictures pictures;
    pictures.setTileSet(tiles.set.get());
    pictures.setShape({3, 16, 1});
    pictures.row(1);

    pictures.setShape({2, 16, 1});

    QCOMPARE(at(&pictures, 1, 1), tiles.palette->colour(3));
}

void tst_TileGridPictures::itIsAsSharpAsTheScreen()
{
    const TestMaps::PlainTiles tiles(3);
    TileGridPictures pictures;
    pictures.setTileSet(tiles.set.get());
    pictures.setShape({3, 16, 1.5});

    QCOMPARE(pictures.row(0).size(), QSize(72, 24));
    QCOMPARE(pictures.row(0).devicePixelRatio(), 1.5);
    QCOMPARE(pictures.row(0).pixelColor(36, 12), tiles.palette->colour(1));
}

void tst_TileGridPictures::withoutAPaletteTilesHaveTheirOwnColours()
{
    TileSet set(nullptr, 2);
    set.updateColour(0, QColor(0, 255, 0));
    TileGridPictures pictures;
    pictures.setTileSet(&set);
    pictures.setShape({2, 16, 1});

    QCOMPARE(at(&pictures, 1, 0), QColor(0, 255, 0));
}

void tst_TileGridPictures::withoutASetAllIsBlack()
{
    TileGridPictures pictures;
    pictures.setShape({2, 16, 1});
    {
        TileSet set(nullptr, 2);
        pictures.setTileSet(&set);
        pictures.row(0);
    }

    pictures.refresh();

    QCOMPARE(at(&pictures, 0, 0), QColor(Qt::black));
}

QTEST_MAIN(tst_TileGridPictures)
#include "tst_TileGridPictures.moc"
