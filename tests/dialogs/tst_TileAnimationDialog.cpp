#include "dialogs/TileAnimationDialog.h"

#include "support/Boxes.h"
#include "support/DialogDriver.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <memory>

class tst_TileAnimationDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void showsItsFields();
    void withoutTileSetsItTellsSoAndStaysShut_data();
    void withoutTileSetsItTellsSoAndStaysShut();
    void vanishedTileSetsAreNotOffered();
    void offersTheChosenTileSetFirst();
    void aBlankNameIsRefused_data();
    void aBlankNameIsRefused();
    void sendsNameAndTileSet();
    void cancelSendsNothing();
    void eachOpeningStartsWithoutAName();

private:
    QLineEdit *name() const { return DialogDriver::field<QLineEdit>(*m_dialog, "Name"); }
    QComboBox *tileSets() const { return DialogDriver::field<QComboBox>(*m_dialog, "Tile Set"); }

    using Sets = QList<QPointer<TileSet>>;
    TileSet m_town{nullptr, 1};
    TileSet m_cave{nullptr, 1};
    Sets m_sets{&m_town, &m_cave};
    std::unique_ptr<TileAnimationDialog> m_dialog;
};

void tst_TileAnimationDialog::init()
{
    m_town.setName("Town");
    m_cave.setName("Cave");
    m_dialog = std::make_unique<TileAnimationDialog>();
}

void tst_TileAnimationDialog::showsItsFields()
{
    m_dialog->show(m_sets);

    QVERIFY(m_dialog->isVisible());
    QCOMPARE(m_dialog->heading(), QString("Animated Tiles"));
    QCOMPARE(name()->placeholderText(), QString("Enter a name"));
    QCOMPARE(tileSets()->count(), 2);
    QCOMPARE(tileSets()->itemText(0), QString("Cave"));
    QCOMPARE(tileSets()->itemData(0, 256).toUuid(), m_cave.id());
    QCOMPARE(tileSets()->itemText(1), QString("Town"));
    QCOMPARE(tileSets()->itemData(1, 256).toUuid(), m_town.id());
}

void tst_TileAnimationDialog::withoutTileSetsItTellsSoAndStaysShut_data()
{
    QTest::addColumn<Sets>("sets");
    QTest::newRow("an empty list") << Sets();
    QTest::newRow("a vanished set") << Sets({nullptr});
}

void tst_TileAnimationDialog::withoutTileSetsItTellsSoAndStaysShut()
{
    QFETCH(Sets, sets);
    m_dialog->show(m_sets); // of these nothing must be left
    m_dialog->reject();
    const Boxes boxes(QMessageBox::Ok);

    m_dialog->show(sets);

    QCOMPARE(boxes.texts().size(), 1);
    QVERIFY(boxes.texts().first().endsWith("There are no usable tile sets"));
    QVERIFY(!m_dialog->isVisible());
}

void tst_TileAnimationDialog::vanishedTileSetsAreNotOffered()
{
    m_dialog->show({&m_town, nullptr});

    QCOMPARE(tileSets()->count(), 1);
    QCOMPARE(tileSets()->currentText(), QString("Town"));
}

void tst_TileAnimationDialog::aBlankNameIsRefused_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("nothing") << QString();
    QTest::newRow("spaces") << QString("   ");
}

void tst_TileAnimationDialog::aBlankNameIsRefused()
{
    QFETCH(QString, typed);
    QSignalSpy accepted(m_dialog.get(), &TileAnimationDialog::accepted);
    m_dialog->show(m_sets);
    QTest::keyClicks(name(), typed);

    DialogDriver::pressOk(*m_dialog);

    QCOMPARE(m_dialog->error(), QString("Please enter a name"));
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(accepted.count(), 0);
}

void tst_TileAnimationDialog::sendsNameAndTileSet()
{
    QSignalSpy accepted(m_dialog.get(), &TileAnimationDialog::accepted);
    m_dialog->show(m_sets);
    QTest::keyClicks(name(), "Doors");
    tileSets()->setCurrentText("Town");

    DialogDriver::pressOk(*m_dialog);

    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.first().at(0).toString(), QString("Doors"));
    QCOMPARE(accepted.first().at(1).toUuid(), m_town.id());
    QVERIFY(!m_dialog->isVisible());
}

void tst_TileAnimationDialog::cancelSendsNothing()
{
    QSignalSpy accepted(m_dialog.get(), &TileAnimationDialog::accepted);
    m_dialog->show(m_sets);
    QTest::keyClicks(name(), "Doors");

    DialogDriver::pressCancel(*m_dialog);

    QCOMPARE(accepted.count(), 0);
    QVERIFY(!m_dialog->isVisible());
}

void tst_TileAnimationDialog::eachOpeningStartsWithoutAName()
{
    m_dialog->show(m_sets);
    QTest::keyClicks(name(), "Doors");
    DialogDriver::pressOk(*m_dialog);

    m_dialog->show({&m_cave});

    QCOMPARE(name()->text(), QString());
    QCOMPARE(tileSets()->count(), 1);
}

void tst_TileAnimationDialog::offersTheChosenTileSetFirst()
{
    m_dialog->show(m_sets);

    m_dialog->chooseTileSet(m_town.id());

    QCOMPARE(tileSets()->currentText(), QString("Town"));
}

QTEST_MAIN(tst_TileAnimationDialog)
#include "tst_TileAnimationDialog.moc"
