#include "model/ProjectWriter.h"

#include "model/ArchiveNames.h"
#include "model/ArchivePicture.h"
#include "model/Image.h"
#include "model/ImageJson.h"
#include "model/JsonValues.h"
#include "model/Map.h"
#include "model/MapJson.h"
#include "model/MapObjects.h"
#include "model/MapObjectsJson.h"
#include "model/Palette.h"
#include "model/PaletteJson.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/SpriteBankJson.h"
#include "model/TileMap.h"
#include "model/TileSet.h"
#include "model/TileSetJson.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

template <typename Documents, typename Write>
QJsonArray toArray(const Documents &documents, Write write)
{
    QJsonArray array;
    for (const auto &document : documents) {
        if (document)
            array.append(write(*document));
    }
    return array;
}

QJsonObject sizeToJson(QSize size)
{
    return {{"width"_L1, size.width()}, {"height"_L1, size.height()}};
}

QJsonObject rectToJson(QRect rect)
{
    QJsonObject object;
    JsonValues::insertRect(object, rect);
    return object;
}

} // namespace

ProjectWriter::ProjectWriter(const Project *project)
    : m_project(project)
{
}

QMap<QString, QByteArray> ProjectWriter::entries(bool includeOpenDocuments) const
{
    QMap<QString, QByteArray> entries;
    entries.insert(ArchiveNames::Project, json(includeOpenDocuments));
    for (const auto &tileSet : m_project->tileSets()) {
        if (tileSet && tileSet->count() > 0)
            entries.insert(ArchiveNames::tileSet(tileSet->id()), TileSetJson::picture(*tileSet));
    }
    for (const auto &map : m_project->maps()) {
        if (map && map->tileLayer()) {
            const TileMap *layer = map->tileLayer();
            entries.insert(ArchiveNames::tileMap(map->id()), layer->toData(layer->rect()));
        }
    }
    for (const auto &bank : m_project->spriteBanks()) {
        if (bank) {
            entries.insert(ArchiveNames::sprite(bank->id()),
                           ArchivePicture::encoded(bank->image()));
        }
    }
    for (const auto &image : m_project->images()) {
        if (image)
            entries.insert(ArchiveNames::image(image->id()), ImageJson::picture(*image));
    }
    entries.insert(ArchiveNames::Scratch, ArchivePicture::encoded(m_project->scratchImage()));
    return entries;
}

QByteArray ProjectWriter::json(bool includeOpenDocuments) const
{
    const QStringList openDocuments =
        includeOpenDocuments ? m_project->openDocuments() : QStringList();
    const QJsonObject root{
        {"formatVersion"_L1, FormatVersion},
        {"id"_L1, m_project->id().toString()},
        {"name"_L1, m_project->name()},
        {"screen_size"_L1, sizeToJson(m_project->screenSize())},
        {"play_area"_L1, rectToJson(m_project->playArea())},
        {"scratchPalette"_L1, m_project->scratchPaletteId().toString()},
        {"opendocuments"_L1, QJsonArray::fromStringList(openDocuments)},
        {"palettes"_L1, toArray(m_project->palettes(), PaletteJson::write)},
        {"tilesets"_L1, toArray(m_project->tileSets(), TileSetJson::write)},
        {"maps"_L1, toArray(m_project->maps(), MapJson::write)},
        {"mapObjects"_L1, toArray(m_project->mapObjects(), MapObjectsJson::write)},
        {"sprites"_L1, toArray(m_project->spriteBanks(), SpriteBankJson::write)},
        {"images"_L1, toArray(m_project->images(), ImageJson::write)},
    };
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}
