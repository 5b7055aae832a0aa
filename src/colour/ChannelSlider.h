#pragma once

#include <QSlider>

/// The slider of one channel: its groove previews the colours that its range leads to.
class ChannelSlider : public QSlider
{
    Q_OBJECT

public:
    /// Horizontal; @p handle is the colour of the handle.
    explicit ChannelSlider(const QColor &handle, QWidget *parent = nullptr);

    /// The colours that the lowest and the highest value would give.
    void setEnds(const QColor &low, const QColor &high);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor m_handle;
    QColor m_low = Qt::black;
    QColor m_high = Qt::white;
};
