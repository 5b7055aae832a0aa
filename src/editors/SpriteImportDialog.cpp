#include "editors/SpriteImportDialog.h"

#include "dialogs/DocumentCombo.h"
#include "editors/FileField.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

namespace SpriteEditor {

SpriteImportDialog::SpriteImportDialog(const Kind &kind, QWidget *parent)
    : DialogBase(parent)
    , m_suffixes(kind.suffixes)
    , m_file(new FileField(
          [filter = kind.filter](QFileDialog *dialog) {
              dialog->setWindowTitle(tr("Choose a file to import"));
              dialog->setFileMode(QFileDialog::ExistingFile);
              dialog->setNameFilter(filter);
          },
          this))
    , m_append(new QCheckBox(tr("Append to current sprite bank"), this))
    , m_newPalette(new QRadioButton(kind.newPalette, this))
    , m_existingPalette(new QRadioButton(kind.existingPalette, this))
    , m_palettes(new DocumentCombo(this))
{
    setHeading(kind.heading);
    m_newPalette->setChecked(true);
    m_palettes->setAccessibleName(tr("Existing palette"));

    auto *palette = new QWidget(this);
    auto *paletteLayout = new QVBoxLayout(palette);
    paletteLayout->setContentsMargins(0, 0, 0, 0);
    for (QWidget *control :
         std::initializer_list<QWidget *>{m_newPalette, m_existingPalette, m_palettes})
        paletteLayout->addWidget(control);

    addRow(tr("File"), m_file);
    addRow({}, m_append);
    addRow(tr("Palette"), palette);

    connect(m_file, &FileField::fileNameChanged, this, &SpriteImportDialog::updateControls);
    connect(m_append, &QCheckBox::toggled, this, &SpriteImportDialog::updateControls);
    connect(m_existingPalette, &QRadioButton::toggled, this, &SpriteImportDialog::updateControls);
}

void SpriteImportDialog::show(QString fileName, bool hasBank, QList<QPointer<Palette>> palettes)
{
    m_file->setFileName(fileName);
    m_append->setEnabled(hasBank);
    m_append->setChecked(false);
    m_palettes->setDocuments(palettes);
    m_newPalette->setChecked(true);
    updateControls();
    DialogBase::show();
}

QString SpriteImportDialog::fileName() const
{
    return m_file->fileName();
}

bool SpriteImportDialog::isAppending() const
{
    return m_append->isChecked();
}

bool SpriteImportDialog::usesExistingPalette() const
{
    return m_existingPalette->isChecked();
}

void SpriteImportDialog::updateControls()
{
    const QString suffix = QFileInfo(fileName()).suffix().toLower();
    const bool choosable = m_suffixes.contains(suffix) && !isAppending();
    m_newPalette->setEnabled(choosable);
    m_existingPalette->setEnabled(choosable && m_palettes->count() > 0);
    m_palettes->setEnabled(m_existingPalette->isEnabled() && usesExistingPalette());
}

void SpriteImportDialog::accept()
{
    if (fileName().isEmpty()) {
        showError(tr("No file selected"));
        return;
    }
    sendAccepted(usesExistingPalette() ? m_palettes->currentId() : QUuid());
    DialogBase::accept();
}

} // namespace SpriteEditor
