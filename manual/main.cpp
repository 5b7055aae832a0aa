// Does in the real window what the manual tells:  tessaril_manual EXAMPLES FOLDER
// Leaves the manual's pictures, its page of keys and the exported files in FOLDER.
#include "app/Identity.h"
#include "examples/Examples.h"
#include "examples/Portrait.h"
#include "manual/Walk.h"
#include "model/Map.h"
#include "model/Project.h"
#include "support/OwnHome.h"

#include <cstdio>

namespace {

/// The picture that the manual imports.
bool savePicture(const QDir &folder)
{
    const QString saved = folder.filePath(QStringLiteral("saltmere-saltmere.png"));
    const QString picture = folder.filePath(QStringLiteral("island.png"));
    QFile::remove(picture);
    const std::unique_ptr<Project> project = Examples::make(QStringLiteral("saltmere"));
    for (const auto &map : project->maps())
        map->setSprites({});
    return Portrait::save(*project, QStringLiteral("saltmere"), folder.path()) &&
           QFile::rename(saved, picture);
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3 || !useOwnHome(QDir(QString::fromLocal8Bit(argv[2])))) {
        std::fputs("tessaril_manual EXAMPLES FOLDER\n", stderr);
        return 2;
    }
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    Identity::apply();
    const QApplication application(argc, argv);

    const QDir folder(QDir(QApplication::arguments().at(2)).absolutePath());
    if (!savePicture(folder))
        return 1;
    return Walk(QDir(QDir(QApplication::arguments().at(1)).absolutePath()), folder).run() == 0 ? 0
                                                                                               : 1;
}
