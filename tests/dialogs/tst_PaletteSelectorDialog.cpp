#include "dialogs/PaletteSelectorDialog.h"

#include "support/DialogDriver.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QTest>

class tst_PaletteSelectorDialog : public QObject
{
    Q_OBJECT

private slots:
    void sendsTheChosenPalette();
    void withoutPalettesTheIdIsNull();
    void cancelSendsNothing();
};

void tst_PaletteSelectorDialog::sendsTheChosenPalette()
{
    Palette sea;
    sea.setName(QStringLiteral("Sea"));
    Palette forest;
    forest.setName(QStringLiteral("Forest"));
    PaletteSelectorDialog dialog;
    QSignalSpy accepted(&dialog, &PaletteSelectorDialog::accepted);
    dialog.show({&sea, &forest});

    auto *palettes = DialogDriver::field<QComboBox>(dialog, QStringLiteral("Palette"));
    palettes->setCurrentText(QStringLiteral("Sea"));
    DialogDriver::pressOk(dialog);

    QCOMPARE(dialog.heading(), QStringLiteral("Select a palette"));
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.first().first().toUuid(), sea.id());
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.size(), QSize(400, 300));
}

void tst_PaletteSelectorDialog::withoutPalettesTheIdIsNull()
{
    PaletteSelectorDialog dialog;
    QSignalSpy accepted(&dialog, &PaletteSelectorDialog::accepted);
    dialog.show({});

    DialogDriver::pressOk(dialog);

    QCOMPARE(accepted.count(), 1);
    QVERIFY(accepted.first().first().toUuid().isNull());
}

void tst_PaletteSelectorDialog::cancelSendsNothing()
{
    Palette sea;
    PaletteSelectorDialog dialog;
    QSignalSpy accepted(&dialog, &PaletteSelectorDialog::accepted);
    dialog.show({&sea});

    DialogDriver::pressCancel(dialog);

    QCOMPARE(accepted.count(), 0);
}

QTEST_MAIN(tst_PaletteSelectorDialog)
#include "tst_PaletteSelectorDialog.moc"
