#include "dialogs/ExportMapDialog.h"

#include <QCheckBox>

ExportMapDialog::ExportMapDialog(QWidget *parent)
    : DialogBase(parent)
    , m_map(addBox(tr("Export Map Data")))
    , m_tiles(addBox(tr("Export Tile Data")))
    , m_palette(addBox(tr("Export Palette Data")))
{
    setHeading(tr("Export Map Data"));
}

QCheckBox *ExportMapDialog::addBox(const QString &text)
{
    auto *box = new QCheckBox(text);
    addRow({}, box);
    return box;
}

bool ExportMapDialog::exportsMap() const
{
    return m_map->isChecked();
}

bool ExportMapDialog::exportsTiles() const
{
    return m_tiles->isChecked();
}

bool ExportMapDialog::exportsPalette() const
{
    return m_palette->isChecked();
}

void ExportMapDialog::accept()
{
    if (exportsMap() || exportsTiles() || exportsPalette())
        DialogBase::accept();
    else
        showError(tr("At least one option must be chosen"));
}
