#include "uikit/ReadableColours.h"

#include "support/FusionColours.h"

#include <QApplication>
#include <QTest>

namespace {

/// As the colours look on their ground.
double contrastOf(const QPalette &colours, QPalette::ColorGroup group, QPalette::ColorRole text,
                  QPalette::ColorRole ground)
{
    const QColor below = colours.color(group, ground);
    const QColor above = colours.color(group, text);
    const auto mix = [&](int top, int bottom) {
        return qRound(bottom + (top - bottom) * double(above.alphaF()));
    };
    return ReadableColours::contrast(QColor(mix(above.red(), below.red()),
                                            mix(above.green(), below.green()),
                                            mix(above.blue(), below.blue())),
                                     below);
}

} // namespace

class tst_ReadableColours : public QObject
{
    Q_OBJECT

private slots:
    void contrastIsThatOfTheAccessibilityGuidelines();
    void faintColoursAreStrengthened_data();
    void faintColoursAreStrengthened();
    void readableColoursStay();
    void aChangeOfTheProgramsColoursIsFollowed();
};

void tst_ReadableColours::contrastIsThatOfTheAccessibilityGuidelines()
{
    QCOMPARE(ReadableColours::contrast(Qt::black, Qt::white), 21.0);
    QCOMPARE(ReadableColours::contrast(Qt::red, Qt::red), 1.0);
    // A grey known for being the lightest that passes on white.
    QVERIFY(qAbs(ReadableColours::contrast(QColor(118, 118, 118), Qt::white) - 4.54) < 0.01);
}

void tst_ReadableColours::faintColoursAreStrengthened_data()
{
    QTest::addColumn<QPalette>("colours");
    QTest::newRow("Fusion") << fusionColours();
    QTest::newRow("dark") << QPalette(QColor(53, 53, 53), QColor(42, 42, 42));
    QPalette faint(Qt::white);
    faint.setColor(QPalette::PlaceholderText, QColor(220, 220, 220));
    faint.setColor(QPalette::Highlight, Qt::yellow);
    faint.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        faint.setColor(QPalette::Disabled, role, QColor(240, 240, 240));
    QTest::newRow("faint") << faint;
}

void tst_ReadableColours::faintColoursAreStrengthened()
{
    QFETCH(QPalette, colours);

    const QPalette better = ReadableColours::readable(colours);

    constexpr double Text = ReadableColours::TextContrast;
    constexpr double Off = ReadableColours::OffContrast;
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        for (const QPalette::ColorRole ground : {QPalette::Base, QPalette::Window})
            QVERIFY(contrastOf(better, group, QPalette::PlaceholderText, ground) >= Text);
        QVERIFY(contrastOf(better, group, QPalette::HighlightedText, QPalette::Highlight) >= Text);
    }
    QVERIFY(contrastOf(better, QPalette::Disabled, QPalette::WindowText, QPalette::Window) >= Off);
    QVERIFY(contrastOf(better, QPalette::Disabled, QPalette::Text, QPalette::Base) >= Off);
    QVERIFY(contrastOf(better, QPalette::Disabled, QPalette::ButtonText, QPalette::Button) >= Off);
    // What is off still looks so.
    QVERIFY(contrastOf(better, QPalette::Disabled, QPalette::WindowText, QPalette::Window) <
            contrastOf(better, QPalette::Active, QPalette::WindowText, QPalette::Window) / 2);
}

void tst_ReadableColours::readableColoursStay()
{
    const QPalette once = ReadableColours::readable(QPalette(Qt::lightGray));

    QCOMPARE(ReadableColours::readable(once), once);
    const QPalette plain = fusionColours();
    QCOMPARE(ReadableColours::readable(plain).color(QPalette::Text), plain.color(QPalette::Text));
    QCOMPARE(ReadableColours::readable(plain).color(QPalette::Base), plain.color(QPalette::Base));
}

void tst_ReadableColours::aChangeOfTheProgramsColoursIsFollowed()
{
    const auto isReadable = [] {
        const QPalette colours = QApplication::palette();
        return contrastOf(colours, QPalette::Active, QPalette::PlaceholderText, QPalette::Base) >=
               ReadableColours::TextContrast;
    };
    QPalette faint(Qt::white);
    faint.setColor(QPalette::PlaceholderText, QColor(220, 220, 220));
    QApplication::setPalette(faint);
    QVERIFY(!isReadable());

    const ReadableColours colours;
    QVERIFY(isReadable());
    QPalette dark(QColor(53, 53, 53), QColor(42, 42, 42));
    dark.setColor(QPalette::PlaceholderText, QColor(70, 70, 70));
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();

    QVERIFY(isReadable());
    QCOMPARE(QApplication::palette().color(QPalette::Window), QColor(42, 42, 42));
}

QTEST_MAIN(tst_ReadableColours)

#include "tst_ReadableColours.moc"
