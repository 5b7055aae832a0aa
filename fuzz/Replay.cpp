// Runs a fuzz target on the files below the given folders, as a plain program without libFuzzer.

#include "FuzzTarget.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>

#include <cstdio>

namespace {

constexpr qint64 MaxRunMs = 10'000; // of one input, under sanitizers on a busy machine

bool replay(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray input = file.readAll();
    // Said before the run, so that a crash names its input.
    std::printf("%s\n", qPrintable(fileName));
    std::fflush(stdout);
    QElapsedTimer clock;
    clock.start();
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(input.constData()),
                           static_cast<size_t>(input.size()));
    return clock.elapsed() <= MaxRunMs;
}

} // namespace

int main(int argc, char **argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    int runs = 0;
    for (int i = 1; i < argc; ++i) {
        QDirIterator files(QString::fromLocal8Bit(argv[i]), QDir::Files);
        while (files.hasNext()) {
            if (!replay(files.next())) {
                std::printf("failed, or took over %lld ms\n", MaxRunMs);
                return 1;
            }
            ++runs;
        }
    }
    std::printf("%d inputs replayed\n", runs);
    return runs > 0 ? 0 : 1; // an empty corpus proves nothing
}
