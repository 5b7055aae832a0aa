#include "tour/WindowTour.h"

#include "dialogs/ProjectDialog.h"
#include "editors/ImportImageDialog.h"
#include "formats/FileBytes.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "support/DialogDriver.h"
#include "support/ProjectDifferences.h"

#include <QLineEdit>
#include <QPainter>

namespace {

const QString Level = QStringLiteral("plates");
const QString Sheet = QStringLiteral("eyes");

void makeProject(WindowTour &tour)
{
    tour.setSubject(QStringLiteral("File > New"));
    tour.choose(tour.views().menuBar->fileMenu(), QStringLiteral("New"));
    auto *const dialog = tour.dialog<ProjectDialog>();
    if (!dialog)
        return;
    DialogDriver::pressOk(*dialog);
    tour.check(dialog->isVisible() && !tour.project(), QStringLiteral("asks for a name"));
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), QStringLiteral("tour"));
    tour.picture(QStringLiteral("01-new"), dialog);
    DialogDriver::pressOk(*dialog);
    tour.check(tour.project() && tour.window().windowTitle().endsWith(QStringLiteral(" - tour")),
               QStringLiteral("makes the project of that name"));
}

void importLevel(WindowTour &tour)
{
    tour.setSubject(QStringLiteral("Map > Import"));
    tour.choose(tour.views().menuBar->mapMenu(), QStringLiteral("Import"));
    tour.chooseFile(tour.tour().folder().filePath(Level + QStringLiteral(".png")));
    tour.check(QTest::qWaitFor([&tour] { return tour.project()->maps().size() == 1; }),
               QStringLiteral("makes a map"));
    tour.check(tour.project()->tileSets().size() == 1 && tour.project()->palettes().size() == 1,
               QStringLiteral("makes a tile set and a palette"));
    tour.picture(QStringLiteral("03-imported"));
}

void importSheet(WindowTour &tour)
{
    tour.setSubject(QStringLiteral("Sprites"));
    const SpriteMenu *const menu = tour.views().menuBar->spriteMenu();
    tour.choose(menu, QStringLiteral("Import"));
    tour.chooseFile(tour.tour().folder().filePath(Sheet + QStringLiteral(".png")));
    auto *const dialog = tour.dialog<SpriteEditor::ImportImageDialog>();
    if (!dialog)
        return;
    tour.picture(QStringLiteral("04-sheet"), dialog);
    DialogDriver::pressOk(*dialog);
    if (!tour.check(tour.project()->spriteBanks().size() == 1, QStringLiteral("import a bank")))
        return;

    const QUuid bank = tour.project()->spriteBanks().first()->id();
    tour.window().documentController()->setActiveSpriteEditor(bank);
    tour.picture(QStringLiteral("05-sprites"));
    const QString file = tour.folder().filePath(Sheet + QStringLiteral(".spr"));
    tour.choose(menu, QStringLiteral("Export Data"));
    tour.chooseFile(file);
    const auto expected =
        FileBytes::read(tour.tour().folder().filePath(Sheet + QStringLiteral(".spr")));
    tour.check(expected == FileBytes::read(file) && QFile::exists(file),
               QStringLiteral("export the bytes that the reader knows"));
}

/// Saves and closes the project and opens it from the list of recent ones.
void openAgain(WindowTour &tour)
{
    FileMenu *const menu = tour.views().menuBar->fileMenu();
    tour.setSubject(QStringLiteral("File"));
    tour.choose(menu, QStringLiteral("Save"));
    tour.check(QFile::exists(tour.projectFile()) && !tour.window().projectController()->isDirty(),
               QStringLiteral("saves"));
    tour.choose(menu, QStringLiteral("Close"));
    tour.check(!tour.project() && tour.views().tabs->count() == 0, QStringLiteral("closes"));
    tour.picture(QStringLiteral("06-closed"));

    const auto *const recent = menu->findChild<QMenu *>();
    tour.choose(recent, QStringLiteral("window.tessaril"));
    if (!tour.check(tour.project() != nullptr, QStringLiteral("opens it from Recent")))
        return;
    ProjectStore other;
    if (!tour.check(other.load(tour.projectFile()), QStringLiteral("and so does another store")))
        return;
    // The window's editor gives a project without a scratch image an empty one.
    QStringList differences = ProjectDifferences::between(*other.project(), *tour.project());
    differences.removeOne(QStringLiteral("scratch image"));
    tour.check(differences.isEmpty(),
               QStringLiteral("which finds the same ") + differences.join(u' '));
    tour.check(!tour.window().projectController()->isDirty(),
               QStringLiteral("with nothing unsaved"));
}

void readLevel(WindowTour &tour, const QString &reader)
{
    QJsonObject entry;
    for (const QJsonValue &level : tour.tour().manifest[QStringLiteral("levels")].toArray()) {
        if (level.toObject()[QStringLiteral("name")].toString() == Level)
            entry = level.toObject();
    }
    const QPointer<Map> map = tour.project()->maps().value(0);
    if (!tour.check(map && map->tileSet(), QStringLiteral("the map is there")))
        return;
    exportLevel(tour.tour(), *tour.window().projectController()->store(), tour.folder(),
                {Level, map->tileSet()->paletteId(), map->tileSetId(), map->id(),
                 entry[QStringLiteral("tiles")].toInt()});
    readBack(tour.tour(), reader, tour.folder(),
             {{"levels", QJsonArray{entry}}, {"project", tour.projectFile()}});
}

/// Imports a map of many screens and throws it away again.
void importLargeLevel(WindowTour &tour)
{
    tour.setSubject(QStringLiteral("large import"));
    const QImage screen(tour.tour().folder().filePath(Level + QStringLiteral(".png")));
    QImage large(screen.size() * 6, QImage::Format_RGB32);
    QPainter(&large).fillRect(large.rect(), QBrush(screen));
    const QString file = tour.folder().filePath(QStringLiteral("large.png"));
    tour.check(large.save(file), QStringLiteral("a picture of 36 screens"));

    tour.choose(tour.views().menuBar->mapMenu(), QStringLiteral("Import"));
    tour.chooseFile(file);
    tour.check(tour.project()->maps().size() == 2 && tour.window().projectController()->isDirty(),
               QStringLiteral("is a second map, unsaved"));
    FileMenu *const menu = tour.views().menuBar->fileMenu();
    tour.choose(menu, QStringLiteral("Close"));
    tour.choose(menu->findChild<QMenu *>(), QStringLiteral("window.tessaril"));
    tour.check(tour.project() && tour.project()->maps().size() == 1,
               QStringLiteral("is gone with the unsaved project"));
}

} // namespace

void shellChapter(WindowTour &tour, const QString &reader)
{
    tour.tour().beginChapter(QStringLiteral("The window makes, saves and opens a project"));
    makeProject(tour);
    if (!tour.project())
        return;
    importLevel(tour);
    importSheet(tour);
    openAgain(tour);
    if (!tour.project())
        return;
    readLevel(tour, reader);
    importLargeLevel(tour);
}
