#include "Mutators.h"

#include <QList>
#include <QtEndian>

#include <miniz.h>

namespace {

const QByteArray Signature("\x89PNG\r\n\x1a\n", 8);
constexpr qsizetype FrameBytes = 12; // of a chunk without its data: length, name, checksum
constexpr int NameBytes = 4;
constexpr size_t LargestPicture = 1 << 20; // bytes

struct Chunk
{
    QByteArray name;
    QByteArray data;
};

QByteArray number(quint32 value)
{
    QByteArray bytes(sizeof(value), Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

QList<Chunk> chunksOf(const QByteArray &file)
{
    QList<Chunk> chunks;
    qsizetype at = Signature.size();
    while (file.startsWith(Signature) && file.size() - at >= FrameBytes) {
        const qsizetype size = qFromBigEndian<quint32>(file.constData() + at);
        if (size > file.size() - at - FrameBytes)
            break;
        chunks.append({file.mid(at + 4, NameBytes), file.mid(at + 4 + NameBytes, size)});
        at += FrameBytes + size;
    }
    return chunks;
}

QByteArray fileOf(const QList<Chunk> &chunks)
{
    QByteArray file = Signature;
    for (const Chunk &chunk : chunks) {
        const QByteArray checked = chunk.name + chunk.data;
        const auto crc =
            mz_crc32(MZ_CRC32_INIT, reinterpret_cast<const unsigned char *>(checked.constData()),
                     static_cast<size_t>(checked.size()));
        file += number(quint32(chunk.data.size())) + checked + number(quint32(crc));
    }
    return file;
}

QByteArray inflated(const QByteArray &stream)
{
    QByteArray data(LargestPicture, Qt::Uninitialized);
    const size_t size = tinfl_decompress_mem_to_mem(data.data(), LargestPicture, stream.constData(),
                                                    static_cast<size_t>(stream.size()),
                                                    TINFL_FLAG_PARSE_ZLIB_HEADER);
    return size == TINFL_DECOMPRESS_MEM_TO_MEM_FAILED ? QByteArray()
                                                      : data.left(static_cast<qsizetype>(size));
}

void changeHeader(QByteArray *header, QRandomGenerator *random)
{
    static const QList<quint32> sides{0, 1, 7, 8, 15, 16, 17, 24, 65536, 0x7fffffff, 0xffffffff};
    constexpr int SideBytes = 8;
    if (header->size() <= SideBytes)
        return;
    if (random->bounded(2) == 0) {
        const QByteArray side = number(sides.at(random->bounded(int(sides.size()))));
        header->replace(4 * random->bounded(2), 4, side);
    } else {
        // Bit depth, colour type, compression, filter, interlace.
        (*header)[random->bounded(SideBytes, int(header->size()))] = char(random->bounded(17));
    }
}

void changePixels(QByteArray *stream, QRandomGenerator *random)
{
    const QByteArray pixels = inflated(*stream);
    constexpr int LengthBytes = 4; // that Qt puts before the stream
    if (!pixels.isEmpty())
        *stream = qCompress(Mutators::bytes(pixels, random)).mid(LengthBytes);
}

} // namespace

QByteArray Mutators::png(const QByteArray &file, QRandomGenerator *random)
{
    QList<Chunk> chunks = chunksOf(file);
    if (chunks.isEmpty())
        return {};

    Chunk &chunk = chunks[random->bounded(int(chunks.size()))];
    const int choice = random->bounded(6);
    if (choice == 0)
        chunks.append(chunk);
    else if (choice == 1)
        chunks.removeAt(random->bounded(int(chunks.size())));
    else if (chunk.name == "IHDR")
        changeHeader(&chunk.data, random);
    else if (chunk.name == "IDAT")
        changePixels(&chunk.data, random);
    else
        chunk.data = bytes(chunk.data, random);
    return fileOf(chunks);
}
