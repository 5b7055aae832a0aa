#include "colour/ColourPalette.h"
#include "dialogs/DocumentCombo.h"
#include "editors/ImportBinaryDialog.h"
#include "editors/ImportImageDialog.h"
#include "editors/SpriteEditorView.h"
#include "editors/SpriteList.h"
#include "formats/FileBytes.h"
#include "formats/NextFormats.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "support/DialogDriver.h"
#include "support/DragEvents.h"
#include "tour/AnimationDesk.h"
#include "tour/MapDesk.h"
#include "tour/PaintDesk.h"
#include "uikit/ToolPalette.h"

#include <QRadioButton>
#include <QSet>
#include <QTimer>
#include <QUndoStack>

#include <optional>

using Tool = PaintDesk::Tool;

namespace {

const QString Sheet = QStringLiteral("eyes.png");
constexpr int Deleted = 6; // the sprite that is in use and goes, counted from 0

/// A bank open in its dock and its tab, with all that must come back.
struct Studio
{
    WindowTour &tour;
    QPointer<SpriteBank> bank;
    QPointer<Map> map;
    SpriteEditor::View *view = nullptr;

    SpriteWindow *dock() const { return tour.views().spriteWindow; }
    SpriteEditor::SpriteList *list() const
    {
        return dock()->findChild<SpriteEditor::SpriteList *>();
    }
    QUndoStack &stack() const { return *tour.window().documentController()->undoStack(bank->id()); }
    AnimationDesk animator() const
    {
        return {tour, view, *view->findChild<QTimer *>(), [bank = bank](const auto &cell) {
                    return bank->spriteImage(cell.index, cell.offset, cell.rotate, cell.flip,
                                             cell.mirror);
                }};
    }
    PaintDesk painter() const
    {
        return {tour, dock()->findChild<Canvas *>(), dock()->findChild<ToolPalette *>(), &stack()};
    }
};

/// Imports a file by the menu; the bank that it makes.
template <typename Dialog>
QPointer<SpriteBank> importBank(WindowTour &tour, const QString &file, const QString &palette,
                                const QString &pictureName)
{
    const auto before = tour.project()->spriteBanks();
    tour.choose(tour.views().menuBar->spriteMenu(), QStringLiteral("Import"));
    tour.chooseFile(file);
    auto *const dialog = tour.dialog<Dialog>();
    if (!dialog)
        return nullptr;
    if (!palette.isEmpty()) {
        for (auto *const choice : dialog->template findChildren<QRadioButton *>()) {
            if (choice->text().startsWith(QStringLiteral("Use an existing palette")))
                QTest::mouseClick(choice, Qt::LeftButton, {}, {8, choice->height() / 2});
        }
        auto *const palettes =
            DialogDriver::field<DocumentCombo>(*dialog, QStringLiteral("Existing palette"));
        tour.check(palettes->isEnabled(), QStringLiteral("an existing palette can be chosen"));
        palettes->setCurrentIndex(palettes->findText(palette));
    }
    tour.picture(pictureName, dialog);
    DialogDriver::pressOk(*dialog);
    tour.activate();
    for (const QPointer<SpriteBank> &bank : tour.project()->spriteBanks()) {
        if (!before.contains(bank))
            return bank;
    }
    tour.check(false, QStringLiteral("a bank is made"));
    return nullptr;
}

/// The colours of a picture's square or of a sprite, to compare them.
QByteArray colours(const QImage &square)
{
    const QImage picture = square.convertToFormat(QImage::Format_RGB32);
    return QByteArray(reinterpret_cast<const char *>(picture.constBits()), picture.sizeInBytes());
}

void compareImports(WindowTour &tour, const SpriteBank &own, const SpriteBank &matched)
{
    const QImage sheet(tour.tour().folder().filePath(Sheet));
    QSet<QByteArray> squares;
    int count = 0;
    for (int y = 0; y + 16 <= sheet.height(); y += 16) {
        for (int x = 0; x + 16 <= sheet.width(); x += 16, ++count)
            squares.insert(colours(sheet.copy(x, y, 16, 16)));
    }
    QSet<QByteArray> sprites;
    for (int index = 0; index < own.count(); ++index)
        sprites.insert(NextFormats::pixelBytes(own.sprite(index)));
    tour.check(sprites.size() == own.count() && own.count() <= squares.size(),
               QStringLiteral("%1 squares are %2 sprites, none twice").arg(count).arg(own.count()));
    tour.check(matched.count() == count + 1 && matched.palette()->name() == QStringLiteral("title"),
               QStringLiteral("all of them with the palette that is there"));
}

std::optional<Studio> openStudio(WindowTour &tour)
{
    const QString file = tour.tour().folder().filePath(Sheet);
    const auto own = importBank<SpriteEditor::ImportImageDialog>(tour, file, {},
                                                                 QStringLiteral("sprite-01-own"));
    const auto matched = importBank<SpriteEditor::ImportImageDialog>(
        tour, file, QStringLiteral("title"), QStringLiteral("sprite-02-existing"));
    const QPointer<Map> map = levelMap(tour);
    if (!own || !matched || !map)
        return std::nullopt;
    compareImports(tour, *own, *matched);
    openInTree(tour, own->id());
    auto *const view =
        qobject_cast<SpriteEditor::View *>(tour.views().tabs->documentWidget(own->id()));
    if (!tour.check(view && tour.views().spriteWindow->sprites() == own,
                    QStringLiteral("opens in its tab and its dock")))
        return std::nullopt;
    return Studio{tour, own, map, view};
}

QPoint placeOf(const Studio &studio, int sprite)
{
    return studio.list()->cellRect(sprite).center();
}

/// Makes an animation of three frames of two sprites side by side.
void animate(const Studio &studio)
{
    WindowTour &tour = studio.tour;
    AnimationDesk desk = studio.animator();
    tour.setSubject(QStringLiteral("animation"));
    desk.typeName(QStringLiteral("blink"));
    desk.typeNumber(QStringLiteral("Width in sprites"), 2);
    desk.typeNumber(QStringLiteral("Delay"), 2);
    for (int frame = 0; frame < 3; ++frame) {
        if (frame > 0)
            desk.press(AnimationDesk::Action::Add);
        desk.drop(studio.list(), placeOf(studio, Deleted - 1 + frame), {0, 0});
        desk.drop(studio.list(), placeOf(studio, 20 + frame), {1, 0});
        desk.pressTool(frame == 1 ? Tool::Mirror : Tool::Flip);
        tour.check(desk.looksRight(), QStringLiteral("shows the flag"));
    }
    const Animation &made = *desk.animation();
    tour.check(made.name() == QStringLiteral("blink") && made.size() == QSize(2, 1) &&
                   made.frameCount() == 3 && desk.cell(1, {0, 0}).index == Deleted &&
                   desk.cell(1, {1, 0}) == AnimationDesk::Cell{.index = 21, .mirror = true},
               QStringLiteral("is made of what was dropped"));
    tour.pictures(QStringLiteral("sprite-05-animation"));
    desk.checkPlayback();
}

void drawSprite(const Studio &studio)
{
    WindowTour &tour = studio.tour;
    tour.setSubject(QStringLiteral("sprite"));
    QTest::mouseClick(studio.list(), Qt::LeftButton, {}, placeOf(studio, Deleted - 1));
    tour.check(studio.dock()->spriteIndex() == Deleted, QStringLiteral("is picked in the list"));
    PaintDesk desk = studio.painter();
    tour.check(desk.looksRight(), QStringLiteral("shows in the canvas"));
    desk.choose(Tool::Circle);
    desk.click({0, 0}); // makes undo that of the bank
    desk.choose(Tool::Rectangle);
    auto *const strip = studio.dock()->findChild<ColourPalette *>();
    QTest::mouseClick(strip, Qt::LeftButton, {}, strip->grid().rectOf(40).center());
    desk.step(QStringLiteral("Rectangle"), {0, 0, 16, 16}, [&] { desk.drag({2, 2}, {13, 13}); });
    desk.choose(Tool::Fill);
    desk.step(QStringLiteral("Fill"), {2, 2, 12, 12}, [&] { desk.click({2, 2}, Qt::RightButton); });
    desk.choose(Tool::RotateCW);
    desk.choose(Tool::Draw);
    AnimationDesk animator = studio.animator();
    animator.press(AnimationDesk::Action::First);
    tour.check(animator.looksRight() && animator.cell(0, {0, 0}).index == Deleted - 1,
               QStringLiteral("drawn in, changes the animation"));
}

void dropOn(const Studio &studio, int from, int to, Qt::KeyboardModifiers modifiers)
{
    const auto data = dragOff(studio.list(), placeOf(studio, from));
    studio.tour.check(
        data && DragEvents::drop(studio.list(), placeOf(studio, to), data.get(), modifiers),
        QStringLiteral("can be dragged and dropped"));
}

void choose(const Studio &studio, int sprite, const QString &entry)
{
    const bool done = studio.tour.chooseInPopup(entry, [&studio, sprite] {
        QTest::mouseClick(studio.list(), Qt::RightButton, {}, placeOf(studio, sprite));
    });
    studio.tour.check(done, QStringLiteral("has %1 in its menu").arg(entry));
}

void reorder(const Studio &studio)
{
    WindowTour &tour = studio.tour;
    tour.setSubject(QStringLiteral("sprites"));
    AnimationDesk animator = studio.animator();
    const QImage moved = studio.bank->sprite(Deleted - 1);
    dropOn(studio, Deleted - 1, 10, Qt::NoModifier);
    tour.check(studio.bank->sprite(10) == moved, QStringLiteral("a dragged one moves"));
    dropOn(studio, 10, 3, Qt::ShiftModifier);
    tour.check(studio.bank->sprite(3) == moved && studio.bank->sprite(10) == moved,
               QStringLiteral("Shift copies"));
    const int count = studio.bank->count();
    QTest::mouseClick(studio.list(), Qt::LeftButton, {}, placeOf(studio, count));
    tour.check(studio.bank->count() == count + 1, QStringLiteral("the last cell adds one"));
    choose(studio, 3, QStringLiteral("Copy Image"));
    choose(studio, count, QStringLiteral("Paste Image"));
    tour.check(studio.bank->sprite(count) == moved, QStringLiteral("an image is pasted"));
    choose(studio, 3, QStringLiteral("Clear"));
    tour.check(animator.looksRight(), QStringLiteral("the animation follows"));
}

/// Deletes a sprite that an animation and the map use.
void deleteUsed(const Studio &studio)
{
    WindowTour &tour = studio.tour;
    AnimationDesk animator = studio.animator();
    animator.press(AnimationDesk::Action::First);
    const int used = animator.cell(0, {0, 0}).index;
    const int later = animator.cell(2, {1, 0}).index;
    Map::PlacedSprite here;
    here.bank = studio.bank->id();
    here.sprite = used;
    Map::PlacedSprite there = here;
    there.sprite = later;
    there.x = 40;
    studio.map->setSprites({here, there});
    const QList<Map::PlacedSprite> placed = studio.map->sprites();
    const SpriteBank::State before = studio.bank->state();
    choose(studio, used, QStringLiteral("Delete"));
    tour.check(animator.cell(0, {0, 0}).index == 0 && animator.cell(2, {1, 0}).index == later - 1 &&
                   animator.looksRight(),
               QStringLiteral("a deleted one is gone from the animation"));
    tour.check(studio.map->sprites() != placed && studio.map->sprites().last().sprite == later - 1,
               QStringLiteral("and from the map, where the others stay"));
    tour.undo();
    tour.check(studio.bank->state() == before && studio.map->sprites() == placed &&
                   animator.looksRight(),
               QStringLiteral("until it is undone"));
    tour.redo();
    tour.picture(QStringLiteral("sprite-06-deleted"));
}

void undoAll(const Studio &studio, const SpriteBank::State &before)
{
    WindowTour &tour = studio.tour;
    const SpriteBank::State after = studio.bank->state();
    const int steps = studio.stack().index();
    while (studio.stack().canUndo() && tour.undo()) {
    }
    tour.check(studio.bank->state() == before && studio.animator().looksRight(),
               QStringLiteral("all is as it was, %1 steps back").arg(steps));
    while (studio.stack().canRedo() && tour.redo()) {
    }
    tour.check(studio.bank->state() == after && studio.animator().looksRight(),
               QStringLiteral("and again as it became"));
}

void cloneAnimation(const Studio &studio)
{
    WindowTour &tour = studio.tour;
    tour.setSubject(QStringLiteral("clone"));
    AnimationDesk desk = studio.animator();
    const Animation *const source = desk.animation();
    desk.chooseInList(QStringLiteral("Clone"));
    const Animation *const copy = desk.animation();
    tour.check(copy != source && copy->name() == QStringLiteral("blink (copy)") &&
                   copy->state() == source->state() && desk.looksRight(),
               QStringLiteral("has the frames of its source"));
    desk.checkPlayback();
    tour.picture(QStringLiteral("sprite-07-clone"));
    desk.pressListButton(QStringLiteral("Delete the selected animation"));
    tour.check(studio.bank->animations().size() == 1 && desk.list().count() == 1,
               QStringLiteral("is deleted alone"));
}

/// Exports the bank and imports the bytes into a new one.
void exportBank(const Studio &studio)
{
    WindowTour &tour = studio.tour;
    tour.setSubject(QStringLiteral("export"));
    const QString file = tour.folder().filePath(QStringLiteral("blink.spr"));
    tour.choose(tour.views().menuBar->spriteMenu(), QStringLiteral("Export Data"));
    tour.chooseFile(file);
    tour.activate();
    const QByteArray bytes = NextFormats::pixelBytes(studio.bank->image());
    tour.check(FileBytes::read(file) == bytes, QStringLiteral("writes every sprite"));
    const auto read = importBank<SpriteEditor::ImportBinaryDialog>(
        tour, file, QStringLiteral("title"), QStringLiteral("sprite-08-binary"));
    tour.check(read && NextFormats::pixelBytes(read->image()).endsWith(bytes),
               QStringLiteral("which another bank reads back"));
}

} // namespace

void spriteChapter(WindowTour &tour)
{
    tour.tour().beginChapter(QStringLiteral("Sprites are drawn, ordered and animated"));
    tour.setSubject(QStringLiteral("bank"));
    if (!tour.check(tour.project(), QStringLiteral("there is a project")))
        return;
    const std::optional<Studio> studio = openStudio(tour);
    if (!studio)
        return;

    tour.pictures(QStringLiteral("sprite-03-empty"));
    studio->animator().pressListButton(QStringLiteral("Add a new animation"));
    tour.picture(QStringLiteral("sprite-04-new"));
    studio->stack().clear();
    const SpriteBank::State before = studio->bank->state();
    animate(*studio);
    drawSprite(*studio);
    reorder(*studio);
    deleteUsed(*studio);
    undoAll(*studio, before);
    cloneAnimation(*studio);
    exportBank(*studio);
}
