#include "canvas/Canvas.h"

#include "canvas/CanvasClipboard.h"
#include "canvas/CanvasTool.h"
#include "canvas/CircleCanvasTool.h"
#include "canvas/DrawCanvasTool.h"
#include "canvas/FillCanvasTool.h"
#include "canvas/LineCanvasTool.h"
#include "canvas/PasteCanvasTool.h"
#include "canvas/PickCanvasTool.h"
#include "canvas/Raster.h"
#include "canvas/RectangleCanvasTool.h"
#include "canvas/SelectCanvasTool.h"
#include "model/Palette.h"
#include "model/PictureEquality.h"
#include "uikit/PointerKeys.h"

#include <QMetaEnum>
#include <QStyle>

#include <algorithm>

using Kind = PixelEditCommand::Kind;
using Tool = Tessaril::Ui::ToolButton;

Canvas::Canvas(QWidget *parent)
    : QWidget(parent)
    , m_rubberBand(QRubberBand::Rectangle, this)
    , m_clipboard(new CanvasClipboard(this))
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true); // the paste frame follows the mouse without a button
    setAccessibleName(tr("Canvas"));
    makeTools();
    makeKeys();
    makeContextMenu();
    connect(m_clipboard, &CanvasClipboard::pasted, this, &Canvas::setPasteMode);
    connect(m_clipboard, &CanvasClipboard::copied, this, [this](bool isCut) {
        if (!isCut)
            return;
        cut();
        emit imageChanged();
    });
    setDrawingMode(Tool::Draw);
}

Canvas::~Canvas() = default;

void Canvas::makeTools()
{
    const auto add = [this](Tool button, std::shared_ptr<CanvasTool> tool) {
        m_tools.insert(static_cast<int>(button), std::move(tool));
    };
    add(Tool::Draw, std::make_shared<DrawCanvasTool>(this));
    add(Tool::Line, std::make_shared<LineCanvasTool>(this));
    add(Tool::Rectangle, std::make_shared<RectangleCanvasTool>(this, false));
    add(Tool::RectangleFill, std::make_shared<RectangleCanvasTool>(this, true));
    add(Tool::Circle, std::make_shared<CircleCanvasTool>(this));
    add(Tool::Fill, std::make_shared<FillCanvasTool>(this));
    add(Tool::Pick, std::make_shared<PickCanvasTool>(this));
    add(Tool::Select, std::make_shared<SelectCanvasTool>(this));
    add(Tool::Paste, std::make_shared<PasteCanvasTool>(this));
}

void Canvas::makeKeys()
{
    m_keys = new PointerKeys(this, this,
                             {.cells = [this] { return image().rect(); },
                              .visible = [this] { return visiblePixels(); },
                              .current = [this] { return m_lastPixel; },
                              .reveal = [this](QPoint pixel) { reveal(pixel); },
                              .rectOf =
                                  [this](QPoint pixel) {
                                      return cellRect({pixel, pixel});
                                  }});
}

void Canvas::makeContextMenu()
{
    connect(m_contextMenu.addAction(tr("Cut")), &QAction::triggered, m_clipboard,
            &CanvasClipboard::copyToClipboard);
    connect(m_contextMenu.addAction(tr("Copy")), &QAction::triggered, m_clipboard,
            &CanvasClipboard::copyToClipboard);
    connect(m_contextMenu.addAction(tr("Paste")), &QAction::triggered, this, &Canvas::paste);
    connect(m_contextMenu.addAction(tr("Select All")), &QAction::triggered, this,
            &Canvas::selectAll);
    connect(m_contextMenu.addAction(tr("Select None")), &QAction::triggered, this,
            &Canvas::selectNone);
    connect(m_contextMenu.addAction(tr("Erase")), &QAction::triggered, this, &Canvas::cut);
    connect(m_contextMenu.addAction(tr("Fill")), &QAction::triggered, this,
            [this] { fillSelection(QStringLiteral("Fill"), m_ink); });
}

void Canvas::setPalette(const QPointer<Palette> &palette)
{
    if (m_palette)
        disconnect(m_palette, &Palette::colourChanged, this, &Canvas::updatePalette);
    m_palette = palette;
    if (m_palette)
        connect(m_palette, &Palette::colourChanged, this, &Canvas::updatePalette);
    refreshColours();
}

CanvasClipboard *Canvas::clipboard() const
{
    return m_clipboard;
}

void Canvas::setHiRes(bool hiRes)
{
    m_hiRes = hiRes;
    updateGeometry();
    layoutImage();
}

bool Canvas::hasSelection() const
{
    return !m_rubberBand.isHidden() && !m_selection.isEmpty();
}

QRect Canvas::selection() const
{
    return hasSelection() ? m_selection : QRect();
}

void Canvas::setMode(Tool action, bool checked)
{
    if (action != Tool::Cut && action != Tool::Copy)
        selectNone();
    if (setDrawingMode(action) || changeWholeImage(action))
        return;

    switch (action) {
    case Tool::Paste:
        paste();
        break;
    case Tool::Grid:
        m_checkersVisible = checked;
        update();
        break;
    case Tool::ZoomIn:
        changeZoom(ZoomStep);
        break;
    case Tool::ZoomOut:
        changeZoom(-ZoomStep);
        break;
    case Tool::Cut:
        copy();
        cut();
        break;
    case Tool::Copy:
        copy();
        break;
    default:
        qInfo("PaintCanvas::setMode(%s)",
              QMetaEnum::fromType<Tool>().valueToKey(static_cast<int>(action)));
    }
}

bool Canvas::setDrawingMode(Tool action)
{
    // Pasting is entered through the clipboard, which knows whether there is something to paste.
    const auto tool = m_tools.value(static_cast<int>(action));
    if (!tool || action == Tool::Paste)
        return false;
    interruptStroke();
    m_mode = action;
    m_tool = tool.get();
    m_tool->activate();
    update();
    return true;
}

bool Canvas::changeWholeImage(Tool action)
{
    const auto change = [this](const char *text, Kind kind, auto turned) {
        changeImage(QString::fromLatin1(text), kind,
                    [turned](QImage &image) { image = turned(image); });
    };
    const auto scroll = [&change](QPoint offset) {
        change("Scroll", Kind::Scroll,
               [offset](const QImage &image) { return Raster::scrolled(image, offset); });
    };
    switch (action) {
    case Tool::RotateCW:
        change("Rotate", Kind::Edit, &Raster::rotatedClockwise);
        return true;
    case Tool::RotateCCW:
        change("Rotate", Kind::Edit, &Raster::rotatedCounterClockwise);
        return true;
    case Tool::MoveUp:
        scroll({0, -1});
        return true;
    case Tool::MoveDown:
        scroll({0, 1});
        return true;
    case Tool::MoveLeft:
        scroll({-1, 0});
        return true;
    case Tool::MoveRight:
        scroll({1, 0});
        return true;
    case Tool::Flip:
        change("Flip", Kind::Edit, [](const QImage &image) { return image.mirrored(false, true); });
        return true;
    case Tool::Mirror:
        change("Mirror", Kind::Edit,
               [](const QImage &image) { return image.mirrored(true, false); });
        return true;
    default:
        return false;
    }
}

void Canvas::selectAll()
{
    select(m_scrollOrigin);
}

void Canvas::selectNone()
{
    m_rubberBand.hide();
    m_selection = QRect();
    m_selectionStart.setX(-1);
}

void Canvas::select(const QRect &pixels)
{
    m_selection = pixels;
    placeRubberBand();
}

void Canvas::placeRubberBand()
{
    if (m_selection.isEmpty()) {
        m_rubberBand.hide();
        return;
    }
    m_rubberBand.setGeometry(cellRect(m_selection).intersected(m_viewRect));
    m_rubberBand.show();
}

void Canvas::cut()
{
    fillSelection(QStringLiteral("Erase"), m_paper);
}

void Canvas::fillSelection(const QString &text, int index)
{
    if (!hasSelection())
        return;
    const QRect area = m_selection;
    changeImage(text, Kind::Edit, [area, index](QImage &image) {
        Raster::fillRectangle(image, area.topLeft(), area.bottomRight(), index);
    });
}

void Canvas::copy()
{
    m_clipboard->copyToClipboard();
}

void Canvas::paste()
{
    m_clipboard->pasteFromClipboard();
}

void Canvas::setPasteMode(QUuid paletteId)
{
    if (!m_palette || m_palette->id() != paletteId)
        qInfo("Pasting to image with different palette");
    selectNone();
    interruptStroke();
    if (m_mode != Tool::Paste)
        m_modeBeforePaste = m_mode;
    m_mode = Tool::Paste;
    m_tool = m_tools.value(static_cast<int>(Tool::Paste)).get();
    update();
}

bool Canvas::cancel()
{
    if (m_mode == Tool::Paste)
        return setDrawingMode(m_modeBeforePaste);
    if (!hasSelection())
        return false;
    selectNone();
    return true;
}

void Canvas::setGridLinesVisible(bool visible)
{
    m_gridLinesVisible = visible;
    update();
}

void Canvas::setInk(int index)
{
    m_ink = index;
    m_surface.setInk(index);
}

void Canvas::setPaper(int index)
{
    m_paper = index;
    m_surface.setPaper(index);
}

void Canvas::setImage(QImage image)
{
    const bool isOtherInStroke =
        !m_beforeImage.isNull() && !PictureEquality::haveEqualIndices(image, m_surface.image());
    m_surface.setImage(image);
    m_surface.setPalette(m_palette);
    m_surface.setInk(m_ink);
    m_surface.setPaper(m_paper);
    if (isOtherInStroke)
        m_beforeImage = m_surface.image(); // The stroke goes on in the new picture.
    updateGeometry();
    layoutImage();
    emit imageChanged();
}

void Canvas::paletteChanged(int, int, QColor)
{
    refreshColours();
}

void Canvas::updatePalette(int, QColor, bool)
{
    refreshColours();
}

void Canvas::refreshColours()
{
    m_surface.setPalette(m_palette);
    update();
}

void Canvas::remap(int offset)
{
    m_surface.remap(offset);
    m_ink = m_surface.ink();
    m_paper = m_surface.paper();
    update();
}

void Canvas::changeImage(const QString &text, Kind kind,
                         const std::function<void(QImage &)> &function)
{
    beginEdit();
    function(m_surface.pixels());
    update();
    emit imageChanged();
    finishEdit(text, kind);
}

/// Sets aside how the picture is before an edit.
void Canvas::beginEdit()
{
    interruptStroke();
    m_beforeImage = m_surface.image();
}

void Canvas::finishEdit(const QString &text, Kind kind)
{
    if (m_beforeImage.isNull())
        return;
    const QImage before = std::exchange(m_beforeImage, QImage());
    if (!PictureEquality::haveEqualIndices(m_surface.image(), before))
        emit edited(text, before, m_surface.image(), kind);
}

/// Announces and records what has been drawn since the press. Only drawing keeps an edit open from
/// one event to the next.
void Canvas::endStroke()
{
    emit imageChanged();
    finishEdit(QStringLiteral("Draw"), Kind::Edit);
}

/// A tool or an action chosen by key comes between: what is drawn by then is a step of its own.
void Canvas::interruptStroke()
{
    if (!m_beforeImage.isNull())
        endStroke();
}
