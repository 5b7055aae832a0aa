#include "formats/AttributeExport.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "support/TestFiles.h"

#include <QProcess>
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

/// Runs a program of the assembler to its end and tells what it complained about.
bool run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(program, arguments);
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

} // namespace

class tst_AttributeExport : public QObject
{
    Q_OBJECT

private slots:
    void anEmptySetGivesTheHeaderAlone();
    void sixteenTilesFillOneLine();
    void theSeventeenthTileBeginsALine();
    void digitsAreTwoAndInLowerCase();
    void onlyTheLowByteCounts();
    void bytesStandAlone();
    void theSourceAssemblesToTheBytes_data();
    void theSourceAssemblesToTheBytes();
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

void tst_AttributeExport::onlyTheLowByteCounts()
{
    const TileSet tiles(nullptr, 2);
    tiles.tile(0)->setAttributes(0x12C); // as a damaged project has them
    tiles.tile(1)->setAttributes(-2);

    QVERIFY(AttributeExport::assembler(tiles).endsWith("\tdb\t$2c,$fe\n"));
    QCOMPARE(AttributeExport::binary(tiles), QByteArray("\x2c\xfe", 2));
}

void tst_AttributeExport::bytesStandAlone()
{
    const TileSet tiles(nullptr, 3);
    tiles.tile(1)->setAttributes(Tile::TA_LADDER);
    tiles.tile(2)->setAttributes(255);

    QCOMPARE(AttributeExport::binary(tiles), QByteArray("\x00\x40\xff", 3));
}

void tst_AttributeExport::theSourceAssemblesToTheBytes_data()
{
    QTest::addColumn<int>("count");

    QTest::newRow("no tile") << 0;
    QTest::newRow("one line") << 16;
    QTest::newRow("a second line") << 17;
    QTest::newRow("every value") << 512;
}

void tst_AttributeExport::theSourceAssemblesToTheBytes()
{
    QFETCH(int, count);
    const QTemporaryDir folder;
    const TileSet tiles(nullptr, count);
    for (int i = 0; i < count; ++i)
        tiles.tile(i)->setAttributes(255 - (i & 255));
    QVERIFY(AttributeExport::write(tiles, folder.filePath("a.asm")));
    QVERIFY(AttributeExport::write(tiles, folder.filePath("a.bin")));

    QVERIFY(run("z80-unknown-coff-as", {"-o", folder.filePath("a.o"), folder.filePath("a.asm")}));
    QVERIFY(run("z80-unknown-coff-objcopy",
                {"-O", "binary", "-j", ".text", folder.filePath("a.o"), folder.filePath("a.rom")}));

    QCOMPARE(TestFiles::contents(folder.filePath("a.rom")),
             TestFiles::contents(folder.filePath("a.bin")));
    QCOMPARE(TestFiles::contents(folder.filePath("a.bin")).size(), count);
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
