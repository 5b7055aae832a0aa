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

void PaletteSelectorDialog::show(QList<QPointer<Palette>> palettes)
{
    m_palettes->setDocuments(palettes);
    DialogBase::show();
}

void PaletteSelectorDialog::accept()
{
    emit accepted(m_palettes->currentId());
    DialogBase::accept();
}
