#include "colour/ColourSelector.h"

#include <algorithm>

namespace {

constexpr int SwatchSide = 24; // pixels
const QColor Background(127, 127, 127);

} // namespace

ColourSelector::ColourSelector(int columns, Qt::Orientation orientation, QWidget *parent)
    : SwatchStrip(Background, parent)
{
    setGrid({std::clamp(columns, 1, BankSize), SwatchSide, BankSize, orientation});
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ColourSelector::setOffset(int offset)
{
    if (offset >= 0 && offset <= MaxOffset)
        setBank(offset);
}

void ColourSelector::setForeIndex(int index)
{
    setFirst(index);
}

void ColourSelector::setBackIndex(int index)
{
    setSecond(index);
}

void ColourSelector::paletteChanged(int, int, QColor)
{
    update();
}

void ColourSelector::pickFirst(int index)
{
    setFirst(index);
    emit foreColourChanged(index);
}

void ColourSelector::pickSecond(int index)
{
    setSecond(index);
    emit backColourChanged(index);
}

void ColourSelector::pickTwice(int index)
{
    emit doubleClicked(index);
}
