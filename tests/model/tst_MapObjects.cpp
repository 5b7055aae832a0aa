#include "model/MapObjects.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

#include <QSignalSpy>
#include <QTest>

namespace {

QList<int> indices(const TileAnimation *animation)
{
    QList<int> list;
    for (const auto &frame : animation->frames()) {
        for (const auto &row : frame->cells()) {
            for (const AnimationFrame::Cell &cell : row)
                list << cell.index;
        }
    }
    return list;
}

TileAnimation *blockOfOneTwoThree(MapObjects *list)
{
    TileAnimation *animation = list->createTileAnimation(QStringLiteral("block"));
    animation->setSize({3, 1});
    AnimationFrame *frame = animation->addFrame();
    for (int x = 0; x < 3; ++x)
        frame->setCell({x, 0}, {.index = x + 1});
    return animation;
}

} // namespace

class tst_MapObjects : public QObject
{
    Q_OBJECT

private slots:
    void aNewListIsNamedEmpty();
    void signalsAndSlotsStandInTheAgreedOrder();
    void namesSendOnlyWhenTheyDiffer();
    void createdAnimationsAreEnteredWithoutFrames();
    void removingDeletesAndSends();
    void removingAnUnknownIdSendsNothing();
    void aLaterAnimationOfOneIdReplacesTheEarlier();
    void bindingASetEntersTheListThere();
    void aLaterListOfOneIdIsEnteredInItsPlace();
    void bindingNothingLeavesTheOldSetAlone();
    void swappingTilesSwapsIndicesInEveryFrameSilently();
    void theTileSetsSwapsReachTheCells();
    void bindingTwiceSwapsOnce();
};

void tst_MapObjects::aNewListIsNamedEmpty()
{
    const MapObjects list;

    QCOMPARE(list.name(), QStringLiteral("Empty"));
    QVERIFY(!list.id().isNull());
    QVERIFY(list.tileSet().isNull());
    QVERIFY(list.animations().isEmpty());
}

void tst_MapObjects::signalsAndSlotsStandInTheAgreedOrder()
{
    const QMetaObject &meta = MapObjects::staticMetaObject;
    QByteArrayList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names << meta.method(i).name();

    QCOMPARE(names, (QByteArrayList{"nameChanged", "animationsChanged", "createTileAnimation",
                                    "setName", "setTileSet", "swapTiles"}));
}

void tst_MapObjects::namesSendOnlyWhenTheyDiffer()
{
    MapObjects list;
    QSignalSpy renamed(&list, &MapObjects::nameChanged);

    list.setName(QStringLiteral("Empty"));
    list.setName(QStringLiteral("doors"));

    QCOMPARE(renamed.count(), 1);
    QCOMPARE(renamed.at(0).at(0).toString(), QStringLiteral("doors"));
    QCOMPARE(list.name(), QStringLiteral("doors"));
}

void tst_MapObjects::createdAnimationsAreEnteredWithoutFrames()
{
    MapObjects list;
    TileSet tiles(nullptr, 4);
    list.setTileSet(&tiles);
    QSignalSpy changed(&list, &MapObjects::animationsChanged);

    const QPointer<TileAnimation> animation = list.createTileAnimation(QStringLiteral("door"));

    QCOMPARE(changed.count(), 1);
    QCOMPARE(animation->name(), QStringLiteral("door"));
    QCOMPARE(animation->parent(), &list);
    QCOMPARE(animation->frameCount(), 0);
    QVERIFY(animation->tileSet().isNull());
    QCOMPARE(list.animation(animation->id()), animation);
    QVERIFY(list.animation(QUuid::createUuid()).isNull());
}

void tst_MapObjects::removingDeletesAndSends()
{
    MapObjects list;
    const QPointer<TileAnimation> animation = list.createTileAnimation(QStringLiteral("door"));
    QSignalSpy changed(&list, &MapObjects::animationsChanged);

    list.removeAnimation(animation->id());

    QVERIFY(animation.isNull());
    QVERIFY(list.animations().isEmpty());
    QCOMPARE(changed.count(), 1);
}

void tst_MapObjects::removingAnUnknownIdSendsNothing()
{
    MapObjects list;
    list.createTileAnimation(QStringLiteral("door"));
    QSignalSpy changed(&list, &MapObjects::animationsChanged);

    list.removeAnimation(QUuid::createUuid());

    QCOMPARE(changed.count(), 0);
    QCOMPARE(list.animations().size(), 1);
}

void tst_MapObjects::aLaterAnimationOfOneIdReplacesTheEarlier()
{
    MapObjects list;
    const QPointer<TileAnimation> earlier = list.createTileAnimation(QStringLiteral("door"));
    auto *later = new TileAnimation(&list);
    later->setId(earlier->id());

    list.addAnimation(later);

    QVERIFY(earlier.isNull());
    QCOMPARE(list.animations().size(), 1);
    QCOMPARE(list.animation(later->id()), later);
    list.addAnimation(later);
    QCOMPARE(list.animation(later->id()), later);
}

void tst_MapObjects::bindingASetEntersTheListThere()
{
    MapObjects list;
    TileSet tiles(nullptr, 4);

    list.setTileSet(&tiles);
    list.setTileSet(&tiles);

    QCOMPARE(list.tileSet(), &tiles);
    QCOMPARE(tiles.blockLists().size(), 1);
    QCOMPARE(tiles.blockLists().value(list.id()), &list);
}

void tst_MapObjects::aLaterListOfOneIdIsEnteredInItsPlace()
{
    TileSet tiles(nullptr, 4);
    auto earlier = std::make_unique<MapObjects>();
    earlier->setTileSet(&tiles);
    MapObjects later;
    later.setId(earlier->id());

    later.setTileSet(&tiles);
    earlier.reset();

    QCOMPARE(tiles.blockLists().value(later.id()), &later);
}

void tst_MapObjects::bindingNothingLeavesTheOldSetAlone()
{
    MapObjects list;
    const TileAnimation *animation = blockOfOneTwoThree(&list);
    TileSet tiles(nullptr, 4);
    list.setTileSet(&tiles);

    list.setTileSet(nullptr);
    emit tiles.tileSwapped(1, 2);

    QVERIFY(list.tileSet().isNull());
    QCOMPARE(tiles.blockLists().value(list.id()), &list);
    QCOMPARE(indices(animation), (QList<int>{2, 1, 3}));
}

void tst_MapObjects::swappingTilesSwapsIndicesInEveryFrameSilently()
{
    MapObjects list;
    TileAnimation *animation = blockOfOneTwoThree(&list);
    animation->addFrame()->setCell({2, 0}, {.index = 2});
    TileAnimation *other = blockOfOneTwoThree(&list);
    QSignalSpy content(animation, &TileAnimation::contentChanged);
    QSignalSpy frame(animation, &TileAnimation::frameChanged);
    QSignalSpy animations(&list, &MapObjects::animationsChanged);

    list.swapTiles(1, 2);

    QCOMPARE(indices(animation), (QList<int>{2, 1, 3, 0, 0, 1}));
    QCOMPARE(indices(other), (QList<int>{2, 1, 3}));
    QCOMPARE(content.count() + frame.count() + animations.count(), 0);
}

void tst_MapObjects::theTileSetsSwapsReachTheCells()
{
    MapObjects list;
    const TileAnimation *animation = blockOfOneTwoThree(&list);
    TileSet tiles(nullptr, 4);
    list.setTileSet(&tiles);

    emit tiles.tileSwapped(2, 3);

    QCOMPARE(indices(animation), (QList<int>{1, 3, 2}));
}

void tst_MapObjects::bindingTwiceSwapsOnce()
{
    MapObjects list;
    const TileAnimation *animation = blockOfOneTwoThree(&list);
    TileSet tiles(nullptr, 4);
    list.setTileSet(&tiles);
    list.setTileSet(&tiles);

    emit tiles.tileSwapped(1, 2);

    QCOMPARE(indices(animation), (QList<int>{2, 1, 3}));
}

QTEST_GUILESS_MAIN(tst_MapObjects)
#include "tst_MapObjects.moc"
