#include "dialogs/About.h"
#include "menus/HelpMenu.h"

#include <QSignalSpy>
#include <QTest>

class tst_HelpMenu : public QObject
{
    Q_OBJECT

private slots:
    void theCheckIsOffUntilSomebodyCarriesItOut();
    void aboutOpensTheOneDialog();
};

void tst_HelpMenu::theCheckIsOffUntilSomebodyCarriesItOut()
{
    HelpMenu menu;
    QSignalSpy check(&menu, &HelpMenu::checkForUpdates);
    QAction *item = menu.actions().at(0);

    item->trigger();
    QCOMPARE(check.count(), 0);

    menu.setUpdateCheckEnabled(true);
    item->trigger();
    QCOMPARE(check.count(), 1);
}

void tst_HelpMenu::aboutOpensTheOneDialog()
{
    QWidget window;
    HelpMenu menu(&window);
    QSignalSpy check(menu.about(), &About::checkForUpdates);

    menu.actions().at(1)->trigger();

    QVERIFY(menu.about()->isVisible());
    QVERIFY(menu.about()->isModal());
    QCOMPARE(menu.about()->parentWidget(), &window);
    QCOMPARE(check.count(), 1);
}

QTEST_MAIN(tst_HelpMenu)
#include "tst_HelpMenu.moc"
