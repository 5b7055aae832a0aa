#include "examples/Examples.h"

#include "model/AnimatedBlocks.h"
#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"
#include "store/ProjectStore.h"
#include "support/ProjectDifferences.h"

#include <QDir>
#include <QSet>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

class tst_Examples : public QObject
{
    Q_OBJECT

private slots:
    void thereIsAFileForEachExample();
    void aFileHoldsWhatTheProgramMakes_data() { nameEach(); }
    void aFileHoldsWhatTheProgramMakes();
    void aSavedExampleCanBeOpened_data() { nameEach(); }
    void aSavedExampleCanBeOpened();
    void everythingPlacedIsThere_data() { nameEach(); }
    void everythingPlacedIsThere();
    void theLevelIsPlayed();
    void theLevelTellsTheGameWhatItsTilesAre();
    void theIslandIsCutIntoFewTiles();
    void noTileUsesTheTransparentValue_data();
    void noTileUsesTheTransparentValue();
    void theTitleUsesManyColours();
    void anUnknownExampleIsNotMade();

private:
    static void nameEach();
    static QString fileOf(const QString &name);
    static void checkPlaced(const Project &project, const Map &map);
};

void tst_Examples::nameEach()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : Examples::names())
        QTest::newRow(qPrintable(name)) << name;
}

QString tst_Examples::fileOf(const QString &name)
{
    return QDir(QStringLiteral(EXAMPLES_FOLDER)).filePath(name + QStringLiteral(".tessaril"));
}

void tst_Examples::thereIsAFileForEachExample()
{
    QStringList expected;
    for (const QString &name : Examples::names())
        expected += name + QStringLiteral(".tessaril");

    QCOMPARE(QDir(QStringLiteral(EXAMPLES_FOLDER)).entryList({"*.tessaril"}, QDir::Files),
             expected);
    QVERIFY(expected.size() >= 3);
}

void tst_Examples::aFileHoldsWhatTheProgramMakes()
{
    QFETCH(QString, name);
    ProjectStore store;
    QSignalSpy errors(&store, &ProjectStore::loadError);

    QVERIFY(store.load(fileOf(name)));
    const std::unique_ptr<Project> made = Examples::make(name);

    QCOMPARE(errors.count(), 0);
    QVERIFY(made);
    QCOMPARE(store.project()->id(), made->id());
    QCOMPARE(ProjectDifferences::between(*store.project(), *made).join(u','), QString());
}

void tst_Examples::aSavedExampleCanBeOpened()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    ProjectStore store;

    QVERIFY(Examples::save(name, folder.path()));

    QVERIFY(store.load(folder.filePath(name + QStringLiteral(".tessaril"))));
    QCOMPARE(ProjectDifferences::between(*store.project(), *Examples::make(name)).join(u','),
             QString());
}

void tst_Examples::checkPlaced(const Project &project, const Map &map)
{
    for (const auto &block : map.animatedBlocks()->blocks()) {
        QPointer<TileAnimation> animation;
        for (const auto &list : project.mapObjects())
            animation = animation ? animation : list->animation(block->id);
        QVERIFY(animation);
        QVERIFY(animation->frameCount() > 1);
        QVERIFY(animation->delay() > 0);
        QCOMPARE(block->rect.size(), animation->size());
        QVERIFY(map.tileLayer()->rect().contains(block->rect));
    }
    for (const Map::PlacedSprite &sprite : map.sprites()) {
        const auto bank = project.spriteBank(sprite.bank);
        QVERIFY(bank);
        QVERIFY(bank->animation(sprite.animation));
        QVERIFY(QRect(QPoint(), map.tileLayer()->size() * 8)
                    .contains(QRect(sprite.x, sprite.y, 16, 16)));
    }
}

void tst_Examples::everythingPlacedIsThere()
{
    QFETCH(QString, name);
    ProjectStore store;
    QVERIFY(store.load(fileOf(name)));

    for (const auto &map : store.project()->maps()) {
        QVERIFY(map->tileSet());
        checkPlaced(*store.project(), *map);
    }
    QVERIFY(!store.project()->maps().isEmpty() || !store.project()->images().isEmpty());
}

void tst_Examples::theLevelIsPlayed()
{
    const std::unique_ptr<Project> level = Examples::make(QStringLiteral("lantern-hollow"));
    const auto map = level->maps().value(0);

    QVERIFY(map);
    QCOMPARE(map->tileLayer()->size(), QSize(80, 32));
    QVERIFY(map->objectLayer()->isVisible());
    QVERIFY(map->sprites().size() >= 10);
    QVERIFY(map->animatedBlocks()->blocks().size() >= 10);
    QSet<MapObjectType> types;
    for (const auto &animation : level->mapObjects().value(0)->animations())
        types += animation->type();
    QVERIFY(types.contains(MapObjectType::HorizontalPlatform));
    QSet<int> banks;
    for (const Map::PlacedSprite &sprite : map->sprites())
        banks += sprite.paletteOffset;
    QCOMPARE(banks, QSet<int>({0, 1, 2, 3, 4}));
}

void tst_Examples::theLevelTellsTheGameWhatItsTilesAre()
{
    const std::unique_ptr<Project> level = Examples::make(QStringLiteral("lantern-hollow"));
    int attributes = 0;
    for (const Tile *tile : level->tileSets().value(0)->tiles())
        attributes |= tile->attributes();

    QCOMPARE(attributes, Tile::TA_SOLID | Tile::TA_DEADLY | Tile::TA_COLLECTIBLE | Tile::TA_LADDER |
                             Tile::TA_DOOR);
}

void tst_Examples::theIslandIsCutIntoFewTiles()
{
    const std::unique_ptr<Project> island = Examples::make(QStringLiteral("saltmere"));
    QSet<int> used;
    for (const auto &row : island->maps().value(0)->tileLayer()->rows()) {
        for (const TileMap::TileData &cell : row)
            used += cell.index;
    }

    QVERIFY(used.size() > 200);
    QVERIFY(used.size() < 450); // of 3,072 cells
}

void tst_Examples::noTileUsesTheTransparentValue_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("level") << "lantern-hollow";
    QTest::newRow("island") << "saltmere";
}

void tst_Examples::noTileUsesTheTransparentValue()
{
    QFETCH(QString, name);
    const std::unique_ptr<Project> project = Examples::make(name);

    const auto map = project->maps().value(0);
    QCOMPARE(map->tileTransparencyIndex(), 0);
    for (const auto &row : map->tileLayer()->rows()) {
        for (const TileMap::TileData &cell : row) {
            const QImage image = map->tileSet()->tile(cell.index)->image();
            for (int pixel = 0; pixel < 64; ++pixel)
                QVERIFY(image.pixelIndex(pixel % 8, pixel / 8) > 0);
        }
    }
}

void tst_Examples::theTitleUsesManyColours()
{
    const std::unique_ptr<Project> title = Examples::make(QStringLiteral("title-picture"));
    const auto image = title->images().value(0);
    QVERIFY(image);
    QCOMPARE(image->image().size(), QSize(320, 256));
    QSet<int> used;
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 320; ++x)
            used += image->image().pixelIndex(x, y);
    }

    QVERIFY(used.size() > 60);
}

void tst_Examples::anUnknownExampleIsNotMade()
{
    const QTemporaryDir folder;

    QVERIFY(!Examples::make(QStringLiteral("nothing")));
    QVERIFY(!Examples::save(QStringLiteral("nothing"), folder.path()));
    QVERIFY(QDir(folder.path()).isEmpty());
}

QTEST_GUILESS_MAIN(tst_Examples)
#include "tst_Examples.moc"
