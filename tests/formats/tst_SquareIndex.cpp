#include "formats/SquareIndex.h"

#include <QTest>

namespace {

constexpr int PatternSide = 4;

/// What each orientation makes of four rows of letters: turned, then top to bottom, left to right.
const char *const Forms[] = {"abcdefghijklmnop", "mnopijklefghabcd", "dcbahgfelkjiponm",
                             "ponmlkjihgfedcba", "mieanjfbokgcplhd", "plhdokgcnjfbmiea",
                             "aeimbfjncgkodhlp", "dhlpcgkobfjnaeim"};

/// The place of a square in which each letter of the pattern is as many pixels as fit.
SquareIndex::Orientation place(SquareIndex &squares, const char *pattern, int side)
{
    QByteArray pixels;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const int scale = side / PatternSide;
            pixels += pattern[y / scale * PatternSide + x / scale];
        }
    }
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
    QTest::addColumn<int>("side");
    QTest::addColumn<int>("flags");
    for (const int side : {8, 16}) {
        for (int flags = 0; flags < SquareIndex::OrientationCount; ++flags)
            QTest::addRow("%d pixels, %d", side, flags) << side << flags;
    }
}

void tst_SquareIndex::findsASquareInEachOrientation()
{
    QFETCH(int, side);
    QFETCH(int, flags);
    SquareIndex squares(side);
    place(squares, Forms[0], side);

    const SquareIndex::Orientation found = place(squares, Forms[flags], side);

    QCOMPARE(found.tile, 0);
    QCOMPARE(found.flags, flags);
    QCOMPARE(squares.count(), 1);
}

void tst_SquareIndex::aNewSquareComesBehindTheOthers()
{
    SquareIndex squares(8);
    QCOMPARE(squares.count(), 0);

    QCOMPARE(place(squares, "aaaaaaaaaaaaaaab", 8), (SquareIndex::Orientation{0, 0}));
    QCOMPARE(place(squares, "aaaaaaaaaaaaaaac", 8), (SquareIndex::Orientation{1, 0}));
    QCOMPARE(place(squares, "abaaaaaaaaaaaaaa", 8), (SquareIndex::Orientation{2, 0}));

    QCOMPARE(squares.count(), 3);
}

void tst_SquareIndex::symmetryEndsInTheHighestOrientation_data()
{
    QTest::addColumn<QByteArray>("pattern");
    QTest::addColumn<int>("flags");
    QTest::newRow("plain") << QByteArray("aaaaaaaaaaaaaaaa") << 7;
    QTest::newRow("left and right alike") << QByteArray("abbacddceffeghhg") << 2;
    QTest::newRow("top and bottom alike") << QByteArray("abcdefghefghabcd") << 1;
    QTest::newRow("alike upside down") << QByteArray("abcdefghhgfedcba") << 3;
    QTest::newRow("alike along a diagonal") << QByteArray("abcdbefgcfhidgij") << 6;
    QTest::newRow("alike along the other diagonal") << QByteArray("abcdefgcihfbjiea") << 5;
}

void tst_SquareIndex::symmetryEndsInTheHighestOrientation()
{
    QFETCH(QByteArray, pattern);
    QFETCH(int, flags);
    SquareIndex squares(8);

    QCOMPARE(place(squares, pattern.constData(), 8).flags, 0);
    QCOMPARE(place(squares, pattern.constData(), 8).flags, flags);
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
            const auto *first = reinterpret_cast<const uchar *>(pixels.constData());
            QCOMPARE(squares.place(first), (SquareIndex::Orientation{number, 0}));
        }
    }

    QCOMPARE(squares.count(), Count);
}

QTEST_GUILESS_MAIN(tst_SquareIndex)
#include "tst_SquareIndex.moc"
