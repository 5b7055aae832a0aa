#include "mapeditor/SpritePlayback.h"

#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "support/TestSprites.h"

#include <QTest>

using namespace MapEditor;

class tst_SpritePlayback : public QObject
{
    Q_OBJECT

private slots:
    void theFrameFollowsTheTicks_data();
    void theFrameFollowsTheTicks();
    void aStillSpriteCoversSixteenPixels();
    void whatIsNotFoundHasNoBoundsAndNoPicture();
    void anAnimationCoversItsCells();
    void anAnimationShowsTheFrameOfTheTick();
    void cellsTakeThePaletteOffsetOfTheSprite();
    void cellsTurnByThemselvesThenAllTogether();
    void aStillSpriteTurnsWithItsOffset();
    void anAnimationWithoutFramesShowsNothing();

private:
    static Map::PlacedSprite animated(const SpriteAnim &animation);
};

Map::PlacedSprite tst_SpritePlayback::animated(const SpriteAnim &animation)
{
    Map::PlacedSprite sprite;
    sprite.bank = animation.bank()->id();
    sprite.animation = animation.id();
    sprite.x = 5;
    sprite.y = -3;
    return sprite;
}

void tst_SpritePlayback::theFrameFollowsTheTicks_data()
{
    QTest::addColumn<QList<int>>("timing"); // start, initial delay, repeat delay, count, delay
    QTest::addColumn<int>("ticks");
    QTest::addColumn<int>("expected");

    const QList<int> pausing{1, 3, 5, 4, 2};
    const QList<int> framesOfPausing{1, 1, 1, 1, 1, 2, 2, 3, 3, 0, 0, 0, 0, 0, 0, 0, 1, 1, 2};
    for (int tick = 0; tick < framesOfPausing.size(); ++tick)
        QTest::addRow("pausing at %d", tick) << pausing << tick << framesOfPausing.at(tick);
    const QList<int> looping{1, 3, 0, 4, 2};
    const QList<int> framesOfLooping{1, 1, 1, 1, 1, 2, 2, 3, 3, 0, 0, 1, 1, 2};
    for (int tick = 0; tick < framesOfLooping.size(); ++tick)
        QTest::addRow("looping at %d", tick) << looping << tick << framesOfLooping.at(tick);
    QTest::newRow("start beyond the end") << QList<int>{99, 0, 0, 4, 0} << 7 << 3;
    QTest::newRow("start before the first") << QList<int>{-5, 0, 0, 4, 0} << 7 << 0;
    QTest::newRow("without delay") << QList<int>{2, 0, 0, 4, 0} << 1000 << 2;
    QTest::newRow("negative pause") << QList<int>{0, 0, -3, 4, 2} << 8 << 0;
    QTest::newRow("no frames") << QList<int>{3, 0, 0, 0, 2} << 8 << 0;
}

void tst_SpritePlayback::theFrameFollowsTheTicks()
{
    QFETCH(QList<int>, timing);
    QFETCH(int, ticks);

    QTEST(frameAt({timing.at(0), timing.at(1), timing.at(2), timing.at(3), timing.at(4)}, ticks),
          "expected");
}

void tst_SpritePlayback::aStillSpriteCoversSixteenPixels()
{
    SpriteBank bank(Tessaril::Sprite::EightBit);
    TestSprites::fill(bank, 3);
    Map::PlacedSprite sprite;
    sprite.bank = bank.id();
    sprite.sprite = 2;
    sprite.x = 5;
    sprite.y = 7;

    QCOMPARE(spriteBounds({&bank}, sprite), QRect(5, 7, 16, 16));
    QCOMPARE(spriteImage({&bank}, sprite, 0), bank.spriteImage(2, 0, false, false, false));
}

void tst_SpritePlayback::whatIsNotFoundHasNoBoundsAndNoPicture()
{
    SpriteBank bank(Tessaril::Sprite::EightBit);
    Map::PlacedSprite sprite;
    sprite.bank = bank.id();
    for (const int index : {-1, 1}) {
        sprite.sprite = index;
        QVERIFY(!spriteBounds({&bank}, sprite).isValid());
        QVERIFY(spriteImage({&bank}, sprite, 0).isNull());
    }
    sprite.sprite = 0;
    QVERIFY(!spriteBounds({nullptr}, sprite).isValid());
    QVERIFY(spriteImage({nullptr}, sprite, 0).isNull());

    sprite.animation = QUuid::createUuid();
    QVERIFY(!spriteBounds({&bank}, sprite).isValid());
    QVERIFY(spriteImage({&bank}, sprite, 0).isNull());
}

void tst_SpritePlayback::anAnimationCoversItsCells()
{
    SpriteBank bank(Tessaril::Sprite::EightBit);
    SpriteAnim *animation = bank.createAnimation();
    animation->setSize({3, 2});
    Map::PlacedSprite sprite = animated(*animation);

    QCOMPARE(spriteBounds({&bank}, sprite), QRect(5, -3, 48, 32));
    QCOMPARE(spriteImage({&bank}, sprite, 0).size(), QSize(48, 32));
    sprite.rotate = true;
    QCOMPARE(spriteBounds({&bank}, sprite), QRect(5, -3, 32, 48));
    QCOMPARE(spriteImage({&bank}, sprite, 0).size(), QSize(32, 48));
}

void tst_SpritePlayback::anAnimationShowsTheFrameOfTheTick()
{
    Palette palette;
    palette.setDefaultColours();
    SpriteBank bank(Tessaril::Sprite::EightBit);
    bank.setPalette(&palette);
    TestSprites::fill(bank, 2);
    SpriteAnim *animation = bank.createAnimation();
    animation->setSize({2, 1});
    animation->setDelay(2);
    animation->frame(0)->setCell({1, 0}, {.index = 1});
    animation->addFrame()->setCell({0, 0}, {.index = 1});
    Map::PlacedSprite sprite = animated(*animation);
    const auto colourOf = [&bank](int index) {
        return bank.spriteImage(index, 0, false, false, false).pixelColor(0, 0);
    };
    QVERIFY(colourOf(0) != colourOf(1));

    QImage image = spriteImage({&bank}, sprite, 1);
    QCOMPARE(image.pixelColor(0, 0), colourOf(0));
    QCOMPARE(image.pixelColor(16, 0), colourOf(1));
    image = spriteImage({&bank}, sprite, 2);
    QCOMPARE(image.pixelColor(0, 0), colourOf(1));
    QCOMPARE(image.pixelColor(16, 0), colourOf(0));
    sprite.mirror = true;
    image = spriteImage({&bank}, sprite, 2);
    QCOMPARE(image.pixelColor(0, 0), colourOf(0));
    QCOMPARE(image.pixelColor(16, 0), colourOf(1));
}

void tst_SpritePlayback::cellsTakeThePaletteOffsetOfTheSprite()
{
    Palette palette;
    palette.setDefaultColours();
    SpriteBank bank(Tessaril::Sprite::FourBit);
    bank.setPalette(&palette);
    TestSprites::fill(bank, 1);
    SpriteAnim *animation = bank.createAnimation();
    animation->frame(0)->setCell({0, 0}, {.index = 0, .offset = 7});
    Map::PlacedSprite sprite = animated(*animation);
    sprite.paletteOffset = 2;

    QCOMPARE(spriteImage({&bank}, sprite, 0).pixelColor(3, 3),
             bank.spriteImage(0, 2, false, false, false).pixelColor(3, 3));
    QVERIFY(spriteImage({&bank}, sprite, 0).pixelColor(3, 3) !=
            bank.spriteImage(0, 7, false, false, false).pixelColor(3, 3));
}

void tst_SpritePlayback::cellsTurnByThemselvesThenAllTogether()
{
    Palette palette;
    palette.setDefaultColours();
    SpriteBank bank(Tessaril::Sprite::EightBit);
    bank.setPalette(&palette);
    QImage marked = TestSprites::filled(100);
    marked.bits()[0] = 200;
    bank.setImage(0, marked);
    SpriteAnim *animation = bank.createAnimation();
    animation->setSize({2, 1});
    animation->frame(0)->setCell({1, 0}, {.index = 0, .mirror = true});
    Map::PlacedSprite sprite = animated(*animation);
    const QColor mark = bank.spriteImage(0, 0, false, false, false).pixelColor(0, 0);
    const auto marks = [&bank, &sprite, mark] {
        const QImage image = spriteImage({&bank}, sprite, 0);
        QList<QPoint> found;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == mark)
                    found.append({x, y});
            }
        }
        return found;
    };

    QCOMPARE(marks(), QList<QPoint>({{0, 0}, {31, 0}}));
    sprite.flip = true;
    QCOMPARE(marks(), QList<QPoint>({{0, 15}, {31, 15}}));
    sprite.rotate = true; // a quarter turn clockwise first, so both stand at the right
    QCOMPARE(marks(), QList<QPoint>({{15, 0}, {15, 31}}));
    sprite.mirror = true;
    QCOMPARE(marks(), QList<QPoint>({{0, 0}, {0, 31}}));
}

void tst_SpritePlayback::aStillSpriteTurnsWithItsOffset()
{
    Palette palette;
    palette.setDefaultColours();
    SpriteBank bank(Tessaril::Sprite::FourBit);
    bank.setPalette(&palette);
    QImage marked = TestSprites::filled(3);
    marked.bits()[0] = 9;
    bank.setImage(0, marked);
    Map::PlacedSprite sprite;
    sprite.bank = bank.id();
    sprite.sprite = 0;
    sprite.rotate = true;
    sprite.paletteOffset = 2;

    const QImage image = spriteImage({&bank}, sprite, 50);

    QCOMPARE(image, bank.spriteImage(0, 2, true, false, false));
    QCOMPARE(image.pixelColor(15, 0), palette.colour(2 * 16 + 9));
}

void tst_SpritePlayback::anAnimationWithoutFramesShowsNothing()
{
    SpriteBank bank(Tessaril::Sprite::EightBit);
    SpriteAnim *animation = bank.createAnimation();
    animation->clearFrames();

    QVERIFY(spriteImage({&bank}, animated(*animation), 0).isNull());
    QVERIFY(spriteImage({&bank}, animated(*animation), 99).isNull());
}

QTEST_GUILESS_MAIN(tst_SpritePlayback)

#include "tst_SpritePlayback.moc"
