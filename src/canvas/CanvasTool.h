#pragma once

#include <QPoint>

class Canvas;
class Layer2Image;
class QMouseEvent;
class QPainter;

/// What a gesture on a canvas does. Holds a plain pointer to its canvas, which owns it, and reads
/// and writes the canvas's state.
class CanvasTool
{
public:
    explicit CanvasTool(Canvas *canvas)
        : m_canvas(canvas)
    {
    }
    virtual ~CanvasTool();

    /// Called when the tool is chosen.
    virtual void activate() = 0;
    virtual void mousePressed(QMouseEvent *event);
    virtual void mouseMoved(QMouseEvent *event);
    virtual void mouseReleased(QMouseEvent *event) = 0;
    /// Draws what is not yet in the image on a copy of it.
    virtual void preview(Layer2Image &surface);
    /// Paints on the widget above everything else.
    virtual void paintOver(QPainter &painter);

protected:
    Canvas *m_canvas;
};
