#include "monkey/EditLog.h"
#include "monkey/Monkey.h"

#include "app/MainWindow.h"
#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "support/Screen.h"

#include <QDockWidget>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <cstdio>

namespace {

/// More than a test run has time for is asked by the environment.
int fromEnvironment(const char *name, int fallback)
{
    bool isNumber = false;
    const int value = qEnvironmentVariableIntValue(name, &isNumber);
    return isNumber ? value : fallback;
}

/// Warnings that the test brings about itself, or that are told of drawing beyond a picture.
bool isExpected(const QString &message)
{
    return message.startsWith(QStringLiteral("This plugin does not support")) ||
           message.startsWith(QStringLiteral("QImage::setPixel")) ||
           message.startsWith(QStringLiteral("Open "));
}

/// How a map is looked at and what things are called is kept with them, but is no step.
const QStringList Unrecorded = {QStringLiteral("grid_visible"),
                                QStringLiteral("backgroundTileIndex"),
                                QStringLiteral("name"),
                                QStringLiteral("tile_transparency"),
                                QStringLiteral("objectLayerVisible"),
                                QStringLiteral("spriteLayerVisible"),
                                QStringLiteral("tileLayerVisible")};

QJsonValue recordedPart(const QJsonValue &value)
{
    if (value.isArray()) {
        QJsonArray array;
        for (const QJsonValue &item : value.toArray())
            array.append(recordedPart(item));
        return array;
    }
    if (!value.isObject())
        return value;
    QJsonObject object;
    const QJsonObject whole = value.toObject();
    for (auto member = whole.begin(); member != whole.end(); ++member) {
        if (!Unrecorded.contains(member.key()))
            object.insert(member.key(), recordedPart(member.value()));
    }
    return object;
}

/// A tile's offset and attributes alone are no step either, only with the tiles.
void forgetTileNumbers(QJsonObject *project)
{
    QJsonArray sets = (*project)[QStringLiteral("tilesets")].toArray();
    for (QJsonValueRef set : sets) {
        QJsonObject object = set.toObject();
        object.remove(QStringLiteral("offsets"));
        object.remove(QStringLiteral("attributes"));
        object.remove(QStringLiteral("tiles"));
        set = object;
    }
    project->insert(QStringLiteral("tilesets"), sets);
}

/// The values that differ, one a line, with the way to them.
void addDifferences(const QJsonValue &one, const QJsonValue &other, const QString &path,
                    QStringList *found)
{
    if (one == other)
        return;
    const auto text = [](const QJsonValue &value) {
        return QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
    };
    if (one.isObject() && other.isObject()) {
        for (const QString &key : one.toObject().keys())
            addDifferences(one[key], other[key], path + QLatin1Char('/') + key, found);
    } else if (one.isArray() && other.isArray() && one.toArray().size() == other.toArray().size()) {
        for (int i = 0; i < one.toArray().size(); ++i)
            addDifferences(one[i], other[i], path + QStringLiteral("/%1").arg(i), found);
    } else {
        *found << QStringLiteral("%1: %2 and %3").arg(path, text(one), text(other));
    }
}

/// What QTest's own messages have no room for.
void tell(const Monkey &monkey, const QString &failure)
{
    std::fprintf(stderr, "%s\nafter\n%s\n", qPrintable(failure), qPrintable(monkey.diary()));
}

/// What the screen shows is what a fresh paint would show; looked at now and then, as it takes
/// longer than what is done in between.
bool isScreenStale(const Monkey &monkey, int action)
{
    constexpr int Between = 10; // actions
    const QStringList stale = action % Between == 0 ? Screen::staleParts() : QStringList();
    if (!stale.isEmpty())
        tell(monkey, QStringLiteral("out of date: ") + stale.join(QLatin1Char('\n')));
    return !stale.isEmpty();
}

QStringList s_warnings;

void collect(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type != QtDebugMsg && type != QtInfoMsg && !isExpected(message))
        s_warnings.append(message);
}

} // namespace

/// Random days of a user without a plan, which the program must survive without a warning, and
/// whose edits must all be undone and redone.
class tst_Monkey : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void allEditsAreUndoneAndRedone_data();
    void allEditsAreUndoneAndRedone();
    void anythingGoes_data();
    void anythingGoes();

private:
    Project *project() const { return m_window->projectController()->project(); }
    QMap<QString, QByteArray> entries() const;
    QList<QPair<ProjectTree::ProjectNode, QUuid>> documents() const;
    void addSeeds(int base);
    static QString differing(const QMap<QString, QByteArray> &one,
                             const QMap<QString, QByteArray> &other);

    std::unique_ptr<MainWindow> m_window;
    QtMessageHandler m_handler = nullptr;
};

void tst_Monkey::init()
{
    m_window.reset();
    const QString settings = QDir::homePath() + "/.config/tessaril";
    QVERIFY(QDir().mkpath(settings));
    QFile preferences(settings + "/preferences.json");
    QVERIFY(preferences.open(QIODevice::WriteOnly));
    preferences.write("{\"general\": {\"versionCheckEnabled\": false}}");
    preferences.close();
    const QString file = QDir::homePath() + "/game.tessaril";
    QFile::remove(file);
    QVERIFY(QFile::copy(QStringLiteral(EXAMPLE), file));

    s_warnings.clear();
    m_handler = qInstallMessageHandler(collect);
    m_window = std::make_unique<MainWindow>();
    // Nobody answers there: the About dialog must not ask beyond this machine.
    m_window->updates()->checker().setFeedAddress(QUrl(QStringLiteral("http://127.0.0.1:9/")));
    m_window->projectController()->_unsavedPrompt = [](const QString &) {
        return ProjectController::DiscardChanges;
    };
    m_window->projectController()->_savePath = [] { return QDir::homePath() + "/saved.tessaril"; };
    m_window->resize(1400, 1000);
    Screen::holdStill();
    m_window->projectController()->openProject(file);
    QVERIFY(project());
}

void tst_Monkey::cleanup()
{
    // Qt never frees what it keeps of a press on a dock that dies before the release.
    for (QDockWidget *const dock : m_window->findChildren<QDockWidget *>())
        QTest::mouseRelease(dock, Qt::LeftButton);
    m_window.reset();
    qInstallMessageHandler(m_handler);
    QCOMPARE(s_warnings.join(QLatin1Char('\n')), QString());
}

QList<QPair<ProjectTree::ProjectNode, QUuid>> tst_Monkey::documents() const
{
    using Node = ProjectTree::ProjectNode;
    QList<QPair<Node, QUuid>> found;
    const auto add = [&found](Node node, const auto &list) {
        for (const auto &document : list)
            found.append({node, document->id()});
    };
    add(Node::Map, project()->maps());
    add(Node::Sprites, project()->spriteBanks());
    add(Node::Objects, project()->mapObjects());
    add(Node::Image, project()->images());
    add(Node::TileSet, project()->tileSets());
    add(Node::Palette, project()->palettes());
    return found;
}

/// What a project file would hold, without what is never recorded.
QMap<QString, QByteArray> tst_Monkey::entries() const
{
    auto all = project()->archiveEntries(false);
    for (auto entry = all.begin(); entry != all.end(); ++entry) {
        if (entry.key().endsWith(QStringLiteral("json"))) {
            QJsonObject whole = QJsonDocument::fromJson(*entry).object();
            forgetTileNumbers(&whole);
            *entry = QJsonDocument(recordedPart(whole).toObject()).toJson();
        }
    }
    return all;
}

void tst_Monkey::addSeeds(int base)
{
    QTest::addColumn<quint32>("seed");
    const int first = fromEnvironment("TESSARIL_MONKEY_SEED", base);
    const int count = fromEnvironment("TESSARIL_MONKEY_DAYS", 5);
    for (int seed = first; seed < first + count; ++seed)
        QTest::addRow("seed %d", seed) << static_cast<quint32>(seed);
}

QString tst_Monkey::differing(const QMap<QString, QByteArray> &one,
                              const QMap<QString, QByteArray> &other)
{
    QStringList parts;
    for (auto entry = one.cbegin(); entry != one.cend(); ++entry) {
        const QByteArray second = other.value(entry.key());
        if (second == entry.value())
            continue;
        const auto place =
            std::mismatch(entry->begin(), entry->end(), second.begin(), second.end());
        parts << QStringLiteral("%1 at %2").arg(entry.key()).arg(place.first - entry->begin());
        if (entry.key().endsWith(QStringLiteral("json")))
            addDifferences(QJsonDocument::fromJson(*entry).object(),
                           QJsonDocument::fromJson(second).object(), {}, &parts);
    }
    return parts.join(QLatin1Char('\n'));
}

void tst_Monkey::allEditsAreUndoneAndRedone_data()
{
    addSeeds(1);
}

void tst_Monkey::allEditsAreUndoneAndRedone()
{
    QFETCH(quint32, seed);
    EditLog log;
    log.follow(m_window->documentController()->undoStack(QUuid()));
    for (const auto &[node, id] : documents())
        log.follow(m_window->documentController()->undoStack(id));
    Monkey monkey(m_window.get(), seed, Monkey::Reach::Editors);
    const auto open = [this, seed](int step) {
        const auto all = documents();
        const auto &[node, id] = all.at((static_cast<int>(seed) + step) % all.size());
        emit m_window->views().projectWindow->itemDoubleClicked(node, id);
    };
    for (int step = 0; step < documents().size(); ++step)
        open(step);
    const auto before = entries();

    const int actions = fromEnvironment("TESSARIL_MONKEY_ACTIONS", 150);
    for (int i = 0; i < actions; ++i) {
        if (i % 25 == 0)
            open(i / 25);
        monkey.act();
        QVERIFY(!isScreenStale(monkey, i));
    }
    m_window->documentController()->recordOpenDocuments(); // stops what plays
    const auto after = entries();
    log.undoAll();
    const auto undone = entries();
    log.redoAll();
    const auto redone = entries();

    if (undone != before || redone != after)
        tell(monkey, differing(before, undone) + differing(after, redone));
    QVERIFY(undone == before);
    QVERIFY(redone == after);
    QVERIFY(log.size() > 0);
}

void tst_Monkey::anythingGoes_data()
{
    addSeeds(1001);
}

void tst_Monkey::anythingGoes()
{
    QFETCH(quint32, seed);
    Monkey monkey(m_window.get(), seed, Monkey::Reach::Everything);
    const int actions = fromEnvironment("TESSARIL_MONKEY_ACTIONS", 150);
    for (int i = 0; i < actions; ++i) {
        monkey.act();
        QVERIFY(!isScreenStale(monkey, i));
    }

    if (!s_warnings.isEmpty())
        tell(monkey, s_warnings.join(QLatin1Char('\n')));
    QVERIFY(s_warnings.isEmpty());
}

QTEST_MAIN(tst_Monkey)
#include "tst_Monkey.moc"
