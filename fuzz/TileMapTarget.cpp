// The archive entry of a map's cells, in a project that is otherwise whole.

#include "FuzzTarget.h"
#include "ProjectCheck.h"

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    Fuzz::begin(argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QMap<QString, QByteArray> whole = ProjectCheck::smallEntries();
    QMap<QString, QByteArray> entries = whole;
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        if (entry.key().startsWith(QLatin1String("tilemap/")))
            *entry = Fuzz::bytes(data, size);
    }
    ProjectCheck::load(entries);
    return 0;
}
