#include "control/Desk.h"
#include "control/ProjectActions.h"
#include "editors/AnimationEditorWidget.h"
#include "editors/AnimationListWidget.h"
#include "editors/BlockEditorView.h"
#include "editors/FrameEditorWidget.h"
#include "editors/SpriteEditorView.h"
#include "model/MapObjects.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/TileSet.h"
#include "support/TestSprites.h"

#include <QListWidget>
#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

#include <memory>

using AnimationEditor::AnimationListWidget;
using AnimationEditor::FrameEditorWidget;
using Action = AnimationControlWidget::Action;

/// Documents that are deleted in the tree while they are open and played.
class tst_DeletedDocuments : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aBankGoesWithItsTabAndLeavesTheDock();
    void aBankThatGoesClearsTheDockOfAnother();
    void aPaletteThatGoesClearsTheDockOfAnother();
    void aTileSetThatGoesClearsTheDocksOfAnother();
    void aBlockListGoesWithItsTab();
    void aTileSetLeavesItsBlocksBlack();
    void stepsOfADeletedBankAreHarmless();

private:
    using Node = ProjectTree::ProjectNode;

    void openBank();
    void openBlocks();
    /// Selects the first animation of the tab in front, and plays it.
    void playFirst() const;
    /// Lets pass what a deletion sets off, and uses the menus.
    void goOn() const;
    FrameEditorWidget *frames() const
    {
        return m_desk->tabs.currentWidget()->findChild<FrameEditorWidget *>();
    }

    std::unique_ptr<Desk> m_desk;
    std::unique_ptr<ProjectActions> m_actions;
    Project *m_project = nullptr;
    QPointer<SpriteBank> m_bank;
    QPointer<TileSet> m_tiles;
    QPointer<MapObjects> m_blocks;
};

void tst_DeletedDocuments::init()
{
    m_desk = std::make_unique<Desk>();
    m_desk->control._unsavedPrompt = [](const QString &) { return 1; };
    DocumentViews views;
    views.tabs = &m_desk->tabs;
    views.projectWindow = &m_desk->projectWindow;
    views.paletteWindow = &m_desk->paletteWindow;
    views.tileWindow = &m_desk->tileWindow;
    views.spriteWindow = &m_desk->spriteWindow;
    views.tilePicker = &m_desk->tilePicker;
    views.blockSelector = &m_desk->blockSelector;
    views.mapSprites = &m_desk->mapSprites;
    views.menuBar = &m_desk->menuBar;
    m_actions = std::make_unique<ProjectActions>(views, &m_desk->control, &m_desk->documents);
    m_desk->control.newProject("game");
    m_project = m_desk->control.project();
    m_desk->documents.openProject(m_project);
    m_desk->tabs.resize(900, 600);
    m_desk->tabs.show();
    m_desk->spriteWindow.show();
}

void tst_DeletedDocuments::cleanup()
{
    m_desk->documents.endProject();
    m_desk->control.close();
    m_desk->documents.clearViews();
    m_actions.reset();
    m_desk.reset();
}

void tst_DeletedDocuments::openBank()
{
    const auto palette = m_project->createPalette(CreateDefault, "colours");
    m_bank = m_project->createSpriteBank(Tessaril::Sprite::EightBit, "heroes", palette->id());
    TestSprites::fill(*m_bank, 3);
    m_bank->createAnimation()->addFrame();
    m_desk->documents.setActiveSpriteEditor(m_bank->id());
    QVERIFY(qobject_cast<SpriteEditor::View *>(m_desk->tabs.currentWidget()));
    playFirst();
}

void tst_DeletedDocuments::openBlocks()
{
    const auto palette = m_project->createPalette(CreateDefault, "colours");
    m_tiles = m_project->createTileSet("cave", palette->id(), 16);
    m_blocks = m_project->createBlockList("doors", m_tiles->id());
    TileAnimation *const door = m_blocks->createTileAnimation("door");
    door->setTileSet(m_tiles);
    for (int i = 0; i < 2; ++i)
        door->addFrame();
    door->notifyContentChanged();
    m_desk->documents.setActiveBlockEditor(m_blocks->id());
    QVERIFY(qobject_cast<BlockEditor::View *>(m_desk->tabs.currentWidget()));
    playFirst();
}

void tst_DeletedDocuments::playFirst() const
{
    QWidget *view = m_desk->tabs.currentWidget();
    view->findChild<AnimationListWidget *>()->findChild<QListWidget *>()->setCurrentRow(0);
    QTest::mouseClick(frames(), Qt::LeftButton, {}, {5, 5});
    view->findChild<AnimationControlWidget *>()->action(Action::Play)->trigger();
    QTRY_COMPARE(frames()->currentFrame(), 1);
}

void tst_DeletedDocuments::goOn() const
{
    EditMenu *const menu = m_desk->menuBar.editMenu();
    emit menu->copy();
    emit menu->cut();
    emit menu->paste();
    emit menu->selectNone();
    QVERIFY(!m_desk->tabs.grab().isNull());
    QVERIFY(!m_desk->spriteWindow.grab().isNull());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // closed tabs
    QCoreApplication::processEvents();
}

void tst_DeletedDocuments::aBankGoesWithItsTabAndLeavesTheDock()
{
    openBank();

    m_actions->deleteItem(Node::Sprites, m_bank->id());
    goOn();

    QVERIFY(!m_bank);
    QCOMPARE(m_desk->tabs.count(), 0);
    QVERIFY(!m_desk->spriteWindow.isContentShown());
    QVERIFY(!m_desk->menuBar.spriteMenu()->spriteBank());
}

void tst_DeletedDocuments::aBankThatGoesClearsTheDockOfAnother()
{
    openBank();
    const auto other =
        m_desk->control.project()->createSpriteBank(Tessaril::Sprite::EightBit, "other", QUuid());
    m_desk->spriteWindow.setSprites(other);

    m_actions->deleteItem(Node::Sprites, m_bank->id());

    QVERIFY(other);
    QVERIFY(!m_desk->spriteWindow.sprites());
    QVERIFY(!m_desk->spriteWindow.isContentShown());
}

void tst_DeletedDocuments::aPaletteThatGoesClearsTheDockOfAnother()
{
    const auto spare = m_project->createPalette(CreateDefault, "spare");
    m_desk->documents.setActivePalette(m_project->createPalette(CreateDefault, "sky")->id());
    QVERIFY(m_desk->paletteWindow.isContentShown());

    m_actions->deleteItem(Node::Palette, spare->id());

    QVERIFY(!m_desk->paletteWindow.isContentShown());
    QCOMPARE(m_desk->paletteWindow.windowTitle(), QString("Palette Editor"));
    QVERIFY(m_desk->menuBar.paletteMenu()->paletteId().isNull());
}

void tst_DeletedDocuments::aTileSetThatGoesClearsTheDocksOfAnother()
{
    const auto spare = m_project->createTileSet("spare", QUuid(), 4);
    const auto shown = m_project->createTileSet("cave", QUuid(), 4);
    m_desk->documents.setActiveTileSet(shown->id());

    m_actions->deleteItem(Node::TileSet, spare->id());

    QVERIFY(shown);
    QVERIFY(!m_desk->tileWindow.tileSet());
    QVERIFY(!m_desk->tilePicker.tileSet());
    QVERIFY(!m_desk->tileWindow.isContentShown());
    QCOMPARE(m_desk->blockSelector.windowTitle(), QString("Map Objects"));
}

void tst_DeletedDocuments::aBlockListGoesWithItsTab()
{
    openBlocks();

    m_actions->deleteItem(Node::Objects, m_blocks->id());
    goOn();

    QVERIFY(!m_blocks);
    QCOMPARE(m_desk->tabs.count(), 0);
    QCOMPARE(m_desk->tilePicker.tileSet(), m_tiles);
}

void tst_DeletedDocuments::aTileSetLeavesItsBlocksBlack()
{
    openBlocks();

    m_actions->deleteItem(Node::TileSet, m_tiles->id());
    goOn();

    QVERIFY(!m_tiles);
    QVERIFY(!m_desk->tilePicker.tileSet());
    QCOMPARE(m_desk->tabs.count(), 1);
    QCOMPARE(frames()->grab().toImage().pixelColor(32, 32), QColor(Qt::black));
    QSignalSpy played(frames(), &FrameEditorWidget::currentFrameChanged);
    QTRY_VERIFY(played.count() >= 3);
    auto *const view = qobject_cast<BlockEditor::View *>(m_desk->tabs.currentWidget());
    view->addNewAnimation();
    QCOMPARE(m_blocks->animations().size(), 2);
    m_actions->deleteItem(Node::Objects, m_blocks->id());
    QCOMPARE(m_desk->tabs.count(), 0);
}

void tst_DeletedDocuments::stepsOfADeletedBankAreHarmless()
{
    openBank();
    QUndoStack *const stack = m_desk->documents.undoStack(m_bank->id());
    frames()->setFlipped(true);
    QCOMPARE(stack->count(), 1);

    m_project->deleteSpriteBank(m_bank->id()); // its tab and its steps are still there
    stack->undo();
    stack->redo();
    goOn();

    QCOMPARE(m_desk->tabs.count(), 1);
    QCOMPARE(frames()->animation(), nullptr);
    QVERIFY(!m_desk->spriteWindow.isContentShown());
}

QTEST_MAIN(tst_DeletedDocuments)
#include "tst_DeletedDocuments.moc"
