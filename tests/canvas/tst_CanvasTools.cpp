#include "CanvasFixture.h"

#include <QMenu>
#include <QPainter>
#include <QRubberBand>

using Tool = Tessaril::Ui::ToolButton;

class tst_CanvasTools : public QObject
{
    Q_OBJECT

private slots:
    void drawSetsInkAndPaperByButton();
    void drawLeavesGapsBetweenEvents();
    void drawOutsideSetsNothingAndIsNoEdit();
    void aStrokeThatChangesNothingIsNoEdit();
    void aStrokeInAnIndexOfTheSameColourIsAnEdit();
    void shapesAreDrawnAtTheReleaseInInk_data();
    void shapesAreDrawnAtTheReleaseInInk();
    void aShapeInProgressShowsWithoutBeingInTheImage();
    void hoveringWithAShapeToolShowsNothing();
    void fillUsesInkAndPaperByButton();
    void fillWithTheSameIndexIsNoEdit();
    void fillOutsideIsNoEdit();
    void pickSetsInkOrPaperByButton();
    void pickOutsideLeavesInkAndPaper();
    void selectDragsABandOfWholePixels();
    void selectDragsInAnyDirection();
    void selectIsClippedToTheView();
    void rightClickWithSelectOpensTheMenuAndKeepsTheBand();
    void aSecondPressStartsANewSelection();
};

void tst_CanvasTools::drawSetsInkAndPaperByButton()
{
    CanvasFixture test({"0000", "0000"});

    test.press(0, 0);
    test.move(1, 0);
    test.move(1, 1);
    test.release(1, 1);
    test.click(3, 1, Qt::RightButton);

    QCOMPARE(test.rows(), QStringList({"1100", "0102"}));
    QCOMPARE(test.edited->count(), 2);
    QCOMPARE(test.editText(), QString("Draw"));
    const auto kind = test.edited->first().at(3).value<PixelEditCommand::Kind>();
    QCOMPARE(kind, PixelEditCommand::Kind::Edit);
    QCOMPARE(TestImages::rows(test.edited->first().at(1).value<QImage>()),
             QStringList({"0000", "0000"}));
    QCOMPARE(TestImages::rows(test.edited->first().at(2).value<QImage>()),
             QStringList({"1100", "0100"}));
    QCOMPARE(test.changed->count(), 2);
}

void tst_CanvasTools::drawLeavesGapsBetweenEvents()
{
    CanvasFixture test({"00000"});

    test.drag({0, 0}, {4, 0});

    QCOMPARE(test.rows(), QStringList({"10001"}));
}

void tst_CanvasTools::drawOutsideSetsNothingAndIsNoEdit()
{
    CanvasFixture test({"000", "000"});
    test.canvas.resize(200, 200);

    test.click(-3, 0);
    test.click(5, 1);

    QCOMPARE(test.rows(), QStringList({"000", "000"}));
    QCOMPARE(test.edited->count(), 0);
}

void tst_CanvasTools::aStrokeThatChangesNothingIsNoEdit()
{
    CanvasFixture test({"111"});

    test.drag({0, 0}, {2, 0});

    QCOMPARE(test.edited->count(), 0);
}

void tst_CanvasTools::aStrokeInAnIndexOfTheSameColourIsAnEdit()
{
    CanvasFixture fixture({"22", "22"});
    fixture.palette.setColour(1, Qt::black);
    fixture.palette.setColour(2, Qt::black);

    fixture.click(1, 0);

    QCOMPARE(fixture.rows(), QStringList({"21", "22"}));
    QCOMPARE(fixture.edited->count(), 1);
}

void tst_CanvasTools::shapesAreDrawnAtTheReleaseInInk_data()
{
    QTest::addColumn<Tool>("tool");
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("picture");
    const QStringList outline = {"00000", "01110", "01010", "01110", "00000"};
    QTest::newRow("line") << Tool::Line << Qt::LeftButton << "Line"
                          << QStringList{"00000", "01000", "00100", "00010", "00000"};
    QTest::newRow("rectangle") << Tool::Rectangle << Qt::LeftButton << "Rectangle" << outline;
    QTest::newRow("right button") << Tool::Rectangle << Qt::RightButton << "Rectangle" << outline;
    QTest::newRow("filled") << Tool::RectangleFill << Qt::LeftButton << "Filled Rectangle"
                            << QStringList{"00000", "01110", "01110", "01110", "00000"};
    QTest::newRow("circle") << Tool::Circle << Qt::LeftButton << "Circle"
                            << QStringList{"00000", "00100", "01010", "00100", "00000"};
}

void tst_CanvasTools::shapesAreDrawnAtTheReleaseInInk()
{
    QFETCH(Tool, tool);
    QFETCH(Qt::MouseButton, button);
    QFETCH(QString, text);
    QFETCH(QStringList, picture);
    CanvasFixture test({"00000", "00000", "00000", "00000", "00000"});
    test.canvas.setMode(tool, true);
    QCOMPARE(test.canvas.cursor().shape(), Qt::CrossCursor);

    test.press(1, 1, button);
    test.move(3, 3, button);
    QCOMPARE(test.rows(), QStringList(5, "00000"));
    test.release(3, 3, button);

    QCOMPARE(test.rows(), picture);
    QCOMPARE(test.edited->count(), 1);
    QCOMPARE(test.editText(), text);
    QCOMPARE(test.changed->count(), 1);
}

void tst_CanvasTools::aShapeInProgressShowsWithoutBeingInTheImage()
{
    CanvasFixture test({"0000", "0000"});
    test.canvas.setInk(0xE0); // red
    test.canvas.setMode(Tool::Line, true);

    test.press(0, 0);
    test.move(3, 0);

    const QImage shown = test.canvas.grab().toImage();
    QCOMPARE(shown.pixelColor(test.at(2, 0)), QColor(255, 0, 0));
    QCOMPARE(shown.pixelColor(test.at(2, 1)), QColor(0, 0, 0));
    QCOMPARE(test.rows(), QStringList({"0000", "0000"}));
    QCOMPARE(test.edited->count(), 0);
}

void tst_CanvasTools::hoveringWithAShapeToolShowsNothing()
{
    CanvasFixture test({"0000", "0000"});
    test.canvas.setInk(0xE0);
    test.canvas.setMode(Tool::Line, true);
    const QImage before = test.canvas.grab().toImage();

    test.move(3, 1, Qt::NoButton);

    QCOMPARE(test.canvas.grab().toImage(), before);
}

void tst_CanvasTools::fillUsesInkAndPaperByButton()
{
    CanvasFixture test({"0030", "0030"});
    test.canvas.setMode(Tool::Fill, true);

    test.click(0, 0);
    test.click(3, 0, Qt::RightButton);

    QCOMPARE(test.rows(), QStringList({"1132", "1132"}));
    QCOMPARE(test.edited->count(), 2);
    QCOMPARE(test.editText(), QString("Fill"));
}

void tst_CanvasTools::fillWithTheSameIndexIsNoEdit()
{
    CanvasFixture test({"11", "11"});
    test.canvas.setMode(Tool::Fill, true);

    test.click(0, 0);

    QCOMPARE(test.edited->count(), 0);
}

void tst_CanvasTools::fillOutsideIsNoEdit()
{
    CanvasFixture test({"00", "00"});
    test.canvas.resize(100, 100);
    test.canvas.setMode(Tool::Fill, true);

    test.click(4, 4);

    QCOMPARE(test.edited->count(), 0);
    QCOMPARE(test.rows(), QStringList({"00", "00"}));
}

void tst_CanvasTools::pickSetsInkOrPaperByButton()
{
    CanvasFixture test({"57"});
    test.canvas.setMode(Tool::Pick, true);
    QSignalSpy foreground(&test.canvas, &Canvas::foregroundPicked);
    QSignalSpy background(&test.canvas, &Canvas::backgroundPicked);

    test.click(0, 0);
    test.click(1, 0, Qt::RightButton);

    QCOMPARE(test.canvas.ink(), 5);
    QCOMPARE(test.canvas.surface().ink(), 5);
    QCOMPARE(test.canvas.paper(), 7);
    QCOMPARE(test.canvas.surface().paper(), 7);
    QCOMPARE(foreground.count(), 1);
    QCOMPARE(foreground.first().first().toInt(), 5);
    QCOMPARE(background.count(), 1);
    QCOMPARE(background.first().first().toInt(), 7);
    QCOMPARE(test.edited->count(), 0);
}

void tst_CanvasTools::pickOutsideLeavesInkAndPaper()
{
    CanvasFixture test({"57"});
    test.canvas.resize(100, 100);
    test.canvas.setMode(Tool::Pick, true);
    QSignalSpy foreground(&test.canvas, &Canvas::foregroundPicked);

    test.click(4, 3);

    QCOMPARE(test.canvas.ink(), 1);
    QCOMPARE(foreground.count(), 0);
}

void tst_CanvasTools::selectDragsABandOfWholePixels()
{
    CanvasFixture test({"00000", "00000", "00000"});
    test.canvas.setMode(Tool::Select, true);
    auto *const band = test.canvas.findChild<QRubberBand *>();
    QVERIFY(band->isHidden());

    test.press(1, 0);
    QCOMPARE(test.canvas.selection(), QRect(1, 0, 1, 1));
    QVERIFY(band->isVisible());
    test.move(3, 2);
    test.release(3, 2);

    QCOMPARE(test.canvas.selection(), QRect(1, 0, 3, 3));
    QCOMPARE(band->geometry(), test.canvas.cellRect(QRect(1, 0, 3, 3)));
    QCOMPARE(test.edited->count(), 0);
}

void tst_CanvasTools::selectDragsInAnyDirection()
{
    CanvasFixture test({"00000", "00000", "00000"});
    test.canvas.setMode(Tool::Select, true);

    test.drag({3, 2}, {1, 1});

    QCOMPARE(test.canvas.selection(), QRect(1, 1, 3, 2));
}

void tst_CanvasTools::selectIsClippedToTheView()
{
    CanvasFixture test({"00000", "00000", "00000"});
    test.canvas.setMode(Tool::Select, true);

    test.drag({3, 1}, {20, -9});

    QCOMPARE(test.canvas.selection(), QRect(3, 0, 2, 2));
}

void tst_CanvasTools::rightClickWithSelectOpensTheMenuAndKeepsTheBand()
{
    CanvasFixture test({"00000", "00000", "00000"});
    test.canvas.setMode(Tool::Select, true);
    test.drag({1, 1}, {2, 2});

    test.click(4, 0, Qt::RightButton);

    auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QStringList texts;
    for (const QAction *const action : menu->actions())
        texts += action->text();
    QCOMPARE(texts,
             QStringList({"Cut", "Copy", "Paste", "Select All", "Select None", "Erase", "Fill"}));
    menu->close();
    QCOMPARE(test.canvas.selection(), QRect(1, 1, 2, 2));
}

void tst_CanvasTools::aSecondPressStartsANewSelection()
{
    CanvasFixture test({"00000", "00000", "00000"});
    test.canvas.setMode(Tool::Select, true);
    test.drag({0, 0}, {2, 2});

    test.press(4, 2);

    QCOMPARE(test.canvas.selection(), QRect(4, 2, 1, 1));
}

QTEST_MAIN(tst_CanvasTools)
#include "tst_CanvasTools.moc"
