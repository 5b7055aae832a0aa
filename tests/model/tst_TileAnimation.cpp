#include "model/MapObjects.h"
#include "model/Tile.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

#include <QSignalSpy>
#include <QTest>

namespace {

constexpr QRgb Dark = qRgb(32, 32, 32);

/// A picture whose pixels are all of one index, in a table where entry i is (i, 0, 0).
QImage plainTile(uint index)
{
    QImage image(Tile::Side, Tile::Side, QImage::Format_Indexed8);
    QList<QRgb> table;
    for (int i = 0; i < 256; ++i)
        table << qRgb(i, 0, 0);
    image.setColorTable(table);
    image.fill(index);
    return image;
}

} // namespace

class tst_TileAnimation : public QObject
{
    Q_OBJECT

private slots:
    void aNewAnimationIsNamedBlocksWithoutFrames();
    void theTypesKeepTheirNumbers();
    void settingTheTypeAlwaysSendsContentChanged();
    void restoringPutsTheTypeBackToo();
    void listenersFindTheTypePutBack();
    void withoutFramesOrSetTheThumbnailIsDark();
    void aTallThumbnailIsCentred();
    void aWideThumbnailIsCentred();
    void theThumbnailTurnsAndColoursTheTile();
    void theThumbnailIsScaledIntoTheSize();
    void anIndexOutOfRangeStillDraws();
};

void tst_TileAnimation::aNewAnimationIsNamedBlocksWithoutFrames()
{
    MapObjects list;
    const TileAnimation animation(&list);

    QCOMPARE(animation.name(), QStringLiteral("Blocks!"));
    QCOMPARE(animation.isSprite(), false);
    QCOMPARE(animation.frameCount(), 0);
    QCOMPARE(animation.parent(), &list);
    QCOMPARE(animation.type(), MapObjectType::Normal);
    QVERIFY(animation.tileSet().isNull());
}

void tst_TileAnimation::theTypesKeepTheirNumbers()
{
    QCOMPARE(static_cast<int>(MapObjectType::Normal), 0);
    QCOMPARE(static_cast<int>(MapObjectType::HorizontalPlatform), 1);
}

void tst_TileAnimation::settingTheTypeAlwaysSendsContentChanged()
{
    TileAnimation animation(nullptr);
    QSignalSpy content(&animation, &TileAnimation::contentChanged);

    animation.setMapObjectType(MapObjectType::HorizontalPlatform);
    animation.setMapObjectType(MapObjectType::HorizontalPlatform);

    QCOMPARE(animation.type(), MapObjectType::HorizontalPlatform);
    QCOMPARE(content.count(), 2);
}

void tst_TileAnimation::restoringPutsTheTypeBackToo()
{
    TileAnimation animation(nullptr);
    animation.setMapObjectType(MapObjectType::HorizontalPlatform);
    animation.setSize({2, 1});
    animation.addFrame()->setCell({1, 0}, {.index = 4});
    const TileAnimation::State state = animation.tileState();
    animation.setMapObjectType(MapObjectType::Normal);
    animation.removeFrame(0);
    QVERIFY(!(animation.tileState() == state));
    QSignalSpy content(&animation, &TileAnimation::contentChanged);

    animation.restoreTileState(state);

    QVERIFY(animation.tileState() == state);
    QCOMPARE(animation.type(), MapObjectType::HorizontalPlatform);
    QCOMPARE(content.count(), 1);
}

void tst_TileAnimation::listenersFindTheTypePutBack()
{
    TileAnimation animation(nullptr);
    animation.setMapObjectType(MapObjectType::HorizontalPlatform);
    const TileAnimation::State state = animation.tileState();
    animation.setMapObjectType(MapObjectType::Normal);
    QList<MapObjectType> found;
    const auto look = [&] { found << animation.type(); };
    connect(&animation, &TileAnimation::sizeChanged, this, look);
    connect(&animation, &TileAnimation::contentChanged, this, look);

    animation.restoreTileState(state);

    QCOMPARE(found, QList<MapObjectType>(2, MapObjectType::HorizontalPlatform));
}

void tst_TileAnimation::withoutFramesOrSetTheThumbnailIsDark()
{
    TileSet tiles(nullptr, 1);
    TileAnimation withoutFrames(nullptr);
    withoutFrames.setTileSet(&tiles);
    TileAnimation withoutSet(nullptr);
    withoutSet.addFrame();
    TileAnimation withoutCells(nullptr);
    withoutCells.setTileSet(&tiles);
    withoutCells.setSize({0, 0});
    withoutCells.addFrame();

    for (const TileAnimation *animation : {&withoutFrames, &withoutSet, &withoutCells}) {
        const QImage image = animation->thumbnail({20, 10});
        QCOMPARE(image.size(), QSize(20, 10));
        QCOMPARE(image.pixel(0, 0), Dark);
        QCOMPARE(image.pixel(19, 9), Dark);
    }
}

void tst_TileAnimation::aTallThumbnailIsCentred()
{
    TileSet tiles(nullptr, 4);
    for (int i = 1; i < 4; ++i)
        tiles.tile(i)->setImage(plainTile(static_cast<uint>(i)));
    TileAnimation animation(nullptr);
    animation.setTileSet(&tiles);
    animation.setSize({1, 3});
    AnimationFrame *frame = animation.addFrame();
    for (int y = 0; y < 3; ++y)
        frame->setCell({0, y}, {.index = y + 1});

    const QImage image = animation.thumbnail({24, 24});

    QCOMPARE(image.size(), QSize(24, 24));
    for (int y = 0; y < 24; ++y) {
        QCOMPARE(image.pixel(7, y), Dark);
        QCOMPARE(image.pixel(8, y), qRgb(y / 8 + 1, 0, 0));
        QCOMPARE(image.pixel(15, y), qRgb(y / 8 + 1, 0, 0));
        QCOMPARE(image.pixel(16, y), Dark);
    }
}

void tst_TileAnimation::aWideThumbnailIsCentred()
{
    TileSet tiles(nullptr, 1);
    tiles.tile(0)->setImage(plainTile(5));
    TileAnimation animation(nullptr);
    animation.setTileSet(&tiles);
    animation.setSize({2, 1});
    animation.addFrame();

    const QImage image = animation.thumbnail({16, 16});

    QCOMPARE(image.pixel(0, 3), Dark);
    QCOMPARE(image.pixel(0, 4), qRgb(5, 0, 0));
    QCOMPARE(image.pixel(15, 11), qRgb(5, 0, 0));
    QCOMPARE(image.pixel(15, 12), Dark);
}

void tst_TileAnimation::theThumbnailTurnsAndColoursTheTile()
{
    TileSet tiles(nullptr, 1);
    QImage picture = plainTile(1);
    picture.setPixel(0, 0, 2);
    tiles.tile(0)->setImage(picture);
    TileAnimation animation(nullptr);
    animation.setTileSet(&tiles);
    AnimationFrame *frame = animation.addFrame();
    AnimationFrame::Cell cell;
    cell.offset = 3;
    cell.flip = true;
    frame->setCell({0, 0}, cell);

    const QImage image = animation.thumbnail({8, 8});

    QCOMPARE(image.pixel(0, 0), qRgb(3 * 16 + 1, 0, 0));
    QCOMPARE(image.pixel(0, 7), qRgb(3 * 16 + 2, 0, 0));
}

void tst_TileAnimation::theThumbnailIsScaledIntoTheSize()
{
    TileSet tiles(nullptr, 1);
    QImage tile = plainTile(5);
    tile.setPixel(7, 7, 9);
    tiles.tile(0)->setImage(tile);
    TileAnimation animation(nullptr);
    animation.setTileSet(&tiles);
    animation.addFrame();

    const QImage image = animation.thumbnail({64, 32});

    QCOMPARE(image.size(), QSize(32, 32));
    QCOMPARE(image.pixel(31, 31), qRgb(9, 0, 0));
    QCOMPARE(image.pixel(28, 28), qRgb(9, 0, 0)); // sharp to the edge
    QCOMPARE(image.pixel(27, 27), qRgb(5, 0, 0));
}

void tst_TileAnimation::anIndexOutOfRangeStillDraws()
{
    TileSet tiles(nullptr, 1);
    tiles.tile(0)->setImage(plainTile(5));
    TileAnimation animation(nullptr);
    animation.setTileSet(&tiles);
    animation.setSize({3, 1});
    AnimationFrame *frame = animation.addFrame();
    frame->setCell({0, 0}, {.index = 1});
    frame->setCell({1, 0}, {.index = -1});

    const QImage image = animation.thumbnail({24, 24});

    QCOMPARE(image.pixel(16, 8), qRgb(5, 0, 0));
}

QTEST_GUILESS_MAIN(tst_TileAnimation)
#include "tst_TileAnimation.moc"
