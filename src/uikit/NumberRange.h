#pragma once

#include <QWidget>

class QHBoxLayout;
class QLineEdit;
class QToolButton;

/// A navigator over a numeric range: first, previous, an edit that takes a number, next, last.
///
/// The current value always lies between minimum and maximum, both included; where a bound moves
/// past it, it moves along. A range whose maximum is below its minimum stands at the minimum.
class NumberRange : public QWidget
{
    Q_OBJECT

public:
    explicit NumberRange(QWidget *parent = nullptr);
    ~NumberRange() override;

    int minimum() const { return m_minimum; }
    int maximum() const { return m_maximum; }
    int value() const { return m_value; }

public slots:
    /// The setters emit currentValueChanged() if the current value changes.
    void setMinimum(int minimum);
    void setMaximum(int maximum);
    void setRange(int minimum, int maximum);
    /// Brought into the range first.
    void setValue(int value);

    void firstButton();
    void lastButton();
    void nextButton();
    void previousButton();
    /// Shows "value / maximum" in the edit.
    void updateEdit();
    /// Takes the typed number if it is one and in range. In every case the edit is cleared and
    /// currentValueChanged() emitted.
    void enterPressed();

signals:
    void currentValueChanged(int value);

private:
    using Step = void (NumberRange::*)();

    QToolButton *addButton(QHBoxLayout *layout, const QString &arrow, const QString &name,
                           Step step);
    int bounded(int value) const;

    int m_minimum = 0;
    int m_maximum = 0;
    int m_value = 0;
    QLineEdit *m_edit;
};
