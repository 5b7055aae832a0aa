#pragma once

#include <QWidget>

namespace Bench {

inline constexpr int PickerColumns = 16;
inline constexpr int PickerMagnification = 4;

/// Shows the grid of a tile picker or a sprite list from its first row to its last; @p cellSide
/// counts pixels of the tile or sprite.
template <typename Picker>
void showWhole(Picker *picker, int cellSide)
{
    const int width = PickerColumns * PickerMagnification * cellSide;
    picker->setMagnification(PickerMagnification);
    picker->resize(width, picker->heightForWidth(width));
    picker->show();
    picker->setAttribute(Qt::WA_UnderMouse); // or no hovered cell is marked
}

} // namespace Bench
