#include "mapeditor/MapToolPalette.h"

#include <QAction>
#include <QLayout>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

using MapEditor::MapToolPalette;
using Tool = Tessaril::Ui::ToolButton;

class tst_MapToolPalette : public QObject
{
    Q_OBJECT

private slots:
    void everyToolHasItsButton_data();
    void everyToolHasItsButton();
    void buttonsStandInOneColumn();
    void aClickSendsTheTool();
    void modesExcludeEachOther();
    void setModeSendsNothing();
    void setActionCheckedSendsEvenIfUnchanged();
    void disabledToolsCannotBeToggled();
    void playingChangesTheIcon();
};

void tst_MapToolPalette::everyToolHasItsButton_data()
{
    QTest::addColumn<Tool>("tool");
    QTest::addColumn<bool>("checkable");
    QTest::addColumn<QStringList>("keys");
    const auto row = [](const char *text, Tool tool, bool checkable, const QStringList &keys) {
        QTest::newRow(text) << tool << checkable << keys;
    };
    row("Draw", Tool::Draw, true, {"D"});
    row("Select", Tool::Select, true, {"S"});
    row("Pick", Tool::Pick, true, {"P"});
    row("Place animations", Tool::PlaceAnim, true, {});
    row("Place sprites", Tool::PlaceSprite, true, {});
    row("Rotated", Tool::RotateCW, true, {"Ctrl+R"});
    row("Flipped", Tool::Flip, true, {"Shift+F"});
    row("Mirrored", Tool::Mirror, true, {"Shift+M"});
    row("Toggle Grid", Tool::Grid, true, {"G"});
    row("Up", Tool::MoveUp, false, {"Up"});
    row("Down", Tool::MoveDown, false, {"Down"});
    row("Left", Tool::MoveLeft, false, {"Left"});
    row("Right", Tool::MoveRight, false, {"Right"});
    row("Zoom Out", Tool::ZoomOut, false, {"-"});
    row("Zoom In", Tool::ZoomIn, false, {"=", "+"});
    row("Fit to window", Tool::ExpandToFit, false, {});
    row("Toggle viewport", Tool::ToggleViewport, true, {});
    row("Play Animations", Tool::AnimPlay, true, {});
    row("Reset all palette offsets", Tool::PaintPalette, false, {});
}

void tst_MapToolPalette::everyToolHasItsButton()
{
    const MapToolPalette palette;
    QFETCH(Tool, tool);
    QFETCH(QStringList, keys);
    const QAction *action = palette.action(tool);
    QVERIFY(action);
    const QString text = QString::fromLatin1(QTest::currentDataTag());

    QCOMPARE(action->text(), text);
    QTEST(action->isCheckable(), "checkable");
    QVERIFY(!action->icon().isNull());
    QCOMPARE(action->shortcutContext(), Qt::WidgetWithChildrenShortcut);
    QStringList shortcuts;
    for (const QKeySequence &key : action->shortcuts())
        shortcuts.append(key.toString(QKeySequence::PortableText));
    QCOMPARE(shortcuts, keys);
    QCOMPARE(action->toolTip(),
             keys.isEmpty() ? text : QStringLiteral("%1 [%2]").arg(text, keys.first()));
}

void tst_MapToolPalette::buttonsStandInOneColumn()
{
    MapToolPalette palette;
    palette.show();
    const auto buttons = palette.findChildren<QToolButton *>();

    QCOMPARE(buttons.size(), 19);
    QCOMPARE(palette.layout()->contentsMargins(), QMargins());
    for (int i = 0; i < buttons.size(); ++i) {
        QCOMPARE(buttons.at(i)->geometry(), QRect(0, 34 * i, 32, 32));
        QVERIFY(buttons.at(i)->autoRaise());
        QVERIFY(!buttons.at(i)->accessibleName().isEmpty());
    }
}

void tst_MapToolPalette::aClickSendsTheTool()
{
    MapToolPalette palette;
    palette.show();
    QSignalSpy activated(&palette, &MapToolPalette::actionActivated);
    const auto buttons = palette.findChildren<QToolButton *>();

    QTest::mouseClick(buttons.at(6), Qt::LeftButton);
    QTest::mouseClick(buttons.at(14), Qt::LeftButton);

    QCOMPARE(activated.count(), 2);
    QCOMPARE(activated.at(0), QVariantList({QVariant::fromValue(Tool::Flip), true}));
    QCOMPARE(activated.at(1), QVariantList({QVariant::fromValue(Tool::ZoomIn), false}));
}

void tst_MapToolPalette::modesExcludeEachOther()
{
    MapToolPalette palette;
    palette.toggleAction(Tool::Draw);
    palette.toggleAction(Tool::Mirror);

    palette.toggleAction(Tool::PlaceSprite);

    QVERIFY(!palette.action(Tool::Draw)->isChecked());
    QVERIFY(palette.action(Tool::PlaceSprite)->isChecked());
    QVERIFY(palette.action(Tool::Mirror)->isChecked());
}

void tst_MapToolPalette::setModeSendsNothing()
{
    MapToolPalette palette;
    QSignalSpy activated(&palette, &MapToolPalette::actionActivated);

    palette.setMode(Tool::Pick);
    QVERIFY(palette.action(Tool::Pick)->isChecked());
    palette.setMode(Tool::Flip);  // no mode
    palette.setMode(Tool::Paste); // no button
    palette.setShowGridChecked(true);

    QVERIFY(!palette.action(Tool::Flip)->isChecked());
    QVERIFY(palette.action(Tool::Pick)->isChecked());
    QVERIFY(palette.action(Tool::Grid)->isChecked());
    QCOMPARE(activated.count(), 0);
}

void tst_MapToolPalette::setActionCheckedSendsEvenIfUnchanged()
{
    MapToolPalette palette;
    QSignalSpy activated(&palette, &MapToolPalette::actionActivated);

    palette.setActionChecked(Tool::Flip, true);
    palette.setActionChecked(Tool::Flip, true);
    palette.setActionChecked(Tool::ZoomIn, true); // not checkable

    QCOMPARE(activated.count(), 2);
    QCOMPARE(activated.at(1), QVariantList({QVariant::fromValue(Tool::Flip), true}));
}

void tst_MapToolPalette::disabledToolsCannotBeToggled()
{
    MapToolPalette palette;
    QSignalSpy activated(&palette, &MapToolPalette::actionActivated);
    palette.setToolEnabled(Tool::Grid, false);

    palette.toggleAction(Tool::Grid);

    QCOMPARE(activated.count(), 0);
    QVERIFY(!palette.action(Tool::Grid)->isChecked());
}

void tst_MapToolPalette::playingChangesTheIcon()
{
    MapToolPalette palette;
    const auto picture = [&palette] {
        return palette.action(Tool::AnimPlay)->icon().pixmap(32, 32).toImage();
    };
    const QImage play = picture();

    palette.toggleAction(Tool::AnimPlay);
    QVERIFY(picture() != play);
    palette.toggleAction(Tool::AnimPlay);
    QCOMPARE(picture(), play);
}

QTEST_MAIN(tst_MapToolPalette)

#include "tst_MapToolPalette.moc"
