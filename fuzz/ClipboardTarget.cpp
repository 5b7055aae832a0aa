// What other programs can leave on the clipboard, or drag in, under the names of the private
// formats. The first byte chooses the format.

#include "FuzzTarget.h"

#include "canvas/Canvas.h"
#include "canvas/CanvasClipboard.h"
#include "editors/FrameEditorWidget.h"
#include "editors/SpriteDrag.h"
#include "editors/TileDrag.h"
#include "mapeditor/MapGrid.h"
#include "model/Map.h"
#include "model/MapObjects.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"
#include "model/TileSet.h"
#include "support/DragEvents.h"
#include "support/TestMaps.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QMouseEvent>
#include <QUndoStack>

using Tool = Tessaril::Ui::ToolButton;

namespace {

enum Format { CanvasClip, SpriteClip, TileDropped, SpriteDropped, MapBlock, FormatCount };

std::unique_ptr<QMimeData> mimeData(const QString &type, const QByteArray &bytes)
{
    auto data = std::make_unique<QMimeData>();
    data->setData(type, QByteArray(bytes.constData(), bytes.size()));
    return data;
}

void toClipboard(const QString &type, const QByteArray &bytes)
{
    QGuiApplication::clipboard()->setMimeData(mimeData(type, bytes).release());
}

void click(QWidget *widget, QPoint position)
{
    for (const auto type :
         {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, position, widget->mapToGlobal(position), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
    }
}

void pasteIntoCanvas(const QByteArray &bytes)
{
    Canvas canvas;
    canvas.resize(200, 200);
    QImage image(16, 16, QImage::Format_Indexed8);
    image.setColorCount(256);
    image.fill(0);
    canvas.setImage(image);
    toClipboard(CanvasClipboard::mimeType(), bytes);
    canvas.paste();
    click(&canvas, {20, 20});
    canvas.grab();
    Fuzz::require(canvas.image().size() == QSize(16, 16), QStringLiteral("a paste resized"));
}

void pasteIntoSprite(const QByteArray &bytes)
{
    CanvasClipboard::Clip clip;
    if (!CanvasClipboard::read(mimeData(CanvasClipboard::mimeType(), bytes).get(), &clip))
        return;
    SpriteBank bank(Tessaril::Sprite::EightBit);
    bank.addSprite();
    bank.setImage(0, clip.image);
    Fuzz::require(bank.image().width() == SpriteBank::SpriteSide, QStringLiteral("a wide strip"));
    bank.spriteImage(0, -1, true, true, true);
}

void dropTile(const QByteArray &bytes)
{
    TestMaps::PlainTiles tiles(4);
    MapObjects blocks;
    blocks.setTileSet(tiles.set.get());
    TileAnimation *animation = blocks.createTileAnimation(QStringLiteral("Gate"));
    animation->setTileSet(tiles.set.get());
    animation->addFrame();
    AnimationEditor::FrameEditorWidget editor;
    editor.setAnimation(animation);
    const auto data = mimeData(TileDrag::mimeType(), bytes);
    DragEvents::drop(&editor, {5, 5}, data.get());
    editor.grab();
    animation->thumbnail({16, 16});
}

void dropSprite(const QByteArray &bytes)
{
    SpriteBank bank(Tessaril::Sprite::EightBit);
    bank.addSprite();
    SpriteAnim *animation = bank.createAnimation();
    AnimationEditor::FrameEditorWidget editor;
    editor.setAnimation(animation);
    const auto data = mimeData(SpriteDrag::mimeType(), bytes);
    DragEvents::drop(&editor, {5, 5}, data.get());
    editor.grab();
    animation->thumbnail({16, 16});
}

void pasteIntoMap(const QByteArray &bytes)
{
    TestMaps::PlainTiles tiles(4);
    tiles.set->setId(QUuid(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11)); // known to the corpus
    const auto map = TestMaps::map({6, 4}, tiles.set.get());
    QUndoStack stack;
    MapEditor::MapGrid grid;
    grid.setUndoStack(&stack);
    grid.resize(400, 300);
    grid.setMap(map.get());
    toClipboard(TileMap::mimeType(), bytes);
    grid.setMode(Tool::Paste);
    click(&grid, {150, 120});
    map->tileLayer()->fromData({-1, 1}, QGuiApplication::clipboard()->mimeData());
    grid.grab();
    Fuzz::require(map->tileLayer()->size() == QSize(6, 4), QStringLiteral("a paste resized"));
    map->tileLayer()->picture({0, 0, 6, 4}, 8, 0);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    Fuzz::begin(argc, *argv, true);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QByteArray bytes = Fuzz::bytes(data, size);
    switch (Fuzz::takeChoice(&bytes, FormatCount)) {
    case CanvasClip:
        pasteIntoCanvas(bytes);
        break;
    case SpriteClip:
        pasteIntoSprite(bytes);
        break;
    case TileDropped:
        dropTile(bytes);
        break;
    case SpriteDropped:
        dropSprite(bytes);
        break;
    default:
        pasteIntoMap(bytes);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
