#include "editors/PickerFixture.h"
#include "editors/TileDrag.h"

#include <QDrag>
#include <QMimeData>
#include <QSignalSpy>

#include <functional>

namespace {

const QColor Black(Qt::black);
const QColor White(Qt::white);

} // namespace

/// What the grid paints, and the drags from and to its cells.
class tst_TilePickerView : public QObject
{
    Q_OBJECT

private slots:
    void tilesFillTheirCellsButForTheGap();
    void tilesShowTheirPaletteOffset();
    void colourChangesArePainted();
    void editsArePaintedWithoutTheRest();
    void theHoveredTileIsTinted();
    void theHoveredTileIsFramedOnlyUnderTheMouse();
    void theTargetOfADropIsNotTinted();
    void theSelectedTileIsFramed();
    void theFrameOfTheSelectedTileIsSmaller();
    void tilesPastTheMapsReachAreDarker();
    void hoveringRepaintsTwoCells();
    void changesRepaintTheGrid_data();
    void changesRepaintTheGrid();
    void aDragCarriesTheTile();
    void draggingMovesTheTile();
    void draggingWithShiftCopiesTheTile();
    void otherModifiersDoNothing();
    void droppingATileOnItselfChangesNothing();
    void droppingBesideTheTilesChangesNothing();
    void aShortMoveStartsNoDrag();
    void theRightButtonStartsNoDrag();
    void aDragFromBesideTheTilesCarriesNothing();
    void theTargetIsFramedUntilTheDragLeaves();
    void onlyTilesAreAccepted();
    void dataThatIsNotOfThisPressIsIgnored_data();
    void dataThatIsNotOfThisPressIsIgnored();

private:
    /// The colours of a tile's cell from its top left corner downwards, @p column pixels in.
    static QSet<QRgb> coloursOfColumn(PickerFixture *fixture, int index, int column)
    {
        const QImage picture = fixture->grid.grab().toImage();
        const QRect cell = fixture->grid.cellRect(index);
        QSet<QRgb> colours;
        for (int y = cell.top() + 2; y < cell.bottom() - 3; ++y)
            colours += picture.pixel(cell.left() + column, y);
        return colours;
    }
    /// Drags the mouse off the middle of a cell. The platform of the tests ends every drag at once,
    /// and its object lives until the next turn of the event loop; null if there was none.
    static QDrag *startDrag(PickerFixture *fixture, int from);
    /// Sends the events of a drag that comes over @p to.
    static bool enter(PickerFixture *fixture, const QMimeData *data);
    static void move(PickerFixture *fixture, int to, const QMimeData *data);
    static bool drop(PickerFixture *fixture, int to, const QMimeData *data,
                     Qt::KeyboardModifiers modifiers = Qt::NoModifier);
};

QDrag *tst_TilePickerView::startDrag(PickerFixture *fixture, int from)
{
    QTest::mousePress(&fixture->grid, Qt::LeftButton, {}, fixture->at(from));
    const QPoint to = fixture->at(from) + QPoint(QApplication::startDragDistance(), 0);
    QMouseEvent move(QEvent::MouseMove, to, fixture->grid.mapToGlobal(to), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&fixture->grid, &move);
    return fixture->grid.findChild<QDrag *>();
}

bool tst_TilePickerView::enter(PickerFixture *fixture, const QMimeData *data)
{
    QDragEnterEvent event(fixture->at(0), Qt::MoveAction, data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QCoreApplication::sendEvent(&fixture->grid, &event);
    return event.isAccepted();
}

void tst_TilePickerView::move(PickerFixture *fixture, int to, const QMimeData *data)
{
    // Only a widget that has accepted a drag hears of its moves.
    if (!enter(fixture, data))
        qFatal("the drag is not accepted");
    QDragMoveEvent event(fixture->at(to), Qt::MoveAction, data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&fixture->grid, &event);
}

bool tst_TilePickerView::drop(PickerFixture *fixture, int to, const QMimeData *data,
                              Qt::KeyboardModifiers modifiers)
{
    QDropEvent event(fixture->at(to), Qt::MoveAction, data, Qt::LeftButton, modifiers);
    QCoreApplication::sendEvent(&fixture->grid, &event);
    return event.isAccepted();
}

void tst_TilePickerView::tilesFillTheirCellsButForTheGap()
{
    PickerFixture fixture;

    const QImage picture = fixture.grid.grab().toImage();

    // Tile 6 is the third of the second row.
    QCOMPARE(picture.pixelColor(64, 32), fixture.paletteColour(6));
    QCOMPARE(picture.pixelColor(94, 62), fixture.paletteColour(6));
    QCOMPARE(picture.pixelColor(95, 40), Black);
    QCOMPARE(picture.pixelColor(70, 63), Black);
    QCOMPARE(picture.pixelColor(fixture.at(10)), Black);
    QCOMPARE(picture.pixelColor(fixture.at(13)), Black);
}

void tst_TilePickerView::tilesShowTheirPaletteOffset()
{
    PickerFixture fixture;
    fixture.tiles.set->tile(3)->setOffset(2);
    fixture.tiles.set->notifyImageChanged(3);

    QCOMPARE(fixture.colourAt(fixture.at(3)), fixture.paletteColour(2 * 16 + 3));
}

void tst_TilePickerView::colourChangesArePainted()
{
    PickerFixture fixture;
    QCOMPARE(fixture.colourAt(fixture.at(3)), fixture.paletteColour(3));

    fixture.tiles.palette->setColour(3, QColor(255, 0, 255));

    QCOMPARE(fixture.colourAt(fixture.at(3)), QColor(255, 0, 255));
}

void tst_TilePickerView::editsArePaintedWithoutTheRest()
{
    PickerFixture fixture;
    QCOMPARE(fixture.colourAt(fixture.at(3)), fixture.paletteColour(3));

    fixture.tiles.set->clearImage(3);
    QCOMPARE(fixture.colourAt(fixture.at(3)), fixture.paletteColour(0));
    QCOMPARE(fixture.colourAt(fixture.at(4)), fixture.paletteColour(4));

    fixture.tiles.set->moveTile(9, 0);
    QCOMPARE(fixture.colourAt(fixture.at(0)), fixture.paletteColour(9));
    QCOMPARE(fixture.colourAt(fixture.at(9)), fixture.paletteColour(8));
}

void tst_TilePickerView::theHoveredTileIsTinted()
{
    PickerFixture fixture;
    const QColor plain = fixture.colourAt(fixture.at(5));

    fixture.hover(5);
    QVERIFY(fixture.grid.underMouse());
    const QColor tinted = fixture.colourAt(fixture.at(5));
    // 80 of 255 parts of (160, 160, 255).
    QVERIFY(std::abs(tinted.red() - (plain.red() * 175 + 160 * 80) / 255) <= 1);
    QVERIFY(std::abs(tinted.green() - (plain.green() * 175 + 160 * 80) / 255) <= 1);
    QVERIFY(std::abs(tinted.blue() - (plain.blue() * 175 + 255 * 80) / 255) <= 1);

    fixture.hover(6);
    QCOMPARE(fixture.colourAt(fixture.at(5)), plain);
}

void tst_TilePickerView::theHoveredTileIsFramedOnlyUnderTheMouse()
{
    PickerFixture fixture;
    const QColor plain = fixture.colourAt(fixture.at(5));
    QVERIFY(!coloursOfColumn(&fixture, 5, 31).contains(White.rgb()));

    fixture.hover(5);
    QVERIFY(coloursOfColumn(&fixture, 5, 31).contains(White.rgb()));
    fixture.grid.setAttribute(Qt::WA_UnderMouse, false);

    QVERIFY(!coloursOfColumn(&fixture, 5, 31).contains(White.rgb()));
    QCOMPARE(fixture.colourAt(fixture.at(5)), plain);
}

void tst_TilePickerView::theTargetOfADropIsNotTinted()
{
    PickerFixture fixture;
    const QColor plain = fixture.colourAt(fixture.at(5));
    const auto data = TileDrag::mimeData({2, 0});

    move(&fixture, 5, data.get());
    QMouseEvent hover(QEvent::MouseMove, fixture.at(5), fixture.globalAt(5), Qt::NoButton,
                      Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&fixture.grid, &hover);

    QCOMPARE(fixture.grid.hoverIndex(), 5);
    QCOMPARE(fixture.grid.dropIndex(), 5);
    QVERIFY(fixture.grid.underMouse());
    QCOMPARE(fixture.colourAt(fixture.at(5)), plain);
    QCOMPARE(coloursOfColumn(&fixture, 5, 0), (QSet<QRgb>{Black.rgb(), White.rgb()}));
}

void tst_TilePickerView::theSelectedTileIsFramed()
{
    PickerFixture fixture;
    const auto coloursOfTopEdge = [&fixture] {
        const QImage picture = fixture.grid.grab().toImage();
        QList<QColor> colours;
        for (int x = 64; x < 92; ++x)
            colours += picture.pixelColor(x, 32);
        return colours;
    };
    QVERIFY(!coloursOfTopEdge().contains(White));

    fixture.grid.setSelectedIndex(6);

    QVERIFY(coloursOfTopEdge().contains(White));
    QVERIFY(coloursOfTopEdge().contains(Black));
    QCOMPARE(fixture.colourAt(fixture.at(6)), fixture.paletteColour(6));
    fixture.grid.setSelectedIndex(-1);
    QVERIFY(!coloursOfTopEdge().contains(White));
}

void tst_TilePickerView::theFrameOfTheSelectedTileIsSmaller()
{
    PickerFixture fixture;

    fixture.grid.setSelectedIndex(6);

    QCOMPARE(coloursOfColumn(&fixture, 6, 30), (QSet<QRgb>{Black.rgb(), White.rgb()}));
    QCOMPARE(coloursOfColumn(&fixture, 6, 31), QSet<QRgb>{Black.rgb()}); // the gap
}

void tst_TilePickerView::tilesPastTheMapsReachAreDarker()
{
    PickerFixture fixture(515);
    fixture.tiles.set->copyTile(512, 1);
    fixture.grid.resize(PickerFixture::Columns * 32, 130 * 32);

    const QImage picture = fixture.grid.grab().toImage();

    // Tiles 497, 512 and 513 have the pixels 1.
    const QColor colour = fixture.paletteColour(1);
    const QColor darker = picture.pixelColor(fixture.at(513));
    QCOMPARE(picture.pixelColor(fixture.at(512)), colour);
    QCOMPARE(picture.pixelColor(fixture.at(497)), colour);
    QVERIFY(darker != colour);
    QVERIFY(std::abs(darker.blue() - colour.blue() * 191 / 255) <= 1);
}

void tst_TilePickerView::hoveringRepaintsTwoCells()
{
    PickerFixture fixture;
    fixture.hover(0);
    QCoreApplication::processEvents();
    struct Region : QObject
    {
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::Paint)
                painted += static_cast<QPaintEvent *>(event)->region();
            return false;
        }
        QRegion painted;
    } region;
    fixture.grid.installEventFilter(&region);

    fixture.hover(10);
    fixture.hover(5);

    QTRY_VERIFY(!region.painted.isEmpty());
    const QRegion cells = QRegion(-1, -1, 34, 34) + QRegion(31, 31, 34, 34);
    QCOMPARE(region.painted - cells, QRegion());
    QVERIFY(region.painted.contains(fixture.at(0)));
    QVERIFY(region.painted.contains(fixture.at(5)));
}

void tst_TilePickerView::changesRepaintTheGrid_data()
{
    using Change = std::function<void(PickerFixture &)>;
    QTest::addColumn<Change>("change");
    QTest::newRow("picking") << Change([](auto &test) { test.grid.setSelectedIndex(3); });
    QTest::newRow("unpicking") << Change([](auto &test) { test.grid.setSelectedIndex(-1); });
    QTest::newRow("an edit") << Change([](auto &test) { test.tiles.set->clearImage(3); });
    QTest::newRow("moved") << Change([](auto &test) { test.tiles.set->moveTile(1, 2); });
    QTest::newRow("zoomed") << Change([](auto &test) { test.grid.setMagnification(5); });
}

void tst_TilePickerView::changesRepaintTheGrid()
{
    QFETCH(std::function<void(PickerFixture &)>, change);
    PickerFixture fixture(4);
    fixture.grid.resize(fixture.grid.sizeHint()); // so that none of it comes from another size
    fixture.grid.setSelectedIndex(2);
    QCoreApplication::processEvents();
    struct PaintCounter : QObject
    {
        int paints = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } counter;
    fixture.grid.installEventFilter(&counter);

    change(fixture);

    QTRY_VERIFY(counter.paints > 0);
}

void tst_TilePickerView::aDragCarriesTheTile()
{
    PickerFixture fixture(6);
    fixture.tiles.set->tile(5)->setOffset(9);
    fixture.hover(5);

    const QPointer<QDrag> drag = startDrag(&fixture, 5);

    QVERIFY(drag);
    QCOMPARE(drag->mimeData()->data("tessaril/tile-drag-anim"), QByteArray("\0\0\0\5\0\0\0\x9", 8));
    QCOMPARE(drag->pixmap().size(), QSize(32, 32));
    QCOMPARE(drag->pixmap().toImage().pixelColor(16, 16), fixture.paletteColour(9 * 16 + 5));
    QCOMPARE(drag->supportedActions(), Qt::MoveAction);
    QCOMPARE(fixture.grid.hoverIndex(), -1);
    QTRY_VERIFY(!drag);
}

void tst_TilePickerView::draggingMovesTheTile()
{
    PickerFixture fixture(6);
    QSignalSpy changed(fixture.tiles.set.get(), &TileSet::structureChanged);
    const QDrag *drag = startDrag(&fixture, 1);
    QVERIFY(drag);

    move(&fixture, 4, drag->mimeData());
    QVERIFY(drop(&fixture, 4, drag->mimeData()));

    QCOMPARE(changed, QList<QVariantList>{{"Move Tile"}});
    QCOMPARE(fixture.order(), QList<int>({0, 2, 3, 4, 1, 5}));
    QCOMPARE(fixture.colourAt(fixture.at(4)), fixture.paletteColour(1));
    QCOMPARE(fixture.grid.selectedIndex(), -1);
    QCOMPARE(fixture.grid.dropIndex(), -1);
}

void tst_TilePickerView::draggingWithShiftCopiesTheTile()
{
    PickerFixture fixture(6);
    QTest::mousePress(&fixture.grid, Qt::LeftButton, {}, fixture.at(5));
    fixture.tiles.set->tile(5)->setOffset(2);
    QSignalSpy changed(fixture.tiles.set.get(), &TileSet::structureChanged);
    const auto data = TileDrag::mimeData({5, 2});

    move(&fixture, 1, data.get());
    QVERIFY(drop(&fixture, 1, data.get(), Qt::ShiftModifier));

    QCOMPARE(changed, QList<QVariantList>{{"Copy Tile"}});
    QCOMPARE(fixture.tiles.set->tile(1)->image().pixelIndex(3, 3), 5);
    QCOMPARE(fixture.tiles.set->tile(1)->offset(), 2);
    QCOMPARE(fixture.order(), QList<int>({0, 1, 2, 3, 4, 5}));
    QCOMPARE(fixture.colourAt(fixture.at(1)), fixture.paletteColour(37));
}

void tst_TilePickerView::otherModifiersDoNothing()
{
    PickerFixture fixture(6);
    QTest::mousePress(&fixture.grid, Qt::LeftButton, {}, fixture.at(5));
    QSignalSpy about(fixture.tiles.set.get(), &TileSet::structureAboutToChange);
    const auto data = TileDrag::mimeData({5, 0});

    move(&fixture, 1, data.get());
    QCOMPARE(fixture.grid.dropIndex(), 1);
    drop(&fixture, 1, data.get(), Qt::ControlModifier);
    move(&fixture, 1, data.get());
    drop(&fixture, 1, data.get(), Qt::ShiftModifier | Qt::ControlModifier);

    QCOMPARE(about.count(), 0);
    QCOMPARE(fixture.grid.dropIndex(), -1);
}

void tst_TilePickerView::droppingATileOnItselfChangesNothing()
{
    PickerFixture fixture(6);
    QTest::mousePress(&fixture.grid, Qt::LeftButton, {}, fixture.at(2));
    QSignalSpy about(fixture.tiles.set.get(), &TileSet::structureAboutToChange);
    const auto data = TileDrag::mimeData({2, 0});

    move(&fixture, 2, data.get());
    drop(&fixture, 2, data.get());
    move(&fixture, 2, data.get());
    drop(&fixture, 2, data.get(), Qt::ShiftModifier);

    QCOMPARE(about.count(), 0);
    QCOMPARE(fixture.order(), QList<int>({0, 1, 2, 3, 4, 5}));
}

void tst_TilePickerView::droppingBesideTheTilesChangesNothing()
{
    PickerFixture fixture(6);
    QTest::mousePress(&fixture.grid, Qt::LeftButton, {}, fixture.at(2));
    const auto data = TileDrag::mimeData({2, 0});

    move(&fixture, 7, data.get());

    QCOMPARE(fixture.grid.dropIndex(), -1);
    QVERIFY(!drop(&fixture, 7, data.get()));
    QCOMPARE(fixture.order(), QList<int>({0, 1, 2, 3, 4, 5}));
}

void tst_TilePickerView::aShortMoveStartsNoDrag()
{
    PickerFixture fixture;
    QWindow *const window = fixture.grid.windowHandle();

    QTest::mousePress(window, Qt::LeftButton, {}, fixture.at(2));
    QTest::mouseMove(window, fixture.at(2) + QPoint(QApplication::startDragDistance() - 1, 0));
    QVERIFY(!fixture.grid.findChild<QDrag *>());
    QCOMPARE(fixture.grid.hoverIndex(), 2);
    QTest::mouseRelease(window, Qt::LeftButton, {}, fixture.at(2));

    QCOMPARE(fixture.grid.selectedIndex(), 2);
}

void tst_TilePickerView::theRightButtonStartsNoDrag()
{
    PickerFixture fixture;
    QTest::mousePress(&fixture.grid, Qt::RightButton, {}, fixture.at(5));

    QMouseEvent move(QEvent::MouseMove, fixture.at(2), fixture.globalAt(2), Qt::NoButton,
                     Qt::RightButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&fixture.grid, &move);

    QVERIFY(!fixture.grid.findChild<QDrag *>());
    QCOMPARE(fixture.grid.hoverIndex(), 2);
}

void tst_TilePickerView::aDragFromBesideTheTilesCarriesNothing()
{
    PickerFixture fixture(6);
    QWindow *const window = fixture.grid.windowHandle();

    QTest::mousePress(window, Qt::LeftButton, {}, fixture.at(7));
    QTest::mouseMove(window, fixture.at(3));
    QVERIFY(!fixture.grid.findChild<QDrag *>());
    QCOMPARE(fixture.grid.hoverIndex(), 3);
    QTest::mouseRelease(window, Qt::LeftButton, {}, fixture.at(3));

    QCOMPARE(fixture.order(), QList<int>({0, 1, 2, 3, 4, 5}));
}

void tst_TilePickerView::theTargetIsFramedUntilTheDragLeaves()
{
    PickerFixture fixture;
    const auto data = TileDrag::mimeData({2, 0});
    const auto isFramed = [&fixture] {
        const QImage picture = fixture.grid.grab().toImage();
        for (int x = 32; x < 60; ++x) {
            if (picture.pixelColor(x, 32) == White)
                return true;
        }
        return false;
    };

    move(&fixture, 5, data.get());
    QCOMPARE(fixture.grid.dropIndex(), 5);
    QVERIFY(isFramed());

    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&fixture.grid, &leave);
    QCOMPARE(fixture.grid.dropIndex(), -1);
    QVERIFY(!isFramed());
}

void tst_TilePickerView::onlyTilesAreAccepted()
{
    PickerFixture fixture;
    QMimeData text;
    text.setText("tile");

    QVERIFY(enter(&fixture, TileDrag::mimeData({2, 0}).get()));
    QVERIFY(!enter(&fixture, &text));
}

void tst_TilePickerView::dataThatIsNotOfThisPressIsIgnored_data()
{
    QTest::addColumn<QByteArray>("data");

    QTest::newRow("another tile") << QByteArray("\0\0\0\3\0\0\0\0", 8);
    QTest::newRow("negative") << QByteArray("\xff\xff\xff\xff\0\0\0\0", 8);
    QTest::newRow("cut") << QByteArray("\0\0\0\2\0\0\0", 7);
    QTest::newRow("too long") << QByteArray("\0\0\0\2\0\0\0\0\0", 9);
    QTest::newRow("empty") << QByteArray();
}

void tst_TilePickerView::dataThatIsNotOfThisPressIsIgnored()
{
    QFETCH(QByteArray, data);
    PickerFixture fixture(6);
    QTest::mousePress(&fixture.grid, Qt::LeftButton, {}, fixture.at(2));
    QMimeData mime;
    mime.setData("tessaril/tile-drag-anim", data);

    move(&fixture, 4, &mime);

    QVERIFY(!drop(&fixture, 4, &mime));
    QCOMPARE(fixture.order(), QList<int>({0, 1, 2, 3, 4, 5}));
}

QTEST_MAIN(tst_TilePickerView)
#include "tst_TilePickerView.moc"
