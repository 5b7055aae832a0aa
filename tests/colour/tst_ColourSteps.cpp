#include "colour/ColourSteps.h"

#include "model/NextColour.h"

#include <QTest>

using ColourSteps::Levels;

class tst_ColourSteps : public QObject
{
    Q_OBJECT

private slots:
    void slidersStandForRoundedComponents_data();
    void slidersStandForRoundedComponents();
    void aLevelIsShownAsAPaletteShowsIt();
    void darkerTakesTheSmallestStep_data();
    void darkerTakesTheSmallestStep();
    void lighterTakesTheSmallestStep_data();
    void lighterTakesTheSmallestStep();
    void noStepGoesTheWrongWay();
    void aGradientTakesWholeSteps();
    void aGradientRoundsItsStepsTowardsZero();
    void aGradientNeedsRoomAndADifference();
};

void tst_ColourSteps::slidersStandForRoundedComponents_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("component");
    const int components[] = {0, 36, 73, 109, 146, 182, 219, 255};
    for (int level = 0; level <= ColourSteps::MaxLevel; ++level)
        QTest::addRow("level %d", level) << level << components[level];
}

void tst_ColourSteps::slidersStandForRoundedComponents()
{
    QFETCH(int, level);
    QFETCH(int, component);

    QCOMPARE(ColourSteps::toColour({level, 0, 0}), QColor(component, 0, 0));
    QCOMPARE(ColourSteps::toColour({0, level, 0}), QColor(0, component, 0));
    QCOMPARE(ColourSteps::toColour({0, 0, level}), QColor(0, 0, component));
    QCOMPARE(ColourSteps::nearest(QColor(component, component, component)),
             (Levels{level, level, level}));
}

void tst_ColourSteps::aLevelIsShownAsAPaletteShowsIt()
{
    for (int level = 0; level <= ColourSteps::MaxLevel; ++level) {
        const auto word = static_cast<quint16>(level << 13);
        const QColor shown(NextColour::fromWord(word));

        QCOMPARE(ColourSteps::shown({level, 0, 0}), shown);
        QCOMPARE(ColourSteps::nearest(shown), (Levels{level, 0, 0}));
    }
}

void tst_ColourSteps::darkerTakesTheSmallestStep_data()
{
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<QList<int>>("levels"); // empty for no step
    QTest::newRow("black") << QColor(Qt::black) << QList<int>{};
    QTest::newRow("white") << QColor(Qt::white) << QList<int>{6, 6, 6};
    QTest::newRow("red") << QColor(255, 0, 0) << QList<int>{6, 0, 0};
    QTest::newRow("the darkest red") << QColor(37, 0, 0) << QList<int>{0, 0, 0};
    QTest::newRow("a mixture") << QColor(219, 110, 37) << QList<int>{5, 2, 1};
    QTest::newRow("the longest step") << QColor(72, 0, 0) << QList<int>{0, 0, 0};
}

void tst_ColourSteps::darkerTakesTheSmallestStep()
{
    QFETCH(QColor, colour);
    QFETCH(QList<int>, levels);

    const auto step = ColourSteps::darker(colour);

    QCOMPARE(step.has_value(), !levels.isEmpty());
    if (step)
        QCOMPARE((QList<int>{step->red, step->green, step->blue}), levels);
}

void tst_ColourSteps::lighterTakesTheSmallestStep_data()
{
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<QList<int>>("levels");
    QTest::newRow("black") << QColor(Qt::black) << QList<int>{};
    QTest::newRow("white") << QColor(Qt::white) << QList<int>{};
    QTest::newRow("the darkest red") << QColor(37, 0, 0) << QList<int>{2, 0, 0};
    QTest::newRow("middle grey") << QColor(110, 110, 110) << QList<int>{4, 4, 4};
    QTest::newRow("full red fades") << QColor(255, 0, 0) << QList<int>{7, 1, 1};
    QTest::newRow("a step beyond a factor of 1.98") << QColor(18, 0, 0) << QList<int>{};
}

void tst_ColourSteps::lighterTakesTheSmallestStep()
{
    QFETCH(QColor, colour);
    QFETCH(QList<int>, levels);

    const auto step = ColourSteps::lighter(colour);

    QCOMPARE(step.has_value(), !levels.isEmpty());
    if (step)
        QCOMPARE((QList<int>{step->red, step->green, step->blue}), levels);
}

void tst_ColourSteps::noStepGoesTheWrongWay()
{
    const int cube = ColourSteps::MaxLevel + 1;
    for (int place = 0; place < cube * cube * cube; ++place) {
        const Levels start{place / cube / cube, place / cube % cube, place % cube};
        const QColor colour = ColourSteps::shown(start);

        if (const auto step = ColourSteps::darker(colour))
            QVERIFY2(step->red <= start.red && step->green <= start.green &&
                         step->blue <= start.blue,
                     qPrintable(colour.name()));
        if (const auto step = ColourSteps::lighter(colour))
            QVERIFY2(step->red >= start.red && step->green >= start.green &&
                         step->blue >= start.blue,
                     qPrintable(colour.name()));
    }
}

void tst_ColourSteps::aGradientTakesWholeSteps()
{
    const QList<QColor> colours = ColourSteps::between(Qt::black, Qt::white, 7);

    QCOMPARE(colours.size(), 6);
    for (int i = 1; i <= 6; ++i)
        QCOMPARE(colours.at(i - 1), QColor(36 * i, 36 * i, 36 * i));
}

void tst_ColourSteps::aGradientRoundsItsStepsTowardsZero()
{
    const QList<QColor> colours =
        ColourSteps::between(QColor(200, 10, 100), QColor(100, 15, 107), 3);

    QCOMPARE(colours, (QList<QColor>{QColor(167, 11, 102), QColor(134, 12, 104)}));
}

void tst_ColourSteps::aGradientNeedsRoomAndADifference()
{
    QVERIFY(ColourSteps::between(Qt::black, Qt::white, 1).isEmpty());
    QVERIFY(ColourSteps::between(Qt::black, Qt::white, 0).isEmpty());
    QVERIFY(ColourSteps::between(Qt::red, Qt::red, 9).isEmpty());
    QVERIFY(ColourSteps::between(QColor(9, 9, 9, 0), QColor(9, 9, 9), 9).isEmpty());
}

QTEST_GUILESS_MAIN(tst_ColourSteps)
#include "tst_ColourSteps.moc"
