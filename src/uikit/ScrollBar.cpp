#include "uikit/ScrollBar.h"

#include <QBoxLayout>
#include <QScrollBar>
#include <QToolButton>

namespace {

constexpr int ButtonSide = 15;    // pixels
constexpr int Margin = 2;         // pixels
constexpr int BarStretch = 10000; // the bar takes all that the buttons leave

} // namespace

ScrollBar::ScrollBar(Qt::Orientation orientation, QWidget *parent)
    : QWidget(parent)
    , m_bar(new QScrollBar(orientation))
{
    setObjectName(QStringLiteral("ScrollBar"));
    const bool upright = orientation == Qt::Vertical;
    auto *layout =
        new QBoxLayout(upright ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, this);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);

    const QString plus = QStringLiteral("+");
    const QString minus = QStringLiteral("-");
    addButton(layout, plus, upright ? tr("Add a row at the top") : tr("Add a column at the left"),
              &ScrollBar::addFirstClicked);
    addButton(layout, minus, upright ? tr("Remove the top row") : tr("Remove the leftmost column"),
              &ScrollBar::subFirstClicked);
    layout->addWidget(m_bar, BarStretch);
    addButton(layout, minus,
              upright ? tr("Remove the bottom row") : tr("Remove the rightmost column"),
              &ScrollBar::subLastClicked);
    addButton(layout, plus,
              upright ? tr("Add a row at the bottom") : tr("Add a column at the right"),
              &ScrollBar::addLastClicked);

    connect(m_bar, &QScrollBar::valueChanged, this, &ScrollBar::valueChanged);
}

void ScrollBar::addButton(QBoxLayout *layout, const QString &sign, const QString &name, Click click)
{
    auto *button = new QToolButton;
    button->setText(sign);
    button->setFixedSize(ButtonSide, ButtonSide);
    button->setToolTip(name);
    button->setAccessibleName(name);
    connect(button, &QToolButton::clicked, this, click);
    layout->addWidget(button, 0, Qt::AlignCenter);
}

int ScrollBar::value() const
{
    return m_bar->value();
}

void ScrollBar::setRange(int minimum, int maximum)
{
    m_bar->setRange(minimum, maximum);
}

void ScrollBar::setPageStep(int step)
{
    m_bar->setPageStep(step);
}

void ScrollBar::setValue(int value)
{
    m_bar->setValue(value);
}

void ScrollBar::addFirstClicked()
{
    emit add(Tessaril::Position::Begin);
}

void ScrollBar::addLastClicked()
{
    emit add(Tessaril::Position::End);
}

void ScrollBar::subFirstClicked()
{
    emit remove(Tessaril::Position::Begin);
}

void ScrollBar::subLastClicked()
{
    emit remove(Tessaril::Position::End);
}
