#include "store/ProjectArchive.h"

#include "model/ArchiveNames.h"
#include "model/ArchivePicture.h"
#include "model/Project.h"
#include "model/ProjectReader.h"
#include "model/TileMapData.h"
#include "store/ZipFile.h"

namespace ProjectArchive {

namespace {

constexpr qint64 Surplus = 1024 * 1024; // bytes behind the cells of a map that are let pass

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

/// The most that an entry may unpack to: a small file must not make a load unpack gigabytes that no
/// reader could use.
qint64 limitOf(ZipFile &zip, const QString &name)
{
    if (name == ArchiveNames::Project)
        return ProjectReader::MaxJsonSize;
    if (ArchiveNames::isTileMap(name))
        return TileMapData::claimedSize(zip.readStart(name, TileMapData::HeaderBytes)) + Surplus;
    return ArchivePicture::maxSize();
}

} // namespace

bool load(Project *project, const QString &path, QString *error)
{
    ZipFile zip;
    if (!zip.open(path))
        return fail(error, QStringLiteral("Invalid project file"));
    return project->load([&zip](const QString &name) { return zip.read(name, limitOf(zip, name)); },
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
