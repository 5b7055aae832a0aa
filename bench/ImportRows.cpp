#include "bench/Inputs.h"
#include "bench/Rows.h"

#include "app/MainWindow.h"
#include "formats/PictureImport.h"
#include "model/Project.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

using Bench::Pair;
using Bench::Row;
using Bench::Work;

constexpr QSize PictureSize(2048, 2048);

/// The window, and a file to import into it.
struct ImportingWindow
{
    ImportingWindow()
    {
        ProjectController *const controller = window.projectController();
        controller->_unsavedPrompt = [](const QString &) {
            return ProjectController::DiscardChanges;
        };
        Bench::pictureOfTiles(PictureSize).save(file);
    }

    void importIntoNewProject()
    {
        window.projectController()->newProject(QStringLiteral("game"));
        emit window.views().menuBar->mapMenu()->importRequested(file);
    }

    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("picture.png"));
    MainWindow window;
};

} // namespace

/// The command of the menu, with its wait cursor, its progress and the views that follow, beside
/// the conversion of the same file alone.
void Bench::addImportRows(std::vector<Row> *rows)
{
    rows->push_back({"import by the menu", "2048 x 2048 of 512 tiles", 2, [] {
                         const auto importing = std::make_shared<ImportingWindow>();
                         const Work measured = [importing] { importing->importIntoNewProject(); };
                         const Work bound = [importing] {
                             Project project;
                             PictureImport work(importing->file);
                             benchmark::DoNotOptimize(work.run(&project).tileCount);
                         };
                         return Pair{measured, bound};
                     }});
}
