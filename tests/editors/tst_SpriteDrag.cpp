#include "editors/SpriteDrag.h"

#include <QMimeData>
#include <QTest>

class tst_SpriteDrag : public QObject
{
    Q_OBJECT

private slots:
    void theIndexIsFourBytesHighByteFirst();
    void readsItBack();
    void damagedOrForeignDataHoldsNothing();
};

void tst_SpriteDrag::theIndexIsFourBytesHighByteFirst()
{
    const auto data = SpriteDrag::mimeData(0x0102);

    QCOMPARE(data->formats(), QStringList("tessaril/sprite-drag-anim"));
    QCOMPARE(data->data("tessaril/sprite-drag-anim"), QByteArray::fromHex("00000102"));
}

void tst_SpriteDrag::readsItBack()
{
    QCOMPARE(SpriteDrag::index(SpriteDrag::mimeData(63).get()), std::optional<int>(63));
    QCOMPARE(SpriteDrag::index(SpriteDrag::mimeData(-1).get()), std::optional<int>(-1));
}

void tst_SpriteDrag::damagedOrForeignDataHoldsNothing()
{
    QMimeData cut;
    cut.setData("tessaril/sprite-drag-anim", "abc");
    QMimeData tile;
    tile.setData("tessaril/tile-drag-anim", QByteArray::fromHex("0000000100000000"));

    QVERIFY(!SpriteDrag::index(&cut));
    QVERIFY(!SpriteDrag::index(&tile));
    QVERIFY(!SpriteDrag::index(nullptr));
}

QTEST_MAIN(tst_SpriteDrag)
#include "tst_SpriteDrag.moc"
