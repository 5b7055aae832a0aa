#include "model/SpriteBank.h"

#include "model/Palette.h"
#include "support/SpriteBankLog.h"
#include "support/TestFiles.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <sys/stat.h>

using Tessaril::Sprite;

namespace {

QImage squares(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, (x / 16 + y / 16) % 2 ? qRgb(250, 0, 0) : qRgb(255, 255, 255));
    }
    return image;
}

} // namespace

/// What a sprite looks like, and what a picture file becomes.
class tst_SpriteBankPictures : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void drawsPixelsThroughThePalette_data();
    void drawsPixelsThroughThePalette();
    void drawsOpaqueColours();
    void leavesOutColoursBeyondTheTable();
    void turnsFlipsAndMirrors_data();
    void turnsFlipsAndMirrors();
    void outOfRangeGivesNoPicture();
    void cutsAPictureIntoSprites();
    void dropsWhatIsLeftOfAPicture_data();
    void dropsWhatIsLeftOfAPicture();
    void appendsBehindWhatIsThere();
    void transparentPixelsAreMatchedAsOpaque();
    void aFileThatIsNoPictureIsLogged_data();
    void aFileThatIsNoPictureIsLogged();
    void aStripWithoutIndicesIsLogged();
    void aMissingPaletteIsLogged();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    Palette m_palette;
};

void tst_SpriteBankPictures::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_palette.setDefaultColours();
}

void tst_SpriteBankPictures::drawsPixelsThroughThePalette_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<int>("transparency");
    QTest::addColumn<int>("pixel");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("entry"); // -1 for a transparent pixel
    QTest::newRow("8 bits") << 1 << 227 << 200 << 0 << 200;
    QTest::newRow("8 bits ignores the offset") << 1 << 227 << 3 << 5 << 3;
    QTest::newRow("8 bits, transparent") << 1 << 227 << 227 << 0 << -1;
    QTest::newRow("8 bits, only the nibble is equal") << 1 << 227 << 3 << 0 << 3;
    QTest::newRow("8 bits, no transparency") << 1 << -1 << 255 << 0 << 255;
    QTest::newRow("4 bits") << 0 << 227 << 5 << 0 << 5;
    QTest::newRow("4 bits, offset 2") << 0 << 227 << 5 << 2 << 37;
    QTest::newRow("4 bits, 227 makes 3 transparent") << 0 << 227 << 3 << 4 << -1;
    QTest::newRow("4 bits, high bits go") << 0 << 227 << 0xA5 << 1 << 0x15;
    QTest::newRow("4 bits, high bits go before the test") << 0 << 227 << 0xA3 << 1 << -1;
    QTest::newRow("4 bits, offset 16 wraps") << 0 << 0 << 5 << 16 << 5;
    QTest::newRow("4 bits, negative offset") << 0 << 0 << 5 << -1 << 0xF5;
}

void tst_SpriteBankPictures::drawsPixelsThroughThePalette()
{
    QFETCH(int, depth);
    QFETCH(int, transparency);
    QFETCH(int, pixel);
    QFETCH(int, offset);
    QFETCH(int, entry);
    SpriteBank bank(static_cast<Sprite>(depth));
    bank.setTransparency(transparency);
    bank.setPalette(&m_palette);
    QImage image(16, 16, QImage::Format_Indexed8);
    image.fill(pixel);
    bank.addSprite();
    bank.setImage(1, image);

    const QImage picture = bank.spriteImage(1, offset, false, false, false);

    QCOMPARE(picture.format(), QImage::Format_ARGB32);
    QCOMPARE(picture.size(), QSize(16, 16));
    const QRgb expected = entry < 0 ? qRgba(0, 0, 0, 0) : m_palette.colourTable().at(entry);
    QCOMPARE(picture.pixel(0, 0), expected);
    QCOMPARE(picture.pixel(15, 15), expected);
}

void tst_SpriteBankPictures::drawsOpaqueColours()
{
    SpriteBank bank(Sprite::EightBit);
    QImage strip(16, 16, QImage::Format_Indexed8);
    strip.setColorTable({qRgba(1, 2, 3, 0)});
    strip.fill(0);
    bank.setStrip(strip);

    QCOMPARE(bank.spriteImage(0, 0, false, false, false).pixel(4, 4), qRgb(1, 2, 3));
}

void tst_SpriteBankPictures::leavesOutColoursBeyondTheTable()
{
    SpriteBank bank(Sprite::EightBit);
    QImage strip(16, 16, QImage::Format_Indexed8);
    strip.fill(0);
    strip.setColorTable({qRgb(1, 2, 3), qRgb(4, 5, 6)});
    strip.bits()[0] = 2;
    strip.bits()[1] = 1;
    bank.setStrip(strip);

    const QImage picture = bank.spriteImage(0, 0, false, false, false);

    QCOMPARE(picture.pixel(0, 0), QRgb(0));
    QCOMPARE(picture.pixel(1, 0), qRgb(4, 5, 6));
}

void tst_SpriteBankPictures::turnsFlipsAndMirrors_data()
{
    QTest::addColumn<bool>("rotate");
    QTest::addColumn<bool>("flip");
    QTest::addColumn<bool>("mirror");
    QTest::addColumn<QPoint>("place"); // of what stood at (1, 0)
    QTest::newRow("as it is") << false << false << false << QPoint(1, 0);
    QTest::newRow("rotate") << true << false << false << QPoint(15, 1);
    QTest::newRow("flip") << false << true << false << QPoint(1, 15);
    QTest::newRow("mirror") << false << false << true << QPoint(14, 0);
    QTest::newRow("all") << true << true << true << QPoint(0, 14);
}

void tst_SpriteBankPictures::turnsFlipsAndMirrors()
{
    QFETCH(bool, rotate);
    QFETCH(bool, flip);
    QFETCH(bool, mirror);
    QFETCH(QPoint, place);
    SpriteBank bank(Sprite::EightBit);
    bank.setPalette(&m_palette);
    QImage image(16, 16, QImage::Format_Indexed8);
    image.fill(227);
    image.scanLine(0)[1] = 255;
    bank.setImage(0, image);

    const QImage picture = bank.spriteImage(0, 0, rotate, flip, mirror);

    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x)
            QCOMPARE(qAlpha(picture.pixel(x, y)), QPoint(x, y) == place ? 255 : 0);
    }
}

void tst_SpriteBankPictures::outOfRangeGivesNoPicture()
{
    const SpriteBank bank(Sprite::EightBit);

    QVERIFY(bank.spriteImage(-1, 0, false, false, false).isNull());
    QVERIFY(bank.spriteImage(1, 0, true, true, true).isNull());
}

void tst_SpriteBankPictures::cutsAPictureIntoSprites()
{
    SpriteBank bank(Sprite::EightBit);
    bank.setPalette(&m_palette);
    QImage image(32, 32, QImage::Format_RGB32);
    image.fill(qRgb(0, 0, 0));
    image.setPixel(16, 0, qRgb(255, 0, 0));      // top left of the second square
    image.setPixel(15, 31, qRgb(0, 255, 0));     // bottom right of the third
    image.setPixel(31, 16, qRgb(250, 255, 251)); // top right of the fourth
    QVERIFY(image.save(path("four.png")));
    SpriteBankLog log(&bank);

    bank.importImage(path("four.png"));

    QCOMPARE(bank.count(), 5);
    QCOMPARE(log.sent, QStringList({"image 1", "image 2", "image 3", "image 4", "count"}));
    QCOMPARE(bank.sprite(2).pixelIndex(0, 0), 0xE0);
    QCOMPARE(bank.sprite(3).pixelIndex(15, 15), 0x1C);
    QCOMPARE(bank.sprite(4).pixelIndex(15, 0), 0xFF);
    QCOMPARE(bank.sprite(1).pixelIndex(0, 0), 0);
    QCOMPARE(bank.image().colorTable(), m_palette.colourTable());
}

void tst_SpriteBankPictures::dropsWhatIsLeftOfAPicture_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("added");
    QTest::newRow("40 by 20") << QSize(40, 20) << 2;
    QTest::newRow("40 by 40") << QSize(40, 40) << 4;
    QTest::newRow("15 by 100") << QSize(15, 100) << 0;
    QTest::newRow("100 by 15") << QSize(100, 15) << 0;
    QTest::newRow("one pixel") << QSize(1, 1) << 0;
    QTest::newRow("16 by 16") << QSize(16, 16) << 1;
}

void tst_SpriteBankPictures::dropsWhatIsLeftOfAPicture()
{
    QFETCH(QSize, size);
    QFETCH(int, added);
    SpriteBank bank(Sprite::EightBit);
    bank.setPalette(&m_palette);
    QVERIFY(squares(size).save(path("in.png")));
    SpriteBankLog log(&bank);

    bank.importImage(path("in.png"));

    QCOMPARE(bank.count(), 1 + added);
    QCOMPARE(log.sent.size(), added + 1);
    QCOMPARE(log.sent.last(), QStringLiteral("count"));
    for (int i = 0; i < added; ++i) {
        const int expected = (i % 2 + i / 2) % 2 ? 0xE0 : 0xFF;
        QCOMPARE(bank.sprite(1 + i).pixelIndex(15, 15), expected);
    }
}

void tst_SpriteBankPictures::appendsBehindWhatIsThere()
{
    SpriteBank bank(Sprite::EightBit);
    bank.setPalette(&m_palette);
    bank.addSprite();
    QImage own(16, 16, QImage::Format_Indexed8);
    own.fill(77);
    bank.setImage(1, own);
    QVERIFY(squares({16, 16}).save(path("in.png")));

    bank.importImage(path("in.png"));
    bank.importImage(path("in.png"));

    QCOMPARE(bank.count(), 4);
    QCOMPARE(bank.sprite(1).pixelIndex(0, 0), 77);
    QCOMPARE(bank.sprite(2).pixelIndex(0, 0), 0xFF);
    QCOMPARE(bank.sprite(3).pixelIndex(0, 0), 0xFF);
}

void tst_SpriteBankPictures::transparentPixelsAreMatchedAsOpaque()
{
    SpriteBank bank(Sprite::EightBit);
    bank.setPalette(&m_palette);
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(qRgba(255, 0, 0, 0));
    QVERIFY(image.save(path("clear.png")));

    bank.importImage(path("clear.png"));

    QCOMPARE(bank.sprite(1).pixelIndex(3, 3), 0xE0);
}

void tst_SpriteBankPictures::aFileThatIsNoPictureIsLogged_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << "missing.png";
    QTest::newRow("folder") << ".";
    QTest::newRow("empty") << "empty.png";
    QTest::newRow("text") << "text.png";
    QTest::newRow("pipe") << "pipe.png";
}

void tst_SpriteBankPictures::aFileThatIsNoPictureIsLogged()
{
    QFETCH(QString, name);
    QVERIFY(TestFiles::make(path("empty.png"), QByteArray()));
    QVERIFY(TestFiles::make(path("text.png"), "no picture"));
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe.png")).constData(), 0600), 0);
    SpriteBank bank(Sprite::EightBit);
    bank.setPalette(&m_palette);
    SpriteBankLog log(&bank);
    QTest::ignoreMessage(QtInfoMsg, "Failed to load image");

    bank.importImage(path(name));

    QCOMPARE(bank.count(), 1);
    QVERIFY(log.sent.isEmpty());
}

void tst_SpriteBankPictures::aStripWithoutIndicesIsLogged()
{
    SpriteBank bank(Sprite::EightBit);
    bank.setPalette(&m_palette);
    bank.setStrip(QImage(16, 16, QImage::Format_RGB32));
    QVERIFY(squares({16, 16}).save(path("in.png")));
    SpriteBankLog log(&bank);
    QTest::ignoreMessage(QtInfoMsg, "Failed to load image");

    bank.importImage(path("in.png"));

    QCOMPARE(bank.count(), 1);
    QVERIFY(log.sent.isEmpty());
}

void tst_SpriteBankPictures::aMissingPaletteIsLogged()
{
    SpriteBank bank(Sprite::EightBit);
    QVERIFY(squares({16, 16}).save(path("in.png")));
    SpriteBankLog log(&bank);
    QTest::ignoreMessage(QtInfoMsg, "Could not remap colours");

    bank.importImage(path("in.png"));

    QCOMPARE(bank.count(), 1);
    QVERIFY(log.sent.isEmpty());
}

QTEST_GUILESS_MAIN(tst_SpriteBankPictures)
#include "tst_SpriteBankPictures.moc"
