#include "dialogs/PaletteDialog.h"

#include <QButtonGroup>
#include <QLineEdit>
#include <QRadioButton>

PaletteDialog::PaletteDialog(QWidget *parent)
    : DialogBase(parent)
    , m_name(new QLineEdit)
    , m_actions(new QButtonGroup(this))
{
    setHeading(tr("Create a new palette"));
    addRow(tr("Palette Name"), m_name);
    const auto addAction = [this](CreateAction action, const QString &text) {
        auto *button = new QRadioButton(text);
        m_actions->addButton(button, action);
        addRow({}, button);
    };
    addAction(CreateCopy, tr("Copy colours from current palette"));
    addAction(CreateDefault, tr("Use the default Next palette"));
    addAction(CreateBlank, tr("Create a blank palette"));
    m_actions->button(CreateBlank)->setChecked(true);
}

void PaletteDialog::show(QStringList existingNames)
{
    m_existingNames = existingNames;
    m_name->clear();
    m_actions->button(CreateCopy)->setEnabled(!existingNames.isEmpty());
    if (existingNames.isEmpty() && action() == CreateCopy)
        m_actions->button(CreateBlank)->setChecked(true);
    DialogBase::show();
}

CreateAction PaletteDialog::action() const
{
    const int checked = m_actions->checkedId();
    return checked < 0 ? CreateEmpty : static_cast<CreateAction>(checked);
}

QString PaletteDialog::validationError() const
{
    // In this order: an empty name that is taken is told to be taken.
    if (m_existingNames.contains(m_name->text(), Qt::CaseSensitive))
        return tr("Palette names must be unique");
    if (m_name->text().isEmpty())
        return tr("Palette name is required");
    return {};
}

void PaletteDialog::accept()
{
    const QString error = validationError();
    if (!error.isEmpty()) {
        showError(error);
        return;
    }
    emit accepted(action(), m_name->text());
    DialogBase::accept();
}
