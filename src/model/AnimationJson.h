#pragma once

#include <QJsonArray>
#include <QJsonObject>

class Animation;
class LoadContext;

/// What sprite and tile animations have in common in project.json.
namespace AnimationJson {

inline constexpr int MaxSide = 256; // cells

/// How the two kinds differ.
struct Kind
{
    QLatin1String cellsKey;
    int defaultSide = 0; // cells
    bool keepsFrameIds = false;
};

extern const Kind Sprites;
extern const Kind Blocks;

/// "id", "name", "width", "height", "delay" and "frames".
QJsonObject write(const Animation &animation, const Kind &kind);

/// Whether size and frames are within the limits; counts them. Fails as an invalid file.
[[nodiscard]] bool check(const QJsonObject &object, const Kind &kind, LoadContext &context);

/// Sets size and delay, which sends delayChanged().
void readSize(const QJsonObject &object, const Kind &kind, Animation *animation);
void readDelay(const QJsonObject &object, Animation *animation);
/// Appends the frames, sending contentChanged() and the frame's frameChanged() for each.
void readFrames(const QJsonObject &object, const Kind &kind, Animation *animation);

} // namespace AnimationJson
