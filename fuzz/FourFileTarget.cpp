// The import of a level in four files. The first byte leaves out files, three lengths of two bytes
// follow, then the palette, the tiles, the map, and the blocks to the end.

#include "FuzzTarget.h"
#include "ProjectCheck.h"

#include "formats/FourFileImport.h"
#include "model/Project.h"

#include <QFile>
#include <QtEndian>

namespace {

constexpr qsizetype LengthBytes = 2;

const QStringList &suffixes()
{
    static const QStringList names{"nxp", "nxt", "nxm", "nxb"};
    return names;
}

/// Takes a length of two bytes off @p input; 0 if they are not there.
qsizetype takeLength(QByteArray *input)
{
    if (input->size() < LengthBytes)
        return 0;
    const quint16 length = qFromLittleEndian<quint16>(input->constData());
    *input = input->mid(LengthBytes);
    return length;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    Fuzz::begin(argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QByteArray input = Fuzz::bytes(data, size);
    const int absent = Fuzz::takeChoice(&input, 16);
    QList<qsizetype> lengths;
    for (int i = 0; i < 3; ++i)
        lengths += takeLength(&input);
    lengths += input.size();

    QString fileName;
    for (int i = 0; i < suffixes().size(); ++i) {
        fileName = Fuzz::file("level." + suffixes().at(i), input.left(lengths.at(i)));
        input = input.mid(lengths.at(i));
        if (absent & (1 << i))
            QFile::remove(fileName);
    }
    Project project;
    ProjectCheck::shrinkScratch(&project);
    const FourFileImport::Outcome outcome = FourFileImport::run(&project, fileName);
    Fuzz::require(outcome.done != !outcome.message.isEmpty(), QStringLiteral("done and a message"));
    ProjectCheck::check(project);
    return 0;
}
