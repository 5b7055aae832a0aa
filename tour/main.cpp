#include "tour/Tour.h"

#include <QGuiApplication>

#include <cstdio>

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    if (application.arguments().size() != 3) {
        std::fputs("tessaril_tour FOLDER READER\n", stderr);
        return 2;
    }

    Tour tour(application.arguments().at(1));
    importChapter(tour);
    projectChapter(tour);
    exportChapter(tour, application.arguments().at(2));
    iconChapter(tour);
    std::printf("\n%d failed; pictures, project and exports are in %s\n", tour.failures(),
                qPrintable(tour.folder().absolutePath()));
    return tour.failures() == 0 ? 0 : 1;
}
