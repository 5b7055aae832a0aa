#include "store/ProjectFile.h"

#include "model/Project.h"
#include "store/ProjectArchive.h"

#include <QCryptographicHash>
#include <QDebug>
#include <QDir>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

constexpr int MaxLinks = 40;        // as many as the system itself follows
constexpr int MaxSiblingName = 255; // bytes, of most file systems
const QString SiblingSuffix = QStringLiteral(".previous");

/// Where the links of @p fileName end; @p fileName itself if they lead in a circle.
QString withoutLinks(const QString &fileName)
{
    QString path = fileName;
    for (int i = 0; i < MaxLinks; ++i) {
        const QFileInfo info(path);
        if (!info.isSymLink())
            return path;
        path = info.symLinkTarget();
    }
    return fileName;
}

/// Moves a file over another one in one step.
bool replace(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

/// Flushes the names in the folder of @p path. File systems that cannot do that say so with EINVAL.
bool flushFolder(const QString &path)
{
#ifdef Q_OS_UNIX
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const int handle = open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return errno == EACCES; // A folder may be writable and yet not readable.
    const bool flushed = fsync(handle) == 0 || errno == EINVAL;
    close(handle);
    return flushed;
#else
    Q_UNUSED(path)
    return true;
#endif
}

/// Whether a whole project can be read from a file.
bool isLoadable(const QString &path)
{
    Project project;
    QString error;
    return ProjectArchive::load(&project, path, &error);
}

} // namespace

ProjectFile::ProjectFile(const QString &fileName)
    : m_fileName(fileName)
    , m_path(withoutLinks(fileName))
    , m_sibling(siblingOf(fileName))
{
}

QString ProjectFile::siblingOf(const QString &fileName)
{
    const QFileInfo info(withoutLinks(fileName));
    QString name = QLatin1Char('.') + info.fileName() + SiblingSuffix;
    if (QFile::encodeName(name).size() > MaxSiblingName) {
        const QByteArray digest =
            QCryptographicHash::hash(info.fileName().toUtf8(), QCryptographicHash::Sha1);
        name = QLatin1Char('.') + QString::fromLatin1(digest.toHex()) + SiblingSuffix;
    }
    return info.dir().filePath(name);
}

bool ProjectFile::makeRoom(bool backup)
{
    QFileInfo old(m_path);
    if (m_fileName.isEmpty() || old.isSymLink())
        return false; // Links that are left lead in a circle.

    tidyUp();
    old.refresh();
    if (!old.exists())
        return true;
    if (!old.isFile()) {
        m_isDevice = true;
        return !old.isDir();
    }
    if (!old.isWritable())
        return false;

    const QFile::Permissions permissions = old.permissions();
    if (backup)
        moveToBackup();
    if (QFileInfo::exists(m_path)) {
        m_isMoved = replace(m_path, m_sibling);
        if (!m_isMoved)
            return false;
    }
    if (makeEmpty(permissions))
        return true;
    putBack();
    return false;
}

/// Ends what an interrupted save left behind: of the file and its sibling the newer loadable one
/// stays.
void ProjectFile::tidyUp() const
{
    if (!QFileInfo(m_sibling).isFile())
        return;

    if (isLoadable(m_path)) {
        QFile::remove(m_sibling);
    } else if (replace(m_sibling, m_path)) {
        qWarning() << "An interrupted save of" << m_path << "was undone";
    }
}

void ProjectFile::moveToBackup() const
{
    // The results are not looked at: if the file is still there afterwards, it is moved aside.
    const QString backup = QStringLiteral("%1.bak").arg(m_fileName);
    QFile::remove(backup);
    QFile::rename(m_path, backup);
}

/// The new file begins empty, so that it has the old one's permissions before it has content.
bool ProjectFile::makeEmpty(QFile::Permissions permissions) const
{
    QFile file(m_path);
    return file.open(QIODevice::WriteOnly | QIODevice::NewOnly) && file.setPermissions(permissions);
}

bool ProjectFile::keep() const
{
    if (m_isDevice)
        return true;
    if (!flushFolder(m_path))
        return false;
    if (m_isMoved)
        QFile::remove(m_sibling);
    return true;
}

void ProjectFile::putBack() const
{
    if (m_isDevice)
        return;

    QFile::remove(m_path);
    if (m_isMoved && !replace(m_sibling, m_path))
        qWarning() << "The old" << m_path << "could not be put back; it is now" << m_sibling;
}
