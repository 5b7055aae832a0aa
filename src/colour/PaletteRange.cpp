#include "colour/PaletteRange.h"

#include "colour/ColourSteps.h"
#include "model/Palette.h"

bool PaletteRange::isValid() const
{
    return palette && first >= 0 && first <= last && last < Palette::Size;
}

QColor PaletteRange::colour() const
{
    // Without the alpha that marks the transparent entry: it is a colour like any other to edit.
    return isValid() ? QColor(palette->colour(first).rgb()) : QColor(Qt::black);
}

bool PaletteRange::priority() const
{
    return isValid() && palette->priority(first);
}

void PaletteRange::fill(const QColor &colour, bool priority) const
{
    if (!isValid())
        return;
    for (int index = first; index <= last; ++index)
        palette->setColour(index, colour, priority);
}

bool PaletteRange::blend() const
{
    if (!isValid())
        return false;
    const QList<QColor> colours =
        ColourSteps::between(palette->colour(first), palette->colour(last), last - first);
    for (int i = 0; i < colours.size(); ++i) {
        const int index = first + 1 + i;
        palette->setColour(index, colours.at(i), palette->priority(index));
    }
    return !colours.isEmpty();
}
