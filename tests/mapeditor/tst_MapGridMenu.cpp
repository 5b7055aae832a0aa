#include "mapeditor/MapGrid.h"

#include "ShownGrid.h"
#include "model/Palette.h"
#include "model/Tile.h"

#include <QAction>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QTimer>

using MapEditor::MapGrid;
using Tool = Tessaril::Ui::ToolButton;

/// The menu that a right press on a selection opens.
class tst_MapGridMenu : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_shown.reset(); }

    void theEntriesStandInTheirOrder();
    void theMenuEndsTheGesture();
    void otherToolsOpenNone();
    void cutLeavesTileZeroAndNoSelection();
    void copyTakesTheBlockAndRecordsNothing();
    void copyToANewMapAsksForOne();
    void copyAsImageTakesEachPixel();
    void fillTakesTheTileAsItIsTurned();
    void fillKeepsToTheMap();
    void fillWithNoTileDoesNothing();
    void fillingWithTheSameIsNoStep();
    void aFillIsSeenAtOnce();

private:
    MapGrid &grid() const { return m_shown->grid; }
    TileMap::TileData cell(int x, int y) const { return m_shown->map->tileLayer()->cell({x, y}); }
    static QPoint at(int x, int y) { return ShownGrid::at(x, y); }
    void select(QPoint from, QPoint to);
    /// Presses the right button on a cell and chooses; an empty @p text closes the menu. Returns
    /// the texts of the menu.
    QStringList choose(const QString &text);

    std::unique_ptr<ShownGrid> m_shown;
};

void tst_MapGridMenu::init()
{
    m_shown = std::make_unique<ShownGrid>();
    QGuiApplication::clipboard()->clear();
}

void tst_MapGridMenu::select(QPoint from, QPoint to)
{
    grid().setMode(Tool::Select);
    m_shown->press(at(from.x(), from.y()));
    m_shown->move(at(to.x(), to.y()), Qt::LeftButton);
    m_shown->release(at(to.x(), to.y()));
}

QStringList tst_MapGridMenu::choose(const QString &text)
{
    QStringList texts;
    QTimer::singleShot(0, this, [&texts, &text] {
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        for (QAction *const action : menu->actions()) {
            texts += action->text();
            if (action->text() == text)
                menu->setActiveAction(action);
        }
        QTest::keyClick(menu, text.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
    });
    m_shown->click(at(2, 2), Qt::RightButton);
    QCoreApplication::processEvents();
    return texts;
}

void tst_MapGridMenu::theEntriesStandInTheirOrder()
{
    select({1, 1}, {1, 1});

    QCOMPARE(choose({}), QStringList({"Cut", "Copy", "Copy to new map", "Copy as Image", "Fill"}));
    QCOMPARE(m_shown->stack.count(), 0);
    QCOMPARE(grid().selection(), QRect(1, 1, 1, 1));
}

void tst_MapGridMenu::theMenuEndsTheGesture()
{
    select({1, 1}, {2, 2});
    choose({});

    m_shown->move(at(4, 3), Qt::LeftButton);

    QCOMPARE(grid().selection(), QRect(1, 1, 2, 2));
}

void tst_MapGridMenu::otherToolsOpenNone()
{
    grid().setCurrentTileIndex(5);
    grid().setSelection({1, 1, 2, 2});

    QCOMPARE(choose(QStringLiteral("Fill")), QStringList());

    QVERIFY(!cell(2, 2).occupied); // the right button erases
    QVERIFY(cell(1, 1) == TestMaps::cell(1));
}

void tst_MapGridMenu::cutLeavesTileZeroAndNoSelection()
{
    m_shown->tiles.set->tile(0)->setOffset(2);
    select({1, 1}, {3, 2});

    choose(QStringLiteral("Cut"));

    QCOMPARE(m_shown->undoText(), QStringLiteral("Cut"));
    QCOMPARE(m_shown->stack.count(), 1);
    QVERIFY(cell(1, 1) == TestMaps::cell(0, 2));
    QVERIFY(cell(3, 2) == TestMaps::cell(0, 2));
    QVERIFY(cell(4, 2) == TestMaps::cell(1));
    QVERIFY(!grid().selection().isValid());
    QVERIFY(QGuiApplication::clipboard()->mimeData()->hasFormat(TileMap::mimeType()));
    m_shown->stack.undo();
    QVERIFY(cell(1, 1) == TestMaps::cell(1));
}

void tst_MapGridMenu::copyTakesTheBlockAndRecordsNothing()
{
    m_shown->map->tileLayer()->setCell({3, 2}, TestMaps::cell(9));
    select({2, 2}, {3, 2});

    choose(QStringLiteral("Copy"));

    QCOMPARE(m_shown->stack.count(), 0);
    QCOMPARE(grid().pasteRect(), QRect(2, 2, 2, 1));
    grid().setMode(Tool::Paste);
    m_shown->move(at(1, 0));
    m_shown->click(at(1, 0));
    QCOMPARE(m_shown->tileAt(0, 0), 1);
    QCOMPARE(m_shown->tileAt(1, 0), 9);
}

void tst_MapGridMenu::copyToANewMapAsksForOne()
{
    select({2, 1}, {4, 2});
    QSignalSpy asked(&grid(), &MapGrid::createMapFromSelection);

    choose(QStringLiteral("Copy to new map"));

    QCOMPARE(asked.count(), 1);
    QCOMPARE(asked.at(0), QVariantList({m_shown->map->id(), QSize(3, 2)}));
    QVERIFY(QGuiApplication::clipboard()->mimeData()->hasFormat(TileMap::mimeType()));
    QCOMPARE(m_shown->stack.count(), 0);
}

void tst_MapGridMenu::copyAsImageTakesEachPixel()
{
    QImage uneven = Tile::blankImage(m_shown->tiles.palette->colourTable());
    uneven.setPixel(1, 0, 7);
    m_shown->tiles.set->tile(4)->setImage(uneven);
    TileMap::TileData turned = TestMaps::cell(4, 2);
    turned.mirror = true;
    m_shown->map->tileLayer()->setCell({3, 2}, turned);
    select({2, 2}, {3, 2});

    choose(QStringLiteral("Copy as Image"));

    const QImage image = QGuiApplication::clipboard()->image();
    QCOMPARE(image.size(), QSize(16, 8));
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 16; ++x) {
            const bool isMark = x == 14 && y == 0;
            const int index = x < 8 ? 1 : isMark ? 2 * 16 + 7 : 2 * 16;
            // Index 0 of each group of sixteen is the transparent one here.
            const bool isShown = index % 16 != 0;
            QCOMPARE(image.pixelColor(x, y).alpha(), isShown ? 255 : 0);
            if (isShown)
                QCOMPARE(image.pixelColor(x, y), m_shown->tiles.palette->colour(index));
        }
    }
}

void tst_MapGridMenu::fillTakesTheTileAsItIsTurned()
{
    m_shown->tiles.set->tile(6)->setOffset(3);
    select({1, 1}, {2, 3});
    grid().setCurrentTileIndex(6);
    grid().setOrientation(true, false, true);

    choose(QStringLiteral("Fill"));

    QCOMPARE(m_shown->undoText(), QStringLiteral("Fill"));
    TileMap::TileData expected = TestMaps::cell(6, 3);
    expected.rotate = true;
    expected.mirror = true;
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 6; ++x) {
            const bool isInside = QRect(1, 1, 2, 3).contains(x, y);
            QVERIFY(cell(x, y) == (isInside ? expected : TestMaps::cell(1)));
        }
    }
    m_shown->stack.undo();
    QVERIFY(cell(1, 1) == TestMaps::cell(1));
    m_shown->stack.redo();
    QVERIFY(cell(2, 3) == expected);
}

void tst_MapGridMenu::fillKeepsToTheMap()
{
    grid().setMode(Tool::Select);
    grid().setSelection({4, 2, 50, 50});
    grid().setCurrentTileIndex(6);

    choose(QStringLiteral("Fill"));

    QCOMPARE(m_shown->tileAt(5, 3), 6);
    QCOMPARE(m_shown->tileAt(4, 2), 6);
    QCOMPARE(m_shown->tileAt(3, 3), 1);
    QCOMPARE(m_shown->map->tileLayer()->size(), QSize(6, 4));
}

void tst_MapGridMenu::fillWithNoTileDoesNothing()
{
    select({1, 1}, {2, 2});
    grid().setCurrentTileIndex(-1);

    QVERIFY(!choose(QStringLiteral("Fill")).isEmpty());

    QVERIFY(cell(1, 1) == TestMaps::cell(1));
    QCOMPARE(m_shown->stack.count(), 0);
}

void tst_MapGridMenu::fillingWithTheSameIsNoStep()
{
    select({1, 1}, {2, 2});
    grid().setCurrentTileIndex(1);

    QVERIFY(!choose(QStringLiteral("Fill")).isEmpty());

    QCOMPARE(m_shown->stack.count(), 0);
}

void tst_MapGridMenu::aFillIsSeenAtOnce()
{
    select({1, 1}, {3, 3});
    grid().setCurrentTileIndex(6);
    const QColor tile = m_shown->tiles.palette->colour(6);
    QVERIFY(m_shown->pixel(at(2, 2)) != tile);

    choose(QStringLiteral("Fill"));

    QCOMPARE(m_shown->pixel(at(2, 2)), tile);
    QVERIFY(m_shown->pixel(at(4, 2)) != tile);
}

QTEST_MAIN(tst_MapGridMenu)

#include "tst_MapGridMenu.moc"
