#include "bench/Rows.h"

#include "canvas/Canvas.h"
#include "model/Palette.h"

#include <QCoreApplication>
#include <QImage>
#include <QMouseEvent>

#include <benchmark/benchmark.h>

#include <memory>
#include <random>

namespace {

using Bench::Pair;
using Bench::Row;
using Bench::Work;
using Tessaril::Ui::ToolButton;

constexpr QSize PictureSize(640, 256);
constexpr int Zoom = 2;

/// A canvas in its full size with both overlays, and what it is painted on.
struct PaintedCanvas
{
    PaintedCanvas()
    {
        palette.setDefaultColours();
        QImage image(PictureSize, QImage::Format_Indexed8);
        std::mt19937 random(20261121);
        for (int y = 0; y < image.height(); ++y) {
            uchar *const row = image.scanLine(y);
            for (int x = 0; x < image.width(); ++x)
                row[x] = static_cast<uchar>(random());
        }
        canvas.setPalette(&palette);
        canvas.setZoomLevel(Zoom);
        canvas.setImage(image);
        canvas.resize(PictureSize * Zoom);
        canvas.setMode(ToolButton::Grid, true);
        canvas.setGridLinesVisible(true);
        target = QImage(canvas.size(), QImage::Format_RGB32);
        paint();
    }

    void paint()
    {
        canvas.render(&target, {}, {}, QWidget::DrawChildren);
        benchmark::DoNotOptimize(target.constBits());
    }

    /// Draws one pixel, another one and another colour each time.
    void draw()
    {
        step = (step + 1) % PictureSize.width();
        canvas.setInk(1 + step % 255);
        const QPoint position = QPoint(step, step % PictureSize.height()) * Zoom;
        send(QEvent::MouseButtonPress, position);
        send(QEvent::MouseButtonRelease, position);
    }

    void send(QEvent::Type type, QPoint position)
    {
        const bool pressed = type == QEvent::MouseButtonPress;
        QMouseEvent event(type, position, canvas.mapToGlobal(position), Qt::LeftButton,
                          pressed ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&canvas, &event);
    }

    Palette palette;
    Canvas canvas;
    QImage target;
    int step = 0;
};

Row paint(const std::string &input, const std::function<void(PaintedCanvas &)> &before)
{
    return {"paint of a canvas", "640 x 256 at zoom 2, both overlays, " + input, 6, [before] {
                const auto painted = std::make_shared<PaintedCanvas>();
                const Work measured = [painted, before] {
                    before(*painted);
                    painted->paint();
                };
                return Pair{measured, Bench::pictureOf(PictureSize * Zoom)};
            }};
}

} // namespace

void Bench::addCanvasRows(std::vector<Row> *rows)
{
    rows->push_back(paint("as it was", [](PaintedCanvas &) {}));
    rows->push_back(paint("a pixel drawn", [](PaintedCanvas &painted) { painted.draw(); }));
}
