#include "uikit/ReadableStyle.h"

#include "uikit/ReadableColours.h"

#include <QApplication>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTest>

namespace {

constexpr int Side = 16;  // pixels, of an indicator
constexpr int Border = 4; // pixels of the window around it

QPalette darkColours()
{
    QPalette colours(QColor(53, 53, 53), QColor(42, 42, 42));
    colours.setColor(QPalette::Base, QColor(36, 36, 36));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text})
        colours.setColor(role, Qt::white);
    return colours;
}

QPalette highContrastColours()
{
    QPalette colours(Qt::black, Qt::black);
    colours.setColor(QPalette::Base, Qt::black);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text})
        colours.setColor(role, Qt::white);
    return colours;
}

/// An indicator without a mark on the colour of its window.
QImage drawn(const QStyle &style, QStyle::PrimitiveElement element, const QPalette &colours,
             QStyle::State state, double ratio)
{
    QImage image(QSize(qRound((Side + 2 * Border) * ratio), qRound((Side + 2 * Border) * ratio)),
                 QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(colours.color(QPalette::Window));
    QStyleOptionButton option;
    option.palette = colours;
    option.palette.setCurrentColorGroup(state & QStyle::State_Enabled ? QPalette::Active
                                                                      : QPalette::Disabled);
    option.rect = QRect(Border, Border, Side, Side);
    option.state = state | QStyle::State_Off;
    QPainter painter(&image);
    style.drawPrimitive(element, &option, &painter);
    return image;
}

/// The contrast of the line to what lies on both its sides, at its faintest of the four sides.
double outlineContrast(const QImage &image)
{
    const QRgb outside = image.pixel(0, 0);
    const QRgb inside = image.pixel(image.width() / 2, image.height() / 2);
    const auto contrastAt = [&](QPoint at) {
        const QColor line(image.pixel(at));
        return std::min(ReadableColours::contrast(line, outside),
                        ReadableColours::contrast(line, inside));
    };
    const int middle = image.width() / 2;
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;
    for (int i = 0; i < middle; ++i) {
        const int last = image.width() - 1 - i;
        left = std::max(left, contrastAt({i, middle}));
        right = std::max(right, contrastAt({last, middle}));
        top = std::max(top, contrastAt({middle, i}));
        bottom = std::max(bottom, contrastAt({middle, last}));
    }
    return std::min({left, right, top, bottom});
}

} // namespace

class tst_ReadableStyle : public QObject
{
    Q_OBJECT

private slots:
    void outlinesStandOut_data();
    void outlinesStandOut();
    void otherPartsAreThoseOfFusion();
    void takesThePlaceOfFusionOnly();
};

void tst_ReadableStyle::outlinesStandOut_data()
{
    QTest::addColumn<QPalette>("colours");
    QTest::addColumn<QStyle::PrimitiveElement>("element");
    QTest::addColumn<double>("ratio");
    const QPalette light = QStyleFactory::create("Fusion")->standardPalette();
    const std::pair<const char *, QPalette> themes[] = {
        {"light", light}, {"dark", darkColours()}, {"contrast", highContrastColours()}};
    for (const auto &[theme, colours] : themes) {
        for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
            QTest::addRow("%s box %g", theme, ratio)
                << colours << QStyle::PE_IndicatorCheckBox << ratio;
            QTest::addRow("%s radio %g", theme, ratio)
                << colours << QStyle::PE_IndicatorRadioButton << ratio;
            QTest::addRow("%s item %g", theme, ratio)
                << colours << QStyle::PE_IndicatorItemViewItemCheck << ratio;
        }
    }
}

void tst_ReadableStyle::outlinesStandOut()
{
    QFETCH(QPalette, colours);
    QFETCH(QStyle::PrimitiveElement, element);
    QFETCH(double, ratio);
    const ReadableStyle style;

    const double on = outlineContrast(drawn(style, element, colours, QStyle::State_Enabled, ratio));
    const double off = outlineContrast(drawn(style, element, colours, QStyle::State_None, ratio));

    QVERIFY2(on >= ReadableStyle::OutlineContrast, QByteArray::number(on).data());
    QVERIFY2(off >= ReadableStyle::OffOutlineContrast, QByteArray::number(off).data());
    QVERIFY(off < on); // what is off still looks so
}

void tst_ReadableStyle::otherPartsAreThoseOfFusion()
{
    const ReadableStyle style;
    const std::unique_ptr<QStyle> fusion(QStyleFactory::create("Fusion"));
    for (const auto element : {QStyle::PE_FrameLineEdit, QStyle::PE_PanelButtonCommand}) {
        const QImage shown = drawn(style, element, darkColours(), QStyle::State_Enabled, 1);
        QCOMPARE(shown, drawn(*fusion, element, darkColours(), QStyle::State_Enabled, 1));
    }
    for (const auto metric : {QStyle::PM_IndicatorWidth, QStyle::PM_ExclusiveIndicatorWidth})
        QCOMPARE(style.pixelMetric(metric), fusion->pixelMetric(metric));
}

void tst_ReadableStyle::takesThePlaceOfFusionOnly()
{
    QApplication::setStyle("Windows");
    ReadableStyle::install();
    QCOMPARE(QApplication::style()->name(), QString("windows"));

    QApplication::setStyle("Fusion");
    ReadableStyle::install();
    const QPointer<QStyle> style = QApplication::style();
    QVERIFY(qobject_cast<ReadableStyle *>(style));

    ReadableStyle::install();
    QCOMPARE(QApplication::style(), style.data());
}

QTEST_MAIN(tst_ReadableStyle)

#include "tst_ReadableStyle.moc"
