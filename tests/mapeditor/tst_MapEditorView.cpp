#include "mapeditor/View.h"

#include "dialogs/ExportMapDialog.h"
#include "dialogs/ResizeMapDialog.h"
#include "mapeditor/MapGrid.h"
#include "mapeditor/MapToolPalette.h"
#include "mapeditor/ToolBar.h"
#include "model/Palette.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "support/DialogDriver.h"
#include "support/PaintCounter.h"
#include "support/TestMaps.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>
#include <QUndoStack>

#include <functional>
#include <memory>

using MapEditor::MapGrid;
using MapEditor::ToolBar;
using MapEditor::View;
using Tessaril::Position;
using Tool = Tessaril::Ui::ToolButton;
using SpriteChange = std::function<void(SpriteBank &, SpriteAnim &)>;

class tst_MapEditorView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsDrawingWithoutGridLines();
    void theSizeTextCountsTwoBytesACell();
    void viewportSpinsWaitForTheToggle();
    void theToolBarShowsAndChangesTheMap();
    void anUnboundToolBarChangesNothing();
    void resizingToTheSameSizeRecordsNothing();
    void resettingOffsetsIsNotRecorded();
    void deleteKeysClearTheSelection_data();
    void deleteKeysClearTheSelection();
    void escapeGoesBackToDrawing();
    void aPickedTileSetsTurnsAndIsSent();
    void placementModesAreAnnounced();
    void thePaletteFollowsTheMode();
    void hidingStopsTheClock();
    void deletingTheSpriteHidesItsPopover();
    void theTabFollowsTheNameOfTheMap();
    void tilesUnderPlacedObjectsAreCleared();
    void theCornerOpensTheDialogsOfTheMap();
    void changedTilesAreRepainted();
    void coloursOfSpritesAreRepainted();
    void framesOfSpritesAreRepainted_data();
    void framesOfSpritesAreRepainted();
    void aLowViewScrollsItsTools();

private:
    QLabel *sizeLabel() const { return m_bar->findChildren<QLabel *>().last(); }

    std::unique_ptr<TestMaps::PlainTiles> m_tiles;
    std::unique_ptr<Map> m_map; // 6 by 4 cells
    std::unique_ptr<QUndoStack> m_stack;
    std::unique_ptr<ToolBar> m_bar;
    std::unique_ptr<View> m_view;
};

void tst_MapEditorView::init()
{
    m_tiles = std::make_unique<TestMaps::PlainTiles>(16);
    m_map = TestMaps::map({6, 4}, m_tiles->set.get());
    m_map->tileLayer()->setTiles(TileMap::Rows(4, QList<TileMap::TileData>(6, TestMaps::cell(1))));
    m_stack = std::make_unique<QUndoStack>();
    m_bar = std::make_unique<ToolBar>();
    m_view = std::make_unique<View>();
    m_view->resize(600, 700);
    m_view->setUndoStack(m_stack.get());
    m_view->setMap(m_map.get());
    m_view->show();
    m_view->activateWindow();
    m_view->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
}

void tst_MapEditorView::cleanup()
{
    m_view.reset();
    m_bar.reset();
    m_stack.reset();
    m_map.reset();
    m_tiles.reset();
}

void tst_MapEditorView::startsDrawingWithoutGridLines()
{
    const View view;

    QVERIFY(view.toolPalette()->action(Tool::Draw)->isChecked());
    QVERIFY(!view.toolPalette()->action(Tool::Grid)->isChecked());
    QVERIFY(!view.grid()->isEnabled());
    QCOMPARE(view.focusPolicy(), Qt::ClickFocus);
    QCOMPARE(view.count(), 1);
}

void tst_MapEditorView::theSizeTextCountsTwoBytesACell()
{
    m_view->bindToolBar(m_bar.get());
    QCOMPARE(sizeLabel()->text(), QStringLiteral("6x4 (48 bytes)"));
    m_view->addRow(Position::End);
    QCOMPARE(sizeLabel()->text(), QStringLiteral("6x5 (60 bytes)"));
    m_view->addColumn(Position::Begin);
    QCOMPARE(sizeLabel()->text(), QStringLiteral("7x5 (70 bytes)"));
    m_view->removeRow(Position::End);
    m_view->removeColumn(Position::End);
    QCOMPARE(sizeLabel()->text(), QStringLiteral("6x4 (48 bytes)"));
    QCOMPARE(m_stack->count(), 4);
}

void tst_MapEditorView::viewportSpinsWaitForTheToggle()
{
    m_view->bindToolBar(m_bar.get());
    m_bar->findChildren<QSpinBox *>().at(0)->setValue(3);
    m_bar->findChildren<QSpinBox *>().at(1)->setValue(2);
    const auto shown = [this] { return m_view->grid()->cellGeometry().visibleCells().size(); };
    m_view->grid()->zoomIn();
    QCOMPARE(shown(), QSize(6, 4));

    m_view->toolPalette()->toggleAction(Tool::ToggleViewport);
    QCOMPARE(shown(), QSize(3, 2));
    m_bar->findChildren<QSpinBox *>().at(0)->setValue(5);
    m_view->grid()->zoomOut();
    QCOMPARE(shown(), QSize(3, 2));
    m_view->toolPalette()->toggleAction(Tool::ToggleViewport);
    m_view->toolPalette()->toggleAction(Tool::ToggleViewport);
    QCOMPARE(shown(), QSize(5, 2));
}

void tst_MapEditorView::theToolBarShowsAndChangesTheMap()
{
    m_map->setTileTransparencyIndex(3);
    m_map->setBackgroundTileIndex(7);
    m_map->objectLayer()->setVisible(false);
    m_view->bindToolBar(m_bar.get());
    const auto spins = m_bar->findChildren<QSpinBox *>();

    QCOMPARE(spins.at(2)->value(), 7);
    QCOMPARE(spins.at(3)->value(), 3);
    QVERIFY(!m_bar->actions().at(1)->isChecked());
    spins.at(2)->setValue(9);
    spins.at(3)->setValue(4);
    m_bar->actions().at(0)->trigger();
    m_bar->actions().at(1)->trigger();
    m_bar->actions().at(2)->trigger();

    QCOMPARE(m_map->backgroundTileIndex(), 9);
    QCOMPARE(m_map->tileTransparencyIndex(), 4);
    QVERIFY(!m_map->tileLayer()->isVisible());
    QVERIFY(m_map->objectLayer()->isVisible());
    QVERIFY(!m_map->isSpriteLayerVisible());
}

void tst_MapEditorView::anUnboundToolBarChangesNothing()
{
    m_view->bindToolBar(m_bar.get());
    m_view->bindToolBar(m_bar.get());
    m_view->unbindToolBar();

    m_bar->findChildren<QSpinBox *>().at(2)->setValue(9);
    m_bar->actions().at(0)->trigger();
    m_view->addRow(Position::End);

    QCOMPARE(m_map->backgroundTileIndex(), -1);
    QVERIFY(m_map->tileLayer()->isVisible());
    QCOMPARE(sizeLabel()->text(), QStringLiteral("6x4 (48 bytes)"));
}

void tst_MapEditorView::resizingToTheSameSizeRecordsNothing()
{
    m_view->toolPaletteClicked(Tool::Resize);
    QVERIFY(m_view->resizeDialog()->isVisible());
    QCOMPARE(m_view->resizeDialog()->windowModality(), Qt::WindowModal);
    m_view->resizeDialog()->accept();
    QCOMPARE(m_stack->count(), 0);

    m_view->toolPaletteClicked(Tool::Resize);
    m_view->resizeDialog()->findChildren<QSpinBox *>().first()->setValue(9);
    m_view->resizeDialog()->accept();

    QCOMPARE(m_stack->count(), 1);
    QCOMPARE(m_view->sizeText(), QStringLiteral("9x4 (72 bytes)"));
}

void tst_MapEditorView::resettingOffsetsIsNotRecorded()
{
    m_map->tileLayer()->setCell({2, 2}, TestMaps::cell(1, 6));
    m_map->tileLayer()->setCell({3, 2}, TestMaps::cell(99, 6));
    m_view->grid()->setSelection({2, 2, 1, 1});
    m_view->grid()->clearSelection();
    QCOMPARE(m_stack->count(), 1);

    m_view->toolPalette()->toggleAction(Tool::PaintPalette);
    QCOMPARE(m_map->tileLayer()->cell({3, 2}).offset, 0);
    QCOMPARE(m_stack->count(), 1);
    m_stack->undo();

    QCOMPARE(m_map->tileLayer()->cell({2, 2}).offset, 6);
}

void tst_MapEditorView::deleteKeysClearTheSelection_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Delete") << Qt::Key_Delete;
    QTest::newRow("Backspace") << Qt::Key_Backspace;
}

void tst_MapEditorView::deleteKeysClearTheSelection()
{
    QFETCH(Qt::Key, key);
    m_view->selectAll();
    QCOMPARE(m_view->grid()->selection(), QRect(0, 0, 6, 4));

    QTest::keyClick(m_view.get(), key);

    QCOMPARE(m_stack->undoText(), QStringLiteral("Clear"));
    QCOMPARE(m_map->tileLayer()->cell({5, 3}).index, 0);
    m_stack->undo();
    QCOMPARE(m_map->tileLayer()->cell({5, 3}).index, 1);
}

void tst_MapEditorView::escapeGoesBackToDrawing()
{
    m_view->selectAll();

    QTest::keyClick(m_view.get(), Qt::Key_Escape);

    QCOMPARE(m_view->grid()->mode(), Tool::Draw);
    QVERIFY(!m_view->grid()->selection().isValid());
}

void tst_MapEditorView::aPickedTileSetsTurnsAndIsSent()
{
    TileMap::TileData cell = TestMaps::cell(7);
    cell.rotate = true;
    cell.mirror = true;
    QSignalSpy picked(m_view.get(), &View::tilePicked);

    m_view->setSelectedTile(cell);

    QCOMPARE(picked.count(), 1);
    QCOMPARE(picked.at(0).at(0).toInt(), 7);
    QCOMPARE(m_view->grid()->currentTile(), 7);
    QVERIFY(m_view->grid()->isRotated());
    QVERIFY(!m_view->grid()->isFlipped());
    QVERIFY(m_view->grid()->isMirrored());
    QVERIFY(m_view->toolPalette()->action(Tool::RotateCW)->isChecked());
}

void tst_MapEditorView::placementModesAreAnnounced()
{
    QSignalSpy blocks(m_view.get(), &View::placeAnimModeEnabled);
    QSignalSpy sprites(m_view.get(), &View::placeSpriteModeEnabled);

    m_view->toolPalette()->toggleAction(Tool::PlaceAnim);
    m_view->toolPalette()->toggleAction(Tool::PlaceSprite);
    m_view->toolPalette()->toggleAction(Tool::Draw);

    QCOMPARE(blocks.count(), 1);
    QCOMPARE(sprites.count(), 1);
}

void tst_MapEditorView::thePaletteFollowsTheMode()
{
    QTest::keyClick(m_view.get(), Qt::Key_P);
    QCOMPARE(m_view->grid()->mode(), Tool::Pick);
    m_view->grid()->setMode(Tool::Select);
    QVERIFY(m_view->toolPalette()->action(Tool::Select)->isChecked());
    QTest::keyClick(m_view.get(), Qt::Key_G);
    QVERIFY(m_map->isGridVisible());
    QVERIFY(m_view->grid()->isGridVisible());
}

void tst_MapEditorView::hidingStopsTheClock()
{
    m_view->toolPalette()->toggleAction(Tool::AnimPlay);
    QVERIFY(m_view->animator().timer().isActive());
    m_view->hide();
    QVERIFY(!m_view->animator().timer().isActive());
    m_view->show();
    QVERIFY(m_view->animator().timer().isActive());
    m_view->toolPalette()->toggleAction(Tool::AnimPlay);
    QVERIFY(!m_view->animator().timer().isActive());
}

void tst_MapEditorView::deletingTheSpriteHidesItsPopover()
{
    SpriteBank bank(Tessaril::Sprite::EightBit);
    m_view->setSpriteBanks({&bank, nullptr});
    Map::PlacedSprite sprite;
    sprite.bank = bank.id();
    sprite.sprite = 0;
    m_map->sprites().append(sprite);
    m_view->grid()->setMode(Tool::PlaceSprite);
    const QPoint position = m_view->grid()->cellGeometry().fromMapPixel({8, 8});
    QTest::mouseClick(m_view->grid(), Qt::LeftButton, {}, position);
    QVERIFY(m_view->spritePopover()->isVisible());

    auto *startFrame = m_view->spritePopover()->findChild<QSpinBox *>("startFrame");
    startFrame->setValue(9);
    QCOMPARE(m_stack->undoText(), QStringLiteral("Sprite Properties"));
    QCOMPARE(m_map->sprites().at(0).startFrame, 9);
    m_view->grid()->deleteHovered();

    QVERIFY(!m_view->spritePopover()->isVisible());
    QVERIFY(m_map->sprites().isEmpty());
}

void tst_MapEditorView::theTabFollowsTheNameOfTheMap()
{
    QTabWidget tabs;
    auto *view = new View;
    tabs.addTab(view, QStringLiteral("level"));
    view->setMap(m_map.get());

    m_map->setName(QStringLiteral("Cave"));

    QCOMPARE(tabs.tabText(0), QStringLiteral("Cave"));
    m_map->setName(QStringLiteral("Salt & Pepper"));
    QCOMPARE(tabs.tabText(0), QStringLiteral("Salt && Pepper"));
}

void tst_MapEditorView::tilesUnderPlacedObjectsAreCleared()
{
    m_map->addAnimation({.id = QUuid::createUuid(), .rect = {1, 1, 2, 2}});
    View view;

    view.setMap(m_map.get());

    QCOMPARE(m_map->tileLayer()->cell({2, 2}).index, 0);
    QVERIFY(m_map->tileLayer()->cell({2, 2}).occupied);
    QCOMPARE(m_map->tileLayer()->cell({3, 3}).index, 1);
}

void tst_MapEditorView::theCornerOpensTheDialogsOfTheMap()
{
    QToolButton *corner = DialogDriver::field<QToolButton>(*m_view, QStringLiteral("Map actions"));
    QVERIFY(corner);
    const auto choose = [corner](int row) {
        QTest::mouseClick(corner, Qt::LeftButton);
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        menu->setActiveAction(menu->actions().at(row));
        QTest::keyClick(menu, Qt::Key_Return);
    };

    choose(0);
    QVERIFY(m_view->resizeDialog()->isVisible());
    m_view->resizeDialog()->reject();
    choose(1);

    auto *const dialog = m_view->findChild<ExportMapDialog *>();
    QVERIFY(dialog);
    QVERIFY(dialog->isVisible());
}

void tst_MapEditorView::changedTilesAreRepainted()
{
    const auto corner = [this] {
        return m_view->grid()->cellGeometry().fromCells({0, 0, 1, 1}).center();
    };
    m_map->objectLayer()->setVisible(false);
    PaintCounter paints(*m_view->grid());

    m_tiles->set->notifyImageChanged(1);
    QTRY_COMPARE(paints.count(), 1);
    m_tiles->set->deleteTile(0);
    QTRY_COMPARE(paints.count(), 2);
    const QColor colour = m_tiles->set->tileImage(0, false, false, false, 0).pixelColor(0, 0);
    QCOMPARE(m_view->grid()->grab().toImage().pixelColor(corner()), colour);
    const int grabbed = paints.count();
    m_tiles->set->notifyRestored();
    QTRY_COMPARE(paints.count(), grabbed + 1);

    m_view->setMap(nullptr);
    QCoreApplication::processEvents();
    const int before = paints.count();
    m_tiles->set->notifyImageChanged(1);
    QCoreApplication::processEvents();
    QCOMPARE(paints.count(), before);
}

void tst_MapEditorView::coloursOfSpritesAreRepainted()
{
    Palette first;
    Palette second;
    SpriteBank bank(Tessaril::Sprite::EightBit);
    bank.setPalette(&first);
    m_view->setSpriteBanks({&bank});
    const PaintCounter colours(*m_view->grid());
    first.setColour(1, Qt::red);
    QTRY_VERIFY(colours.count() > 0);

    bank.setPalette(&second);
    emit bank.imageChanged(0);
    const PaintCounter otherColours(*m_view->grid());
    second.setColour(1, Qt::red);

    QTRY_VERIFY(otherColours.count() > 0);
    m_view->setSpriteBanks({});
}

void tst_MapEditorView::framesOfSpritesAreRepainted_data()
{
    QTest::addColumn<SpriteChange>("change");
    const auto row = [](const char *name, const SpriteChange &change) {
        QTest::newRow(name) << change;
    };
    row("cell", [](SpriteBank &, SpriteAnim &walk) { walk.frame(0)->notifyChanged(); });
    row("frames", [](SpriteBank &, SpriteAnim &walk) { walk.notifyContentChanged(); });
    row("size", [](SpriteBank &, SpriteAnim &walk) { walk.setSize({2, 1}); });
    row("delay", [](SpriteBank &, SpriteAnim &walk) { walk.setDelay(3); });
    row("deleted", [](SpriteBank &bank, SpriteAnim &walk) { bank.removeAnimation(walk.id()); });
    row("deleted sprite", [](SpriteBank &bank, SpriteAnim &) {
        emit bank.structureChanged(QStringLiteral("Delete Sprite"));
    });
}

void tst_MapEditorView::framesOfSpritesAreRepainted()
{
    QFETCH(SpriteChange, change);
    SpriteBank bank(Tessaril::Sprite::EightBit);
    SpriteAnim *const early = bank.createAnimation();
    m_view->setSpriteBanks({&bank});
    SpriteAnim *const late = bank.createAnimation();

    for (SpriteAnim *const animation : {early, late}) {
        const PaintCounter paints(*m_view->grid());
        change(bank, *animation);
        QTRY_VERIFY(paints.count() > 0);
    }
    m_view->setSpriteBanks({});
}

void tst_MapEditorView::aLowViewScrollsItsTools()
{
    QVERIFY(m_view->minimumSizeHint().height() < 300);
    m_view->resize(600, 300);

    QCOMPARE(m_view->height(), 300);
    QVERIFY(m_view->toolPalette()->height() > 600);
    QVERIFY(m_view->toolPalette()->visibleRegion().boundingRect().height() <= 300);
    QCOMPARE(m_view->toolPalette()->visibleRegion().boundingRect().width(),
             m_view->toolPalette()->width());
}

QTEST_MAIN(tst_MapEditorView)

#include "tst_MapEditorView.moc"
