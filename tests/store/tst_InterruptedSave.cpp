#include "store/ProjectFile.h"

#include "model/Project.h"
#include "store/ProjectStore.h"
#include "support/TestProjects.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

/// Saves that are killed, or fail, at one system call after the other: strace stands between a
/// second run of this program, which loads, edits and saves, and the kernel.
class tst_InterruptedSave : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aKilledSaveLeavesALoadableProject_data();
    void aKilledSaveLeavesALoadableProject();
    void aFailedCallLosesNothing_data();
    void aFailedCallLosesNothing();

private:
    QString path() const { return m_folder->filePath(QStringLiteral("a.tessaril")); }
    int saveUnder(const QString &injection, bool backup);
    QString survivor() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    bool m_isInjected = false; ///< the call came often enough in the last run
};

namespace {

// What the second run says of itself.
constexpr int Saved = 77;
constexpr int Refused = 78;
constexpr int Killed = -1;

/// The name of the project in a file, empty if none loads.
QString loadedName(const QString &fileName)
{
    ProjectStore store;
    return store.load(fileName) ? store.project()->name() : QString();
}

/// What the second run does.
int loadEditAndSave(const QString &fileName, bool backup)
{
    ProjectStore store;
    if (!store.load(fileName))
        return 1;
    store.project()->setName(QStringLiteral("new"));
    return store.save(backup) ? Saved : Refused;
}

} // namespace

void tst_InterruptedSave::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    ProjectStore store;
    TestProjects::fill(store.create(QStringLiteral("old")));
    store.project()->setName(QStringLiteral("old"));
    store.setFileName(path());
    QVERIFY(store.save(false));
}

/// Runs the second program under an injection; its exit code, or Killed.
int tst_InterruptedSave::saveUnder(const QString &injection, bool backup)
{
    const QTemporaryDir outside;
    const QString trace = outside.filePath(QStringLiteral("trace"));
    QProcess process;
    // A traced program cannot look for its leaks.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral("strace"),
                  {"-qq", "-o", trace, "-P", path(), "-P", ProjectFile::siblingOf(path()), "-P",
                   path() + ".bak", "-P", m_folder->path(), "-e", "inject=" + injection,
                   QCoreApplication::applicationFilePath(), "--save", path(),
                   backup ? "backup" : "plain"});
    if (!process.waitForFinished())
        return -2;
    QFile file(trace);
    m_isInjected = file.open(QIODevice::ReadOnly) && file.readAll().contains("(INJECTED)");
    if (process.exitStatus() == QProcess::CrashExit)
        m_isInjected = true;
    return process.exitStatus() == QProcess::CrashExit ? Killed : process.exitCode();
}

/// The project that a user finds again: that of the file, else that of the backup.
QString tst_InterruptedSave::survivor() const
{
    const QString name = loadedName(path());
    return name.isEmpty() ? loadedName(path() + ".bak") : name;
}

void tst_InterruptedSave::aKilledSaveLeavesALoadableProject_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<bool>("backup");
    for (const char *call :
         {"openat", "write", "fsync", "rename", "renameat2", "unlink", "close"}) {
        QTest::addRow("%s, plain", call) << QString::fromLatin1(call) << false;
        QTest::addRow("%s, backup", call) << QString::fromLatin1(call) << true;
    }
}

void tst_InterruptedSave::aKilledSaveLeavesALoadableProject()
{
    QFETCH(QString, call);
    QFETCH(bool, backup);
    for (int when = 1;; ++when) {
        init();
        const int code =
            saveUnder(QStringLiteral("%1:signal=KILL:when=%2").arg(call).arg(when), backup);
        const QString name = survivor();
        const QByteArray place = (call + ' ' + QString::number(when) + ": " + name).toUtf8();
        QVERIFY2(name == QStringLiteral("old") || name == QStringLiteral("new"), place);
        if (code != Killed) {
            QCOMPARE(code, Saved);
            QCOMPARE(name, QStringLiteral("new"));
            return;
        }
        ProjectStore store;
        store.create(QStringLiteral("again"));
        store.setFileName(path());
        QVERIFY2(store.save(backup), place);
        QCOMPARE(loadedName(path()), QStringLiteral("again"));
    }
}

void tst_InterruptedSave::aFailedCallLosesNothing_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("error");
    QTest::addColumn<bool>("backup");
    const QList<QPair<QString, QString>> faults{
        {"openat", "EACCES"}, {"openat", "EROFS"}, {"write", "ENOSPC"},  {"write", "EIO"},
        {"fsync", "EIO"},     {"fsync", "ENOSPC"}, {"rename", "EACCES"}, {"renameat2", "EIO"},
        {"close", "EIO"},     {"lseek", "EIO"}};
    for (const auto &[call, error] : faults) {
        QTest::addRow("%s, plain", qPrintable(call + ' ' + error)) << call << error << false;
        QTest::addRow("%s, backup", qPrintable(call + ' ' + error)) << call << error << true;
    }
}

void tst_InterruptedSave::aFailedCallLosesNothing()
{
    QFETCH(QString, call);
    QFETCH(QString, error);
    QFETCH(bool, backup);
    for (int when = 1;; ++when) {
        init();
        const int code =
            saveUnder(QStringLiteral("%1:error=%2:when=%3").arg(call, error).arg(when), backup);
        const QString name = survivor();
        const QByteArray place =
            QStringLiteral("%1 %2: %3 %4").arg(call).arg(when).arg(code).arg(name).toUtf8();
        QVERIFY2(name == (code == Saved ? QStringLiteral("new") : QStringLiteral("old")), place);
        const qsizetype files = QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden).size();
        QVERIFY2(files == (backup && code == Saved ? 2 : 1), place);
        if (!m_isInjected)
            return;
    }
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QStringLiteral("--save"))
        return loadEditAndSave(arguments.value(2), arguments.value(3) == QStringLiteral("backup"));
    tst_InterruptedSave test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_InterruptedSave.moc"
