#include "app/QuietWindow.h"
#include "editors/BlockEditorView.h"
#include "model/Image.h"
#include "model/MapObjects.h"
#include "model/SpriteBank.h"

#include <QSignalSpy>
#include <QTest>

using Node = ProjectTree::ProjectNode;

/// How documents come to the front, again and again.
class tst_MainWindowTabs : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }
    void theTreeOpensEachKind_data();
    void theTreeOpensEachKind();
    void anOpenTabComesToTheFront_data();
    void anOpenTabComesToTheFront();
    void theTreeShowsATileSet();
    void withTheLastTabItsCommandsGo();
    void aClosedImageOpensAnew();
    void anImageHasItsPaletteAndTheShapeOfItsMode();
    void aSpriteBankBringsItsDockToTheFront();
    void aMapShowsTheSpritesOfTheBanks();
    void theSpriteDockSaysSoWhereNoBankIsLeft();
    void aMapTakesThePickerFromABlockEditor();
    void tabsAreNotRepaintedWhileTheyGo();
    void theDocksAreEmptyBeforeTheProjectGoes();
    void aWindowThatGoesClosesItsProjectUnasked();

private:
    void addKinds();
    void pick(Node node, const QUuid &id) const
    {
        emit m_window->views().projectWindow->tree()->itemDoubleClicked(node, id);
    }
    QUuid inFront() const
    {
        const QWidget *const tab = m_window->views().tabs->currentWidget();
        return tab ? tab->property("document_id").toUuid() : QUuid();
    }
    QPointer<Image> addImage(Tessaril::ImageMode mode) const
    {
        const auto palette = m_window->project()->createPalette(CreateDefault, "sky");
        return m_window->project()->createImage(mode, "title", palette->id());
    }

    std::unique_ptr<QuietWindow> m_window;
    QHash<Node, QUuid> m_ids; // a document of each kind that has a tab
};

void tst_MainWindowTabs::init()
{
    m_window = std::make_unique<QuietWindow>();
    QVERIFY(m_window->isReady());
    m_window->newProject();
    const auto map = m_window->addMap();
    const auto bank = m_window->project()->createSpriteBank(Tessaril::Sprite::EightBit, "heroes",
                                                            map->tileSet()->palette()->id());
    m_ids = {{Node::Map, map->id()},
             {Node::Sprites, bank->id()},
             {Node::Objects, m_window->project()->createBlockList("doors", map->tileSetId())->id()},
             {Node::Image, addImage(Tessaril::ImageMode::Layer2_256x192)->id()}};
    m_window->views().tabs->closeAll(); // a new image has opened its own
}

void tst_MainWindowTabs::addKinds()
{
    QTest::addColumn<Node>("node");
    QTest::newRow("map") << Node::Map;
    QTest::newRow("sprites") << Node::Sprites;
    QTest::newRow("blocks") << Node::Objects;
    QTest::newRow("image") << Node::Image;
}

void tst_MainWindowTabs::theTreeOpensEachKind_data()
{
    addKinds();
}

void tst_MainWindowTabs::theTreeOpensEachKind()
{
    QFETCH(Node, node);

    pick(node, m_ids.value(node));

    QCOMPARE(m_window->views().tabs->count(), 1);
    QCOMPARE(inFront(), m_ids.value(node));
}

void tst_MainWindowTabs::anOpenTabComesToTheFront_data()
{
    addKinds();
}

void tst_MainWindowTabs::anOpenTabComesToTheFront()
{
    QFETCH(Node, node);
    const Node other = node == Node::Map ? Node::Image : Node::Map;
    pick(node, m_ids.value(node));
    const QPointer<QWidget> tab = m_window->views().tabs->currentWidget();
    pick(other, m_ids.value(other));
    QCOMPARE(m_window->views().tabs->count(), 2);
    QCOMPARE(inFront(), m_ids.value(other));

    pick(node, m_ids.value(node));

    QCOMPARE(m_window->views().tabs->count(), 2);
    QCOMPARE(m_window->views().tabs->currentWidget(), tab);
}

void tst_MainWindowTabs::theTreeShowsATileSet()
{
    const auto tileSet = m_window->addTileSet();

    pick(Node::TileSet, tileSet->id());

    QCOMPARE(m_window->views().tileWindow->tileSet(), tileSet);
    QCOMPARE(m_window->views().tabs->count(), 0);
}

void tst_MainWindowTabs::withTheLastTabItsCommandsGo()
{
    const QAction *const cut = QuietWindow::item(m_window->menus()->editMenu(), "Cut");
    pick(Node::Map, m_ids.value(Node::Map));
    QVERIFY(cut->isEnabled());

    m_window->views().tabs->closeTab(0);

    QVERIFY(!cut->isEnabled());
    QVERIFY(!m_window->views().mapToolBar->isEnabled());
}

void tst_MainWindowTabs::aClosedImageOpensAnew()
{
    pick(Node::Image, m_ids.value(Node::Image));
    m_window->views().tabs->closeTab(0);
    QCOMPARE(m_window->views().tabs->count(), 0);

    pick(Node::Image, m_ids.value(Node::Image));

    QCOMPARE(inFront(), m_ids.value(Node::Image));
    QCOMPARE(m_window->views().paletteWindow->windowTitle(), QString("Palette: sky"));
}

void tst_MainWindowTabs::anImageHasItsPaletteAndTheShapeOfItsMode()
{
    const auto image = addImage(Tessaril::ImageMode::Layer2_640x256);

    const auto *const canvas = m_window->views().tabs->currentWidget()->findChild<Canvas *>();
    QCOMPARE(canvas->palette(), image->palette());
    QVERIFY(canvas->isHiRes());
    addImage(Tessaril::ImageMode::Layer2_320x256);

    QVERIFY(!m_window->views().tabs->currentWidget()->findChild<Canvas *>()->isHiRes());
}

void tst_MainWindowTabs::aSpriteBankBringsItsDockToTheFront()
{
    const SpriteWindow *const dock = m_window->views().spriteWindow;
    m_window->views().tileWindow->raise();
    QTRY_VERIFY(dock->visibleRegion().isEmpty());

    pick(Node::Sprites, m_ids.value(Node::Sprites));

    QTRY_VERIFY(!dock->visibleRegion().isEmpty());
    QCOMPARE(dock->windowTitle(), QString("Sprites: heroes"));
}

void tst_MainWindowTabs::aMapShowsTheSpritesOfTheBanks()
{
    const auto bank = m_window->project()->spriteBank(m_ids.value(Node::Sprites));
    const auto map = m_window->project()->map(m_ids.value(Node::Map));
    Map::PlacedSprite hero;
    hero.bank = bank->id();
    hero.sprite = 0;
    map->setSprites({hero});

    pick(Node::Map, map->id());

    QVERIFY(m_window->currentMap()->grid()->spriteScreenRect(0).isValid());
}

void tst_MainWindowTabs::theSpriteDockSaysSoWhereNoBankIsLeft()
{
    pick(Node::Map, m_ids.value(Node::Map));
    QVERIFY(m_window->views().mapSprites->isContentShown());
    m_window->project()->deleteSpriteBank(m_ids.value(Node::Sprites));

    pick(Node::Map, m_ids.value(Node::Map));

    QVERIFY(!m_window->views().mapSprites->isContentShown());
}

void tst_MainWindowTabs::aMapTakesThePickerFromABlockEditor()
{
    TilePickerTool *const picker = m_window->views().tilePicker;
    pick(Node::Objects, m_ids.value(Node::Objects));
    auto *const blocks = qobject_cast<BlockEditor::View *>(m_window->views().tabs->currentWidget());
    QSignalSpy picked(blocks, &BlockEditor::View::tileDoubleClicked);
    emit picker->tileDoubleClicked(2);
    QCOMPARE(picked.count(), 1);

    pick(Node::Map, m_ids.value(Node::Map));
    emit picker->tileDoubleClicked(5);

    QCOMPARE(picked.count(), 1);
    QCOMPARE(m_window->views().tileWindow->tileNumber(), 5);
    pick(Node::Objects, m_ids.value(Node::Objects));
    emit picker->tileDoubleClicked(7);
    QCOMPARE(picked.count(), 2);
}

void tst_MainWindowTabs::tabsAreNotRepaintedWhileTheyGo()
{
    DocumentTabView *const tabs = m_window->views().tabs;
    QList<bool> updated;
    const auto watch = [&updated, tabs] {
        connect(tabs->currentWidget(), &QObject::destroyed, tabs,
                [&updated, tabs] { updated += tabs->updatesEnabled(); });
    };
    pick(Node::Map, m_ids.value(Node::Map));
    watch();
    m_window->control()->close();
    QVERIFY(tabs->updatesEnabled());
    const auto map = (m_window->newProject(), m_window->addMap());
    m_window->documents()->setActiveMap(map->id());
    watch();
    m_window->get()->close();

    QCOMPARE(updated, QList<bool>({false, false}));
    QVERIFY(tabs->updatesEnabled());
}

void tst_MainWindowTabs::theDocksAreEmptyBeforeTheProjectGoes()
{
    const DocumentViews &views = m_window->views();
    m_window->documents()->setActivePalette(m_window->project()->palettes().first()->id());
    m_window->documents()->setActiveTileSet(m_window->project()->tileSets().first()->id());
    QVERIFY(views.paletteWindow->isContentShown());
    QList<bool> shown;
    connect(m_window->control(), &ProjectController::projectClosing, this, [&shown, &views] {
        shown = {views.paletteWindow->isContentShown(), views.tileWindow->isContentShown(),
                 views.projectWindow->isContentShown()};
    });

    m_window->control()->close();

    QCOMPARE(shown, QList<bool>({false, false, false}));
}

void tst_MainWindowTabs::aWindowThatGoesClosesItsProjectUnasked()
{
    int prompts = 0;
    m_window->control()->_unsavedPrompt = [&prompts](const QString &) { return ++prompts; };
    const QPointer<Project> project = m_window->project();
    bool alive = false;
    connect(m_window->control(), &ProjectController::projectClosing, this,
            [&alive, &project] { alive = project; });

    m_window.reset();

    QVERIFY(alive);
    QVERIFY(!project);
    QCOMPARE(prompts, 0);
}

QTEST_MAIN(tst_MainWindowTabs)
#include "tst_MainWindowTabs.moc"
