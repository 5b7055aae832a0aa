#include "model/Palette.h"

#include "support/TestFiles.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

class tst_Palette : public QObject
{
    Q_OBJECT

private slots:
    void aNewPaletteIsBlackAndOpaque();
    void signalsAndSlotsStandInTheAgreedOrder();
    void eachPaletteHasItsOwnId();
    void decodesWords_data();
    void decodesWords();
    void settingAColourStoresItsWord_data();
    void settingAColourStoresItsWord();
    void readingBackChangesOnlyLevelSix();
    void settingAColourSendsBothSignalsInOrder();
    void settingTheSameColourTwiceSendsOnce();
    void changingOnlyThePrioritySends();
    void settingFromAnImageClearsThePriority();
    void theTransparentEntryHasAlphaZeroExceptInTheTable();
    void theDefaultPaletteIsTheStartUpRamp();
    void nearestColourSnapsAndDropsAlpha();
    void settingTheSameNameSendsNothing();
    void settingAWordSendsNothing();
    void exportsPalAsTheWordsAlone();
    void exportsNplWithAZeroByteBehind();
    void exportingWhereNothingCanBeWrittenFails();
    void importsEveryWordSilently();
    void importRefusesWrongSizes_data();
    void importRefusesWrongSizes();
    void importRefusesWhatCannotBeOpened();

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

void tst_Palette::aNewPaletteIsBlackAndOpaque()
{
    const Palette palette;

    QCOMPARE(palette.name(), QStringLiteral("untitled"));
    QCOMPARE(palette.transparencyIndex(), -1);
    for (int i = 0; i < 256; ++i) {
        QCOMPARE(palette.word(i), quint16(0));
        QCOMPARE(palette.colour(i), QColor(0, 0, 0, 255));
        QVERIFY(!palette.priority(i));
    }
}

void tst_Palette::signalsAndSlotsStandInTheAgreedOrder()
{
    const QMetaObject &meta = Palette::staticMetaObject;
    QByteArrayList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names << meta.method(i).name();

    QCOMPARE(names, (QByteArrayList{"colourChanged", "colourEdited", "nameChanged", "setName",
                                    "setColour", "exportData", "importData"}));
}

void tst_Palette::eachPaletteHasItsOwnId()
{
    const Palette first;
    const Palette second;

    QVERIFY(!first.id().isNull());
    QVERIFY(first.id() != second.id());
}

void tst_Palette::decodesWords_data()
{
    QTest::addColumn<quint16>("word");
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<bool>("priority");
    QTest::newRow("black") << quint16(0x0000) << QColor(0, 0, 0) << false;
    QTest::newRow("white") << quint16(0xFF01) << QColor(255, 255, 255) << false;
    QTest::newRow("priority") << quint16(0x0080) << QColor(0, 0, 0) << true;
    QTest::newRow("red 1") << quint16(0x2000) << QColor(37, 0, 0) << false;
    QTest::newRow("green 3") << quint16(0x0C00) << QColor(0, 110, 0) << false;
    QTest::newRow("blue 6") << quint16(0x0300) << QColor(0, 0, 219) << false;
    QTest::newRow("blue 1") << quint16(0x0001) << QColor(0, 0, 37) << false;
    QTest::newRow("unused bits") << quint16(0x007E) << QColor(0, 0, 0) << false;
}

void tst_Palette::decodesWords()
{
    QFETCH(quint16, word);
    QFETCH(QColor, colour);
    QFETCH(bool, priority);
    Palette palette;

    palette.setWord(9, word);

    QCOMPARE(palette.colour(9), colour);
    QCOMPARE(palette.priority(9), priority);
    QCOMPARE(palette.colourTable().at(9), colour.rgb());
}

void tst_Palette::settingAColourStoresItsWord_data()
{
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<bool>("priority");
    QTest::addColumn<quint16>("word");
    QTest::newRow("219 becomes level 7") << QColor(219, 219, 219) << false << quint16(0xFF01);
    QTest::newRow("200 stays red level 6") << QColor(200, 0, 0) << false << quint16(0xC000);
    QTest::newRow("white, priority") << QColor(255, 255, 255) << true << quint16(0xFF81);
    QTest::newRow("blue 1") << QColor(0, 0, 37) << false << quint16(0x0001);
    QTest::newRow("blue 2") << QColor(0, 0, 73) << false << quint16(0x0100);
    QTest::newRow("transparent is opaque") << QColor(255, 0, 0, 0) << false << quint16(0xE000);
    QTest::newRow("hue notation") << QColor::fromHsv(120, 255, 255) << false << quint16(0x1C00);
}

void tst_Palette::settingAColourStoresItsWord()
{
    QFETCH(QColor, colour);
    QFETCH(bool, priority);
    Palette palette;

    palette.setColour(255, colour, priority);

    QTEST(palette.word(255), "word");
}

void tst_Palette::readingBackChangesOnlyLevelSix()
{
    for (int level = 0; level < 8; ++level) {
        const int stored = level == 6 ? 7 : level;
        Palette palette;
        palette.setWord(0, static_cast<quint16>(level << 13));

        palette.setColour(1, palette.colour(0));

        QCOMPARE(palette.word(1) >> 13, stored);
    }
}

void tst_Palette::settingAColourSendsBothSignalsInOrder()
{
    Palette palette;
    palette.setWord(5, 0x1C00);
    QStringList order;
    connect(&palette, &Palette::colourChanged, this, [&] { order += "changed"; });
    connect(&palette, &Palette::colourEdited, this, [&] { order += "edited"; });
    QSignalSpy changed(&palette, &Palette::colourChanged);
    QSignalSpy edited(&palette, &Palette::colourEdited);

    palette.setColour(5, QColor(219, 100, 9, 12), true);

    QCOMPARE(order, QStringList({"changed", "edited"}));
    QCOMPARE(changed.first(), QVariantList({5, QColor(224, 96, 16), true}));
    const auto before = QVariant::fromValue(quint16(0x1C00));
    const auto after = QVariant::fromValue(quint16(0xEC80));
    QCOMPARE(edited.first(), QVariantList({5, before, after}));
}

void tst_Palette::settingTheSameColourTwiceSendsOnce()
{
    Palette palette;
    QSignalSpy changed(&palette, &Palette::colourChanged);
    QSignalSpy edited(&palette, &Palette::colourEdited);

    palette.setColour(1, QColor(255, 0, 0), false);
    palette.setColour(1, QColor(255, 0, 0), false);

    QCOMPARE(changed.count(), 1);
    QCOMPARE(edited.count(), 1);
}

void tst_Palette::changingOnlyThePrioritySends()
{
    Palette palette;
    palette.setColour(1, QColor(255, 0, 0), false);
    QSignalSpy changed(&palette, &Palette::colourChanged);
    QSignalSpy edited(&palette, &Palette::colourEdited);

    palette.setColour(1, QColor(255, 0, 0), true);

    QCOMPARE(changed.count(), 1);
    QCOMPARE(edited.count(), 1);
    QVERIFY(palette.priority(1));
}

void tst_Palette::settingFromAnImageClearsThePriority()
{
    Palette palette;
    palette.setColour(1, QColor(255, 0, 0), true);

    palette.setColour(1, QColor(255, 0, 0));

    QCOMPARE(palette.word(1), quint16(0xE000));
}

void tst_Palette::theTransparentEntryHasAlphaZeroExceptInTheTable()
{
    Palette palette;
    palette.setDefaultColours();
    palette.setTransparencyIndex(227);

    QCOMPARE(palette.colour(227), QColor(255, 0, 255, 0));
    QCOMPARE(palette.colour(226).alpha(), 255);
    QCOMPARE(palette.colours().size(), 256);
    QCOMPARE(palette.colours().at(227), QColor(255, 0, 255, 0));
    QCOMPARE(palette.colours().at(228).alpha(), 255);
    QCOMPARE(palette.colourTable().size(), 256);
    QCOMPARE(palette.colourTable().at(227), qRgb(255, 0, 255));
}

void tst_Palette::theDefaultPaletteIsTheStartUpRamp()
{
    Palette palette;
    QSignalSpy changed(&palette, &Palette::colourChanged);

    palette.setDefaultColours();

    for (int i = 0; i < 256; ++i)
        QCOMPARE(palette.word(i), static_cast<quint16>(i * 256 + (i % 4 != 0 ? 1 : 0)));
    QCOMPARE(palette.transparencyIndex(), -1);
    QCOMPARE(changed.count(), 0);
}

void tst_Palette::nearestColourSnapsAndDropsAlpha()
{
    QCOMPARE(Palette::nearestColour(QColor(8, 9, 248, 3)), QColor(0, 16, 255, 255));
}

void tst_Palette::settingTheSameNameSendsNothing()
{
    Palette palette;
    QSignalSpy changed(&palette, &Palette::nameChanged);

    palette.setName("dusk");
    palette.setName("dusk");

    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first(), QVariantList({"dusk"}));
    QCOMPARE(palette.name(), QStringLiteral("dusk"));
}

void tst_Palette::settingAWordSendsNothing()
{
    Palette palette;
    QSignalSpy changed(&palette, &Palette::colourChanged);
    QSignalSpy edited(&palette, &Palette::colourEdited);

    palette.setWord(3, 0xDB00);

    QCOMPARE(palette.word(3), quint16(0xDB00));
    QCOMPARE(changed.count() + edited.count(), 0);
}

void tst_Palette::exportsPalAsTheWordsAlone()
{
    Palette palette;
    palette.setWord(0, 0xE380);
    palette.setWord(255, 0xFF01);

    QVERIFY(palette.exportData(path("out.pal")));

    const QByteArray expected =
        QByteArray::fromHex("e380") + QByteArray(508, '\0') + QByteArray::fromHex("ff01");
    QCOMPARE(TestFiles::contents(path("out.pal")), expected);
}

void tst_Palette::exportsNplWithAZeroByteBehind()
{
    Palette palette;
    palette.setWord(255, 0xFF01);

    QVERIFY(palette.exportData(path("OUT.NPL")));

    const QByteArray expected = QByteArray(510, '\0') + QByteArray::fromHex("ff0100");
    QCOMPARE(TestFiles::contents(path("OUT.NPL")), expected);
}

void tst_Palette::exportingWhereNothingCanBeWrittenFails()
{
    Palette palette;

    QVERIFY(!palette.exportData(path("missing/out.pal")));
    QVERIFY(!palette.exportData(m_folder.path()));
}

void tst_Palette::importsEveryWordSilently()
{
    Palette palette;
    palette.setWord(7, 0x1234);
    palette.setTransparencyIndex(3);
    QSignalSpy changed(&palette, &Palette::colourChanged);
    QSignalSpy edited(&palette, &Palette::colourEdited);
    const QByteArray data =
        QByteArray::fromHex("e380") + QByteArray(508, '\0') + QByteArray::fromHex("ff7f");
    QVERIFY(TestFiles::make(path("in.pal"), data));

    QVERIFY(palette.importData(path("in.pal")));

    QCOMPARE(palette.word(0), quint16(0xE380));
    QVERIFY(palette.priority(0));
    QCOMPARE(palette.word(7), quint16(0));
    QCOMPARE(palette.word(255), quint16(0xFF7F));
    QCOMPARE(palette.transparencyIndex(), 3);
    QCOMPARE(changed.count() + edited.count(), 0);
}

void tst_Palette::importRefusesWrongSizes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("taken");
    QTest::newRow("empty") << "in.pal" << 0 << false;
    QTest::newRow("pal of 511") << "in.pal" << 511 << false;
    QTest::newRow("pal of 512") << "in.pal" << 512 << true;
    QTest::newRow("pal of 513") << "in.pal" << 513 << false;
    QTest::newRow("nxp of 512") << "in.nxp" << 512 << true;
    QTest::newRow("npl of 512") << "in.npl" << 512 << false;
    QTest::newRow("npl of 513") << "in.npl" << 513 << true;
    QTest::newRow("npl of 514") << "in.npl" << 514 << false;
    QTest::newRow("upper case npl of 512") << "X.NPL" << 512 << false;
    QTest::newRow("upper case npl of 513") << "X.NPL" << 513 << true;
}

void tst_Palette::importRefusesWrongSizes()
{
    QFETCH(QString, name);
    QFETCH(int, size);
    QFETCH(bool, taken);
    Palette palette;
    palette.setWord(200, 0x1234);
    QVERIFY(TestFiles::make(path(name), QByteArray(size, '\x22')));

    QCOMPARE(palette.importData(path(name)), taken);

    QCOMPARE(palette.word(200), quint16(taken ? 0x2222 : 0x1234));
}

void tst_Palette::importRefusesWhatCannotBeOpened()
{
    Palette palette;

    QVERIFY(!palette.importData(path("missing.pal")));
    QVERIFY(!palette.importData(m_folder.path()));
}

QTEST_GUILESS_MAIN(tst_Palette)
#include "tst_Palette.moc"
