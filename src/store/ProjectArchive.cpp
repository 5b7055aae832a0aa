#include "store/ProjectArchive.h"

#include "model/ArchiveNames.h"
#include "model/Project.h"
#include "model/ProjectReader.h"
#include "store/ZipFile.h"

namespace ProjectArchive {

namespace {

bool fail(QString *error, const QString &message)
{
    *error = message;
    return false;
}

/// Whether load() would take an entry back. A picture that is too high for a PNG comes empty.
bool isLoadable(const QString &name, const QByteArray &data)
{
    if (name == ArchiveNames::Project)
        return ProjectReader::accepts(data);
    return !data.isEmpty() && data.size() <= ZipFile::MaxEntrySize;
}

/// The most that an entry may unpack to.
qint64 limitOf(const QString &name)
{
    return name == ArchiveNames::Project ? ProjectReader::MaxJsonSize : ZipFile::MaxEntrySize;
}

} // namespace

bool load(Project *project, const QString &path, QString *error)
{
    ZipFile zip;
    if (!zip.open(path))
        return fail(error, QStringLiteral("Invalid project file"));
    return project->load([&zip](const QString &name) { return zip.read(name, limitOf(name)); },
                         error);
}

bool save(const QMap<QString, QByteArray> &entries, const QString &path, QString *error)
{
    ZipFile zip;
    if (!zip.create(path))
        return fail(error, QStringLiteral("Could not create the project file"));
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
        // What could not be read again must not take the place of what can.
        if (!isLoadable(entry.key(), *entry) || !zip.write(entry.key(), *entry))
            return fail(error, QStringLiteral("Could not write %1").arg(entry.key()));
    }
    if (!zip.finish())
        return fail(error, QStringLiteral("Could not finish writing the project file"));
    return true;
}

} // namespace ProjectArchive
