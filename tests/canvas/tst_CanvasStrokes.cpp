#include "CanvasFixture.h"

using Kind = PixelEditCommand::Kind;
using Tool = Tessaril::Ui::ToolButton;

namespace {

constexpr auto Press = QEvent::MouseButtonPress;
constexpr auto Release = QEvent::MouseButtonRelease;
const Qt::MouseButtons Both = Qt::LeftButton | Qt::RightButton;

} // namespace

/// Gestures with two buttons, gestures that something interrupts, and what a gesture announces:
/// whatever changes the picture is in an edit.
class tst_CanvasStrokes : public QObject
{
    Q_OBJECT

private slots:
    void theImageIsAnnouncedBeforeTheEdit_data();
    void theImageIsAnnouncedBeforeTheEdit();
    void aSecondButtonDoesNotLoseTheFirstPixels();
    void theButtonThatStaysDownIsRecordedToo();
    void leftWinsInDrawing();
    void fillingWithBothButtonsEndsInPaper();
    void pickingWithBothButtonsSetsInk();
    void aRightDragLeavesTheSelection();
    void theSecondReleaseDrawsNoShape();
    void aShapeIsForgottenAtItsRelease();
    void aShapeFromJustOutsideTheCornerShows();
    void aShapeOfWhichPartsLieOutsideIsCut_data();
    void aShapeOfWhichPartsLieOutsideIsCut();
    void onlyTheFilledRectangleTakesInkBeyondTheColours();
    void aToolChosenInAStrokeEndsIt();
    void pastingInAStrokeEndsIt();
    void aToolChosenInAShapeDropsIt();
    void aDroppedShapeDoesNotComeBack();
    void aShapeIsPaintedBeforeItIsAnnounced();
    void theReleaseDecidesWhereToFill();
    void withoutAPictureNothingIsSent();
    void anActionInAStrokeIsAStepOfItsOwn();
    void anotherPictureInAStrokeIsWhereItGoesOn();
    void theSamePictureInAStrokeChangesNothing();
    void inkChosenBeforeThePictureIsUsed();
    void toolsHaveTheirCursors();

private:
    static QStringList before(const CanvasFixture &test, int edit)
    {
        return TestImages::rows(test.edited->value(edit).value(1).value<QImage>());
    }
    static QStringList after(const CanvasFixture &test, int edit)
    {
        return TestImages::rows(test.edited->value(edit).value(2).value<QImage>());
    }
};

void tst_CanvasStrokes::theImageIsAnnouncedBeforeTheEdit_data()
{
    QTest::addColumn<Tool>("tool");
    QTest::newRow("draw") << Tool::Draw;
    QTest::newRow("line") << Tool::Line;
    QTest::newRow("fill") << Tool::Fill;
    QTest::newRow("flip") << Tool::Flip;
}

void tst_CanvasStrokes::theImageIsAnnouncedBeforeTheEdit()
{
    QFETCH(Tool, tool);
    CanvasFixture test({"01", "23"});
    QStringList order;
    connect(&test.canvas, &Canvas::imageChanged, this, [&order] { order += "changed"; });
    connect(&test.canvas, &Canvas::edited, this, [&order] { order += "edited"; });

    test.canvas.setMode(tool, true);
    if (tool != Tool::Flip)
        test.click(0, 0);

    QCOMPARE(order, QStringList({"changed", "edited"}));
    QCOMPARE(test.edited->first().at(3).value<Kind>(), Kind::Edit);
}

void tst_CanvasStrokes::aSecondButtonDoesNotLoseTheFirstPixels()
{
    CanvasFixture test({"00000"});

    test.send(Press, {0, 0}, Qt::LeftButton, Qt::LeftButton);
    test.move(1, 0);
    test.send(Press, {1, 0}, Qt::RightButton, Both);
    test.move(2, 0, Both);
    test.send(Release, {2, 0}, Qt::RightButton, Qt::LeftButton);
    test.send(Release, {2, 0}, Qt::LeftButton, Qt::NoButton);

    QCOMPARE(test.rows(), QStringList("11100"));
    QCOMPARE(test.edited->count(), 1);
    QCOMPARE(before(test, 0), QStringList("00000"));
    QCOMPARE(after(test, 0), QStringList("11100"));
}

void tst_CanvasStrokes::theButtonThatStaysDownIsRecordedToo()
{
    CanvasFixture test({"00000"});

    test.send(Press, {0, 0}, Qt::LeftButton, Qt::LeftButton);
    test.send(Press, {0, 0}, Qt::RightButton, Both);
    test.send(Release, {0, 0}, Qt::LeftButton, Qt::RightButton);
    test.move(3, 0, Qt::RightButton);
    test.send(Release, {3, 0}, Qt::RightButton, Qt::NoButton);

    QCOMPARE(test.rows(), QStringList("10020"));
    QCOMPARE(test.edited->count(), 2);
    QCOMPARE(before(test, 1), QStringList("10000"));
    QCOMPARE(after(test, 1), QStringList("10020"));
}

void tst_CanvasStrokes::leftWinsInDrawing()
{
    CanvasFixture test({"00"});

    test.clickBoth(1, 0);

    QCOMPARE(test.rows(), QStringList("01"));
    QCOMPARE(test.edited->count(), 1);
}

void tst_CanvasStrokes::fillingWithBothButtonsEndsInPaper()
{
    CanvasFixture test({"003", "003"});
    test.canvas.setMode(Tool::Fill, true);

    test.clickBoth(0, 0);

    QCOMPARE(test.rows(), QStringList({"223", "223"}));
    QCOMPARE(test.edited->count(), 1);
    QCOMPARE(before(test, 0), QStringList({"003", "003"}));
}

void tst_CanvasStrokes::pickingWithBothButtonsSetsInk()
{
    CanvasFixture test({"57"});
    test.canvas.setMode(Tool::Pick, true);
    QSignalSpy foreground(&test.canvas, &Canvas::foregroundPicked);
    QSignalSpy background(&test.canvas, &Canvas::backgroundPicked);

    test.clickBoth(1, 0);

    QCOMPARE(test.canvas.ink(), 7);
    QCOMPARE(test.canvas.paper(), 2);
    QCOMPARE(foreground.count(), 1);
    QCOMPARE(background.count(), 0);
}

void tst_CanvasStrokes::aRightDragLeavesTheSelection()
{
    CanvasFixture test({"0000", "0000"});
    test.canvas.setMode(Tool::Select, true);
    test.drag({0, 0}, {1, 1});

    test.press(2, 0, Qt::RightButton);
    test.move(3, 1, Qt::RightButton);

    QCOMPARE(test.canvas.selection(), QRect(0, 0, 2, 2));
}

void tst_CanvasStrokes::theSecondReleaseDrawsNoShape()
{
    CanvasFixture test({"00000", "00000", "00000"});
    test.canvas.setMode(Tool::Line, true);

    test.send(Press, {0, 0}, Qt::LeftButton, Qt::LeftButton);
    test.send(Press, {0, 0}, Qt::RightButton, Both);
    test.move(2, 0, Both);
    test.send(Release, {2, 0}, Qt::LeftButton, Qt::RightButton);
    test.move(4, 2, Qt::RightButton);
    test.send(Release, {4, 2}, Qt::RightButton, Qt::NoButton);

    QCOMPARE(test.rows(), QStringList({"11100", "00000", "00000"}));
    QCOMPARE(test.edited->count(), 1);
    QCOMPARE(test.changed->count(), 1);
}

void tst_CanvasStrokes::aShapeIsForgottenAtItsRelease()
{
    CanvasFixture test({"0000", "0000"});
    test.canvas.setInk(0xE0); // red
    test.canvas.setMode(Tool::RectangleFill, true);
    test.drag({0, 0}, {0, 0});

    test.move(3, 1, Qt::NoButton);

    const QImage shown = test.canvas.grab().toImage();
    QCOMPARE(shown.pixelColor(test.at(0, 0)), QColor(255, 0, 0));
    QCOMPARE(shown.pixelColor(test.at(1, 0)), QColor(0, 0, 0));
    QCOMPARE(shown.pixelColor(test.at(3, 1)), QColor(0, 0, 0));
}

void tst_CanvasStrokes::aShapeFromJustOutsideTheCornerShows()
{
    CanvasFixture test({"000", "000", "000"});
    test.canvas.resize(100, 100);
    test.canvas.setInk(0xE0);
    test.canvas.setMode(Tool::Line, true);
    // As positions are cut towards zero, pixel -1 begins two pixels beside the image.
    const QPoint beside = test.canvas.viewRect().topLeft() - QPoint(15, 15);
    QCOMPARE(test.canvas.pixelAt(beside), QPoint(-1, -1));

    QTest::mousePress(&test.canvas, Qt::LeftButton, {}, beside);
    test.move(2, 2);
    const QImage shown = test.canvas.grab().toImage();
    test.release(2, 2);

    QCOMPARE(shown.pixelColor(test.at(1, 1)), QColor(255, 0, 0));
    QCOMPARE(test.canvas.image().pixelIndex(0, 0), 0xE0);
    QCOMPARE(test.edited->count(), 1);
}

void tst_CanvasStrokes::aShapeOfWhichPartsLieOutsideIsCut_data()
{
    QTest::addColumn<Tool>("tool");
    QTest::addColumn<QStringList>("picture");
    QTest::newRow("line") << Tool::Line << QStringList{"0000", "0111", "0000"};
    QTest::newRow("rectangle") << Tool::Rectangle << QStringList{"0000", "0111", "0100"};
    QTest::newRow("filled") << Tool::RectangleFill << QStringList{"0000", "0111", "0111"};
}

void tst_CanvasStrokes::aShapeOfWhichPartsLieOutsideIsCut()
{
    QFETCH(Tool, tool);
    QFETCH(QStringList, picture);
    CanvasFixture test({"0000", "0000", "0000"});
    test.canvas.setMode(tool, true);

    test.drag({1, 1}, {6, tool == Tool::Line ? 1 : 5});

    QCOMPARE(test.rows(), picture);
    QCOMPARE(test.edited->count(), 1);
}

void tst_CanvasStrokes::onlyTheFilledRectangleTakesInkBeyondTheColours()
{
    CanvasFixture test({"00"});
    test.canvas.setInk(7);
    test.canvas.setInk(0x109); // the surface keeps the 7

    test.canvas.setMode(Tool::Line, true);
    test.press(0, 0);
    const QColor preview = test.canvas.grab().toImage().pixelColor(test.at(0, 0));
    test.release(0, 0);
    test.canvas.setMode(Tool::RectangleFill, true);
    test.click(1, 0);

    QCOMPARE(test.rows(), QStringList("79"));
    QCOMPARE(preview, test.palette.colour(7));
}

void tst_CanvasStrokes::aToolChosenInAStrokeEndsIt()
{
    CanvasFixture test({"0000", "0000"});

    test.press(0, 0);
    test.move(1, 0);
    test.canvas.setMode(Tool::Fill, true);
    QCOMPARE(test.edited->count(), 1);
    test.release(3, 1);

    QCOMPARE(test.edited->value(0).value(0).toString(), QString("Draw"));
    QCOMPARE(after(test, 0), QStringList({"1100", "0000"}));
    for (int edit = 1; edit < test.edited->count(); ++edit)
        QCOMPARE(before(test, edit), after(test, edit - 1));
    QCOMPARE(after(test, int(test.edited->count()) - 1), test.rows());
}

void tst_CanvasStrokes::pastingInAStrokeEndsIt()
{
    CanvasFixture test({"0000"});
    test.canvas.copy();

    test.press(0, 0);
    test.canvas.paste();

    QCOMPARE(test.edited->count(), 1);
    QCOMPARE(after(test, 0), QStringList("1000"));
}

void tst_CanvasStrokes::aToolChosenInAShapeDropsIt()
{
    CanvasFixture test({"000", "000"});
    test.canvas.setMode(Tool::Rectangle, true);

    test.press(0, 0);
    test.move(1, 0);
    test.canvas.setMode(Tool::Line, true);
    test.move(2, 1);
    test.release(2, 1);

    QCOMPARE(test.rows(), QStringList({"000", "000"}));
    QCOMPARE(test.edited->count(), 0);
}

void tst_CanvasStrokes::aDroppedShapeDoesNotComeBack()
{
    CanvasFixture test({"000", "000"});
    test.canvas.setInk(0xE0);
    test.canvas.setMode(Tool::Rectangle, true);
    test.press(0, 0);
    test.canvas.setMode(Tool::Line, true);
    test.release(0, 0);

    test.canvas.setMode(Tool::Rectangle, true);
    test.move(2, 1, Qt::NoButton);
    QCOMPARE(test.canvas.grab().toImage().pixelColor(test.at(2, 1)), QColor(0, 0, 0));
    test.release(2, 1);

    QCOMPARE(test.rows(), QStringList({"000", "000"}));
}

void tst_CanvasStrokes::aShapeIsPaintedBeforeItIsAnnounced()
{
    PaintCounter counter;
    CanvasFixture test({"000"});
    test.canvas.setMode(Tool::Line, true);
    QCoreApplication::processEvents();
    test.press(0, 0);
    test.canvas.installEventFilter(&counter);
    int paintsBefore = 0;
    connect(&test.canvas, &Canvas::imageChanged, this, [&] { paintsBefore = counter.paints; });

    test.release(2, 0);

    QCOMPARE(paintsBefore, 1);
}

void tst_CanvasStrokes::theReleaseDecidesWhereToFill()
{
    CanvasFixture test({"0330"});
    test.canvas.setMode(Tool::Fill, true);

    test.press(0, 0);
    test.release(3, 0);

    QCOMPARE(test.rows(), QStringList("0331"));
}

void tst_CanvasStrokes::withoutAPictureNothingIsSent()
{
    CanvasFixture test({"0"});
    test.canvas.copy();
    test.canvas.setImage(QImage());
    test.changed->clear();

    for (const Tool tool : {Tool::Draw, Tool::Line, Tool::Circle, Tool::Fill, Tool::Pick,
                            Tool::Select, Tool::Paste}) {
        test.canvas.setMode(tool, true);
        test.drag({0, 0}, {3, 3});
    }
    test.canvas.selectAll();
    test.canvas.cut();

    QCOMPARE(test.changed->count(), 0);
    QCOMPARE(test.edited->count(), 0);
    QVERIFY(!test.canvas.hasSelection());
}

void tst_CanvasStrokes::anActionInAStrokeIsAStepOfItsOwn()
{
    CanvasFixture test({"0000", "5000"});

    test.press(0, 0);
    test.canvas.setMode(Tool::Flip, false);
    test.move(3, 0);
    test.release(3, 0);

    QCOMPARE(test.rows(), QStringList({"5001", "1000"}));
    QStringList texts;
    for (const QVariantList &edit : *test.edited)
        texts += edit.first().toString();
    QCOMPARE(texts, QStringList({"Draw", "Flip", "Draw"}));
    QCOMPARE(before(test, 0), QStringList({"0000", "5000"}));
    QCOMPARE(before(test, 1), after(test, 0));
    QCOMPARE(before(test, 2), after(test, 1));
    QCOMPARE(after(test, 2), test.rows());
}

void tst_CanvasStrokes::anotherPictureInAStrokeIsWhereItGoesOn()
{
    CanvasFixture test({"0000"});

    test.press(0, 0);
    test.canvas.setImage(TestImages::indexed({"7777"}));
    test.move(2, 0);
    test.release(2, 0);

    QCOMPARE(test.edited->count(), 1);
    QCOMPARE(before(test, 0), QStringList("7777"));
    QCOMPARE(after(test, 0), QStringList("7717"));
}

void tst_CanvasStrokes::theSamePictureInAStrokeChangesNothing()
{
    CanvasFixture test({"0000"});

    test.press(0, 0);
    test.canvas.setImage(TestImages::indexed({"1000"}));
    test.release(0, 0);

    QCOMPARE(test.edited->count(), 1);
    QCOMPARE(before(test, 0), QStringList("0000"));
    QCOMPARE(after(test, 0), QStringList("1000"));
}

void tst_CanvasStrokes::inkChosenBeforeThePictureIsUsed()
{
    Palette palette;
    Canvas canvas;
    canvas.setPalette(&palette);
    canvas.setInk(9);
    canvas.setPaper(8);

    canvas.setImage(TestImages::indexed({"0000"}));

    QCOMPARE(canvas.surface().ink(), 9);
    QCOMPARE(canvas.surface().paper(), 8);
}

void tst_CanvasStrokes::toolsHaveTheirCursors()
{
    CanvasFixture test({"00"});
    QCOMPARE(test.canvas.cursor().shape(), Qt::CrossCursor);

    test.canvas.setMode(Tool::Fill, true);
    QCOMPARE(test.canvas.cursor().shape(), Qt::BitmapCursor);
    QCOMPARE(test.canvas.cursor().hotSpot(), QPoint(29, 26));
    test.canvas.copy();
    test.canvas.paste();
    QCOMPARE(test.canvas.mode(), Tool::Paste);
    QCOMPARE(test.canvas.cursor().hotSpot(), QPoint(29, 26));
    test.canvas.setMode(Tool::Pick, true);
    QCOMPARE(test.canvas.cursor().shape(), Qt::BitmapCursor);
    QCOMPARE(test.canvas.cursor().hotSpot(), QPoint(5, 28));
    test.canvas.setMode(Tool::Select, true);
    QCOMPARE(test.canvas.cursor().shape(), Qt::ArrowCursor);
    test.canvas.setMode(Tool::Draw, true);
    QCOMPARE(test.canvas.cursor().shape(), Qt::CrossCursor);
}

QTEST_MAIN(tst_CanvasStrokes)
#include "tst_CanvasStrokes.moc"
