// "project.json" alone. Every picture and every map that it asks for is there and fits the kind.

#include "FuzzTarget.h"
#include "ProjectCheck.h"

#include "model/Project.h"
#include "support/TestProjects.h"

namespace {

QByteArray entry(const QString &name, const QByteArray &json)
{
    static const QByteArray tiles = TestProjects::png({8, 16});
    static const QByteArray sprites = TestProjects::png({16, 32});
    static const QByteArray image = TestProjects::png({6, 5});
    static const QByteArray map = TestProjects::tileMap(2, 3);
    if (name == QLatin1String("project.json"))
        return json;
    if (name.startsWith(QLatin1String("tilemap/")))
        return map;
    if (name.startsWith(QLatin1String("tileset/")))
        return tiles;
    return name.startsWith(QLatin1String("sprite/")) ? sprites : image;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    Fuzz::begin(argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray json = Fuzz::bytes(data, size);
    Project project;
    QString error;
    if (project.load([&json](const QString &name) { return entry(name, json); }, &error))
        ProjectCheck::check(project);
    else
        Fuzz::require(!error.isEmpty(), QStringLiteral("a refusal without words"));
    return 0;
}
