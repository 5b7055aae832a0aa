#include "dialogs/TileSetDialog.h"

#include "dialogs/DocumentCombo.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRadioButton>

namespace {

constexpr int SmallSet = 256; // tiles
constexpr int LargeSet = 512; // tiles

} // namespace

TileSetDialog::TileSetDialog(QWidget *parent)
    : DialogBase(parent)
    , m_name(new QLineEdit)
    , m_tileCount(new QButtonGroup(this))
    , m_hiRes(new QCheckBox(tr("High resolution")))
    , m_newPalette(new QCheckBox(tr("New empty palette")))
    , m_palettes(new DocumentCombo)
{
    setMinimumSize(400, 300);
    setHeading(tr("Create a new Tile Set"));
    m_newPalette->setChecked(true);
    m_palettes->setEnabled(false);
    m_palettes->setAccessibleName(tr("Existing palette"));
    connect(m_newPalette, &QCheckBox::toggled, m_palettes, &QWidget::setDisabled);

    addRow(tr("Name"), m_name);
    addRow(tr("Tile Count"), makeCountRow());
    addRow({}, m_hiRes);
    addRow(tr("Palette"), m_newPalette);
    addRow({}, m_palettes);
}

QWidget *TileSetDialog::makeCountRow()
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const int count : {SmallSet, LargeSet}) {
        auto *button = new QRadioButton(QString::number(count));
        m_tileCount->addButton(button, count);
        layout->addWidget(button);
    }
    layout->addStretch();
    m_tileCount->button(SmallSet)->setChecked(true);
    return row;
}

void TileSetDialog::show(QList<QPointer<Palette>> palettes)
{
    m_name->clear();
    m_palettes->setDocuments(palettes);
    DialogBase::show();
}

void TileSetDialog::accept()
{
    if (m_name->text().isEmpty()) {
        showError(tr("Name is required"));
        return;
    }
    const QUuid palette = m_newPalette->isChecked() ? QUuid() : m_palettes->currentId();
    emit accepted(m_name->text(), palette, m_tileCount->checkedId(), m_hiRes->isChecked());
    DialogBase::accept();
}
