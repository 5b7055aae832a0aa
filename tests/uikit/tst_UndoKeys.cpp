#include "uikit/UndoKeys.h"

#include <QAction>
#include <QMainWindow>
#include <QMenuBar>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

class tst_UndoKeys : public QObject
{
    Q_OBJECT

private slots:
    void theKeysOfAFieldReachTheMenu_data();
    void theKeysOfAFieldReachTheMenu();
    void withNothingToUndoTheDigitsAreTheFieldsOwn();
    void otherKeysStayInTheField();

private:
    static QAction *addItem(QMainWindow *window, QKeySequence::StandardKey key)
    {
        auto *const item = new QAction("Undo", window);
        item->setShortcuts(key);
        window->menuBar()->addAction(item);
        return item;
    }
    /// A field with the digit 7 typed into it and the focus in it.
    static QSpinBox *show(QMainWindow *window)
    {
        auto *const field = new QSpinBox;
        UndoKeys::leaveToMenu(field);
        window->setCentralWidget(field);
        window->show();
        window->activateWindow();
        if (!QTest::qWaitForWindowActive(window))
            qFatal("the window is not active");
        field->setFocus();
        field->selectAll();
        QTest::keyClick(field, Qt::Key_7);
        return field;
    }
};

void tst_UndoKeys::theKeysOfAFieldReachTheMenu_data()
{
    QTest::addColumn<QKeySequence::StandardKey>("key");
    QTest::newRow("undo") << QKeySequence::Undo;
    QTest::newRow("redo") << QKeySequence::Redo;
}

void tst_UndoKeys::theKeysOfAFieldReachTheMenu()
{
    QFETCH(QKeySequence::StandardKey, key);
    QMainWindow window;
    QSignalSpy triggered(addItem(&window, key), &QAction::triggered);
    QSpinBox *const field = show(&window);

    QTest::keySequence(field, QKeySequence(key));

    QCOMPARE(triggered.count(), 1);
    QCOMPARE(field->value(), 7);
}

void tst_UndoKeys::withNothingToUndoTheDigitsAreTheFieldsOwn()
{
    QMainWindow window;
    QAction *const item = addItem(&window, QKeySequence::Undo);
    item->setEnabled(false);
    QSpinBox *const field = show(&window);

    QTest::keySequence(field, QKeySequence(QKeySequence::Undo));

    QCOMPARE(field->value(), 0);
}

void tst_UndoKeys::otherKeysStayInTheField()
{
    QMainWindow window;
    QSignalSpy triggered(addItem(&window, QKeySequence::SelectAll), &QAction::triggered);
    QSpinBox *const field = show(&window);

    QTest::keySequence(field, QKeySequence(QKeySequence::SelectAll));

    QCOMPARE(triggered.count(), 0);
}

QTEST_MAIN(tst_UndoKeys)
#include "tst_UndoKeys.moc"
