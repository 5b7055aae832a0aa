#include "uikit/FocusEntry.h"

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

class tst_FocusEntry : public QObject
{
    Q_OBJECT

private slots:
    void aPaneThatTakesTheFocusIsItsOwnEntry();
    void otherwiseItIsTheFirstChildThatTabReaches();
    void aPaneWithoutSuchAChildHasNone();
};

void tst_FocusEntry::aPaneThatTakesTheFocusIsItsOwnEntry()
{
    QWidget pane;
    new QLineEdit(&pane);
    pane.setFocusPolicy(Qt::ClickFocus);

    QCOMPARE(FocusEntry::of(&pane), &pane);
}

void tst_FocusEntry::otherwiseItIsTheFirstChildThatTabReaches()
{
    QWidget window;
    auto *const layout = new QVBoxLayout(&window);
    auto *const pane = new QWidget;
    auto *const beside = new QLineEdit;
    layout->addWidget(pane);
    layout->addWidget(beside);
    QLineEdit *fields[] = {new QLineEdit(pane), new QLineEdit(pane), new QLineEdit(pane),
                           new QLineEdit(pane), new QLineEdit(pane)};
    fields[0]->setEnabled(false);
    fields[1]->hide();
    fields[2]->setFocusPolicy(Qt::ClickFocus);
    window.show();

    QCOMPARE(FocusEntry::of(pane), fields[3]);
    QWidget::setTabOrder(fields[4], fields[3]);
    QCOMPARE(FocusEntry::of(pane), fields[4]);
}

void tst_FocusEntry::aPaneWithoutSuchAChildHasNone()
{
    QWidget window;
    auto *const layout = new QVBoxLayout(&window);
    auto *const pane = new QWidget;
    layout->addWidget(pane);
    layout->addWidget(new QLineEdit);
    new QLineEdit(pane);
    pane->setEnabled(false);
    window.show();

    QVERIFY(!FocusEntry::of(pane));
}

QTEST_MAIN(tst_FocusEntry)
#include "tst_FocusEntry.moc"
