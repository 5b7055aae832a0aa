#include "colour/ColourSelector.h"

#include "colour/ColourEditorPopover.h"
#include "model/Palette.h"
#include "support/PaintCounter.h"

#include <QSignalSpy>
#include <QTest>

class tst_ColourSelector : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void swatchesAreTwentyFourPixelsApart();
    void theGroundIsGrey();
    void aPressFindsTheCellByOrientation_data();
    void aPressFindsTheCellByOrientation();
    void rightChoosesTheBackground();
    void middleDoesNothing();
    void indicesHoldTheBank();
    void anOffsetLeavesTheChosenIndices();
    void settingAnIndexTellsNothing();
    void aDoubleClickIsToldAndOpensTheEditor();
    void marksAreReadableAndTheForegroundWins();
    void aChangedColourIsRepainted();
    void whatIsToldFromOutsideIsRepainted();

private:
    QImage shot() { return m_selector->grab().toImage(); }

    std::unique_ptr<Palette> m_palette;
    std::unique_ptr<ColourSelector> m_selector;
};

void tst_ColourSelector::init()
{
    m_palette = std::make_unique<Palette>();
    m_palette->setDefaultColours();
    m_selector = std::make_unique<ColourSelector>(8, Qt::Vertical);
    m_selector->setPalette(QPointer<Palette>(m_palette.get()));
    m_selector->resize(m_selector->sizeHint());
}

void tst_ColourSelector::swatchesAreTwentyFourPixelsApart()
{
    m_selector->setOffset(15);
    m_selector->setForeIndex(0);
    m_selector->setBackIndex(0);
    const QImage image = shot();

    QCOMPARE(image.size(), QSize(192, 48));
    for (int cell = 0; cell < 16; ++cell) {
        const QPoint corner(cell % 8 * 24, cell / 8 * 24);
        QCOMPARE(image.pixelColor(corner), m_palette->colour(240 + cell));
        QCOMPARE(image.pixelColor(corner + QPoint(22, 22)), m_palette->colour(240 + cell));
    }
    QCOMPARE(ColourSelector(4, Qt::Horizontal).sizeHint(), QSize(96, 96));
    QCOMPARE(ColourSelector(2, Qt::Horizontal).sizeHint(), QSize(192, 48));
}

void tst_ColourSelector::theGroundIsGrey()
{
    const QColor grey(127, 127, 127);
    QCOMPARE(shot().pixelColor(23, 5), grey);

    m_selector->setPalette(QPointer<Palette>());
    QCOMPARE(shot().pixelColor(5, 5), grey);

    m_selector->resize(300, 100);
    QCOMPARE(shot().pixelColor(299, 99), grey);
}

void tst_ColourSelector::aPressFindsTheCellByOrientation_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<int>("index"); // -1 for none
    QTest::newRow("down, the first") << Qt::Vertical << 8 << QPoint(1, 0) << 0;
    QTest::newRow("down, second line") << Qt::Vertical << 8 << QPoint(25, 25) << 9;
    QTest::newRow("down, the last") << Qt::Vertical << 8 << QPoint(191, 47) << 15;
    QTest::newRow("across, second line") << Qt::Horizontal << 2 << QPoint(24, 0) << 2;
    QTest::newRow("across, second place") << Qt::Horizontal << 2 << QPoint(24, 24) << 3;
    QTest::newRow("across, the last") << Qt::Horizontal << 2 << QPoint(191, 47) << 15;
    QTest::newRow("beyond the line") << Qt::Horizontal << 2 << QPoint(24, 48) << -1;
    QTest::newRow("beyond the last") << Qt::Vertical << 8 << QPoint(3, 48) << -1;
}

void tst_ColourSelector::aPressFindsTheCellByOrientation()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(int, columns);
    QFETCH(QPoint, position);
    QFETCH(int, index);
    ColourSelector selector(columns, orientation);
    selector.setPalette(QPointer<Palette>(m_palette.get()));
    selector.resize(300, 300);
    QSignalSpy fore(&selector, &ColourSelector::foreColourChanged);

    QTest::mousePress(&selector, Qt::LeftButton, {}, position);

    QCOMPARE(fore.count(), index < 0 ? 0 : 1);
    QCOMPARE(selector.foreIndex(), std::max(index, 0));
}

void tst_ColourSelector::rightChoosesTheBackground()
{
    QSignalSpy fore(m_selector.get(), &ColourSelector::foreColourChanged);
    QSignalSpy back(m_selector.get(), &ColourSelector::backColourChanged);

    QTest::mousePress(m_selector.get(), Qt::RightButton, {}, {30, 30});

    QCOMPARE(back, (QList<QVariantList>{{9}}));
    QCOMPARE(m_selector->backIndex(), 9);
    QCOMPARE(fore.count(), 0);
}

void tst_ColourSelector::middleDoesNothing()
{
    QTest::mousePress(m_selector.get(), Qt::MiddleButton, {}, {30, 30});

    QCOMPARE(m_palette->transparencyIndex(), -1);
    QCOMPARE(m_selector->foreIndex(), 0);
}

void tst_ColourSelector::indicesHoldTheBank()
{
    m_selector->setOffset(3);
    QSignalSpy fore(m_selector.get(), &ColourSelector::foreColourChanged);

    QTest::mousePress(m_selector.get(), Qt::LeftButton, {}, {30, 30});

    QCOMPARE(fore, (QList<QVariantList>{{57}}));
    QCOMPARE(shot().pixelColor(1, 1), m_palette->colour(48));
}

void tst_ColourSelector::anOffsetLeavesTheChosenIndices()
{
    m_selector->setForeIndex(5);
    QSignalSpy fore(m_selector.get(), &ColourSelector::foreColourChanged);

    m_selector->setOffset(3);
    m_selector->setOffset(16);
    m_selector->setOffset(-1);

    QCOMPARE(m_selector->offset(), 3);
    QCOMPARE(m_selector->foreIndex(), 5);
    QCOMPARE(fore.count(), 0);
}

void tst_ColourSelector::settingAnIndexTellsNothing()
{
    QSignalSpy fore(m_selector.get(), &ColourSelector::foreColourChanged);
    QSignalSpy back(m_selector.get(), &ColourSelector::backColourChanged);

    m_selector->setForeIndex(5);
    m_selector->setBackIndex(6);

    QCOMPARE(fore.count() + back.count(), 0);
    QCOMPARE(m_selector->foreIndex(), 5);
    QCOMPARE(m_selector->backIndex(), 6);
}

void tst_ColourSelector::aDoubleClickIsToldAndOpensTheEditor()
{
    m_selector->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_selector.get()));
    QSignalSpy twice(m_selector.get(), &ColourSelector::doubleClicked);

    QTest::mouseDClick(m_selector.get(), Qt::LeftButton, {}, {30, 30});

    QCOMPARE(twice, (QList<QVariantList>{{9}}));
    QVERIFY(m_selector->findChild<ColourEditorPopover *>()->isVisible());
}

void tst_ColourSelector::marksAreReadableAndTheForegroundWins()
{
    const auto ink = [this](int cell, const QColor &colour) {
        const QImage image = shot();
        int pixels = 0;
        for (int y = 0; y < 23; ++y) {
            for (int x = 0; x < 23; ++x)
                pixels += image.pixelColor(cell % 8 * 24 + x, cell / 8 * 24 + y) == colour;
        }
        return pixels;
    };
    m_palette->setColour(2, QColor(109, 0, 0));
    m_palette->setColour(3, QColor(109, 0, 0));
    m_selector->setForeIndex(2);
    m_selector->setBackIndex(3);
    QVERIFY(ink(2, Qt::white) > 0 && ink(2, Qt::black) > 0);
    QVERIFY(ink(3, Qt::white) > 0 && ink(3, Qt::black) > 0);
    const int one = ink(2, Qt::white);
    QVERIFY(ink(3, Qt::white) != one);

    m_selector->setBackIndex(2);

    QCOMPARE(ink(2, Qt::white), one);
    QCOMPARE(ink(3, Qt::white), 0);
}

void tst_ColourSelector::aChangedColourIsRepainted()
{
    m_selector->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_selector.get()));
    m_palette->setColour(9, Qt::yellow, false);
    QCOMPARE(shot().pixelColor(26, 26), QColor(255, 255, 0));

    m_palette->setWord(9, 0);
    m_selector->paletteChanged(9, 9, Qt::black);
    QCOMPARE(shot().pixelColor(26, 26), QColor(Qt::black));
}

void tst_ColourSelector::whatIsToldFromOutsideIsRepainted()
{
    m_selector->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_selector.get()));
    const PaintCounter paints(*m_selector);

    m_selector->paletteChanged(9, 9, Qt::black);
    QTRY_COMPARE(paints.count(), 1);
    m_selector->setForeIndex(5);
    QTRY_COMPARE(paints.count(), 2);
    m_selector->setBackIndex(6);
    QTRY_COMPARE(paints.count(), 3);
    m_selector->setOffset(2);
    QTRY_COMPARE(paints.count(), 4);
}

QTEST_MAIN(tst_ColourSelector)
#include "tst_ColourSelector.moc"
