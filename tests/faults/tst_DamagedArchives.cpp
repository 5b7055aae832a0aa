#include "Sweep.h"

#include "model/Project.h"
#include "store/ProjectStore.h"
#include "support/ProjectDifferences.h"
#include "support/TestFiles.h"
#include "support/TestProjects.h"
#include "support/UseProject.h"
#include "support/ZipBytes.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

using TestProjects::Entries;

/// Project files cut short, with flipped bits, and with entries lost or swapped: each is refused or
/// loads, and what loads is a project like any other.
class tst_DamagedArchives : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aCutFileIsRefused_data() { addProjects(); }
    void aCutFileIsRefused();
    void flippedBitsAreRefusedOrHarmless_data() { addProjects(); }
    void flippedBitsAreRefusedOrHarmless();
    void flippedBitsBehindRightChecksumsAreRefusedOrHarmless_data() { addProjects(); }
    void flippedBitsBehindRightChecksumsAreRefusedOrHarmless();
    void aLostEntryFailsWithItsMessage_data() { addLosses(); }
    void aLostEntryFailsWithItsMessage();
    void everyOtherEntrysContentFailsOrLoads();

private:
    using Damage = std::function<QByteArray(QRandomGenerator *)>;

    static void addProjects();
    static void addLosses();
    QString path() const { return m_folder->filePath(QStringLiteral("a.tessaril")); }
    bool load(const QByteArray &file);
    bool isHarmless(const QByteArray &file, int *accepted);
    void sweep(const QString &what, int rounds, const Damage &damaged);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ProjectStore> m_store;
    QStringList m_errors;
};

namespace {

constexpr int MaxLoadMs = 1000;
constexpr int MaxMegabytes = 512;

QByteArray archiveOf(const Entries &entries)
{
    QList<ZipBytes::Entry> list;
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry)
        list.append({entry.key().toUtf8(), *entry});
    return ZipBytes::archive(list);
}

Entries richEntries()
{
    Project project;
    TestProjects::fill(&project);
    return project.archiveEntries(true);
}

Entries largeEntries()
{
    Project project;
    TestProjects::fillLarge(&project);
    return project.archiveEntries(true);
}

const QMap<QString, Entries> &projects()
{
    static const QMap<QString, Entries> all{{"small", Project().archiveEntries(true)},
                                            {"typical", richEntries()},
                                            {"large", largeEntries()}};
    return all;
}

void flip(QByteArray *bytes, QRandomGenerator *random)
{
    for (int flips = random->bounded(1, 5); flips > 0 && !bytes->isEmpty(); --flips)
        (*bytes)[random->bounded(int(bytes->size()))] ^= char(1 << random->bounded(8));
}

} // namespace

void tst_DamagedArchives::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_store = std::make_unique<ProjectStore>();
    m_errors.clear();
    connect(m_store.get(), &ProjectStore::loadError, this,
            [this](const QString &text) { m_errors += text; });
}

void tst_DamagedArchives::addProjects()
{
    QTest::addColumn<QString>("project");
    for (auto entry = projects().cbegin(); entry != projects().cend(); ++entry)
        QTest::newRow(qPrintable(entry.key())) << entry.key();
}

bool tst_DamagedArchives::load(const QByteArray &file)
{
    m_errors.clear();
    return TestFiles::make(path(), file) && m_store->load(path());
}

/// Whether a file is refused in words, or accepted as what saves, loads and can be worked with;
/// either in due time.
bool tst_DamagedArchives::isHarmless(const QByteArray &file, int *accepted)
{
    const qint64 start = Sweep::usedMs();
    const bool loaded = load(file);
    const bool inTime = Sweep::usedMs() - start < MaxLoadMs * (Sweep::peakMegabytes() ? 1 : 20);
    if (!loaded)
        return inTime && m_errors.size() == 1 && !m_errors.first().isEmpty() && !m_store->project();

    ++*accepted;
    Project copy;
    QString error;
    const Entries saved = m_store->project()->archiveEntries(true);
    if (!copy.load(TestProjects::reader(saved), &error))
        return false;
    QStringList differences = ProjectDifferences::between(*m_store->project(), copy);
    // A load gives what it lacks of the scratch: the colours, and a palette.
    differences.removeAll(QStringLiteral("scratch image"));
    differences.removeAll(QStringLiteral("scratch palette"));
    useProject(&copy);
    return inTime && differences.isEmpty() && saved == m_store->project()->archiveEntries(true);
}

void tst_DamagedArchives::aCutFileIsRefused()
{
    QFETCH(QString, project);
    const QByteArray whole = archiveOf(projects().value(project));
    const qsizetype step = Sweep::count(int(std::max<qsizetype>(1, whole.size() / 400)), 1);
    int runs = 0;
    Sweep::forgetPeak();
    for (qsizetype size = 0; size<whole.size(); size += size> whole.size() - 100
                                 ? 1
                                 : std::min(step, whole.size() - 99 - size)) {
        const qint64 start = Sweep::usedMs();
        QVERIFY2(!load(whole.left(size)), qPrintable(QString::number(size)));
        QCOMPARE(m_errors.size(), 1);
        QVERIFY(!m_store->project());
        QVERIFY(Sweep::usedMs() - start < MaxLoadMs);
        ++runs;
    }
    QVERIFY(Sweep::peakMegabytes() < MaxMegabytes);
    QVERIFY(load(whole));
    Sweep::report(QStringLiteral("B1 %1: %2 cuts, none accepted").arg(project).arg(runs));
}

/// Loads @p rounds files, each damaged anew, and reports how many were accepted.
void tst_DamagedArchives::sweep(const QString &what, int rounds, const Damage &damaged)
{
    QRandomGenerator random(17);
    int accepted = 0;
    Sweep::forgetPeak();
    for (int round = 0; round < rounds; ++round)
        QVERIFY2(isHarmless(damaged(&random), &accepted), qPrintable(QString::number(round)));

    QVERIFY(accepted > 0 || rounds < 100);
    const int peak = Sweep::peakMegabytes();
    QVERIFY2(peak < MaxMegabytes, qPrintable(QString::number(peak)));
    Sweep::report(QStringLiteral("B2 %1 with flipped bits: %2, %3 accepted, peak %4 MiB")
                      .arg(what)
                      .arg(rounds)
                      .arg(accepted)
                      .arg(peak));
}

void tst_DamagedArchives::flippedBitsAreRefusedOrHarmless()
{
    QFETCH(QString, project);
    const QByteArray whole = archiveOf(projects().value(project));
    const int rounds = Sweep::count(project == QStringLiteral("large") ? 60 : 300, 17'000);

    sweep(project + QStringLiteral(" files"), rounds, [&whole](QRandomGenerator *random) {
        QByteArray bytes = whole;
        flip(&bytes, random);
        return bytes;
    });
}

void tst_DamagedArchives::flippedBitsBehindRightChecksumsAreRefusedOrHarmless()
{
    QFETCH(QString, project);
    const Entries whole = projects().value(project);
    // What is accepted is saved and loaded again, which takes the large one its time.
    const bool isLarge = project == QStringLiteral("large");
    const int rounds = Sweep::count(isLarge ? 40 : 300, isLarge ? 2'000 : 24'000);

    sweep(project + QStringLiteral(" entries"), rounds, [&whole](QRandomGenerator *random) {
        Entries entries = whole;
        flip(&std::next(entries.begin(), random->bounded(int(entries.size()))).value(), random);
        return archiveOf(entries);
    });
}

void tst_DamagedArchives::addLosses()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("message");
    QTest::newRow("project") << "project.json"
                             << "Invalid project file";
    QTest::newRow("scratch") << "scratch.png" << QString();
    QTest::newRow("tiles") << "tileset/"
                           << "Failed to load tile set tileImage \"%1\" from project file";
    QTest::newRow("map") << "tilemap/"
                         << "Failed to load tile map anim for map Level 1";
    QTest::newRow("sprites") << "sprite/"
                             << "Project has a missing sprite anim";
    QTest::newRow("image") << "images/"
                           << "Failed to load tile image Title";
}

void tst_DamagedArchives::aLostEntryFailsWithItsMessage()
{
    QFETCH(QString, entry);
    QFETCH(QString, message);
    const Entries whole = projects().value(QStringLiteral("typical"));
    for (auto it = whole.cbegin(); it != whole.cend(); ++it) {
        if (!it.key().startsWith(entry))
            continue;
        const QString expected = message.contains('%') ? message.arg(it.key()) : message;
        Entries missing = whole;
        missing.remove(it.key());
        QCOMPARE(load(archiveOf(missing)), expected.isEmpty());
        QCOMPARE(m_errors.join(' '), expected);
        QCOMPARE(m_store->project().isNull(), !expected.isEmpty());

        Entries empty = whole;
        empty[it.key()].clear();
        QCOMPARE(load(archiveOf(empty)), expected.isEmpty());
        QCOMPARE(m_errors.join(' '), expected);
    }
}

void tst_DamagedArchives::everyOtherEntrysContentFailsOrLoads()
{
    const Entries whole = projects().value(QStringLiteral("typical"));
    const QStringList words{"Invalid project file", "Error setting tile set anim - Rocks",
                            "Failed to load tile map anim for map Level 1",
                            "Project has a missing sprite anim", "Failed to load tile image Title"};
    int accepted = 0;
    for (auto to = whole.cbegin(); to != whole.cend(); ++to) {
        for (auto from = whole.cbegin(); from != whole.cend(); ++from) {
            Entries entries = whole;
            entries[to.key()] = *from;
            QVERIFY2(isHarmless(archiveOf(entries), &accepted), qPrintable(to.key()));
            QVERIFY2(m_errors.isEmpty() || words.contains(m_errors.first()),
                     qPrintable(m_errors.join(' ')));
        }
    }
    QVERIFY(accepted >= whole.size());
    Sweep::report(
        QStringLiteral("B7: %1 swaps, %2 accepted").arg(whole.size() * whole.size()).arg(accepted));
}

QTEST_GUILESS_MAIN(tst_DamagedArchives)
#include "tst_DamagedArchives.moc"
