#include "model/Project.h"

#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/ProjectClones.h"
#include "model/ProjectReader.h"
#include "model/ProjectWriter.h"
#include "model/SpriteBank.h"
#include "model/SpriteReferences.h"
#include "model/TileMap.h"
#include "model/TileSet.h"

#include <algorithm>

namespace {

constexpr int NoticeMs = 2500;
constexpr QSize ScratchSize{256, 192}; // pixels

/// The document of that id. The null id is never found, even if a damaged file made a document
/// that bears it.
template <typename Document>
QPointer<Document> find(const QHash<QUuid, QPointer<Document>> &documents, const QUuid &id)
{
    return id.isNull() ? nullptr : documents.value(id);
}

/// Enters a document; an earlier one of the same id ends.
template <typename Document>
void enter(QHash<QUuid, QPointer<Document>> &documents, Document *document)
{
    const QPointer<Document> earlier = documents.value(document->id());
    documents.insert(document->id(), document);
    if (earlier && earlier != document)
        delete earlier;
}

/// Takes a document out and ends it.
template <typename Document>
void drop(QHash<QUuid, QPointer<Document>> &documents, const QUuid &id)
{
    delete documents.take(id);
}

template <typename Documents, typename Predicate>
bool any(const Documents &documents, Predicate predicate)
{
    return std::any_of(documents.cbegin(), documents.cend(),
                       [&](const auto &document) { return document && predicate(document); });
}

/// The documents are only declared where the signals name them, so their pointers are not known to
/// the meta-object system of themselves.
void registerTypes()
{
    qRegisterMetaType<QPointer<Image>>();
    qRegisterMetaType<QPointer<Map>>();
    qRegisterMetaType<QPointer<MapObjects>>();
    qRegisterMetaType<QPointer<Palette>>();
    qRegisterMetaType<QPointer<SpriteBank>>();
    qRegisterMetaType<QPointer<TileSet>>();
}

} // namespace

Project::Project(QObject *parent)
    : QObject(parent)
    , m_id(QUuid::createUuid())
    , m_scratchImage(ScratchSize, QImage::Format_Indexed8)
{
    m_scratchImage.fill(0);
    registerTypes();
}

Project::~Project()
{
    // Before the other children: maps refer to tile sets, and tile sets to palettes.
    qDeleteAll(m_maps);
    m_maps.clear();
    qDeleteAll(m_tileSets);
    m_tileSets.clear();
    qDeleteAll(m_palettes);
    m_palettes.clear();
}

QPointer<Palette> Project::palette(const QUuid &id) const
{
    return find(m_palettes, id);
}

QPointer<TileSet> Project::tileSet(const QUuid &id) const
{
    return find(m_tileSets, id);
}

QPointer<SpriteBank> Project::spriteBank(const QUuid &id) const
{
    return find(m_spriteBanks, id);
}

QPointer<Image> Project::image(const QUuid &id) const
{
    return find(m_images, id);
}

QPointer<Map> Project::map(const QUuid &id) const
{
    return find(m_maps, id);
}

QPointer<MapObjects> Project::blocks(const QUuid &id) const
{
    return find(m_mapObjects, id);
}

void Project::addPalette(Palette *palette)
{
    enter(m_palettes, palette);
    emit showMessage(QStringLiteral("New palette added: %1").arg(palette->name()), NoticeMs);
}

void Project::addTileSet(TileSet *tileSet)
{
    enter(m_tileSets, tileSet);
    QHash<QUuid, QString> names;
    for (const auto &each : std::as_const(m_tileSets)) {
        if (each)
            names.insert(each->id(), each->name());
    }
    emit tileSetsChanged(names);
    emit showMessage(QStringLiteral("New tile set added: %1").arg(tileSet->name()), NoticeMs);
}

void Project::addBlocks(MapObjects *blocks)
{
    enter(m_mapObjects, blocks);
    emit showMessage(QStringLiteral("New block set added: %1").arg(blocks->name()), NoticeMs);
}

void Project::addSpriteBank(SpriteBank *bank)
{
    enter(m_spriteBanks, bank);
    const QUuid id = bank->id();
    connect(bank, &SpriteBank::spriteMoved, this,
            [this, id](int from, int to) { moveSpriteReferences(id, from, to); });
    connect(bank, &SpriteBank::spriteDeleted, this,
            [this, id](int index) { deleteSpriteReferences(id, index); });
}

void Project::addMap(Map *map)
{
    enter(m_maps, map);
}

void Project::addImage(Image *image)
{
    enter(m_images, image);
}

QMap<QString, QByteArray> Project::archiveEntries(bool includeOpenDocuments) const
{
    return ProjectWriter(this).entries(includeOpenDocuments);
}

bool Project::load(const EntryReader &read, QString *error)
{
    return ProjectReader(this, read).load(error);
}

QPointer<Palette> Project::createPalette(CreateAction action, QString name, QUuid source)
{
    auto *created = new Palette(this);
    created->setName(name);
    switch (action) {
    case CreateCopy:
        if (const QPointer<Palette> original = palette(source))
            ProjectClones::copyWords(created, *original);
        break;
    case CreateDefault:
        created->setDefaultColours();
        break;
    case CreateBlank:
    case CreateEmpty:
        for (int i = 0; i < Palette::Size; ++i)
            created->setColour(i, Qt::black);
        break;
    }
    addPalette(created);
    emit paletteCreated(created);
    return created;
}

QPointer<Palette> Project::createPalette(CreateAction action, QString name)
{
    return createPalette(action, name, QUuid());
}

bool Project::deletePalette(QUuid id)
{
    if (!m_palettes.contains(id))
        return true;

    const auto isBound = [id](const auto &document) {
        return document->palette() && document->palette()->id() == id;
    };
    if (m_scratchPaletteId == id || any(m_tileSets, isBound) || any(m_spriteBanks, isBound) ||
        any(m_images, isBound))
        return false;
    drop(m_palettes, id);
    return true;
}

QPointer<TileSet> Project::createTileSet(QString name, QUuid palette, int tileCount, bool hiRes)
{
    auto *created = new TileSet(this, tileCount);
    created->setHiRes(hiRes);
    if (palette.isNull())
        palette = createPalette(CreateBlank, name)->id();
    created->setName(name);
    created->setPalette(this->palette(palette));
    addTileSet(created);
    emit tilesetCreated(created);
    return created;
}

QPointer<TileSet> Project::createTileSet(QString name, QUuid palette, int tileCount)
{
    return createTileSet(name, palette, tileCount, false);
}

QPointer<TileSet> Project::createTileSet(QString name, QUuid palette)
{
    return createTileSet(name, palette, TileSet::DefaultCount, false);
}

bool Project::deleteTileSet(QUuid id)
{
    if (!m_tileSets.contains(id))
        return true;

    if (any(m_maps, [id](const auto &map) { return map->tileSetId() == id; }))
        return false;
    drop(m_tileSets, id);
    return true;
}

QPointer<MapObjects> Project::createBlockList(QString name, QUuid tile)
{
    auto *created = new MapObjects(this);
    created->setTileSet(tileSet(tile));
    created->setName(name);
    addBlocks(created);
    emit blocksCreated(created);
    return created;
}

bool Project::deleteBlocks(QUuid id)
{
    if (!m_mapObjects.contains(id))
        return true;

    const auto listsBlocks = [id](const auto &map) {
        return map->tileSet() && map->tileSet()->blockLists().contains(id);
    };
    if (any(m_maps, listsBlocks))
        return false;
    drop(m_mapObjects, id);
    return true;
}

QPointer<Map> Project::createMap(QString name, QUuid tileSet, QSize size)
{
    const QPointer<TileSet> tiles = this->tileSet(tileSet);
    if (!tiles || !TileMap::isAllowed(size))
        return nullptr;

    auto *created = new Map(name, this);
    auto *objectLayer = new TileMap(size, this);
    objectLayer->setVisible(false);
    created->setTileLayer(new TileMap(size, this));
    created->setObjectLayer(objectLayer);
    created->setTileSet(tiles);
    created->resize(size, Qt::AlignTop);
    addMap(created);
    emit mapCreated(created);
    return created;
}

bool Project::deleteMap(QUuid id)
{
    drop(m_maps, id);
    return true;
}

QPointer<SpriteBank> Project::createSpriteBank(Tessaril::Sprite depth, QString name, QUuid palette)
{
    auto *created = new SpriteBank(depth, this);
    created->setName(name);
    if (const QPointer<Palette> colours = this->palette(palette))
        created->setPalette(colours);
    addSpriteBank(created);
    emit spritesCreated(created);
    return created;
}

bool Project::deleteSpriteBank(QUuid id)
{
    drop(m_spriteBanks, id);
    return true;
}

QPointer<Image> Project::createImage(Tessaril::ImageMode mode, QString name, QUuid paletteId)
{
    auto *created = new Image(mode, this);
    created->setName(name);
    if (const QPointer<Palette> colours = palette(paletteId))
        created->setPalette(colours);
    addImage(created);
    emit imageCreated(created);
    return created;
}

QStringList Project::paletteNames() const
{
    QStringList names;
    for (const auto &each : m_palettes) {
        if (each)
            names += each->name();
    }
    return names;
}

QPointer<Map> Project::cloneMap(QUuid id)
{
    const QPointer<Map> source = map(id);
    return source ? ProjectClones::clone(this, *source) : nullptr;
}

QPointer<Palette> Project::clonePalette(QUuid id)
{
    const QPointer<Palette> source = palette(id);
    return source ? ProjectClones::clone(this, *source) : nullptr;
}

QPointer<TileSet> Project::cloneTileSet(QUuid id)
{
    const QPointer<TileSet> source = tileSet(id);
    return source ? ProjectClones::clone(this, *source) : nullptr;
}

void Project::moveSpriteReferences(const QUuid &bank, int from, int to)
{
    for (const auto &map : std::as_const(m_maps)) {
        if (map)
            SpriteReferences::followMove(&map->sprites(), bank, from, to);
    }
}

void Project::deleteSpriteReferences(const QUuid &bank, int index)
{
    for (const auto &map : std::as_const(m_maps)) {
        if (map)
            SpriteReferences::followDelete(&map->sprites(), bank, index);
    }
}
