#pragma once

#include "model/Enums.h"

#include <QWidget>

class QBoxLayout;
class QScrollBar;
class QToolButton;

/// A scroll bar with buttons at both ends that add and remove a row or a column there.
class ScrollBar : public QWidget
{
    Q_OBJECT

public:
    explicit ScrollBar(Qt::Orientation orientation, QWidget *parent = nullptr);

    /// The bar between the buttons; owned.
    QScrollBar *bar() const { return m_bar; }
    int value() const;

public slots:
    void setRange(int minimum, int maximum);
    /// How much is on view: a click beside the handle scrolls by it, and it sizes the handle.
    void setPageStep(int step);
    void setValue(int value);

    void addFirstClicked();
    void addLastClicked();
    void subFirstClicked();
    void subLastClicked();

signals:
    void add(Tessaril::Position position);
    void remove(Tessaril::Position position);
    void valueChanged(int value);

private:
    using Click = void (ScrollBar::*)();

    void addButton(QBoxLayout *layout, const QString &sign, const QString &name, Click click);

    QScrollBar *m_bar;
};
