// Writes the contact sheets of all icons:  tessaril_icon_sheet FOLDER
// Needs no display: QT_QPA_PLATFORM=offscreen build/release/tour/tessaril_icon_sheet build/tour

#include "tour/ContactSheet.h"

#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 2 || !ContactSheet::write(arguments[1])) {
        std::fprintf(stderr, "usage: tessaril_icon_sheet FOLDER (that can be written)\n");
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
