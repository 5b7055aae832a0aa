#include "dialogs/DialogBase.h"

#include <QAbstractSpinBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int Margin = 2;            // pixels
constexpr int ButtonBoxWidth = 300;  // pixels, at least
constexpr double HeadingScale = 1.5; // of the dialog's point size
constexpr int FormStretch = 100;     // against 1 of the heading
constexpr QRgb ErrorColour = 0xcc3333;

bool takesTab(const QWidget *widget)
{
    return widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus);
}

/// @p field or, in a row of several, the first of them that Tab reaches; null if none does.
QWidget *reachable(QWidget *field)
{
    if (!field || takesTab(field))
        return field;
    const QList<QWidget *> parts = field->findChildren<QWidget *>();
    const auto part = std::find_if(parts.cbegin(), parts.cend(), takesTab);
    return part == parts.cend() ? nullptr : *part;
}

} // namespace

DialogBase::DialogBase(QWidget *parent)
    : QDialog(parent)
    , m_heading(makeHeading())
    , m_form(new QFormLayout)
    , m_error(makeErrorLine())
{
    setModal(true);
    setSizeGripEnabled(false);
    setContentsMargins(Margin, Margin, Margin, Margin);
    takeTitle();

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_heading, 1);
    layout->addLayout(m_form, FormStretch);
    layout->addWidget(m_error);
    layout->addWidget(makeButtons());
}

QLabel *DialogBase::makeHeading()
{
    auto *label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * HeadingScale);
    label->setFont(large);
    return label;
}

QLabel *DialogBase::makeErrorLine()
{
    auto *label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    QPalette red = label->palette();
    red.setColor(QPalette::WindowText, QColor(ErrorColour));
    label->setPalette(red);
    return label;
}

QDialogButtonBox *DialogBase::makeButtons()
{
    // Inside the dialog at once: only there does a default button stay it when the focus wanders.
    auto *buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, Qt::Horizontal, this);
    buttons->setMinimumWidth(ButtonBoxWidth);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Ok"));
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &DialogBase::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &DialogBase::reject);
    return buttons;
}

void DialogBase::takeTitle()
{
    // A menu that owns the dialog has no title of its own, but the window above it does.
    for (const QWidget *widget = parentWidget(); widget; widget = widget->parentWidget()) {
        if (widget->windowTitle().isEmpty())
            continue;
        setWindowTitle(widget->windowTitle());
        return;
    }
}

QString DialogBase::heading() const
{
    return m_heading->text();
}

QString DialogBase::error() const
{
    return m_error->text();
}

void DialogBase::setHeading(const QString &text)
{
    m_heading->setText(text);
}

void DialogBase::addRow(const QString &label, QWidget *field)
{
    if (field->accessibleName().isEmpty() && !label.isEmpty())
        field->setAccessibleName(label);
    m_form->addRow(label, field);
}

void DialogBase::showError(const QString &text)
{
    m_error->setText(text);
    fixSize();
}

void DialogBase::fixSize()
{
    if (!m_leastSize.isValid())
        m_leastSize = minimumSize();
    layout()->activate();
    setFixedSize(sizeHint().expandedTo(m_leastSize));
}

void DialogBase::focusFirstField()
{
    for (int row = 0; row < m_form->rowCount(); ++row) {
        const QLayoutItem *item = m_form->itemAt(row, QFormLayout::FieldRole);
        QWidget *const field = item ? reachable(item->widget()) : nullptr;
        if (!field)
            continue;
        field->setFocus();
        // Typing replaces what stands there, as after a Tab.
        if (auto *const line = qobject_cast<QLineEdit *>(field))
            line->selectAll();
        else if (auto *const spin = qobject_cast<QAbstractSpinBox *>(field))
            spin->selectAll();
        return;
    }
}

/// As the buttons do it themselves once one of them has had the focus. Entered at another, the
/// arrow keys would move the focus but not the mark.
void DialogBase::enterRadioButtonsAtTheChecked()
{
    for (auto *const button : findChildren<QRadioButton *>())
        button->setFocusPolicy(button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

void DialogBase::showEvent(QShowEvent *event)
{
    if (!event->spontaneous()) {
        takeTitle();
        showError({});
        enterRadioButtonsAtTheChecked();
        focusFirstField();
    }
    QDialog::showEvent(event);
}
