#include "app/QuietWindow.h"
#include "dialogs/MapEditorPage.h"
#include "editors/TilePickerGrid.h"
#include "model/Image.h"
#include "model/MapObjects.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QUndoStack>

using Node = ProjectTree::ProjectNode;
using Tool = Tessaril::Ui::ToolButton;

/// Documents that come, go and change places under the views that show them.
class tst_MainWindowDocuments : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }
    void aMapIsDeletedUnderItsOpenView();
    void aMapBehindTheOneInFrontIsDeleted();
    void aTileSetIsDeletedWhileOnDisplay();
    void aTileSetOfAnOpenMapIsRefusedAndStays();
    void aBlockListOfADeletedTileSetStaysOpen();
    void aPaletteIsDeletedWhileOnDisplay();
    void mapPreferencesAreForNewViewsOnly();
    void spritePickersReachTheCurrentMapOnly();
    void blocksReachTheCurrentMapOnly();
    void placementModesOfTheCurrentMapShowTheDocks();
    void placementDocksSwitchTheCurrentMapOnly();
    void aShownDockLeavesAnotherTabAlone();
    void theToolSurvivesAMinimisedWindow();
    void theScratchTickFollowsItsTab();
    void tileChangesOfOneSetReachOtherOpenMaps();

private:
    void remove(Node node, const QUuid &id) const
    {
        emit m_window->views().projectWindow->deleteItemTriggered(node, id);
    }
    /// Opens a map and gives its view.
    MapEditor::View *open(const QPointer<Map> &map) const
    {
        m_window->documents()->setActiveMap(map->id());
        return m_window->currentMap();
    }
    QPointer<SpriteBank> addBank(const QString &name) const
    {
        return m_window->project()->createSpriteBank(
            Tessaril::Sprite::EightBit, name,
            m_window->project()->createPalette(CreateDefault, name)->id());
    }
    bool isInTree(Node node, const QString &name) const
    {
        const QTreeWidgetItem *const group =
            m_window->views().projectWindow->tree()->topLevelItem(0)->child(static_cast<int>(node));
        for (int i = 0; i < group->childCount(); ++i) {
            if (group->child(i)->text(0) == name)
                return true;
        }
        return false;
    }

    std::unique_ptr<QuietWindow> m_window;
};

void tst_MainWindowDocuments::init()
{
    m_window = std::make_unique<QuietWindow>();
    QVERIFY(m_window->isReady());
    m_window->newProject();
}

void tst_MainWindowDocuments::aMapIsDeletedUnderItsOpenView()
{
    const auto other = m_window->addMap("other");
    const auto map = m_window->addMap("level");
    open(other);
    QVERIFY(isInTree(Node::Map, "level"));
    const QPointer<MapEditor::View> view = open(map);
    view->grid()->addRows(Tessaril::Position::End, 1);
    view->animator().timer().start();
    const QPointer<QUndoStack> stack = m_window->documents()->undoStack(map->id());

    remove(Node::Map, map->id());

    QVERIFY(!map);
    QVERIFY(!view);
    QVERIFY(!stack);
    QVERIFY(!isInTree(Node::Map, "level"));
    QCOMPARE(m_window->views().tabs->documentIds(), QList<QUuid>({other->id()}));
    QCOMPARE(m_window->menus()->mapMenu()->mapId(), other->id()); // the tab behind came forward
    QCOMPARE(m_window->views().tileWindow->tileSet(), other->tileSet());
    QVERIFY(!m_window->undo()->isEnabled());
    emit m_window->views().mapToolBar->transparencyIndexChanged(4);
    QCOMPARE(other->tileTransparencyIndex(), 4);
    QVERIFY(!m_window->get()->grab().isNull());
    remove(Node::Map, other->id());
    QCOMPARE(m_window->views().tabs->count(), 0);
    QVERIFY(!m_window->views().mapToolBar->isEnabled());
    QVERIFY(m_window->menus()->mapMenu()->mapId().isNull());
}

void tst_MainWindowDocuments::aMapBehindTheOneInFrontIsDeleted()
{
    const auto hidden = m_window->addMap("hidden");
    const auto map = m_window->addMap("level");
    open(hidden);
    MapEditor::View *const view = open(map);
    view->grid()->addRows(Tessaril::Position::End, 1);

    remove(Node::Map, hidden->id());

    QVERIFY(!hidden);
    QCOMPARE(m_window->currentMap(), view);
    QCOMPARE(m_window->views().tabs->count(), 1);
    QVERIFY(m_window->views().mapToolBar->isEnabled());
    m_window->undo()->trigger();
    QCOMPARE(map->tileLayer()->height(), 32);
}

void tst_MainWindowDocuments::aTileSetIsDeletedWhileOnDisplay()
{
    const auto tileSet = m_window->addTileSet();
    m_window->documents()->setActiveTileSet(tileSet->id());
    const QPointer<QUndoStack> stack = m_window->documents()->undoStack(tileSet->id());
    TileMenu *const menu = m_window->menus()->tileMenu();
    QVERIFY(QuietWindow::item(menu, "Export")->isEnabled());

    remove(Node::TileSet, tileSet->id());

    QVERIFY(!tileSet);
    QVERIFY(!stack);
    QVERIFY(!m_window->views().tileWindow->tileSet());
    QVERIFY(!m_window->views().tileWindow->isContentShown());
    QVERIFY(!m_window->views().tilePicker->tileSet());
    QVERIFY(!m_window->views().blockSelector->isContentShown());
    QVERIFY(menu->isEnabled());
    QVERIFY(QuietWindow::item(menu, "New Tile Set")->isEnabled());
    QVERIFY(!QuietWindow::item(menu, "Export")->isEnabled());
    QVERIFY(!isInTree(Node::TileSet, "cave"));
    m_window->get()->nextTile();
    emit menu->swapPalette(m_window->project()->palettes().first()->id());
    QVERIFY(!m_window->get()->grab().isNull());
}

void tst_MainWindowDocuments::aTileSetOfAnOpenMapIsRefusedAndStays()
{
    const auto map = m_window->addMap("level");
    open(map);

    remove(Node::TileSet, map->tileSetId());

    auto *const box = qobject_cast<MessageDialog *>(QApplication::activeModalWidget());
    QVERIFY(box);
    QCOMPARE(box->windowTitle(), QString("Tile Set In Use"));
    box->accept();
    QCOMPARE(m_window->views().tileWindow->tileSet(), map->tileSet());
    QCOMPARE(m_window->views().tilePicker->tileSet(), map->tileSet());
    QVERIFY(QuietWindow::item(m_window->menus()->tileMenu(), "Export")->isEnabled());
    QVERIFY(isInTree(Node::TileSet, "level"));
}

void tst_MainWindowDocuments::aBlockListOfADeletedTileSetStaysOpen()
{
    const auto tileSet = m_window->addTileSet();
    const auto blocks = m_window->project()->createBlockList("lifts", tileSet->id());
    m_window->documents()->setActiveBlockEditor(blocks->id());
    QCOMPARE(m_window->views().tileWindow->tileSet(), tileSet);

    remove(Node::TileSet, tileSet->id());

    QVERIFY(!tileSet);
    QCOMPARE(m_window->views().tabs->documentIds(), QList<QUuid>({blocks->id()}));
    m_window->documents()->setActiveBlockEditor(blocks->id());
    QVERIFY(!m_window->views().tileWindow->tileSet());
    QVERIFY(!m_window->get()->grab().isNull());
}

void tst_MainWindowDocuments::aPaletteIsDeletedWhileOnDisplay()
{
    const auto palette = m_window->project()->createPalette(CreateDefault, "sky");
    m_window->documents()->setActivePalette(palette->id());
    QVERIFY(m_window->views().paletteWindow->isContentShown());
    QCOMPARE(m_window->views().paletteWindow->windowTitle(), QString("Palette: sky"));

    remove(Node::Palette, palette->id());

    QVERIFY(!palette);
    QVERIFY(!m_window->views().paletteWindow->isContentShown());
    QVERIFY(m_window->menus()->paletteMenu()->paletteId().isNull());
}

void tst_MainWindowDocuments::mapPreferencesAreForNewViewsOnly()
{
    MapEditor::View *const before = open(m_window->addMap("before"));
    QCOMPARE(before->grid()->zoomLevel(), 4);
    QCOMPARE(before->grid()->cellGeometry().cellSize, 4 * 8);
    m_window->views().preferences->restore(QJsonDocument::fromJson(
        R"({"mapEditor": {"gridSize": 16, "defaultZoom": 2, "gridColour1": "#123456"}})"));
    QCOMPARE(before->grid()->zoomLevel(), 4);

    MapEditor::View *const after = open(m_window->addMap("after"));
    QCOMPARE(after->grid()->zoomLevel(), 2);
    QCOMPARE(after->grid()->cellGeometry().cellSize, 2 * 16);
    m_window->views().tabs->setCurrentWidget(before);

    QCOMPARE(before->grid()->zoomLevel(), 4);
    QCOMPARE(before->grid()->cellGeometry().cellSize, 4 * 8);
}

void tst_MainWindowDocuments::spritePickersReachTheCurrentMapOnly()
{
    const auto bank = addBank("heroes");
    const QPointer<SpriteAnim> walk = bank->createAnimation();
    const auto isPlacing = [](const MapEditor::View *view) {
        return view->grid()->mode() == Tool::PlaceSprite;
    };
    MapEditor::View *const first = open(m_window->addMap("one"));
    MapEditor::View *const second = open(m_window->addMap("two"));

    emit m_window->views().mapSprites->selectionChanged(walk);
    QVERIFY(isPlacing(second));
    QVERIFY(!isPlacing(first));
    second->grid()->setMode(Tool::Draw);
    m_window->views().tabs->setCurrentWidget(first);
    emit m_window->views().mapSprites->spriteChosen(bank->id(), 0);

    QVERIFY(isPlacing(first));
    QVERIFY(!isPlacing(second));
}

void tst_MainWindowDocuments::blocksReachTheCurrentMapOnly()
{
    const auto map = m_window->addMap("one");
    const auto blocks = m_window->project()->createBlockList("lifts", map->tileSetId());
    TileAnimation *const lift = blocks->createTileAnimation("lift");
    lift->setTileSet(map->tileSet());
    MapEditor::View *const first = open(map);
    MapEditor::View *const second = open(m_window->addMap("two"));
    m_window->views().tabs->setCurrentWidget(first);
    m_window->views().tabs->setCurrentWidget(second);
    const auto mode = second->grid()->mode();
    m_window->views().tabs->setCurrentWidget(first);

    emit m_window->views().blockSelector->selectedItemChanged(lift);

    QCOMPARE(first->grid()->mode(), Tool::PlaceAnim);
    QCOMPARE(second->grid()->mode(), mode);
}

void tst_MainWindowDocuments::placementModesOfTheCurrentMapShowTheDocks()
{
    MapEditor::View *const first = open(m_window->addMap("one"));
    MapEditor::View *const second = open(m_window->addMap("two"));
    QWidget *const sprites = m_window->views().mapSprites;
    QWidget *const blocks = m_window->views().blockSelector;
    sprites->hide();
    blocks->hide();

    emit first->placeSpriteModeEnabled(); // behind, and not connected
    emit first->placeAnimModeEnabled();
    QVERIFY(sprites->isHidden());
    QVERIFY(blocks->isHidden());
    emit second->placeSpriteModeEnabled();
    QVERIFY(!sprites->isHidden());
    QVERIFY(blocks->isHidden());
    m_window->views().tabs->setCurrentWidget(first);
    emit first->placeAnimModeEnabled();

    QVERIFY(!blocks->isHidden());
    QTRY_VERIFY(!blocks->visibleRegion().isEmpty()); // in front of the sprites
}

void tst_MainWindowDocuments::placementDocksSwitchTheCurrentMapOnly()
{
    MapEditor::View *const first = open(m_window->addMap("one"));
    MapEditor::View *const second = open(m_window->addMap("two"));
    first->grid()->setMode(Tool::Draw);
    second->grid()->setMode(Tool::Draw);
    m_window->views().mapSprites->raise();
    QTRY_COMPARE(second->grid()->mode(), Tool::PlaceSprite);
    QCOMPARE(first->grid()->mode(), Tool::Draw);

    m_window->views().tabs->setCurrentWidget(first);
    QCOMPARE(first->grid()->mode(), Tool::Draw);
    m_window->views().blockSelector->raise();

    QTRY_COMPARE(first->grid()->mode(), Tool::PlaceAnim);
    QCOMPARE(second->grid()->mode(), Tool::PlaceSprite);
}

void tst_MainWindowDocuments::aShownDockLeavesAnotherTabAlone()
{
    MapEditor::View *const view = open(m_window->addMap("one"));
    view->grid()->setMode(Tool::Draw);
    m_window->scratchItem()->trigger();
    m_window->views().mapSprites->hide();

    m_window->views().mapSprites->show();
    m_window->views().mapSprites->raise();
    QTRY_VERIFY(!m_window->views().mapSprites->visibleRegion().isEmpty());

    QCOMPARE(view->grid()->mode(), Tool::Draw);
}

void tst_MainWindowDocuments::theToolSurvivesAMinimisedWindow()
{
    MapEditor::View *const view = open(m_window->addMap("one"));
    m_window->views().mapSprites->raise();
    QTRY_COMPARE(view->grid()->mode(), Tool::PlaceSprite);
    view->grid()->setMode(Tool::Draw);
    QSignalSpy shown(m_window->views().mapSprites, &QDockWidget::visibilityChanged);

    m_window->get()->showMinimized();
    QTRY_VERIFY(m_window->get()->isMinimized());
    QCoreApplication::processEvents();
    m_window->get()->showNormal();
    QTRY_VERIFY(!m_window->get()->isMinimized());
    QCoreApplication::processEvents();

    QCOMPARE(shown, QList<QVariantList>({{false}, {true}}));
    QCOMPARE(view->grid()->mode(), Tool::Draw);
    m_window->views().mapSprites->hide();
    m_window->views().mapSprites->show();
    m_window->views().mapSprites->raise();
    QTRY_COMPARE(view->grid()->mode(), Tool::PlaceSprite);
}

void tst_MainWindowDocuments::theScratchTickFollowsItsTab()
{
    DocumentTabView *const tabs = m_window->views().tabs;
    QAction *const item = m_window->scratchItem();
    item->trigger();
    QVERIFY(item->isChecked());
    QCOMPARE(tabs->currentWidget(), tabs->scratchEditor());

    tabs->closeTab(0);
    QVERIFY(!item->isChecked());
    item->trigger();
    QCOMPARE(tabs->count(), 1);
    m_window->newProject("next");
    QVERIFY(!item->isChecked());
    item->trigger();

    QCOMPARE(tabs->count(), 1);
    item->trigger();
    QCOMPARE(tabs->count(), 0);
}

void tst_MainWindowDocuments::tileChangesOfOneSetReachOtherOpenMaps()
{
    const auto map = m_window->addMap("one");
    const auto other = m_window->project()->createMap("two", map->tileSetId(), QSize(40, 32));
    TileMap::TileData cell;
    cell.index = 5;
    cell.occupied = true;
    map->tileLayer()->setCell({1, 1}, cell);
    other->tileLayer()->setCell({2, 2}, cell);
    open(map);
    open(other);

    map->tileSet()->insertTile(3);
    QCOMPARE(map->tileLayer()->cell({1, 1}).index, 6);
    QCOMPARE(other->tileLayer()->cell({2, 2}).index, 6);
    m_window->undo()->trigger(); // recorded in the tab in front

    QCOMPARE(map->tileLayer()->cell({1, 1}).index, 5);
    QCOMPARE(other->tileLayer()->cell({2, 2}).index, 5);
    QCOMPARE(map->tileSet()->count(), 16);
}

QTEST_MAIN(tst_MainWindowDocuments)
#include "tst_MainWindowDocuments.moc"
