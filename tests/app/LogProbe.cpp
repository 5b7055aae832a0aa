#include "app/LogFile.h"

#include <QCoreApplication>
#include <QDebug>

/// One message of each type; with an argument, a fatal one at the end.
int main(int argc, char *argv[])
{
    LogFile::startIfWanted();
    QCoreApplication application(argc, argv);
    qDebug("fine detail");
    qInfo("news");
    qWarning("libpng warning: iCCP: known incorrect sRGB profile");
    qWarning("a libpng warning: in the middle");
    qCritical("libpng warning: but critical");
    constexpr auto unknownType = static_cast<QtMsgType>(QtInfoMsg + 1);
    LogFile::handleMessage(unknownType, {}, QStringLiteral("of no type"));
    if (argc > 1)
        qFatal("the end");
    return 0;
}
