#include "store/ProjectStore.h"

#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/TileSet.h"
#include "store/ProjectArchive.h"
#include "store/ProjectFile.h"

#include <QCryptographicHash>
#include <QDebug>
#include <QDir>
#include <QFileInfo>

namespace {

constexpr int NoticeMs = 2500;
constexpr int ExportNoticeMs = 2000;

/// Whether a file of that name would lie in the folder that it is meant for.
bool isPlainName(const QString &name)
{
    return !name.contains(QLatin1Char('/')) && !name.contains(QDir::separator()) &&
           !name.contains(QChar::Null);
}

/// Writes a document's quick export into @p dir.
template <typename Document>
bool exportTo(const QString &dir, const QString &pattern, const QPointer<Document> &document)
{
    const QString name = pattern.arg(document->name());
    return isPlainName(name) && document->exportData(QDir(dir).filePath(name));
}

} // namespace

ProjectStore::ProjectStore(QObject *parent)
    : QObject(parent)
{
}

ProjectStore::~ProjectStore() = default;

QPointer<Project> ProjectStore::create(const QString &name)
{
    close();
    m_project = new Project(this);
    m_project->setName(name);
    return m_project;
}

bool ProjectStore::load(const QString &filePath)
{
    QString error;
    if (!loadFrom(filePath, &error) && !loadSibling(filePath)) {
        emit loadError(error);
        close();
        return false;
    }

    emit projectLoad(m_project->name());
    m_fileName = filePath;
    emit showMessage(QStringLiteral("Project loaded"), NoticeMs);
    return true;
}

bool ProjectStore::loadFrom(const QString &filePath, QString *error)
{
    create(QStringLiteral("loading..."));
    return ProjectArchive::load(m_project, filePath, error);
}

/// What an interrupted save moved aside is the project, if the file itself is missing or damaged.
bool ProjectStore::loadSibling(const QString &filePath)
{
    const QString sibling = ProjectFile::siblingOf(filePath);
    QString error;
    if (!QFileInfo::exists(sibling) || !loadFrom(sibling, &error))
        return false;

    qWarning() << "Loaded" << sibling << "in place of" << filePath;
    return true;
}

bool ProjectStore::save(bool backup)
{
    if (!m_project)
        return false;

    QString error;
    if (!write(backup, &error)) {
        emit saveError(error);
        return false;
    }
    emit showMessage(QStringLiteral("Saved %1 to %2").arg(m_project->name(), m_fileName), NoticeMs);
    return true;
}

bool ProjectStore::write(bool backup, QString *error)
{
    // Before anything is moved, so that the file is missing for as short as possible.
    const QMap<QString, QByteArray> entries = m_project->archiveEntries(true);
    ProjectFile file(m_fileName);
    if (!file.makeRoom(backup)) {
        *error = QStringLiteral("Could not create the project file");
        return false;
    }
    if (!ProjectArchive::save(entries, file.path(), error)) {
        file.putBack();
        return false;
    }
    if (!file.keep()) {
        *error = QStringLiteral("Could not finish writing the project file");
        file.putBack();
        return false;
    }
    return true;
}

void ProjectStore::close()
{
    delete m_project;
    m_fileName.clear();
}

QByteArray ProjectStore::digest() const
{
    if (!m_project)
        return {};

    QCryptographicHash hash(QCryptographicHash::Sha1);
    const QMap<QString, QByteArray> entries = m_project->archiveEntries(false);
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
        hash.addData(entry.key().toUtf8());
        hash.addData(*entry);
    }
    return hash.result();
}

void ProjectStore::exportMap(QString dir, QUuid id)
{
    const QPointer<Map> map = m_project ? m_project->map(id) : nullptr;
    if (!map)
        emit saveError(QStringLiteral("Invalid map id"));
    else if (exportTo(dir, QStringLiteral("%1_tilemap.bin"), map))
        emit showMessage(QStringLiteral("Map exported"), ExportNoticeMs);
    else
        emit saveError(QStringLiteral("Exporting the map failed"));
}

void ProjectStore::exportTiles(QString dir, QUuid id)
{
    const QPointer<TileSet> tileSet = m_project ? m_project->tileSet(id) : nullptr;
    if (!tileSet)
        emit saveError(QStringLiteral("Invalid tile set id"));
    else if (exportTo(dir, QStringLiteral("%1_tiles.nxt"), tileSet))
        emit showMessage(QStringLiteral("Tile set exported"), ExportNoticeMs);
    else
        emit saveError(QStringLiteral("Exporting the tile set failed"));
}

void ProjectStore::exportPalette(QString dir, QUuid id)
{
    const QPointer<Palette> palette = m_project ? m_project->palette(id) : nullptr;
    if (!palette)
        emit saveError(QStringLiteral("Invalid palette id"));
    else if (exportTo(dir, QStringLiteral("%1_palette.bin"), palette))
        emit showMessage(QStringLiteral("Palette exported"), ExportNoticeMs);
    else
        emit saveError(QStringLiteral("Exporting the palette failed"));
}
