#include "dialogs/MapDialog.h"

#include "support/DialogDriver.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSpinBox>
#include <QTest>

class tst_MapDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void showsItsFields();
    void aNameIsRequired();
    void aTileSetMustBeSelected();
    void theNameIsAskedForFirst();
    void aMapBeyondTheLimitIsRefused();
    void sendsWhatWasTyped();
    void eachOpeningStartsWithoutAName();

private:
    /// Press Ok and expect that error.
    static void expectError(MapDialog &dialog, const QString &error);
    static QLineEdit *name(const MapDialog &dialog);
    static QSpinBox *spin(const MapDialog &dialog, const char *label);

    TileSet m_town{nullptr, 1};
    TileSet m_cave{nullptr, 1};
    QList<QPointer<TileSet>> m_sets{&m_town, &m_cave};
};

void tst_MapDialog::initTestCase()
{
    m_town.setName(QStringLiteral("Town"));
    m_cave.setName(QStringLiteral("Cave"));
}

void tst_MapDialog::expectError(MapDialog &dialog, const QString &error)
{
    int sent = 0;
    const QObject untilReturn;
    connect(&dialog, &MapDialog::accepted, &untilReturn, [&sent] { ++sent; });

    DialogDriver::pressOk(dialog);

    QCOMPARE(dialog.error(), error);
    QVERIFY(dialog.isVisible());
    QCOMPARE(sent, 0);
}

QLineEdit *tst_MapDialog::name(const MapDialog &dialog)
{
    return DialogDriver::field<QLineEdit>(dialog, QStringLiteral("Name"));
}

QSpinBox *tst_MapDialog::spin(const MapDialog &dialog, const char *label)
{
    return DialogDriver::field<QSpinBox>(dialog, QString::fromLatin1(label));
}

void tst_MapDialog::showsItsFields()
{
    MapDialog dialog;
    dialog.show(m_sets);

    QCOMPARE(dialog.heading(), QStringLiteral("Create a new Map"));
    QCOMPARE(name(dialog)->placeholderText(), QStringLiteral("Map Name"));
    QCOMPARE(spin(dialog, "Width")->minimum(), 40);
    QCOMPARE(spin(dialog, "Width")->maximum(), 9999);
    QCOMPARE(spin(dialog, "Height")->minimum(), 32);
    QCOMPARE(spin(dialog, "Height")->maximum(), 9999);
    const auto *sets = DialogDriver::field<QComboBox>(dialog, QStringLiteral("Tile set"));
    QCOMPARE(sets->count(), 2);
    QCOMPARE(dialog.size(), QSize(400, 300));
}

void tst_MapDialog::aNameIsRequired()
{
    MapDialog dialog;
    dialog.show(m_sets);

    expectError(dialog, QStringLiteral("Name is required"));
}

void tst_MapDialog::aTileSetMustBeSelected()
{
    MapDialog dialog;
    dialog.show({});
    QTest::keyClicks(name(dialog), QStringLiteral("Level 1"));

    expectError(dialog, QStringLiteral("Select a tile set"));
}

void tst_MapDialog::theNameIsAskedForFirst()
{
    MapDialog dialog;
    dialog.show({});

    expectError(dialog, QStringLiteral("Name is required"));
}

void tst_MapDialog::aMapBeyondTheLimitIsRefused()
{
    MapDialog dialog;
    dialog.show(m_sets);
    QTest::keyClicks(name(dialog), QStringLiteral("Level 1"));
    // The fields end below the limit, so give them more.
    spin(dialog, "Width")->setMaximum(1 << 20);
    spin(dialog, "Width")->setValue((1 << 20));
    spin(dialog, "Height")->setValue(129);

    expectError(dialog, QStringLiteral("The map is too large"));

    spin(dialog, "Height")->setValue(128);
    DialogDriver::pressOk(dialog);
    QVERIFY(!dialog.isVisible());
}

void tst_MapDialog::sendsWhatWasTyped()
{
    MapDialog dialog;
    QString sentName;
    QUuid sentSet;
    QSize sentSize;
    connect(&dialog, &MapDialog::accepted, this,
            [&](const QString &typed, const QUuid &tileSet, const QSize &size) {
                sentName = typed;
                sentSet = tileSet;
                sentSize = size;
            });
    dialog.show(m_sets);

    QTest::keyClicks(name(dialog), QStringLiteral("Level 1"));
    spin(dialog, "Width")->selectAll();
    QTest::keyClicks(spin(dialog, "Width"), QStringLiteral("100"));
    spin(dialog, "Height")->setValue(50);
    DialogDriver::field<QComboBox>(dialog, QStringLiteral("Tile set"))
        ->setCurrentText(QStringLiteral("Town"));
    DialogDriver::pressOk(dialog);

    QCOMPARE(sentName, QStringLiteral("Level 1"));
    QCOMPARE(sentSet, m_town.id());
    QCOMPARE(sentSize, QSize(100, 50));
    QVERIFY(!dialog.isVisible());
}

void tst_MapDialog::eachOpeningStartsWithoutAName()
{
    MapDialog dialog;
    dialog.show(m_sets);
    QTest::keyClicks(name(dialog), QStringLiteral("Level 1"));
    DialogDriver::pressOk(dialog);

    dialog.show({&m_cave});

    QCOMPARE(name(dialog)->text(), QString());
    const auto *sets = DialogDriver::field<QComboBox>(dialog, QStringLiteral("Tile set"));
    QCOMPARE(sets->count(), 1);
    QCOMPARE(sets->currentText(), QStringLiteral("Cave"));
}

QTEST_MAIN(tst_MapDialog)
#include "tst_MapDialog.moc"
