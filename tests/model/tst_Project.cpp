#include "model/Project.h"

#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"
#include "model/TileSet.h"

#include <QEvent>
#include <QSignalSpy>
#include <QTest>

#include <functional>

class tst_Project : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aNewProjectHasTheDefaults();
    void lookupsNeverAddAnEntry();
    void theNullIdIsNeverFound();

    void createdPalettesAreAnnouncedInOrder();
    void createdTileSetsAndBlocksAreAnnouncedInOrder();
    void announcedDocumentsAreEntered();
    void messagesAreSentWhenTheDocumentIsEntered();
    void createPaletteCopiesTheWordsOnly();
    void createPaletteFillsByAction_data();
    void createPaletteFillsByAction();
    void createTileSetWithoutPaletteMakesOne();
    void createTileSetAnnouncesAllNames();
    void createTileSetHasItsDefaults();
    void createBlockListBindsAndAnnounces();
    void createMapMakesBothLayers();
    void aNewMapTellsItsSizeBeforeItIsAnnounced();
    void createMapNeedsATileSetAndAPossibleSize();
    void createSpriteBankBindsAKnownPalette();
    void createImageBindsAKnownPalette();
    void paletteNamesListsAll();

    void cloningThePaletteLeavesItsTransparencyBehind();
    void cloningAHiResTileSetLosesTheFlag();
    void aClonedTileIsACopy();
    void cloningATileSetWithoutPaletteMakesOne();
    void cloningAMapCopiesTheTileLayerOnly();
    void cloningAnUnknownIdGivesNothing();

    void aLaterDocumentReplacesOneWithItsId();
    void aDocumentThatIsAddedAgainStays();

private:
    std::unique_ptr<Project> m_project;
};

namespace {

using Strings = QStringList;

/// Calls a function whenever what it filters gets a child.
class ChildListener : public QObject
{
public:
    explicit ChildListener(std::function<void()> heard)
        : m_heard(std::move(heard))
    {
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::ChildAdded)
            m_heard();
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> m_heard;
};

/// The messages of showMessage() with their durations.
QStringList messages(const QSignalSpy &spy)
{
    QStringList list;
    for (const auto &arguments : spy)
        list += arguments.at(0).toString() + u' ' + arguments.at(1).toString();
    return list;
}

QSignalSpy messageSpy(Project *project)
{
    return QSignalSpy(project, qOverload<QString, int>(&Project::showMessage));
}

} // namespace

void tst_Project::init()
{
    m_project = std::make_unique<Project>();
}

void tst_Project::cleanup()
{
    m_project.reset();
}

void tst_Project::aNewProjectHasTheDefaults()
{
    QVERIFY(!m_project->id().isNull());
    QCOMPARE(m_project->name(), QStringLiteral("untitled"));
    QCOMPARE(m_project->screenSize(), QSize(320, 256));
    QCOMPARE(m_project->playArea(), QRect(QPoint(0, 0), QPoint(319, 255)));
    QVERIFY(m_project->scratchPaletteId().isNull());
    QVERIFY(!m_project->scratchPalette());
    QVERIFY(m_project->openDocuments().isEmpty());
    const QImage scratch = m_project->scratchImage();
    QCOMPARE(scratch.size(), QSize(256, 192));
    QCOMPARE(scratch.format(), QImage::Format_Indexed8);
    QCOMPARE(QByteArray(reinterpret_cast<const char *>(scratch.constBits()), 256 * 192),
             QByteArray(256 * 192, '\0'));
}

void tst_Project::lookupsNeverAddAnEntry()
{
    const QUuid id = QUuid::createUuid();

    QVERIFY(!m_project->palette(id));
    QVERIFY(!m_project->tileSet(id));
    QVERIFY(!m_project->map(id));
    QVERIFY(!m_project->blocks(id));
    QVERIFY(!m_project->spriteBank(id));
    QVERIFY(!m_project->image(id));
    QVERIFY(m_project->palettes().isEmpty());
    QVERIFY(m_project->tileSets().isEmpty());
    QVERIFY(m_project->maps().isEmpty());
    QVERIFY(m_project->mapObjects().isEmpty());
    QVERIFY(m_project->spriteBanks().isEmpty());
    QVERIFY(m_project->images().isEmpty());
}

void tst_Project::theNullIdIsNeverFound()
{
    auto *palette = new Palette(m_project.get());
    palette->setId(QUuid());
    m_project->addPalette(palette);

    QVERIFY(!m_project->palette(QUuid()));
    QVERIFY(!m_project->scratchPalette());
    QCOMPARE(m_project->palettes().size(), 1);
}

void tst_Project::createdPalettesAreAnnouncedInOrder()
{
    QStringList order;
    connect(m_project.get(), qOverload<QString, int>(&Project::showMessage), this,
            [&](const QString &text, int ms) { order += text + QString::number(ms); });
    connect(m_project.get(), &Project::paletteCreated, this,
            [&](const QPointer<Palette> &palette) { order += palette->name(); });

    const auto palette = m_project->createPalette(CreateBlank, "Night");

    QCOMPARE(order, (Strings{"New palette added: Night2500", "Night"}));
    QCOMPARE(m_project->palette(palette->id()), palette);
    QCOMPARE(palette->parent(), m_project.get());
}

void tst_Project::createdTileSetsAndBlocksAreAnnouncedInOrder()
{
    QStringList order;
    Project *project = m_project.get();
    connect(project, qOverload<QString, int>(&Project::showMessage), this,
            [&](const QString &text, int) { order += text; });
    connect(project, &Project::tileSetsChanged, this, [&] { order += "names"; });
    connect(project, &Project::paletteCreated, this, [&] { order += "palette"; });
    connect(project, &Project::tilesetCreated, this, [&] { order += "tile set"; });
    connect(project, &Project::blocksCreated, this, [&] { order += "blocks"; });

    const auto tileSet = project->createTileSet("Rocks", QUuid(), 1);
    project->createBlockList("Doors", tileSet->id());

    QCOMPARE(order,
             (Strings{"New palette added: Rocks", "palette", "names", "New tile set added: Rocks",
                      "tile set", "New block set added: Doors", "blocks"}));
}

void tst_Project::announcedDocumentsAreEntered()
{
    Project *project = m_project.get();
    QStringList found;
    const auto note = [&found](const auto &announced, const auto &entered) {
        found += announced && announced == entered ? announced->name() : QString();
    };
    connect(project, &Project::paletteCreated, this,
            [&](const QPointer<Palette> &each) { note(each, project->palette(each->id())); });
    connect(project, &Project::tilesetCreated, this,
            [&](const QPointer<TileSet> &each) { note(each, project->tileSet(each->id())); });
    connect(project, &Project::blocksCreated, this,
            [&](const QPointer<MapObjects> &each) { note(each, project->blocks(each->id())); });
    connect(project, &Project::mapCreated, this,
            [&](const QPointer<Map> &each) { note(each, project->map(each->id())); });
    connect(project, &Project::spritesCreated, this,
            [&](const QPointer<SpriteBank> &each) { note(each, project->spriteBank(each->id())); });
    connect(project, &Project::imageCreated, this,
            [&](const QPointer<Image> &each) { note(each, project->image(each->id())); });

    const QUuid palette = project->createPalette(CreateBlank, "palette")->id();
    const QUuid tiles = project->createTileSet("tiles", palette, 1)->id();
    project->createBlockList("blocks", tiles);
    project->createMap("map", tiles, {1, 1});
    project->createSpriteBank(Tessaril::Sprite::FourBit, "bank", palette);
    project->createImage(Tessaril::ImageMode::LoRes_128x96, "image", palette);

    QCOMPARE(found, (Strings{"palette", "tiles", "blocks", "map", "bank", "image"}));
}

void tst_Project::messagesAreSentWhenTheDocumentIsEntered()
{
    Project *project = m_project.get();
    QList<qsizetype> counts; // of palettes, tile sets and block lists
    connect(project, qOverload<QString, int>(&Project::showMessage), this, [&] {
        counts << project->palettes().size() << project->tileSets().size()
               << project->mapObjects().size();
    });

    const auto tiles = project->createTileSet("tiles", QUuid(), 1);
    project->createBlockList("blocks", tiles->id());

    QCOMPARE(counts, (QList<qsizetype>{1, 0, 0, 1, 1, 0, 1, 1, 1}));
}

void tst_Project::createPaletteCopiesTheWordsOnly()
{
    const auto source = m_project->createPalette(CreateDefault, "source");
    source->setWord(9, 0x1281);
    source->setTransparencyIndex(5);

    const auto copy = m_project->createPalette(CreateCopy, "copy", source->id());
    const auto orphan = m_project->createPalette(CreateCopy, "orphan", QUuid::createUuid());

    for (int i = 0; i < Palette::Size; ++i) {
        QCOMPARE(copy->word(i), source->word(i));
        QCOMPARE(orphan->word(i), quint16(0));
    }
    QCOMPARE(copy->transparencyIndex(), -1);
}

void tst_Project::createPaletteFillsByAction_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<QRgb>("lastColour");
    QTest::newRow("empty") << int(CreateEmpty) << qRgb(0, 0, 0);
    QTest::newRow("blank") << int(CreateBlank) << qRgb(0, 0, 0);
    QTest::newRow("default") << int(CreateDefault) << qRgb(255, 255, 255);
}

void tst_Project::createPaletteFillsByAction()
{
    QFETCH(int, action);
    QFETCH(QRgb, lastColour);

    const auto palette = m_project->createPalette(CreateAction(action), "palette");

    QCOMPARE(palette->colour(0).rgb(), qRgb(0, 0, 0));
    QCOMPARE(palette->colour(255).rgb(), lastColour);
}

void tst_Project::createTileSetWithoutPaletteMakesOne()
{
    QSignalSpy palettes(m_project.get(), &Project::paletteCreated);
    QSignalSpy tileSets(m_project.get(), &Project::tilesetCreated);
    QSignalSpy shown = messageSpy(m_project.get());

    const auto tileSet = m_project->createTileSet("Rocks", QUuid(), 16);

    QCOMPARE(palettes.count(), 1);
    QCOMPARE(tileSets.count(), 1);
    QCOMPARE(messages(shown),
             (Strings{"New palette added: Rocks 2500", "New tile set added: Rocks 2500"}));
    const auto palette = tileSet->palette();
    QVERIFY(palette);
    QCOMPARE(palette->name(), QStringLiteral("Rocks"));
    QCOMPARE(palette->word(255), quint16(0));
    QCOMPARE(m_project->palettes(), QList{palette});
}

void tst_Project::createTileSetAnnouncesAllNames()
{
    const auto palette = m_project->createPalette(CreateBlank, "palette");
    const auto first = m_project->createTileSet("first", palette->id(), 1);
    QSignalSpy changed(m_project.get(), &Project::tileSetsChanged);

    const auto second = m_project->createTileSet("second", palette->id(), 1);

    QCOMPARE(changed.count(), 1);
    QCOMPARE((changed.at(0).at(0).value<QHash<QUuid, QString>>()),
             (QHash<QUuid, QString>{{first->id(), "first"}, {second->id(), "second"}}));
}

void tst_Project::createTileSetHasItsDefaults()
{
    const auto palette = m_project->createPalette(CreateBlank, "palette");

    const auto plain = m_project->createTileSet("plain", palette->id());
    const auto counted = m_project->createTileSet("counted", palette->id(), 256);
    const auto full = m_project->createTileSet("full", palette->id(), 3, true);

    QCOMPARE(plain->count(), 512);
    QVERIFY(!plain->hiRes());
    QCOMPARE(counted->count(), 256);
    QVERIFY(!counted->hiRes());
    QCOMPARE(full->count(), 3);
    QVERIFY(full->hiRes());
    QCOMPARE(full->paletteId(), palette->id());
    QCOMPARE(m_project->palettes().size(), 1);
}

void tst_Project::createBlockListBindsAndAnnounces()
{
    const auto tiles = m_project->createTileSet("tiles", QUuid(), 4);
    QSignalSpy created(m_project.get(), &Project::blocksCreated);
    QSignalSpy shown = messageSpy(m_project.get());

    const auto blocks = m_project->createBlockList("Doors", tiles->id());

    QCOMPARE(blocks->name(), QStringLiteral("Doors"));
    QCOMPARE(blocks->tileSet(), tiles);
    QCOMPARE(m_project->blocks(blocks->id()), blocks);
    QVERIFY(tiles->blockLists().contains(blocks->id()));
    QCOMPARE(created.count(), 1);
    QCOMPARE(created.at(0).at(0).value<QPointer<MapObjects>>(), blocks);
    QCOMPARE(messages(shown), Strings{"New block set added: Doors 2500"});
}

void tst_Project::createMapMakesBothLayers()
{
    const auto tiles = m_project->createTileSet("tiles", QUuid(), 4);
    QSignalSpy created(m_project.get(), &Project::mapCreated);
    QSignalSpy shown = messageSpy(m_project.get());

    const auto map = m_project->createMap("Level", tiles->id(), {7, 5});

    QCOMPARE(map->name(), QStringLiteral("Level"));
    QCOMPARE(map->tileSet(), tiles);
    QCOMPARE(map->tileLayer()->parent(), m_project.get());
    QCOMPARE(map->objectLayer()->parent(), m_project.get());
    QCOMPARE(map->tileLayer()->size(), QSize(7, 5));
    QCOMPARE(map->objectLayer()->size(), QSize(7, 5));
    QVERIFY(map->tileLayer()->isVisible());
    QVERIFY(!map->objectLayer()->isVisible());
    QCOMPARE(map->objectLayer()->tileSet(), tiles);
    QCOMPARE(m_project->map(map->id()), map);
    QCOMPARE(created.count(), 1);
    QCOMPARE(created.at(0).at(0).value<QPointer<Map>>(), map);
    QCOMPARE(shown.count(), 0);
}

void tst_Project::aNewMapTellsItsSizeBeforeItIsAnnounced()
{
    const auto tiles = m_project->createTileSet("tiles", QUuid(), 4);
    QStringList sent;
    const Map *map = nullptr;
    // By the time that its layers are made the map is there, too.
    ChildListener listener([&] {
        if (map == nullptr && (map = m_project->findChild<Map *>()) != nullptr)
            connect(map, &Map::resized, this, [&] { sent += "resized"; });
    });
    m_project->installEventFilter(&listener);
    connect(m_project.get(), &Project::mapCreated, this, [&] { sent += "created"; });

    m_project->createMap("level", tiles->id(), {3, 2});

    QCOMPARE(sent, (Strings{"resized", "created"}));
}

void tst_Project::createMapNeedsATileSetAndAPossibleSize()
{
    const auto tiles = m_project->createTileSet("tiles", QUuid(), 4);
    QSignalSpy created(m_project.get(), &Project::mapCreated);

    QVERIFY(!m_project->createMap("Level", QUuid::createUuid(), {7, 5}));
    QVERIFY(!m_project->createMap("Level", tiles->id(), {1 << 14, (1 << 13) + 1}));
    QVERIFY(!m_project->createMap("Level", tiles->id(), {-1, 5}));
    QVERIFY(m_project->maps().isEmpty());
    QCOMPARE(created.count(), 0);
}

void tst_Project::createSpriteBankBindsAKnownPalette()
{
    const auto palette = m_project->createPalette(CreateDefault, "palette");
    QSignalSpy created(m_project.get(), &Project::spritesCreated);
    QSignalSpy shown = messageSpy(m_project.get());

    const auto bank =
        m_project->createSpriteBank(Tessaril::Sprite::EightBit, "Hero", palette->id());
    const auto bare =
        m_project->createSpriteBank(Tessaril::Sprite::FourBit, "Bare", QUuid::createUuid());

    QCOMPARE(bank->name(), QStringLiteral("Hero"));
    QCOMPARE(bank->depth(), Tessaril::Sprite::EightBit);
    QCOMPARE(bank->palette(), palette);
    QVERIFY(!bare->palette());
    QCOMPARE(m_project->spriteBank(bare->id()), bare);
    QCOMPARE(created.count(), 2);
    QCOMPARE(created.at(0).at(0).value<QPointer<SpriteBank>>(), bank);
    QCOMPARE(shown.count(), 0);
}

void tst_Project::createImageBindsAKnownPalette()
{
    const auto palette = m_project->createPalette(CreateDefault, "palette");
    QSignalSpy created(m_project.get(), &Project::imageCreated);
    QSignalSpy shown = messageSpy(m_project.get());

    using Tessaril::ImageMode;
    const auto image = m_project->createImage(ImageMode::LoRes_128x96, "Title", palette->id());
    const auto bare = m_project->createImage(ImageMode::Layer2_256x192, "Bare", QUuid());

    QCOMPARE(image->name(), QStringLiteral("Title"));
    QCOMPARE(image->palette(), palette);
    QCOMPARE(image->image().size(), QSize(128, 96));
    QVERIFY(!bare->palette());
    QCOMPARE(m_project->image(bare->id()), bare);
    QCOMPARE(created.count(), 2);
    QCOMPARE(created.at(0).at(0).value<QPointer<Image>>(), image);
    QCOMPARE(shown.count(), 0);
}

void tst_Project::paletteNamesListsAll()
{
    m_project->createPalette(CreateBlank, "b");
    m_project->createPalette(CreateBlank, "a");

    QStringList names = m_project->paletteNames();
    names.sort();
    QCOMPARE(names, (Strings{"a", "b"}));
}

void tst_Project::cloningThePaletteLeavesItsTransparencyBehind()
{
    const auto source = m_project->createPalette(CreateDefault, "Day");
    source->setTransparencyIndex(5);
    source->setWord(9, 0x1281);
    QSignalSpy created(m_project.get(), &Project::paletteCreated);

    const auto copy = m_project->clonePalette(source->id());

    QCOMPARE(copy->name(), QStringLiteral("Day (copy)"));
    QCOMPARE(copy->transparencyIndex(), -1);
    for (int i = 0; i < Palette::Size; ++i)
        QCOMPARE(copy->word(i), source->word(i));
    QCOMPARE(created.count(), 1);
}

void tst_Project::cloningAHiResTileSetLosesTheFlag()
{
    const auto source = m_project->createTileSet("Rocks", QUuid(), 256, true);
    QSignalSpy created(m_project.get(), &Project::tilesetCreated);

    const auto copy = m_project->cloneTileSet(source->id());

    QCOMPARE(copy->count(), 256);
    QVERIFY(!copy->hiRes());
    QCOMPARE(copy->name(), QStringLiteral("Rocks (copy)"));
    QCOMPARE(copy->palette(), source->palette());
    QCOMPARE(created.count(), 1);
}

void tst_Project::aClonedTileIsACopy()
{
    const auto source = m_project->createTileSet("Rocks", QUuid(), 2);
    QImage image = source->tile(1)->image();
    image.setPixel(3, 4, 9);
    source->tile(1)->setImage(image);
    source->tile(1)->setOffset(7);
    source->tile(1)->setAttributes(Tile::TA_LADDER);
    source->tile(1)->setValue(42);

    const auto copy = m_project->cloneTileSet(source->id());

    QCOMPARE(copy->state(), source->state());
    QVERIFY(copy->tile(1) != source->tile(1));
    QCOMPARE(copy->tile(1)->parent(), copy.data());
}

void tst_Project::cloningATileSetWithoutPaletteMakesOne()
{
    auto *source = new TileSet(m_project.get(), 1);
    source->setName("Rocks");
    m_project->addTileSet(source);

    const auto copy = m_project->cloneTileSet(source->id());

    QVERIFY(copy->palette());
    QCOMPARE(copy->palette()->name(), QStringLiteral("Rocks (copy)"));
}

void tst_Project::cloningAMapCopiesTheTileLayerOnly()
{
    const auto tiles = m_project->createTileSet("tiles", QUuid(), 4);
    Map *map = m_project->createMap("map", tiles->id(), {4, 4});
    map->setSprites({Map::PlacedSprite()});
    map->tileLayer()->setCell({1, 2}, {3, true, false, true, 4, true});
    map->objectLayer()->setCell({0, 0}, {2, false, false, false, 0, true});
    map->addAnimation({QUuid::createUuid(), QRect(0, 0, 1, 1), 0, 0, 0});
    map->setTileTransparencyIndex(3);
    map->setBackgroundTileIndex(2);

    const auto copy = m_project->cloneMap(map->id());

    QCOMPARE(copy->name(), QStringLiteral("map (copy)"));
    QCOMPARE(copy->tileSet(), map->tileSet());
    QCOMPARE(copy->tileLayer()->rows(), map->tileLayer()->rows());
    QCOMPARE(copy->objectLayer()->cell({0, 0}), TileMap::TileData());
    QVERIFY(copy->state().animations.isEmpty());
    QVERIFY(copy->sprites().isEmpty());
    QCOMPARE(copy->tileTransparencyIndex(), -1);
    QCOMPARE(copy->backgroundTileIndex(), -1);
}

void tst_Project::cloningAnUnknownIdGivesNothing()
{
    QSignalSpy shown = messageSpy(m_project.get());

    QVERIFY(!m_project->cloneMap(QUuid::createUuid()));
    QVERIFY(!m_project->clonePalette(QUuid::createUuid()));
    QVERIFY(!m_project->cloneTileSet(QUuid::createUuid()));
    QCOMPARE(shown.count(), 0);
}

void tst_Project::aLaterDocumentReplacesOneWithItsId()
{
    const auto first = m_project->createPalette(CreateBlank, "first");
    auto *second = new Palette(m_project.get());
    second->setId(first->id());

    m_project->addPalette(second);

    QVERIFY(!first);
    QCOMPARE(m_project->palettes(), QList<QPointer<Palette>>{second});
}

void tst_Project::aDocumentThatIsAddedAgainStays()
{
    const auto palette = m_project->createPalette(CreateBlank, "palette");

    m_project->addPalette(palette);

    QVERIFY(palette);
    QCOMPARE(m_project->palettes(), QList<QPointer<Palette>>{palette});
}

QTEST_GUILESS_MAIN(tst_Project)
#include "tst_Project.moc"
