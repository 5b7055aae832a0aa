#include "editors/TilePickerGrid.h"
#include "editors/TilePickerTool.h"
#include "model/Palette.h"
#include "model/TileSet.h"
#include "support/TestMaps.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

class tst_TilePickerTool : public QObject
{
    Q_OBJECT

private slots:
    void startsOnItsPlaceholder();
    void showsTheSetAndItsName();
    void clearingShowsThePlaceholder();
    void aSetThatDiesIsCleared();
    void anOldSetIsNotHeard();
    void repeatsTheSignalsOfTheGrid();
    void scrollsToATilePickedElsewhere();
    void theGridFillsTheWidthAndScrolls();
    void theZoomIsTheGrids();
    void aClickLeavesTheFocusWhereItIs();
};

void tst_TilePickerTool::startsOnItsPlaceholder()
{
    const TilePickerTool tool;

    QCOMPARE(tool.objectName(), QString("TilePickerTool"));
    QCOMPARE(tool.windowTitle(), QString("Tiles"));
    QVERIFY(!tool.isContentShown());
    QCOMPARE(tool.findChild<QLabel *>()->text(), QString("No active tile set"));
}

void tst_TilePickerTool::showsTheSetAndItsName()
{
    TileSet set;
    set.setName("cave");
    TilePickerTool tool;

    tool.setTileSet(&set);

    QVERIFY(tool.isContentShown());
    QCOMPARE(tool.windowTitle(), QString("Tiles: cave"));
    QCOMPARE(tool.grid()->tileSet(), &set);
    set.setName("town");
    QCOMPARE(tool.windowTitle(), QString("Tiles: town"));
}

void tst_TilePickerTool::clearingShowsThePlaceholder()
{
    TileSet set;
    TilePickerTool tool;
    tool.setTileSet(&set);

    tool.setTileSet(nullptr);

    QVERIFY(!tool.isContentShown());
    QCOMPARE(tool.windowTitle(), QString("Tiles"));
    QVERIFY(!tool.grid()->tileSet());
}

void tst_TilePickerTool::aSetThatDiesIsCleared()
{
    auto set = std::make_unique<TileSet>();
    TilePickerTool tool;
    tool.setTileSet(set.get());

    set.reset();

    QVERIFY(!tool.isContentShown());
    QCOMPARE(tool.windowTitle(), QString("Tiles"));
}

void tst_TilePickerTool::anOldSetIsNotHeard()
{
    TileSet old;
    TileSet set;
    set.setName("town");
    TilePickerTool tool;
    tool.setTileSet(&old);
    tool.setTileSet(&set);

    old.setName("cave");

    QCOMPARE(tool.windowTitle(), QString("Tiles: town"));
}

void tst_TilePickerTool::repeatsTheSignalsOfTheGrid()
{
    TileSet set;
    TilePickerTool tool;
    tool.setTileSet(&set);
    QSignalSpy opened(&tool, &TilePickerTool::tileDoubleClicked);
    QSignalSpy picked(&tool, &TilePickerTool::selectedTileChanged);

    emit tool.grid()->itemDoubleClicked(8);
    emit tool.grid()->selectedIndexChanged(3);

    QCOMPARE(opened, QList<QVariantList>{{8}});
    QCOMPARE(picked, QList<QVariantList>{{3}});
}

void tst_TilePickerTool::scrollsToATilePickedElsewhere()
{
    TileSet set;
    TilePickerTool tool;
    tool.setTileSet(&set);
    tool.resize(300, 300);
    tool.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tool));
    QCOMPARE(tool.scrollArea()->verticalScrollBar()->value(), 0);

    emit tool.grid()->selectedIndexChanged(400);

    const QRect cell = tool.grid()->cellRect(400);
    QVERIFY(tool.grid()->visibleRegion().contains(cell.center()));
    QCOMPARE(tool.grid()->selectedIndex(), 400);
}

void tst_TilePickerTool::theGridFillsTheWidthAndScrolls()
{
    TileSet set;
    TilePickerTool tool;
    tool.setTileSet(&set);
    tool.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tool));

    for (const int width : {200, 500, 900}) {
        tool.resize(width, 300);
        const int viewport = tool.scrollArea()->viewport()->width();
        QTRY_COMPARE(tool.grid()->width(), tool.scrollArea()->viewport()->width());
        QVERIFY(viewport > 0);
        QCOMPARE(tool.grid()->height(), tool.grid()->heightForWidth(tool.grid()->width()));
        QVERIFY(!tool.scrollArea()->horizontalScrollBar()->isVisible());
        QVERIFY(tool.scrollArea()->verticalScrollBar()->isVisible());
    }
}

void tst_TilePickerTool::theZoomIsTheGrids()
{
    TilePickerTool tool;

    tool.setZoom(8);
    QCOMPARE(tool.grid()->magnification(), 8);
    tool.setZoom(40);
    QCOMPARE(tool.zoom(), 16);
    QStringList texts;
    for (const QAction *action : tool.zoomActions())
        texts += action->isSeparator() ? QString("-") : action->text();

    QCOMPARE(texts, QStringList({"Zoom In", "Zoom Out", "-", "1x", "2x", "4x", "8x", "16x"}));
}

void tst_TilePickerTool::aClickLeavesTheFocusWhereItIs()
{
    TileSet set(nullptr, 16);
    QWidget window;
    auto *const editor = new QLineEdit(&window);
    auto *const tool = new TilePickerTool(&window);
    tool->setTileSet(&set);
    tool->setGeometry(0, 40, 300, 200);
    window.resize(300, 240);
    window.show();
    window.activateWindow();
    editor->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    QTest::mouseClick(tool->grid(), Qt::LeftButton, {}, tool->grid()->cellRect(3).center());

    QCOMPARE(tool->grid()->selectedIndex(), 3);
    QCOMPARE(QApplication::focusWidget(), editor);
}

QTEST_MAIN(tst_TilePickerTool)
#include "tst_TilePickerTool.moc"
