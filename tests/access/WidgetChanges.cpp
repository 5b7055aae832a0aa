#include "access/WidgetChanges.h"

#include "canvas/Canvas.h"
#include "colour/ColourPalette.h"
#include "colour/ColourSelector.h"
#include "colour/PaletteGrid.h"
#include "editors/FrameEditorWidget.h"
#include "editors/SpriteList.h"
#include "editors/TilePickerGrid.h"
#include "mapeditor/MapGrid.h"
#include "mapeditor/View.h"
#include "model/Image.h"
#include "model/MapObjects.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/SpriteBank.h"
#include "model/TileSet.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QPointer>

using AnimationEditor::FrameEditorWidget;
using MapEditor::MapGrid;
using SpriteEditor::SpriteList;
using Tool = Tessaril::Ui::ToolButton;

namespace {

void sendMouse(QWidget *widget, QEvent::Type type, QPoint position, Qt::MouseButton button,
               Qt::MouseButtons held)
{
    QMouseEvent event(type, position, widget->mapToGlobal(position), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void sendKey(QWidget *widget, int key, Qt::KeyboardModifiers modifiers)
{
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers);
        QCoreApplication::sendEvent(widget, &event);
    }
}

/// Changes of one widget, which bear its name.
template <typename Widget>
class ChangesOf
{
public:
    explicit ChangesOf(Widget *widget)
        : m_widget(widget)
        , m_name(QString::fromLatin1(widget->metaObject()->className()) + " of " +
                 (widget->parentWidget() ? widget->parentWidget()->objectName() : QString()))
    {
    }
    void add(const QString &name, const std::function<void(Widget *)> &make)
    {
        m_changes.append({m_name + ": " + name, [widget = m_widget, make] {
                              if (widget)
                                  make(widget);
                          }});
    }
    void addMouse(const QList<QPoint> &positions)
    {
        for (const QPoint position : positions) {
            add(QStringLiteral("mouse at %1,%2").arg(position.x()).arg(position.y()),
                [position](Widget *widget) {
                    sendMouse(widget, QEvent::MouseMove, position, Qt::NoButton, Qt::NoButton);
                });
        }
        add("the mouse leaves", [](Widget *widget) {
            QEvent leave(QEvent::Leave);
            QCoreApplication::sendEvent(widget, &leave);
        });
    }
    /// A press, moves and the release, each a change of its own.
    void addDrag(const QString &name, const QList<QPoint> &way, Qt::MouseButton button)
    {
        add(name + ", pressed", [way, button](Widget *widget) {
            sendMouse(widget, QEvent::MouseButtonPress, way.first(), button, button);
        });
        for (const QPoint position : way.mid(1)) {
            add(name + ", moved", [position, button](Widget *widget) {
                sendMouse(widget, QEvent::MouseMove, position, Qt::NoButton, button);
            });
        }
        add(name + ", released", [way, button](Widget *widget) {
            sendMouse(widget, QEvent::MouseButtonRelease, way.last(), button, Qt::NoButton);
        });
    }
    void addKeys(const QList<int> &keys, Qt::KeyboardModifiers modifiers = {})
    {
        add("focus", [](Widget *widget) { widget->setFocus(Qt::TabFocusReason); });
        for (const int key : keys) {
            add(QStringLiteral("key %1").arg(QKeySequence(key).toString()),
                [key, modifiers](Widget *widget) { sendKey(widget, key, modifiers); });
        }
        add("focus away", [](Widget *widget) { widget->window()->setFocus(); });
    }
    Changes changes() const { return m_changes; }

private:
    QPointer<Widget> m_widget;
    QString m_name;
    Changes m_changes;
};

const QList<int> Arrows{Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up};

void addViews(ChangesOf<Canvas> *changes)
{
    changes->add("grid lines", [](Canvas *canvas) { canvas->setGridLinesVisible(true); });
    changes->add("checkers", [](Canvas *canvas) { canvas->setMode(Tool::Grid, true); });
    changes->add("larger", [](Canvas *canvas) { canvas->setZoomLevel(canvas->zoomLevel() + 4); });
    changes->add("to the right", [](Canvas *canvas) { canvas->setHorizontalPosition(3); });
    changes->add("down", [](Canvas *canvas) { canvas->setVerticalPosition(3); });
    changes->add("all selected", &Canvas::selectAll);
    changes->add("smaller", [](Canvas *canvas) { canvas->setZoomLevel(canvas->zoomLevel() - 4); });
    changes->add("none selected", &Canvas::selectNone);
    changes->add("double height", [](Canvas *canvas) { canvas->setHiRes(true); });
    changes->add("single height", [](Canvas *canvas) { canvas->setHiRes(false); });
    changes->add("no grid lines", [](Canvas *canvas) { canvas->setGridLinesVisible(false); });
    changes->add("no checkers", [](Canvas *canvas) { canvas->setMode(Tool::Grid, false); });
    const QPointer<Palette> none;
    changes->add("no palette", [none](Canvas *canvas) { canvas->setPalette(none); });
}

Changes ofCanvas(Canvas *canvas)
{
    ChangesOf<Canvas> changes(canvas);
    addViews(&changes);
    changes.add("its palette",
                [palette = canvas->palette()](Canvas *widget) { widget->setPalette(palette); });
    const auto at = [canvas](int x, int y) { return canvas->cellRect({x, y, 1, 1}).center(); };
    for (const Tool tool : {Tool::Draw, Tool::Line, Tool::Rectangle, Tool::RectangleFill,
                            Tool::Circle, Tool::Fill, Tool::Pick, Tool::Select}) {
        const QString name = QStringLiteral("tool %1").arg(int(tool));
        changes.add(name, [tool](Canvas *widget) {
            widget->setInk(widget->ink() ^ 3);
            widget->setMode(tool, true);
        });
        changes.addMouse({at(0, 0), at(2, 2)});
        changes.addDrag(name, {at(1, 1), at(4, 5), at(5, 2)}, Qt::LeftButton);
    }
    changes.add("copy", &Canvas::copy);
    changes.add("paste", &Canvas::paste);
    changes.addMouse({at(3, 3), at(4, 4)});
    changes.addDrag("paste", {at(4, 4)}, Qt::LeftButton);
    changes.add("cancel", [](Canvas *widget) { widget->cancel(); });
    for (const Tool action :
         {Tool::RotateCW, Tool::RotateCCW, Tool::MoveUp, Tool::MoveLeft, Tool::Flip, Tool::Mirror})
        changes.add(QStringLiteral("action %1").arg(int(action)),
                    [action](Canvas *widget) { widget->setMode(action, true); });
    changes.addKeys(Arrows + QList<int>{Qt::Key_Space});
    return changes.changes();
}

void addChoices(ChangesOf<MapGrid> *changes, const Project &project)
{
    const QPointer<SpriteBank> bank = project.spriteBanks().first();
    const QPointer<SpriteAnim> animation = bank->animations().cbegin().value();
    const QPointer<TileAnimation> block =
        project.mapObjects().first()->animations().cbegin().value();
    changes->add("draw", [](MapGrid *grid) { grid->setMode(Tool::Draw); });
    changes->addMouse({QPoint(300, 200)});
    changes->add("the mouse comes back", [](MapGrid *grid) {
        sendMouse(grid, QEvent::MouseMove, QPoint(300, 200), Qt::NoButton, Qt::NoButton);
    });
    changes->add("a tile", [](MapGrid *grid) { grid->setCurrentTileIndex(2); });
    changes->add("turned", [](MapGrid *grid) { grid->setOrientation(true, false, true); });
    changes->add("another tile", [](MapGrid *grid) { grid->setCurrentTileIndex(5); });
    changes->add("a block", [block](MapGrid *grid) { grid->setCurrentTileAnimation(block); });
    changes->add("no block", [](MapGrid *grid) { grid->setCurrentTileAnimation({}); });
    changes->add("an animation",
                 [animation](MapGrid *grid) { grid->setCurrentSpriteAnimation(animation); });
    changes->add("a sprite", [id = bank->id()](MapGrid *grid) { grid->setCurrentSprite(id, 1); });
    changes->add("no sprite", [](MapGrid *grid) { grid->setCurrentSprite({}, -1); });
}

void addViews(ChangesOf<MapGrid> *changes)
{
    changes->add("grid", [](MapGrid *grid) { grid->setGridVisible(!grid->isGridVisible()); });
    changes->add("no grid", [](MapGrid *grid) { grid->setGridVisible(!grid->isGridVisible()); });
    changes->add("larger", [](MapGrid *grid) { grid->zoomIn(); });
    changes->add("smaller", [](MapGrid *grid) { grid->zoomOut(); });
    changes->add("to the right", [](MapGrid *grid) { grid->setHorizontalScrollPosition(2); });
    changes->add("down", [](MapGrid *grid) { grid->setVerticalScrollPosition(1); });
    changes->add("a step right", [](MapGrid *grid) { grid->scrollRight(); });
    changes->add("a step down", [](MapGrid *grid) { grid->scrollDown(); });
    changes->add("transparency", [](MapGrid *grid) { grid->setTransparencyIndex(0); });
    changes->add("background", [](MapGrid *grid) { grid->setBackgroundTileIndex(3); });
    changes->add("viewport", [](MapGrid *grid) { grid->setViewPort(true, {9, 7}); });
    changes->add("no viewport", [](MapGrid *grid) { grid->setViewPort(false, {9, 7}); });
    changes->add("fit", [](MapGrid *grid) { grid->fitTo(true); });
    changes->add("cells", [](MapGrid *grid) { grid->setCellMetrics(8, 4); });
    for (const bool isShown : {false, true}) {
        const QString name = isShown ? "shown " : "hidden ";
        changes->add(name + "tiles", [=](MapGrid *grid) { grid->setMapVisibility(isShown); });
        changes->add(name + "objects", [=](MapGrid *grid) { grid->setObjectVisibility(isShown); });
        changes->add(name + "sprites", [=](MapGrid *grid) { grid->setSpriteVisibility(isShown); });
    }
}

void addEdits(ChangesOf<MapGrid> *changes)
{
    using Tessaril::Position;
    changes->add("selection", [](MapGrid *grid) {
        grid->setMode(Tool::Select);
        grid->setSelection({1, 1, 4, 3});
    });
    changes->add("copied", &MapGrid::copySelection);
    changes->add("paste", [](MapGrid *grid) { grid->setMode(Tool::Paste); });
    changes->addMouse({QPoint(200, 150), QPoint(260, 190)});
    changes->addDrag("pasted", {QPoint(260, 190)}, Qt::LeftButton);
    changes->add("selection again", [](MapGrid *grid) {
        grid->setMode(Tool::Select);
        grid->setSelection({0, 0, 3, 3});
    });
    changes->add("cut", &MapGrid::cutSelection);
    changes->add("selected", [](MapGrid *grid) {
        grid->setMode(Tool::Select);
        grid->setSelection({2, 2, 3, 3});
    });
    changes->add("cleared", &MapGrid::clearSelection);
    changes->add("rows", [](MapGrid *grid) { grid->addRows(Position::Begin, 2); });
    changes->add("columns", [](MapGrid *grid) { grid->addColumns(Position::Begin, 2); });
    changes->add("fewer rows", [](MapGrid *grid) { grid->removeRows(Position::End, 3); });
    changes->add("fewer columns", [](MapGrid *grid) { grid->removeColumns(Position::End, 3); });
    changes->add("size", [](MapGrid *grid) { grid->resizeMap({42, 30}, Qt::AlignCenter); });
    for (const Tool tool : {Tool::Draw, Tool::Select, Tool::PlaceAnim, Tool::PlaceSprite}) {
        changes->add(QStringLiteral("tool %1").arg(int(tool)), [tool](MapGrid *grid) {
            grid->setCurrentTileIndex(4);
            grid->setMode(tool);
        });
        changes->addDrag(QStringLiteral("tool %1").arg(int(tool)),
                         {QPoint(220, 160), QPoint(260, 190), QPoint(400, 210)}, Qt::LeftButton);
        changes->addMouse({QPoint(230, 170), QPoint(300, 180)});
    }
}

Changes ofMapGrid(MapGrid *grid, const Project &project)
{
    ChangesOf<MapGrid> changes(grid);
    addChoices(&changes, project);
    addViews(&changes);
    addEdits(&changes);
    const QPointer<SpriteBank> bank = project.spriteBanks().first();
    changes.add("sprite to place",
                [id = bank->id()](MapGrid *widget) { widget->setCurrentSprite(id, 1); });
    changes.addMouse({QPoint(250, 180), QPoint(320, 240)});
    changes.add("the mouse is back", [](MapGrid *widget) {
        sendMouse(widget, QEvent::MouseMove, QPoint(250, 180), Qt::NoButton, Qt::NoButton);
    });
    changes.addDrag("place a sprite", {QPoint(250, 180)}, Qt::LeftButton);
    changes.addDrag("move the sprite", {QPoint(255, 185), QPoint(310, 240)}, Qt::LeftButton);
    changes.add("delete the sprite", &MapGrid::deleteHovered);
    changes.add("no banks", [](MapGrid *widget) { widget->setSpriteBanks({}); });
    changes.add("the banks", [bank](MapGrid *widget) { widget->setSpriteBanks({bank}); });
    changes.add("ticks", [](MapGrid *widget) {
        widget->setSpriteTicks(40);
        widget->updateChanged();
    });
    return changes.changes();
}

Changes ofTiles(TilePickerGrid *grid)
{
    ChangesOf<TilePickerGrid> changes(grid);
    for (const int index : {0, 7, 3, -1, 2})
        changes.add(QStringLiteral("tile %1").arg(index),
                    [index](TilePickerGrid *tiles) { tiles->setSelectedIndex(index); });
    for (const int magnification : {1, 4, 2})
        changes.add(QStringLiteral("magnification %1").arg(magnification),
                    [=](TilePickerGrid *tiles) { tiles->setMagnification(magnification); });
    changes.addMouse({QPoint(2, 2), QPoint(40, 10), QPoint(90, 20)});
    changes.addDrag("pick", {QPoint(20, 4)}, Qt::LeftButton);
    changes.addKeys(Arrows);
    return changes.changes();
}

Changes ofSprites(SpriteList *list)
{
    ChangesOf<SpriteList> changes(list);
    for (const int index : {0, 2, 1, -1})
        changes.add(QStringLiteral("sprite %1").arg(index),
                    [index](SpriteList *sprites) { sprites->setSelectedIndex(index); });
    for (const int magnification : {2, 4, 3})
        changes.add(QStringLiteral("magnification %1").arg(magnification),
                    [=](SpriteList *sprites) { sprites->setMagnification(magnification); });
    changes.addMouse({QPoint(80, 10), QPoint(130, 20)});
    changes.addDrag("pick", {QPoint(90, 14)}, Qt::LeftButton);
    changes.add("copy", &SpriteList::copyImage);
    changes.addKeys(Arrows);
    return changes.changes();
}

Changes ofColours(PaletteGrid *grid)
{
    ChangesOf<PaletteGrid> changes(grid);
    changes.add("colours 3 to 20", [](PaletteGrid *colours) { colours->setSelection(3, 20); });
    changes.add("no colours", [](PaletteGrid *colours) { colours->setSelection(-1, -1); });
    changes.addDrag("select", {QPoint(20, 20), QPoint(90, 60), QPoint(40, 30)}, Qt::LeftButton);
    changes.addKeys(Arrows + QList<int>{Qt::Key_Home, Qt::Key_End});
    changes.addKeys(Arrows, Qt::ShiftModifier);
    return changes.changes();
}

Changes ofSwatches(SwatchStrip *strip)
{
    ChangesOf<SwatchStrip> changes(strip);
    changes.addDrag("first", {QPoint(30, 10)}, Qt::LeftButton);
    changes.addDrag("second", {QPoint(50, 10)}, Qt::RightButton);
    changes.addDrag("transparent", {QPoint(70, 10)}, Qt::MiddleButton);
    changes.addKeys(Arrows);
    changes.addKeys(Arrows, Qt::ShiftModifier);
    return changes.changes();
}

Changes ofBanks(ColourPalette *palette)
{
    ChangesOf<ColourPalette> changes(palette);
    using Tessaril::Ui::ImageType;
    for (const ImageType type : {ImageType::UlaPlus, ImageType::Offset16, ImageType::Full256})
        changes.add(QStringLiteral("type %1").arg(int(type)),
                    [type](ColourPalette *colours) { colours->setImageType(type); });
    changes.add("bank", [](ColourPalette *colours) { colours->setOffset(2); });
    changes.add("first", [](ColourPalette *colours) { colours->setPrimaryColour(40); });
    changes.add("second", [](ColourPalette *colours) { colours->setSecondaryColour(35); });
    changes.add("bank again", [](ColourPalette *colours) { colours->setOffset(0); });
    return changes.changes();
}

Changes ofFrames(FrameEditorWidget *frames)
{
    ChangesOf<FrameEditorWidget> changes(frames);
    const QPoint first(20, 20);
    changes.addDrag("select", {first}, Qt::LeftButton);
    changes.add("rotated", [](FrameEditorWidget *editor) { editor->setRotated(true); });
    changes.add("flipped", [](FrameEditorWidget *editor) { editor->setFlipped(true); });
    changes.add("mirrored", [](FrameEditorWidget *editor) { editor->setMirrored(true); });
    changes.add("offset", [](FrameEditorWidget *editor) { editor->setOffset(3); });
    changes.add("larger", &FrameEditorWidget::zoomIn);
    changes.add("smaller", &FrameEditorWidget::zoomOut);
    changes.add("next frame", [](FrameEditorWidget *editor) {
        editor->setCurrentFrame(editor->currentFrame() + 1);
    });
    changes.add("none selected", &FrameEditorWidget::selectNone);
    changes.addKeys(Arrows);
    changes.add("no animation", [](FrameEditorWidget *editor) { editor->setAnimation(nullptr); });
    changes.add("its animation",
                [animation = QPointer(frames->animation())](FrameEditorWidget *editor) {
                    editor->setAnimation(animation);
                });
    return changes.changes();
}

/// What @p make gives for each visible widget of a kind.
template <typename Widget, typename Make>
Changes ofEach(const QWidget *root, const Make &make)
{
    Changes changes;
    for (Widget *widget : root->findChildren<Widget *>()) {
        if (widget->isVisible() && widget->isEnabled() && !widget->visibleRegion().isEmpty())
            changes += make(widget);
    }
    return changes;
}

} // namespace

Changes WidgetChanges::of(const QWidget *root, const Project &project)
{
    return ofEach<Canvas>(root, ofCanvas) +
           ofEach<MapGrid>(root, [&](MapGrid *grid) { return ofMapGrid(grid, project); }) +
           ofEach<TilePickerGrid>(root, ofTiles) + ofEach<SpriteList>(root, ofSprites) +
           ofEach<PaletteGrid>(root, ofColours) + ofEach<ColourPalette>(root, ofBanks) +
           ofEach<SwatchStrip>(root, ofSwatches) + ofEach<FrameEditorWidget>(root, ofFrames);
}
