#include "model/NextColour.h"

#include <cmath>

namespace {

constexpr int BlueLowBit = 32; // of a snapped channel: the lowest of its three bits

} // namespace

int NextColour::snappedLevel(int value)
{
    const size_t place = static_cast<size_t>(value) / 16;
    const int lower = Levels[place];
    const int upper = Levels[std::min<size_t>(place + 1, Levels.size() - 1)];
    return value - lower > upper - value ? upper : lower;
}

QRgb NextColour::snapped(QRgb colour)
{
    return qRgb(snappedLevel(qRed(colour)), snappedLevel(qGreen(colour)),
                snappedLevel(qBlue(colour)));
}

quint16 NextColour::toWord(QRgb snappedColour, bool priority)
{
    const int red = qRed(snappedColour);
    const int green = qGreen(snappedColour);
    const int blue = qBlue(snappedColour);
    const int high = (red & 0xE0) | ((green >> 5) << 2) | (blue >> 6);
    const int low = ((blue & BlueLowBit) ? 1 : 0) | (priority ? PriorityBit : 0);
    return static_cast<quint16>((high << 8) | low);
}

QRgb NextColour::fromWord(quint16 word)
{
    const auto component = [](int level) {
        return static_cast<int>(std::ceil(static_cast<float>(level) / 7.0f * 255.0f));
    };
    const int red = (word >> 13) & 7;
    const int green = (word >> 10) & 7;
    const int blue = ((word >> 7) & 6) | (word & 1);
    return qRgb(component(red), component(green), component(blue));
}

quint16 NextColour::defaultWord(int index)
{
    return static_cast<quint16>((index << 8) | ((index & 3) != 0 ? 1 : 0));
}
