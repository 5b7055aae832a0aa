#include "dialogs/ImportZXFontDialog.h"

#include "colour/ColourSelector.h"
#include "support/DialogDriver.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

class tst_ImportZXFontDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void showsItsFields();
    void withoutAFileItStaysOpen();
    void theButtonAsksForAFile();
    void cancellingTheFileDialogKeepsTheField();
    void sendsAllChoices();
    void theOffsetMovesTheColours();

private:
    static QLineEdit *file(const ImportZXFontDialog &dialog);
    static QSpinBox *spin(const ImportZXFontDialog &dialog, const char *name);
    /// Chooses the font in the file dialog.
    void chooseFile(ImportZXFontDialog &dialog) const;

    QTemporaryDir m_folder;
    QString m_font;
};

void tst_ImportZXFontDialog::initTestCase()
{
    m_font = m_folder.filePath(QStringLiteral("font.ch8"));
    QFile font(m_font);
    QVERIFY(font.open(QIODevice::WriteOnly));
    QCOMPARE(font.write(QByteArray(8, '\x18')), 8);
}

QLineEdit *tst_ImportZXFontDialog::file(const ImportZXFontDialog &dialog)
{
    return DialogDriver::field<QLineEdit>(dialog, QStringLiteral("File name"));
}

QSpinBox *tst_ImportZXFontDialog::spin(const ImportZXFontDialog &dialog, const char *name)
{
    return DialogDriver::field<QSpinBox>(dialog, QString::fromLatin1(name));
}

void tst_ImportZXFontDialog::chooseFile(ImportZXFontDialog &dialog) const
{
    auto *chooser = dialog.findChild<QFileDialog *>();
    QTest::mouseClick(DialogDriver::button<QToolButton>(dialog, QStringLiteral("...")),
                      Qt::LeftButton);
    QVERIFY(chooser->isVisible());
    chooser->setDirectory(m_folder.path());
    chooser->selectFile(m_font);
    QMetaObject::invokeMethod(chooser, "accept");
    QVERIFY(!chooser->isVisible());
}

void tst_ImportZXFontDialog::showsItsFields()
{
    ImportZXFontDialog dialog;
    dialog.show(nullptr);

    QCOMPARE(dialog.heading(), QStringLiteral("Import ZX Font Data"));
    QCOMPARE(file(dialog)->width(), 250);
    QVERIFY(file(dialog)->isReadOnly());
    QCOMPARE(spin(dialog, "Start Tile")->minimum(), 0);
    QCOMPARE(spin(dialog, "Start Tile")->maximum(), 256);
    QCOMPARE(spin(dialog, "Palette offset")->minimum(), 0);
    QCOMPARE(spin(dialog, "Palette offset")->maximum(), 15);
    const auto *chooser = dialog.findChild<QFileDialog *>();
    QCOMPARE(chooser->windowTitle(), QStringLiteral("Choose a file to import"));
    QCOMPARE(chooser->nameFilters(), QStringList("Raw Data (*.bin *.raw *.ch8)"));
    QCOMPARE(chooser->defaultSuffix(), QStringLiteral("bin"));
    QCOMPARE(chooser->fileMode(), QFileDialog::ExistingFile);
    QCOMPARE(chooser->acceptMode(), QFileDialog::AcceptOpen);
}

void tst_ImportZXFontDialog::withoutAFileItStaysOpen()
{
    ImportZXFontDialog dialog;
    QSignalSpy accepted(&dialog, &ImportZXFontDialog::accepted);
    dialog.show(nullptr);

    DialogDriver::pressOk(dialog);

    QCOMPARE(dialog.error(), QStringLiteral("No file selected"));
    QVERIFY(dialog.isVisible());
    QCOMPARE(accepted.count(), 0);
}

void tst_ImportZXFontDialog::theButtonAsksForAFile()
{
    ImportZXFontDialog dialog;
    dialog.show(nullptr);

    chooseFile(dialog);

    QCOMPARE(file(dialog)->text(), m_font);
}

void tst_ImportZXFontDialog::cancellingTheFileDialogKeepsTheField()
{
    ImportZXFontDialog dialog;
    dialog.show(nullptr);
    chooseFile(dialog);

    dialog.showOpenDialog();
    dialog.findChild<QFileDialog *>()->reject();

    QCOMPARE(file(dialog)->text(), m_font);
}

void tst_ImportZXFontDialog::sendsAllChoices()
{
    Palette palette;
    palette.setDefaultColours();
    ImportZXFontDialog dialog;
    QSignalSpy accepted(&dialog, &ImportZXFontDialog::accepted);
    dialog.show(&palette);
    auto *colours = dialog.findChild<ColourSelector *>();

    chooseFile(dialog);
    spin(dialog, "Start Tile")->setValue(32);
    QTest::mouseClick(colours, Qt::LeftButton, {}, QPoint(24 * 3 + 5, 5));
    QTest::mouseClick(colours, Qt::RightButton, {}, QPoint(24 * 1 + 5, 24 + 5));
    DialogDriver::pressOk(dialog);

    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.first(), (QVariantList{32, 3, 9, 0, m_font}));
    QVERIFY(!dialog.isVisible());
}

void tst_ImportZXFontDialog::theOffsetMovesTheColours()
{
    ImportZXFontDialog dialog;
    QSignalSpy accepted(&dialog, &ImportZXFontDialog::accepted);
    dialog.show(nullptr);
    chooseFile(dialog);
    auto *colours = dialog.findChild<ColourSelector *>();
    colours->setForeIndex(7);
    colours->setBackIndex(2);

    spin(dialog, "Palette offset")->setValue(3);
    QCOMPARE(colours->offset(), 3);
    spin(dialog, "Palette offset")->setValue(5);
    DialogDriver::pressOk(dialog);

    QCOMPARE(accepted.first(), (QVariantList{0, 5 * 16 + 7, 5 * 16 + 2, 5, m_font}));
}

QTEST_MAIN(tst_ImportZXFontDialog)
#include "tst_ImportZXFontDialog.moc"
