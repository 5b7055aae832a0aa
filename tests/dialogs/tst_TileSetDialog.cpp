#include "dialogs/TileSetDialog.h"

#include "support/DialogDriver.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

class tst_TileSetDialog : public QObject
{
    Q_OBJECT

private slots:
    void startsOnASmallSetWithANewPalette();
    void aNameIsRequired();
    void aNewPaletteHasTheNullId();
    void sendsAllChoices();
    void thePaletteBoxFollowsTheCheckBox();
    void eachOpeningStartsWithoutAName();

private:
    static QLineEdit *name(const TileSetDialog &dialog);
    static QCheckBox *box(const TileSetDialog &dialog, const QString &text);
    static void click(QAbstractButton *button);
};

QLineEdit *tst_TileSetDialog::name(const TileSetDialog &dialog)
{
    return DialogDriver::field<QLineEdit>(dialog, QStringLiteral("Name"));
}

QCheckBox *tst_TileSetDialog::box(const TileSetDialog &dialog, const QString &text)
{
    return DialogDriver::button<QCheckBox>(dialog, text);
}

void tst_TileSetDialog::click(QAbstractButton *button)
{
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}

void tst_TileSetDialog::startsOnASmallSetWithANewPalette()
{
    TileSetDialog dialog;
    dialog.show({});

    QCOMPARE(dialog.heading(), QStringLiteral("Create a new Tile Set"));
    QVERIFY(DialogDriver::button<QRadioButton>(dialog, QStringLiteral("256"))->isChecked());
    QVERIFY(!box(dialog, QStringLiteral("High resolution"))->isChecked());
    QVERIFY(box(dialog, QStringLiteral("New empty palette"))->isChecked());
    QVERIFY(!dialog.findChild<QComboBox *>()->isEnabled());
    QCOMPARE(dialog.size(), QSize(400, 300));
}

void tst_TileSetDialog::aNameIsRequired()
{
    TileSetDialog dialog;
    QSignalSpy accepted(&dialog, &TileSetDialog::accepted);
    dialog.show({});

    DialogDriver::pressOk(dialog);

    QCOMPARE(dialog.error(), QStringLiteral("Name is required"));
    QVERIFY(dialog.isVisible());
    QCOMPARE(accepted.count(), 0);
}

void tst_TileSetDialog::aNewPaletteHasTheNullId()
{
    Palette sea;
    TileSetDialog dialog;
    QSignalSpy accepted(&dialog, &TileSetDialog::accepted);
    dialog.show({&sea});

    QTest::keyClicks(name(dialog), QStringLiteral("Tiles"));
    DialogDriver::pressOk(dialog);

    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.first().at(0).toString(), QStringLiteral("Tiles"));
    QVERIFY(accepted.first().at(1).toUuid().isNull());
    QCOMPARE(accepted.first().at(2).toInt(), 256);
    QCOMPARE(accepted.first().at(3).toBool(), false);
    QVERIFY(!dialog.isVisible());
}

void tst_TileSetDialog::sendsAllChoices()
{
    Palette sea;
    TileSetDialog dialog;
    QSignalSpy accepted(&dialog, &TileSetDialog::accepted);
    dialog.show({&sea});

    QTest::keyClicks(name(dialog), QStringLiteral("Tiles"));
    click(DialogDriver::button<QRadioButton>(dialog, QStringLiteral("512")));
    click(box(dialog, QStringLiteral("High resolution")));
    click(box(dialog, QStringLiteral("New empty palette")));
    DialogDriver::pressOk(dialog);

    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.first().at(1).toUuid(), sea.id());
    QCOMPARE(accepted.first().at(2).toInt(), 512);
    QCOMPARE(accepted.first().at(3).toBool(), true);
}

void tst_TileSetDialog::thePaletteBoxFollowsTheCheckBox()
{
    Palette sea;
    TileSetDialog dialog;
    dialog.show({&sea});
    const auto *palettes = dialog.findChild<QComboBox *>();

    click(box(dialog, QStringLiteral("New empty palette")));
    QVERIFY(palettes->isEnabled());

    click(box(dialog, QStringLiteral("New empty palette")));
    QVERIFY(!palettes->isEnabled());
}

void tst_TileSetDialog::eachOpeningStartsWithoutAName()
{
    TileSetDialog dialog;
    dialog.show({});
    QTest::keyClicks(name(dialog), QStringLiteral("Tiles"));
    DialogDriver::pressCancel(dialog);

    dialog.show({});

    QCOMPARE(name(dialog)->text(), QString());
}

QTEST_MAIN(tst_TileSetDialog)
#include "tst_TileSetDialog.moc"
