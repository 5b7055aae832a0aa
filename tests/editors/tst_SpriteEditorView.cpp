#include "editors/SpriteEditorView.h"

#include "editors/AnimationListWidget.h"
#include "editors/FrameEditorWidget.h"
#include "editors/SpriteDrag.h"
#include "editors/SpriteEditorToolBar.h"
#include "support/DragEvents.h"
#include "support/RecordedProject.h"
#include "uikit/ToolPalette.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <memory>

using AnimationEditor::AnimationListWidget;
using AnimationEditor::FrameEditorWidget;
using Action = AnimationControlWidget::Action;
using Tool = Tessaril::Ui::ToolButton;

class tst_SpriteEditorView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void startsWithoutAnAnimation();
    void listsTheBanksAnimations();
    void selectingFillsTheToolBar();
    void selectingSetsTheInterval_data();
    void selectingSetsTheInterval();
    void addingSelectsANewAnimation();
    void cloningCopiesFramesAndDelay();
    void deletingSelectsTheNext();
    void deletingTheLastOneDisables();
    void theTransportStepsThroughFrames();
    void addAndDeleteChangeTheFrames();
    void deletingTheOnlyFrameLeavesABlankOne();
    void playPauseAndStopDriveTheTimer();
    void theTimerPlaysTheFramesRoundAndRound();
    void playingEndsWithoutAnimation();
    void transportNeedsAnAnimation();
    void addingStopsThePlayback();
    void toolsZoomTheFrame();
    void toolsTurnTheSelectedCell();
    void toolsShowTheSelectedCellsFlags();
    void theToolBarEditsTheAnimation();
    void droppedSpritesAppearInTheFrame();
    void quickFrameEditsAreOneUndoStep();
    void undoBringsBackSizeAndDelay();
    void cloningIsNoUndoStep();
    void changedSpritesAreDrawnAnew();
    void coloursOfAnotherPaletteAreFollowed();
    void anAnimationDeletedElsewhereLeavesTheView();
    void aBankThatDiesEmptiesTheView();
    void theEditMenuCopiesCells();

private:
    template <typename Widget>
    Widget *child() const
    {
        return m_view->findChild<Widget *>();
    }
    AnimationControlWidget *controls() const { return child<AnimationControlWidget>(); }
    FrameEditorWidget *frames() const { return child<FrameEditorWidget>(); }
    AnimationListWidget *list() const { return child<AnimationListWidget>(); }
    QTimer *timer() const
    {
        return m_view->findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    }
    QAction *tool(Tool button) const { return child<ToolPalette>()->action(button); }
    QSpinBox *spin(const QString &name) const;
    QString label() const { return controls()->findChild<QLabel *>()->text(); }
    void click(Action action);
    void select(Animation *animation) { list()->addAnimation(animation, true); }
    void selectCell(QPoint cell);
    void drop(int sprite, QPoint cell);

    std::unique_ptr<RecordedProject> m_project; // whose animation is 4 by 1 cells in one frame
    std::unique_ptr<SpriteEditor::View> m_view;
};

void tst_SpriteEditorView::initTestCase()
{
    qRegisterMetaType<Animation *>();
}

void tst_SpriteEditorView::init()
{
    m_project = std::make_unique<RecordedProject>();
    m_project->animation->setName("Walk");
    m_view = std::make_unique<SpriteEditor::View>(m_project->sprites);
    m_view->resize(900, 500);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void tst_SpriteEditorView::cleanup()
{
    m_view.reset();
    m_project.reset();
}

QSpinBox *tst_SpriteEditorView::spin(const QString &name) const
{
    for (QSpinBox *one : m_view->findChildren<QSpinBox *>()) {
        if (one->accessibleName() == name)
            return one;
    }
    return nullptr;
}

void tst_SpriteEditorView::click(Action action)
{
    QTest::mouseClick(controls()->findChildren<QToolButton *>().at(action), Qt::LeftButton);
}

void tst_SpriteEditorView::selectCell(QPoint cell)
{
    const int side = 16 * frames()->scale();
    QTest::mouseClick(frames(), Qt::LeftButton, {}, cell * side + QPoint(side / 2, side / 2));
}

void tst_SpriteEditorView::drop(int sprite, QPoint cell)
{
    const int side = 16 * frames()->scale();
    QVERIFY(
        DragEvents::drop(frames(), cell * side + QPoint(3, 3), SpriteDrag::mimeData(sprite).get()));
}

void tst_SpriteEditorView::startsWithoutAnAnimation()
{
    QCOMPARE(m_view->orientation(), Qt::Horizontal);
    QCOMPARE(m_view->widget(0), list());
    QVERIFY(!child<ToolPalette>()->isEnabled());
    QVERIFY(!controls()->isEnabled());
    QVERIFY(!frames()->isEnabled());
    QVERIFY(!child<SpriteEditor::ToolBar>()->isEnabled());
    QVERIFY(!timer()->isActive());
    for (const Tool flag : {Tool::RotateCW, Tool::Flip, Tool::Mirror})
        QVERIFY(tool(flag)->isCheckable());
    QVERIFY(!tool(Tool::ZoomIn)->isCheckable());
    QCOMPARE(spin("Width in sprites")->maximum(), 16);
    QCOMPARE(spin("Height in sprites")->minimum(), 1);
    QCOMPARE(spin("Delay")->maximum(), 50);
    QCOMPARE(child<SpriteEditor::ToolBar>()->findChild<QLineEdit *>()->placeholderText(),
             QString("Enter a name..."));
}

void tst_SpriteEditorView::listsTheBanksAnimations()
{
    QCOMPARE(list()->count(), 1);
    QCOMPARE(list()->findChild<QListWidget *>()->item(0)->text(),
             QString("Walk\n1 frame(s) [4x1]"));
    m_project->sprites->createAnimation();
    QCOMPARE(list()->count(), 2);
    QCOMPARE(list()->currentAnimation(), nullptr);
}

void tst_SpriteEditorView::selectingFillsTheToolBar()
{
    m_project->animation->setDelay(3);
    tool(Tool::Flip)->setChecked(true);
    auto *items = list()->findChild<QListWidget *>();

    QTest::mouseClick(items->viewport(), Qt::LeftButton, {},
                      items->visualItemRect(items->item(0)).center());

    QCOMPARE(child<SpriteEditor::ToolBar>()->findChild<QLineEdit *>()->text(), QString("Walk"));
    QCOMPARE(spin("Width in sprites")->value(), 4);
    QCOMPARE(spin("Height in sprites")->value(), 1);
    QCOMPARE(spin("Delay")->value(), 3);
    QVERIFY(!tool(Tool::Flip)->isChecked());
    QVERIFY(child<ToolPalette>()->isEnabled() && controls()->isEnabled());
    QCOMPARE(frames()->animation(), m_project->animation);
    QCOMPARE(label(), QString("Frame 1 of 1"));
}

void tst_SpriteEditorView::selectingSetsTheInterval_data()
{
    QTest::addColumn<int>("delay");
    QTest::addColumn<int>("milliseconds");

    QTest::newRow("no delay") << 0 << 20;
    QTest::newRow("one") << 1 << 40;
    QTest::newRow("two") << 2 << 60;
    QTest::newRow("longest") << 50 << 1020;
}

void tst_SpriteEditorView::selectingSetsTheInterval()
{
    QFETCH(int, delay);
    QFETCH(int, milliseconds);
    m_project->animation->setDelay(delay);

    select(m_project->animation);

    QCOMPARE(timer()->interval(), milliseconds);
}

void tst_SpriteEditorView::addingSelectsANewAnimation()
{
    QTest::mouseClick(list()->findChild<QPushButton *>(), Qt::LeftButton);

    QCOMPARE(m_project->sprites->animations().size(), 2);
    QCOMPARE(list()->count(), 2);
    QVERIFY(list()->currentAnimation() != m_project->animation);
    QCOMPARE(frames()->animation(), list()->currentAnimation());
    QCOMPARE(list()->currentAnimation()->name(), QString("New Sprite"));
}

void tst_SpriteEditorView::cloningCopiesFramesAndDelay()
{
    SpriteAnim *walk = m_project->animation;
    walk->setDelay(7);
    walk->addFrame()->setCell({2, 0}, {.index = 3, .flip = true});

    emit list()->cloneRequested(walk);

    const Animation *copy = list()->currentAnimation();
    QVERIFY(copy && copy != walk);
    QCOMPARE(copy->name(), QString("Walk (copy)"));
    QCOMPARE(copy->state(), walk->state());
    QVERIFY(copy->id() != walk->id());
    QCOMPARE(m_project->sprites->animations().size(), 2);
    QCOMPARE(list()->findChild<QListWidget *>()->currentItem()->text(),
             QString("Walk (copy)\n2 frame(s) [4x1]"));
}

void tst_SpriteEditorView::deletingSelectsTheNext()
{
    SpriteAnim *other = m_project->sprites->createAnimation();
    select(m_project->animation);
    timer()->start();

    QTest::mouseClick(list()->findChildren<QPushButton *>().at(1), Qt::LeftButton);

    QVERIFY(!timer()->isActive());
    QVERIFY(!m_project->animation);
    QCOMPARE(m_project->sprites->animations().size(), 1);
    QCOMPARE(list()->currentAnimation(), other);
    QCOMPARE(frames()->animation(), other);
    QVERIFY(frames()->isEnabled());
}

void tst_SpriteEditorView::deletingTheLastOneDisables()
{
    m_view->deleteAnimation(); // without a selection
    QVERIFY(m_project->animation);
    select(m_project->animation);

    m_view->deleteAnimation();

    QVERIFY(m_project->sprites->animations().isEmpty());
    QCOMPARE(list()->count(), 0);
    QVERIFY(!frames()->isEnabled() && !controls()->isEnabled());
    QVERIFY(!child<SpriteEditor::ToolBar>()->isEnabled());
}

void tst_SpriteEditorView::theTransportStepsThroughFrames()
{
    m_project->animation->addFrame();
    m_project->animation->addFrame();
    select(m_project->animation);

    QList<int> shown;
    QStringList labels;
    for (const Action action : {Action::Next, Action::Next, Action::Next, Action::Previous,
                                Action::First, Action::Previous, Action::Last}) {
        click(action);
        shown.append(frames()->currentFrame());
        labels.append(label().section(' ', 1, 1));
    }

    QCOMPARE(shown, QList<int>({1, 2, 2, 1, 0, 0, 2}));
    QCOMPARE(labels, QStringList({"2", "3", "3", "2", "1", "1", "3"}));
}

void tst_SpriteEditorView::addAndDeleteChangeTheFrames()
{
    select(m_project->animation);
    QSignalSpy changed(m_project->animation, &Animation::contentChanged);

    click(Action::Add);
    click(Action::Add);
    QCOMPARE(m_project->animation->frameCount(), 3);
    QCOMPARE(m_project->animation->frame(2)->cells().first().size(), 4);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(frames()->currentFrame(), 2);
    QCOMPARE(label(), QString("Frame 3 of 3"));

    click(Action::Delete);
    QCOMPARE(m_project->animation->frameCount(), 2);
    QCOMPARE(frames()->currentFrame(), 1);
    QCOMPARE(label(), QString("Frame 2 of 2"));
    click(Action::First);
    click(Action::Delete);
    QCOMPARE(label(), QString("Frame 1 of 1"));
}

void tst_SpriteEditorView::deletingTheOnlyFrameLeavesABlankOne()
{
    select(m_project->animation);
    const QUuid id = m_project->animation->frame(0)->id();

    click(Action::Delete);

    QCOMPARE(m_project->animation->frameCount(), 1);
    QVERIFY(m_project->animation->frame(0)->id() != id);
    QCOMPARE(m_project->animation->frame(0)->cell({3, 0}), AnimationFrame::Cell());
    QCOMPARE(frames()->currentFrame(), 0);
    QCOMPARE(label(), QString("Frame 1 of 1"));
}

void tst_SpriteEditorView::playPauseAndStopDriveTheTimer()
{
    select(m_project->animation);

    click(Action::Play);
    QVERIFY(timer()->isActive());
    click(Action::Pause);
    QVERIFY(!timer()->isActive());
    click(Action::Pause);
    QVERIFY(timer()->isActive());
    click(Action::Loop);
    QVERIFY(timer()->isActive());
    click(Action::Stop);
    QVERIFY(!timer()->isActive());
}

void tst_SpriteEditorView::theTimerPlaysTheFramesRoundAndRound()
{
    m_project->animation->addFrame();
    m_project->animation->addFrame();
    select(m_project->animation);
    QSignalSpy shown(frames(), &FrameEditorWidget::currentFrameChanged);

    click(Action::Play);
    QCOMPARE(timer()->interval(), 20); // one tick for each frame
    QVERIFY(!timer()->isSingleShot());
    QTRY_VERIFY(shown.count() >= 5);
    click(Action::Stop);

    for (int i = 0; i < shown.count(); ++i)
        QCOMPARE(shown.at(i).at(0).toInt(), i % 3);
    const int last = (static_cast<int>(shown.count()) - 1) % 3;
    QCOMPARE(label(), QString("Frame %1 of 3").arg(last + 1));
}

void tst_SpriteEditorView::playingEndsWithoutAnimation()
{
    select(m_project->animation);
    click(Action::Play);
    m_view->changeAnim(nullptr);
    QVERIFY(timer()->isActive());

    m_view->animate();

    QVERIFY(!timer()->isActive());
}

void tst_SpriteEditorView::transportNeedsAnAnimation()
{
    for (int action = Action::First; action <= Action::PingPong; ++action)
        m_view->animButtonClicked(static_cast<Action>(action), false);

    QVERIFY(!timer()->isActive());
    QCOMPARE(m_project->animation->frameCount(), 1);
}

void tst_SpriteEditorView::addingStopsThePlayback()
{
    select(m_project->animation);
    click(Action::Play);
    m_view->addAnimation();
    QVERIFY(!timer()->isActive());
    click(Action::Play);
    m_view->cloneAnimation(m_project->animation);
    QVERIFY(!timer()->isActive());
}

void tst_SpriteEditorView::toolsZoomTheFrame()
{
    select(m_project->animation);

    tool(Tool::ZoomIn)->trigger();
    QCOMPARE(frames()->size(), QSize(4 * 256, 256));
    tool(Tool::ZoomOut)->trigger();
    tool(Tool::ZoomOut)->trigger();
    QCOMPARE(frames()->size(), QSize(4 * 64, 64));
}

void tst_SpriteEditorView::toolsTurnTheSelectedCell()
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

void tst_SpriteEditorView::toolsShowTheSelectedCellsFlags()
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

void tst_SpriteEditorView::theToolBarEditsTheAnimation()
{
    select(m_project->animation);
    auto *name = child<SpriteEditor::ToolBar>()->findChild<QLineEdit *>();
    QSignalSpy delayed(child<SpriteEditor::ToolBar>(), &SpriteEditor::ToolBar::delayChanged);
    name->clear();

    QTest::keyClicks(name, "Run");
    QTest::keyClick(spin("Width in sprites"), Qt::Key_Up);
    QTest::keyClick(spin("Height in sprites"), Qt::Key_Up);
    QTest::keyClick(spin("Delay"), Qt::Key_Up);

    QCOMPARE(m_project->animation->name(), QString("Run"));
    QCOMPARE(m_project->animation->size(), QSize(5, 2));
    QCOMPARE(m_project->animation->delay(), 1);
    QCOMPARE(delayed.count(), 1);
    QCOMPARE(delayed.at(0).at(0).toInt(), 1);
    QCOMPARE(timer()->interval(), 40);
    QCOMPARE(list()->findChild<QListWidget *>()->item(0)->text(), QString("Run\n1 frame(s) [5x2]"));
}

void tst_SpriteEditorView::droppedSpritesAppearInTheFrame()
{
    select(m_project->animation);

    drop(3, {0, 0});

    const QColor expected(m_project->palette->colourTable().at(23));
    QCOMPARE(frames()->grab().toImage().pixelColor(64, 64), expected);
    const AnimationFrame::Cell cell = m_project->animation->frame(0)->cell({0, 0});
    QCOMPARE(cell.index, 3);
    QCOMPARE(cell.offset, 2);
}

void tst_SpriteEditorView::quickFrameEditsAreOneUndoStep()
{
    QUndoStack *stack = m_project->stackOf(m_project->sprites->id());
    select(m_project->animation);

    drop(3, {0, 0});
    m_project->wait(EditRecorder::FrameMergeWindowMs);
    tool(Tool::Flip)->trigger();
    QCOMPARE(stack->count(), 1);
    QCOMPARE(stack->undoText(), QString("Edit Frames"));
    m_project->wait(EditRecorder::FrameMergeWindowMs + 1);
    drop(2, {1, 0});
    QCOMPARE(stack->count(), 2);

    stack->undo();
    QCOMPARE(m_project->animation->frame(0)->cell({1, 0}).index, 1);
    QVERIFY(m_project->animation->frame(0)->cell({0, 0}).flip);
    stack->undo();
    const AnimationFrame::Cell first{.index = 0, .offset = 2, .mirror = true};
    QCOMPARE(m_project->animation->frame(0)->cell({0, 0}), first);
}

void tst_SpriteEditorView::undoBringsBackSizeAndDelay()
{
    QUndoStack *stack = m_project->stackOf(m_project->sprites->id());
    select(m_project->animation);
    spin("Delay")->setValue(4);
    spin("Width in sprites")->setValue(2);
    click(Action::Add);
    QCOMPARE(stack->count(), 1);

    stack->undo();

    QCOMPARE(m_project->animation->size(), QSize(4, 1));
    QCOMPARE(spin("Width in sprites")->value(), 4);
    QCOMPARE(spin("Delay")->value(), 0);
    QCOMPARE(timer()->interval(), 20);
    QCOMPARE(frames()->currentFrame(), 0);
    QCOMPARE(label(), QString("Frame 1 of 1"));
    QCOMPARE(stack->count(), 1);
}

void tst_SpriteEditorView::cloningIsNoUndoStep()
{
    QUndoStack *stack = m_project->stackOf(m_project->sprites->id());
    m_project->animation->setDelay(7);
    m_project->wait(1000);
    const int before = stack->count();

    m_view->cloneAnimation(m_project->animation);
    QCOMPARE(stack->count(), before);
    drop(3, {0, 0});
    stack->undo();

    QCOMPARE(list()->currentAnimation()->state(), m_project->animation->state());
}

void tst_SpriteEditorView::changedSpritesAreDrawnAnew()
{
    select(m_project->animation);
    const auto *items = list()->findChild<QListWidget *>();
    frames()->grab();

    QImage sprite = m_project->sprites->sprite(0);
    sprite.fill(30);
    m_project->sprites->setImage(0, sprite);

    const QColor expected(m_project->palette->colourTable().at(30));
    QCOMPARE(frames()->grab().toImage().pixelColor(64, 64), expected);
    QCOMPARE(items->item(0)->icon().pixmap(48).toImage().pixelColor(4, 4), expected);
    m_project->palette->setColour(30, Qt::white, false);
    QCOMPARE(frames()->grab().toImage().pixelColor(64, 64), QColor(Qt::white));
    m_project->sprites->deleteSprite(0);
    const QColor next(m_project->palette->colourTable().at(21));
    QCOMPARE(frames()->grab().toImage().pixelColor(64, 64), next);
}

void tst_SpriteEditorView::coloursOfAnotherPaletteAreFollowed()
{
    Palette *other = m_project->project.createPalette(CreateDefault, "Other");
    select(m_project->animation);
    m_project->sprites->setPalette(other);
    emit m_project->sprites->imageChanged(0);
    frames()->grab();

    other->setColour(20, Qt::white, false);

    QCOMPARE(frames()->grab().toImage().pixelColor(64, 64), QColor(Qt::white));
}

void tst_SpriteEditorView::anAnimationDeletedElsewhereLeavesTheView()
{
    SpriteAnim *other = m_project->sprites->createAnimation();
    select(m_project->animation);

    m_project->sprites->removeAnimation(m_project->animation->id());

    QCOMPARE(list()->currentAnimation(), other);
    QCOMPARE(frames()->animation(), other);
    QVERIFY(frames()->isEnabled());
    QCOMPARE(child<SpriteEditor::ToolBar>()->findChild<QLineEdit *>()->text(),
             QString("New Sprite"));
}

void tst_SpriteEditorView::aBankThatDiesEmptiesTheView()
{
    m_project->sprites->createAnimation();
    select(m_project->animation);
    click(Action::Play);

    m_project->project.deleteSpriteBank(m_project->sprites->id());

    QCOMPARE(list()->count(), 0);
    QVERIFY(!frames()->isEnabled());
    m_view->grab();
    m_view->addAnimation();
    m_view->cloneAnimation(nullptr);
    m_view->deleteAnimation();
    m_view->animate();
    m_view->copy();
    m_view->updatePalette(0, Qt::red, false);
    QVERIFY(!timer()->isActive());
}

void tst_SpriteEditorView::theEditMenuCopiesCells()
{
    select(m_project->animation);
    selectCell({3, 0});

    m_view->copy();
    QVERIFY(QGuiApplication::clipboard()->mimeData()->hasImage());
    selectCell({0, 0});
    m_view->paste();
    const AnimationFrame::Cell pasted{.index = 3, .offset = 2, .mirror = true};
    QCOMPARE(m_project->animation->frame(0)->cell({0, 0}), pasted);
    m_view->cut();
    QCOMPARE(m_project->animation->frame(0)->cell({0, 0}), AnimationFrame::Cell());
    m_view->selectNone();
    QCOMPARE(frames()->selectedCell().x(), -1);
    m_view->paste();
    QCOMPARE(m_project->animation->frame(0)->cell({0, 0}), AnimationFrame::Cell());
}

QTEST_MAIN(tst_SpriteEditorView)
#include "tst_SpriteEditorView.moc"
