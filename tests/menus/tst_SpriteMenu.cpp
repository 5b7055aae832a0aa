#include "MenuWindow.h"
#include "model/Palette.h"
#include "model/SpriteBank.h"
#include "support/FileDialogs.h"
#include "support/TestFiles.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

class tst_SpriteMenu : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void newSendsWhatWasAsked();
    void swapPaletteSendsTheChosenPalette();
    void swapPaletteBeginsWithThePaletteInUse();
    void theImportDialogAsksForOneFile();
    void aRawFileMakesABankThatBecomesActive();
    void aRawFileCanBeAppended();
    void aRawFileCanUseAPaletteOfTheProject();
    void aPictureMakesABankAndAPalette();
    void aPictureCanBeAppended();
    void aPictureCanUseAPaletteOfTheProject();
    void aCancelledImportMakesNothing();
    void theExportDialogSavesSprites();
    void exportWritesTheActiveBank();
    void aFailedExportIsLogged();
    void exportWithoutABankWritesNothing();
    void removingTheActiveBankTurnsItsItemsOff();
    void removingAnotherBankChangesNothing();

private:
    SpriteMenu *menu() const { return m_window->bar()->spriteMenu(); }
    Project *project() const { return m_window->project(); }
    QAction *item(const QString &text) const { return MenuWindow::item(menu(), text); }
    QPointer<SpriteBank> activate();
    /// Chooses a file in the import dialog; the dialog that then asks how.
    QWidget *chooseImport(const QString &fileName);
    static QRadioButton *radio(const QWidget *dialog, int index)
    {
        return dialog->findChildren<QRadioButton *>().at(index);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MenuWindow> m_window;
};

void tst_SpriteMenu::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_window = std::make_unique<MenuWindow>();
}

QPointer<SpriteBank> tst_SpriteMenu::activate()
{
    const QPointer<Palette> palette = project()->createPalette(CreateDefault, "Sky");
    const QPointer<SpriteBank> bank =
        project()->createSpriteBank(Tessaril::Sprite::EightBit, "Heroes", palette->id());
    menu()->setSpriteBank(bank);
    menu()->setSpriteActionsEnabled(true);
    return bank;
}

QWidget *tst_SpriteMenu::chooseImport(const QString &fileName)
{
    item("Import")->trigger();
    FileDialogs::choose(FileDialogs::visible(), fileName);
    return QApplication::activeModalWidget();
}

void tst_SpriteMenu::newSendsWhatWasAsked()
{
    QSignalSpy created(menu(), &SpriteMenu::create);

    item("New")->trigger();
    QWidget *dialog = QApplication::activeModalWidget();
    QVERIFY(dialog);
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), "Heroes");
    QTest::keyClick(dialog, Qt::Key_Return);
    item("New")->trigger();
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);

    QCOMPARE(created.count(), 1);
    QCOMPARE(created.at(0).at(0).value<SpriteDialog::CreateOptions>(),
             SpriteDialog::EightBit | SpriteDialog::CreateNewPalette);
    QCOMPARE(created.at(0).at(1).toString(), QString("Heroes"));
    QVERIFY(created.at(0).at(2).toUuid().isNull());
}

void tst_SpriteMenu::swapPaletteSendsTheChosenPalette()
{
    activate();
    QSignalSpy swapped(menu(), &SpriteMenu::swapPalette);

    item("Swap Palette")->trigger();
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);

    QCOMPARE(swapped, QList<QVariantList>({{project()->palettes().first()->id()}}));
}

void tst_SpriteMenu::swapPaletteBeginsWithThePaletteInUse()
{
    const QPointer<SpriteBank> bank = activate();
    project()->createPalette(CreateBlank, "A first one");
    QSignalSpy swapped(menu(), &SpriteMenu::swapPalette);

    item("Swap Palette")->trigger();
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
    const QPointer<Palette> zebra = project()->createPalette(CreateBlank, "Zebra");
    bank->setPalette(zebra);
    item("Swap Palette")->trigger();
    QCOMPARE(QApplication::activeModalWidget()->findChild<QComboBox *>()->currentText(),
             QString("Zebra"));
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);

    QCOMPARE(swapped.count(), 1);
    QCOMPARE(project()->palette(swapped.at(0).at(0).toUuid())->name(), QString("Sky"));
}

void tst_SpriteMenu::theImportDialogAsksForOneFile()
{
    item("Import")->trigger();

    const QFileDialog *dialog = FileDialogs::visible();
    QCOMPARE(dialog->windowTitle(), QString("Import Sprite Data"));
    QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptOpen);
    QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFile);
    QCOMPARE(dialog->nameFilters(), QStringList({"Images (*.png *.bmp)", "Next sprites (*.spr)"}));
}

void tst_SpriteMenu::aRawFileMakesABankThatBecomesActive()
{
    const QString file = m_folder->filePath("heroes.SPR");
    QVERIFY(TestFiles::make(file, QByteArray(300, '\x35')));

    QWidget *dialog = chooseImport(file);
    QVERIFY(qobject_cast<SpriteEditor::ImportBinaryDialog *>(dialog));
    QVERIFY(!dialog->findChild<QCheckBox *>()->isEnabled());
    QTest::keyClick(dialog, Qt::Key_Return);

    QCOMPARE(project()->spriteBanks().size(), 1);
    const QPointer<SpriteBank> bank = project()->spriteBanks().first();
    QCOMPARE(bank->name(), QString("heroes"));
    QCOMPARE(bank->count(), 2);
    QCOMPARE(bank->image().pixelIndex(0, 16), 0x35);
    QCOMPARE(project()->paletteNames(), QStringList("Default Next"));
    QCOMPARE(menu()->spriteBank(), bank);
}

void tst_SpriteMenu::aRawFileCanBeAppended()
{
    const QPointer<SpriteBank> bank = activate();
    const QString file = m_folder->filePath("more.spr");
    QVERIFY(TestFiles::make(file, QByteArray(512, '\x35')));

    QWidget *dialog = chooseImport(file);
    dialog->findChild<QCheckBox *>()->click();
    QTest::keyClick(dialog, Qt::Key_Return);

    QCOMPARE(project()->spriteBanks().size(), 1);
    QCOMPARE(bank->count(), 3);
    QCOMPARE(menu()->spriteBank(), bank);
}

void tst_SpriteMenu::aRawFileCanUseAPaletteOfTheProject()
{
    const QPointer<SpriteBank> old = activate();
    const QString file = m_folder->filePath("more.spr");
    QVERIFY(TestFiles::make(file, QByteArray(256, '\x35')));

    QWidget *dialog = chooseImport(file);
    radio(dialog, 1)->click();
    QTest::keyClick(dialog, Qt::Key_Return);

    QCOMPARE(project()->palettes().size(), 1);
    QVERIFY(menu()->spriteBank() != old);
    QCOMPARE(menu()->spriteBank()->palette(), project()->palettes().first());
}

void tst_SpriteMenu::aPictureMakesABankAndAPalette()
{
    const QString file = m_folder->filePath("sheet.png");
    QImage sheet(32, 32, QImage::Format_RGB32);
    sheet.fill(Qt::red);
    QVERIFY(sheet.save(file));

    QWidget *dialog = chooseImport(file);
    QVERIFY(qobject_cast<SpriteEditor::ImportImageDialog *>(dialog));
    QTest::keyClick(dialog, Qt::Key_Return);

    QCOMPARE(project()->spriteBanks().size(), 1);
    QCOMPARE(project()->spriteBanks().first()->count(), 1);
    QCOMPARE(project()->paletteNames(), QStringList("sheet"));
    QCOMPARE(project()->palettes().first()->colour(0), QColor(Qt::red));
}

void tst_SpriteMenu::aPictureCanBeAppended()
{
    const QPointer<SpriteBank> bank = activate();
    const QString file = m_folder->filePath("sheet.png");
    QVERIFY(QImage(32, 32, QImage::Format_RGB32).save(file));

    QWidget *dialog = chooseImport(file);
    dialog->findChild<QCheckBox *>()->click();
    QTest::keyClick(dialog, Qt::Key_Return);

    QCOMPARE(project()->spriteBanks().size(), 1);
    QCOMPARE(bank->count(), 5);
}

void tst_SpriteMenu::aPictureCanUseAPaletteOfTheProject()
{
    activate();
    const QString file = m_folder->filePath("sheet.png");
    QVERIFY(QImage(16, 16, QImage::Format_RGB32).save(file));

    QWidget *dialog = chooseImport(file);
    radio(dialog, 1)->click();
    QTest::keyClick(dialog, Qt::Key_Return);

    QCOMPARE(project()->spriteBanks().size(), 2);
    QCOMPARE(project()->palettes().size(), 1);
}

void tst_SpriteMenu::aCancelledImportMakesNothing()
{
    const QString file = m_folder->filePath("heroes.spr");
    QVERIFY(TestFiles::make(file, QByteArray(256, '\x35')));

    item("Import")->trigger();
    FileDialogs::cancel(FileDialogs::visible());
    QVERIFY(!QApplication::activeModalWidget());

    QTest::keyClick(chooseImport(file), Qt::Key_Escape);
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(project()->spriteBanks().isEmpty());
}

void tst_SpriteMenu::theExportDialogSavesSprites()
{
    activate();

    item("Export Data")->trigger();

    const QFileDialog *dialog = FileDialogs::visible();
    QCOMPARE(dialog->windowTitle(), QString("Export Sprite Data"));
    QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
    QCOMPARE(dialog->nameFilters(), QStringList("Next Sprites (*.spr)"));
    QCOMPARE(dialog->defaultSuffix(), QString("spr"));
}

void tst_SpriteMenu::exportWritesTheActiveBank()
{
    const QPointer<SpriteBank> bank = activate();
    bank->addSprite();
    QImage sprite = bank->sprite(1);
    sprite.fill(0xe3);
    bank->setImage(1, sprite);

    item("Export Data")->trigger();
    FileDialogs::choose(FileDialogs::visible(), m_folder->filePath("heroes"));

    QCOMPARE(TestFiles::contents(m_folder->filePath("heroes.spr")),
             QByteArray(256, '\0') + QByteArray(256, '\xe3'));
}

void tst_SpriteMenu::aFailedExportIsLogged()
{
    activate();
    QVERIFY(QFile::link("/nowhere/at/all", m_folder->filePath("dangling.spr")));

    item("Export Data")->trigger();
    QTest::ignoreMessage(QtInfoMsg, "Failed to save data");
    FileDialogs::choose(FileDialogs::visible(), m_folder->filePath("dangling.spr"));

    QVERIFY(!QApplication::activeModalWidget());
}

void tst_SpriteMenu::exportWithoutABankWritesNothing()
{
    activate();

    item("Export Data")->trigger();
    menu()->setSpriteBank(nullptr);
    FileDialogs::choose(FileDialogs::visible(), m_folder->filePath("none.spr"));

    QVERIFY(!QFile::exists(m_folder->filePath("none.spr")));
}

void tst_SpriteMenu::removingTheActiveBankTurnsItsItemsOff()
{
    menu()->removeSpriteBank(activate());

    QVERIFY(!menu()->spriteBank());
    QVERIFY(!item("Export Data")->isEnabled());
    QVERIFY(!item("Swap Palette")->isEnabled());
    QVERIFY(item("New")->isEnabled());
}

void tst_SpriteMenu::removingAnotherBankChangesNothing()
{
    const QPointer<SpriteBank> bank = activate();

    menu()->removeSpriteBank(
        project()->createSpriteBank(Tessaril::Sprite::FourBit, "Other", QUuid()));

    QCOMPARE(menu()->spriteBank(), bank);
    QVERIFY(item("Export Data")->isEnabled());
}

QTEST_MAIN(tst_SpriteMenu)
#include "tst_SpriteMenu.moc"
