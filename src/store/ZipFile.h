#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <memory>

struct mz_zip_archive_tag;

/// A ZIP archive, open for reading or for writing; lives on the stack of one save or one load.
/// Reports by result only.
class ZipFile : public QObject
{
    Q_OBJECT

public:
    explicit ZipFile(QObject *parent = nullptr);
    /// Ends what is open; an archive being written is finished first.
    ~ZipFile() override;

    /// Makes the file @p path, replacing one that is there, and opens it for writing.
    [[nodiscard]] bool create(const QString &path);
    /// Opens an archive for reading. False for what is none; under 22 bytes without a look.
    [[nodiscard]] bool open(const QString &path);
    /// Adds an entry.
    [[nodiscard]] bool write(const QString &name, const QByteArray &data);
    /// The bytes of an entry, found without regard to case; empty if it is absent, damaged, or
    /// declares more bytes than its packed size can hold.
    QByteArray read(const QString &name);
    /// Completes the file. False if not everything reached it.
    [[nodiscard]] bool finish();

private:
    std::unique_ptr<mz_zip_archive_tag> m_archive;
};
