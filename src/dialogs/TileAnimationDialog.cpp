#include "dialogs/TileAnimationDialog.h"

#include "dialogs/DocumentCombo.h"

#include <QLineEdit>
#include <QMessageBox>

TileAnimationDialog::TileAnimationDialog(QWidget *parent)
    : DialogBase(parent)
    , m_name(new QLineEdit)
    , m_tileSets(new DocumentCombo)
{
    setHeading(tr("Animated Tiles"));
    m_name->setPlaceholderText(tr("Enter a name"));
    addRow(tr("Name"), m_name);
    addRow(tr("Tile Set"), m_tileSets);
}

void TileAnimationDialog::show(QList<QPointer<TileSet>> sets)
{
    m_tileSets->setDocuments(sets);
    if (m_tileSets->count() == 0) {
        QMessageBox::information(parentWidget(), heading(), tr("There are no usable tile sets"));
        return;
    }
    m_name->clear();
    DialogBase::show();
}

void TileAnimationDialog::chooseTileSet(const QUuid &id)
{
    m_tileSets->setCurrentId(id);
}

void TileAnimationDialog::accept()
{
    if (m_name->text().trimmed().isEmpty()) {
        showError(tr("Please enter a name"));
        return;
    }
    emit accepted(m_name->text(), m_tileSets->currentId());
    DialogBase::accept();
}
