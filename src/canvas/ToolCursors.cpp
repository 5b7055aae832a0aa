#include "canvas/ToolCursors.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace {

constexpr int CursorSide = 32; // pixels
constexpr QPoint EdgeOffsets[] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}};

QSvgRenderer *renderer(QByteArray source, const QByteArray &colour, QObject *parent)
{
    return new QSvgRenderer(source.replace("currentColor", colour), parent);
}

QCursor fromArtwork(const QString &path, QPoint hotSpot)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Qt::CrossCursor;

    const QByteArray source = file.readAll();
    QObject owner;
    QSvgRenderer *const edge = renderer(source, "#ffffff", &owner);
    QSvgRenderer *const body = renderer(source, "#000000", &owner);
    QPixmap pixmap(CursorSide, CursorSide);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area(0, 0, CursorSide, CursorSide);
    for (const QPoint offset : EdgeOffsets)
        edge->render(&painter, area.translated(offset));
    body->render(&painter, area);
    painter.end();
    return QCursor(pixmap, hotSpot.x(), hotSpot.y());
}

} // namespace

QCursor ToolCursors::fill()
{
    return fromArtwork(QStringLiteral(":/FillCursor"), {29, 26});
}

QCursor ToolCursors::picker()
{
    return fromArtwork(QStringLiteral(":/PickerCursor"), {5, 28});
}
