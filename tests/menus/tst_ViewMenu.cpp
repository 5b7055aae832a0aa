#include "menus/ViewMenu.h"

#include <QSignalSpy>
#include <QTest>

class tst_ViewMenu : public QObject
{
    Q_OBJECT

private slots:
    void togglingTheScratchEditorSaysWhetherItIsShown();
    void togglingTheStatusBarSaysWhetherItIsShown();
    void resettingTheLayoutSendsItsSignal();
    void tickingFromOutsideSendsNothing();
    void theScratchItemCanBeDisabled();
    void dockItemsComeBeforeTheScratchEditor();

private:
    static QMenu *windowMenu(const ViewMenu &menu) { return menu.actions().at(0)->menu(); }
};

void tst_ViewMenu::togglingTheScratchEditorSaysWhetherItIsShown()
{
    ViewMenu menu;
    QSignalSpy toggled(&menu, &ViewMenu::toggleScratch);
    QAction *scratch = windowMenu(menu)->actions().last();

    scratch->trigger();
    scratch->trigger();

    QCOMPARE(toggled, QList<QVariantList>({{true}, {false}}));
}

void tst_ViewMenu::togglingTheStatusBarSaysWhetherItIsShown()
{
    ViewMenu menu;
    QSignalSpy toggled(&menu, &ViewMenu::toggleStatusBar);
    QAction *statusBar = menu.actions().at(2);
    QVERIFY(statusBar->isCheckable());
    QVERIFY(statusBar->isChecked());

    statusBar->trigger();
    statusBar->trigger();

    QCOMPARE(toggled, QList<QVariantList>({{false}, {true}}));
}

void tst_ViewMenu::resettingTheLayoutSendsItsSignal()
{
    ViewMenu menu;
    QSignalSpy reset(&menu, &ViewMenu::resetLayout);

    menu.actions().at(1)->trigger();

    QCOMPARE(reset.count(), 1);
    QVERIFY(!menu.actions().at(1)->isCheckable());
}

void tst_ViewMenu::tickingFromOutsideSendsNothing()
{
    ViewMenu menu;
    QSignalSpy scratch(&menu, &ViewMenu::toggleScratch);
    QSignalSpy statusBar(&menu, &ViewMenu::toggleStatusBar);

    menu.setChecked(ViewMenu::CheckableItem::Scratch, true);
    menu.setChecked(ViewMenu::CheckableItem::StatusBar, false);

    QVERIFY(windowMenu(menu)->actions().last()->isChecked());
    QVERIFY(!menu.actions().at(2)->isChecked());
    QCOMPARE(scratch.count() + statusBar.count(), 0);
}

void tst_ViewMenu::theScratchItemCanBeDisabled()
{
    ViewMenu menu;

    menu.setScratchEnabled(false);
    QVERIFY(!windowMenu(menu)->actions().last()->isEnabled());
    menu.setScratchEnabled(true);
    QVERIFY(windowMenu(menu)->actions().last()->isEnabled());
}

void tst_ViewMenu::dockItemsComeBeforeTheScratchEditor()
{
    ViewMenu menu;
    QAction first("Project");
    QAction second("Tiles");

    menu.addDockAction(&first);
    menu.addDockAction(&second);

    QCOMPARE(windowMenu(menu)->actions().at(0), &first);
    QCOMPARE(windowMenu(menu)->actions().at(1), &second);
    QCOMPARE(windowMenu(menu)->actions().at(2)->text(), QString("Scratch Image Editor"));
}

QTEST_MAIN(tst_ViewMenu)
#include "tst_ViewMenu.moc"
