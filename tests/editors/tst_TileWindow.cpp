#include "colour/PaletteGrid.h"
#include "editors/TileWindowFixture.h"
#include "uikit/Expandable.h"
#include "uikit/ToolPalette.h"

#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QSignalSpy>
#include <QToolButton>

using Tessaril::Ui::ToolButton;

/// What the tile editor shows, and its edits of the tile on display.
class tst_TileWindow : public QObject
{
    Q_OBJECT

private slots:
    void startsOnItsPlaceholder();
    void showsTheSetAndItsName();
    void tellsWhenItBecomesActive();
    void aSetThatDiesIsCleared();
    void theCanvasShowsOneTile();
    void thePaletteOfToolsHasNoFiles();
    void theSectionsAreCollapsed();
    void theNumberShowsATile();
    void theSameNumberShowsTheTileAgain();
    void browsingChangesNothing();
    void aNewOffsetGoesIntoTheTile();
    void aNewOffsetMovesTheColours();
    void offsetsOutOfRangeAreBroughtIntoIt();
    void drawingGoesIntoTheTile();
    void thePixelsAreKeptWithoutTheOffset();
    void colourChangesAreSeenOnTheCanvas();
    void pickingAColourMovesTheMarks();
    void theCountFollowsTheSet();
    void aSetWithoutTilesIsNotEdited();
    void theAttributesAreThoseOfTheTile();
    void theEditMenuReachesTheCanvas();
    void pastedColoursAreTakenIntoTheBank();
    void oldSetsAreNotHeard();
    void tabLeadsToTheColoursFirst();
};

void tst_TileWindow::startsOnItsPlaceholder()
{
    const TileWindow window;

    QCOMPARE(window.objectName(), QString("TileEditor"));
    QCOMPARE(window.windowTitle(), QString("Tile Editor"));
    QVERIFY(!window.isContentShown());
    QVERIFY(window.findChild<QWidget *>("tileWidget"));
    QStringList texts;
    for (const QLabel *label : window.findChildren<QLabel *>())
        texts += label->text();
    QVERIFY(texts.contains("No tile set selected"));
}

void tst_TileWindow::showsTheSetAndItsName()
{
    TileWindowFixture fixture;

    QVERIFY(fixture.window.isContentShown());
    QCOMPARE(fixture.window.windowTitle(), QString("Tile Editor: cave"));
    fixture.tiles.set->setName("town");
    QCOMPARE(fixture.window.windowTitle(), QString("Tile Editor: town"));
    fixture.window.setTileSet(nullptr);
    QVERIFY(!fixture.window.isContentShown());
    QCOMPARE(fixture.window.windowTitle(), QString("Tile Editor"));
}

void tst_TileWindow::tellsWhenItBecomesActive()
{
    TileSet set;
    TileSet other;
    TileWindow window;
    QSignalSpy active(&window, &TileWindow::activeStateChanged);

    window.setTileSet(nullptr);
    window.showContent();
    window.setTileSet(&set);
    window.setTileSet(&other);
    window.setTileSet(nullptr);

    QCOMPARE(active, (QList<QVariantList>{{true}, {false}}));
}

void tst_TileWindow::aSetThatDiesIsCleared()
{
    TileWindowFixture fixture;

    fixture.tiles.set.reset();

    QVERIFY(!fixture.window.isContentShown());
    QVERIFY(fixture.canvas()->image().isNull());
    fixture.window.imageChanged();
    fixture.window.paletteOffsetChanged(3);
    QCOMPARE(fixture.stack.count(), 0);
}

void tst_TileWindow::theCanvasShowsOneTile()
{
    TileWindowFixture fixture;
    fixture.window.setTileIndex(4);

    QCOMPARE(fixture.canvas()->size(), QSize(256, 256));
    QCOMPARE(fixture.canvas()->zoomLevel(), 32);
    QCOMPARE(fixture.canvas()->imageType(), Tessaril::Ui::ImageType::Offset16);
    const QImage picture = fixture.canvas()->grab().toImage();
    QCOMPARE(picture.pixelColor(0, 0), fixture.tiles.palette->colour(3));
    QCOMPARE(picture.pixelColor(255, 255), fixture.tiles.palette->colour(3));
}

void tst_TileWindow::thePaletteOfToolsHasNoFiles()
{
    const TileWindow window;
    const auto *tools = window.findChild<ToolPalette *>();

    QVERIFY(!tools->action(ToolButton::Save));
    QVERIFY(!tools->action(ToolButton::Open));
    QVERIFY(tools->action(ToolButton::Draw)->isChecked());
    const QStringList messages{"Rotate CW", "Rotate CCW", "Flip", "Mirror", "Cut", "Copy", "Paste"};
    for (const QString &text : messages)
        QVERIFY2(DialogDriver::button<QToolButton>(*tools, text), qPrintable(text));
}

void tst_TileWindow::theSectionsAreCollapsed()
{
    const TileWindow window;
    const auto sections = window.findChildren<Expandable *>();

    QCOMPARE(sections.size(), 2);
    QCOMPARE(sections.at(0)->title(), QString("Attributes"));
    QCOMPARE(sections.at(0)->content(), window.findChild<TileSheet *>());
    QCOMPARE(sections.at(0)->header()->arrowType(), Qt::DownArrow);
    QCOMPARE(sections.at(1)->title(), QString("Palette Editor"));
    QCOMPARE(sections.at(1)->content(), window.findChild<PaletteEditor *>());
    for (const Expandable *section : sections) {
        QVERIFY(!section->isExpanded());
        QVERIFY(section->content()->isHidden());
        QCOMPARE(section->contentsMargins(), QMargins(1, 1, 1, 1));
    }
}

void tst_TileWindow::theNumberShowsATile()
{
    TileWindowFixture fixture;
    fixture.tile(3)->setOffset(6);
    QCOMPARE(fixture.window.tileNumber(), 1);

    for (int i = 0; i < 3; ++i)
        fixture.range()->nextButton();

    QCOMPARE(fixture.window.tileNumber(), 4);
    QCOMPARE(fixture.offset()->value(), 7);
    QCOMPARE(fixture.canvasPixel(0, 0), 6 * 16 + 3);
    QCOMPARE(fixture.canvas()->imageOffset(), 6);
    QCOMPARE(fixture.colours()->offset(), 6);
    QCOMPARE(fixture.paletteEditor()->first(), 6 * 16);
}

void tst_TileWindow::theSameNumberShowsTheTileAgain()
{
    TileWindowFixture fixture;
    QImage picture = fixture.tile(1)->image();
    picture.fill(9);
    fixture.window.setTileIndex(2);
    fixture.tile(1)->setImage(picture);

    fixture.window.setTileIndex(2);

    QCOMPARE(fixture.canvasPixel(0, 0), 9);
}

void tst_TileWindow::browsingChangesNothing()
{
    TileWindowFixture fixture;
    fixture.tile(2)->setOffset(4);
    const TileSet::State before = fixture.tiles.set->state();
    QSignalSpy changed(fixture.tiles.set.get(), &TileSet::tileChanged);

    for (int number = 1; number <= 5; ++number)
        fixture.window.setTileIndex(number);

    QCOMPARE(fixture.tiles.set->state(), before);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(fixture.stack.count(), 0);
}

void tst_TileWindow::aNewOffsetGoesIntoTheTile()
{
    TileWindowFixture fixture;
    fixture.window.setTileIndex(3);
    QSignalSpy changed(fixture.tiles.set.get(), &TileSet::tileChanged);

    fixture.offset()->setValue(5);

    QCOMPARE(fixture.tile(2)->offset(), 4);
    QCOMPARE(fixture.pixel(2, 0, 0), 2);
    QCOMPARE(fixture.canvasPixel(0, 0), 4 * 16 + 2);
    QCOMPARE(changed, QList<QVariantList>{{3}});
    QCOMPARE(fixture.canvas()->grab().toImage().pixelColor(9, 9),
             fixture.tiles.palette->colour(4 * 16 + 2));
    QCOMPARE(fixture.offset()->minimum(), 1);
    QCOMPARE(fixture.offset()->maximum(), 16);
    QCOMPARE(fixture.offset()->singleStep(), 1);
}

void tst_TileWindow::aNewOffsetMovesTheColours()
{
    TileWindowFixture fixture;
    fixture.window.foreColourChanged(7);
    fixture.window.backColourChanged(11);

    fixture.offset()->setValue(3);

    QCOMPARE(fixture.colours()->offset(), 2);
    QCOMPARE(fixture.colours()->foreIndex(), 32 + 7);
    QCOMPARE(fixture.colours()->backIndex(), 32 + 11);
    QCOMPARE(fixture.canvas()->ink(), 32 + 7);
    QCOMPARE(fixture.canvas()->paper(), 32 + 11);
    QCOMPARE(fixture.paletteEditor()->first(), 32 + 7);
}

void tst_TileWindow::offsetsOutOfRangeAreBroughtIntoIt()
{
    TileWindowFixture fixture;
    fixture.tile(1)->setOffset(99);
    fixture.tile(2)->setOffset(-1);

    fixture.window.setTileIndex(2);
    QCOMPARE(fixture.offset()->value(), 99 % 16 + 1);
    fixture.window.setTileIndex(3);
    QCOMPARE(fixture.offset()->value(), 16);
}

void tst_TileWindow::drawingGoesIntoTheTile()
{
    TileWindowFixture fixture;
    fixture.window.setTileIndex(2);
    fixture.window.foreColourChanged(12);
    QSignalSpy changed(fixture.tiles.set.get(), &TileSet::tileChanged);

    fixture.draw(3, 5);

    QCOMPARE(fixture.pixel(1, 3, 5), 12);
    QCOMPARE(fixture.pixel(1, 4, 5), 1);
    QCOMPARE(changed, QList<QVariantList>{{2}});
}

void tst_TileWindow::thePixelsAreKeptWithoutTheOffset()
{
    TileWindowFixture fixture;
    fixture.window.setTileIndex(2);
    fixture.offset()->setValue(9);
    fixture.window.foreColourChanged(8 * 16 + 12);

    fixture.draw(3, 5);

    QCOMPARE(fixture.canvasPixel(3, 5), 8 * 16 + 12);
    QCOMPARE(fixture.pixel(1, 3, 5), 12);
    QCOMPARE(fixture.pixel(1, 0, 0), 1);
    QCOMPARE(fixture.tile(1)->image().color(12), fixture.tiles.palette->colour(12).rgb());
}

void tst_TileWindow::colourChangesAreSeenOnTheCanvas()
{
    TileWindowFixture fixture;
    fixture.window.setTileIndex(4);
    // The palette editor takes no input without a palette.
    QVERIFY(fixture.paletteEditor()->findChild<PaletteGrid *>()->isEnabledTo(&fixture.window));

    fixture.tiles.palette->setColour(3, QColor(255, 0, 255));

    QCOMPARE(fixture.canvas()->grab().toImage().pixelColor(99, 99), QColor(255, 0, 255));
}

void tst_TileWindow::pickingAColourMovesTheMarks()
{
    TileWindowFixture fixture;

    QTest::mouseClick(fixture.colours(), Qt::LeftButton, {}, {24 * 3 + 4, 4});
    QTest::mouseClick(fixture.colours(), Qt::RightButton, {}, {24 * 2 + 4, 24 + 4});
    QCOMPARE(fixture.canvas()->ink(), 3);
    QCOMPARE(fixture.canvas()->paper(), 10);
    QCOMPARE(fixture.paletteEditor()->first(), 3);

    emit fixture.canvas()->foregroundPicked(5);
    emit fixture.canvas()->backgroundPicked(6);
    QCOMPARE(fixture.colours()->foreIndex(), 5);
    QCOMPARE(fixture.colours()->backIndex(), 6);
}

void tst_TileWindow::theCountFollowsTheSet()
{
    TileWindowFixture fixture;
    QCOMPARE(fixture.range()->minimum(), 1);
    QCOMPARE(fixture.range()->maximum(), 5);
    fixture.window.setTileIndex(5);

    fixture.tiles.set->insertTile(0);
    QCOMPARE(fixture.range()->maximum(), 6);
    QCOMPARE(fixture.canvasPixel(0, 0), 3);

    fixture.tiles.set->deleteTile(0);
    fixture.tiles.set->deleteTile(4);
    QCOMPARE(fixture.range()->maximum(), 4);
    QCOMPARE(fixture.window.tileNumber(), 4);
    QCOMPARE(fixture.canvasPixel(0, 0), 3);
}

void tst_TileWindow::aSetWithoutTilesIsNotEdited()
{
    TileWindowFixture fixture(0);

    QVERIFY(fixture.canvas()->image().isNull());
    QVERIFY(!fixture.canvas()->isEnabled());
    QVERIFY(!fixture.offset()->isEnabled());
    QVERIFY(!fixture.window.findChild<ToolPalette *>()->isEnabled());
    QVERIFY(!fixture.window.findChild<TileSheet *>()->isEnabled());
    fixture.window.setTileIndex(3);
    fixture.window.paletteOffsetChanged(3);
    fixture.canvas()->grab();

    fixture.tiles.set->insertTile(0);
    QVERIFY(fixture.canvas()->isEnabled());
    QVERIFY(fixture.window.findChild<ToolPalette *>()->isEnabled());
    QCOMPARE(fixture.offset()->value(), 2);
}

void tst_TileWindow::theAttributesAreThoseOfTheTile()
{
    TileWindowFixture fixture;
    auto *sheet = fixture.window.findChild<TileSheet *>();
    fixture.window.setTileIndex(3);

    DialogDriver::field<QCheckBox>(*sheet, "Climbable")->click();
    fixture.window.setTileIndex(4);
    DialogDriver::field<QSpinBox>(*sheet, "Value/Weight")->setValue(8);

    QCOMPARE(fixture.tile(2)->attributes(), int(Tile::TA_LADDER));
    QCOMPARE(fixture.tile(2)->value(), 0);
    QCOMPARE(fixture.tile(3)->attributes(), 0);
    QCOMPARE(fixture.tile(3)->value(), 8);
    QCOMPARE(fixture.stack.count(), 0);
}

void tst_TileWindow::theEditMenuReachesTheCanvas()
{
    TileWindowFixture fixture;
    fixture.window.setTileIndex(4);
    fixture.window.backColourChanged(1);
    EditTarget *const target = &fixture.window;
    QGuiApplication::clipboard()->clear();

    target->selectAll();
    QCOMPARE(fixture.canvas()->selection(), QRect(0, 0, 8, 8));
    target->selectNone();
    QVERIFY(!fixture.canvas()->hasSelection());
    target->copy();
    QVERIFY(!QGuiApplication::clipboard()->image().isNull());
    target->selectAll();
    target->cut();
    QCOMPARE(fixture.pixel(3, 4, 4), 1);
    target->paste();
    QCOMPARE(fixture.canvas()->mode(), ToolButton::Paste);
    fixture.draw(4, 4);
    QCOMPARE(fixture.pixel(3, 4, 4), 3);
}

void tst_TileWindow::pastedColoursAreTakenIntoTheBank()
{
    TileWindowFixture fixture;
    fixture.tile(1)->setOffset(7);
    fixture.window.setTileIndex(2);
    fixture.window.copy();

    fixture.window.setTileIndex(1);
    fixture.window.paste();
    fixture.draw(4, 4);

    QCOMPARE(fixture.pixel(0, 4, 4), 1);
    QCOMPARE(fixture.canvasPixel(4, 4), 1);
}

void tst_TileWindow::oldSetsAreNotHeard()
{
    TileWindowFixture fixture;
    TileSet other(nullptr, 2);
    fixture.window.setTileSet(&other);
    QCOMPARE(fixture.range()->maximum(), 2);

    fixture.tiles.set->setName("town");
    fixture.tiles.set->insertTile(0);
    fixture.tiles.set.reset();

    QCOMPARE(fixture.range()->maximum(), 2);
    QCOMPARE(fixture.window.tileSet(), &other);
    QVERIFY(fixture.window.isContentShown());
}

void tst_TileWindow::tabLeadsToTheColoursFirst()
{
    TileWindowFixture fixture;
    fixture.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&fixture.window));
    fixture.canvas()->setFocus();

    QTest::keyClick(fixture.canvas(), Qt::Key_Tab);

    QVERIFY(fixture.colours()->hasFocus());
}

QTEST_MAIN(tst_TileWindow)
#include "tst_TileWindow.moc"
