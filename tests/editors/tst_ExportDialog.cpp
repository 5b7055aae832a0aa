#include "editors/ExportDialog.h"
#include "support/FileDialogs.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

using TileEditor::ExportDialog;

class tst_ExportDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_dialog.reset(); }

    void theFieldsHaveTheirTextsAndDefaults();
    void theValuesAreSent();
    void aFileIsRequired();
    void aStartBehindTheEndIsRefused();
    void theSpinsKeepEachOtherInStep();
    void theButtonAsksForAFile();
    void aCancelledFileDialogKeepsTheName();
    void cancellingSendsNothing();

private:
    QLineEdit *file() const { return m_dialog->findChild<QLineEdit *>(); }
    QSpinBox *spin(int index) const { return m_dialog->findChildren<QSpinBox *>().at(index); }

    std::unique_ptr<ExportDialog> m_dialog;
};

void tst_ExportDialog::init()
{
    m_dialog = std::make_unique<ExportDialog>();
    m_dialog->show();
}

void tst_ExportDialog::theFieldsHaveTheirTextsAndDefaults()
{
    QCOMPARE(m_dialog->heading(), QString("Export Tiles"));
    QCOMPARE(file()->placeholderText(), QString("Select a file to export..."));
    QCOMPARE(m_dialog->findChild<QToolButton *>()->text(), QString("..."));
    QCOMPARE(spin(0)->value(), 1);
    QCOMPARE(spin(0)->minimum(), 1);
    QCOMPARE(spin(0)->maximum(), 512);
    QCOMPARE(spin(1)->value(), 512);
    QCOMPARE(spin(1)->minimum(), 1);
    QCOMPARE(spin(1)->maximum(), 512);
    QCOMPARE(m_dialog->findChild<QCheckBox *>()->text(), QString("Rotate 90° counter clockwise"));
    QVERIFY(!m_dialog->findChild<QCheckBox *>()->isChecked());
}

void tst_ExportDialog::theValuesAreSent()
{
    QSignalSpy accepted(m_dialog.get(), &ExportDialog::accepted);

    QTest::keyClicks(file(), "/tmp/a.bin");
    spin(0)->setValue(3);
    spin(1)->setValue(7);
    m_dialog->findChild<QCheckBox *>()->click();
    QTest::keyClick(m_dialog.get(), Qt::Key_Return);

    QCOMPARE(accepted, QList<QVariantList>({{"/tmp/a.bin", 3, 7, true}}));
    QVERIFY(!m_dialog->isVisible());
}

void tst_ExportDialog::aFileIsRequired()
{
    QSignalSpy accepted(m_dialog.get(), &ExportDialog::accepted);

    QTest::keyClick(m_dialog.get(), Qt::Key_Return);

    QCOMPARE(m_dialog->error(), QString("Please choose a file!"));
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(accepted.count(), 0);
}

void tst_ExportDialog::aStartBehindTheEndIsRefused()
{
    QSignalSpy accepted(m_dialog.get(), &ExportDialog::accepted);
    file()->setText("/tmp/a.bin");
    // Typing cannot bring this about, as the spins keep in step.
    const QSignalBlocker first(spin(0));
    const QSignalBlocker last(spin(1));
    spin(0)->setValue(8);
    spin(1)->setValue(7);

    QTest::keyClick(m_dialog.get(), Qt::Key_Return);

    QCOMPARE(m_dialog->error(), QString("The starting block is greater than then end block!"));
    QCOMPARE(accepted.count(), 0);
}

void tst_ExportDialog::theSpinsKeepEachOtherInStep()
{
    spin(0)->setValue(100);
    QCOMPARE(spin(1)->minimum(), 100);

    spin(1)->setValue(200);
    QCOMPARE(spin(0)->maximum(), 200);
}

void tst_ExportDialog::theButtonAsksForAFile()
{
    const QTemporaryDir folder;
    QTest::keyClick(m_dialog.get(), Qt::Key_Return);

    QTest::mouseClick(m_dialog->findChild<QToolButton *>(), Qt::LeftButton);
    QFileDialog *chooser = FileDialogs::visible();
    QVERIFY(chooser);
    QCOMPARE(chooser->windowTitle(), QString("Export Tile Data"));
    QCOMPARE(chooser->acceptMode(), QFileDialog::AcceptSave);
    QCOMPARE(chooser->nameFilters(), QStringList({"Tile data (*.nxt)", "Blocks (*.bin)"}));
    QCOMPARE(chooser->defaultSuffix(), QString("nxt"));
    FileDialogs::choose(chooser, folder.filePath("tiles"));

    QCOMPARE(file()->text(), folder.filePath("tiles.nxt"));
    QVERIFY(m_dialog->error().isEmpty());
    QVERIFY(m_dialog->isVisible());
}

void tst_ExportDialog::aCancelledFileDialogKeepsTheName()
{
    file()->setText("/tmp/a.bin");

    QTest::mouseClick(m_dialog->findChild<QToolButton *>(), Qt::LeftButton);
    FileDialogs::cancel(FileDialogs::visible());

    QCOMPARE(file()->text(), QString("/tmp/a.bin"));
    QVERIFY(m_dialog->isVisible());
}

void tst_ExportDialog::cancellingSendsNothing()
{
    QSignalSpy accepted(m_dialog.get(), &ExportDialog::accepted);
    file()->setText("/tmp/a.bin");

    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);

    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(accepted.count(), 0);
}

QTEST_MAIN(tst_ExportDialog)
#include "tst_ExportDialog.moc"
