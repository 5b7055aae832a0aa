#pragma once

#include <QPointer>
#include <QWidget>

class Animation;
class QHBoxLayout;
class QLineEdit;
class QSpinBox;

namespace SpriteEditor {

/// Name, size in cells and delay of one animation, to read and to edit. Disabled without one.
class ToolBar : public QWidget
{
    Q_OBJECT

public:
    static constexpr int MaxSide = 16; // cells
    static constexpr int MaxDelay = 50;

    explicit ToolBar(QWidget *parent = nullptr);

    /// Null empties the fields. Emits nothing.
    void setAnimation(Animation *animation);

signals:
    /// The user has changed the delay; the animation has it already.
    void delayChanged(int delay);

private:
    QSpinBox *addSpin(QHBoxLayout *row, const QString &label, int minimum, int maximum);
    /// Takes the fields from the animation; emits nothing.
    void refresh();
    void changeDelay(int delay);

    QPointer<Animation> m_animation;
    QLineEdit *m_name;
    QSpinBox *m_width;
    QSpinBox *m_height;
    QSpinBox *m_delay;
};

} // namespace SpriteEditor
