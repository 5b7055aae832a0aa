#include "tour/WindowTour.h"

#include "colour/ChannelSlider.h"
#include "colour/ColourEditor.h"
#include "colour/PaletteGrid.h"
#include "history/PaletteColourCommand.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/TileSet.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidgetItemIterator>

namespace {

using Words = QList<int>;

constexpr int First = 20; // of the colours that are edited
constexpr int Last = 27;

Words words(const Palette &palette)
{
    Words all;
    for (int index = 0; index < Palette::Size; ++index)
        all += palette.word(index);
    return all;
}

QTreeWidgetItem *item(WindowTour &tour, const QUuid &id)
{
    for (QTreeWidgetItemIterator it(tour.views().projectWindow->tree()); *it; ++it) {
        if (ProjectTree::idOf(*it) == id)
            return *it;
    }
    return nullptr;
}

QPoint place(WindowTour &tour, const QUuid &id)
{
    ProjectTree *const tree = tour.views().projectWindow->tree();
    QTreeWidgetItem *const found = item(tour, id);
    tour.check(found, QStringLiteral("is in the tree"));
    tree->scrollToItem(found);
    return tree->visualItemRect(found).center();
}

void openFromTree(WindowTour &tour, const QUuid &id)
{
    const QPoint at = place(tour, id);
    QWidget *const area = tour.views().projectWindow->tree()->viewport();
    QTest::mouseClick(area, Qt::LeftButton, {}, at);
    QTest::mouseDClick(area, Qt::LeftButton, {}, at);
}

/// Chooses from the context menu of a document in the tree.
void chooseInTree(WindowTour &tour, const QUuid &id, const QString &text)
{
    const QPoint at = place(tour, id);
    const bool done = tour.chooseInPopup(text, [&tour, at] {
        QWidget *const area = tour.views().projectWindow->tree()->viewport();
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, area->mapToGlobal(at));
        QApplication::sendEvent(area, &event);
    });
    tour.check(done, QStringLiteral("has %1 in its menu").arg(text));
}

void openMap(WindowTour &tour, const QPointer<Map> &map)
{
    tour.setSubject(QStringLiteral("tree"));
    openFromTree(tour, map->id());
    tour.check(tour.views().tabs->documentIds().contains(map->id()),
               QStringLiteral("a double click opens the map"));
    tour.check(tour.views().tilePicker->tileSet() == map->tileSet() &&
                   tour.views().tileWindow->tileSet() == map->tileSet(),
               QStringLiteral("and its tiles in their docks"));
    tour.picture(QStringLiteral("10-map"));
    // The tree does not show the palettes.
    tour.window().documentController()->setActivePalette(map->tileSet()->paletteId());
    tour.check(tour.views().paletteWindow->isContentShown(), QStringLiteral("palette shows"));
}

/// Does @p edit, undoes and redoes it, and looks at the words each time.
template <typename Edit>
Words editWords(WindowTour &tour, const Palette &palette, const QString &what, Edit edit)
{
    const Words before = words(palette);
    QTest::qWait(2 * PaletteColourCommand::MergeWindowMs); // edits close together are one step
    edit();
    QApplication::processEvents();
    const Words after = words(palette);
    Words outside = after;
    for (int index = First; index <= Last; ++index)
        outside[index] = before.at(index);
    tour.check(after != before && outside == before,
               what + QStringLiteral(" changes the run alone"));
    tour.undo();
    tour.check(words(palette) == before, what + QStringLiteral(" is undone in one step"));
    tour.redo();
    tour.check(words(palette) == after, what + QStringLiteral(" is done again"));
    return after;
}

void confirm(ColourEditor *editor)
{
    QTest::mouseClick(editor->findChild<QPushButton *>(), Qt::LeftButton);
}

/// Drags the handle of the first channel from one end of the slider to the other.
int dragChannel(ColourEditor *editor)
{
    auto *const slider = editor->findChild<ChannelSlider *>();
    const int y = slider->height() / 2;
    const int last = slider->width() - 1;
    const auto handle = [slider, last] {
        return 6 + (last - 12) * slider->value() / slider->maximum();
    };
    const int target = slider->value() > slider->maximum() / 2 ? 0 : last;
    const QPoint from(handle(), y);
    QTest::mousePress(slider, Qt::LeftButton, {}, from);
    for (int step = 1; step <= 8; ++step)
        QTest::mouseMove(slider, {from.x() + (target - from.x()) * step / 8, y});
    QTest::mouseRelease(slider, Qt::LeftButton, {}, {target, y});
    return slider->value();
}

QPushButton *button(const QWidget *window, const QString &name)
{
    for (auto *const found : window->findChildren<QPushButton *>()) {
        if (found->accessibleName() == name)
            return found;
    }
    return nullptr;
}

void selectRun(PaletteGrid *grid)
{
    const auto middle = [](int index) { return QPoint(index % 16 * 16 + 7, index / 16 * 16 + 7); };
    QTest::mousePress(grid, Qt::LeftButton, {}, middle(First));
    QTest::mouseMove(grid, middle(Last));
    QTest::mouseRelease(grid, Qt::LeftButton, {}, middle(Last));
}

void editPalette(WindowTour &tour, Palette &palette)
{
    tour.setSubject(QStringLiteral("palette"));
    const PaletteWindow *const window = tour.views().paletteWindow;
    auto *const editor = window->findChild<ColourEditor *>();
    auto *const grid = window->findChild<PaletteGrid *>();
    auto *const darken = button(window, QStringLiteral("Darkens the selected colour(s)"));
    auto *const gradient = button(window, QStringLiteral("Create a gradient"));
    if (!tour.check(editor && grid && darken && gradient, QStringLiteral("has its controls")))
        return;

    selectRun(grid);
    tour.check(grid->first() == First && grid->last() == Last, QStringLiteral("a run is selected"));
    int red = -1;
    const Words dragged = editWords(tour, palette, QStringLiteral("a dragged channel"), [&] {
        red = dragChannel(editor);
        confirm(editor);
    });
    tour.check(dragged.at(First) >> 13 == red, QStringLiteral("which is the slider's red"));
    tour.picture(QStringLiteral("11-channel"));

    selectRun(grid);
    editWords(tour, palette, QStringLiteral("a darker run"), [&] {
        // A palette may round one step down from the full red to what it had.
        for (int step = 0; step < 3; ++step)
            QTest::mouseClick(darken, Qt::LeftButton);
        confirm(editor);
    });
    palette.setColour(First, Qt::black, false);
    palette.setColour(Last, Qt::white, false);
    selectRun(grid);
    editWords(tour, palette, QStringLiteral("a gradient"),
              [gradient] { QTest::mouseClick(gradient, Qt::LeftButton); });
    tour.picture(QStringLiteral("12-gradient"));
}

void rename(WindowTour &tour, Map &map)
{
    tour.setSubject(QStringLiteral("rename"));
    chooseInTree(tour, map.id(), QStringLiteral("Rename"));
    auto *const field = tour.views().projectWindow->tree()->viewport()->findChild<QLineEdit *>();
    if (!tour.check(field, QStringLiteral("opens a field")))
        return;
    field->setText(QStringLiteral("first level"));
    QTest::keyClick(field, Qt::Key_Return);
    const int tab = tour.views().tabs->indexOfDocument(map.id());
    QApplication::processEvents(); // the view takes the text over later
    tour.check(map.name() == QStringLiteral("first level") &&
                   tour.views().tabs->tabText(tab) == map.name(),
               QStringLiteral("gives the map and its tab the name"));
}

void deleteItems(WindowTour &tour, const Map &map)
{
    tour.setSubject(QStringLiteral("delete"));
    chooseInTree(tour, map.tileSetId(), QStringLiteral("Delete"));
    if (auto *const box = tour.dialog<MessageDialog>()) {
        tour.picture(QStringLiteral("13-refused"), box);
        QTest::keyClick(box, Qt::Key_Return);
    }
    tour.check(tour.project()->tileSet(map.tileSetId()), QStringLiteral("spares tiles in use"));

    const qsizetype tabs = tour.views().tabs->count();
    const auto other = tour.project()->createMap(QStringLiteral("other"), map.tileSetId(), {8, 8});
    const QUuid id = other->id();
    openFromTree(tour, id);
    tour.check(tour.views().tabs->count() == tabs + 1, QStringLiteral("another map has its tab"));
    chooseInTree(tour, id, QStringLiteral("Delete"));
    tour.check(!tour.project()->map(id) && !item(tour, id) && tour.views().tabs->count() == tabs,
               QStringLiteral("takes a map, its item and its tab"));
}

void openAgain(WindowTour &tour, const QUuid &map, const QUuid &palette)
{
    tour.setSubject(QStringLiteral("File"));
    FileMenu *const menu = tour.views().menuBar->fileMenu();
    const Words before = words(*tour.project()->palette(palette));
    const QList<QUuid> tabs = tour.views().tabs->documentIds();
    tour.choose(menu, QStringLiteral("Save"));
    tour.choose(menu, QStringLiteral("Close"));
    tour.choose(menu->findChild<QMenu *>(), QStringLiteral("window.tessaril"));
    if (!tour.check(tour.project(), QStringLiteral("saves and opens again")))
        return;
    tour.check(tour.views().tabs->documentIds() == tabs && tabs.contains(map),
               QStringLiteral("with its tabs"));
    tour.check(words(*tour.project()->palette(palette)) == before,
               QStringLiteral("with its colours"));
    tour.check(tour.project()->map(map)->name() == QStringLiteral("first level"),
               QStringLiteral("with its new name"));
    tour.picture(QStringLiteral("14-again"));
}

} // namespace

void documentChapter(WindowTour &tour)
{
    tour.tour().beginChapter(QStringLiteral("Documents are opened, edited, renamed and deleted"));
    tour.setSubject(QStringLiteral("tree"));
    const QPointer<Map> map = tour.project() ? tour.project()->maps().value(0) : nullptr;
    if (!tour.check(map && map->tileSet(), QStringLiteral("there is a map")))
        return;
    const QUuid id = map->id();
    const QUuid palette = map->tileSet()->paletteId();
    openMap(tour, map);
    editPalette(tour, *map->tileSet()->palette());
    rename(tour, *map);
    deleteItems(tour, *map);
    openAgain(tour, id, palette);
}
