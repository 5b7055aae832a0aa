#pragma once

#include "model/TileAnimation.h"

#include <QComboBox>

/// A combo box of the kinds of blocks, with their MapObjectType as data.
class MapObjectTypeCombo : public QComboBox
{
    Q_OBJECT

public:
    explicit MapObjectTypeCombo(QWidget *parent = nullptr);

    /// Makes the entry of @p type current, none for a type that is not known. Emits nothing.
    void setCurrentType(MapObjectType type);

signals:
    void currentTypeChanged(MapObjectType mapObjectType);

public slots:
    /// Emits the type of the entry at @p index; nothing out of range.
    void emitTypeChanged(int index);
};
