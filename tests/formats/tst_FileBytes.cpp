#include "formats/FileBytes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

constexpr rlim_t SmallFile = 100'000; // bytes: past the first chunk, before the second

/// Lets no file of this process grow past a size, as a full disk would.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before;
    void (*m_handler)(int);
};

} // namespace

class tst_FileBytes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void readsWhatWasWritten_data();
    void readsWhatWasWritten();
    void writingReplacesALongerFile();
    void readsAFileOfExactlyTheLimit();
    void refusesAFileOverTheLimit();
    void refusesARawImportOver64MiB();
    void refusesToReadWhatIsNoRegularFile_data();
    void refusesToReadWhatIsNoRegularFile();
    void refusesToWriteWhatIsNoRegularFile_data();
    void refusesToWriteWhatIsNoRegularFile();
    void writesThroughALink();
    void reportsAWriteCutShort_data();
    void reportsAWriteCutShort();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    void makeOddFiles();
    static void nameOddFiles();

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_FileBytes::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_FileBytes::makeOddFiles()
{
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QVERIFY(QFile::link(path("pipe"), path("pipelink")));
    QVERIFY(QFile::link(path("loop"), path("loop")));
}

void tst_FileBytes::nameOddFiles()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("folder") << "folder";
    QTest::newRow("pipe") << "pipe";
    QTest::newRow("link to a pipe") << "pipelink";
    QTest::newRow("link to itself") << "loop";
    QTest::newRow("in a missing folder") << "missing/file";
}

void tst_FileBytes::readsWhatWasWritten_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("nothing") << 0;
    QTest::newRow("one byte") << 1;
    QTest::newRow("one chunk") << 65'536;
    QTest::newRow("one byte over a chunk") << 65'537;
    QTest::newRow("several chunks") << 300'000;
}

void tst_FileBytes::readsWhatWasWritten()
{
    QFETCH(int, size);
    QByteArray data(size, '\0');
    for (int i = 0; i < size; ++i)
        data[i] = static_cast<char>(i % 251);

    QVERIFY(FileBytes::write(path("data"), data));

    QCOMPARE(QFileInfo(path("data")).size(), qint64(size));
    const std::optional<QByteArray> read = FileBytes::read(path("data"));
    QVERIFY(read.has_value());
    QCOMPARE(*read, data);
}

void tst_FileBytes::writingReplacesALongerFile()
{
    QVERIFY(FileBytes::write(path("data"), "long content"));

    QVERIFY(FileBytes::write(path("data"), "short"));

    QCOMPARE(FileBytes::read(path("data")).value_or(QByteArray()), QByteArray("short"));
}

void tst_FileBytes::readsAFileOfExactlyTheLimit()
{
    QVERIFY(FileBytes::write(path("data"), "12345"));

    QCOMPARE(FileBytes::read(path("data"), 5).value_or(QByteArray()), QByteArray("12345"));
}

void tst_FileBytes::refusesAFileOverTheLimit()
{
    QVERIFY(FileBytes::write(path("data"), "123456"));

    QVERIFY(!FileBytes::read(path("data"), 5).has_value());
}

void tst_FileBytes::refusesARawImportOver64MiB()
{
    QFile sparse(path("huge"));
    QVERIFY(sparse.open(QIODevice::WriteOnly));
    QVERIFY(sparse.resize(64 * 1024 * 1024 + 1));
    sparse.close();

    QVERIFY(!FileBytes::read(path("huge")).has_value());
}

void tst_FileBytes::refusesToReadWhatIsNoRegularFile_data()
{
    nameOddFiles();
    QTest::newRow("missing") << "missing";
}

void tst_FileBytes::refusesToReadWhatIsNoRegularFile()
{
    QFETCH(QString, name);
    makeOddFiles();

    QVERIFY(!FileBytes::isRegular(path(name)));
    QVERIFY(!FileBytes::read(path(name)).has_value());
}

void tst_FileBytes::refusesToWriteWhatIsNoRegularFile_data()
{
    nameOddFiles();
}

void tst_FileBytes::refusesToWriteWhatIsNoRegularFile()
{
    QFETCH(QString, name);
    makeOddFiles();

    QVERIFY(!FileBytes::write(path(name), "data"));
}

void tst_FileBytes::writesThroughALink()
{
    QVERIFY(QFile::link(path("target"), path("link")));

    QVERIFY(FileBytes::write(path("link"), "data"));

    QVERIFY(QFileInfo(path("link")).isSymLink());
    QCOMPARE(FileBytes::read(path("target")).value_or(QByteArray()), QByteArray("data"));
}

void tst_FileBytes::reportsAWriteCutShort_data()
{
    QTest::addColumn<int>("size");
    // A small write waits in a buffer, so that only the flush meets the full disk.
    QTest::newRow("within the buffer") << 10;
    QTest::newRow("in the first chunk") << 60'000;
    QTest::newRow("in a later chunk") << 300'000;
}

void tst_FileBytes::reportsAWriteCutShort()
{
    QFETCH(int, size);
    const rlim_t limit = static_cast<rlim_t>(size) > SmallFile ? SmallFile : 5;

    bool written = true;
    {
        const FileSizeLimit full(limit);
        written = FileBytes::write(path("data"), QByteArray(size, 'x'));
    }

    QVERIFY(!written);
    QVERIFY(QFileInfo(path("data")).size() <= static_cast<qint64>(limit));
}

QTEST_GUILESS_MAIN(tst_FileBytes)
#include "tst_FileBytes.moc"
