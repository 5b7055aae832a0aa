#include "colour/ChannelSlider.h"

#include "support/PaintCounter.h"

#include <QTest>

class tst_ChannelSlider : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void theGrooveRunsFromEndToEnd();
    void theGrooveHasAnOutlineOfOnePixel();
    void otherEndsAreRepainted();
    void theHandleHasItsOwnColour();
    void theHandleFollowsTheValue();
    void aDisabledSliderIsPaler();
    void theHandleIsDraggedWhereItIsSeen();

private:
    QImage shot() { return m_slider->grab().toImage(); }
    int handlePlace();

    std::unique_ptr<ChannelSlider> m_slider;
};

namespace {

const QColor Handle(51, 221, 51);
constexpr int Middle = 10; // of the slider's height

} // namespace

void tst_ChannelSlider::init()
{
    m_slider = std::make_unique<ChannelSlider>(Handle);
    m_slider->setRange(0, 7);
    m_slider->setPageStep(1);
    m_slider->resize(200, 2 * Middle);
    m_slider->setEnds(QColor(200, 0, 40), QColor(200, 255, 40));
}

// The middle of the columns in the handle's colour.
int tst_ChannelSlider::handlePlace()
{
    const QImage image = shot();
    int first = -1;
    int last = -1;
    for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, Middle) != Handle)
            continue;
        first = first < 0 ? x : first;
        last = x;
    }
    return (first + last) / 2;
}

void tst_ChannelSlider::theGrooveRunsFromEndToEnd()
{
    m_slider->setValue(0);
    const QColor right = shot().pixelColor(196, Middle);
    QCOMPARE(right.red(), 200);
    QVERIFY(right.green() > 245);

    m_slider->setValue(7);
    const QImage image = shot();
    QVERIFY(image.pixelColor(4, Middle).green() < 10);
    QCOMPARE(image.pixelColor(4, Middle).blue(), 40);
    QVERIFY(qAbs(image.pixelColor(100, Middle).green() - 128) < 4);
}

void tst_ChannelSlider::theGrooveHasAnOutlineOfOnePixel()
{
    QPalette palette;
    palette.setColor(QPalette::Mid, Qt::blue);
    m_slider->setPalette(palette);
    m_slider->setValue(7);

    const QImage image = shot();

    QCOMPARE(image.pixelColor(0, Middle), QColor(Qt::blue));
    QVERIFY(image.pixelColor(1, Middle).red() > 190);
}

void tst_ChannelSlider::otherEndsAreRepainted()
{
    m_slider->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_slider.get()));
    const PaintCounter paints(*m_slider);

    m_slider->setEnds(QColor(200, 0, 40), QColor(200, 255, 40));
    QCoreApplication::processEvents();
    QCOMPARE(paints.count(), 0);

    m_slider->setEnds(QColor(200, 0, 40), Qt::red);
    QTRY_COMPARE(paints.count(), 1);
}

void tst_ChannelSlider::theHandleHasItsOwnColour()
{
    for (int value = 0; value <= 7; ++value) {
        m_slider->setValue(value);
        QVERIFY(handlePlace() >= 0);
    }
}

void tst_ChannelSlider::theHandleFollowsTheValue()
{
    int before = -1;
    for (int value = 0; value <= 7; ++value) {
        m_slider->setValue(value);
        QVERIFY(handlePlace() > before);
        before = handlePlace();
    }
    QVERIFY(before > 180);
}

void tst_ChannelSlider::aDisabledSliderIsPaler()
{
    const QColor before = shot().pixelColor(196, Middle);

    m_slider->setEnabled(false);

    QVERIFY(shot().pixelColor(196, Middle) != before);
}

void tst_ChannelSlider::theHandleIsDraggedWhereItIsSeen()
{
    m_slider->setValue(3);
    const QPoint grip(handlePlace(), Middle);

    QTest::mousePress(m_slider.get(), Qt::LeftButton, {}, grip);
    QVERIFY(m_slider->isSliderDown());
    QTest::mouseMove(m_slider.get(), {199, Middle});
    QTest::mouseRelease(m_slider.get(), Qt::LeftButton, {}, {199, Middle});

    QCOMPARE(m_slider->value(), 7);
}

QTEST_MAIN(tst_ChannelSlider)
#include "tst_ChannelSlider.moc"
