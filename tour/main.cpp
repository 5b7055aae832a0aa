#include "app/Identity.h"
#include "support/OwnHome.h"
#include "tour/AnimationDesk.h"
#include "tour/MapDesk.h"
#include "tour/PaintDesk.h"

#include <QFileInfo>

#include <cstdio>

namespace {

void tourWindow(Tour &tour, const QString &reader)
{
    WindowTour window(tour);
    shellChapter(window, reader);
    documentChapter(window);
    paintingChapter(window);
    tileChapter(window);
    fontChapter(window, QFileInfo(reader).dir().filePath(QStringLiteral("charset.py")));
    mapDrawChapter(window);
    mapSpriteChapter(window);
    mapBlockChapter(window);
    mapSizeChapter(window);
    mapViewChapter(window);
    mapFileChapter(window, reader);
    spriteChapter(window);
    blockChapter(window);
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3 || !useOwnHome(QDir(QString::fromLocal8Bit(argv[1])))) {
        std::fputs("tessaril_tour FOLDER READER\n", stderr);
        return 2;
    }
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    Identity::apply();
    const QApplication application(argc, argv);

    Tour tour(QDir(QApplication::arguments().at(1)).absolutePath());
    const QString reader = QApplication::arguments().at(2);
    importChapter(tour);
    projectChapter(tour);
    exportChapter(tour, reader);
    tourWindow(tour, reader);
    iconChapter(tour);
    std::printf("\n%d failed; pictures, project and exports are in %s\n", tour.failures(),
                qPrintable(tour.folder().absolutePath()));
    return tour.failures() == 0 ? 0 : 1;
}
