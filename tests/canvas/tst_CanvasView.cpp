#include "CanvasFixture.h"
#include "support/Screen.h"

#include <QHBoxLayout>
#include <QRubberBand>
#include <QWheelEvent>

#include <functional>

using Tool = Tessaril::Ui::ToolButton;

/// The wheel, and what the canvas paints beyond its pixels.
class tst_CanvasView : public QObject
{
    Q_OBJECT

private slots:
    void theWheelZoomsWithinItsLimits();
    void theWheelIsTakenInsideTheViewOnly();
    void theWheelStopsAtTheEnds();
    void atItsEndTheWheelIsForWhatLiesAround();
    void fillsTheRestWithTheWindowsColour();
    void checkersHaveTheirColours();
    void checkersFollowTheShapeOfLargePixels();
    void linesHaveTheirColour();
    void linesLieOnTheCheckers();
    void thePasteFrameIsBlackAndWhite();
    void thePasteFrameStaysInTheView();
    void thePasteTakesThePalettesColours();
    void aClipOfNoTypeIsNeitherShownNorPasted();
    void theBandFollowsTheZoom();
    void whatChangesTheViewRepaintsIt_data();
    void whatChangesTheViewRepaintsIt();
    void theKeysPixelIsFramed();
    void theFrameIsGoneWithoutTheFocus();
    void theFrameIsGoneWithTheMouse();
    void aFormerPaletteIsNotHeard();
    void layoutsHearOfAnotherSize();
    void thePalettesWholeChangeReachesTheImage();

private:
    /// Whether there is a frame around pixel (1, 0) of a plain picture.
    static bool isFramed(Canvas &canvas);
    /// Whether the wheel's event was taken.
    static bool wheel(Canvas &canvas, QPoint delta, Qt::KeyboardModifiers modifiers,
                      QPoint position);
};

bool tst_CanvasView::wheel(Canvas &canvas, QPoint delta, Qt::KeyboardModifiers modifiers,
                           QPoint position)
{
    QWheelEvent event(position, canvas.mapToGlobal(position), {}, delta, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&canvas, &event);
    return event.isAccepted();
}

void tst_CanvasView::theWheelZoomsWithinItsLimits()
{
    CanvasFixture test({"00", "00"}, 63);
    const QPoint inside = test.canvas.viewRect().center();

    wheel(test.canvas, {0, 1}, Qt::ControlModifier, inside);
    QCOMPARE(test.canvas.zoomLevel(), 64);
    wheel(test.canvas, {0, 1}, Qt::ControlModifier, inside);
    QCOMPARE(test.canvas.zoomLevel(), 64);
    wheel(test.canvas, {120, 0}, Qt::ControlModifier, inside); // not upwards
    QCOMPARE(test.canvas.zoomLevel(), 62);
    test.canvas.setZoomLevel(2);
    wheel(test.canvas, {0, -1}, Qt::ControlModifier, test.canvas.viewRect().center());
    QCOMPARE(test.canvas.zoomLevel(), 1);
    wheel(test.canvas, {0, -1}, Qt::ControlModifier, test.canvas.viewRect().center());

    QCOMPARE(test.canvas.zoomLevel(), 1);
    QCOMPARE(test.canvas.visiblePixels(), QRect(0, 0, 2, 2));
}

void tst_CanvasView::theWheelIsTakenInsideTheViewOnly()
{
    CanvasFixture test(QStringList(4, QString(30, '0')), 10);
    test.canvas.resize(100, 100); // scrolls across only
    test.canvas.setHorizontalPosition(5);
    const QRect view = test.canvas.viewRect();
    QCOMPARE(view, QRect(0, 30, 100, 40));

    QVERIFY(!wheel(test.canvas, {-120, 0}, {}, view.topLeft() - QPoint(0, 1)));
    QVERIFY(!wheel(test.canvas, {-120, 0}, {}, view.bottomRight() + QPoint(0, 1)));
    QCOMPARE(test.canvas.visiblePixels().left(), 5);
    QVERIFY(wheel(test.canvas, {-120, 0}, {}, view.topLeft()));
    QCOMPARE(test.canvas.visiblePixels().left(), 7);
    QVERIFY(wheel(test.canvas, {0, 120}, Qt::ControlModifier, view.bottomRight()));
    QCOMPARE(test.canvas.zoomLevel(), 12);
}

void tst_CanvasView::theWheelStopsAtTheEnds()
{
    CanvasFixture test(QStringList(20, QString(30, '0')), 10);
    test.canvas.resize(100, 50);
    const QPoint inside = test.canvas.viewRect().center();
    test.canvas.setHorizontalPosition(1);
    test.canvas.setVerticalPosition(14);

    wheel(test.canvas, {120, -120}, {}, inside);
    QCOMPARE(test.canvas.visiblePixels().topLeft(), QPoint(0, 15));
    wheel(test.canvas, {-120, 120}, {}, inside);
    QCOMPARE(test.canvas.visiblePixels().topLeft(), QPoint(2, 13));
}

void tst_CanvasView::fillsTheRestWithTheWindowsColour()
{
    QWidget parent; // would shine through
    CanvasFixture test({"0"}, 10);
    test.canvas.setParent(&parent);
    QPalette colours = test.canvas.QWidget::palette();
    colours.setColor(QPalette::Window, QColor(1, 200, 30));
    test.canvas.QWidget::setPalette(colours);

    test.canvas.setGeometry(0, 0, 30, 30);
    test.canvas.show();

    const QImage shown = parent.grab().toImage();
    test.canvas.setParent(nullptr);
    QCOMPARE(shown.pixelColor(9, 9), QColor(1, 200, 30));
    QCOMPARE(shown.pixelColor(20, 20), QColor(1, 200, 30));
    QCOMPARE(shown.pixelColor(10, 10), QColor(Qt::black));
}

void tst_CanvasView::checkersHaveTheirColours()
{
    CanvasFixture test(QStringList(4, QString(4, '0')), 16);

    test.canvas.setMode(Tool::Grid, true);

    // Alpha 80 of 255 over black.
    const QImage shown = test.canvas.grab().toImage();
    QCOMPARE(shown.pixelColor(0, 0), QColor(20, 20, 20));
    QCOMPARE(shown.pixelColor(16, 0), QColor(25, 25, 25));
    QCOMPARE(shown.pixelColor(0, 16), QColor(25, 25, 25));
    QCOMPARE(shown.pixelColor(16, 16), QColor(20, 20, 20));
    test.canvas.setMode(Tool::Grid, false);
    QCOMPARE(test.canvas.grab().toImage().pixelColor(0, 0), QColor(Qt::black));
}

void tst_CanvasView::checkersFollowTheShapeOfLargePixels()
{
    CanvasFixture test(QStringList(8, QString(8, '0')), 10);
    test.canvas.setHiRes(true);
    test.canvas.resize(80, 160);

    test.canvas.setMode(Tool::Grid, true);

    const QImage shown = test.canvas.grab().toImage();
    const QColor dark = shown.pixelColor(0, 0);
    QCOMPARE(shown.pixelColor(15, 19), dark);
    QVERIFY(shown.pixelColor(16, 0) != dark); // 16, as a pixel has only 10
    QVERIFY(shown.pixelColor(0, 20) != dark); // a pixel's own 20
    QCOMPARE(shown.pixelColor(16, 20), dark);
}

void tst_CanvasView::linesHaveTheirColour()
{
    CanvasFixture test(QStringList(10, QString(10, '0')), 4);

    test.canvas.setGridLinesVisible(true);

    // Alpha 0x30 of 255 of white over black, twice where lines cross.
    const QImage shown = test.canvas.grab().toImage();
    QCOMPARE(shown.pixelColor(16, 5), QColor(48, 48, 48));
    QCOMPARE(shown.pixelColor(5, 32), QColor(48, 48, 48));
    QCOMPARE(shown.pixelColor(0, 5), QColor(48, 48, 48));
    QVERIFY(std::abs(shown.pixelColor(16, 32).red() - (48 + 48 * 207 / 255)) <= 1);
    QCOMPARE(shown.pixelColor(17, 5), QColor(Qt::black));
    QCOMPARE(shown.pixelColor(4, 4), QColor(Qt::black));
    test.canvas.setGridLinesVisible(false);
    QCOMPARE(test.canvas.grab().toImage().pixelColor(16, 5), QColor(Qt::black));
}

void tst_CanvasView::linesLieOnTheCheckers()
{
    CanvasFixture test(QStringList(4, QString(4, '0')), 16);

    test.canvas.setGridLinesVisible(true);
    test.canvas.setMode(Tool::Grid, true);

    // 20 of the checker, then the line over it; the other way round it were 53.
    const int red = test.canvas.grab().toImage().pixelColor(0, 5).red();
    QVERIFY(std::abs(red - (20 + 235 * 48 / 255)) <= 1);
}

void tst_CanvasView::thePasteFrameIsBlackAndWhite()
{
    CanvasFixture source({"ee", "ee"});
    source.canvas.copy();
    CanvasFixture test(QStringList(6, QString(6, 'e')), 20);
    test.canvas.setPalette(&source.palette);
    test.canvas.paste();

    test.move(3, 3, Qt::NoButton);

    const QImage shown = test.canvas.grab().toImage();
    const QRect frame = test.canvas.cellRect(QRect(2, 2, 2, 2));
    QSet<QRgb> colours;
    for (int x = frame.left() + 2; x < frame.right() - 1; ++x)
        colours += shown.pixel(x, frame.top());
    QCOMPARE(colours, (QSet<QRgb>{qRgb(0, 0, 0), qRgb(255, 255, 255)}));
    QCOMPARE(shown.pixelColor(frame.center()), source.palette.colour(0xe));
    QCOMPARE(shown.pixelColor(frame.topLeft() - QPoint(3, 3)), source.palette.colour(0xe));
}

void tst_CanvasView::thePasteFrameStaysInTheView()
{
    CanvasFixture source(QStringList(8, QString(8, 'e')));
    source.canvas.copy();
    CanvasFixture test(QStringList(4, QString(4, '0')), 10);
    test.canvas.setPalette(&source.palette);
    test.canvas.resize(100, 100);
    const QColor beside = test.canvas.grab().toImage().pixelColor(5, 5);
    test.canvas.paste();

    test.move(1, 1, Qt::NoButton);

    const QImage shown = test.canvas.grab().toImage();
    const QRect view = test.canvas.viewRect();
    QCOMPARE(shown.pixelColor(view.topLeft()), source.palette.colour(0xe));
    for (int i = 1; i < 10; ++i) {
        QCOMPARE(shown.pixelColor(view.topLeft() - QPoint(i, i)), beside);
        QCOMPARE(shown.pixelColor(view.center().x(), view.bottom() + i), beside);
    }
}

void tst_CanvasView::thePasteTakesThePalettesColours()
{
    CanvasFixture source({"9"});
    source.palette.setColour(9, Qt::red);
    source.canvas.copy();
    CanvasFixture test(QStringList(3, QString(3, '0')), 20);
    test.palette.setColour(9, Qt::green);
    QTest::ignoreMessage(QtInfoMsg, "Pasting to image with different palette");
    test.canvas.paste();

    test.move(1, 1, Qt::NoButton);

    QCOMPARE(test.canvas.grab().toImage().pixelColor(test.at(1, 1)), QColor(Qt::green));
}

void tst_CanvasView::aClipOfNoTypeIsNeitherShownNorPasted()
{
    CanvasFixture source({"ee", "ee"});
    source.canvas.setImageType(Tessaril::Ui::ImageType::Undefined);
    source.canvas.copy();
    CanvasFixture test(QStringList(4, QString(4, '0')), 20);
    test.canvas.setPalette(&source.palette);
    const QImage before = test.canvas.grab().toImage();

    test.canvas.paste();
    QCOMPARE(test.canvas.mode(), Tool::Paste);
    test.move(2, 2, Qt::NoButton);
    QCOMPARE(test.canvas.grab().toImage(), before);
    test.click(2, 2);

    QCOMPARE(test.rows(), QStringList(4, "0000"));
    QCOMPARE(test.changed->count(), 0);
    QCOMPARE(test.edited->count(), 0);
}

void tst_CanvasView::theBandFollowsTheZoom()
{
    CanvasFixture test(QStringList(4, QString(4, '0')), 10);
    test.canvas.setMode(Tool::Select, true);
    test.drag({1, 1}, {2, 2});

    test.canvas.setZoomLevel(5);

    QCOMPARE(test.canvas.selection(), QRect(1, 1, 2, 2));
    QCOMPARE(test.canvas.findChild<QRubberBand *>()->geometry(),
             test.canvas.cellRect(QRect(1, 1, 2, 2)));
}

void tst_CanvasView::whatChangesTheViewRepaintsIt_data()
{
    using Change = std::function<void(CanvasFixture &)>;
    QTest::addColumn<Change>("change");
    const auto add = [](const char *name, const Change &change) { QTest::newRow(name) << change; };
    add("checkers", [](auto &test) { test.canvas.setMode(Tool::Grid, true); });
    add("lines", [](auto &test) { test.canvas.setGridLinesVisible(true); });
    add("a colour", [](auto &test) { test.palette.setColour(1, Qt::red, false); });
    add("another palette", [](auto &test) { test.canvas.setPalette(nullptr); });
    add("another bank", [](auto &test) { test.canvas.remap(2); });
    add("an action", [](auto &test) { test.canvas.setMode(Tool::Flip, false); });
    add("another picture", [](auto &test) {
        test.canvas.setImage(TestImages::indexed({"22", "22"}));
    });
    add("the shape of pixels", [](auto &test) { test.canvas.setHiRes(true); });
    add("scrolling", [](auto &test) { test.canvas.setVerticalPosition(1); });
    add("a pixel", [](auto &test) { test.press(1, 1); });
    add("a shape to be", [](auto &test) {
        test.canvas.setMode(Tool::Line, true);
        QCoreApplication::processEvents();
        test.press(1, 1);
        test.move(0, 1);
    });
    add("a fill", [](auto &test) {
        test.canvas.setMode(Tool::Fill, true);
        QCoreApplication::processEvents();
        test.press(1, 1);
        test.release(1, 1);
    });
    add("pasting", [](auto &test) {
        test.canvas.copy();
        test.canvas.paste();
    });
    add("another tool", [](auto &test) { test.canvas.setMode(Tool::Line, true); });
}

void tst_CanvasView::whatChangesTheViewRepaintsIt()
{
    QFETCH(std::function<void(CanvasFixture &)>, change);
    CanvasFixture test({"0123", "4567", "89ab", "cdef"}, 20);
    test.canvas.resize(80, 40);
    QCoreApplication::processEvents();
    PaintCounter counter;
    test.canvas.installEventFilter(&counter);
    QCoreApplication::processEvents();
    QCOMPARE(counter.paints, 0);

    change(test);

    QTRY_VERIFY(counter.paints > 0);
}

bool tst_CanvasView::isFramed(Canvas &canvas)
{
    const QImage picture = canvas.grab().toImage();
    const QRect pixel = canvas.cellRect(QRect(1, 0, 1, 1));
    const QRgb plain = picture.pixel(canvas.cellRect(QRect(3, 2, 1, 1)).center());
    const QRgb bottom = picture.pixel(pixel.center().x(), pixel.bottom() + 1);
    const QRgb right = picture.pixel(pixel.right() + 1, pixel.center().y());
    const QRgb left = picture.pixel(pixel.left() - 1, pixel.center().y());
    return bottom != plain && right != plain && left != plain &&
           picture.pixel(pixel.center()) == plain;
}

void tst_CanvasView::theKeysPixelIsFramed()
{
    CanvasFixture test(QStringList(3, QString(4, '5')), 20);
    test.canvas.activateWindow();
    test.canvas.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&test.canvas));
    QVERIFY(!isFramed(test.canvas));

    QTest::keyClick(&test.canvas, Qt::Key_Right);
    QTest::keyClick(&test.canvas, Qt::Key_Right);

    QVERIFY(isFramed(test.canvas));
    QCOMPARE(Screen::staleParts(), QStringList());
}

void tst_CanvasView::theFrameIsGoneWithoutTheFocus()
{
    CanvasFixture test(QStringList(3, QString(4, '5')), 20);
    test.canvas.activateWindow();
    test.canvas.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&test.canvas));
    QTest::keyClick(&test.canvas, Qt::Key_Right);
    QTest::keyClick(&test.canvas, Qt::Key_Right);

    test.canvas.clearFocus();

    QVERIFY(!isFramed(test.canvas));
    QCOMPARE(Screen::staleParts(), QStringList());
}

void tst_CanvasView::theFrameIsGoneWithTheMouse()
{
    CanvasFixture test(QStringList(3, QString(4, '5')), 20);
    test.canvas.activateWindow();
    test.canvas.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&test.canvas));
    QTest::keyClick(&test.canvas, Qt::Key_Right);
    QTest::keyClick(&test.canvas, Qt::Key_Right);

    test.move(3, 2, Qt::NoButton);

    QVERIFY(!isFramed(test.canvas));
    QCOMPARE(Screen::staleParts(), QStringList());
}

void tst_CanvasView::aFormerPaletteIsNotHeard()
{
    CanvasFixture test({"01"});
    Palette other;
    test.canvas.setPalette(&other);
    QCoreApplication::processEvents();
    PaintCounter counter;
    test.canvas.installEventFilter(&counter);

    test.palette.setColour(1, Qt::red, false);

    QCoreApplication::processEvents();
    QCOMPARE(counter.paints, 0);
}

void tst_CanvasView::layoutsHearOfAnotherSize()
{
    Palette palette;
    QWidget parent;
    QHBoxLayout layout(&parent);
    layout.setContentsMargins(0, 0, 0, 0);
    auto *const canvas = new Canvas;
    layout.addWidget(canvas);
    canvas->setPalette(&palette);
    canvas->setZoomLevel(10);
    QCOMPARE(layout.sizeHint(), QSize(10, 10));

    canvas->setImage(TestImages::indexed({"00", "00"}));
    QCOMPARE(layout.sizeHint(), QSize(20, 20));
    canvas->setZoomLevel(20);
    QCOMPARE(layout.sizeHint(), QSize(40, 40));
    canvas->setHiRes(true);
    QCOMPARE(layout.sizeHint(), QSize(40, 80));
}

void tst_CanvasView::thePalettesWholeChangeReachesTheImage()
{
    CanvasFixture test({"0"});
    test.palette.setWord(0, 0xE000); // as a file does it, without a signal

    test.canvas.paletteChanged(0, 255, {});

    QCOMPARE(test.canvas.image().color(0), qRgb(255, 0, 0));
}

void tst_CanvasView::atItsEndTheWheelIsForWhatLiesAround()
{
    CanvasFixture test(QStringList(20, QString(5, '0')), 10);
    test.canvas.resize(100, 50); // scrolls down only
    const QPoint inside = test.canvas.viewRect().center();

    QVERIFY(!wheel(test.canvas, {0, 120}, {}, inside));
    QVERIFY(wheel(test.canvas, {0, -120}, {}, inside));
    QVERIFY(wheel(test.canvas, {0, 120}, {}, inside));
    test.canvas.setVerticalPosition(15);
    QVERIFY(!wheel(test.canvas, {0, -120}, {}, inside));
    QVERIFY(wheel(test.canvas, {0, 120}, {}, inside));
}

QTEST_MAIN(tst_CanvasView)
#include "tst_CanvasView.moc"
