#include "model/AnimationJson.h"

#include "model/Animation.h"
#include "model/AnimationFrame.h"
#include "model/JsonValues.h"
#include "model/LoadContext.h"

using namespace Qt::StringLiterals;

namespace AnimationJson {

const Kind Sprites{"anim"_L1, 1, false};
const Kind Blocks{"tileData"_L1, 0, true};

namespace {

QSize sizeOf(const QJsonObject &object, const Kind &kind)
{
    return {object.value("width"_L1).toInt(kind.defaultSide),
            object.value("height"_L1).toInt(kind.defaultSide)};
}

QJsonObject cellToJson(const AnimationFrame::Cell &cell)
{
    return {{"index"_L1, cell.index},
            {"offset"_L1, cell.offset},
            {"flip"_L1, cell.flip},
            {"mirror"_L1, cell.mirror},
            {"rotate"_L1, cell.rotate}};
}

AnimationFrame::Cell cellFromJson(const QJsonObject &object)
{
    AnimationFrame::Cell cell;
    cell.index = object.value("index"_L1).toInt();
    cell.offset = object.value("offset"_L1).toInt();
    cell.flip = object.value("flip"_L1).toBool();
    cell.mirror = object.value("mirror"_L1).toBool();
    cell.rotate = object.value("rotate"_L1).toBool();
    return cell;
}

QJsonObject frameToJson(const AnimationFrame &frame, QLatin1String cellsKey)
{
    QJsonArray cells;
    for (const auto &row : frame.cells()) {
        for (const AnimationFrame::Cell &cell : row)
            cells.append(cellToJson(cell));
    }
    return {{"id"_L1, frame.id().toString()}, {cellsKey, cells}};
}

/// The cells row by row; what a short array leaves out stays zero.
AnimationFrame::Cells cellsFromJson(const QJsonArray &array, QSize size)
{
    AnimationFrame::Cells cells(size.height(), QList<AnimationFrame::Cell>(size.width()));
    qsizetype next = 0;
    for (auto &row : cells) {
        for (auto cell = row.begin(); cell != row.end() && next < array.size(); ++cell)
            *cell = cellFromJson(array.at(next++).toObject());
    }
    return cells;
}

} // namespace

QJsonObject write(const Animation &animation, const Kind &kind)
{
    QJsonArray frames;
    for (const auto &frame : animation.frames()) {
        if (frame)
            frames.append(frameToJson(*frame, kind.cellsKey));
    }
    return {{"id"_L1, animation.id().toString()},   {"name"_L1, animation.name()},
            {"width"_L1, animation.size().width()}, {"height"_L1, animation.size().height()},
            {"delay"_L1, animation.delay()},        {"frames"_L1, frames}};
}

bool check(const QJsonObject &object, const Kind &kind, LoadContext &context)
{
    const QSize size = sizeOf(object, kind);
    if (size.width() < 0 || size.width() > MaxSide || size.height() < 0 || size.height() > MaxSide)
        return context.failAsInvalid();
    return context.takeRecords(1) &&
           context.takeFrames(object.value("frames"_L1).toArray().size(), size);
}

void readSize(const QJsonObject &object, const Kind &kind, Animation *animation)
{
    animation->setSize(sizeOf(object, kind));
}

void readDelay(const QJsonObject &object, Animation *animation)
{
    animation->setDelay(object.value("delay"_L1).toInt());
}

void readFrames(const QJsonObject &object, const Kind &kind, Animation *animation)
{
    const QJsonArray frames = object.value("frames"_L1).toArray();
    for (const auto &value : frames) {
        const QJsonObject record = value.toObject();
        AnimationFrame *frame = animation->addFrame();
        animation->notifyContentChanged();
        if (kind.keepsFrameIds)
            frame->setId(JsonValues::id(record, "id"_L1));
        frame->setCells(cellsFromJson(record.value(kind.cellsKey).toArray(), animation->size()));
        frame->notifyChanged();
    }
}

} // namespace AnimationJson
