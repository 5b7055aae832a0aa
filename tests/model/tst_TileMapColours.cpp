#include "model/TileMap.h"

#include "model/Palette.h"
#include "model/Tile.h"
#include "model/TileSet.h"
#include "support/TestImages.h"
#include "support/TestMaps.h"

#include <QTest>

namespace {

constexpr int Off = -1;    // no transparent index
constexpr int NoTile = 77; // drawing it writes a line to the log
int drawings = 0;          // by these lines

TileMap::TileData cell(int index)
{
    return {.index = index, .occupied = true};
}

QImage whole(TileMap &map)
{
    return map.picture(map.rect(), TileMap::CellSide, Off);
}

void count(QtMsgType, const QMessageLogContext &, const QString &text)
{
    drawings += text.contains(QStringLiteral("out of range")) ? 1 : 0;
}

const QImage Nines = TestImages::indexed(QStringList(8, QStringLiteral("99999999")));

} // namespace

/// What a layer's picture keeps when its tiles tell of a change.
class tst_TileMapColours : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aColourChangeKeepsTheIndices();
    void aChangeWithoutAnyKeepsTheIndices();
    void otherPixelsAreDrawnAnewOnce();
    void pixelsChangedInSilenceAreDrawnWithTheNextColour();
    void aTileThatOnlyALaterCellShowsIsDrawnAnew();
    void aCellWrittenAfterAChangeSpoilsNothing();
    void aColourChangeTellsThatAnyCellMayDiffer();

private:
    std::unique_ptr<TestMaps::PlainTiles> m_tiles;
    std::unique_ptr<TileMap> m_map;
    QtMessageHandler m_previous = nullptr;
};

/// A cell of tile 1 and one of no tile, drawn once.
void tst_TileMapColours::init()
{
    m_tiles = std::make_unique<TestMaps::PlainTiles>(3);
    m_map = std::make_unique<TileMap>(QSize(2, 1));
    m_map->setTiles({{cell(1), cell(NoTile)}});
    m_map->setTileSet(m_tiles->set.get());
    drawings = 0;
    m_previous = qInstallMessageHandler(count);
    whole(*m_map);
    QCOMPARE(drawings, 1);
}

void tst_TileMapColours::cleanup()
{
    qInstallMessageHandler(m_previous);
    m_map.reset();
    m_tiles.reset();
}

void tst_TileMapColours::aColourChangeKeepsTheIndices()
{
    m_tiles->palette->setColour(1, Qt::red, false);

    const QImage picture = whole(*m_map);

    QCOMPARE(drawings, 1);
    QCOMPARE(picture.pixelIndex(4, 4), 1);
    QCOMPARE(picture.pixelColor(4, 4), QColor(Qt::red));
}

void tst_TileMapColours::aChangeWithoutAnyKeepsTheIndices()
{
    m_tiles->set->notifyImageChanged(1);

    whole(*m_map);

    QCOMPARE(drawings, 1);
}

void tst_TileMapColours::otherPixelsAreDrawnAnewOnce()
{
    m_tiles->set->tile(1)->setImage(Nines);
    m_tiles->set->notifyImageChanged(1);
    m_tiles->set->notifyImageChanged(2);

    QCOMPARE(whole(*m_map).pixelIndex(4, 4), 9);
    whole(*m_map);

    QCOMPARE(drawings, 2);
}

void tst_TileMapColours::pixelsChangedInSilenceAreDrawnWithTheNextColour()
{
    m_tiles->set->tile(1)->setImage(Nines);

    m_tiles->palette->setColour(200, Qt::red, false);

    QCOMPARE(whole(*m_map).pixelIndex(4, 4), 9);
}

void tst_TileMapColours::aTileThatOnlyALaterCellShowsIsDrawnAnew()
{
    m_map->setCell({0, 0}, cell(2));
    QCOMPARE(whole(*m_map).pixelIndex(4, 4), 2);

    m_tiles->set->tile(2)->setImage(Nines);
    m_tiles->set->notifyImageChanged(2);

    QCOMPARE(whole(*m_map).pixelIndex(4, 4), 9);
}

void tst_TileMapColours::aCellWrittenAfterAChangeSpoilsNothing()
{
    m_tiles->set->tile(1)->setImage(Nines);
    m_tiles->set->notifyImageChanged(1);

    m_map->setCell({1, 0}, cell(2));

    const QImage picture = whole(*m_map);
    QCOMPARE(picture.pixelIndex(4, 4), 9);
    QCOMPARE(picture.pixelIndex(12, 4), 2);
}

void tst_TileMapColours::aColourChangeTellsThatAnyCellMayDiffer()
{
    const quint64 before = m_map->revision();

    m_tiles->palette->setColour(1, Qt::red, false);

    QVERIFY(m_map->revision() != before);
    QVERIFY(!m_map->cellsWrittenSince(before).has_value());
}

QTEST_GUILESS_MAIN(tst_TileMapColours)
#include "tst_TileMapColours.moc"
