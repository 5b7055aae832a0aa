#include "dialogs/ImageDialog.h"

#include "support/DialogDriver.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using Tessaril::ImageMode;

class tst_ImageDialog : public QObject
{
    Q_OBJECT

private slots:
    void theTwoNewPalettesStandInFront();
    void aNameIsRequired();
    void eachOpeningStartsWithoutAName();
    void sendsEachMode_data();
    void sendsEachMode();
    void sendsTheChosenPalette_data();
    void sendsTheChosenPalette();

private:
    static QComboBox *combo(const ImageDialog &dialog, const char *label);
    static QLineEdit *name(const ImageDialog &dialog);
};

QComboBox *tst_ImageDialog::combo(const ImageDialog &dialog, const char *label)
{
    return DialogDriver::field<QComboBox>(dialog, QString::fromLatin1(label));
}

QLineEdit *tst_ImageDialog::name(const ImageDialog &dialog)
{
    return DialogDriver::field<QLineEdit>(dialog, QStringLiteral("Name"));
}

void tst_ImageDialog::theTwoNewPalettesStandInFront()
{
    Palette sea;
    sea.setName(QStringLiteral("!Sea"));
    ImageDialog dialog;

    dialog.show({&sea});
    dialog.show({&sea});

    const QComboBox *palettes = combo(dialog, "Palette");
    QCOMPARE(palettes->count(), 3);
    QCOMPARE(palettes->itemText(0), QStringLiteral("* Create a new empty palette"));
    QCOMPARE(palettes->itemText(1), QStringLiteral("* Default Next colours"));
    QCOMPARE(palettes->itemText(2), QStringLiteral("!Sea"));
    QCOMPARE(palettes->currentIndex(), 0);
}

void tst_ImageDialog::aNameIsRequired()
{
    ImageDialog dialog;
    QSignalSpy accepted(&dialog, &ImageDialog::accepted);
    dialog.show({});

    DialogDriver::pressOk(dialog);

    QCOMPARE(dialog.error(), QStringLiteral("Name is required"));
    QVERIFY(dialog.isVisible());
    QCOMPARE(accepted.count(), 0);
}

void tst_ImageDialog::eachOpeningStartsWithoutAName()
{
    ImageDialog dialog;
    dialog.show({});
    auto *const name = DialogDriver::field<QLineEdit>(dialog, QStringLiteral("Name"));
    QTest::keyClicks(name, QStringLiteral("Title"));
    DialogDriver::pressOk(dialog);

    dialog.show({});

    QCOMPARE(name->text(), QString());
}

void tst_ImageDialog::sendsEachMode_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<ImageMode>("mode");
    QTest::newRow("256 by 192") << 0 << ImageMode::Layer2_256x192;
    QTest::newRow("320 by 256") << 1 << ImageMode::Layer2_320x256;
    QTest::newRow("640 by 256") << 2 << ImageMode::Layer2_640x256;
    QTest::newRow("LoRes") << 3 << ImageMode::LoRes_128x96;
}

void tst_ImageDialog::sendsEachMode()
{
    QFETCH(int, row);
    QFETCH(ImageMode, mode);
    ImageDialog dialog;
    QSignalSpy accepted(&dialog, &ImageDialog::accepted);
    dialog.show({});

    QTest::keyClicks(name(dialog), QStringLiteral("Title"));
    combo(dialog, "Mode")->setCurrentIndex(row);
    DialogDriver::pressOk(dialog);

    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.first().at(0).toString(), QStringLiteral("Title"));
    QCOMPARE(accepted.first().at(1).value<ImageMode>(), mode);
    QVERIFY(!dialog.isVisible());
}

void tst_ImageDialog::sendsTheChosenPalette_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QUuid>("id");
    QTest::newRow("new empty") << 0 << QUuid("{00000000-0000-0000-0000-000000000000}");
    QTest::newRow("new default") << 1 << QUuid("{00000000-0000-0000-0000-000000000001}");
    QTest::newRow("existing") << 2 << QUuid("{12345678-0000-0000-0000-000000000000}");
}

void tst_ImageDialog::sendsTheChosenPalette()
{
    QFETCH(int, row);
    QFETCH(QUuid, id);
    Palette sea;
    sea.setId(QUuid("{12345678-0000-0000-0000-000000000000}"));
    ImageDialog dialog;
    QSignalSpy accepted(&dialog, &ImageDialog::accepted);
    dialog.show({&sea});

    QTest::keyClicks(name(dialog), QStringLiteral("Title"));
    combo(dialog, "Palette")->setCurrentIndex(row);
    DialogDriver::pressOk(dialog);

    QCOMPARE(accepted.first().at(2).toUuid(), id);
}

QTEST_MAIN(tst_ImageDialog)
#include "tst_ImageDialog.moc"
