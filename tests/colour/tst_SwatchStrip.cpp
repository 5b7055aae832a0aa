#include "colour/ColourEditorPopover.h"
#include "colour/ColourPalette.h"
#include "colour/ColourSelector.h"
#include "model/Palette.h"
#include "support/PaintCounter.h"

#include <QSignalSpy>
#include <QTest>

// What both strips do alike, on the two of them.
class tst_SwatchStrip : public QObject
{
    Q_OBJECT

private slots:
    void arrowsMoveTheFirstPickAndShiftTheSecond_data();
    void arrowsMoveTheFirstPickAndShiftTheSecond();
    void otherKeysPassOn();
    void returnEditsTheFirstPick();
    void aKeyAfterAChangeOfBankStaysOnShow();
    void aDeadPaletteLeavesAnEmptyStrip();
    void aPaletteThatDiesUnderTheEditorIsLeftAlone();
    void anotherPaletteEndsTheEdit();
    void theFocusIsSeen();
    void onlyTheChangedSwatchIsRepainted();
    void whatIsSetIsRepainted();
    void theOldPaletteIsNotHeardAnyMore();
};

void tst_SwatchStrip::arrowsMoveTheFirstPickAndShiftTheSecond_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<int>("columns");
    QTest::newRow("down") << Qt::Vertical << 8;
    QTest::newRow("across") << Qt::Horizontal << 2;
}

void tst_SwatchStrip::arrowsMoveTheFirstPickAndShiftTheSecond()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(int, columns);
    ColourSelector selector(columns, orientation);
    selector.setOffset(2);
    selector.setForeIndex(32);
    selector.setBackIndex(32);

    QTest::keyClick(&selector, Qt::Key_Right);
    QTest::keyClick(&selector, Qt::Key_Down, Qt::ShiftModifier);

    QCOMPARE(selector.foreIndex(), orientation == Qt::Vertical ? 33 : 34);
    QCOMPARE(selector.backIndex(), orientation == Qt::Vertical ? 40 : 33);
}

void tst_SwatchStrip::otherKeysPassOn()
{
    ColourSelector selector;
    QKeyEvent event(QEvent::KeyPress, Qt::Key_D, Qt::NoModifier);

    QApplication::sendEvent(&selector, &event);

    QVERIFY(!event.isAccepted());
}

void tst_SwatchStrip::returnEditsTheFirstPick()
{
    Palette palette;
    palette.setColour(5, Qt::red, false);
    ColourPalette strip;
    strip.setPalette(QPointer<Palette>(&palette));
    strip.setPrimaryColour(5);
    strip.show();

    QTest::keyClick(&strip, Qt::Key_Return);
    auto *popover = strip.findChild<ColourEditorPopover *>();
    QVERIFY(popover && popover->isVisible());
    popover->confirmColourChanged(Qt::blue, false);

    QCOMPARE(palette.colour(5), QColor(0, 0, 255));
}

void tst_SwatchStrip::aKeyAfterAChangeOfBankStaysOnShow()
{
    ColourSelector selector;
    selector.setForeIndex(200);
    selector.setOffset(2);

    QTest::keyClick(&selector, Qt::Key_Left);

    QCOMPARE(selector.foreIndex(), 46);
}

void tst_SwatchStrip::aDeadPaletteLeavesAnEmptyStrip()
{
    auto palette = std::make_unique<Palette>();
    ColourSelector selector;
    selector.resize(selector.sizeHint());
    selector.setPalette(QPointer<Palette>(palette.get()));
    palette.reset();

    QTest::mousePress(&selector, Qt::LeftButton, {}, {30, 30});
    QTest::mouseDClick(&selector, Qt::LeftButton, {}, {30, 30});

    QCOMPARE(selector.grab().toImage().pixelColor(5, 5), QColor(127, 127, 127));
    QVERIFY(!selector.findChild<ColourEditorPopover *>());
}

void tst_SwatchStrip::aPaletteThatDiesUnderTheEditorIsLeftAlone()
{
    auto palette = std::make_unique<Palette>();
    ColourPalette strip;
    strip.setPalette(QPointer<Palette>(palette.get()));
    strip.show();
    QTest::keyClick(&strip, Qt::Key_Return);
    palette.reset();

    strip.findChild<ColourEditorPopover *>()->confirmColourChanged(Qt::blue, false);

    QVERIFY(!strip.findChild<ColourEditorPopover *>()->isVisible());
}

void tst_SwatchStrip::anotherPaletteEndsTheEdit()
{
    Palette first;
    Palette second;
    ColourPalette strip;
    strip.setPalette(QPointer<Palette>(&first));
    strip.show();
    QTest::keyClick(&strip, Qt::Key_Return);

    strip.setPalette(QPointer<Palette>(&second));
    strip.findChild<ColourEditorPopover *>()->confirmColourChanged(Qt::blue, false);

    QCOMPARE(second.word(0), quint16(0));
    QCOMPARE(first.word(0), quint16(0));
}

void tst_SwatchStrip::theFocusIsSeen()
{
    Palette palette;
    ColourPalette strip;
    strip.setPalette(QPointer<Palette>(&palette));
    strip.resize(256, 256);
    strip.show();
    QVERIFY(QTest::qWaitForWindowActive(&strip));
    strip.clearFocus();
    const QImage before = strip.grab().toImage();

    strip.setFocus(Qt::TabFocusReason);

    QVERIFY(strip.grab().toImage() != before);
    QVERIFY(!strip.accessibleName().isEmpty());
}

void tst_SwatchStrip::onlyTheChangedSwatchIsRepainted()
{
    Palette palette;
    ColourSelector selector(8, Qt::Vertical);
    selector.setPalette(QPointer<Palette>(&palette));
    selector.setOffset(2);
    selector.resize(selector.sizeHint());
    selector.show();
    QVERIFY(QTest::qWaitForWindowExposed(&selector));
    const PaintCounter paints(selector);

    palette.setColour(31, Qt::red, false); // of the bank before
    QCoreApplication::processEvents();
    QCOMPARE(paints.count(), 0);

    palette.setColour(32 + 9, Qt::red, false);
    QTRY_COMPARE(paints.count(), 1);
    QCOMPARE(paints.region(), QRegion(24, 24, 24, 24));
}

void tst_SwatchStrip::whatIsSetIsRepainted()
{
    auto palette = std::make_unique<Palette>();
    ColourPalette strip;
    strip.resize(256, 256);
    strip.show();
    QVERIFY(QTest::qWaitForWindowExposed(&strip));
    const PaintCounter paints(strip);

    strip.setPalette(QPointer<Palette>(palette.get()));
    QTRY_COMPARE(paints.count(), 1);
    strip.setPrimaryColour(4);
    QTRY_COMPARE(paints.count(), 2);
    strip.setSecondaryColour(5);
    QTRY_COMPARE(paints.count(), 3);
    QTest::mousePress(&strip, Qt::MiddleButton, {}, {7, 7});
    QTRY_COMPARE(paints.count(), 4);
    palette.reset();
    QTRY_COMPARE(paints.count(), 5);
}

void tst_SwatchStrip::theOldPaletteIsNotHeardAnyMore()
{
    Palette first;
    Palette second;
    ColourPalette strip;
    strip.setPalette(QPointer<Palette>(&first));
    strip.setPalette(QPointer<Palette>(&second));
    strip.show();
    QVERIFY(QTest::qWaitForWindowExposed(&strip));
    const PaintCounter paints(strip);

    first.setColour(3, Qt::red, false);
    QCoreApplication::processEvents();

    QCOMPARE(paints.count(), 0);
}

QTEST_MAIN(tst_SwatchStrip)
#include "tst_SwatchStrip.moc"
