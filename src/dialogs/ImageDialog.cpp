#include "dialogs/ImageDialog.h"

#include "dialogs/DocumentCombo.h"
#include "dialogs/PaletteChoice.h"

#include <QLineEdit>

namespace {

constexpr int OwnChoices = 2; // in front of the project's palettes

} // namespace

ImageDialog::ImageDialog(QWidget *parent)
    : DialogBase(parent)
    , m_name(new QLineEdit)
    , m_mode(new QComboBox)
    , m_palettes(new DocumentCombo)
{
    using enum Tessaril::ImageMode;
    setHeading(tr("Create a new image"));
    m_mode->addItem(tr("Layer 2, 256 × 192"), int(Layer2_256x192));
    m_mode->addItem(tr("Layer 2, 320 × 256"), int(Layer2_320x256));
    m_mode->addItem(tr("Layer 2, 640 × 256"), int(Layer2_640x256));
    m_mode->addItem(tr("LoRes, 128 × 96"), int(LoRes_128x96));
    m_palettes->addChoice(tr("* Create a new empty palette"), PaletteChoice::NewBlank);
    m_palettes->addChoice(tr("* Default Next colours"), PaletteChoice::NewDefault);

    addRow(tr("Name"), m_name);
    addRow(tr("Mode"), m_mode);
    addRow(tr("Palette"), m_palettes);
}

void ImageDialog::show(QList<QPointer<Palette>> palettes)
{
    m_name->clear();
    m_palettes->setDocuments(palettes, OwnChoices);
    DialogBase::show();
}

void ImageDialog::accept()
{
    if (m_name->text().isEmpty()) {
        showError(tr("Name is required"));
        return;
    }
    const auto mode = static_cast<Tessaril::ImageMode>(m_mode->currentData().toInt());
    emit accepted(m_name->text(), mode, m_palettes->currentId());
    DialogBase::accept();
}
