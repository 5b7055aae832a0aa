#include "app/AppState.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSettings>
#include <QTest>

/// The home directory is the test's own; its content is made anew before each function.
class tst_AppState : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void makesItsFolderBelowTheHomeDirectory();
    void withoutItsFolderNothingIsWrittenElsewhere();
    void aFirstRunWarnsAndKeepsTheDefaults();
    void writesAllFiveKeys();
    void readsBackWhatItWrote();
    void readsDefaultsForWhatIsMissing_data();
    void readsDefaultsForWhatIsMissing();
    void valuesOfAnotherTypeWarnAndGiveDefaults();
    void aFailedWriteWarnsAndKeepsTheOldFile();
    void preferencesAreWrittenAndReadAsTheyAre();
    void missingPreferencesWarnAndGiveNothing();
    void damagedPreferencesGiveNothing();
    void preferencesThatCannotBeWrittenWarn();

private:
    static QString path(const QString &name)
    {
        return QDir::homePath() + "/.config/tessaril/" + name;
    }
    static void put(const QString &name, const QByteArray &text);
    static QByteArray get(const QString &name);
};

void tst_AppState::init()
{
    QFile::remove(QDir::homePath() + "/.config");
    QVERIFY(QDir(QDir::homePath() + "/.config").removeRecursively());
}

void tst_AppState::put(const QString &name, const QByteArray &text)
{
    QVERIFY(QDir().mkpath(QDir::homePath() + "/.config/tessaril"));
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), qint64(text.size()));
}

QByteArray tst_AppState::get(const QString &name)
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_AppState::makesItsFolderBelowTheHomeDirectory()
{
    const AppState state;

    QVERIFY(QDir(QDir::homePath() + "/.config/tessaril").exists());
    QVERIFY(state.save());
    QVERIFY(QFile::exists(path("state.json")));
    // Where Qt keeps what its own dialogs remember.
    QVERIFY(QSettings("QtProject").fileName().startsWith(path("")));
}

void tst_AppState::withoutItsFolderNothingIsWrittenElsewhere()
{
    QVERIFY(QFile(QDir::homePath() + "/.config").open(QIODevice::WriteOnly));
    const QStringList before = QDir::home().entryList(QDir::Files | QDir::Hidden);
    const AppState state;
    QTest::ignoreMessage(QtWarningMsg, "Open state.json failed");
    QTest::ignoreMessage(QtWarningMsg, "Failed to open settings json file");

    QVERIFY(!state.save());
    QVERIFY(!state.savePreferences(QJsonDocument(QJsonObject{{"general", QJsonObject()}})));

    QCOMPARE(QDir::home().entryList(QDir::Files | QDir::Hidden), before);
}

void tst_AppState::aFirstRunWarnsAndKeepsTheDefaults()
{
    AppState state;
    QTest::ignoreMessage(QtWarningMsg, "Open state.json failed");

    QVERIFY(!state.load());

    QVERIFY(state.windowState.isEmpty());
    QVERIFY(state.windowGeometry.isEmpty());
    QCOMPARE(state.tileZoom, 8);
    QVERIFY(state.recent.isEmpty());
    QCOMPARE(state.lastPath, QString());
}

void tst_AppState::writesAllFiveKeys()
{
    AppState state;
    state.windowState = "abc";
    state.windowGeometry = QByteArray("\0\xff", 2);
    state.tileZoom = 5;
    state.recent = {"/b.tessaril", "/a.tessaril"};
    state.lastPath = "/home/me";

    QVERIFY(state.save());

    const QJsonObject expected = {{"windowState", "YWJj"},
                                  {"windowGeometry", "AP8="},
                                  {"tileZoom", 5},
                                  {"recent", QJsonArray{"/b.tessaril", "/a.tessaril"}},
                                  {"lastPath", "/home/me"}};
    QCOMPARE(get("state.json"), QJsonDocument(expected).toJson(QJsonDocument::Indented));
}

void tst_AppState::readsBackWhatItWrote()
{
    AppState written;
    written.windowState = QByteArray(3000, '\x9c');
    written.windowGeometry = QByteArray("\0\1\2", 3);
    written.tileZoom = 100; // whoever applies it clamps it
    written.recent = {"/one", "/two"};
    written.lastPath = "/tmp";
    QVERIFY(written.save());
    QTest::failOnWarning(QRegularExpression(".*"));

    AppState read;
    QVERIFY(read.load());

    QCOMPARE(read.windowState, written.windowState);
    QCOMPARE(read.windowGeometry, written.windowGeometry);
    QCOMPARE(read.tileZoom, 100);
    QCOMPARE(read.recent, written.recent);
    QCOMPARE(read.lastPath, written.lastPath);
}

void tst_AppState::readsDefaultsForWhatIsMissing_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty object") << QByteArray("{}");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("cut") << QByteArray("{\"tileZoom\": 3, \"lastP");
    QTest::newRow("binary") << QByteArray("\0\1\xfe\xff", 4);
    QTest::newRow("an array") << QByteArray("[1, 2]");
}

void tst_AppState::readsDefaultsForWhatIsMissing()
{
    QFETCH(QByteArray, text);
    put("state.json", text);
    AppState state;
    QTest::ignoreMessage(QtWarningMsg, "JSON object not found \"windowState\"");
    QTest::ignoreMessage(QtWarningMsg, "JSON object not found \"windowGeometry\"");

    QVERIFY(state.load());

    QVERIFY(state.windowState.isEmpty());
    QVERIFY(state.windowGeometry.isEmpty());
    QCOMPARE(state.tileZoom, 8);
    QVERIFY(state.recent.isEmpty());
    QCOMPARE(state.lastPath, QString("~"));
}

void tst_AppState::valuesOfAnotherTypeWarnAndGiveDefaults()
{
    put("state.json", R"({"windowState": 7, "windowGeometry": "YWJj", "tileZoom": "x",
                          "recent": "no list", "lastPath": null})");
    AppState state;
    QTest::ignoreMessage(QtWarningMsg, "JSON object not found \"windowState\"");

    QVERIFY(state.load());

    QVERIFY(state.windowState.isEmpty());
    QCOMPARE(state.windowGeometry, QByteArray("abc"));
    QCOMPARE(state.tileZoom, 8);
    QVERIFY(state.recent.isEmpty());
    QCOMPARE(state.lastPath, QString("~"));
}

void tst_AppState::aFailedWriteWarnsAndKeepsTheOldFile()
{
    const AppState state;
    // A folder in the place of the file: nobody can write there, not even root.
    QVERIFY(QDir().mkpath(path("state.json")));
    QTest::ignoreMessage(QtWarningMsg, "Open state.json failed");

    QVERIFY(!state.save());

    QVERIFY(QDir(path("state.json")).exists());
}

void tst_AppState::preferencesAreWrittenAndReadAsTheyAre()
{
    const AppState state;
    const QJsonDocument preferences(QJsonObject{{"general", QJsonObject{{"backupOnSave", true}}}});

    QVERIFY(state.savePreferences(preferences));

    QCOMPARE(get("preferences.json"), preferences.toJson());
    QCOMPARE(state.loadPreferences(), preferences);
}

void tst_AppState::missingPreferencesWarnAndGiveNothing()
{
    const AppState state;
    QTest::ignoreMessage(QtWarningMsg, "Failed to open settings json file");

    QVERIFY(state.loadPreferences().isNull());
}

void tst_AppState::damagedPreferencesGiveNothing()
{
    put("preferences.json", "{\"general\": ");
    const AppState state;

    QVERIFY(state.loadPreferences().isNull());
}

void tst_AppState::preferencesThatCannotBeWrittenWarn()
{
    const AppState state;
    QVERIFY(QDir().mkpath(path("preferences.json")));
    QTest::ignoreMessage(QtWarningMsg, "Failed to open settings json file");

    QVERIFY(!state.savePreferences(QJsonDocument(QJsonObject())));
}

QTEST_GUILESS_MAIN(tst_AppState)
#include "tst_AppState.moc"
