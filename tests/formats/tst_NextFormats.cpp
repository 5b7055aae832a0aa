#include "formats/NextFormats.h"

#include "support/TestImages.h"

#include <QTest>

class tst_NextFormats : public QObject
{
    Q_OBJECT

private slots:
    void knowsANplByItsSuffix_data();
    void knowsANplByItsSuffix();
    void paletteWordsStandHighByteFirst();
    void paletteWordsKeepUnusedBits();
    void tilesPackTwoPixelsAByteWithTheLeftOneHigh();
    void tilesKeepOnlyTheLowNibble();
    void tilesReadFromAnOffset();
    void pixelBytesAreTheIndicesRowByRow();
    void pixelBytesLeaveThePaddingOfLinesOut();
    void pixelBytesOfAnotherFormatAreNone();
    void mapCellsHoldIndexAndAttributes_data();
    void mapCellsHoldIndexAndAttributes();
    void mapCellsRunRowByRow();
    void aMapOf40By32CellsMakes2560Bytes();
};

void tst_NextFormats::knowsANplByItsSuffix_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("npl");
    QTest::newRow("lower case") << "x.npl" << true;
    QTest::newRow("upper case") << "X.NPL" << true;
    QTest::newRow("mixed case") << "/a.pal/x.nPl" << true;
    QTest::newRow("pal") << "x.pal" << false;
    QTest::newRow("suffix behind it") << "x.npl.pal" << false;
    QTest::newRow("no suffix") << "npl" << false;
}

void tst_NextFormats::knowsANplByItsSuffix()
{
    QFETCH(QString, name);
    QTEST(NextFormats::isNpl(name), "npl");
}

void tst_NextFormats::paletteWordsStandHighByteFirst()
{
    NextFormats::PaletteWords words{};
    words[0] = 0x1234;
    words[255] = 0xFF81;

    const QByteArray bytes = NextFormats::paletteBytes(words);

    QCOMPARE(bytes.size(), 512);
    QCOMPARE(bytes.first(4), QByteArray::fromHex("12340000"));
    QCOMPARE(bytes.last(4), QByteArray::fromHex("0000ff81"));
}

void tst_NextFormats::paletteWordsKeepUnusedBits()
{
    QByteArray bytes(512, '\0');
    bytes.replace(0, 2, QByteArray::fromHex("e37e"));
    bytes.replace(510, 2, QByteArray::fromHex("80ff"));

    const NextFormats::PaletteWords words = NextFormats::paletteWords(bytes);

    QCOMPARE(words[0], quint16(0xE37E));
    QCOMPARE(words[1], quint16(0));
    QCOMPARE(words[255], quint16(0x80FF));
}

void tst_NextFormats::tilesPackTwoPixelsAByteWithTheLeftOneHigh()
{
    const QImage tile = TestImages::indexed({"12345678", "23456789", "f0f0f0f0", "00000000",
                                             "00000000", "00000000", "abcdef01", "9abcdef0"});

    const QByteArray bytes = NextFormats::tileBytes(tile);

    QCOMPARE(bytes.toHex(), QByteArray("1234567823456789f0f0f0f000000000"
                                       "0000000000000000abcdef019abcdef0"));
}

void tst_NextFormats::tilesKeepOnlyTheLowNibble()
{
    QImage tile = TestImages::indexed({"00000000", "00000000", "00000000", "00000000", "00000000",
                                       "00000000", "00000000", "00000000"});
    tile.setPixel(0, 0, 0x35);
    tile.setPixel(1, 0, 0xFA);

    QCOMPARE(NextFormats::tileBytes(tile).first(1).toHex(), QByteArray("5a"));
}

void tst_NextFormats::tilesReadFromAnOffset()
{
    QByteArray data(3, '\xFF');
    data += QByteArray::fromHex("12345678234567890000000000000000"
                                "0000000000000000abcdef019abcdef0");
    QList<QRgb> colours(256, qRgb(1, 2, 3));

    const QImage tile = NextFormats::tileImage(data, 3, colours);

    const QStringList rows{"12345678", "23456789", "00000000", "00000000",
                           "00000000", "00000000", "abcdef01", "9abcdef0"};
    QCOMPARE(tile.format(), QImage::Format_Indexed8);
    QCOMPARE(TestImages::rows(tile), rows);
    QCOMPARE(tile.colorTable(), colours);
}

void tst_NextFormats::pixelBytesAreTheIndicesRowByRow()
{
    QImage image = TestImages::indexed({"1234", "5678"});
    image.setPixel(0, 0, 0xE3);

    QCOMPARE(NextFormats::pixelBytes(image).toHex(), QByteArray("e302030405060708"));
}

void tst_NextFormats::pixelBytesLeaveThePaddingOfLinesOut()
{
    QCOMPARE(NextFormats::pixelBytes(TestImages::indexed({"123", "456"})).toHex(),
             QByteArray("010203040506"));
}

void tst_NextFormats::pixelBytesOfAnotherFormatAreNone()
{
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::red);

    QVERIFY(NextFormats::pixelBytes(image).isEmpty());
}

void tst_NextFormats::mapCellsHoldIndexAndAttributes_data()
{
    using Cell = TileMap::TileData;
    QTest::addColumn<TileMap::TileData>("cell");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("tile 0") << Cell{} << QByteArray("0000");
    QTest::newRow("tile 300, flipped, offset 2")
        << Cell{300, false, true, false, 2, true} << QByteArray("2c25");
    QTest::newRow("rotated") << Cell{255, true, false, false, 0, true} << QByteArray("ff02");
    QTest::newRow("mirrored") << Cell{1, false, false, true, 0, true} << QByteArray("0108");
    QTest::newRow("everything") << Cell{511, true, true, true, 15, true} << QByteArray("ffff");
    QTest::newRow("bits beyond are cut")
        << Cell{0x3FE, false, false, false, 16, true} << QByteArray("fe01");
    QTest::newRow("unoccupied") << Cell{7, false, false, false, 1, false} << QByteArray("0710");
}

void tst_NextFormats::mapCellsHoldIndexAndAttributes()
{
    QFETCH(TileMap::TileData, cell);
    QTEST(NextFormats::mapBytes({{cell}}).toHex(), "bytes");
}

void tst_NextFormats::mapCellsRunRowByRow()
{
    TileMap::Rows rows{{{}, {}}, {{}, {}}};
    for (int i = 0; i < 4; ++i)
        rows[i / 2][i % 2].index = i + 1;

    QCOMPARE(NextFormats::mapBytes(rows).toHex(), QByteArray("0100020003000400"));
    QVERIFY(NextFormats::mapBytes({}).isEmpty());
}

void tst_NextFormats::aMapOf40By32CellsMakes2560Bytes()
{
    const TileMap::Rows rows(32, QList<TileMap::TileData>(40));

    QCOMPARE(NextFormats::mapBytes(rows).size(), 2560);
}

QTEST_GUILESS_MAIN(tst_NextFormats)
#include "tst_NextFormats.moc"
