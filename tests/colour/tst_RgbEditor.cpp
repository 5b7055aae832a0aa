#include "colour/RgbEditor.h"

#include "colour/ChannelLabel.h"
#include "colour/ChannelSlider.h"

#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

class tst_RgbEditor : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void hasARowForEachChannel();
    void rowsAreMeasured();
    void aSliderMovesItsNumberAndTellsOnce();
    void aNumberMovesItsSliderAndTellsOnce();
    void eachLevelHasItsColour_data();
    void eachLevelHasItsColour();
    void showingAColourTellsNothing();
    void settingLevelsTellsOnce();
    void aSliderIsMovedByTheKeyboard();
    void groovesPreviewTheOtherChannels();
    void groovesShowTheirChannelsFromTheStart();
    void groovesFollowEachMove();
    void handlesHaveTheColoursOfTheirChannels();

private:
    QList<ChannelSlider *> sliders() { return m_editor->findChildren<ChannelSlider *>(); }
    QList<QSpinBox *> numbers() { return m_editor->findChildren<QSpinBox *>(); }

    std::unique_ptr<RgbEditor> m_editor;
};

void tst_RgbEditor::init()
{
    m_editor = std::make_unique<RgbEditor>();
    m_editor->resize(260, 80);
}

void tst_RgbEditor::hasARowForEachChannel()
{
    const auto labels = m_editor->findChildren<ChannelLabel *>();
    QStringList names;
    for (const auto *label : labels)
        names += label->text();

    QCOMPARE(names, (QStringList{"Red", "Green", "Blue"}));
    QCOMPARE(sliders().size(), 3);
    QCOMPARE(numbers().size(), 3);
    QCOMPARE(sliders().at(1)->accessibleName(), QStringLiteral("Green"));
    QCOMPARE(numbers().at(2)->accessibleName(), QStringLiteral("Blue"));
}

void tst_RgbEditor::rowsAreMeasured()
{
    m_editor->grab();
    for (const auto *label : m_editor->findChildren<ChannelLabel *>())
        QCOMPARE(label->width(), 20);
    for (const auto *slider : sliders()) {
        QCOMPARE(slider->orientation(), Qt::Horizontal);
        QCOMPARE(slider->minimumHeight(), 18);
        QCOMPARE(slider->minimum(), 0);
        QCOMPARE(slider->maximum(), 7);
        QCOMPARE(slider->pageStep(), 1);
    }
    for (const auto *number : numbers()) {
        QCOMPARE(number->minimumWidth(), 30);
        QCOMPARE(number->maximumWidth(), 30);
        QCOMPARE(number->minimum(), 0);
        QCOMPARE(number->maximum(), 7);
        QCOMPARE(number->singleStep(), 1);
        QCOMPARE(number->buttonSymbols(), QAbstractSpinBox::NoButtons);
        QCOMPARE(number->alignment() & Qt::AlignHCenter, Qt::AlignHCenter);
    }
}

void tst_RgbEditor::aSliderMovesItsNumberAndTellsOnce()
{
    QSignalSpy changed(m_editor.get(), &RgbEditor::colourChanged);

    sliders().at(1)->setValue(3);

    QCOMPARE(changed, (QList<QVariantList>{{QColor(0, 109, 0)}}));
    QCOMPARE(numbers().at(1)->value(), 3);
}

void tst_RgbEditor::aNumberMovesItsSliderAndTellsOnce()
{
    QSignalSpy changed(m_editor.get(), &RgbEditor::colourChanged);

    numbers().at(2)->setValue(5);

    QCOMPARE(changed, (QList<QVariantList>{{QColor(0, 0, 182)}}));
    QCOMPARE(sliders().at(2)->value(), 5);
}

void tst_RgbEditor::eachLevelHasItsColour_data()
{
    QTest::addColumn<int>("component");
    for (int component : {0, 36, 73, 109, 146, 182, 219, 255})
        QTest::addRow("%d", component) << component;
}

void tst_RgbEditor::eachLevelHasItsColour()
{
    QFETCH(int, component);
    const int level = (component + 18) / 36;

    sliders().at(0)->setValue(level);

    QCOMPARE(m_editor->colour(), QColor(component, 0, 0));
}

void tst_RgbEditor::showingAColourTellsNothing()
{
    QSignalSpy changed(m_editor.get(), &RgbEditor::colourChanged);

    m_editor->setColour(QColor(37, 110, 255));

    QCOMPARE(changed.count(), 0);
    QCOMPARE(m_editor->levels(), (ColourSteps::Levels{1, 3, 7}));
    QCOMPARE(numbers().at(1)->value(), 3);
}

void tst_RgbEditor::settingLevelsTellsOnce()
{
    QSignalSpy changed(m_editor.get(), &RgbEditor::colourChanged);

    m_editor->setLevels({1, 2, 3});

    QCOMPARE(changed, (QList<QVariantList>{{QColor(36, 73, 109)}}));
}

void tst_RgbEditor::aSliderIsMovedByTheKeyboard()
{
    QTest::keyClick(sliders().at(0), Qt::Key_Right);
    QTest::keyClick(sliders().at(0), Qt::Key_PageUp);
    QTest::keyClick(numbers().at(1), Qt::Key_Up);

    QCOMPARE(m_editor->levels(), (ColourSteps::Levels{2, 1, 0}));
    QCOMPARE(m_editor->focusProxy(), sliders().at(0));
}

void tst_RgbEditor::groovesPreviewTheOtherChannels()
{
    m_editor->setLevels({0, 7, 7});
    const QImage red = sliders().at(0)->grab().toImage();

    const QColor end = red.pixelColor(red.width() - 4, red.height() / 2);

    QVERIFY(end.red() > 240);
    QVERIFY(end.green() == 255 && end.blue() == 255);
}

void tst_RgbEditor::groovesShowTheirChannelsFromTheStart()
{
    const QImage green = sliders().at(1)->grab().toImage();

    const QColor end = green.pixelColor(green.width() - 4, green.height() / 2);

    QVERIFY(end.green() > 240);
    QCOMPARE(end.red(), 0);
    QCOMPARE(end.blue(), 0);
}

void tst_RgbEditor::groovesFollowEachMove()
{
    sliders().at(1)->setValue(7);
    const QImage red = sliders().at(0)->grab().toImage();
    const QImage green = sliders().at(1)->grab().toImage();

    const QColor redEnd = red.pixelColor(red.width() - 4, red.height() / 2);
    QVERIFY(redEnd.red() > 240);
    QCOMPARE(redEnd.green(), 255);
    QCOMPARE(redEnd.blue(), 0);
    const QColor greenStart = green.pixelColor(4, green.height() / 2);
    QVERIFY(greenStart.green() < 20);
    QCOMPARE(greenStart.red(), 0);
}

void tst_RgbEditor::handlesHaveTheColoursOfTheirChannels()
{
    const QList<QColor> handles{QColor(221, 51, 51), QColor(51, 221, 51), QColor(51, 51, 221)};
    for (int row = 0; row < 3; ++row) {
        const QImage image = sliders().at(row)->grab().toImage();
        QList<int> pixels(3, 0);
        for (int x = 0; x < image.width(); ++x) {
            const auto handle = handles.indexOf(image.pixelColor(x, image.height() / 2));
            if (handle >= 0)
                ++pixels[handle];
        }
        for (int handle = 0; handle < 3; ++handle)
            QCOMPARE(pixels.at(handle) > 5, handle == row);
    }
}

QTEST_MAIN(tst_RgbEditor)
#include "tst_RgbEditor.moc"
