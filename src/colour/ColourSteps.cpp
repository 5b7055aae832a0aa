#include "colour/ColourSteps.h"

#include <cmath>

namespace {

constexpr int MaxComponent = 255;
constexpr double ComponentsPerLevel = 36.4285714;
constexpr int FirstFactor = 100; // per cent
constexpr int LastFactor = 198;

int nearestLevel(int component)
{
    return static_cast<int>(std::lround(component / ComponentsPerLevel));
}

ColourSteps::Levels wholeLevels(const QColor &colour)
{
    const auto level = [](int component) {
        return component * ColourSteps::MaxLevel / MaxComponent;
    };
    return {level(colour.red()), level(colour.green()), level(colour.blue())};
}

template <typename Shade>
std::optional<ColourSteps::Levels> firstDifference(const QColor &colour, Shade shade)
{
    const ColourSteps::Levels start = wholeLevels(colour);
    for (int factor = FirstFactor; factor <= LastFactor; ++factor) {
        const ColourSteps::Levels levels = wholeLevels(shade(factor));
        if (levels != start)
            return levels;
    }
    return std::nullopt;
}

} // namespace

ColourSteps::Levels ColourSteps::nearest(const QColor &colour)
{
    return {nearestLevel(colour.red()), nearestLevel(colour.green()), nearestLevel(colour.blue())};
}

QColor ColourSteps::toColour(const Levels &levels)
{
    const auto component = [](int level) {
        return static_cast<int>(std::lround(level * ComponentsPerLevel));
    };
    return {component(levels.red), component(levels.green), component(levels.blue)};
}

QColor ColourSteps::shown(const Levels &levels)
{
    const auto component = [](int level) {
        return (level * MaxComponent + MaxLevel - 1) / MaxLevel;
    };
    return {component(levels.red), component(levels.green), component(levels.blue)};
}

std::optional<ColourSteps::Levels> ColourSteps::darker(const QColor &colour)
{
    return firstDifference(colour, [&colour](int factor) { return colour.darker(factor); });
}

std::optional<ColourSteps::Levels> ColourSteps::lighter(const QColor &colour)
{
    return firstDifference(colour, [&colour](int factor) { return colour.lighter(factor); });
}

QList<QColor> ColourSteps::between(const QColor &first, const QColor &last, int count)
{
    if (first.rgb() == last.rgb() || count < 2)
        return {};

    const int red = (last.red() - first.red()) / count;
    const int green = (last.green() - first.green()) / count;
    const int blue = (last.blue() - first.blue()) / count;
    QList<QColor> colours;
    for (int i = 1; i < count; ++i)
        colours.append(
            QColor(first.red() + i * red, first.green() + i * green, first.blue() + i * blue));
    return colours;
}
