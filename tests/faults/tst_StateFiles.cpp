#include "Sweep.h"

#include "app/AppState.h"
#include "support/SmallDisk.h"
#include "support/TestFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTest>

#include <sys/stat.h>

/// The two files that outlive a run, damaged, blocked, and written by a program that is killed or
/// fails: the next run begins with whole values or with the defaults, and at once.
class tst_StateFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void anInterruptedWriteLeavesWholeValues_data();
    void anInterruptedWriteLeavesWholeValues();
    void fullDisksLeaveWholeValues();
    void oddFilesGiveDefaultsAtOnce_data();
    void oddFilesGiveDefaultsAtOnce();
    void everyTruncationLoads();
};

namespace {

constexpr int MaxMs = 5000;         // waiting, on a machine that others use
constexpr int WindowBytes = 40'000; // more than one write takes

QString path(const QString &name = QString())
{
    return QDir::homePath() + "/.config/tessaril/" + name;
}

/// Writes both files, all values filled with @p mark. False if that was not done.
bool write(char mark)
{
    AppState state;
    state.windowState = QByteArray(WindowBytes, mark);
    state.lastPath = QString(QLatin1Char(mark));
    return state.save() && state.savePreferences(
                               QJsonDocument::fromJson(QByteArray("{\"mark\":\"") + mark + "\"}"));
}

/// The mark of what is read; a blank if the values are not whole.
char markOf(const AppState &state)
{
    const char mark = state.lastPath.isEmpty() ? ' ' : state.lastPath.at(0).toLatin1();
    return state.windowState == QByteArray(WindowBytes, mark) ? mark : ' ';
}

char readMark()
{
    AppState state;
    return state.load() && !state.loadPreferences().isNull() ? markOf(state) : ' ';
}

} // namespace

void tst_StateFiles::init()
{
    QVERIFY(QDir(path()).removeRecursively());
    QVERIFY(write('o'));
}

void tst_StateFiles::cleanup()
{
    QDir(path()).removeRecursively();
}

void tst_StateFiles::anInterruptedWriteLeavesWholeValues_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("fault");
    for (const char *call : {"write", "fsync", "fdatasync", "rename", "renameat2", "linkat",
                             "unlink", "ftruncate", "close"}) {
        for (const char *fault : {"signal=KILL", "error=ENOSPC", "error=EIO", "error=EACCES"})
            QTest::addRow("%s %s", call, fault) << QString::fromLatin1(call) << fault;
    }
}

void tst_StateFiles::anInterruptedWriteLeavesWholeValues()
{
    QFETCH(QString, call);
    QFETCH(QString, fault);
    // The close of each library that the program begins with is of no interest.
    const int last = Sweep::count(call == QLatin1String("close") ? 3 : 12, 400);
    for (int when = 1; when <= last; ++when) {
        init();
        QProcess process;
        // A traced program cannot look for its leaks.
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral("strace"),
                      {"-qq", "-o", "/dev/null", "-e",
                       QStringLiteral("inject=%1:%2:when=%3").arg(call, fault).arg(when),
                       QCoreApplication::applicationFilePath(), "--write"});
        QVERIFY(process.waitForFinished(-1));
        const char mark = readMark();
        QVERIFY2(mark == 'o' || mark == 'n', qPrintable(QString::number(when)));
        if (process.exitStatus() == QProcess::NormalExit && mark == 'n')
            return; // the fault came after the last call
    }
}

void tst_StateFiles::fullDisksLeaveWholeValues()
{
    QVERIFY(QDir(path()).removeRecursively());
    QVERIFY(QDir().mkpath(path()));
    int failed = 0;
    for (int size = 8; size <= 400; size += Sweep::count(16, 4)) {
        const SmallDisk disk(path(), QString::number(size) + "k");
        if (!disk.isMounted())
            return; // The rows with ENOSPC stand for it where nothing can be mounted.
        if (!write('o'))
            continue;
        failed += write('n') ? 0 : 1;
        const char mark = readMark();
        QVERIFY2(mark == 'o' || mark == 'n', qPrintable(QString::number(size)));
    }
    QVERIFY(failed > 0);
    Sweep::report(QStringLiteral("A6: %1 writes of the state failed on a full disk").arg(failed));
}

void tst_StateFiles::oddFilesGiveDefaultsAtOnce_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind :
         {"empty", "binary", "array", "large", "folder", "pipe", "zeros", "loop"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void tst_StateFiles::oddFilesGiveDefaultsAtOnce()
{
    QFETCH(QString, kind);
    const QMap<QString, QByteArray> contents{{"empty", ""},
                                             {"binary", QByteArray(5000, '\x9c')},
                                             {"array", "[[[[1]]]]"},
                                             {"large", QByteArray(100 * 1024 * 1024, 'x')}};
    for (const QString &name : {path("state.json"), path("preferences.json")}) {
        QVERIFY(QFile::remove(name));
        if (contents.contains(kind))
            QVERIFY(TestFiles::make(name, contents.value(kind)));
        else if (kind == QLatin1String("folder"))
            QVERIFY(QDir().mkdir(name));
        else if (kind == QLatin1String("pipe"))
            QCOMPARE(mkfifo(qPrintable(name), 0600), 0);
        else
            QVERIFY(QFile::link(kind == QLatin1String("zeros") ? "/dev/zero" : name, name));
    }
    QElapsedTimer clock;
    clock.start();

    AppState state;
    state.load();
    const QJsonDocument preferences = state.loadPreferences();

    QVERIFY(clock.elapsed() < MaxMs);
    QCOMPARE(state.tileZoom, int(AppState::DefaultTileZoom));
    QVERIFY(state.windowState.isEmpty() && state.windowGeometry.isEmpty());
    QVERIFY(preferences.object().isEmpty());
    state.save();
    state.savePreferences(QJsonDocument());
    QVERIFY(clock.elapsed() < 2 * MaxMs);
}

void tst_StateFiles::everyTruncationLoads()
{
    const QByteArray whole = TestFiles::contents(path("state.json"));
    for (qsizetype size = 0; size < whole.size(); size += Sweep::count(997, 7)) {
        QVERIFY(TestFiles::make(path("state.json"), whole.left(size)));
        AppState state;
        state.load();
        QVERIFY(state.windowState.isEmpty());
    }
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    if (QCoreApplication::arguments().value(1) == QLatin1String("--write"))
        return write('n') ? 0 : 1;
    tst_StateFiles test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_StateFiles.moc"
