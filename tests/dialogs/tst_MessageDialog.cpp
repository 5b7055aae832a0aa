#include "dialogs/MessageDialog.h"

#include "support/DialogDriver.h"

#include <QLabel>
#include <QTest>

class tst_MessageDialog : public QObject
{
    Q_OBJECT

private slots:
    void tellsAndReturnsAtOnce();
    void theMessageIsPlainText();
    void theMessageCanBeCopied();
    void okIsTheDefault();
    void okCloses();
    void aSecondMessageReplacesTheFirst();
    void aLongMessageIsWrapped();
    void anEndlessNameLeavesTheBoxUsable();

private:
    static QLabel *label(const MessageDialog &dialog, const QString &text);
};

QLabel *tst_MessageDialog::label(const MessageDialog &dialog, const QString &text)
{
    for (QLabel *one : dialog.findChildren<QLabel *>()) {
        if (one->text() == text)
            return one;
    }
    return nullptr;
}

void tst_MessageDialog::tellsAndReturnsAtOnce()
{
    MessageDialog dialog;

    dialog.showMessage(QStringLiteral("Warning!"), QStringLiteral("It failed"));

    QVERIFY(dialog.isVisible());
    QVERIFY(dialog.isModal());
    QCOMPARE(dialog.minimumWidth(), 300);
    QCOMPARE(dialog.contentsMargins(), QMargins(5, 10, 5, 5));
    QVERIFY(label(dialog, QStringLiteral("<h2>Warning!</h2>")));
    QVERIFY(label(dialog, QStringLiteral("It failed")));
    const auto buttons = dialog.findChild<QDialogButtonBox *>()->buttons();
    QCOMPARE(buttons.size(), 1);
    QCOMPARE(buttons.first()->text(), QStringLiteral("Ok"));
    bool hasIcon = false;
    for (const QLabel *one : dialog.findChildren<QLabel *>())
        hasIcon |= !one->pixmap(Qt::ReturnByValue).isNull();
    QVERIFY(hasIcon);
}

void tst_MessageDialog::theMessageIsPlainText()
{
    MessageDialog dialog;

    dialog.showMessage(QStringLiteral("<u>A & B"), QStringLiteral("<b>name</b>"));

    QCOMPARE(label(dialog, QStringLiteral("<b>name</b>"))->textFormat(), Qt::PlainText);
    QVERIFY(label(dialog, QStringLiteral("<h2>&lt;u&gt;A &amp; B</h2>")));
}

void tst_MessageDialog::theMessageCanBeCopied()
{
    MessageDialog dialog;
    dialog.showMessage(QStringLiteral("Warning!"), QStringLiteral("Refused"));
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QLabel *const message = label(dialog, QStringLiteral("Refused"));

    QTest::mouseDClick(message, Qt::LeftButton, {}, QPoint(10, message->height() / 2));

    QCOMPARE(message->selectedText(), QStringLiteral("Refused"));
}

void tst_MessageDialog::okIsTheDefault()
{
    MessageDialog dialog;
    dialog.showMessage(QStringLiteral("Warning!"), QStringLiteral("Refused"));
    QVERIFY(dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->isDefault());

    QTest::keyClick(&dialog, Qt::Key_Return);

    QVERIFY(!dialog.isVisible());
}

void tst_MessageDialog::okCloses()
{
    MessageDialog dialog;
    dialog.showMessage(QStringLiteral("Warning!"), QStringLiteral("It failed"));

    DialogDriver::pressOk(dialog);

    QVERIFY(!dialog.isVisible());
}

void tst_MessageDialog::aSecondMessageReplacesTheFirst()
{
    MessageDialog dialog;
    dialog.showMessage(QStringLiteral("Warning!"), QStringLiteral("It failed"));

    dialog.showMessage(QStringLiteral("Palette In Use"), QStringLiteral("It is used"));

    QVERIFY(dialog.isVisible());
    QVERIFY(!label(dialog, QStringLiteral("It failed")));
    QVERIFY(label(dialog, QStringLiteral("It is used")));
    QCOMPARE(dialog.findChild<QDialogButtonBox *>()->buttons().size(), 1);
}

void tst_MessageDialog::aLongMessageIsWrapped()
{
    MessageDialog dialog;
    const QString text = QStringLiteral("word ").repeated(60).trimmed();

    dialog.showMessage(QStringLiteral("Warning!"), text);

    const QLabel *const message = label(dialog, text);
    QVERIFY(message->wordWrap());
    QCOMPARE(message->maximumWidth(), 300);
    QVERIFY(message->width() <= 300);
    QVERIFY(message->height() >= message->heightForWidth(message->width()));
    QVERIFY(dialog.rect().contains(message->geometry()));
}

void tst_MessageDialog::anEndlessNameLeavesTheBoxUsable()
{
    MessageDialog dialog;

    dialog.showMessage(QStringLiteral("Warning!"), QStringLiteral("Failed to open ") +
                                                       QStringLiteral("name ").repeated(200000));

    QVERIFY(dialog.height() < 1000);
    DialogDriver::pressOk(dialog);
    QVERIFY(!dialog.isVisible());
}

QTEST_MAIN(tst_MessageDialog)
#include "tst_MessageDialog.moc"
