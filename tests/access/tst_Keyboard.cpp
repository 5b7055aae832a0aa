#include "access/Surfaces.h"

#include "canvas/Canvas.h"
#include "colour/PaletteGrid.h"
#include "editors/FrameEditorWidget.h"
#include "editors/SpriteEditorView.h"
#include "editors/SpriteList.h"
#include "editors/TilePickerGrid.h"
#include "editors/TileSheet.h"
#include "mapeditor/MapGrid.h"
#include "mapeditor/SpritePropertiesPopover.h"
#include "mapeditor/View.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"

#include <QAccessible>
#include <QApplication>
#include <QListWidget>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

namespace {

QString value(QWidget *widget)
{
    QAccessibleInterface *const spoken = QAccessible::queryAccessibleInterface(widget);
    return spoken ? spoken->text(QAccessible::Value) : QString();
}

bool speaks(QWidget *widget, const QString &name)
{
    QAccessibleInterface *const spoken = QAccessible::queryAccessibleInterface(widget);
    return spoken && spoken->text(QAccessible::Name) == name &&
           spoken->role() == QAccessible::Canvas &&
           spoken->text(QAccessible::Description) == spoken->text(QAccessible::Value);
}

} // namespace

/// The painted widgets by keys alone, and what they say of where the keys have come to.
class tst_Keyboard : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aCanvasIsPaintedByKeys();
    void aCanvasScrollsAfterItsPointer();
    void aHeldSpaceDrawsOnTheWay();
    void losingTheFocusLetsGo();
    void aMouseTakesThePointerOver();
    void keysThatBringTheFocusShowThePointer();
    void aPointerEntersWhereTheViewHasBeenScrolledTo();
    void aMapIsPaintedByKeys();
    void plainArrowsStillScrollTheMap();
    void aMapScrollsAfterItsPointer();
    void theTilePickerSpeaks();
    void thePaletteGridSpeaks();
    void theSpriteListSpeaks();
    void theFrameEditorSpeaks();
    void theKeyForPanesGoesRound();
    void numbersLeaveUndoToTheMenu();

private:
    template <typename View>
    View *tab()
    {
        DocumentTabView *const tabs = m_surfaces->views().tabs;
        for (int i = 0; i < tabs->count(); ++i) {
            auto *const view = qobject_cast<View *>(tabs->widget(i));
            if (!view)
                continue;
            tabs->setCurrentIndex(i);
            return view;
        }
        return nullptr;
    }
    Canvas *imageCanvas() { return tab<ImageEditor::View>()->template findChild<Canvas *>(); }

    std::unique_ptr<Surfaces> m_surfaces;
};

void tst_Keyboard::init()
{
    m_surfaces = std::make_unique<Surfaces>();
}

void tst_Keyboard::cleanup()
{
    m_surfaces.reset();
}

void tst_Keyboard::aCanvasIsPaintedByKeys()
{
    Canvas *const canvas = imageCanvas();
    canvas->setInk(7);
    canvas->setFocus();
    QVERIFY(speaks(canvas, "Canvas"));

    QTest::keyClick(canvas, Qt::Key_Right); // enters at the corner
    QTest::keyClick(canvas, Qt::Key_Right);
    QTest::keyClick(canvas, Qt::Key_Down);
    QCOMPARE(value(canvas), QString("pixel 1, 1, colour 0"));
    QTest::keyClick(canvas, Qt::Key_Space);

    QCOMPARE(canvas->image().pixelIndex(1, 1), 7);
    QCOMPARE(canvas->image().pixelIndex(0, 0), 0);
    QCOMPARE(value(canvas), QString("pixel 1, 1, colour 7"));
}

void tst_Keyboard::aCanvasScrollsAfterItsPointer()
{
    Canvas *const canvas = imageCanvas();
    canvas->setZoomLevel(32);
    canvas->setFocus();
    QTest::keyClick(canvas, Qt::Key_Right);
    const int width = canvas->visiblePixels().width();
    QVERIFY(width < canvas->image().width());

    for (int i = 0; i < width; ++i)
        QTest::keyClick(canvas, Qt::Key_Right);

    QCOMPARE(canvas->visiblePixels().left(), 1);
    QCOMPARE(value(canvas), QString("pixel %1, 0, colour 0").arg(width));
    for (int i = 0; i <= width; ++i)
        QTest::keyClick(canvas, Qt::Key_Left);
    QCOMPARE(canvas->visiblePixels().left(), 0);
    QCOMPARE(value(canvas), QString("pixel 0, 0, colour 0"));
}

void tst_Keyboard::aHeldSpaceDrawsOnTheWay()
{
    Canvas *const canvas = imageCanvas();
    canvas->setInk(5);
    canvas->setFocus();
    QSignalSpy edited(canvas, &Canvas::edited);

    QTest::keyPress(canvas, Qt::Key_Space);
    QTest::keyClick(canvas, Qt::Key_Right);
    QTest::keyClick(canvas, Qt::Key_Right);
    QCOMPARE(edited.count(), 0);
    QTest::keyRelease(canvas, Qt::Key_Space);

    QCOMPARE(edited.count(), 1);
    for (int x = 0; x < 3; ++x)
        QCOMPARE(canvas->image().pixelIndex(x, 0), 5);
    QCOMPARE(canvas->image().pixelIndex(3, 0), 0);
}

void tst_Keyboard::losingTheFocusLetsGo()
{
    Canvas *const canvas = imageCanvas();
    canvas->setFocus();
    QSignalSpy edited(canvas, &Canvas::edited);
    canvas->setInk(5);
    QTest::keyPress(canvas, Qt::Key_Space);

    m_surfaces->views().tabs->setFocus();

    QCOMPARE(edited.count(), 1);
}

void tst_Keyboard::aMouseTakesThePointerOver()
{
    Canvas *const canvas = imageCanvas();
    canvas->setFocus();
    QTest::keyClick(canvas, Qt::Key_Right);
    const QPoint at = canvas->cellRect({QPoint(9, 4), QSize(1, 1)}).center();

    QTest::mouseMove(canvas, at);
    QTest::keyClick(canvas, Qt::Key_Right);

    QCOMPARE(value(canvas), QString("pixel 10, 4, colour 0"));
}

void tst_Keyboard::keysThatBringTheFocusShowThePointer()
{
    Canvas *const canvas = imageCanvas();
    canvas->clearFocus(); // which the tab in front may have
    const QImage without = canvas->grab().toImage();

    canvas->setFocus(Qt::MouseFocusReason);
    QCOMPARE(canvas->grab().toImage(), without);
    canvas->clearFocus();
    canvas->setFocus(Qt::ShortcutFocusReason);

    QVERIFY(canvas->grab().toImage() != without);
    QCOMPARE(value(canvas), QString("pixel 0, 0, colour 0"));
    QTest::keyClick(canvas, Qt::Key_Right);
    QCOMPARE(value(canvas), QString("pixel 1, 0, colour 0"));
}

void tst_Keyboard::aPointerEntersWhereTheViewHasBeenScrolledTo()
{
    Canvas *const canvas = imageCanvas();
    canvas->setZoomLevel(32);
    canvas->setHorizontalPosition(20);
    canvas->setVerticalPosition(30);
    const QRect view = canvas->visiblePixels();
    canvas->clearFocus(); // which the tab in front may have

    canvas->setFocus(Qt::TabFocusReason);

    QCOMPARE(value(canvas), QString("pixel 20, 30, colour 0"));
    QCOMPARE(canvas->visiblePixels(), view);
    canvas->clearFocus();
    canvas->setHorizontalPosition(60);
    const QRect scrolled = canvas->visiblePixels();
    canvas->setFocus(Qt::TabFocusReason);
    QCOMPARE(canvas->visiblePixels(), scrolled);
}

void tst_Keyboard::aMapIsPaintedByKeys()
{
    auto *const view = tab<MapEditor::View>();
    MapEditor::MapGrid *const grid = view->grid();
    view->setTileIndex(16);
    view->setFocus();
    QVERIFY(speaks(grid, "Map"));

    QTest::keyClick(view, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(view, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(view, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(view, Qt::Key_Space);

    const TileMap::TileData cell = grid->map()->tileLayer()->cell({1, 1});
    QCOMPARE(cell.index, 16);
    QCOMPARE(value(grid), QString("column 1, row 1, tile 17, offset %1").arg(cell.offset + 1));
    QCOMPARE(grid->mode(), Tessaril::Ui::ToolButton::Draw);
}

void tst_Keyboard::plainArrowsStillScrollTheMap()
{
    auto *const view = tab<MapEditor::View>();
    view->grid()->setCellMetrics(32, 8);
    view->grid()->updateGeometryMetrics();
    view->setFocus();

    QTest::keyClick(view, Qt::Key_Right);

    QCOMPARE(view->grid()->cellGeometry().scroll, QPoint(1, 0));
    QCOMPARE(value(view->grid()), QString());
}

void tst_Keyboard::aMapScrollsAfterItsPointer()
{
    auto *const view = tab<MapEditor::View>();
    MapEditor::MapGrid *const grid = view->grid();
    grid->setCellMetrics(32, 8);
    grid->updateGeometryMetrics();
    view->setFocus();
    QTest::keyClick(view, Qt::Key_Down, Qt::ShiftModifier);
    const int rows = grid->cellGeometry().visibleCells().height();

    for (int i = 0; i < rows; ++i)
        QTest::keyClick(view, Qt::Key_Down, Qt::ShiftModifier);

    QCOMPARE(grid->cellGeometry().scroll, QPoint(0, 1));
    QVERIFY(value(grid).startsWith(QString("column 0, row %1, ").arg(rows)));
}

void tst_Keyboard::theTilePickerSpeaks()
{
    TilePickerGrid *const grid = m_surfaces->views().tilePicker->grid();
    QVERIFY(speaks(grid, "Tiles"));
    grid->setFocus();

    grid->setSelectedIndex(16);
    const int offset = grid->tileSet()->tile(16)->offset();
    QCOMPARE(value(grid), QString("tile 17, offset %1").arg(offset + 1));
    QTest::keyClick(grid, Qt::Key_Right);

    QVERIFY(value(grid).startsWith("tile 18, "));
}

void tst_Keyboard::thePaletteGridSpeaks()
{
    auto *const grid = m_surfaces->views().paletteWindow->findChild<PaletteGrid *>();
    m_surfaces->views().paletteWindow->raise();
    QVERIFY(speaks(grid, "Palette colours"));
    grid->setFocus();
    grid->setSelection(2, 2);
    QVERIFY2(value(grid).startsWith("Index: 2, Red "), qPrintable(value(grid)));

    QTest::keyClick(grid, Qt::Key_Right, Qt::ShiftModifier);

    QVERIFY2(value(grid).startsWith("Index: 3, Red "), qPrintable(value(grid)));
    QVERIFY2(value(grid).endsWith(", 2 to 3 selected"), qPrintable(value(grid)));
}

void tst_Keyboard::theSpriteListSpeaks()
{
    m_surfaces->views().spriteWindow->raise();
    auto *const list = m_surfaces->views().spriteWindow->findChild<SpriteEditor::SpriteList *>();
    QVERIFY(speaks(list, "Sprites"));
    list->setFocus();
    list->setSelectedIndex(0);

    QTest::keyClick(list, Qt::Key_Right);

    QCOMPARE(value(list), QString("sprite 2 of %1").arg(list->sprites()->count()));
}

void tst_Keyboard::theFrameEditorSpeaks()
{
    auto *const view = tab<SpriteEditor::View>();
    view->findChild<QListWidget *>()->setCurrentRow(0);
    auto *const frame = view->findChild<AnimationEditor::FrameEditorWidget *>();
    QVERIFY(speaks(frame, "Frame"));
    QCOMPARE(value(frame), QString("frame 1"));
    frame->setFocus();

    QTest::keyClick(frame, Qt::Key_Right);

    QVERIFY2(value(frame).startsWith("frame 1, column 0, row 0, sprite "),
             qPrintable(value(frame)));
}

void tst_Keyboard::theKeyForPanesGoesRound()
{
    MainWindow *const window = m_surfaces->window();
    auto *const view = tab<MapEditor::View>();
    view->setFocus();
    QList<QWidget *> visited;

    do {
        QTest::keyClick(window, Qt::Key_F6);
        visited += QApplication::focusWidget();
    } while (visited.last() != view && visited.size() < 20);

    QCOMPARE(visited.last(), view);
    const auto reached = [&visited](const QWidget *pane) {
        return std::any_of(visited.cbegin(), visited.cend(), [pane](const QWidget *one) {
            return one == pane || pane->isAncestorOf(one);
        });
    };
    QVERIFY(reached(m_surfaces->views().projectWindow->tree()));
    QVERIFY(reached(m_surfaces->views().tilePicker));
    QTest::keyClick(window, Qt::Key_F6, Qt::ShiftModifier);
    QCOMPARE(QApplication::focusWidget(), visited.at(visited.size() - 2));
}

void tst_Keyboard::numbersLeaveUndoToTheMenu()
{
    const auto *const attributes = m_surfaces->window()->findChild<TileSheet *>(); // have no undo
    QStringList kept;
    int count = 0;
    for (QSpinBox *const field : m_surfaces->window()->findChildren<QSpinBox *>()) {
        const bool isEdit = field->window() == m_surfaces->window() ||
                            qobject_cast<MapEditor::SpritePropertiesPopover *>(field->window());
        if (!isEdit || attributes->isAncestorOf(field))
            continue;
        ++count;
        QKeyEvent undo(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
        QCoreApplication::sendEvent(field, &undo);
        if (undo.isAccepted())
            kept += field->accessibleName();
    }

    QVERIFY(count > 12);
    QCOMPARE(kept, QStringList());
}

QTEST_MAIN(tst_Keyboard)
#include "tst_Keyboard.moc"
