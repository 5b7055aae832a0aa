#pragma once

#include <QScrollArea>

/// Shows a column of controls that may be higher than the window.
///
/// As wide as the column, and wider by a vertical bar only while the column does not fit. It takes
/// no focus.
class ColumnArea : public QScrollArea
{
    Q_OBJECT

public:
    /// Takes @p column over.
    explicit ColumnArea(QWidget *column, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    bool fits() const;
};
