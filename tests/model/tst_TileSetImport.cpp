#include "model/TileSet.h"

#include "model/Palette.h"
#include "model/Tile.h"
#include "support/TestFiles.h"
#include "support/TestImages.h"
#include "support/TileSetLog.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

QImage filled(int value)
{
    return TestImages::indexed(QStringList(8, QString(8, QString::number(value, 16).at(0))));
}

} // namespace

class tst_TileSetImport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void importedPicturesAreMatched();
    void importingWithoutAPaletteSetsTheOffset();
    void importNxtReadsTilesSilently();
    void importNxtIgnoresAPartialTile();
    void importNxtIgnoresWhatIsLeft();
    void importNxtFailsOnlyIfTheFileCannotBeOpened();
    void importZXFontFillsCharacters();
    void importZXFontStopsWithinACharacter();
    void importZXFontStopsAtTheLastTile();
    void importZXFontPutsTheHighBitLeft();
    void importZXFontFailsWithoutAFile();
    void exportsTwoPixelsAByte();
    void exportFailsWhereNothingCanBeWritten();

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
    std::unique_ptr<Palette> m_palette;
};

void tst_TileSetImport::init()
{
    m_palette = std::make_unique<Palette>();
    m_palette->setDefaultColours();
}

void tst_TileSetImport::importedPicturesAreMatched()
{
    TileSet set(nullptr, 2);
    set.setPalette(m_palette.get());
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(qRgb(0, 0, 0));
    picture.setPixel(3, 2, qRgb(250, 250, 250));
    TileSetLog log(&set);

    set.importImage(1, picture, 5);

    QCOMPARE(set.tile(1)->offset(), 5);
    QCOMPARE(set.tile(1)->image().pixelIndex(3, 2), 255);
    QCOMPARE(set.tile(1)->image().pixelIndex(2, 3), 0);
    QCOMPARE(set.tile(1)->image().colorTable(), m_palette->colourTable());
    QCOMPARE(log.sent, QStringList{"changed 1"});
}

void tst_TileSetImport::importingWithoutAPaletteSetsTheOffset()
{
    TileSet set(nullptr, 1);
    set.tile(0)->setImage(filled(7));
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(Qt::white);

    set.importImage(0, picture, 5);

    QCOMPARE(set.tile(0)->offset(), 5);
    QCOMPARE(TestImages::rows(set.tile(0)->image()), QStringList(8, "77777777"));
}

void tst_TileSetImport::importNxtReadsTilesSilently()
{
    TileSet set(nullptr, 3);
    set.setPalette(m_palette.get());
    set.tile(1)->setOffset(4);
    set.tile(2)->setOffset(6);
    QVERIFY(TestFiles::make(path("two.nxt"), QByteArray(32, '\x12') + QByteArray(32, '\xF0')));
    TileSetLog log(&set);

    QVERIFY(set.importNxt(path("two.nxt")));

    QCOMPARE(TestImages::rows(set.tile(0)->image()), QStringList(8, "12121212"));
    QCOMPARE(TestImages::rows(set.tile(1)->image()), QStringList(8, "f0f0f0f0"));
    QCOMPARE(set.tile(1)->image().colorTable(), m_palette->colourTable());
    QCOMPARE(set.tile(1)->offset(), 0);
    QCOMPARE(set.tile(2)->offset(), 6);
    QCOMPARE(set.tile(2)->image().color(255), 0xFF000000);
    QVERIFY(log.sent.isEmpty());
}

void tst_TileSetImport::importNxtIgnoresAPartialTile()
{
    TileSet set(nullptr, 3);
    set.tile(1)->setOffset(4);
    QVERIFY(TestFiles::make(path("33.nxt"), QByteArray(33, '\x12')));

    QVERIFY(set.importNxt(path("33.nxt")));

    QCOMPARE(TestImages::rows(set.tile(0)->image()), QStringList(8, "12121212"));
    QCOMPARE(TestImages::rows(set.tile(1)->image()), QStringList(8, "00000000"));
    QCOMPARE(set.tile(1)->offset(), 4);
}

void tst_TileSetImport::importNxtIgnoresWhatIsLeft()
{
    TileSet set(nullptr, 1);
    TileSet empty(nullptr, 0);
    QVERIFY(TestFiles::make(path("long.nxt"), QByteArray(100, '\x12')));

    QVERIFY(set.importNxt(path("long.nxt")));
    QVERIFY(empty.importNxt(path("long.nxt")));

    QCOMPARE(set.count(), 1);
    QCOMPARE(empty.count(), 0);
}

void tst_TileSetImport::importNxtFailsOnlyIfTheFileCannotBeOpened()
{
    TileSet set(nullptr, 1);
    set.tile(0)->setOffset(9);
    QVERIFY(TestFiles::make(path("empty.nxt"), QByteArray()));

    QVERIFY(set.importNxt(path("empty.nxt")));
    QVERIFY(!set.importNxt(path("missing.nxt")));
    QVERIFY(!set.importNxt(m_folder.path()));

    QCOMPARE(set.tile(0)->offset(), 9);
}

void tst_TileSetImport::importZXFontFillsCharacters()
{
    TileSet set(nullptr, 256);
    set.setPalette(m_palette.get());
    QVERIFY(TestFiles::make(path("font.ch8"), QByteArray(768, '\xFF')));
    TileSetLog log(&set);

    QVERIFY(set.importZXFont(32, 7, 1, 3, path("font.ch8")));

    QCOMPARE(log.sent.size(), 96);
    QCOMPARE(log.sent.first(), QStringLiteral("changed 32"));
    QCOMPARE(log.sent.last(), QStringLiteral("changed 127"));
    QCOMPARE(TestImages::rows(set.tile(32)->image()), QStringList(8, "77777777"));
    QCOMPARE(set.tile(127)->offset(), 3);
    QCOMPARE(set.tile(127)->image().colorTable(), m_palette->colourTable());
    QCOMPARE(set.tile(31)->offset() + set.tile(128)->offset(), 0);
}

void tst_TileSetImport::importZXFontStopsWithinACharacter()
{
    TileSet set(nullptr, 4);
    QVERIFY(TestFiles::make(path("12.ch8"), QByteArray(12, '\xFF')));
    TileSetLog log(&set);

    QVERIFY(!set.importZXFont(1, 7, 0, 2, path("12.ch8")));

    QCOMPARE(log.sent, QStringList{"changed 1"});
    QCOMPARE(set.tile(1)->offset(), 2);
    QCOMPARE(set.tile(2)->offset(), 0);
}

void tst_TileSetImport::importZXFontStopsAtTheLastTile()
{
    TileSet set(nullptr, 2);
    QVERIFY(TestFiles::make(path("20.ch8"), QByteArray(20, '\xFF')));
    TileSetLog log(&set);

    QVERIFY(set.importZXFont(1, 7, 0, 2, path("20.ch8")));
    QVERIFY(set.importZXFont(2, 7, 0, 2, path("20.ch8")));

    QCOMPARE(log.sent, QStringList{"changed 1"});
}

void tst_TileSetImport::importZXFontPutsTheHighBitLeft()
{
    TileSet set(nullptr, 1);
    QVERIFY(TestFiles::make(path("one.ch8"), QByteArray::fromHex("8001f00faa550018")));

    QVERIFY(set.importZXFont(0, 14, 2, 0, path("one.ch8")));

    const QStringList rows{"e2222222", "2222222e", "eeee2222", "2222eeee",
                           "e2e2e2e2", "2e2e2e2e", "22222222", "222ee222"};
    QCOMPARE(TestImages::rows(set.tile(0)->image()), rows);
}

void tst_TileSetImport::importZXFontFailsWithoutAFile()
{
    TileSet set(nullptr, 1);
    TileSetLog log(&set);

    QVERIFY(!set.importZXFont(0, 1, 0, 0, path("missing.ch8")));
    QVERIFY(log.sent.isEmpty());
}

void tst_TileSetImport::exportsTwoPixelsAByte()
{
    TileSet set(nullptr, 2);
    QImage image = filled(1);
    image.setPixel(0, 0, 0x35);
    set.tile(0)->setImage(image);
    set.tile(0)->setOffset(3);
    set.tile(1)->setImage(filled(14));

    QVERIFY(set.exportData(path("out.nxt")));

    QCOMPARE(TestFiles::contents(path("out.nxt")),
             QByteArray(1, '\x51') + QByteArray(31, '\x11') + QByteArray(32, '\xEE'));
}

void tst_TileSetImport::exportFailsWhereNothingCanBeWritten()
{
    TileSet set(nullptr, 1);

    QVERIFY(!set.exportData(path("missing/out.nxt")));
    QVERIFY(!set.exportData(m_folder.path()));
}

QTEST_GUILESS_MAIN(tst_TileSetImport)
#include "tst_TileSetImport.moc"
