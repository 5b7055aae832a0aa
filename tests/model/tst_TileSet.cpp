#include "model/TileSet.h"

#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Tile.h"
#include "support/TestImages.h"
#include "support/TileSetLog.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

QImage filled(int value)
{
    return TestImages::indexed(QStringList(8, QString(8, QString::number(value, 16).at(0))));
}

} // namespace

class tst_TileSet : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aNewSetHas512BlackTiles();
    void signalsAndSlotsStandInTheAgreedOrder();
    void makesTheNumberAskedFor_data();
    void makesTheNumberAskedFor();
    void namesAndFlags();
    void bindingAPaletteLeavesThePictures();
    void rebindingDropsTheOldPalette();
    void aColourChangeIsToldOnce();
    void clearingATileKeepsItsOtherFields();
    void insertingShiftsTheTilesBehind();
    void deletingTakesTheTileAway();
    void copyingTakesPictureAndOffset();
    void listenersFindTheChangeDone();
    void copyingNothingSendsNothing_data();
    void copyingNothingSendsNothing();
    void movingShiftsTheTilesBetween_data();
    void movingShiftsTheTilesBetween();
    void movingNowhereSendsNothing_data();
    void movingNowhereSendsNothing();
    void tileOffsetOutOfRangeIsZero();
    void tileImageAddsThePaletteOffset_data();
    void tileImageAddsThePaletteOffset();
    void tileImageTurnsFlipsAndMirrors_data();
    void tileImageTurnsFlipsAndMirrors();
    void tileImageHasTheTilesColours();
    void tileImageOutOfRangeIsLogged_data();
    void tileImageOutOfRangeIsLogged();
    void restoresEveryFieldSilently();
    void statesDifferByIndicesNotLooks();
    void keepsBlockLists();
    void ownsItsTiles();

private:
    std::unique_ptr<Palette> m_palette;
};

void tst_TileSet::init()
{
    m_palette = std::make_unique<Palette>();
    m_palette->setDefaultColours();
}

void tst_TileSet::aNewSetHas512BlackTiles()
{
    const TileSet set;

    QCOMPARE(set.count(), 512);
    QVERIFY(!set.id().isNull());
    QVERIFY(set.paletteId().isNull());
    QVERIFY(set.name().isEmpty());
    QVERIFY(!set.hiRes());
    for (const Tile *tile : set.tiles()) {
        QCOMPARE(tile->parent(), &set);
        QCOMPARE(tile->offset(), 0);
        QCOMPARE(TestImages::rows(tile->image()), TestImages::rows(filled(0)));
        QCOMPARE(tile->image().colorTable(), QList<QRgb>(256, 0xFF000000));
    }
}

void tst_TileSet::signalsAndSlotsStandInTheAgreedOrder()
{
    const QMetaObject &meta = TileSet::staticMetaObject;
    QByteArrayList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names << meta.method(i).name();

    QCOMPARE(names,
             (QByteArrayList{"nameChanged", "tileChanged", "tileDeleted", "tileInserted",
                             "tileSwapped", "structureAboutToChange", "structureChanged",
                             "restored", "setName", "setHiRes", "setPalette", "notifyImageChanged",
                             "importZXFont", "importImage", "importNxt", "clearImage", "deleteTile",
                             "insertTile", "updateColour"}));
}

void tst_TileSet::makesTheNumberAskedFor_data()
{
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("count");
    QTest::newRow("256") << 256 << 256;
    QTest::newRow("1") << 1 << 1;
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("negative") << -5 << 0;
}

void tst_TileSet::makesTheNumberAskedFor()
{
    QFETCH(int, asked);
    const TileSet set(nullptr, asked);
    QTEST(set.count(), "count");
}

void tst_TileSet::namesAndFlags()
{
    TileSet set(nullptr, 1);
    TileSetLog log(&set);

    set.setName("caves");
    set.setName("caves");
    set.setHiRes(true);

    QCOMPARE(set.name(), QStringLiteral("caves"));
    QVERIFY(set.hiRes());
    QCOMPARE(log.sent, QStringList{"name caves"});
}

void tst_TileSet::bindingAPaletteLeavesThePictures()
{
    TileSet set(nullptr, 2);
    TileSetLog log(&set);

    set.setPalette(m_palette.get());

    QCOMPARE(set.palette().data(), m_palette.get());
    QCOMPARE(set.paletteId(), m_palette->id());
    QCOMPARE(set.tile(0)->image().color(255), 0xFF000000);
    QVERIFY(log.sent.isEmpty());
}

void tst_TileSet::rebindingDropsTheOldPalette()
{
    Palette other;
    TileSet set(nullptr, 1);
    set.setPalette(m_palette.get());
    set.setPalette(&other);
    TileSetLog log(&set);

    m_palette->setColour(3, QColor(255, 0, 0), false);
    QVERIFY(log.sent.isEmpty());
    other.setColour(3, QColor(255, 0, 0), false);
    QCOMPARE(log.sent, QStringList{"changed 0"});

    set.setPalette(nullptr);
    other.setColour(3, QColor(0, 0, 0), false);
    QCOMPARE(log.sent.size(), 1);
    QVERIFY(set.paletteId().isNull());
    QVERIFY(set.palette().isNull());
}

// The tiles show the three bits a channel that the palette keeps, as after an undo or a load.
void tst_TileSet::aColourChangeIsToldOnce()
{
    TileSet set(nullptr, 3);
    set.setPalette(m_palette.get());
    TileSetLog log(&set);

    m_palette->setColour(40, QColor(219, 9, 0), true);

    QCOMPARE(log.sent, QStringList{"changed 0"});
    for (const Tile *tile : set.tiles()) {
        QCOMPARE(tile->image().color(40), qRgb(255, 0, 0));
        QCOMPARE(tile->image().color(41), 0xFF000000);
    }
    set.updateColour(1, QColor(1, 2, 3, 0));
    QCOMPARE(set.tile(2)->image().color(1), qRgb(1, 2, 3));
}

void tst_TileSet::clearingATileKeepsItsOtherFields()
{
    TileSet set(nullptr, 3);
    set.setPalette(m_palette.get());
    set.tile(1)->setImage(filled(7));
    set.tile(1)->setOffset(4);
    set.tile(1)->setAttributes(Tile::TA_LADDER);
    set.tile(1)->setValue(99);
    TileSetLog log(&set);

    set.clearImage(1);

    QCOMPARE(TestImages::rows(set.tile(1)->image()), QStringList(8, "00000000"));
    QCOMPARE(set.tile(1)->image().colorTable(), m_palette->colourTable());
    QCOMPARE(set.tile(1)->offset(), 4);
    QCOMPARE(set.tile(1)->attributes(), int(Tile::TA_LADDER));
    QCOMPARE(set.tile(1)->value(), 99);
    QCOMPARE(log.sent, QStringList{"changed 1"});
}

void tst_TileSet::insertingShiftsTheTilesBehind()
{
    TileSet set;
    const Tile *third = set.tile(3);
    TileSetLog log(&set);
    int countWhenTold = 0;
    connect(&set, &TileSet::tileInserted, this, [&] { countWhenTold = set.count(); });

    set.insertTile(3);

    QCOMPARE(set.count(), 513);
    QCOMPARE(set.tile(3)->offset(), 1);
    QCOMPARE(set.tile(3)->parent(), &set);
    QCOMPARE(set.tile(4), third);
    QCOMPARE(countWhenTold, 513);
    QCOMPARE(log.sent, QStringList({"about", "inserted 3", "structure Insert Tile"}));
}

void tst_TileSet::deletingTakesTheTileAway()
{
    TileSet set(nullptr, 4);
    const QPointer<Tile> second = set.tile(1);
    const Tile *third = set.tile(2);
    TileSetLog log(&set);
    bool goneWhenTold = false;
    connect(&set, &TileSet::tileDeleted, this, [&] { goneWhenTold = second.isNull(); });

    set.deleteTile(1);

    QCOMPARE(set.count(), 3);
    QCOMPARE(set.tile(1), third);
    QVERIFY(goneWhenTold);
    QCOMPARE(log.sent, QStringList({"about", "deleted 1", "structure Delete Tile"}));
}

void tst_TileSet::copyingTakesPictureAndOffset()
{
    TileSet set(nullptr, 6);
    set.tile(2)->setImage(filled(9));
    set.tile(2)->setOffset(3);
    set.tile(2)->setAttributes(Tile::TA_DEADLY);
    set.tile(5)->setAttributes(Tile::TA_DOOR);
    set.tile(5)->setValue(8);
    TileSetLog log(&set);

    set.copyTile(5, 2);

    QCOMPARE(TestImages::rows(set.tile(5)->image()), QStringList(8, "99999999"));
    QCOMPARE(set.tile(5)->offset(), 3);
    QCOMPARE(set.tile(5)->attributes(), int(Tile::TA_DOOR));
    QCOMPARE(set.tile(5)->value(), 8);
    QCOMPARE(log.sent, QStringList({"about", "changed 5", "structure Copy Tile"}));
}

void tst_TileSet::listenersFindTheChangeDone()
{
    TileSet set(nullptr, 3);
    for (int i = 0; i < set.count(); ++i) {
        set.tile(i)->setOffset(i);
        set.tile(i)->setImage(TestImages::indexed(QStringList(8, QString(8, QChar('1' + i)))));
    }
    QStringList seen;
    const auto look = [&] {
        QString text;
        for (const Tile *tile : set.tiles())
            text += QString::number(tile->image().pixelIndex(0, 0) * 10 + tile->offset()) + u' ';
        seen += text.trimmed();
    };
    connect(&set, &TileSet::tileChanged, this, look);
    connect(&set, &TileSet::tileSwapped, this, look);
    connect(&set, &TileSet::tileDeleted, this, look);

    set.moveTile(0, 2);
    set.copyTile(0, 1);
    set.clearImage(2);
    set.deleteTile(0);

    QCOMPARE(seen, (QStringList{"21 10 32", "21 32 10", "32 32 10", "32 32 0", "32 0"}));
}

void tst_TileSet::copyingNothingSendsNothing_data()
{
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("from");
    QTest::newRow("onto itself") << 5 << 5;
    QTest::newRow("to below") << -1 << 0;
    QTest::newRow("to beyond") << 6 << 0;
    QTest::newRow("from below") << 0 << -1;
    QTest::newRow("from beyond") << 0 << 6;
}

void tst_TileSet::copyingNothingSendsNothing()
{
    QFETCH(int, to);
    QFETCH(int, from);
    TileSet set(nullptr, 6);
    TileSetLog log(&set);

    set.copyTile(to, from);

    QVERIFY(log.sent.isEmpty());
}

void tst_TileSet::movingShiftsTheTilesBetween_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QList<int>>("order");
    QTest::addColumn<QList<QVariantList>>("swaps");

    QTest::newRow("back") << 1 << 3 << QList<int>{0, 2, 3, 1, 4}
                          << QList<QVariantList>{{1, 2}, {2, 3}};
    QTest::newRow("forward") << 4 << 2 << QList<int>{0, 1, 4, 2, 3}
                             << QList<QVariantList>{{4, 3}, {3, 2}};
    QTest::newRow("next door") << 0 << 1 << QList<int>{1, 0, 2, 3, 4}
                               << QList<QVariantList>{{0, 1}};
}

void tst_TileSet::movingShiftsTheTilesBetween()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QList<int>, order);
    QFETCH(QList<QVariantList>, swaps);
    TileSet set(nullptr, 5);
    for (int i = 0; i < set.count(); ++i)
        set.tile(i)->setValue(i);
    const TileSetLog log(&set);
    QSignalSpy swapped(&set, &TileSet::tileSwapped);

    set.moveTile(from, to);

    QList<int> values;
    for (const Tile *tile : set.tiles())
        values.append(tile->value());
    QCOMPARE(values, order);
    QCOMPARE(swapped, swaps);
    QCOMPARE(log.sent.first(), QString("about"));
    QCOMPARE(log.sent.last(), QString("structure Move Tile"));
    QCOMPARE(log.sent.size(), swaps.size() + 2);
}

void tst_TileSet::movingNowhereSendsNothing_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");

    QTest::newRow("onto itself") << 1 << 1;
    QTest::newRow("from before the first") << -1 << 1;
    QTest::newRow("to before the first") << 1 << -1;
    QTest::newRow("from behind the last") << 3 << 1;
    QTest::newRow("to behind the last") << 1 << 3;
}

void tst_TileSet::movingNowhereSendsNothing()
{
    QFETCH(int, from);
    QFETCH(int, to);
    TileSet set(nullptr, 3);
    const TileSetLog log(&set);

    set.moveTile(from, to);

    QCOMPARE(log.sent, QStringList());
}

void tst_TileSet::tileOffsetOutOfRangeIsZero()
{
    TileSet set(nullptr, 2);
    set.tile(0)->setOffset(5);
    set.tile(1)->setOffset(6);

    QCOMPARE(set.tileOffset(-1), 0);
    QCOMPARE(set.tileOffset(0), 5);
    QCOMPARE(set.tileOffset(1), 6);
    QCOMPARE(set.tileOffset(2), 0);
}

void tst_TileSet::tileImageAddsThePaletteOffset_data()
{
    QTest::addColumn<int>("pixel");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("shown");
    QTest::newRow("no offset") << 3 << 0 << 3;
    QTest::newRow("offset 2") << 3 << 2 << 35;
    QTest::newRow("offset 15") << 15 << 15 << 255;
    QTest::newRow("high pixel bits go") << 0xE3 << 1 << 0x13;
    QTest::newRow("offset 16 wraps") << 3 << 16 << 3;
    QTest::newRow("offset 99") << 0 << 99 << 0x30;
    QTest::newRow("negative offset") << 1 << -1 << 0xF1;
    QTest::newRow("the largest offset") << 1 << 0x7FFFFFFF << 0xF1;
}

void tst_TileSet::tileImageAddsThePaletteOffset()
{
    QFETCH(int, pixel);
    QFETCH(int, offset);
    QFETCH(int, shown);
    TileSet set(nullptr, 1);
    QImage image = filled(0);
    image.fill(pixel);
    set.tile(0)->setImage(image);

    const QImage picture = set.tileImage(0, false, false, false, offset);

    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x)
            QCOMPARE(picture.pixelIndex(x, y), shown);
    }
    QCOMPARE(set.tile(0)->image().pixelIndex(0, 0), pixel);
}

void tst_TileSet::tileImageTurnsFlipsAndMirrors_data()
{
    QTest::addColumn<bool>("rotate");
    QTest::addColumn<bool>("flip");
    QTest::addColumn<bool>("mirror");
    QTest::addColumn<QString>("corners"); // top left, top right, bottom left, bottom right
    QTest::newRow("as it is") << false << false << false << "1234";
    QTest::newRow("flip") << false << true << false << "3412";
    QTest::newRow("mirror") << false << false << true << "2143";
    QTest::newRow("flip, mirror") << false << true << true << "4321";
    QTest::newRow("rotate") << true << false << false << "3142";
    QTest::newRow("rotate, flip") << true << true << false << "4231";
    QTest::newRow("rotate, mirror") << true << false << true << "1324";
    QTest::newRow("all") << true << true << true << "2413";
}

void tst_TileSet::tileImageTurnsFlipsAndMirrors()
{
    QFETCH(bool, rotate);
    QFETCH(bool, flip);
    QFETCH(bool, mirror);
    TileSet set(nullptr, 1);
    set.tile(0)->setImage(TestImages::indexed({"1a000002", "00000000", "00000000", "00000000",
                                               "00000000", "00000000", "00000000", "30000004"}));

    const QImage picture = set.tileImage(0, rotate, flip, mirror, 0);

    const QStringList rows = TestImages::rows(picture);
    const QString corners =
        QString() + rows[0].front() + rows[0].back() + rows[7].front() + rows[7].back();
    QTEST(corners, "corners");
    // What stood right of corner 1 still stands beside it, along the line to corner 2.
    QCOMPARE(rows.join(QString()).count('a'), 1);
}

void tst_TileSet::tileImageHasTheTilesColours()
{
    TileSet set(nullptr, 1);
    set.setPalette(m_palette.get());
    set.clearImage(0);

    QCOMPARE(set.tileImage(0, true, false, true, 3).colorTable(), m_palette->colourTable());
}

void tst_TileSet::tileImageOutOfRangeIsLogged_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("below") << -1;
    QTest::newRow("beyond") << 4;
}

void tst_TileSet::tileImageOutOfRangeIsLogged()
{
    QFETCH(int, index);
    TileSet set(nullptr, 4);
    const QByteArray message = "Image index out of range " + QByteArray::number(index);
    QTest::ignoreMessage(QtInfoMsg, message.constData());

    const QImage picture = set.tileImage(index, true, true, true, 3);

    QCOMPARE(picture.size(), QSize(8, 8));
    QCOMPARE(picture.format(), QImage::Format_Indexed8);
}

void tst_TileSet::restoresEveryFieldSilently()
{
    TileSet set(nullptr, 2);
    set.tile(1)->setImage(filled(6));
    set.tile(1)->setOffset(2);
    set.tile(1)->setAttributes(Tile::TA_SOLID);
    set.tile(1)->setValue(77);
    const TileSet::State before = set.state();
    set.deleteTile(1);
    set.insertTile(0);
    set.insertTile(0);
    TileSetLog log(&set);

    set.restore(before);
    QVERIFY(log.sent.isEmpty());
    set.notifyRestored();

    QCOMPARE(log.sent, QStringList{"restored"});
    QCOMPARE(set.count(), 2);
    QCOMPARE(TestImages::rows(set.tile(1)->image()), QStringList(8, "66666666"));
    QCOMPARE(set.tile(1)->offset(), 2);
    QCOMPARE(set.tile(1)->attributes(), int(Tile::TA_SOLID));
    QCOMPARE(set.tile(1)->value(), 77);
    QVERIFY(set.state() == before);
}

void tst_TileSet::statesDifferByIndicesNotLooks()
{
    TileSet set(nullptr, 1);
    const TileSet::State before = set.state();
    set.tile(0)->setImage(filled(5)); // as black as before
    QVERIFY(set.state() != before);

    set.restore(before);
    set.tile(0)->setValue(1);
    QVERIFY(set.state() != before);
}

void tst_TileSet::keepsBlockLists()
{
    TileSet set(nullptr, 1);
    const QUuid id = QUuid::createUuid();

    set.addBlockList(id, QPointer<MapObjects>());

    QCOMPARE(set.blockLists().keys(), QList<QUuid>{id});
}

void tst_TileSet::ownsItsTiles()
{
    auto set = std::make_unique<TileSet>(nullptr, 2);
    auto *own = new Tile(3);
    set->appendTile(own);
    const QPointer<Tile> last = own;
    const QPointer<Tile> first = set->tile(0);
    QCOMPARE(set->count(), 3);
    QCOMPARE(own->parent(), set.get());

    set->clearTiles();
    QVERIFY(first.isNull() && last.isNull());
    QCOMPARE(set->count(), 0);

    set->appendTile(new Tile(0));
    const QPointer<Tile> left = set->tile(0);
    set.reset();
    QVERIFY(left.isNull());
}

QTEST_GUILESS_MAIN(tst_TileSet)
#include "tst_TileSet.moc"
