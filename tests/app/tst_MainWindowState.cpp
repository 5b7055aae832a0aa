#include "app/QuietWindow.h"
#include "dialogs/GeneralPage.h"
#include "dialogs/MapEditorPage.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/TileSet.h"

#include <QFileDialog>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTabBar>
#include <QTest>

/// What the window takes from its two files at the first show, and leaves in them as it closes.
class tst_MainWindowState : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void theFirstRunKeepsTheDefaults();
    void stateSurvivesARestart();
    void aZoomBeyondItsRangeIsWrittenClamped_data();
    void aZoomBeyondItsRangeIsWrittenClamped();
    void damagedStateDoesNoHarm();
    void noTabOfADockIsCutShortAtFirst();
    void docksKeepTheirSizesWhenAProjectOpens();
    void resetLayoutBringsTheSizesBack();
    void docksComeBackAfterASmallWindow();
    void docksAsNarrowAsTheUserLeftThemStaySo();
    void wideDocksOfALargeWindowComeBack();
    void anUnknownIntervalBecomesWeekly();
    void preferencesReachThePagesAndTheFile();
    void theFolderOfTheOpenDialogIsWrittenAbsolute();
    void aRefusedCloseWritesNothing();
    void aSecondShowReadsNothing();
    void theOpenListIsWrittenAsItWasRead();
    void aSaveLeavesTheTimersAsTheyWere();
    void theScratchEditorHasThePaletteOfTheProject();
    void swappingThePaletteOfTheTilesReachesTheCanvas();
    void theProjectDockWakesWithAProject();
    void theStatusBarHoldsTheLabel();

private:
    static QString path(const QString &name)
    {
        return QDir::homePath() + "/.config/tessaril/" + name;
    }
    static QJsonObject readFile(const QString &name);
    static void writeFile(const QString &name, const QByteArray &content);

    std::unique_ptr<MainWindow> m_window;
};

void tst_MainWindowState::init()
{
    m_window.reset();
    QDir(QDir::homePath() + "/.config").removeRecursively();
    QVERIFY(QDir().mkpath(path("")));
    writeFile("preferences.json", R"({"general": {"versionCheckEnabled": false}})");
}

QJsonObject tst_MainWindowState::readFile(const QString &name)
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object()
                                          : QJsonObject();
}

void tst_MainWindowState::writeFile(const QString &name, const QByteArray &content)
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

void tst_MainWindowState::theFirstRunKeepsTheDefaults()
{
    QVERIFY(QFile::remove(path("preferences.json")));
    QTest::ignoreMessage(QtWarningMsg, "Open state.json failed");
    QTest::ignoreMessage(QtWarningMsg, "Failed to open settings json file");

    m_window = std::make_unique<MainWindow>();
    m_window->updates()->checker().setFeedAddress(QUrl("http://127.0.0.1:9/"));

    QCOMPARE(m_window->views().tilePicker->zoom(), 8);
    QVERIFY(m_window->views().menuBar->fileMenu()->recent().isEmpty());
    QCOMPARE(m_window->size(), QSize(1024, 768));
    QCOMPARE(m_window->dockWidgetArea(m_window->views().tilePicker), Qt::BottomDockWidgetArea);
    QCOMPARE(m_window->tabifiedDockWidgets(m_window->views().tileWindow).size(), 2);
    QCOMPARE(m_window->views().preferences->generalPage()->updateInterval(), QString("weekly"));
}

void tst_MainWindowState::stateSurvivesARestart()
{
    m_window = std::make_unique<MainWindow>();
    m_window->views().tilePicker->setZoom(3);
    m_window->views().menuBar->fileMenu()->addRecent("/somewhere/game.tessaril");
    m_window->resize(900, 700);
    m_window->views().projectWindow->hide();
    QVERIFY(m_window->close());

    m_window = std::make_unique<MainWindow>();

    QCOMPARE(m_window->views().tilePicker->zoom(), 3);
    QCOMPARE(m_window->views().menuBar->fileMenu()->recent(),
             QStringList({"/somewhere/game.tessaril"}));
    QVERIFY(m_window->views().projectWindow->isHidden());
    QCOMPARE(m_window->size(), QSize(900, 700));
}

void tst_MainWindowState::aZoomBeyondItsRangeIsWrittenClamped_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("zoom");
    QTest::newRow("too large") << 100 << 16;
    QTest::newRow("too small") << 0 << 1;
}

void tst_MainWindowState::aZoomBeyondItsRangeIsWrittenClamped()
{
    QFETCH(int, stored);
    QFETCH(int, zoom);
    writeFile("state.json", QJsonDocument(QJsonObject{{"tileZoom", stored}}).toJson());

    m_window = std::make_unique<MainWindow>();
    QCOMPARE(m_window->views().tilePicker->zoom(), zoom);
    QCOMPARE(m_window->views().menuBar->fileMenu()->lastDirectory().path(), QString("~"));
    QVERIFY(m_window->close());

    QCOMPARE(readFile("state.json").value("tileZoom").toInt(), zoom);
}

void tst_MainWindowState::damagedStateDoesNoHarm()
{
    writeFile("state.json",
              R"({"windowState": "AAAAAAAA", "windowGeometry": "////", "tileZoom": 100})");

    m_window = std::make_unique<MainWindow>();

    QVERIFY(m_window->isVisible());
    QCOMPARE(m_window->views().tilePicker->zoom(), 16);
    QVERIFY(!m_window->views().projectWindow->isHidden());
}

void tst_MainWindowState::noTabOfADockIsCutShortAtFirst()
{
    m_window = std::make_unique<MainWindow>();
    QCoreApplication::processEvents();

    int count = 0;
    const auto bars = m_window->findChildren<QTabBar *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QTabBar *const bar : bars) {
        if (!bar->isVisible())
            continue;
        count += bar->count();
        QVERIFY2(bar->width() >= bar->sizeHint().width(), qPrintable(bar->tabText(0)));
    }
    QCOMPARE(count, 5);
}

void tst_MainWindowState::docksKeepTheirSizesWhenAProjectOpens()
{
    m_window = std::make_unique<MainWindow>();
    QCoreApplication::processEvents();
    const DocumentViews &views = m_window->views();
    const int listWidth = views.projectWindow->width();
    const int pickerHeight = views.tilePicker->height();
    const int tabWidth = views.tabs->width();

    m_window->projectController()->newProject("Moor");
    Project *const project = m_window->projectController()->project();
    const auto palette = project->createPalette(CreateDefault, "Moor at Night");
    const auto tiles = project->createTileSet("A Moor at Night, with Stars", palette->id(), 256);
    m_window->documentController()->setActiveTileSet(tiles->id());
    QCoreApplication::processEvents();

    QCOMPARE(views.projectWindow->width(), listWidth);
    QCOMPARE(views.tilePicker->height(), pickerHeight);
    QCOMPARE(views.tabs->width(), tabWidth);
    QVERIFY(tabWidth > 430);
    views.tileWindow->raise();
    QCoreApplication::processEvents();
    QVERIFY(!views.tileWindow->scrollArea()->horizontalScrollBar()->isVisible());
}

void tst_MainWindowState::resetLayoutBringsTheSizesBack()
{
    m_window = std::make_unique<MainWindow>();
    QCoreApplication::processEvents();
    DockWidget *const dock = m_window->views().projectWindow;
    const int width = dock->width();
    m_window->resizeDocks({dock}, {width + 60}, Qt::Horizontal);
    QCoreApplication::processEvents();
    QCOMPARE(dock->width(), width + 60);

    emit m_window->views().menuBar->viewMenu()->resetLayout();
    QCoreApplication::processEvents();

    QCOMPARE(dock->width(), width);
}

void tst_MainWindowState::docksComeBackAfterASmallWindow()
{
    m_window = std::make_unique<MainWindow>();
    m_window->resize(1400, 900);
    QCoreApplication::processEvents();
    DockWidget *const list = m_window->views().projectWindow;
    DockWidget *const picker = m_window->views().tilePicker;
    const QSize before(list->width(), picker->height());

    m_window->resize(m_window->minimumSizeHint());
    QCoreApplication::processEvents();
    QVERIFY(list->width() < before.width());
    m_window->resize(1400, 900);
    QCoreApplication::processEvents();

    QCOMPARE(QSize(list->width(), picker->height()), before);
}

void tst_MainWindowState::docksAsNarrowAsTheUserLeftThemStaySo()
{
    constexpr int Narrow = 130; // pixels
    m_window = std::make_unique<MainWindow>();
    m_window->resizeDocks({m_window->views().projectWindow}, {Narrow}, Qt::Horizontal);
    QCoreApplication::processEvents();
    QCOMPARE(m_window->views().projectWindow->width(), Narrow);
    QVERIFY(m_window->close());

    m_window = std::make_unique<MainWindow>();
    QCoreApplication::processEvents();
    QCOMPARE(m_window->views().projectWindow->width(), Narrow);
    m_window->resize(1600, 900);
    QCoreApplication::processEvents();

    QCOMPARE(m_window->views().projectWindow->width(), Narrow);
}

void tst_MainWindowState::wideDocksOfALargeWindowComeBack()
{
    m_window = std::make_unique<MainWindow>();
    m_window->resize(1270, 800);
    QCoreApplication::processEvents();
    m_window->resizeDocks({m_window->views().projectWindow, m_window->views().tileWindow},
                          {430, 560}, Qt::Horizontal);
    QCoreApplication::processEvents();
    QCOMPARE(m_window->views().projectWindow->width(), 430);
    const int right = m_window->width() - m_window->views().tabs->geometry().right();
    QVERIFY(m_window->close());

    m_window = std::make_unique<MainWindow>();
    QCoreApplication::processEvents();

    QCOMPARE(m_window->width(), 1270);
    QCOMPARE(m_window->views().projectWindow->width(), 430);
    QCOMPARE(m_window->width() - m_window->views().tabs->geometry().right(), right);
}

void tst_MainWindowState::anUnknownIntervalBecomesWeekly()
{
    writeFile("preferences.json",
              R"({"general": {"versionCheckEnabled": false, "updateInterval": "hourly"}})");
    m_window = std::make_unique<MainWindow>();

    QVERIFY(m_window->close());

    const QJsonObject general = readFile("preferences.json").value("general").toObject();
    QCOMPARE(general.value("updateInterval").toString(), QString("weekly"));
    QCOMPARE(readFile("preferences.json").value("mapEditor").toObject().value("gridSize").toInt(),
             8); // was not there
}

void tst_MainWindowState::preferencesReachThePagesAndTheFile()
{
    const QByteArray content = R"({"general": {"backupOnSave": false,
        "versionCheckEnabled": false, "updateInterval": "monthly", "skippedVersion": "0.9",
        "lastUpdateCheck": "2026-11-01"}, "mapEditor": {"checkerBoard": false,
        "gridColour1": "#102030", "gridColour2": "#405060", "overlayGrid": false,
        "gridSize": 64, "defaultZoom": 7}})";
    writeFile("preferences.json", content);
    m_window = std::make_unique<MainWindow>();
    const PreferencesDialog *const dialog = m_window->views().preferences;
    QVERIFY(!dialog->generalPage()->backupOnSave());
    QCOMPARE(dialog->mapEditorPage()->defaultZoom(), 7);

    QVERIFY(m_window->close());

    QCOMPARE(readFile("preferences.json"), QJsonDocument::fromJson(content).object());
}

void tst_MainWindowState::theFolderOfTheOpenDialogIsWrittenAbsolute()
{
    writeFile("state.json", R"({"lastPath": "games"})");
    m_window = std::make_unique<MainWindow>();
    QCOMPARE(m_window->views().menuBar->fileMenu()->lastDirectory().path(), QString("games"));

    QVERIFY(m_window->close());

    QCOMPARE(readFile("state.json").value("lastPath").toString(), QDir("games").absolutePath());
}

void tst_MainWindowState::aRefusedCloseWritesNothing()
{
    m_window = std::make_unique<MainWindow>();
    m_window->projectController()->newProject("game");
    m_window->projectController()->project()->createPalette(CreateBlank, "sky");
    m_window->projectController()->_unsavedPrompt = [](const QString &) { return 2; };
    QVERIFY(QFile::remove(path("preferences.json")));

    QVERIFY(!m_window->close());

    QVERIFY(!QFile::exists(path("state.json")));
    QVERIFY(!QFile::exists(path("preferences.json")));
    m_window->projectController()->_unsavedPrompt = [](const QString &) { return 1; };
    QVERIFY(m_window->close());
    QVERIFY(QFile::exists(path("state.json")));
    QVERIFY(QFile::exists(path("preferences.json")));
}

void tst_MainWindowState::aSecondShowReadsNothing()
{
    writeFile("state.json", R"({"tileZoom": 3})");
    m_window = std::make_unique<MainWindow>();
    QCOMPARE(m_window->views().tilePicker->zoom(), 3);
    writeFile("state.json", R"({"tileZoom": 5, "recent": ["/a/b.tessaril"]})");
    m_window->hide();

    m_window->show();

    QCOMPARE(m_window->views().tilePicker->zoom(), 3);
    QVERIFY(m_window->views().menuBar->fileMenu()->recent().isEmpty());
}

void tst_MainWindowState::theOpenListIsWrittenAsItWasRead()
{
    writeFile("state.json", R"({"recent": ["/gone/a.tessaril", "/b.tessaril"], "tileZoom": 2})");
    m_window = std::make_unique<MainWindow>();

    QVERIFY(m_window->close());

    const QJsonObject written = readFile("state.json");
    QCOMPARE(written.value("recent").toVariant().toStringList(),
             QStringList({"/gone/a.tessaril", "/b.tessaril"}));
    QVERIFY(!QByteArray::fromBase64(written.value("windowState").toString().toUtf8()).isEmpty());
    QVERIFY(!QByteArray::fromBase64(written.value("windowGeometry").toString().toUtf8()).isEmpty());
}

void tst_MainWindowState::aSaveLeavesTheTimersAsTheyWere()
{
    const QuietWindow window;
    window.newProject();
    window.documents()->setActiveMap(window.addMap()->id());
    QTimer &timer = window.currentMap()->animator().timer();
    timer.start();
    bool ranInside = true;
    window.control()->_savePath = [&] {
        ranInside = timer.isActive();
        return QString();
    };

    window.control()->save();

    QVERIFY(!ranInside);
    QVERIFY(timer.isActive());
}

void tst_MainWindowState::theScratchEditorHasThePaletteOfTheProject()
{
    const QString file = QDir::currentPath() + "/scratch.tessaril";
    const QuietWindow window;
    Project *const project = window.newProject();
    project->setScratchPaletteId(project->createPalette(CreateDefault, "sky")->id());
    window.control()->_savePath = [file] { return file; };
    window.control()->save();

    window.control()->openProject(file);

    ImageEditor::View *const scratch = window.views().tabs->scratchEditor();
    QVERIFY(window.project()->scratchPalette());
    QCOMPARE(scratch->canvas()->palette(), window.project()->scratchPalette());
    QCOMPARE(scratch->canvas()->image().size(), window.project()->scratchImage().size());
}

void tst_MainWindowState::swappingThePaletteOfTheTilesReachesTheCanvas()
{
    const QuietWindow window;
    Project *const project = window.newProject();
    const auto tileSet = window.addTileSet();
    window.documents()->setActiveTileSet(tileSet->id());
    const auto palette = project->createPalette(CreateDefault, "sky");

    emit window.menus()->tileMenu()->swapPalette(palette->id());

    QCOMPARE(tileSet->palette(), palette);
    QCOMPARE(window.views().tileWindow->findChild<Canvas *>()->palette(), palette);
}

void tst_MainWindowState::theProjectDockWakesWithAProject()
{
    const QuietWindow window;
    window.views().projectWindow->setEnabled(false);

    window.newProject();

    QVERIFY(window.views().projectWindow->isEnabled());
    QVERIFY(window.views().projectWindow->isContentShown());
}

void tst_MainWindowState::theStatusBarHoldsTheLabel()
{
    const QuietWindow window;
    const auto labels =
        window->statusBar()->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);

    QCOMPARE(labels.size(), 1);
    QVERIFY(labels.first()->isVisible());
}

QTEST_MAIN(tst_MainWindowState)
#include "tst_MainWindowState.moc"
