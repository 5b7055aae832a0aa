#include "uikit/NumberRange.h"

#include "uikit/UndoKeys.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QToolButton>

#include <algorithm>

namespace {

/// Shows its placeholder also while it has the focus, where centred lines leave it out: here it is
/// the number.
class NumberEdit : public QLineEdit
{
protected:
    void paintEvent(QPaintEvent *event) override
    {
        QLineEdit::paintEvent(event);
        if (!hasFocus() || !text().isEmpty())
            return;
        QStyleOptionFrame option;
        initStyleOption(&option);
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(style()->subElementRect(QStyle::SE_LineEditContents, &option, this),
                         Qt::AlignCenter, placeholderText());
    }
};

} // namespace

NumberRange::NumberRange(QWidget *parent)
    : QWidget(parent)
    , m_edit(new NumberEdit)
{
    setObjectName(QStringLiteral("NumberRange"));
    m_edit->setAlignment(Qt::AlignCenter);
    m_edit->setAccessibleName(tr("Number"));
    UndoKeys::leaveToMenu(m_edit);
    // Room for a placeholder of four digits on each side; the buttons get theirs first.
    m_edit->setFixedWidth(m_edit->fontMetrics().horizontalAdvance(QStringLiteral("00000 / 00000")));

    auto *layout = new QHBoxLayout(this);
    layout->setSpacing(1);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    addButton(layout, QStringLiteral("⇤"), tr("First"), &NumberRange::firstButton);
    addButton(layout, QStringLiteral("←"), tr("Previous"), &NumberRange::previousButton);
    layout->addWidget(m_edit);
    addButton(layout, QStringLiteral("→"), tr("Next"), &NumberRange::nextButton);
    addButton(layout, QStringLiteral("⇥"), tr("Last"), &NumberRange::lastButton);
    layout->addStretch();

    connect(m_edit, &QLineEdit::returnPressed, this, &NumberRange::enterPressed);
    connect(m_edit, &QLineEdit::editingFinished, this, &NumberRange::enterPressed);
    updateEdit();
}

/// The edit that has the focus finishes editing when the window goes, which is after this.
NumberRange::~NumberRange()
{
    m_edit->disconnect(this);
}

QToolButton *NumberRange::addButton(QHBoxLayout *layout, const QString &arrow, const QString &name,
                                    Step step)
{
    auto *button = new QToolButton;
    button->setText(arrow);
    button->setToolTip(name);
    button->setAccessibleName(name);
    connect(button, &QToolButton::clicked, this, step);
    layout->addWidget(button);
    return button;
}

int NumberRange::bounded(int value) const
{
    return std::max(m_minimum, std::min(value, m_maximum));
}

void NumberRange::setMinimum(int minimum)
{
    setRange(minimum, m_maximum);
}

void NumberRange::setMaximum(int maximum)
{
    setRange(m_minimum, maximum);
}

void NumberRange::setRange(int minimum, int maximum)
{
    m_minimum = minimum;
    m_maximum = maximum;
    updateEdit();
    setValue(m_value);
}

void NumberRange::setValue(int value)
{
    const int inRange = bounded(value);
    if (inRange == m_value)
        return;

    m_value = inRange;
    updateEdit();
    emit currentValueChanged(m_value);
}

void NumberRange::firstButton()
{
    setValue(m_minimum);
}

void NumberRange::lastButton()
{
    setValue(m_maximum);
}

void NumberRange::nextButton()
{
    if (m_value < m_maximum)
        setValue(m_value + 1);
}

void NumberRange::previousButton()
{
    if (m_value > m_minimum)
        setValue(m_value - 1);
}

void NumberRange::updateEdit()
{
    m_edit->setPlaceholderText(QStringLiteral("%1 / %2").arg(m_value).arg(m_maximum));
}

void NumberRange::enterPressed()
{
    constexpr int Decimal = 10;
    bool isNumber = false;
    const int typed = m_edit->text().toInt(&isNumber, Decimal);
    if (isNumber && typed >= m_minimum && typed <= m_maximum)
        m_value = typed;
    m_edit->clear();
    updateEdit();
    emit currentValueChanged(m_value);
}
