#include "dialogs/ResizeMapDialog.h"

#include "model/TileMap.h"
#include "uikit/ThemedIcon.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QSpinBox>
#include <QToolButton>

namespace {

constexpr int LongestSide = 65535; // cells
constexpr int ButtonSide = 32;     // pixels

struct Anchor
{
    Qt::Alignment alignment;
    const char *icon;
    const char *name;
};

// Row by row.
const Anchor Anchors[] = {
    {Qt::AlignLeft | Qt::AlignTop, ":Arrow/NW", QT_TRANSLATE_NOOP("ResizeMapDialog", "Top left")},
    {Qt::AlignHCenter | Qt::AlignTop, ":Arrow/N", QT_TRANSLATE_NOOP("ResizeMapDialog", "Top")},
    {Qt::AlignRight | Qt::AlignTop, ":Arrow/NE", QT_TRANSLATE_NOOP("ResizeMapDialog", "Top right")},
    {Qt::AlignLeft | Qt::AlignVCenter, ":Arrow/W", QT_TRANSLATE_NOOP("ResizeMapDialog", "Left")},
    {Qt::AlignCenter, ":Arrow/Centre", QT_TRANSLATE_NOOP("ResizeMapDialog", "Centre")},
    {Qt::AlignRight | Qt::AlignVCenter, ":Arrow/E", QT_TRANSLATE_NOOP("ResizeMapDialog", "Right")},
    {Qt::AlignLeft | Qt::AlignBottom, ":Arrow/SW",
     QT_TRANSLATE_NOOP("ResizeMapDialog", "Bottom left")},
    {Qt::AlignHCenter | Qt::AlignBottom, ":Arrow/S",
     QT_TRANSLATE_NOOP("ResizeMapDialog", "Bottom")},
    {Qt::AlignRight | Qt::AlignBottom, ":Arrow/SE",
     QT_TRANSLATE_NOOP("ResizeMapDialog", "Bottom right")},
};

QSpinBox *sizeSpin()
{
    auto *spin = new QSpinBox;
    spin->setRange(1, LongestSide);
    return spin;
}

} // namespace

ResizeMapDialog::ResizeMapDialog(QWidget *parent)
    : DialogBase(parent)
    , m_currentWidth(new QLabel)
    , m_currentHeight(new QLabel)
    , m_width(sizeSpin())
    , m_height(sizeSpin())
    , m_anchors(new QButtonGroup(this))
{
    setHeading(tr("Resize Map"));
    addRow(tr("Current width"), m_currentWidth);
    addRow(tr("Current height"), m_currentHeight);
    addRow(tr("Width"), m_width);
    addRow(tr("Height"), m_height);
    addRow(tr("Position"), makeAnchors());
    connect(m_anchors, &QButtonGroup::idClicked, this, &ResizeMapDialog::storeAlignment);
}

QWidget *ResizeMapDialog::makeAnchors()
{
    constexpr int Columns = 3;
    auto *grid = new QWidget;
    auto *layout = new QGridLayout(grid);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    m_anchors->setExclusive(true);
    int place = 0;
    for (const Anchor &anchor : Anchors) {
        auto *button = new QToolButton;
        button->setIcon(themedIcon(QString::fromLatin1(anchor.icon)));
        button->setFixedSize(ButtonSide, ButtonSide);
        button->setCheckable(true);
        button->setToolTip(tr(anchor.name));
        button->setAccessibleName(tr(anchor.name));
        m_anchors->addButton(button, int(anchor.alignment));
        layout->addWidget(button, place / Columns, place % Columns);
        ++place;
    }
    layout->setColumnStretch(Columns, 1);
    m_anchors->button(int(m_alignment))->setChecked(true);
    return grid;
}

void ResizeMapDialog::setMapSize(QSize size)
{
    m_currentWidth->setText(QString::number(size.width()));
    m_currentHeight->setText(QString::number(size.height()));
    m_width->setMinimum(1);
    m_width->setValue(size.width());
    m_height->setMinimum(1);
    m_height->setValue(size.height());
}

QSize ResizeMapDialog::mapSize() const
{
    return {m_width->value(), m_height->value()};
}

void ResizeMapDialog::storeAlignment(int id)
{
    m_alignment = Qt::Alignment::fromInt(id);
}

void ResizeMapDialog::accept()
{
    if (!TileMap::isAllowed(mapSize()))
        showError(tr("The map is too large"));
    else
        DialogBase::accept();
}
