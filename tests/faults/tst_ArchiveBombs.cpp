#include "Sweep.h"

#include "model/Project.h"
#include "store/ProjectStore.h"
#include "support/TestFiles.h"
#include "support/TestProjects.h"
#include "support/ZipBytes.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUuid>

/// Small files that ask for much time or memory: each is refused, or loads, at once.
class tst_ArchiveBombs : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aGigabyteOfZerosIsRefusedAtOnce_data();
    void aGigabyteOfZerosIsRefusedAtOnce();
    void entriesThatShareTheirBytesAreRefusedAtOnce();
    void aFullDirectoryIsReadAtOnce();
    void aCommentOf64KiBIsNoHindrance();

private:
    QString path() const { return m_folder->filePath(QStringLiteral("a.tessaril")); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ProjectStore> m_store;
};

namespace {

using Entry = ZipBytes::Entry;

constexpr int MaxMegabytes = 512;
const QString Id = QStringLiteral("{11111111-2222-4333-8444-555555555555}");
const QString SetId = QStringLiteral("{99999999-2222-4333-8444-555555555555}");

constexpr qint64 MaxMs = 1000;

bool isSanitized()
{
    return Sweep::peakMegabytes() == 0;
}

Entry jsonEntry(const QJsonObject &root)
{
    return {"project.json", QJsonDocument(root).toJson()};
}

/// An entry that says that it is @p size bytes of zeros, and is.
Entry zeros(const QString &name, qint64 size)
{
    return {.name = name.toUtf8(),
            .data = ZipBytes::deflatedZeros(size),
            .claimedCrc = 0, // never looked at if nothing unpacks it
            .claimedSize = quint32(size),
            .isPacked = true};
}

QJsonObject documents(const char *kind, const QJsonObject &document)
{
    return {{QString::fromLatin1(kind), QJsonArray{document}}};
}

} // namespace

void tst_ArchiveBombs::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_store = std::make_unique<ProjectStore>();
}

void tst_ArchiveBombs::aGigabyteOfZerosIsRefusedAtOnce_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QJsonObject>("root");
    QTest::addColumn<QString>("message");
    QTest::newRow("project") << "project.json" << QJsonObject() << "Invalid project file";
    QTest::newRow("tiles") << "tileset/" + Id + ".png"
                           << documents("tilesets", {{"id", Id}, {"count", 1}})
                           << "Failed to load tile set tileImage \"tileset/" + Id +
                                  ".png\" from project file";
    QJsonObject withMap = documents("maps", {{"id", Id}, {"tileset", SetId}, {"name", "Cave"}});
    withMap["tilesets"] = QJsonArray{QJsonObject{{"id", SetId}, {"count", 0}}};
    QTest::newRow("map") << "tilemap/" + Id << withMap
                         << "Failed to load tile map anim for map Cave";
    QTest::newRow("sprites") << "sprite/" + Id + ".png" << documents("sprites", {{"id", Id}})
                             << "Project has a missing sprite anim";
    QTest::newRow("image") << "images/" + Id + ".png"
                           << documents("images", {{"id", Id}, {"name", "Title"}})
                           << "Failed to load tile image Title";
}

void tst_ArchiveBombs::aGigabyteOfZerosIsRefusedAtOnce()
{
    QFETCH(QString, entry);
    QFETCH(QJsonObject, root);
    QFETCH(QString, message);
    QList<Entry> entries{zeros(entry, 1 << 30)};
    if (entry != QLatin1String("project.json"))
        entries += jsonEntry(root);
    QVERIFY(TestFiles::make(path(), ZipBytes::archive(entries)));
    QSignalSpy errors(m_store.get(), &ProjectStore::loadError);
    Sweep::forgetPeak();
    const qint64 before = Sweep::usedMs();

    QVERIFY(!m_store->load(path()));

    QVERIFY2(Sweep::usedMs() - before < MaxMs,
             qPrintable(QString::number(Sweep::usedMs() - before)));
    QVERIFY(Sweep::peakMegabytes() < MaxMegabytes);
    QCOMPARE(errors.count(), 1);
    QCOMPARE(errors.first().first().toString(), message);
}

void tst_ArchiveBombs::entriesThatShareTheirBytesAreRefusedAtOnce()
{
    // A hundred strips of 100 megabytes, which are one and the same ten lines of the file.
    QJsonArray banks;
    QList<Entry> entries;
    const Entry strip = zeros("sprite/", 100'000'000);
    for (int i = 0; i < 100; ++i) {
        const QString id = QUuid::createUuid().toString();
        banks.append(QJsonObject{{"id", id}});
        Entry shared = strip;
        shared.name = ("sprite/" + id + ".png").toUtf8();
        if (i > 0)
            shared.data.clear();
        shared.claimedPackedSize = quint32(strip.data.size());
        shared.claimedOffset = 0;
        entries += shared;
    }
    entries += jsonEntry({{"sprites", banks}});
    QVERIFY(TestFiles::make(path(), ZipBytes::archive(entries)));
    const qint64 before = Sweep::usedMs();

    QVERIFY(!m_store->load(path()));

    QVERIFY(Sweep::usedMs() - before < MaxMs * (isSanitized() ? 10 : 1));
}

void tst_ArchiveBombs::aFullDirectoryIsReadAtOnce()
{
    QList<Entry> entries;
    for (int i = 0; i < 65'534; ++i)
        entries += {.name = QByteArray::number(i), .data = "x", .method = ZipBytes::Stored};
    entries += jsonEntry({{"name", "full"}});
    QVERIFY(TestFiles::make(path(), ZipBytes::archive(entries)));
    const qint64 before = Sweep::usedMs();

    QVERIFY(m_store->load(path()));

    QVERIFY(Sweep::usedMs() - before < MaxMs * (isSanitized() ? 10 : 1));
    QCOMPARE(m_store->project()->name(), QStringLiteral("full"));
}

void tst_ArchiveBombs::aCommentOf64KiBIsNoHindrance()
{
    const QByteArray file =
        ZipBytes::archive({jsonEntry({{"name", "commented"}})}, QByteArray(0xffff, 'c'));
    QVERIFY(TestFiles::make(path(), file));

    QVERIFY(!m_store->load(path()) || m_store->project()->name() == QStringLiteral("commented"));
}

QTEST_GUILESS_MAIN(tst_ArchiveBombs)
#include "tst_ArchiveBombs.moc"
