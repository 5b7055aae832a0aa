#include "model/SpriteBank.h"

#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "support/SpriteBankLog.h"
#include "support/TestImages.h"
#include "support/TestSprites.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using Tessaril::Sprite;

/// Sprites that come, go and move.
class tst_SpriteBankOrder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void addingKeepsSpritesAndColours();
    void addingSendsOnlyIfAsked();
    void deletingTheLastSpriteClearsIt();
    void deletingTakesOneSpriteOut_data();
    void deletingTakesOneSpriteOut();
    void deletingRenumbersTheCellsOfAllFrames();
    void listenersOfADeletionFindAllRenumbered();
    void deletingOutOfRangeDoesNothing_data();
    void deletingOutOfRangeDoesNothing();
    void movingUpSwapsNeighbours();
    void movingDownSwapsNeighbours();
    void movingKeepsTheLookOfAllFrames_data();
    void movingKeepsTheLookOfAllFrames();
    void listenersOfAMoveFindAllRenumbered();
    void movingNothingSendsNothing_data();
    void movingNothingSendsNothing();
    void clearingASprite();

private:
    std::unique_ptr<Palette> m_palette;
};

void tst_SpriteBankOrder::init()
{
    m_palette = std::make_unique<Palette>();
    m_palette->setDefaultColours();
}

void tst_SpriteBankOrder::addingKeepsSpritesAndColours()
{
    SpriteBank bank(Sprite::EightBit);
    bank.setPalette(m_palette.get());
    TestSprites::fill(bank, 2);

    bank.addSprite();

    QCOMPARE(bank.count(), 3);
    QCOMPARE(bank.image().size(), QSize(16, 48));
    QCOMPARE(TestSprites::plainValues(bank), QList<int>({1, 2, 0}));
    QCOMPARE(TestImages::rows(bank.sprite(2)), QStringList(16, "0000000000000000"));
    QCOMPARE(TestImages::rows(bank.sprite(1)), QStringList(16, "2222222222222222"));
    QCOMPARE(bank.image().colorTable(), m_palette->colourTable());
}

void tst_SpriteBankOrder::addingSendsOnlyIfAsked()
{
    SpriteBank bank(Sprite::EightBit);
    SpriteBankLog log(&bank);

    bank.addSprite(false);
    QVERIFY(log.sent.isEmpty());
    bank.addSprite(true);
    bank.addSprite();

    QCOMPARE(log.sent, QStringList({"count", "count"}));
    QCOMPARE(bank.count(), 4);
}

void tst_SpriteBankOrder::deletingTheLastSpriteClearsIt()
{
    SpriteBank bank(Sprite::EightBit);
    TestSprites::fill(bank, 1);
    SpriteBankLog log(&bank);

    bank.deleteSprite(0);

    QCOMPARE(bank.count(), 1);
    QCOMPARE(TestImages::rows(bank.image()), QStringList(16, "0000000000000000"));
    QVERIFY(log.sent.isEmpty());
}

void tst_SpriteBankOrder::deletingTakesOneSpriteOut_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QList<int>>("left");
    QTest::newRow("first") << 0 << QList<int>{2, 3, 4};
    QTest::newRow("middle") << 2 << QList<int>{1, 2, 4};
    QTest::newRow("last") << 3 << QList<int>{1, 2, 3};
}

void tst_SpriteBankOrder::deletingTakesOneSpriteOut()
{
    QFETCH(int, index);
    SpriteBank bank(Sprite::EightBit);
    bank.setPalette(m_palette.get());
    TestSprites::fill(bank, 4);
    SpriteBankLog log(&bank);
    int countWhenTold = 0;
    connect(&bank, &SpriteBank::spriteDeleted, this, [&] { countWhenTold = bank.count(); });

    bank.deleteSprite(index);

    QTEST(TestSprites::plainValues(bank), "left");
    QCOMPARE(bank.image().size(), QSize(16, 48));
    QCOMPARE(bank.image().colorTable(), m_palette->colourTable());
    QCOMPARE(countWhenTold, 3);
    QCOMPARE(log.sent, QStringList({"deleted " + QString::number(index), "count"}));
}

void tst_SpriteBankOrder::deletingRenumbersTheCellsOfAllFrames()
{
    SpriteBank bank(Sprite::EightBit);
    TestSprites::fill(bank, 5);
    const QPointer<SpriteAnim> first = bank.createAnimation();
    const QPointer<SpriteAnim> second = bank.createAnimation();
    first->setSize({3, 1});
    first->addFrame();
    for (int x = 0; x < 3; ++x)
        first->frame(1)->setCell({x, 0}, {x + 1, 4, true, false, true});
    second->setSize({1, 2});
    second->frame(0)->setCell({0, 1}, {4, 0, false, false, false});
    QSignalSpy frameChanged(first, &Animation::frameChanged);

    bank.deleteSprite(2);

    const AnimationFrame::Cells cells{
        {{1, 4, true, false, true}, {0, 4, true, false, true}, {2, 4, true, false, true}}};
    QCOMPARE(first->frame(1)->cells(), cells);
    QCOMPARE(second->frame(0)->cell({0, 1}).index, 3);
    QCOMPARE(second->frame(0)->cell({0, 0}).index, 0);
    QCOMPARE(frameChanged.count(), 0);
}

void tst_SpriteBankOrder::listenersOfADeletionFindAllRenumbered()
{
    SpriteBank bank(Sprite::EightBit);
    TestSprites::fill(bank, 3);
    const QPointer<SpriteAnim> animation = bank.createAnimation();
    animation->frame(0)->setCell({0, 0}, {2, 0, false, false, false});
    QList<QSize> found; // count and index
    const auto look = [&] { found << QSize(bank.count(), animation->frame(0)->cell({}).index); };
    connect(&bank, &SpriteBank::spriteDeleted, this, look);
    connect(&bank, &SpriteBank::countChanged, this, look);

    bank.deleteSprite(1);

    QCOMPARE(found, QList<QSize>(2, QSize(2, 1)));
}

void tst_SpriteBankOrder::deletingOutOfRangeDoesNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("below") << -1;
    QTest::newRow("beyond") << 5;
}

void tst_SpriteBankOrder::deletingOutOfRangeDoesNothing()
{
    QFETCH(int, index);
    SpriteBank bank(Sprite::EightBit);
    TestSprites::fill(bank, 5);
    SpriteBankLog log(&bank);

    bank.deleteSprite(index);

    QCOMPARE(TestSprites::plainValues(bank), QList<int>({1, 2, 3, 4, 5}));
    QVERIFY(log.sent.isEmpty());
}

void tst_SpriteBankOrder::movingUpSwapsNeighbours()
{
    SpriteBank bank(Sprite::EightBit);
    TestSprites::fill(bank, 5);
    SpriteBankLog log(&bank);

    bank.moveSprite(1, 3);

    QCOMPARE(TestSprites::plainValues(bank), QList<int>({1, 3, 4, 2, 5}));
    QCOMPARE(log.sent, QStringList({"image 1", "swapped 1 2", "image 2", "swapped 2 3", "image 3",
                                    "swapped 3 1", "moved 1 3"}));
}

void tst_SpriteBankOrder::movingDownSwapsNeighbours()
{
    SpriteBank bank(Sprite::EightBit);
    TestSprites::fill(bank, 4);
    SpriteBankLog log(&bank);

    bank.moveSprite(3, 1);

    QCOMPARE(TestSprites::plainValues(bank), QList<int>({1, 4, 2, 3}));
    QCOMPARE(log.sent, QStringList({"image 3", "swapped 3 2", "image 2", "swapped 2 1", "image 1",
                                    "swapped 1 3", "moved 3 1"}));
}

void tst_SpriteBankOrder::movingKeepsTheLookOfAllFrames_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QList<int>>("cells"); // which were 0 to 4
    QTest::newRow("up") << 1 << 3 << QList<int>{0, 3, 1, 2, 4};
    QTest::newRow("down") << 4 << 0 << QList<int>{1, 2, 3, 4, 0};
}

void tst_SpriteBankOrder::movingKeepsTheLookOfAllFrames()
{
    QFETCH(int, from);
    QFETCH(int, to);
    SpriteBank bank(Sprite::EightBit);
    TestSprites::fill(bank, 5);
    const QPointer<SpriteAnim> first = bank.createAnimation();
    const QPointer<SpriteAnim> second = bank.createAnimation();
    first->setSize({5, 1});
    first->addFrame();
    for (int x = 0; x < 5; ++x)
        first->frame(1)->setCell({x, 0}, {x, 4, true, false, true});
    second->frame(0)->setCell({0, 0}, {from, 0, false, false, false});
    QSignalSpy frameChanged(first, &Animation::frameChanged);

    bank.moveSprite(from, to);

    QList<int> cells;
    for (int x = 0; x < 5; ++x) {
        const AnimationFrame::Cell cell = first->frame(1)->cell({x, 0});
        QCOMPARE(cell, (AnimationFrame::Cell{cell.index, 4, true, false, true}));
        cells << cell.index;
    }
    QTEST(cells, "cells");
    QCOMPARE(second->frame(0)->cell({0, 0}).index, to);
    QCOMPARE(frameChanged.count(), 0);
}

void tst_SpriteBankOrder::listenersOfAMoveFindAllRenumbered()
{
    SpriteBank bank(Sprite::EightBit);
    TestSprites::fill(bank, 3);
    const QPointer<SpriteAnim> animation = bank.createAnimation();
    animation->frame(0)->setCell({0, 0}, {2, 0, false, false, false});
    const auto cell = [&] { return animation->frame(0)->cell({}).index; };
    QList<int> atPictures;
    connect(&bank, &SpriteBank::imageChanged, this, [&] { atPictures << cell(); });
    QList<int> atMoves;
    connect(&bank, &SpriteBank::spriteMoved, this, [&] { atMoves << cell(); });

    bank.moveSprite(2, 0);

    QCOMPARE(atPictures.last(), 0);
    QCOMPARE(atMoves, QList<int>{0});
}

void tst_SpriteBankOrder::movingNothingSendsNothing_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::newRow("onto itself") << 1 << 1;
    QTest::newRow("from below") << -1 << 1;
    QTest::newRow("from beyond") << 3 << 1;
    QTest::newRow("to below") << 1 << -1;
    QTest::newRow("to beyond") << 1 << 3;
}

void tst_SpriteBankOrder::movingNothingSendsNothing()
{
    QFETCH(int, from);
    QFETCH(int, to);
    SpriteBank bank(Sprite::EightBit);
    TestSprites::fill(bank, 3);
    SpriteBankLog log(&bank);

    bank.moveSprite(from, to);

    QCOMPARE(TestSprites::plainValues(bank), QList<int>({1, 2, 3}));
    QVERIFY(log.sent.isEmpty());
}

void tst_SpriteBankOrder::clearingASprite()
{
    SpriteBank bank(Sprite::EightBit);
    TestSprites::fill(bank, 3);
    SpriteBankLog log(&bank);

    bank.clearSprite(1);
    bank.clearSprite(3);

    QCOMPARE(TestImages::rows(bank.sprite(1)), QStringList(16, "0000000000000000"));
    QCOMPARE(TestSprites::plainValues(bank), QList<int>({1, 0, 3}));
    QCOMPARE(log.sent, QStringList{"image 1"});
}

QTEST_GUILESS_MAIN(tst_SpriteBankOrder)
#include "tst_SpriteBankOrder.moc"
