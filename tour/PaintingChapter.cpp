#include "canvas/View.h"
#include "colour/ColourPalette.h"
#include "dialogs/DocumentCombo.h"
#include "dialogs/ImageDialog.h"
#include "model/Image.h"
#include "model/Palette.h"
#include "model/PictureEquality.h"
#include "support/DialogDriver.h"
#include "tour/PaintDesk.h"
#include "uikit/ToolPalette.h"

#include <QLineEdit>
#include <QToolButton>
#include <QUndoStack>

using PictureEquality::haveEqualIndices;
using Tool = PaintDesk::Tool;

namespace {

constexpr int Ink = 28;    // green in the default palette
constexpr int Paper = 227; // and magenta

/// Makes an image by the menu and its dialog, which opens its tab.
QPointer<Image> makeImage(WindowTour &tour, const QString &name, const QString &mode,
                          const QString &palette)
{
    tour.choose(tour.views().menuBar->imageMenu(), QStringLiteral("New Image"));
    auto *const dialog = tour.dialog<ImageDialog>();
    if (!dialog)
        return nullptr;
    QTest::keyClicks(DialogDriver::field<QLineEdit>(*dialog, QStringLiteral("Name")), name);
    auto *const modes = DialogDriver::field<QComboBox>(*dialog, QStringLiteral("Mode"));
    modes->setCurrentIndex(modes->findText(mode));
    auto *const palettes = DialogDriver::field<DocumentCombo>(*dialog, QStringLiteral("Palette"));
    palettes->setCurrentIndex(palettes->findText(palette));
    DialogDriver::pressOk(*dialog);
    tour.activate();
    for (const QPointer<Image> &image : tour.project()->images()) {
        if (image->name() == name)
            return image;
    }
    tour.check(false, name + QStringLiteral(" is made"));
    return nullptr;
}

ImageEditor::View *viewOf(WindowTour &tour, const Image &image)
{
    auto *const view =
        qobject_cast<ImageEditor::View *>(tour.views().tabs->documentWidget(image.id()));
    if (tour.check(view, QStringLiteral("has its tab")))
        tour.views().tabs->setCurrentWidget(view);
    return view;
}

PaintDesk deskOf(WindowTour &tour, const Image &image, ImageEditor::View *view)
{
    return {tour, view->canvas(), view->toolPalette(),
            tour.window().documentController()->undoStack(image.id())};
}

/// Picks both colours in the strip beside the canvas.
void pickColours(ImageEditor::View *view)
{
    ColourPalette *const colours = view->colourPalette();
    QTest::mouseClick(colours, Qt::LeftButton, {}, colours->grid().rectOf(Ink).center());
    QTest::mouseClick(colours, Qt::RightButton, {}, colours->grid().rectOf(Paper).center());
}

/// Opens a real picture in an image by the tool for it.
void openPicture(PaintDesk &desk, const Image &image)
{
    WindowTour &tour = desk.tour();
    const QString file = tour.tour().folder().filePath(QStringLiteral("screen.png"));
    desk.choose(Tool::Open);
    tour.chooseFile(file);
    tour.activate();
    const QSize size = QImage(file).size();
    tour.check(desk.image().size() == size && image.image().size() == size &&
                   haveEqualIndices(image.image(), desk.image()),
               QStringLiteral("takes the picture over"));
    tour.check(desk.looksRight(), QStringLiteral("and shows it in the palette's new colours"));
}

void drawShapes(PaintDesk &desk)
{
    desk.choose(Tool::Draw);
    desk.step(QStringLiteral("Draw"), {10, 10, 30, 3}, [&desk] {
        QList<QPoint> stroke;
        for (int x = 0; x < 30; ++x)
            stroke.append({10 + x, 10 + x % 3});
        desk.draw(stroke);
    });
    desk.step(QStringLiteral("Draw"), {10, 16, 3, 1}, [&desk] {
        desk.draw({{10, 16}, {11, 16}, {12, 16}}, Qt::RightButton);
    });
    desk.tour().check(desk.image().pixelIndex(11, 11) == Ink &&
                          desk.image().pixelIndex(11, 16) == Paper,
                      QStringLiteral("draws with both colours"));
    desk.choose(Tool::Line);
    desk.step(QStringLiteral("Line"), {10, 30, 41, 21}, [&] { desk.drag({50, 50}, {10, 30}); });
    desk.choose(Tool::Rectangle);
    desk.step(QStringLiteral("Rectangle"), {60, 10, 31, 31}, [&] {
        desk.drag({60, 10}, {90, 40});
    });
    desk.choose(Tool::RectangleFill);
    desk.step(QStringLiteral("Filled Rectangle"), {100, 10, 31, 31}, [&] {
        desk.drag({130, 40}, {100, 10});
    });
    desk.choose(Tool::Circle);
    desk.step(QStringLiteral("Circle"), {140, 10, 61, 31}, [&] {
        desk.drag({140, 10}, {200, 40});
    });
}

void fillAndPick(PaintDesk &desk, const ImageEditor::View &view)
{
    WindowTour &tour = desk.tour();
    desk.choose(Tool::Fill);
    desk.step(QStringLiteral("Fill"), {100, 10, 31, 31}, [&] {
        desk.click({115, 25}, Qt::RightButton);
    });
    desk.changesNothing(QStringLiteral("the colour that is there fills nothing"), [&] {
        desk.click({115, 25}, Qt::RightButton);
    });
    desk.choose(Tool::Pick);
    desk.changesNothing(QStringLiteral("picking paints nothing"), [&] {
        desk.click({115, 25});
        desk.click({60, 10}, Qt::RightButton);
    });
    tour.check(view.colourPalette()->primaryIndex() == Paper &&
                   view.colourPalette()->secondaryIndex() == Ink && desk.canvas().ink() == Paper &&
                   desk.canvas().paper() == Ink,
               QStringLiteral("picks both colours"));
}

void changeWhole(PaintDesk &desk)
{
    const QRect all = desk.image().rect();
    const QImage before = desk.image();
    for (const Tool tool : {Tool::Flip, Tool::Mirror}) {
        const QString text = tool == Tool::Flip ? QStringLiteral("Flip") : QStringLiteral("Mirror");
        desk.step(text, all, [&desk, tool] { desk.choose(tool); });
        desk.choose(tool);
    }
    desk.tour().check(haveEqualIndices(before, desk.image()),
                      QStringLiteral("turned twice is as it was"));
    desk.step(QStringLiteral("Scroll"), all, [&desk] {
        for (const Tool tool : {Tool::MoveUp, Tool::MoveLeft, Tool::MoveLeft, Tool::MoveDown})
            desk.choose(tool);
    });
    desk.tour().check(desk.image().pixelIndex(0, 20) == before.pixelIndex(2, 20),
                      QStringLiteral("scrolls by what the steps add up to"));
}

/// Cuts a part out and puts it down again beside itself.
void cutAndPaste(PaintDesk &desk)
{
    WindowTour &tour = desk.tour();
    const EditMenu *const menu = tour.views().menuBar->editMenu();
    const QRect part(58, 8, 20, 20);
    const QImage cut = desk.image().copy(part);
    desk.choose(Tool::Select);
    desk.step(QStringLiteral("Erase"), part, [&] {
        desk.drag(part.topLeft(), part.bottomRight());
        tour.check(desk.canvas().selection() == part, QStringLiteral("selects by the mouse"));
        tour.picture(QStringLiteral("painting-05-selection"));
        tour.choose(menu, QStringLiteral("Cut"));
        tour.choose(menu, QStringLiteral("Clear Selection"));
    });
    desk.step(QStringLiteral("Paste"), {210, 50, 20, 20}, [&] {
        tour.choose(menu, QStringLiteral("Paste"));
        desk.hover({220, 60});
        desk.click({220, 60});
        desk.choose(Tool::Draw);
    });
    tour.check(haveEqualIndices(desk.image().copy(210, 50, 20, 20), cut),
               QStringLiteral("pastes what was cut"));
}

/// Copies a part of one image into another, half over its edge.
void pasteAcross(PaintDesk &from, ImageEditor::View *source, PaintDesk &to,
                 ImageEditor::View *target)
{
    WindowTour &tour = from.tour();
    const EditMenu *const menu = tour.views().menuBar->editMenu();
    const QRect part(100, 60, 60, 40);
    tour.views().tabs->setCurrentWidget(source);
    from.choose(Tool::Select);
    from.changesNothing(QStringLiteral("copying changes nothing"), [&] {
        from.drag(part.topLeft(), part.bottomRight());
        tour.choose(menu, QStringLiteral("Copy"));
        tour.choose(menu, QStringLiteral("Clear Selection"));
    });
    tour.views().tabs->setCurrentWidget(target);
    tour.picture(QStringLiteral("painting-06-other"));
    to.step(QStringLiteral("Paste"), {34, 30, 60, 40}, [&] {
        tour.choose(menu, QStringLiteral("Paste"));
        to.hover({64, 50});
        tour.pictures(QStringLiteral("painting-07-paste"));
        to.click({64, 50});
        to.choose(Tool::Draw);
    });
    tour.check(haveEqualIndices(to.image().copy(34, 30, 60, 40), from.image().copy(part)),
               QStringLiteral("the other image has the same indices"));
    to.step(QStringLiteral("Paste"), {0, 0, 30, 20}, [&] {
        tour.choose(menu, QStringLiteral("Paste"));
        to.hover({0, 0});
        to.click({0, 0});
        to.choose(Tool::Draw);
    });
}

void toggleOverlay(WindowTour &tour, ImageEditor::View *view, const QString &name)
{
    for (const auto *const button : view->findChildren<QToolButton *>()) {
        if (button->menu())
            tour.choose(button->menu(), name);
    }
}

void lookAtZooms(PaintDesk &desk, ImageEditor::View *view)
{
    WindowTour &tour = desk.tour();
    for (const int zoom : {2, 16, 64, 1}) {
        desk.zoomTo(zoom);
        tour.check(desk.looksRight(),
                   QStringLiteral("shows its pixels at zoom %1").arg(desk.canvas().zoomLevel()));
        toggleOverlay(tour, view, QStringLiteral("Lines"));
        tour.picture(QStringLiteral("painting-1-lines-%1").arg(zoom));
        toggleOverlay(tour, view, QStringLiteral("Checkers"));
        tour.pictures(QStringLiteral("painting-2-overlays-%1").arg(zoom));
        toggleOverlay(tour, view, QStringLiteral("Lines"));
        tour.picture(QStringLiteral("painting-3-checkers-%1").arg(zoom));
        toggleOverlay(tour, view, QStringLiteral("Checkers"));
        desk.choose(Tool::Select);
        const QRect visible = desk.canvas().visiblePixels();
        desk.drag(visible.center() - QPoint(3, 2), visible.center() + QPoint(4, 4));
        tour.picture(QStringLiteral("painting-4-selection-%1").arg(zoom));
        desk.choose(Tool::Draw);
    }
    desk.zoomTo(2);
}

void lookAtHiRes(WindowTour &tour)
{
    const auto image = makeImage(tour, QStringLiteral("wide"), QStringLiteral("Layer 2, 640 × 256"),
                                 QStringLiteral("* Default Next colours"));
    auto *const view = image ? viewOf(tour, *image) : nullptr;
    if (!view)
        return;
    PaintDesk desk = deskOf(tour, *image, view);
    pickColours(view);
    desk.zoomTo(1);
    desk.choose(Tool::Circle);
    desk.step(QStringLiteral("Circle"), {100, 10, 401, 141}, [&] {
        desk.drag({100, 10}, {500, 150});
    });
    tour.picture(QStringLiteral("painting-8-wide"));
}

} // namespace

void paintingChapter(WindowTour &tour)
{
    tour.tour().beginChapter(QStringLiteral("Images are painted with every tool"));
    tour.setSubject(QStringLiteral("image"));
    if (!tour.check(tour.project(), QStringLiteral("there is a project")))
        return;
    const auto image =
        makeImage(tour, QStringLiteral("loading"), QStringLiteral("Layer 2, 320 × 256"),
                  QStringLiteral("* Default Next colours"));
    const auto other = makeImage(tour, QStringLiteral("title"), QStringLiteral("LoRes, 128 × 96"),
                                 QStringLiteral("* Default Next colours"));
    auto *const otherView = other ? viewOf(tour, *other) : nullptr;
    auto *const view = image ? viewOf(tour, *image) : nullptr;
    if (!view || !otherView)
        return;

    PaintDesk desk = deskOf(tour, *image, view);
    PaintDesk otherDesk = deskOf(tour, *other, otherView);
    openPicture(desk, *image);
    pickColours(view);
    const QImage before = desk.image();
    const QImage otherBefore = otherDesk.image();
    drawShapes(desk);
    fillAndPick(desk, *view);
    changeWhole(desk);
    cutAndPaste(desk);
    pasteAcross(desk, view, otherDesk, otherView);
    otherDesk.undoAll(otherBefore);
    tour.views().tabs->setCurrentWidget(view);
    desk.undoAll(before);
    lookAtZooms(desk, view);
    lookAtHiRes(tour);
}
