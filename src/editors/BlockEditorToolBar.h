#pragma once

#include "model/TileAnimation.h"

#include <QWidget>

class MapObjectTypeCombo;
class QHBoxLayout;
class QLineEdit;
class QSpinBox;

/// Name, type, size in tiles and delay of one block.
///
/// It shows what its owner tells and emits what the user changes; showing emits nothing.
class BlockEditorToolBar : public QWidget
{
    Q_OBJECT

public:
    static constexpr int MaxSide = 16; // tiles
    static constexpr int MaxDelay = 50;

    explicit BlockEditorToolBar(QWidget *parent = nullptr);

    /// Leaves the cursor of a user who is typing that name where it is.
    void showName(const QString &name);
    void showType(MapObjectType type);
    /// Beyond MaxSide and MaxDelay the largest value is shown.
    void showSize(QSize size);
    void showDelay(int delay);

signals:
    void nameChanged(QString name);
    void blockTypeChanged(MapObjectType type);
    void widthChanged(int width);
    void heightChanged(int height);
    void delayChanged(int delay);

private:
    QSpinBox *addSpin(QHBoxLayout *row, const QString &label, int minimum, int maximum);

    QLineEdit *m_name;
    MapObjectTypeCombo *m_type;
    QSpinBox *m_width;
    QSpinBox *m_height;
    QSpinBox *m_delay;
};
