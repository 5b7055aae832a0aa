#include "model/SpriteReferences.h"

#include <QTest>

using Sprites = QList<Map::PlacedSprite>;

class tst_SpriteReferences : public QObject
{
    Q_OBJECT

private slots:
    void aMoveRenumbersWhatLiesBetween_data();
    void aMoveRenumbersWhatLiesBetween();
    void aDeletionTakesPlacementsAlong();
    void otherBanksAndAnimationsStay();
    void onlyTheIndexChanges();
};

namespace {

const QUuid Bank(QStringLiteral("{11111111-2222-4333-8444-555555555555}"));

Sprites placed(const QList<int> &indices)
{
    Sprites sprites;
    for (const int index : indices)
        sprites.append({.bank = Bank, .animation = {}, .sprite = index, .name = {}});
    return sprites;
}

} // namespace

void tst_SpriteReferences::aMoveRenumbersWhatLiesBetween_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QList<int>>("after");
    QTest::newRow("up") << 2 << 5 << QList{-1, 1, 5, 2, 3, 4, 6};
    QTest::newRow("down") << 5 << 2 << QList{-1, 1, 3, 4, 5, 2, 6};
    QTest::newRow("one up") << 3 << 4 << QList{-1, 1, 2, 4, 3, 5, 6};
    QTest::newRow("nowhere") << 3 << 3 << QList{-1, 1, 2, 3, 4, 5, 6};
}

void tst_SpriteReferences::aMoveRenumbersWhatLiesBetween()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QList<int>, after);
    Sprites sprites = placed({-1, 1, 2, 3, 4, 5, 6});

    SpriteReferences::followMove(&sprites, Bank, from, to);

    QCOMPARE(sprites, placed(after));
}

void tst_SpriteReferences::aDeletionTakesPlacementsAlong()
{
    Sprites sprites = placed({-1, 3, 2, 4, 3, 9});

    SpriteReferences::followDelete(&sprites, Bank, 3);

    QCOMPARE(sprites, placed({-1, 2, 3, 8}));
}

void tst_SpriteReferences::otherBanksAndAnimationsStay()
{
    Sprites sprites = placed({3, 3, 4, 4});
    sprites[0].bank = sprites[2].bank = QUuid::createUuid();
    sprites[1].animation = sprites[3].animation = QUuid::createUuid();
    const Sprites before = sprites;

    SpriteReferences::followMove(&sprites, Bank, 3, 0);
    QCOMPARE(sprites, before);
    SpriteReferences::followDelete(&sprites, Bank, 3);
    QCOMPARE(sprites, before);
}

void tst_SpriteReferences::onlyTheIndexChanges()
{
    const Map::PlacedSprite guard{
        Bank, {}, 4, 10, -20, true, false, true, 1, 2, 3, 5, QStringLiteral("Guard")};
    Map::PlacedSprite expected = guard;
    expected.sprite = 3;
    Sprites sprites{guard};

    SpriteReferences::followDelete(&sprites, Bank, 0);

    QCOMPARE(sprites, Sprites{expected});
}

QTEST_GUILESS_MAIN(tst_SpriteReferences)
#include "tst_SpriteReferences.moc"
