#include "dialogs/MapDialog.h"

#include "dialogs/DocumentCombo.h"
#include "model/TileMap.h"

#include <QLineEdit>
#include <QSpinBox>

namespace {

constexpr QSize LeastMap{40, 32}; // cells: what a Next's screen shows
constexpr int LongestSide = 9999; // cells

QSpinBox *sizeSpin(int least)
{
    auto *spin = new QSpinBox;
    spin->setRange(least, LongestSide);
    return spin;
}

} // namespace

MapDialog::MapDialog(QWidget *parent)
    : DialogBase(parent)
    , m_name(new QLineEdit)
    , m_width(sizeSpin(LeastMap.width()))
    , m_height(sizeSpin(LeastMap.height()))
    , m_tileSets(new DocumentCombo)
{
    setMinimumSize(400, 300);
    setHeading(tr("Create a new Map"));
    m_name->setPlaceholderText(tr("Map Name"));
    addRow(tr("Name"), m_name);
    addRow(tr("Width"), m_width);
    addRow(tr("Height"), m_height);
    addRow(tr("Tile set"), m_tileSets);
}

void MapDialog::show(QList<QPointer<TileSet>> sets)
{
    m_name->clear();
    m_tileSets->setDocuments(sets);
    DialogBase::show();
}

QSize MapDialog::mapSize() const
{
    return {m_width->value(), m_height->value()};
}

QString MapDialog::validationError() const
{
    if (m_name->text().isEmpty())
        return tr("Name is required");
    if (m_tileSets->currentText().isEmpty())
        return tr("Select a tile set");
    if (!TileMap::isAllowed(mapSize()))
        return tr("The map is too large");
    return {};
}

void MapDialog::chooseTileSet(const QUuid &id)
{
    m_tileSets->setCurrentId(id);
}

void MapDialog::accept()
{
    const QString error = validationError();
    if (!error.isEmpty()) {
        showError(error);
        return;
    }
    QSize size = mapSize();
    emit accepted(m_name->text(), m_tileSets->currentId(), size);
    DialogBase::accept();
}
