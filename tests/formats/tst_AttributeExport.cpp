#include "formats/AttributeExport.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "support/TestFiles.h"

#include <QTemporaryDir>
#include <QTest>

namespace {

const QByteArray Header = "\tTA_NONE        = $00\n"
                          "\tTA_TOPSOLID    = $01\n"
                          "\tTA_LEFTSOLID   = $02\n"
                          "\tTA_RIGHTSOLID  = $04\n"
                          "\tTA_BOTTOMSOLID = $08\n"
                          "\tTA_SOLID       = $0F\n"
                          "\tTA_DEADLY      = $10\n"
                          "\tTA_COLLECTIBLE = $20\n"
                          "\tTA_LADDER      = $40\n"
                          "\tTA_DOOR        = $80\n";

} // namespace

class tst_AttributeExport : public QObject
{
    Q_OBJECT

private slots:
    void anEmptySetGivesTheHeaderAlone();
    void sixteenTilesFillOneLine();
    void theSeventeenthTileBeginsALine();
    void digitsAreTwoAndInLowerCase();
    void bytesStandAlone();
    void theSuffixDecidesInAnyCase_data();
    void theSuffixDecidesInAnyCase();
    void aFileThatCannotBeOpenedFails();
};

void tst_AttributeExport::anEmptySetGivesTheHeaderAlone()
{
    const TileSet tiles(nullptr, 0);

    QCOMPARE(AttributeExport::assembler(tiles), Header);
    QCOMPARE(AttributeExport::binary(tiles), QByteArray());
}

void tst_AttributeExport::sixteenTilesFillOneLine()
{
    const TileSet tiles(nullptr, 16);

    QCOMPARE(AttributeExport::assembler(tiles),
             Header + "\tdb\t$00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$00\n");
}

void tst_AttributeExport::theSeventeenthTileBeginsALine()
{
    const TileSet tiles(nullptr, 17);
    tiles.tile(15)->setAttributes(Tile::TA_DOOR);
    tiles.tile(16)->setAttributes(Tile::TA_SOLID);

    QCOMPARE(AttributeExport::assembler(tiles),
             Header + "\tdb\t$00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$80\n"
                      "\tdb\t$0f\n");
}

void tst_AttributeExport::digitsAreTwoAndInLowerCase()
{
    const TileSet tiles(nullptr, 2);
    tiles.tile(0)->setAttributes(255);
    tiles.tile(1)->setAttributes(10);

    QVERIFY(AttributeExport::assembler(tiles).endsWith("\tdb\t$ff,$0a\n"));
}

void tst_AttributeExport::bytesStandAlone()
{
    const TileSet tiles(nullptr, 3);
    tiles.tile(1)->setAttributes(Tile::TA_LADDER);
    tiles.tile(2)->setAttributes(255);

    QCOMPARE(AttributeExport::binary(tiles), QByteArray("\x00\x40\xff", 3));
}

void tst_AttributeExport::theSuffixDecidesInAnyCase_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("source") << "a.asm" << Header + "\tdb\t$00\n";
    QTest::newRow("capitals") << "a.ASM" << Header + "\tdb\t$00\n";
    QTest::newRow("bytes") << "a.bin" << QByteArray(1, '\0');
    QTest::newRow("anything else") << "a.txt" << QByteArray(1, '\0');
}

void tst_AttributeExport::theSuffixDecidesInAnyCase()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    const QTemporaryDir folder;
    const TileSet tiles(nullptr, 1);

    QVERIFY(AttributeExport::write(tiles, folder.filePath(name)));

    QCOMPARE(TestFiles::contents(folder.filePath(name)), content);
}

void tst_AttributeExport::aFileThatCannotBeOpenedFails()
{
    const QTemporaryDir folder;
    const TileSet tiles(nullptr, 1);

    QVERIFY(!AttributeExport::write(tiles, folder.filePath("missing/a.asm")));
    QVERIFY(!AttributeExport::write(tiles, folder.path()));
}

QTEST_GUILESS_MAIN(tst_AttributeExport)
#include "tst_AttributeExport.moc"
