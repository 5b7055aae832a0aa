#include "Sweep.h"

#include "app/AppState.h"
#include "app/MainWindow.h"
#include "formats/AttributeExport.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/TileSet.h"
#include "store/ProjectStore.h"
#include "support/OwnHome.h"
#include "support/SmallDisk.h"
#include "support/TestFiles.h"
#include "support/TestProjects.h"

#include <QApplication>
#include <QDataStream>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <limits>

/// Starts of the whole window on damaged state files, on geometry of screens that are gone, and in
/// odd surroundings: it is visible, its docks can be reached, and it works as ever.
class tst_OddStart : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void oddFilesStartOnDefaultsAtOnce_data();
    void oddFilesStartOnDefaultsAtOnce();
    void anyGeometryIsBroughtToTheScreen_data();
    void anyGeometryIsBroughtToTheScreen();
    void anyLayoutLeavesTheDocksReachable_data();
    void anyLayoutLeavesTheDocksReachable();
    void damagedBytesStartToo_data();
    void damagedBytesStartToo();
    void surroundingsChangeNothing_data();
    void surroundingsChangeNothing();

private:
    static QString path(const QString &name)
    {
        return QDir::homePath() + "/.config/tessaril/" + name;
    }
    void verifyUsable();
    QList<DockWidget *> docks() const;

    QByteArray m_state;
    QByteArray m_geometry;
    std::unique_ptr<MainWindow> m_window;
};

namespace {

constexpr int MaxMs = 10'000; // waiting, on a machine that others use
constexpr int Far = 50'000;   // pixels, beyond every screen
constexpr int Max = std::numeric_limits<int>::max();
constexpr int MinShown = 100; // pixels of a window that can be seen and taken hold of

bool writeState(const QByteArray &state, const QByteArray &geometry)
{
    AppState values;
    values.windowState = state;
    values.windowGeometry = geometry;
    return values.save();
}

/// What QWidget::saveGeometry() would have written elsewhere.
QByteArray geometryOf(const QRect &normal, int screen = 0, bool isMaximised = false,
                      bool isFull = false, int screenWidth = 0)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_0);
    const int width = screenWidth ? screenWidth : QGuiApplication::primaryScreen()->size().width();
    stream << quint32(0x1D9D0CB) << quint16(3) << quint16(0) << normal << normal << qint32(screen)
           << quint8(isMaximised) << quint8(isFull) << qint32(width) << normal;
    return bytes;
}

/// The part of a window that a screen shows.
QRect shown(const QWidget *window)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    return window->frameGeometry() & screen;
}

/// What the second run does: starts the window, works on a project, and ends.
int startAndWork(const QString &fileName, const QString &folder)
{
    MainWindow window;
    window.projectController()->openProject(fileName);
    Project *const project = window.projectController()->project();
    if (!project)
        return 1;
    const auto tiles = project->tileSets().first();
    window.projectController()->_savePath = [&] { return folder + "/copy.TESSARIL"; };
    window.projectController()->saveAs();
    if (!project->maps().first()->exportData(folder + "/map") ||
        !tiles->exportData(folder + "/tiles") ||
        !project->palettes().first()->exportData(folder + "/palette") ||
        !AttributeExport::write(*tiles, folder + "/attributes.ASM"))
        return 2;
    return window.close() ? 0 : 3;
}

} // namespace

void tst_OddStart::initTestCase()
{
    QVERIFY(useOwnHome(QDir::current()));
    const MainWindow window;
    m_state = window.saveState();
    m_geometry = window.saveGeometry();
}

void tst_OddStart::init()
{
    m_window.reset();
    QVERIFY(useOwnHome(QDir::current()));
}

QList<DockWidget *> tst_OddStart::docks() const
{
    const DocumentViews &views = m_window->views();
    return {views.projectWindow, views.paletteWindow, views.tileWindow, views.spriteWindow,
            views.tilePicker,    views.blockSelector, views.mapSprites};
}

/// The window can be seen and taken hold of, and each dock can be brought to sight.
void tst_OddStart::verifyUsable()
{
    QVERIFY(m_window->isVisible());
    QVERIFY(!m_window->isMinimized());
    const QRect part = shown(m_window.get());
    QVERIFY2(part.width() >= MinShown && part.height() >= MinShown,
             qPrintable(QStringLiteral("%1 %2").arg(part.width()).arg(part.height())));
    QVERIFY(m_window->frameGeometry().top() >= 0 || m_window->isFullScreen());
    QVERIFY(m_window->menuBar()->isVisible());
    for (DockWidget *dock : docks()) {
        if (dock->isHidden())
            dock->toggleViewAction()->trigger();
        QVERIFY2(!dock->isHidden(), qPrintable(dock->objectName()));
        if (dock->isFloating())
            QVERIFY2(shown(dock).width() >= MinShown, qPrintable(dock->objectName()));
    }
    emit m_window->views().menuBar->viewMenu()->resetLayout();
    for (DockWidget *dock : docks()) {
        QVERIFY2(!dock->isHidden() && !dock->isFloating(), qPrintable(dock->objectName()));
        QVERIFY(m_window->dockWidgetArea(dock) != Qt::NoDockWidgetArea);
    }
    QVERIFY(!m_window->grab().isNull());
}

void tst_OddStart::oddFilesStartOnDefaultsAtOnce_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("binary") << QByteArray(5000, '\x9c');
    QTest::newRow("NULs") << QByteArray(5000, '\0');
    QTest::newRow("100 MB") << QByteArray(100 * 1024 * 1024, 'x');
    QTest::newRow("100 MB of blanks") << QByteArray(100 * 1024 * 1024, ' ') + "{}";
    QTest::newRow("a list") << QByteArray("[1, 2]");
    QTest::newRow("deep") << QByteArray(500'000, '[');
    QTest::newRow("numbers") << QByteArray(R"({"windowState": 1, "windowGeometry": 1e99,
        "tileZoom": -5, "recent": {"a": 1}, "lastPath": [], "general": 7, "mapEditor": null})");
    QTest::newRow("no Base64") << QByteArray(R"({"windowState": "%%%", "windowGeometry": "%%%"})");
    QTest::newRow("many recent files")
        << "{\"recent\": [" + QByteArray("\"/a\",").repeated(100'000) + "\"/b\"]}";
}

void tst_OddStart::oddFilesStartOnDefaultsAtOnce()
{
    QFETCH(QByteArray, content);
    QVERIFY(TestFiles::make(path("state.json"), content));
    QElapsedTimer clock;
    clock.start();

    m_window = std::make_unique<MainWindow>();

    QVERIFY2(clock.elapsed() < MaxMs, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(m_window->saveState() == m_state);
    verifyUsable();
    QVERIFY(m_window->close());
    m_window.reset();
    // The preferences in the same state, whose update check has nobody to ask.
    QVERIFY(TestFiles::make(path("preferences.json"), content));
    m_window = std::make_unique<MainWindow>();
    m_window->updates()->checker().setFeedAddress(QUrl(QStringLiteral("http://127.0.0.1:9/")));
    verifyUsable();
    QVERIFY(m_window->close());
}

void tst_OddStart::anyGeometryIsBroughtToTheScreen_data()
{
    QTest::addColumn<QByteArray>("geometry");
    const QSize size(640, 480);
    const auto row = [](const char *name, const QByteArray &geometry) {
        QTest::newRow(name) << geometry;
    };
    row("left of it", geometryOf({{-Far, 100}, size}));
    row("right of it", geometryOf({{Far, 100}, size}));
    row("above it", geometryOf({{100, -Far}, size}));
    row("below it", geometryOf({{100, Far}, size}));
    row("a corner in it", geometryOf({{-630, -470}, size}));
    row("at the limits", geometryOf({{Max - 640, Max - 480}, size}));
    row("below the limits", geometryOf({{-Max, -Max}, size}));
    row("no size", geometryOf({100, 100, 0, 0}));
    row("a negative size", geometryOf(QRect(QPoint(500, 500), QPoint(-500, -500))));
    row("a huge size", geometryOf({0, 0, Max, Max}));
    row("a huge size, far away", geometryOf({-Far, -Far, 10 * Far, 10 * Far}));
    row("another screen", geometryOf({{2000, 100}, size}, 7));
    row("a screen below 0", geometryOf({{100, 100}, size}, -1));
    row("a wide screen", geometryOf({{3000, 100}, size}, 0, false, false, 5120));
    row("maximised elsewhere", geometryOf({{Far, Far}, size}, 3, true));
    row("full screen elsewhere", geometryOf({{Far, Far}, size}, 3, false, true));
    row("both", geometryOf({{Far, Far}, size}, 3, true, true));
    row("cut", geometryOf({{100, 100}, size}).chopped(20));
}

void tst_OddStart::anyGeometryIsBroughtToTheScreen()
{
    QFETCH(QByteArray, geometry);
    QVERIFY(writeState(m_state, geometry));

    m_window = std::make_unique<MainWindow>();

    verifyUsable();
    QVERIFY(m_window->close());
}

void tst_OddStart::anyLayoutLeavesTheDocksReachable_data()
{
    QTest::addColumn<QString>("layout");
    for (const char *layout : {"all hidden", "all floating", "all far away", "all on one place"})
        QTest::newRow(layout) << QString::fromLatin1(layout);
}

void tst_OddStart::anyLayoutLeavesTheDocksReachable()
{
    QFETCH(QString, layout);
    m_window = std::make_unique<MainWindow>();
    for (DockWidget *dock : docks()) {
        dock->setFloating(layout == "all floating" || layout == "all far away");
        if (layout == "all hidden")
            dock->hide();
        else if (layout == "all far away")
            dock->move(Far, Far);
        else if (layout == "all on one place" && dock != docks().first())
            m_window->tabifyDockWidget(docks().first(), dock);
    }
    QVERIFY(m_window->close());
    m_window = std::make_unique<MainWindow>();

    verifyUsable();
    QVERIFY(m_window->close());
}

void tst_OddStart::damagedBytesStartToo_data()
{
    QTest::addColumn<quint32>("seed");
    for (int seed = 0; seed < Sweep::count(8, 1000); ++seed)
        QTest::addRow("seed %d", seed) << quint32(seed);
}

void tst_OddStart::damagedBytesStartToo()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    const auto damaged = [&random](QByteArray bytes) {
        for (int flips = random.bounded(1, 6); flips > 0; --flips)
            bytes[random.bounded(int(bytes.size()))] ^= char(1 << random.bounded(8));
        return random.bounded(4) ? bytes : bytes.left(random.bounded(int(bytes.size())));
    };
    QVERIFY(writeState(seed % 3 == 0 ? m_state : damaged(m_state),
                       seed % 3 == 1 ? m_geometry : damaged(m_geometry)));

    m_window = std::make_unique<MainWindow>();

    verifyUsable();
    QVERIFY(m_window->close());
}

void tst_OddStart::surroundingsChangeNothing_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("value"); // null to take it out
    for (const char *locale : {"C", "de_DE.UTF-8", "tr_TR.UTF-8", "ar_EG.UTF-8", "nonsense"})
        QTest::newRow(locale) << QByteArray("LC_ALL") << QByteArray(locale);
    QTest::newRow("no home") << QByteArray("HOME") << QByteArray();
    QTest::newRow("a missing home") << QByteArray("HOME") << QByteArray("/proc/nobody");
    QTest::newRow("a file for a home") << QByteArray("HOME") << QByteArray("/etc/passwd");
    QTest::newRow("a home to read from") << QByteArray("HOME") << QByteArray("disk");
}

void tst_OddStart::surroundingsChangeNothing()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, value);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath("disk/.config/tessaril") &&
            QDir(folder.path()).mkdir("work"));
    SmallDisk disk(folder.filePath("disk"));
    if (value == "disk") {
        disk.setReadOnly(true);
        value = folder.filePath("disk").toUtf8();
    }
    ProjectStore store;
    TestProjects::fill(store.create(QString()));
    store.project()->setName(QStringLiteral("\u0130I\u0131i 1,5"));
    store.setFileName(folder.filePath("a.tessaril"));
    QVERIFY(store.save(false));
    const auto work = [&](const QString &name, const QByteArray &variable,
                          const QByteArray &content) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_HASH_SEED", "0");
        if (content.isNull())
            environment.remove(QString::fromUtf8(variable));
        else
            environment.insert(QString::fromUtf8(variable), QString::fromUtf8(content));
        QDir(folder.path()).mkdir(name);
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(folder.filePath("work"));
        process.start(QCoreApplication::applicationFilePath(),
                      {"--start", folder.filePath("a.tessaril"), folder.filePath(name)});
        return process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit
                   ? process.exitCode()
                   : -1;
    };
    QCOMPARE(work("plain", "LC_ALL", "C.UTF-8"), 0);

    QCOMPARE(work("odd", key, value), 0);

    for (const char *name : {"map", "tiles", "palette", "attributes.ASM"}) {
        const QByteArray plain = TestFiles::contents(folder.filePath("plain/") + name);
        QVERIFY(plain.size() > 9);
        QVERIFY2(TestFiles::contents(folder.filePath("odd/") + name) == plain, name);
    }
    ProjectStore again;
    QVERIFY(again.load(folder.filePath("odd/copy.TESSARIL")));
    QCOMPARE(again.project()->name(), QStringLiteral("\u0130I\u0131i 1,5"));
    QVERIFY(QDir(folder.filePath("work"))
                .isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--start"))
        return startAndWork(arguments.value(2), arguments.value(3));
    tst_OddStart test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_OddStart.moc"
