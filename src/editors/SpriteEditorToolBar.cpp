#include "editors/SpriteEditorToolBar.h"

#include "model/Animation.h"
#include "uikit/FillingFlowLayout.h"
#include "uikit/UndoKeys.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>

namespace SpriteEditor {

namespace {

constexpr int Gap = 6; // pixels, between fields and between rows

} // namespace

ToolBar::ToolBar(QWidget *parent)
    : QWidget(parent)
    , m_name(new QLineEdit)
{
    m_name->setPlaceholderText(tr("Enter a name..."));
    m_name->setAccessibleName(tr("Name"));
    // A narrow tab has two rows of them.
    auto *rows = new FillingFlowLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(Gap);
    rows->addWidget(m_name);
    QHBoxLayout *const row = rows->addGroup();
    m_width = addSpin(row, tr("W:"), 1, MaxSide);
    m_width->setAccessibleName(tr("Width in sprites"));
    m_height = addSpin(row, tr("H:"), 1, MaxSide);
    m_height->setAccessibleName(tr("Height in sprites"));
    m_delay = addSpin(row, tr("Delay:"), 0, MaxDelay);
    m_delay->setAccessibleName(tr("Delay"));
    m_delay->setToolTip(
        tr("Set the delay between animation frames\n0 = No Delay, 1 = 25fps, 2 = 12.5fps"));
    connect(m_delay, &QSpinBox::valueChanged, this, &ToolBar::changeDelay);
    setAnimation(nullptr);
}

QSpinBox *ToolBar::addSpin(QHBoxLayout *row, const QString &label, int minimum, int maximum)
{
    auto *spin = new QSpinBox;
    UndoKeys::leaveToMenu(spin);
    spin->setKeyboardTracking(false); // a width of 1 on the way to 16 would cut cells off
    spin->setRange(minimum, maximum);
    auto *text = new QLabel(label);
    text->setBuddy(spin);
    row->addWidget(text);
    row->addWidget(spin);
    return spin;
}

void ToolBar::setAnimation(Animation *animation)
{
    if (m_animation) {
        disconnect(m_animation, nullptr, this, nullptr);
        disconnect(m_name, nullptr, m_animation, nullptr);
        disconnect(m_width, nullptr, m_animation, nullptr);
        disconnect(m_height, nullptr, m_animation, nullptr);
    }
    m_animation = animation;
    if (m_animation) {
        connect(m_name, &QLineEdit::textEdited, m_animation, &Animation::setName);
        connect(m_width, &QSpinBox::valueChanged, m_animation, &Animation::setWidth);
        connect(m_height, &QSpinBox::valueChanged, m_animation, &Animation::setHeight);
        connect(m_animation, &Animation::nameChanged, this, &ToolBar::refresh);
        connect(m_animation, &Animation::sizeChanged, this, &ToolBar::refresh);
        connect(m_animation, &Animation::delayChanged, this, &ToolBar::refresh);
        connect(m_animation, &Animation::contentChanged, this, &ToolBar::refresh);
        connect(m_animation, &QObject::destroyed, this, [this] {
            if (!m_animation) // and not another one already
                setAnimation(nullptr);
        });
    }
    setEnabled(m_animation != nullptr);
    refresh();
}

void ToolBar::refresh()
{
    const QSignalBlocker widthBlocker(m_width);
    const QSignalBlocker heightBlocker(m_height);
    const QSignalBlocker delayBlocker(m_delay);
    const QString name = m_animation ? m_animation->name() : QString();
    if (name != m_name->text())
        m_name->setText(name); // would move the cursor of one who is typing
    m_width->setValue(m_animation ? m_animation->size().width() : 1);
    m_height->setValue(m_animation ? m_animation->size().height() : 1);
    m_delay->setValue(m_animation ? m_animation->delay() : 0);
}

void ToolBar::changeDelay(int delay)
{
    if (!m_animation)
        return;
    m_animation->setDelay(delay);
    emit delayChanged(delay);
}

} // namespace SpriteEditor
