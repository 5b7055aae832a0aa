#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "tree/ProjectWindow.h"

#include <QScrollArea>
#include <QSignalSpy>
#include <QTest>

using Node = ProjectTree::ProjectNode;

class tst_ProjectWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void isADockForTheSides();
    void showsEverythingOfAProject();
    void documentsMadeLaterJoin();
    void blocksFollowTheirTileSet();
    void blocksWhoseTileSetIsGoneStayInReach();
    void aNullProjectIsLetGo();
    void anotherProjectReplacesTheFirst();
    void eachKindHasItsSignal_data();
    void eachKindHasItsSignal();
    void renamingReachesTheDocument_data();
    void renamingReachesTheDocument();
    void renamingSortsTheGroupAgain();
    void anEmptyNameIsAccepted();
    void renamingWhatIsGoneChangesNothing();
    void menuActionsAreRepeated();

private:
    QTreeWidgetItem *group(Node node) const
    {
        return m_window->tree()->topLevelItem(0)->child(static_cast<int>(node));
    }
    QString textOf(Node node) const
    {
        return group(node)->childCount() > 0 ? group(node)->child(0)->text(0) : QString();
    }

    std::unique_ptr<Project> m_project;
    std::unique_ptr<ProjectWindow> m_window;
};

void tst_ProjectWindow::init()
{
    m_window.reset();
    m_project = std::make_unique<Project>();
    m_project->setName("game");
    m_window = std::make_unique<ProjectWindow>();
}

void tst_ProjectWindow::isADockForTheSides()
{
    QCOMPARE(m_window->objectName(), QString("ProjectWindow"));
    QCOMPARE(m_window->windowTitle(), QString("Project"));
    QCOMPARE(m_window->allowedAreas(), Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    QVERIFY(!m_window->isContentShown());
    QVERIFY(m_window->autoFillBackground());
    QCOMPARE(m_window->scrollArea()->widget(), m_window->tree());
}

void tst_ProjectWindow::showsEverythingOfAProject()
{
    const QUuid set = m_project->createTileSet("castle", QUuid(), 4)->id();
    m_project->createBlockList("lifts", set);
    m_project->createMap("level", set, QSize(4, 4));
    m_project->createSpriteBank(Tessaril::Sprite::FourBit, "heroes", QUuid());
    m_project->createImage(Tessaril::ImageMode::Layer2_256x192, "title", QUuid());

    m_window->setProject(m_project.get());

    QVERIFY(m_window->isContentShown());
    QCOMPARE(m_window->tree()->topLevelItem(0)->text(0), QString("game"));
    QVERIFY(group(Node::Palette)->isHidden());
    QCOMPARE(textOf(Node::Palette), QString("castle"));
    QCOMPARE(textOf(Node::TileSet), QString("castle"));
    QCOMPARE(group(Node::TileSet)->child(0)->child(0)->text(0), QString("lifts"));
    QCOMPARE(group(Node::Objects)->childCount(), 0);
    QCOMPARE(textOf(Node::Map), QString("level"));
    QCOMPARE(textOf(Node::Sprites), QString("heroes"));
    QCOMPARE(textOf(Node::Image), QString("title"));
}

void tst_ProjectWindow::documentsMadeLaterJoin()
{
    m_window->setProject(m_project.get());

    const QUuid set = m_project->createTileSet("castle", QUuid(), 4)->id();
    m_project->createMap("level", set, QSize(4, 4));
    m_project->createSpriteBank(Tessaril::Sprite::FourBit, "heroes", QUuid());
    m_project->createImage(Tessaril::ImageMode::LoRes_128x96, "title", QUuid());

    QCOMPARE(textOf(Node::Palette), QString("castle"));
    QCOMPARE(textOf(Node::TileSet), QString("castle"));
    QCOMPARE(textOf(Node::Map), QString("level"));
    QCOMPARE(textOf(Node::Sprites), QString("heroes"));
    QCOMPARE(textOf(Node::Image), QString("title"));
    QVERIFY(group(Node::Palette)->isHidden());
}

void tst_ProjectWindow::blocksFollowTheirTileSet()
{
    m_window->setProject(m_project.get());
    const QUuid set = m_project->createTileSet("castle", QUuid(), 4)->id();

    m_project->createBlockList("lifts", set);

    QCOMPARE(group(Node::TileSet)->child(0)->child(0)->text(0), QString("lifts"));
}

void tst_ProjectWindow::blocksWhoseTileSetIsGoneStayInReach()
{
    const QUuid set = m_project->createTileSet("castle", QUuid(), 4)->id();
    m_project->createBlockList("lifts", set);
    QVERIFY(m_project->deleteTileSet(set));

    m_window->setProject(m_project.get());

    QCOMPARE(textOf(Node::Objects), QString("lifts"));
    QVERIFY(!group(Node::Objects)->isHidden());
}

void tst_ProjectWindow::aNullProjectIsLetGo()
{
    m_window->setProject(m_project.get());

    m_window->setProject(nullptr);
    m_project->createTileSet("castle", QUuid(), 4);

    QCOMPARE(group(Node::TileSet)->childCount(), 0);
}

void tst_ProjectWindow::anotherProjectReplacesTheFirst()
{
    m_window->setProject(m_project.get());
    m_project->createTileSet("castle", QUuid(), 4);
    Project other;
    other.setName("other");

    m_window->setProject(&other);
    m_project->createTileSet("late", QUuid(), 4);

    QCOMPARE(m_window->tree()->topLevelItem(0)->text(0), QString("other"));
    QCOMPARE(group(Node::TileSet)->childCount(), 0);
    m_window->setProject(nullptr);
}

void tst_ProjectWindow::eachKindHasItsSignal_data()
{
    QTest::addColumn<Node>("node");
    QTest::newRow("palette") << Node::Palette;
    QTest::newRow("tile set") << Node::TileSet;
    QTest::newRow("objects") << Node::Objects;
    QTest::newRow("sprites") << Node::Sprites;
    QTest::newRow("map") << Node::Map;
    QTest::newRow("image") << Node::Image;
}

void tst_ProjectWindow::eachKindHasItsSignal()
{
    QFETCH(Node, node);
    QSignalSpy spies[] = {QSignalSpy(m_window.get(), &ProjectWindow::selectedPaletteChanged),
                          QSignalSpy(m_window.get(), &ProjectWindow::selectedTileSetChanged),
                          QSignalSpy(m_window.get(), &ProjectWindow::selectedBlocksChanged),
                          QSignalSpy(m_window.get(), &ProjectWindow::selectedSpritesChanged),
                          QSignalSpy(m_window.get(), &ProjectWindow::selectedMapChanged),
                          QSignalSpy(m_window.get(), &ProjectWindow::selectedImageChanged)};
    const QUuid id = QUuid::createUuid();

    emit m_window->tree()->itemDoubleClicked(node, id);

    for (int i = 0; i < 6; ++i) {
        QCOMPARE(spies[i].count(), i == static_cast<int>(node) ? 1 : 0);
        if (!spies[i].isEmpty())
            QCOMPARE(spies[i].first().first().toUuid(), id);
    }
}

void tst_ProjectWindow::renamingReachesTheDocument_data()
{
    eachKindHasItsSignal_data();
}

void tst_ProjectWindow::renamingReachesTheDocument()
{
    QFETCH(Node, node);
    const auto set = m_project->createTileSet("old", QUuid(), 4);
    const auto blocks = m_project->createBlockList("old", set->id());
    const auto map = m_project->createMap("old", set->id(), QSize(4, 4));
    const auto bank = m_project->createSpriteBank(Tessaril::Sprite::FourBit, "old", QUuid());
    const auto image = m_project->createImage(Tessaril::ImageMode::LoRes_128x96, "old", QUuid());
    m_window->setProject(m_project.get());
    QSignalSpy mapNamed(map, &Map::nameChanged);
    QTreeWidgetItem *const item =
        node == Node::Objects ? group(Node::TileSet)->child(0)->child(0) : group(node)->child(0);

    item->setText(0, "new");

    const auto expected = [node](Node other) { return QString(node == other ? "new" : "old"); };
    QCOMPARE(set->palette()->name(), expected(Node::Palette));
    QCOMPARE(set->name(), expected(Node::TileSet));
    QCOMPARE(blocks->name(), expected(Node::Objects));
    QCOMPARE(map->name(), expected(Node::Map));
    QCOMPARE(bank->name(), expected(Node::Sprites));
    QCOMPARE(image->name(), expected(Node::Image));
    QCOMPARE(mapNamed.count(), node == Node::Map ? 1 : 0);
}

void tst_ProjectWindow::renamingSortsTheGroupAgain()
{
    const QUuid set = m_project->createTileSet("castle", QUuid(), 4)->id();
    m_project->createMap("a", set, QSize(4, 4));
    m_project->createMap("b", set, QSize(4, 4));
    m_window->setProject(m_project.get());

    group(Node::Map)->child(0)->setText(0, "c");

    QCOMPARE(group(Node::Map)->child(0)->text(0), QString("b"));
    QCOMPARE(group(Node::Map)->child(1)->text(0), QString("c"));
    QCOMPARE(group(Node::Map)->childCount(), 2);
}

void tst_ProjectWindow::anEmptyNameIsAccepted()
{
    const auto set = m_project->createTileSet("castle", QUuid(), 4);
    m_window->setProject(m_project.get());

    group(Node::TileSet)->child(0)->setText(0, QString());

    QCOMPARE(set->name(), QString());
}

void tst_ProjectWindow::renamingWhatIsGoneChangesNothing()
{
    const auto bank = m_project->createSpriteBank(Tessaril::Sprite::FourBit, "heroes", QUuid());
    m_window->setProject(m_project.get());
    QVERIFY(m_project->deleteSpriteBank(bank->id()));

    group(Node::Sprites)->child(0)->setText(0, "ghosts");

    QCOMPARE(textOf(Node::Sprites), QString("ghosts"));
    m_window->removeItem(Node::Sprites, ProjectTree::idOf(group(Node::Sprites)->child(0)));
    QCOMPARE(group(Node::Sprites)->childCount(), 0);
}

void tst_ProjectWindow::menuActionsAreRepeated()
{
    QSignalSpy deleted(m_window.get(), &ProjectWindow::deleteItemTriggered);
    QSignalSpy copied(m_window.get(), &ProjectWindow::copyItemTriggered);
    const QUuid id = QUuid::createUuid();

    emit m_window->tree()->deleteItem(Node::Map, id);
    emit m_window->tree()->copyItem(Node::TileSet, id);

    QCOMPARE(deleted.count(), 1);
    QCOMPARE(deleted.first(), QVariantList({QVariant::fromValue(Node::Map), id}));
    QCOMPARE(copied.count(), 1);
    QCOMPARE(copied.first(), QVariantList({QVariant::fromValue(Node::TileSet), id}));
}

QTEST_MAIN(tst_ProjectWindow)
#include "tst_ProjectWindow.moc"
