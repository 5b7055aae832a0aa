#include "canvas/Canvas.h"
#include "control/Desk.h"
#include "history/EditTarget.h"
#include "mapeditor/MapGrid.h"
#include "mapeditor/View.h"
#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "support/DialogDriver.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QUndoStack>

#include <memory>

namespace {

/// Notes which command of the edit menu reached it.
class Target : public QWidget, public EditTarget
{
public:
    void cut() override { calls += "cut"; }
    void copy() override { calls += "copy"; }
    void paste() override { calls += "paste"; }
    void selectAll() override { calls += "all"; }
    void selectNone() override { calls += "none"; }

    QStringList calls;
};

} // namespace

class tst_DocumentController : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void unknownIdsChangeNothing();
    void aNullTileSetClearsTheWindows();
    void onlyTheMapOnDisplayFollowsTheDocks();
    void aPickedTileShowsInPickerAndWindow();
    void aMapsSelectionIsPassedOn();
    void imageTabsAreNotRestored();
    void aNewImageBringsItsPaletteToTheEditor();
    void movedTabsChangeTheOrderWritten();
    void theLastRestoredDocumentIsCurrent();
    void timersRestAcrossASave();
    void editCommandsReachTheTabInFront();
    void aTabThatIsNoTargetTurnsTheCommandsOff();
    void undoAndRedoLeadTheEditMenu();
    void withoutATabThereIsNothingToUndo();
    void eachDocumentHasItsOwnStack();
    void closingAnImageDropsItsStack();
    void theScratchEditorWritesToTheProject();
    void theScratchEditorTakesThePaletteAndTheSpriteMenu();
    void aPaletteShowsInItsDockAndMenu();
    void aTileSetTurnsItsItemsOn();
    void blockListsComeBackToo();
    void aMapOffersTheBanksOfTheProject();
    void aNewNameReachesTabsAndDocks();
    void theToolBarTellsTheSizeOfAMapInFrontOnly();
    void newMapsBeginWithTheActiveTileSet();
    void theEndOfAProjectTakesTabsAndStacks();
    void withoutAProjectNothingOpens();

private:
    static bool isOn(const QMenu *menu, const QString &text)
    {
        const QList<QAction *> actions = menu->actions();
        return std::any_of(actions.begin(), actions.end(), [&text](const QAction *action) {
            return action->text() == text && action->isEnabled();
        });
    }
    QPointer<Map> addMap(const QString &name);
    MapEditor::View *currentMap() const;

    std::unique_ptr<Desk> m_desk;
    Project *m_project = nullptr;
};

void tst_DocumentController::init()
{
    m_desk = std::make_unique<Desk>();
    m_desk->control._unsavedPrompt = [](const QString &) { return 1; };
    m_desk->control.newProject("game");
    m_project = m_desk->control.project();
    m_desk->documents.openProject(m_project);
}

void tst_DocumentController::cleanup()
{
    m_desk->documents.endProject();
    m_desk->control.close();
    m_desk->documents.clearViews();
    m_desk.reset();
}

QPointer<Map> tst_DocumentController::addMap(const QString &name)
{
    const auto tileSet = m_project->createTileSet(name, QUuid(), 16);
    return m_project->createMap(name, tileSet->id(), QSize(40, 32));
}

MapEditor::View *tst_DocumentController::currentMap() const
{
    return qobject_cast<MapEditor::View *>(m_desk->tabs.currentWidget());
}

void tst_DocumentController::unknownIdsChangeNothing()
{
    const auto map = addMap("level");
    m_desk->documents.setActiveMap(map->id());
    const auto palette = map->tileSet()->palette();
    m_desk->documents.setActivePalette(palette->id());

    for (const QUuid &id : {QUuid(), QUuid::createUuid()}) {
        m_desk->documents.setActivePalette(id);
        m_desk->documents.setActiveMap(id);
        m_desk->documents.setActiveSpriteEditor(id);
        m_desk->documents.setActiveBlockEditor(id);
        m_desk->documents.setActiveImageEditor(id);
    }

    QCOMPARE(m_desk->tabs.count(), 1);
    QCOMPARE(m_desk->tileWindow.tileSet(), map->tileSet());
    QCOMPARE(m_desk->menuBar.mapMenu()->mapId(), map->id());
    QCOMPARE(m_desk->menuBar.paletteMenu()->paletteId(), palette->id());
}

void tst_DocumentController::aNullTileSetClearsTheWindows()
{
    const auto map = addMap("level");
    m_desk->documents.setActiveTileSet(map->tileSetId());
    QCOMPARE(m_desk->tilePicker.tileSet(), map->tileSet());

    m_desk->documents.setActiveTileSet(QUuid());

    QVERIFY(!m_desk->tileWindow.tileSet());
    QVERIFY(!m_desk->tilePicker.tileSet());
    QVERIFY(m_desk->menuBar.tileMenu()->tileSetId().isNull());
    QVERIFY(m_desk->menuBar.tileMenu()->isEnabled());
}

void tst_DocumentController::onlyTheMapOnDisplayFollowsTheDocks()
{
    m_desk->documents.setActiveMap(addMap("one")->id());
    const MapEditor::View *const first = currentMap();
    m_desk->documents.setActiveMap(addMap("two")->id());
    const MapEditor::View *const second = currentMap();

    emit m_desk->tilePicker.selectedTileChanged(7);
    QCOMPARE(second->grid()->currentTile(), 7);
    QVERIFY(first->grid()->currentTile() != 7);
    m_desk->tabs.setCurrentIndex(0);
    emit m_desk->tilePicker.selectedTileChanged(5);

    QCOMPARE(first->grid()->currentTile(), 5);
    QCOMPARE(second->grid()->currentTile(), 7);
    QCOMPARE(m_desk->tileWindow.tileSet()->name(), QString("one"));
}

void tst_DocumentController::aPickedTileShowsInPickerAndWindow()
{
    m_desk->documents.setActiveMap(addMap("level")->id());

    emit currentMap()->tilePicked(4);
    QCOMPARE(m_desk->tileWindow.tileNumber(), 5);
    emit m_desk->tilePicker.tileDoubleClicked(9);

    QCOMPARE(m_desk->tileWindow.tileNumber(), 9);
}

void tst_DocumentController::aMapsSelectionIsPassedOn()
{
    const QUuid id = addMap("level")->id();
    m_desk->documents.setActiveMap(id);
    QSignalSpy spy(&m_desk->documents, &DocumentController::createMapFromSelection);

    emit currentMap()->createMapFromSelection(id, QSize(3, 2));

    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.first(), QVariantList({id, QSize(3, 2)}));
}

void tst_DocumentController::aNewImageBringsItsPaletteToTheEditor()
{
    const auto title = m_project->createPalette(CreateDefault, "title");
    const auto end = m_project->createPalette(CreateDefault, "end");
    const auto mode = Tessaril::ImageMode::LoRes_128x96;

    m_project->createImage(mode, "title", title->id());
    QCOMPARE(m_desk->paletteWindow.windowTitle(), QString("Palette: title"));
    m_project->createImage(mode, "end", end->id());

    QCOMPARE(m_desk->paletteWindow.windowTitle(), QString("Palette: end"));
    QVERIFY(m_desk->paletteWindow.isContentShown());
    QCOMPARE(m_desk->menuBar.paletteMenu()->paletteId(), end->id());
    QCOMPARE(m_desk->tabs.count(), 2);
}

void tst_DocumentController::imageTabsAreNotRestored()
{
    const auto palette = m_project->createPalette(CreateDefault, "colours");
    const auto image =
        m_project->createImage(Tessaril::ImageMode::LoRes_128x96, "title", palette->id());
    QCOMPARE(m_desk->tabs.documentIds(), QList<QUuid>({image->id()}));
    m_desk->documents.recordOpenDocuments();
    QCOMPARE(m_project->openDocuments(), QStringList({image->id().toString()}));
    m_desk->tabs.closeAll();

    m_desk->documents.restoreOpenDocuments();

    QCOMPARE(m_desk->tabs.count(), 0);
}

void tst_DocumentController::movedTabsChangeTheOrderWritten()
{
    const QUuid first = addMap("one")->id();
    const QUuid second = addMap("two")->id();
    m_desk->documents.setActiveMap(first);
    m_desk->documents.setActiveMap(second);
    m_desk->tabs.setScratchEditorVisible(true);

    m_desk->tabs.tabBar()->moveTab(2, 0);
    m_desk->tabs.tabBar()->moveTab(1, 2);
    m_desk->documents.recordOpenDocuments();

    QCOMPARE(m_project->openDocuments(),
             QStringList({QString(), second.toString(), first.toString()}));
}

void tst_DocumentController::theLastRestoredDocumentIsCurrent()
{
    const auto palette = m_project->createPalette(CreateDefault, "colours");
    const QUuid bank =
        m_project->createSpriteBank(Tessaril::Sprite::EightBit, "heroes", palette->id())->id();
    const QUuid map = addMap("level")->id();
    m_project->setOpenDocuments(
        {map.toString(), QString(), "no id", QUuid::createUuid().toString(), bank.toString()});

    m_desk->documents.restoreOpenDocuments();

    QCOMPARE(m_desk->tabs.documentIds(), QList<QUuid>({map, bank}));
    QCOMPARE(m_desk->tabs.currentIndex(), 1);
}

void tst_DocumentController::timersRestAcrossASave()
{
    m_desk->documents.setActiveMap(addMap("one")->id());
    QTimer &running = currentMap()->animator().timer();
    m_desk->documents.setActiveMap(addMap("two")->id());
    QTimer &resting = currentMap()->animator().timer();
    running.start();
    resting.stop();

    m_desk->documents.recordOpenDocuments();
    QVERIFY(!running.isActive());
    QVERIFY(!resting.isActive());
    resting.start(); // by whatever the save sets off
    m_desk->documents.restartAnimations();

    QVERIFY(running.isActive());
    QVERIFY(!resting.isActive());
}

void tst_DocumentController::editCommandsReachTheTabInFront()
{
    auto *const first = new Target;
    auto *const second = new Target;
    using Type = DocumentTabView::DocumentType;
    m_desk->tabs.addDocument(first, Type::Image, QUuid::createUuid(), "one");
    m_desk->tabs.addDocument(second, Type::Image, QUuid::createUuid(), "two");
    EditMenu *const menu = m_desk->menuBar.editMenu();

    emit menu->cut();
    emit menu->copy();
    emit menu->paste();
    emit menu->selectAll();
    emit menu->selectNone();

    QCOMPARE(second->calls, QStringList({"cut", "copy", "paste", "all", "none"}));
    QVERIFY(first->calls.isEmpty());
    m_desk->tabs.closeTab(1);
    emit menu->copy();
    QCOMPARE(first->calls, QStringList({"copy"}));
}

void tst_DocumentController::aTabThatIsNoTargetTurnsTheCommandsOff()
{
    const auto canCut = [this] {
        for (const QAction *const action : m_desk->menuBar.editMenu()->actions()) {
            if (action->shortcut() == QKeySequence(QKeySequence::Cut))
                return action->isEnabled();
        }
        return false;
    };
    using Type = DocumentTabView::DocumentType;
    m_desk->tabs.addDocument(new Target, Type::Image, QUuid::createUuid(), "one");
    QVERIFY(canCut());

    m_desk->tabs.addDocument(new QWidget, Type::Image, QUuid::createUuid(), "two");
    QVERIFY(!canCut());
    emit m_desk->menuBar.editMenu()->cut();
    m_desk->tabs.setCurrentIndex(0);
    QVERIFY(canCut());
    m_desk->tabs.closeAll();

    QVERIFY(!canCut());
}

void tst_DocumentController::undoAndRedoLeadTheEditMenu()
{
    const QList<QAction *> actions = m_desk->menuBar.editMenu()->actions();

    QCOMPARE(actions.at(0)->shortcut(), QKeySequence(QKeySequence::Undo));
    QCOMPARE(actions.at(1)->shortcut(), QKeySequence(QKeySequence::Redo));
    QVERIFY(actions.at(2)->isSeparator());
}

void tst_DocumentController::withoutATabThereIsNothingToUndo()
{
    const QAction *const undo = m_desk->menuBar.editMenu()->actions().first();
    const QUuid map = addMap("level")->id();
    m_desk->documents.setActiveMap(map);
    m_desk->documents.undoStack(map)->push(new QUndoCommand("Paint"));
    QVERIFY(undo->isEnabled());

    m_desk->tabs.closeAll();

    QVERIFY(!undo->isEnabled());
}

void tst_DocumentController::eachDocumentHasItsOwnStack()
{
    const QUuid id = QUuid::createUuid();
    QUndoStack *const stack = m_desk->documents.undoStack(id);

    QCOMPARE(m_desk->documents.undoStack(id), stack);
    QVERIFY(m_desk->documents.undoStack(QUuid()) != stack);
    const QPointer<QUndoStack> watched(stack);
    m_desk->documents.removeUndoStack(id);

    QVERIFY(!watched);
}

void tst_DocumentController::closingAnImageDropsItsStack()
{
    const auto palette = m_project->createPalette(CreateDefault, "colours");
    const auto image =
        m_project->createImage(Tessaril::ImageMode::LoRes_128x96, "title", palette->id());
    const QPointer<QUndoStack> ofImage(m_desk->documents.undoStack(image->id()));
    const QUuid map = addMap("level")->id();
    m_desk->documents.setActiveMap(map);
    const QPointer<QUndoStack> ofMap(m_desk->documents.undoStack(map));

    m_desk->tabs.closeAll();

    QVERIFY(!ofImage);
    QVERIFY(ofMap);
    m_desk->documents.setActiveImageEditor(image->id());
    QCOMPARE(m_desk->menuBar.paletteMenu()->paletteId(), palette->id());
}

void tst_DocumentController::theScratchEditorWritesToTheProject()
{
    QImage picture(4, 4, QImage::Format_Indexed8);
    picture.setColorTable({qRgb(0, 0, 0), qRgb(255, 0, 0)});
    picture.fill(1);

    emit m_desk->tabs.scratchEditor()->imageChanged(picture);

    QCOMPARE(m_project->scratchImage(), picture);
}

void tst_DocumentController::theScratchEditorTakesThePaletteAndTheSpriteMenu()
{
    const auto palette = m_project->createPalette(CreateDefault, "colours");
    const QUuid bank =
        m_project->createSpriteBank(Tessaril::Sprite::EightBit, "heroes", palette->id())->id();
    m_project->setScratchPaletteId(palette->id());
    m_desk->documents.setActiveSpriteEditor(bank);
    QVERIFY(m_desk->menuBar.spriteMenu()->spriteBank());
    QVERIFY(isOn(m_desk->menuBar.spriteMenu(), "Export Data"));

    m_desk->tabs.setScratchEditorVisible(true);
    QVERIFY(!m_desk->menuBar.spriteMenu()->spriteBank());
    QVERIFY(!isOn(m_desk->menuBar.spriteMenu(), "Export Data"));
    QCOMPARE(m_desk->paletteWindow.windowTitle(), QString("Palette: colours"));
    QVERIFY(m_desk->paletteWindow.isContentShown());
    QVERIFY(m_desk->menuBar.paletteMenu()->paletteId().isNull()); // the menu is not told
    m_desk->tabs.setCurrentIndex(0);

    QCOMPARE(m_desk->menuBar.spriteMenu()->spriteBank()->id(), bank);
    QVERIFY(isOn(m_desk->menuBar.spriteMenu(), "Export Data"));
}

void tst_DocumentController::aPaletteShowsInItsDockAndMenu()
{
    const auto palette = m_project->createPalette(CreateDefault, "sky");
    m_desk->paletteWindow.setEnabled(false);

    m_desk->documents.setActivePalette(palette->id());

    QVERIFY(m_desk->paletteWindow.isEnabled());
    QVERIFY(m_desk->paletteWindow.isContentShown());
    QCOMPARE(m_desk->paletteWindow.windowTitle(), QString("Palette: sky"));
    QCOMPARE(m_desk->menuBar.paletteMenu()->paletteId(), palette->id());
}

void tst_DocumentController::aTileSetTurnsItsItemsOn()
{
    const auto tileSet = m_project->createTileSet("cave", QUuid(), 16);
    TileMenu *const menu = m_desk->menuBar.tileMenu();
    menu->setEnabled(false);
    menu->setNewTileSetEnabled(false);
    m_desk->tileWindow.setEnabled(false);
    QVERIFY(!isOn(menu, "Export"));

    m_desk->documents.setActiveTileSet(tileSet->id());

    QVERIFY(m_desk->tileWindow.isEnabled());
    QVERIFY(m_desk->tileWindow.isContentShown());
    QCOMPARE(menu->tileSetId(), tileSet->id());
    QVERIFY(menu->isEnabled());
    QVERIFY(isOn(menu, "New Tile Set"));
    QVERIFY(isOn(menu, "Export"));
    QCOMPARE(m_desk->blockSelector.windowTitle(), QString("Map Objects: cave"));
    QCOMPARE(m_desk->tileWindow.findChild<Canvas *>()->palette(), tileSet->palette());
}

void tst_DocumentController::blockListsComeBackToo()
{
    const auto tileSet = m_project->createTileSet("cave", QUuid(), 16);
    const QUuid blocks = m_project->createBlockList("lifts", tileSet->id())->id();
    m_project->setOpenDocuments({blocks.toString()});

    m_desk->documents.restoreOpenDocuments();

    QCOMPARE(m_desk->tabs.documentIds(), QList<QUuid>({blocks}));
    QCOMPARE(m_desk->tabs.widget(0)->property("document_type").toInt(), 4);
    QCOMPARE(m_desk->tileWindow.tileSet(), tileSet);
}

void tst_DocumentController::aMapOffersTheBanksOfTheProject()
{
    const auto *const combo =
        DialogDriver::field<QComboBox>(m_desk->mapSprites, QStringLiteral("Sprite bank"));
    m_desk->documents.setActiveMap(addMap("level")->id());
    QVERIFY(!m_desk->mapSprites.isContentShown());
    m_desk->tabs.closeAll();
    m_project->createSpriteBank(Tessaril::Sprite::EightBit, "heroes", QUuid());
    QCOMPARE(combo->count(), 0);

    m_desk->documents.setActiveMap(m_project->maps().first()->id());
    QVERIFY(m_desk->mapSprites.isContentShown());
    QCOMPARE(combo->count(), 1);
    m_desk->documents.endProject();
    m_desk->control.close();
    m_desk->documents.clearViews();

    QCOMPARE(combo->count(), 0);
    QVERIFY(!m_desk->mapSprites.isContentShown());
    QVERIFY(!m_desk->blockSelector.isContentShown());
    QVERIFY(!isOn(m_desk->menuBar.fileMenu(), "Save"));
}

void tst_DocumentController::theEndOfAProjectTakesTabsAndStacks()
{
    const QUuid map = addMap("level")->id();
    m_desk->documents.setActiveMap(map);
    m_desk->tabs.setScratchEditorVisible(true); // which shows a palette of its own
    m_desk->documents.setActivePalette(m_project->palettes().first()->id());
    QVERIFY(m_desk->paletteWindow.isContentShown());
    const QPointer<QUndoStack> stack(m_desk->documents.undoStack(map));
    m_desk->documents.setActiveSpriteEditor(
        m_project->createSpriteBank(Tessaril::Sprite::EightBit, "crew", QUuid())->id());
    QVERIFY(m_desk->spriteWindow.isContentShown());

    m_desk->documents.endProject();

    QCOMPARE(m_desk->tabs.count(), 0);
    QVERIFY(!m_desk->spriteWindow.isContentShown());
    QVERIFY(!stack);
    QVERIFY(!m_desk->tabs.isEnabled());
    QVERIFY(m_desk->tabs.updatesEnabled());
    QVERIFY(!m_desk->tileWindow.isContentShown());
    QVERIFY(!m_desk->paletteWindow.isContentShown());
    QVERIFY(!m_desk->projectWindow.isContentShown());
    m_desk->documents.clearViews();
    QVERIFY(m_desk->tabs.isEnabled());
    QVERIFY(!m_desk->tilePicker.tileSet());
    QVERIFY(!m_desk->mapSprites.isContentShown());
    m_desk->tabs.setScratchEditorVisible(true); // it outlives the project
    QCOMPARE(m_desk->tabs.count(), 1);
}

void tst_DocumentController::withoutAProjectNothingOpens()
{
    const QUuid map = addMap("level")->id();
    m_desk->documents.endProject();
    m_desk->control.close();
    m_desk->documents.clearViews();

    m_desk->documents.setActiveMap(map);
    m_desk->documents.setActiveTileSet(QUuid());
    m_desk->documents.scratchEditorActivated();
    emit m_desk->tabs.scratchEditor()->imageChanged(QImage());

    QCOMPARE(m_desk->tabs.count(), 0);
    QVERIFY(!m_desk->tileWindow.isContentShown());
}

void tst_DocumentController::aNewNameReachesTabsAndDocks()
{
    m_desk->projectWindow.setProject(m_project);
    const auto bank = m_project->createSpriteBank(Tessaril::Sprite::EightBit, "old", QUuid());
    m_project->createSpriteBank(Tessaril::Sprite::EightBit, "other", QUuid());
    m_desk->documents.setActiveMap(addMap("level")->id());
    m_desk->documents.setActiveSpriteEditor(bank->id());
    const auto *const combo =
        DialogDriver::field<QComboBox>(m_desk->mapSprites, QStringLiteral("Sprite bank"));
    const auto items = m_desk->projectWindow.tree()->findItems("old", Qt::MatchRecursive);
    QCOMPARE(items.size(), 1);

    items.first()->setText(0, "R&D");

    QCOMPARE(m_desk->tabs.tabText(0), QString("level"));
    QCOMPARE(m_desk->tabs.tabText(1), QString("R&&D"));
    QCOMPARE(m_desk->spriteWindow.windowTitle(), QString("Sprites: R&D"));
    QCOMPARE(combo->itemText(combo->findData(bank->id())), QString("R&D"));
    QVERIFY(combo->findText("other") >= 0);
}

void tst_DocumentController::newMapsBeginWithTheActiveTileSet()
{
    const auto first = m_project->createTileSet("a", QUuid(), 1);
    const auto second = m_project->createTileSet("b", QUuid(), 1);
    m_desk->menuBar.setProject(m_project);
    m_desk->documents.setActiveTileSet(first->id());
    m_desk->documents.setActiveTileSet(second->id());

    m_desk->menuBar.mapMenu()->displayMapDialog();

    QWidget *const dialog = QApplication::activeModalWidget();
    QVERIFY(dialog);
    QCOMPARE(DialogDriver::field<QComboBox>(*dialog, "Tile set")->currentText(), QString("b"));
    dialog->close();
}

void tst_DocumentController::theToolBarTellsTheSizeOfAMapInFrontOnly()
{
    const auto toldSize = [this] {
        QString told;
        for (const QLabel *const label : m_desk->mapToolBar.findChildren<QLabel *>()) {
            if (label->text().contains("bytes"))
                told += label->text();
        }
        return told;
    };
    const auto bank = m_project->createSpriteBank(Tessaril::Sprite::EightBit, "bank", QUuid());

    m_desk->documents.setActiveMap(addMap("level")->id());
    QCOMPARE(toldSize(), QString("40x32 (2560 bytes)"));
    m_desk->documents.setActiveSpriteEditor(bank->id());
    QCOMPARE(toldSize(), QString());
    m_desk->documents.setActiveMap(m_project->maps().first()->id());
    QCOMPARE(toldSize(), QString("40x32 (2560 bytes)"));
}

QTEST_MAIN(tst_DocumentController)
#include "tst_DocumentController.moc"
