#include "colour/RgbEditor.h"

#include "colour/ChannelLabel.h"
#include "colour/ChannelSlider.h"
#include "uikit/UndoKeys.h"

#include <QGridLayout>
#include <QSignalBlocker>
#include <QSpinBox>

namespace {

constexpr int LabelWidth = 20; // pixels, as all below
constexpr int SliderHeight = 18;
constexpr int NumberWidth = 30;
constexpr int RowSpacing = 4;

const QColor RedHandle(221, 51, 51);
const QColor GreenHandle(51, 221, 51);
const QColor BlueHandle(51, 51, 221);

} // namespace

RgbEditor::RgbEditor(QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(RowSpacing);
    m_red = addRow(layout, tr("Red"), RedHandle);
    m_green = addRow(layout, tr("Green"), GreenHandle);
    m_blue = addRow(layout, tr("Blue"), BlueHandle);
    setFocusProxy(m_red.slider);
    previewRanges();
}

RgbEditor::Channel RgbEditor::addRow(QGridLayout *layout, const QString &name, const QColor &handle)
{
    auto *label = new ChannelLabel(name);
    label->setFixedWidth(LabelWidth);

    auto *slider = new ChannelSlider(handle);
    slider->setMinimumHeight(SliderHeight);
    slider->setRange(0, ColourSteps::MaxLevel);
    slider->setPageStep(1);
    slider->setAccessibleName(name);

    auto *number = new QSpinBox;
    number->setFixedWidth(NumberWidth);
    number->setRange(0, ColourSteps::MaxLevel);
    number->setSingleStep(1);
    // So narrow a box has no room for arrows beside the digit; keys and wheel still step it.
    number->setButtonSymbols(QAbstractSpinBox::NoButtons);
    number->setAlignment(Qt::AlignCenter);
    number->setAccessibleName(name);
    UndoKeys::leaveToMenu(number);

    const int row = layout->rowCount();
    layout->addWidget(label, row, 0);
    layout->addWidget(slider, row, 1);
    layout->addWidget(number, row, 2);
    connect(slider, &QSlider::valueChanged, number, &QSpinBox::setValue);
    connect(number, &QSpinBox::valueChanged, slider, &QSlider::setValue);
    connect(slider, &QSlider::valueChanged, this, &RgbEditor::sliderValuesChanged);
    return {slider, number};
}

ColourSteps::Levels RgbEditor::levels() const
{
    return {m_red.slider->value(), m_green.slider->value(), m_blue.slider->value()};
}

void RgbEditor::setColour(const QColor &colour)
{
    showLevels(ColourSteps::nearest(colour));
}

void RgbEditor::setLevels(const ColourSteps::Levels &levels)
{
    showLevels(levels);
    emit colourChanged(colour());
}

void RgbEditor::sliderValuesChanged(int)
{
    previewRanges();
    emit colourChanged(colour());
}

void RgbEditor::showLevels(const ColourSteps::Levels &levels)
{
    const auto set = [](const Channel &channel, int level) {
        const QSignalBlocker sliderBlocker(channel.slider);
        const QSignalBlocker numberBlocker(channel.number);
        channel.slider->setValue(level);
        channel.number->setValue(level);
    };
    set(m_red, levels.red);
    set(m_green, levels.green);
    set(m_blue, levels.blue);
    previewRanges();
}

void RgbEditor::previewRanges()
{
    const ColourSteps::Levels now = levels();
    const auto preview = [&now](ChannelSlider *slider, int ColourSteps::Levels::*channel) {
        ColourSteps::Levels low = now;
        ColourSteps::Levels high = now;
        low.*channel = 0;
        high.*channel = ColourSteps::MaxLevel;
        slider->setEnds(ColourSteps::toColour(low), ColourSteps::toColour(high));
    };
    preview(m_red.slider, &ColourSteps::Levels::red);
    preview(m_green.slider, &ColourSteps::Levels::green);
    preview(m_blue.slider, &ColourSteps::Levels::blue);
}
