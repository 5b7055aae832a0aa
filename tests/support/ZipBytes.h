#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

/// ZIP archives made byte by byte, so that a test can lie in any field of them.
namespace ZipBytes {

inline constexpr quint16 Stored = 0;
inline constexpr quint16 Deflated = 8;

struct Entry
{
    QByteArray name;
    QByteArray data;
    quint16 method = Deflated;
    quint16 flags = 0;
    // What the headers claim instead of the truth.
    std::optional<quint32> claimedCrc = std::nullopt;
    std::optional<quint32> claimedPackedSize = std::nullopt;
    std::optional<quint32> claimedSize = std::nullopt;
    std::optional<quint64> zip64Size =
        std::nullopt; ///< the size in an extended field, the plain ones all ones
    std::optional<quint32> claimedOffset = std::nullopt;
    bool isPacked = false; ///< the data is its deflate stream already
};

/// The raw deflate stream of @p count zeros, made without them: a 158th of their size.
QByteArray deflatedZeros(qint64 count);
/// The raw deflate stream of @p data.
QByteArray deflated(const QByteArray &data);
quint32 crc32(const QByteArray &data);

/// A whole archive: local headers and data, directory, end record with @p comment behind it.
QByteArray archive(const QList<Entry> &entries, const QByteArray &comment = {});

/// The entry names in the order of the directory of a plain archive without a comment.
QList<QByteArray> names(const QByteArray &archive);

} // namespace ZipBytes
