// The importers of files that have no header. The first byte chooses the importer.

#include "FuzzTarget.h"
#include "ProjectCheck.h"

#include "formats/SpriteImport.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/TileSet.h"

namespace {

enum Importer { RawPalette, NplPalette, Tiles, Font, Sprites, ImporterCount };

QString fileNameOf(int importer)
{
    static const QStringList names{"a.pal", "a.npl", "a.nxt", "a.chr", "a.spr"};
    return names.at(importer);
}

void import(int importer, const QString &fileName, Project *project)
{
    const auto palette = project->createPalette(CreateDefault, QStringLiteral("Day"));
    switch (importer) {
    case RawPalette:
    case NplPalette:
        palette->importData(fileName);
        break;
    case Tiles:
        project->createTileSet(QStringLiteral("Rocks"), palette->id(), 16)->importNxt(fileName);
        break;
    case Font:
        project->createTileSet(QStringLiteral("Rocks"), palette->id(), 16)
            ->importZXFont(3, 15, 200, 2, fileName);
        break;
    default:
        SpriteImport::importRaw(project, nullptr, fileName, SpriteImport::UseExistingPalette,
                                palette->id());
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    Fuzz::begin(argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QByteArray content = Fuzz::bytes(data, size);
    const int importer = Fuzz::takeChoice(&content, ImporterCount);
    Project project;
    ProjectCheck::shrinkScratch(&project);
    import(importer, Fuzz::file(fileNameOf(importer), content), &project);
    ProjectCheck::check(project);
    return 0;
}
