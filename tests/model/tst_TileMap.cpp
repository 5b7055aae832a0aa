#include "model/TileMap.h"

#include "model/Palette.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "support/TestMaps.h"

#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include <limits>

using TestMaps::cell;
using TestMaps::counted;
using TestMaps::indices;

namespace {

using Indices = QList<QList<int>>;

std::unique_ptr<TileMap> countedMap(int width, int height)
{
    auto map = std::make_unique<TileMap>(QSize(1, 1));
    map->setTiles(counted(width, height));
    return map;
}

} // namespace

class tst_TileMap : public QObject
{
    Q_OBJECT

private slots:
    void aNewMapHasZeroCellsAndIsShown();
    void aSizeThatIsNotAllowedMakesNoCells();
    void allowedSizes_data();
    void allowedSizes();
    void writingACellIsSilentAndOnlyInside();
    void fillTakesTheFirstTilesOffset();
    void fillIsCutToTheMap();
    void fillOfAnEmptySetHasOffsetZero();
    void insidePartSurvivesExtremeRectangles();
    void writtenCellsAreLoggedOneByOne();
    void otherChangesAreLoggedAsAll();
    void rowsAndColumnsComeAndGoAtBothEnds();
    void rowsAndColumnsStayWithinTheAllowedSizes();
    void resizeMovesColumns_data();
    void resizeMovesColumns();
    void resizeMovesRows_data();
    void resizeMovesRows();
    void resizeRefusesASizeThatIsNotAllowed();
    void setTilesTakesTheSizeAndSends();
    void setTilesEvensOutTheRows();
    void deletingATileRenumbersCells();
    void insertingATileRenumbersCells();
    void renumberingNothingKeepsTheRowsShared();
    void swappingTilesRenumbersAndSends();
    void swappingOtherTilesSendsNothing();
    void anotherSetIsNoLongerFollowed();
    void toDataReachesOutsideTheMap();
    void toDataEndsInTheSetsId();
    void fromDataKeepsWhatFallsInside();
    void fromDataNeverReadsPastItsBytes();
    void signalsAreOnlyTilesChanged();
};

void tst_TileMap::aNewMapHasZeroCellsAndIsShown()
{
    const TileMap map({3, 2});

    QCOMPARE(map.size(), QSize(3, 2));
    QCOMPARE(indices(map), (Indices{{0, 0, 0}, {0, 0, 0}}));
    QVERIFY(map.cell({2, 1}) == TileMap::TileData());
    QVERIFY(!map.cell({2, 1}).occupied);
    QVERIFY(map.isVisible());
    QVERIFY(map.tileSet().isNull());
    QVERIFY(!map.id().isNull());
}

void tst_TileMap::aSizeThatIsNotAllowedMakesNoCells()
{
    QCOMPARE(TileMap({-1, 5}).size(), QSize(0, 0));
    QCOMPARE(TileMap({1 << 14, (1 << 13) + 1}).size(), QSize(0, 0));
}

void tst_TileMap::allowedSizes_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("allowed");
    QTest::newRow("nothing") << QSize(0, 0) << true;
    QTest::newRow("one cell") << QSize(1, 1) << true;
    QTest::newRow("2^27 cells") << QSize(1 << 14, 1 << 13) << true;
    QTest::newRow("2^27 cells in a row") << QSize(1 << 27, 1) << true;
    QTest::newRow("one cell more") << QSize((1 << 27) + 1, 1) << false;
    QTest::newRow("far more than 32 bits") << QSize(0x7FFFFFFF, 0x7FFFFFFF) << false;
    QTest::newRow("negative") << QSize(-1, 1) << false;
    QTest::newRow("negative twice") << QSize(-5, -5) << false;
    QTest::newRow("longest empty side") << QSize(0, 65535) << true;
    QTest::newRow("longer empty side") << QSize(65536, 0) << false;
}

void tst_TileMap::allowedSizes()
{
    QFETCH(QSize, size);
    QFETCH(bool, allowed);

    QCOMPARE(TileMap::isAllowed(size), allowed);
}

void tst_TileMap::writingACellIsSilentAndOnlyInside()
{
    TileMap map({2, 1});
    QSignalSpy changed(&map, &TileMap::tilesChanged);

    map.setCell({1, 0}, cell(7, 3));
    for (const QPoint outside : {QPoint(-1, 0), QPoint(2, 0), QPoint(0, -1), QPoint(0, 1)})
        map.setCell(outside, cell(9));

    QVERIFY(map.cell({1, 0}) == cell(7, 3));
    QCOMPARE(indices(map), (Indices{{0, 7}}));
    QCOMPARE(changed.count(), 0);
}

void tst_TileMap::fillTakesTheFirstTilesOffset()
{
    TestMaps::PlainTiles tiles(4);
    tiles.set->tile(0)->setOffset(6);
    const auto map = countedMap(3, 2);
    map->setTileSet(tiles.set.get());

    map->fill({1, 0, 1, 2}, true);

    QVERIFY(map->cell({1, 0}) == cell(0, 6));
    QVERIFY(map->cell({1, 1}) == cell(0, 6));
    QCOMPARE(indices(*map), (Indices{{0, 0, 2}, {3, 0, 5}}));
    map->fill({0, 0, 1, 1}, false);
    QVERIFY(!map->cell({0, 0}).occupied);
}

void tst_TileMap::fillIsCutToTheMap()
{
    const auto map = countedMap(3, 2);

    map->fill({2, 1, 9, 9}, true);
    map->fill({-4, -4, 5, 5}, true);
    map->fill({3, 0, 2, 2}, true);
    map->fill(QRect(), true);

    QCOMPARE(indices(*map), (Indices{{0, 1, 2}, {3, 4, 0}}));
}

void tst_TileMap::fillOfAnEmptySetHasOffsetZero()
{
    TileSet empty(nullptr, 0);
    TileMap map({1, 1});
    map.setTileSet(&empty);

    map.fill({0, 0, 1, 1}, true);

    QVERIFY(map.cell({0, 0}) == cell(0, 0));
}

void tst_TileMap::insidePartSurvivesExtremeRectangles()
{
    constexpr int Least = std::numeric_limits<int>::min();
    constexpr int Most = std::numeric_limits<int>::max();
    const TileMap map({3, 2});

    QCOMPARE(map.insidePart(QRect(QPoint(Least, Least), QPoint(Most, Most))), map.rect());
    QCOMPARE(map.insidePart(QRect(QPoint(1, 1), QPoint(Most, Most))), QRect(1, 1, 2, 1));
    QVERIFY(map.insidePart(QRect(QPoint(Most, 0), QPoint(Most, 5))).isEmpty());
    QVERIFY(map.insidePart(QRect(QPoint(Least, 0), QPoint(Least, 5))).isEmpty());
}

void tst_TileMap::rowsAndColumnsComeAndGoAtBothEnds()
{
    using Tessaril::Position;
    const auto map = countedMap(2, 1);

    map->addRow(Position::Begin);
    QCOMPARE(indices(*map), (Indices{{0, 0}, {0, 1}}));
    map->addRow(Position::End);
    QCOMPARE(indices(*map), (Indices{{0, 0}, {0, 1}, {0, 0}}));
    map->addColumn(Position::Begin);
    QCOMPARE(indices(*map), (Indices{{0, 0, 0}, {0, 0, 1}, {0, 0, 0}}));
    map->addColumn(Position::End);
    QCOMPARE(indices(*map), (Indices{{0, 0, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 0}}));
    QCOMPARE(map->size(), QSize(4, 3));
    QVERIFY(!map->cell({3, 1}).occupied);

    map->removeRow(Position::Begin);
    QCOMPARE(indices(*map), (Indices{{0, 0, 1, 0}, {0, 0, 0, 0}}));
    map->removeRow(Position::End);
    map->removeColumn(Position::Begin);
    QCOMPARE(indices(*map), (Indices{{0, 1, 0}}));
    map->removeColumn(Position::End);
    QCOMPARE(indices(*map), (Indices{{0, 1}}));
    QCOMPARE(map->size(), QSize(2, 1));
}

void tst_TileMap::rowsAndColumnsStayWithinTheAllowedSizes()
{
    TileMap tall({0, TileMap::MaxEmptySide});
    TileMap wide({TileMap::MaxEmptySide, 0});
    TileMap empty({0, 0});
    TileMap lessTall({0, TileMap::MaxEmptySide - 1});
    TileMap lessWide({TileMap::MaxEmptySide - 1, 0});

    tall.addRow(Tessaril::Position::End);
    wide.addColumn(Tessaril::Position::Begin);
    lessTall.addRow(Tessaril::Position::Begin);
    lessWide.addColumn(Tessaril::Position::End);
    empty.removeRow(Tessaril::Position::Begin);
    empty.removeColumn(Tessaril::Position::End);

    QCOMPARE(tall.size(), QSize(0, TileMap::MaxEmptySide));
    QCOMPARE(wide.size(), QSize(TileMap::MaxEmptySide, 0));
    QCOMPARE(lessTall.size(), tall.size());
    QCOMPARE(lessWide.size(), wide.size());
    QCOMPARE(empty.size(), QSize(0, 0));
}

void tst_TileMap::writtenCellsAreLoggedOneByOne()
{
    const auto map = countedMap(3, 2);
    const quint64 before = map->revision();

    map->setCell({2, 1}, cell(9));
    map->setCell({2, 1}, cell(9));
    map->fill({1, 0, 1, 1}, true);
    map->fill({1, 0, 1, 1}, true);

    QCOMPARE(map->cellsWrittenSince(before), (QList<QPoint>{{2, 1}, {1, 0}}));
}

void tst_TileMap::otherChangesAreLoggedAsAll()
{
    const auto map = countedMap(3, 2);
    const quint64 before = map->revision();

    map->adjustIndices(2, 1);

    QVERIFY(map->revision() != before);
    QVERIFY(!map->cellsWrittenSince(before).has_value());
}

void tst_TileMap::resizeMovesColumns_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::addColumn<int>("firstKept");
    QTest::addColumn<int>("shift");
    const Qt::Alignment centre = Qt::AlignHCenter;
    const Qt::Alignment right = Qt::AlignRight;
    QTest::newRow("shrunk about the centre") << 10 << 7 << centre << 1 << -1;
    QTest::newRow("shrunk to the right") << 10 << 7 << right << 3 << -3;
    QTest::newRow("shrunk to the left") << 10 << 7 << Qt::Alignment(Qt::AlignLeft) << 0 << 0;
    QTest::newRow("shrunk without a word") << 10 << 7 << Qt::Alignment() << 0 << 0;
    QTest::newRow("grown about the centre") << 7 << 10 << centre << 0 << 1;
    QTest::newRow("grown to the right") << 7 << 10 << right << 0 << 3;
    QTest::newRow("grown to the left") << 7 << 10 << Qt::Alignment(Qt::AlignLeft) << 0 << 0;
    QTest::newRow("the centre wins") << 7 << 10 << (centre | right) << 0 << 1;
    QTest::newRow("the other axis says nothing")
        << 7 << 10 << Qt::Alignment(Qt::AlignVCenter | Qt::AlignBottom) << 0 << 0;
    QTest::newRow("the same width") << 7 << 7 << right << 0 << 0;
}

void tst_TileMap::resizeMovesColumns()
{
    QFETCH(int, before);
    QFETCH(int, after);
    QFETCH(Qt::Alignment, alignment);
    QFETCH(int, firstKept);
    QFETCH(int, shift);
    const auto map = countedMap(before, 1);
    QSignalSpy changed(map.get(), &TileMap::tilesChanged);

    const QPoint moved = map->resize({after, 1}, alignment);

    QCOMPARE(moved, QPoint(shift, 0));
    QList<int> expected(after, 0);
    const int to = std::max(shift, 0);
    for (int i = 0; i < std::min(before, after); ++i)
        expected[to + i] = firstKept + i;
    QCOMPARE(indices(*map), Indices{expected});
    QCOMPARE(map->cell({to, 0}).occupied, true);
    QCOMPARE(changed.count(), 0);
}

void tst_TileMap::resizeMovesRows_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::addColumn<QList<int>>("rows");
    QTest::addColumn<int>("shift");
    const Qt::Alignment centre = Qt::AlignVCenter;
    const Qt::Alignment bottom = Qt::AlignBottom;
    QTest::newRow("shrunk about the centre") << 6 << 3 << centre << QList<int>{1, 2, 3} << -1;
    QTest::newRow("shrunk to the bottom") << 6 << 3 << bottom << QList<int>{3, 4, 5} << -3;
    QTest::newRow("grown about the centre") << 2 << 5 << centre << QList<int>{0, 0, 1, 0, 0} << 1;
    QTest::newRow("grown to the bottom") << 2 << 4 << bottom << QList<int>{0, 0, 0, 1} << 2;
    QTest::newRow("the centre wins") << 2 << 4 << (centre | bottom) << QList<int>{0, 0, 1, 0} << 1;
    QTest::newRow("the other axis says nothing")
        << 2 << 4 << Qt::Alignment(Qt::AlignHCenter | Qt::AlignRight) << QList<int>{0, 1, 0, 0}
        << 0;
}

void tst_TileMap::resizeMovesRows()
{
    QFETCH(int, before);
    QFETCH(int, after);
    QFETCH(Qt::Alignment, alignment);
    QFETCH(QList<int>, rows);
    QFETCH(int, shift);
    const auto map = countedMap(1, before);

    const QPoint moved = map->resize({1, after}, alignment);

    QCOMPARE(moved, QPoint(0, shift));
    QCOMPARE(map->height(), after);
    Indices expected;
    for (const int index : rows)
        expected << QList<int>{index};
    QCOMPARE(indices(*map), expected);
}

void tst_TileMap::resizeRefusesASizeThatIsNotAllowed()
{
    const auto map = countedMap(2, 2);

    QCOMPARE(map->resize({-1, 2}, Qt::AlignRight), QPoint());
    QCOMPARE(map->resize({1 << 14, 1 << 14}, Qt::AlignRight), QPoint());

    QCOMPARE(map->size(), QSize(2, 2));
    QCOMPARE(indices(*map), (Indices{{0, 1}, {2, 3}}));
}

void tst_TileMap::setTilesTakesTheSizeAndSends()
{
    TileMap map({9, 9});
    QSignalSpy changed(&map, &TileMap::tilesChanged);

    map.setTiles(counted(3, 2));
    QCOMPARE(map.size(), QSize(3, 2));
    QCOMPARE(indices(map), (Indices{{0, 1, 2}, {3, 4, 5}}));
    map.setTiles({});

    QCOMPARE(map.size(), QSize(0, 0));
    QCOMPARE(changed.count(), 2);
}

void tst_TileMap::setTilesEvensOutTheRows()
{
    TileMap map({1, 1});

    map.setTiles({{cell(1), cell(2)}, {cell(3)}, {cell(4), cell(5), cell(6)}});

    QCOMPARE(indices(map), (Indices{{1, 2}, {3, 0}, {4, 5}}));
}

void tst_TileMap::deletingATileRenumbersCells()
{
    constexpr int Most = std::numeric_limits<int>::max();
    TileMap map({1, 1});
    TileMap::TileData unoccupied = cell(5);
    unoccupied.occupied = false;
    map.setTiles({{cell(4), cell(5), cell(6), cell(Most), cell(-3), unoccupied}});
    QSignalSpy changed(&map, &TileMap::tilesChanged);

    map.adjustIndices(5, -1);

    QCOMPARE(indices(map), (Indices{{4, 0, 5, Most - 1, -3, 0}}));
    QVERIFY(map.cell({1, 0}).occupied);
    QCOMPARE(changed.count(), 0);
}

void tst_TileMap::insertingATileRenumbersCells()
{
    constexpr int Most = std::numeric_limits<int>::max();
    TileMap map({1, 1});
    map.setTiles({{cell(4), cell(5), cell(6), cell(Most), cell(-3)}});

    map.adjustIndices(5, 1);

    QCOMPARE(indices(map), (Indices{{4, 6, 7, Most, -3}}));
}

void tst_TileMap::renumberingNothingKeepsTheRowsShared()
{
    const auto map = countedMap(3, 2);
    const TileMap::Rows rows = map->rows();

    map->adjustIndices(6, -1);
    QVERIFY(map->rows().isSharedWith(rows));
    map->adjustIndices(4, -1);

    QVERIFY(map->rows().at(0).isSharedWith(rows.at(0)));
    QCOMPARE(indices(*map), (Indices{{0, 1, 2}, {3, 0, 4}}));
}

void tst_TileMap::swappingTilesRenumbersAndSends()
{
    TestMaps::PlainTiles tiles(6);
    const auto map = countedMap(3, 2);
    map->setTileSet(tiles.set.get());
    QSignalSpy changed(map.get(), &TileMap::tilesChanged);

    emit tiles.set->tileSwapped(1, 5);

    QCOMPARE(indices(*map), (Indices{{0, 5, 2}, {3, 4, 1}}));
    QCOMPARE(changed.count(), 1);
}

void tst_TileMap::swappingOtherTilesSendsNothing()
{
    TestMaps::PlainTiles tiles(9);
    const auto map = countedMap(3, 2);
    map->setTileSet(tiles.set.get());
    QSignalSpy changed(map.get(), &TileMap::tilesChanged);

    emit tiles.set->tileSwapped(7, 8);
    emit tiles.set->tileSwapped(2, 2);

    QCOMPARE(changed.count(), 0);
}

void tst_TileMap::anotherSetIsNoLongerFollowed()
{
    TestMaps::PlainTiles first(6);
    TestMaps::PlainTiles second(6);
    const auto map = countedMap(3, 1);
    map->setTileSet(first.set.get());
    map->setTileSet(second.set.get());

    emit first.set->tileSwapped(0, 1);

    QCOMPARE(indices(*map), (Indices{{0, 1, 2}}));
    QCOMPARE(map->tileSet(), second.set.get());
}

void tst_TileMap::toDataReachesOutsideTheMap()
{
    const auto map = countedMap(2, 1);

    const QByteArray data = map->toData({1, -1, 2, 3});

    QCOMPARE(data.size(), 8 + 6 * 12 + 16);
    QCOMPARE(data.left(8).toHex(), QByteArray("0000000300000002"));
    const QByteArray zero(12, '\0');
    const QByteArray one = QByteArray::fromHex("000000010100000000000000");
    QCOMPARE(data.mid(8, 72), zero + zero + one + zero + zero + zero);
}

void tst_TileMap::toDataEndsInTheSetsId()
{
    TestMaps::PlainTiles tiles(1);
    TileMap map({1, 1});
    QCOMPARE(map.toData(map.rect()).right(16), QByteArray(16, '\0'));

    map.setTileSet(tiles.set.get());

    QCOMPARE(map.toData(map.rect()).right(16), tiles.set->id().toRfc4122());
}

void tst_TileMap::fromDataKeepsWhatFallsInside()
{
    TileMap map({3, 3});
    QMimeData mime;
    mime.setData(QStringLiteral("tessaril-map-toNextData"), countedMap(2, 2)->toData({0, 0, 2, 2}));

    map.fromData({-1, -1}, &mime);
    QCOMPARE(indices(map), (Indices{{3, 0, 0}, {0, 0, 0}, {0, 0, 0}}));
    map.fromData({1, 1}, &mime);
    QCOMPARE(indices(map), (Indices{{3, 0, 0}, {0, 0, 1}, {0, 2, 3}}));
    map.fromData({2, 2}, &mime);
    map.fromData({3, 0}, &mime);

    QCOMPARE(indices(map), (Indices{{3, 0, 0}, {0, 0, 1}, {0, 2, 0}}));
    QVERIFY(map.cell({1, 2}).occupied);
}

void tst_TileMap::fromDataNeverReadsPastItsBytes()
{
    const auto map = countedMap(2, 2);
    const TileMap::Rows before = map->rows();
    QMimeData mime;
    map->fromData({0, 0}, &mime);
    map->fromData({0, 0}, nullptr);

    const QByteArray whole = TileMap({2, 2}).toData({0, 0, 2, 2});
    for (int length = 0; length < 8 + 4 * 12; ++length) {
        mime.setData(TileMap::mimeType(), whole.left(length));
        map->fromData({0, 0}, &mime);
        QVERIFY(map->rows() == before);
    }
    mime.setData(TileMap::mimeType(), QByteArray::fromHex("7fffffff7fffffff") + whole.mid(8));
    map->fromData({0, 0}, &mime);
    QVERIFY(map->rows() == before);
}

void tst_TileMap::signalsAreOnlyTilesChanged()
{
    const QMetaObject &meta = TileMap::staticMetaObject;
    QByteArrayList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names << meta.method(i).methodSignature();

    QCOMPARE(names, QByteArrayList{"tilesChanged()"});
}

QTEST_GUILESS_MAIN(tst_TileMap)
#include "tst_TileMap.moc"
