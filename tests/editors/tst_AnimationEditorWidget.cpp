#include "editors/AnimationEditorWidget.h"

#include "editors/FrameEditorWidget.h"
#include "editors/MapObjectTypeCombo.h"
#include "editors/TileDrag.h"
#include "support/DialogDriver.h"
#include "support/DragEvents.h"
#include "support/RecordedProject.h"
#include "uikit/ToolPalette.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

#include <memory>

using AnimationEditor::FrameEditorWidget;
using BlockEditor::AnimationEditorWidget;
using Action = AnimationControlWidget::Action;
using Tool = Tessaril::Ui::ToolButton;

class tst_AnimationEditorWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void withoutABlockItIsDisabled();
    void showsTheBlocksProperties();
    void opensAtTheFirstFrameAndStandsStill();
    void repeatsTheDelayOfTheBlock();
    void theIntervalFollowsTheDelay_data();
    void theIntervalFollowsTheDelay();
    void aDelayBeyondAllTimeIsBounded();
    void theToolBarEditsTheBlock();
    void theToolBarLeavesTheBlockBeforeAlone();
    void sizeChangesKeepTheScale();
    void zoomDoublesAndHalvesWithinItsLimits();
    void theTransportStepsThroughFrames();
    void framesOutOfRangeAreIgnored();
    void addAppendsAFrameAndShowsIt();
    void deleteShowsTheFrameBefore_data();
    void deleteShowsTheFrameBefore();
    void deletingTheOnlyFrameLeavesABlankOne();
    void playPauseAndStopDriveTheTimer();
    void theTimerPlaysTheFramesRoundAndRound();
    void theDelayChangesThePlayback();
    void loopAndPingPongDoNothing();
    void toolsTurnTheSelectedCell();
    void toolsWithoutACellStayOff();
    void aClickShowsTheCellsFlagsAndOffset();
    void theSpinWritesTheOffset();
    void showingAnOffsetWritesNothing();
    void offsetsGoBackToThoseOfTheTiles();
    void offsetsOfMissingTilesBecomeZero();
    void offsetsStayWithoutATileSet();
    void otherToolsAreLogged();
    void droppedTilesAppearInTheFrame();
    void quickFrameEditsAreOneUndoStep();
    void undoBringsBackWhatIsShown();
    void undoTakesTheFrameOnShow();
    void aBlockWithoutFramesIsHarmless();
    void aDyingBlockDisables();

private:
    FrameEditorWidget *frames() const { return m_editor->frameEditor(); }
    QAction *tool(Tool button) const { return m_editor->toolPalette()->action(button); }
    QSpinBox *spin(const char *name) const
    {
        return DialogDriver::field<QSpinBox>(*m_editor, QString::fromLatin1(name));
    }
    QString label() const { return m_editor->controls()->findChild<QLabel *>()->text(); }
    void click(Action action) { m_editor->controls()->action(action)->trigger(); }
    void addFrames(int count);
    static QPoint at(QPoint cell) { return cell * 64 + QPoint(32, 32); }
    void selectCell(QPoint cell) { QTest::mouseClick(frames(), Qt::LeftButton, {}, at(cell)); }
    AnimationFrame::Cell cell(QPoint position, int frame = 0) const
    {
        return m_set->block->frame(frame)->cell(position);
    }

    std::unique_ptr<RecordedProject> m_set; // the block has 2 by 1 cells and two frames
    std::unique_ptr<AnimationEditorWidget> m_editor;
};

void tst_AnimationEditorWidget::init()
{
    m_set = std::make_unique<RecordedProject>();
    m_set->stacks.setActive(m_set->tileSet->id());
    m_editor = std::make_unique<AnimationEditorWidget>();
    m_editor->resize(600, 400);
    m_editor->show();
    m_editor->setAnimation(m_set->block);
}

void tst_AnimationEditorWidget::cleanup()
{
    m_editor.reset();
    m_set.reset();
}

void tst_AnimationEditorWidget::addFrames(int count)
{
    for (int i = 0; i < count; ++i)
        m_set->block->addFrame();
    m_set->block->notifyContentChanged();
}

void tst_AnimationEditorWidget::withoutABlockItIsDisabled()
{
    m_editor->play();
    m_editor->setAnimation(nullptr);

    QVERIFY(!m_editor->isEnabled());
    QVERIFY(!frames()->isEnabled());
    QCOMPARE(frames()->animation(), nullptr);
    QVERIFY(!m_editor->timer().isActive());
    m_editor->play();
    m_editor->animate();
    m_editor->mediaControlButtonClicked(Action::Add, false);
    m_editor->setAnimationDelay(4);
    m_editor->changeTileState(Tool::PaintPalette, false);
    QVERIFY(!m_editor->timer().isActive());
    QCOMPARE(m_set->block->frameCount(), 2);
    QCOMPARE(m_set->block->delay(), 0);
}

void tst_AnimationEditorWidget::showsTheBlocksProperties()
{
    m_set->block->setName("Gate");
    m_set->block->setSize({3, 5});
    m_set->block->setDelay(7);
    m_set->block->setMapObjectType(MapObjectType::HorizontalPlatform);

    AnimationEditorWidget editor;
    editor.setAnimation(m_set->block);

    QVERIFY(editor.isEnabled());
    QCOMPARE(DialogDriver::field<QLineEdit>(editor, "Name")->text(), QString("Gate"));
    QCOMPARE(DialogDriver::field<QSpinBox>(editor, "Width in tiles")->value(), 3);
    QCOMPARE(DialogDriver::field<QSpinBox>(editor, "Height in tiles")->value(), 5);
    QCOMPARE(DialogDriver::field<QSpinBox>(editor, "Delay")->value(), 7);
    QCOMPARE(editor.findChild<MapObjectTypeCombo *>()->currentIndex(), 1);
    QCOMPARE(DialogDriver::field<QSpinBox>(editor, "Palette offset")->maximum(), 15);
    QCOMPARE(tool(Tool::PaintPalette)->toolTip(),
             QString("Update palette offsets to default values"));
    const auto *scroller = editor.findChild<QScrollArea *>();
    QCOMPARE(scroller->widget(), editor.frameEditor());
    QCOMPARE(scroller->alignment(), Qt::AlignCenter);
    QVERIFY(scroller->widgetResizable());
    QCOMPARE(m_set->stackOf(m_set->tileSet->id())->count(), 1); // of this test's own edits
}

void tst_AnimationEditorWidget::opensAtTheFirstFrameAndStandsStill()
{
    click(Action::Last);
    click(Action::Play);

    m_editor->setAnimation(m_set->block);

    QCOMPARE(m_editor->currentFrame(), 0);
    QCOMPARE(frames()->currentFrame(), 0);
    QCOMPARE(label(), QString("Frame 1 of 2"));
    QVERIFY(!m_editor->timer().isActive());
}

void tst_AnimationEditorWidget::repeatsTheDelayOfTheBlock()
{
    m_set->block->setDelay(3);
    QSignalSpy delays(m_set->block, &Animation::delayChanged);
    QSignalSpy sizes(m_set->block, &Animation::sizeChanged);
    QSignalSpy contents(m_set->block, &Animation::contentChanged);

    m_editor->setAnimation(m_set->block);

    QCOMPARE(delays.count(), 1);
    QCOMPARE(delays.first().first().toInt(), 3);
    QCOMPARE(sizes.count() + contents.count(), 0);
}

void tst_AnimationEditorWidget::theIntervalFollowsTheDelay_data()
{
    QTest::addColumn<int>("delay");
    QTest::addColumn<int>("interval");
    QTest::newRow("none") << 0 << 20;
    QTest::newRow("25 fps") << 1 << 40;
    QTest::newRow("2") << 2 << 60;
    QTest::newRow("the largest") << 50 << 1020;
}

void tst_AnimationEditorWidget::theIntervalFollowsTheDelay()
{
    QFETCH(int, delay);
    QFETCH(int, interval);

    m_editor->setAnimationDelay(delay);
    QCOMPARE(m_editor->timer().interval(), interval);
    QCOMPARE(m_set->block->delay(), delay);

    AnimationEditorWidget other;
    other.setAnimation(m_set->block);
    QCOMPARE(other.timer().interval(), interval);
    other.play();
    QCOMPARE(other.timer().interval(), interval);
}

void tst_AnimationEditorWidget::aDelayBeyondAllTimeIsBounded()
{
    QCOMPARE(AnimationEditorWidget::intervalMs(-3), 20);
    QCOMPARE(AnimationEditorWidget::intervalMs(std::numeric_limits<int>::max()),
             std::numeric_limits<int>::max());
}

void tst_AnimationEditorWidget::theToolBarEditsTheBlock()
{
    QSignalSpy contents(m_set->block, &Animation::contentChanged);

    auto *name = DialogDriver::field<QLineEdit>(*m_editor, "Name");
    name->selectAll();
    QTest::keyClicks(name, "Gate");
    QTest::keyClick(spin("Width in tiles"), Qt::Key_Up);
    QTest::keyClick(spin("Height in tiles"), Qt::Key_Up);
    QTest::keyClick(spin("Delay"), Qt::Key_Up);
    QCOMPARE(contents.count(), 0);
    QTest::keyClick(m_editor->findChild<MapObjectTypeCombo *>(), Qt::Key_Down);

    QCOMPARE(m_set->block->name(), QString("Gate"));
    QCOMPARE(m_set->block->size(), QSize(3, 2));
    QCOMPARE(m_set->block->delay(), 1);
    QCOMPARE(m_set->block->type(), MapObjectType::HorizontalPlatform);
    QCOMPARE(contents.count(), 1);
}

void tst_AnimationEditorWidget::theToolBarLeavesTheBlockBeforeAlone()
{
    const TileAnimation::State before = m_set->block->tileState();
    TileAnimation *const other = m_set->blocks->createTileAnimation("Other");
    other->addFrame();
    m_editor->setAnimation(other);

    QTest::keyClick(spin("Width in tiles"), Qt::Key_Up);
    QTest::keyClick(spin("Delay"), Qt::Key_Up);
    QTest::keyClick(m_editor->findChild<MapObjectTypeCombo *>(), Qt::Key_Down);
    QTest::keyClicks(DialogDriver::field<QLineEdit>(*m_editor, "Name"), "s");
    m_set->block->setDelay(9);

    QCOMPARE(other->size(), QSize(2, 1));
    QCOMPARE(other->name(), QString("Others"));
    QCOMPARE(spin("Delay")->value(), 1);
    m_set->block->setDelay(before.animation.delay);
    QCOMPARE(m_set->block->tileState(), before);
    QCOMPARE(m_set->block->name(), QString("Door"));
}

void tst_AnimationEditorWidget::sizeChangesKeepTheScale()
{
    tool(Tool::ZoomIn)->trigger();

    QTest::keyClick(spin("Width in tiles"), Qt::Key_Up);
    QTest::keyClick(spin("Height in tiles"), Qt::Key_Up);

    QCOMPARE(frames()->scale(), 16);
    QCOMPARE(frames()->size(), QSize(3, 2) * 8 * 16);
}

void tst_AnimationEditorWidget::zoomDoublesAndHalvesWithinItsLimits()
{
    QList<int> scales;
    for (int i = 0; i < 4; ++i) {
        tool(Tool::ZoomIn)->trigger();
        scales.append(frames()->scale());
    }
    for (int i = 0; i < 7; ++i) {
        tool(Tool::ZoomOut)->trigger();
        scales.append(frames()->scale());
    }

    QCOMPARE(scales, QList<int>({16, 32, 64, 64, 32, 16, 8, 4, 2, 1, 1}));
    QCOMPARE(frames()->size(), QSize(2 * 8, 8));
}

void tst_AnimationEditorWidget::theTransportStepsThroughFrames()
{
    addFrames(2);
    QSignalSpy shown(frames(), &FrameEditorWidget::currentFrameChanged);

    QList<int> current;
    for (const Action action : {Action::Next, Action::Next, Action::Previous, Action::Last,
                                Action::Next, Action::First, Action::Previous}) {
        click(action);
        current.append(m_editor->currentFrame());
    }

    QCOMPARE(current, QList<int>({1, 2, 1, 3, 3, 0, 0}));
    QCOMPARE(shown.count(), 5); // nothing beyond the ends
    QCOMPARE(label(), QString("Frame 1 of 4"));
    click(Action::Last);
    QCOMPARE(frames()->currentFrame(), 3);
    QCOMPARE(label(), QString("Frame 4 of 4"));
}

void tst_AnimationEditorWidget::framesOutOfRangeAreIgnored()
{
    QSignalSpy shown(frames(), &FrameEditorWidget::currentFrameChanged);

    m_editor->setCurrentFrame(-1);
    m_editor->setCurrentFrame(2);
    m_editor->setCurrentFrame(0);

    QCOMPARE(shown.count(), 0);
    m_editor->setCurrentFrame(1);
    QCOMPARE(shown.count(), 1);
    QCOMPARE(m_editor->currentFrame(), 1);
}

void tst_AnimationEditorWidget::addAppendsAFrameAndShowsIt()
{
    QSignalSpy contents(m_set->block, &Animation::contentChanged);

    click(Action::Add);

    QCOMPARE(m_set->block->frameCount(), 3);
    QCOMPARE(contents.count(), 1);
    QCOMPARE(m_editor->currentFrame(), 2);
    QCOMPARE(frames()->currentFrame(), 2);
    QCOMPARE(label(), QString("Frame 3 of 3"));
}

void tst_AnimationEditorWidget::deleteShowsTheFrameBefore_data()
{
    QTest::addColumn<int>("deleted");
    QTest::addColumn<int>("shown");
    QTest::addColumn<QString>("text");
    QTest::newRow("the first") << 0 << 0 << QString("Frame 1 of 3");
    QTest::newRow("the second") << 1 << 0 << QString("Frame 1 of 3");
    QTest::newRow("the third") << 2 << 1 << QString("Frame 2 of 3");
    QTest::newRow("the last") << 3 << 2 << QString("Frame 3 of 3");
}

void tst_AnimationEditorWidget::deleteShowsTheFrameBefore()
{
    QFETCH(int, deleted);
    QFETCH(int, shown);
    QFETCH(QString, text);
    addFrames(2);
    const QUuid id = m_set->block->frame(deleted)->id();
    m_editor->setCurrentFrame(deleted);

    click(Action::Delete);

    QCOMPARE(m_set->block->frameCount(), 3);
    for (const auto &frame : m_set->block->frames())
        QVERIFY(frame->id() != id);
    QCOMPARE(m_editor->currentFrame(), shown);
    QCOMPARE(frames()->currentFrame(), shown);
    QCOMPARE(label(), text);
}

void tst_AnimationEditorWidget::deletingTheOnlyFrameLeavesABlankOne()
{
    click(Action::Delete);
    click(Action::Delete);

    QCOMPARE(m_set->block->frameCount(), 1);
    QCOMPARE(cell({0, 0}), AnimationFrame::Cell());
    QCOMPARE(m_editor->currentFrame(), 0);
    QCOMPARE(label(), QString("Frame 1 of 1"));
}

void tst_AnimationEditorWidget::playPauseAndStopDriveTheTimer()
{
    const QTimer &timer = m_editor->timer();
    QCOMPARE(timer.parent(), nullptr);

    click(Action::Play);
    QVERIFY(timer.isActive());
    QCOMPARE(timer.timerType(), Qt::PreciseTimer);
    click(Action::Pause);
    QVERIFY(!timer.isActive());
    click(Action::Pause);
    QVERIFY(!timer.isActive());
    click(Action::Play);
    QVERIFY(timer.isActive());
    click(Action::Stop);
    QVERIFY(!timer.isActive());
    m_editor->play();
    m_editor->pause();
    QVERIFY(!timer.isActive());
    m_editor->play();
    m_editor->stop();
    QVERIFY(!timer.isActive());
}

void tst_AnimationEditorWidget::theTimerPlaysTheFramesRoundAndRound()
{
    addFrames(1);
    QList<int> shown;
    connect(frames(), &FrameEditorWidget::currentFrameChanged, this,
            [&shown](int frame) { shown.append(frame); });

    click(Action::Play);
    QTRY_VERIFY(shown.size() >= 5);
    click(Action::Stop);

    QCOMPARE(shown.mid(0, 5), QList<int>({1, 2, 0, 1, 2}));
    QCOMPARE(label(), QString("Frame %1 of 3").arg(shown.last() + 1));
    QCOMPARE(m_editor->currentFrame(), shown.last());
}

void tst_AnimationEditorWidget::theDelayChangesThePlayback()
{
    click(Action::Play);

    spin("Delay")->setValue(20);

    QVERIFY(m_editor->timer().isActive());
    QCOMPARE(m_editor->timer().interval(), 420);
}

void tst_AnimationEditorWidget::loopAndPingPongDoNothing()
{
    const TileAnimation::State before = m_set->block->tileState();
    m_editor->setCurrentFrame(1);

    m_editor->mediaControlButtonClicked(Action::Loop, true);
    m_editor->mediaControlButtonClicked(Action::PingPong, true);

    QVERIFY(!m_editor->timer().isActive());
    QCOMPARE(m_editor->currentFrame(), 1);
    QCOMPARE(m_set->block->tileState(), before);
}

void tst_AnimationEditorWidget::toolsTurnTheSelectedCell()
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

void tst_AnimationEditorWidget::toolsWithoutACellStayOff()
{
    const TileAnimation::State before = m_set->block->tileState();

    for (const Tool flag : {Tool::RotateCW, Tool::Flip, Tool::Mirror}) {
        QVERIFY(tool(flag)->isCheckable());
        tool(flag)->trigger();
        QVERIFY(!tool(flag)->isChecked());
    }

    QCOMPARE(m_set->block->tileState(), before);
}

void tst_AnimationEditorWidget::aClickShowsTheCellsFlagsAndOffset()
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

void tst_AnimationEditorWidget::theSpinWritesTheOffset()
{
    selectCell({1, 0});

    QTest::keyClick(spin("Palette offset"), Qt::Key_Up);
    QTest::keyClick(spin("Palette offset"), Qt::Key_Up);

    QCOMPARE(cell({1, 0}), AnimationFrame::Cell({5, 2, false, true, true}));
    QCOMPARE(cell({0, 0}).offset, 1);
}

void tst_AnimationEditorWidget::showingAnOffsetWritesNothing()
{
    m_set->block->frame(0)->setCell({1, 0}, {5, 40, false, false, false});
    QSignalSpy edits(m_set->block, &Animation::frameChanged);

    selectCell({1, 0});
    selectCell({0, 0});

    QCOMPARE(cell({1, 0}).offset, 40);
    QCOMPARE(edits.count(), 0);
}

void tst_AnimationEditorWidget::offsetsGoBackToThoseOfTheTiles()
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
    QCOMPARE(m_set->stackOf(m_set->tileSet->id())->count(), 1);
}

void tst_AnimationEditorWidget::offsetsOfMissingTilesBecomeZero()
{
    AnimationFrame *frame = m_set->block->frame(0);
    frame->setCell({0, 0}, {RecordedProject::TileCount, 3, false, false, false});
    frame->setCell({1, 0}, {-1, 4, false, false, false});

    tool(Tool::PaintPalette)->trigger();

    QCOMPARE(cell({0, 0}).offset, 0);
    QCOMPARE(cell({1, 0}).offset, 0);
    QCOMPARE(cell({0, 0}).index, RecordedProject::TileCount);
}

void tst_AnimationEditorWidget::offsetsStayWithoutATileSet()
{
    const TileAnimation::State before = m_set->block->tileState();
    m_set->block->setTileSet(nullptr);

    tool(Tool::PaintPalette)->trigger();

    QCOMPARE(m_set->block->tileState(), before);
}

void tst_AnimationEditorWidget::otherToolsAreLogged()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^Unhandled tool button"));

    m_editor->changeTileState(Tool::Draw, true);
}

void tst_AnimationEditorWidget::droppedTilesAppearInTheFrame()
{
    const auto tile = TileDrag::mimeData({6, 4});
    click(Action::Next);

    QVERIFY(DragEvents::drop(frames(), at({1, 0}), tile.get()));

    QCOMPARE(cell({1, 0}, 1), AnimationFrame::Cell({6, 4, false, true, true}));
    QCOMPARE(frames()->selectedCell(), QPoint(1, 0));
    QCOMPARE(spin("Palette offset")->value(), 4);
}

void tst_AnimationEditorWidget::quickFrameEditsAreOneUndoStep()
{
    QUndoStack *const stack = m_set->stackOf(m_set->tileSet->id());
    const TileAnimation::State before = m_set->block->tileState();
    const auto first = TileDrag::mimeData({6, 4});
    const auto second = TileDrag::mimeData({7, 0});

    DragEvents::drop(frames(), at({0, 0}), first.get());
    m_set->wait(100);
    DragEvents::drop(frames(), at({1, 0}), second.get());
    QCOMPARE(stack->count(), 1);
    QCOMPARE(stack->undoText(), QString("Edit Frames"));
    const TileAnimation::State between = m_set->block->tileState();
    m_set->wait(101);
    tool(Tool::Flip)->trigger();

    QCOMPARE(stack->count(), 2);
    stack->undo();
    QCOMPARE(m_set->block->tileState(), between);
    stack->undo();
    QCOMPARE(m_set->block->tileState(), before);
}

void tst_AnimationEditorWidget::undoBringsBackWhatIsShown()
{
    QUndoStack *const stack = m_set->stackOf(m_set->tileSet->id());
    QTest::keyClick(m_editor->findChild<MapObjectTypeCombo *>(), Qt::Key_Down);
    spin("Delay")->setValue(3);
    spin("Width in tiles")->setValue(4);
    QCOMPARE(stack->count(), 1);

    stack->undo();
    QCOMPARE(m_editor->findChild<MapObjectTypeCombo *>()->currentIndex(), 0);
    QCOMPARE(spin("Delay")->value(), 0);
    QCOMPARE(spin("Width in tiles")->value(), 2);
    QCOMPARE(m_editor->timer().interval(), 20);
    QVERIFY(!stack->canUndo());

    stack->redo();
    QCOMPARE(m_editor->findChild<MapObjectTypeCombo *>()->currentIndex(), 1);
    QCOMPARE(m_editor->timer().interval(), 80);
    QCOMPARE(frames()->size(), QSize(4 * 64, 64));
}

void tst_AnimationEditorWidget::undoTakesTheFrameOnShow()
{
    QUndoStack *const stack = m_set->stackOf(m_set->tileSet->id());
    click(Action::Add);
    QCOMPARE(label(), QString("Frame 3 of 3"));

    stack->undo();
    QCOMPARE(m_editor->currentFrame(), 1);
    QCOMPARE(label(), QString("Frame 2 of 2"));

    stack->redo();
    QCOMPARE(label(), QString("Frame 2 of 3"));
}

void tst_AnimationEditorWidget::aBlockWithoutFramesIsHarmless()
{
    TileAnimation *const empty = m_set->blocks->createTileAnimation("Empty");
    m_editor->setAnimation(empty);

    for (int i = Action::First; i <= Action::Last; ++i)
        click(static_cast<Action>(i));
    m_editor->animate();
    tool(Tool::PaintPalette)->trigger();
    click(Action::Delete);
    QCOMPARE(empty->frameCount(), 0);

    click(Action::Add);
    QCOMPARE(m_editor->currentFrame(), 0);
    QCOMPARE(frames()->currentFrame(), 0);
    QCOMPARE(label(), QString("Frame 1 of 1"));
}

void tst_AnimationEditorWidget::aDyingBlockDisables()
{
    click(Action::Play);
    selectCell({0, 0});

    m_set->blocks->removeAnimation(m_set->block->id());

    QVERIFY(!m_editor->isEnabled());
    QCOMPARE(m_editor->animation(), nullptr);
    QVERIFY(!m_editor->timer().isActive());
    QVERIFY(!m_editor->grab().isNull());
}

QTEST_MAIN(tst_AnimationEditorWidget)
#include "tst_AnimationEditorWidget.moc"
