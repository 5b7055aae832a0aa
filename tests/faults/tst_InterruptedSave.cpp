#include "Sweep.h"

#include "model/Project.h"
#include "store/ProjectFile.h"
#include "store/ProjectStore.h"
#include "support/TestFiles.h"
#include "support/TestProjects.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

/// Saves that are killed, or fail, at one system call after the other: strace stands between a
/// second run of this program, which loads, edits and saves, and the kernel.
class tst_InterruptedSave : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aKilledSaveLeavesALoadableProject_data();
    void aKilledSaveLeavesALoadableProject();
    void failedCallsLoseNothing_data();
    void failedCallsLoseNothing();

private:
    struct Run
    {
        int code = 0;
        QString errors;          ///< what the user was told
        bool isInjected = false; ///< the call came often enough
    };

    QString source() const { return m_folder->filePath(QStringLiteral("a.tessaril")); }
    QString target() const
    {
        return m_isSaveAs ? m_folder->filePath(QStringLiteral("b.tessaril")) : source();
    }
    void begin(const QString &project, const QString &manner);
    void makeFiles();
    Run saveUnder(const QString &injection);
    QMap<QString, int> callsOfASave();
    QString survivor() const;
    QStringList files() const;
    QString faultAfterAKill();
    QString faultAfter(const Run &run, const QString &call, bool isLasting);
    QString faultOfTheNextSave();

    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_content;
    bool m_hasBackup = false;
    bool m_isSaveAs = false;
};

namespace {

// What the second run says of itself.
constexpr int Saved = 77;
constexpr int Refused = 78;
constexpr int Unloaded = 79;
constexpr int Changed = 80;
constexpr int Killed = -1;

const QString Old = QStringLiteral("old");
const QString New = QStringLiteral("new");

/// What changes a folder or the content of a file.
const QStringList ChangingCalls{"openat", "write",    "fsync", "rename", "renameat2",
                                "unlink", "fchmodat", "chmod", "close"};

/// The name of the project in a file, empty if none loads.
QString loadedName(const QString &fileName)
{
    ProjectStore store;
    return store.load(fileName) ? store.project()->name() : QString();
}

/// The bytes of a project of one of three sizes.
QByteArray contentOf(const QString &size)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.tessaril"));
    ProjectStore store;
    const QPointer<Project> project = store.create(Old);
    if (size == QLatin1String("typical"))
        TestProjects::fill(project);
    else if (size == QLatin1String("large"))
        TestProjects::fillLarge(project);
    project->setName(Old);
    store.setFileName(path);
    return store.save(false) ? TestFiles::contents(path) : QByteArray();
}

/// What the second run does.
int loadEditAndSave(const QString &from, const QString &to, bool backup)
{
    ProjectStore store;
    const auto tell = [](const QString &text) { std::printf("error: %s\n", qPrintable(text)); };
    QObject::connect(&store, &ProjectStore::saveError, &store, tell);
    if (!store.load(from))
        return Unloaded;
    store.setFileName(to);
    store.project()->setName(New);
    const QByteArray before = store.digest();
    const bool saved = store.save(backup);
    if (store.digest() != before)
        return Changed;
    return saved ? Saved : Refused;
}

/// Whether these are the words for a save that fails, once.
bool isRefusal(const QString &errors)
{
    static const QRegularExpression words(
        QStringLiteral("^error: (Could not create the project file|Could not write [^\\n]+|"
                       "Could not finish writing the project file)\\n$"));
    return words.match(errors).hasMatch();
}

void addManners(const char *project, const QString &call, const QString &fault)
{
    for (const char *manner : {"plain", "backup", "save as"}) {
        QTest::addRow("%s, %s %s, %s", project, qPrintable(call), qPrintable(fault), manner)
            << project << manner << call << fault;
    }
}

} // namespace

void tst_InterruptedSave::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_InterruptedSave::begin(const QString &project, const QString &manner)
{
    static QMap<QString, QByteArray> contents;
    if (!contents.contains(project))
        contents[project] = contentOf(project);
    m_content = contents.value(project);
    m_hasBackup = manner == QLatin1String("backup");
    m_isSaveAs = manner == QLatin1String("save as");
}

/// The files as they are before each run.
void tst_InterruptedSave::makeFiles()
{
    init();
    QVERIFY(TestFiles::make(source(), m_content));
    if (m_isSaveAs)
        QVERIFY(TestFiles::make(target(), m_content));
}

/// Runs the second program under an injection.
tst_InterruptedSave::Run tst_InterruptedSave::saveUnder(const QString &injection)
{
    const QTemporaryDir outside;
    const QString trace = outside.filePath(QStringLiteral("trace"));
    QProcess process;
    // A traced program cannot look for its leaks.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral("strace"),
                  {"-qq", "-o", trace, "-P", target(), "-P", ProjectFile::siblingOf(target()), "-P",
                   target() + ".bak", "-P", m_folder->path(), "-e", injection,
                   QCoreApplication::applicationFilePath(), "--save", source(), target(),
                   m_hasBackup ? "backup" : "plain"});
    if (!process.waitForFinished(-1))
        return {};
    const bool isKilled = process.exitStatus() == QProcess::CrashExit;
    return {isKilled ? Killed : process.exitCode(),
            QString::fromUtf8(process.readAllStandardOutput()),
            isKilled || TestFiles::contents(trace).contains("(INJECTED)")};
}

/// How often a save makes each call on its files.
QMap<QString, int> tst_InterruptedSave::callsOfASave()
{
    makeFiles();
    const QString trace = m_folder->filePath(QStringLiteral("trace"));
    QProcess::execute(QStringLiteral("strace"),
                      {"-qq", "-o", trace, "-P", target(), "-P", ProjectFile::siblingOf(target()),
                       "-P", target() + ".bak", "-P", m_folder->path(),
                       QCoreApplication::applicationFilePath(), "--save", source(), target(),
                       m_hasBackup ? "backup" : "plain"});
    QMap<QString, int> calls;
    for (const QByteArray &line : TestFiles::contents(trace).split('\n')) {
        const qsizetype end = line.indexOf('(');
        if (end > 0)
            ++calls[QString::fromLatin1(line.left(end))];
    }
    return calls;
}

/// The project that a user finds again: that of the file, else that of the backup.
QString tst_InterruptedSave::survivor() const
{
    const QString name = loadedName(target());
    return name.isEmpty() ? loadedName(target() + ".bak") : name;
}

QStringList tst_InterruptedSave::files() const
{
    return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden);
}

/// What is wrong with what a killed save left; empty if nothing is.
QString tst_InterruptedSave::faultAfterAKill()
{
    const QString name = survivor();
    if (name != Old && name != New)
        return QStringLiteral("found \"%1\" in %2").arg(name, files().join(' '));
    if (m_isSaveAs && loadedName(source()) != Old)
        return QStringLiteral("the file that was open changed");
    return faultOfTheNextSave();
}

/// What is wrong with what a save under failing calls said and left.
QString tst_InterruptedSave::faultAfter(const Run &run, const QString &call, bool isLasting)
{
    const QString name = survivor();
    const bool isSaved = run.code == Saved;
    if (run.code != Saved && run.code != Refused && run.code != Unloaded)
        return QStringLiteral("ended with %1").arg(run.code);
    if ((run.code == Refused) != isRefusal(run.errors))
        return QStringLiteral("told \"%1\"").arg(run.errors);
    if (name != (isSaved ? New : Old))
        return QStringLiteral("found \"%1\" after %2").arg(name).arg(run.code);
    if (m_isSaveAs && loadedName(source()) != Old)
        return QStringLiteral("the file that was open changed");
    // What cannot be removed, or for good not be renamed, waits for the next save.
    const bool canTidy = call != "unlink" && !(isLasting && call.startsWith("rename"));
    const qsizetype expected = 1 + (m_isSaveAs ? 1 : 0) + (m_hasBackup && isSaved ? 1 : 0);
    if (canTidy && files().size() != expected)
        return QStringLiteral("left %1").arg(files().join(' '));
    return faultOfTheNextSave();
}

/// What is wrong when the fault is over: a save works, and leaves its own files alone.
QString tst_InterruptedSave::faultOfTheNextSave()
{
    ProjectStore store;
    store.create(QStringLiteral("again"));
    store.setFileName(target());
    if (!store.save(m_hasBackup) || loadedName(target()) != QStringLiteral("again"))
        return QStringLiteral("the next save failed");
    QStringList left = files();
    for (const QString &path : {source(), target(), target() + ".bak"})
        left.removeAll(QFileInfo(path).fileName());
    return left.isEmpty() ? QString() : "the next save left " + left.join(' ');
}

void tst_InterruptedSave::aKilledSaveLeavesALoadableProject_data()
{
    QTest::addColumn<QString>("project");
    QTest::addColumn<QString>("manner");
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("fault");
    if (Sweep::isFull()) {
        for (const char *project : {"small", "typical", "large"})
            addManners(project, QStringLiteral("every call"), QStringLiteral("KILL"));
    } else {
        addManners("typical", QStringLiteral("changing calls"), QStringLiteral("KILL"));
    }
}

void tst_InterruptedSave::aKilledSaveLeavesALoadableProject()
{
    QFETCH(QString, project);
    QFETCH(QString, manner);
    begin(project, manner);
    const QMap<QString, int> calls = callsOfASave();
    QVERIFY(calls.value("write") > 0 && calls.value("fsync") > 1);
    int kills = 0;
    for (auto call = calls.cbegin(); call != calls.cend(); ++call) {
        if (!Sweep::isFull() && !ChangingCalls.contains(call.key()))
            continue;
        for (int when = 1; when <= *call; ++when) {
            makeFiles();
            const Run run = saveUnder(
                QStringLiteral("inject=%1:signal=KILL:when=%2").arg(call.key()).arg(when));
            if (run.code != Killed)
                break; // it came less often this time
            ++kills;
            const QString fault = faultAfterAKill();
            QVERIFY2(
                fault.isEmpty(),
                qPrintable(
                    QStringLiteral("%1 %2: %3").arg(call.key(), QString::number(when), fault)));
        }
    }
    QVERIFY(kills > 10);
    Sweep::report(QStringLiteral("A1 %1, %2: killed at %3 calls, nothing lost")
                      .arg(project, manner)
                      .arg(kills));
}

void tst_InterruptedSave::failedCallsLoseNothing_data()
{
    QTest::addColumn<QString>("project");
    QTest::addColumn<QString>("manner");
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("fault");
    const QStringList calls{"openat", "write",  "lseek",     "close",
                            "fsync",  "rename", "renameat2", "unlink"};
    const QStringList errors{"ENOSPC", "EIO", "EACCES", "EROFS"};
    if (Sweep::isFull()) {
        for (const char *project : {"small", "typical", "large"}) {
            for (const QString &call : calls) {
                for (const QString &error : errors)
                    addManners(project, call, error);
            }
        }
        return;
    }
    for (qsizetype i = 0; i < calls.size(); ++i)
        addManners("typical", calls.at(i), errors.at(i % errors.size()));
}

/// Each call fails once, in turn; then that one and all behind it.
void tst_InterruptedSave::failedCallsLoseNothing()
{
    QFETCH(QString, project);
    QFETCH(QString, manner);
    QFETCH(QString, call);
    QFETCH(QString, fault);
    begin(project, manner);
    // Most of them are the load's.
    const int step = call == "lseek" ? Sweep::count(9, 1) : 1;
    int runs = 0;
    for (const char *lasting : {"", "+"}) {
        for (int when = 1;; when += step) {
            makeFiles();
            const Run run = saveUnder(QStringLiteral("inject=%1:error=%2:when=%3%4")
                                          .arg(call, fault)
                                          .arg(when)
                                          .arg(lasting));
            const QString found = faultAfter(run, call, *lasting == '+');
            QVERIFY2(found.isEmpty(),
                     qPrintable(QStringLiteral("%1%2: %3").arg(when).arg(lasting, found)));
            if (!run.isInjected)
                break;
            ++runs;
        }
    }
    Sweep::report(QStringLiteral("A2 %1, %2, %3 %4: %5 saves, nothing lost")
                      .arg(project, manner, call, fault)
                      .arg(runs));
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QStringLiteral("--save")) {
        return loadEditAndSave(arguments.value(2), arguments.value(3),
                               arguments.value(4) == QStringLiteral("backup"));
    }
    tst_InterruptedSave test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_InterruptedSave.moc"
