#pragma once

#include "colour/ColourSteps.h"

#include <QWidget>

class ChannelSlider;
class QGridLayout;
class QSpinBox;

/// Three rows of a slider and a number: the levels of red, green and blue.
class RgbEditor : public QWidget
{
    Q_OBJECT

public:
    explicit RgbEditor(QWidget *parent = nullptr);

    ColourSteps::Levels levels() const;
    /// The colour of the levels.
    QColor colour() const { return ColourSteps::toColour(levels()); }

    /// Shows the levels nearest to @p colour; emits nothing.
    void setColour(const QColor &colour);
    /// Shows @p levels and emits colourChanged().
    void setLevels(const ColourSteps::Levels &levels);

signals:
    void colourChanged(QColor colour);

public slots:
    /// Follows a slider.
    void sliderValuesChanged(int);

private:
    struct Channel
    {
        ChannelSlider *slider = nullptr;
        QSpinBox *number = nullptr;
    };

    Channel addRow(QGridLayout *layout, const QString &name, const QColor &handle);
    void showLevels(const ColourSteps::Levels &levels);
    void previewRanges();

    Channel m_red;
    Channel m_green;
    Channel m_blue;
};
