#include "model/SpriteAnim.h"

#include "model/SpriteBank.h"

#include <QTest>

namespace {

constexpr int Side = SpriteBank::SpriteSide;

/// A bank whose sprite i is filled with index i + 1, but for its top left pixel of index 9. Table
/// entry i is (i, 0, 0).
std::unique_ptr<SpriteBank> plainBank(int count)
{
    auto bank = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
    QImage strip(Side, Side * count, QImage::Format_Indexed8);
    QList<QRgb> table;
    for (int i = 0; i < 256; ++i)
        table << qRgb(i, 0, 0);
    strip.setColorTable(table);
    for (int y = 0; y < strip.height(); ++y) {
        for (int x = 0; x < Side; ++x)
            strip.setPixel(x, y, static_cast<uint>(y / Side + 1));
    }
    for (int i = 0; i < count; ++i)
        strip.setPixel(0, i * Side, 9);
    bank->setStrip(strip);
    return bank;
}

} // namespace

class tst_SpriteAnim : public QObject
{
    Q_OBJECT

private slots:
    void aNewAnimationHasANameAndOneFrame();
    void theThumbnailDrawsTheCellsInTheirPlaces();
    void theThumbnailTurnsSprites_data();
    void theThumbnailTurnsSprites();
    void theThumbnailIgnoresPaletteOffsets();
    void theThumbnailIsScaledIntoTheSize();
    void spritesOutOfRangeAreLeftTransparent();
    void withoutFramesTheThumbnailIsTransparent();
    void aBankWithoutColoursStillHasAThumbnail();
};

void tst_SpriteAnim::aNewAnimationHasANameAndOneFrame()
{
    const auto bank = plainBank(1);
    const SpriteAnim animation(bank.get());

    QCOMPARE(animation.name(), QStringLiteral("New Sprite"));
    QCOMPARE(animation.isSprite(), true);
    QCOMPARE(animation.frameCount(), 1);
    QCOMPARE(animation.frame(0)->cells(), (AnimationFrame::Cells{{AnimationFrame::Cell()}}));
    QCOMPARE(animation.parent(), bank.get());
    QCOMPARE(animation.bank(), bank.get());
}

void tst_SpriteAnim::theThumbnailDrawsTheCellsInTheirPlaces()
{
    const auto bank = plainBank(3);
    SpriteAnim animation(bank.get());
    animation.setSize({2, 1});
    animation.frame(0)->setCell({0, 0}, {.index = 2});
    animation.frame(0)->setCell({1, 0}, {.index = 1});
    animation.addFrame();

    const QImage image = animation.thumbnail({32, 16});

    QCOMPARE(image.size(), QSize(32, 16));
    QCOMPARE(image.format(), QImage::Format_ARGB32);
    QCOMPARE(image.pixel(0, 0), qRgb(9, 0, 0));
    QCOMPARE(image.pixel(15, 15), qRgb(3, 0, 0));
    QCOMPARE(image.pixel(16, 0), qRgb(9, 0, 0));
    QCOMPARE(image.pixel(31, 15), qRgb(2, 0, 0));
}

void tst_SpriteAnim::theThumbnailTurnsSprites_data()
{
    QTest::addColumn<bool>("rotate");
    QTest::addColumn<bool>("flip");
    QTest::addColumn<bool>("mirror");
    QTest::addColumn<QPoint>("corner");
    QTest::newRow("as it is") << false << false << false << QPoint(0, 0);
    QTest::newRow("rotated") << true << false << false << QPoint(15, 0);
    QTest::newRow("flipped") << false << true << false << QPoint(0, 15);
    QTest::newRow("mirrored") << false << false << true << QPoint(15, 0);
    QTest::newRow("all three") << true << true << true << QPoint(0, 15);
}

void tst_SpriteAnim::theThumbnailTurnsSprites()
{
    QFETCH(bool, rotate);
    QFETCH(bool, flip);
    QFETCH(bool, mirror);
    QFETCH(QPoint, corner);
    const auto bank = plainBank(1);
    SpriteAnim animation(bank.get());
    animation.frame(0)->setCell({0, 0}, {0, 0, flip, mirror, rotate});

    const QImage image = animation.thumbnail({16, 16});

    for (const QPoint place : {QPoint(0, 0), QPoint(15, 0), QPoint(0, 15), QPoint(15, 15)})
        QCOMPARE(image.pixel(place), place == corner ? qRgb(9, 0, 0) : qRgb(1, 0, 0));
}

void tst_SpriteAnim::theThumbnailIgnoresPaletteOffsets()
{
    const auto bank = plainBank(1);
    SpriteAnim animation(bank.get());
    animation.frame(0)->setCell({0, 0}, {.index = 0, .offset = 5});

    QCOMPARE(animation.thumbnail({16, 16}).pixel(8, 8), qRgb(1, 0, 0));
}

void tst_SpriteAnim::theThumbnailIsScaledIntoTheSize()
{
    const auto bank = plainBank(1);
    SpriteAnim animation(bank.get());
    animation.setSize({2, 1});

    const QImage image = animation.thumbnail({64, 64});

    QCOMPARE(image.size(), QSize(64, 32));
    QCOMPARE(image.pixel(1, 1), qRgb(9, 0, 0));
    QCOMPARE(image.pixel(2, 2), qRgb(1, 0, 0));
}

void tst_SpriteAnim::spritesOutOfRangeAreLeftTransparent()
{
    const auto bank = plainBank(1);
    SpriteAnim animation(bank.get());
    animation.setSize({3, 1});
    animation.frame(0)->setCell({0, 0}, {.index = 1});
    animation.frame(0)->setCell({1, 0}, {.index = -1});

    const QImage image = animation.thumbnail({48, 16});

    QCOMPARE(qAlpha(image.pixel(8, 8)), 0);
    QCOMPARE(qAlpha(image.pixel(24, 8)), 0);
    QCOMPARE(image.pixel(40, 8), qRgb(1, 0, 0));
}

void tst_SpriteAnim::withoutFramesTheThumbnailIsTransparent()
{
    const auto bank = plainBank(1);
    SpriteAnim animation(bank.get());
    animation.restore({});

    const QImage image = animation.thumbnail({20, 20});

    QCOMPARE(image.size(), QSize(20, 20));
    QCOMPARE(qAlpha(image.pixel(10, 10)), 0);
}

void tst_SpriteAnim::aBankWithoutColoursStillHasAThumbnail()
{
    SpriteBank bank(Tessaril::Sprite::EightBit);
    QImage sprite(Side, Side, QImage::Format_Indexed8);
    sprite.fill(200);
    bank.setImage(0, sprite);

    const QImage image = SpriteAnim(&bank).thumbnail({16, 16});

    QCOMPARE(image.pixel(8, 8), qRgb(200, 200, 200));
}

QTEST_GUILESS_MAIN(tst_SpriteAnim)
#include "tst_SpriteAnim.moc"
