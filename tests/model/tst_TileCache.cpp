#include "model/TileCache.h"

#include "model/Tile.h"
#include "model/TileSet.h"
#include "support/TestImages.h"

#include <QTest>

namespace {

/// The pixels as hexadecimal digits, row by row.
QStringList text(const TileCache::Pixels &pixels)
{
    QStringList rows;
    for (const quint64 &row : pixels) {
        const auto *bytes = reinterpret_cast<const char *>(&row);
        QString line;
        for (int x = 0; x < TileCache::Side; ++x)
            line += QString::number(bytes[x], 16);
        rows << line;
    }
    return rows;
}

const QStringList Arrow{"12345678", "20000000", "30000000", "40000000",
                        "50000000", "60000000", "70000000", "80000001"};

} // namespace

class tst_TileCache : public QObject
{
    Q_OBJECT

private slots:
    void anEntryHoldsTheTilesPixels();
    void turnsAreSeparateEntries();
    void anEntryIsMadeOnce();
    void oneEntryServesAnIndexOutOfRange();
    void offsetsFillTheHighNibbles();
    void resettingDropsTheEntries();
    void swappingExchangesEntriesThatAreThere();
    void withoutASetAllIsBlank();
    void itIsCurrentWhileTheTilesHaveTheirPixels();
    void itIsCurrentForItsSetOnly();
};

void tst_TileCache::anEntryHoldsTheTilesPixels()
{
    TileSet tiles(nullptr, 2);
    tiles.tile(1)->setImage(TestImages::indexed(Arrow));
    TileCache cache;
    cache.reset(&tiles);

    QCOMPARE(text(cache.pixels(1, {})), Arrow);
    QCOMPARE(text(cache.pixels(0, {})), QStringList(8, "00000000"));
    QCOMPARE(text(TileCache::pixelsOf(tiles, 1, {})), Arrow);
}

void tst_TileCache::turnsAreSeparateEntries()
{
    TileSet tiles(nullptr, 1);
    tiles.tile(0)->setImage(TestImages::indexed(Arrow));
    TileCache cache;
    cache.reset(&tiles);

    for (int bits = 0; bits < 8; ++bits) {
        const TileCache::Turn turn{(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0};
        const QImage image = tiles.tileImage(0, turn.rotate, turn.flip, turn.mirror, 0);
        QCOMPARE(text(cache.pixels(0, turn)), TestImages::rows(image));
    }
    QCOMPARE(cache.size(), 8);
    const QStringList mirrored{"87654321", "00000002", "00000003", "00000004",
                               "00000005", "00000006", "00000007", "10000008"};
    QCOMPARE(text(cache.pixels(0, {false, false, true})), mirrored);
}

void tst_TileCache::anEntryIsMadeOnce()
{
    TileSet tiles(nullptr, 2);
    TileCache cache;
    cache.reset(&tiles);

    const TileCache::Pixels *first = &cache.pixels(1, {});
    cache.pixels(0, {});

    QCOMPARE(&cache.pixels(1, {}), first);
    QCOMPARE(cache.size(), 2);
}

void tst_TileCache::oneEntryServesAnIndexOutOfRange()
{
    TileSet tiles(nullptr, 2);
    TileCache cache;
    cache.reset(&tiles);

    const TileCache::Pixels *pixels = &cache.pixels(2, {});
    QCOMPARE(&cache.pixels(2, {true, true, true}), pixels);
    cache.pixels(-1, {});
    cache.pixels(std::numeric_limits<int>::max(), {});
    cache.pixels(std::numeric_limits<int>::min(), {});

    QCOMPARE(cache.size(), 4);
    for (const quint64 row : *pixels)
        QCOMPARE(row & Q_UINT64_C(0xF0F0F0F0F0F0F0F0), quint64(0));
}

void tst_TileCache::offsetsFillTheHighNibbles()
{
    QCOMPARE(TileCache::offsetBits(0), quint64(0));
    QCOMPARE(TileCache::offsetBits(2), Q_UINT64_C(0x2020202020202020));
    QCOMPARE(TileCache::offsetBits(15), Q_UINT64_C(0xF0F0F0F0F0F0F0F0));
    QCOMPARE(TileCache::offsetBits(18), Q_UINT64_C(0x2020202020202020));
    QCOMPARE(TileCache::offsetBits(-1), Q_UINT64_C(0xF0F0F0F0F0F0F0F0));
}

void tst_TileCache::resettingDropsTheEntries()
{
    TileSet tiles(nullptr, 1);
    TileCache cache;
    cache.reset(&tiles);
    cache.pixels(0, {});
    tiles.tile(0)->setImage(TestImages::indexed(Arrow));

    cache.reset(&tiles);

    QCOMPARE(cache.size(), 0);
    QCOMPARE(text(cache.pixels(0, {})), Arrow);
}

void tst_TileCache::swappingExchangesEntriesThatAreThere()
{
    TileSet tiles(nullptr, 3);
    TileCache cache;
    cache.reset(&tiles);
    const TileCache::Pixels *one = &cache.pixels(1, {});
    const TileCache::Pixels *two = &cache.pixels(2, {});
    const TileCache::Pixels *alone = &cache.pixels(1, {true, false, false});

    cache.swapTiles(1, 2);
    cache.swapTiles(0, 3);
    cache.swapTiles(-1, 0);

    QCOMPARE(&cache.pixels(1, {}), two);
    QCOMPARE(&cache.pixels(2, {}), one);
    QCOMPARE(&cache.pixels(1, {true, false, false}), alone);
}

void tst_TileCache::withoutASetAllIsBlank()
{
    TileCache cache;
    cache.reset(nullptr);

    QCOMPARE(text(cache.pixels(0, {})), QStringList(8, "00000000"));
}

void tst_TileCache::itIsCurrentWhileTheTilesHaveTheirPixels()
{
    TileSet tiles(nullptr, 2);
    TileCache cache;
    cache.reset(&tiles);
    tiles.updateColour(3, Qt::red);
    QVERIFY(cache.isCurrent(&tiles));

    tiles.tile(1)->setImage(TestImages::indexed(Arrow));
    QVERIFY(!cache.isCurrent(&tiles));
    cache.reset(&tiles);
    QVERIFY(cache.isCurrent(&tiles));
    tiles.deleteTile(0);
    QVERIFY(!cache.isCurrent(&tiles));
}

void tst_TileCache::itIsCurrentForItsSetOnly()
{
    const TileSet tiles(nullptr, 2);
    const TileSet others(nullptr, 2);
    TileCache cache;
    QVERIFY(!cache.isCurrent(nullptr));

    cache.reset(&tiles);

    QVERIFY(!cache.isCurrent(&others));
    QVERIFY(!cache.isCurrent(nullptr));
}

QTEST_GUILESS_MAIN(tst_TileCache)
#include "tst_TileCache.moc"
