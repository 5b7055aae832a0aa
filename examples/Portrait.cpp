#include "examples/Portrait.h"

#include "model/Image.h"
#include "model/Map.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"

#include <QDir>
#include <QPainter>

namespace {

QString fileName(const QString &folder, const QString &name, const QString &document)
{
    return QDir(folder).filePath(QStringLiteral("%1-%2.png").arg(name, document.toLower()));
}

QImage spriteOf(const Project &project, const Map::PlacedSprite &sprite)
{
    const auto bank = project.spriteBank(sprite.bank);
    const auto animation = bank ? bank->animation(sprite.animation) : nullptr;
    const auto frame = animation ? animation->frame(sprite.startFrame) : nullptr;
    const int index = frame ? frame->cell({0, 0}).index : sprite.sprite;
    return bank ? bank->spriteImage(index, sprite.paletteOffset, sprite.rotate, sprite.flip,
                                    sprite.mirror)
                : QImage();
}

QImage pictureOf(const Project &project, const Map &map)
{
    QImage picture = map.tileLayer()
                         ->picture(map.tileLayer()->rect(), TileMap::CellSide, Map::Off)
                         .convertToFormat(QImage::Format_RGB32);
    QPainter painter(&picture);
    const QImage objects =
        map.objectLayer()->picture(map.objectLayer()->rect(), TileMap::CellSide, Map::Off);
    for (int y = 0; y < map.objectLayer()->height(); ++y) {
        for (int x = 0; x < map.objectLayer()->width(); ++x) {
            const QRect cell(QPoint(x, y) * TileMap::CellSide,
                             QSize(TileMap::CellSide, TileMap::CellSide));
            if (map.objectLayer()->cell({x, y}).occupied)
                painter.drawImage(cell, objects, cell);
        }
    }
    for (const Map::PlacedSprite &sprite : map.sprites())
        painter.drawImage(sprite.x, sprite.y, spriteOf(project, sprite));
    return picture;
}

} // namespace

bool Portrait::save(const Project &project, const QString &name, const QString &folder)
{
    bool saved = true;
    for (const auto &map : project.maps())
        saved = saved && pictureOf(project, *map).save(fileName(folder, name, map->name()));
    for (const auto &image : project.images())
        saved = saved && image->image().save(fileName(folder, name, image->name()));
    return saved;
}
