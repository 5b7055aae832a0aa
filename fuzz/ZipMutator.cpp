#include "Mutators.h"

#include "support/ZipBytes.h"

#include <QList>

#include <miniz.h>

namespace {

constexpr mz_uint MaxEntries = 64;
constexpr mz_uint64 LargestEntry = 1 << 18; // bytes

QList<ZipBytes::Entry> entriesOf(const QByteArray &file)
{
    QList<ZipBytes::Entry> entries;
    mz_zip_archive zip = {};
    if (!mz_zip_reader_init_mem(&zip, file.constData(), static_cast<size_t>(file.size()), 0))
        return entries;
    const mz_uint count = std::min(mz_zip_reader_get_num_files(&zip), MaxEntries);
    for (mz_uint i = 0; i < count; ++i) {
        mz_zip_archive_file_stat status;
        if (!mz_zip_reader_file_stat(&zip, i, &status) || status.m_uncomp_size > LargestEntry)
            continue;
        QByteArray data(static_cast<qsizetype>(status.m_uncomp_size), Qt::Uninitialized);
        if (mz_zip_reader_extract_to_mem(&zip, i, data.data(), static_cast<size_t>(data.size()), 0))
            entries.append({status.m_filename, data});
    }
    mz_zip_reader_end(&zip);
    return entries;
}

quint32 hostileSize(QRandomGenerator *random)
{
    static const QList<quint32> sizes{0,     1,          2,          21,         22,
                                      65535, 0x7fffffff, 0x80000000, 0xfffffffe, 0xffffffff};
    return sizes.at(random->bounded(int(sizes.size())));
}

void lie(ZipBytes::Entry *entry, QRandomGenerator *random)
{
    switch (random->bounded(7)) {
    case 0:
        entry->claimedCrc = random->generate();
        break;
    case 1:
        entry->claimedPackedSize = hostileSize(random);
        break;
    case 2:
        entry->claimedSize = hostileSize(random);
        break;
    case 3:
        entry->claimedOffset = hostileSize(random);
        break;
    case 4:
        entry->zip64Size = quint64(hostileSize(random)) << random->bounded(33);
        break;
    case 5:
        entry->method = quint16(random->bounded(20));
        break;
    default:
        entry->flags = quint16(1 << random->bounded(16));
    }
}

void change(QList<ZipBytes::Entry> *entries, QRandomGenerator *random)
{
    const int one = random->bounded(int(entries->size()));
    const int other = random->bounded(int(entries->size()));
    switch (random->bounded(10)) {
    case 0:
        entries->removeAt(one);
        break;
    case 1:
        (*entries)[one].data = entries->at(other).data;
        break;
    case 2:
        entries->append(entries->at(one));
        entries->last().data = Mutators::any(entries->last().data, random);
        break;
    case 3:
        (*entries)[one].name = Mutators::bytes(entries->at(one).name, random);
        break;
    case 4:
        lie(&(*entries)[one], random);
        break;
    default:
        (*entries)[one].data = Mutators::any(entries->at(one).data, random);
    }
}

} // namespace

QByteArray Mutators::zip(const QByteArray &file, QRandomGenerator *random)
{
    QList<ZipBytes::Entry> entries = entriesOf(file);
    if (entries.isEmpty())
        return {};
    change(&entries, random);
    return ZipBytes::archive(entries);
}
