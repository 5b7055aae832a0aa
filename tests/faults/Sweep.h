#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cstdio>
#include <ctime>

/// How far the long fault tests go, and what they say of themselves.
namespace Sweep {

/// Whether `tools/faults --full` runs this.
inline bool isFull()
{
    return qgetenv("TESSARIL_FAULTS") == "full";
}

/// @p brief among the other tests, @p full in a full run.
inline int count(int brief, int full)
{
    return isFull() ? full : brief;
}

/// A line of figures, which `tools/faults` collects.
inline void report(const QString &figures)
{
    std::printf("FIGURES %s\n", qPrintable(figures));
    std::fflush(stdout);
}

/// The processor's time that this program has used: the work of others does not count, nor does
/// waiting.
inline qint64 usedMs()
{
    return qint64(std::clock()) * 1000 / CLOCKS_PER_SEC;
}

/// The most memory that this process has held since forgetPeak(), in MiB; 0 where that is not known
/// or sanitizers hold memory back.
inline int peakMegabytes()
{
#if !defined(__SANITIZE_ADDRESS__)
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = status.readAll();
    const qsizetype at = text.indexOf("VmHWM:");
    return at < 0 ? 0 : text.mid(at + 6, text.indexOf("kB", at) - at - 6).trimmed().toInt() / 1024;
#else
    return 0;
#endif
}

inline void forgetPeak()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}

} // namespace Sweep
