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

/// A canvas in its full size with both overlays, and what it is painted on.
struct PaintedCanvas
{
    explicit PaintedCanvas(int zoomLevel)
        : zoom(zoomLevel)
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
        canvas.setZoomLevel(zoom);
        canvas.setImage(image);
        canvas.resize(PictureSize * zoom);
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
        const QPoint position = QPoint(step, step % PictureSize.height()) * zoom;
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

    const int zoom; // screen pixels of a pixel
    Palette palette;
    Canvas canvas;
    QImage target;
    int step = 0;
};

Row paint(int zoom, const std::string &when, const std::function<void(PaintedCanvas &)> &before)
{
    const std::string input = "640 x 256 at zoom " + std::to_string(zoom) + ", overlays, " + when;
    return {"paint of a canvas", input, 6, [zoom, before] {
                const auto painted = std::make_shared<PaintedCanvas>(zoom);
                const Work measured = [painted, before] {
                    before(*painted);
                    painted->paint();
                };
                return Pair{measured, Bench::pictureOf(PictureSize * zoom)};
            }};
}

} // namespace

void Bench::addCanvasRows(std::vector<Row> *rows)
{
    for (const int zoom : {1, 2, 4}) {
        rows->push_back(paint(zoom, "as it was", [](PaintedCanvas &) {}));
        rows->push_back(
            paint(zoom, "a pixel drawn", [](PaintedCanvas &painted) { painted.draw(); }));
    }
}
