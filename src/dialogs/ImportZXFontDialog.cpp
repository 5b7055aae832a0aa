#include "dialogs/ImportZXFontDialog.h"

#include "colour/ColourSelector.h"
#include "uikit/FileDialogs.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSpinBox>
#include <QToolButton>

namespace {

constexpr int FileWidth = 250; // pixels
constexpr int LastStartTile = 256;
constexpr int LastOffset = 15;
constexpr int GroupSize = 16; // colours that an offset counts

int inGroup(int index, int offset)
{
    return index % GroupSize + offset * GroupSize;
}

} // namespace

ImportZXFontDialog::ImportZXFontDialog(QWidget *parent)
    : DialogBase(parent)
    , m_file(new QLineEdit)
    , m_startTile(new QSpinBox)
    , m_colours(new ColourSelector)
    , m_offset(new QSpinBox)
    , m_fileDialog(new QFileDialog(this, tr("Choose a file to import")))
{
    setHeading(tr("Import ZX Font Data"));
    m_fileDialog->setAcceptMode(QFileDialog::AcceptOpen);
    m_fileDialog->setFileMode(QFileDialog::ExistingFile);
    m_fileDialog->setNameFilter(tr("Raw Data (*.bin *.raw *.ch8)"));
    m_fileDialog->setDefaultSuffix(QStringLiteral("bin"));
    FileDialogs::prepare(m_fileDialog);
    connect(m_fileDialog, &QFileDialog::accepted, this, &ImportZXFontDialog::setFileName);

    m_startTile->setRange(0, LastStartTile);
    addRow(tr("File"), makeFileRow());
    addRow(tr("Start Tile"), m_startTile);
    addRow(tr("Colours"), makeColourRow());
}

QWidget *ImportZXFontDialog::makeFileRow()
{
    m_file->setReadOnly(true);
    m_file->setFixedWidth(FileWidth);
    m_file->setAccessibleName(tr("File name"));
    auto *choose = new QToolButton;
    choose->setText(QStringLiteral("..."));
    choose->setToolTip(tr("Choose a file"));
    choose->setAccessibleName(tr("Choose a file"));
    choose->setFocusPolicy(Qt::StrongFocus);
    connect(choose, &QToolButton::clicked, this, &ImportZXFontDialog::showOpenDialog);

    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_file);
    layout->addWidget(choose);
    layout->addStretch();
    return row;
}

QWidget *ImportZXFontDialog::makeColourRow()
{
    m_offset->setRange(0, LastOffset);
    m_offset->setToolTip(tr("Palette offset"));
    m_offset->setAccessibleName(tr("Palette offset"));
    connect(m_offset, &QSpinBox::valueChanged, this, &ImportZXFontDialog::updateOffset);
    m_colours->setForeIndex(LastOffset);
    m_colours->setBackIndex(0);

    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_colours);
    layout->addWidget(m_offset, 0, Qt::AlignRight);
    return row;
}

void ImportZXFontDialog::show(QPointer<Palette> palette)
{
    m_colours->setPalette(palette);
    DialogBase::show();
}

void ImportZXFontDialog::updateOffset(int offset)
{
    m_colours->setOffset(offset);
    // The marks move along, or they would stand on colours that are no longer on show.
    m_colours->setForeIndex(inGroup(m_colours->foreIndex(), offset));
    m_colours->setBackIndex(inGroup(m_colours->backIndex(), offset));
}

void ImportZXFontDialog::showOpenDialog()
{
    m_fileDialog->open();
}

void ImportZXFontDialog::setFileName()
{
    const QStringList files = m_fileDialog->selectedFiles();
    if (files.size() == 1)
        m_file->setText(files.first());
}

void ImportZXFontDialog::accept()
{
    if (m_file->text().isEmpty()) {
        showError(tr("No file selected"));
        return;
    }
    emit accepted(m_startTile->value(), m_colours->foreIndex(), m_colours->backIndex(),
                  m_offset->value(), m_file->text());
    DialogBase::accept();
}
