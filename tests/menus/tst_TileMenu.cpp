#include "MenuWindow.h"
#include "model/Palette.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "support/FileDialogs.h"
#include "support/TestFiles.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

class tst_TileMenu : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void newTileSetSendsWhatWasAsked();
    void aCancelledNewTileSetSendsNothing();
    void swapPaletteSendsTheChosenPalette();
    void swapPaletteBeginsWithThePaletteInUse();
    void tilesAreSteppedThrough();
    void createAnimationsShowsTheTileSets();
    void spectrumCharsSendsWhatWasAsked();
    void anotherProjectTurnsTheTileSetItemsOff();
    void theExportDialogLeadsToTheFile();
    void exportWritesAllTilesAsNxt();
    void exportWritesARangeAsBin();
    void exportOfAnyOtherSuffixWritesNothing();
    void exportWithoutATileSetWritesNothing();
    void aFailedExportIsLogged();
    void theAttributesDialogOffersSourceAndBytes();
    void attributesAreWrittenInTheChosenForm();
    void attributesNeedATileSet();
    void failedAttributesAreLogged();
    void cancelledAttributesWriteNothing();

private:
    TileMenu *menu() const { return m_window->bar()->tileMenu(); }
    Project *project() const { return m_window->project(); }
    QAction *item(const QString &text) const { return MenuWindow::item(menu(), text); }
    QPointer<TileSet> activate(int tileCount);

    std::unique_ptr<MenuWindow> m_window;
};

void tst_TileMenu::init()
{
    m_window = std::make_unique<MenuWindow>();
}

QPointer<TileSet> tst_TileMenu::activate(int tileCount)
{
    const QPointer<TileSet> tiles = project()->createTileSet("Cave", QUuid(), tileCount, false);
    menu()->setTileSet(tiles->id());
    menu()->setTileSetActionsEnabled(true);
    return tiles;
}

void tst_TileMenu::newTileSetSendsWhatWasAsked()
{
    QSignalSpy created(menu(), &TileMenu::createTiles);

    item("New Tile Set")->trigger();
    QWidget *dialog = QApplication::activeModalWidget();
    QVERIFY(dialog);
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), "Cave");
    QTest::keyClick(dialog, Qt::Key_Return);

    QCOMPARE(created, QList<QVariantList>({{"Cave", QUuid(), 256, false}}));
}

void tst_TileMenu::aCancelledNewTileSetSendsNothing()
{
    QSignalSpy created(menu(), &TileMenu::createTiles);

    item("New Tile Set")->trigger();
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);

    QCOMPARE(created.count(), 0);
}

void tst_TileMenu::swapPaletteBeginsWithThePaletteInUse()
{
    const QPointer<TileSet> tiles = activate(1);
    project()->createPalette(CreateBlank, "A first one");
    const QPointer<Palette> zebra = project()->createPalette(CreateBlank, "Zebra");
    const auto offered = [this] {
        item("Swap Palette")->trigger();
        QWidget *dialog = QApplication::activeModalWidget();
        const QString text = dialog->findChild<QComboBox *>()->currentText();
        QTest::keyClick(dialog, Qt::Key_Escape);
        return text;
    };

    tiles->setPalette(zebra);
    QCOMPARE(offered(), QString("Zebra"));
    tiles->setPalette(project()->createPalette(CreateBlank, "Middle"));
    QCOMPARE(offered(), QString("Middle"));
}

void tst_TileMenu::swapPaletteSendsTheChosenPalette()
{
    activate(1);
    const QPointer<Palette> sky = project()->createPalette(CreateBlank, "Sky");
    QSignalSpy swapped(menu(), &TileMenu::swapPalette);

    item("Swap Palette")->trigger();
    QWidget *dialog = QApplication::activeModalWidget();
    dialog->findChild<QComboBox *>()->setCurrentText("Sky");
    QTest::keyClick(dialog, Qt::Key_Return);
    QCOMPARE(swapped, QList<QVariantList>({{sky->id()}}));

    item("Swap Palette")->trigger();
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    QCOMPARE(swapped.count(), 1);
}

void tst_TileMenu::tilesAreSteppedThrough()
{
    activate(1);
    QSignalSpy next(menu(), &TileMenu::nextTile);
    QSignalSpy previous(menu(), &TileMenu::previousTile);

    item("Next Tile")->trigger();
    QCOMPARE(next.count(), 1);
    QCOMPARE(previous.count(), 0);

    item("Previous Tile")->trigger();
    QCOMPARE(next.count(), 1);
    QCOMPARE(previous.count(), 1);
}

void tst_TileMenu::createAnimationsShowsTheTileSets()
{
    const QPointer<TileSet> tiles = activate(1);
    QVERIFY(!item("Create Animations")->isEnabled());
    TileMenu::TileSets shown;

    menu()->setAnimationDialog([&shown](const TileMenu::TileSets &sets) { shown = sets; });
    QVERIFY(item("Create Animations")->isEnabled());
    item("Create Animations")->trigger();
    QCOMPARE(shown, TileMenu::TileSets({tiles}));

    menu()->setTileSetActionsEnabled(false);
    QVERIFY(!item("Create Animations")->isEnabled());
}

void tst_TileMenu::spectrumCharsSendsWhatWasAsked()
{
    const QTemporaryDir folder;
    QVERIFY(TestFiles::make(folder.filePath("font.ch8"), QByteArray(8, '\x81')));
    activate(1);
    QAction *chars = item("Import")->menu()->actions().at(0);
    QSignalSpy sent(menu(), &TileMenu::importZXFont);

    chars->trigger();
    QWidget *dialog = QApplication::activeModalWidget();
    QVERIFY(dialog);
    const QList<QToolButton *> buttons = dialog->findChildren<QToolButton *>();
    for (QToolButton *button : buttons) {
        if (button->text() == "...")
            QTest::mouseClick(button, Qt::LeftButton);
    }
    FileDialogs::choose(FileDialogs::visible(), folder.filePath("font.ch8"));
    dialog->findChild<QSpinBox *>()->setValue(32);
    QTest::keyClick(dialog, Qt::Key_Return);
    QCOMPARE(sent.count(), 1);
    QCOMPARE(sent.at(0).at(0).toInt(), 32);
    QCOMPARE(sent.at(0).at(4).toString(), folder.filePath("font.ch8"));

    chars->trigger();
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    QCOMPARE(sent.count(), 1);
}

void tst_TileMenu::anotherProjectTurnsTheTileSetItemsOff()
{
    QVERIFY(!item("Export")->isEnabled());
    activate(1);
    menu()->setNewTileSetEnabled(false);
    Project other;

    m_window->bar()->setProject(&other);

    QVERIFY(menu()->isEnabled());
    QVERIFY(item("New Tile Set")->isEnabled());
    QVERIFY(!item("Export")->isEnabled());
    m_window->bar()->setProject(nullptr);
}

void tst_TileMenu::theExportDialogLeadsToTheFile()
{
    const QTemporaryDir folder;
    activate(2);

    item("Export")->trigger();
    QWidget *dialog = QApplication::activeModalWidget();
    QVERIFY(dialog);
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), folder.filePath("cave.bin"));
    QTest::keyClick(dialog, Qt::Key_Return);

    QCOMPARE(TestFiles::contents(folder.filePath("cave.bin")), QByteArray(2 * 64, '\0'));
}

void tst_TileMenu::exportWritesAllTilesAsNxt()
{
    const QTemporaryDir folder;
    activate(3);

    menu()->exportAccepted(folder.filePath("cave.NXT"), 2, 2, true);

    QCOMPARE(TestFiles::contents(folder.filePath("cave.NXT")), QByteArray(3 * 32, '\0'));
}

void tst_TileMenu::exportWritesARangeAsBin()
{
    const QTemporaryDir folder;
    const QPointer<TileSet> tiles = activate(3);
    tiles->tile(1)->setOffset(3);

    menu()->exportAccepted(folder.filePath("cave.bin"), 2, 9, false);
    QCOMPARE(TestFiles::contents(folder.filePath("cave.bin")),
             QByteArray(64, '\x30') + QByteArray(64, '\0'));

    menu()->exportAccepted(folder.filePath("none.bin"), 3, 2, false);
    QCOMPARE(TestFiles::contents(folder.filePath("none.bin")), QByteArray());
}

void tst_TileMenu::exportOfAnyOtherSuffixWritesNothing()
{
    const QTemporaryDir folder;
    activate(1);

    menu()->exportAccepted(folder.filePath("cave.txt"), 1, 1, false);

    QVERIFY(!QFile::exists(folder.filePath("cave.txt")));
}

void tst_TileMenu::exportWithoutATileSetWritesNothing()
{
    const QTemporaryDir folder;

    menu()->exportAccepted(folder.filePath("cave.nxt"), 1, 1, false);
    menu()->setTileSet(QUuid::createUuid());
    menu()->exportAccepted(folder.filePath("cave.nxt"), 1, 1, false);

    QVERIFY(!QFile::exists(folder.filePath("cave.nxt")));
}

void tst_TileMenu::aFailedExportIsLogged()
{
    const QTemporaryDir folder;
    activate(1);

    QTest::ignoreMessage(QtWarningMsg, "Export failed!");
    menu()->exportAccepted(folder.filePath("missing/cave.nxt"), 1, 1, false);
    QTest::ignoreMessage(QtWarningMsg, "Export failed!");
    menu()->exportAccepted(folder.filePath("missing/cave.bin"), 1, 1, false);
}

void tst_TileMenu::theAttributesDialogOffersSourceAndBytes()
{
    activate(1);

    item("Export Attributes")->trigger();

    const QFileDialog *dialog = FileDialogs::visible();
    QCOMPARE(dialog->windowTitle(), QString("Export tile attributes"));
    QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
    QCOMPARE(dialog->nameFilters(), QStringList({"ASM Code (*.asm)", "Binary Data (*.bin)"}));
    QCOMPARE(dialog->defaultSuffix(), QString("asm"));
}

void tst_TileMenu::attributesAreWrittenInTheChosenForm()
{
    const QTemporaryDir folder;
    activate(2)->tile(1)->setAttributes(Tile::TA_DEADLY);

    item("Export Attributes")->trigger();
    FileDialogs::choose(FileDialogs::visible(), folder.filePath("cave.bin"));
    QCOMPARE(TestFiles::contents(folder.filePath("cave.bin")), QByteArray("\x00\x10", 2));

    item("Export Attributes")->trigger();
    FileDialogs::choose(FileDialogs::visible(), folder.filePath("cave"));
    QVERIFY(TestFiles::contents(folder.filePath("cave.asm")).endsWith("\tdb\t$00,$10\n"));
}

void tst_TileMenu::attributesNeedATileSet()
{
    const QTemporaryDir folder;
    activate(1);

    item("Export Attributes")->trigger();
    menu()->setTileSet(QUuid());
    QTest::ignoreMessage(QtWarningMsg, "Null tileset");
    FileDialogs::choose(FileDialogs::visible(), folder.filePath("cave.bin"));

    QVERIFY(!QFile::exists(folder.filePath("cave.bin")));
}

void tst_TileMenu::failedAttributesAreLogged()
{
    const QTemporaryDir folder;
    QVERIFY(QFile::link("/nowhere/at/all", folder.filePath("cave.bin")));
    activate(1);

    item("Export Attributes")->trigger();
    QTest::ignoreMessage(QtWarningMsg, "Export failed!");
    FileDialogs::choose(FileDialogs::visible(), folder.filePath("cave.bin"));
}

void tst_TileMenu::cancelledAttributesWriteNothing()
{
    activate(1);

    item("Export Attributes")->trigger();
    FileDialogs::cancel(FileDialogs::visible());

    QVERIFY(!FileDialogs::visible());
}

QTEST_MAIN(tst_TileMenu)
#include "tst_TileMenu.moc"
