#include "mapeditor/MapGrid.h"

#include "ShownGrid.h"
#include "mapeditor/View.h"
#include "model/AnimatedBlocks.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "support/TestSprites.h"

#include <QBackingStore>
#include <QPaintEvent>
#include <QPainter>
#include <QRandomGenerator>

#include <functional>

using MapEditor::MapGrid;
using Tool = Tessaril::Ui::ToolButton;

namespace {

constexpr int BelowStatus = 24; // pixels: the status line tells how long a paint took

/// Gathers what is painted of a widget.
class PaintLog : public QObject
{
public:
    explicit PaintLog(QWidget *widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            m_region += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
    /// What was painted since the last call, with all paints that are due.
    QRegion take()
    {
        QCoreApplication::sendPostedEvents();
        return std::exchange(m_region, QRegion());
    }

private:
    QRegion m_region;
};

/// @p image in its own pixels, from below the status line.
QImage belowStatus(const QImage &image, QRect part)
{
    const QRectF exact(part.topLeft() * image.devicePixelRatio(),
                       part.size() * image.devicePixelRatio());
    QImage cut = image.copy(exact.toRect()).convertToFormat(QImage::Format_RGB32);
    cut.setDevicePixelRatio(1);
    return cut;
}

/// The pixels of @p widget that the user sees, without painting any.
QImage onScreen(const QWidget &widget)
{
    QCoreApplication::sendPostedEvents();
    const QWidget *const window = widget.window();
    const QRect part(widget.mapTo(window, QPoint(0, BelowStatus)),
                     widget.size() - QSize(0, BelowStatus));
    const auto *const shown = dynamic_cast<QImage *>(window->backingStore()->paintDevice());
    return shown ? belowStatus(*shown, part) : QImage();
}

/// The same pixels, painted whole now.
QImage paintedWhole(QWidget &widget)
{
    return belowStatus(widget.grab().toImage(),
                       QRect(0, BelowStatus, widget.width(), widget.height() - BelowStatus));
}

bool isSeenWhole(QWidget &widget)
{
    const QImage seen = onScreen(widget); // before anything is painted for the comparison
    return seen == paintedWhole(widget);
}

} // namespace

class tst_MapGridPaint : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aMoveRepaintsTheTwoCells();
    void aStrokeRepaintsItsCell();
    void hoveringAnObjectRepaintsAll();
    void theStatusLineIsRepaintedWhole();
    void aTickRepaintsWhatItChanges();
    void whatIsSeenStaysWhole_data();
    void whatIsSeenStaysWhole();
    void changesOfTheDocumentsAreSeenAtOnce_data();
    void changesOfTheDocumentsAreSeenAtOnce();
    void untoldChangesComeWithTheNextPaint();
    void gridLinesOfPartsMeet();
    void gridLinesAreHairlinesOnADenseScreen();

private:
    using Change = std::function<void(tst_MapGridPaint *)>;

    MapGrid &grid() const { return m_shown->grid; }

    std::unique_ptr<ShownGrid> m_shown;
    Palette m_spritePalette;
    std::unique_ptr<SpriteBank> m_bank; // 3 sprites
};

void tst_MapGridPaint::init()
{
    m_shown = std::make_unique<ShownGrid>();
    QVERIFY(QTest::qWaitForWindowExposed(&m_shown->grid));
    m_bank = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
    m_bank->setPalette(&m_spritePalette);
    TestSprites::fill(*m_bank, 3);
}

void tst_MapGridPaint::cleanup()
{
    m_bank.reset();
    m_shown.reset();
}

void tst_MapGridPaint::aMoveRepaintsTheTwoCells()
{
    m_shown->move(ShownGrid::at(1, 1));
    PaintLog log(&grid());
    log.take();

    m_shown->move(ShownGrid::at(4, 2));
    const QRegion painted = log.take();

    const QRect before(ShownGrid::at(1, 1) - QPoint(16, 16), QSize(32, 32));
    const QRect now(ShownGrid::at(4, 2) - QPoint(16, 16), QSize(32, 32));
    QCOMPARE(painted.intersected(before), QRegion(before));
    QCOMPARE(painted.intersected(now), QRegion(now));
    QVERIFY(!painted.contains(ShownGrid::at(3, 1)));
    QVERIFY(!painted.contains(QPoint(50, 200)));
}

void tst_MapGridPaint::aStrokeRepaintsItsCell()
{
    m_shown->move(ShownGrid::at(1, 1));
    PaintLog log(&grid());
    log.take();

    grid().setCurrentTileIndex(5);
    log.take();
    m_shown->press(ShownGrid::at(1, 1));
    QVERIFY(log.take().contains(ShownGrid::at(1, 1)));
    m_shown->move(ShownGrid::at(2, 1), Qt::LeftButton);
    const QRegion painted = log.take();

    QVERIFY(painted.contains(ShownGrid::at(2, 1)));
    QVERIFY(!painted.contains(ShownGrid::at(4, 1)));
    QVERIFY(isSeenWhole(grid()));
}

void tst_MapGridPaint::hoveringAnObjectRepaintsAll()
{
    m_shown->map->addAnimation({.id = QUuid::createUuid(), .rect = {3, 1, 2, 2}});
    m_shown->move(ShownGrid::at(1, 1));
    PaintLog log(&grid());
    log.take();

    m_shown->move(ShownGrid::at(3, 1));
    QVERIFY(log.take().contains(ShownGrid::at(5, 3)));
    m_shown->move(ShownGrid::at(4, 1));
    QVERIFY(!log.take().contains(ShownGrid::at(5, 3)));
    QVERIFY(isSeenWhole(grid()));
    m_shown->move(ShownGrid::at(0, 1));
    QVERIFY(log.take().contains(ShownGrid::at(5, 3)));
    QVERIFY(isSeenWhole(grid()));
}

void tst_MapGridPaint::theStatusLineIsRepaintedWhole()
{
    m_shown->move(ShownGrid::at(1, 1));
    PaintLog log(&grid());
    log.take();
    const int bottom = 10 + grid().fontMetrics().descent();

    m_shown->move(ShownGrid::at(2, 1));
    const QRect line(0, 0, grid().width(), bottom + 1);
    QCOMPARE(log.take().intersected(line), QRegion(line));
    grid().updateChanged(QRect(390, bottom, 1, 5));
    QCOMPARE(log.take(), QRegion(line) + QRect(390, bottom, 1, 5));
    grid().updateChanged(QRect(390, bottom + 1, 1, 5));
    QCOMPARE(log.take(), QRegion(390, bottom + 1, 1, 5));
}

void tst_MapGridPaint::aTickRepaintsWhatItChanges()
{
    const auto animation = m_bank->createAnimation();
    animation->setDelay(2);
    animation->addFrame();
    animation->frame(1)->setCell({0, 0}, {.index = 2});
    Map::PlacedSprite sprite;
    sprite.bank = m_bank->id();
    sprite.animation = animation->id();
    sprite.x = 32;
    m_shown->map->sprites().append(sprite);
    MapEditor::View view;
    view.resize(700, 600);
    view.setMap(m_shown->map.get());
    view.setSpriteBanks({m_bank.get()});
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    PaintLog log(view.grid());
    log.take();

    view.animator().tick(); // 1
    QVERIFY(log.take().isEmpty());
    view.animator().tick(); // 2: its second frame
    QCOMPARE(log.take(),
             QRegion(QRect(view.grid()->cellGeometry().fromMapPixel({32, 0}), QSize(64, 64))));
    QVERIFY(isSeenWhole(*view.grid()));
}

void tst_MapGridPaint::whatIsSeenStaysWhole_data()
{
    QTest::addColumn<int>("tileSize");
    QTest::newRow("cells of 8") << 2;
    QTest::newRow("cells of 20") << 5;
    QTest::newRow("cells of 32") << 8;
}

void tst_MapGridPaint::whatIsSeenStaysWhole()
{
    QFETCH(int, tileSize);
    QRandomGenerator random(77);
    grid().setSpriteBanks({m_bank.get()});
    grid().setCellMetrics(tileSize, 4);
    grid().setGridVisible(true);
    m_shown->map->addAnimation({.id = QUuid::createUuid(), .rect = {3, 1, 2, 2}});
    for (int i = 0; i < 4; ++i) {
        Map::PlacedSprite sprite;
        sprite.bank = m_bank->id();
        sprite.sprite = i % 3;
        sprite.x = 7 * i;
        m_shown->map->sprites().append(sprite);
    }
    const QRect cells = grid().cellGeometry().gridRect;

    for (int step = 0; step < 200; ++step) {
        const QPoint position(random.bounded(cells.left() - 4, cells.right() + 4),
                              random.bounded(cells.top() - 4, cells.bottom() + 4));
        const auto button = random.bounded(3) == 0 ? Qt::RightButton : Qt::LeftButton;
        m_shown->press(position, button);
        m_shown->move(position + QPoint(9, 7), button);
        if (step % 5 == 0)
            m_shown->map->objectLayer()->setCell({step % 6, step % 4}, TestMaps::cell(step % 16));
        m_shown->release(position + QPoint(9, 7), button);
        m_shown->move(position + QPoint(-30, 20));
        m_shown->map->sprites()[step % 4].y = random.bounded(30);
        grid().updateChanged();
        grid().setCurrentTileIndex(step % 16 - (step % 7 == 0 ? step : 0));
        if (step % 11 == 0)
            m_shown->stack.undo();
        QVERIFY(isSeenWhole(grid()));
    }
}

void tst_MapGridPaint::changesOfTheDocumentsAreSeenAtOnce_data()
{
    QTest::addColumn<Change>("change");
    using Test = tst_MapGridPaint *;
    const auto add = [](const char *name, const Change &change) { QTest::newRow(name) << change; };
    add("a tile's picture", [](Test t) { t->m_shown->tiles.set->clearImage(1); });
    add("a tile that is deleted", [](Test t) { t->m_shown->tiles.set->deleteTile(1); });
    add("rows", [](Test t) { t->m_shown->map->tileLayer()->setTiles(TestMaps::counted(6, 4)); });
    add("objects",
        [](Test t) { t->m_shown->map->objectLayer()->setTiles(TestMaps::counted(6, 4)); });
    add("a tile's colour", [](Test t) { t->m_shown->tiles.palette->setColour(1, Qt::magenta); });
    add("a sprite's colour", [](Test t) { t->m_spritePalette.setColour(3, Qt::magenta); });
    add("a sprite", [](Test t) { t->m_bank->setImage(2, TestSprites::filled(77)); });
}

void tst_MapGridPaint::changesOfTheDocumentsAreSeenAtOnce()
{
    QFETCH(Change, change);
    Map::PlacedSprite sprite;
    sprite.bank = m_bank->id();
    sprite.sprite = 2;
    sprite.x = 20;
    m_shown->map->sprites().append(sprite);
    MapEditor::View view;
    view.resize(700, 600);
    view.setMap(m_shown->map.get());
    view.grid()->setTransparencyIndex(0);
    view.setSpriteBanks({m_bank.get()});
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const QImage before = onScreen(*view.grid());

    change(this);

    QVERIFY(onScreen(*view.grid()) != before);
    QVERIFY(isSeenWhole(*view.grid()));
}

void tst_MapGridPaint::untoldChangesComeWithTheNextPaint()
{
    m_shown->move(ShownGrid::at(1, 1));
    onScreen(grid());
    m_shown->tiles.palette->setWord(1, 0xE000);
    m_shown->map->objectLayer()->setCell({5, 3}, TestMaps::cell(9));

    m_shown->move(ShownGrid::at(2, 1));
    QVERIFY(isSeenWhole(grid()));
    m_shown->tiles.palette->setWord(1, 0x1C00);
    grid().update(QRect(0, 40, 1, 1)); // which finds the rest, and repaints it later
    const QPoint elsewhere =
        (ShownGrid::at(4, 2) - QPoint(0, BelowStatus)) * grid().devicePixelRatioF();
    QTRY_COMPARE(onScreen(grid()).pixelColor(elsewhere), m_shown->tiles.palette->colour(1));
    QVERIFY(isSeenWhole(grid()));
}

void tst_MapGridPaint::gridLinesOfPartsMeet()
{
    grid().setGridVisible(true);
    const QImage whole = paintedWhole(grid());
    onScreen(grid());

    for (int y = 0; y < 300; y += 13) {
        for (int x = 0; x < 400; x += 17)
            grid().repaint(x, y, 17, 13);
    }

    QCOMPARE(onScreen(grid()), whole);
}

void tst_MapGridPaint::gridLinesAreHairlinesOnADenseScreen()
{
    grid().setGridVisible(true);
    const auto shown = [this] {
        QImage image(grid().size() * 2, QImage::Format_RGB32);
        image.setDevicePixelRatio(2);
        grid().render(&image);
        return image;
    };
    const QImage with = shown();
    grid().setGridVisible(false);
    const QImage without = shown();

    const int y = (ShownGrid::Corner.y() + 16) * 2; // between two lines
    int columns = 0;
    for (int x = (ShownGrid::Corner.x() + 48) * 2; x < (ShownGrid::Corner.x() + 80) * 2; ++x)
        columns += with.pixel(x, y) != without.pixel(x, y);
    QCOMPARE(columns, 1);
}

QTEST_MAIN(tst_MapGridPaint)

#include "tst_MapGridPaint.moc"
