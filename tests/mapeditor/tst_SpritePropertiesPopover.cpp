#include "mapeditor/SpritePropertiesPopover.h"

#include "mapeditor/SpriteProperties.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

using MapEditor::SpriteProperties;
using MapEditor::SpritePropertiesPopover;
using Tessaril::Ui::DialogPosition;

class tst_SpritePropertiesPopover : public QObject
{
    Q_OBJECT

private slots:
    void isAFramelessTranslucentTool();
    void standsAtTheRightWithItsPointerAtTheMiddle();
    void standsAtTheLeftAtTheRightEdgeOfTheScreen();
    void theFormStandsInTheMiddleOfThePanel();
    void staysInsideTheScreen();
    void stealsNothingWhenNoScreenIsThere();
    void aPressOutsideCloses();
    void aPressOutsideMayKeepItOpen();
    void aPressInsideKeepsItOpen();
    void escapeCloses();
    void repeatsWhatTheFormSends();

private:
    static QRect screen() { return QGuiApplication::primaryScreen()->availableGeometry(); }
    static QRect middle() { return {screen().center(), QSize(16, 16)}; }
};

void tst_SpritePropertiesPopover::isAFramelessTranslucentTool()
{
    const SpritePropertiesPopover popover;

    QCOMPARE(popover.windowType(), Qt::Tool);
    QVERIFY(popover.windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(popover.testAttribute(Qt::WA_TranslucentBackground));
    QCOMPARE(popover.findChild<SpriteProperties *>()->contentsMargins(), QMargins(10, 10, 10, 10));
}

void tst_SpritePropertiesPopover::standsAtTheRightWithItsPointerAtTheMiddle()
{
    SpritePropertiesPopover popover;
    const QRect area(screen().left() + 20, screen().center().y(), 32, 16);

    popover.showFor(Map::PlacedSprite(), area);

    QVERIFY(popover.isVisible());
    QCOMPARE(popover.side(), DialogPosition::LeftOf);
    QCOMPARE(popover.x(), area.right() + 1);
    QVERIFY(popover.frameGeometry().top() < area.top() + 8);
    QVERIFY(popover.frameGeometry().bottom() > area.top() + 8);
}

void tst_SpritePropertiesPopover::standsAtTheLeftAtTheRightEdgeOfTheScreen()
{
    SpritePropertiesPopover popover;
    const QRect area(screen().right() - 40, screen().center().y(), 32, 16);

    popover.showFor(Map::PlacedSprite(), area);

    QCOMPARE(popover.side(), DialogPosition::TopCentre);
    QVERIFY(popover.frameGeometry().right() < area.left() + 1);
}

void tst_SpritePropertiesPopover::theFormStandsInTheMiddleOfThePanel()
{
    constexpr int PointerRoom = 10; // pixels
    SpritePropertiesPopover popover;
    const auto *const form = popover.findChild<SpriteProperties *>();

    popover.showFor(Map::PlacedSprite(), middle());
    QCOMPARE(popover.side(), DialogPosition::LeftOf);
    const QSize size = popover.size();
    QCOMPARE(form->x() - PointerRoom, popover.width() - form->geometry().right() - 1);
    QCOMPARE(form->y(), popover.height() - form->geometry().bottom() - 1);

    popover.showFor(Map::PlacedSprite(), {screen().right() - 40, screen().center().y(), 32, 16});
    QCOMPARE(popover.side(), DialogPosition::TopCentre);
    QCoreApplication::processEvents();
    QCOMPARE(form->x(), popover.width() - form->geometry().right() - 1 - PointerRoom);
    QCOMPARE(popover.size(), size);
}

void tst_SpritePropertiesPopover::staysInsideTheScreen()
{
    SpritePropertiesPopover popover;
    for (const int y : {screen().top(), screen().bottom() - 16}) {
        popover.showFor(Map::PlacedSprite(), {screen().left() + 20, y, 16, 16});
        QVERIFY(screen().contains(popover.geometry()));
    }
    QCOMPARE(popover.y(), screen().bottom() - popover.height());
}

void tst_SpritePropertiesPopover::stealsNothingWhenNoScreenIsThere()
{
    SpritePropertiesPopover popover;

    popover.showFor(Map::PlacedSprite(), {-50000, -50000, 16, 16});

    QCOMPARE(popover.side(), DialogPosition::LeftOf);
    QCOMPARE(popover.x(), -50000 + 16);
}

void tst_SpritePropertiesPopover::aPressOutsideCloses()
{
    QWidget window;
    window.setGeometry(screen());
    window.show();
    SpritePropertiesPopover popover;
    popover.showFor(Map::PlacedSprite(), middle());
    QVERIFY(popover.isVisible());

    QTest::mousePress(&window, Qt::LeftButton, {}, {2, 2});

    QVERIFY(!popover.isVisible());
}

void tst_SpritePropertiesPopover::aPressOutsideMayKeepItOpen()
{
    QWidget window;
    window.setGeometry(screen());
    window.show();
    SpritePropertiesPopover popover;
    QPoint asked;
    popover.setKeepOpen([&asked](QPoint position) {
        asked = position;
        return true;
    });
    popover.showFor(Map::PlacedSprite(), middle());

    QTest::mousePress(&window, Qt::LeftButton, {}, {2, 3});

    QVERIFY(popover.isVisible());
    QCOMPARE(asked, window.mapToGlobal(QPoint(2, 3)));
}

void tst_SpritePropertiesPopover::aPressInsideKeepsItOpen()
{
    SpritePropertiesPopover popover;
    popover.showFor(Map::PlacedSprite(), middle());

    QTest::mousePress(&popover, Qt::LeftButton, {}, popover.rect().center());

    QVERIFY(popover.isVisible());
}

void tst_SpritePropertiesPopover::escapeCloses()
{
    SpritePropertiesPopover popover;
    popover.showFor(Map::PlacedSprite(), middle());
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    escape.ignore();

    QCoreApplication::sendEvent(&popover, &escape);

    QVERIFY(!popover.isVisible());
    QVERIFY(escape.isAccepted());
}

void tst_SpritePropertiesPopover::repeatsWhatTheFormSends()
{
    SpritePropertiesPopover popover;
    popover.showFor(Map::PlacedSprite(), middle());
    QSignalSpy edited(&popover, &SpritePropertiesPopover::spriteEdited);

    popover.findChild<QSpinBox *>("paletteOffset")->setValue(4);

    QCOMPARE(edited.count(), 1);
}

QTEST_MAIN(tst_SpritePropertiesPopover)

#include "tst_SpritePropertiesPopover.moc"
