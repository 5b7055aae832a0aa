#include "history/PlacedSpritesCommand.h"

#include "support/RecordedProject.h"

#include <QSignalSpy>
#include <QTest>

class tst_PlacedSpritesCommand : public QObject
{
    Q_OBJECT

private slots:
    void undoAndRedoSwapThePlacedSpritesOnly();
    void aDeletedMapIsSkipped();
};

void tst_PlacedSpritesCommand::undoAndRedoSwapThePlacedSpritesOnly()
{
    RecordedProject set;
    const QList<Map::PlacedSprite> before = std::as_const(*set.map).sprites();
    set.map->setSprites({});
    PlacedSpritesCommand command(set.map, before, nullptr);
    TileMap::TileData cell;
    cell.index = 3;
    set.map->tileLayer()->setCell({0, 0}, cell);
    QSignalSpy restored(set.map, &Map::restored);

    command.undo();
    QCOMPARE(std::as_const(*set.map).sprites(), before);
    QCOMPARE(set.map->tileLayer()->cell({0, 0}).index, 3);
    QCOMPARE(restored.count(), 1);

    command.redo();
    QVERIFY(std::as_const(*set.map).sprites().isEmpty());
}

void tst_PlacedSpritesCommand::aDeletedMapIsSkipped()
{
    RecordedProject set;
    PlacedSpritesCommand command(set.map, {}, nullptr);
    set.project.deleteMap(set.map->id());

    command.undo();
    command.redo();

    QVERIFY(!set.map);
}

QTEST_GUILESS_MAIN(tst_PlacedSpritesCommand)
#include "tst_PlacedSpritesCommand.moc"
