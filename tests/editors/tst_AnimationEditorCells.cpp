#include "editors/BlockPaneFixture.h"
#include "editors/TilePickerGrid.h"
#include "editors/TilePickerTool.h"

#include <QApplication>
#include <QDrag>
#include <QMenu>
#include <QMouseEvent>
#include <QSignalSpy>

class tst_AnimationEditorCells : public QObject, private BlockPaneFixture
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

    void toolsTurnTheSelectedCell();
    void toolsWithoutACellStayOff();
    void aClickShowsTheCellsFlagsAndOffset();
    void theSpinWritesTheOffset();
    void showingAnOffsetWritesNothing();
    void offsetsGoBackToThoseOfTheTiles();
    void offsetsOfMissingTilesBecomeZero();
    void offsetsStayWithoutATileSet();
    void droppedTilesAppearInTheFrame();
    void quickFrameEditsAreOneUndoStep();
    void theFrameMenuTurnsTheCellInOneStep();
    void aSteadyStreamOfEditsIsOneUndoStep();
    void editsOfAnotherBlockAreAStepOfTheirOwn();
    void aTileEditBetweenSeparatesFrameEdits();
    void editsThatChangeNothingAreNoStep();
    void allEditsOfABlockMerge();
    void aTileDraggedFromThePickerLandsInTheFrame();
};

void tst_AnimationEditorCells::toolsTurnTheSelectedCell()
{
    selectCell({0, 0}); // flipped

    tool(Tool::RotateCW)->trigger();
    QCOMPARE(cell({0, 0}), AnimationFrame::Cell({2, 1, true, false, true}));
    tool(Tool::Mirror)->trigger();
    QCOMPARE(cell({0, 0}), AnimationFrame::Cell({2, 1, true, true, true}));
    tool(Tool::Flip)->trigger();
    QCOMPARE(cell({0, 0}), AnimationFrame::Cell({2, 1, false, true, true}));

    QVERIFY(tool(Tool::RotateCW)->isChecked());
    QVERIFY(!tool(Tool::Flip)->isChecked());
    QVERIFY(tool(Tool::Mirror)->isChecked());
}

void tst_AnimationEditorCells::toolsWithoutACellStayOff()
{
    const TileAnimation::State before = m_set->block->tileState();

    for (const Tool flag : {Tool::RotateCW, Tool::Flip, Tool::Mirror}) {
        QVERIFY(tool(flag)->isCheckable());
        tool(flag)->trigger();
        QVERIFY(!tool(flag)->isChecked());
    }

    QCOMPARE(m_set->block->tileState(), before);
}

void tst_AnimationEditorCells::aClickShowsTheCellsFlagsAndOffset()
{
    selectCell({0, 0});
    QVERIFY(!tool(Tool::RotateCW)->isChecked());
    QVERIFY(tool(Tool::Flip)->isChecked());
    QVERIFY(!tool(Tool::Mirror)->isChecked());
    QCOMPARE(spin("Palette offset")->value(), 1);

    selectCell({1, 0});
    QVERIFY(tool(Tool::RotateCW)->isChecked());
    QVERIFY(!tool(Tool::Flip)->isChecked());
    QVERIFY(tool(Tool::Mirror)->isChecked());
    QCOMPARE(spin("Palette offset")->value(), 0);

    m_set->block->frame(1)->setCell({1, 0}, {5, 9, true, false, false});
    click(Action::Next);
    QVERIFY(!tool(Tool::RotateCW)->isChecked());
    QVERIFY(tool(Tool::Flip)->isChecked());
    QCOMPARE(spin("Palette offset")->value(), 9);
}

void tst_AnimationEditorCells::theSpinWritesTheOffset()
{
    selectCell({1, 0});

    QTest::keyClick(spin("Palette offset"), Qt::Key_Up);
    QTest::keyClick(spin("Palette offset"), Qt::Key_Up);

    QCOMPARE(cell({1, 0}), AnimationFrame::Cell({5, 2, false, true, true}));
    QCOMPARE(cell({0, 0}).offset, 1);
}

void tst_AnimationEditorCells::showingAnOffsetWritesNothing()
{
    m_set->block->frame(0)->setCell({1, 0}, {5, 40, false, false, false});
    QSignalSpy edits(m_set->block, &Animation::frameChanged);

    selectCell({1, 0});
    selectCell({0, 0});

    QCOMPARE(cell({1, 0}).offset, 40);
    QCOMPARE(edits.count(), 0);
}

void tst_AnimationEditorCells::offsetsGoBackToThoseOfTheTiles()
{
    selectCell({1, 0});
    QSignalSpy edits(m_set->block, &Animation::frameChanged);

    tool(Tool::PaintPalette)->trigger();

    // Tile i of the set has the offset i; two frames of two cells.
    QCOMPARE(cell({0, 0}, 0), AnimationFrame::Cell({2, 2, true, false, false}));
    QCOMPARE(cell({1, 0}, 0), AnimationFrame::Cell({5, 5, false, true, true}));
    QCOMPARE(cell({0, 0}, 1), AnimationFrame::Cell({3, 3, true, false, false}));
    QCOMPARE(cell({1, 0}, 1), AnimationFrame::Cell({5, 5, false, true, true}));
    QList<int> frames;
    for (const auto &edit : edits)
        frames.append(edit.first().toInt());
    QCOMPARE(frames, QList<int>({0, 0, 1, 1}));
    QCOMPARE(spin("Palette offset")->value(), 5);
    QVERIFY(!tool(Tool::PaintPalette)->isCheckable());
    QCOMPARE(stack()->count(), 1);
}

void tst_AnimationEditorCells::offsetsOfMissingTilesBecomeZero()
{
    AnimationFrame *frame = m_set->block->frame(0);
    frame->setCell({0, 0}, {RecordedProject::TileCount, 3, false, false, false});
    frame->setCell({1, 0}, {-1, 4, false, false, false});

    tool(Tool::PaintPalette)->trigger();

    QCOMPARE(cell({0, 0}).offset, 0);
    QCOMPARE(cell({1, 0}).offset, 0);
    QCOMPARE(cell({0, 0}).index, RecordedProject::TileCount);
}

void tst_AnimationEditorCells::offsetsStayWithoutATileSet()
{
    const TileAnimation::State before = m_set->block->tileState();
    m_set->block->setTileSet(nullptr);

    tool(Tool::PaintPalette)->trigger();

    QCOMPARE(m_set->block->tileState(), before);
}

void tst_AnimationEditorCells::droppedTilesAppearInTheFrame()
{
    const auto tile = TileDrag::mimeData({6, 4});
    click(Action::Next);

    QVERIFY(DragEvents::drop(frames(), at({1, 0}), tile.get()));

    QCOMPARE(cell({1, 0}, 1), AnimationFrame::Cell({6, 4, false, true, true}));
    QCOMPARE(frames()->selectedCell(), QPoint(1, 0));
    QCOMPARE(spin("Palette offset")->value(), 4);
}

void tst_AnimationEditorCells::quickFrameEditsAreOneUndoStep()
{
    const TileAnimation::State before = m_set->block->tileState();
    const auto first = TileDrag::mimeData({6, 4});
    const auto second = TileDrag::mimeData({7, 0});

    DragEvents::drop(frames(), at({0, 0}), first.get());
    m_set->wait(100);
    DragEvents::drop(frames(), at({1, 0}), second.get());
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(stack()->undoText(), QString("Edit Frames"));
    const TileAnimation::State between = m_set->block->tileState();
    m_set->wait(101);
    tool(Tool::Flip)->trigger();

    QCOMPARE(stack()->count(), 2);
    stack()->undo();
    QCOMPARE(m_set->block->tileState(), between);
    stack()->undo();
    QCOMPARE(m_set->block->tileState(), before);
}

void tst_AnimationEditorCells::theFrameMenuTurnsTheCellInOneStep()
{
    QTest::mouseClick(frames(), Qt::RightButton, {}, at({1, 0})); // mirrored and turned
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(menu->actions(),
             QList<QAction *>({tool(Tool::RotateCW), tool(Tool::Flip), tool(Tool::Mirror)}));
    QVERIFY(tool(Tool::RotateCW)->isChecked() && !tool(Tool::Flip)->isChecked());
    QTest::mouseClick(menu, Qt::LeftButton, {},
                      menu->actionGeometry(menu->actions().at(0)).center());

    QCOMPARE(cell({1, 0}), AnimationFrame::Cell({5, 0, false, true, false}));
    QVERIFY(!tool(Tool::RotateCW)->isChecked());
    QCOMPARE(stack()->count(), 1);
}

void tst_AnimationEditorCells::aSteadyStreamOfEditsIsOneUndoStep()
{
    const TileAnimation::State before = m_set->block->tileState();

    for (int tile = 0; tile < 5; ++tile) {
        drop({tile, 3}, {0, 0});
        m_set->wait(EditRecorder::FrameMergeWindowMs);
    }

    QCOMPARE(stack()->count(), 1); // though the first and the last lie far apart
    stack()->undo();
    QCOMPARE(m_set->block->tileState(), before);
}

void tst_AnimationEditorCells::editsOfAnotherBlockAreAStepOfTheirOwn()
{
    TileAnimation *const other = m_set->blocks->createTileAnimation("Other");
    other->addFrame();
    other->notifyContentChanged();
    const int before = stack()->count();

    drop({6, 4}, {0, 0});
    m_editor->setAnimation(other);
    drop({7, 1}, {0, 0});

    QCOMPARE(stack()->count(), before + 2);
    stack()->undo();
    QCOMPARE(other->frame(0)->cell({0, 0}).index, 0);
    QCOMPARE(cell({0, 0}).index, 6);
    stack()->undo();
    QCOMPARE(cell({0, 0}).index, 2);
}

void tst_AnimationEditorCells::aTileEditBetweenSeparatesFrameEdits()
{
    drop({6, 4}, {0, 0});
    m_set->tileSet->copyTile(1, 7);
    drop({7, 1}, {0, 0});

    QCOMPARE(stack()->count(), 3);
    QCOMPARE(stack()->text(0), QString("Edit Frames"));
    QCOMPARE(stack()->text(2), QString("Edit Frames"));
    stack()->undo();
    QCOMPARE(cell({0, 0}).index, 6);
}

void tst_AnimationEditorCells::editsThatChangeNothingAreNoStep()
{
    selectCell({0, 0});

    drop({2, 1}, {0, 0}); // what is there already
    frames()->setFlipped(true);
    frames()->setOffset(1);
    m_editor->setAnimationDelay(0);
    click(Action::Next);
    click(Action::Play);
    click(Action::Stop);
    m_editor->setAnimation(m_set->block);

    QCOMPARE(stack()->count(), 0);
}

void tst_AnimationEditorCells::allEditsOfABlockMerge()
{
    const TileAnimation::State before = m_set->block->tileState();

    QTest::keyClick(m_editor->findChild<MapObjectTypeCombo *>(), Qt::Key_Down);
    spin("Width in tiles")->setValue(4);
    spin("Height in tiles")->setValue(3);
    spin("Delay")->setValue(5);
    click(Action::Add);
    drop({6, 4}, {1, 2});
    tool(Tool::RotateCW)->trigger();
    spin("Palette offset")->setValue(9);
    tool(Tool::PaintPalette)->trigger();
    click(Action::First);
    click(Action::Delete);

    QCOMPARE(stack()->count(), 1);
    const TileAnimation::State after = m_set->block->tileState();
    stack()->undo();
    QCOMPARE(m_set->block->tileState(), before);
    stack()->redo();
    QCOMPARE(m_set->block->tileState(), after);
}

void tst_AnimationEditorCells::aTileDraggedFromThePickerLandsInTheFrame()
{
    TilePickerTool picker;
    picker.setTileSet(m_set->tileSet);
    picker.resize(300, 300);
    picker.show();
    const TileSet::State tiles = m_set->tileSet->state();

    const QPoint start = picker.grid()->cellRect(6).center();
    QTest::mousePress(picker.grid(), Qt::LeftButton, {}, start);
    const QPoint away = start + QPoint(QApplication::startDragDistance(), 0);
    QMouseEvent moved(QEvent::MouseMove, away, picker.grid()->mapToGlobal(away), Qt::NoButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(picker.grid(), &moved);
    const auto *drag = picker.grid()->findChild<QDrag *>();
    QVERIFY(drag);
    QVERIFY(DragEvents::drop(frames(), at({0, 0}), drag->mimeData()));

    QCOMPARE(cell({0, 0}), AnimationFrame::Cell({6, 6, true, false, false}));
    QCOMPARE(m_set->tileSet->state(), tiles);
}

QTEST_MAIN(tst_AnimationEditorCells)
#include "tst_AnimationEditorCells.moc"
