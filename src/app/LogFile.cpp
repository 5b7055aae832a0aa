#include "app/LogFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTextStream>

#include <cstdio>

namespace {

QFile *logFile = nullptr; // lives to the end of the process; every message is flushed

struct Label
{
    const char *text;
    FILE *console;
};

Label labelOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return {"Debug", stdout};
    case QtInfoMsg:
        return {"Info", stdout};
    case QtWarningMsg:
        return {"Warning", stderr};
    case QtCriticalMsg:
        return {"Critical", stderr};
    case QtFatalMsg:
        return {"Fatal", stderr};
    }
    return {nullptr, nullptr};
}

} // namespace

void LogFile::startIfWanted()
{
    if (!QDir(QStringLiteral("log")).exists() || logFile)
        return;

    auto *file = new QFile;
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd_hhmmss"));
    file->setFileName(QStringLiteral("log/application_%1.log").arg(stamp));
    if (!file->open(QIODevice::WriteOnly | QIODevice::Truncate))
        fprintf(stderr, "Could not open %s\n", file->fileName().toLocal8Bit().constData());
    logFile = file;
    qInstallMessageHandler(handleMessage);
}

void LogFile::handleMessage(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    const Label label = labelOf(type);
    if (!label.text)
        return;
    if (type == QtWarningMsg && message.startsWith(QLatin1String("libpng warning:")))
        return;

    const QByteArray text = message.toLocal8Bit();
    // Writing to a file that is not open would itself send a warning.
    if (logFile && logFile->isOpen()) {
        QTextStream stream(logFile);
        stream << QDateTime::currentDateTime().toString(QStringLiteral("hh:mm:ss")) << ' '
               << label.text << ": " << message << '\n';
        stream.flush();
    }
    fprintf(label.console, "%s: %s\n", label.text, text.constData());
    fflush(label.console);
}
