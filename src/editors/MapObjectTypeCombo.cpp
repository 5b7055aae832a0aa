#include "editors/MapObjectTypeCombo.h"

#include <QSignalBlocker>

namespace {

constexpr int VisibleLetters = 20;

} // namespace

MapObjectTypeCombo::MapObjectTypeCombo(QWidget *parent)
    : QComboBox(parent)
{
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
    setMinimumContentsLength(VisibleLetters);
    setAccessibleName(tr("Block type"));
    addItem(tr("Normal"), static_cast<int>(MapObjectType::Normal));
    addItem(tr("Horizontal Platform"), static_cast<int>(MapObjectType::HorizontalPlatform));
    connect(this, &QComboBox::currentIndexChanged, this, &MapObjectTypeCombo::emitTypeChanged);
}

void MapObjectTypeCombo::setCurrentType(MapObjectType type)
{
    const QSignalBlocker blocker(this);
    setCurrentIndex(findData(static_cast<int>(type)));
}

void MapObjectTypeCombo::emitTypeChanged(int index)
{
    if (index >= 0 && index < count())
        emit currentTypeChanged(static_cast<MapObjectType>(itemData(index).toInt()));
}
