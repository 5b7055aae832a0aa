#include "model/PaletteJson.h"

#include "model/JsonValues.h"
#include "model/LoadContext.h"
#include "model/Palette.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace PaletteJson {

QJsonObject write(const Palette &palette)
{
    QJsonArray colours;
    for (int i = 0; i < Palette::Size; ++i)
        colours.append(int(palette.word(i)));
    return {{"id"_L1, palette.id().toString()},
            {"name"_L1, palette.name()},
            {"transparency_index"_L1, palette.transparencyIndex()},
            {"colours"_L1, colours}};
}

bool read(const QJsonObject &object, LoadContext &context)
{
    auto *palette = new Palette(context.project());
    palette->setId(JsonValues::idOrNew(object, "id"_L1));
    palette->setName(object.value("name"_L1).toString());
    palette->setTransparencyIndex(
        object.value("transparency_index"_L1).toInt(Palette::NoTransparency));
    const QJsonArray colours = object.value("colours"_L1).toArray();
    const int count = int(std::min<qsizetype>(colours.size(), Palette::Size));
    for (int i = 0; i < count; ++i)
        palette->setWord(i, static_cast<quint16>(colours.at(i).toInt()));
    context.project()->addPalette(palette);
    return true;
}

} // namespace PaletteJson
