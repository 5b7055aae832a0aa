#pragma once

#include "canvas/Canvas.h"
#include "model/Palette.h"
#include "support/TestImages.h"

#include <QSignalSpy>
#include <QTest>

/// Counts the paint events of the widget that it watches.
struct PaintCounter : QObject
{
    int paints = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

/// A shown canvas with the default colours, and what it emitted.
struct CanvasFixture
{
    explicit CanvasFixture(const QStringList &rows, int zoom = 10)
    {
        palette.setDefaultColours();
        canvas.setPalette(&palette);
        canvas.setZoomLevel(zoom);
        canvas.setImage(TestImages::indexed(rows));
        canvas.resize(canvas.sizeHint());
        canvas.setInk(1);
        canvas.setPaper(2);
        canvas.show();
        if (!QTest::qWaitForWindowExposed(&canvas))
            qFatal("the canvas does not show");
        edited = std::make_unique<QSignalSpy>(&canvas, &Canvas::edited);
        changed = std::make_unique<QSignalSpy>(&canvas, &Canvas::imageChanged);
    }

    QStringList rows() const { return TestImages::rows(canvas.image()); }
    /// The middle of an image pixel, in the widget.
    QPoint at(int x, int y) const { return canvas.cellRect(QRect(x, y, 1, 1)).center(); }

    void press(int x, int y, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(&canvas, button, {}, at(x, y));
    }
    /// Sends an event of the mouse at an image pixel that leaves @p held down. QTest knows only one
    /// button at a time, and none during a move.
    void send(QEvent::Type type, QPoint pixel, Qt::MouseButton button, Qt::MouseButtons held)
    {
        const QPoint position = at(pixel.x(), pixel.y());
        QMouseEvent event(type, position, canvas.mapToGlobal(position), button, held,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&canvas, &event);
    }
    void move(int x, int y, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        send(QEvent::MouseMove, {x, y}, Qt::NoButton, buttons);
    }
    /// Presses the left and then the right button and releases them in that order.
    void clickBoth(int x, int y)
    {
        const QPoint pixel(x, y);
        const Qt::MouseButtons both = Qt::LeftButton | Qt::RightButton;
        send(QEvent::MouseButtonPress, pixel, Qt::LeftButton, Qt::LeftButton);
        send(QEvent::MouseButtonPress, pixel, Qt::RightButton, both);
        send(QEvent::MouseButtonRelease, pixel, Qt::LeftButton, Qt::RightButton);
        send(QEvent::MouseButtonRelease, pixel, Qt::RightButton, Qt::NoButton);
    }
    void release(int x, int y, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseRelease(&canvas, button, {}, at(x, y));
    }
    void drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton)
    {
        press(from.x(), from.y(), button);
        move(to.x(), to.y(), button);
        release(to.x(), to.y(), button);
    }
    void click(int x, int y, Qt::MouseButton button = Qt::LeftButton)
    {
        press(x, y, button);
        release(x, y, button);
    }
    /// The text of the only edit.
    QString editText() const { return edited->value(0).value(0).toString(); }

    Palette palette;
    Canvas canvas;
    std::unique_ptr<QSignalSpy> edited;
    std::unique_ptr<QSignalSpy> changed;
};
