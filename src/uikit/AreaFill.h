#pragma once

#include <QColor>
#include <QWidget>

/// A swatch: paints its whole area in one colour.
class AreaFill : public QWidget
{
    Q_OBJECT

public:
    explicit AreaFill(QWidget *parent = nullptr);

    QColor colour() const { return m_colour; }

public slots:
    void setColour(const QColor &colour);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor m_colour = Qt::black;
};
