#include "editors/BlockEditorToolBar.h"

#include "editors/MapObjectTypeCombo.h"
#include "uikit/FillingFlowLayout.h"
#include "uikit/UndoKeys.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>

namespace {

constexpr int LeastNameWidth = 100; // pixels
constexpr int Gap = 6;              // pixels, between fields and between rows

void showValue(QSpinBox *spin, int value)
{
    const QSignalBlocker blocker(spin);
    spin->setValue(value);
}

} // namespace

BlockEditorToolBar::BlockEditorToolBar(QWidget *parent)
    : QWidget(parent)
    , m_name(new QLineEdit)
    , m_type(new MapObjectTypeCombo)
{
    // A narrow tab has several rows of them.
    auto *rows = new FillingFlowLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(Gap);
    QHBoxLayout *const name = rows->addGroup();
    auto *nameLabel = new QLabel(tr("Name"));
    nameLabel->setBuddy(m_name);
    m_name->setAccessibleName(tr("Name"));
    m_name->setMinimumWidth(LeastNameWidth);
    name->addWidget(nameLabel);
    name->addWidget(m_name, 1);
    rows->addWidget(m_type);
    QHBoxLayout *const row = rows->addGroup();
    m_width = addSpin(row, tr("W:"), 1, MaxSide);
    m_width->setToolTip(tr("Set the frame width in tiles"));
    m_width->setAccessibleName(tr("Width in tiles"));
    m_height = addSpin(row, tr("H:"), 1, MaxSide);
    m_height->setToolTip(tr("Set the frame height in tiles"));
    m_height->setAccessibleName(tr("Height in tiles"));
    // On the way to 16 a typed 1 would cut off all cells but the first column or row.
    m_width->setKeyboardTracking(false);
    m_height->setKeyboardTracking(false);
    m_delay = addSpin(row, tr("Delay:"), 0, MaxDelay);
    m_delay->setSpecialValueText(tr("None"));
    m_delay->setToolTip(
        tr("Set the delay between animation frames\n0 = No Delay, 1 = 25fps, 2 = 12.5fps"));
    m_delay->setAccessibleName(tr("Delay"));

    connect(m_name, &QLineEdit::textEdited, this, &BlockEditorToolBar::nameChanged);
    connect(m_type, &MapObjectTypeCombo::currentTypeChanged, this,
            &BlockEditorToolBar::blockTypeChanged);
    connect(m_width, &QSpinBox::valueChanged, this, &BlockEditorToolBar::widthChanged);
    connect(m_height, &QSpinBox::valueChanged, this, &BlockEditorToolBar::heightChanged);
    connect(m_delay, &QSpinBox::valueChanged, this, &BlockEditorToolBar::delayChanged);
}

QSpinBox *BlockEditorToolBar::addSpin(QHBoxLayout *row, const QString &label, int minimum,
                                      int maximum)
{
    auto *spin = new QSpinBox;
    UndoKeys::leaveToMenu(spin);
    spin->setRange(minimum, maximum);
    auto *text = new QLabel(label);
    text->setBuddy(spin);
    row->addWidget(text);
    row->addWidget(spin);
    return spin;
}

void BlockEditorToolBar::showName(const QString &name)
{
    if (name != m_name->text())
        m_name->setText(name);
}

void BlockEditorToolBar::showType(MapObjectType type)
{
    m_type->setCurrentType(type);
}

void BlockEditorToolBar::showSize(QSize size)
{
    showValue(m_width, size.width());
    showValue(m_height, size.height());
}

void BlockEditorToolBar::showDelay(int delay)
{
    showValue(m_delay, delay);
}
