#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

/// What a fuzz program consists of. Each <Name>Target.cpp defines both functions; they are linked
/// once with libFuzzer, which invents inputs, and once with Replay.cpp, which reads them from
/// files.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

/// What the targets share.
namespace Fuzz {

/// Makes the application object, with widgets on the offscreen platform if @p widgets, and silences
/// what the program logs: each input would log something.
void begin(int *argc, char **argv, bool widgets = false);

/// The input without a copy; it is gone after the run.
inline QByteArray bytes(const uint8_t *data, size_t size)
{
    return QByteArray::fromRawData(reinterpret_cast<const char *>(data),
                                   static_cast<qsizetype>(size));
}

/// Takes the first byte off @p input as a choice from 0 to @p count - 1; 0 of an empty input.
int takeChoice(QByteArray *input, int count);

/// Writes a file into the folder of this run, replacing one of the same name; its whole path.
QString file(const QString &name, const QByteArray &content);

/// Ends the program with @p what was broken, as a sanitizer does, if @p holds is false.
void require(bool holds, const QString &what);

} // namespace Fuzz
