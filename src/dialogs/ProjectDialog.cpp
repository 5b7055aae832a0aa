#include "dialogs/ProjectDialog.h"

#include <QLineEdit>
#include <QShowEvent>

ProjectDialog::ProjectDialog(QWidget *parent)
    : DialogBase(parent)
    , m_name(new QLineEdit)
{
    setHeading(tr("Create a new project"));
    addRow(tr("Project name"), m_name);
}

QString ProjectDialog::text() const
{
    return m_name->text();
}

void ProjectDialog::accept()
{
    if (text().isEmpty())
        showError(tr("Please enter a name"));
    else
        DialogBase::accept();
}

void ProjectDialog::showEvent(QShowEvent *event)
{
    if (!event->spontaneous()) {
        m_name->clear();
    }
    DialogBase::showEvent(event);
}
