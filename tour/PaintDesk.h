#pragma once

#include "canvas/Canvas.h"
#include "tour/WindowTour.h"

#include <QPointer>

#include <functional>

class QUndoStack;
class ToolPalette;

/// The hands and eyes of an artist at one canvas.
///
/// Positions count image pixels, and every gesture is one of real events on shown widgets.
class PaintDesk
{
public:
    using Tool = Tessaril::Ui::ToolButton;
    using Edit = std::function<void()>;

    /// @p stack is that of the document that the canvas shows.
    PaintDesk(WindowTour &tour, Canvas *canvas, ToolPalette *tools, QUndoStack *stack);

    WindowTour &tour() { return m_tour; }
    Canvas &canvas() { return *m_canvas; }
    QUndoStack &stack() { return *m_stack; }
    const QImage &image() const { return m_canvas->image(); }

    /// The widget point in the middle of a pixel.
    QPoint at(QPoint pixel) const;
    void hover(QPoint pixel);
    void press(QPoint pixel, Qt::MouseButton button = Qt::LeftButton);
    void release(QPoint pixel, Qt::MouseButton button = Qt::LeftButton);
    void click(QPoint pixel, Qt::MouseButton button = Qt::LeftButton);
    /// Presses at the first pixel and comes by each of the others.
    void draw(const QList<QPoint> &pixels, Qt::MouseButton button = Qt::LeftButton);
    void drag(QPoint from, QPoint to);
    void wheel(int notches, Qt::KeyboardModifiers modifiers);
    /// Zooms by the wheel until a pixel is @p zoom wide or as near as it comes.
    void zoomTo(int zoom);
    /// Clicks the button of a tool.
    void choose(Tool tool);

    /// Does @p edit, which must be one undo step named @p text that changes pixels in @p area
    /// alone, undoes it and does it again; what the canvas shows is compared each time.
    bool step(const QString &text, const QRect &area, const Edit &edit);
    /// Does what must change neither the picture nor the history.
    bool changesNothing(const QString &what, const Edit &edit);
    /// Undoes all steps, and compares with @p before; then does all again.
    void undoAll(const QImage &before);
    /// Whether each pixel of the image on view shows in its colour. Overlays have to be off.
    bool looksRight();

private:
    void send(QEvent::Type type, QPoint pixel, Qt::MouseButton button, Qt::MouseButtons held);

    WindowTour &m_tour;
    QPointer<Canvas> m_canvas;
    QPointer<ToolPalette> m_tools;
    QPointer<QUndoStack> m_stack;
};

/// Opens a document by a double click in the tree.
void openInTree(WindowTour &tour, const QUuid &id);

/// The chapters on painting; each leaves the documents of the one before as they were.
void paintingChapter(WindowTour &tour);
void tileChapter(WindowTour &tour);
/// @p script makes a character set of a bitmap font.
void fontChapter(WindowTour &tour, const QString &script);
