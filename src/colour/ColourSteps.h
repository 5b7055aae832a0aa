#pragma once

#include <QColor>
#include <QList>

#include <optional>

/// The arithmetic of the eight levels that each channel of a colour can take on the hardware.
namespace ColourSteps {

inline constexpr int MaxLevel = 7;

/// The levels of the three channels, 0 to MaxLevel each.
struct Levels
{
    int red = 0;
    int green = 0;
    int blue = 0;

    bool operator==(const Levels &) const = default;
};

/// What the sliders show for @p colour: the nearest level of each channel.
Levels nearest(const QColor &colour);
/// What the sliders stand for: each level times 255 / 7, rounded.
QColor toColour(const Levels &levels);
/// The colour that a palette shows for @p levels, a little above toColour() here and there.
QColor shown(const Levels &levels);

/// The levels after the smallest step that makes @p colour darker or lighter in any channel; none
/// if there is none within a factor of 1.98. Here a level ends where the next begins, as the
/// hardware cuts it.
std::optional<Levels> darker(const QColor &colour);
std::optional<Levels> lighter(const QColor &colour);

/// The colours between @p first and @p last, which is @p count entries further on: count - 1 of
/// them, in whole steps that are rounded towards zero. None if both are alike or count is under 2.
QList<QColor> between(const QColor &first, const QColor &last, int count);

} // namespace ColourSteps
