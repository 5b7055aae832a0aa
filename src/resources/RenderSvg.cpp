// Draws an SVG file into a PNG file of a given size:  tessaril_render_svg SVG WIDTH HEIGHT PNG
// Part of the build; needs no display.

#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>

namespace {

bool render(const QString &svg, QSize size, const QString &png)
{
    QSvgRenderer renderer(svg);
    if (!renderer.isValid() || size.isEmpty())
        return false;
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(QPointF(), QSizeF(size)));
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32).save(png, "PNG");
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 5) {
        std::fprintf(stderr, "usage: tessaril_render_svg SVG WIDTH HEIGHT PNG\n");
        return EXIT_FAILURE;
    }
    const QSize size(arguments[2].toInt(), arguments[3].toInt());
    if (!render(arguments[1], size, arguments[4])) {
        std::fprintf(stderr, "tessaril_render_svg: cannot draw %s\n", argv[1]);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
