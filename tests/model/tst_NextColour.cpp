#include "model/NextColour.h"

#include <QTest>

class tst_NextColour : public QObject
{
    Q_OBJECT

private slots:
    void snapsEachChannelToTheNearerLevel_data();
    void snapsEachChannelToTheNearerLevel();
    void decodesTheEightLevelsByCeiling_data();
    void decodesTheEightLevelsByCeiling();
    void levelSixReadsBackAsSeven();
    void defaultPaletteIsTheStartUpRamp();
};

void tst_NextColour::snapsEachChannelToTheNearerLevel_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("level");
    QTest::newRow("black") << 0 << 0;
    QTest::newRow("a tie goes down") << 8 << 0;
    QTest::newRow("above a tie") << 9 << 16;
    QTest::newRow("tie below red level 6") << 200 << 192;
    QTest::newRow("below the last step") << 247 << 240;
    QTest::newRow("above the last step") << 248 << 255;
    QTest::newRow("white") << 255 << 255;
}

void tst_NextColour::snapsEachChannelToTheNearerLevel()
{
    QFETCH(int, value);
    QFETCH(int, level);

    QCOMPARE(NextColour::snappedLevel(value), level);
    QCOMPARE(NextColour::snapped(qRgba(value, 0, value, 7)), qRgb(level, 0, level));
}

void tst_NextColour::decodesTheEightLevelsByCeiling_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("component");
    const int components[] = {0, 37, 73, 110, 146, 183, 219, 255};
    for (int level = 0; level < 8; ++level)
        QTest::addRow("level %d", level) << level << components[level];
}

void tst_NextColour::decodesTheEightLevelsByCeiling()
{
    QFETCH(int, level);
    QFETCH(int, component);
    const int high = (level << 5) | (level << 2) | (level >> 1);
    const auto word = static_cast<quint16>((high << 8) | (level & 1));

    QCOMPARE(NextColour::fromWord(word), qRgb(component, component, component));
}

void tst_NextColour::levelSixReadsBackAsSeven()
{
    const quint16 levelSix = 0xDB00;

    const QRgb snapped = NextColour::snapped(NextColour::fromWord(levelSix));

    QCOMPARE(NextColour::toWord(snapped, false), quint16(0xFF01));
}

void tst_NextColour::defaultPaletteIsTheStartUpRamp()
{
    QCOMPARE(NextColour::defaultWord(0), quint16(0x0000));
    QCOMPARE(NextColour::defaultWord(1), quint16(0x0101));
    QCOMPARE(NextColour::defaultWord(4), quint16(0x0400));
    QCOMPARE(NextColour::defaultWord(227), quint16(0xE301));
    QCOMPARE(NextColour::defaultWord(255), quint16(0xFF01));
}

QTEST_GUILESS_MAIN(tst_NextColour)
#include "tst_NextColour.moc"
