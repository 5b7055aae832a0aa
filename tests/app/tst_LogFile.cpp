#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

/// Runs a program that writes one message of each type, in a working directory of the test's own.
class tst_LogFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void withoutTheFolderNothingIsWrittenAndQtsFormatStays();
    void withTheFolderEachMessageIsALineInTheFile();
    void withTheFolderMessagesReachTheConsoleByType();
    void warningsOfLibpngAreDroppedOnlyAtTheirBeginning();
    void aFatalMessageIsWrittenBeforeTheAbort();
    void aFileThatCannotBeOpenedIsToldAndTheConsoleContinues();
    void aSecondStartInTheSameSecondTruncatesTheFile();

private:
    void run(const QStringList &arguments = {});
    QStringList logLines() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_output;
    QString m_errors;
};

void tst_LogFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_LogFile::run(const QStringList &arguments)
{
    QProcess process;
    process.setWorkingDirectory(m_folder->path());
    process.start(QStringLiteral(LOGPROBE), arguments);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(),
             arguments.isEmpty() ? QProcess::NormalExit : QProcess::CrashExit);
    m_output = QString::fromLocal8Bit(process.readAllStandardOutput());
    m_errors = QString::fromLocal8Bit(process.readAllStandardError());
}

QStringList tst_LogFile::logLines() const
{
    const QDir log(m_folder->filePath("log"));
    const QStringList names = log.entryList(QDir::Files);
    if (names.isEmpty())
        return {};
    QFile file(log.filePath(names.first()));
    return file.open(QIODevice::ReadOnly)
               ? QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts)
               : QStringList();
}

void tst_LogFile::withoutTheFolderNothingIsWrittenAndQtsFormatStays()
{
    run();

    QVERIFY(QDir(m_folder->path()).isEmpty());
    QVERIFY2(m_errors.contains("\nnews\n"), qPrintable(m_errors));
    QVERIFY(!m_errors.contains("Info: news"));
    QCOMPARE(m_output, QString());
}

void tst_LogFile::withTheFolderEachMessageIsALineInTheFile()
{
    QVERIFY(QDir(m_folder->path()).mkdir("log"));

    run();

    const QStringList names = QDir(m_folder->filePath("log")).entryList(QDir::Files);
    QCOMPARE(names.size(), 1);
    const QRegularExpression name("^application_\\d{8}_\\d{6}\\.log$");
    QVERIFY2(name.match(names.first()).hasMatch(), qPrintable(names.first()));
    const QStringList endings = {" Debug: fine detail", " Info: news",
                                 " Warning: a libpng warning: in the middle",
                                 " Critical: libpng warning: but critical"};
    const QStringList lines = logLines();
    QCOMPARE(lines.size(), endings.size());
    const QRegularExpression time("^\\d\\d:\\d\\d:\\d\\d$");
    for (int i = 0; i < lines.size(); ++i) {
        QVERIFY(time.match(lines.at(i).left(8)).hasMatch());
        QCOMPARE(lines.at(i).mid(8), endings.at(i));
    }
}

void tst_LogFile::withTheFolderMessagesReachTheConsoleByType()
{
    QVERIFY(QDir(m_folder->path()).mkdir("log"));

    run();

    QCOMPARE(m_output, QString("Debug: fine detail\nInfo: news\n"));
    QCOMPARE(m_errors, QString("Warning: a libpng warning: in the middle\n"
                               "Critical: libpng warning: but critical\n"));
}

void tst_LogFile::warningsOfLibpngAreDroppedOnlyAtTheirBeginning()
{
    QVERIFY(QDir(m_folder->path()).mkdir("log"));

    run();

    QVERIFY(!logLines().join('\n').contains("sRGB"));
    QVERIFY(!m_errors.contains("sRGB"));
}

void tst_LogFile::aFatalMessageIsWrittenBeforeTheAbort()
{
    QVERIFY(QDir(m_folder->path()).mkdir("log"));

    run({"fatal"});

    const QStringList lines = logLines();
    QCOMPARE(lines.size(), 5);
    QCOMPARE(lines.last().mid(8), QString(" Fatal: the end"));
    QVERIFY2(m_errors.contains("\nFatal: the end\n"), qPrintable(m_errors));
}

void tst_LogFile::aFileThatCannotBeOpenedIsToldAndTheConsoleContinues()
{
    // A folder that exists and takes no files, whoever asks.
    QVERIFY(QFile::link("/proc/self", m_folder->filePath("log")));

    run();

    const QRegularExpression told("^Could not open log/application_\\d{8}_\\d{6}\\.log\n"
                                  "Warning: a libpng warning: in the middle\n"
                                  "Critical: libpng warning: but critical\n$");
    QVERIFY2(told.match(m_errors).hasMatch(), qPrintable(m_errors));
    QCOMPARE(m_output, QString("Debug: fine detail\nInfo: news\n"));
}

void tst_LogFile::aSecondStartInTheSameSecondTruncatesTheFile()
{
    QVERIFY(QDir(m_folder->path()).mkdir("log"));

    // Two starts can straddle a second; then there are two files, and the next pair decides.
    QTRY_VERIFY_WITH_TIMEOUT(
        [this] {
            QDir(m_folder->filePath("log")).removeRecursively();
            QDir(m_folder->path()).mkdir("log");
            run();
            run();
            return QDir(m_folder->filePath("log")).entryList(QDir::Files).size() == 1;
        }(),
        10000);
    QCOMPARE(logLines().size(), 4);
}

QTEST_GUILESS_MAIN(tst_LogFile)
#include "tst_LogFile.moc"
