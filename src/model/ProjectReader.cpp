#include "model/ProjectReader.h"

#include "model/AnimatedBlocks.h"
#include "model/ArchiveNames.h"
#include "model/ArchivePicture.h"
#include "model/ImageJson.h"
#include "model/JsonValues.h"
#include "model/Map.h"
#include "model/MapJson.h"
#include "model/MapObjects.h"
#include "model/MapObjectsJson.h"
#include "model/Palette.h"
#include "model/PaletteJson.h"
#include "model/ProjectWriter.h"
#include "model/SpriteBankJson.h"
#include "model/TileAnimation.h"
#include "model/TileSetJson.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

qint64 cellCount(const TileMap &layer, const QRect &rect)
{
    const QRect inside = layer.insidePart(rect);
    return qint64(inside.width()) * inside.height();
}

/// The cells that restoring a map's placed blocks writes: those below each block, and the first
/// frame of each animation that bears its id.
qint64 placedCellCount(const Map &map, const QList<MapObjects *> &blocks)
{
    qint64 count = 0;
    for (const auto &placed : map.animatedBlocks()->blocks()) {
        count += cellCount(*map.tileLayer(), placed->rect);
        for (const MapObjects *list : blocks) {
            if (const auto animation = list->animation(placed->id))
                count += cellCount(*map.tileLayer(), {placed->rect.topLeft(), animation->size()});
        }
    }
    return count;
}

} // namespace

ProjectReader::ProjectReader(Project *project, const Project::EntryReader &read)
    : m_project(project)
    , m_context(project, read)
{
}

bool ProjectReader::load(QString *error)
{
    const bool loaded = readProject();
    if (!loaded && error)
        *error = m_context.error();
    return loaded;
}

bool ProjectReader::readProject()
{
    QJsonObject root;
    if (!readRoot(&root))
        return false;

    readSettings(root);
    if (!readAll(root, "palettes"_L1, PaletteJson::read) ||
        !readAll(root, "tilesets"_L1, TileSetJson::read) ||
        !readAll(root, "maps"_L1, MapJson::read) ||
        !readAll(root, "sprites"_L1, SpriteBankJson::read) ||
        !readAll(root, "images"_L1, ImageJson::read))
        return false;
    readScratch();
    if (!readAll(root, "mapObjects"_L1, MapObjectsJson::read))
        return false;
    return restoreAnimations();
}

bool ProjectReader::accepts(const QByteArray &json)
{
    return json.size() <= MaxJsonSize && json.count('{') + json.count('[') <= MaxJsonNodes;
}

bool ProjectReader::readRoot(QJsonObject *root)
{
    const QByteArray json = m_context.entry(ArchiveNames::Project);
    if (json.isEmpty() || !accepts(json))
        return m_context.failAsInvalid();

    QJsonParseError parsed;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parsed);
    if (parsed.error != QJsonParseError::NoError) {
        qWarning().noquote() << ArchiveNames::Project << "cannot be parsed at byte" << parsed.offset
                             << "and counts as empty:" << parsed.errorString();
    }
    *root = document.object();
    if (root->value("formatVersion"_L1).toInt(1) > ProjectWriter::FormatVersion) {
        return m_context.fail(QStringLiteral("Project file is from a newer version of Tessaril"));
    }
    return true;
}

void ProjectReader::readSettings(const QJsonObject &root)
{
    m_project->m_name = root.value("name"_L1).toString();
    m_project->m_id = JsonValues::id(root, "id"_L1);
    const QJsonObject screen = root.value("screen_size"_L1).toObject();
    const QSize standard = m_project->m_screenSize;
    m_project->m_screenSize = {JsonValues::coordinate(screen, "width"_L1, standard.width()),
                               JsonValues::coordinate(screen, "height"_L1, standard.height())};
    m_project->m_playArea =
        JsonValues::rect(root.value("play_area"_L1).toObject(), m_project->m_playArea);
    m_project->m_scratchPaletteId = JsonValues::id(root, "scratchPalette"_L1);
    m_project->m_openDocuments.clear();
    const QJsonArray openDocuments = root.value("opendocuments"_L1).toArray();
    for (const auto &document : openDocuments)
        m_project->m_openDocuments += document.toString();
}

bool ProjectReader::readAll(const QJsonObject &root, QLatin1String key, DocumentReader read)
{
    const QJsonArray documents = root.value(key).toArray();
    if (!m_context.takeDocuments(documents.size()))
        return false;
    for (const auto &document : documents) {
        if (!read(document.toObject(), m_context))
            return false;
    }
    return true;
}

void ProjectReader::readScratch()
{
    if (!m_project->scratchPalette() && !m_project->m_palettes.isEmpty())
        m_project->m_scratchPaletteId = m_project->m_palettes.constBegin().key();
    const QByteArray png = m_context.entry(ArchiveNames::Scratch);
    if (const std::optional<QImage> image = ArchivePicture::decodedIndices(png))
        m_project->m_scratchImage = *image;
}

bool ProjectReader::restoreAnimations()
{
    QList<MapObjects *> blocks;
    for (const auto &each : std::as_const(m_project->m_mapObjects)) {
        if (each)
            blocks += each;
    }
    for (const auto &map : std::as_const(m_project->m_maps)) {
        if (!map)
            continue;
        // Looking through the lists is work, too.
        if (!m_context.takePlacedCells(map->animatedBlocks()->blocks().size() * blocks.size()) ||
            !m_context.takePlacedCells(placedCellCount(*map, blocks)))
            return false;
        map->restoreAnimations(blocks);
    }
    return true;
}
