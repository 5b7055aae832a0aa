#include "model/TileMapData.h"

#include <QTest>

namespace {

TileMap::TileData cell(int index)
{
    TileMap::TileData data;
    data.index = index;
    return data;
}

QByteArray sized(const char *heightAndWidth, int cells)
{
    return QByteArray::fromHex(heightAndWidth) + QByteArray(cells * TileMapData::CellBytes, '\0');
}

} // namespace

class tst_TileMapData : public QObject
{
    Q_OBJECT

private slots:
    void writesHeightWidthCellsAndId();
    void cellsOutsideAreZero();
    void anEmptyRectangleHoldsNoCells();
    void readsWhatIsWritten();
    void anyNonZeroByteIsTrue();
    void theClosingIdMayBeMissing();
    void refusesDamagedSizes_data();
    void refusesDamagedSizes();
    void takesTheLongestEmptySide();
};

void tst_TileMapData::writesHeightWidthCellsAndId()
{
    TileMap::TileData first;
    first.index = 0x12345678;
    first.occupied = true;
    first.offset = 15;
    first.rotate = true;
    TileMap::TileData second;
    second.index = -2;
    second.flip = true;
    second.mirror = true;
    const QUuid id(QStringLiteral("{00112233-4455-6677-8899-aabbccddeeff}"));

    const QByteArray data = TileMapData::write({{first, second}}, {0, 0, 2, 1}, id);

    QCOMPARE(data.toHex(' '), QByteArray("00 00 00 01 00 00 00 02"
                                         " 12 34 56 78 01 00 00 00 0f 01 00 00"
                                         " ff ff ff fe 00 00 00 00 00 00 01 01"
                                         " 00 11 22 33 44 55 66 77 88 99 aa bb cc dd ee ff"));
}

void tst_TileMapData::cellsOutsideAreZero()
{
    const QByteArray data = TileMapData::write({{cell(7)}}, {-1, -1, 3, 2}, QUuid());

    QCOMPARE(data.size(), 8 + 6 * 12 + 16);
    QByteArray expected = sized("0000000200000003", 6) + QByteArray(16, '\0');
    expected[8 + 4 * 12 + 3] = 7;
    QCOMPARE(data, expected);
}

void tst_TileMapData::anEmptyRectangleHoldsNoCells()
{
    QCOMPARE(TileMapData::write({{cell(7)}}, QRect(), QUuid()), QByteArray(24, '\0'));
}

void tst_TileMapData::readsWhatIsWritten()
{
    TileMap::TileData full;
    full.index = 300;
    full.rotate = full.flip = full.occupied = true;
    full.offset = 9;
    const TileMap::Rows rows{{full, cell(-5), cell(0)}, {cell(1), full, cell(0x7FFFFFFF)}};

    const auto block = TileMapData::read(TileMapData::write(rows, {0, 0, 3, 2}, QUuid()));

    QVERIFY(block.has_value());
    QCOMPARE(block->size, QSize(3, 2));
    QVERIFY(block->rows == rows);
}

void tst_TileMapData::anyNonZeroByteIsTrue()
{
    QByteArray data = sized("0000000100000001", 1);
    data[8 + 4] = 2;
    data[8 + 11] = char(0x80);

    const auto block = TileMapData::read(data);

    QVERIFY(block.has_value());
    QVERIFY(block->rows.first().first().occupied);
    QVERIFY(block->rows.first().first().mirror);
}

void tst_TileMapData::theClosingIdMayBeMissing()
{
    QVERIFY(TileMapData::read(sized("0000000200000002", 4)).has_value());
}

void tst_TileMapData::refusesDamagedSizes_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("under 8 bytes") << QByteArray(7, '\0');
    QTest::newRow("a cell short") << sized("0000000200000002", 3);
    QTest::newRow("a byte short") << sized("0000000200000002", 4).chopped(1);
    QTest::newRow("negative height") << sized("ffffffff00000001", 4);
    QTest::newRow("negative width") << sized("00000001ffffffff", 4);
    QTest::newRow("both negative") << sized("ffffffffffffffff", 4);
    QTest::newRow("the product overflows 32 bits") << sized("0001000000010000", 4);
    QTest::newRow("the largest sides") << sized("7fffffff7fffffff", 4);
    QTest::newRow("no columns and endless rows") << sized("0001000000000000", 0);
    QTest::newRow("no rows and endless columns") << sized("000000007fffffff", 0);
}

void tst_TileMapData::refusesDamagedSizes()
{
    QFETCH(QByteArray, data);

    QVERIFY(!TileMapData::read(data).has_value());
}

void tst_TileMapData::takesTheLongestEmptySide()
{
    const auto block = TileMapData::read(sized("0000ffff00000000", 0));

    QVERIFY(block.has_value());
    QCOMPARE(block->size, QSize(0, 65535));
}

QTEST_GUILESS_MAIN(tst_TileMapData)
#include "tst_TileMapData.moc"
