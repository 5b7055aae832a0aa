#include "control/ProjectActions.h"
#include "control/ProjectController.h"
#include "dialogs/MessageDialog.h"
#include "menus/MenuBar.h"
#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileMap.h"
#include "model/TileSet.h"
#include "tree/ProjectWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMainWindow>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

class tst_ProjectActions : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void withoutAProjectNothingHappens();
    void aTileSetGetsANewPaletteOfItsName();
    void aTileSetUsesTheChosenPalette();
    void aMapIsMadeOverItsTileSet();
    void blocksAreMadeOverTheirTileSet();
    void spritesAreMadeAsAsked_data();
    void spritesAreMadeAsAsked();
    void aSelectionBecomesAMap();
    void copyingClonesThreeKinds();
    void copyingOtherKindsIsLogged_data();
    void copyingOtherKindsIsLogged();
    void whatIsInUseIsNotDeleted_data();
    void whatIsInUseIsNotDeleted();
    void deletingAPaletteClearsItInTheMenu();
    void deletingATileSetTurnsItsItemsOff();
    void deletingBlocks();
    void deletingTheActiveBankClearsItInTheMenu();
    void deletingAnotherBankKeepsTheActiveOne();
    void deletingAMapClearsItInTheMenu();
    void imagesCannotBeDeleted();

private:
    Project *project() const { return m_controller->project(); }
    bool isEnabled(const QMenu *menu, const QString &text) const;
    QStringList contents() const;
    bool isInTree(const QString &name) const
    {
        return !m_tree->tree()->findItems(name, Qt::MatchRecursive | Qt::MatchExactly).isEmpty();
    }
    /// The texts of the open refusal, empty if there is none.
    QStringList refusal() const;

    std::unique_ptr<QMainWindow> m_window;
    MenuBar *m_bar = nullptr;
    ProjectWindow *m_tree = nullptr;
    std::unique_ptr<ProjectController> m_controller;
    std::unique_ptr<ProjectActions> m_actions;
};

void tst_ProjectActions::init()
{
    m_window = std::make_unique<QMainWindow>();
    m_bar = new MenuBar(m_window.get());
    m_window->setMenuBar(m_bar);
    m_window->show();
    m_controller = std::make_unique<ProjectController>(m_window.get(), m_bar->fileMenu());
    DocumentViews views;
    views.menuBar = m_bar;
    m_tree = new ProjectWindow(m_window.get());
    views.projectWindow = m_tree;
    m_actions = std::make_unique<ProjectActions>(views, m_controller.get(), nullptr);
    m_controller->newProject("Rescue");
    m_bar->setProject(project());
    m_tree->setProject(project());
}

void tst_ProjectActions::cleanup()
{
    m_tree->setProject(nullptr);
    m_bar->setProject(nullptr);
    m_controller->close();
    m_actions.reset();
    m_controller.reset();
    m_window.reset();
}

bool tst_ProjectActions::isEnabled(const QMenu *menu, const QString &text) const
{
    const QList<QAction *> actions = menu->actions();
    const auto found = std::find_if(actions.begin(), actions.end(),
                                    [&](const QAction *action) { return action->text() == text; });
    return (*found)->isEnabled();
}

QStringList tst_ProjectActions::contents() const
{
    QStringList names;
    for (const auto &palette : project()->palettes())
        names.append("palette " + palette->name());
    for (const auto &tiles : project()->tileSets())
        names.append("tiles " + tiles->name());
    for (const auto &blocks : project()->mapObjects())
        names.append("blocks " + blocks->name());
    for (const auto &bank : project()->spriteBanks())
        names.append("sprites " + bank->name());
    for (const auto &map : project()->maps())
        names.append("map " + map->name());
    names.sort();
    return names;
}

QStringList tst_ProjectActions::refusal() const
{
    const auto *dialog = qobject_cast<MessageDialog *>(QApplication::activeModalWidget());
    QStringList texts;
    if (dialog) {
        for (const auto *label : dialog->findChildren<QLabel *>()) {
            if (!label->text().isEmpty())
                texts.append(label->text());
        }
    }
    return texts;
}

void tst_ProjectActions::withoutAProjectNothingHappens()
{
    m_bar->setProject(nullptr);
    m_controller->close();
    QSize size(40, 32);

    m_actions->createTileSet("A", QUuid(), 256, false);
    m_actions->createMap("A", QUuid::createUuid(), size);
    m_actions->createBlocks("A", QUuid::createUuid());
    m_actions->createSprites(SpriteDialog::EightBit, "A", QUuid());
    m_actions->createMapFromSelection(QUuid::createUuid(), size);
    m_actions->copyItem(ProjectTree::ProjectNode::Palette, QUuid::createUuid());
    m_actions->deleteItem(ProjectTree::ProjectNode::Palette, QUuid::createUuid());
    m_actions->importMap("/nowhere/a.png");

    QVERIFY(!m_controller->project());
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_ProjectActions::aTileSetGetsANewPaletteOfItsName()
{
    QSignalSpy palettes(project(), &Project::paletteCreated);
    QSignalSpy tileSets(project(), &Project::tilesetCreated);

    m_actions->createTileSet("Cave", QUuid(), 256, true);

    QCOMPARE(contents(), QStringList({"palette Cave", "tiles Cave"}));
    QCOMPARE(palettes.count(), 1);
    QCOMPARE(tileSets.count(), 1);
    const QPointer<TileSet> tiles = project()->tileSets().first();
    QCOMPARE(tiles->count(), 256);
    QVERIFY(tiles->hiRes());
    QCOMPARE(tiles->palette(), project()->palettes().first());
    QVERIFY(m_controller->isDirty());
}

void tst_ProjectActions::aTileSetUsesTheChosenPalette()
{
    const QPointer<Palette> sky = project()->createPalette(CreateBlank, "Sky");

    m_actions->createTileSet("Cave", sky->id(), 512, false);

    QCOMPARE(contents(), QStringList({"palette Sky", "tiles Cave"}));
    QCOMPARE(project()->tileSets().first()->palette(), sky);
    QVERIFY(!project()->tileSets().first()->hiRes());
}

void tst_ProjectActions::aMapIsMadeOverItsTileSet()
{
    const QPointer<TileSet> tiles = project()->createTileSet("Cave", QUuid(), 1);
    QSize size(50, 40);

    m_actions->createMap("Level", tiles->id(), size);

    QCOMPARE(project()->maps().size(), 1);
    QCOMPARE(project()->maps().first()->tileLayer()->size(), QSize(50, 40));
    QCOMPARE(project()->maps().first()->tileSet(), tiles);
}

void tst_ProjectActions::blocksAreMadeOverTheirTileSet()
{
    const QPointer<TileSet> tiles = project()->createTileSet("Cave", QUuid(), 1);

    m_actions->createBlocks("Doors", tiles->id());

    QCOMPARE(project()->mapObjects().size(), 1);
    QCOMPARE(project()->mapObjects().first()->name(), QString("Doors"));
    QCOMPARE(project()->mapObjects().first()->tileSet(), tiles);
}

void tst_ProjectActions::spritesAreMadeAsAsked_data()
{
    QTest::addColumn<SpriteDialog::CreateOptions>("options");
    QTest::addColumn<Tessaril::Sprite>("depth");
    QTest::addColumn<QStringList>("expected");

    using Options = SpriteDialog::CreateOptions;
    QTest::newRow("eight bits, new palette")
        << Options(SpriteDialog::EightBit | SpriteDialog::CreateNewPalette)
        << Tessaril::Sprite::EightBit
        << QStringList{"palette Heroes", "palette Sky", "sprites Heroes"};
    QTest::newRow("four bits, new palette")
        << Options(SpriteDialog::CreateNewPalette) << Tessaril::Sprite::FourBit
        << QStringList{"palette Heroes", "palette Sky", "sprites Heroes"};
    QTest::newRow("eight bits, existing palette")
        << Options(SpriteDialog::EightBit) << Tessaril::Sprite::EightBit
        << QStringList{"palette Sky", "sprites Heroes"};
}

void tst_ProjectActions::spritesAreMadeAsAsked()
{
    QFETCH(SpriteDialog::CreateOptions, options);
    QFETCH(Tessaril::Sprite, depth);
    QFETCH(QStringList, expected);
    const QPointer<Palette> sky = project()->createPalette(CreateBlank, "Sky");

    m_actions->createSprites(options, "Heroes", sky->id());

    QCOMPARE(contents(), expected);
    const QPointer<SpriteBank> bank = project()->spriteBanks().first();
    QCOMPARE(bank->depth(), depth);
    QCOMPARE(bank->palette() == sky, !options.testFlag(SpriteDialog::CreateNewPalette));
    QVERIFY(bank->palette());
}

void tst_ProjectActions::aSelectionBecomesAMap()
{
    const QPointer<TileSet> tiles = project()->createTileSet("Cave", QUuid(), 9);
    const QPointer<Map> source = project()->createMap("Level", tiles->id(), {40, 32});
    TileMap::TileData cell;
    cell.index = 7;
    cell.occupied = true;
    source->tileLayer()->setCell({5, 6}, cell);
    auto *copied = new QMimeData;
    copied->setData(TileMap::mimeType(), source->tileLayer()->toData({5, 6, 3, 2}));
    QGuiApplication::clipboard()->setMimeData(copied);

    m_actions->createMapFromSelection(source->id(), {3, 2});

    QCOMPARE(contents(),
             QStringList({"map Level", "map Level Part", "palette Cave", "tiles Cave"}));
    for (const auto &map : project()->maps()) {
        if (map == source)
            continue;
        QCOMPARE(map->tileLayer()->size(), QSize(3, 2));
        QCOMPARE(map->tileSet(), tiles);
        QCOMPARE(map->tileLayer()->cell({0, 0}), cell);
    }
}

void tst_ProjectActions::copyingClonesThreeKinds()
{
    const QPointer<Palette> palette = project()->createPalette(CreateBlank, "Sky");
    const QPointer<TileSet> tiles = project()->createTileSet("Cave", palette->id(), 1);
    const QPointer<Map> map = project()->createMap("Level", tiles->id(), {1, 1});

    m_actions->copyItem(ProjectTree::ProjectNode::Palette, palette->id());
    m_actions->copyItem(ProjectTree::ProjectNode::TileSet, tiles->id());
    m_actions->copyItem(ProjectTree::ProjectNode::Map, map->id());

    QCOMPARE(contents(), QStringList({"map Level", "map Level (copy)", "palette Sky",
                                      "palette Sky (copy)", "tiles Cave", "tiles Cave (copy)"}));
}

void tst_ProjectActions::copyingOtherKindsIsLogged_data()
{
    QTest::addColumn<int>("kind");

    QTest::newRow("map objects") << 2;
    QTest::newRow("sprite bank") << 3;
    QTest::newRow("image") << 5;
}

void tst_ProjectActions::copyingOtherKindsIsLogged()
{
    QFETCH(int, kind);
    const QPointer<SpriteBank> bank =
        project()->createSpriteBank(Tessaril::Sprite::EightBit, "Heroes", QUuid());
    QTest::ignoreMessage(QtWarningMsg, qPrintable(QString("%1 Not implemented").arg(kind)));

    m_actions->copyItem(ProjectTree::ProjectNode(kind), bank->id());

    QCOMPARE(contents(), QStringList("sprites Heroes"));
}

void tst_ProjectActions::whatIsInUseIsNotDeleted_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");

    QTest::newRow("palette") << 0 << "Palette In Use"
                             << "You may not delete this palette; it is used by one or more "
                                "sprites, tiles or images";
    QTest::newRow("tile set") << 1 << "Tile Set In Use"
                              << "You may not delete this Tile Set; it is used by one or more maps";
    QTest::newRow("map objects") << 2 << "Objects in use"
                                 << "You may not delete these objects; they are in use by one or "
                                    "more maps";
}

void tst_ProjectActions::whatIsInUseIsNotDeleted()
{
    QFETCH(int, kind);
    QFETCH(QString, title);
    QFETCH(QString, text);
    const QPointer<TileSet> tiles = project()->createTileSet("Cave", QUuid(), 1);
    const QPointer<MapObjects> blocks = project()->createBlockList("Doors", tiles->id());
    project()->createMap("Level", tiles->id(), {1, 1});
    m_bar->paletteMenu()->setPalette(tiles->paletteId());
    m_controller->markClean();
    const QStringList before = contents();
    const QList<QUuid> ids{tiles->paletteId(), tiles->id(), blocks->id()};

    m_actions->deleteItem(ProjectTree::ProjectNode(kind), ids.at(kind));

    const QString shown = refusal().join("|");
    QVERIFY2(shown.contains(title), qPrintable(shown));
    QVERIFY2(shown.contains(text), qPrintable(shown));
    QCOMPARE(contents(), before);
    QVERIFY(isInTree("Cave"));
    QVERIFY(isInTree("Doors"));
    QVERIFY(!m_controller->isDirty());
    QCOMPARE(m_bar->paletteMenu()->paletteId(), tiles->paletteId());
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_ProjectActions::deletingAPaletteClearsItInTheMenu()
{
    const QPointer<Palette> palette = project()->createPalette(CreateBlank, "Sky");
    m_bar->paletteMenu()->setPalette(palette->id());

    m_actions->deleteItem(ProjectTree::ProjectNode::Palette, palette->id());

    QVERIFY(contents().isEmpty());
    QVERIFY(m_bar->paletteMenu()->paletteId().isNull());
    QVERIFY(!isInTree("Sky"));
    QVERIFY(!isEnabled(m_bar->paletteMenu(), "Export"));
    QVERIFY(refusal().isEmpty());
}

void tst_ProjectActions::deletingATileSetTurnsItsItemsOff()
{
    const QPointer<Palette> sky = project()->createPalette(CreateBlank, "Sky");
    const QPointer<TileSet> tiles = project()->createTileSet("Cave", sky->id(), 1);
    TileMenu *menu = m_bar->tileMenu();
    menu->setTileSet(tiles->id());
    menu->setTileSetActionsEnabled(true);
    menu->setNewTileSetEnabled(false);
    menu->setEnabled(false);

    m_actions->deleteItem(ProjectTree::ProjectNode::TileSet, tiles->id());

    QCOMPARE(contents(), QStringList("palette Sky"));
    QVERIFY(menu->isEnabled());
    QVERIFY(!isInTree("Cave"));
    QVERIFY(isEnabled(menu, "New Tile Set"));
    QVERIFY(!isEnabled(menu, "Export"));
}

void tst_ProjectActions::deletingBlocks()
{
    const QPointer<TileSet> tiles = project()->createTileSet("Cave", QUuid(), 1);
    const QPointer<MapObjects> blocks = project()->createBlockList("Doors", tiles->id());

    m_actions->deleteItem(ProjectTree::ProjectNode::Objects, blocks->id());

    QVERIFY(!blocks);
    QVERIFY(!isInTree("Doors"));
    QVERIFY(refusal().isEmpty());
}

void tst_ProjectActions::deletingTheActiveBankClearsItInTheMenu()
{
    const QPointer<SpriteBank> bank =
        project()->createSpriteBank(Tessaril::Sprite::EightBit, "Heroes", QUuid());
    m_bar->spriteMenu()->setSpriteBank(bank);
    m_bar->spriteMenu()->setSpriteActionsEnabled(true);

    m_actions->deleteItem(ProjectTree::ProjectNode::Sprites, bank->id());

    QVERIFY(!bank);
    QVERIFY(!m_bar->spriteMenu()->spriteBank());
    QVERIFY(!isInTree("Heroes"));
    QVERIFY(!isEnabled(m_bar->spriteMenu(), "Export Data"));
}

void tst_ProjectActions::deletingAnotherBankKeepsTheActiveOne()
{
    const QPointer<SpriteBank> active =
        project()->createSpriteBank(Tessaril::Sprite::EightBit, "Heroes", QUuid());
    const QPointer<SpriteBank> other =
        project()->createSpriteBank(Tessaril::Sprite::EightBit, "Foes", QUuid());
    m_bar->spriteMenu()->setSpriteBank(active);
    m_bar->spriteMenu()->setSpriteActionsEnabled(true);

    m_actions->deleteItem(ProjectTree::ProjectNode::Sprites, other->id());

    QCOMPARE(m_bar->spriteMenu()->spriteBank(), active);
    QVERIFY(isEnabled(m_bar->spriteMenu(), "Export Data"));
}

void tst_ProjectActions::deletingAMapClearsItInTheMenu()
{
    const QPointer<TileSet> tiles = project()->createTileSet("Cave", QUuid(), 1);
    const QPointer<Map> map = project()->createMap("Level", tiles->id(), {1, 1});
    m_bar->mapMenu()->setMap(map->id());

    m_actions->deleteItem(ProjectTree::ProjectNode::Map, map->id());

    QVERIFY(!map);
    QVERIFY(m_bar->mapMenu()->mapId().isNull());
    QVERIFY(!isInTree("Level"));
    QVERIFY(!isEnabled(m_bar->mapMenu(), "Export"));
}

void tst_ProjectActions::imagesCannotBeDeleted()
{
    const QPointer<Image> image =
        project()->createImage(Tessaril::ImageMode::LoRes_128x96, "Title", QUuid());

    m_actions->deleteItem(ProjectTree::ProjectNode::Image, image->id());

    QCOMPARE(project()->images().size(), 1);
    QVERIFY(refusal().isEmpty());
}

QTEST_MAIN(tst_ProjectActions)
#include "tst_ProjectActions.moc"
