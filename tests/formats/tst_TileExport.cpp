#include "formats/TileExport.h"

#include "model/Tile.h"
#include "model/TileSet.h"
#include "support/TestFiles.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

/// The bytes of an 8 by 8 tile of zeros but for some pixels.
QByteArray tileBytes(const QList<QPair<int, char>> &pixels, char rest)
{
    QByteArray bytes(64, rest);
    for (const auto &[place, value] : pixels)
        bytes[place] = value;
    return bytes;
}

} // namespace

class tst_TileExport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aByteIsThePixelsLowBitsAndTheTilesOffset();
    void transposingSwapsRowsAndColumns();
    void theRangeIsLoweredToTheTilesThatThereAre_data();
    void theRangeIsLoweredToTheTilesThatThereAre();
    void aRangeThatEndsBeforeItBeginsWritesAnEmptyFile();
    void theNarrowFormatIgnoresTheRange();
    void anotherSuffixWritesNothing();
    void aFolderThatIsMissingFails();

private:
    std::unique_ptr<TileSet> m_tiles;
};

void tst_TileExport::init()
{
    m_tiles = std::make_unique<TileSet>(nullptr, 3);
    QImage image = m_tiles->tile(1)->image();
    image.setPixel(1, 0, 0x35);
    image.setPixel(7, 2, 0x0A);
    m_tiles->tile(1)->setImage(image);
    m_tiles->tile(1)->setOffset(3);
    m_tiles->tile(2)->setOffset(15);
}

void tst_TileExport::aByteIsThePixelsLowBitsAndTheTilesOffset()
{
    const QByteArray bytes = TileExport::wideBytes(*m_tiles, {1, 3, false});

    QCOMPARE(bytes, QByteArray(64, '\0') + tileBytes({{1, '\x35'}, {23, '\x3A'}}, '\x30') +
                        QByteArray(64, '\xF0'));
}

void tst_TileExport::transposingSwapsRowsAndColumns()
{
    const QByteArray bytes = TileExport::wideBytes(*m_tiles, {2, 2, true});

    QCOMPARE(bytes, tileBytes({{8, '\x35'}, {58, '\x3A'}}, '\x30'));
}

void tst_TileExport::theRangeIsLoweredToTheTilesThatThereAre_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<int>("tiles");
    QTest::newRow("all") << 1 << 3 << 3;
    QTest::newRow("one") << 2 << 2 << 1;
    QTest::newRow("from below") << -5 << 2 << 2;
    QTest::newRow("to beyond") << 2 << 2147483647 << 2;
    QTest::newRow("all beyond") << 4 << 9 << 0;
    QTest::newRow("none") << 3 << 2 << 0;
    QTest::newRow("below") << 1 << -3 << 0;
}

void tst_TileExport::theRangeIsLoweredToTheTilesThatThereAre()
{
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(int, tiles);

    QCOMPARE(TileExport::wideBytes(*m_tiles, {first, last, false}).size(), tiles * 64);
}

void tst_TileExport::aRangeThatEndsBeforeItBeginsWritesAnEmptyFile()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("tiles.BIN");

    QVERIFY(TileExport::write(m_tiles.get(), name, {3, 1, false}));

    QCOMPARE(TestFiles::contents(name), QByteArray());
}

void tst_TileExport::theNarrowFormatIgnoresTheRange()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("tiles.NXT");

    QVERIFY(TileExport::write(m_tiles.get(), name, {2, 2, true}));

    QByteArray expected(96, '\0');
    expected[32] = '\x05';
    expected[32 + 11] = '\x0A';
    QCOMPARE(TestFiles::contents(name), expected);
}

void tst_TileExport::anotherSuffixWritesNothing()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("tiles.raw");

    QVERIFY(TileExport::write(m_tiles.get(), name, {1, 3, false}));

    QVERIFY(!QFile::exists(name));
}

void tst_TileExport::aFolderThatIsMissingFails()
{
    const QTemporaryDir folder;

    QVERIFY(!TileExport::write(m_tiles.get(), folder.filePath("none/tiles.bin"), {1, 3, false}));
    QVERIFY(!TileExport::write(m_tiles.get(), folder.filePath("none/tiles.nxt"), {1, 3, false}));
}

QTEST_GUILESS_MAIN(tst_TileExport)
#include "tst_TileExport.moc"
