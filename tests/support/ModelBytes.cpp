#include "support/ModelBytes.h"

#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

#include <QDataStream>

namespace {

// QImage's own operators compare colours and write a PNG; here the bytes count.
void writePixels(QDataStream &stream, const QImage &image)
{
    stream << image.size() << int(image.format());
    for (int y = 0; y < image.height(); ++y)
        stream.writeRawData(reinterpret_cast<const char *>(image.constScanLine(y)), image.width());
}

void writeImage(QDataStream &stream, const QImage &image)
{
    stream << image.colorTable();
    writePixels(stream, image);
}

void write(QDataStream &stream, const Palette &palette)
{
    stream << palette.name() << palette.transparencyIndex();
    for (int index = 0; index < Palette::Size; ++index)
        stream << palette.word(index);
}

void write(QDataStream &stream, const TileSet &tileSet)
{
    stream << tileSet.name() << tileSet.hiRes() << tileSet.paletteId();
    for (const auto &tile : tileSet.state()) {
        // Its colour table only keeps what has reached it of the palette.
        writePixels(stream, tile.image);
        stream << tile.offset << tile.attributes << tile.value;
    }
}

void write(QDataStream &stream, const Animation &animation)
{
    stream << animation.name() << animation.size() << animation.delay();
    for (const auto &frame : animation.state().frames) {
        stream << frame.id;
        for (const auto &row : frame.cells) {
            for (const auto &cell : row)
                stream << cell.index << cell.offset << cell.flip << cell.mirror << cell.rotate;
        }
    }
}

void write(QDataStream &stream, const SpriteBank &sprites)
{
    stream << sprites.name() << int(sprites.depth()) << sprites.transparency() << sprites.offsets();
    writeImage(stream, sprites.image());
    QMap<QString, SpriteAnim *> sorted;
    for (const auto &animation : sprites.animations())
        sorted.insert(animation->id().toString(), animation);
    for (const auto *animation : std::as_const(sorted)) {
        stream << animation->id();
        write(stream, *animation);
    }
}

void write(QDataStream &stream, const MapObjects &blocks)
{
    stream << blocks.name();
    QMap<QString, TileAnimation *> sorted;
    for (const auto &animation : blocks.animations())
        sorted.insert(animation->id().toString(), animation);
    for (const auto *animation : std::as_const(sorted)) {
        stream << animation->id() << int(animation->type());
        write(stream, *animation);
    }
}

void writeRows(QDataStream &stream, const TileMap::Rows &rows)
{
    stream << qsizetype(rows.size());
    for (const auto &row : rows) {
        for (const auto &cell : row)
            stream << cell.index << cell.rotate << cell.flip << cell.mirror << cell.offset
                   << cell.occupied;
    }
}

void write(QDataStream &stream, const Map &map)
{
    const Map::State state = map.state();
    stream << map.name() << map.tileSetId() << map.isSpriteLayerVisible() << map.isGridVisible()
           << map.tileTransparencyIndex() << map.backgroundTileIndex();
    writeRows(stream, state.tileRows);
    writeRows(stream, state.objectRows);
    for (const auto &block : state.animations)
        stream << block.id << block.rect << block.initialDelay << block.repeatDelay
               << block.startFrame;
    for (const auto &sprite : state.sprites)
        stream << sprite.bank << sprite.animation << sprite.sprite << sprite.x << sprite.y
               << sprite.mirror << sprite.flip << sprite.rotate << sprite.startFrame
               << sprite.initialDelay << sprite.repeatDelay << sprite.paletteOffset << sprite.name;
}

void write(QDataStream &stream, const Image &image)
{
    stream << image.name() << int(image.mode());
    writeImage(stream, image.image());
}

template <typename Document>
void writeAll(QDataStream &stream, const QList<QPointer<Document>> &documents)
{
    QMap<QString, Document *> sorted;
    for (const auto &document : documents)
        sorted.insert(document->id().toString(), document);
    for (const Document *document : std::as_const(sorted)) {
        stream << document->id();
        write(stream, *document);
    }
}

} // namespace

QByteArray modelBytes(const Project &project)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    writeAll(stream, project.palettes());
    writeAll(stream, project.tileSets());
    writeAll(stream, project.spriteBanks());
    writeAll(stream, project.mapObjects());
    writeAll(stream, project.maps());
    writeAll(stream, project.images());
    writeImage(stream, project.scratchImage());
    return bytes;
}
