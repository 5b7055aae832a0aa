#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Whole files in and out, every result looked at.
namespace FileBytes {

inline constexpr qint64 MaxRawSize = 64 * 1024 * 1024; // bytes of a raw import

/// Whether the name, links followed, is that of a regular file: opening a pipe would wait for its
/// other end.
bool isRegular(const QString &fileName);

/// All bytes of a regular file of at most @p limit bytes; nothing for anything else.
std::optional<QByteArray> read(const QString &fileName, qint64 limit = MaxRawSize);

/// Replaces the file by @p data. False if it cannot be opened, is no regular file, or not every
/// byte was written and flushed; part of the data may then be in the file.
[[nodiscard]] bool write(const QString &fileName, const QByteArray &data);

/// Puts a file of @p data in the place of an old one at once, so that a crash or a full disk leaves
/// the old one. False if that fails.
[[nodiscard]] bool replace(const QString &fileName, const QByteArray &data);

} // namespace FileBytes
