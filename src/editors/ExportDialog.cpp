#include "editors/ExportDialog.h"

#include "editors/FileField.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QSpinBox>

namespace TileEditor {

namespace {

void prepareFileDialog(QFileDialog *dialog)
{
    dialog->setWindowTitle(ExportDialog::tr("Export Tile Data"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters(
        {ExportDialog::tr("Tile data (*.nxt)"), ExportDialog::tr("Blocks (*.bin)")});
    dialog->setDefaultSuffix(QStringLiteral(".nxt"));
}

} // namespace

ExportDialog::ExportDialog(QWidget *parent)
    : DialogBase(parent)
    , m_file(new FileField(prepareFileDialog, this))
    , m_first(new QSpinBox(this))
    , m_last(new QSpinBox(this))
    , m_rotate(new QCheckBox(tr("Rotate 90° counter clockwise"), this))
{
    setHeading(tr("Export Tiles"));
    m_file->edit()->setPlaceholderText(tr("Select a file to export..."));
    m_first->setRange(1, MaxBlock);
    m_last->setRange(1, MaxBlock);
    m_last->setValue(MaxBlock);

    addRow(tr("File"), m_file);
    addRow(tr("Start Block"), m_first);
    addRow(tr("End Block"), m_last);
    addRow({}, m_rotate);

    connect(m_first, &QSpinBox::valueChanged, this, &ExportDialog::startBlockUpdated);
    connect(m_last, &QSpinBox::valueChanged, this, &ExportDialog::endBlockUpdated);
    connect(m_file, &FileField::fileChosen, this, &ExportDialog::fileAccepted);
}

void ExportDialog::startBlockUpdated(int block)
{
    m_last->setMinimum(block);
}

void ExportDialog::endBlockUpdated(int block)
{
    m_first->setMaximum(block);
}

void ExportDialog::fileAccepted()
{
    // An older complaint about the missing file is settled.
    showError(QString());
}

void ExportDialog::accept()
{
    if (m_file->fileName().isEmpty()) {
        showError(tr("Please choose a file!"));
        return;
    }
    if (m_first->value() > m_last->value()) {
        showError(tr("The starting block is greater than then end block!"));
        return;
    }
    emit accepted(m_file->fileName(), m_first->value(), m_last->value(), m_rotate->isChecked());
    DialogBase::accept();
}

} // namespace TileEditor
