#include "MenuWindow.h"
#include "model/Map.h"
#include "model/TileMap.h"
#include "model/TileSet.h"
#include "support/Boxes.h"
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

class tst_MapMenu : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void newMapSendsWhatWasAsked();
    void newMapBeginsWithTheTileSetInUse();
    void aCancelledNewMapSendsNothing();
    void exportIsOnWithAMap();
    void theExportDialogSavesMaps();
    void exportWritesTheMap();
    void exportWithoutAMapWritesNothing();
    void aFailedExportIsTold();
    void aCancelledExportWritesNothing();
    void theImportDialogOffersFilesAndPictures();
    void importSendsTheChosenFile();
    void aSecondImportSendsItsOwnFile();
    void aCancelledImportSendsNothing();

private:
    MapMenu *menu() const { return m_window->bar()->mapMenu(); }
    Project *project() const { return m_window->project(); }
    QAction *item(const QString &text) const { return MenuWindow::item(menu(), text); }
    QPointer<Map> activate(QSize size);

    std::unique_ptr<MenuWindow> m_window;
};

void tst_MapMenu::init()
{
    m_window = std::make_unique<MenuWindow>();
}

QPointer<Map> tst_MapMenu::activate(QSize size)
{
    const QPointer<TileSet> tiles = project()->createTileSet("Cave", QUuid(), 1);
    const QPointer<Map> map = project()->createMap("Level", tiles->id(), size);
    menu()->setMap(map->id());
    return map;
}

void tst_MapMenu::newMapSendsWhatWasAsked()
{
    const QPointer<TileSet> tiles = project()->createTileSet("Cave", QUuid(), 1);
    QStringList sent;
    connect(menu(), &MapMenu::create, menu(), [&sent](const QString &name, QUuid id, QSize &size) {
        sent = {name, id.toString(), QString("%1 x %2").arg(size.width()).arg(size.height())};
    });

    item("New Map")->trigger();
    QWidget *dialog = QApplication::activeModalWidget();
    QVERIFY(dialog);
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), "Level");
    dialog->findChildren<QSpinBox *>().at(0)->setValue(50);
    dialog->findChildren<QSpinBox *>().at(1)->setValue(60);
    QTest::keyClick(dialog, Qt::Key_Return);

    QCOMPARE(sent, QStringList({"Level", tiles->id().toString(), "50 x 60"}));
}

void tst_MapMenu::aCancelledNewMapSendsNothing()
{
    bool sent = false;
    connect(menu(), &MapMenu::create, menu(), [&sent] { sent = true; });

    item("New Map")->trigger();
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);

    QVERIFY(!sent);
}

void tst_MapMenu::exportIsOnWithAMap()
{
    QVERIFY(!item("Export")->isEnabled());
    m_window->bar()->setProject(nullptr);
    QVERIFY(!item("New Map")->isEnabled());
    m_window->bar()->setProject(project());
    QVERIFY(item("New Map")->isEnabled());
    activate({1, 1});
    QVERIFY(item("Export")->isEnabled());
    menu()->setMap(QUuid());
    QVERIFY(!item("Export")->isEnabled());
}

void tst_MapMenu::theExportDialogSavesMaps()
{
    activate({1, 1});

    item("Export")->trigger();

    const QFileDialog *dialog = FileDialogs::visible();
    QCOMPARE(dialog->windowTitle(), QString("Export Map Data"));
    QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
    QCOMPARE(dialog->nameFilters(), QStringList("Map Data (*.map)"));
    QCOMPARE(dialog->defaultSuffix(), QString("map"));
}

void tst_MapMenu::exportWritesTheMap()
{
    const QTemporaryDir folder;
    TileMap::TileData cell;
    cell.index = 300;
    cell.flip = true;
    cell.offset = 2;
    activate({40, 32})->tileLayer()->setCell({1, 0}, cell);

    item("Export")->trigger();
    FileDialogs::choose(FileDialogs::visible(), folder.filePath("level"));

    const QByteArray bytes = TestFiles::contents(folder.filePath("level.map"));
    QCOMPARE(bytes.size(), 2560);
    QCOMPARE(bytes.first(6), QByteArray("\x00\x00\x2c\x25\x00\x00", 6));
}

void tst_MapMenu::exportWithoutAMapWritesNothing()
{
    const QTemporaryDir folder;
    activate({1, 1});

    item("Export")->trigger();
    menu()->setMap(QUuid());
    FileDialogs::choose(FileDialogs::visible(), folder.filePath("level.map"));

    QVERIFY(!QFile::exists(folder.filePath("level.map")));
}

void tst_MapMenu::aFailedExportIsTold()
{
    const QTemporaryDir folder;
    QVERIFY(QFile::link("/nowhere/at/all", folder.filePath("level.map")));
    activate({1, 1});

    item("Export")->trigger();
    const Boxes boxes(QMessageBox::Ok);
    FileDialogs::choose(FileDialogs::visible(), folder.filePath("level.map"));

    QCOMPARE(boxes.texts(), QStringList("Save Error: There was a problem exporting data"));
    QCOMPARE(boxes.buttons().first(), QMessageBox::Ok);
}

void tst_MapMenu::aCancelledExportWritesNothing()
{
    activate({1, 1});

    item("Export")->trigger();
    FileDialogs::cancel(FileDialogs::visible());

    QVERIFY(!QApplication::activeModalWidget());
}

void tst_MapMenu::theImportDialogOffersFilesAndPictures()
{
    item("Import")->trigger();

    const QFileDialog *dialog = FileDialogs::visible();
    QCOMPARE(dialog->windowTitle(), QString("Import Map Data"));
    QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptOpen);
    QCOMPARE(dialog->nameFilters(),
             QStringList({"Glimmerkit (*.nxm *.nxt *.nxp *.nxb)",
                          "Image files (*.png *.bmp *.gif *.jpg *.jpeg *.pbm *.pgm *.ppm *.xbm "
                          "*.xpm)"}));
}

void tst_MapMenu::importSendsTheChosenFile()
{
    const QTemporaryDir folder;
    QVERIFY(TestFiles::make(folder.filePath("level.NXM"), "x"));
    QSignalSpy requested(menu(), &MapMenu::importRequested);

    item("Import")->trigger();
    FileDialogs::choose(FileDialogs::visible(), folder.filePath("level.NXM"));

    QCOMPARE(requested, QList<QVariantList>({{folder.filePath("level.NXM")}}));
}

void tst_MapMenu::aSecondImportSendsItsOwnFile()
{
    const QTemporaryDir first;
    const QTemporaryDir second;
    QSignalSpy requested(menu(), &MapMenu::importRequested);

    for (const QString &file : {first.filePath("a.png"), second.filePath("b.png")}) {
        QVERIFY(QFile(file).open(QIODevice::WriteOnly));
        item("Import")->trigger();
        FileDialogs::choose(FileDialogs::visible(), file);
        QVERIFY(!FileDialogs::visible());
        QApplication::processEvents();
        QCOMPARE(requested.takeFirst(), QVariantList({file}));
    }
}

void tst_MapMenu::aCancelledImportSendsNothing()
{
    QSignalSpy requested(menu(), &MapMenu::importRequested);

    item("Import")->trigger();
    FileDialogs::cancel(FileDialogs::visible());

    QCOMPARE(requested.count(), 0);
}

void tst_MapMenu::newMapBeginsWithTheTileSetInUse()
{
    project()->createTileSet("Cave", QUuid(), 1);
    const QPointer<TileSet> town = project()->createTileSet("Town", QUuid(), 1);
    menu()->setTileSet(town->id());

    item("New Map")->trigger();

    QWidget *const dialog = QApplication::activeModalWidget();
    QVERIFY(dialog);
    QCOMPARE(dialog->findChild<QComboBox *>()->currentText(), QString("Town"));
    QTest::keyClick(dialog, Qt::Key_Escape);
}

QTEST_MAIN(tst_MapMenu)
#include "tst_MapMenu.moc"
