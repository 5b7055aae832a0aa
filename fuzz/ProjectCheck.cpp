#include "ProjectCheck.h"

#include "FuzzTarget.h"
#include "model/AnimatedBlocks.h"
#include "model/Image.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"
#include "support/ProjectDifferences.h"
#include "support/TestProjects.h"
#include "support/UseProject.h"

namespace {

QImage filled(QSize size, int value, const QList<QRgb> &colours)
{
    QImage image(size, QImage::Format_Indexed8);
    image.setColorTable(colours);
    image.fill(value);
    return image;
}

void fillSmall(Project *project)
{
    project->setName(QStringLiteral("Small"));
    const auto palette = project->createPalette(CreateDefault, QStringLiteral("Day"));
    const QList<QRgb> colours = palette->colourTable();
    project->setScratchPaletteId(palette->id());
    project->setScratchImage(filled({4, 4}, 3, colours));
    const auto tiles = project->createTileSet(QStringLiteral("Rocks"), palette->id(), 2);
    tiles->tile(1)->setImage(filled({8, 8}, 5, colours));
    const auto blocks = project->createBlockList(QStringLiteral("Doors"), tiles->id());
    TileAnimation *door = blocks->createTileAnimation(QStringLiteral("Gate"));
    door->setTileSet(tiles);
    door->setSize({2, 1});
    door->addFrame()->setCell({0, 0}, {1, 2, true, false, true});
    const auto bank =
        project->createSpriteBank(Tessaril::Sprite::FourBit, QStringLiteral("Hero"), palette->id());
    bank->setStrip(filled({16, 32}, 9, colours));
    bank->createAnimation()->frame(0)->setCell({0, 0}, {1, 1, false, true, false});
    const auto map = project->createMap(QStringLiteral("Level"), tiles->id(), {3, 2});
    map->addAnimation({door->id(), QRect(1, 0, 2, 1), 1, 2, 0});
    map->restoreAnimations({blocks});
    map->setSprites({{bank->id(), QUuid(), 1, 4, 5, true, false, true, 0, 0, 0, 1, "Guard"}});
    project->createImage(Tessaril::ImageMode::LoRes_128x96, QStringLiteral("Title"), palette->id())
        ->setImage(filled({6, 5}, 7, colours));
}

/// Saves @p project and loads it into @p copy.
QStringList differencesOfCopy(const Project &project, Project *copy)
{
    const TestProjects::Entries entries = project.archiveEntries(true);
    Fuzz::require(entries == project.archiveEntries(true), QStringLiteral("two saves differ"));
    QString error;
    Fuzz::require(copy->load(TestProjects::reader(entries), &error),
                  QStringLiteral("what was saved does not load: %1").arg(error));
    return ProjectDifferences::between(project, *copy);
}

} // namespace

void ProjectCheck::check(const Project &project)
{
    Project once;
    QStringList found = differencesOfCopy(project, &once);
    // A load gives a new project's scratch its colours, and a palette if there is one.
    found.removeAll(QStringLiteral("scratch image"));
    found.removeAll(QStringLiteral("scratch palette"));
    Project twice;
    found += differencesOfCopy(once, &twice);
    Fuzz::require(found.isEmpty(), found.join(QStringLiteral(", ")));
    useProject(&twice);
    Fuzz::require(!twice.archiveEntries(true).isEmpty(), QStringLiteral("nothing is saved"));
}

void ProjectCheck::shrinkScratch(Project *project)
{
    project->setScratchImage(filled({1, 1}, 0, {}));
}

void ProjectCheck::load(const QMap<QString, QByteArray> &entries)
{
    Project project;
    QString error;
    if (project.load(TestProjects::reader(entries), &error))
        check(project);
    else
        Fuzz::require(!error.isEmpty(), QStringLiteral("a refusal without words"));
}

QMap<QString, QByteArray> ProjectCheck::smallEntries()
{
    Project project;
    fillSmall(&project);
    return project.archiveEntries(true);
}
