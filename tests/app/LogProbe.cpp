#include "app/LogFile.h"

#include <QCoreApplication>
#include <QDebug>

int main(int argc, char *argv[])
{
    LogFile::startIfWanted();
    QCoreApplication application(argc, argv);
    qDebug("fine detail");
    qInfo("news");
    qWarning("libpng warning: iCCP: known incorrect sRGB profile");
    qWarning("a libpng warning: in the middle");
    qCritical("libpng warning: but critical");
    return 0;
}
