#include "dialogs/ExportMapDialog.h"

#include "support/DialogDriver.h"

#include <QCheckBox>
#include <QSignalSpy>
#include <QTest>

class tst_ExportMapDialog : public QObject
{
    Q_OBJECT

private slots:
    void withNothingTickedItStaysOpen();
    void oneTickIsEnough_data();
    void oneTickIsEnough();
};

void tst_ExportMapDialog::withNothingTickedItStaysOpen()
{
    ExportMapDialog dialog;
    QSignalSpy accepted(&dialog, &ExportMapDialog::accepted);
    dialog.show();

    DialogDriver::pressOk(dialog);

    QCOMPARE(dialog.heading(), QStringLiteral("Export Map Data"));
    QCOMPARE(dialog.error(), QStringLiteral("At least one option must be chosen"));
    QVERIFY(dialog.isVisible());
    QCOMPARE(accepted.count(), 0);
}

void tst_ExportMapDialog::oneTickIsEnough_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::newRow("map") << QStringLiteral("Export Map Data") << 0;
    QTest::newRow("tiles") << QStringLiteral("Export Tile Data") << 1;
    QTest::newRow("palette") << QStringLiteral("Export Palette Data") << 2;
}

void tst_ExportMapDialog::oneTickIsEnough()
{
    QFETCH(QString, text);
    QFETCH(int, kind);
    ExportMapDialog dialog;
    QSignalSpy accepted(&dialog, &ExportMapDialog::accepted);
    dialog.show();

    QTest::mouseClick(DialogDriver::button<QCheckBox>(dialog, text), Qt::LeftButton, {},
                      QPoint(8, 8));
    DialogDriver::pressOk(dialog);

    QCOMPARE(accepted.count(), 1);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.exportsMap(), kind == 0);
    QCOMPARE(dialog.exportsTiles(), kind == 1);
    QCOMPARE(dialog.exportsPalette(), kind == 2);
}

QTEST_MAIN(tst_ExportMapDialog)
#include "tst_ExportMapDialog.moc"
