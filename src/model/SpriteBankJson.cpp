#include "model/SpriteBankJson.h"

#include "model/AnimationJson.h"
#include "model/ArchiveNames.h"
#include "model/ArchivePicture.h"
#include "model/JsonValues.h"
#include "model/LoadContext.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"

using namespace Qt::StringLiterals;

namespace SpriteBankJson {

namespace {

constexpr int NoTransparency = -1;

QJsonArray offsetsToJson(const QByteArray &offsets)
{
    QJsonArray array;
    for (const char byte : offsets)
        array.append(int(static_cast<uchar>(byte)));
    return array;
}

void readOffsets(const QJsonArray &array, SpriteBank *bank)
{
    if (array.isEmpty())
        return;

    QByteArray offsets;
    for (const auto &value : array)
        offsets.append(static_cast<char>(value.toInt()));
    bank->setOffsets(offsets);
}

bool readAnimation(const QJsonObject &object, SpriteBank *bank, LoadContext &context)
{
    if (!AnimationJson::check(object, AnimationJson::Sprites, context))
        return false;

    auto *animation = new SpriteAnim(bank);
    animation->setId(JsonValues::id(object, "id"_L1));
    bank->addAnimation(animation);
    animation->setName(object.value("name"_L1).toString());
    AnimationJson::readDelay(object, animation);
    AnimationJson::readSize(object, AnimationJson::Sprites, animation);
    animation->clearFrames();
    AnimationJson::readFrames(object, AnimationJson::Sprites, animation);
    return true;
}

bool isStrip(const QImage &image)
{
    return image.width() == SpriteBank::SpriteSide && image.height() % SpriteBank::SpriteSide == 0;
}

bool readStrip(SpriteBank *bank, const QUuid &paletteId, LoadContext &context)
{
    std::optional<QImage> strip =
        ArchivePicture::decodedIndices(context.entry(ArchiveNames::sprite(bank->id())));
    if (!strip || !isStrip(*strip))
        return context.fail(QStringLiteral("Project has a missing sprite anim"));
    if (!context.takePixels(strip->size()))
        return false;

    const QPointer<Palette> palette = context.project()->palette(paletteId);
    bank->setPalette(palette);
    if (palette)
        strip->setColorTable(palette->colourTable());
    bank->setStrip(*strip);
    return true;
}

} // namespace

QJsonObject write(const SpriteBank &bank)
{
    QJsonArray animations;
    for (const auto &animation : bank.animations()) {
        if (animation)
            animations.append(AnimationJson::write(*animation, AnimationJson::Sprites));
    }
    return {{"id"_L1, bank.id().toString()},
            {"name"_L1, bank.name()},
            {"palette"_L1, JsonValues::idTextOrEmpty(bank.palette())},
            {"transparency"_L1, bank.transparency()},
            {"depth"_L1, static_cast<int>(bank.depth())},
            {"offsets"_L1, offsetsToJson(bank.offsets())},
            {"animations"_L1, animations}};
}

bool read(const QJsonObject &object, LoadContext &context)
{
    context.beginDocument();
    using Tessaril::Sprite;
    auto *bank = new SpriteBank(
        JsonValues::enumerator(object, "depth"_L1, Sprite::EightBit, Sprite::EightBit),
        context.project());
    bank->setId(JsonValues::idOrNew(object, "id"_L1));
    bank->setName(object.value("name"_L1).toString());
    bank->setTransparency(object.value("transparency"_L1).toInt(NoTransparency));
    readOffsets(object.value("offsets"_L1).toArray(), bank);
    const QJsonArray animations = object.value("animations"_L1).toArray();
    for (const auto &value : animations) {
        if (!readAnimation(value.toObject(), bank, context))
            return false;
    }
    if (!readStrip(bank, JsonValues::id(object, "palette"_L1), context))
        return false;
    context.project()->addSpriteBank(bank);
    emit context.project()->showMessage(QStringLiteral("New Sprite Bank Added"), 0);
    return true;
}

} // namespace SpriteBankJson
