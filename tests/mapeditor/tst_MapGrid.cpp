#include "mapeditor/MapGrid.h"

#include "ShownGrid.h"
#include "model/Palette.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QSignalSpy>

using MapEditor::MapGrid;
using Tessaril::Position;
using Tool = Tessaril::Ui::ToolButton;

class tst_MapGrid : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_shown = std::make_unique<ShownGrid>(); }
    void cleanup() { m_shown.reset(); }

    void withoutMapNothingHappens();
    void aMapEnablesAndCentresTheGrid();
    void layersAreDrawnInOrder();
    void gridLinesAreDrawnWhenVisible();
    void theBackgroundTileShowsThroughEmptyCells();
    void controlWheelZoomsWithinItsLevels();
    void zoomStartsAgainAfterFitting();
    void theWheelScrollsWithinTheMap();
    void scrollingMovesOneAxis();
    void aWheelEventWithoutTurnDoesNothing();
    void theViewportStaysUntilTheNextLayout();
    void anEditWithoutChangePushesNothing();
    void editsNestIntoOne();
    void rowsAndColumnsChangeTheMapAsOneStep();
    void removingTheLastColumnOnlyTellsTheSize();
    void resizingIsOneStep();
    void anUndoTidiesTheGrid();
    void theMiddleButtonPicksFromAnyTool();
    void pickingOutsideTheMapGivesZeros();
    void shiftSwitchesToSelecting();
    void modeChangesAreSentOnce();
    void leavingModesUnselectsTheSprite();
    void hiddenLayersShowAForbiddenCursor();
    void clearFillsTheSelectionWithTileZero();
    void cutClearsAndCopies();
    void aCopiedImageNamesItsPalette();
    void mapFromSelectionTellsTheSize();

private:
    MapGrid &grid() const { return m_shown->grid; }

    std::unique_ptr<ShownGrid> m_shown;
};

void tst_MapGrid::withoutMapNothingHappens()
{
    MapGrid empty;
    empty.resize(200, 100);
    empty.show();
    QVERIFY(!empty.isEnabled());
    QSignalSpy resized(&empty, &MapGrid::mapResized);

    for (const Tool mode :
         {Tool::Select, Tool::Pick, Tool::Paste, Tool::PlaceAnim, Tool::PlaceSprite, Tool::Draw})
        empty.setMode(mode);
    QCOMPARE(empty.mode(), Tool::Draw);
    empty.addRows(Position::End, 1);
    empty.removeColumns(Position::Begin, 1);
    empty.resizeMap({3, 3}, Qt::AlignCenter);
    empty.copySelection();
    empty.cutSelection();
    empty.clearSelection();
    empty.deleteHovered();
    empty.scrollRight();
    empty.fitTo();
    empty.zoomIn();
    empty.copyAsImage();
    empty.setMapVisibility(false);
    empty.beginEdit();
    empty.endEdit(QStringLiteral("Edit"));
    empty.grab();

    QCOMPARE(resized.count(), 0);
    QCOMPARE(empty.zoomLevel(), 5);
}

void tst_MapGrid::aMapEnablesAndCentresTheGrid()
{
    QVERIFY(grid().isEnabled());
    QVERIFY(grid().testAttribute(Qt::WA_OpaquePaintEvent));
    QVERIFY(grid().hasMouseTracking());
    QCOMPARE(grid().cellGeometry().gridRect, QRect(104, 86, 192, 128));
    QSignalSpy delta(&grid(), &MapGrid::scrollDeltaChanged);

    grid().resize(100, 80);

    QCOMPARE(grid().cellGeometry().gridRect, QRect(2, 8, 96, 64));
    QCOMPARE(delta.last(), QVariantList({3, 2}));
}

void tst_MapGrid::layersAreDrawnInOrder()
{
    const auto colourOf = [this](int tile) {
        return m_shown->tiles.set->tileImage(tile, false, false, false, 0).pixelColor(0, 0);
    };
    m_shown->map->objectLayer()->setCell({2, 1}, TestMaps::cell(5));

    QCOMPARE(m_shown->pixel(ShownGrid::at(1, 1)), colourOf(1));
    QCOMPARE(m_shown->pixel(ShownGrid::at(2, 1)), colourOf(5));
    QCOMPARE(m_shown->pixel({390, 290}), grid().palette().color(QPalette::Window));
    grid().setObjectVisibility(false);
    QCOMPARE(m_shown->pixel(ShownGrid::at(2, 1)), colourOf(1));
    grid().setMapVisibility(false);
    QCOMPARE(m_shown->pixel(ShownGrid::at(2, 1)), QColor(Qt::black));
}

void tst_MapGrid::gridLinesAreDrawnWhenVisible()
{
    const QColor line(0x40, 0x40, 0x40);
    const QPoint onLine = ShownGrid::Corner + QPoint(64, 40);
    QVERIFY(m_shown->pixel(onLine) != line);

    grid().setGridVisible(true);

    QCOMPARE(m_shown->pixel(onLine), line);
    QCOMPARE(m_shown->pixel(ShownGrid::Corner + QPoint(40, 32)), line);
    QVERIFY(m_shown->pixel(ShownGrid::Corner + QPoint(40, 127)) != line);
}

void tst_MapGrid::theBackgroundTileShowsThroughEmptyCells()
{
    m_shown->map->tileLayer()->setCell({3, 3}, TileMap::TileData());
    const QColor tile = m_shown->tiles.set->tileImage(6, false, false, false, 0).pixelColor(0, 0);

    grid().setBackgroundTileIndex(6);
    QCOMPARE(m_shown->pixel(ShownGrid::at(3, 3)), tile);
    grid().setBackgroundTileIndex(16);
    QCOMPARE(m_shown->pixel(ShownGrid::at(3, 3)), QColor(Qt::black));
}

void tst_MapGrid::controlWheelZoomsWithinItsLevels()
{
    m_shown->wheel({0, 120}, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(grid().zoomLevel(), 5);
    QCOMPARE(grid().cellGeometry().cellSize, 40);
    for (int i = 0; i < 10; ++i)
        m_shown->wheel({0, 120}, Qt::ControlModifier);
    QCOMPARE(grid().zoomLevel(), 8);
    for (int i = 0; i < 10; ++i)
        m_shown->wheel({0, -120}, Qt::ControlModifier);
    QCOMPARE(grid().zoomLevel(), 1);
    QCOMPARE(grid().cellGeometry().cellSize, 8);
}

void tst_MapGrid::zoomStartsAgainAfterFitting()
{
    grid().fitTo();
    QCOMPARE(grid().zoomLevel(), 1);
    QCOMPARE(grid().cellGeometry().cellSize, 66); // 400 / 6
    m_shown->wheel({0, 120}, Qt::ControlModifier);
    QCOMPARE(grid().zoomLevel(), 2);
    QCOMPARE(grid().cellGeometry().cellSize, 16);

    grid().fitTo();
    grid().zoomOut();
    QCOMPARE(grid().zoomLevel(), 1);
    QCOMPARE(grid().cellGeometry().cellSize, 8);
    grid().fitTo(false);
    QCOMPARE(grid().cellGeometry().cellSize, 66);
    QCOMPARE(grid().cellGeometry().gridRect.width(), 48);
}

void tst_MapGrid::theWheelScrollsWithinTheMap()
{
    grid().resize(100, 80); // 3 by 2 cells
    QSignalSpy moved(&grid(), &MapGrid::scrollPositionChanged);
    const auto scroll = [this] { return grid().cellGeometry().scroll; };

    m_shown->wheel({0, 120});
    QCOMPARE(moved.count(), 0);
    m_shown->wheel({0, -120});
    QCOMPARE(scroll(), QPoint(0, 1));
    m_shown->wheel({0, -120}, Qt::ShiftModifier);
    QCOMPARE(scroll(), QPoint(1, 1));
    for (int i = 0; i < 9; ++i)
        m_shown->wheel({0, -120}, Qt::ShiftModifier);
    QCOMPARE(scroll(), QPoint(3, 1));
    m_shown->wheel({0, 120}, Qt::ShiftModifier);
    QCOMPARE(scroll(), QPoint(2, 1));
    QCOMPARE(moved.last().at(0).toPoint(), QPoint(2, 1));
    QCOMPARE(moved.count(), 5);
}

void tst_MapGrid::scrollingMovesOneAxis()
{
    grid().resize(100, 80);
    grid().scrollBy({1, 1});
    QCOMPARE(grid().cellGeometry().scroll, QPoint(1, 0));
    grid().setHorizontalScrollPosition(3);
    grid().scrollBy({1, 1});
    QCOMPARE(grid().cellGeometry().scroll, QPoint(3, 1));
    grid().setVerticalScrollPosition(0);
    QCOMPARE(grid().cellGeometry().scroll, QPoint(3, 0));
}

void tst_MapGrid::aWheelEventWithoutTurnDoesNothing()
{
    grid().resize(100, 80);
    m_shown->wheel({0, 0});
    m_shown->wheel({0, 0}, Qt::ControlModifier);

    QCOMPARE(grid().cellGeometry().scroll, QPoint());
    QCOMPARE(grid().zoomLevel(), 4);
}

void tst_MapGrid::theViewportStaysUntilTheNextLayout()
{
    grid().setViewPort(true, {2, 1});
    QCOMPARE(grid().cellGeometry().gridRect, QRect(168, 134, 64, 32));
    grid().setViewPort(false, {2, 1});
    QCOMPARE(grid().cellGeometry().gridRect, QRect(168, 134, 64, 32));

    grid().resize(402, 300);

    QCOMPARE(grid().cellGeometry().gridRect.size(), QSize(192, 128));
}

void tst_MapGrid::anEditWithoutChangePushesNothing()
{
    grid().beginEdit();
    m_shown->map->tileLayer()->setCell({0, 0}, TestMaps::cell(1));
    grid().endEdit(QStringLiteral("Paint"));
    grid().endEdit(QStringLiteral("Paint"));

    QCOMPARE(m_shown->stack.count(), 0);
}

void tst_MapGrid::editsNestIntoOne()
{
    grid().beginEdit();
    grid().beginEdit();
    m_shown->map->tileLayer()->setCell({0, 0}, TestMaps::cell(4));
    grid().endEdit(QStringLiteral("Inner"));
    QCOMPARE(m_shown->stack.count(), 0);
    grid().endEdit(QStringLiteral("Outer"));

    QCOMPARE(m_shown->stack.count(), 1);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Outer"));
    m_shown->stack.undo();
    QCOMPARE(m_shown->tileAt(0, 0), 1);
}

void tst_MapGrid::rowsAndColumnsChangeTheMapAsOneStep()
{
    Map &map = *m_shown->map;
    Map::PlacedSprite sprite;
    map.sprites().append(sprite);
    QSignalSpy resized(&grid(), &MapGrid::mapResized);

    grid().addRows(Position::Begin, 2);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Add Rows"));
    QCOMPARE(map.sprites().at(0).y, 16);
    grid().addColumns(Position::End, 1);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Add Columns"));
    QCOMPARE(map.sprites().at(0).x, 0);
    QCOMPARE(map.tileLayer()->size(), QSize(7, 6));
    QCOMPARE(map.objectLayer()->size(), QSize(7, 6));
    grid().setSelection({0, 0, 7, 6});
    grid().removeRows(Position::Begin, 2);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Remove Rows"));
    QCOMPARE(grid().selection(), QRect(0, 0, 7, 4));
    QCOMPARE(map.sprites().at(0).y, 0);
    grid().removeColumns(Position::End, 1);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Remove Columns"));
    QCOMPARE(grid().selection(), QRect(0, 0, 6, 4));
    QCOMPARE(m_shown->stack.count(), 4);
    QCOMPARE(resized.count(), 4);
    QCOMPARE(resized.last().at(0).toSize(), QSize(6, 4));
}

void tst_MapGrid::removingTheLastColumnOnlyTellsTheSize()
{
    grid().removeColumns(Position::End, 99);
    QCOMPARE(m_shown->map->tileLayer()->width(), 1);
    QSignalSpy resized(&grid(), &MapGrid::mapResized);

    grid().removeColumns(Position::End, 1);

    QCOMPARE(resized.count(), 1);
    QCOMPARE(m_shown->map->tileLayer()->size(), QSize(1, 4));
    QCOMPARE(m_shown->stack.count(), 1);
}

void tst_MapGrid::resizingIsOneStep()
{
    grid().resizeMap({8, 2}, Qt::AlignLeft | Qt::AlignTop);

    QCOMPARE(m_shown->undoText(), QStringLiteral("Resize Map"));
    QCOMPARE(m_shown->map->tileLayer()->size(), QSize(8, 2));
    QCOMPARE(grid().cellGeometry().visibleCells().size(), QSize(8, 2));
    m_shown->stack.undo();
    QCOMPARE(m_shown->map->tileLayer()->size(), QSize(6, 4));
    QCOMPARE(m_shown->tileAt(5, 3), 1);
}

void tst_MapGrid::anUndoTidiesTheGrid()
{
    grid().addRows(Position::End, 3);
    grid().setSelection({1, 1, 4, 6});
    QSignalSpy selected(&grid(), &MapGrid::selectedSpriteChanged);
    QSignalSpy resized(&grid(), &MapGrid::mapResized);

    m_shown->stack.undo();

    QCOMPARE(grid().selection(), QRect(1, 1, 4, 3));
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).toInt(), -1);
    QCOMPARE(resized.count(), 1);
    QCOMPARE(grid().cellGeometry().gridRect.height(), 128);
}

void tst_MapGrid::theMiddleButtonPicksFromAnyTool()
{
    TileMap::TileData cell = TestMaps::cell(7, 3);
    cell.flip = true;
    m_shown->map->tileLayer()->setCell({4, 2}, cell);
    QSignalSpy picked(&grid(), &MapGrid::tilePicked);

    for (const Tool mode : {Tool::Draw, Tool::Select, Tool::PlaceSprite, Tool::PlaceAnim}) {
        grid().setMode(mode);
        m_shown->click(ShownGrid::at(4, 2), Qt::MiddleButton);
        QCOMPARE(grid().mode(), mode);
        QCOMPARE(picked.count(), 1);
        QVERIFY(picked.takeFirst().at(0).value<TileMap::TileData>() == cell);
    }
    QCOMPARE(m_shown->stack.count(), 0);
}

void tst_MapGrid::pickingOutsideTheMapGivesZeros()
{
    QSignalSpy picked(&grid(), &MapGrid::tilePicked);

    m_shown->click({390, 290}, Qt::MiddleButton);

    QCOMPARE(picked.count(), 1);
    QVERIFY(picked.at(0).at(0).value<TileMap::TileData>() == TileMap::TileData());
}

void tst_MapGrid::shiftSwitchesToSelecting()
{
    QSignalSpy modes(&grid(), &MapGrid::modeChanged);

    m_shown->press(ShownGrid::at(1, 1), Qt::LeftButton, Qt::ShiftModifier);
    QCOMPARE(modes.count(), 2);
    QCOMPARE(grid().mode(), Tool::Select);
    m_shown->move(ShownGrid::at(3, 2), Qt::LeftButton);
    m_shown->release(ShownGrid::at(3, 2));

    QCOMPARE(grid().selection(), QRect(1, 1, 3, 2));
    QCOMPARE(m_shown->tileAt(1, 1), 1);
}

void tst_MapGrid::modeChangesAreSentOnce()
{
    QSignalSpy modes(&grid(), &MapGrid::modeChanged);

    grid().setMode(Tool::Pick);
    grid().setMode(Tool::Pick);
    QCOMPARE(modes.count(), 1);
    QTest::ignoreMessage(QtInfoMsg, "MapWidget::setMode(ZoomIn) Unhandled switch case");
    grid().setMode(Tool::ZoomIn);

    QCOMPARE(modes.count(), 2);
    QCOMPARE(modes.last().at(0).value<Tool>(), Tool::ZoomIn);
}

void tst_MapGrid::leavingModesUnselectsTheSprite()
{
    SpriteBank bank(Tessaril::Sprite::EightBit);
    grid().setSpriteBanks({&bank});
    grid().setCurrentSprite(bank.id(), 0);
    m_shown->click(ShownGrid::at(0, 0));
    QCOMPARE(grid().selectedSprite(), 0);
    QSignalSpy selected(&grid(), &MapGrid::selectedSpriteChanged);

    grid().setMode(Tool::Draw);
    grid().setMode(Tool::Select);

    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).toInt(), -1);
}

void tst_MapGrid::hiddenLayersShowAForbiddenCursor()
{
    grid().setMapVisibility(false);
    QCOMPARE(grid().cursor().shape(), Qt::ForbiddenCursor);
    QVERIFY(!m_shown->map->tileLayer()->isVisible());
    grid().setMapVisibility(true);
    QCOMPARE(grid().cursor().shape(), Qt::ArrowCursor);

    grid().setMode(Tool::PlaceAnim);
    QCOMPARE(grid().cursor().shape(), Qt::OpenHandCursor);
    grid().setObjectVisibility(false);
    QCOMPARE(grid().cursor().shape(), Qt::ForbiddenCursor);
    grid().setMode(Tool::PlaceSprite);
    QCOMPARE(grid().cursor().shape(), Qt::CrossCursor);
    grid().setSpriteVisibility(false);
    QCOMPARE(grid().cursor().shape(), Qt::ForbiddenCursor);
    QVERIFY(!m_shown->map->isSpriteLayerVisible());
}

void tst_MapGrid::clearFillsTheSelectionWithTileZero()
{
    m_shown->tiles.set->tile(0)->setOffset(3);
    grid().setSelection({4, 2, 9, 9});

    grid().clearSelection();

    QCOMPARE(m_shown->undoText(), QStringLiteral("Clear"));
    QVERIFY(m_shown->map->tileLayer()->cell({5, 3}) == TestMaps::cell(0, 3));
    QCOMPARE(m_shown->tileAt(3, 3), 1);
}

void tst_MapGrid::cutClearsAndCopies()
{
    grid().setMode(Tool::Select);
    grid().setSelection({1, 1, 2, 2});

    grid().cutSelection();

    QCOMPARE(m_shown->stack.count(), 1);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Cut"));
    QCOMPARE(m_shown->tileAt(2, 2), 0);
    QCOMPARE(m_shown->tileAt(3, 2), 1);
    QVERIFY(!grid().selection().isValid());
    QCOMPARE(grid().pasteRect(), QRect(1, 1, 2, 2));
    QVERIFY(QGuiApplication::clipboard()->mimeData()->hasFormat(TileMap::mimeType()));
}

void tst_MapGrid::aCopiedImageNamesItsPalette()
{
    grid().setSelection({0, 0, 3, 2});

    grid().copyAsImage();

    const QImage image = QGuiApplication::clipboard()->image();
    QCOMPARE(image.size(), QSize(24, 16));
    QCOMPARE(image.text("paletteid"), m_shown->tiles.palette->id().toString());
}

void tst_MapGrid::mapFromSelectionTellsTheSize()
{
    QSignalSpy created(&grid(), &MapGrid::createMapFromSelection);
    grid().mapFromSelection();
    QCOMPARE(created.count(), 0);
    grid().setSelection({1, 0, 3, 2});

    grid().mapFromSelection();

    QCOMPARE(created.count(), 1);
    QCOMPARE(created.at(0), QVariantList({m_shown->map->id(), QSize(3, 2)}));
}

QTEST_MAIN(tst_MapGrid)

#include "tst_MapGrid.moc"
