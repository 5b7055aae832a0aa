#include "model/ProjectWriter.h"

#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"
#include "support/TestProjects.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using TestProjects::Entries;

class tst_ProjectWriter : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void anEmptyProjectHasTwoEntries();
    void everyDocumentHasItsEntry();
    void aTileSetOfOneTileHasItsPicture();
    void aTileSetWithoutTilesHasNoPicture();
    void theJsonIsIndentedWithSortedKeys();
    void theTopLevelHoldsTheSettings();
    void openDocumentsAreLeftOutOfTheDigest();
    void aPaletteHoldsItsWords();
    void aTileSetHoldsItsTilesTwice();
    void aMapHoldsItsSettings();
    void aMapHoldsItsPlacedBlocksAndSprites();
    void aBlockListHoldsItsAnimations();
    void aSpriteBankHoldsItsAnimations();
    void anImageHoldsItsMode();
    void whatIsNotBoundIsWrittenAsTold();
    void theTileSetPictureHoldsAllTilesInThePalettesColours();
    void anImageHasThePresentColoursOfItsPalette();
    void theTileMapEntryIsTheTileLayer();

private:
    QJsonObject first(const QString &key) const
    {
        return m_json.value(key).toArray().at(0).toObject();
    }

    std::unique_ptr<Project> m_project;
    Entries m_entries;
    QJsonObject m_json;
};

namespace {

QStringList keys(const QJsonObject &object)
{
    return object.keys();
}

} // namespace

void tst_ProjectWriter::init()
{
    m_project = std::make_unique<Project>();
    TestProjects::fill(m_project.get());
    m_entries = m_project->archiveEntries(true);
    m_json = TestProjects::json(m_entries);
}

void tst_ProjectWriter::anEmptyProjectHasTwoEntries()
{
    const Entries entries = Project().archiveEntries(true);

    QCOMPARE(entries.keys(), (QStringList{"project.json", "scratch.png"}));
    QCOMPARE(TestProjects::json(entries).value("scratchPalette").toString(),
             QStringLiteral("{00000000-0000-0000-0000-000000000000}"));
}

void tst_ProjectWriter::everyDocumentHasItsEntry()
{
    const QStringList expected{
        "images/" + m_project->images().first()->id().toString() + ".png",
        "project.json",
        "scratch.png",
        "sprite/" + m_project->spriteBanks().first()->id().toString() + ".png",
        "tilemap/" + m_project->maps().first()->id().toString(),
        "tileset/" + m_project->tileSets().first()->id().toString() + ".png",
    };

    QCOMPARE(m_entries.keys(), expected);
    for (auto entry = m_entries.cbegin(); entry != m_entries.cend(); ++entry) {
        if (entry.key().endsWith(".png"))
            QCOMPARE(entry->mid(1, 3), QByteArray("PNG"));
    }
}

void tst_ProjectWriter::aTileSetOfOneTileHasItsPicture()
{
    Project project;
    const QUuid id = project.createTileSet("one", QUuid(), 1)->id();

    const QByteArray png = project.archiveEntries(true).value("tileset/" + id.toString() + ".png");

    QCOMPARE(QImage::fromData(png).size(), QSize(8, 8));
}

void tst_ProjectWriter::aTileSetWithoutTilesHasNoPicture()
{
    Project project;
    project.createTileSet("none", QUuid(), 0);

    const Entries entries = project.archiveEntries(true);

    QCOMPARE(entries.keys(), (QStringList{"project.json", "scratch.png"}));
}

void tst_ProjectWriter::theJsonIsIndentedWithSortedKeys()
{
    const QByteArray json = m_entries.value("project.json");

    QVERIFY(json.startsWith("{\n    \"formatVersion\": 2,\n    \"id\": \"{"));
    QCOMPARE(keys(m_json), (QStringList{"formatVersion", "id", "images", "mapObjects", "maps",
                                        "name", "opendocuments", "palettes", "play_area",
                                        "scratchPalette", "screen_size", "sprites", "tilesets"}));
}

void tst_ProjectWriter::theTopLevelHoldsTheSettings()
{
    QCOMPARE(m_json.value("formatVersion").toInt(), 2);
    QCOMPARE(m_json.value("id").toString(), m_project->id().toString());
    QCOMPARE(m_json.value("name").toString(), m_project->name());
    QCOMPARE(m_json.value("screen_size").toObject(),
             (QJsonObject{{"width", 256}, {"height", 192}}));
    QCOMPARE(m_json.value("play_area").toObject(),
             (QJsonObject{{"x", 16}, {"y", 8}, {"width", 200}, {"height", 100}}));
    QCOMPARE(m_json.value("scratchPalette").toString(), m_project->scratchPaletteId().toString());
}

void tst_ProjectWriter::openDocumentsAreLeftOutOfTheDigest()
{
    QCOMPARE(m_json.value("opendocuments").toVariant().toStringList(), m_project->openDocuments());

    const QJsonObject digested = TestProjects::json(m_project->archiveEntries(false));

    QCOMPARE(digested.value("opendocuments"), QJsonValue(QJsonArray()));
}

void tst_ProjectWriter::aPaletteHoldsItsWords()
{
    const QJsonObject palette = first("palettes");

    QCOMPARE(keys(palette), (QStringList{"colours", "id", "name", "transparency_index"}));
    QCOMPARE(palette.value("id").toString(), m_project->palettes().first()->id().toString());
    QCOMPARE(palette.value("name").toString(), QStringLiteral("Day"));
    QCOMPARE(palette.value("transparency_index").toInt(), 5);
    const QJsonArray colours = palette.value("colours").toArray();
    QCOMPARE(colours.size(), 256);
    QCOMPARE(colours.at(3).toInt(), 0xe381);
    QCOMPARE(colours.at(255).toInt(), 0xffff);
}

void tst_ProjectWriter::aTileSetHoldsItsTilesTwice()
{
    const QJsonObject tileSet = first("tilesets");

    QCOMPARE(keys(tileSet),
             (QStringList{"count", "hires", "id", "name", "offsets", "palette", "tiles"}));
    QCOMPARE(tileSet.value("name").toString(), QStringLiteral("Rocks"));
    QCOMPARE(tileSet.value("hires").toBool(), true);
    QCOMPARE(tileSet.value("palette").toString(), m_project->palettes().first()->id().toString());
    QCOMPARE(tileSet.value("count").toInt(), 5);
    QCOMPARE(tileSet.value("offsets").toArray(), (QJsonArray{1, 2, 3, 4, 5}));
    QCOMPARE(tileSet.value("tiles").toArray().size(), 5);
    QCOMPARE(tileSet.value("tiles").toArray().at(2).toObject(),
             (QJsonObject{{"offset", 3}, {"attributes", 0x12}, {"value", -200}}));
}

void tst_ProjectWriter::aMapHoldsItsSettings()
{
    QJsonObject map = first("maps");
    map.remove("animations");
    map.remove("sprites");

    QCOMPARE(map, (QJsonObject{{"id", m_project->maps().first()->id().toString()},
                               {"name", "Level 1"},
                               {"tileset", m_project->tileSets().first()->id().toString()},
                               {"tile_transparency", 4},
                               {"grid_visible", true},
                               {"tileLayerVisible", false},
                               {"objectLayerVisible", true},
                               {"spriteLayerVisible", false},
                               {"backgroundTileIndex", 2}}));
}

void tst_ProjectWriter::aMapHoldsItsPlacedBlocksAndSprites()
{
    const auto door = m_project->mapObjects().first()->animations().cbegin().value();
    const auto bank = m_project->spriteBanks().first();
    const QJsonObject map = first("maps");

    QCOMPARE(map.value("animations").toArray().at(0).toObject(),
             (QJsonObject{{"id", door->id().toString()},
                          {"x", 2},
                          {"y", 3},
                          {"width", 3},
                          {"height", 2},
                          {"initialDelay", 10},
                          {"repeatDelay", 20},
                          {"startFrame", 1}}));
    QCOMPARE(map.value("sprites").toArray().at(0).toObject(),
             (QJsonObject{{"bank", bank->id().toString()},
                          {"animation", QUuid().toString()},
                          {"sprite", 1},
                          {"x", 10},
                          {"y", -4},
                          {"mirror", true},
                          {"flip", false},
                          {"rotate", true},
                          {"startFrame", 0},
                          {"initialDelay", 0},
                          {"repeatDelay", 0},
                          {"paletteOffset", 9},
                          {"name", "Guard"}}));
}

void tst_ProjectWriter::aBlockListHoldsItsAnimations()
{
    const QJsonObject blocks = first("mapObjects");
    QCOMPARE(keys(blocks), (QStringList{"animations", "id", "name", "tiles"}));
    QCOMPARE(blocks.value("name").toString(), QStringLiteral("Doors"));
    QCOMPARE(blocks.value("tiles").toString(), m_project->tileSets().first()->id().toString());

    const QJsonObject door = blocks.value("animations").toArray().at(0).toObject();
    QCOMPARE(keys(door), (QStringList{"delay", "frames", "height", "id", "name", "type", "width"}));
    QCOMPARE(door.value("name").toString(), QStringLiteral("Gate"));
    QCOMPARE(door.value("width").toInt(), 3);
    QCOMPARE(door.value("height").toInt(), 2);
    QCOMPARE(door.value("delay").toInt(), 2);
    QCOMPARE(door.value("type").toInt(), 1);

    const auto animation = m_project->mapObjects().first()->animations().cbegin().value();
    const QJsonArray frames = door.value("frames").toArray();
    QCOMPARE(frames.size(), 2);
    const QJsonObject frame = frames.at(1).toObject();
    QCOMPARE(keys(frame), (QStringList{"id", "tileData"}));
    QCOMPARE(frame.value("id").toString(), animation->frame(1)->id().toString());
    QCOMPARE(frame.value("tileData").toArray().size(), 6);
    // Cells 9, 10, 11 make the first row, 12, 13, 14 the second.
    QCOMPARE(
        frame.value("tileData").toArray().at(3).toObject(),
        (QJsonObject{
            {"index", 2}, {"offset", 12}, {"flip", true}, {"mirror", true}, {"rotate", false}}));
}

void tst_ProjectWriter::aSpriteBankHoldsItsAnimations()
{
    const QJsonObject bank = first("sprites");
    QCOMPARE(keys(bank), (QStringList{"animations", "depth", "id", "name", "offsets", "palette",
                                      "transparency"}));
    QCOMPARE(bank.value("name").toString(), QStringLiteral("Hero"));
    QCOMPARE(bank.value("palette").toString(), m_project->palettes().first()->id().toString());
    QCOMPARE(bank.value("transparency").toInt(), 7);
    QCOMPARE(bank.value("depth").toInt(-1), 0);
    QCOMPARE(bank.value("offsets").toArray(), (QJsonArray{1, 255, 0, 128}));

    const QJsonObject walk = bank.value("animations").toArray().at(0).toObject();
    QCOMPARE(keys(walk), (QStringList{"delay", "frames", "height", "id", "name", "width"}));
    QCOMPARE(walk.value("name").toString(), QStringLiteral("Walk"));
    QCOMPARE(walk.value("width").toInt(), 2);
    QCOMPARE(walk.value("height").toInt(), 3);
    QCOMPARE(walk.value("delay").toInt(), 3);
    const QJsonArray frames = walk.value("frames").toArray();
    QCOMPARE(frames.size(), 2);
    QCOMPARE(keys(frames.at(0).toObject()), (QStringList{"anim", "id"}));
    QCOMPARE(frames.at(0).toObject().value("anim").toArray().size(), 6);
}

void tst_ProjectWriter::anImageHoldsItsMode()
{
    QCOMPARE(first("images"),
             (QJsonObject{{"id", m_project->images().first()->id().toString()},
                          {"name", "Title"},
                          {"palette", m_project->palettes().first()->id().toString()},
                          {"type", 3}}));
}

void tst_ProjectWriter::whatIsNotBoundIsWrittenAsTold()
{
    Project project;
    project.addTileSet(new TileSet(&project, 1));
    project.createSpriteBank(Tessaril::Sprite::EightBit, "bank", QUuid());
    project.createImage(Tessaril::ImageMode::Layer2_256x192, "image", QUuid());
    project.createBlockList("blocks", QUuid());
    project.addMap(new Map("map", &project));

    m_json = TestProjects::json(project.archiveEntries(true));

    QCOMPARE(first("tilesets").value("palette"), QJsonValue(QString()));
    QCOMPARE(first("sprites").value("palette"), QJsonValue(QString()));
    QCOMPARE(first("images").value("palette"), QJsonValue(QString()));
    QCOMPARE(first("mapObjects").value("tiles"), QJsonValue(QUuid().toString()));
    QCOMPARE(first("maps").value("tileset"), QJsonValue("{00000000-0000-0000-0000-000000000000}"));
    QCOMPARE(first("sprites").value("transparency"), QJsonValue(227));
    QCOMPARE(first("sprites").value("offsets").toArray(), QJsonArray{0});
}

void tst_ProjectWriter::theTileSetPictureHoldsAllTilesInThePalettesColours()
{
    const auto palette = m_project->palettes().first();
    const QString name = "tileset/" + m_project->tileSets().first()->id().toString() + ".png";

    const QImage picture = QImage::fromData(m_entries.value(name));

    QCOMPARE(picture.size(), QSize(8, 40));
    QCOMPARE(picture.format(), QImage::Format_Indexed8);
    QCOMPARE(picture.colorTable(), palette->colourTable());
    QCOMPARE(qAlpha(picture.color(5)), 255); // the transparent entry is made opaque
    QCOMPARE(picture.pixelIndex(0, 0), 0);
    QCOMPARE(picture.pixelIndex(7, 0), 7);
    QCOMPARE(picture.pixelIndex(2, 8 + 1), 11);     // tile 1: pixel 10 and 1
    QCOMPARE(picture.pixelIndex(0, 4 * 8 + 7), 12); // tile 4: pixel 56 and 4
}

void tst_ProjectWriter::anImageHasThePresentColoursOfItsPalette()
{
    const auto palette = m_project->palettes().first();
    const auto image = m_project->images().first();
    image->setPalette(palette);
    QImage pixels = image->image();
    pixels.setPixel(1, 0, 9);
    image->setImage(pixels);
    palette->setColour(9, QColor(255, 0, 255), false);

    const Entries entries = m_project->archiveEntries(true);

    const QByteArray png = entries.value("images/" + image->id().toString() + ".png");
    const QImage picture = QImage::fromData(png, "png");
    QCOMPARE(picture.colorTable(), palette->colourTable());
    QCOMPARE(picture.pixelIndex(1, 0), 9);
    QCOMPARE(picture.pixelColor(1, 0), QColor(255, 0, 255));
}

void tst_ProjectWriter::theTileMapEntryIsTheTileLayer()
{
    const auto map = m_project->maps().first();
    map->tileLayer()->setCell({1, 0}, {-2, true, false, true, 5, true});

    const QByteArray data =
        m_project->archiveEntries(true).value("tilemap/" + map->id().toString());

    QCOMPARE(data.size(), 8 + 12 * 9 * 12 + 16);
    QCOMPARE(data.left(8), QByteArray("\0\0\0\x09\0\0\0\x0c", 8));
    // Index, occupied, palette offset, rotate, flip, mirror.
    QCOMPARE(data.mid(8 + 12, 12), QByteArray("\xff\xff\xff\xfe\x01\0\0\0\x05\x01\0\x01", 12));
    QCOMPARE(data.right(16), map->tileSetId().toRfc4122());
}

QTEST_GUILESS_MAIN(tst_ProjectWriter)
#include "tst_ProjectWriter.moc"
