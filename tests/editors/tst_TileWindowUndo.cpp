#include "editors/TileWindowFixture.h"
#include "history/EditRecorder.h"
#include "model/Project.h"

#include <QSignalSpy>

using Tessaril::Ui::ToolButton;

/// The undo steps of the tile editor, and edits of the set from elsewhere while a tile is on show.
class tst_TileWindowUndo : public QObject
{
    Q_OBJECT

private slots:
    void aStrokeIsAStepOfTheSet();
    void undoShowsTheOldPicture();
    void undoReachesATileThatIsNotOnDisplay();
    void undoReachesASetThatIsNotOnDisplay();
    void undoWithoutTheWindowReachesTheSet();
    void undoAfterTheSetOrTheTileIsGoneDoesNothing();
    void undoKeepsTheColoursOfToday();
    void undoRestoresPixelsOfAnotherBank();
    void scrollsOfOneTileAreOneStep();
    void scrollsOfTwoTilesAreTwoSteps();
    void anotherTileShownInAStrokeIsNotEdited();
    void withoutAStackTheTileIsStillEdited();
    void aTileChangedElsewhereIsShown();
    void aTileMovedElsewhereIsNotOverwritten();
    void structureChangesAreRecorded();
};

void tst_TileWindowUndo::aStrokeIsAStepOfTheSet()
{
    TileWindowFixture fixture;
    fixture.window.foreColourChanged(12);

    fixture.draw(3, 5);
    fixture.draw(3, 5);

    QCOMPARE(fixture.stack.count(), 1);
    QCOMPARE(fixture.stack.undoText(), QString("Draw"));
    QCOMPARE(fixture.askedFor, fixture.tiles.set->id());
}

void tst_TileWindowUndo::undoShowsTheOldPicture()
{
    TileWindowFixture fixture;
    fixture.window.setTileIndex(2);
    fixture.window.foreColourChanged(12);
    fixture.draw(3, 5);
    fixture.draw(4, 5);
    QSignalSpy changed(fixture.tiles.set.get(), &TileSet::tileChanged);

    fixture.stack.undo();
    QCOMPARE(fixture.pixel(1, 4, 5), 1);
    QCOMPARE(fixture.canvasPixel(4, 5), 1);
    QCOMPARE(fixture.canvasPixel(3, 5), 12);
    QCOMPARE(changed, QList<QVariantList>{{2}});

    fixture.stack.undo();
    QCOMPARE(fixture.canvasPixel(3, 5), 1);
    fixture.stack.redo();
    fixture.stack.redo();
    QCOMPARE(fixture.pixel(1, 4, 5), 12);
    QCOMPARE(fixture.canvasPixel(4, 5), 12);
    QCOMPARE(fixture.stack.count(), 2);
}

void tst_TileWindowUndo::undoReachesATileThatIsNotOnDisplay()
{
    TileWindowFixture fixture;
    fixture.window.setTileIndex(2);
    fixture.window.foreColourChanged(12);
    fixture.draw(3, 5);
    fixture.window.setTileIndex(4);
    QSignalSpy changed(fixture.tiles.set.get(), &TileSet::tileChanged);

    fixture.stack.undo();

    QCOMPARE(fixture.pixel(1, 3, 5), 1);
    QCOMPARE(fixture.canvasPixel(3, 5), 3);
    QCOMPARE(fixture.pixel(3, 3, 5), 3);
    QCOMPARE(changed.count(), 1);
}

void tst_TileWindowUndo::undoReachesASetThatIsNotOnDisplay()
{
    TileWindowFixture fixture;
    fixture.window.foreColourChanged(12);
    fixture.draw(3, 5);
    TileSet other(nullptr, 5);
    fixture.window.setTileSet(&other);

    fixture.stack.undo();

    QCOMPARE(fixture.pixel(0, 3, 5), 0);
    QCOMPARE(other.state(), TileSet(nullptr, 5).state());
}

void tst_TileWindowUndo::undoWithoutTheWindowReachesTheSet()
{
    const TestMaps::PlainTiles tiles(2);
    QUndoStack stack;
    {
        TileWindow window;
        window.setStackFor([&stack](const QUuid &) { return &stack; });
        window.setPalette(tiles.palette.get());
        window.setTileSet(tiles.set.get());
        window.show();
        window.foreColourChanged(9);
        QTest::mouseClick(window.findChild<Canvas *>(), Qt::LeftButton, {}, {40, 40});
    }
    QCOMPARE(tiles.set->tile(0)->image().pixelIndex(1, 1), 9);

    stack.undo();

    QCOMPARE(tiles.set->tile(0)->image().pixelIndex(1, 1), 0);
}

void tst_TileWindowUndo::undoAfterTheSetOrTheTileIsGoneDoesNothing()
{
    TileWindowFixture fixture;
    fixture.window.foreColourChanged(12);
    fixture.draw(2, 2);
    fixture.window.setTileIndex(5);
    fixture.draw(3, 5);
    fixture.tiles.set->deleteTile(4);

    fixture.stack.undo();
    QCOMPARE(fixture.tiles.set->count(), 4);
    fixture.tiles.set.reset();
    fixture.stack.undo();
    fixture.stack.redo();

    QCOMPARE(fixture.stack.index(), 1);
}

void tst_TileWindowUndo::undoKeepsTheColoursOfToday()
{
    TileWindowFixture fixture;
    fixture.window.foreColourChanged(12);
    fixture.draw(3, 5);
    fixture.tiles.palette->setColour(0, QColor(255, 0, 255));

    fixture.stack.undo();

    QCOMPARE(fixture.tile(0)->image().color(0), qRgb(255, 0, 255));
    QCOMPARE(fixture.canvas()->grab().toImage().pixelColor(100, 170), QColor(255, 0, 255));
}

void tst_TileWindowUndo::undoRestoresPixelsOfAnotherBank()
{
    TileWindowFixture fixture;
    QImage imported = fixture.tile(0)->image();
    imported.fill(0x35); // as the import of a picture leaves them
    fixture.tile(0)->setImage(imported);
    fixture.window.setTileIndex(1);
    const TileSet::State before = fixture.tiles.set->state();
    fixture.window.foreColourChanged(12);

    fixture.draw(3, 5);
    QCOMPARE(fixture.pixel(0, 0, 0), 5);
    fixture.stack.undo();

    QCOMPARE(fixture.tiles.set->state(), before);
    QCOMPARE(fixture.canvasPixel(0, 0), 5);
}

void tst_TileWindowUndo::scrollsOfOneTileAreOneStep()
{
    TileWindowFixture fixture;
    fixture.window.foreColourChanged(12);
    fixture.draw(0, 0);

    fixture.canvas()->setMode(ToolButton::MoveRight, false);
    fixture.canvas()->setMode(ToolButton::MoveRight, false);
    QCOMPARE(fixture.pixel(0, 2, 0), 12);
    QCOMPARE(fixture.stack.count(), 2);
    fixture.stack.undo();

    QCOMPARE(fixture.pixel(0, 0, 0), 12);
}

void tst_TileWindowUndo::scrollsOfTwoTilesAreTwoSteps()
{
    TileWindowFixture fixture;
    fixture.window.foreColourChanged(12);
    fixture.draw(0, 0);
    fixture.window.setTileIndex(2);
    fixture.draw(0, 0);

    fixture.canvas()->setMode(ToolButton::MoveRight, false);
    fixture.window.setTileIndex(1);
    fixture.canvas()->setMode(ToolButton::MoveRight, false);

    QCOMPARE(fixture.stack.count(), 4);
}

void tst_TileWindowUndo::anotherTileShownInAStrokeIsNotEdited()
{
    TileWindowFixture fixture;
    fixture.tile(2)->setOffset(4);
    fixture.window.foreColourChanged(12);
    const TileSet::State before = fixture.tiles.set->state();

    QTest::mousePress(fixture.canvas(), Qt::LeftButton, {}, {40, 40});
    fixture.window.setTileIndex(3);
    QTest::mouseRelease(fixture.canvas(), Qt::LeftButton, {}, {40, 40});

    QCOMPARE(fixture.stack.count(), 0);
    QCOMPARE(fixture.tiles.set->state(), before);
}

void tst_TileWindowUndo::withoutAStackTheTileIsStillEdited()
{
    TileWindowFixture fixture;
    fixture.window.setStackFor({});
    fixture.window.foreColourChanged(12);

    fixture.draw(3, 5);

    QCOMPARE(fixture.pixel(0, 3, 5), 12);
    QCOMPARE(fixture.stack.count(), 0);
}

void tst_TileWindowUndo::aTileChangedElsewhereIsShown()
{
    TileWindowFixture fixture;
    fixture.window.setTileIndex(3);

    fixture.tiles.set->copyTile(2, 4);
    QCOMPARE(fixture.canvasPixel(1, 1), 4);
    fixture.tiles.set->clearImage(2);
    QCOMPARE(fixture.canvasPixel(1, 1), 0);

    fixture.window.foreColourChanged(12);
    fixture.draw(3, 5);
    fixture.stack.undo();
    QCOMPARE(fixture.pixel(2, 3, 5), 0);
}

void tst_TileWindowUndo::aTileMovedElsewhereIsNotOverwritten()
{
    TileWindowFixture fixture;
    fixture.window.setTileIndex(1);
    fixture.tiles.set->moveTile(0, 4);
    fixture.window.foreColourChanged(12);

    fixture.draw(3, 5);

    QCOMPARE(fixture.pixel(0, 3, 5), 12);
    QCOMPARE(fixture.pixel(0, 0, 0), 1);
    QCOMPARE(fixture.pixel(4, 0, 0), 0);
}

void tst_TileWindowUndo::structureChangesAreRecorded()
{
    Project project;
    TileWindowFixture fixture;
    EditRecorder recorder(&project, [&fixture](const QUuid &) { return &fixture.stack; });
    recorder.trackTileSet(fixture.tiles.set.get());
    fixture.window.setTileIndex(2);
    fixture.window.foreColourChanged(12);
    fixture.draw(3, 5);

    fixture.tiles.set->moveTile(1, 4);
    QCOMPARE(fixture.canvasPixel(0, 0), 2);
    fixture.stack.undo();
    QCOMPARE(fixture.canvasPixel(3, 5), 12);
    fixture.stack.undo();
    QCOMPARE(fixture.pixel(1, 3, 5), 1);
    QCOMPARE(fixture.canvasPixel(3, 5), 1);

    fixture.tiles.set->deleteTile(1);
    QCOMPARE(fixture.stack.undoText(), QString("Delete Tile"));
    fixture.stack.undo();
    QCOMPARE(fixture.range()->maximum(), 5);
    QCOMPARE(fixture.canvasPixel(0, 0), 1);
}

QTEST_MAIN(tst_TileWindowUndo)
#include "tst_TileWindowUndo.moc"
