#pragma once

#include <QLabel>

/// A label that shows its first letter where the whole word does not fit.
class ChannelLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ChannelLabel(const QString &text, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
