#include "Sweep.h"

#include "app/MainWindow.h"
#include "mapeditor/MapAnimator.h"
#include "mapeditor/View.h"
#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"
#include "store/ProjectStore.h"
#include "support/Boxes.h"
#include "support/TestFiles.h"
#include "support/TestProjects.h"
#include "support/ZipBytes.h"

#include <QDir>
#include <QLabel>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

using TestProjects::Entries;

/// Projects with odd names and cells on the real window: every document is opened, drawn, played
/// for ten seconds of its clock, saved and closed.
class tst_HostileWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void oddNamesShowAsPlainText_data();
    void oddNamesShowAsPlainText();
    void cellsAtTheLimitsPlayAndSave_data();
    void cellsAtTheLimitsPlayAndSave();
    void exchangedIdsAreShownDeletedAndSaved();

private:
    bool open(const Entries &entries);
    void openEveryDocument();
    void deleteEveryDocument();
    Project *project() { return m_window->projectController()->project(); }
    DocumentController *documents() { return m_window->documentController(); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MainWindow> m_window;
};

namespace {

constexpr int WidestWindow = 4000; // pixels that a name may make it need
constexpr int MaxMs = 3000;        // of the processor, to open and show all documents
constexpr int TicksOfTenSeconds = 500;
const QString JsonName = QStringLiteral("project.json");

Entries richEntries()
{
    Project project;
    TestProjects::fill(&project);
    return project.archiveEntries(true);
}

QByteArray archiveOf(const Entries &entries)
{
    QList<ZipBytes::Entry> list;
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry)
        list.append({entry.key().toUtf8(), *entry});
    return ZipBytes::archive(list);
}

/// What of a window would take a name for markup.
QStringList richTexts(const QWidget &window)
{
    QStringList found;
    const auto check = [&found](const QString &text) {
        if (text.contains(QLatin1String("<b>")) && Qt::mightBeRichText(text))
            found += text;
    };
    for (const QLabel *label : window.findChildren<QLabel *>()) {
        if (label->textFormat() != Qt::PlainText)
            check(label->text());
    }
    for (const QWidget *widget : window.findChildren<QWidget *>())
        check(widget->toolTip());
    return found;
}

} // namespace

void tst_HostileWindow::init()
{
    QVERIFY(QDir().mkpath(QDir::homePath() + "/.config/tessaril"));
    QVERIFY(TestFiles::make(QDir::homePath() + "/.config/tessaril/preferences.json",
                            "{\"general\": {\"versionCheckEnabled\": false}}"));
    m_folder = std::make_unique<QTemporaryDir>();
    m_window = std::make_unique<MainWindow>();
    m_window->projectController()->_unsavedPrompt = [](const QString &) { return 1; };
    m_window->show();
}

void tst_HostileWindow::cleanup()
{
    m_window.reset();
    m_folder.reset();
}

bool tst_HostileWindow::open(const Entries &entries)
{
    const QString path = m_folder->filePath(QStringLiteral("a.tessaril"));
    if (!TestFiles::make(path, archiveOf(entries)))
        return false;
    m_window->projectController()->openProject(path);
    return project() != nullptr;
}

void tst_HostileWindow::openEveryDocument()
{
    for (const auto &palette : project()->palettes())
        documents()->setActivePalette(palette->id());
    for (const auto &tiles : project()->tileSets())
        documents()->setActiveTileSet(tiles->id());
    for (const auto &bank : project()->spriteBanks())
        documents()->setActiveSpriteEditor(bank->id());
    for (const auto &blocks : project()->mapObjects())
        documents()->setActiveBlockEditor(blocks->id());
    for (const auto &image : project()->images())
        documents()->setActiveImageEditor(image->id());
    for (const auto &map : project()->maps())
        documents()->setActiveMap(map->id());
}

void tst_HostileWindow::deleteEveryDocument()
{
    using Node = ProjectTree::ProjectNode;
    const auto remove = [this](Node node, const auto &documents) {
        QList<QUuid> ids;
        for (const auto &document : documents)
            ids += document->id();
        for (const QUuid &id : std::as_const(ids))
            emit m_window->views().projectWindow->deleteItemTriggered(node, id);
    };
    remove(Node::Map, project()->maps());
    remove(Node::Objects, project()->mapObjects());
    remove(Node::Sprites, project()->spriteBanks());
    remove(Node::TileSet, project()->tileSets());
    remove(Node::Palette, project()->palettes());
}

void tst_HostileWindow::oddNamesShowAsPlainText_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QString();
    QTest::newRow("a megabyte") << QString(1 << 20, u'n');
    QTest::newRow("lines") << QStringLiteral("a\nb\n").repeated(500);
    QTest::newRow("right to left") << QStringLiteral("\u202egnp.exe");
    QTest::newRow("HTML") << "<b>a</b><img src='file:///etc/passwd'>";
    QTest::newRow("place holders") << "%1%2%3 & &&";
    QTest::newRow("a path") << "../../a/b";
    QTest::newRow("NUL") << QString::fromUtf8(QByteArray("a\0b", 3));
}

void tst_HostileWindow::oddNamesShowAsPlainText()
{
    QFETCH(QString, name);
    Project named;
    TestProjects::fill(&named);
    named.setName(name);
    for (const auto &map : named.maps())
        map->setName(name);
    for (const auto &tiles : named.tileSets())
        tiles->setName(name);
    for (const auto &palette : named.palettes())
        palette->setName(name);
    for (const auto &bank : named.spriteBanks())
        bank->setName(name);
    for (const auto &blocks : named.mapObjects())
        blocks->setName(name);

    const qint64 start = Sweep::usedMs();
    QVERIFY(open(named.archiveEntries(true)));
    openEveryDocument();
    m_window->showError(name);

    QVERIFY(!m_window->grab().isNull());
    QCOMPARE(richTexts(*m_window), QStringList());
    const qint64 spent = Sweep::usedMs() - start;
    QVERIFY2(spent < MaxMs * (Sweep::peakMegabytes() ? 1 : 10), qPrintable(QString::number(spent)));
    QVERIFY(m_window->minimumSizeHint().width() < WidestWindow);
    QVERIFY(m_window->minimumSizeHint().height() < WidestWindow);
    QVERIFY(m_window->width() < WidestWindow && m_window->height() < WidestWindow);
    QCOMPARE(project()->maps().first()->name(), name);
    m_window->projectController()->close();
}

void tst_HostileWindow::cellsAtTheLimitsPlayAndSave_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("value");
    constexpr int Max = std::numeric_limits<int>::max();
    for (const char *key : {"index", "offset", "delay", "width", "initialDelay", "repeatDelay",
                            "startFrame", "x", "y", "sprite", "paletteOffset", "tile_transparency",
                            "backgroundTileIndex", "transparency_index", "transparency"}) {
        for (const int value : {-1, Max, 0, 1 << 28, -Max - 1}) {
            if (!Sweep::isFull() && value != -1 && value != Max)
                continue;
            QTest::addRow("%s %d", key, value) << QString::fromLatin1(key) << value;
        }
    }
}

void tst_HostileWindow::cellsAtTheLimitsPlayAndSave()
{
    QFETCH(QString, key);
    QFETCH(int, value);
    Boxes boxes(QMessageBox::Ok);
    Entries entries = richEntries();
    const QRegularExpression member("\"" + key + "\": -?[0-9]+");
    QString json = QString::fromUtf8(entries.value(JsonName));
    QVERIFY(json.contains(member));
    entries[JsonName] = json.replace(member, "\"" + key + "\": " + QString::number(value)).toUtf8();
    if (!open(entries))
        return; // refused, as is tested without a window

    openEveryDocument();
    for (auto *animator : m_window->findChildren<MapEditor::MapAnimator *>()) {
        for (int tick = 0; tick < TicksOfTenSeconds; ++tick)
            animator->tick();
    }
    QVERIFY(!m_window->grab().isNull());
    for (const QTimer *timer : m_window->findChildren<QTimer *>())
        QVERIFY(!timer->isActive() || timer->isSingleShot() || timer->interval() > 0);

    m_window->projectController()->save();
    ProjectStore store;
    QVERIFY(store.load(m_folder->filePath(QStringLiteral("a.tessaril"))));
    m_window->projectController()->close();
}

/// Ids of a project in each other's places, dangling and null.
void tst_HostileWindow::exchangedIdsAreShownDeletedAndSaved()
{
    Boxes boxes(QMessageBox::Ok);
    const Entries whole = richEntries();
    const QString json = QString::fromUtf8(whole.value(JsonName));
    static const QRegularExpression pattern(QStringLiteral("\\{[0-9a-f-]{36}\\}"));
    QList<qsizetype> places;
    QStringList ids{QUuid().toString(), QUuid::createUuid().toString()};
    for (auto match = pattern.globalMatch(json); match.hasNext();) {
        const auto found = match.next();
        places += found.capturedStart();
        ids += found.captured();
    }
    QRandomGenerator random(3);
    int opened = 0;
    for (int round = 0; round < Sweep::count(12, 400); ++round) {
        Entries entries = whole;
        entries[JsonName] = QString(json)
                                .replace(places.at(random.bounded(places.size())), 38,
                                         ids.at(random.bounded(ids.size())))
                                .toUtf8();
        if (!open(entries))
            continue;
        ++opened;
        openEveryDocument();
        QVERIFY(!m_window->grab().isNull());
        deleteEveryDocument();
        m_window->projectController()->save();
        ProjectStore store;
        QVERIFY(store.load(m_folder->filePath(QStringLiteral("a.tessaril"))));
        m_window->projectController()->close();
    }
    QVERIFY(opened > 5);
    Sweep::report(QStringLiteral("C3 in the window: %1 projects").arg(opened));
}

QTEST_MAIN(tst_HostileWindow)
#include "tst_HostileWindow.moc"
