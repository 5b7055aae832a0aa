#include "support/TestProjects.h"

#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"

#include <QBuffer>
#include <QDataStream>
#include <QJsonDocument>
#include <QRandomGenerator>

namespace TestProjects {

namespace {

QImage pattern(QSize size, int first)
{
    QImage image(size, QImage::Format_Indexed8);
    QList<QRgb> colours;
    for (int i = 0; i < 256; ++i)
        colours += qRgb(i, 255 - i, (i * 7) & 255);
    image.setColorTable(colours);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.scanLine(y)[x] = static_cast<uchar>(first + y * size.width() + x);
    }
    return image;
}

Palette *fillPalette(Project *project)
{
    Palette *palette = project->createPalette(CreateDefault, QStringLiteral("Day"));
    palette->setTransparencyIndex(5);
    palette->setWord(3, 0xe381);
    palette->setWord(255, 0xffff);
    return palette;
}

TileSet *fillTileSet(Project *project, Palette *palette)
{
    TileSet *tileSet = project->createTileSet(QStringLiteral("Rocks"), palette->id(), 5, true);
    for (int i = 0; i < tileSet->count(); ++i) {
        QImage image = Tile::blankImage(palette->colourTable());
        for (int pixel = 0; pixel < 64; ++pixel)
            image.scanLine(pixel / 8)[pixel % 8] = static_cast<uchar>((pixel + i) & 15);
        Tile *tile = tileSet->tile(i);
        tile->setImage(image);
        tile->setOffset(i + 1);
        tile->setAttributes(Tile::TA_DEADLY | i);
        tile->setValue(-100 * i);
    }
    return tileSet;
}

void fillFrame(AnimationFrame *frame, int first)
{
    const QSize size(static_cast<int>(frame->cells().first().size()),
                     static_cast<int>(frame->cells().size()));
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const int number = first + y * size.width() + x;
            frame->setCell({x, y}, {number % 5, number % 16, number % 2 == 0, number % 3 == 0,
                                    number % 5 == 0});
        }
    }
}

SpriteBank *fillBank(Project *project, Palette *palette)
{
    SpriteBank *bank =
        project->createSpriteBank(Tessaril::Sprite::FourBit, QStringLiteral("Hero"), palette->id());
    bank->setTransparency(7);
    bank->setOffsets(QByteArray("\x01\xff\x00\x80", 4));
    QImage strip = pattern({16, 48}, 3);
    strip.setColorTable(palette->colourTable());
    bank->setStrip(strip);
    SpriteAnim *walk = bank->createAnimation();
    walk->setName(QStringLiteral("Walk"));
    walk->setDelay(3);
    walk->setSize({2, 3});
    walk->addFrame();
    fillFrame(walk->frame(0), 0);
    fillFrame(walk->frame(1), 7);
    return bank;
}

TileAnimation *fillBlocks(Project *project, TileSet *tileSet)
{
    MapObjects *blocks = project->createBlockList(QStringLiteral("Doors"), tileSet->id());
    TileAnimation *door = blocks->createTileAnimation(QStringLiteral("Gate"));
    door->setTileSet(tileSet);
    door->setDelay(2);
    door->setSize({3, 2});
    door->setMapObjectType(MapObjectType::HorizontalPlatform);
    fillFrame(door->addFrame(), 1);
    fillFrame(door->addFrame(), 9);
    return door;
}

TileMap::TileData numberedCell(int number)
{
    TileMap::TileData cell;
    cell.index = number % 5;
    cell.offset = number % 16;
    cell.rotate = number % 2 == 0;
    cell.flip = number % 3 == 0;
    cell.mirror = number % 7 == 0;
    cell.occupied = number % 4 != 0;
    return cell;
}

void fillMap(Project *project, TileSet *tileSet, SpriteBank *bank, TileAnimation *door)
{
    Map *map = project->createMap(QStringLiteral("Level 1"), tileSet->id(), {12, 9});
    for (int i = 0; i < 12 * 9; ++i)
        map->tileLayer()->setCell({i % 12, i / 12}, numberedCell(i));
    map->setTileTransparencyIndex(4);
    map->setBackgroundTileIndex(2);
    map->setGridVisible(true);
    map->setSpriteLayerVisible(false);
    map->tileLayer()->setVisible(false);
    map->objectLayer()->setVisible(true);
    map->addAnimation({door->id(), QRect(2, 3, 3, 2), 10, 20, 1});
    map->addAnimation({QUuid::createUuid(), QRect(7, 1, 2, 2), 0, 0, 0});
    // As every load does: what lies below a placed block is cleared, and its first frame stamped.
    map->restoreAnimations({qobject_cast<MapObjects *>(door->parent())});
    map->setSprites({{bank->id(), QUuid(), 1, 10, -4, true, false, true, 0, 0, 0, 9, "Guard"},
                     {bank->id(), bank->animations().cbegin().key(), -1, 30, 40, false, true, false,
                      1, 5, 6, 0, "Walker"}});
}

QImage noise(QSize size, QRandomGenerator *random)
{
    QImage image(size, QImage::Format_Indexed8);
    image.setColorCount(256);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.scanLine(y)[x] = static_cast<uchar>(random->bounded(16));
    }
    return image;
}

} // namespace

void fill(Project *project)
{
    project->setName(QStringLiteral("Caves & \u201cmore\u201d"));
    project->setScreenSize({256, 192});
    project->setPlayArea({16, 8, 200, 100});
    project->setOpenDocuments({QUuid::createUuid().toString(), QString()});
    Palette *palette = fillPalette(project);
    project->setScratchPaletteId(palette->id());
    project->setScratchImage(pattern({256, 192}, 9));
    TileSet *tileSet = fillTileSet(project, palette);
    SpriteBank *bank = fillBank(project, palette);
    TileAnimation *door = fillBlocks(project, tileSet);
    fillMap(project, tileSet, bank, door);
    Image *image = project->createImage(Tessaril::ImageMode::LoRes_128x96, QStringLiteral("Title"),
                                        palette->id());
    image->setImage(pattern({128, 96}, 40));
}

void fillLarge(Project *project)
{
    QRandomGenerator random(5);
    fill(project);
    const auto palette = project->createPalette(CreateDefault, QStringLiteral("Night"));
    const auto tiles = project->createTileSet(QStringLiteral("World"), palette->id(), 512);
    for (int i = 0; i < tiles->count(); ++i)
        tiles->tile(i)->setImage(noise({8, 8}, &random));
    const auto bank = project->createSpriteBank(Tessaril::Sprite::EightBit, QStringLiteral("Cast"),
                                                palette->id());
    bank->setStrip(noise({16, 128 * 16}, &random));
    const auto map = project->createMap(QStringLiteral("World"), tiles->id(), {128, 96});
    for (int i = 0; i < 128 * 96; ++i)
        map->tileLayer()->setCell({i % 128, i / 128}, {random.bounded(512)});
    project
        ->createImage(Tessaril::ImageMode::Layer2_256x192, QStringLiteral("Title"), palette->id())
        ->setImage(noise({256, 192}, &random));
}

Entries richEntries()
{
    Project project;
    fill(&project);
    return project.archiveEntries(true);
}

Project::EntryReader reader(const Entries &entries)
{
    return [entries](const QString &name) { return entries.value(name); };
}

Entries jsonEntries(const QJsonObject &root)
{
    return {{QStringLiteral("project.json"), QJsonDocument(root).toJson()}};
}

QJsonObject json(const Entries &entries)
{
    return QJsonDocument::fromJson(entries.value(QStringLiteral("project.json"))).object();
}

QByteArray png(QSize size)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    pattern(size, 0).save(&buffer, "PNG");
    return buffer.data();
}

QByteArray tileMap(int height, int width)
{
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream << qint32(height) << qint32(width);
    for (int i = 0; i < height * width; ++i)
        stream << qint32(i) << quint8(1) << qint32(0) << quint8(0) << quint8(0) << quint8(0);
    stream << QUuid::createUuid();
    return data;
}

} // namespace TestProjects
