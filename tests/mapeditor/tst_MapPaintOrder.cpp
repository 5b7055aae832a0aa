#include "ShownGrid.h"
#include "model/AnimatedBlocks.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"
#include "support/TestSprites.h"

#include <QFontMetrics>
#include <QPainter>

using MapEditor::MapGrid;
using Tool = Tessaril::Ui::ToolButton;

/// What stands above what on a map grid, pixel by pixel.
class tst_MapPaintOrder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aDisabledGridPaintsNothing();
    void theWindowColourSurroundsTheGrid();
    void theBackgroundStandsWithTheGrid();
    void spritesStandAboveObjectsTheLastOnTop();
    void aHiddenSpriteLayerIsNotDrawn();
    void spritesAreScaledAndRoundedHalfUp();
    void spritesShowTheFrameOfTheTick();
    void theHoveredSpritesOutlineIsUnderTheGridLines();
    void theHoveredBlocksOutlineIsAboveTheGridLines();
    void handlesStandAtTheCorners();
    void noGridLineClosesTheFarSides();
    void theCellAndTheTimeStandInTheCorner();
    void visibilityIsRepaintedAtOnce();

private:
    MapGrid &grid() const { return m_shown->grid; }
    Map &map() const { return *m_shown->map; }
    QImage picture() const { return grid().grab().toImage(); }
    QColor spriteColour(int index) const
    {
        return m_bank->spriteImage(index, 0, false, false, false).pixelColor(0, 0);
    }
    void placeSprite(int index, QPoint mapPixel);

    std::unique_ptr<ShownGrid> m_shown;
    std::unique_ptr<Palette> m_palette;
    std::unique_ptr<SpriteBank> m_bank; // two sprites, each of one colour
};

void tst_MapPaintOrder::init()
{
    m_shown = std::make_unique<ShownGrid>();
    m_palette = std::make_unique<Palette>();
    m_palette->setDefaultColours();
    m_bank = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
    m_bank->setPalette(m_palette.get());
    TestSprites::fill(*m_bank, 2);
    m_bank->setImage(0, TestSprites::filled(100));
    m_bank->setImage(1, TestSprites::filled(200));
    grid().setSpriteBanks({m_bank.get()});
    QVERIFY(spriteColour(0) != spriteColour(1));
}

void tst_MapPaintOrder::cleanup()
{
    m_shown.reset();
    m_bank.reset();
    m_palette.reset();
}

void tst_MapPaintOrder::placeSprite(int index, QPoint mapPixel)
{
    Map::PlacedSprite sprite;
    sprite.bank = m_bank->id();
    sprite.sprite = index;
    sprite.x = mapPixel.x();
    sprite.y = mapPixel.y();
    map().sprites().append(sprite);
}

void tst_MapPaintOrder::aDisabledGridPaintsNothing()
{
    grid().setEnabled(false);
    QImage before(grid().size(), QImage::Format_ARGB32);
    before.fill(Qt::magenta);
    QImage after = before;

    grid().render(&after, QPoint(), QRegion(), QWidget::RenderFlags());

    QCOMPARE(after, before);
}

void tst_MapPaintOrder::theWindowColourSurroundsTheGrid()
{
    const QImage image = picture();
    const QColor window = grid().palette().color(QPalette::Active, QPalette::Window);
    const QRect rect = grid().cellGeometry().gridRect;

    for (const QPoint place : {QPoint(rect.left() - 1, rect.top()), QPoint(rect.left(), 85),
                               QPoint(rect.right() + 1, rect.bottom()), QPoint(399, 299)})
        QCOMPARE(image.pixelColor(place), window);
    QVERIFY(image.pixelColor(rect.topLeft()) != window);
    QVERIFY(image.pixelColor(rect.bottomRight()) != window);
}

void tst_MapPaintOrder::theBackgroundStandsWithTheGrid()
{
    QImage marked = m_shown->tiles.set->tile(6)->image();
    marked.setPixel(0, 0, 3);
    m_shown->tiles.set->tile(6)->setImage(marked);
    map().tileLayer()->fill(map().tileLayer()->rect(), false);
    const QColor mark = m_shown->tiles.set->tileImage(6, false, false, false, 0).pixelColor(0, 0);
    const QColor plain = m_shown->tiles.set->tileImage(6, false, false, false, 0).pixelColor(1, 0);
    QVERIFY(mark != plain);
    grid().setBackgroundTileIndex(6);
    grid().resize(110, 90); // 3 by 2 cells
    const QPoint corner = grid().cellGeometry().gridRect.topLeft();

    for (const int scroll : {0, 1}) {
        grid().setHorizontalScrollPosition(scroll);
        const QImage image = picture();
        for (const QPoint cell : {QPoint(1, 1), QPoint(2, 1)}) {
            QCOMPARE(image.pixelColor(corner + 32 * cell), mark);
            QCOMPARE(image.pixelColor(corner + 32 * cell + QPoint(3, 3)), mark);
            QCOMPARE(image.pixelColor(corner + 32 * cell + QPoint(4, 0)), plain);
        }
    }
}

void tst_MapPaintOrder::spritesStandAboveObjectsTheLastOnTop()
{
    map().objectLayer()->setCell({1, 1}, TestMaps::cell(5));
    placeSprite(0, {8, 8});
    placeSprite(1, {16, 8});

    const QImage image = picture();

    QCOMPARE(image.pixelColor(ShownGrid::at(1, 1)), spriteColour(0));
    QCOMPARE(image.pixelColor(ShownGrid::at(2, 1)), spriteColour(1));
    QCOMPARE(image.pixelColor(ShownGrid::at(3, 2)), spriteColour(1));
    std::swap(map().sprites()[0], map().sprites()[1]);
    QCOMPARE(picture().pixelColor(ShownGrid::at(2, 1)), spriteColour(0));
}

void tst_MapPaintOrder::aHiddenSpriteLayerIsNotDrawn()
{
    const QImage without = picture();
    placeSprite(0, {8, 8});
    QVERIFY(picture() != without);

    grid().setSpriteVisibility(false);

    QCOMPARE(picture().copy(0, 20, 400, 280), without.copy(0, 20, 400, 280));
}

void tst_MapPaintOrder::spritesAreScaledAndRoundedHalfUp()
{
    grid().setCellMetrics(5, 1); // 0.625 screen pixels a map pixel
    placeSprite(0, {4, 12});     // 2.5 and 7.5
    const QRect drawn(grid().cellGeometry().gridRect.topLeft() + QPoint(3, 8), QSize(10, 10));

    const QImage image = picture();

    QCOMPARE(image.pixelColor(drawn.topLeft()), spriteColour(0));
    QCOMPARE(image.pixelColor(drawn.bottomRight()), spriteColour(0));
    QVERIFY(image.pixelColor(drawn.topLeft() - QPoint(1, 0)) != spriteColour(0));
    QVERIFY(image.pixelColor(drawn.topLeft() - QPoint(0, 1)) != spriteColour(0));
    QVERIFY(image.pixelColor(drawn.bottomRight() + QPoint(1, 0)) != spriteColour(0));
    QVERIFY(image.pixelColor(drawn.bottomRight() + QPoint(0, 1)) != spriteColour(0));
}

void tst_MapPaintOrder::spritesShowTheFrameOfTheTick()
{
    SpriteAnim *const walk = m_bank->createAnimation();
    walk->setDelay(2);
    walk->addFrame()->setCell({0, 0}, {.index = 1});
    placeSprite(-1, {8, 8});
    map().sprites()[0].animation = walk->id();
    QList<QColor> seen;

    for (const qint64 tick : {0, 1, 2, 3, 4}) {
        grid().setSpriteTicks(tick);
        seen.append(picture().pixelColor(ShownGrid::at(1, 1)));
    }

    const QColor first = spriteColour(0);
    const QColor second = spriteColour(1);
    QCOMPARE(seen, QList<QColor>({first, first, second, second, first}));
}

void tst_MapPaintOrder::theHoveredSpritesOutlineIsUnderTheGridLines()
{
    const QColor line(0x40, 0x40, 0x40);
    placeSprite(0, {8, 8}); // two by two cells
    grid().setMode(Tool::PlaceSprite);
    m_shown->move(ShownGrid::at(2, 2));
    const QPoint onSide = ShownGrid::Corner + QPoint(32, 50);
    const QPoint onFarSide = ShownGrid::Corner + QPoint(96, 50);

    for (const QPoint place : {onSide, onFarSide - QPoint(1, 0)}) {
        const QColor colour = m_shown->pixel(place);
        QVERIFY(colour == QColor(Qt::darkGray) || colour == QColor(Qt::lightGray));
    }
    grid().setGridVisible(true);
    QCOMPARE(m_shown->pixel(onSide), line);
    QCOMPARE(m_shown->pixel(onFarSide), line);
    m_shown->move(ShownGrid::at(5, 0));

    QCOMPARE(m_shown->pixel(onSide - QPoint(1, 0)), m_shown->pixel(ShownGrid::at(0, 0)));
}

void tst_MapPaintOrder::theHoveredBlocksOutlineIsAboveTheGridLines()
{
    map().addAnimation({.id = QUuid::createUuid(), .rect = {1, 1, 2, 2}});
    grid().setGridVisible(true);
    m_shown->move(ShownGrid::at(2, 2));

    for (const QPoint offset : {QPoint(32, 50), QPoint(50, 32), QPoint(95, 50), QPoint(50, 95)}) {
        const QColor colour = m_shown->pixel(ShownGrid::Corner + offset);
        QVERIFY(colour == QColor(Qt::darkGray) || colour == QColor(Qt::lightGray));
    }
}

void tst_MapPaintOrder::handlesStandAtTheCorners()
{
    grid().setMode(Tool::Select);
    grid().setSelection({1, 1, 2, 2});
    const QImage image = picture();

    for (const QPoint cell : {QPoint(1, 1), QPoint(3, 1), QPoint(3, 3), QPoint(1, 3)}) {
        const QPoint corner = ShownGrid::Corner + 32 * cell;
        QCOMPARE(image.pixelColor(corner), QColor(Qt::darkCyan));
        QCOMPARE(image.pixelColor(corner - QPoint(2, 0)), QColor(Qt::darkCyan));
        QVERIFY(image.pixelColor(corner - QPoint(5, 5)) != QColor(Qt::darkCyan));
        QVERIFY(image.pixelColor(corner + QPoint(4, 0)) != QColor(Qt::darkCyan));
    }
}

void tst_MapPaintOrder::noGridLineClosesTheFarSides()
{
    const QColor line(0x40, 0x40, 0x40);
    grid().setGridColours(Qt::red, Qt::green); // kept, not drawn
    grid().setGridVisible(true);
    const QImage image = picture();
    const QRect rect = grid().cellGeometry().gridRect;

    for (int column = 0; column < 6; ++column)
        QCOMPARE(image.pixelColor(rect.left() + 32 * column, rect.top() + 5), line);
    for (int row = 0; row < 4; ++row)
        QCOMPARE(image.pixelColor(rect.left() + 5, rect.top() + 32 * row), line);
    QCOMPARE(image.pixelColor(rect.right(), rect.top() + 32), line);
    QCOMPARE(image.pixelColor(rect.left() + 32, rect.bottom()), line);
    for (const int beyond : {0, 1}) {
        QVERIFY(image.pixelColor(rect.right() + beyond, rect.top() + 5) != line);
        QVERIFY(image.pixelColor(rect.left() + 5, rect.bottom() + beyond) != line);
    }
}

void tst_MapPaintOrder::theCellAndTheTimeStandInTheCorner()
{
    const auto expected = [this](const QString &text) {
        const QPixmap shown = grid().grab();
        QImage image(shown.size(), shown.toImage().format());
        image.fill(grid().palette().color(QPalette::Window));
        QPainter painter(&image);
        painter.setFont(grid().font());
        painter.setPen(Qt::white);
        painter.drawText(QPointF(10, 10), text);
        return image;
    };
    const auto matches = [this, &expected](const QString &text) {
        // What comes behind is the time of the paint.
        const QRect start(0, 0, 10 + QFontMetrics(grid().font()).horizontalAdvance(text), 20);
        return picture().copy(start) == expected(text).copy(start);
    };
    QVERIFY(expected(QStringLiteral("  [")) != expected(QString()));

    m_shown->move(ShownGrid::at(4, 2));
    QVERIFY(matches(QStringLiteral("  [4:2] ")));
    m_shown->move({390, 290});

    QVERIFY(matches(QStringLiteral("  [-1:2] ")));
}

void tst_MapPaintOrder::visibilityIsRepaintedAtOnce()
{
    const QImage before = picture();
    grid().setMapVisibility(false);
    QVERIFY(!map().tileLayer()->isVisible());
    QVERIFY(picture() != before);
    grid().setMapVisibility(true);
    map().objectLayer()->setCell({0, 0}, TestMaps::cell(5));
    grid().setObjectVisibility(false);

    QVERIFY(!map().objectLayer()->isVisible());
    QCOMPARE(picture().copy(0, 20, 400, 280), before.copy(0, 20, 400, 280));
}

QTEST_MAIN(tst_MapPaintOrder)

#include "tst_MapPaintOrder.moc"
