#include "uikit/ToolPalette.h"

#include "uikit/ThemedIcon.h"

#include <QAction>
#include <QActionGroup>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

using Tessaril::Ui::ToolButton;

namespace {

QList<ToolButton> allTools()
{
    using enum Tessaril::Ui::ToolButton;
    return {Draw,     Line,     Rectangle, RectangleFill, Circle, Fill,    Erase,
            Pick,     Select,   Resize,    Grid,          ZoomIn, ZoomOut, MoveUp,
            MoveDown, MoveLeft, MoveRight, Cut,           Copy,   Paste,   Crop,
            Open,     Save,     RotateCW,  RotateCCW,     Flip,   Mirror,  PaintPalette};
}

QToolButton *buttonOf(const ToolPalette &palette, ToolButton tool)
{
    for (QToolButton *button : palette.findChildren<QToolButton *>()) {
        if (button->defaultAction() == palette.action(tool))
            return button;
    }
    return nullptr;
}

} // namespace

class tst_ToolPalette : public QObject
{
    Q_OBJECT

private slots:
    void showsEachToolAsItsRecordSays_data();
    void showsEachToolAsItsRecordSays();
    void theToolsUpToNineAreOneExclusiveGroup();
    void buttonsHaveOneSizeAndAName();
    void showsButtonsInTheOrderAdded();
    void anUnknownToolIsLoggedAndAddsNothing();
    void addingAToolTwiceShowsItOnce();
    void removedButtonsAreGone();
    void aClickReportsToolAndState();
    void drawingToolsExcludeEachOther();
    void toggleGridKeepsItsOwnState();
    void eraseStandsOutsideTheGroup();
    void setStateChecksAndSendsNothing();
    void setStateOfAToolWithoutButtonDoesNothing();
    void unknownToolsInTheSlotsAreLogged();
    void aDisabledButtonDoesNotAnswer();
    void shortcutsWorkInTheOwner();
    void wrapsAllButtonsIntoCentredRows();
};

void tst_ToolPalette::showsEachToolAsItsRecordSays_data()
{
    using enum Tessaril::Ui::ToolButton;
    QTest::addColumn<ToolButton>("tool");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<bool>("checkable");
    const auto row = [](ToolButton tool, const char *text, const char *toolTip, const char *icon,
                        const char *keys, bool checkable) {
        QTest::newRow(text) << tool << text << toolTip << icon << keys << checkable;
    };
    row(Draw, "Draw", "Draw [D]", ":/Paint", "D", true);
    row(Line, "Line", "Line [L]", ":/Line", "L", true);
    row(Rectangle, "Rectangle", "Rectangle [R]", ":/Rectangle", "R", true);
    row(RectangleFill, "Filled Rectangle", "Filled Rectangle", ":/RectangleFill", "", true);
    row(Circle, "Circle/Oval", "Circle/Oval [C]", ":/Circle", "C", true);
    row(Fill, "Fill", "Fill [F]", ":/Fill", "F", true);
    row(Erase, "Erase", "Erase [E]", ":/Erase", "E", true);
    row(Pick, "Pick", "Pick [P]", ":/Picker", "P", true);
    row(Select, "Select", "Select [S]", ":/Select", "S", true);
    row(Resize, "Resize", "Resize", ":/Resize", "", false);
    row(Grid, "Toggle Grid", "Toggle Grid [G]", ":/Grid", "G", true);
    row(ZoomIn, "Increase Magnification", "Increase Magnification [=]", ":/ZoomIn", "=", false);
    row(ZoomOut, "Decrease Magnification", "Decrease Magnification [-]", ":/ZoomOut", "-", false);
    row(MoveUp, "Move Up", "Move Up", ":/Arrow/N", "", false);
    row(MoveDown, "Move Down", "Move Down", ":/Arrow/S", "", false);
    row(MoveLeft, "Move Left", "Move Left", ":/Arrow/W", "", false);
    row(MoveRight, "Move Right", "Move Right", ":/Arrow/E", "", false);
    row(Cut, "Cut", "Cut", ":/Cut", "", false);
    row(Copy, "Copy", "Copy", ":/Copy", "", false);
    row(Paste, "Paste", "Paste", ":/Paste", "", false);
    row(Crop, "Crop", "Crop", ":/Crop", "", false);
    row(Open, "Import Image", "Import Image", ":/OpenIcon", "", false);
    row(Save, "Export Image", "Export Image", ":/SaveIcon", "", false);
    row(RotateCW, "Rotate CW", "Rotate CW", ":/RotateCW", "", false);
    row(RotateCCW, "Rotate CCW", "Rotate CCW", ":/RotateCCW", "", false);
    row(Flip, "Flip", "Flip", ":/Flip", "", false);
    row(Mirror, "Mirror", "Mirror", ":/Mirror", "", false);
    row(PaintPalette, "Palette", "Palette", ":/Palette", "", false);
}

void tst_ToolPalette::showsEachToolAsItsRecordSays()
{
    QFETCH(ToolButton, tool);
    QFETCH(QString, text);
    QFETCH(QString, toolTip);
    QFETCH(QString, icon);
    QFETCH(QString, keys);
    QFETCH(bool, checkable);
    ToolPalette palette;

    const QAction *const action = palette.addButton(tool);

    QCOMPARE(action->text(), text);
    QCOMPARE(action->toolTip(), toolTip);
    QCOMPARE(action->icon().pixmap(QSize(32, 32)).toImage(),
             themedIcon(icon).pixmap(QSize(32, 32)).toImage());
    QCOMPARE(action->shortcut(), QKeySequence(keys));
    QCOMPARE(action->isCheckable(), checkable);
    QCOMPARE(action->shortcutContext(), Qt::WidgetWithChildrenShortcut);
}

void tst_ToolPalette::theToolsUpToNineAreOneExclusiveGroup()
{
    ToolPalette palette;
    palette.addButtons(allTools());
    const QActionGroup *const group = palette.action(ToolButton::Draw)->actionGroup();

    QVERIFY(group && group->isExclusive());
    for (const ToolButton tool : allTools())
        QCOMPARE(palette.action(tool)->actionGroup(), int(tool) <= 9 ? group : nullptr);
}

void tst_ToolPalette::buttonsHaveOneSizeAndAName()
{
    ToolPalette palette;
    palette.addButton(ToolButton::Fill);

    const QToolButton *const button = buttonOf(palette, ToolButton::Fill);

    QCOMPARE(button->size(), QSize(36, 36));
    QCOMPARE(button->iconSize(), QSize(32, 32));
    QVERIFY(button->autoRaise());
    QCOMPARE(button->accessibleName(), QStringLiteral("Fill"));
}

void tst_ToolPalette::showsButtonsInTheOrderAdded()
{
    ToolPalette palette;
    palette.addButtons({ToolButton::Save, ToolButton::Draw, ToolButton::Grid});
    palette.resize(200, 40);
    palette.show();

    const int save = buttonOf(palette, ToolButton::Save)->x();
    const int draw = buttonOf(palette, ToolButton::Draw)->x();
    const int grid = buttonOf(palette, ToolButton::Grid)->x();

    QCOMPARE(draw, save + 37);
    QCOMPARE(grid, draw + 37);
}

void tst_ToolPalette::anUnknownToolIsLoggedAndAddsNothing()
{
    ToolPalette palette;
    QTest::ignoreMessage(QtWarningMsg, "Unhandled tool button");

    QVERIFY(!palette.addButton(ToolButton::ToggleViewport));

    QVERIFY(palette.findChildren<QToolButton *>().isEmpty());
    QVERIFY(!palette.action(ToolButton::ToggleViewport));
}

void tst_ToolPalette::addingAToolTwiceShowsItOnce()
{
    ToolPalette palette;
    QAction *const first = palette.addButton(ToolButton::Draw);

    QCOMPARE(palette.addButton(ToolButton::Draw), first);

    QCOMPARE(palette.findChildren<QToolButton *>().size(), 1);
}

void tst_ToolPalette::removedButtonsAreGone()
{
    ToolPalette palette;
    palette.addButtons({ToolButton::Draw, ToolButton::Save});

    palette.removeButton(ToolButton::Save);
    palette.removeButton(ToolButton::Open);

    QVERIFY(!palette.action(ToolButton::Save));
    QCOMPARE(palette.findChildren<QToolButton *>().size(), 1);
    QVERIFY(palette.addButton(ToolButton::Save));
}

void tst_ToolPalette::aClickReportsToolAndState()
{
    ToolPalette palette;
    palette.addButtons({ToolButton::Draw, ToolButton::ZoomIn});
    QSignalSpy activated(&palette, &ToolPalette::actionActivated);

    QTest::mouseClick(buttonOf(palette, ToolButton::Draw), Qt::LeftButton);
    QTest::mouseClick(buttonOf(palette, ToolButton::ZoomIn), Qt::LeftButton);

    QCOMPARE(activated.count(), 2);
    QCOMPARE(activated.at(0).at(0).value<ToolButton>(), ToolButton::Draw);
    QCOMPARE(activated.at(0).at(1).toBool(), true);
    QCOMPARE(activated.at(1).at(0).value<ToolButton>(), ToolButton::ZoomIn);
    QCOMPARE(activated.at(1).at(1).toBool(), false);
}

void tst_ToolPalette::drawingToolsExcludeEachOther()
{
    ToolPalette palette;
    palette.addButtons(allTools());

    for (const ToolButton tool : {ToolButton::Draw, ToolButton::Pick, ToolButton::Select}) {
        QTest::mouseClick(buttonOf(palette, tool), Qt::LeftButton);
        int checked = 0;
        for (const ToolButton other : allTools())
            checked += palette.action(other)->isChecked() ? 1 : 0;
        QVERIFY(palette.action(tool)->isChecked());
        QCOMPARE(checked, 1);
    }
}

void tst_ToolPalette::toggleGridKeepsItsOwnState()
{
    ToolPalette palette;
    palette.addButtons(allTools());
    QTest::mouseClick(buttonOf(palette, ToolButton::Draw), Qt::LeftButton);

    QTest::mouseClick(buttonOf(palette, ToolButton::Grid), Qt::LeftButton);
    QTest::mouseClick(buttonOf(palette, ToolButton::Line), Qt::LeftButton);

    QVERIFY(palette.action(ToolButton::Grid)->isChecked());
    QVERIFY(palette.action(ToolButton::Line)->isChecked());
    QVERIFY(!palette.action(ToolButton::Draw)->isChecked());
    QTest::mouseClick(buttonOf(palette, ToolButton::Grid), Qt::LeftButton);
    QVERIFY(!palette.action(ToolButton::Grid)->isChecked());
}

void tst_ToolPalette::eraseStandsOutsideTheGroup()
{
    ToolPalette palette;
    palette.addButtons(allTools());
    palette.setState(ToolButton::Draw);

    palette.setState(ToolButton::Erase);

    QVERIFY(palette.action(ToolButton::Draw)->isChecked());
    QVERIFY(palette.action(ToolButton::Erase)->isChecked());
}

void tst_ToolPalette::setStateChecksAndSendsNothing()
{
    ToolPalette palette;
    palette.addButtons(allTools());
    QSignalSpy activated(&palette, &ToolPalette::actionActivated);

    palette.setState(ToolButton::Line);
    palette.setState(ToolButton::Fill);

    QVERIFY(palette.action(ToolButton::Fill)->isChecked());
    QVERIFY(!palette.action(ToolButton::Line)->isChecked());
    QCOMPARE(activated.count(), 0);
}

void tst_ToolPalette::setStateOfAToolWithoutButtonDoesNothing()
{
    ToolPalette palette;
    palette.addButton(ToolButton::Draw);
    palette.setState(ToolButton::Draw);

    palette.setState(ToolButton::Line);

    QVERIFY(palette.action(ToolButton::Draw)->isChecked());
}

void tst_ToolPalette::unknownToolsInTheSlotsAreLogged()
{
    ToolPalette palette;

    QTest::ignoreMessage(QtWarningMsg, "Unhandled button");
    palette.setState(ToolButton::PlaceSprite);
    QTest::ignoreMessage(QtWarningMsg, "Unhandled button");
    palette.setButtonEnabled(ToolButton::AnimPlay, false);
}

void tst_ToolPalette::aDisabledButtonDoesNotAnswer()
{
    ToolPalette palette;
    palette.addButton(ToolButton::Cut);
    QSignalSpy activated(&palette, &ToolPalette::actionActivated);

    palette.setButtonEnabled(ToolButton::Cut, false);
    QTest::mouseClick(buttonOf(palette, ToolButton::Cut), Qt::LeftButton);
    QCOMPARE(activated.count(), 0);

    palette.setButtonEnabled(ToolButton::Cut, true);
    QTest::mouseClick(buttonOf(palette, ToolButton::Cut), Qt::LeftButton);
    QCOMPARE(activated.count(), 1);
}

void tst_ToolPalette::shortcutsWorkInTheOwner()
{
    QWidget owner;
    owner.setFocusPolicy(Qt::StrongFocus);
    ToolPalette palette(&owner);
    palette.addButton(ToolButton::Line, &owner);
    QSignalSpy activated(&palette, &ToolPalette::actionActivated);
    owner.show();
    owner.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&owner));
    owner.setFocus();

    QTest::keyClick(&owner, Qt::Key_L);

    QCOMPARE(activated.count(), 1);
    QCOMPARE(activated.first().first().value<ToolButton>(), ToolButton::Line);
}

void tst_ToolPalette::wrapsAllButtonsIntoCentredRows()
{
    ToolPalette palette;
    palette.addButtons(allTools());
    // Six buttons a row with the spacing between them, and 10 pixels to spare.
    palette.resize(6 * 36 + 5 + 10, 400);
    palette.show();

    QCOMPARE(palette.heightForWidth(palette.width()), 5 * 36 + 4);
    QCOMPARE(palette.heightForWidth(36), 28 * 36 + 27);
    QCOMPARE(buttonOf(palette, ToolButton::Draw)->pos(), QPoint(5, 0));
    QCOMPARE(buttonOf(palette, ToolButton::Erase)->pos(), QPoint(5, 37));
    // The last row holds four.
    QCOMPARE(buttonOf(palette, ToolButton::RotateCCW)->pos(), QPoint((231 - 147) / 2, 4 * 37));
}

QTEST_MAIN(tst_ToolPalette)
#include "tst_ToolPalette.moc"
