// A whole project file.

#include "FuzzTarget.h"
#include "ProjectCheck.h"

#include "model/Project.h"
#include "store/ProjectStore.h"

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    Fuzz::begin(argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    ProjectStore store;
    if (store.load(Fuzz::file(QStringLiteral("a.tessaril"), Fuzz::bytes(data, size))))
        ProjectCheck::check(*store.project());
    else
        Fuzz::require(!store.project(), QStringLiteral("a refused project is left open"));
    return 0;
}
