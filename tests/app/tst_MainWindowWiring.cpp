#include "app/QuietWindow.h"
#include "dialogs/GeneralPage.h"
#include "editors/TilePickerGrid.h"
#include "formats/NextFormats.h"
#include "model/MapObjects.h"
#include "model/SpriteBank.h"
#include "support/TestFiles.h"

#include <QClipboard>
#include <QJsonDocument>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>

/// What the items of the menus, the docks and the messages reach in the whole window.
class tst_MainWindowWiring : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }
    void theFileItemsLeadTheProjectsLife();
    void closingByTheMenuMayBeRefused();
    void savingFollowsTheBackupPreference_data();
    void savingFollowsTheBackupPreference();
    void aSpriteBankIsMadeByItsMenu();
    void aTileSetIsMadeByItsMenu();
    void aMapIsMadeByItsMenu();
    void aMapImportIsAskedByItsMenu();
    void theTreeCopiesADocument();
    void aSelectionOfAMapBecomesAMap();
    void aViewsExportsAreWritten();
    void theWindowMenuListsTheDocksInOrder();
    void theScratchItemNeedsAProject();
    void aPaletteComesToTheFront();
    void theStatusBarIsToggledByItsItem();
    void theMagnificationMenuZoomsThePicker();
    void swappingASpriteBanksPalette();
    void steppingThroughTilesTakesThePickerAlong();
    void messagesReachTheStatusBar();
    void projectErrorsReachTheBox();
    void preferencesOpenByTheirItem();
    void quitClosesTheWindow();
    void theFileToolBarIsFixed();
    void docksHaveTheirPlaceholdersAndAreas();
    void resetLayoutTakesSixDocksOutAndLeavesThePicker();

private:
    QStringList visibleTexts(const QWidget *window) const;

    std::unique_ptr<QuietWindow> m_window;
    QString m_folder;
};

void tst_MainWindowWiring::init()
{
    m_folder = QDir::currentPath() + "/wiring";
    QDir(m_folder).removeRecursively();
    QVERIFY(QDir().mkpath(m_folder));
    m_window = std::make_unique<QuietWindow>();
    QVERIFY(m_window->isReady());
}

QStringList tst_MainWindowWiring::visibleTexts(const QWidget *window) const
{
    QStringList texts;
    const auto labels = window->findChildren<QLabel *>();
    for (const QLabel *const label : labels) {
        if (label->isVisible())
            texts += label->text();
    }
    return texts;
}

void tst_MainWindowWiring::theFileItemsLeadTheProjectsLife()
{
    FileMenu *const menu = m_window->menus()->fileMenu();
    const QString file = m_folder + "/castle.tessaril";
    const QString copy = m_folder + "/copy.tessaril";
    emit menu->newProject("castle");
    QVERIFY(m_window->project());
    m_window->control()->_savePath = [file] { return file; };
    menu->saveAction()->trigger();
    QVERIFY(QFile::exists(file));
    m_window->control()->_savePath = [copy] { return copy; };
    menu->saveAsAction()->trigger();
    QVERIFY(QFile::exists(copy));

    menu->closeAction()->trigger();
    QVERIFY(!m_window->project());
    for (const QAction *const action :
         {menu->saveAction(), menu->saveAsAction(), menu->closeAction()})
        QVERIFY(!action->isEnabled());
    emit menu->openProject(file);

    QCOMPARE(m_window->project()->name(), QString("castle"));
    QCOMPARE(m_window->control()->store()->fileName(), file);
    QVERIFY(menu->saveAction()->isEnabled());
}

void tst_MainWindowWiring::closingByTheMenuMayBeRefused()
{
    m_window->newProject();
    m_window->documents()->setActiveMap(m_window->addMap()->id());
    m_window->control()->_unsavedPrompt = [](const QString &) { return 2; };

    emit m_window->menus()->fileMenu()->closeProject();

    QVERIFY(m_window->project());
    QCOMPARE(m_window->views().tabs->count(), 1);
    m_window->control()->_unsavedPrompt = [](const QString &) { return 1; };
}

void tst_MainWindowWiring::savingFollowsTheBackupPreference_data()
{
    QTest::addColumn<bool>("wanted");
    QTest::newRow("wanted") << true;
    QTest::newRow("not wanted") << false;
}

void tst_MainWindowWiring::savingFollowsTheBackupPreference()
{
    QFETCH(bool, wanted);
    const QString file = m_folder + "/game.tessaril";
    m_window->control()->_savePath = [file] { return file; };
    m_window->newProject();
    m_window->control()->save();
    m_window->addTileSet();
    m_window->views().preferences->restore(
        QJsonDocument(QJsonObject{{"general", QJsonObject{{"backupOnSave", wanted}}}}));

    m_window->control()->save();

    QCOMPARE(QFile::exists(file + ".bak"), wanted);
}

void tst_MainWindowWiring::aSpriteBankIsMadeByItsMenu()
{
    Project *const project = m_window->newProject();
    const auto palette = project->createPalette(CreateDefault, "sky");
    m_window->views().tileWindow->raise();

    emit m_window->menus()->spriteMenu()->create(SpriteDialog::EightBit, "heroes", palette->id());

    QCOMPARE(project->spriteBanks().size(), 1);
    QCOMPARE(m_window->views().spriteWindow->sprites(), project->spriteBanks().first());
    QCOMPARE(m_window->views().tabs->count(), 0);
    QTRY_VERIFY(!m_window->views().spriteWindow->visibleRegion().isEmpty());
}

void tst_MainWindowWiring::aTileSetIsMadeByItsMenu()
{
    Project *const project = m_window->newProject();

    emit m_window->menus()->tileMenu()->createTiles("cave", QUuid(), 512, true);

    QCOMPARE(project->tileSets().size(), 1);
    QCOMPARE(project->palettes().size(), 1);
    QCOMPARE(m_window->views().tileWindow->tileSet(), project->tileSets().first());
    QVERIFY(m_window->views().tileWindow->isContentShown());
    const TileMenu *const menu = m_window->menus()->tileMenu();
    QCOMPARE(menu->tileSetId(), project->tileSets().first()->id());
    for (const char *const item : {"New Tile Set", "Swap Palette", "Export", "Next Tile"})
        QVERIFY2(QuietWindow::item(menu, item)->isEnabled(), item);
    QTRY_VERIFY(!m_window->views().tileWindow->visibleRegion().isEmpty());
}

void tst_MainWindowWiring::aMapIsMadeByItsMenu()
{
    Project *const project = m_window->newProject();
    const auto tileSet = m_window->addTileSet();
    QSize size(50, 40);

    emit m_window->menus()->mapMenu()->create("level", tileSet->id(), size);

    QCOMPARE(project->maps().size(), 1);
    QCOMPARE(project->maps().first()->tileLayer()->size(), QSize(50, 40));
    QCOMPARE(m_window->currentMap()->map(), project->maps().first());
    QCOMPARE(m_window->views().tileWindow->tileSet(), tileSet);
}

void tst_MainWindowWiring::aMapImportIsAskedByItsMenu()
{
    Project *const project = m_window->newProject();
    QVERIFY(TestFiles::make(m_folder + "/none.png", "no picture"));

    emit m_window->menus()->mapMenu()->importRequested(m_folder + "/none.png");

    auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    QVERIFY(box);
    QCOMPARE(box->windowTitle(), QString("Map Editor"));
    QCOMPARE(box->text(), QString("Import Incomplete"));
    QVERIFY(!box->informativeText().isEmpty());
    QCOMPARE(box->windowModality(), Qt::WindowModal);
    QCOMPARE(box->iconPixmap().deviceIndependentSize(), QSizeF(64, 64));
    box->accept();
    QVERIFY(project->maps().isEmpty());
}

void tst_MainWindowWiring::theTreeCopiesADocument()
{
    Project *const project = m_window->newProject();
    const auto tileSet = m_window->addTileSet();

    emit m_window->views().projectWindow->copyItemTriggered(ProjectTree::ProjectNode::TileSet,
                                                            tileSet->id());

    QCOMPARE(project->tileSets().size(), 2);
    const auto items = m_window->views().projectWindow->tree()->findItems(
        "cave (copy)", Qt::MatchRecursive | Qt::MatchExactly);
    QCOMPARE(items.size(), 1);
}

void tst_MainWindowWiring::aSelectionOfAMapBecomesAMap()
{
    Project *const project = m_window->newProject();
    const auto map = m_window->addMap();
    m_window->documents()->setActiveMap(map->id());
    auto *const copied = new QMimeData;
    copied->setData(TileMap::mimeType(), map->tileLayer()->toData({0, 0, 3, 2}));
    QGuiApplication::clipboard()->setMimeData(copied);

    emit m_window->currentMap()->createMapFromSelection(map->id(), QSize(3, 2));

    QCOMPARE(project->maps().size(), 2);
    QCOMPARE(m_window->currentMap()->map()->name(), QString("level Part"));
    QCOMPARE(m_window->currentMap()->map()->tileLayer()->size(), QSize(3, 2));
    QCOMPARE(m_window->views().tileWindow->tileSet(), map->tileSet());
}

void tst_MainWindowWiring::aViewsExportsAreWritten()
{
    m_window->newProject();
    const auto map = m_window->addMap();
    m_window->documents()->setActiveMap(map->id());
    MapEditor::View *const view = m_window->currentMap();

    for (const auto &exported :
         {QPair(&MapEditor::View::exportTileMap, map->id()),
          QPair(&MapEditor::View::exportTiles, map->tileSetId()),
          QPair(&MapEditor::View::exportTilePalette, map->tileSet()->paletteId())}) {
        const qsizetype before = QDir(m_folder).entryList(QDir::Files).size();
        emit(view->*exported.first)(m_folder, exported.second);
        QCOMPARE(QDir(m_folder).entryList(QDir::Files).size(), before + 1);
    }
}

void tst_MainWindowWiring::theWindowMenuListsTheDocksInOrder()
{
    const DocumentViews &views = m_window->views();
    const QList<QAction *> actions = m_window->windowMenu()->actions();
    const QList<QDockWidget *> docks = {
        views.projectWindow, views.paletteWindow, views.tileWindow, views.spriteWindow,
        views.tilePicker,    views.blockSelector, views.mapSprites};

    QCOMPARE(actions.size(), docks.size() + 1);
    for (qsizetype i = 0; i < docks.size(); ++i) {
        QCOMPARE(actions.at(i), docks.at(i)->toggleViewAction());
        actions.at(i)->trigger();
        QVERIFY(docks.at(i)->isHidden());
        actions.at(i)->trigger();
        QVERIFY(!docks.at(i)->isHidden());
    }
    QCOMPARE(actions.last()->text(), QString("Scratch Image Editor"));
}

void tst_MainWindowWiring::theScratchItemNeedsAProject()
{
    QAction *const item = m_window->scratchItem();
    QVERIFY(!item->isEnabled());
    Project *const project = m_window->newProject();
    QVERIFY(item->isEnabled());

    m_window->views().tileWindow->raise();
    item->trigger();
    QCOMPARE(m_window->views().tabs->currentWidget(), m_window->views().tabs->scratchEditor());
    QTRY_VERIFY(!m_window->views().paletteWindow->visibleRegion().isEmpty());
    const QByteArray blank = NextFormats::pixelBytes(project->scratchImage());
    QuietWindow::paintDot(m_window->views().tabs->currentWidget(), 9);
    QVERIFY(NextFormats::pixelBytes(project->scratchImage()) != blank);
    m_window->undo()->trigger();
    QCOMPARE(NextFormats::pixelBytes(project->scratchImage()), blank);
    m_window->control()->close();

    QVERIFY(!item->isEnabled());
}

void tst_MainWindowWiring::aPaletteComesToTheFront()
{
    Project *const project = m_window->newProject();
    const auto palette = project->createPalette(CreateDefault, "sky");
    m_window->views().tileWindow->raise();
    QTRY_VERIFY(m_window->views().paletteWindow->visibleRegion().isEmpty());

    emit m_window->views().projectWindow->selectedPaletteChanged(palette->id());

    QTRY_VERIFY(!m_window->views().paletteWindow->visibleRegion().isEmpty());
    QCOMPARE(m_window->views().paletteWindow->windowTitle(), QString("Palette: sky"));
}

void tst_MainWindowWiring::theStatusBarIsToggledByItsItem()
{
    QAction *const item = QuietWindow::item(m_window->menus()->viewMenu(), "Status Bar");
    QVERIFY(item->isChecked());

    item->trigger();
    QVERIFY(m_window->get()->statusBar()->isHidden());
    item->trigger();

    QVERIFY(m_window->get()->statusBar()->isVisible());
}

void tst_MainWindowWiring::theMagnificationMenuZoomsThePicker()
{
    const QMenu *const menu = m_window->menus()->tileMenu()->magnificationMenu();
    QCOMPARE(menu->actions(), m_window->views().tilePicker->zoomActions());
    QVERIFY(!menu->actions().isEmpty());
    const int before = m_window->views().tilePicker->zoom();

    menu->actions().last()->trigger();

    QVERIFY(m_window->views().tilePicker->zoom() != before);
}

void tst_MainWindowWiring::swappingASpriteBanksPalette()
{
    Project *const project = m_window->newProject();
    const auto first = project->createPalette(CreateDefault, "one");
    const auto second = project->createPalette(CreateDefault, "two");
    const auto bank = project->createSpriteBank(Tessaril::Sprite::EightBit, "heroes", first->id());
    m_window->documents()->setActiveSpriteEditor(bank->id());
    SpriteMenu *const menu = m_window->menus()->spriteMenu();
    QVERIFY(QuietWindow::item(menu, "Swap Palette")->isEnabled());

    emit menu->swapPalette(QUuid::createUuid());
    QCOMPARE(bank->palette(), first);
    emit menu->swapPalette(second->id());

    QCOMPARE(bank->palette(), second);
}

void tst_MainWindowWiring::steppingThroughTilesTakesThePickerAlong()
{
    m_window->newProject();
    const auto map = m_window->addMap();
    m_window->documents()->setActiveMap(map->id());
    TilePickerGrid *const grid = m_window->views().tilePicker->grid();
    QSignalSpy picked(grid, &TilePickerGrid::selectedIndexChanged);
    TileMenu *const menu = m_window->menus()->tileMenu();

    emit menu->nextTile();
    emit menu->nextTile();
    emit menu->previousTile();
    emit menu->previousTile();
    emit menu->previousTile(); // none before the first

    QCOMPARE(picked, QList<QVariantList>({{1}, {2}, {1}, {0}}));
    QCOMPARE(grid->selectedIndex(), 0);
    QCOMPARE(m_window->views().tileWindow->tileNumber(), 1);
    QCOMPARE(m_window->currentMap()->grid()->currentTile(), 0);
    emit m_window->currentMap()->tilePicked(4);
    QCOMPARE(grid->selectedIndex(), 4);
    QCOMPARE(picked.last(), QVariantList({4}));
}

void tst_MainWindowWiring::messagesReachTheStatusBar()
{
    Project *const project = m_window->newProject();
    QStatusBar *const bar = m_window->get()->statusBar();

    emit m_window->control()->store()->showMessage("from the store", 60000);
    QCOMPARE(bar->currentMessage(), QString("from the store"));
    emit project->showMessage(QStringLiteral("timed"), 1);
    QCOMPARE(bar->currentMessage(), QString("timed"));
    QTRY_COMPARE(bar->currentMessage(), m_window->get()->windowTitle());
    emit project->showMessage(QStringLiteral("stays"));
    QCOMPARE(bar->currentMessage(), QString("stays"));
    bar->clearMessage();

    QCOMPARE(bar->currentMessage(), m_window->get()->windowTitle());
}

void tst_MainWindowWiring::projectErrorsReachTheBox()
{
    Project *const project = m_window->newProject();
    const auto expect = [](const QString &text) {
        auto *const box = qobject_cast<MessageDialog *>(QApplication::activeModalWidget());
        QVERIFY(box);
        QCOMPARE(box->windowTitle(), QString("Warning!"));
        QStringList texts;
        for (const QLabel *const label : box->findChildren<QLabel *>())
            texts += label->text();
        QVERIFY2(texts.contains(text), qPrintable(texts.join('|')));
        box->accept();
    };

    emit project->error("of the project");
    expect("of the project");
    emit m_window->control()->error("of the control");
    expect("of the control");
    m_window->control()->store()->setFileName(m_folder + "/missing/game.tessaril");
    m_window->control()->save();
    expect("Could not create the project file");
}

void tst_MainWindowWiring::preferencesOpenByTheirItem()
{
    QuietWindow::item(m_window->menus()->fileMenu(), "Preferences")->trigger();

    QCOMPARE(QApplication::activeModalWidget(), m_window->views().preferences);
    m_window->views().preferences->reject();
}

void tst_MainWindowWiring::quitClosesTheWindow()
{
    m_window->newProject();
    m_window->documents()->setActiveMap(m_window->addMap()->id());
    m_window->control()->_unsavedPrompt = [](const QString &) { return 2; };
    m_window->menus()->fileMenu()->quitAction()->trigger();
    QVERIFY(m_window->get()->isVisible());

    m_window->control()->_unsavedPrompt = [](const QString &) { return 1; };
    m_window->menus()->fileMenu()->quitAction()->trigger();

    QVERIFY(!m_window->get()->isVisible());
    QVERIFY(m_window->project()); // it ends with the window
    QVERIFY(QFile::exists(QDir::homePath() + "/.config/tessaril/state.json"));
}

void tst_MainWindowWiring::theFileToolBarIsFixed()
{
    const auto *const bar = m_window->get()->findChild<QToolBar *>("File Toolbar");
    QCOMPARE(bar->toolButtonStyle(), Qt::ToolButtonIconOnly);
    QCOMPARE(bar->contextMenuPolicy(), Qt::PreventContextMenu);
    QCOMPARE(bar->actions().first(), m_window->menus()->fileMenu()->newAction());
    QVERIFY(m_window->get()->findChild<QToolBar *>("MapToolBar"));
    QCOMPARE(m_window->get()->toolBarArea(m_window->views().mapToolBar), Qt::TopToolBarArea);
}

void tst_MainWindowWiring::docksHaveTheirPlaceholdersAndAreas()
{
    const DocumentViews &views = m_window->views();
    const QList<QPair<QDockWidget *, QString>> expected = {
        {views.projectWindow, "No project loaded"},
        {views.paletteWindow, "No palette selected"},
        {views.tileWindow, "No tile set selected"},
        {views.spriteWindow, "No sprites selected"},
        {views.tilePicker, "No active tile set"},
        {views.blockSelector, "No tile active tile set"},
        {views.mapSprites, "No sprite banks"}};
    for (const auto &[dock, text] : expected) {
        dock->raise();
        QTRY_VERIFY2(visibleTexts(dock).contains(text), qPrintable(text));
    }
    for (const QDockWidget *const dock : {static_cast<QDockWidget *>(views.projectWindow),
                                          static_cast<QDockWidget *>(views.paletteWindow),
                                          static_cast<QDockWidget *>(views.spriteWindow)})
        QCOMPARE(dock->allowedAreas(), Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    QVERIFY(views.projectWindow->autoFillBackground());
}

void tst_MainWindowWiring::resetLayoutTakesSixDocksOutAndLeavesThePicker()
{
    const DocumentViews &views = m_window->views();
    m_window->get()->addDockWidget(Qt::TopDockWidgetArea, views.tilePicker);
    m_window->get()->setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::North);
    m_window->get()->setTabShape(QTabWidget::Triangular);
    views.mapSprites->setFloating(true);

    QuietWindow::item(m_window->menus()->viewMenu(), "Reset Layout")->trigger();

    QCOMPARE(m_window->get()->dockWidgetArea(views.tilePicker), Qt::BottomDockWidgetArea);
    QCOMPARE(m_window->get()->tabPosition(Qt::LeftDockWidgetArea), QTabWidget::South);
    QCOMPARE(m_window->get()->tabShape(), QTabWidget::Rounded);
    QVERIFY(!views.mapSprites->isFloating());
    QCOMPARE(m_window->get()->tabifiedDockWidgets(views.blockSelector),
             QList<QDockWidget *>({views.mapSprites}));
    QVERIFY(m_window->get()->tabifiedDockWidgets(views.projectWindow).isEmpty());
    QCOMPARE(m_window->get()->tabifiedDockWidgets(views.paletteWindow).size(), 2);
}

QTEST_MAIN(tst_MainWindowWiring)
#include "tst_MainWindowWiring.moc"
