#include "examples/Examples.h"

#include "examples/Chapters.h"
#include "examples/StableIds.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "store/ProjectArchive.h"

#include <QDir>

#include <cstdio>

namespace {

using Maker = void (*)(Project *);

const QMap<QString, Maker> &makers()
{
    static const QMap<QString, Maker> all = {
        {QStringLiteral("lantern-hollow"), Examples::makeLevel},
        {QStringLiteral("saltmere"), Examples::makeIsland},
        {QStringLiteral("title-picture"), Examples::makeTitle},
    };
    return all;
}

/// The tabs that open with the project, its map in front.
QStringList tabsOf(const Project &project)
{
    QStringList ids;
    const auto add = [&ids](const auto &documents) {
        for (const auto &document : documents)
            ids += document->id().toString();
    };
    add(project.mapObjects());
    add(project.spriteBanks());
    add(project.maps());
    return ids;
}

/// The palette whose name comes first; without one a load would take any.
QUuid firstPalette(const Project &project)
{
    QMap<QString, QUuid> ids;
    for (const auto &palette : project.palettes())
        ids.insert(palette->name(), palette->id());
    return ids.isEmpty() ? QUuid() : ids.first();
}

} // namespace

QStringList Examples::names()
{
    return makers().keys();
}

std::unique_ptr<Project> Examples::make(const QString &name)
{
    const Maker maker = makers().value(name);
    if (!maker)
        return nullptr;

    Project project;
    project.setName(name);
    maker(&project);
    project.setScratchPaletteId(firstPalette(project));
    project.setOpenDocuments(tabsOf(project));
    return StableIds::copyOf(project);
}

bool Examples::save(const QString &name, const QString &folder)
{
    const std::unique_ptr<Project> project = make(name);
    QString error = QStringLiteral("no such example");
    const QString file = QDir(folder).filePath(name + QStringLiteral(".tessaril"));
    if (project && ProjectArchive::save(project->archiveEntries(true), file, &error))
        return true;

    std::fprintf(stderr, "%s: %s\n", qPrintable(name), qPrintable(error));
    return false;
}
