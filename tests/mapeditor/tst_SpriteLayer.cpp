#include "mapeditor/SpriteLayer.h"

#include "mapeditor/GridGeometry.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "support/TestSprites.h"

#include <QPainter>
#include <QTest>

#include <functional>
#include <memory>

using namespace MapEditor;

namespace {

constexpr QRect Area(0, 0, 300, 200);

} // namespace

class tst_SpriteLayer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void spritesAreDrawnInOrderAtTheZoom_data();
    void spritesAreDrawnInOrderAtTheZoom();
    void changesAreFollowed_data();
    void changesAreFollowed();
    void framesAreFollowedByTheTick();
    void spritesOffTheViewAreLeftOut();
    void manyDifferencesAreOne();
    void aHugePictureIsStretched();
    void oneSpriteIsDrawnByItself();

private:
    using Change = std::function<void(tst_SpriteLayer *)>;

    QRegion update() { return m_layer->update(m_sprites, m_banks, m_geometry, m_ticks, Area); }
    QImage painted();
    QImage plainly() const;
    Map::PlacedSprite still(int sprite, QPoint position) const;

    std::unique_ptr<Palette> m_palette;
    std::unique_ptr<SpriteBank> m_bank; // 6 sprites
    SpriteAnim *m_animation = nullptr;  // 2 by 1 cells, 2 frames, changes every 3 ticks
    SpriteBanks m_banks;
    QList<Map::PlacedSprite> m_sprites; // two still ones that overlap, and an animated one
    GridGeometry m_geometry;
    qint64 m_ticks = 0;
    std::unique_ptr<SpriteLayer> m_layer;
};

void tst_SpriteLayer::init()
{
    m_palette = std::make_unique<Palette>();
    m_palette->setDefaultColours();
    m_bank = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
    m_bank->setPalette(m_palette.get());
    TestSprites::fill(*m_bank, 6);
    for (int sprite = 0; sprite < 6; ++sprite) {
        QImage picture = m_bank->sprite(sprite);
        for (int i = 0; i < 16; ++i) {
            picture.setPixel(i, i / 2, static_cast<uint>(40 + sprite));
            picture.setPixel(3, i, SpriteBank::DefaultTransparency);
        }
        m_bank->setImage(sprite, picture);
    }
    m_animation = m_bank->createAnimation();
    m_animation->setSize({2, 1});
    m_animation->setDelay(3);
    m_animation->addFrame();
    for (int i = 0; i < 4; ++i)
        m_animation->frame(i / 2)->setCell({i % 2, 0}, {.index = i + 2});
    m_banks = {m_bank.get()};
    Map::PlacedSprite animated = still(-1, {30, 12});
    animated.animation = m_animation->id();
    animated.rotate = true;
    m_sprites = {still(0, {2, 3}), still(1, {9, 5}), animated};
    m_geometry = {.gridRect = {10, 4, 256, 192}, .cellSize = 16, .scroll = {0, 0}};
    m_ticks = 0;
    m_layer = std::make_unique<SpriteLayer>();
}

void tst_SpriteLayer::cleanup()
{
    m_layer.reset();
    m_bank.reset();
    m_palette.reset();
}

Map::PlacedSprite tst_SpriteLayer::still(int sprite, QPoint position) const
{
    Map::PlacedSprite placed;
    placed.bank = m_bank->id();
    placed.sprite = sprite;
    placed.x = position.x();
    placed.y = position.y();
    return placed;
}

QImage tst_SpriteLayer::painted()
{
    QImage image(Area.size(), QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QPainter painter(&image);
    m_layer->paint(painter, Area);
    return image;
}

/// The sprites as they are now, without anything kept.
QImage tst_SpriteLayer::plainly() const
{
    QImage image(Area.size(), QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QPainter painter(&image);
    for (const Map::PlacedSprite &sprite : m_sprites) {
        const QImage picture = spriteImage(m_banks, sprite, m_ticks);
        painter.drawImage(
            QRect(m_geometry.fromMapPixel({sprite.x, sprite.y}),
                  QSize(m_geometry.scaled(picture.width()), m_geometry.scaled(picture.height()))),
            picture);
    }
    return image;
}

void tst_SpriteLayer::spritesAreDrawnInOrderAtTheZoom_data()
{
    QTest::addColumn<int>("cellSize");
    for (const int size : {2, 4, 8, 16, 24, 32, 64})
        QTest::addRow("%d", size) << size;
}

void tst_SpriteLayer::spritesAreDrawnInOrderAtTheZoom()
{
    QFETCH(int, cellSize);
    update();
    m_geometry.cellSize = cellSize;

    QVERIFY(cellSize == 16 || !update().isEmpty());

    QCOMPARE(painted(), plainly());
    QCOMPARE(painted(), plainly()); // from what was kept
}

void tst_SpriteLayer::changesAreFollowed_data()
{
    QTest::addColumn<Change>("change");
    using Test = tst_SpriteLayer *;
    const auto add = [](const char *name, const Change &change) { QTest::newRow(name) << change; };
    add("pixels", [](Test t) { t->m_bank->setImage(1, TestSprites::filled(9)); });
    add("pixels of a frame", [](Test t) { t->m_bank->setImage(3, TestSprites::filled(9)); });
    add("a colour", [](Test t) { t->m_palette->setColour(1, Qt::magenta); });
    add("another palette", [](Test t) {
        Palette other;
        t->m_bank->setPalette(&other);
    });
    add("another transparent index", [](Test t) { t->m_bank->setTransparency(1); });
    add("a cell of a frame", [](Test t) {
        t->m_animation->frame(0)->setCell({1, 0}, {.index = 0});
    });
    add("turned cells", [](Test t) {
        t->m_animation->frame(0)->setCell({1, 0}, {.index = 3, .mirror = true});
    });
    add("another size of the frames", [](Test t) { t->m_animation->setSize({1, 1}); });
    add("no animation", [](Test t) { t->m_bank->removeAnimation(t->m_animation->id()); });
    add("a sprite less", [](Test t) { t->m_bank->deleteSprite(0); });
    add("the state of an undo", [](Test t) {
        SpriteBank other(Tessaril::Sprite::EightBit);
        TestSprites::fill(other, 6);
        SpriteBank::State state = t->m_bank->state();
        state.image = other.image();
        t->m_bank->restore(state);
    });
    add("no bank", [](Test t) { t->m_banks.clear(); });
    add("a bank that is gone", [](Test t) { t->m_bank.reset(); });
    add("a place", [](Test t) { t->m_sprites[1].x += 3; });
    add("another sprite", [](Test t) { t->m_sprites[0].sprite = 5; });
    add("a turn", [](Test t) { t->m_sprites[0].rotate = true; });
    add("flipped", [](Test t) { t->m_sprites[2].flip = true; });
    add("mirrored", [](Test t) { t->m_sprites[0].mirror = true; });
    add("the order", [](Test t) { t->m_sprites.swapItemsAt(0, 1); });
    add("one sprite less", [](Test t) { t->m_sprites.removeFirst(); });
    add("one sprite more", [](Test t) { t->m_sprites.append(t->still(4, {50, 20})); });
    add("a start frame", [](Test t) { t->m_sprites[2].startFrame = 1; });
    add("a scroll", [](Test t) { t->m_geometry.scroll = {1, 0}; });
}

void tst_SpriteLayer::changesAreFollowed()
{
    QFETCH(Change, change);
    update();
    const QImage before = painted();

    change(this);
    const QRegion changed = update();

    QCOMPARE(painted(), plainly());
    QVERIFY(painted() != before);
    QImage outside = plainly();
    QPainter painter(&outside);
    painter.setClipRegion(QRegion(Area) - changed);
    painter.drawImage(0, 0, before);
    painter.end();
    QCOMPARE(outside, plainly()); // beside what was told, everything is as it was
    QVERIFY(update().isEmpty());
}

void tst_SpriteLayer::framesAreFollowedByTheTick()
{
    update();
    QList<bool> changes;
    for (m_ticks = 1; m_ticks <= 7; ++m_ticks) {
        const QRegion changed = update();
        changes.append(!changed.isEmpty());
        QCOMPARE(painted(), plainly());
        if (!changed.isEmpty())
            QCOMPARE(changed, QRegion(10 + 60, 4 + 24, 32, 64));
    }

    QCOMPARE(changes, QList<bool>({false, false, true, false, false, true, false}));
}

void tst_SpriteLayer::spritesOffTheViewAreLeftOut()
{
    update();
    m_sprites.append(still(2, {5000, 0}));
    m_sprites.append(still(2, {0, -18}));
    QVERIFY(update().isEmpty());
    m_sprites.append(still(2, {0, -15}));
    QCOMPARE(update(), QRegion(10, 4 - 30, 32, 32));
}

void tst_SpriteLayer::manyDifferencesAreOne()
{
    for (int i = 0; i < 600; ++i)
        m_sprites.append(still(i % 6, {i % 100, i % 50}));

    QCOMPARE(update(), QRegion(Area));
    QCOMPARE(painted(), plainly());
}

void tst_SpriteLayer::aHugePictureIsStretched()
{
    m_animation->setSize({40, 40});
    m_geometry.cellSize = 64; // 5120 pixels a side

    update();

    QCOMPARE(painted(), plainly());
    m_animation->frame(0)->setCell({0, 39}, {.index = 5});
    update();
    QCOMPARE(painted(), plainly());
}

void tst_SpriteLayer::oneSpriteIsDrawnByItself()
{
    QImage image(Area.size(), QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QPainter painter(&image);
    m_layer->paintOne(painter, m_sprites.at(2), m_banks, m_geometry, m_ticks);
    painter.end();

    m_sprites = {m_sprites.at(2)};
    const QImage expected = plainly();
    QCOMPARE(image, expected);
    m_bank.reset();
    painter.begin(&image);
    m_layer->paintOne(painter, m_sprites.at(0), m_banks, m_geometry, m_ticks);
    painter.end();
    QCOMPARE(image, expected);
}

QTEST_GUILESS_MAIN(tst_SpriteLayer)

#include "tst_SpriteLayer.moc"
