#pragma once

#include <QColor>

#include <array>

/// The colour arithmetic of the Next: the snap of screen colours to a grid of 17 levels a channel,
/// and the way between nine-bit colour words and screen colours.
namespace NextColour {

/// The levels that a channel can take after the snap.
inline constexpr std::array<int, 17> Levels = {0,   16,  32,  48,  64,  80,  96,  112, 128,
                                               144, 160, 176, 192, 208, 224, 240, 255};

inline constexpr quint16 PriorityBit = 0x0080;

/// The nearer of the two levels around @p value (0 to 255); a tie goes to the lower one.
int snappedLevel(int value);

/// All three channels snapped; opaque, whatever the alpha of @p colour.
QRgb snapped(QRgb colour);

/// The word of an already snapped colour.
quint16 toWord(QRgb snappedColour, bool priority);

/// The opaque screen colour of a word: each 3-bit level c shows as ceil(c / 7 * 255).
QRgb fromWord(quint16 word);

/// Entry @p index of the hardware's start-up palette.
quint16 defaultWord(int index);

} // namespace NextColour
