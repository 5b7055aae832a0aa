#include "formats/FileBytes.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

constexpr qsizetype WriteChunk = 64 * 1024; // bytes; a larger write can be cut short unseen

bool writeAll(QFileDevice &file, const QByteArray &data)
{
    for (qsizetype done = 0; done < data.size(); done += WriteChunk) {
        const qsizetype length = std::min(WriteChunk, data.size() - done);
        if (file.write(data.constData() + done, length) != length)
            return false;
    }
    return file.flush();
}

/// Whether something that is no regular file bears the name.
bool isBlocked(const QString &fileName)
{
    return QFileInfo::exists(fileName) && !FileBytes::isRegular(fileName);
}

} // namespace

bool FileBytes::isRegular(const QString &fileName)
{
    return QFileInfo(fileName).isFile();
}

std::optional<QByteArray> FileBytes::read(const QString &fileName, qint64 limit)
{
    // Asked before opening: a pipe would wait for its other end.
    if (!isRegular(fileName))
        return std::nullopt;

    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly) || file.size() > limit)
        return std::nullopt;

    const QByteArray data = file.read(file.size());
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return data;
}

bool FileBytes::write(const QString &fileName, const QByteArray &data)
{
    if (isBlocked(fileName))
        return false;

    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;

    const bool written = writeAll(file, data);
    file.close();
    return written && file.error() == QFileDevice::NoError;
}

bool FileBytes::replace(const QString &fileName, const QByteArray &data)
{
    if (isBlocked(fileName))
        return false;

    QSaveFile file(fileName);
    return file.open(QIODevice::WriteOnly) && writeAll(file, data) && file.commit();
}
