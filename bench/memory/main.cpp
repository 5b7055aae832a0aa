// Tells the memory of the window: empty, with a large project in five tabs, and after many strokes
// that can be undone. Fails if a figure is over its budget.

#include "bench/LargeProject.h"
#include "bench/OwnHome.h"

#include "app/MainWindow.h"
#include "editors/TilePickerGrid.h"
#include "mapeditor/MapGrid.h"
#include "mapeditor/View.h"
#include "model/Map.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/Tile.h"
#include "model/TileSet.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QMouseEvent>

#include <cstdio>
#include <fstream>
#include <malloc.h>
#include <unistd.h>

namespace {

constexpr double MiB = 1024.0 * 1024.0;
constexpr int TabCount = 5;
constexpr int StrokeCount = 10000;
constexpr double ProjectBudget = 3; // of the bytes of pictures and cells
constexpr double StrokeBudget = 3;  // of a row of cells and the list of rows
constexpr int CellsOfMap = 256 * 256;

/// Resident memory in bytes, with what was freed given back.
double residentMemory()
{
    malloc_trim(0);
    double pages = 0;
    std::ifstream statm("/proc/self/statm");
    statm >> pages >> pages;
    return pages * static_cast<double>(sysconf(_SC_PAGESIZE));
}

void makeProject(const QString &file)
{
    Bench::LargeProject large;
    large.store.setFileName(file);
    large.store.save(false);
}

/// The bytes of the pictures and cells that the project holds decoded, and of the cached pictures
/// of the maps on display.
double bytesOf(Project *project)
{
    double bytes = 0;
    for (const auto &tileSet : project->tileSets()) {
        for (const Tile *tile : tileSet->tiles())
            bytes += static_cast<double>(tile->image().sizeInBytes());
    }
    for (const auto &bank : project->spriteBanks())
        bytes += static_cast<double>(bank->image().sizeInBytes());
    constexpr double CellBytes = sizeof(TileMap::TileData);
    constexpr double PictureBytes = TileMap::CellSide * TileMap::CellSide;
    bytes += static_cast<double>(project->maps().size()) * CellsOfMap * CellBytes;
    return bytes + TabCount * CellsOfMap * PictureBytes;
}

void click(QWidget *widget, QPoint position)
{
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const Qt::MouseButtons held =
            type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, position, widget->mapToGlobal(position), Qt::LeftButton, held,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
    }
}

/// Draws a cell again and again, another one and another tile each time.
void stroke(MainWindow &window, MapEditor::MapGrid *grid)
{
    constexpr int Step = 16; // pixels
    const QSize cells = grid->size() / Step;
    for (int i = 0; i < StrokeCount; ++i) {
        emit window.views().tilePicker->grid()->selectedIndexChanged(i % 512);
        click(grid, QPoint(i % cells.width(), i / cells.width() % cells.height()) * Step);
    }
}

bool tell(const char *what, double bytes, const char *of, double bound, double budget)
{
    const bool isOver = bytes > budget * bound;
    std::printf("%-44s %9.1f KiB   %5.2f of %-38s %5.1f %s\n", what, bytes / 1024, bytes / bound,
                of, budget, isOver ? "OVER" : "ok");
    return !isOver;
}

} // namespace

int main(int argc, char **argv)
{
    const Bench::OwnHome home;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules(QStringLiteral("default*=false"));
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("large.tessaril"));
    makeProject(file);

    MainWindow window;
    window.resize(1920, 1080);
    QCoreApplication::processEvents();
    const double empty = residentMemory();
    std::printf("%-44s %9.1f KiB\n", "the window without a project", empty / 1024);

    window.projectController()->openProject(file);
    Project *const project = window.projectController()->project();
    for (int i = 0; i < TabCount; ++i) {
        emit window.views().projectWindow->itemDoubleClicked(ProjectTree::ProjectNode::Map,
                                                             project->maps().at(i)->id());
        window.grab();
    }
    const double opened = residentMemory();
    bool ok = tell("20 maps of 256 x 256, five of them in tabs", opened - empty,
                   "pictures, cells and map pictures", bytesOf(project), ProjectBudget);

    auto *const view = qobject_cast<MapEditor::View *>(window.views().tabs->currentWidget());
    QUndoStack *const stack =
        window.documentController()->undoStack(project->maps().at(TabCount - 1)->id());
    stroke(window, view->grid());
    std::printf("%-44s %9d\n", "strokes that can be undone", stack->count());
    const double row = 256.0 * (sizeof(TileMap::TileData) + sizeof(QList<TileMap::TileData>));
    ok &= tell("each of them", (residentMemory() - opened) / stack->count(),
               "a row of cells and the list of rows", row, StrokeBudget);
    ok &= stack->count() > StrokeCount * 9 / 10; // some find their tile there already
    return ok ? 0 : 1;
}
