#include "history/EditRecorder.h"

#include "support/RecordedProject.h"

#include <QSignalSpy>
#include <QTest>

class tst_EditRecorderAnimations : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void frameEditsMergeWithinTheWindow_data();
    void frameEditsMergeWithinTheWindow();
    void blockEditsMergeWithinTheWindow_data() { frameEditsMergeWithinTheWindow_data(); }
    void blockEditsMergeWithinTheWindow();
    void editsOfTwoAnimationsNeverMerge();
    void aSignalWithoutAChangeRecordsNothing();
    void everyKindOfChangeIsRecorded_data();
    void everyKindOfChangeIsRecorded();
    void theTypeOfABlockIsRecorded();
    void aFrameEditBelongsToTheDocumentThatHoldsIt();
    void aBlockListWithoutTilesKeepsItsOwnEdits();
    void restoringTellsTheUsualSignalsAndRecordsNothing();
    void anAnimationMadeLaterIsTracked();
    void anUntrackedAnimationIsIgnored();
    void aStructureChangeIsNoFrameEdit();
    void afterAnUndoTheNextEditStartsFromTheRestoredState();
    void aRemovedAnimationIsSkipped();
    void deletedDocumentsAreSkipped();
    void stepsOutliveTheRecorder();
    void stepsOutliveTheProject();

private:
    QUndoStack *stack() { return m_set->stackOf(m_documentId); }
    static void write(Animation *animation, int index);

    std::unique_ptr<RecordedProject> m_set;
    QUuid m_documentId; // of the stack that records, made active by init()
};

void tst_EditRecorderAnimations::init()
{
    m_set = std::make_unique<RecordedProject>();
    m_documentId = QUuid::createUuid();
    m_set->stacks.setActive(m_documentId);
}

// One cell edit as the frame editor makes it.
void tst_EditRecorderAnimations::write(Animation *animation, int index)
{
    AnimationFrame *frame = animation->frame(0);
    frame->setCell({0, 0}, {index, 0, false, false, false});
    frame->notifyChanged();
}

void tst_EditRecorderAnimations::frameEditsMergeWithinTheWindow_data()
{
    QTest::addColumn<qint64>("later");
    QTest::addColumn<int>("steps");
    QTest::newRow("50 ms") << qint64(50) << 1;
    QTest::newRow("100 ms") << qint64(100) << 1;
    QTest::newRow("150 ms") << qint64(150) << 2;
    QTest::newRow("400 ms") << qint64(400) << 2;
}

void tst_EditRecorderAnimations::frameEditsMergeWithinTheWindow()
{
    QFETCH(qint64, later);
    QFETCH(int, steps);
    const Animation::State before = m_set->animation->state();

    write(m_set->animation, 8);
    const Animation::State between = m_set->animation->state();
    m_set->wait(later);
    write(m_set->animation, 9);

    QCOMPARE(stack()->count(), steps);
    QCOMPARE(stack()->command(0)->id(), 1003);
    QCOMPARE(stack()->undoText(), QStringLiteral("Edit Frames"));
    stack()->undo();
    QCOMPARE(m_set->animation->state(), steps == 1 ? before : between);
}

void tst_EditRecorderAnimations::blockEditsMergeWithinTheWindow()
{
    QFETCH(qint64, later);
    QFETCH(int, steps);
    const TileAnimation::State before = m_set->block->tileState();

    write(m_set->block, 6);
    const TileAnimation::State between = m_set->block->tileState();
    m_set->wait(later);
    write(m_set->block, 7);

    QCOMPARE(stack()->count(), steps);
    QCOMPARE(stack()->command(0)->id(), 1002);
    QCOMPARE(stack()->undoText(), QStringLiteral("Edit Frames"));
    stack()->undo();
    QCOMPARE(m_set->block->tileState(), steps == 1 ? before : between);
}

void tst_EditRecorderAnimations::editsOfTwoAnimationsNeverMerge()
{
    const QPointer<SpriteAnim> other = m_set->sprites->createAnimation();

    write(m_set->animation, 2);
    write(other, 2);
    write(m_set->animation, 3);

    QCOMPARE(stack()->count(), 3);
}

void tst_EditRecorderAnimations::aSignalWithoutAChangeRecordsNothing()
{
    m_set->animation->notifyContentChanged();
    m_set->block->notifyContentChanged();
    m_set->block->setDelay(m_set->block->delay());

    QCOMPARE(stack()->count(), 0);
}

void tst_EditRecorderAnimations::everyKindOfChangeIsRecorded_data()
{
    using Edit = std::function<void(Animation *)>;
    QTest::addColumn<Edit>("edit");
    QTest::newRow("a cell") << Edit([](Animation *animation) { write(animation, 30); });
    QTest::newRow("wider") << Edit([](Animation *animation) { animation->setWidth(5); });
    QTest::newRow("higher") << Edit([](Animation *animation) { animation->setHeight(3); });
    QTest::newRow("delay") << Edit([](Animation *animation) { animation->setDelay(7); });
    QTest::newRow("frame gone") << Edit([](Animation *animation) { animation->removeFrame(0); });
    QTest::newRow("frame added") << Edit([](Animation *animation) {
        animation->addFrame();
        animation->notifyContentChanged();
    });
}

void tst_EditRecorderAnimations::everyKindOfChangeIsRecorded()
{
    QFETCH(std::function<void(Animation *)>, edit);
    for (Animation *animation : QList<Animation *>{m_set->animation, m_set->block}) {
        const int steps = stack()->count();
        const Animation::State before = animation->state();

        edit(animation);
        const Animation::State after = animation->state();

        QVERIFY(before != after);
        QCOMPARE(stack()->count(), steps + 1);
        stack()->undo();
        QCOMPARE(animation->state(), before);
        stack()->redo();
        QCOMPARE(animation->state(), after);
    }
}

void tst_EditRecorderAnimations::theTypeOfABlockIsRecorded()
{
    m_set->block->setMapObjectType(MapObjectType::HorizontalPlatform);

    QCOMPARE(stack()->count(), 1);
    stack()->undo();
    QCOMPARE(m_set->block->type(), MapObjectType::Normal);
    stack()->redo();
    QCOMPARE(m_set->block->type(), MapObjectType::HorizontalPlatform);
}

void tst_EditRecorderAnimations::aFrameEditBelongsToTheDocumentThatHoldsIt()
{
    m_set->stacks.clearActive();

    write(m_set->animation, 9);
    write(m_set->block, 7);

    QCOMPARE(m_set->stackOf(m_set->sprites->id())->count(), 1);
    QCOMPARE(m_set->stackOf(m_set->tileSet->id())->count(), 1);
}

void tst_EditRecorderAnimations::aBlockListWithoutTilesKeepsItsOwnEdits()
{
    m_set->stacks.clearActive();
    m_set->blocks->setTileSet(nullptr);

    write(m_set->block, 7);

    QCOMPARE(m_set->stackOf(m_set->blocks->id())->count(), 1);
}

void tst_EditRecorderAnimations::restoringTellsTheUsualSignalsAndRecordsNothing()
{
    write(m_set->animation, 9);
    QStringList told;
    connect(m_set->animation, &Animation::sizeChanged, this,
            [&] { told += QStringLiteral("size"); });
    connect(m_set->animation, &Animation::frameChanged, this,
            [&](int index) { told += QStringLiteral("frame %1").arg(index); });
    connect(m_set->animation, &Animation::contentChanged, this,
            [&] { told += QStringLiteral("content"); });

    stack()->undo();

    QCOMPARE(told, (QStringList{"size", "frame 0", "content"}));
    QCOMPARE(stack()->count(), 1);
    QVERIFY(stack()->canRedo());
}

void tst_EditRecorderAnimations::anAnimationMadeLaterIsTracked()
{
    const QPointer<SpriteAnim> animation = m_set->sprites->createAnimation();
    const QPointer<TileAnimation> block =
        m_set->blocks->createTileAnimation(QStringLiteral("Lift"));
    QCOMPARE(stack()->count(), 0);

    write(animation, 9);
    block->addFrame();
    block->notifyContentChanged();

    QCOMPARE(stack()->count(), 2);
    stack()->undo();
    QCOMPARE(block->frameCount(), 0);
    stack()->undo();
    QCOMPARE(animation->frame(0)->cell({0, 0}).index, 0);
}

void tst_EditRecorderAnimations::anUntrackedAnimationIsIgnored()
{
    SpriteBank loose(Tessaril::Sprite::FourBit);
    SpriteAnim *animation = loose.createAnimation();
    MapObjects looseBlocks;
    TileAnimation *block = looseBlocks.createTileAnimation(QStringLiteral("Lift"));

    m_set->recorder->spriteAnimationChanged(animation, loose.id());
    m_set->recorder->tileAnimationChanged(block, looseBlocks.id());

    QCOMPARE(stack()->count(), 0);
}

void tst_EditRecorderAnimations::aStructureChangeIsNoFrameEdit()
{
    emit m_set->sprites->structureAboutToChange();
    m_set->sprites->deleteSprite(1);
    emit m_set->sprites->structureChanged(QStringLiteral("Delete Sprite"));
    m_set->animation->notifyContentChanged();
    QCOMPARE(stack()->count(), 1);

    const Animation::State renumbered = m_set->animation->state();
    write(m_set->animation, 9);
    stack()->undo();

    QCOMPARE(m_set->animation->state(), renumbered);
}

void tst_EditRecorderAnimations::afterAnUndoTheNextEditStartsFromTheRestoredState()
{
    emit m_set->sprites->structureAboutToChange();
    m_set->sprites->deleteSprite(1);
    emit m_set->sprites->structureChanged(QStringLiteral("Delete Sprite"));
    stack()->undo();
    const Animation::State restored = m_set->animation->state();

    write(m_set->animation, 9);
    QCOMPARE(stack()->undoText(), QStringLiteral("Edit Frames"));
    stack()->undo();

    QCOMPARE(m_set->animation->state(), restored);
}

void tst_EditRecorderAnimations::aRemovedAnimationIsSkipped()
{
    write(m_set->animation, 9);
    write(m_set->block, 7);
    m_set->sprites->removeAnimation(m_set->animation->id());
    m_set->blocks->removeAnimation(m_set->block->id());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!m_set->animation && !m_set->block);

    stack()->setIndex(0);
    stack()->setIndex(2);

    QCOMPARE(stack()->count(), 2);
}

void tst_EditRecorderAnimations::deletedDocumentsAreSkipped()
{
    m_set->palette->setColour(3, Qt::white, false);
    m_set->tileSet->insertTile(0);
    emit m_set->sprites->structureAboutToChange();
    m_set->sprites->addSprite();
    emit m_set->sprites->structureChanged(QStringLiteral("Add Sprite"));
    write(m_set->animation, 9);
    write(m_set->block, 7);
    QCOMPARE(stack()->count(), 5);

    QVERIFY(m_set->project.deleteMap(m_set->map->id()));
    QVERIFY(m_set->project.deleteBlocks(m_set->blocks->id()));
    QVERIFY(m_set->project.deleteTileSet(m_set->tileSet->id()));
    QVERIFY(m_set->project.deleteSpriteBank(m_set->sprites->id()));
    QVERIFY(m_set->project.deletePalette(m_set->palette->id()));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    stack()->setIndex(0);
    stack()->setIndex(5);
    QCOMPARE(stack()->count(), 5);
}

void tst_EditRecorderAnimations::stepsOutliveTheRecorder()
{
    m_set->tileSet->insertTile(0);
    write(m_set->animation, 9);
    m_set->recorder.reset();

    stack()->setIndex(0);
    stack()->setIndex(2);

    QCOMPARE(m_set->tileSet->count(), RecordedProject::TileCount + 1);
}

void tst_EditRecorderAnimations::stepsOutliveTheProject()
{
    auto project = std::make_unique<Project>();
    const auto palette = project->createPalette(CreateBlank, QStringLiteral("Night"));
    const auto tileSet = project->createTileSet(QStringLiteral("New"), palette->id(), 2);
    const EditRecorder recorder(project.get(), [this](const QUuid &) { return stack(); });
    tileSet->insertTile(0);
    palette->setColour(1, Qt::white, false);
    project.reset();

    stack()->setIndex(0);
    stack()->setIndex(2);

    QCOMPARE(stack()->count(), 2);
}

QTEST_GUILESS_MAIN(tst_EditRecorderAnimations)
#include "tst_EditRecorderAnimations.moc"
