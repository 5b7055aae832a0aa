#include "menus/EditMenu.h"

#include <QSignalSpy>
#include <QTest>

class tst_EditMenu : public QObject
{
    Q_OBJECT

private slots:
    void theFiveItemsGoOnAndOffTogether();
    void itemsSendTheirSignals_data();
    void itemsSendTheirSignals();
    void shortcutsWorkInTheWholeProgram();
    void undoAndRedoStandOnTopWithASeparatorUnderThem();

private:
    static QList<QAction *> items(const EditMenu &menu);
};

QList<QAction *> tst_EditMenu::items(const EditMenu &menu)
{
    QList<QAction *> actions = menu.actions();
    actions.removeIf([](const QAction *action) { return action->isSeparator(); });
    return actions;
}

void tst_EditMenu::theFiveItemsGoOnAndOffTogether()
{
    EditMenu menu;
    const auto enabledItems = [&menu] {
        const QList<QAction *> all = items(menu);
        return std::count_if(all.begin(), all.end(), [](auto *item) { return item->isEnabled(); });
    };

    QCOMPARE(enabledItems(), 0);
    menu.setClipboardEnabled(true);
    QCOMPARE(enabledItems(), 5);
    menu.setClipboardEnabled(false);
    QCOMPARE(enabledItems(), 0);
}

void tst_EditMenu::itemsSendTheirSignals_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("signal");

    QTest::newRow("Cut") << 0 << QByteArray(SIGNAL(cut()));
    QTest::newRow("Copy") << 1 << QByteArray(SIGNAL(copy()));
    QTest::newRow("Paste") << 2 << QByteArray(SIGNAL(paste()));
    QTest::newRow("Select All") << 3 << QByteArray(SIGNAL(selectAll()));
    QTest::newRow("Clear Selection") << 4 << QByteArray(SIGNAL(selectNone()));
}

void tst_EditMenu::itemsSendTheirSignals()
{
    QFETCH(int, index);
    QFETCH(QByteArray, signal);
    EditMenu menu;
    menu.setClipboardEnabled(true);
    QSignalSpy spy(&menu, signal.constData());

    items(menu).at(index)->trigger();

    QCOMPARE(spy.count(), 1);
}

void tst_EditMenu::shortcutsWorkInTheWholeProgram()
{
    const EditMenu menu;

    const QList<QAction *> all = items(menu);
    for (const QAction *action : all)
        QCOMPARE(action->shortcutContext(), Qt::ApplicationShortcut);
}

void tst_EditMenu::undoAndRedoStandOnTopWithASeparatorUnderThem()
{
    EditMenu menu;
    QAction undo("Undo");
    QAction redo("Redo");

    menu.insertUndoActions(&undo, &redo);

    QCOMPARE(menu.actions().at(0), &undo);
    QCOMPARE(menu.actions().at(1), &redo);
    QVERIFY(menu.actions().at(2)->isSeparator());
    QCOMPARE(menu.actions().at(3)->text(), QString("Cut"));
}

QTEST_MAIN(tst_EditMenu)
#include "tst_EditMenu.moc"
