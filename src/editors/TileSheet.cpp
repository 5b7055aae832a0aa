#include "editors/TileSheet.h"

#include "model/Tile.h"
#include "model/TileSet.h"
#include "uikit/CheckList.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QSignalBlocker>
#include <QSpinBox>

namespace {

constexpr const char *AttributeProperty = "attribute"; // the bit of a check box
constexpr int MaxValue = 255;

int attributeOf(const QObject *box)
{
    return box ? box->property(AttributeProperty).toInt() : Tile::TA_NONE;
}

} // namespace

TileSheet::TileSheet(QWidget *parent)
    : QWidget(parent)
    , m_edges(new CheckList(this))
    , m_value(new QSpinBox(this))
{
    auto *form = new QFormLayout(this);
    m_edges->addCheckItem(tr("Top"), Tile::TA_TOPSOLID);
    m_edges->addCheckItem(tr("Right"), Tile::TA_RIGHTSOLID);
    m_edges->addCheckItem(tr("Bottom"), Tile::TA_BOTTOMSOLID);
    m_edges->addCheckItem(tr("Left"), Tile::TA_LEFTSOLID);
    m_edges->setSummaryTexts(tr("All Sides"), tr("Empty"), QStringLiteral("Oook!"));
    m_edges->setAccessibleName(tr("Solid Edges"));
    form->addRow(tr("Solid Edges"), m_edges);
    addAttribute(tr("Deadly/Harmful"), Tile::TA_DEADLY,
                 tr("Makes this tile harmful to the player"));
    addAttribute(tr("Collectible"), Tile::TA_COLLECTIBLE,
                 tr("Tile can be picked up/removed on contact with the player"));
    addAttribute(tr("Climbable"), Tile::TA_LADDER,
                 tr("Tile represents a rope/ladder climbable element"));
    addAttribute(tr("Door/Exit"), Tile::TA_DOOR, tr("May be used as a door or exit"));
    m_value->setRange(0, MaxValue);
    m_value->setAccessibleName(tr("Value/Weight"));
    form->addRow(tr("Value/Weight"), m_value);

    connect(m_edges, &CheckList::checkStateChanged, this, &TileSheet::solidStateChanged);
    connect(m_value, &QSpinBox::valueChanged, this, [this](int value) {
        if (m_tile)
            m_tile->setValue(value);
    });
    setEnabled(false);
}

void TileSheet::addAttribute(const QString &name, int attribute, const QString &toolTip)
{
    auto *box = new QCheckBox(this);
    box->setProperty(AttributeProperty, attribute);
    box->setToolTip(toolTip);
    box->setAccessibleName(name);
    connect(box, &QCheckBox::toggled, this, &TileSheet::updateAttributes);
    m_boxes.append(box);
    static_cast<QFormLayout *>(layout())->addRow(name, box);
}

void TileSheet::setTile(const QPointer<TileSet> &tileSet, const QPointer<Tile> &tile)
{
    m_tileSet = tileSet;
    m_tile = tile;
    setEnabled(m_tileSet && m_tile);
    fill();
}

void TileSheet::fill()
{
    const int attributes = m_tile ? m_tile->attributes() : Tile::TA_NONE;
    {
        const QSignalBlocker blocker(m_edges);
        for (int row = 0; row < m_edges->count(); ++row) {
            const bool isSet = attributes & m_edges->itemData(row).toInt();
            m_edges->setCheckState(row, isSet ? Qt::Checked : Qt::Unchecked);
        }
    }
    for (QCheckBox *box : std::as_const(m_boxes)) {
        const QSignalBlocker blocker(box);
        box->setChecked(attributes & attributeOf(box));
    }
    const QSignalBlocker blocker(m_value);
    m_value->setValue(m_tile ? m_tile->value() : 0);
}

void TileSheet::updateAttributes(bool state)
{
    setAttribute(attributeOf(sender()), state);
}

void TileSheet::solidStateChanged(int)
{
    for (int row = 0; row < m_edges->count(); ++row)
        setAttribute(m_edges->itemData(row).toInt(), m_edges->checkState(row) == Qt::Checked);
}

void TileSheet::setAttribute(int attribute, bool isSet)
{
    if (m_tile)
        m_tile->setAttributes(isSet ? m_tile->attributes() | attribute
                                    : m_tile->attributes() & ~attribute);
}
