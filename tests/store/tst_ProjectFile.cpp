#include "store/ProjectFile.h"

#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "store/ProjectStore.h"
#include "support/SmallDisk.h"

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

/// Saves that go wrong, and what is on the disk then.
class tst_ProjectFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aPlainSaveLeavesOnlyTheFile();
    void twoBackupsKeepTheNewestPreviousFile();
    void aFirstSaveMakesNoBackup();
    void saveAsOverAFileMakesNoBackup();
    void permissionsAreKept();
    void linksAreFollowedAndKept();
    void aLinkToNothingIsFilled();
    void longNamesCanBeSaved();

    void aFileCannotBeMadeThere_data();
    void aFileCannotBeMadeThere();
    void aFullDeviceIsReportedAndStays();
    void aReadOnlyFileStays();
    void tooMuchJsonIsNotWritten();
    void aPictureThatNoFileCanHoldIsNotWritten();
    void fullDisksLoseNothing_data();
    void fullDisksLoseNothing();
    void twoFailedSavesLeaveTheBackup();

    void anInterruptedSaveIsFoundAgain_data();
    void anInterruptedSaveIsFoundAgain();
    void loadingAnInterruptedSaveWritesNothing();
    void theNextSaveTidiesUpAnInterruptedOne();
    void aCompleteFileWinsOverItsSibling();
    void aDamagedSiblingIsNoHelp();

private:
    QString path(const QString &name = QStringLiteral("a.tessaril")) const
    {
        return m_folder->filePath(name);
    }
    QByteArray stored(const QString &name = QStringLiteral("a.tessaril")) const;
    void store(const QString &name, const QByteArray &bytes) const;
    QStringList files() const;
    bool save(const QString &projectName, bool backup = false);
    QString loadedName(const QString &fileName);
    void addNoise() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ProjectStore> m_store;
    QStringList m_errors;
};

namespace {

const QString NotCreated = QStringLiteral("Could not create the project file");
const QString Sibling = QStringLiteral(".a.tessaril.previous");

} // namespace

void tst_ProjectFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_store = std::make_unique<ProjectStore>();
    m_store->create("project");
    m_store->setFileName(path());
    m_errors.clear();
    connect(m_store.get(), &ProjectStore::saveError, this,
            [this](const QString &text) { m_errors += text; });
}

void tst_ProjectFile::cleanup()
{
    m_store.reset();
    m_folder.reset();
}

QByteArray tst_ProjectFile::stored(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_ProjectFile::store(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QStringList tst_ProjectFile::files() const
{
    return QDir(m_folder->path())
        .entryList(QDir::Files | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

bool tst_ProjectFile::save(const QString &projectName, bool backup)
{
    m_store->project()->setName(projectName);
    return m_store->save(backup);
}

/// The name of the project in a file, empty if none loads.
QString tst_ProjectFile::loadedName(const QString &fileName)
{
    ProjectStore store;
    return store.load(fileName) ? store.project()->name() : QString();
}

/// Makes the project larger than a few blocks, incompressibly.
void tst_ProjectFile::addNoise() const
{
    QRandomGenerator random(5);
    QImage noise(512, 512, QImage::Format_Indexed8);
    for (int y = 0; y < noise.height(); ++y) {
        for (int x = 0; x < noise.width(); ++x)
            noise.scanLine(y)[x] = static_cast<uchar>(random.bounded(256));
    }
    m_store->project()->setScratchImage(noise);
}

void tst_ProjectFile::aPlainSaveLeavesOnlyTheFile()
{
    QVERIFY(save("first"));
    QVERIFY(save("second"));

    QCOMPARE(files(), QStringList{"a.tessaril"});
    QCOMPARE(loadedName(path()), QStringLiteral("second"));
}

void tst_ProjectFile::twoBackupsKeepTheNewestPreviousFile()
{
    QVERIFY(save("first", true));
    const QByteArray first = stored();
    QVERIFY(save("second", true));
    QCOMPARE(stored("a.tessaril.bak"), first);
    const QByteArray second = stored();

    QVERIFY(save("third", true));

    QCOMPARE(stored("a.tessaril.bak"), second);
    QCOMPARE(files(), (QStringList{"a.tessaril", "a.tessaril.bak"}));
    QCOMPARE(loadedName(path()), QStringLiteral("third"));
}

void tst_ProjectFile::aFirstSaveMakesNoBackup()
{
    store("a.tessaril.bak", "kept");

    QVERIFY(save("first", true));

    QCOMPARE(stored("a.tessaril.bak"), QByteArray("kept"));
}

void tst_ProjectFile::saveAsOverAFileMakesNoBackup()
{
    store("a.tessaril", "something else");
    store("a.tessaril.bak", "kept");

    QVERIFY(save("first"));

    QCOMPARE(stored("a.tessaril.bak"), QByteArray("kept"));
    QCOMPARE(loadedName(path()), QStringLiteral("first"));
}

void tst_ProjectFile::permissionsAreKept()
{
    QVERIFY(save("first"));
    const auto own = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    QVERIFY(QFile::setPermissions(path(), own));

    QVERIFY(save("second"));
    QCOMPARE(QFile::permissions(path()), own);
    QVERIFY(save("third", true));
    QCOMPARE(QFile::permissions(path()), own);
}

void tst_ProjectFile::linksAreFollowedAndKept()
{
    QVERIFY(QDir(m_folder->path()).mkdir("real"));
    QVERIFY(QFile::link(path("real/target"), path("middle")));
    QVERIFY(QFile::link("middle", path()));
    store("real/target", "old");

    QVERIFY(save("first"));

    QVERIFY(QFileInfo(path()).isSymLink());
    QCOMPARE(loadedName(path("real/target")), QStringLiteral("first"));
    QVERIFY(save("second", true));
    QVERIFY(QFileInfo(path()).isSymLink());
    QCOMPARE(loadedName(path()), QStringLiteral("second"));
    QCOMPARE(loadedName(path("a.tessaril.bak")), QStringLiteral("first"));
    QVERIFY(!QFileInfo(path("a.tessaril.bak")).isSymLink());
}

void tst_ProjectFile::aLinkToNothingIsFilled()
{
    QVERIFY(QFile::link(path("target"), path()));

    QVERIFY(save("first"));

    QCOMPARE(loadedName(path("target")), QStringLiteral("first"));
}

void tst_ProjectFile::longNamesCanBeSaved()
{
    const QString name = QString(240, u'n') + ".tessaril";
    m_store->setFileName(path(name));

    QVERIFY(save("first"));
    QVERIFY(save("second"));

    QCOMPARE(files(), QStringList{name});
    QCOMPARE(loadedName(path(name)), QStringLiteral("second"));
}

void tst_ProjectFile::aFileCannotBeMadeThere_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::newRow("no name") << QString();
    QTest::newRow("missing folder") << "missing/a.tessaril";
    QTest::newRow("below a file") << "file/a.tessaril";
    QTest::newRow("a folder") << "folder";
    QTest::newRow("a pipe") << "pipe";
    QTest::newRow("a circle of links") << "circle";
    QTest::newRow("the kernel's folder") << "/proc/a.tessaril";
}

void tst_ProjectFile::aFileCannotBeMadeThere()
{
    QFETCH(QString, fileName);
    store("file", "content");
    QVERIFY(QDir(m_folder->path()).mkdir("folder"));
    QCOMPARE(mkfifo(qPrintable(path("pipe")), 0600), 0);
    QVERIFY(QFile::link("circle", path("circle")));
    const QStringList before =
        QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
    const bool isWhole = fileName.isEmpty() || fileName.startsWith('/');
    m_store->setFileName(isWhole ? fileName : path(fileName));

    QVERIFY(!save("first", false));
    QVERIFY(!save("first", true));

    QCOMPARE(m_errors, (QStringList{NotCreated, NotCreated}));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System),
             before);
    QVERIFY(m_store->project());
}

void tst_ProjectFile::aFullDeviceIsReportedAndStays()
{
#ifdef Q_OS_LINUX
    m_store->setFileName("/dev/full");

    QVERIFY(!save("first", true));
    addNoise();
    QVERIFY(!save("first", false));

    QCOMPARE(m_errors, (QStringList{"Could not finish writing the project file",
                                    "Could not write scratch.png"}));
    QVERIFY(QFile::exists("/dev/full"));
    QVERIFY(!QFile::exists("/dev/full.bak"));
#endif
}

void tst_ProjectFile::aReadOnlyFileStays()
{
    QVERIFY(save("first"));
    const QByteArray first = stored();
    // The mode of a file binds all but the superuser, whom only the attribute stops.
    QVERIFY(QFile::setPermissions(path(), QFile::ReadOwner));
    const bool isSuperuser = geteuid() == 0;
    if (isSuperuser && QProcess::execute("chattr", {"+i", path()}) != 0)
        return; // This file system has no such attribute; the rows above cover the refusal.

    const bool saved = save("second", true) || save("second", false);
    if (isSuperuser)
        QProcess::execute("chattr", {"-i", path()});

    QVERIFY(!saved);
    QCOMPARE(m_errors, (QStringList{NotCreated, NotCreated}));
    QCOMPARE(stored(), first);
    QCOMPARE(files(), QStringList{"a.tessaril"});
}

void tst_ProjectFile::tooMuchJsonIsNotWritten()
{
    QVERIFY(save("first"));

    QVERIFY(!save(QString(64 * 1024 * 1024, u'n')));
    // Each brace counts as an object until it is parsed.
    QVERIFY(!save(QString(2 * 1024 * 1024, u'{')));

    QCOMPARE(m_errors,
             (QStringList{"Could not write project.json", "Could not write project.json"}));
    QCOMPARE(files(), QStringList{"a.tessaril"});
    QCOMPARE(loadedName(path()), QStringLiteral("first"));
}

void tst_ProjectFile::aPictureThatNoFileCanHoldIsNotWritten()
{
    QVERIFY(save("first"));
    const auto bank =
        m_store->project()->createSpriteBank(Tessaril::Sprite::EightBit, "high", QUuid());
    QImage strip(16, 1'000'016, QImage::Format_Indexed8); // one sprite more than a PNG can have
    strip.fill(1);
    bank->setStrip(strip);

    QVERIFY(!save("second"));
    QVERIFY(!save("second", true));

    const QString error = "Could not write sprite/" + bank->id().toString() + ".png";
    QCOMPARE(m_errors, (QStringList{error, error}));
    QCOMPARE(loadedName(path("a.tessaril.bak")), QStringLiteral("first"));
    QVERIFY(m_store->project()->deleteSpriteBank(bank->id()));
    QVERIFY(save("third"));
    QCOMPARE(loadedName(path()), QStringLiteral("third"));
}

void tst_ProjectFile::fullDisksLoseNothing_data()
{
    QTest::addColumn<bool>("backup");
    QTest::newRow("without backup") << false;
    QTest::newRow("with backup") << true;
}

/// A small file system that is filled more and more: every save either works or leaves the old
/// content and no crumbs.
void tst_ProjectFile::fullDisksLoseNothing()
{
#ifdef Q_OS_LINUX
    QFETCH(bool, backup);
    const SmallDisk disk(m_folder->path());
    if (!disk.isMounted())
        return; // aFullDeviceIsReportedAndStays() stands for it where nothing can be mounted.
    QVERIFY(save("old"));
    addNoise(); // some 270,000 bytes
    int failed = 0;
    for (int free = 0; free < 320; free += 16) {
        const qint64 left = QStorageInfo(m_folder->path()).bytesAvailable();
        store("filler", QByteArray(std::max<qint64>(0, left - free * 1024), 'f'));
        m_errors.clear();
        if (save("new", backup))
            break;
        ++failed;
        QCOMPARE(m_errors.size(), 1);
        QVERIFY(m_errors.first().startsWith("Could not "));
        const QString name = QFile::exists(path()) ? path() : path("a.tessaril.bak");
        QCOMPARE(loadedName(name), QStringLiteral("old"));
        QCOMPARE(files().size(), 2); // the filler and the one good file
        QFile::remove(path("filler"));
    }
    QFile::remove(path("filler"));
    QVERIFY(failed > 3);
    QVERIFY(save("newest", backup));
    QCOMPARE(loadedName(path()), QStringLiteral("newest"));
#endif
}

void tst_ProjectFile::twoFailedSavesLeaveTheBackup()
{
    QVERIFY(save("old", true));
    // The JSON is too large to be written, so both saves fail after the old file was moved.
    const QString much(64 * 1024 * 1024, u'n');

    QVERIFY(!save(much, true));
    QCOMPARE(files(), QStringList{"a.tessaril.bak"});
    QVERIFY(!save(much, true));

    QCOMPARE(files(), QStringList{"a.tessaril.bak"});
    QCOMPARE(loadedName(path("a.tessaril.bak")), QStringLiteral("old"));
    QVERIFY(save("new", true));
    QCOMPARE(files(), (QStringList{"a.tessaril", "a.tessaril.bak"}));
    QCOMPARE(loadedName(path()), QStringLiteral("new"));
    QCOMPARE(loadedName(path("a.tessaril.bak")), QStringLiteral("old"));
}

void tst_ProjectFile::anInterruptedSaveIsFoundAgain_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("before the new file was made") << -1;
    QTest::newRow("before anything was written") << 0;
    QTest::newRow("in the midst of writing") << 100;
}

void tst_ProjectFile::anInterruptedSaveIsFoundAgain()
{
    QFETCH(int, size);
    QVERIFY(save("old"));
    const QByteArray old = stored();
    QVERIFY(QFile::rename(path(), path(Sibling)));
    if (size >= 0)
        store("a.tessaril", old.left(size));
    QStringList errors;
    ProjectStore other;
    connect(&other, &ProjectStore::loadError, this, [&](const QString &text) { errors += text; });

    QVERIFY(other.load(path()));

    QCOMPARE(other.project()->name(), QStringLiteral("old"));
    QCOMPARE(other.fileName(), path());
    QCOMPARE(errors, QStringList());
}

void tst_ProjectFile::loadingAnInterruptedSaveWritesNothing()
{
    QVERIFY(save("old"));
    QVERIFY(QFile::rename(path(), path(Sibling)));
    store("a.tessaril", "part");

    QCOMPARE(loadedName(path()), QStringLiteral("old"));

    QCOMPARE(files(), (QStringList{Sibling, "a.tessaril"}));
    QCOMPARE(stored(), QByteArray("part"));
}

void tst_ProjectFile::theNextSaveTidiesUpAnInterruptedOne()
{
    QVERIFY(save("old"));
    const QByteArray old = stored();
    QVERIFY(QFile::rename(path(), path(Sibling)));
    store("a.tessaril", "part");

    QVERIFY(save("new", true));

    QCOMPARE(files(), (QStringList{"a.tessaril", "a.tessaril.bak"}));
    QCOMPARE(stored("a.tessaril.bak"), old);
    QCOMPARE(loadedName(path()), QStringLiteral("new"));
}

void tst_ProjectFile::aCompleteFileWinsOverItsSibling()
{
    QVERIFY(save("older"));
    QVERIFY(QFile::rename(path(), path(Sibling)));
    m_store->setFileName(path("b"));
    QVERIFY(save("newer"));
    QVERIFY(QFile::rename(path("b"), path()));
    m_store->setFileName(path());

    QCOMPARE(loadedName(path()), QStringLiteral("newer"));
    QVERIFY(save("newest", true));

    QCOMPARE(files(), (QStringList{"a.tessaril", "a.tessaril.bak"}));
    QCOMPARE(loadedName(path("a.tessaril.bak")), QStringLiteral("newer"));
}

void tst_ProjectFile::aDamagedSiblingIsNoHelp()
{
    store(Sibling, "part");
    QStringList errors;
    ProjectStore other;
    connect(&other, &ProjectStore::loadError, this, [&](const QString &text) { errors += text; });

    QVERIFY(!other.load(path()));

    QCOMPARE(errors, QStringList{"Invalid project file"});
    QVERIFY(!other.project());
}

QTEST_GUILESS_MAIN(tst_ProjectFile)
#include "tst_ProjectFile.moc"
