#include "dialogs/ProjectDialog.h"

#include "support/DialogDriver.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

class tst_ProjectDialog : public QObject
{
    Q_OBJECT

private slots:
    void asksForAName();
    void anEmptyNameIsRefused();
    void theTypedNameCanBeRead();
    void eachOpeningStartsEmptyWithTheFocusOnTheName();
};

namespace {

QLineEdit *nameOf(const ProjectDialog &dialog)
{
    return DialogDriver::field<QLineEdit>(dialog, QStringLiteral("Project name"));
}

} // namespace

void tst_ProjectDialog::asksForAName()
{
    const ProjectDialog dialog;

    QCOMPARE(dialog.heading(), QStringLiteral("Create a new project"));
    QVERIFY(nameOf(dialog));
}

void tst_ProjectDialog::anEmptyNameIsRefused()
{
    ProjectDialog dialog;
    QSignalSpy accepted(&dialog, &ProjectDialog::accepted);
    dialog.show();

    DialogDriver::pressOk(dialog);

    QCOMPARE(dialog.error(), QStringLiteral("Please enter a name"));
    QVERIFY(dialog.isVisible());
    QCOMPARE(accepted.count(), 0);
}

void tst_ProjectDialog::theTypedNameCanBeRead()
{
    ProjectDialog dialog;
    QString name;
    connect(&dialog, &ProjectDialog::accepted, this, [&] { name = dialog.text(); });
    dialog.show();

    QTest::keyClicks(nameOf(dialog), QStringLiteral("Garden"));
    DialogDriver::pressOk(dialog);

    QCOMPARE(name, QStringLiteral("Garden"));
    QVERIFY(!dialog.isVisible());
}

void tst_ProjectDialog::eachOpeningStartsEmptyWithTheFocusOnTheName()
{
    ProjectDialog dialog;
    dialog.show();
    QTest::keyClicks(nameOf(dialog), QStringLiteral("Garden"));
    DialogDriver::pressCancel(dialog);

    dialog.open();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));

    QCOMPARE(dialog.text(), QString());
    QVERIFY(nameOf(dialog)->hasFocus());
}

QTEST_MAIN(tst_ProjectDialog)
#include "tst_ProjectDialog.moc"
