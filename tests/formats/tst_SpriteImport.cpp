#include "formats/SpriteImport.h"

#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "support/SpriteBankLog.h"
#include "support/TestFiles.h"
#include "support/TestImages.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <sys/stat.h>

using namespace SpriteImport;

namespace {

constexpr int Side = SpriteBank::SpriteSide;

/// A sheet of one sprite again and again, in every second place left to right.
QImage sheet(int columns, int rows, bool mirrored)
{
    const QImage sprite = TestImages::distinctSquares(4, 2);
    const QImage other = mirrored ? sprite.mirrored(true, false) : sprite;
    QImage sheet(columns * Side, rows * Side, QImage::Format_RGB32);
    for (int y = 0; y < sheet.height(); ++y) {
        for (int x = 0; x < sheet.width(); ++x)
            sheet.setPixel(x, y, (x / Side % 2 ? other : sprite).pixel(x % Side, y % Side));
    }
    return sheet;
}

} // namespace

class tst_SpriteImport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void equalSquaresBecomeOneSprite();
    void mirroredSquaresBecomeOneSprite();
    void differentSquaresBecomeSpritesInTheirOrder();
    void theBlankSpriteOfANewBankTakesTheFirstSquare();
    void thePalettesColoursAreThoseOfTheSheet();
    void theSpritesComeBeforeTheirColours();
    void ownPaletteComesBeforeTheBankAndBothBearTheBaseName();
    void aSheetThatCannotBeReadLeavesABlankPaletteAndBank();
    void aProjectPaletteIsMatchedAndKeepsEverySquare();
    void appendingGoesToTheCurrentBankAlone();
    void appendingWithoutABankGoesByTheOtherFlags();
    void noFlagDoesNothing();
    void rawSpritesFollowTheBlankOne_data();
    void rawSpritesFollowTheBlankOne();
    void rawSpritesAreAppendedAndAnnouncedOneByOne();
    void rawSpritesBringTheDefaultPalette();
    void rawSpritesTakeAnExistingPalette();
    void aRawFileThatCannotBeOpenedLeavesTheNewBank_data();
    void aRawFileThatCannotBeOpenedLeavesTheNewBank();

private:
    QString savedSheet(const QImage &picture) const;
    QString rawFile(const QByteArray &bytes) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_SpriteImport::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

QString tst_SpriteImport::savedSheet(const QImage &picture) const
{
    const QString name = m_folder->filePath("hero.sheet.png");
    return picture.save(name) ? name : QString();
}

QString tst_SpriteImport::rawFile(const QByteArray &bytes) const
{
    const QString name = m_folder->filePath("hero.raw.spr");
    return TestFiles::make(name, bytes) ? name : QString();
}

void tst_SpriteImport::equalSquaresBecomeOneSprite()
{
    Project project;

    const Outcome outcome =
        importSheet(&project, nullptr, savedSheet(sheet(2, 2, false)), ImagePalette, QUuid());

    QVERIFY(outcome.created);
    QCOMPARE(outcome.bank->count(), 1);
    QCOMPARE(outcome.bank->depth(), Tessaril::Sprite::EightBit);
}

void tst_SpriteImport::mirroredSquaresBecomeOneSprite()
{
    Project project;

    const Outcome outcome =
        importSheet(&project, nullptr, savedSheet(sheet(2, 1, true)), ImagePalette, QUuid());

    QCOMPARE(outcome.bank->count(), 1);
    QCOMPARE(outcome.bank->image().pixelIndex(0, 0), 0);
    QCOMPARE(outcome.bank->image().pixelIndex(3, 0), 1);
}

void tst_SpriteImport::differentSquaresBecomeSpritesInTheirOrder()
{
    QImage picture = sheet(3, 1, false);
    picture.setPixel(Side, 0, TestImages::colour(5));
    Project project;
    connect(&project, &Project::spritesCreated, this,
            [](const QPointer<SpriteBank> &bank) { QCOMPARE(bank->count(), 1); });

    const Outcome outcome =
        importSheet(&project, nullptr, savedSheet(picture), ImagePalette, QUuid());

    QCOMPARE(outcome.bank->count(), 2);
    QCOMPARE(outcome.bank->image().pixelIndex(0, 0), 0);
    QCOMPARE(outcome.bank->image().pixelIndex(0, Side), 2);
    QCOMPARE(outcome.bank->image().pixelIndex(1, Side), 0);
}

void tst_SpriteImport::theBlankSpriteOfANewBankTakesTheFirstSquare()
{
    Project project;
    std::unique_ptr<SpriteBankLog> log;
    connect(&project, &Project::spritesCreated, this,
            [&](const QPointer<SpriteBank> &bank) { log = std::make_unique<SpriteBankLog>(bank); });

    importSheet(&project, nullptr, savedSheet(TestImages::distinctSquares(8, 4)), ImagePalette,
                QUuid());

    QVERIFY(log);
    QCOMPARE(log->sent, (QStringList{"image 0", "count", "image 1"}));
}

void tst_SpriteImport::thePalettesColoursAreThoseOfTheSheet()
{
    Project project;

    const Outcome outcome =
        importSheet(&project, nullptr, savedSheet(sheet(1, 1, false)), ImagePalette, QUuid());

    Palette expected;
    expected.setColour(0, QColor(TestImages::colour(2)));
    expected.setColour(1, QColor(TestImages::colour(1)));
    QCOMPARE(outcome.bank->palette()->colours(), expected.colours());
    QCOMPARE(outcome.bank->image().colorTable(), expected.colourTable());
}

void tst_SpriteImport::theSpritesComeBeforeTheirColours()
{
    Project project;
    QStringList order;
    connect(&project, &Project::spritesCreated, this, [&](const QPointer<SpriteBank> &bank) {
        connect(bank, &SpriteBank::imageChanged, this, [&] { order += "sprite"; });
        connect(bank->palette(), &Palette::colourChanged, this, [&] { order += "colour"; });
    });

    importSheet(&project, nullptr, savedSheet(sheet(1, 1, false)), ImagePalette, QUuid());

    QCOMPARE(order, QStringList({"sprite", "colour", "colour"}));
}

void tst_SpriteImport::ownPaletteComesBeforeTheBankAndBothBearTheBaseName()
{
    Project project;
    QStringList order;
    connect(&project, &Project::paletteCreated, this, [&] { order += "palette"; });
    connect(&project, &Project::spritesCreated, this, [&] { order += "bank"; });

    const Outcome outcome =
        importSheet(&project, nullptr, savedSheet(sheet(1, 1, false)), ImagePalette, QUuid());

    QCOMPARE(order, QStringList({"palette", "bank"}));
    QCOMPARE(outcome.bank->name(), QStringLiteral("hero"));
    QCOMPARE(outcome.bank->palette()->name(), QStringLiteral("hero"));
}

void tst_SpriteImport::aSheetThatCannotBeReadLeavesABlankPaletteAndBank()
{
    const QString pipe = m_folder->filePath("pipe.png");
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    Project project;
    QTest::ignoreMessage(QtInfoMsg, "Failed to load image");

    const Outcome outcome = importSheet(&project, nullptr, pipe, ImagePalette, QUuid());

    QCOMPARE(outcome.bank->count(), 1);
    QCOMPARE(outcome.bank->palette()->colourTable(), QList<QRgb>(256, qRgb(0, 0, 0)));
}

void tst_SpriteImport::aProjectPaletteIsMatchedAndKeepsEverySquare()
{
    Project project;
    const QPointer<Palette> palette = project.createPalette(CreateBlank, "own");
    palette->setColour(7, QColor(64, 160, 64));
    palette->setColour(9, QColor(0, 255, 64));

    const Outcome outcome = importSheet(&project, nullptr, savedSheet(sheet(2, 2, false)),
                                        ProjectPalette, palette->id());

    QVERIFY(outcome.created);
    QCOMPARE(project.palettes().size(), 1);
    QCOMPARE(outcome.bank->name(), QStringLiteral("hero"));
    QCOMPARE(outcome.bank->count(), 1 + 4);
    QCOMPARE(outcome.bank->image().pixelIndex(0, 4 * Side), 7);
    QCOMPARE(outcome.bank->image().pixelIndex(3, 4 * Side), 9);
    QCOMPARE(outcome.bank->image().pixelIndex(0, 0), 0);
}

void tst_SpriteImport::appendingGoesToTheCurrentBankAlone()
{
    Project project;
    const QPointer<Palette> palette = project.createPalette(CreateDefault, "own");
    const QPointer<SpriteBank> current =
        project.createSpriteBank(Tessaril::Sprite::EightBit, "current", palette->id());

    const Outcome outcome = importSheet(&project, current, savedSheet(sheet(2, 1, false)),
                                        Append | ImagePalette, QUuid());

    QCOMPARE(outcome.bank, current);
    QVERIFY(!outcome.created);
    QCOMPARE(current->count(), 1 + 2);
    QCOMPARE(project.spriteBanks().size(), 1);
    QCOMPARE(project.palettes().size(), 1);
}

void tst_SpriteImport::appendingWithoutABankGoesByTheOtherFlags()
{
    const QString file = savedSheet(sheet(1, 1, false));
    Project project;

    QVERIFY(importSheet(&project, nullptr, file, Append, QUuid()).bank.isNull());
    QVERIFY(project.spriteBanks().isEmpty());
    QVERIFY(importSheet(&project, nullptr, file, Append | ImagePalette, QUuid()).created);
    QCOMPARE(project.spriteBanks().size(), 1);
}

void tst_SpriteImport::noFlagDoesNothing()
{
    Project project;

    const Outcome outcome =
        importSheet(&project, nullptr, savedSheet(sheet(1, 1, false)), 0, QUuid());

    QVERIFY(outcome.bank.isNull());
    QVERIFY(project.palettes().isEmpty());
    QVERIFY(project.spriteBanks().isEmpty());
}

void tst_SpriteImport::rawSpritesFollowTheBlankOne_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<int>("sprites");
    QTest::newRow("empty") << 0 << 0;
    QTest::newRow("less than one") << 200 << 0;
    QTest::newRow("one byte too few") << 255 << 0;
    QTest::newRow("one") << 256 << 1;
    QTest::newRow("one and a part") << 300 << 1;
    QTest::newRow("three") << 768 << 3;
}

void tst_SpriteImport::rawSpritesFollowTheBlankOne()
{
    QFETCH(int, bytes);
    QFETCH(int, sprites);
    QByteArray data;
    for (int place = 0; place < bytes; ++place)
        data += static_cast<char>(place % 251);
    Project project;

    const Outcome outcome = importRaw(&project, nullptr, rawFile(data), CreatePalette, QUuid());

    QVERIFY(outcome.created);
    QCOMPARE(outcome.bank->name(), QStringLiteral("hero"));
    QCOMPARE(outcome.bank->count(), 1 + sprites);
    for (int place = 0; place < (1 + sprites) * Side * Side; ++place) {
        const int expected = place < 256 ? 0 : (place - 256) % 251;
        QCOMPARE(outcome.bank->image().pixelIndex(place % Side, place / Side), expected);
    }
}

void tst_SpriteImport::rawSpritesAreAppendedAndAnnouncedOneByOne()
{
    Project project;
    const QPointer<SpriteBank> current =
        project.createSpriteBank(Tessaril::Sprite::FourBit, "current", QUuid());
    current->addSprite();
    QStringList signalsSent;
    connect(current, &SpriteBank::countChanged, this, [&] { signalsSent += "count"; });
    connect(current, &SpriteBank::imageChanged, this,
            [&](int index) { signalsSent += QString::number(index); });

    const Outcome outcome = importRaw(&project, current, rawFile(QByteArray(512, '\x63')),
                                      AppendRaw | CreatePalette, QUuid());

    QCOMPARE(outcome.bank, current);
    QVERIFY(!outcome.created);
    QCOMPARE(current->count(), 4);
    QCOMPARE(current->image().pixelIndex(0, 2 * Side), 0x63);
    QCOMPARE(signalsSent, QStringList({"count", "2", "count", "3"}));
    QVERIFY(project.palettes().isEmpty());
}

void tst_SpriteImport::rawSpritesBringTheDefaultPalette()
{
    Project project;

    const Outcome outcome =
        importRaw(&project, nullptr, rawFile(QByteArray(256, '\1')), CreatePalette, QUuid());

    QCOMPARE(outcome.bank->palette()->name(), QStringLiteral("Default Next"));
    QCOMPARE(outcome.bank->palette()->word(227), quint16(0xE301));
    QCOMPARE(outcome.bank->depth(), Tessaril::Sprite::EightBit);
    QCOMPARE(outcome.bank->image().colorTable(), outcome.bank->palette()->colourTable());
}

void tst_SpriteImport::rawSpritesTakeAnExistingPalette()
{
    Project project;
    const QPointer<Palette> palette = project.createPalette(CreateDefault, "own");

    // To append without a bank makes one as well.
    const Outcome outcome = importRaw(&project, nullptr, rawFile(QByteArray(256, '\1')),
                                      AppendRaw | UseExistingPalette, palette->id());

    QVERIFY(outcome.created);
    QCOMPARE(outcome.bank->palette(), palette);
    QCOMPARE(project.palettes().size(), 1);
    QCOMPARE(outcome.bank->count(), 2);
}

void tst_SpriteImport::aRawFileThatCannotBeOpenedLeavesTheNewBank_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"missing.spr", "pipe.spr", "folder.spr", "huge.spr"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_SpriteImport::aRawFileThatCannotBeOpenedLeavesTheNewBank()
{
    QFETCH(QString, name);
    const QString pipe = m_folder->filePath("pipe.spr");
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QVERIFY(QDir(m_folder->path()).mkdir("folder.spr"));
    QFile huge(m_folder->filePath("huge.spr"));
    QVERIFY(huge.open(QIODevice::WriteOnly));
    QVERIFY(huge.resize(100 * 1024 * 1024));
    Project project;

    const Outcome outcome =
        importRaw(&project, nullptr, m_folder->filePath(name), CreatePalette, QUuid());

    QVERIFY(outcome.created);
    QCOMPARE(outcome.bank->count(), 1);
}

QTEST_GUILESS_MAIN(tst_SpriteImport)
#include "tst_SpriteImport.moc"
