#include "mapeditor/LayersPicture.h"

#include "model/Map.h"
#include "model/Palette.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "support/TestMaps.h"

#include <QPainter>
#include <QRandomGenerator>
#include <QTest>

#include <functional>
#include <memory>

using MapEditor::LayersPicture;

/// Everything that the picture shows, drawn plainly without keeping any of it.
static QImage plainly(Map &map, const LayersPicture::Look &look)
{
    QImage image(look.size, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    const auto tiles = map.tileSet();
    if (tiles && look.backgroundTile >= 0 && look.backgroundTile < tiles->count()) {
        const QImage tile = tiles->tileImage(look.backgroundTile, false, false, false,
                                             tiles->tileOffset(look.backgroundTile));
        painter.fillRect(image.rect(), QBrush(tile.scaled(look.cellSize, look.cellSize)));
    }
    for (TileMap *layer : {map.tileLayer().data(), map.objectLayer().data()}) {
        if (layer->isVisible())
            painter.drawImage(0, 0,
                              layer->picture(look.cells, look.cellSize, look.transparencyIndex));
    }
    return image;
}

class tst_LayersPicture : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void equalsAPlainDrawing_data();
    void equalsAPlainDrawing();
    void editsAreMended_data();
    void editsAreMended();
    void scalingLagsAtTheEndOfAWidePicture();
    void changesAreFollowed_data();
    void changesAreFollowed();
    void onlyTheWrittenCellIsDrawn();
    void withoutChangeNothingIsDrawn();
    void manyCellsAreDrawnAtOnce();
    void hiddenLayersAreNotDrawn();
    void whatTheCellsLeaveFreeIsBackground();
    void aMapWithoutCellsOnViewIsEmpty();

private:
    using Change = std::function<void(tst_LayersPicture *)>;

    static LayersPicture::Look look(int cellSize, QRect cells = {2, 1, 9, 7})
    {
        return {cells, cellSize, cells.size() * cellSize, 0, 3};
    }
    TileMap::TileData anyCell();

    QRandomGenerator m_random{31};
    std::unique_ptr<TestMaps::PlainTiles> m_tiles; // of noise, for all that
    std::unique_ptr<TestMaps::PlainTiles> m_otherTiles;
    std::unique_ptr<Map> m_map; // 20 by 12 cells
};

void tst_LayersPicture::init()
{
    m_random.seed(31);
    m_tiles = std::make_unique<TestMaps::PlainTiles>(32);
    m_otherTiles = std::make_unique<TestMaps::PlainTiles>(8);
    for (Tile *tile : m_tiles->set->tiles()) {
        QImage image = tile->image();
        for (int i = 0; i < Tile::Side * Tile::Side; ++i)
            image.setPixel(i % Tile::Side, i / Tile::Side, m_random.bounded(16U));
        tile->setImage(image);
    }
    m_map = TestMaps::map({20, 12}, m_tiles->set.get());
    for (int i = 0; i < 200; ++i) {
        const QPoint position(m_random.bounded(20), m_random.bounded(12));
        m_map->tileLayer()->setCell(position, anyCell());
        if (i % 3 == 0)
            m_map->objectLayer()->setCell(position, anyCell());
    }
    // One that is there and shows colour 21.
    m_tiles->set->tile(7)->setImage(TestMaps::PlainTiles(6).set->tile(5)->image());
    m_map->tileLayer()->setCell({5, 4}, TestMaps::cell(7, 1));
    m_map->objectLayer()->setCell({5, 4}, {});
}

void tst_LayersPicture::cleanup()
{
    m_map.reset();
    m_otherTiles.reset();
    m_tiles.reset();
}

TileMap::TileData tst_LayersPicture::anyCell()
{
    TileMap::TileData cell = TestMaps::cell(m_random.bounded(32), m_random.bounded(16));
    cell.rotate = m_random.bounded(2) == 1;
    cell.mirror = m_random.bounded(2) == 1;
    cell.occupied = m_random.bounded(5) > 0;
    return cell;
}

void tst_LayersPicture::equalsAPlainDrawing_data()
{
    QTest::addColumn<int>("cellSize");
    for (const int size : {1, 3, 7, 8, 11, 16, 24, 29, 32, 64})
        QTest::addRow("%d", size) << size;
}

void tst_LayersPicture::equalsAPlainDrawing()
{
    QFETCH(int, cellSize);
    LayersPicture picture;

    for (const int transparent : {-1, 0, 5}) {
        for (const int background : {-1, 3, 32}) {
            for (const QRect &cells : {QRect(0, 0, 5, 4), QRect(15, 8, 9, 7)}) {
                LayersPicture::Look shown = look(cellSize, cells);
                shown.transparencyIndex = transparent;
                shown.backgroundTile = background;
                picture.update(*m_map, shown);
                QCOMPARE(picture.image(), plainly(*m_map, shown));
            }
        }
    }
}

void tst_LayersPicture::editsAreMended_data()
{
    equalsAPlainDrawing_data();
}

void tst_LayersPicture::editsAreMended()
{
    QFETCH(int, cellSize);
    LayersPicture picture;
    LayersPicture::Look shown = look(cellSize);
    picture.update(*m_map, shown);

    for (int step = 0; step < 60; ++step) {
        for (int i = m_random.bounded(4); i >= 0; --i) {
            const QPoint position(m_random.bounded(20), m_random.bounded(12));
            TileMap *const layer =
                m_random.bounded(2) == 0 ? m_map->tileLayer() : m_map->objectLayer();
            layer->setCell(position, anyCell());
        }
        if (step % 20 == 19)
            shown.cells.translate(1, 0);
        const QImage before = picture.image().copy();
        const QRegion changed = picture.update(*m_map, shown);
        const QImage expected = plainly(*m_map, shown);
        QCOMPARE(picture.image(), expected);
        QImage outside = expected.copy();
        QPainter painter(&outside);
        painter.setClipRegion(QRegion(outside.rect()) - changed);
        painter.drawImage(0, 0, before);
        painter.end();
        QCOMPARE(outside, expected); // beside what was told, everything is as it was
    }
}

void tst_LayersPicture::scalingLagsAtTheEndOfAWidePicture()
{
    const auto map = TestMaps::map({700, 2}, m_tiles->set.get());
    LayersPicture picture;
    const LayersPicture::Look shown = look(24, map->tileLayer()->rect());
    picture.update(*map, shown);

    for (int x = 0; x < 700; x += 9) {
        map->tileLayer()->setCell({x, x % 2}, anyCell());
        picture.update(*map, shown);
    }

    QCOMPARE(picture.image(), plainly(*map, shown));
}

void tst_LayersPicture::changesAreFollowed_data()
{
    QTest::addColumn<Change>("change");
    using Test = tst_LayersPicture *;
    const auto add = [](const char *name, const Change &change) { QTest::newRow(name) << change; };
    add("a colour", [](Test t) { t->m_tiles->palette->setColour(21, Qt::magenta); });
    add("a colour that nobody tells", [](Test t) { t->m_tiles->palette->setWord(21, 0xE3FF); });
    add("a tile's picture", [](Test t) { t->m_tiles->set->clearImage(7); });
    add("the background tile's picture", [](Test t) { t->m_tiles->set->clearImage(3); });
    add("the background tile's offset", [](Test t) { t->m_tiles->set->tile(3)->setOffset(9); });
    add("a tile less", [](Test t) { t->m_tiles->set->deleteTile(2); });
    add("a tile more", [](Test t) { t->m_tiles->set->insertTile(2); });
    add("tiles in another order", [](Test t) { t->m_tiles->set->moveTile(3, 9); });
    add("tiles of an undo", [](Test t) {
        TileSet::State state = t->m_tiles->set->state();
        std::reverse(state.begin(), state.end());
        t->m_tiles->set->restore(state);
        t->m_tiles->set->notifyRestored();
    });
    add("another palette", [](Test t) {
        t->m_otherTiles->palette->setColour(21, Qt::magenta);
        t->m_tiles->set->setPalette(t->m_otherTiles->palette.get());
    });
    add("no palette", [](Test t) { t->m_tiles->set->setPalette(nullptr); });
    add("another tile set", [](Test t) { t->m_map->setTileSet(t->m_otherTiles->set.get()); });
    add("a tile set that is gone", [](Test t) { t->m_tiles->set.reset(); });
    add("a row more", [](Test t) { t->m_map->tileLayer()->addRow(Tessaril::Position::Begin); });
    add("a column less",
        [](Test t) { t->m_map->objectLayer()->removeColumn(Tessaril::Position::Begin); });
    add("another size", [](Test t) { t->m_map->resize({13, 9}, Qt::AlignCenter); });
    add("filled cells", [](Test t) { t->m_map->tileLayer()->fill({3, 2, 5, 4}, true); });
    add("all rows", [](Test t) { t->m_map->objectLayer()->setTiles(TestMaps::counted(20, 12)); });
    add("a hidden layer", [](Test t) { t->m_map->objectLayer()->setVisible(false); });
    add("the state of an undo", [](Test t) {
        const Map::State state = TestMaps::map({20, 12}, nullptr)->state();
        t->m_map->restore(state);
    });
}

void tst_LayersPicture::changesAreFollowed()
{
    QFETCH(Change, change);
    LayersPicture picture;
    picture.update(*m_map, look(16));
    const QImage before = picture.image().copy();

    change(this);
    const QRegion changed = picture.update(*m_map, look(16));

    QVERIFY(picture.image() != before);
    QVERIFY(!changed.isEmpty());
    QCOMPARE(picture.image(), plainly(*m_map, look(16)));
}

void tst_LayersPicture::onlyTheWrittenCellIsDrawn()
{
    LayersPicture picture;
    picture.update(*m_map, look(32));

    m_map->tileLayer()->setCell({5, 3}, TestMaps::cell(7, 7));
    const QRegion changed = picture.update(*m_map, look(32));

    const QRect cell(96, 64, 32, 32); // fourth and third on view
    QCOMPARE(changed.intersected(cell), QRegion(cell));
    QVERIFY(cell.adjusted(-8, -8, 8, 8).contains(changed.boundingRect()));
    m_map->tileLayer()->setCell({0, 3}, TestMaps::cell(7, 7));
    QVERIFY(picture.update(*m_map, look(32)).isEmpty());
}

void tst_LayersPicture::withoutChangeNothingIsDrawn()
{
    LayersPicture picture;
    QCOMPARE(picture.update(*m_map, look(8)), QRegion(0, 0, 72, 56));

    m_map->tileLayer()->setCell({5, 3}, m_map->tileLayer()->cell({5, 3}));

    QVERIFY(picture.update(*m_map, look(8)).isEmpty());
    QCOMPARE(picture.update(*m_map, look(9)), QRegion(0, 0, 81, 63));
}

void tst_LayersPicture::manyCellsAreDrawnAtOnce()
{
    const auto map = TestMaps::map({64, 64}, m_tiles->set.get());
    LayersPicture picture;
    const LayersPicture::Look shown = look(8, map->tileLayer()->rect());
    picture.update(*map, shown);

    for (int i = 0; i < 2000; ++i)
        map->tileLayer()->setCell({i * 7 % 64, i * 11 / 64 % 64}, anyCell());

    QCOMPARE(picture.update(*map, shown), QRegion(0, 0, 512, 512));
    QCOMPARE(picture.image(), plainly(*map, shown));
}

void tst_LayersPicture::hiddenLayersAreNotDrawn()
{
    LayersPicture picture;
    m_map->tileLayer()->setVisible(false);
    picture.update(*m_map, look(8));
    QCOMPARE(picture.image(), plainly(*m_map, look(8)));

    m_map->tileLayer()->setCell({5, 3}, TestMaps::cell(9, 2));
    QVERIFY(picture.update(*m_map, look(8)).isEmpty());
    m_map->tileLayer()->setVisible(true);
    picture.update(*m_map, look(8));
    QCOMPARE(picture.image(), plainly(*m_map, look(8)));
}

void tst_LayersPicture::whatTheCellsLeaveFreeIsBackground()
{
    LayersPicture picture;
    LayersPicture::Look shown = look(16);
    shown.size += QSize(21, 10);
    picture.update(*m_map, shown);
    QCOMPARE(picture.image(), plainly(*m_map, shown));

    shown.backgroundTile = -1;
    picture.update(*m_map, shown);
    QCOMPARE(picture.image(), plainly(*m_map, shown));
}

void tst_LayersPicture::aMapWithoutCellsOnViewIsEmpty()
{
    LayersPicture picture;
    QVERIFY(picture.update(*m_map, look(16, {})).isEmpty());
    QVERIFY(picture.image().isNull());
    picture.update(*m_map, look(16));
    QVERIFY(picture.update(*m_map, look(16, {0, 0, 3, 0})).isEmpty());
    QVERIFY(picture.image().isNull());
}

QTEST_GUILESS_MAIN(tst_LayersPicture)

#include "tst_LayersPicture.moc"
