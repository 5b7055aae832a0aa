#include "app/Identity.h"
#include "app/LogFile.h"
#include "app/MainWindow.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    LogFile::startIfWanted();
    Identity::apply();
    QApplication application(argc, argv);
    MainWindow window;
    return QApplication::exec();
}
