#include "Sweep.h"

#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/TileSet.h"
#include "store/ProjectStore.h"
#include "store/ZipFile.h"
#include "support/SmallDisk.h"
#include "support/TestFiles.h"
#include "support/TestProjects.h"
#include "support/ZipBytes.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QTest>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

/// Disks that fill up, vanish or cannot be written: a save or an export answers at once, says what
/// the user is to know, and loses nothing.
class tst_SavePlaces : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void saveAfterSaveOnAFullDiskLosesNothing_data();
    void saveAfterSaveOnAFullDiskLosesNothing();
    void aReadOnlyDiskKeepsTheOldProject();
    void aFolderThatVanishesIsRefusedUntilItIsBack();
    void aSocketIsNeitherWrittenNorRead();
    void exportsThatCannotBeWrittenAreNeverCalledDone_data();
    void exportsThatCannotBeWrittenAreNeverCalledDone();
    void surroundingsDoNotChangeTheBytes_data();
    void surroundingsDoNotChangeTheBytes();

private:
    QString path(const QString &name = QStringLiteral("a.tessaril")) const
    {
        return m_folder->filePath(name);
    }
    QString loadable() const;
    bool save(const QString &name, bool backup);
    QString everyExport(const QString &folder);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ProjectStore> m_store;
    QStringList m_errors;
    QStringList m_messages;
};

namespace {

constexpr int MaxMs = 5000; // waiting, on a machine that others use
const QString NotCreated = QStringLiteral("Could not create the project file");

QString loadedName(const QString &fileName)
{
    ProjectStore store;
    return store.load(fileName) ? store.project()->name() : QString();
}

/// The entries of an archive by name. The frames of sprite animations have new ids after each load,
/// so every id but those in names counts as the same.
TestProjects::Entries entriesOf(const QString &fileName)
{
    static const QRegularExpression id(QStringLiteral("\\{[0-9a-f-]{36}\\}"));
    TestProjects::Entries entries;
    ZipFile zip;
    if (!zip.open(fileName))
        return entries;
    for (const QByteArray &name : ZipBytes::names(TestFiles::contents(fileName)))
        entries[QString::fromUtf8(name)] = zip.read(QString::fromUtf8(name));
    QByteArray &json = entries[QStringLiteral("project.json")];
    json = QString::fromUtf8(json).replace(id, QStringLiteral("id")).toUtf8();
    return entries;
}

/// What the second run of this program does: loads, saves, and says nothing.
int loadAndSave(const QString &from, const QString &to)
{
    ProjectStore store;
    if (!store.load(from))
        return 1;
    store.setFileName(to);
    return store.save(false) ? 0 : 2;
}

} // namespace

void tst_SavePlaces::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_store = std::make_unique<ProjectStore>();
    TestProjects::fill(m_store->create(QStringLiteral("old")));
    m_store->setFileName(path());
    m_errors.clear();
    m_messages.clear();
    connect(m_store.get(), &ProjectStore::saveError, this,
            [this](const QString &text) { m_errors += text; });
    connect(m_store.get(), &ProjectStore::showMessage, this,
            [this](const QString &text) { m_messages += text; });
}

bool tst_SavePlaces::save(const QString &name, bool backup)
{
    m_store->project()->setName(name);
    return m_store->save(backup);
}

/// The name of the project that a user finds again.
QString tst_SavePlaces::loadable() const
{
    const QString name = loadedName(path());
    return name.isEmpty() ? loadedName(path(QStringLiteral("a.tessaril.bak"))) : name;
}

void tst_SavePlaces::saveAfterSaveOnAFullDiskLosesNothing_data()
{
    QTest::addColumn<bool>("backup");
    QTest::newRow("without backup") << false;
    QTest::newRow("with backup") << true;
}

void tst_SavePlaces::saveAfterSaveOnAFullDiskLosesNothing()
{
    QFETCH(bool, backup);
    SmallDisk disk(m_folder->path(), QStringLiteral("200k"));
    if (!disk.isMounted())
        return; // Failing writes are injected by another test where nothing can be mounted.
    QVERIFY(save("old", backup));
    const qint64 size = QFileInfo(path()).size();
    int failed = 0;
    for (qint64 free = 0; free <= size + 8192; free += Sweep::count(8192, 4096)) {
        const qint64 left = QStorageInfo(m_folder->path()).bytesAvailable();
        QVERIFY(TestFiles::make(path("filler"), QByteArray(std::max<qint64>(0, left - free), 'f')));
        const QString before = loadable();
        for (int again = 0; again < 3; ++again) {
            const QString name = QStringLiteral("new %1 %2").arg(free).arg(again);
            const bool saved = save(name, backup != (again == 1));
            failed += saved ? 0 : 1;
            const QString now = loadable();
            QVERIFY2(now == (saved ? name : before) || now.startsWith("new"), qPrintable(now));
            QVERIFY(!now.isEmpty());
        }
        QVERIFY(QFile::remove(path("filler")));
        QVERIFY(save("good", backup));
        QCOMPARE(loadedName(path()), QStringLiteral("good"));
    }
    QVERIFY(failed > 2);
    QCOMPARE(m_errors.size(), failed);
    Sweep::report(QStringLiteral("A3, A4: %1 saves failed on a full disk").arg(failed));
}

void tst_SavePlaces::aReadOnlyDiskKeepsTheOldProject()
{
    SmallDisk disk(m_folder->path());
    if (!disk.isMounted())
        return; // Nothing else makes the superuser's file system one to read from only.
    QVERIFY(save("old", false));
    QVERIFY(disk.setReadOnly(true));

    QVERIFY(!save("new", true));
    QVERIFY(!save("new", false));

    QCOMPARE(m_errors, (QStringList{NotCreated, NotCreated}));
    QCOMPARE(loadedName(path()), QStringLiteral("old"));
    QCOMPARE(m_store->project()->name(), QStringLiteral("new"));
    QVERIFY(disk.setReadOnly(false));
    QVERIFY(save("new", false));
    QCOMPARE(loadedName(path()), QStringLiteral("new"));
}

void tst_SavePlaces::aFolderThatVanishesIsRefusedUntilItIsBack()
{
    m_store->setFileName(path("sub/a.tessaril"));
    QVERIFY(QDir(m_folder->path()).mkdir("sub"));
    QVERIFY(save("old", false));
    QVERIFY(QDir(path("sub")).removeRecursively());

    QVERIFY(!save("new", true));

    QCOMPARE(m_errors, QStringList{NotCreated});
    QVERIFY(!QFileInfo::exists(path("sub")));
    QVERIFY(QDir(m_folder->path()).mkdir("sub"));
    QVERIFY(save("new", true));
    QCOMPARE(loadedName(path("sub/a.tessaril")), QStringLiteral("new"));
}

void tst_SavePlaces::aSocketIsNeitherWrittenNorRead()
{
    const int handle = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, qPrintable(path()), sizeof(address.sun_path));
    QCOMPARE(bind(handle, reinterpret_cast<sockaddr *>(&address), sizeof(address)), 0);
    QElapsedTimer clock;
    clock.start();

    QVERIFY(!save("new", true));
    QCOMPARE(loadedName(path()), QString());

    QVERIFY(clock.elapsed() < MaxMs);
    QCOMPARE(m_errors, QStringList{NotCreated});
    QVERIFY(QFileInfo::exists(path()));
    ::close(handle);
}

/// Does the three exports into a folder; what they say.
QString tst_SavePlaces::everyExport(const QString &folder)
{
    m_errors.clear();
    m_messages.clear();
    Project *project = m_store->project();
    m_store->exportMap(folder, project->maps().first()->id());
    m_store->exportTiles(folder, project->tileSets().first()->id());
    m_store->exportPalette(folder, project->palettes().first()->id());
    return (m_errors + m_messages).join(QStringLiteral("; "));
}

void tst_SavePlaces::exportsThatCannotBeWrittenAreNeverCalledDone_data()
{
    QTest::addColumn<QString>("place");
    for (const char *place : {"full", "read-only", "missing", "a file"})
        QTest::newRow(place) << QString::fromLatin1(place);
}

void tst_SavePlaces::exportsThatCannotBeWrittenAreNeverCalledDone()
{
    QFETCH(QString, place);
    const QString folder = path(QStringLiteral("exports"));
    QVERIFY(QDir().mkdir(folder));
    SmallDisk disk(folder, QStringLiteral("64k"));
    if (!disk.isMounted())
        return; // Missing folders and failing writes have tests of their own beside the exports.
    QString to = folder;
    if (place == QLatin1String("full")) {
        for (int i = 0; QStorageInfo(folder).bytesAvailable() > 0 && i < 64; ++i)
            QVERIFY(TestFiles::make(folder + "/" + QString::number(i), QByteArray(4096, 'f')));
    } else if (place == QLatin1String("read-only")) {
        QVERIFY(disk.setReadOnly(true));
    } else {
        to = folder + QStringLiteral("/sub");
        if (place == QLatin1String("a file"))
            QVERIFY(TestFiles::make(to, "content"));
    }

    QCOMPARE(everyExport(to), QStringLiteral("Exporting the map failed; Exporting the tile set "
                                             "failed; Exporting the palette failed"));
}

void tst_SavePlaces::surroundingsDoNotChangeTheBytes_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    for (const char *locale : {"C", "C.UTF-8", "de_DE.UTF-8", "tr_TR.UTF-8", "ar_EG.UTF-8"})
        QTest::newRow(locale) << "LC_ALL" << locale;
    QTest::newRow("no home") << "HOME"
                             << "/nowhere";
    QTest::newRow("the kernel's home") << "HOME"
                                       << "/proc";
}

void tst_SavePlaces::surroundingsDoNotChangeTheBytes()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    m_store->project()->setName(QStringLiteral("\u0130I\u0131i 1,5 \u00df"));
    QVERIFY(m_store->save(false));
    const auto savedIn = [&](const QString &variable, const QString &content) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(variable, content);
        environment.insert(QStringLiteral("QT_HASH_SEED"), QStringLiteral("0"));
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QCoreApplication::applicationFilePath(),
                      {"--save", path(), path(QStringLiteral("copy"))});
        const bool saved = process.waitForFinished() && process.exitCode() == 0;
        return saved ? entriesOf(path(QStringLiteral("copy"))) : TestProjects::Entries();
    };
    const auto plain = savedIn(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    QVERIFY(plain.size() > 4);
    QVERIFY(plain.value("project.json").contains("\u0130I\u0131i 1,5 \u00df"));

    QVERIFY(savedIn(key, value) == plain);
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--save"))
        return loadAndSave(arguments.value(2), arguments.value(3));
    tst_SavePlaces test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_SavePlaces.moc"
