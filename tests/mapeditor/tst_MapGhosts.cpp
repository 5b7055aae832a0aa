#include "mapeditor/MapTool.h"

#include "FurnishedGrid.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/Tile.h"
#include "support/PaintCounter.h"

using Tool = Tessaril::Ui::ToolButton;

namespace {

QColor mixed(const QColor &over, const QColor &under)
{
    const auto channel = [](int a, int b) { return qRound(0.6 * a + 0.4 * b); };
    return {channel(over.red(), under.red()), channel(over.green(), under.green()),
            channel(over.blue(), under.blue())};
}

/// Opacity is kept in steps of 1/255, so that a channel may be one off.
bool isAbout(const QColor &first, const QColor &second)
{
    return std::abs(first.red() - second.red()) <= 1 &&
           std::abs(first.green() - second.green()) <= 1 &&
           std::abs(first.blue() - second.blue()) <= 1;
}

} // namespace

/// What the tools show of an edit that is not yet made.
class tst_MapGhosts : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_shown.reset(); }

    void aBlockIsShownBeforeItIsPlaced();
    void theCellsOfABlockAreShownTurned();
    void noBlockIsShownOverAPlacedOne();
    void aSpriteIsShownAtSixTenths();
    void theGhostSnaps();
    void theGhostOfAnAnimationIsItsFirstFrame();
    void noSpriteIsShownOverAPlacedOne();
    void noSpriteIsShownDuringADrag();
    void aGhostGoesWithTheMouse();
    void thePasteFrameFollowsTheMouse();
    void theRubberBandLastsAsLongAsTheDrag();
    void anUndoIsSeenWithoutAMoveOfTheMouse();

private:
    MapEditor::MapGrid &grid() const { return m_shown->grid; }
    static QPoint at(int x, int y) { return ShownGrid::at(x, y); }
    /// The middle of a map pixel, which is 4 pixels wide on screen.
    static QPoint pixel(int x, int y)
    {
        return ShownGrid::Corner + QPoint(x, y) * 4 + QPoint(2, 2);
    }
    QColor tileColour(int value) const { return m_shown->tiles.palette->colour(value); }
    QColor spriteColour(int index) const { return m_shown->bank.palette()->colour(index + 1); }

    std::unique_ptr<FurnishedGrid> m_shown;
};

void tst_MapGhosts::init()
{
    m_shown = std::make_unique<FurnishedGrid>(4);
    m_shown->bank.setPalette(m_shown->tiles.palette.get());
}

void tst_MapGhosts::aBlockIsShownBeforeItIsPlaced()
{
    grid().setCurrentTileAnimation(m_shown->door);

    m_shown->move(at(1, 2));

    QCOMPARE(m_shown->pixel(at(1, 2)), tileColour(8));
    QCOMPARE(m_shown->pixel(at(2, 2)), tileColour(9));
    QCOMPARE(m_shown->pixel(at(3, 2)), tileColour(1));
    QCOMPARE(m_shown->pixel(at(1, 3)), tileColour(1));
    QCOMPARE(m_shown->tileAt(1, 2), 1);
    QCOMPARE(m_shown->stack.count(), 0);
}

void tst_MapGhosts::theCellsOfABlockAreShownTurned()
{
    QImage uneven = Tile::blankImage(m_shown->tiles.palette->colourTable());
    uneven.setPixel(1, 0, 7);
    m_shown->tiles.set->tile(4)->setImage(uneven);
    m_shown->door->frame(0)->setCell({0, 0}, {.index = 4, .offset = 2});
    m_shown->door->frame(0)->setCell({1, 0}, {.index = 4, .mirror = true, .rotate = true});
    grid().setCurrentTileAnimation(m_shown->door);

    m_shown->move(at(1, 1));

    // Column 1 of the top row; rotated it stands in the last column, mirrored in the first.
    QCOMPARE(m_shown->pixel(pixel(8 + 1, 8)), tileColour(2 * 16 + 7));
    QCOMPARE(m_shown->pixel(pixel(8 + 2, 8)), tileColour(2 * 16));
    QCOMPARE(m_shown->pixel(pixel(16, 8 + 1)), tileColour(7));
    QCOMPARE(m_shown->pixel(pixel(16, 8 + 2)), tileColour(0));
}

void tst_MapGhosts::noBlockIsShownOverAPlacedOne()
{
    m_shown->map->addAnimation({.id = m_shown->door->id(), .rect = {1, 1, 2, 1}});
    grid().setCurrentTileAnimation(m_shown->door);

    m_shown->move(at(2, 1));

    QCOMPARE(m_shown->pixel(at(2, 1)), tileColour(1));
    m_shown->move(at(3, 1));
    QCOMPARE(m_shown->pixel(at(3, 1)), tileColour(8));
}

void tst_MapGhosts::aSpriteIsShownAtSixTenths()
{
    grid().setCurrentSprite(m_shown->bank.id(), 2);

    m_shown->move(pixel(9, 5));

    const QColor expected = mixed(spriteColour(2), tileColour(1));
    QVERIFY(isAbout(m_shown->pixel(pixel(9, 5)), expected));
    QVERIFY(isAbout(m_shown->pixel(pixel(24, 20)), expected));
    QCOMPARE(m_shown->pixel(pixel(8, 5)), tileColour(1));
    QCOMPARE(m_shown->pixel(pixel(25, 20)), tileColour(1));
    QVERIFY(m_shown->map->sprites().isEmpty());
}

void tst_MapGhosts::theGhostSnaps()
{
    grid().setSnapToSize(2);
    grid().setCurrentSprite(m_shown->bank.id(), 2);

    m_shown->move(pixel(30, 20));

    QVERIFY(isAbout(m_shown->pixel(pixel(16, 16)), mixed(spriteColour(2), tileColour(1))));
    QCOMPARE(m_shown->pixel(pixel(15, 16)), tileColour(1));
}

void tst_MapGhosts::theGhostOfAnAnimationIsItsFirstFrame()
{
    const auto animation = m_shown->bank.createAnimation();
    animation->frame(0)->setCell({0, 0}, {.index = 3});
    animation->addFrame();
    animation->setDelay(2);
    grid().setSpriteTicks(3);
    grid().setCurrentSpriteAnimation(animation);

    m_shown->move(pixel(9, 5));

    QVERIFY(isAbout(m_shown->pixel(pixel(20, 12)), mixed(spriteColour(3), tileColour(1))));
}

void tst_MapGhosts::noSpriteIsShownOverAPlacedOne()
{
    grid().setCurrentSprite(m_shown->bank.id(), 2);
    m_shown->click(pixel(8, 8));
    grid().setCurrentSprite(m_shown->bank.id(), 0);

    m_shown->move(pixel(20, 20));

    QCOMPARE(m_shown->pixel(pixel(21, 21)), spriteColour(2));
    QCOMPARE(m_shown->pixel(pixel(30, 30)), tileColour(1));
}

void tst_MapGhosts::noSpriteIsShownDuringADrag()
{
    grid().setCurrentSprite(m_shown->bank.id(), 2);
    m_shown->click(pixel(8, 8));

    m_shown->press(pixel(10, 10));
    m_shown->move(pixel(22, 10), Qt::LeftButton);

    QCOMPARE(m_shown->pixel(pixel(28, 16)), spriteColour(2)); // which has come along
    QCOMPARE(m_shown->pixel(pixel(37, 16)), tileColour(1));
    QCOMPARE(m_shown->pixel(pixel(12, 16)), tileColour(1));
    m_shown->release(pixel(22, 10));
}

void tst_MapGhosts::aGhostGoesWithTheMouse()
{
    grid().setCurrentSprite(m_shown->bank.id(), 2);
    m_shown->move(pixel(9, 5));
    QVERIFY(m_shown->pixel(pixel(12, 12)) != tileColour(1));

    m_shown->move({390, 290});
    QCOMPARE(m_shown->pixel(pixel(12, 12)), tileColour(1));
    grid().setCurrentTileAnimation(m_shown->door);
    m_shown->move(at(1, 2));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&grid(), &leave);

    QCOMPARE(m_shown->pixel(at(1, 2)), tileColour(1));
}

void tst_MapGhosts::thePasteFrameFollowsTheMouse()
{
    grid().setSelection({0, 0, 2, 2});
    grid().copySelection();
    grid().setMode(Tool::Paste);
    const QColor handle(Qt::darkCyan);

    m_shown->move(at(4, 2)); // the block's corner is cell (3, 1)
    QCOMPARE(m_shown->pixel(ShownGrid::Corner + QPoint(3 * 32, 32)), handle);
    QCOMPARE(m_shown->pixel(ShownGrid::Corner + QPoint(5 * 32, 3 * 32)), handle);
    m_shown->move(at(2, 2));

    QCOMPARE(m_shown->pixel(ShownGrid::Corner + QPoint(32, 32)), handle);
    QCOMPARE(m_shown->pixel(ShownGrid::Corner + QPoint(5 * 32, 3 * 32)), tileColour(1));
}

void tst_MapGhosts::theRubberBandLastsAsLongAsTheDrag()
{
    const auto *const band = grid().findChild<QRubberBand *>();
    QVERIFY(band);
    grid().setMode(Tool::Select);

    m_shown->press(at(3, 2));
    m_shown->move(at(1, 1), Qt::LeftButton);
    QVERIFY(!band->isHidden());
    QCOMPARE(band->geometry(), QRect(at(1, 1), at(3, 2)));
    m_shown->release(at(1, 1));

    QVERIFY(band->isHidden());
    QCOMPARE(grid().selection(), QRect(1, 1, 3, 2));
}

void tst_MapGhosts::anUndoIsSeenWithoutAMoveOfTheMouse()
{
    grid().setCurrentTileIndex(5);
    m_shown->click(at(2, 2));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&grid(), &leave);
    QApplication::processEvents();
    PaintCounter paints(grid());

    m_shown->stack.undo();
    QTRY_COMPARE(paints.count(), 1);
    QCOMPARE(m_shown->pixel(at(2, 2)), tileColour(1));
    const int grabbed = paints.count();
    m_shown->stack.redo();

    QTRY_COMPARE(paints.count(), grabbed + 1);
    QCOMPARE(m_shown->pixel(at(2, 2)), tileColour(5));
}

QTEST_MAIN(tst_MapGhosts)

#include "tst_MapGhosts.moc"
