#include "model/Palette.h"

#include "formats/FileBytes.h"
#include "formats/NextFormats.h"
#include "model/NextColour.h"

Palette::Palette(QObject *parent)
    : QObject(parent)
    , m_id(QUuid::createUuid())
    , m_name(QStringLiteral("untitled"))
{
}

QColor Palette::colour(int index) const
{
    QColor colour = QColor::fromRgb(NextColour::fromWord(word(index)));
    if (index == m_transparencyIndex)
        colour.setAlpha(0);
    return colour;
}

bool Palette::priority(int index) const
{
    return (word(index) & NextColour::PriorityBit) != 0;
}

QList<QColor> Palette::colours() const
{
    QList<QColor> colours;
    colours.reserve(Size);
    for (int i = 0; i < Size; ++i)
        colours.append(colour(i));
    return colours;
}

QList<QRgb> Palette::colourTable() const
{
    QList<QRgb> table;
    table.reserve(Size);
    for (const quint16 word : m_colours)
        table.append(NextColour::fromWord(word));
    return table;
}

void Palette::setColour(int index, const QColor &colour)
{
    setColour(index, colour, false);
}

void Palette::setDefaultColours()
{
    for (int i = 0; i < Size; ++i)
        setWord(i, NextColour::defaultWord(i));
}

QColor Palette::nearestColour(const QColor &colour)
{
    return QColor::fromRgb(NextColour::snapped(colour.rgb()));
}

void Palette::setName(QString name)
{
    if (name == m_name)
        return;

    m_name = name;
    emit nameChanged(m_name);
}

void Palette::setColour(int index, QColor colour, bool priority)
{
    const QColor quantised = nearestColour(colour);
    const quint16 before = word(index);
    const quint16 after = NextColour::toWord(quantised.rgb(), priority);
    if (after == before)
        return;

    setWord(index, after);
    emit colourChanged(index, quantised, priority);
    emit colourEdited(index, before, after);
}

bool Palette::exportData(QString fileName)
{
    QByteArray data = NextFormats::paletteBytes(m_colours);
    if (NextFormats::isNpl(fileName))
        data.append('\0');
    return FileBytes::write(fileName, data);
}

bool Palette::importData(QString fileName)
{
    const int size = NextFormats::PaletteBytes + (NextFormats::isNpl(fileName) ? 1 : 0);
    const std::optional<QByteArray> data = FileBytes::read(fileName, size);
    if (!data || data->size() != size)
        return false;

    m_colours = NextFormats::paletteWords(*data);
    return true;
}
