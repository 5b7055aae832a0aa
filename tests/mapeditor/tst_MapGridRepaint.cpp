#include "mapeditor/MapGrid.h"

#include "ShownGrid.h"
#include "model/AnimatedBlocks.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "support/PaintCounter.h"
#include "support/TestSprites.h"

using MapEditor::MapGrid;
using Tool = Tessaril::Ui::ToolButton;
using Act = void (*)(ShownGrid &);
Q_DECLARE_METATYPE(Act)

namespace {

constexpr QPoint Beside(10, 200); // in the widget, left of the map

void nothing(ShownGrid &) {}

void hoverCell(ShownGrid &shown)
{
    shown.move(ShownGrid::at(2, 2));
}

void placeSprite(ShownGrid &shown)
{
    Map::PlacedSprite sprite;
    sprite.bank = shown.map->id();
    sprite.sprite = 0;
    sprite.x = 8;
    sprite.y = 8;
    shown.map->sprites().append(sprite);
    shown.grid.setMode(Tool::PlaceSprite);
    shown.click(ShownGrid::at(1, 1));
}

void placeBlock(ShownGrid &shown)
{
    Map::PlacedBlock block;
    block.id = QUuid::createUuid();
    block.rect = {2, 2, 2, 1};
    shown.map->addAnimation(block);
}

void pressOnSprite(ShownGrid &shown)
{
    placeSprite(shown);
    shown.press(ShownGrid::at(1, 1));
}

void leave(ShownGrid &shown)
{
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&shown.grid, &event);
}

} // namespace

/// What is shown is brought up to date by itself: after each of these the whole grid is painted.
class tst_MapGridRepaint : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theGridIsPaintedAnew_data();
    void theGridIsPaintedAnew();
    void aStrokePaintsItsCells();
    void aDragWithNothingToPlacePaintsPerCell();
    void nothingIsPaintedForTheSame();

private:
    void addChoices();
    void addViews();
    void addEdits();
    void addGestures();

    std::unique_ptr<ShownGrid> m_shown;
    std::unique_ptr<SpriteBank> m_bank;
};

void tst_MapGridRepaint::init()
{
    m_shown = std::make_unique<ShownGrid>();
    m_bank = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
    m_bank->setPalette(m_shown->tiles.palette.get());
    m_bank->setId(m_shown->map->id());
    TestSprites::fill(*m_bank, 2);
    m_shown->grid.setSpriteBanks({m_bank.get()});
    QVERIFY(QTest::qWaitForWindowExposed(&m_shown->grid));
}

void tst_MapGridRepaint::cleanup()
{
    m_shown.reset();
    m_bank.reset();
}

void tst_MapGridRepaint::theGridIsPaintedAnew_data()
{
    QTest::addColumn<Act>("before");
    QTest::addColumn<Act>("act");
    addChoices();
    addViews();
    addEdits();
    addGestures();
}

void tst_MapGridRepaint::addChoices()
{
    const auto row = [](const char *name, Act act, Act before = nothing) {
        QTest::newRow(name) << before << act;
    };
    row("mode", [](ShownGrid &shown) { shown.grid.setMode(Tool::Select); });
    row("orientation", [](ShownGrid &shown) { shown.grid.setOrientation(true, false, false); });
    row("selection", [](ShownGrid &shown) { shown.grid.setSelection({1, 1, 2, 2}); });
    row("tile", [](ShownGrid &shown) { shown.grid.setCurrentTileIndex(3); });
    row("no sprite", [](ShownGrid &shown) { shown.grid.setCurrentSprite({}, -1); });
    row("grid lines", [](ShownGrid &shown) { shown.grid.setGridVisible(true); });
    row("transparency", [](ShownGrid &shown) { shown.grid.setTransparencyIndex(1); });
    row("background tile", [](ShownGrid &shown) { shown.grid.setBackgroundTileIndex(2); });
    row("sprite banks", [](ShownGrid &shown) { shown.grid.setSpriteBanks({}); });
    row("tile layer", [](ShownGrid &shown) { shown.grid.setMapVisibility(false); });
    row("object layer", [](ShownGrid &shown) { shown.grid.setObjectVisibility(false); });
    row("sprite layer", [](ShownGrid &shown) { shown.grid.setSpriteVisibility(false); });
    row("tiles", [](ShownGrid &shown) { shown.grid.tileMapChanged(); });
}

void tst_MapGridRepaint::addViews()
{
    const auto row = [](const char *name, Act act, Act before = nothing) {
        QTest::newRow(name) << before << act;
    };
    const Act narrow = [](ShownGrid &shown) { shown.grid.resize(120, 100); };
    row("map", [](ShownGrid &shown) { shown.grid.setMap(shown.map.get()); });
    row("zoom in", [](ShownGrid &shown) { shown.grid.zoomIn(); });
    row("zoom out", [](ShownGrid &shown) { shown.grid.zoomOut(); });
    row("fit", [](ShownGrid &shown) { shown.grid.fitTo(); });
    row(
        "one step", [](ShownGrid &shown) { shown.grid.scrollRight(); }, narrow);
    row(
        "sideways", [](ShownGrid &shown) { shown.grid.setHorizontalScrollPosition(1); }, narrow);
    row(
        "down", [](ShownGrid &shown) { shown.grid.setVerticalScrollPosition(1); }, narrow);
    row("viewport", [](ShownGrid &shown) { shown.grid.setViewPort(true, {2, 2}); });
}

void tst_MapGridRepaint::addEdits()
{
    const auto row = [](const char *name, Act act, Act before = nothing) {
        QTest::newRow(name) << before << act;
    };
    const Act select = [](ShownGrid &shown) { shown.grid.setSelection({1, 1, 2, 2}); };
    row(
        "undo", [](ShownGrid &shown) { shown.stack.undo(); },
        [](ShownGrid &shown) { shown.grid.addRows(Tessaril::Position::End, 1); });
    row(
        "copy", [](ShownGrid &shown) { shown.grid.copySelection(); }, select);
    row(
        "cut", [](ShownGrid &shown) { shown.grid.cutSelection(); }, select);
    row(
        "clear", [](ShownGrid &shown) { shown.grid.clearSelection(); }, select);
    row("rows", [](ShownGrid &shown) { shown.grid.addRows(Tessaril::Position::End, 1); });
    row("resize", [](ShownGrid &shown) { shown.grid.resizeMap({3, 3}, Qt::AlignCenter); });
    row(
        "sprite's form",
        [](ShownGrid &shown) {
            auto sprite = shown.map->sprites().first();
            sprite.flip = true;
            shown.grid.applySpriteEdit(sprite);
        },
        placeSprite);
    row(
        "delete sprite", [](ShownGrid &shown) { shown.grid.deleteHovered(); }, placeSprite);
    row(
        "delete block", [](ShownGrid &shown) { shown.grid.deleteHovered(); },
        [](ShownGrid &shown) {
            placeBlock(shown);
            hoverCell(shown);
        });
}

void tst_MapGridRepaint::addGestures()
{
    const auto row = [](const char *name, Act act, Act before = nothing) {
        QTest::newRow(name) << before << act;
    };
    row(
        "the mouse goes beside the map", [](ShownGrid &shown) { shown.move(Beside); }, hoverCell);
    row("the mouse leaves", leave, hoverCell);
    row("onto a block", hoverCell, placeBlock);
    row(
        "drag of a selection",
        [](ShownGrid &shown) { shown.move(ShownGrid::at(3, 3), Qt::LeftButton); },
        [](ShownGrid &shown) {
            shown.grid.setMode(Tool::Select);
            shown.press(ShownGrid::at(1, 1));
        });
    row(
        "paste", [](ShownGrid &shown) { shown.press(ShownGrid::at(2, 2)); },
        [](ShownGrid &shown) {
            shown.grid.setSelection({0, 0, 1, 1});
            shown.grid.copySelection();
            shown.grid.setMode(Tool::Paste);
        });
    row("frame of a paste", hoverCell, [](ShownGrid &shown) {
        shown.grid.setSelection({0, 0, 1, 1});
        shown.grid.copySelection();
        shown.grid.setMode(Tool::Paste);
    });
    row("ghost of a sprite", hoverCell,
        [](ShownGrid &shown) { shown.grid.setCurrentSprite(shown.map->id(), 0); });
    row(
        "place a sprite", [](ShownGrid &shown) { shown.press(ShownGrid::at(2, 2)); },
        [](ShownGrid &shown) { shown.grid.setCurrentSprite(shown.map->id(), 0); });
    row(
        "drag a sprite", [](ShownGrid &shown) { shown.move(ShownGrid::at(3, 3), Qt::LeftButton); },
        pressOnSprite);
}

void tst_MapGridRepaint::theGridIsPaintedAnew()
{
    QFETCH(const Act, before);
    QFETCH(const Act, act);
    before(*m_shown);
    QApplication::processEvents();
    const PaintCounter paints(m_shown->grid);

    act(*m_shown);

    QTRY_COMPARE(QRegion(m_shown->grid.rect()) - paints.region(), QRegion());
}

void tst_MapGridRepaint::aStrokePaintsItsCells()
{
    m_shown->grid.setCurrentTileIndex(5);
    m_shown->press(ShownGrid::at(1, 1));
    QApplication::processEvents();
    const PaintCounter paints(m_shown->grid);

    m_shown->move(ShownGrid::at(2, 1), Qt::LeftButton);

    const QRect cells(ShownGrid::Corner + QPoint(1, 1) * ShownGrid::Cell,
                      QSize(2, 1) * ShownGrid::Cell);
    QTRY_COMPARE(QRegion(cells) - paints.region(), QRegion());
}

void tst_MapGridRepaint::aDragWithNothingToPlacePaintsPerCell()
{
    m_shown->grid.setCurrentTileAnimation(nullptr);
    m_shown->press(ShownGrid::at(1, 1));
    m_shown->move(ShownGrid::at(1, 1), Qt::LeftButton);
    QApplication::processEvents();
    const PaintCounter paints(m_shown->grid);

    m_shown->move(ShownGrid::at(1, 1) + QPoint(2, 2), Qt::LeftButton);
    QApplication::processEvents();
    QCOMPARE(paints.count(), 0);
    m_shown->move(ShownGrid::at(2, 1), Qt::LeftButton);

    QTRY_VERIFY(paints.count() > 0);
}

void tst_MapGridRepaint::nothingIsPaintedForTheSame()
{
    hoverCell(*m_shown);
    QApplication::processEvents();
    const PaintCounter paints(m_shown->grid);

    m_shown->grid.setViewPort(false, {2, 2}); // shows at the next change of the layout
    m_shown->grid.setSpriteTicks(10);
    m_shown->grid.fitTo(false);
    QApplication::processEvents();

    QCOMPARE(paints.count(), 0);
}

QTEST_MAIN(tst_MapGridRepaint)

#include "tst_MapGridRepaint.moc"
