#include "history/EditRecorder.h"

#include "support/RecordedProject.h"

#include <QDateTime>
#include <QSignalSpy>
#include <QTest>

class tst_EditRecorder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aColourEditGoesToThePalettesOwnStackWithoutAnActiveOne();
    void aColourEditGoesToTheActiveStack();
    void withoutAStackTheStepIsDroppedAndTheEditStays();
    void coloursWithinTheWindowAreOneStep_data();
    void coloursWithinTheWindowAreOneStep();
    void undoingAColourRecordsNothing();
    void aPriorityAloneIsRecorded();
    void aChangeWithoutItsWarningRecordsNothing();
    void aWarningCountsForOneChangeOnly();
    void aStructureChangeIsOneStepInTheModelsWords();
    void undoingATileInsertRecordsNothing();
    void whatARestoreSetsOffIsNotRecorded();
    void undoOfATileDeletionRestoresTilesMapsAndBlocks();
    void aTileIsRestoredWholly();
    void restoringATileSetTellsItLast();
    void aMapDeletedAfterTheEditIsSkipped();
    void mapsOfAnotherTileSetAreLeftAlone();
    void aSwapIsUndoneInBlockLists();
    void restoredTilesHaveThePresentColours();
    void aPaletteBoundSinceLeavesRestoredTilesAlone();
    void undoOfASpriteDeletionRestoresStripAndAnimations();
    void restoringABankTellsCountAndRestoredOnce();
    void placedSpritesComeBackWithTheirSprite();
    void restoredSpritesHaveThePresentColours();
    void documentsMadeLaterAreTracked();
    void trackingTwiceRecordsOnce();
    void theClockIsTheTimeSinceTheEpoch();

private:
    QUndoStack *stack() { return m_set->stackOf(m_documentId); }
    void swapFirstTiles();

    std::unique_ptr<RecordedProject> m_set;
    QUuid m_documentId; // of the stack that records, made active by init()
};

void tst_EditRecorder::init()
{
    m_set = std::make_unique<RecordedProject>();
    m_documentId = QUuid::createUuid();
    m_set->stacks.setActive(m_documentId);
}

// What the tile picker does when tile 0 is dragged to place 1.
void tst_EditRecorder::swapFirstTiles()
{
    TileSet *tileSet = m_set->tileSet;
    emit tileSet->structureAboutToChange();
    const QImage first = tileSet->tile(0)->image();
    tileSet->tile(0)->setImage(tileSet->tile(1)->image());
    tileSet->tile(1)->setImage(first);
    emit tileSet->tileSwapped(0, 1);
    emit tileSet->structureChanged(QStringLiteral("Move Tile"));
}

void tst_EditRecorder::aColourEditGoesToThePalettesOwnStackWithoutAnActiveOne()
{
    m_set->stacks.clearActive();

    m_set->palette->setColour(3, Qt::white, false);

    QUndoStack *own = m_set->stackOf(m_set->palette->id());
    QCOMPARE(own->count(), 1);
    QCOMPARE(own->undoText(), QStringLiteral("Colour"));
    own->undo();
    QCOMPARE(m_set->palette->word(3), quint16(0x0301));
}

void tst_EditRecorder::aColourEditGoesToTheActiveStack()
{
    m_set->palette->setColour(3, Qt::white, false);

    QCOMPARE(stack()->count(), 1);
    QCOMPARE(m_set->stackOf(m_set->palette->id())->count(), 0);
}

void tst_EditRecorder::withoutAStackTheStepIsDroppedAndTheEditStays()
{
    m_set->recorder = std::make_unique<EditRecorder>(
        &m_set->project, [](const QUuid &) -> QUndoStack * { return nullptr; });

    m_set->palette->setColour(3, Qt::white, false);
    m_set->tileSet->insertTile(0);

    QCOMPARE(m_set->palette->word(3), quint16(0xFF01));
    QCOMPARE(m_set->tileSet->count(), RecordedProject::TileCount + 1);
    QCOMPARE(stack()->count(), 0);
}

void tst_EditRecorder::coloursWithinTheWindowAreOneStep_data()
{
    QTest::addColumn<qint64>("later");
    QTest::addColumn<int>("steps");
    QTest::newRow("400 ms") << qint64(400) << 1;
    QTest::newRow("401 ms") << qint64(401) << 2;
}

void tst_EditRecorder::coloursWithinTheWindowAreOneStep()
{
    QFETCH(qint64, later);
    QFETCH(int, steps);

    m_set->palette->setColour(3, Qt::white, false);
    m_set->wait(later);
    m_set->palette->setColour(4, Qt::white, false);

    QCOMPARE(stack()->count(), steps);
    stack()->setIndex(0);
    QCOMPARE(m_set->palette->word(3), quint16(0x0301));
    QCOMPARE(m_set->palette->word(4), quint16(0x0400));
}

void tst_EditRecorder::undoingAColourRecordsNothing()
{
    m_set->palette->setColour(3, Qt::white, false);

    stack()->undo();

    QCOMPARE(stack()->count(), 1);
    QVERIFY(stack()->canRedo());
}

void tst_EditRecorder::aPriorityAloneIsRecorded()
{
    m_set->palette->setColour(0, Qt::black, true);

    QCOMPARE(stack()->count(), 1);
    stack()->undo();
    QVERIFY(!m_set->palette->priority(0));
}

void tst_EditRecorder::aChangeWithoutItsWarningRecordsNothing()
{
    emit m_set->tileSet->structureChanged(QStringLiteral("Move Tile"));
    emit m_set->sprites->structureChanged(QStringLiteral("Add Sprite"));

    QCOMPARE(stack()->count(), 0);
}

void tst_EditRecorder::aWarningCountsForOneChangeOnly()
{
    emit m_set->tileSet->structureAboutToChange();
    emit m_set->tileSet->structureChanged(QStringLiteral("Move Tile"));
    emit m_set->tileSet->structureChanged(QStringLiteral("Move Tile"));

    QCOMPARE(stack()->count(), 1);
}

void tst_EditRecorder::aStructureChangeIsOneStepInTheModelsWords()
{
    m_set->tileSet->insertTile(2);
    m_set->tileSet->deleteTile(0);
    m_set->tileSet->copyTile(1, 3);

    QCOMPARE(stack()->count(), 3);
    QCOMPARE(stack()->text(0), QStringLiteral("Insert Tile"));
    QCOMPARE(stack()->text(1), QStringLiteral("Delete Tile"));
    QCOMPARE(stack()->text(2), QStringLiteral("Copy Tile"));
    QCOMPARE(stack()->command(0)->id(), -1);
}

void tst_EditRecorder::undoingATileInsertRecordsNothing()
{
    m_set->tileSet->insertTile(2);

    stack()->undo();
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(m_set->tileSet->count(), RecordedProject::TileCount);

    stack()->redo();
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(m_set->tileSet->count(), RecordedProject::TileCount + 1);
}

void tst_EditRecorder::whatARestoreSetsOffIsNotRecorded()
{
    m_set->tileSet->deleteTile(2);
    emit m_set->tileSet->structureAboutToChange();
    emit m_set->sprites->structureAboutToChange();
    connect(m_set->map, &Map::restored, this, [this] {
        emit m_set->tileSet->structureChanged(QStringLiteral("Move Tile"));
        emit m_set->sprites->structureChanged(QStringLiteral("Move Sprite"));
        m_set->animation->setDelay(5);
        m_set->block->setDelay(5);
    });

    stack()->undo();

    QCOMPARE(stack()->count(), 1);
    QVERIFY(stack()->canRedo());
}

void tst_EditRecorder::undoOfATileDeletionRestoresTilesMapsAndBlocks()
{
    const TileSet::State tiles = m_set->tileSet->state();
    const Map::State map = m_set->map->state();
    const TileAnimation::State block = m_set->block->tileState();

    m_set->tileSet->deleteTile(2);
    QVERIFY(m_set->map->state() != map);
    stack()->undo();

    QCOMPARE(m_set->tileSet->state(), tiles);
    QCOMPARE(m_set->map->state(), map);
    QCOMPARE(m_set->block->tileState(), block);
}

void tst_EditRecorder::aTileIsRestoredWholly()
{
    m_set->tileSet->deleteTile(7);

    stack()->undo();

    const Tile *tile = m_set->tileSet->tile(7);
    QCOMPARE(tile->image().pixelIndex(0, 0), 7);
    QCOMPARE(tile->offset(), 7);
    QCOMPARE(tile->attributes(), int(Tile::TA_DOOR));
    QCOMPARE(tile->value(), 70);
}

void tst_EditRecorder::restoringATileSetTellsItLast()
{
    m_set->tileSet->deleteTile(2);
    QStringList told;
    connect(m_set->map, &Map::restored, this, [&] { told += QStringLiteral("map"); });
    connect(m_set->block, &Animation::contentChanged, this,
            [&] { told += QStringLiteral("block"); });
    connect(m_set->tileSet, &TileSet::restored, this, [&] { told += QStringLiteral("tiles"); });
    QSignalSpy aboutToChange(m_set->tileSet, &TileSet::structureAboutToChange);
    QSignalSpy changed(m_set->tileSet, &TileSet::structureChanged);

    stack()->undo();

    QCOMPARE(told, (QStringList{"map", "block", "tiles"}));
    QCOMPARE(aboutToChange.count() + changed.count(), 0);
}

void tst_EditRecorder::aMapDeletedAfterTheEditIsSkipped()
{
    m_set->tileSet->deleteTile(2);
    QVERIFY(m_set->project.deleteMap(m_set->map->id()));

    stack()->undo();
    QCOMPARE(m_set->tileSet->count(), RecordedProject::TileCount);

    stack()->redo();
    QCOMPARE(m_set->tileSet->count(), RecordedProject::TileCount - 1);
}

void tst_EditRecorder::mapsOfAnotherTileSetAreLeftAlone()
{
    const auto other = m_set->project.createTileSet(QStringLiteral("Other"), m_set->palette->id());
    const auto map = m_set->project.createMap(QStringLiteral("Far"), other->id(), {3, 3});
    QSignalSpy restored(map, &Map::restored);
    m_set->tileSet->deleteTile(2);

    stack()->undo();

    QCOMPARE(restored.count(), 0);
}

void tst_EditRecorder::aSwapIsUndoneInBlockLists()
{
    m_set->block->frame(0)->setCell({0, 0}, {0, 0, false, false, false});
    swapFirstTiles();
    QCOMPARE(m_set->block->frame(0)->cell({0, 0}).index, 1);

    stack()->undo();

    QCOMPARE(m_set->block->frame(0)->cell({0, 0}).index, 0);
    QCOMPARE(m_set->tileSet->tile(0)->image().pixelIndex(0, 0), 0);
    QCOMPARE(m_set->map->tileLayer()->cell({0, 0}).index, 0);
}

void tst_EditRecorder::restoredTilesHaveThePresentColours()
{
    m_set->tileSet->insertTile(0);
    m_set->stacks.setActive(m_set->palette->id());
    m_set->palette->setColour(5, Qt::red, false);

    stack()->undo();

    QCOMPARE(m_set->tileSet->tile(5)->image().color(5), m_set->palette->colourTable().at(5));
    QCOMPARE(m_set->tileSet->tile(5)->image().color(6), m_set->palette->colourTable().at(6));
}

void tst_EditRecorder::aPaletteBoundSinceLeavesRestoredTilesAlone()
{
    const QList<QRgb> before = m_set->tileSet->tile(0)->image().colorTable();
    m_set->tileSet->insertTile(0);
    m_set->tileSet->setPalette(m_set->project.createPalette(CreateBlank, QStringLiteral("Night")));

    stack()->undo();

    QCOMPARE(m_set->tileSet->tile(0)->image().colorTable(), before);
}

void tst_EditRecorder::undoOfASpriteDeletionRestoresStripAndAnimations()
{
    const SpriteBank::State before = m_set->sprites->state();

    emit m_set->sprites->structureAboutToChange();
    m_set->sprites->deleteSprite(2);
    emit m_set->sprites->structureChanged(QStringLiteral("Delete Sprite"));
    const SpriteBank::State after = m_set->sprites->state();
    QVERIFY(after != before);

    QCOMPARE(stack()->undoText(), QStringLiteral("Delete Sprite"));
    stack()->undo();
    QCOMPARE(m_set->sprites->state(), before);
    stack()->redo();
    QCOMPARE(m_set->sprites->state(), after);
    QCOMPARE(stack()->count(), 1);
}

void tst_EditRecorder::restoringABankTellsCountAndRestoredOnce()
{
    emit m_set->sprites->structureAboutToChange();
    m_set->sprites->addSprite();
    emit m_set->sprites->structureChanged(QStringLiteral("Add Sprite"));
    QStringList told;
    connect(m_set->sprites, &SpriteBank::countChanged, this,
            [&] { told += QStringLiteral("count"); });
    connect(m_set->sprites, &SpriteBank::restored, this,
            [&] { told += QStringLiteral("restored"); });
    QSignalSpy changed(m_set->sprites, &SpriteBank::structureChanged);
    QSignalSpy mapRestored(m_set->map, &Map::restored);

    stack()->undo();

    QCOMPARE(told, (QStringList{"count", "restored"}));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(mapRestored.count(), 0);
}

void tst_EditRecorder::placedSpritesComeBackWithTheirSprite()
{
    const QList<Map::PlacedSprite> before = std::as_const(*m_set->map).sprites();
    emit m_set->sprites->structureAboutToChange();
    m_set->sprites->deleteSprite(2);
    emit m_set->sprites->structureChanged(QStringLiteral("Delete Sprite"));
    const QList<Map::PlacedSprite> after = std::as_const(*m_set->map).sprites();
    QCOMPARE(after.size(), before.size() - 1);

    stack()->undo();
    QCOMPARE(std::as_const(*m_set->map).sprites(), before);

    stack()->redo();
    QCOMPARE(std::as_const(*m_set->map).sprites(), after);
}

void tst_EditRecorder::restoredSpritesHaveThePresentColours()
{
    emit m_set->sprites->structureAboutToChange();
    m_set->sprites->addSprite();
    emit m_set->sprites->structureChanged(QStringLiteral("Add Sprite"));
    m_set->stacks.setActive(m_set->palette->id());
    m_set->palette->setColour(5, Qt::red, false);

    stack()->undo();

    QCOMPARE(m_set->sprites->image().colorTable(), m_set->palette->colourTable());
}

void tst_EditRecorder::documentsMadeLaterAreTracked()
{
    const auto palette = m_set->project.createPalette(CreateBlank, QStringLiteral("Night"));
    palette->setColour(1, Qt::white, false);
    QCOMPARE(stack()->count(), 1);

    const auto tileSet = m_set->project.createTileSet(QStringLiteral("New"), palette->id(), 2);
    tileSet->insertTile(0);
    QCOMPARE(stack()->count(), 2);

    const auto sprites = m_set->project.createSpriteBank(Tessaril::Sprite::FourBit,
                                                         QStringLiteral("New"), palette->id());
    emit sprites->structureAboutToChange();
    sprites->addSprite();
    emit sprites->structureChanged(QStringLiteral("Add Sprite"));
    QCOMPARE(stack()->count(), 3);

    const auto blocks = m_set->project.createBlockList(QStringLiteral("New"), tileSet->id());
    const auto block = blocks->createTileAnimation(QStringLiteral("Lift"));
    block->addFrame();
    block->notifyContentChanged();
    QCOMPARE(stack()->count(), 4);
}

void tst_EditRecorder::trackingTwiceRecordsOnce()
{
    int requests = 0;
    m_set->recorder = std::make_unique<EditRecorder>(&m_set->project, [&](const QUuid &) {
        ++requests;
        return stack();
    });
    m_set->recorder->trackPalette(m_set->palette);
    m_set->recorder->trackTileSet(m_set->tileSet);
    m_set->recorder->trackSprites(m_set->sprites);
    m_set->recorder->trackBlocks(m_set->blocks);

    m_set->palette->setColour(3, Qt::white, false);
    m_set->tileSet->insertTile(0);
    emit m_set->sprites->structureAboutToChange();
    emit m_set->sprites->structureChanged(QStringLiteral("Move Sprite"));
    m_set->block->setDelay(3);

    QCOMPARE(requests, 4);
    QCOMPARE(stack()->count(), 4);
}

void tst_EditRecorder::theClockIsTheTimeSinceTheEpoch()
{
    const qint64 earliest = QDateTime::currentMSecsSinceEpoch();

    const qint64 time = EditRecorder::currentTime();

    QVERIFY(time >= earliest && time <= QDateTime::currentMSecsSinceEpoch());
}

QTEST_GUILESS_MAIN(tst_EditRecorder)
#include "tst_EditRecorder.moc"
