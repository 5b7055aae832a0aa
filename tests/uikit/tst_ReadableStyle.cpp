#include "uikit/ReadableStyle.h"

#include "support/FusionColours.h"
#include "support/MarkEdges.h"
#include "uikit/ReadableColours.h"

#include <QApplication>
#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTest>
#include <QToolButton>

namespace {

constexpr int Side = 16;  // pixels, of an indicator
constexpr int Border = 4; // pixels of the window around it

QPalette darkColours()
{
    QPalette colours(QColor(53, 53, 53), QColor(42, 42, 42));
    colours.setColor(QPalette::Base, QColor(36, 36, 36));
    colours.setColor(QPalette::Highlight, QColor(42, 110, 180));
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
    void fieldsHaveAnEdge_data() { themes(); }
    void fieldsHaveAnEdge();
    void theToolInUseIsMarked_data() { themes(); }
    void theToolInUseIsMarked();
    void framesHaveFourSides_data();
    void framesHaveFourSides();
    void lightFieldsAndOtherPartsAreThoseOfFusion();
    void takesThePlaceOfFusionOnly();

private:
    static void themes();
};

void tst_ReadableStyle::themes()
{
    QTest::addColumn<QPalette>("colours");
    QTest::newRow("light") << fusionColours();
    QTest::newRow("dark") << darkColours();
    QTest::newRow("contrast") << highContrastColours();
}

void tst_ReadableStyle::outlinesStandOut_data()
{
    QTest::addColumn<QPalette>("colours");
    QTest::addColumn<QStyle::PrimitiveElement>("element");
    QTest::addColumn<double>("ratio");
    const std::pair<const char *, QPalette> themes[] = {
        {"light", fusionColours()}, {"dark", darkColours()}, {"contrast", highContrastColours()}};
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
    const double focused = outlineContrast(drawn(
        style, element, colours,
        QStyle::State_Enabled | QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange, ratio));

    QVERIFY2(on >= ReadableStyle::OutlineContrast, QByteArray::number(on).data());
    QVERIFY2(focused >= ReadableStyle::OutlineContrast, QByteArray::number(focused).data());
    QVERIFY2(off >= ReadableStyle::OffOutlineContrast, QByteArray::number(off).data());
    QVERIFY(off < on); // what is off still looks so
}

void tst_ReadableStyle::fieldsHaveAnEdge()
{
    QFETCH(QPalette, colours);
    ReadableStyle style;
    const auto edge = [&](QWidget &&widget) {
        widget.setStyle(&style);
        widget.setPalette(colours);
        widget.setAttribute(Qt::WA_DontShowOnScreen);
        QImage image(widget.sizeHint(), QImage::Format_RGB32);
        widget.resize(image.size());
        widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        double best = 1;
        for (int x = 0; x < Border; ++x) {
            const QColor line = image.pixelColor(x, image.height() / 2);
            best = std::max(best, ReadableColours::contrast(
                                      line, colours.color(QPalette::Active, QPalette::Window)));
        }
        return best;
    };
    const bool isDark = colours.color(QPalette::Base).lightness() < 128;
    const double wanted = isDark ? ReadableStyle::OutlineContrast : ReadableStyle::FieldContrast;

    QVERIFY(edge(QLineEdit()) >= wanted);
    QVERIFY(edge(QSpinBox()) >= wanted);
    QVERIFY(edge(QComboBox()) >= wanted);
    QVERIFY(edge(QPushButton()) >= wanted);
    if (isDark)
        QVERIFY(edge(QToolButton()) >= wanted);
    QPushButton usual;
    usual.setDefault(true);
    QVERIFY(edge(std::move(usual)) >= wanted);
}

void tst_ReadableStyle::theToolInUseIsMarked()
{
    QFETCH(QPalette, colours);
    const ReadableStyle style;
    const auto shown = [&](QStyle::State state) {
        QImage image(Side, Side, QImage::Format_RGB32);
        image.fill(colours.color(QPalette::Window));
        QStyleOptionToolButton option;
        option.palette = colours;
        option.rect = image.rect();
        option.state = state | QStyle::State_Enabled | QStyle::State_AutoRaise;
        QPainter painter(&image);
        style.drawPrimitive(QStyle::PE_PanelButtonTool, &option, &painter);
        return ReadableColours::contrast(image.pixelColor(0, Side / 2),
                                         colours.color(QPalette::Window));
    };

    QVERIFY(shown(QStyle::State_On) >= ReadableStyle::OutlineContrast);
    QVERIFY(shown(QStyle::State_Off) < ReadableStyle::OffOutlineContrast);
}

void tst_ReadableStyle::framesHaveFourSides_data()
{
    QTest::addColumn<double>("ratio");
    for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0})
        QTest::addRow("%g", ratio) << ratio;
}

void tst_ReadableStyle::framesHaveFourSides()
{
    QFETCH(double, ratio);
    ReadableStyle style;
    QFrame frame;
    frame.setStyle(&style);
    frame.setPalette(fusionColours());
    frame.resize(80, 40);
    const QImage plain = MarkEdges::shown(frame, ratio);

    frame.setFrameShape(QFrame::StyledPanel);

    const QMargins lines = MarkEdges::between(plain, MarkEdges::shown(frame, ratio), frame.rect());
    QVERIFY2(MarkEdges::areWhole(lines, ratio), MarkEdges::text(lines));
}

void tst_ReadableStyle::lightFieldsAndOtherPartsAreThoseOfFusion()
{
    const ReadableStyle style;
    const std::unique_ptr<QStyle> fusion(QStyleFactory::create("Fusion"));
    const auto same = [&](QStyle::PrimitiveElement element, const QPalette &colours) {
        return drawn(style, element, colours, QStyle::State_Enabled, 1) ==
               drawn(*fusion, element, colours, QStyle::State_Enabled, 1);
    };

    QVERIFY(same(QStyle::PE_PanelButtonCommand, fusionColours()));
    QVERIFY(!same(QStyle::PE_PanelButtonCommand, darkColours()));
    QVERIFY(same(QStyle::PE_IndicatorArrowDown, darkColours()));
    QVERIFY(same(QStyle::PE_Frame, darkColours()));
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
