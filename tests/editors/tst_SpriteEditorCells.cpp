#include "editors/SpriteList.h"
#include "editors/SpriteViewFixture.h"

#include <QApplication>
#include <QDrag>
#include <QMenu>
#include <QMouseEvent>
#include <QSignalSpy>

class tst_SpriteEditorCells : public QObject, private SpriteViewFixture
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { close(); }

    void toolsZoomTheFrame();
    void toolsTurnTheSelectedCell();
    void toolsShowTheSelectedCellsFlags();
    void droppedSpritesAppearInTheFrame();
    void quickFrameEditsAreOneUndoStep();
    void undoBringsBackSizeAndDelay();
    void cloningIsNoUndoStep();
    void toolsWithoutACellStayOff();
    void theFrameMenuTurnsTheCellInOneStep();
    void aSpriteDraggedFromTheListLandsInTheFrame();
    void aSteadyStreamOfEditsIsOneUndoStep();
    void editsOfAnotherAnimationAreAStepOfTheirOwn();
    void aBankEditBetweenSeparatesFrameEdits();
    void editsThatChangeNothingAreNoStep();
    void allEditsOfAnAnimationMerge();
};

void tst_SpriteEditorCells::toolsZoomTheFrame()
{
    select(m_project->animation);

    tool(Tool::ZoomIn)->trigger();
    QCOMPARE(frames()->size(), QSize(4 * 256, 256));
    tool(Tool::ZoomOut)->trigger();
    tool(Tool::ZoomOut)->trigger();
    QCOMPARE(frames()->size(), QSize(4 * 64, 64));
}

void tst_SpriteEditorCells::toolsTurnTheSelectedCell()
{
    select(m_project->animation);
    selectCell({2, 0}); // mirrored

    tool(Tool::Flip)->trigger();
    tool(Tool::Mirror)->trigger();
    tool(Tool::RotateCW)->trigger();

    const AnimationFrame::Cell cell = m_project->animation->frame(0)->cell({2, 0});
    const AnimationFrame::Cell expected{
        .index = 2, .offset = 2, .flip = true, .mirror = false, .rotate = true};
    QCOMPARE(cell, expected);
}

void tst_SpriteEditorCells::toolsShowTheSelectedCellsFlags()
{
    m_project->animation->frame(0)->setCell({1, 0}, {.flip = true, .rotate = true});
    m_project->animation->addFrame();
    select(m_project->animation);
    const auto checks = [this] {
        return QList<bool>({tool(Tool::RotateCW)->isChecked(), tool(Tool::Flip)->isChecked(),
                            tool(Tool::Mirror)->isChecked()});
    };

    selectCell({1, 0});
    QCOMPARE(checks(), QList<bool>({true, true, false}));
    selectCell({0, 0});
    QCOMPARE(checks(), QList<bool>({false, false, true}));
    click(Action::Next);
    QCOMPARE(checks(), QList<bool>({false, false, false}));
}

void tst_SpriteEditorCells::droppedSpritesAppearInTheFrame()
{
    select(m_project->animation);

    drop(3, {0, 0});

    const QColor expected(m_project->palette->colourTable().at(23));
    QCOMPARE(frames()->grab().toImage().pixelColor(64, 64), expected);
    const AnimationFrame::Cell cell = m_project->animation->frame(0)->cell({0, 0});
    QCOMPARE(cell.index, 3);
    QCOMPARE(cell.offset, 2);
}

void tst_SpriteEditorCells::quickFrameEditsAreOneUndoStep()
{
    select(m_project->animation);

    drop(3, {0, 0});
    m_project->wait(EditRecorder::FrameMergeWindowMs);
    tool(Tool::Flip)->trigger();
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(stack()->undoText(), QString("Edit Frames"));
    m_project->wait(EditRecorder::FrameMergeWindowMs + 1);
    drop(2, {1, 0});
    QCOMPARE(stack()->count(), 2);

    stack()->undo();
    QCOMPARE(m_project->animation->frame(0)->cell({1, 0}).index, 1);
    QVERIFY(m_project->animation->frame(0)->cell({0, 0}).flip);
    stack()->undo();
    const AnimationFrame::Cell first{.index = 0, .offset = 2, .mirror = true};
    QCOMPARE(m_project->animation->frame(0)->cell({0, 0}), first);
}

void tst_SpriteEditorCells::undoBringsBackSizeAndDelay()
{
    select(m_project->animation);
    spin("Delay")->setValue(4);
    spin("Width in sprites")->setValue(2);
    click(Action::Add);
    QCOMPARE(stack()->count(), 1);

    stack()->undo();

    QCOMPARE(m_project->animation->size(), QSize(4, 1));
    QCOMPARE(spin("Width in sprites")->value(), 4);
    QCOMPARE(spin("Delay")->value(), 0);
    QCOMPARE(timer()->interval(), 20);
    QCOMPARE(frames()->currentFrame(), 0);
    QCOMPARE(label(), QString("Frame 1 of 1"));
    QCOMPARE(stack()->count(), 1);
}

void tst_SpriteEditorCells::cloningIsNoUndoStep()
{
    m_project->animation->setDelay(7);
    m_project->wait(1000);
    const int before = stack()->count();

    m_view->cloneAnimation(m_project->animation);
    QCOMPARE(stack()->count(), before);
    drop(3, {0, 0});
    stack()->undo();

    QCOMPARE(list()->currentAnimation()->state(), m_project->animation->state());
}

void tst_SpriteEditorCells::toolsWithoutACellStayOff()
{
    select(m_project->animation);
    const Animation::State before = m_project->animation->state();

    for (const Tool flag : {Tool::RotateCW, Tool::Flip, Tool::Mirror}) {
        tool(flag)->trigger();
        QVERIFY(!tool(flag)->isChecked());
    }

    QCOMPARE(m_project->animation->state(), before);
    QCOMPARE(stack()->count(), 0);
}

void tst_SpriteEditorCells::theFrameMenuTurnsTheCellInOneStep()
{
    select(m_project->animation);
    QSignalSpy changed(m_project->animation, &Animation::frameChanged);

    QTest::mouseClick(frames(), Qt::RightButton, {}, at({2, 0})); // mirrored
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QVERIFY(tool(Tool::Mirror)->isChecked());
    QCOMPARE(menu->actions().at(1), tool(Tool::Flip));
    QTest::mouseClick(menu, Qt::LeftButton, {},
                      menu->actionGeometry(menu->actions().at(1)).center());

    const AnimationFrame::Cell expected{.index = 2, .offset = 2, .flip = true, .mirror = true};
    QCOMPARE(cell({2, 0}), expected);
    QVERIFY(tool(Tool::Flip)->isChecked());
    QVERIFY(changed.count() >= 1);
    QCOMPARE(stack()->count(), 1);
    stack()->undo();
    QVERIFY(!cell({2, 0}).flip);
}

void tst_SpriteEditorCells::aSpriteDraggedFromTheListLandsInTheFrame()
{
    SpriteEditor::SpriteList sprites;
    sprites.setSprites(m_project->sprites);
    sprites.resize(200, 100);
    select(m_project->animation);
    const QImage strip = m_project->sprites->image();
    QSignalSpy images(m_project->sprites, &SpriteBank::imageChanged);
    QSignalSpy swaps(m_project->sprites, &SpriteBank::spriteSwapped);

    const QPoint start = sprites.cellRect(3).center();
    QTest::mousePress(&sprites, Qt::LeftButton, {}, start);
    QMouseEvent moved(QEvent::MouseMove, start + QPoint(40, 0), sprites.mapToGlobal(start),
                      Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&sprites, &moved);
    const auto *drag = sprites.findChild<QDrag *>();
    QVERIFY(drag);
    QVERIFY(DragEvents::drop(frames(), at({1, 0}), drag->mimeData()));

    const AnimationFrame::Cell expected{.index = 3, .offset = 2, .mirror = true};
    QCOMPARE(cell({1, 0}), expected);
    QCOMPARE(m_project->sprites->image(), strip);
    QCOMPARE(images.count() + swaps.count(), 0);
}

void tst_SpriteEditorCells::aSteadyStreamOfEditsIsOneUndoStep()
{
    select(m_project->animation);
    const Animation::State before = m_project->animation->state();

    for (int sprite = 1; sprite <= 4; ++sprite) {
        drop(sprite % 4, {0, 0});
        m_project->wait(EditRecorder::FrameMergeWindowMs);
    }

    QCOMPARE(stack()->count(), 1); // though the first and the last lie far apart
    stack()->undo();
    QCOMPARE(m_project->animation->state(), before);
}

void tst_SpriteEditorCells::editsOfAnotherAnimationAreAStepOfTheirOwn()
{
    SpriteAnim *other = m_project->sprites->createAnimation();
    select(m_project->animation);
    drop(3, {0, 0});
    select(other);
    drop(2, {0, 0});
    select(m_project->animation);
    drop(1, {0, 0});

    QCOMPARE(stack()->count(), 3);
    stack()->undo();
    QCOMPARE(cell({0, 0}).index, 3);
    QCOMPARE(other->frame(0)->cell({0, 0}).index, 2);
    stack()->undo();
    QCOMPARE(other->frame(0)->cell({0, 0}).index, 0);
    QCOMPARE(cell({0, 0}).index, 3);
}

void tst_SpriteEditorCells::aBankEditBetweenSeparatesFrameEdits()
{
    select(m_project->animation);

    drop(3, {0, 0});
    emit m_project->sprites->structureAboutToChange();
    m_project->sprites->addSprite();
    emit m_project->sprites->structureChanged("Add Sprite");
    drop(2, {0, 0});

    QCOMPARE(stack()->count(), 3);
    QCOMPARE(stack()->text(0), QString("Edit Frames"));
    QCOMPARE(stack()->text(1), QString("Add Sprite"));
    QCOMPARE(stack()->text(2), QString("Edit Frames"));
    stack()->undo();
    QCOMPARE(cell({0, 0}).index, 3);
}

void tst_SpriteEditorCells::editsThatChangeNothingAreNoStep()
{
    select(m_project->animation);
    selectCell({2, 0});

    drop(2, {2, 0}); // what is there already
    frames()->setMirrored(true);
    frames()->setOffset(2);
    click(Action::Next);
    click(Action::Play);
    click(Action::Stop);

    QCOMPARE(stack()->count(), 0);
}

void tst_SpriteEditorCells::allEditsOfAnAnimationMerge()
{
    select(m_project->animation);
    const Animation::State before = m_project->animation->state();

    spin("Width in sprites")->setValue(2);
    spin("Height in sprites")->setValue(2);
    spin("Delay")->setValue(5);
    click(Action::Add);
    drop(3, {1, 1});
    tool(Tool::RotateCW)->trigger();
    click(Action::First);
    click(Action::Delete);

    QCOMPARE(stack()->count(), 1);
    const Animation::State after = m_project->animation->state();
    stack()->undo();
    QCOMPARE(m_project->animation->state(), before);
    stack()->redo();
    QCOMPARE(m_project->animation->state(), after);
}

QTEST_MAIN(tst_SpriteEditorCells)
#include "tst_SpriteEditorCells.moc"
