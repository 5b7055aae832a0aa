#include "colour/PaletteRange.h"

#include "model/Palette.h"

#include <QSignalSpy>
#include <QTest>

class tst_PaletteRange : public QObject
{
    Q_OBJECT

private slots:
    void isValidWithARunInAPalette();
    void theColourIsOpaqueAtTheTransparentEntry();
    void fillGivesTheWholeRunOneColour();
    void fillTellsOnlyWhatChanged();
    void blendSetsWhatLiesBetween();
    void blendKeepsThePriorities();
    void blendOfNeighboursDoesNothing();
    void blendOfEqualEndsDoesNothing();
    void aDeadPaletteIsSkipped();
};

void tst_PaletteRange::isValidWithARunInAPalette()
{
    Palette palette;

    QVERIFY(!PaletteRange().isValid());
    QVERIFY(!(PaletteRange{&palette, -1, -1}.isValid()));
    QVERIFY(!(PaletteRange{nullptr, 0, 3}.isValid()));
    QVERIFY(!(PaletteRange{&palette, 4, 3}.isValid()));
    QVERIFY(!(PaletteRange{&palette, 4, 256}.isValid()));
    QVERIFY((PaletteRange{&palette, 0, 255}.isValid()));
}

void tst_PaletteRange::theColourIsOpaqueAtTheTransparentEntry()
{
    Palette palette;
    palette.setColour(3, Qt::red, true);
    palette.setTransparencyIndex(3);

    const PaletteRange range{&palette, 3, 5};

    QCOMPARE(range.colour(), QColor(255, 0, 0));
    QVERIFY(range.priority());
    QCOMPARE(PaletteRange().colour(), QColor(Qt::black));
}

void tst_PaletteRange::fillGivesTheWholeRunOneColour()
{
    Palette palette;

    PaletteRange{&palette, 3, 5}.fill(QColor(73, 146, 255), true);

    QCOMPARE(palette.word(2), quint16(0));
    for (int index = 3; index <= 5; ++index)
        QCOMPARE(palette.word(index), quint16(0x5381));
    QCOMPARE(palette.word(6), quint16(0));
}

void tst_PaletteRange::fillTellsOnlyWhatChanged()
{
    Palette palette;
    palette.setColour(4, Qt::white, false);
    QSignalSpy changed(&palette, &Palette::colourChanged);
    QSignalSpy edited(&palette, &Palette::colourEdited);

    PaletteRange{&palette, 3, 5}.fill(Qt::white, false);

    QCOMPARE(changed.count(), 2);
    QCOMPARE(edited.count(), 2);
    QCOMPARE(edited.at(0), (QVariantList{3, QVariant::fromValue<quint16>(0),
                                         QVariant::fromValue<quint16>(0xFF01)}));
    QCOMPARE(edited.at(1).at(0).toInt(), 5);
}

void tst_PaletteRange::blendSetsWhatLiesBetween()
{
    Palette palette;
    palette.setColour(27, Qt::white, false);

    QVERIFY((PaletteRange{&palette, 20, 27}.blend()));

    // Steps of 36: 36, 72, 108, 144, 180 and 216 on the palette's grid.
    QCOMPARE(palette.word(20), quint16(0x0000));
    const quint16 words[] = {0x2401, 0x4900, 0x6D01, 0x9200, 0xB601, 0xDB00};
    for (int i = 0; i < 6; ++i)
        QCOMPARE(palette.word(21 + i), words[i]);
    QCOMPARE(palette.word(27), quint16(0xFF01));
}

void tst_PaletteRange::blendKeepsThePriorities()
{
    Palette palette;
    palette.setColour(2, Qt::white, false);
    palette.setColour(1, Qt::black, true);

    QVERIFY((PaletteRange{&palette, 0, 2}.blend()));

    QVERIFY(palette.priority(1));
    QVERIFY(palette.colour(1).red() > 0);
}

void tst_PaletteRange::blendOfNeighboursDoesNothing()
{
    Palette palette;
    palette.setColour(1, Qt::white, false);
    QSignalSpy changed(&palette, &Palette::colourChanged);

    QVERIFY(!(PaletteRange{&palette, 0, 1}.blend()));

    QCOMPARE(changed.count(), 0);
}

void tst_PaletteRange::blendOfEqualEndsDoesNothing()
{
    Palette palette;
    palette.setColour(3, Qt::white, false);
    QSignalSpy changed(&palette, &Palette::colourChanged);

    QVERIFY(!(PaletteRange{&palette, 0, 9}.blend()));

    QCOMPARE(changed.count(), 0);
}

void tst_PaletteRange::aDeadPaletteIsSkipped()
{
    auto palette = std::make_unique<Palette>();
    const PaletteRange range{palette.get(), 0, 9};
    palette.reset();

    range.fill(Qt::red, false);

    QVERIFY(!range.isValid());
    QVERIFY(!range.blend());
}

QTEST_GUILESS_MAIN(tst_PaletteRange)
#include "tst_PaletteRange.moc"
