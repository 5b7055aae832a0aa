#include "mapeditor/SpriteProperties.h"

#include "uikit/UndoKeys.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QSpinBox>

using namespace MapEditor;

SpriteProperties::SpriteProperties(QWidget *parent)
    : QWidget(parent)
    , m_name(new QLineEdit(this))
{
    auto *form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    m_name->setObjectName(QStringLiteral("name"));
    form->addRow(tr("Name"), m_name);
    connect(m_name, &QLineEdit::editingFinished, this, &SpriteProperties::apply);
    m_mirror = addBox(form, tr("Mirror"), QStringLiteral("mirror"));
    m_flip = addBox(form, tr("Flip"), QStringLiteral("flip"));
    m_rotate = addBox(form, tr("Rotate"), QStringLiteral("rotate"));
    m_startFrame = addSpin(form, tr("Start frame"), QStringLiteral("startFrame"), 255);
    m_initialDelay = addSpin(form, tr("Initial delay"), QStringLiteral("initialDelay"), 9999);
    m_repeatDelay = addSpin(form, tr("Repeat delay"), QStringLiteral("repeatDelay"), 9999);
    m_paletteOffset = addSpin(form, tr("Palette offset"), QStringLiteral("paletteOffset"), 15);
    setEnabled(false);
}

QCheckBox *SpriteProperties::addBox(QFormLayout *form, const QString &text, const QString &name)
{
    auto *box = new QCheckBox(text, this);
    box->setObjectName(name);
    form->addRow(QString(), box);
    connect(box, &QCheckBox::toggled, this, &SpriteProperties::apply);
    return box;
}

QSpinBox *SpriteProperties::addSpin(QFormLayout *form, const QString &label, const QString &name,
                                    int maximum)
{
    auto *spin = new QSpinBox(this);
    UndoKeys::leaveToMenu(spin);
    spin->setObjectName(name);
    spin->setRange(0, maximum);
    form->addRow(label, spin);
    connect(spin, &QSpinBox::valueChanged, this, &SpriteProperties::apply);
    return spin;
}

void SpriteProperties::setSprite(const Map::PlacedSprite &sprite)
{
    m_loading = true;
    m_sprite = sprite;
    m_name->setText(sprite.name);
    m_mirror->setChecked(sprite.mirror);
    m_flip->setChecked(sprite.flip);
    m_rotate->setChecked(sprite.rotate);
    m_startFrame->setValue(sprite.startFrame);
    m_initialDelay->setValue(sprite.initialDelay);
    m_repeatDelay->setValue(sprite.repeatDelay);
    m_paletteOffset->setValue(sprite.paletteOffset);
    setEnabled(true);
    m_loading = false;
}

void SpriteProperties::apply()
{
    if (m_loading)
        return;
    Map::PlacedSprite edited = m_sprite;
    edited.name = m_name->text();
    edited.mirror = m_mirror->isChecked();
    edited.flip = m_flip->isChecked();
    edited.rotate = m_rotate->isChecked();
    edited.startFrame = m_startFrame->value();
    edited.initialDelay = m_initialDelay->value();
    edited.repeatDelay = m_repeatDelay->value();
    edited.paletteOffset = m_paletteOffset->value();
    if (edited == m_sprite)
        return;
    m_sprite = edited;
    emit spriteEdited(m_sprite);
}
