#pragma once

#include "model/Enums.h"

#include <QHash>
#include <QImage>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <QStringList>
#include <QUuid>

#include <functional>

class Image;
class Map;
class MapObjects;
class Palette;
class SpriteBank;
class TileSet;

/// The root of all documents: owns them, makes and deletes them, refuses to delete what is in use.
///
/// Every document is a QObject child; the hashes hold guarded pointers by id, in no order that
/// means anything. The null id is never found.
class Project : public QObject
{
    Q_OBJECT

public:
    using EntryReader = std::function<QByteArray(const QString &name)>;

    explicit Project(QObject *parent = nullptr);
    ~Project() override;

    QUuid id() const { return m_id; }
    QString name() const { return m_name; }
    void setName(const QString &name) { m_name = name; }
    /// The Next's screen in pixels, a setting of the project.
    QSize screenSize() const { return m_screenSize; }
    void setScreenSize(QSize size) { m_screenSize = size; }
    /// The part of the screen that the game plays in.
    QRect playArea() const { return m_playArea; }
    void setPlayArea(QRect area) { m_playArea = area; }

    QPointer<Palette> palette(const QUuid &id) const;
    QPointer<TileSet> tileSet(const QUuid &id) const;
    QPointer<SpriteBank> spriteBank(const QUuid &id) const;
    QPointer<Image> image(const QUuid &id) const;
    QPointer<Map> map(const QUuid &id) const;
    QPointer<MapObjects> blocks(const QUuid &id) const;

    QList<QPointer<Palette>> palettes() const { return m_palettes.values(); }
    QList<QPointer<TileSet>> tileSets() const { return m_tileSets.values(); }
    QList<QPointer<SpriteBank>> spriteBanks() const { return m_spriteBanks.values(); }
    QList<QPointer<Image>> images() const { return m_images.values(); }
    QList<QPointer<Map>> maps() const { return m_maps.values(); }
    QList<QPointer<MapObjects>> mapObjects() const { return m_mapObjects.values(); }

    const QImage &scratchImage() const { return m_scratchImage; }
    void setScratchImage(const QImage &image) { m_scratchImage = image; }
    QUuid scratchPaletteId() const { return m_scratchPaletteId; }
    void setScratchPaletteId(const QUuid &id) { m_scratchPaletteId = id; }
    QPointer<Palette> scratchPalette() const { return palette(m_scratchPaletteId); }

    /// The tabs that were open at the last save.
    QStringList openDocuments() const { return m_openDocuments; }
    void setOpenDocuments(const QStringList &documents) { m_openDocuments = documents; }

    /// For the loader, which makes documents itself: insert, announce and watch. A document with an
    /// id that is already there replaces the earlier one.
    void addPalette(Palette *palette);
    void addTileSet(TileSet *tileSet);
    void addBlocks(MapObjects *blocks);
    void addSpriteBank(SpriteBank *bank);
    void addMap(Map *map);
    void addImage(Image *image);

    /// The whole project as archive entries by name. Without the open documents it is what the
    /// digest is made of.
    QMap<QString, QByteArray> archiveEntries(bool includeOpenDocuments) const;
    /// Fills an empty project. On failure returns false with @p error in the user's words; what was
    /// made by then is of no use.
    [[nodiscard]] bool load(const EntryReader &read, QString *error);

signals:
    /// A text for the status bar; @p duration in milliseconds, 0 stays.
    void showMessage(QString message, int duration);
    void showMessage(QString message);
    void error(QString message);
    /// The names of all tile sets by id.
    void tileSetsChanged(QHash<QUuid, QString> list);
    void imageCreated(QPointer<Image> image);
    void paletteCreated(QPointer<Palette> palette);
    void tilesetCreated(QPointer<TileSet> tileset);
    void blocksCreated(QPointer<MapObjects> blocks);
    void mapCreated(QPointer<Map> map);
    void spritesCreated(QPointer<SpriteBank> sprites);

public slots:
    QPointer<Palette> createPalette(CreateAction action, QString name, QUuid source);
    QPointer<Palette> createPalette(CreateAction action, QString name);
    /// The deletes: false, with nothing changed, if the document is in use; an unknown id is done.
    bool deletePalette(QUuid id);
    /// @p palette is null for a new blank one of the same name, else an existing one.
    QPointer<TileSet> createTileSet(QString name, QUuid palette, int tileCount, bool hiRes);
    QPointer<TileSet> createTileSet(QString name, QUuid palette, int tileCount);
    QPointer<TileSet> createTileSet(QString name, QUuid palette);
    bool deleteTileSet(QUuid id);
    QPointer<MapObjects> createBlockList(QString name, QUuid tile);
    bool deleteBlocks(QUuid id);
    /// @p tileSet must exist; @p size in cells.
    QPointer<Map> createMap(QString name, QUuid tileSet, QSize size);
    bool deleteMap(QUuid id);
    QPointer<SpriteBank> createSpriteBank(Tessaril::Sprite depth, QString name, QUuid palette);
    bool deleteSpriteBank(QUuid id);
    QPointer<Image> createImage(Tessaril::ImageMode mode, QString name, QUuid paletteId);
    QStringList paletteNames() const;
    /// The clones are named with " (copy)" behind; null for an unknown id.
    QPointer<Map> cloneMap(QUuid id);
    QPointer<Palette> clonePalette(QUuid id);
    QPointer<TileSet> cloneTileSet(QUuid id);

private:
    friend class ProjectReader; // fills the fields of an empty project

    void moveSpriteReferences(const QUuid &bank, int from, int to);
    void deleteSpriteReferences(const QUuid &bank, int index);

    QUuid m_id;
    QString m_name = QStringLiteral("untitled");
    QSize m_screenSize{320, 256};
    QRect m_playArea{0, 0, 320, 256};
    QHash<QUuid, QPointer<Palette>> m_palettes;
    QHash<QUuid, QPointer<TileSet>> m_tileSets;
    QHash<QUuid, QPointer<SpriteBank>> m_spriteBanks;
    QHash<QUuid, QPointer<Image>> m_images;
    QHash<QUuid, QPointer<Map>> m_maps;
    QHash<QUuid, QPointer<MapObjects>> m_mapObjects;
    QImage m_scratchImage;
    QUuid m_scratchPaletteId;
    QStringList m_openDocuments;
};
