#include "model/MapObjectsJson.h"

#include "model/AnimationJson.h"
#include "model/JsonValues.h"
#include "model/LoadContext.h"
#include "model/MapObjects.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

using namespace Qt::StringLiterals;

namespace MapObjectsJson {

namespace {

bool readAnimation(const QJsonObject &object, MapObjects *blocks, LoadContext &context)
{
    if (!AnimationJson::check(object, AnimationJson::Blocks, context))
        return false;

    auto *animation = new TileAnimation(blocks);
    animation->setId(JsonValues::id(object, "id"_L1));
    animation->setName(object.value("name"_L1).toString());
    animation->setTileSet(blocks->tileSet());
    blocks->addAnimation(animation);
    AnimationJson::readSize(object, AnimationJson::Blocks, animation);
    AnimationJson::readDelay(object, animation);
    animation->setMapObjectType(JsonValues::enumerator(object, "type"_L1, MapObjectType::Normal,
                                                       MapObjectType::HorizontalPlatform));
    AnimationJson::readFrames(object, AnimationJson::Blocks, animation);
    return true;
}

} // namespace

QJsonObject write(const MapObjects &blocks)
{
    QJsonArray animations;
    for (const auto &animation : blocks.animations()) {
        if (!animation)
            continue;
        QJsonObject object = AnimationJson::write(*animation, AnimationJson::Blocks);
        object.insert("type"_L1, static_cast<int>(animation->type()));
        animations.append(object);
    }
    return {{"id"_L1, blocks.id().toString()},
            {"name"_L1, blocks.name()},
            {"tiles"_L1, JsonValues::idText(blocks.tileSet())},
            {"animations"_L1, animations}};
}

bool read(const QJsonObject &object, LoadContext &context)
{
    context.beginDocument();
    auto *blocks = new MapObjects(context.project());
    blocks->setId(JsonValues::id(object, "id"_L1));
    blocks->setName(object.value("name"_L1).toString());
    blocks->setTileSet(context.project()->tileSet(JsonValues::id(object, "tiles"_L1)));
    const QJsonArray animations = object.value("animations"_L1).toArray();
    for (const auto &value : animations) {
        if (!readAnimation(value.toObject(), blocks, context))
            return false;
    }
    context.project()->addBlocks(blocks);
    return true;
}

} // namespace MapObjectsJson
