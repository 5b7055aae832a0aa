#include "app/MainWindow.h"
#include "canvas/Canvas.h"
#include "mapeditor/MapGrid.h"
#include "mapeditor/View.h"
#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "support/DialogDriver.h"
#include "support/TestFiles.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>
#include <QUndoStack>

/// The whole window in the test's own home, without network and without boxes that wait.
class tst_MainWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void startsWithItsFrame();
    void docksHaveTheirNamesAndPlaces();
    void resetLayoutBringsEveryDockBack();
    void anOpenedProjectShowsEverywhere();
    void aClosedProjectIsForgottenButForTheTitle();
    void theStatusBarFallsBackToTheProject();
    void theStatusBarLeavesAProjectThatIsClosed();
    void errorsShowInTheBox();
    void aMapOpensOneTabAndTheDocksFollow();
    void theHistoryOfAMapSurvivesItsTab();
    void theHistoryOfAnImageDoesNot();
    void theToolBarFollowsTheMap();
    void undoFollowsTheFocus();
    void aSpriteBankOpensInDockAndTab();
    void aBlockListOpensInATab();
    void docksOfferWhatIsMadeBesideAMap();
    void placementDocksFollowTheMapsModes();
    void aColourEditGoesToTheStackOnDisplay();
    void openTabsComeBackWithTheProject();
    void theScratchTabIsWrittenAsAnEmptyText();
    void savingMarksClean();
    void closingIsRefusedByThePrompt();
    void nextAndPreviousTileStopAtTheEnds();
    void swappingATileSetsPalette();
    void aFontGoesIntoTheSetOnDisplay();

private:
    Project *newProject(const QString &name = "game");
    QPointer<Map> addMap(const QString &name = "level");
    QAction *editAction(const QString &text) const;

    std::unique_ptr<MainWindow> m_window;
    QString m_folder;
};

void tst_MainWindow::init()
{
    m_window.reset();
    QDir(QDir::homePath() + "/.config").removeRecursively();
    QVERIFY(QDir().mkpath(QDir::homePath() + "/.config/tessaril"));
    QFile preferences(QDir::homePath() + "/.config/tessaril/preferences.json");
    QVERIFY(preferences.open(QIODevice::WriteOnly));
    preferences.write("{\"general\": {\"versionCheckEnabled\": false}}");
    preferences.close();
    m_folder = QDir::currentPath();
    m_window = std::make_unique<MainWindow>();
    m_window->projectController()->_unsavedPrompt = [](const QString &) { return 1; };
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

Project *tst_MainWindow::newProject(const QString &name)
{
    m_window->projectController()->newProject(name);
    return m_window->projectController()->project();
}

QPointer<Map> tst_MainWindow::addMap(const QString &name)
{
    Project *const project = m_window->projectController()->project();
    const auto tileSet = project->createTileSet(name, QUuid(), 16);
    return project->createMap(name, tileSet->id(), QSize(40, 32));
}

QAction *tst_MainWindow::editAction(const QString &text) const
{
    for (QAction *const action : m_window->views().menuBar->editMenu()->actions()) {
        if (action->text().startsWith(text))
            return action;
    }
    return nullptr;
}

void tst_MainWindow::startsWithItsFrame()
{
    QCOMPARE(m_window->windowTitle(), QApplication::applicationName());
    QCOMPARE(m_window->statusBar()->currentMessage(), m_window->windowTitle());
    QCOMPARE(m_window->size(), QSize(1024, 768));
    QVERIFY(m_window->documentMode());
    QVERIFY(!m_window->windowIcon().isNull());
    QCOMPARE(m_window->centralWidget(), m_window->views().tabs);
    QCOMPARE(m_window->menuWidget(), m_window->views().menuBar);
    const auto *const bar = m_window->findChild<QToolBar *>("File Toolbar");
    QVERIFY(bar);
    QStringList texts;
    for (const QAction *const action : bar->actions())
        texts += action->isSeparator() ? "-" : action->text();
    QCOMPARE(texts, QStringList({"New", "Open", "Save", "Save As", "Close", "-", "Quit"}));
    QCOMPARE(bar->iconSize(), QSize(18, 18));
    QVERIFY(!m_window->views().mapToolBar->isEnabled());
    QVERIFY(!m_window->views().menuBar->tileMenu()->isEnabled());
    QVERIFY(!m_window->views().menuBar->spriteMenu()->isEnabled());
}

void tst_MainWindow::docksHaveTheirNamesAndPlaces()
{
    const struct
    {
        const char *name;
        const char *title;
        Qt::DockWidgetArea area;
    } expected[] = {{"ProjectWindow", "Project", Qt::LeftDockWidgetArea},
                    {"paletteWindow", "Palette Editor", Qt::RightDockWidgetArea},
                    {"TileEditor", "Tile Editor", Qt::RightDockWidgetArea},
                    {"SpriteEditor", "Sprite Editor", Qt::RightDockWidgetArea},
                    {"TilePickerTool", "Tiles", Qt::BottomDockWidgetArea},
                    {"TileListWindow", "Map Objects", Qt::LeftDockWidgetArea},
                    {"MapSpritesWindow", "Map Sprites", Qt::LeftDockWidgetArea}};
    for (const auto &dock : expected) {
        auto *const found = m_window->findChild<DockWidget *>(dock.name);
        QVERIFY2(found, dock.name);
        QCOMPARE(found->windowTitle(), QString(dock.title));
        QCOMPARE(m_window->dockWidgetArea(found), dock.area);
        QVERIFY(!found->isContentShown());
    }
}

void tst_MainWindow::resetLayoutBringsEveryDockBack()
{
    auto *const tiles = m_window->findChild<DockWidget *>("TilePickerTool");
    auto *const project = m_window->findChild<DockWidget *>("ProjectWindow");
    project->setFloating(true);
    tiles->hide();
    m_window->addDockWidget(Qt::LeftDockWidgetArea, m_window->views().paletteWindow);

    emit m_window->views().menuBar->viewMenu()->resetLayout();

    QVERIFY(!project->isFloating());
    QVERIFY(!tiles->isHidden());
    QCOMPARE(m_window->dockWidgetArea(project), Qt::LeftDockWidgetArea);
    QCOMPARE(m_window->dockWidgetArea(m_window->views().paletteWindow), Qt::RightDockWidgetArea);
    QCOMPARE(m_window->tabifiedDockWidgets(m_window->views().paletteWindow).size(), 2);
}

void tst_MainWindow::anOpenedProjectShowsEverywhere()
{
    newProject("castle");

    QCOMPARE(m_window->windowTitle(), QApplication::applicationName() + " - castle");
    QVERIFY(m_window->views().projectWindow->isContentShown());
    QCOMPARE(m_window->views().projectWindow->tree()->topLevelItem(0)->text(0), QString("castle"));
    QVERIFY(m_window->views().menuBar->mapMenu()->isEnabled());
    QVERIFY(!m_window->projectController()->isDirty());
}

void tst_MainWindow::aClosedProjectIsForgottenButForTheTitle()
{
    newProject("castle");
    m_window->documentController()->setActiveMap(addMap()->id());
    QCOMPARE(m_window->views().tabs->count(), 1);

    m_window->projectController()->close();

    QCOMPARE(m_window->windowTitle(), QApplication::applicationName() + " - castle");
    QCOMPARE(m_window->views().tabs->count(), 0);
    QVERIFY(m_window->views().tabs->isEnabled());
    QVERIFY(!m_window->views().projectWindow->isContentShown());
    QVERIFY(!m_window->views().tileWindow->isContentShown());
    QVERIFY(!m_window->views().menuBar->mapMenu()->isEnabled());
    QVERIFY(!m_window->views().mapToolBar->isEnabled());
    QVERIFY(!editAction("Cut")->isEnabled());
}

void tst_MainWindow::theStatusBarFallsBackToTheProject()
{
    Project *const project = newProject("castle");
    QStatusBar *const bar = m_window->statusBar();
    bar->showMessage("for a moment");
    bar->clearMessage();
    QCOMPARE(bar->currentMessage(), m_window->windowTitle());

    m_window->projectController()->_savePath = [this] { return m_folder + "/castle.tessaril"; };
    m_window->projectController()->save();
    bar->clearMessage();

    QCOMPARE(bar->currentMessage(),
             QString("%1 [%2]").arg(project->name(), m_folder + "/castle.tessaril"));
}

void tst_MainWindow::theStatusBarLeavesAProjectThatIsClosed()
{
    newProject("castle");
    QStatusBar *const bar = m_window->statusBar();
    ProjectController *const control = m_window->projectController();
    QCOMPARE(bar->currentMessage(), m_window->windowTitle());
    control->_savePath = [this] { return m_folder + "/castle.tessaril"; };
    control->save();
    bar->clearMessage();

    newProject("cave");
    QCOMPARE(bar->currentMessage(), m_window->windowTitle());
    QVERIFY(bar->currentMessage().contains("cave"));
    control->openProject(m_folder + "/castle.tessaril");
    QCOMPARE(bar->currentMessage(), QString("Project loaded"));
    bar->clearMessage();
    QVERIFY(bar->currentMessage().contains("castle.tessaril"));
    control->close();

    QCOMPARE(bar->currentMessage(), m_window->windowTitle());
}

void tst_MainWindow::errorsShowInTheBox()
{
    m_window->projectController()->openProject(m_folder + "/missing.tessaril");

    auto *const box = m_window->findChild<MessageDialog *>();
    QTRY_VERIFY(box && box->isVisible());
    QStringList texts;
    for (const QLabel *const label : box->findChildren<QLabel *>())
        texts += label->text();
    QVERIFY(texts.join('\n').contains("Warning!"));
    QVERIFY(texts.contains("Invalid project file"));
    QVERIFY(!m_window->projectController()->project());
}

void tst_MainWindow::aMapOpensOneTabAndTheDocksFollow()
{
    newProject();
    const auto map = addMap("level");

    m_window->documentController()->setActiveMap(map->id());
    m_window->documentController()->setActiveMap(map->id());

    DocumentTabView *const tabs = m_window->views().tabs;
    QCOMPARE(tabs->count(), 1);
    QCOMPARE(tabs->tabText(0), QString("level"));
    QCOMPARE(m_window->views().tileWindow->tileSet(), map->tileSet());
    QCOMPARE(m_window->views().tilePicker->tileSet(), map->tileSet());
    QCOMPARE(m_window->views().menuBar->mapMenu()->mapId(), map->id());
    QVERIFY(m_window->views().menuBar->tileMenu()->isEnabled());
    map->setName("renamed");
    QCOMPARE(tabs->tabText(0), QString("renamed"));
    auto *const view = qobject_cast<MapEditor::View *>(tabs->currentWidget());
    emit m_window->views().tilePicker->selectedTileChanged(7);
    QCOMPARE(view->grid()->currentTile(), 7);
}

void tst_MainWindow::theHistoryOfAMapSurvivesItsTab()
{
    newProject();
    const auto map = addMap();
    m_window->documentController()->setActiveMap(map->id());
    auto *const view = qobject_cast<MapEditor::View *>(m_window->views().tabs->currentWidget());
    view->grid()->addRows(Tessaril::Position::End, 1);
    QVERIFY(editAction("Undo")->isEnabled());

    m_window->views().tabs->closeTab(0);
    QVERIFY(!editAction("Undo")->isEnabled());
    m_window->documentController()->setActiveMap(map->id());
    editAction("Undo")->trigger();

    QCOMPARE(map->tileLayer()->height(), 32);
}

void tst_MainWindow::theHistoryOfAnImageDoesNot()
{
    Project *const project = newProject();
    const auto palette = project->createPalette(CreateDefault, "colours");
    const auto image =
        project->createImage(Tessaril::ImageMode::LoRes_128x96, "title", palette->id());
    auto *const view = qobject_cast<ImageEditor::View *>(m_window->views().tabs->currentWidget());
    QVERIFY(view); // a new image opens at once
    view->changeMode(Tessaril::Ui::ToolButton::Fill, true);
    view->setForeIndex(5);
    QTest::mouseClick(view->canvas(), Qt::LeftButton, {}, view->canvas()->viewRect().center());
    QVERIFY(editAction("Undo")->isEnabled());
    QCOMPARE(image->image().pixelIndex(0, 0), 5);

    m_window->views().tabs->closeTab(0);
    m_window->documentController()->setActiveImageEditor(image->id());

    QVERIFY(!editAction("Undo")->isEnabled());
    QCOMPARE(m_window->documentController()->undoStack(image->id())->count(), 0);
}

void tst_MainWindow::theToolBarFollowsTheMap()
{
    Project *const project = newProject();
    const auto first = addMap("one");
    const auto second = addMap("two");
    first->setTileTransparencyIndex(3);
    m_window->documentController()->setActiveMap(first->id());
    MapEditor::ToolBar *const bar = m_window->views().mapToolBar;
    QVERIFY(bar->isEnabled());

    m_window->documentController()->setActiveMap(second->id());
    emit bar->transparencyIndexChanged(9);
    QCOMPARE(first->tileTransparencyIndex(), 3);
    QCOMPARE(second->tileTransparencyIndex(), 9);
    const auto palette = project->createPalette(CreateDefault, "colours");
    project->createImage(Tessaril::ImageMode::LoRes_128x96, "title", palette->id());

    QVERIFY(!bar->isEnabled());
    emit bar->transparencyIndexChanged(1);
    QCOMPARE(second->tileTransparencyIndex(), 9);
}

void tst_MainWindow::undoFollowsTheFocus()
{
    newProject();
    const auto map = addMap();
    m_window->documentController()->setActiveMap(map->id());
    auto *const view = qobject_cast<MapEditor::View *>(m_window->views().tabs->currentWidget());
    view->grid()->addRows(Tessaril::Position::End, 1);
    map->tileSet()->insertTile(3); // recorded on the stack on display, the map's
    QCOMPARE(m_window->documentController()->undoStack(map->id())->count(), 2);

    auto *const canvas = m_window->views().tileWindow->findChild<Canvas *>();
    canvas->setFocus();
    QTRY_VERIFY(!editAction("Undo")->isEnabled());
    view->setFocus();

    QTRY_VERIFY(editAction("Undo")->isEnabled());
}

void tst_MainWindow::aSpriteBankOpensInDockAndTab()
{
    Project *const project = newProject();
    const auto palette = project->createPalette(CreateDefault, "colours");
    const auto bank =
        project->createSpriteBank(Tessaril::Sprite::EightBit, "heroes", palette->id());

    m_window->documentController()->setActiveSpriteEditor(bank->id());
    m_window->documentController()->setActiveSpriteEditor(bank->id());

    QCOMPARE(m_window->views().tabs->count(), 1);
    QCOMPARE(m_window->views().tabs->tabText(0), QString("heroes"));
    QCOMPARE(m_window->views().spriteWindow->sprites(), bank);
    QCOMPARE(m_window->views().menuBar->spriteMenu()->spriteBank(), bank);
    auto *const canvas = m_window->views().spriteWindow->findChild<Canvas *>();
    canvas->setFocus();
    QTest::mouseClick(canvas, Qt::LeftButton, {}, canvas->viewRect().center());
    canvas->setInk(7);
    QTest::mouseClick(canvas, Qt::LeftButton, {}, canvas->viewRect().center());
    QVERIFY(m_window->documentController()->undoStack(bank->id())->count() > 0);
    emit m_window->views().projectWindow->deleteItemTriggered(ProjectTree::ProjectNode::Sprites,
                                                              bank->id());
    QCOMPARE(m_window->views().tabs->count(), 0);
    QVERIFY(!m_window->views().spriteWindow->sprites());
}

void tst_MainWindow::aBlockListOpensInATab()
{
    Project *const project = newProject();
    project->createTileSet("abbey", QUuid(), 16);
    const auto tileSet = project->createTileSet("castle", QUuid(), 16);
    m_window->documentController()->setActiveTileSet(tileSet->id());

    m_window->views().menuBar->tileMenu()->displayAnimDialog();
    auto *const dialog = m_window->findChild<TileAnimationDialog *>();
    DialogDriver::field<QLineEdit>(*dialog, "Name")->setText("lifts");
    DialogDriver::pressOk(*dialog);

    QCOMPARE(m_window->views().tabs->count(), 1);
    QCOMPARE(m_window->views().tabs->tabText(0), QString("lifts"));
    QCOMPARE(m_window->views().tileWindow->tileSet(), tileSet);
    const QUuid blocks = project->mapObjects().first()->id();
    emit m_window->views().tilePicker->tileDoubleClicked(5);
    QCOMPARE(m_window->views().tileWindow->tileNumber(), 5);
    emit m_window->views().projectWindow->deleteItemTriggered(ProjectTree::ProjectNode::Objects,
                                                              blocks);
    QCOMPARE(m_window->views().tabs->count(), 0);
    QVERIFY(project->mapObjects().isEmpty());
}

void tst_MainWindow::docksOfferWhatIsMadeBesideAMap()
{
    Project *const project = newProject();
    const auto map = addMap();
    m_window->documentController()->setActiveMap(map->id());
    QVERIFY(!m_window->views().mapSprites->isContentShown());
    auto *const lists = m_window->views().blockSelector->findChild<QComboBox *>();
    QCOMPARE(lists->count(), 0);

    project->createSpriteBank(Tessaril::Sprite::EightBit, "heroes", QUuid());
    const auto blocks = project->createBlockList("lifts", map->tileSetId());

    QVERIFY(m_window->views().mapSprites->isContentShown());
    QCOMPARE(lists->count(), 1);
    blocks->setName("doors");
    QCOMPARE(lists->itemText(0), QString("doors"));
    delete blocks;
    QCOMPARE(lists->count(), 0);
}

void tst_MainWindow::placementDocksFollowTheMapsModes()
{
    Project *const project = newProject();
    const auto palette = project->createPalette(CreateDefault, "colours");
    project->createSpriteBank(Tessaril::Sprite::EightBit, "heroes", palette->id());
    m_window->documentController()->setActiveMap(addMap()->id());
    auto *const view = qobject_cast<MapEditor::View *>(m_window->views().tabs->currentWidget());
    QVERIFY(m_window->views().mapSprites->isContentShown());

    view->grid()->setMode(Tessaril::Ui::ToolButton::PlaceSprite);
    QTRY_VERIFY(!m_window->views().mapSprites->visibleRegion().isEmpty());
    view->grid()->setMode(Tessaril::Ui::ToolButton::PlaceAnim);
    QTRY_VERIFY(!m_window->views().blockSelector->visibleRegion().isEmpty());
    QCOMPARE(view->grid()->mode(), Tessaril::Ui::ToolButton::PlaceAnim);
    m_window->views().mapSprites->raise();

    QTRY_COMPARE(view->grid()->mode(), Tessaril::Ui::ToolButton::PlaceSprite);
}

void tst_MainWindow::aColourEditGoesToTheStackOnDisplay()
{
    newProject();
    const auto map = addMap();
    const auto palette = map->tileSet()->palette();
    palette->setColour(1, Qt::white, false);
    QCOMPARE(m_window->documentController()->undoStack(palette->id())->count(), 1);

    m_window->documentController()->setActiveMap(map->id());
    palette->setColour(2, Qt::white, false);

    QCOMPARE(m_window->documentController()->undoStack(palette->id())->count(), 1);
    QCOMPARE(m_window->documentController()->undoStack(map->id())->count(), 1);
    editAction("Undo")->trigger();
    QCOMPARE(palette->word(2), quint16(0));
}

void tst_MainWindow::openTabsComeBackWithTheProject()
{
    Project *project = newProject();
    const QUuid first = addMap("one")->id();
    const QUuid second = addMap("two")->id();
    const auto palette = project->createPalette(CreateDefault, "colours");
    project->createImage(Tessaril::ImageMode::LoRes_128x96, "title", palette->id());
    m_window->documentController()->setActiveMap(second);
    m_window->documentController()->setActiveMap(first);
    const QString file = m_folder + "/tabs.tessaril";
    m_window->projectController()->_savePath = [file] { return file; };
    m_window->projectController()->save();

    m_window->projectController()->openProject(file);

    QCOMPARE(m_window->views().tabs->documentIds(), QList<QUuid>({second, first}));
    QCOMPARE(m_window->views().tabs->currentIndex(), 1);
    QVERIFY(!m_window->projectController()->isDirty());
    QVERIFY(m_window->views().menuBar->fileMenu()->recent().contains(file));
}

void tst_MainWindow::theScratchTabIsWrittenAsAnEmptyText()
{
    Project *const project = newProject();
    emit m_window->views().menuBar->viewMenu()->toggleScratch(true);
    QCOMPARE(m_window->views().tabs->count(), 1);

    m_window->documentController()->recordOpenDocuments();

    QCOMPARE(project->openDocuments(), QStringList({QString()}));
    m_window->documentController()->restoreOpenDocuments();
    QCOMPARE(m_window->views().tabs->count(), 1);
}

void tst_MainWindow::savingMarksClean()
{
    newProject();
    const auto map = addMap();
    m_window->documentController()->setActiveMap(map->id());
    auto *const view = qobject_cast<MapEditor::View *>(m_window->views().tabs->currentWidget());
    view->grid()->addRows(Tessaril::Position::End, 1);
    QVERIFY(m_window->projectController()->isDirty());
    m_window->projectController()->_savePath = [this] { return m_folder + "/clean.tessaril"; };

    m_window->projectController()->save();
    QVERIFY(!m_window->projectController()->isDirty());
    editAction("Undo")->trigger();
    QVERIFY(m_window->projectController()->isDirty());
    editAction("Redo")->trigger();

    QVERIFY(!m_window->projectController()->isDirty());
}

void tst_MainWindow::closingIsRefusedByThePrompt()
{
    newProject();
    m_window->documentController()->setActiveMap(addMap()->id());
    m_window->projectController()->_unsavedPrompt = [](const QString &) { return 2; };

    QVERIFY(!m_window->close());

    QVERIFY(m_window->isVisible());
    QCOMPARE(m_window->views().tabs->count(), 1);
    m_window->projectController()->_unsavedPrompt = [](const QString &) { return 1; };
    QVERIFY(m_window->close());
    QCOMPARE(m_window->views().tabs->count(), 0);
}

void tst_MainWindow::nextAndPreviousTileStopAtTheEnds()
{
    newProject();
    m_window->documentController()->setActiveTileSet(addMap()->tileSetId());
    TileWindow *const window = m_window->views().tileWindow;
    QCOMPARE(window->tileNumber(), 1);

    m_window->previousTile();
    QCOMPARE(window->tileNumber(), 1);
    for (int i = 0; i < 20; ++i)
        m_window->nextTile();

    QCOMPARE(window->tileNumber(), 16);
    m_window->previousTile();
    QCOMPARE(window->tileNumber(), 15);
}

void tst_MainWindow::swappingATileSetsPalette()
{
    Project *const project = newProject();
    const auto map = addMap();
    m_window->documentController()->setActiveTileSet(map->tileSetId());
    const auto palette = project->createPalette(CreateDefault, "colours");

    emit m_window->views().menuBar->tileMenu()->swapPalette(palette->id());
    emit m_window->views().menuBar->tileMenu()->swapPalette(QUuid::createUuid());

    QCOMPARE(map->tileSet()->palette(), palette);
}

void tst_MainWindow::aFontGoesIntoTheSetOnDisplay()
{
    newProject();
    const auto other = addMap("other")->tileSet();
    const auto tileSet = addMap()->tileSet();
    const QString file = m_folder + "/font.ch8";
    QVERIFY(TestFiles::make(file, QByteArray(8, '\x80')));
    TileMenu *const menu = m_window->views().menuBar->tileMenu();
    emit menu->importZXFont(1, 7, 2, 3, file); // no set is on display
    m_window->documentController()->setActiveTileSet(tileSet->id());
    m_window->views().tileWindow->setTileIndex(6);

    emit menu->importZXFont(5, 7, 2, 3, file);
    emit menu->importZXFont(5, 7, 2, 3, file + ".missing");

    QCOMPARE(tileSet->tile(5)->offset(), 3);
    QCOMPARE(tileSet->tile(5)->image().pixelIndex(0, 0), 7);
    QCOMPARE(tileSet->tile(5)->image().pixelIndex(1, 0), 2);
    QCOMPARE(tileSet->tile(4)->offset(), 0);
    QCOMPARE(other->state(), TileSet(nullptr, 16).state());
    const auto *const canvas = m_window->views().tileWindow->findChild<Canvas *>();
    QCOMPARE(canvas->image().pixelIndex(0, 0), 3 * 16 + 7);
}

QTEST_MAIN(tst_MainWindow)
#include "tst_MainWindow.moc"
