#include "store/ZipFile.h"

#include "support/ZipBytes.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using ZipBytes::Entry;

class tst_ZipFile : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void whatIsWrittenReadsBack();
    void entriesStandInTheOrderOfWriting();
    void entriesAreDeflatedAtTheHighestLevelWithoutComments();
    void anEntryUnderFourBytesIsStored();
    void createReplacesAFile();
    void anUnfinishedArchiveIsCompletedByTheDestructor();
    void finishNeedsAnArchiveBeingWritten();
    void aFileCannotBeCreatedInAMissingFolder();
    void aPipeIsNeitherReadNorWritten();
    void aFullDeviceFailsAtFinish();
    void aLargeEntryFailsOnAFullDevice();
    void closedFilesReadAndWriteNothing();

    void tooSmallFilesAreNoArchives_data();
    void tooSmallFilesAreNoArchives();
    void aFolderOrAMissingFileIsNoArchive();
    void anEmptyArchiveOpens();
    void anEntryIsFoundInAnotherCase();
    void anAbsentEntryIsEmpty();
    void aNameOver65535BytesIsNotFound();
    void aLimitMakesLargerEntriesEmpty();
    void onlyTheEntryItselfIsBegun();
    void dataBeforeAndACommentBehindAreAccepted();

    void lyingEntriesAreEmpty_data();
    void lyingEntriesAreEmpty();
    void anEncryptedDirectoryIsRefused();
    void anEntryMayExpandToTheLimitOfDeflate();
    void wrongOffsetsReadNothingOutsideTheFile_data();
    void wrongOffsetsReadNothingOutsideTheFile();
    void everyTruncationIsRefused();
    void randomDamageNeverCrashes();
    void manyEntriesOpen();
    void namesNeverTouchTheFileSystem();

private:
    QString path(const QString &name = QStringLiteral("a.zip")) const
    {
        return m_folder->filePath(name);
    }
    QByteArray stored() const;
    void store(const QByteArray &bytes) const;
    QByteArray entryOf(const QByteArray &bytes, const QString &name) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_ZipFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

QByteArray tst_ZipFile::stored() const
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_ZipFile::store(const QByteArray &bytes) const
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

/// The entry of an archive of these bytes; empty too if it does not open.
QByteArray tst_ZipFile::entryOf(const QByteArray &bytes, const QString &name) const
{
    store(bytes);
    ZipFile zip;
    return zip.open(path()) ? zip.read(name) : QByteArray();
}

void tst_ZipFile::whatIsWrittenReadsBack()
{
    QByteArray noise(300'000, Qt::Uninitialized);
    QRandomGenerator(7).fillRange(reinterpret_cast<quint32 *>(noise.data()), noise.size() / 4);
    ZipFile writer;
    QVERIFY(writer.create(path()));
    QVERIFY(writer.write(QStringLiteral("noise"), noise));
    QVERIFY(writer.write(QStringLiteral("folder/zeros"), QByteArray(100'000, '\0')));
    QVERIFY(writer.write(QStringLiteral("nothing"), QByteArray()));
    QVERIFY(writer.finish());

    ZipFile reader;

    QVERIFY(reader.open(path()));
    QCOMPARE(reader.read(QStringLiteral("noise")), noise);
    QCOMPARE(reader.read(QStringLiteral("folder/zeros")), QByteArray(100'000, '\0'));
    QCOMPARE(reader.read(QStringLiteral("nothing")), QByteArray());
}

void tst_ZipFile::entriesStandInTheOrderOfWriting()
{
    ZipFile zip;
    QVERIFY(zip.create(path()));
    QVERIFY(zip.write(QStringLiteral("b"), "1234"));
    QVERIFY(zip.write(QStringLiteral("a"), "1234"));
    QVERIFY(zip.finish());

    QCOMPARE(ZipBytes::names(stored()), (QList<QByteArray>{"b", "a"}));
}

void tst_ZipFile::entriesAreDeflatedAtTheHighestLevelWithoutComments()
{
    ZipFile zip;
    QVERIFY(zip.create(path()));
    QVERIFY(zip.write(QStringLiteral("a"), QByteArray(1000, 'x')));
    QVERIFY(zip.finish());

    const QByteArray bytes = stored();
    const qsizetype record = bytes.indexOf("PK\x01\x02");
    QCOMPARE(qFromLittleEndian<quint16>(bytes.constData() + 8), ZipBytes::Deflated);
    QCOMPARE(qFromLittleEndian<quint16>(bytes.constData() + record + 10), ZipBytes::Deflated);
    QCOMPARE(qFromLittleEndian<quint16>(bytes.constData() + record + 32), quint16(0));
    QVERIFY(bytes.size() < 150);
    QVERIFY(bytes.endsWith(QByteArray("\0\0", 2))); // the length of the archive's comment
}

void tst_ZipFile::anEntryUnderFourBytesIsStored()
{
    ZipFile zip;
    QVERIFY(zip.create(path()));
    QVERIFY(zip.write(QStringLiteral("a"), "xyz"));
    QVERIFY(zip.finish());

    QCOMPARE(qFromLittleEndian<quint16>(stored().constData() + 8), ZipBytes::Stored);
    QVERIFY(stored().contains("axyz"));
}

void tst_ZipFile::createReplacesAFile()
{
    store(QByteArray(5000, 'o'));

    ZipFile zip;
    QVERIFY(zip.create(path()));
    QVERIFY(zip.finish());

    QCOMPARE(stored().size(), 22);
}

void tst_ZipFile::anUnfinishedArchiveIsCompletedByTheDestructor()
{
    {
        ZipFile zip;
        QVERIFY(zip.create(path()));
        QVERIFY(zip.write(QStringLiteral("a"), "hello"));
    }

    QCOMPARE(entryOf(stored(), QStringLiteral("a")), QByteArray("hello"));
}

void tst_ZipFile::finishNeedsAnArchiveBeingWritten()
{
    ZipFile closed;
    QVERIFY(!closed.finish());

    store(ZipBytes::archive({}));
    ZipFile reader;
    QVERIFY(reader.open(path()));
    QVERIFY(!reader.finish());
    QVERIFY(!reader.write(QStringLiteral("a"), "hello"));

    ZipFile writer;
    QVERIFY(writer.create(path()));
    QVERIFY(writer.finish());
    QVERIFY(!writer.finish());
}

void tst_ZipFile::aFileCannotBeCreatedInAMissingFolder()
{
    ZipFile zip;

    QVERIFY(!zip.create(path(QStringLiteral("missing/a.zip"))));
    QVERIFY(!zip.write(QStringLiteral("a"), "hello"));
}

void tst_ZipFile::aPipeIsNeitherReadNorWritten()
{
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(path().toLocal8Bit().constData(), 0600), 0);

    ZipFile writer;
    ZipFile reader;

    QVERIFY(!writer.create(path()));
    QVERIFY(!reader.open(path()));
#endif
}

void tst_ZipFile::aFullDeviceFailsAtFinish()
{
#ifdef Q_OS_LINUX
    ZipFile zip;
    QVERIFY(zip.create(QStringLiteral("/dev/full")));
    QVERIFY(zip.write(QStringLiteral("a"), "hello"));

    QVERIFY(!zip.finish());
#endif
}

void tst_ZipFile::aLargeEntryFailsOnAFullDevice()
{
#ifdef Q_OS_LINUX
    QByteArray noise(300'000, Qt::Uninitialized);
    QRandomGenerator(7).fillRange(reinterpret_cast<quint32 *>(noise.data()), noise.size() / 4);
    ZipFile zip;
    QVERIFY(zip.create(QStringLiteral("/dev/full")));

    QVERIFY(!zip.write(QStringLiteral("a"), noise));
#endif
}

void tst_ZipFile::closedFilesReadAndWriteNothing()
{
    ZipFile zip;

    QCOMPARE(zip.read(QStringLiteral("a")), QByteArray());
    QVERIFY(!zip.write(QStringLiteral("a"), "hello"));
}

void tst_ZipFile::tooSmallFilesAreNoArchives_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("21 bytes") << QByteArray(21, 'P');
    QTest::newRow("an end record less its last byte") << ZipBytes::archive({}).left(21);
    QTest::newRow("22 bytes of something else") << QByteArray(22, 'P');
    QTest::newRow("text") << QByteArray("hello ").repeated(100'000);
}

void tst_ZipFile::tooSmallFilesAreNoArchives()
{
    QFETCH(QByteArray, bytes);
    store(bytes);
    ZipFile zip;

    QVERIFY(!zip.open(path()));
    QCOMPARE(zip.read(QStringLiteral("a")), QByteArray());
}

void tst_ZipFile::aFolderOrAMissingFileIsNoArchive()
{
    ZipFile folder;
    ZipFile missing;

    QVERIFY(!folder.open(m_folder->path()));
    QVERIFY(!missing.open(path()));
}

void tst_ZipFile::anEmptyArchiveOpens()
{
    store(ZipBytes::archive({}));
    ZipFile zip;

    QVERIFY(zip.open(path()));
    QCOMPARE(zip.read(QStringLiteral("a")), QByteArray());
}

void tst_ZipFile::anEntryIsFoundInAnotherCase()
{
    const QByteArray bytes = ZipBytes::archive({{"Folder/PROJECT.json", "hello"}});

    QCOMPARE(entryOf(bytes, QStringLiteral("folder/project.JSON")), QByteArray("hello"));
}

void tst_ZipFile::anAbsentEntryIsEmpty()
{
    const QByteArray bytes = ZipBytes::archive({{"a", "hello"}, {"abc", "hello"}});

    QCOMPARE(entryOf(bytes, QStringLiteral("ab")), QByteArray());
    QCOMPARE(entryOf(bytes, QString()), QByteArray());
}

void tst_ZipFile::aNameOver65535BytesIsNotFound()
{
    const QByteArray name(65'535, 'n');
    const QByteArray bytes = ZipBytes::archive({{name, "hello"}});

    QCOMPARE(entryOf(bytes, QString::fromLatin1(name)), QByteArray("hello"));
    QCOMPARE(entryOf(bytes, QString::fromLatin1(name + 'n')), QByteArray());
}

void tst_ZipFile::aLimitMakesLargerEntriesEmpty()
{
    store(ZipBytes::archive({{"a", QByteArray(1000, 'x')}}));
    ZipFile zip;
    QVERIFY(zip.open(path()));

    QCOMPARE(zip.read(QStringLiteral("a"), 1000), QByteArray(1000, 'x'));
    QCOMPARE(zip.read(QStringLiteral("a"), 999), QByteArray());
}

void tst_ZipFile::onlyTheEntryItselfIsBegun()
{
    store(ZipBytes::archive({{"first", "hello"},
                             {"b", "other words"},
                             {.name = "lie", .data = "hello", .claimedSize = 1 << 30}}));
    ZipFile zip;
    QVERIFY(zip.open(path()));

    QCOMPARE(zip.readStart(QStringLiteral("b"), 5), QByteArray("other"));
    QCOMPARE(zip.readStart(QStringLiteral("lie"), 5), QByteArray());
    QCOMPARE(zip.readStart(QStringLiteral("absent"), 5), QByteArray());
}

void tst_ZipFile::dataBeforeAndACommentBehindAreAccepted()
{
    const QByteArray commented = ZipBytes::archive({{"a", "hello"}}, QByteArray(3'000, 'c'));
    QCOMPARE(entryOf(commented, QStringLiteral("a")), QByteArray("hello"));

    // The directory's offsets count from the archive's own start, so nothing is found there.
    const QByteArray shifted = QByteArray(1000, 'j') + ZipBytes::archive({{"a", "hello"}});
    QCOMPARE(entryOf(shifted, QStringLiteral("a")), QByteArray());
}

void tst_ZipFile::lyingEntriesAreEmpty_data()
{
    const QByteArray data(100'000, 'x');
    const auto packedSize = quint32(ZipBytes::deflated(data).size());
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char *name, const Entry &entry) {
        QTest::newRow(name) << ZipBytes::archive({entry});
    };
    row("wrong checksum", {.name = "a", .data = data, .claimedCrc = 1});
    row("wrong checksum, stored", {.name = "a", .data = data, .method = 0, .claimedCrc = 1});
    row("size one too small", {.name = "a", .data = data, .claimedSize = 99'999});
    row("size one too large", {.name = "a", .data = data, .claimedSize = 100'001});
    row("size 0", {.name = "a", .data = data, .claimedSize = 0});
    row("size 2^31", {.name = "a", .data = data, .claimedSize = 0x80000000});
    row("size 2^32 - 1", {.name = "a", .data = data, .claimedSize = 0xffffffff});
    row("more than deflate can expand",
        {.name = "a", .data = data, .claimedSize = packedSize * 1032 + 65});
    row("Zip64 size 2^63", {.name = "a", .data = data, .zip64Size = quint64(1) << 63});
    row("Zip64 size 2^40", {.name = "a", .data = data, .zip64Size = quint64(1) << 40});
    row("packed size 0", {.name = "a", .data = data, .claimedPackedSize = 0, .claimedSize = 60});
    row("packed size 2^31", {.name = "a", .data = data, .claimedPackedSize = 0x80000000});
    row("packed size one less", {.name = "a", .data = data, .claimedPackedSize = packedSize - 1});
    row("stored, size larger than the data",
        {.name = "a", .data = "hello", .method = 0, .claimedSize = 20});
    row("unknown method", {.name = "a", .data = data, .method = 12});
    row("encrypted", {.name = "a", .data = data, .flags = 1});
    row("a folder's name", {.name = "a/", .data = data});
}

void tst_ZipFile::lyingEntriesAreEmpty()
{
    QFETCH(QByteArray, bytes);

    QCOMPARE(entryOf(bytes, QStringLiteral("a")), QByteArray());
    QCOMPARE(entryOf(bytes, QStringLiteral("a/")), QByteArray());
}

void tst_ZipFile::anEncryptedDirectoryIsRefused()
{
    store(ZipBytes::archive({{.name = "a", .data = "hello", .flags = 1 << 13}}));
    ZipFile zip;

    QVERIFY(!zip.open(path()));
}

void tst_ZipFile::anEntryMayExpandToTheLimitOfDeflate()
{
    // Zeros pack as tightly as the format can.
    const QByteArray zeros(1 << 22, '\0');
    QVERIFY(zeros.size() / ZipBytes::deflated(zeros).size() > 1020);

    QCOMPARE(entryOf(ZipBytes::archive({{"a", zeros}}), QStringLiteral("a")), zeros);
}

void tst_ZipFile::wrongOffsetsReadNothingOutsideTheFile_data()
{
    QTest::addColumn<quint32>("offset");
    for (const quint32 offset : {1u, 5u, 30u, 60u, 61u, 1000u, 0x7fffffffu, 0xffffffffu})
        QTest::addRow("%u", offset) << offset;
}

void tst_ZipFile::wrongOffsetsReadNothingOutsideTheFile()
{
    QFETCH(quint32, offset);
    const QByteArray bytes =
        ZipBytes::archive({{.name = "a", .data = "hello", .claimedOffset = offset}});

    QCOMPARE(entryOf(bytes, QStringLiteral("a")), QByteArray());
}

void tst_ZipFile::everyTruncationIsRefused()
{
    const QByteArray whole = ZipBytes::archive({{"a", "hello"}, {"b", QByteArray(500, 'x')}});
    for (qsizetype size = 0; size < whole.size(); ++size) {
        store(whole.left(size));
        ZipFile zip;
        QVERIFY2(!zip.open(path()), qPrintable(QString::number(size)));
    }
}

void tst_ZipFile::randomDamageNeverCrashes()
{
    const QByteArray data(500, 'x');
    const QByteArray whole = ZipBytes::archive({{"a", data}, {"b", "hello"}});
    QRandomGenerator random(20);
    int unharmed = 0;
    for (int round = 0; round < 1000; ++round) {
        QByteArray bytes = whole;
        for (int flip = random.bounded(1, 4); flip > 0; --flip)
            bytes[random.bounded(int(bytes.size()))] ^= char(1 << random.bounded(8));
        const QByteArray read = entryOf(bytes, QStringLiteral("a"));
        QVERIFY(read.isEmpty() || read == data); // the checksum sees to it
        unharmed += read == data;
    }
    QVERIFY(unharmed > 0);
}

void tst_ZipFile::manyEntriesOpen()
{
    QList<Entry> entries;
    for (int i = 0; i < 65'535; ++i)
        entries += {.name = "same", .data = "hello", .method = ZipBytes::Stored};
    store(ZipBytes::archive(entries));
    ZipFile zip;

    QVERIFY(zip.open(path()));
    QCOMPARE(zip.read(QStringLiteral("same")), QByteArray("hello"));
    QVERIFY(zip.read(QStringLiteral("other")).isEmpty());
}

void tst_ZipFile::namesNeverTouchTheFileSystem()
{
    const QByteArray bytes = ZipBytes::archive({{"../outside", "hello"},
                                                {"/outside", "hello"},
                                                {QByteArray("a\0b", 3), "hello"},
                                                {"\xff\xfe", "hello"}});

    QCOMPARE(entryOf(bytes, QStringLiteral("../outside")), QByteArray("hello"));

    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{QStringLiteral("a.zip")});
    QVERIFY(!QFile::exists(path(QStringLiteral("../outside"))));
}

QTEST_GUILESS_MAIN(tst_ZipFile)
#include "tst_ZipFile.moc"
