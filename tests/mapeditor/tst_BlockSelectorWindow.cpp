#include "mapeditor/BlockSelectorWindow.h"

#include "editors/AnimationListWidget.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/TileSet.h"
#include "support/TestMaps.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>

#include <memory>

Q_DECLARE_METATYPE(QPointer<TileAnimation>)

class tst_BlockSelectorWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsOnItsPlaceholder();
    void aTileSetOffersItsBlockLists();
    void theTitleFollowsTheNameOfTheTileSet();
    void noTileSetEmptiesTheDock();
    void anotherListShowsItsOwnBlocks();
    void newBlocksJoinTheList();
    void aRenamedListStaysChosen();
    void aTileSetThatWasLeftIsNotFollowed();
    void blocksLookLikeTheirTiles();
    void choosingABlockSendsIt();
    void pressingTheChosenBlockSendsItAgain();
    void showingAListSendsNothing();

private:
    QComboBox *combo() const { return m_window->findChild<QComboBox *>(); }
    int count() const
    {
        return m_window->findChild<AnimationEditor::AnimationListWidget *>()->count();
    }

    std::unique_ptr<TestMaps::PlainTiles> m_tiles;
    std::unique_ptr<MapObjects> m_doors;  // 1 block
    std::unique_ptr<MapObjects> m_plants; // 2 blocks
    std::unique_ptr<BlockSelectorWindow> m_window;
};

void tst_BlockSelectorWindow::init()
{
    m_tiles = std::make_unique<TestMaps::PlainTiles>(8);
    m_tiles->set->setName(QStringLiteral("Castle"));
    m_doors = std::make_unique<MapObjects>();
    m_plants = std::make_unique<MapObjects>();
    m_doors->setName(QStringLiteral("Doors"));
    m_plants->setName(QStringLiteral("Plants"));
    m_doors->createTileAnimation(QStringLiteral("Gate"));
    m_plants->createTileAnimation(QStringLiteral("Fern"));
    m_plants->createTileAnimation(QStringLiteral("Oak"));
    m_doors->setTileSet(m_tiles->set.get());
    m_plants->setTileSet(m_tiles->set.get());
    m_window = std::make_unique<BlockSelectorWindow>();
}

void tst_BlockSelectorWindow::cleanup()
{
    m_window.reset();
    m_plants.reset();
    m_doors.reset();
    m_tiles.reset();
}

void tst_BlockSelectorWindow::startsOnItsPlaceholder()
{
    QCOMPARE(m_window->objectName(), QStringLiteral("TileListWindow"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Map Objects"));
    QVERIFY(!m_window->isContentShown());
    QStringList texts;
    for (const QLabel *label : m_window->findChildren<QLabel *>())
        texts.append(label->text());
    QVERIFY(texts.contains(QStringLiteral("No tile active tile set")));
}

void tst_BlockSelectorWindow::aTileSetOffersItsBlockLists()
{
    m_window->setTileSet(m_tiles->set.get());

    QCOMPARE(m_window->windowTitle(), QStringLiteral("Map Objects: Castle"));
    QVERIFY(m_window->isContentShown());
    QCOMPARE(combo()->count(), 2);
    QCOMPARE(combo()->itemText(0), QStringLiteral("Doors"));
    QCOMPARE(combo()->itemText(1), QStringLiteral("Plants"));
    QCOMPARE(count(), 1);
}

void tst_BlockSelectorWindow::theTitleFollowsTheNameOfTheTileSet()
{
    m_window->setTileSet(m_tiles->set.get());

    m_tiles->set->setName(QStringLiteral("Cave"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Map Objects: Cave"));
    m_window->setTileSet(nullptr);
    m_tiles->set->setName(QStringLiteral("Wood"));

    QCOMPARE(m_window->windowTitle(), QStringLiteral("Map Objects"));
}

void tst_BlockSelectorWindow::noTileSetEmptiesTheDock()
{
    m_window->setTileSet(m_tiles->set.get());

    m_window->setTileSet(nullptr);

    QCOMPARE(m_window->windowTitle(), QStringLiteral("Map Objects"));
    QVERIFY(!m_window->isContentShown());
    QCOMPARE(combo()->count(), 0);
    QCOMPARE(count(), 0);
}

void tst_BlockSelectorWindow::anotherListShowsItsOwnBlocks()
{
    m_window->setTileSet(m_tiles->set.get());

    QTest::keyClick(combo(), Qt::Key_Down);
    QCOMPARE(count(), 2);
    m_window->changeList(0);
    QCOMPARE(count(), 1);
    m_window->changeList(7);
    QCOMPARE(count(), 0);
}

void tst_BlockSelectorWindow::newBlocksJoinTheList()
{
    m_window->setTileSet(m_tiles->set.get());

    m_doors->createTileAnimation(QStringLiteral("Hatch"));

    QCOMPARE(count(), 2);
}

void tst_BlockSelectorWindow::aRenamedListStaysChosen()
{
    m_window->setTileSet(m_tiles->set.get());
    QTest::keyClick(combo(), Qt::Key_Down);

    m_plants->setName(QStringLiteral("Trees"));

    QCOMPARE(combo()->currentText(), QStringLiteral("Trees"));
    QCOMPARE(count(), 2);
    m_doors->setName(QStringLiteral("Zoo"));
    QCOMPARE(combo()->currentText(), QStringLiteral("Trees"));
    m_plants.reset();
    QCOMPARE(combo()->currentText(), QStringLiteral("Zoo"));
    QCOMPARE(count(), 1);
}

void tst_BlockSelectorWindow::aTileSetThatWasLeftIsNotFollowed()
{
    TestMaps::PlainTiles others(2);
    m_window->setTileSet(m_tiles->set.get());
    m_window->setTileSet(others.set.get());

    m_doors->createTileAnimation(QStringLiteral("Hatch"));

    QCOMPARE(count(), 0);
}

void tst_BlockSelectorWindow::blocksLookLikeTheirTiles()
{
    const QPointer<TileAnimation> gate = *m_doors->animations().begin();
    gate->setTileSet(m_tiles->set.get());
    gate->addFrame();
    m_window->setTileSet(m_tiles->set.get());
    const auto *const items = m_window->findChild<QListWidget *>();
    const auto colour = [items] {
        return items->item(0)->icon().pixmap(48, 48).toImage().pixelColor(20, 20);
    };

    m_tiles->palette->setColour(0, Qt::white);
    QTRY_COMPARE(colour(), QColor(Qt::white));
    m_tiles->palette->setColour(0, Qt::red);
    QTRY_COMPARE(colour(), QColor(Qt::red));
    m_window->setTileSet(nullptr);
    m_tiles->palette->setColour(0, Qt::white); // of a set that nobody shows
}

void tst_BlockSelectorWindow::choosingABlockSendsIt()
{
    m_window->setTileSet(m_tiles->set.get());
    m_window->show();
    QSignalSpy selected(m_window.get(), &BlockSelectorWindow::selectedItemChanged);
    auto *list = m_window->findChild<QListWidget *>();

    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(0)).center());

    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).value<QPointer<TileAnimation>>()->name(), QStringLiteral("Gate"));
}

void tst_BlockSelectorWindow::pressingTheChosenBlockSendsItAgain()
{
    m_window->setTileSet(m_tiles->set.get());
    m_window->show();
    auto *const list = m_window->findChild<QListWidget *>();
    QSignalSpy chosen(m_window.get(), &BlockSelectorWindow::selectedItemChanged);
    const QPoint middle = list->visualItemRect(list->item(0)).center();

    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, middle);
    QCOMPARE(chosen.count(), 1);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, middle);
    QCOMPARE(chosen.count(), 2);
    QVERIFY(chosen.at(0) == chosen.at(1));
    QTest::mouseClick(list->viewport(), Qt::RightButton, {}, middle);

    QCOMPARE(chosen.count(), 2);
}

void tst_BlockSelectorWindow::showingAListSendsNothing()
{
    QSignalSpy selected(m_window.get(), &BlockSelectorWindow::selectedItemChanged);

    m_window->setTileSet(m_tiles->set.get());
    m_window->changeList(1);
    m_window->setTileSet(nullptr);

    QCOMPARE(selected.count(), 0);
}

QTEST_MAIN(tst_BlockSelectorWindow)

#include "tst_BlockSelectorWindow.moc"
