#include "dialogs/PaletteDialog.h"

#include "support/DialogDriver.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

class tst_PaletteDialog : public QObject
{
    Q_OBJECT

private slots:
    void startsOnABlankPalette();
    void refusesWhatItMust_data();
    void refusesWhatItMust();
    void aNameThatDiffersInCaseIsAccepted();
    void sendsTheChosenAction_data();
    void sendsTheChosenAction();
    void withoutAPaletteThereIsNothingToCopy();
    void eachOpeningStartsWithoutAName();

private:
    static QLineEdit *name(const PaletteDialog &dialog);
    static QRadioButton *radio(const PaletteDialog &dialog, const QString &text);
};

QLineEdit *tst_PaletteDialog::name(const PaletteDialog &dialog)
{
    return DialogDriver::field<QLineEdit>(dialog, QStringLiteral("Palette Name"));
}

QRadioButton *tst_PaletteDialog::radio(const PaletteDialog &dialog, const QString &text)
{
    return DialogDriver::button<QRadioButton>(dialog, text);
}

void tst_PaletteDialog::startsOnABlankPalette()
{
    const PaletteDialog dialog;

    QCOMPARE(dialog.heading(), QStringLiteral("Create a new palette"));
    QVERIFY(radio(dialog, QStringLiteral("Create a blank palette"))->isChecked());
    QCOMPARE(dialog.findChildren<QRadioButton *>().size(), 3);
}

void tst_PaletteDialog::refusesWhatItMust_data()
{
    QTest::addColumn<QStringList>("existing");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("error");
    QTest::newRow("no name") << QStringList{"Forest"} << QString()
                             << QStringLiteral("Palette name is required");
    QTest::newRow("a name that is there")
        << QStringList{"Castle", "Forest"} << QStringLiteral("Forest")
        << QStringLiteral("Palette names must be unique");
    QTest::newRow("no name, and that is there")
        << QStringList{QString()} << QString() << QStringLiteral("Palette names must be unique");
}

void tst_PaletteDialog::refusesWhatItMust()
{
    QFETCH(QStringList, existing);
    QFETCH(QString, typed);
    QFETCH(QString, error);
    PaletteDialog dialog;
    QSignalSpy accepted(&dialog, &PaletteDialog::accepted);
    dialog.show(existing);

    QTest::keyClicks(name(dialog), typed);
    DialogDriver::pressOk(dialog);

    QCOMPARE(dialog.error(), error);
    QVERIFY(dialog.isVisible());
    QCOMPARE(accepted.count(), 0);
}

void tst_PaletteDialog::aNameThatDiffersInCaseIsAccepted()
{
    PaletteDialog dialog;
    QSignalSpy accepted(&dialog, &PaletteDialog::accepted);
    dialog.show({QStringLiteral("Forest")});

    QTest::keyClicks(name(dialog), QStringLiteral("forest"));
    DialogDriver::pressOk(dialog);

    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.first().at(1).toString(), QStringLiteral("forest"));
    QVERIFY(!dialog.isVisible());
}

void tst_PaletteDialog::sendsTheChosenAction_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<CreateAction>("action");
    QTest::newRow("copy") << QStringLiteral("Copy colours from current palette") << CreateCopy;
    QTest::newRow("default") << QStringLiteral("Use the default Next palette") << CreateDefault;
    QTest::newRow("blank") << QStringLiteral("Create a blank palette") << CreateBlank;
}

void tst_PaletteDialog::sendsTheChosenAction()
{
    QFETCH(QString, text);
    QFETCH(CreateAction, action);
    PaletteDialog dialog;
    QSignalSpy accepted(&dialog, &PaletteDialog::accepted);
    dialog.show({QStringLiteral("Forest")});

    QTest::keyClicks(name(dialog), QStringLiteral("Sea"));
    QTest::mouseClick(radio(dialog, text), Qt::LeftButton, {}, QPoint(8, 8));
    DialogDriver::pressOk(dialog);

    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.first().at(0).value<CreateAction>(), action);
    QCOMPARE(accepted.first().at(1).toString(), QStringLiteral("Sea"));
}

void tst_PaletteDialog::withoutAPaletteThereIsNothingToCopy()
{
    PaletteDialog dialog;
    auto *copy = radio(dialog, QStringLiteral("Copy colours from current palette"));
    dialog.show({QStringLiteral("Forest")});
    QVERIFY(copy->isEnabled());
    QTest::mouseClick(copy, Qt::LeftButton, {}, QPoint(8, 8));
    DialogDriver::pressCancel(dialog);

    dialog.show({});

    QVERIFY(!copy->isEnabled());
    QVERIFY(radio(dialog, QStringLiteral("Create a blank palette"))->isChecked());
}

void tst_PaletteDialog::eachOpeningStartsWithoutAName()
{
    PaletteDialog dialog;
    dialog.show({});
    QTest::keyClicks(name(dialog), QStringLiteral("Sea"));
    DialogDriver::pressOk(dialog);

    dialog.show({QStringLiteral("Sea")});

    QCOMPARE(name(dialog)->text(), QString());
}

QTEST_MAIN(tst_PaletteDialog)
#include "tst_PaletteDialog.moc"
