#include "editors/TileDrag.h"

#include <QMimeData>
#include <QTest>

class tst_TileDrag : public QObject
{
    Q_OBJECT

private slots:
    void holdsTwoNumbers();
    void readsWhatItWrote();
    void readsNothingElse();
};

void tst_TileDrag::holdsTwoNumbers()
{
    const auto data = TileDrag::mimeData({258, 3});

    QCOMPARE(data->formats(), QStringList("tessaril/tile-drag-anim"));
    QCOMPARE(data->data("tessaril/tile-drag-anim"), QByteArray("\0\0\1\2\0\0\0\3", 8));
}

void tst_TileDrag::readsWhatItWrote()
{
    const auto data = TileDrag::mimeData({511, 15});

    QCOMPARE(TileDrag::content(data.get()), (TileDrag::Content{511, 15}));
}

void tst_TileDrag::readsNothingElse()
{
    QMimeData data;
    QVERIFY(!TileDrag::content(nullptr));
    QVERIFY(!TileDrag::content(&data));

    data.setData("tessaril/tile-drag-anim", QByteArray(7, '\0'));
    QVERIFY(!TileDrag::content(&data));
    data.setData("tessaril/tile-drag-anim", QByteArray(9, '\0'));
    QVERIFY(!TileDrag::content(&data));
}

QTEST_GUILESS_MAIN(tst_TileDrag)
#include "tst_TileDrag.moc"
