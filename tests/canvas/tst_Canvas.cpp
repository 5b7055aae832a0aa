#include "CanvasFixture.h"

#include <QRubberBand>
#include <QWheelEvent>

using Tool = Tessaril::Ui::ToolButton;
using Kind = PixelEditCommand::Kind;

class tst_Canvas : public QObject
{
    Q_OBJECT

private slots:
    void startsAsTold();
    void sizeFollowsImageZoomAndPixelShape();
    void aSmallImageIsCentredAndDoesNotScroll();
    void aLargeImageScrollsWithinItself();
    void zoomStaysWithinItsLimits_data();
    void zoomStaysWithinItsLimits();
    void controlAndWheelZoom();
    void theWheelScrollsByTwo();
    void theWheelOutsideTheViewDoesNothing();
    void wholeImageActions_data();
    void wholeImageActions();
    void anActionThatChangesNothingIsNoEdit();
    void anotherIndexOfTheSameColourIsAnEdit();
    void modesDropTheSelection();
    void cutWithoutASelectionDoesNothing();
    void cutFillsTheSelectionWithPaper();
    void cutModeCopiesAndErases();
    void selectAllCoversTheView();
    void unknownActionsAreLogged();
    void inkBeyondTheColoursStaysOutOfTheSurface();
    void setImageAnnouncesAndTakesThePalettesColours();
    void colourChangesReachTheImage();
    void remapMovesInkAndPaper();
    void paintsNothingWithoutAPalette();
    void paintsPixelsAtZoom();
    void checkersCoverSixteenScreenPixels();
    void bothOverlaysShow();
    void aMoveWithinAPixelPaintsNothing();
    void selectionSurvivesScrolling();
    void theSelectionIsCutToASmallerPicture();

private:
    static void wheel(Canvas &canvas, QPoint delta, Qt::KeyboardModifiers modifiers = {},
                      QPoint position = {-1, -1});
};

void tst_Canvas::wheel(Canvas &canvas, QPoint delta, Qt::KeyboardModifiers modifiers,
                       QPoint position)
{
    if (position.x() < 0)
        position = canvas.viewRect().center();
    QWheelEvent event(position, canvas.mapToGlobal(position), {}, delta, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&canvas, &event);
}

void tst_Canvas::startsAsTold()
{
    const Canvas canvas;

    QCOMPARE(canvas.zoomLevel(), 16);
    QCOMPARE(canvas.mode(), Tool::Draw);
    QCOMPARE(canvas.ink(), 0);
    QCOMPARE(canvas.paper(), 0);
    QCOMPARE(canvas.imageType(), Tessaril::Ui::ImageType::Full256);
    QVERIFY(!canvas.areCheckersVisible());
    QVERIFY(!canvas.areGridLinesVisible());
    QVERIFY(!canvas.hasSelection());
}

void tst_Canvas::sizeFollowsImageZoomAndPixelShape()
{
    CanvasFixture test({"000", "000"}, 7);
    QCOMPARE(test.canvas.sizeHint(), QSize(21, 14));

    test.canvas.setHiRes(true);

    QCOMPARE(test.canvas.sizeHint(), QSize(21, 28));
}

void tst_Canvas::aSmallImageIsCentredAndDoesNotScroll()
{
    CanvasFixture test({"000", "000"}, 10);
    QSignalSpy ranges(&test.canvas, &Canvas::scrollValuesChanged);

    test.canvas.resize(100, 80);

    QCOMPARE(test.canvas.viewRect(), QRect(35, 30, 30, 20));
    QCOMPARE(ranges.last(), QVariantList({0, 0}));
    QCOMPARE(test.canvas.pixelAt({35, 30}), QPoint(0, 0));
    QCOMPARE(test.canvas.pixelAt({64, 49}), QPoint(2, 1));
    QCOMPARE(test.canvas.pixelAt({65, 50}), QPoint(3, 2));
    // Truncation: up to one pixel beside the image still counts as its first.
    QCOMPARE(test.canvas.pixelAt({26, 21}), QPoint(0, 0));
    QCOMPARE(test.canvas.pixelAt({25, 20}), QPoint(-1, -1));
}

void tst_Canvas::aLargeImageScrollsWithinItself()
{
    CanvasFixture test(QStringList(20, QString(30, '0')), 10);
    QSignalSpy ranges(&test.canvas, &Canvas::scrollValuesChanged);
    QSignalSpy positions(&test.canvas, &Canvas::scrollPositionChanged);

    test.canvas.resize(105, 58);
    QCOMPARE(test.canvas.visiblePixels(), QRect(0, 0, 10, 5));
    QCOMPARE(ranges.last(), QVariantList({20, 15}));
    test.canvas.setHorizontalPosition(99);
    test.canvas.setVerticalPosition(4);
    test.canvas.setVerticalPosition(4);
    QCOMPARE(test.canvas.visiblePixels(), QRect(20, 4, 10, 5));
    QCOMPARE(positions.count(), 2);
    QCOMPARE(positions.last().first().toPoint(), QPoint(20, 4));
    QCOMPARE(test.canvas.pixelAt(test.canvas.viewRect().topLeft()), QPoint(20, 4));

    test.canvas.resize(205, 58);

    QCOMPARE(test.canvas.visiblePixels(), QRect(10, 4, 20, 5));
    QCOMPARE(positions.count(), 3);
}

void tst_Canvas::zoomStaysWithinItsLimits_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<Tool>("action");
    QTest::addColumn<int>("zoom");
    QTest::newRow("in") << 16 << Tool::ZoomIn << 18;
    QTest::newRow("in at the top") << 64 << Tool::ZoomIn << 64;
    QTest::newRow("in just below") << 63 << Tool::ZoomIn << 64;
    QTest::newRow("out") << 16 << Tool::ZoomOut << 14;
    QTest::newRow("out of 2") << 2 << Tool::ZoomOut << 1;
    QTest::newRow("out of 1") << 1 << Tool::ZoomOut << 1;
}

void tst_Canvas::zoomStaysWithinItsLimits()
{
    QFETCH(int, start);
    QFETCH(Tool, action);
    QFETCH(int, zoom);
    CanvasFixture test({"00"}, start);

    test.canvas.setMode(action, false);

    QCOMPARE(test.canvas.zoomLevel(), zoom);
    QCOMPARE(test.canvas.mode(), Tool::Draw);
    QCOMPARE(test.edited->count(), 0);
}

void tst_Canvas::controlAndWheelZoom()
{
    CanvasFixture test({"00", "00"}, 20);

    wheel(test.canvas, {0, 120}, Qt::ControlModifier);
    QCOMPARE(test.canvas.zoomLevel(), 22);
    wheel(test.canvas, {0, -120}, Qt::ControlModifier);
    wheel(test.canvas, {0, -120}, Qt::ControlModifier);

    QCOMPARE(test.canvas.zoomLevel(), 18);
}

void tst_Canvas::theWheelScrollsByTwo()
{
    CanvasFixture test(QStringList(20, QString(30, '0')), 10);
    test.canvas.resize(100, 50);
    test.canvas.setHorizontalPosition(5);
    test.canvas.setVerticalPosition(5);

    wheel(test.canvas, {0, -120});
    QCOMPARE(test.canvas.visiblePixels().topLeft(), QPoint(5, 7));
    wheel(test.canvas, {240, 360});

    QCOMPARE(test.canvas.visiblePixels().topLeft(), QPoint(3, 5));
}

void tst_Canvas::theWheelOutsideTheViewDoesNothing()
{
    CanvasFixture test({"00", "00"}, 10);
    test.canvas.resize(100, 100);

    wheel(test.canvas, {0, 120}, Qt::ControlModifier, {2, 2});

    QCOMPARE(test.canvas.zoomLevel(), 10);
}

void tst_Canvas::wholeImageActions_data()
{
    QTest::addColumn<Tool>("action");
    QTest::addColumn<QString>("text");
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QStringList>("picture");
    QTest::newRow("cw") << Tool::RotateCW << "Rotate" << Kind::Edit
                        << QStringList{"741", "852", "963"};
    QTest::newRow("ccw") << Tool::RotateCCW << "Rotate" << Kind::Edit
                         << QStringList{"369", "258", "147"};
    QTest::newRow("up") << Tool::MoveUp << "Scroll" << Kind::Scroll
                        << QStringList{"456", "789", "123"};
    QTest::newRow("down") << Tool::MoveDown << "Scroll" << Kind::Scroll
                          << QStringList{"789", "123", "456"};
    QTest::newRow("left") << Tool::MoveLeft << "Scroll" << Kind::Scroll
                          << QStringList{"231", "564", "897"};
    QTest::newRow("right") << Tool::MoveRight << "Scroll" << Kind::Scroll
                           << QStringList{"312", "645", "978"};
    QTest::newRow("flip") << Tool::Flip << "Flip" << Kind::Edit << QStringList{"789", "456", "123"};
    QTest::newRow("mirror") << Tool::Mirror << "Mirror" << Kind::Edit
                            << QStringList{"321", "654", "987"};
}

void tst_Canvas::wholeImageActions()
{
    QFETCH(Tool, action);
    QFETCH(QString, text);
    QFETCH(Kind, kind);
    QFETCH(QStringList, picture);
    CanvasFixture test({"123", "456", "789"});
    test.canvas.selectAll();

    test.canvas.setMode(action, false);

    QCOMPARE(test.rows(), picture);
    QCOMPARE(test.canvas.image().colorTable(), test.palette.colourTable());
    QCOMPARE(test.changed->count(), 1);
    QCOMPARE(test.edited->count(), 1);
    QCOMPARE(test.editText(), text);
    QCOMPARE(test.edited->first().at(3).value<Kind>(), kind);
    QVERIFY(!test.canvas.hasSelection());
    QCOMPARE(test.canvas.mode(), Tool::Draw);
}

void tst_Canvas::anActionThatChangesNothingIsNoEdit()
{
    CanvasFixture test({"11", "11"});

    test.canvas.setMode(Tool::Mirror, false);

    QCOMPARE(test.edited->count(), 0);
}

void tst_Canvas::anotherIndexOfTheSameColourIsAnEdit()
{
    Canvas canvas; // without a palette: pixels of no colour at all
    QImage image(2, 1, QImage::Format_Indexed8);
    image.fill(0);
    canvas.setImage(image);
    QSignalSpy edited(&canvas, &Canvas::edited);

    canvas.setMode(Tool::Mirror, false);
    QCOMPARE(edited.count(), 0);

    image.scanLine(0)[1] = 5;
    canvas.setImage(image);
    canvas.setMode(Tool::Mirror, false);
    QCOMPARE(edited.count(), 1);
    QCOMPARE(canvas.image().constScanLine(0)[0], uchar(5));
}

void tst_Canvas::modesDropTheSelection()
{
    CanvasFixture test({"00", "00"});
    for (const Tool action : {Tool::Draw, Tool::Grid, Tool::ZoomIn, Tool::Flip}) {
        test.canvas.selectAll();
        test.canvas.setMode(action, false);
        QVERIFY(!test.canvas.hasSelection());
    }
    test.canvas.selectAll();

    test.canvas.setMode(Tool::Copy, false);

    QVERIFY(test.canvas.hasSelection());
}

void tst_Canvas::cutWithoutASelectionDoesNothing()
{
    CanvasFixture test({"11"});

    test.canvas.cut();

    QCOMPARE(test.rows(), QStringList({"11"}));
    QCOMPARE(test.edited->count(), 0);
    QCOMPARE(test.changed->count(), 0);
}

void tst_Canvas::cutFillsTheSelectionWithPaper()
{
    CanvasFixture test({"1111", "1111"});
    test.canvas.setMode(Tool::Select, true);
    test.drag({1, 0}, {2, 0});

    test.canvas.cut();

    QCOMPARE(test.rows(), QStringList({"1221", "1111"}));
    QCOMPARE(test.editText(), QString("Erase"));
}

void tst_Canvas::cutModeCopiesAndErases()
{
    CanvasFixture test({"34"});
    test.canvas.selectAll();

    test.canvas.setMode(Tool::Cut, false);
    QCOMPARE(test.rows(), QStringList({"22"}));
    test.canvas.paste();
    test.click(1, 0);

    QCOMPARE(test.rows(), QStringList({"34"}));
}

void tst_Canvas::selectAllCoversTheView()
{
    CanvasFixture test(QStringList(8, QString(8, '0')), 10);
    test.canvas.resize(50, 40);
    test.canvas.setHorizontalPosition(2);

    test.canvas.selectAll();

    QCOMPARE(test.canvas.selection(), QRect(2, 0, 5, 4));
    QCOMPARE(test.canvas.findChild<QRubberBand *>()->geometry(), test.canvas.viewRect());
    test.canvas.selectNone();
    QVERIFY(!test.canvas.hasSelection());
}

void tst_Canvas::unknownActionsAreLogged()
{
    CanvasFixture test({"00"});
    QTest::ignoreMessage(QtInfoMsg, "PaintCanvas::setMode(CircleFill)");
    test.canvas.setMode(Tool::CircleFill, true);
    QTest::ignoreMessage(QtInfoMsg, "PaintCanvas::setMode(AnimPlay)");
    test.canvas.setMode(Tool::AnimPlay, true);

    QCOMPARE(test.canvas.mode(), Tool::Draw);
}

void tst_Canvas::inkBeyondTheColoursStaysOutOfTheSurface()
{
    CanvasFixture test({"00"});
    test.canvas.setInk(7);

    test.canvas.setInk(300);
    test.canvas.setPaper(-4);

    QCOMPARE(test.canvas.ink(), 300);
    QCOMPARE(test.canvas.surface().ink(), 7);
    QCOMPARE(test.canvas.paper(), -4);
    QCOMPARE(test.canvas.surface().paper(), 2);
}

void tst_Canvas::setImageAnnouncesAndTakesThePalettesColours()
{
    CanvasFixture test({"00"});

    test.canvas.setImage(TestImages::indexed({"123"}));

    QCOMPARE(test.changed->count(), 1);
    QCOMPARE(test.edited->count(), 0);
    QCOMPARE(test.canvas.image().colorTable(), test.palette.colourTable());
    QCOMPARE(test.rows(), QStringList({"123"}));
}

void tst_Canvas::colourChangesReachTheImage()
{
    CanvasFixture test({"5"});

    test.palette.setColour(5, Qt::white, false);

    QCOMPARE(test.canvas.image().color(5), qRgb(255, 255, 255));
    QCOMPARE(test.canvas.grab().toImage().pixelColor(test.at(0, 0)), QColor(Qt::white));
    Palette other;
    test.canvas.setPalette(&other);
    test.palette.setColour(5, Qt::red, false);
    QCOMPARE(test.canvas.image().color(5), qRgb(0, 0, 0));
}

void tst_Canvas::remapMovesInkAndPaper()
{
    CanvasFixture test({"0f"});

    test.canvas.remap(2);

    QCOMPARE(test.canvas.image().pixelIndex(0, 0), 16);
    QCOMPARE(test.canvas.image().pixelIndex(1, 0), 31);
    QCOMPARE(test.canvas.ink(), 17);
    QCOMPARE(test.canvas.paper(), 18);
}

void tst_Canvas::paintsNothingWithoutAPalette()
{
    CanvasFixture test({"5"});
    test.palette.setColour(5, Qt::white, false);

    test.canvas.setPalette(nullptr);

    QVERIFY(test.canvas.grab().toImage().pixelColor(test.at(0, 0)) != QColor(Qt::white));
}

void tst_Canvas::paintsPixelsAtZoom()
{
    CanvasFixture test({"01", "23"}, 9);
    const QImage shown = test.canvas.grab().toImage();

    for (int y = 0; y < 18; ++y) {
        for (int x = 0; x < 18; ++x)
            QCOMPARE(shown.pixelColor(x, y), test.palette.colour(x / 9 + 2 * (y / 9)));
    }
}

void tst_Canvas::checkersCoverSixteenScreenPixels()
{
    CanvasFixture test(QStringList(16, QString(16, '0')), 4);

    test.canvas.setMode(Tool::Grid, true);

    const QImage shown = test.canvas.grab().toImage();
    const QColor dark = shown.pixelColor(0, 0);
    const QColor light = shown.pixelColor(16, 0);
    QVERIFY(dark != light);
    QCOMPARE(dark.red(), 64 * 80 / 255);
    QCOMPARE(shown.pixelColor(15, 15), dark);
    QCOMPARE(shown.pixelColor(15, 16), light);
    QCOMPARE(shown.pixelColor(16, 16), dark);
    QCOMPARE(shown.pixelColor(33, 1), dark);
}

void tst_Canvas::bothOverlaysShow()
{
    CanvasFixture test(QStringList(4, QString(4, '0')), 20);
    test.canvas.setMode(Tool::Grid, true);
    const QColor checker = test.canvas.grab().toImage().pixelColor(10, 10);

    test.canvas.setGridLinesVisible(true);

    const QImage shown = test.canvas.grab().toImage();
    QCOMPARE(shown.pixelColor(10, 10), checker);
    QVERIFY(shown.pixelColor(20, 10).red() > shown.pixelColor(21, 10).red());
    QVERIFY(shown.pixelColor(10, 20).red() > shown.pixelColor(10, 21).red());
}

void tst_Canvas::aMoveWithinAPixelPaintsNothing()
{
    PaintCounter counter;
    CanvasFixture test({"00", "00"}, 20);
    test.move(1, 1, Qt::NoButton);
    QCoreApplication::processEvents();
    test.canvas.installEventFilter(&counter);

    QTest::mouseMove(&test.canvas, test.at(1, 1) + QPoint(3, 3));
    QCoreApplication::processEvents();
    QCOMPARE(counter.paints, 0);
    test.move(0, 1, Qt::NoButton);

    QTRY_VERIFY(counter.paints > 0);
}

void tst_Canvas::selectionSurvivesScrolling()
{
    CanvasFixture test(QStringList(20, QString(20, '0')), 10);
    test.canvas.resize(100, 100);
    test.canvas.setMode(Tool::Select, true);
    test.drag({1, 1}, {4, 4});

    test.canvas.setHorizontalPosition(2);

    QCOMPARE(test.canvas.selection(), QRect(1, 1, 4, 4));
    QCOMPARE(test.canvas.findChild<QRubberBand *>()->geometry(),
             test.canvas.cellRect(QRect(2, 1, 3, 4)));
}

void tst_Canvas::theSelectionIsCutToASmallerPicture()
{
    CanvasFixture test({"1111", "1111", "1111"});
    test.canvas.selectAll();

    test.canvas.setImage(TestImages::indexed({"33", "33"}));
    QCOMPARE(test.canvas.selection(), QRect(0, 0, 2, 2));
    QCOMPARE(test.canvas.findChild<QRubberBand *>()->geometry(), test.canvas.viewRect());

    test.canvas.setImage(QImage());
    QVERIFY(!test.canvas.hasSelection());
}

QTEST_MAIN(tst_Canvas)
#include "tst_Canvas.moc"
