#include "ShownView.h"
#include "dialogs/ExportMapDialog.h"
#include "dialogs/ResizeMapDialog.h"
#include "mapeditor/MapToolPalette.h"
#include "model/AnimatedBlocks.h"
#include "model/Palette.h"
#include "support/DialogDriver.h"
#include "support/FileDialogs.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>

using MapEditor::MapGrid;
using MapEditor::View;
using Tessaril::Position;
using Tool = Tessaril::Ui::ToolButton;

/// What the keys, buttons and bars around a map do.
class tst_MapViewActions : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_shown.reset(); }

    void deletePrefersTheHoveredSprite();
    void deleteTakesTheHoveredBlockNext();
    void deleteClearsOtherwise();
    void theExportSendsWhatIsTicked();
    void anExportWithoutPaletteSendsTheNullId();
    void aCancelledExportSendsNothing();
    void resizingUsesTheChosenAnchor();
    void theTurnsReachTheGridOneByOne();
    void theArrowsScrollAndMoveTheBars();
    void theBarsScrollTheGrid();
    void theHandlesShowHowMuchIsOnView();
    void theButtonsAtTheBarsChangeTheMap_data();
    void theButtonsAtTheBarsChangeTheMap();
    void aMapOfOneCellKeepsItsCell();
    void zoomAndFitWorkFromThePalette();
    void theClockFollowsPlayAndStop();
    void theGridButtonIsKeptInTheMap();
    void otherToolsAreIgnored();
    void theToolBarMovesBetweenViews();
    void theToolBarReachesTheGrid();
    void theEditCommandsReachTheGrid();
    void aPickForgetsTheBlockAndComesBeforeTheSignal();
    void aNewMapFromASelectionIsPassedOn();
    void hidingAViewThatStandsLetsItStand();
    void aSecondMapTakesOver();

private:
    MapGrid &grid() const { return m_shown->grid(); }
    Map &map() const { return *m_shown->map; }
    void press(Tool tool) { m_shown->view.toolPalette()->toggleAction(tool); }
    QList<QScrollBar *> bars() const; // horizontal, vertical
    void exportInto(const QString &folder, const QList<int> &boxes);

    std::unique_ptr<ShownView> m_shown;
};

void tst_MapViewActions::init()
{
    m_shown = std::make_unique<ShownView>();
    QVERIFY(QTest::qWaitForWindowActive(&m_shown->view));
}

QList<QScrollBar *> tst_MapViewActions::bars() const
{
    QList<QScrollBar *> found = m_shown->view.findChildren<QScrollBar *>();
    // The column of tools has bars of its own.
    const auto isOfAnArea = [](const QScrollBar *bar) {
        return qobject_cast<const QAbstractScrollArea *>(bar->parentWidget()->parentWidget());
    };
    found.removeIf(isOfAnArea);
    std::sort(found.begin(), found.end(), [](const QScrollBar *a, const QScrollBar *b) {
        return a->orientation() < b->orientation();
    });
    return found;
}

/// Ticks these of the three boxes, accepts, and chooses @p folder; an empty one cancels.
void tst_MapViewActions::exportInto(const QString &folder, const QList<int> &boxes)
{
    m_shown->view.toolPaletteClicked(Tool::Save);
    auto *const dialog = QApplication::activeModalWidget();
    QVERIFY(qobject_cast<ExportMapDialog *>(dialog));
    for (const int box : boxes)
        dialog->findChildren<QCheckBox *>().at(box)->click();
    QString title;
    bool showsFoldersOnly = false;
    QTimer::singleShot(0, dialog, [&] {
        QFileDialog *const chooser = FileDialogs::visible();
        title = chooser->windowTitle();
        showsFoldersOnly = chooser->testOption(QFileDialog::ShowDirsOnly);
        if (folder.isEmpty())
            DialogDriver::pressCancel(*chooser);
        else
            FileDialogs::choose(chooser, folder);
    });
    qobject_cast<QDialog *>(dialog)->accept();
    QCOMPARE(title, QStringLiteral("Choose a directory to export anim into"));
    QVERIFY(showsFoldersOnly);
}

void tst_MapViewActions::deletePrefersTheHoveredSprite()
{
    m_shown->placeSpriteAt({0, 0});
    map().addAnimation({.id = QUuid::createUuid(), .rect = {4, 2, 2, 1}});
    QTest::mouseMove(&grid(), m_shown->at(4, 2)); // the block stays the hovered one
    grid().setMode(Tool::PlaceSprite);
    grid().setSelection({0, 0, 6, 4});
    QTest::mouseMove(&grid(), m_shown->at(1, 1));

    QTest::keyClick(&m_shown->view, Qt::Key_Delete);
    QCOMPARE(m_shown->stack.undoText(), QStringLiteral("Delete Sprite"));
    QVERIFY(map().sprites().isEmpty());
    QCOMPARE(map().animatedBlocks()->blocks().size(), 1);
    QTest::keyClick(&m_shown->view, Qt::Key_Backspace);
    QCOMPARE(m_shown->stack.undoText(), QStringLiteral("Remove Animation"));
    QTest::keyClick(&m_shown->view, Qt::Key_Backspace);

    QCOMPARE(m_shown->stack.undoText(), QStringLiteral("Clear"));
    QCOMPARE(m_shown->stack.count(), 3);
}

void tst_MapViewActions::deleteTakesTheHoveredBlockNext()
{
    map().addAnimation({.id = QUuid::createUuid(), .rect = {4, 2, 2, 1}});
    QTest::mouseMove(&grid(), m_shown->at(4, 2));

    QTest::keyClick(&m_shown->view, Qt::Key_Delete);

    QVERIFY(map().animatedBlocks()->blocks().isEmpty());
    QVERIFY(map().tileLayer()->cell({5, 2}) == (TileMap::TileData{.occupied = false}));
    QVERIFY(map().objectLayer()->cell({5, 2}) == TestMaps::cell(0));
    m_shown->stack.undo();
    QCOMPARE(map().animatedBlocks()->blocks().size(), 1);
}

void tst_MapViewActions::deleteClearsOtherwise()
{
    // A record without an animation counts as none.
    map().addAnimation({.id = QUuid(), .rect = {4, 2, 2, 1}});
    QTest::mouseMove(&grid(), m_shown->at(4, 2));
    grid().setSelection({0, 0, 1, 1});

    QTest::keyClick(&m_shown->view, Qt::Key_Delete);

    QCOMPARE(m_shown->stack.undoText(), QStringLiteral("Clear"));
    QCOMPARE(map().animatedBlocks()->blocks().size(), 1);
    QVERIFY(map().tileLayer()->cell({0, 0}) == TestMaps::cell(0));
}

void tst_MapViewActions::theExportSendsWhatIsTicked()
{
    const QTemporaryDir folder;
    QStringList sent;
    View &view = m_shown->view;
    const auto log = [&sent](const char *what) {
        return [&sent, what](const QString &dir, QUuid id) {
            sent.append(QStringLiteral("%1 %2 %3").arg(QLatin1String(what), dir, id.toString()));
        };
    };
    connect(&view, &View::exportTileMap, this, log("map"));
    connect(&view, &View::exportTiles, this, log("tiles"));
    connect(&view, &View::exportTilePalette, this, log("palette"));

    exportInto(folder.path(), {0, 1, 2});
    QCOMPARE(
        sent,
        QStringList(
            {QStringLiteral("map %1 %2").arg(folder.path(), map().id().toString()),
             QStringLiteral("tiles %1 %2").arg(folder.path(), m_shown->tiles.set->id().toString()),
             QStringLiteral("palette %1 %2")
                 .arg(folder.path(), m_shown->tiles.palette->id().toString())}));
    sent.clear();
    exportInto(folder.path(), {0, 2}); // the boxes stay as they were: now the second alone

    QCOMPARE(sent.size(), 1);
    QVERIFY(sent.at(0).startsWith(QLatin1String("tiles ")));
}

void tst_MapViewActions::anExportWithoutPaletteSendsTheNullId()
{
    const QTemporaryDir folder;
    m_shown->tiles.set->setPalette(nullptr);
    QSignalSpy maps(&m_shown->view, &View::exportTileMap);
    QSignalSpy palettes(&m_shown->view, &View::exportTilePalette);

    exportInto(folder.path(), {2});

    QCOMPARE(maps.count(), 0);
    QCOMPARE(palettes.count(), 1);
    QCOMPARE(palettes.at(0), QVariantList({folder.path(), QUuid()}));
}

void tst_MapViewActions::aCancelledExportSendsNothing()
{
    QSignalSpy maps(&m_shown->view, &View::exportTileMap);

    exportInto(QString(), {0});

    QCOMPARE(maps.count(), 0);
}

void tst_MapViewActions::resizingUsesTheChosenAnchor()
{
    map().tileLayer()->setCell({5, 3}, TestMaps::cell(9));
    m_shown->view.toolPaletteClicked(Tool::Resize);
    auto *const dialog = m_shown->view.resizeDialog();
    QStringList labels;
    for (const QLabel *label : dialog->findChildren<QLabel *>())
        labels.append(label->text());
    QVERIFY(labels.contains(QStringLiteral("6")));
    QVERIFY(labels.contains(QStringLiteral("4")));
    const auto spins = dialog->findChildren<QSpinBox *>();
    QCOMPARE(spins.at(0)->value(), 6);
    QCOMPARE(spins.at(1)->value(), 4);
    spins.at(0)->setValue(4);
    spins.at(1)->setValue(2);
    dialog->findChild<QButtonGroup *>()->button(66)->click();

    dialog->accept();

    QCOMPARE(map().tileLayer()->size(), QSize(4, 2));
    QCOMPARE(map().tileLayer()->cell({3, 1}).index, 9);
    QCOMPARE(m_shown->view.sizeText(), QStringLiteral("4x2 (16 bytes)"));
}

void tst_MapViewActions::theTurnsReachTheGridOneByOne()
{
    const auto turns = [this] {
        return QList<bool>{grid().isRotated(), grid().isFlipped(), grid().isMirrored()};
    };

    press(Tool::RotateCW);
    QCOMPARE(turns(), QList<bool>({true, false, false}));
    press(Tool::Flip);
    QCOMPARE(turns(), QList<bool>({true, true, false}));
    press(Tool::Mirror);
    QCOMPARE(turns(), QList<bool>({true, true, true}));
    press(Tool::Flip);
    QCOMPARE(turns(), QList<bool>({true, false, true}));
    press(Tool::RotateCW);

    QCOMPARE(turns(), QList<bool>({false, false, true}));
}

void tst_MapViewActions::theArrowsScrollAndMoveTheBars()
{
    grid().setCellMetrics(100, 1);
    grid().zoomIn(); // 200 pixels a cell: 2 by 3 cells on view
    const auto state = [this] {
        const QPoint scroll = grid().cellGeometry().scroll;
        const auto bar = bars();
        return QList<int>{scroll.x(), scroll.y(), bar.at(0)->value(), bar.at(1)->value()};
    };
    QCOMPARE(bars().at(0)->maximum(), 4);
    QCOMPARE(bars().at(1)->maximum(), 1);

    QTest::keyClick(&m_shown->view, Qt::Key_Right);
    QCOMPARE(state(), QList<int>({1, 0, 1, 0}));
    QTest::keyClick(&m_shown->view, Qt::Key_Down);
    QCOMPARE(state(), QList<int>({1, 1, 1, 1}));
    QTest::keyClick(&m_shown->view, Qt::Key_Left);
    QCOMPARE(state(), QList<int>({0, 1, 0, 1}));
    QTest::keyClick(&m_shown->view, Qt::Key_Up);

    QCOMPARE(state(), QList<int>({0, 0, 0, 0}));
}

void tst_MapViewActions::theBarsScrollTheGrid()
{
    grid().setCellMetrics(200, 1);
    QSignalSpy moved(&grid(), &MapGrid::scrollPositionChanged);

    bars().at(0)->setValue(3);
    bars().at(1)->setValue(1);

    QCOMPARE(grid().cellGeometry().scroll, QPoint(3, 1));
    QCOMPARE(moved.count(), 0);
    QCOMPARE(bars().at(0)->minimum(), 0);
}

void tst_MapViewActions::theButtonsAtTheBarsChangeTheMap_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("mark"); // where the cell (2, 1) went
    QTest::addColumn<QString>("step");

    QTest::newRow("Add a row at the top") << QSize(6, 5) << QPoint(2, 2) << "Add Rows";
    QTest::newRow("Add a row at the bottom") << QSize(6, 5) << QPoint(2, 1) << "Add Rows";
    QTest::newRow("Remove the top row") << QSize(6, 3) << QPoint(2, 0) << "Remove Rows";
    QTest::newRow("Remove the bottom row") << QSize(6, 3) << QPoint(2, 1) << "Remove Rows";
    QTest::newRow("Add a column at the left") << QSize(7, 4) << QPoint(3, 1) << "Add Columns";
    QTest::newRow("Add a column at the right") << QSize(7, 4) << QPoint(2, 1) << "Add Columns";
    QTest::newRow("Remove the leftmost column") << QSize(5, 4) << QPoint(1, 1) << "Remove Columns";
    QTest::newRow("Remove the rightmost column") << QSize(5, 4) << QPoint(2, 1) << "Remove Columns";
}

void tst_MapViewActions::theButtonsAtTheBarsChangeTheMap()
{
    QFETCH(QSize, size);
    QFETCH(QPoint, mark);
    map().tileLayer()->setCell({2, 1}, TestMaps::cell(9));
    const QString name = QString::fromLatin1(QTest::currentDataTag());

    for (QToolButton *const button : m_shown->view.findChildren<QToolButton *>()) {
        if (button->accessibleName() == name)
            QTest::mouseClick(button, Qt::LeftButton);
    }

    QCOMPARE(map().tileLayer()->size(), size);
    QCOMPARE(map().tileLayer()->cell(mark).index, 9);
    QTEST(m_shown->stack.undoText(), "step");
    QCOMPARE(m_shown->stack.count(), 1);
    QVERIFY(m_shown->view.sizeText().startsWith(
        QStringLiteral("%1x%2 ").arg(size.width()).arg(size.height())));
}

void tst_MapViewActions::aMapOfOneCellKeepsItsCell()
{
    grid().resizeMap({1, 1}, Qt::AlignCenter);
    QSignalSpy resized(&grid(), &MapGrid::mapResized);

    m_shown->view.removeRow(Position::Begin);
    m_shown->view.removeColumn(Position::End);

    QCOMPARE(map().tileLayer()->size(), QSize(1, 1));
    QCOMPARE(resized.count(), 2);
    QCOMPARE(m_shown->stack.count(), 1);
    QCOMPARE(m_shown->view.sizeText(), QStringLiteral("1x1 (2 bytes)"));
}

void tst_MapViewActions::zoomAndFitWorkFromThePalette()
{
    press(Tool::ZoomIn);
    QCOMPARE(grid().zoomLevel(), 5);
    press(Tool::ZoomOut);
    press(Tool::ZoomOut);
    QCOMPARE(grid().zoomLevel(), 3);
    press(Tool::ExpandToFit);
    QCOMPARE(grid().zoomLevel(), 1);
    QCOMPARE(grid().cellGeometry().cellSize, std::min(grid().width() / 6, grid().height() / 4));
    grid().zoomIn();
    m_shown->view.toolPaletteClicked(Tool::ShrinkToFit);

    QCOMPARE(grid().zoomLevel(), 1);
}

void tst_MapViewActions::theClockFollowsPlayAndStop()
{
    View &view = m_shown->view;
    const auto runs = [&view] { return view.animator().timer().isActive(); };

    view.toolPaletteClicked(Tool::AnimStop, true);
    QVERIFY(runs());
    view.toolPaletteClicked(Tool::AnimStop, false);
    QVERIFY(!runs());
    m_shown->placeSpriteAt({0, 0});
    press(Tool::AnimPlay);
    QTRY_VERIFY(view.animator().ticks() > 1);
    press(Tool::AnimPlay);

    QVERIFY(!runs());
}

void tst_MapViewActions::theGridButtonIsKeptInTheMap()
{
    press(Tool::Grid);
    QVERIFY(map().isGridVisible());
    QVERIFY(grid().isGridVisible());

    View second;
    second.setMap(&map());
    QVERIFY(second.grid()->isGridVisible());
    QVERIFY(second.toolPalette()->action(Tool::Grid)->isChecked());
    press(Tool::Grid);

    QVERIFY(!map().isGridVisible());
}

void tst_MapViewActions::otherToolsAreIgnored()
{
    grid().setMode(Tool::Select);
    QSignalSpy modes(&grid(), &MapGrid::modeChanged);

    for (const Tool tool : {Tool::Line, Tool::Fill, Tool::Paste, Tool::RotateCCW, Tool::Cut,
                            Tool::Copy, Tool::Crop, Tool::Erase, Tool::Open})
        m_shown->view.toolPaletteClicked(tool, true);

    QCOMPARE(modes.count(), 0);
    QCOMPARE(m_shown->stack.count(), 0);
    QVERIFY(!grid().isRotated());
}

void tst_MapViewActions::theToolBarMovesBetweenViews()
{
    const auto spins = m_shown->bar.findChildren<QSpinBox *>();
    const auto otherMap = TestMaps::map({2, 2}, m_shown->tiles.set.get());
    View other;
    other.setMap(otherMap.get());
    m_shown->view.bindToolBar(&m_shown->bar);
    spins.at(0)->setValue(7);
    spins.at(4)->setValue(3);
    m_shown->view.unbindToolBar();

    other.bindToolBar(&m_shown->bar);
    QCOMPARE(spins.at(0)->value(), 40);
    QCOMPARE(spins.at(4)->value(), 1);
    QCOMPARE(m_shown->bar.findChildren<QLabel *>().last()->text(), QStringLiteral("2x2 (8 bytes)"));
    spins.at(3)->setValue(5);
    other.unbindToolBar();
    m_shown->view.bindToolBar(&m_shown->bar);

    QCOMPARE(spins.at(0)->value(), 7);
    QCOMPARE(spins.at(4)->value(), 3);
    QCOMPARE(spins.at(3)->value(), -1);
    QCOMPARE(map().tileTransparencyIndex(), -1);
    QCOMPARE(otherMap->tileTransparencyIndex(), 5);
}

void tst_MapViewActions::theToolBarReachesTheGrid()
{
    m_shown->view.bindToolBar(&m_shown->bar);
    const auto spins = m_shown->bar.findChildren<QSpinBox *>();
    map().objectLayer()->setVisible(false);
    map().tileLayer()->setCell({2, 1}, TestMaps::cell(3));
    const QPoint place = m_shown->at(2, 1);
    const auto colour = [this, place] { return grid().grab().toImage().pixelColor(place); };
    const QColor tile = colour();

    spins.at(3)->setValue(3);
    QCOMPARE(colour(), QColor(Qt::black));
    spins.at(2)->setValue(6);
    QCOMPARE(colour(), m_shown->tiles.set->tileImage(6, false, false, false, 0).pixelColor(0, 0));
    QVERIFY(colour() != tile);
    spins.at(4)->setValue(2);
    grid().setCurrentTileIndex(8);
    m_shown->click(m_shown->at(3, 3));

    QCOMPARE(map().tileLayer()->cell({2, 2}).index, 8);
    QCOMPARE(map().tileLayer()->cell({3, 3}).index, 1);
}

void tst_MapViewActions::theEditCommandsReachTheGrid()
{
    View &view = m_shown->view;
    QGuiApplication::clipboard()->clear();
    view.paste();
    QCOMPARE(grid().mode(), Tool::Draw);
    view.selectAll();
    QCOMPARE(grid().mode(), Tool::Select);
    QCOMPARE(grid().selection(), QRect(0, 0, 6, 4));
    view.copy();
    QCOMPARE(m_shown->stack.count(), 0);
    view.paste();
    QCOMPARE(grid().mode(), Tool::Paste);
    view.selectAll();
    view.selectNone();
    QCOMPARE(grid().selection(), QRect(0, 0, 6, 4)); // only the rubber band goes
    view.cut();

    QCOMPARE(m_shown->stack.undoText(), QStringLiteral("Cut"));
    QCOMPARE(map().tileLayer()->cell({5, 3}).index, 0);
}

void tst_MapViewActions::aPickForgetsTheBlockAndComesBeforeTheSignal()
{
    TileMap::TileData cell = TestMaps::cell(7);
    cell.flip = true;
    QList<bool> seen;
    connect(&m_shown->view, &View::tilePicked, this, [this, &seen](int index) {
        seen = {grid().currentTile() == index, grid().isFlipped(), grid().isRotated()};
    });
    press(Tool::RotateCW);

    m_shown->view.setSelectedTile(cell);
    QCOMPARE(seen, QList<bool>({true, true, false}));
    m_shown->view.setSelectedTile(TileMap::TileData());

    QCOMPARE(seen, QList<bool>({true, false, false}));
    QVERIFY(!m_shown->view.toolPalette()->action(Tool::Flip)->isChecked());
}

void tst_MapViewActions::aNewMapFromASelectionIsPassedOn()
{
    QSignalSpy created(&m_shown->view, &View::createMapFromSelection);
    grid().setSelection({1, 0, 3, 2});

    grid().mapFromSelection();

    QCOMPARE(created.count(), 1);
    QCOMPARE(created.at(0), QVariantList({map().id(), QSize(3, 2)}));
}

void tst_MapViewActions::hidingAViewThatStandsLetsItStand()
{
    m_shown->view.hide();
    m_shown->view.show();
    QVERIFY(!m_shown->view.animator().timer().isActive());

    press(Tool::AnimPlay);
    m_shown->view.hide();
    m_shown->view.show();
    QVERIFY(m_shown->view.animator().timer().isActive());
    press(Tool::AnimPlay);
    m_shown->view.hide();
    m_shown->view.show();

    QVERIFY(!m_shown->view.animator().timer().isActive());
}

void tst_MapViewActions::aSecondMapTakesOver()
{
    const auto second = TestMaps::map({9, 2}, m_shown->tiles.set.get());
    QSignalSpy resized(&grid(), &MapGrid::mapResized);
    grid().addRows(Position::End, 1);
    resized.clear();

    QTabWidget tabs;
    tabs.addTab(&m_shown->view, QStringLiteral("level"));

    m_shown->view.setMap(second.get());
    map().setName(QStringLiteral("Left"));
    QCOMPARE(tabs.tabText(0), QStringLiteral("level"));
    QCOMPARE(m_shown->view.sizeText(), QStringLiteral("9x2 (36 bytes)"));
    m_shown->stack.undo(); // of the map before

    QCOMPARE(resized.count(), 0);
    QCOMPARE(m_shown->view.sizeText(), QStringLiteral("9x2 (36 bytes)"));
    m_shown->view.setParent(nullptr);
}

void tst_MapViewActions::theHandlesShowHowMuchIsOnView()
{
    m_shown->map->resize({60, 50}, Qt::AlignLeft | Qt::AlignTop);
    for (int level = 0; level < 3; ++level) {
        grid().zoomIn();

        const QScrollBar *const across = bars().at(0);
        const QScrollBar *const down = bars().at(1);
        QVERIFY(across->maximum() > 0 && down->maximum() > 0);
        QCOMPARE(across->maximum() + across->pageStep(), 60);
        QCOMPARE(down->maximum() + down->pageStep(), 50);
    }
}

QTEST_MAIN(tst_MapViewActions)

#include "tst_MapViewActions.moc"
