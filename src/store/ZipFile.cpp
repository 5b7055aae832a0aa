#include "store/ZipFile.h"

#include <QFileInfo>

#include <miniz.h>

#include <algorithm>
#include <cstdio>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

constexpr qint64 EndRecordSize = 22;      // bytes, the smallest archive there is
constexpr qsizetype MaxNameSize = 0xffff; // bytes, by the width of its length field

// Deflate spends at least one bit on 129 bytes; the rest is the room of a block's header.
constexpr quint64 MaxExpansion = 1032;
constexpr quint64 ExpansionSlack = 64; // bytes

/// The size of a file as stdio sees it, or -1.
qint64 sizeOf(const QByteArray &path)
{
    FILE *file = std::fopen(path.constData(), "rb");
    if (!file)
        return -1;
#ifdef Q_OS_UNIX
    const qint64 size = fseeko(file, 0, SEEK_END) == 0 ? qint64(ftello(file)) : -1;
#else
    const qint64 size = std::fseek(file, 0, SEEK_END) == 0 ? qint64(std::ftell(file)) : -1;
#endif
    std::fclose(file); // Opened for reading only: there is nothing that closing could lose.
    return size;
}

/// Whether opening @p path could wait for another process, as a pipe does.
bool isPipe(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists() || info.isFile() || info.isDir())
        return false;
#ifdef Q_OS_UNIX
    struct stat status = {};
    return stat(path.toLocal8Bit().constData(), &status) == 0 && S_ISFIFO(status.st_mode);
#else
    return false;
#endif
}

/// Whether all of @p size bytes of a finished archive are on the disk. Special files (a device)
/// have no size that could be compared.
bool reachedDisk(FILE *file, quint64 size)
{
    if (!file || std::ferror(file) != 0 || std::fflush(file) != 0)
        return false;
#ifdef Q_OS_UNIX
    struct stat status = {};
    if (fstat(fileno(file), &status) != 0)
        return false;
    if (!S_ISREG(status.st_mode))
        return true;
    return quint64(status.st_size) == size && fsync(fileno(file)) == 0;
#else
    return quint64(std::ftell(file)) == size;
#endif
}

/// Whether an entry may be unpacked: its sizes are plausible, within @p limit and in the file.
bool isReadable(const mz_zip_archive_file_stat &entry, quint64 archiveSize, quint64 limit)
{
    if (entry.m_is_directory || entry.m_comp_size == 0 || entry.m_comp_size > archiveSize)
        return false;
    if (entry.m_method == 0 && entry.m_comp_size != entry.m_uncomp_size)
        return false;
    return entry.m_uncomp_size <= limit &&
           entry.m_uncomp_size <= entry.m_comp_size * MaxExpansion + ExpansionSlack;
}

} // namespace

struct ZipFile::Archive : mz_zip_archive
{
    Archive()
        : mz_zip_archive{}
    {
    }
};

ZipFile::ZipFile(QObject *parent)
    : QObject(parent)
{
}

ZipFile::~ZipFile()
{
    if (!m_archive)
        return;

    if (m_archive->m_zip_mode == MZ_ZIP_MODE_READING) {
        mz_zip_reader_end(m_archive.get());
        return;
    }
    if (m_archive->m_zip_mode == MZ_ZIP_MODE_WRITING)
        mz_zip_writer_finalize_archive(m_archive.get());
    mz_zip_writer_end(m_archive.get());
}

bool ZipFile::create(const QString &path)
{
    if (m_archive || isPipe(path))
        return false;

    m_archive = std::make_unique<Archive>();
    return mz_zip_writer_init_file(m_archive.get(), path.toLocal8Bit().constData(), 0);
}

bool ZipFile::open(const QString &path)
{
    if (m_archive || !QFileInfo(path).isFile())
        return false;

    const QByteArray name = path.toLocal8Bit();
    if (sizeOf(name) < EndRecordSize)
        return false;
    m_archive = std::make_unique<Archive>();
    return mz_zip_reader_init_file(m_archive.get(), name.constData(), 0);
}

bool ZipFile::write(const QString &name, const QByteArray &data)
{
    if (!m_archive)
        return false;

    return mz_zip_writer_add_mem(m_archive.get(), name.toLocal8Bit().constData(), data.constData(),
                                 static_cast<size_t>(data.size()), MZ_BEST_COMPRESSION);
}

/// The number of an entry that may be unpacked, with its size; -1 if there is none.
int ZipFile::find(const QString &name, qint64 limit, qint64 *size) const
{
    const QByteArray entryName = name.toLocal8Bit();
    if (!m_archive || entryName.size() > MaxNameSize)
        return -1;

    const int index = mz_zip_reader_locate_file(m_archive.get(), entryName.constData(), nullptr, 0);
    mz_zip_archive_file_stat entry = {};
    if (index < 0 || !mz_zip_reader_file_stat(m_archive.get(), static_cast<mz_uint>(index), &entry))
        return -1;
    const quint64 maxSize = static_cast<quint64>(std::min(limit, MaxEntrySize));
    if (!isReadable(entry, m_archive->m_archive_size, maxSize))
        return -1;
    *size = static_cast<qint64>(entry.m_uncomp_size);
    return index;
}

QByteArray ZipFile::read(const QString &name, qint64 limit)
{
    qint64 size = 0;
    const int index = find(name, limit, &size);
    if (index < 0)
        return {};
    m_unpacked += static_cast<quint64>(size);
    if (m_unpacked > m_archive->m_archive_size * MaxExpansion)
        return {};

    QByteArray data(static_cast<qsizetype>(size), Qt::Uninitialized);
    if (!mz_zip_reader_extract_to_mem(m_archive.get(), static_cast<mz_uint>(index), data.data(),
                                      static_cast<size_t>(data.size()), 0))
        return {};
    return data;
}

QByteArray ZipFile::readStart(const QString &name, qsizetype count)
{
    qint64 size = 0;
    const int index = find(name, MaxEntrySize, &size);
    if (index < 0)
        return {};

    auto *entry = mz_zip_reader_extract_iter_new(m_archive.get(), static_cast<mz_uint>(index), 0);
    if (!entry)
        return {};
    QByteArray data(count, Qt::Uninitialized);
    data.resize(static_cast<qsizetype>(
        mz_zip_reader_extract_iter_read(entry, data.data(), static_cast<size_t>(count))));
    mz_zip_reader_extract_iter_free(entry); // Its result is the checksum's, of the whole entry.
    return data;
}

bool ZipFile::finish()
{
    if (!m_archive || m_archive->m_zip_mode != MZ_ZIP_MODE_WRITING)
        return false;

    const bool complete = mz_zip_writer_finalize_archive(m_archive.get()) &&
                          reachedDisk(mz_zip_get_cfile(m_archive.get()), m_archive->m_archive_size);
    const bool closed = mz_zip_writer_end(m_archive.get());
    return complete && closed;
}
