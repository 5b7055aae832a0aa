#include "dialogs/PaletteSelectorDialog.h"

#include "dialogs/DocumentCombo.h"

PaletteSelectorDialog::PaletteSelectorDialog(QWidget *parent)
    : DialogBase(parent)
    , m_palettes(new DocumentCombo)
{
    setMinimumSize(400, 300);
    setHeading(tr("Select a palette"));
    addRow(tr("Palette"), m_palettes);
}

void PaletteSelectorDialog::show(QList<QPointer<Palette>> palettes, QUuid current)
{
    m_palettes->setDocuments(palettes);
    m_palettes->setCurrentId(current);
    DialogBase::show();
}

void PaletteSelectorDialog::accept()
{
    emit accepted(m_palettes->currentId());
    DialogBase::accept();
}
