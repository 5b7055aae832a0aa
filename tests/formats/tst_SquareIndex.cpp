#include "formats/SquareIndex.h"

#include <QTest>

namespace {

constexpr int Side = 3; // pixels

/// What each orientation makes of "abc/def/ghi": turned first, then top to bottom, left to right.
const QByteArray Forms[] = {"abcdefghi", "ghidefabc", "cbafedihg", "ihgfedcba",
                            "gdahebifc", "ifchebgda", "adgbehcfi", "cfibehadg"};

SquareIndex::Orientation place(SquareIndex &squares, const QByteArray &pixels)
{
    return squares.place(reinterpret_cast<const uchar *>(pixels.constData()));
}

} // namespace

class tst_SquareIndex : public QObject
{
    Q_OBJECT

private slots:
    void findsASquareInEachOrientation_data();
    void findsASquareInEachOrientation();
    void aNewSquareComesBehindTheOthers();
    void symmetryEndsInTheHighestOrientation_data();
    void symmetryEndsInTheHighestOrientation();
    void manySquaresAreToldApart();
};

void tst_SquareIndex::findsASquareInEachOrientation_data()
{
    QTest::addColumn<int>("flags");
    for (int flags = 0; flags < SquareIndex::OrientationCount; ++flags)
        QTest::addRow("%d", flags) << flags;
}

void tst_SquareIndex::findsASquareInEachOrientation()
{
    QFETCH(int, flags);
    SquareIndex squares(Side);
    place(squares, Forms[0]);

    const SquareIndex::Orientation found = place(squares, Forms[flags]);

    QCOMPARE(found.tile, 0);
    QCOMPARE(found.flags, flags);
    QCOMPARE(squares.count(), 1);
}

void tst_SquareIndex::aNewSquareComesBehindTheOthers()
{
    SquareIndex squares(Side);
    QCOMPARE(squares.count(), 0);

    QCOMPARE(place(squares, "aaaaaaaab"), (SquareIndex::Orientation{0, 0}));
    QCOMPARE(place(squares, "aaaaaaaac"), (SquareIndex::Orientation{1, 0}));
    QCOMPARE(place(squares, "abaaaaaaa"), (SquareIndex::Orientation{2, 0}));

    QCOMPARE(squares.count(), 3);
}

void tst_SquareIndex::symmetryEndsInTheHighestOrientation_data()
{
    QTest::addColumn<QByteArray>("pixels");
    QTest::addColumn<int>("flags");
    QTest::newRow("plain") << QByteArray("aaaaaaaaa") << 7;
    QTest::newRow("left and right alike") << QByteArray("abacdcefe") << 2;
    QTest::newRow("top and bottom alike") << QByteArray("abcdefabc") << 1;
    QTest::newRow("alike upside down") << QByteArray("abcdedcba") << 3;
    QTest::newRow("alike along a diagonal") << QByteArray("abcbdecef") << 6;
    QTest::newRow("alike along the other diagonal") << QByteArray("abcdebfda") << 5;
}

void tst_SquareIndex::symmetryEndsInTheHighestOrientation()
{
    QFETCH(QByteArray, pixels);
    QFETCH(int, flags);
    SquareIndex squares(Side);

    QCOMPARE(place(squares, pixels).flags, 0);
    QCOMPARE(place(squares, pixels).flags, flags);
}

void tst_SquareIndex::manySquaresAreToldApart()
{
    constexpr int Count = 20000;
    constexpr int Bits = 15;
    SquareIndex squares(SquareIndex::MaxSide);
    // A corner that no turn brings back, and the number in binary.
    QByteArray pixels(SquareIndex::MaxSide * SquareIndex::MaxSide, 0);
    pixels[0] = pixels[1] = 2;

    for (int round = 0; round < 2; ++round) {
        for (int number = 0; number < Count; ++number) {
            for (int bit = 0; bit < Bits; ++bit)
                pixels[100 + bit] = static_cast<char>(number >> bit & 1);
            QCOMPARE(place(squares, pixels), (SquareIndex::Orientation{number, 0}));
        }
    }

    QCOMPARE(squares.count(), Count);
}

QTEST_GUILESS_MAIN(tst_SquareIndex)
#include "tst_SquareIndex.moc"
