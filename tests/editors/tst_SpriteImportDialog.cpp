#include "editors/ImportBinaryDialog.h"
#include "editors/ImportImageDialog.h"
#include "support/FileDialogs.h"
#include "support/TestFiles.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

using SpriteEditor::ImportBinaryDialog;
using SpriteEditor::ImportImageDialog;
using SpriteEditor::SpriteImportDialog;

class tst_SpriteImportDialog : public QObject
{
    Q_OBJECT

private slots:
    void theBinaryDialogHasItsTexts();
    void theImageDialogHasItsTexts();
    void appendingNeedsABank();
    void thePaletteCanBeChosenForAFileThatIsRead_data();
    void thePaletteCanBeChosenForAFileThatIsRead();
    void appendingLeavesNoPaletteToChoose();
    void withoutPalettesThereIsOnlyANewOne();
    void theBinaryDialogSendsItsFlags_data();
    void theBinaryDialogSendsItsFlags();
    void theImageDialogSendsItsFlags();
    void aFileIsRequired();
    void theButtonChoosesAnotherFile();
    void cancellingSendsNothing();
    void openingAgainStartsOver();

private:
    static QRadioButton *radio(const QWidget &dialog, int index)
    {
        return dialog.findChildren<QRadioButton *>().at(index);
    }
    static QCheckBox *append(const QWidget &dialog) { return dialog.findChild<QCheckBox *>(); }
    static QComboBox *palettes(const QWidget &dialog) { return dialog.findChild<QComboBox *>(); }

    Palette m_palette;
};

void tst_SpriteImportDialog::theBinaryDialogHasItsTexts()
{
    const ImportBinaryDialog dialog;

    QCOMPARE(dialog.heading(), QString("Import Sprite Data"));
    QCOMPARE(append(dialog)->text(), QString("Append to current sprite bank"));
    QCOMPARE(radio(dialog, 0)->text(), QString("Create a new standard next palette"));
    QCOMPARE(radio(dialog, 1)->text(), QString("Use an existing palette from the project"));
}

void tst_SpriteImportDialog::theImageDialogHasItsTexts()
{
    const ImportImageDialog dialog;

    QCOMPARE(dialog.heading(), QString("Import Sprite Image(s)"));
    QCOMPARE(append(dialog)->text(), QString("Append to current sprite bank"));
    QCOMPARE(radio(dialog, 0)->text(), QString("Create a new palette from the image"));
    QCOMPARE(radio(dialog, 1)->text(), QString("Use an existing palette"));
}

void tst_SpriteImportDialog::appendingNeedsABank()
{
    ImportBinaryDialog dialog;

    dialog.show("/tmp/a.spr", false, {&m_palette});
    QVERIFY(!append(dialog)->isEnabled());
    dialog.show("/tmp/a.spr", true, {&m_palette});
    QVERIFY(append(dialog)->isEnabled());
    QVERIFY(!append(dialog)->isChecked());
}

void tst_SpriteImportDialog::thePaletteCanBeChosenForAFileThatIsRead_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("binary");
    QTest::addColumn<bool>("image");

    QTest::newRow("spr") << "/tmp/a.spr" << true << false;
    QTest::newRow("bin") << "/tmp/a.bin" << true << false;
    QTest::newRow("capitals") << "/tmp/a.BIN" << true << false;
    QTest::newRow("png") << "/tmp/a.png" << false << true;
    QTest::newRow("bmp") << "/tmp/a.bmp" << false << true;
    QTest::newRow("other") << "/tmp/a.txt" << false << false;
    QTest::newRow("none") << "" << false << false;
}

void tst_SpriteImportDialog::thePaletteCanBeChosenForAFileThatIsRead()
{
    QFETCH(QString, file);
    QFETCH(bool, binary);
    QFETCH(bool, image);
    ImportBinaryDialog binaryDialog;
    ImportImageDialog imageDialog;

    binaryDialog.show(file, true, {&m_palette});
    imageDialog.show(file, true, {&m_palette});

    QCOMPARE(radio(binaryDialog, 0)->isEnabled(), binary);
    QCOMPARE(radio(binaryDialog, 1)->isEnabled(), binary);
    QCOMPARE(radio(imageDialog, 0)->isEnabled(), image);
    QCOMPARE(radio(imageDialog, 1)->isEnabled(), image);
    QVERIFY(!palettes(imageDialog)->isEnabled());
}

void tst_SpriteImportDialog::appendingLeavesNoPaletteToChoose()
{
    ImportImageDialog dialog;
    dialog.show("/tmp/a.png", true, {&m_palette});
    radio(dialog, 1)->click();
    QVERIFY(palettes(dialog)->isEnabled());

    append(dialog)->click();

    QVERIFY(!radio(dialog, 0)->isEnabled());
    QVERIFY(!radio(dialog, 1)->isEnabled());
    QVERIFY(!palettes(dialog)->isEnabled());
}

void tst_SpriteImportDialog::withoutPalettesThereIsOnlyANewOne()
{
    ImportImageDialog dialog;

    dialog.show("/tmp/a.png", false, {});

    QVERIFY(radio(dialog, 0)->isEnabled());
    QVERIFY(radio(dialog, 0)->isChecked());
    QVERIFY(!radio(dialog, 1)->isEnabled());
}

void tst_SpriteImportDialog::theBinaryDialogSendsItsFlags_data()
{
    QTest::addColumn<bool>("appends");
    QTest::addColumn<bool>("existing");
    QTest::addColumn<int>("flags");

    QTest::newRow("new palette") << false << false << 2;
    QTest::newRow("existing palette") << false << true << 4;
    QTest::newRow("appended") << true << false << 3;
}

void tst_SpriteImportDialog::theBinaryDialogSendsItsFlags()
{
    QFETCH(bool, appends);
    QFETCH(bool, existing);
    QFETCH(int, flags);
    ImportBinaryDialog dialog;
    QSignalSpy accepted(&dialog, &ImportBinaryDialog::accepted);

    dialog.show("/tmp/a.spr", true, {&m_palette});
    if (existing)
        radio(dialog, 1)->click();
    if (appends)
        append(dialog)->click();
    QTest::keyClick(&dialog, Qt::Key_Return);

    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.at(0).at(0).value<ImportBinaryDialog::ImportActions>().toInt(), flags);
    QCOMPARE(accepted.at(0).at(1).toUuid(), existing ? m_palette.id() : QUuid());
    QCOMPARE(dialog.fileName(), QString("/tmp/a.spr"));
    QVERIFY(!dialog.isVisible());
}

void tst_SpriteImportDialog::theImageDialogSendsItsFlags()
{
    ImportImageDialog dialog;
    QSignalSpy accepted(&dialog, &ImportImageDialog::accepted);

    dialog.show("/tmp/a.png", true, {&m_palette});
    QTest::keyClick(&dialog, Qt::Key_Return);
    dialog.show("/tmp/a.png", true, {&m_palette});
    radio(dialog, 1)->click();
    QTest::keyClick(&dialog, Qt::Key_Return);
    dialog.show("/tmp/a.png", true, {&m_palette});
    append(dialog)->click();
    QTest::keyClick(&dialog, Qt::Key_Return);

    QList<int> flags;
    for (const QVariantList &sent : std::as_const(accepted))
        flags.append(sent.at(0).value<ImportImageDialog::ImportActions>().toInt());
    QCOMPARE(flags, QList<int>({2, 4, 3}));
    QCOMPARE(accepted.at(1).at(1).toUuid(), m_palette.id());
}

void tst_SpriteImportDialog::aFileIsRequired()
{
    ImportImageDialog dialog;
    QSignalSpy accepted(&dialog, &ImportImageDialog::accepted);

    dialog.show("/tmp/a.png", true, {&m_palette});
    dialog.findChild<QLineEdit *>()->clear();
    QTest::keyClick(&dialog, Qt::Key_Return);

    QCOMPARE(dialog.error(), QString("No file selected"));
    QVERIFY(dialog.isVisible());
    QCOMPARE(accepted.count(), 0);
}

void tst_SpriteImportDialog::theButtonChoosesAnotherFile()
{
    const QTemporaryDir folder;
    QVERIFY(TestFiles::make(folder.filePath("b.png"), "x"));
    ImportImageDialog dialog;

    dialog.show("/tmp/a.png", true, {&m_palette});
    QTest::mouseClick(dialog.findChild<QToolButton *>(), Qt::LeftButton);
    QCOMPARE(FileDialogs::visible()->fileMode(), QFileDialog::ExistingFile);
    QCOMPARE(FileDialogs::visible()->nameFilters(), QStringList("Images (*.png *.bmp)"));
    FileDialogs::choose(FileDialogs::visible(), folder.filePath("b.png"));

    QCOMPARE(dialog.fileName(), folder.filePath("b.png"));
    QVERIFY(dialog.isVisible());
}

void tst_SpriteImportDialog::cancellingSendsNothing()
{
    ImportBinaryDialog dialog;
    QSignalSpy accepted(&dialog, &ImportBinaryDialog::accepted);

    dialog.show("/tmp/a.spr", true, {&m_palette});
    QTest::keyClick(&dialog, Qt::Key_Escape);

    QVERIFY(!dialog.isVisible());
    QCOMPARE(accepted.count(), 0);
}

void tst_SpriteImportDialog::openingAgainStartsOver()
{
    ImportBinaryDialog dialog;
    dialog.show("/tmp/a.spr", true, {&m_palette});
    radio(dialog, 1)->click();
    append(dialog)->click();
    dialog.reject();

    dialog.show("/tmp/b.spr", true, {&m_palette});

    QCOMPARE(dialog.fileName(), QString("/tmp/b.spr"));
    QVERIFY(radio(dialog, 0)->isChecked());
    QVERIFY(!append(dialog)->isChecked());
}

QTEST_MAIN(tst_SpriteImportDialog)
#include "tst_SpriteImportDialog.moc"
