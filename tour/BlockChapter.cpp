#include "dialogs/DocumentCombo.h"
#include "dialogs/TileAnimationDialog.h"
#include "editors/AnimationEditorWidget.h"
#include "editors/BlockEditorView.h"
#include "editors/MapObjectTypeCombo.h"
#include "editors/TilePickerGrid.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"
#include "support/DialogDriver.h"
#include "support/ProjectDifferences.h"
#include "tour/AnimationDesk.h"
#include "tour/MapDesk.h"

#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QSpinBox>
#include <QTimer>
#include <QUndoStack>

using Action = AnimationDesk::Action;
using Tool = Tessaril::Ui::ToolButton;

namespace {

const QString BlockName = QStringLiteral("crate");

AnimationDesk deskOf(WindowTour &tour, BlockEditor::View *view)
{
    const QPointer<TileSet> tiles = view->blocks()->tileSet();
    return {tour, view, view->editor()->timer(), [tiles](const AnimationDesk::Cell &cell) {
                return tiles->tileImage(cell.index, cell.rotate, cell.flip, cell.mirror,
                                        cell.offset);
            }};
}

/// Makes a block list by the menu and its dialog, which opens its tab.
BlockEditor::View *makeBlocks(WindowTour &tour, const QPointer<TileSet> &tiles)
{
    tour.choose(tour.views().menuBar->tileMenu(), QStringLiteral("Create Animations"));
    auto *const dialog = tour.dialog<TileAnimationDialog>();
    if (!dialog)
        return nullptr;
    QTest::keyClicks(DialogDriver::field<QLineEdit>(*dialog, QStringLiteral("Name")),
                     QStringLiteral("scenery"));
    auto *const sets = DialogDriver::field<DocumentCombo>(*dialog, QStringLiteral("Tile Set"));
    sets->setCurrentIndex(sets->findData(tiles->id()));
    tour.picture(QStringLiteral("block-01-dialog"), dialog);
    DialogDriver::pressOk(*dialog);
    tour.activate();
    auto *const view = qobject_cast<BlockEditor::View *>(tour.views().tabs->currentWidget());
    tour.check(view && view->blocks()->tileSet() == tiles &&
                   tour.views().tilePicker->tileSet() == tiles,
               QStringLiteral("a list opens beside its tiles"));
    return view;
}

void dropTile(WindowTour &tour, AnimationDesk &desk, int tile, QPoint cell)
{
    TilePickerGrid *const picker = tour.views().tilePicker->grid();
    desk.drop(picker, picker->cellRect(tile).center(), cell);
}

void buildFrames(WindowTour &tour, AnimationDesk &desk)
{
    for (int frame = 0; frame < 3; ++frame) {
        if (frame > 0)
            desk.press(Action::Add);
        for (int y = 0; y < 2; ++y) {
            for (int x = 0; x < 2; ++x)
                dropTile(tour, desk, 10 + 4 * frame + 2 * y + x, {x, y});
        }
        desk.click({0, 1});
        desk.pressTool(frame == 1 ? Tool::RotateCW : Tool::Mirror);
        tour.check(desk.looksRight(), QStringLiteral("shows the flag"));
    }
}

void setOffsets(WindowTour &tour, BlockEditor::View *view, AnimationDesk &desk)
{
    desk.click({1, 1});
    desk.typeNumber(QStringLiteral("Palette offset"), 5);
    tour.check(desk.cell(2, {1, 1}).offset == 5 && desk.looksRight(),
               QStringLiteral("a cell takes another palette offset"));
    tour.pictures(QStringLiteral("block-04-frames"));
    desk.pressTool(Tool::PaintPalette);
    tour.check(desk.cell(2, {1, 1}).offset == view->blocks()->tileSet()->tileOffset(21) &&
                   desk.looksRight(),
               QStringLiteral("and that of its tile again"));
}

/// Builds a block of 2 by 2 tiles in three frames, plays it and undoes it.
void buildBlock(WindowTour &tour, BlockEditor::View *view)
{
    AnimationDesk desk = deskOf(tour, view);
    tour.setSubject(QStringLiteral("block"));
    tour.pictures(QStringLiteral("block-02-empty"));
    desk.pressListButton(QStringLiteral("Add a new animation"));
    tour.picture(QStringLiteral("block-03-new"));
    QUndoStack *const stack = tour.window().documentController()->undoStack(view->blocks()->id());
    stack->clear();
    const Animation::State before = desk.animation()->state();
    desk.typeName(BlockName);
    desk.typeNumber(QStringLiteral("Width in tiles"), 2);
    desk.typeNumber(QStringLiteral("Height in tiles"), 2);
    desk.typeNumber(QStringLiteral("Delay"), 1);
    buildFrames(tour, desk);
    setOffsets(tour, view, desk);
    desk.checkPlayback();

    const Animation::State after = desk.animation()->state();
    const int steps = stack->index();
    while (stack->canUndo() && tour.undo()) {
    }
    tour.check(steps > 0 && desk.animation()->state() == before && desk.looksRight(),
               QStringLiteral("is as it was, %1 steps back").arg(steps));
    while (stack->canRedo() && tour.redo()) {
    }
    tour.check(desk.animation()->state() == after && desk.looksRight(),
               QStringLiteral("and again as it became"));
}

/// Answers the question that is about to be asked.
void answer(QMessageBox::StandardButton button)
{
    QTimer::singleShot(0, qApp, [button] {
        const bool shown = QTest::qWaitFor(
            [] { return qobject_cast<QMessageBox *>(QApplication::activeModalWidget()); });
        if (shown) {
            auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QTest::mouseClick(box->button(button), Qt::LeftButton);
        }
    });
}

void cloneBlock(WindowTour &tour, BlockEditor::View *view)
{
    AnimationDesk desk = deskOf(tour, view);
    tour.setSubject(QStringLiteral("clone"));
    const Animation *const source = desk.animation();
    desk.chooseInList(QStringLiteral("Clone"));
    tour.check(desk.animation() != source &&
                   desk.animation()->name() == BlockName + QStringLiteral(" (Copy)") &&
                   desk.animation()->state() == source->state() && desk.looksRight(),
               QStringLiteral("has the frames of its source"));
    tour.picture(QStringLiteral("block-05-clone"));
    const QString button = QStringLiteral("Delete the selected animation");
    answer(QMessageBox::No);
    desk.pressListButton(button);
    tour.check(view->blocks()->animations().size() == 2 && desk.animation(),
               QStringLiteral("stays if so answered"));
    answer(QMessageBox::Yes);
    desk.pressListButton(button);
    tour.check(view->blocks()->animations().size() == 1 && desk.list().count() == 1,
               QStringLiteral("is deleted if so answered"));
    tour.activate();
}

/// Saves, closes and opens the project again, and looks for all that was made.
void openAgain(WindowTour &tour, const QUuid &blocksId)
{
    tour.setSubject(QStringLiteral("File"));
    FileMenu *const menu = tour.views().menuBar->fileMenu();
    const qsizetype banks = tour.project()->spriteBanks().size();
    tour.choose(menu, QStringLiteral("Save"));
    ProjectStore saved;
    QStringList differences{QStringLiteral("not loaded")};
    if (saved.load(tour.projectFile()))
        differences = ProjectDifferences::between(*saved.project(), *tour.project());
    tour.check(differences.isEmpty(),
               QStringLiteral("saves all that there is ") + differences.join(u' '));
    tour.choose(menu, QStringLiteral("Close"));
    tour.choose(menu->findChild<QMenu *>(), QStringLiteral("window.tessaril"));
    if (!tour.check(tour.project(), QStringLiteral("and opens again")))
        return;
    tour.activate();
    auto *const view =
        qobject_cast<BlockEditor::View *>(tour.views().tabs->documentWidget(blocksId));
    if (!tour.check(view && view->animationList()->count() == 1 &&
                        tour.project()->spriteBanks().size() == banks,
                    QStringLiteral("with the tab of the blocks")))
        return;
    tour.views().tabs->setCurrentWidget(view);
    auto *const items = view->animationList()->findChild<QListWidget *>();
    QTest::mouseClick(items->viewport(), Qt::LeftButton, {},
                      items->visualItemRect(items->item(0)).center());
    AnimationDesk desk = deskOf(tour, view);
    if (!tour.check(desk.animation() && desk.animation()->name() == BlockName && desk.looksRight(),
                    QStringLiteral("which shows the block")))
        return;
    desk.checkPlayback();
    tour.pictures(QStringLiteral("block-06-again"));
}

} // namespace

void blockChapter(WindowTour &tour)
{
    tour.tour().beginChapter(QStringLiteral("Blocks are built of tiles"));
    tour.setSubject(QStringLiteral("blocks"));
    const QPointer<Map> map = levelMap(tour);
    if (!tour.check(map && map->tileSet(), QStringLiteral("there are tiles")))
        return;
    BlockEditor::View *const view = makeBlocks(tour, map->tileSet());
    if (!view)
        return;
    buildBlock(tour, view);
    cloneBlock(tour, view);
    openAgain(tour, view->blocks()->id());
}
