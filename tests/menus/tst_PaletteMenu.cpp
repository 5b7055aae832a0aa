#include "MenuWindow.h"
#include "menus/MenuBar.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "support/Boxes.h"
#include "support/FileDialogs.h"
#include "support/TestFiles.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

class tst_PaletteMenu : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void theLabelFollowsTheActivePalette();
    void theLabelFollowsARename();
    void anUnknownPaletteIsNone();
    void newPaletteIsMadeAsAsked();
    void newPaletteRefusesANameThatIsThere();
    void aCopyIsOneOfTheActivePalette();
    void aCancelledNewPaletteMakesNone();
    void theImportDialogOffersPalettesAndImages();
    void importReadsTheFileIntoANewPalette();
    void importOfAnythingElseLeavesABlankPalette_data();
    void importOfAnythingElseLeavesABlankPalette();
    void aCancelledImportMakesNothing();
    void theExportDialogSavesPalettes();
    void exportWritesTheActivePalette();
    void aFailedExportIsTold();
    void aCancelledExportWritesNothing();

private:
    PaletteMenu *menu() const { return m_window->bar()->paletteMenu(); }
    Project *project() const { return m_window->project(); }
    QAction *label() const { return menu()->actions().at(3); }

    std::unique_ptr<MenuWindow> m_window;
};

void tst_PaletteMenu::init()
{
    m_window = std::make_unique<MenuWindow>();
}

void tst_PaletteMenu::theLabelFollowsTheActivePalette()
{
    const QPointer<Palette> palette = project()->createPalette(CreateBlank, "Salt & Sea");
    QVERIFY(!label()->isVisible());

    menu()->setPalette(palette->id());
    QVERIFY(label()->isVisible());
    QVERIFY(!label()->isEnabled());
    QCOMPARE(label()->text(), QString("Salt && Sea"));
    QVERIFY(m_window->item(menu(), "Export")->isEnabled());

    menu()->setPalette(QUuid());
    QVERIFY(!label()->isVisible());
    QCOMPARE(label()->text(), QString("No Palette"));
    QVERIFY(!m_window->item(menu(), "Export")->isEnabled());
}

void tst_PaletteMenu::theLabelFollowsARename()
{
    const QPointer<Palette> palette = project()->createPalette(CreateBlank, "Old");
    menu()->setPalette(palette->id());

    palette->setName("New");

    QCOMPARE(label()->text(), QString("New"));
}

void tst_PaletteMenu::anUnknownPaletteIsNone()
{
    menu()->setPalette(QUuid::createUuid());

    QVERIFY(!label()->isVisible());
    QVERIFY(!m_window->item(menu(), "Export")->isEnabled());
}

void tst_PaletteMenu::newPaletteIsMadeAsAsked()
{
    m_window->item(menu(), "New Palette")->trigger();
    QWidget *dialog = QApplication::activeModalWidget();
    QVERIFY(dialog);
    for (auto *button : dialog->findChildren<QRadioButton *>()) {
        if (button->text() == "Use the default Next palette")
            button->click();
    }
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), "Sky");
    QTest::keyClick(dialog, Qt::Key_Return);

    QCOMPARE(project()->paletteNames(), QStringList("Sky"));
    QCOMPARE(project()->palettes().first()->word(255), quint16(0xff01));
}

void tst_PaletteMenu::newPaletteRefusesANameThatIsThere()
{
    project()->createPalette(CreateBlank, "Sky");

    m_window->item(menu(), "New Palette")->trigger();
    QWidget *dialog = QApplication::activeModalWidget();
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), "Sky");
    QTest::keyClick(dialog, Qt::Key_Return);

    QVERIFY(dialog->isVisible());
    QCOMPARE(project()->palettes().size(), 1);
}

void tst_PaletteMenu::aCopyIsOneOfTheActivePalette()
{
    const QPointer<Palette> source = project()->createPalette(CreateBlank, "Source");
    source->setWord(7, 0x1234);
    menu()->setPalette(source->id());

    menu()->createPalette(CreateCopy, "Copy");

    QCOMPARE(project()->palettes().size(), 2);
    for (const QPointer<Palette> &palette : project()->palettes())
        QCOMPARE(palette->word(7), quint16(0x1234));
}

void tst_PaletteMenu::aCancelledNewPaletteMakesNone()
{
    m_window->item(menu(), "New Palette")->trigger();
    QWidget *dialog = QApplication::activeModalWidget();
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), "Sky");
    QTest::keyClick(dialog, Qt::Key_Escape);

    QVERIFY(project()->palettes().isEmpty());
}

void tst_PaletteMenu::theImportDialogOffersPalettesAndImages()
{
    m_window->item(menu(), "Import")->trigger();

    const QFileDialog *dialog = FileDialogs::visible();
    QCOMPARE(dialog->windowTitle(), QString("Import Palette"));
    QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptOpen);
    QCOMPARE(dialog->nameFilters(), QStringList({"Palette (*.pal *.npl)", "Images (*.png *.bmp)"}));
}

void tst_PaletteMenu::importReadsTheFileIntoANewPalette()
{
    const QTemporaryDir folder;
    QVERIFY(TestFiles::make(folder.filePath("night.sky.pal"), QByteArray(512, '\x81')));

    m_window->item(menu(), "Import")->trigger();
    FileDialogs::choose(FileDialogs::visible(), folder.filePath("night.sky.pal"));

    QCOMPARE(project()->paletteNames(), QStringList("night"));
    QCOMPARE(project()->palettes().first()->word(255), quint16(0x8181));
}

void tst_PaletteMenu::importOfAnythingElseLeavesABlankPalette_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");

    QTest::newRow("a byte too long") << "night.pal" << 513;
    QTest::newRow("no trailing byte") << "night.npl" << 512;
    QTest::newRow("an image") << "night.png" << 70;
}

void tst_PaletteMenu::importOfAnythingElseLeavesABlankPalette()
{
    QFETCH(QString, name);
    QFETCH(int, size);
    const QTemporaryDir folder;
    QVERIFY(TestFiles::make(folder.filePath(name), QByteArray(size, '\x81')));
    QTest::ignoreMessage(QtWarningMsg, "Read error");

    m_window->item(menu(), "Import")->trigger();
    FileDialogs::choose(FileDialogs::visible(), folder.filePath(name));

    QCOMPARE(project()->paletteNames(), QStringList("night"));
    for (int index = 0; index < Palette::Size; ++index)
        QCOMPARE(project()->palettes().first()->word(index), quint16(0));
}

void tst_PaletteMenu::aCancelledImportMakesNothing()
{
    m_window->item(menu(), "Import")->trigger();
    FileDialogs::cancel(FileDialogs::visible());

    QVERIFY(project()->palettes().isEmpty());
}

void tst_PaletteMenu::theExportDialogSavesPalettes()
{
    menu()->setPalette(project()->createPalette(CreateBlank, "Sky")->id());

    m_window->item(menu(), "Export")->trigger();

    const QFileDialog *dialog = FileDialogs::visible();
    QCOMPARE(dialog->windowTitle(), QString("Export Palette"));
    QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
    QCOMPARE(dialog->nameFilters(), QStringList("Palette (*.pal *.npl)"));
    QCOMPARE(dialog->defaultSuffix(), QString("pal"));
}

void tst_PaletteMenu::exportWritesTheActivePalette()
{
    const QTemporaryDir folder;
    project()->createPalette(CreateDefault, "Other");
    const QPointer<Palette> active = project()->createPalette(CreateBlank, "Sky");
    active->setWord(0, 0x1234);
    menu()->setPalette(active->id());

    m_window->item(menu(), "Export")->trigger();
    FileDialogs::choose(FileDialogs::visible(), folder.filePath("sky"));

    QCOMPARE(TestFiles::contents(folder.filePath("sky.pal")), "\x12\x34" + QByteArray(510, '\0'));
}

void tst_PaletteMenu::aFailedExportIsTold()
{
    const QTemporaryDir folder;
    menu()->setPalette(project()->createPalette(CreateBlank, "Sky")->id());
    m_window->item(menu(), "Export")->trigger();
    QFileDialog *dialog = FileDialogs::visible();
    QVERIFY(QFile::link("/nowhere/at/all", folder.filePath("dangling.pal")));

    const Boxes boxes(QMessageBox::Ok);
    FileDialogs::choose(dialog, folder.filePath("dangling.pal"));

    QCOMPARE(boxes.texts(), QStringList("Save Error: There was a problem exporting data"));
    QCOMPARE(boxes.buttons().first(), QMessageBox::Ok);
}

void tst_PaletteMenu::aCancelledExportWritesNothing()
{
    menu()->setPalette(project()->createPalette(CreateBlank, "Sky")->id());

    m_window->item(menu(), "Export")->trigger();
    FileDialogs::cancel(FileDialogs::visible());

    QVERIFY(!FileDialogs::visible());
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(tst_PaletteMenu)
#include "tst_PaletteMenu.moc"
