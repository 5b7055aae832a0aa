// The imports of a picture file of any format that Qt reads: to a level, and to sprites.

#include "FuzzTarget.h"
#include "ProjectCheck.h"

#include "formats/PictureImport.h"
#include "formats/SpriteImport.h"
#include "model/Palette.h"
#include "model/Project.h"

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    Fuzz::begin(argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // Without a suffix, so that the content alone decides the format.
    const QString fileName = Fuzz::file(QStringLiteral("picture"), Fuzz::bytes(data, size));
    Project project;
    ProjectCheck::shrinkScratch(&project);
    PictureImport(fileName).run(&project);
    const auto palette = project.createPalette(CreateDefault, QStringLiteral("Day"));
    SpriteImport::importSheet(&project, nullptr, fileName, SpriteImport::ImagePalette, QUuid());
    SpriteImport::importSheet(&project, nullptr, fileName, SpriteImport::ProjectPalette,
                              palette->id());
    ProjectCheck::check(project);
    return 0;
}
