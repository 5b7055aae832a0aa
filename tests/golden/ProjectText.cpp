#include "golden/ProjectText.h"

#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

#include <QCryptographicHash>
#include <QTextStream>

namespace {

QString text(QSize size)
{
    return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height());
}

template <typename Document>
QString idOf(const QPointer<Document> &document)
{
    return document ? document->id().toString() : QStringLiteral("none");
}

/// The indices, a row a line, two hexadecimal digits each; of a large picture only their digest.
void write(QTextStream &out, const QImage &image)
{
    constexpr int LargeArea = 4096; // pixels
    if (image.width() * image.height() > LargeArea) {
        QCryptographicHash digest(QCryptographicHash::Sha256);
        for (int y = 0; y < image.height(); ++y)
            digest.addData(QByteArray::fromRawData(
                reinterpret_cast<const char *>(image.constScanLine(y)), image.width()));
        out << "    " << text(image.size()) << ' ' << digest.result().toHex() << '\n';
        return;
    }
    for (int y = 0; y < image.height(); ++y) {
        const auto *const row = reinterpret_cast<const char *>(image.constScanLine(y));
        out << "    " << QByteArray::fromRawData(row, image.width()).toHex() << '\n';
    }
}

/// A cell of a map or a frame: index, offset, turned, flipped, mirrored.
template <typename Cell>
QString cellText(const Cell &cell)
{
    return QStringLiteral("%1:%2%3%4%5")
        .arg(cell.index)
        .arg(cell.offset)
        .arg(QLatin1String(cell.rotate ? "r" : ""), QLatin1String(cell.flip ? "f" : ""),
             QLatin1String(cell.mirror ? "m" : ""));
}

void write(QTextStream &out, const Animation &animation)
{
    out << "  animation " << animation.id().toString() << " \"" << animation.name() << "\" "
        << text(animation.size()) << " delay " << animation.delay() << '\n';
    for (const auto &frame : animation.state().frames) {
        out << "   ";
        for (const auto &row : frame.cells) {
            for (const auto &cell : row)
                out << ' ' << cellText(cell);
        }
        out << '\n';
    }
}

/// The animations of @p list in the order of their ids.
template <typename Animations, typename Also>
void writeAnimations(QTextStream &out, const Animations &list, Also also)
{
    QMap<QString, const typename Animations::value_type *> sorted;
    for (const auto &animation : list)
        sorted.insert(animation->id().toString(), &animation);
    for (const auto *animation : std::as_const(sorted)) {
        write(out, **animation);
        also(*animation);
    }
}

void write(QTextStream &out, const Palette &palette)
{
    out << "  transparency " << palette.transparencyIndex() << '\n';
    for (int index = 0; index < Palette::Size; ++index)
        out << (index % 16 == 0 ? "   " : "") << ' ' << Qt::hex << palette.word(index) << Qt::dec
            << (index % 16 == 15 ? "\n" : "");
}

void write(QTextStream &out, const TileSet &tileSet)
{
    out << "  palette " << tileSet.paletteId().toString() << " hires " << tileSet.hiRes() << '\n';
    for (const auto &tile : tileSet.state()) {
        out << "  tile " << tile.offset << ' ' << tile.attributes << ' ' << tile.value << '\n';
        write(out, tile.image);
    }
}

void write(QTextStream &out, const SpriteBank &sprites)
{
    out << "  palette " << idOf(sprites.palette()) << " depth " << int(sprites.depth())
        << " transparency " << sprites.transparency() << " offsets";
    for (const int offset : sprites.offsets())
        out << ' ' << offset;
    out << '\n';
    write(out, sprites.image());
    writeAnimations(out, sprites.animations(), [](const auto &) {});
}

void write(QTextStream &out, const MapObjects &blocks)
{
    out << "  tiles " << idOf(blocks.tileSet()) << '\n';
    writeAnimations(out, blocks.animations(), [&out](const auto &animation) {
        out << "    type " << int(animation->type()) << '\n';
    });
}

void writeRows(QTextStream &out, const TileMap::Rows &rows)
{
    for (const auto &row : rows) {
        out << "   ";
        for (const auto &cell : row)
            out << ' ' << (cell.occupied ? cellText(cell) : QStringLiteral("-"));
        out << '\n';
    }
}

void write(QTextStream &out, const Map &map)
{
    const Map::State state = map.state();
    out << "  tiles " << map.tileSetId().toString() << " transparency "
        << map.tileTransparencyIndex() << " background " << map.backgroundTileIndex() << " grid "
        << map.isGridVisible() << " sprites " << map.isSpriteLayerVisible() << '\n';
    writeRows(out, state.tileRows);
    out << "  objects\n";
    writeRows(out, state.objectRows);
    for (const auto &block : state.animations)
        out << "  block " << block.id.toString() << ' ' << block.rect.x() << ' ' << block.rect.y()
            << ' ' << text(block.rect.size()) << ' ' << block.initialDelay << ' '
            << block.repeatDelay << ' ' << block.startFrame << '\n';
    for (const auto &sprite : state.sprites)
        out << "  sprite " << sprite.bank.toString() << ' ' << sprite.animation.toString() << ' '
            << sprite.sprite << " at " << sprite.x << ' ' << sprite.y << ' ' << sprite.mirror
            << sprite.flip << sprite.rotate << ' ' << sprite.startFrame << ' '
            << sprite.initialDelay << ' ' << sprite.repeatDelay << ' ' << sprite.paletteOffset
            << " \"" << sprite.name << "\"\n";
}

void write(QTextStream &out, const Image &image)
{
    out << "  palette " << idOf(image.palette()) << " mode " << int(image.mode()) << '\n';
    write(out, image.image());
}

template <typename Document>
void writeAll(QTextStream &out, const char *kind, const QList<QPointer<Document>> &documents)
{
    QMap<QString, const Document *> sorted;
    for (const auto &document : documents)
        sorted.insert(document->id().toString(), document);
    for (const Document *document : std::as_const(sorted)) {
        out << kind << ' ' << document->id().toString() << " \"" << document->name() << "\"\n";
        write(out, *document);
    }
}

} // namespace

QString projectText(const Project &project)
{
    QString all;
    QTextStream out(&all);
    out << "project " << project.id().toString() << " \"" << project.name() << "\"\n";
    writeAll(out, "palette", project.palettes());
    writeAll(out, "tile set", project.tileSets());
    writeAll(out, "block list", project.mapObjects());
    writeAll(out, "sprite bank", project.spriteBanks());
    writeAll(out, "map", project.maps());
    writeAll(out, "image", project.images());
    out << "scratch\n";
    write(out, project.scratchImage());
    return all;
}
