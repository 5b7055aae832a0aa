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
    for (const auto *label : m_editor->findChildren<ChannelLabel *>())
        QCOMPARE(label->maximumWidth(), 20);
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
        QCOMPARE(number->maximum(), 7);
        QCOMPARE(number->singleStep(), 1);
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

QTEST_MAIN(tst_RgbEditor)
#include "tst_RgbEditor.moc"
