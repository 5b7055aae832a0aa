#include "model/Tile.h"

#include "support/TestImages.h"

#include <QTest>

class tst_Tile : public QObject
{
    Q_OBJECT

private slots:
    void aNewTileIsBlack();
    void keepsItsGameData();
    void theFlagsKeepTheirNumbers();
    void takesAnIndexedPicture();
    void fitsPicturesOfOtherSizes_data();
    void fitsPicturesOfOtherSizes();
    void refusesPicturesWithoutIndices_data();
    void refusesPicturesWithoutIndices();
};

void tst_Tile::aNewTileIsBlack()
{
    const Tile tile(7);

    QCOMPARE(tile.image().size(), QSize(8, 8));
    QCOMPARE(tile.image().format(), QImage::Format_Indexed8);
    QCOMPARE(tile.image().colorTable(), QList<QRgb>(256, 0xFF000000));
    QCOMPARE(TestImages::rows(tile.image()), QStringList(8, "00000000"));
    QCOMPARE(tile.offset(), 7);
    QCOMPARE(tile.attributes(), 0);
    QCOMPARE(tile.value(), 0);
}

void tst_Tile::keepsItsGameData()
{
    Tile tile(0);

    tile.setValue(-70000);
    tile.setAttributes(Tile::TA_DEADLY | Tile::TA_DOOR);
    tile.setOffset(15);

    QCOMPARE(tile.value(), -70000);
    QCOMPARE(tile.attributes(), 0x90);
    QCOMPARE(tile.offset(), 15);
}

void tst_Tile::theFlagsKeepTheirNumbers()
{
    QCOMPARE(int(Tile::TA_NONE), 0x00);
    QCOMPARE(int(Tile::TA_TOPSOLID), 0x01);
    QCOMPARE(int(Tile::TA_LEFTSOLID), 0x02);
    QCOMPARE(int(Tile::TA_RIGHTSOLID), 0x04);
    QCOMPARE(int(Tile::TA_BOTTOMSOLID), 0x08);
    QCOMPARE(int(Tile::TA_SOLID), 0x0F);
    QCOMPARE(int(Tile::TA_DEADLY), 0x10);
    QCOMPARE(int(Tile::TA_COLLECTIBLE), 0x20);
    QCOMPARE(int(Tile::TA_LADDER), 0x40);
    QCOMPARE(int(Tile::TA_DOOR), 0x80);
}

void tst_Tile::takesAnIndexedPicture()
{
    Tile tile(0);
    const QImage picture = TestImages::indexed(QStringList(8, "01234567"));

    tile.setImage(picture);

    QCOMPARE(TestImages::rows(tile.image()), QStringList(8, "01234567"));
}

void tst_Tile::fitsPicturesOfOtherSizes_data()
{
    QTest::addColumn<QStringList>("picture");
    QTest::addColumn<QStringList>("rows");
    const QStringList small{"12000000", "34000000"};
    QTest::newRow("smaller") << QStringList{"12", "34"} << small + QStringList(6, "00000000");
    QTest::newRow("larger") << QStringList(9, "123456789") << QStringList(8, "12345678");
}

void tst_Tile::fitsPicturesOfOtherSizes()
{
    QFETCH(QStringList, picture);
    QFETCH(QStringList, rows);
    Tile tile(0);

    tile.setImage(TestImages::indexed(picture));

    QCOMPARE(TestImages::rows(tile.image()), rows);
}

void tst_Tile::refusesPicturesWithoutIndices_data()
{
    QTest::addColumn<QImage>("picture");
    QTest::newRow("none") << QImage();
    QTest::newRow("32 bits") << QImage(8, 8, QImage::Format_RGB32);
    QTest::newRow("one bit") << QImage(8, 8, QImage::Format_Mono);
}

void tst_Tile::refusesPicturesWithoutIndices()
{
    QFETCH(QImage, picture);
    Tile tile(0);
    tile.setImage(TestImages::indexed(QStringList(8, "01234567")));

    tile.setImage(picture);

    QCOMPARE(TestImages::rows(tile.image()), QStringList(8, "01234567"));
}

QTEST_GUILESS_MAIN(tst_Tile)
#include "tst_Tile.moc"
