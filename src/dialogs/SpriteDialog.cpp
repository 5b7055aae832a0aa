#include "dialogs/SpriteDialog.h"

#include "dialogs/DocumentCombo.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>

SpriteDialog::SpriteDialog(QWidget *parent)
    : DialogBase(parent)
    , m_name(new QLineEdit(this))
    , m_fourBit(new QRadioButton(tr("16 Colour Sprites"), this))
    , m_eightBit(new QRadioButton(tr("256 Colour Sprites"), this))
    , m_newPalette(new QCheckBox(tr("Create a new empty palette"), this))
    , m_palettes(new DocumentCombo(this))
{
    setHeading(tr("Create a new Sprite Bank"));
    m_name->setPlaceholderText(tr("Name..."));
    m_eightBit->setChecked(true);
    m_newPalette->setChecked(true);
    m_newPalette->setEnabled(false);
    m_palettes->setEnabled(false);
    m_palettes->setAccessibleName(tr("Existing palette"));

    addRow(tr("Name"), m_name);
    addRow({}, m_fourBit);
    addRow({}, m_eightBit);
    addRow(tr("Palette"), m_newPalette);
    addRow({}, m_palettes);

    connect(m_newPalette, &QCheckBox::toggled, this, &SpriteDialog::updatePaletteControls);
}

void SpriteDialog::show(QList<QPointer<Palette>> palettes)
{
    m_name->clear();
    m_palettes->setDocuments(palettes);
    m_newPalette->setChecked(true);
    updatePaletteControls();
    DialogBase::show();
}

void SpriteDialog::updatePaletteControls()
{
    m_newPalette->setEnabled(m_palettes->count() > 0);
    m_palettes->setEnabled(!m_newPalette->isChecked());
}

void SpriteDialog::accept()
{
    if (m_name->text().isEmpty()) {
        showError(tr("Name is required"));
        return;
    }

    CreateOptions options;
    options.setFlag(EightBit, m_eightBit->isChecked());
    options.setFlag(CreateNewPalette, m_newPalette->isChecked());
    emit accepted(options, m_name->text(),
                  m_newPalette->isChecked() ? QUuid() : m_palettes->currentId());
    DialogBase::accept();
}
