#include "support/ZipBytes.h"

#include <QtEndian>

namespace ZipBytes {

namespace {

template <typename Number>
void append(QByteArray &bytes, Number number)
{
    char raw[sizeof(Number)];
    qToLittleEndian(number, raw);
    bytes.append(raw, sizeof(Number));
}

struct Packed
{
    QByteArray bytes;
    quint32 crc;
    quint32 packedSize;
    quint32 size;
};

Packed packed(const Entry &entry)
{
    Packed result;
    const bool isPlain = entry.method != Deflated || entry.isPacked;
    result.bytes = isPlain ? entry.data : deflated(entry.data);
    result.crc = entry.claimedCrc ? *entry.claimedCrc : crc32(entry.data);
    result.packedSize = entry.claimedPackedSize.value_or(quint32(result.bytes.size()));
    result.size = entry.claimedSize.value_or(quint32(entry.data.size()));
    if (entry.zip64Size)
        result.size = 0xffffffff;
    return result;
}

/// The fields that a local header and a directory record share.
void appendCommon(QByteArray &bytes, const Entry &entry, const Packed &data, quint16 extraSize)
{
    append<quint16>(bytes, 20); // version needed
    append<quint16>(bytes, entry.flags);
    append<quint16>(bytes, entry.method);
    append<quint32>(bytes, 0x00210000); // the first of January 1980
    append<quint32>(bytes, data.crc);
    append<quint32>(bytes, data.packedSize);
    append<quint32>(bytes, data.size);
    append<quint16>(bytes, quint16(entry.name.size()));
    append<quint16>(bytes, extraSize);
}

void appendDirectoryRecord(QByteArray &bytes, const Entry &entry, const Packed &data,
                           quint32 offset)
{
    QByteArray extra;
    if (entry.zip64Size) {
        append<quint16>(extra, 1);
        append<quint16>(extra, 8);
        append<quint64>(extra, *entry.zip64Size);
    }
    bytes += "PK\x01\x02";
    append<quint16>(bytes, 20); // version made by
    appendCommon(bytes, entry, data, quint16(extra.size()));
    append<quint16>(bytes, 0); // comment
    append<quint16>(bytes, 0); // disk
    append<quint16>(bytes, 0); // internal attributes
    append<quint32>(bytes, 0); // external attributes
    append<quint32>(bytes, entry.claimedOffset.value_or(offset));
    bytes += entry.name + extra;
}

/// Appends bits to a deflate stream, the lowest of a byte first.
class BitWriter
{
public:
    void append(const char *bits)
    {
        for (; *bits; ++bits) {
            if (m_count++ % 8 == 0)
                m_bytes.append('\0');
            if (*bits == '1')
                m_bytes.back() = char(uchar(m_bytes.back()) | 1u << ((m_count - 1) % 8));
        }
    }
    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
    qint64 m_count = 0;
};

} // namespace

QByteArray deflatedZeros(qint64 count)
{
    constexpr int LongestMatch = 258;
    BitWriter bits;
    bits.append("110"); // the last block, with the fixed codes
    for (qint64 single = 1 + (count - 1) % LongestMatch; single > 0; --single)
        bits.append("00110000"); // the byte 0
    for (qint64 match = (count - 1) / LongestMatch; match > 0; --match)
        bits.append("1100010100000"); // 258 bytes again from one byte back
    bits.append("0000000");
    return bits.bytes();
}

QByteArray deflated(const QByteArray &data)
{
    // Qt's length, zlib's header of two bytes, the stream, and a checksum of four.
    const QByteArray stream = qCompress(data, 9);
    return stream.mid(6, stream.size() - 10);
}

quint32 crc32(const QByteArray &data)
{
    quint32 crc = 0xffffffff;
    for (const char byte : data) {
        crc ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) ? 0xedb88320 : 0);
    }
    return ~crc;
}

QByteArray archive(const QList<Entry> &entries, const QByteArray &comment)
{
    QByteArray bytes;
    QByteArray directory;
    for (const Entry &entry : entries) {
        const Packed data = packed(entry);
        appendDirectoryRecord(directory, entry, data, quint32(bytes.size()));
        bytes += "PK\x03\x04";
        appendCommon(bytes, entry, data, 0);
        bytes += entry.name + data.bytes;
    }
    const auto offset = quint32(bytes.size());
    bytes += directory;
    bytes += "PK\x05\x06";
    append<quint32>(bytes, 0); // this disk, the directory's disk
    append<quint16>(bytes, quint16(entries.size()));
    append<quint16>(bytes, quint16(entries.size()));
    append<quint32>(bytes, quint32(directory.size()));
    append<quint32>(bytes, offset);
    append<quint16>(bytes, quint16(comment.size()));
    return bytes + comment;
}

QList<QByteArray> names(const QByteArray &archive)
{
    constexpr int EndSize = 22;
    constexpr int RecordSize = 46;
    const auto number16 = [&](qsizetype at) {
        return qFromLittleEndian<quint16>(archive.constData() + at);
    };
    const qsizetype end = archive.size() - EndSize;
    auto at = qsizetype(qFromLittleEndian<quint32>(archive.constData() + end + 16));
    QList<QByteArray> result;
    for (int i = 0; i < number16(end + 10); ++i) {
        const int nameSize = number16(at + 28);
        result += archive.mid(at + RecordSize, nameSize);
        at += RecordSize + nameSize + number16(at + 30) + number16(at + 32);
    }
    return result;
}

} // namespace ZipBytes
