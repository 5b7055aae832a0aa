#include "model/AnimatedBlocks.h"

#include <QTest>

namespace {

AnimationProperties *placed(QRect rect)
{
    auto *block = new AnimationProperties;
    block->id = QUuid::createUuid();
    block->rect = rect;
    return block;
}

} // namespace

class tst_AnimatedBlocks : public QObject
{
    Q_OBJECT

private slots:
    void addingKeepsTheOrderAndOwns();
    void findWantsTheExactRectangle();
    void removeTakesTheFirstOfEqualRectangles();
    void removingAnUnknownRectangleChangesNothing();
    void recordsNotWhollyInsideAreRemoved();
    void clearDeletesAll();
    void aRecordDeletedElsewhereIsSkipped();
};

void tst_AnimatedBlocks::addingKeepsTheOrderAndOwns()
{
    const QPointer<AnimationProperties> first = placed({4, 4, 2, 2});
    const QPointer<AnimationProperties> second = placed({0, 0, 1, 1});
    {
        AnimatedBlocks list;
        list.add(first);
        list.add(second);

        QCOMPARE(list.blocks(), (QList<QPointer<AnimationProperties>>{first, second}));
        QCOMPARE(first->parent(), &list);
    }

    QVERIFY(first.isNull());
    QVERIFY(second.isNull());
}

void tst_AnimatedBlocks::findWantsTheExactRectangle()
{
    AnimatedBlocks list;
    list.add(placed({4, 4, 2, 2}));
    list.add(placed({0, 0, 3, 1}));

    QCOMPARE(list.find({0, 0, 3, 1}), list.blocks().at(1)->id);
    QVERIFY(list.find({0, 0, 1, 3}).isNull());
    QVERIFY(list.find({0, 0, 1, 1}).isNull());
}

void tst_AnimatedBlocks::removeTakesTheFirstOfEqualRectangles()
{
    AnimatedBlocks list;
    list.add(placed({1, 1, 2, 2}));
    list.add(placed({4, 4, 2, 2}));
    list.add(placed({4, 4, 2, 2}));
    const QPointer<AnimationProperties> removed = list.blocks().at(1);
    const QPointer<AnimationProperties> kept = list.blocks().at(2);

    list.remove({4, 4, 2, 2});

    QVERIFY(removed.isNull());
    QCOMPARE(list.blocks().size(), 2);
    QCOMPARE(list.blocks().at(1), kept);
}

void tst_AnimatedBlocks::removingAnUnknownRectangleChangesNothing()
{
    AnimatedBlocks list;
    list.add(placed({1, 1, 2, 2}));

    list.remove({1, 1, 2, 3});

    QCOMPARE(list.blocks().size(), 1);
    QVERIFY(!list.blocks().first().isNull());
}

void tst_AnimatedBlocks::recordsNotWhollyInsideAreRemoved()
{
    const QList<QRect> inside{{0, 0, 2, 2}, {4, 1, 2, 3}, {5, 3, 1, 1}};
    const QList<QRect> outside{{-1, 0, 2, 2}, {0, -1, 1, 1}, {5, 0, 2, 1},
                               {0, 3, 1, 2},  {2, 2, 0, 1},  {-1, 0, 2, 2}};
    AnimatedBlocks list;
    for (int i = 0; i < outside.size(); ++i) {
        list.add(placed(outside.at(i)));
        if (i < inside.size())
            list.add(placed(inside.at(i)));
    }
    const QPointer<AnimationProperties> gone = list.blocks().first();

    QCOMPARE(list.removeOutside({6, 4}), outside);

    QList<QRect> left;
    for (const auto &block : list.blocks())
        left.append(block->rect);
    QCOMPARE(left, inside);
    QVERIFY(gone.isNull());
}

void tst_AnimatedBlocks::clearDeletesAll()
{
    AnimatedBlocks list;
    list.add(placed({1, 1, 2, 2}));
    const QPointer<AnimationProperties> block = list.blocks().first();

    list.clear();

    QVERIFY(list.blocks().isEmpty());
    QVERIFY(block.isNull());
}

void tst_AnimatedBlocks::aRecordDeletedElsewhereIsSkipped()
{
    AnimatedBlocks list;
    AnimationProperties *gone = placed({1, 1, 2, 2});
    list.add(gone);
    delete gone;

    QVERIFY(list.find({1, 1, 2, 2}).isNull());
    list.remove({1, 1, 2, 2});
    list.clear();

    QVERIFY(list.blocks().isEmpty());
}

QTEST_GUILESS_MAIN(tst_AnimatedBlocks)
#include "tst_AnimatedBlocks.moc"
