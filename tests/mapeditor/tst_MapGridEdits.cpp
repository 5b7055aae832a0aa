#include "ShownGrid.h"
#include "model/AnimatedBlocks.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "support/TestSprites.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QRubberBand>
#include <QSignalSpy>

using MapEditor::MapGrid;
using Tessaril::Position;
using Tool = Tessaril::Ui::ToolButton;

/// What a map grid changes, records and sends, in which order.
class tst_MapGridEdits : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theSelectionIsCutBeforeTheSizeIsTold();
    void aPlacedSpriteIsAnnouncedUnderAnyNumber();
    void leavingTheSpritesSendsTheSelectionFirst();
    void aRefusedPasteGoesBackAndSaysSo();
    void aRefusalWhilePastingStays();
    void anUnknownModeKeepsTheTool();
    void aNewSizeIsRecordedBeforeItIsTold();
    void anUndoSendsSelectionSizeAndRanges();
    void anUndoForgetsWhatIsUnderTheMouse();
    void everythingPlacedMovesWithRowsAndColumns();
    void addingNothingOnlyTellsTheSize();
    void resizingKeepsTheContentAtItsAnchor();
    void copyingGoesBackToTheToolBefore();
    void copyingKeepsItsOutlineAlsoInTheSameTool();
    void theClipboardHoldsTheCellsByteForByte();
    void aCopiedImageFollowsTheTransparency();
    void aCopiedImageWithoutPaletteNamesNone();
    void cuttingIsOneStepAndLeavesTheMode();
    void aNewMapIsAskedForAfterTheCopy();
    void withoutSelectionNothingIsCopied();
    void aStrokeCutByAnotherToolIsAnEdit();
    void scrollingTakesTheRubberBandAlong();
    void scrollingForgetsTheHoveredCell();
    void choosingATileForgetsTheBlock();
    void onlyAUsableSpriteTurnsTheModeOn();
    void aSpriteAnimationIsPlacedWithItsBank();

private:
    MapGrid &grid() const { return m_shown->grid; }
    Map &map() const { return *m_shown->map; }
    static QPoint at(int x, int y) { return ShownGrid::at(x, y); }
    void logSignals();

    std::unique_ptr<ShownGrid> m_shown;
    std::unique_ptr<SpriteBank> m_bank;
    QStringList m_log;
};

void tst_MapGridEdits::init()
{
    m_shown = std::make_unique<ShownGrid>();
    m_bank = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
    TestSprites::fill(*m_bank, 2);
    grid().setSpriteBanks({m_bank.get()});
    QGuiApplication::clipboard()->clear();
}

void tst_MapGridEdits::cleanup()
{
    m_shown.reset();
    m_bank.reset();
    m_log.clear();
}

/// From here on m_log tells what the grid and the undo stack send.
void tst_MapGridEdits::logSignals()
{
    const auto log = [this](const QString &text) { m_log.append(text); };
    connect(&grid(), &MapGrid::selectedSpriteChanged, &grid(),
            [log](int index) { log(QStringLiteral("sprite %1").arg(index)); });
    connect(&grid(), &MapGrid::modeChanged, &grid(),
            [log](Tool mode) { log(QStringLiteral("mode %1").arg(int(mode))); });
    connect(&grid(), &MapGrid::mapResized, &grid(), [log](QSize size) {
        log(QStringLiteral("size %1x%2").arg(size.width()).arg(size.height()));
    });
    connect(&grid(), &MapGrid::scrollDeltaChanged, &grid(),
            [log](int h, int v) { log(QStringLiteral("room %1 %2").arg(h).arg(v)); });
    connect(&m_shown->stack, &QUndoStack::indexChanged, &grid(),
            [log](int index) { log(QStringLiteral("step %1").arg(index)); });
}

void tst_MapGridEdits::theSelectionIsCutBeforeTheSizeIsTold()
{
    grid().setSelection({0, 0, 6, 4});
    QList<QRect> seen;
    connect(&grid(), &MapGrid::mapResized, &grid(),
            [this, &seen] { seen.append(grid().selection()); });

    grid().removeRows(Position::End, 1);
    grid().removeColumns(Position::Begin, 2);

    QCOMPARE(seen, QList<QRect>({QRect(0, 0, 6, 3), QRect(0, 0, 4, 3)}));
}

void tst_MapGridEdits::aPlacedSpriteIsAnnouncedUnderAnyNumber()
{
    grid().setCurrentSprite(m_bank->id(), 0);
    QSignalSpy selected(&grid(), &MapGrid::selectedSpriteChanged);
    m_shown->click(at(1, 1));
    map().sprites().clear(); // as when its bank loses the sprite

    m_shown->click(at(4, 2));

    QCOMPARE(selected.count(), 2);
    QCOMPARE(selected.at(1).at(0).toInt(), 0);
}

void tst_MapGridEdits::leavingTheSpritesSendsTheSelectionFirst()
{
    grid().setCurrentSprite(m_bank->id(), 0);
    m_shown->click(at(1, 1));
    logSignals();

    grid().setMode(Tool::Pick);

    QCOMPARE(m_log, QStringList({"sprite -1", QStringLiteral("mode %1").arg(int(Tool::Pick))}));
}

void tst_MapGridEdits::aRefusedPasteGoesBackAndSaysSo()
{
    grid().setMode(Tool::Select);
    logSignals();

    grid().setMode(Tool::Paste);

    QCOMPARE(grid().mode(), Tool::Select);
    QCOMPARE(m_log, QStringList(QStringLiteral("mode %1").arg(int(Tool::Select))));
}

void tst_MapGridEdits::aRefusalWhilePastingStays()
{
    grid().setSelection({0, 0, 2, 2});
    grid().copySelection();
    grid().setMode(Tool::Paste);
    QGuiApplication::clipboard()->clear();
    logSignals();

    grid().setMode(Tool::Paste);

    QCOMPARE(grid().mode(), Tool::Paste);
    QCOMPARE(m_log, QStringList());
}

void tst_MapGridEdits::anUnknownModeKeepsTheTool()
{
    QTest::ignoreMessage(QtInfoMsg, "MapWidget::setMode(ZoomIn) Unhandled switch case");
    grid().setMode(Tool::ZoomIn);
    grid().setCurrentTileIndex(5);

    m_shown->click(at(1, 1));

    QCOMPARE(m_shown->tileAt(1, 1), 5);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Paint"));
}

void tst_MapGridEdits::aNewSizeIsRecordedBeforeItIsTold()
{
    grid().resize(100, 80); // 3 by 2 cells
    logSignals();

    grid().addRows(Position::End, 1);
    QCOMPARE(m_log, QStringList({"step 1", "size 6x5", "room 3 3"}));
    m_log.clear();
    grid().resizeMap({4, 3}, Qt::AlignCenter);

    QCOMPARE(m_log, QStringList({"step 2", "size 4x3", "room 1 1"}));
}

void tst_MapGridEdits::anUndoSendsSelectionSizeAndRanges()
{
    grid().setCurrentSprite(m_bank->id(), 0);
    m_shown->click(at(1, 1));
    m_shown->click(at(4, 2));
    QCOMPARE(grid().selectedSprite(), 1);
    logSignals();

    m_shown->stack.undo();
    QCOMPARE(m_log, QStringList({"sprite -1", "size 6x4", "room 0 0", "step 1"}));
    m_shown->click(at(1, 1));
    m_log.clear();
    m_shown->stack.redo();

    QCOMPARE(m_log, QStringList({"sprite 0", "size 6x4", "room 0 0", "step 2"}));
}

void tst_MapGridEdits::anUndoForgetsWhatIsUnderTheMouse()
{
    grid().setCurrentSprite(m_bank->id(), 0);
    m_shown->click(at(1, 1)); // now hovered
    m_shown->stack.undo();
    m_shown->stack.redo();
    grid().deleteHovered();
    QCOMPARE(map().sprites().size(), 1);

    grid().setMode(Tool::Draw);
    map().addAnimation({.id = QUuid::createUuid(), .rect = {3, 2, 2, 1}});
    m_shown->move(at(3, 2));
    m_shown->stack.undo();
    map().addAnimation({.id = QUuid::createUuid(), .rect = {3, 2, 2, 1}});
    grid().deleteHovered();

    QVERIFY(!map().animatedBlocks()->find({3, 2, 2, 1}).isNull());
}

void tst_MapGridEdits::everythingPlacedMovesWithRowsAndColumns()
{
    Map::PlacedSprite sprite;
    sprite.x = 20;
    sprite.y = 20;
    map().sprites().append(sprite);
    map().addAnimation({.id = QUuid::createUuid(), .rect = {1, 1, 2, 1}});
    const auto place = [this] {
        const QRect rect = map().animatedBlocks()->blocks().at(0)->rect;
        const auto &placed = map().sprites().at(0);
        return QList<QPoint>{rect.topLeft(), QPoint(placed.x, placed.y)};
    };

    grid().addColumns(Position::Begin, 2);
    QCOMPARE(place(), QList<QPoint>({{3, 1}, {36, 20}}));
    grid().addRows(Position::Begin, 1);
    QCOMPARE(place(), QList<QPoint>({{3, 2}, {36, 28}}));
    grid().addRows(Position::End, 1);
    grid().addColumns(Position::End, 1);
    QCOMPARE(place(), QList<QPoint>({{3, 2}, {36, 28}}));
    grid().removeColumns(Position::Begin, 1);
    QCOMPARE(place(), QList<QPoint>({{2, 2}, {28, 28}}));
    grid().removeRows(Position::Begin, 1);
    QCOMPARE(place(), QList<QPoint>({{2, 1}, {28, 20}}));
    grid().removeRows(Position::End, 1);
    grid().removeColumns(Position::End, 1);
    QCOMPARE(place(), QList<QPoint>({{2, 1}, {28, 20}}));
    while (m_shown->stack.canUndo())
        m_shown->stack.undo();
    QCOMPARE(place(), QList<QPoint>({{1, 1}, {20, 20}}));
}

void tst_MapGridEdits::addingNothingOnlyTellsTheSize()
{
    logSignals();

    grid().addRows(Position::Begin, 0);
    grid().removeColumns(Position::Begin, 0);

    QCOMPARE(m_log, QStringList({"size 6x4", "room 0 0", "size 6x4", "room 0 0"}));
}

void tst_MapGridEdits::resizingKeepsTheContentAtItsAnchor()
{
    map().tileLayer()->setCell({5, 3}, TestMaps::cell(9));

    grid().resizeMap({4, 2}, Qt::AlignRight | Qt::AlignBottom);

    QCOMPARE(m_shown->tileAt(3, 1), 9);
    QCOMPARE(m_shown->tileAt(2, 1), 1);
}

void tst_MapGridEdits::copyingGoesBackToTheToolBefore()
{
    grid().setMode(Tool::Pick);
    grid().setMode(Tool::Select);
    grid().setSelection({1, 1, 2, 2});

    grid().copySelection();

    QCOMPARE(grid().mode(), Tool::Pick);
    QCOMPARE(grid().pasteRect(), QRect(1, 1, 2, 2));
    QCOMPARE(m_shown->stack.count(), 0);
}

void tst_MapGridEdits::copyingKeepsItsOutlineAlsoInTheSameTool()
{
    grid().setMode(Tool::Select);
    grid().setMode(Tool::Select);
    grid().setSelection({1, 1, 2, 2});

    grid().copySelection();

    QVERIFY(!grid().selection().isValid());
    QCOMPARE(grid().pasteRect(), QRect(1, 1, 2, 2));
}

void tst_MapGridEdits::theClipboardHoldsTheCellsByteForByte()
{
    map().tileLayer()->setCell({4, 3}, {.index = 0x0102, .offset = 0x0f, .occupied = true});
    map().tileLayer()->setCell({5, 3}, {.index = 7, .rotate = true, .mirror = true, .offset = 2});
    map().tileLayer()->setCell({4, 2}, {.index = 3, .flip = true, .occupied = true});
    grid().setSelection({4, 2, 3, 2});

    grid().copySelection();

    const QByteArray expected = QByteArray::fromHex("00000002" // rows
                                                    "00000003" // columns
                                                    "00000003 01 00000000 000100"
                                                    "00000001 01 00000000 000000"
                                                    "00000000 00 00000000 000000"
                                                    "00000102 01 0000000f 000000"
                                                    "00000007 00 00000002 010001"
                                                    "00000000 00 00000000 000000");
    const QByteArray data =
        QGuiApplication::clipboard()->mimeData()->data(QStringLiteral("tessaril-map-toNextData"));
    QCOMPARE(data.toHex(), (expected + m_shown->tiles.set->id().toRfc4122()).toHex());
}

void tst_MapGridEdits::aCopiedImageFollowsTheTransparency()
{
    map().tileLayer()->setCell({1, 0}, TestMaps::cell(2));
    grid().setSelection({0, 0, 2, 1});
    grid().setTransparencyIndex(2);

    grid().copyAsImage();

    const QImage image = QGuiApplication::clipboard()->image();
    QCOMPARE(image.size(), QSize(16, 8));
    QCOMPARE(image.pixelColor(0, 0).alpha(), 255);
    QCOMPARE(image.pixelColor(8, 0).alpha(), 0);
}

void tst_MapGridEdits::aCopiedImageWithoutPaletteNamesNone()
{
    m_shown->tiles.set->setPalette(nullptr);
    grid().setSelection({0, 0, 2, 1});

    grid().copyAsImage();

    QCOMPARE(QGuiApplication::clipboard()->image().text("paletteid"),
             QStringLiteral("{00000000-0000-0000-0000-000000000000}"));
}

void tst_MapGridEdits::cuttingIsOneStepAndLeavesTheMode()
{
    grid().setMode(Tool::Select);
    grid().setSelection({1, 1, 2, 2});

    grid().cutSelection();
    QCOMPARE(grid().mode(), Tool::Draw);
    QCOMPARE(m_shown->stack.count(), 1);
    QVERIFY(map().tileLayer()->cell({1, 1}) == TestMaps::cell(0));
    m_shown->stack.undo();

    QCOMPARE(m_shown->tileAt(1, 1), 1);
}

void tst_MapGridEdits::aNewMapIsAskedForAfterTheCopy()
{
    grid().setMode(Tool::Select);
    grid().setSelection({1, 0, 3, 2});
    bool copied = false;
    connect(&grid(), &MapGrid::createMapFromSelection, &grid(), [&copied] {
        copied = QGuiApplication::clipboard()->mimeData()->hasFormat(TileMap::mimeType());
    });

    grid().mapFromSelection();

    QVERIFY(copied);
    QCOMPARE(grid().mode(), Tool::Draw);
}

void tst_MapGridEdits::withoutSelectionNothingIsCopied()
{
    grid().setMode(Tool::Select);
    QGuiApplication::clipboard()->setText(QStringLiteral("kept"));

    grid().cutSelection();
    grid().copySelection();
    grid().mapFromSelection();
    grid().copyAsImage();
    grid().clearSelection();

    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("kept"));
    QCOMPARE(grid().mode(), Tool::Select);
    QCOMPARE(m_shown->stack.count(), 0);
}

void tst_MapGridEdits::aStrokeCutByAnotherToolIsAnEdit()
{
    grid().setCurrentTileIndex(5);
    m_shown->press(at(1, 1));
    grid().setMode(Tool::Pick);
    grid().beginEdit();

    m_shown->release({390, 290}, Qt::RightButton);

    QCOMPARE(m_shown->stack.count(), 1);
    QCOMPARE(m_shown->undoText(), QStringLiteral("Edit"));
}

void tst_MapGridEdits::scrollingTakesTheRubberBandAlong()
{
    grid().resize(100, 80);
    grid().setMode(Tool::Select);
    const QPoint corner = grid().cellGeometry().gridRect.topLeft();
    auto *const band = grid().findChild<QRubberBand *>();
    QVERIFY(band->isHidden());

    m_shown->press(corner + QPoint(10, 10));
    m_shown->move(corner + QPoint(50, 40), Qt::LeftButton);
    QCOMPARE(band->geometry(), QRect(corner + QPoint(10, 10), corner + QPoint(50, 40)));
    QVERIFY(band->isVisible());
    grid().scrollRight();
    grid().scrollDown();

    QCOMPARE(band->pos(), corner + QPoint(10 - 32, 10 - 32));
    m_shown->release(corner + QPoint(50, 40));
    QVERIFY(band->isHidden());
}

void tst_MapGridEdits::scrollingForgetsTheHoveredCell()
{
    grid().resize(100, 80);
    grid().setCurrentTileIndex(5);
    const QPoint place = grid().cellGeometry().gridRect.topLeft() + QPoint(40, 40);
    const QColor tile = m_shown->tiles.set->tileImage(5, false, false, false, 0).pixelColor(0, 0);
    m_shown->move(place);
    QCOMPARE(m_shown->pixel(place), tile);

    grid().scrollRight();

    QVERIFY(m_shown->pixel(place) != tile);
    QVERIFY(m_shown->pixel(place - QPoint(32, 0)) != tile);
}

void tst_MapGridEdits::choosingATileForgetsTheBlock()
{
    MapObjects blocks;
    QPointer<TileAnimation> door = blocks.createTileAnimation(QStringLiteral("Door"));
    door->addFrame()->setCell({0, 0}, {.index = 8});
    grid().setCurrentTileAnimation(door);
    QCOMPARE(grid().currentTile(), -1);
    const QColor before = m_shown->pixel(at(1, 1));
    m_shown->move(at(1, 1));
    QVERIFY(m_shown->pixel(at(1, 1)) != before); // the block's preview

    grid().setCurrentTileIndex(5);
    QCOMPARE(m_shown->pixel(at(1, 1)), before);
    QCOMPARE(grid().mode(), Tool::PlaceAnim); // the mode stays what it was

    m_shown->click(at(1, 1));

    QVERIFY(map().animatedBlocks()->blocks().isEmpty());
    QCOMPARE(m_shown->tileAt(1, 1), 5);
}

void tst_MapGridEdits::onlyAUsableSpriteTurnsTheModeOn()
{
    grid().setCurrentSprite(m_bank->id(), -1);
    QCOMPARE(grid().mode(), Tool::Draw);
    QCOMPARE(grid().currentTile(), -1);
    grid().setCurrentSpriteAnimation(nullptr);
    QCOMPARE(grid().mode(), Tool::Draw);
    grid().setCurrentSprite(m_bank->id(), 1);
    QCOMPARE(grid().mode(), Tool::PlaceSprite);
    grid().setCurrentSpriteAnimation(nullptr);

    m_shown->click(at(1, 1));

    QVERIFY(map().sprites().isEmpty());
}

void tst_MapGridEdits::aSpriteAnimationIsPlacedWithItsBank()
{
    SpriteAnim *const walk = m_bank->createAnimation();
    grid().setCurrentSprite(m_bank->id(), 1);

    grid().setCurrentSpriteAnimation(walk);
    QCOMPARE(grid().mode(), Tool::PlaceSprite);
    m_shown->click(at(1, 1));

    Map::PlacedSprite expected;
    expected.bank = m_bank->id();
    expected.animation = walk->id();
    expected.x = 12;
    expected.y = 12;
    QCOMPARE(map().sprites().size(), 1);
    QVERIFY(map().sprites().at(0) == expected);
}

QTEST_MAIN(tst_MapGridEdits)

#include "tst_MapGridEdits.moc"
