#include "history/MapEditCommand.h"

#include "support/RecordedProject.h"

#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

class tst_MapEditCommand : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void pushingLeavesTheMapAlone();
    void undoAndRedoRestoreTheMap();
    void restoringTellsTheMapsViewsOnce();
    void redoOfAnAppliedStepDoesNothing();
    void eachBatchIsAStep();
    void aDeletedMapIsSkipped();

private:
    MapEditCommand *paint(QPoint position, int index);

    std::unique_ptr<RecordedProject> m_set;
    QUndoStack m_stack;
};

void tst_MapEditCommand::init()
{
    m_stack.clear();
    m_set = std::make_unique<RecordedProject>();
}

MapEditCommand *tst_MapEditCommand::paint(QPoint position, int index)
{
    const Map::State before = m_set->map->state();
    TileMap::TileData cell;
    cell.index = index;
    cell.occupied = true;
    m_set->map->tileLayer()->setCell(position, cell);
    return new MapEditCommand(QStringLiteral("Draw"), m_set->map, before, m_set->map->state());
}

void tst_MapEditCommand::pushingLeavesTheMapAlone()
{
    QSignalSpy restored(m_set->map, &Map::restored);

    m_stack.push(paint({1, 1}, 5));

    QCOMPARE(m_set->map->tileLayer()->cell({1, 1}).index, 5);
    QCOMPARE(restored.count(), 0);
    QCOMPARE(m_stack.undoText(), QStringLiteral("Draw"));
}

void tst_MapEditCommand::undoAndRedoRestoreTheMap()
{
    const Map::State before = m_set->map->state();
    m_stack.push(paint({1, 1}, 5));
    const Map::State after = m_set->map->state();
    QVERIFY(before != after);

    m_stack.undo();
    QCOMPARE(m_set->map->state(), before);

    m_stack.redo();
    QCOMPARE(m_set->map->state(), after);
}

void tst_MapEditCommand::restoringTellsTheMapsViewsOnce()
{
    m_stack.push(paint({1, 1}, 5));
    QSignalSpy restored(m_set->map, &Map::restored);

    m_stack.undo();
    QCOMPARE(restored.count(), 1);

    m_stack.redo();
    QCOMPARE(restored.count(), 2);
}

void tst_MapEditCommand::redoOfAnAppliedStepDoesNothing()
{
    const std::unique_ptr<MapEditCommand> command(paint({1, 1}, 5));
    QSignalSpy restored(m_set->map, &Map::restored);

    command->redo();

    QCOMPARE(restored.count(), 0);
    command->undo();
    command->redo();
    command->redo();
    QCOMPARE(restored.count(), 2);
}

void tst_MapEditCommand::eachBatchIsAStep()
{
    m_stack.push(paint({1, 1}, 5));
    m_stack.push(paint({1, 1}, 6));

    QCOMPARE(m_stack.count(), 2);
    QCOMPARE(m_stack.command(0)->id(), -1);
    m_stack.undo();
    QCOMPARE(m_set->map->tileLayer()->cell({1, 1}).index, 5);
}

void tst_MapEditCommand::aDeletedMapIsSkipped()
{
    m_stack.push(paint({1, 1}, 5));
    m_set->project.deleteMap(m_set->map->id());

    m_stack.undo();
    QCOMPARE(m_stack.index(), 0);

    m_stack.redo();
    QCOMPARE(m_stack.index(), 1);
}

QTEST_GUILESS_MAIN(tst_MapEditCommand)
#include "tst_MapEditCommand.moc"
