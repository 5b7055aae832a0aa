#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <limits>
#include <memory>

/// A ZIP archive, open for reading or for writing; lives on the stack of one save or one load.
/// Reports by result only.
class ZipFile : public QObject
{
    Q_OBJECT

public:
    /// The largest entry that is read, in bytes: what a signed 32-bit size can say.
    static constexpr qint64 MaxEntrySize = std::numeric_limits<qint32>::max();

    explicit ZipFile(QObject *parent = nullptr);
    /// Ends what is open; an archive being written is finished first.
    ~ZipFile() override;

    /// Makes the file @p path, replacing one that is there, and opens it for writing.
    [[nodiscard]] bool create(const QString &path);
    /// Opens an archive for reading. False for what is none, for what is no regular file, and under
    /// 22 bytes without a further look.
    [[nodiscard]] bool open(const QString &path);
    /// Adds an entry.
    [[nodiscard]] bool write(const QString &name, const QByteArray &data);
    /// The bytes of an entry, found without regard to case; empty if it is absent, damaged, over
    /// @p limit bytes, or declares more bytes than its packed size can hold; and once more was read
    /// than the whole file can hold, for then its entries share their bytes.
    QByteArray read(const QString &name, qint64 limit = MaxEntrySize);
    /// The first bytes of an entry, at most @p count, without the look at its checksum.
    QByteArray readStart(const QString &name, qsizetype count);
    /// Completes the file and flushes it to the disk. False if not everything reached it.
    [[nodiscard]] bool finish();

private:
    struct Archive;

    int find(const QString &name, qint64 limit, qint64 *size) const;

    std::unique_ptr<Archive> m_archive;
    quint64 m_unpacked = 0; // bytes read so far
};
