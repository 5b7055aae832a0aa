#pragma once

#include "model/Map.h"

#include <QWidget>

class QCheckBox;
class QFormLayout;
class QLineEdit;
class QSpinBox;

namespace MapEditor {

/// The form of one placed sprite. Disabled until it has one.
class SpriteProperties : public QWidget
{
    Q_OBJECT

public:
    explicit SpriteProperties(QWidget *parent = nullptr);

    const Map::PlacedSprite &sprite() const { return m_sprite; }
    /// Shows a copy of @p sprite; sends nothing.
    void setSprite(const Map::PlacedSprite &sprite);

signals:
    /// The sprite with what the user changed; not sent for an unchanged value.
    void spriteEdited(Map::PlacedSprite sprite);

private:
    QCheckBox *addBox(QFormLayout *form, const QString &text, const QString &name);
    QSpinBox *addSpin(QFormLayout *form, const QString &label, const QString &name, int maximum);
    void apply();

    Map::PlacedSprite m_sprite;
    bool m_loading = false;
    QLineEdit *m_name;
    QCheckBox *m_mirror;
    QCheckBox *m_flip;
    QCheckBox *m_rotate;
    QSpinBox *m_startFrame;
    QSpinBox *m_initialDelay;
    QSpinBox *m_repeatDelay;
    QSpinBox *m_paletteOffset;
};

} // namespace MapEditor
