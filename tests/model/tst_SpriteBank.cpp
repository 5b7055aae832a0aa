#include "model/SpriteBank.h"

#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "support/SpriteBankLog.h"
#include "support/TestImages.h"
#include "support/TestSprites.h"

#include <QTest>

#include <memory>

using Tessaril::Sprite;

class tst_SpriteBank : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aNewBankHasOneBlankSprite();
    void bindingAPaletteSetsTheColours();
    void aColourChangeReadsAllColoursAgain();
    void rebindingDropsTheOldPalette();
    void settingASpriteCopiesIndices();
    void settingASpriteReadsNoFurtherThanThePicture_data();
    void settingASpriteReadsNoFurtherThanThePicture();
    void settingASpriteRefuses_data();
    void settingASpriteRefuses();
    void spritesAreCopies();
    void createsAnimationsWithOneFrame();
    void entersAndRemovesAnimations();
    void aLaterAnimationOfOneIdReplacesTheEarlier();
    void restoresStripAndAnimations();
    void restoringKeepsThePalettesColours();
    void animationsWithoutAStateBecomeEmpty();
    void statesDifferByIndicesNotLooks();

private:
    std::unique_ptr<Palette> m_palette;
};

void tst_SpriteBank::init()
{
    m_palette = std::make_unique<Palette>();
    m_palette->setDefaultColours();
}

void tst_SpriteBank::aNewBankHasOneBlankSprite()
{
    const SpriteBank bank(Sprite::FourBit);

    QCOMPARE(bank.count(), 1);
    QCOMPARE(bank.transparency(), 227);
    QVERIFY(!bank.id().isNull());
    QVERIFY(bank.name().isEmpty());
    QCOMPARE(bank.depth(), Sprite::FourBit);
    QCOMPARE(bank.offsets(), QByteArray(1, '\0'));
    QCOMPARE(bank.image().size(), QSize(16, 16));
    QCOMPARE(bank.image().format(), QImage::Format_Indexed8);
    QCOMPARE(TestImages::rows(bank.image()), QStringList(16, "0000000000000000"));
    QVERIFY(bank.palette().isNull());
    QVERIFY(bank.animations().isEmpty());
    QCOMPARE(SpriteBank(Sprite::EightBit).depth(), Sprite::EightBit);
}

void tst_SpriteBank::bindingAPaletteSetsTheColours()
{
    SpriteBank bank(Sprite::EightBit);
    m_palette->setTransparencyIndex(1);

    bank.setPalette(m_palette.get());

    QCOMPARE(bank.palette().data(), m_palette.get());
    QCOMPARE(bank.image().colorTable(), m_palette->colourTable());
}

void tst_SpriteBank::aColourChangeReadsAllColoursAgain()
{
    SpriteBank bank(Sprite::EightBit);
    bank.setPalette(m_palette.get());
    SpriteBankLog log(&bank);
    m_palette->setWord(9, 0xFF01); // silent

    m_palette->setColour(200, QColor(219, 0, 0), true);

    QCOMPARE(bank.image().color(9), qRgb(255, 255, 255));
    QCOMPARE(bank.image().color(200), qRgb(255, 0, 0));
    QCOMPARE(bank.image().colorTable(), m_palette->colourTable());
    QVERIFY(log.sent.isEmpty());
}

void tst_SpriteBank::rebindingDropsTheOldPalette()
{
    Palette other;
    SpriteBank bank(Sprite::EightBit);
    bank.setPalette(m_palette.get());
    bank.setPalette(&other);
    other.setWord(1, 0xFF01); // silent: shows whether the table is read again

    m_palette->setColour(1, QColor(0, 255, 0), false);
    QCOMPARE(bank.image().color(1), qRgb(0, 0, 0));

    bank.setPalette(nullptr);
    other.setColour(2, QColor(0, 255, 0), false);
    QVERIFY(bank.palette().isNull());
    QCOMPARE(bank.image().color(1), qRgb(0, 0, 0));
}

void tst_SpriteBank::settingASpriteCopiesIndices()
{
    SpriteBank bank(Sprite::EightBit);
    bank.setPalette(m_palette.get());
    TestSprites::fill(bank, 3);
    QImage image = TestSprites::filled(0xE3);
    image.setColorTable(QList<QRgb>(256, qRgb(1, 1, 1)));
    image.setPixel(15, 15, 7);
    SpriteBankLog log(&bank);

    bank.setImage(1, image);

    QCOMPARE(TestSprites::values(bank), QList<int>({1, 0xE3, 3}));
    QCOMPARE(bank.image().pixelIndex(15, 31), 7);
    QCOMPARE(bank.image().pixelIndex(15, 15), 1);
    QCOMPARE(bank.image().pixelIndex(0, 32), 3);
    QCOMPARE(bank.image().colorTable(), m_palette->colourTable());
    QCOMPARE(log.sent, QStringList{"image 1"});
}

void tst_SpriteBank::settingASpriteReadsNoFurtherThanThePicture_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("narrow") << QSize(3, 16);
    QTest::newRow("low") << QSize(16, 1);
    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("large") << QSize(40, 50);
}

void tst_SpriteBank::settingASpriteReadsNoFurtherThanThePicture()
{
    QFETCH(QSize, size);
    SpriteBank bank(Sprite::EightBit);
    TestSprites::fill(bank, 3);
    QImage image(size, QImage::Format_Indexed8);
    image.fill(9);

    bank.setImage(1, image);

    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 16; ++x) {
            const bool isInside = y >= 16 && y < 32 && QRect({0, 16}, size).contains(x, y);
            QCOMPARE(bank.image().pixelIndex(x, y), isInside ? 9 : y / 16 + 1);
        }
    }
}

void tst_SpriteBank::settingASpriteRefuses_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QImage>("image");
    QTest::newRow("below") << -1 << TestSprites::filled(9);
    QTest::newRow("beyond") << 2 << TestSprites::filled(9);
    QTest::newRow("no picture") << 0 << QImage();
    QTest::newRow("32 bits") << 0 << QImage(16, 16, QImage::Format_RGB32);
    QTest::newRow("one bit") << 0 << QImage(16, 16, QImage::Format_Mono);
}

void tst_SpriteBank::settingASpriteRefuses()
{
    QFETCH(int, index);
    QFETCH(QImage, image);
    SpriteBank bank(Sprite::EightBit);
    TestSprites::fill(bank, 2);
    SpriteBankLog log(&bank);

    bank.setImage(index, image);

    QCOMPARE(TestSprites::values(bank), QList<int>({1, 2}));
    QVERIFY(log.sent.isEmpty());
}

void tst_SpriteBank::spritesAreCopies()
{
    SpriteBank bank(Sprite::EightBit);
    bank.setPalette(m_palette.get());
    TestSprites::fill(bank, 2);

    QImage copy = bank.sprite(1);

    QCOMPARE(copy.size(), QSize(16, 16));
    QCOMPARE(copy.format(), QImage::Format_Indexed8);
    QCOMPARE(copy.colorTable(), m_palette->colourTable());
    QCOMPARE(TestImages::rows(copy), QStringList(16, "2222222222222222"));
    copy.fill(9);
    QCOMPARE(TestSprites::values(bank), QList<int>({1, 2}));
    QVERIFY(bank.sprite(-1).isNull());
    QVERIFY(bank.sprite(2).isNull());
}

void tst_SpriteBank::createsAnimationsWithOneFrame()
{
    SpriteBank bank(Sprite::EightBit);
    SpriteBankLog log(&bank);

    const QPointer<SpriteAnim> animation = bank.createAnimation();

    QCOMPARE(animation->bank(), &bank);
    QCOMPARE(animation->frameCount(), 1);
    QCOMPARE(animation->frame(0)->cells(), AnimationFrame::Cells({{AnimationFrame::Cell{}}}));
    QCOMPARE(bank.animation(animation->id()), animation);
    QCOMPARE(log.sent, QStringList{"animations"});
}

void tst_SpriteBank::entersAndRemovesAnimations()
{
    SpriteBank bank(Sprite::EightBit);
    const QPointer<SpriteAnim> animation = new SpriteAnim(&bank);
    const QUuid id = animation->id();
    SpriteBankLog log(&bank);

    bank.addAnimation(animation);
    QCOMPARE(bank.animation(id), animation);
    bank.removeAnimation(QUuid::createUuid());
    QCOMPARE(log.sent, QStringList{"animations"});

    bank.removeAnimation(id);
    QVERIFY(animation.isNull());
    QVERIFY(bank.animation(id).isNull());
    QCOMPARE(log.sent, QStringList({"animations", "animations"}));
}

void tst_SpriteBank::aLaterAnimationOfOneIdReplacesTheEarlier()
{
    SpriteBank bank(Sprite::EightBit);
    const QPointer<SpriteAnim> earlier = bank.createAnimation();
    auto *later = new SpriteAnim(&bank);
    later->setId(earlier->id());

    bank.addAnimation(later);

    QVERIFY(earlier.isNull());
    QCOMPARE(bank.animations().size(), 1);
    QCOMPARE(bank.animation(later->id()), later);
    bank.addAnimation(later);
    QCOMPARE(bank.animation(later->id()), later);
}

void tst_SpriteBank::restoresStripAndAnimations()
{
    SpriteBank bank(Sprite::EightBit);
    TestSprites::fill(bank, 3);
    const QPointer<SpriteAnim> animation = bank.createAnimation();
    animation->setDelay(2);
    animation->frame(0)->setCell({0, 0}, {2, 0, false, false, false});
    const SpriteBank::State before = bank.state();
    bank.deleteSprite(0);
    animation->setDelay(0);
    animation->addFrame();
    SpriteBankLog log(&bank);

    bank.restore(before);

    QCOMPARE(TestSprites::values(bank), QList<int>({1, 2, 3}));
    QCOMPARE(animation->frameCount(), 1);
    QCOMPARE(animation->delay(), 2);
    QCOMPARE(animation->frame(0)->cell({0, 0}).index, 2);
    QCOMPARE(log.sent, QStringList({"count", "restored"}));
    QVERIFY(bank.state() == before);
}

void tst_SpriteBank::restoringKeepsThePalettesColours()
{
    SpriteBank bank(Sprite::EightBit);
    bank.setPalette(m_palette.get());
    const SpriteBank::State before = bank.state();
    m_palette->setColour(4, QColor(255, 0, 0), false);

    bank.restore(before);

    QCOMPARE(bank.image().color(4), qRgb(255, 0, 0));
}

void tst_SpriteBank::animationsWithoutAStateBecomeEmpty()
{
    SpriteBank bank(Sprite::EightBit);
    const SpriteBank::State before = bank.state();
    const QPointer<SpriteAnim> late = bank.createAnimation();
    late->setSize({3, 2});

    bank.restore(before);

    QCOMPARE(bank.animation(late->id()), late);
    QCOMPARE(late->frameCount(), 0);
    QCOMPARE(late->size(), QSize(1, 1));
    bank.deleteSprite(0);
}

void tst_SpriteBank::statesDifferByIndicesNotLooks()
{
    Palette black;
    SpriteBank bank(Sprite::EightBit);
    bank.setPalette(&black);
    const SpriteBank::State before = bank.state();

    bank.setImage(0, TestSprites::filled(5));
    QVERIFY(bank.state() != before);

    bank.restore(before);
    QVERIFY(bank.state() == before);
    bank.addSprite();
    QVERIFY(bank.state() != before);
}

QTEST_GUILESS_MAIN(tst_SpriteBank)
#include "tst_SpriteBank.moc"
