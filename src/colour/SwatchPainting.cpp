#include "colour/SwatchPainting.h"

#include "colour/ColourSteps.h"
#include "model/Palette.h"

#include <QCoreApplication>
#include <QPainter>

namespace {

const QColor LightChequer(204, 204, 204);
const QColor DarkChequer(136, 136, 136);

QString translated(const char *text)
{
    return QCoreApplication::translate("SwatchPainting", text);
}

} // namespace

void SwatchPainting::paintColour(QPainter *painter, const QRect &rect, const QColor &colour)
{
    const QColor opaque(colour.rgb());
    if (colour.alpha() > 0) {
        painter->fillRect(rect, opaque);
        return;
    }
    const int half = rect.width() / 2;
    const int quarter = rect.height() / 2;
    painter->fillRect(rect, LightChequer);
    painter->fillRect(QRect(rect.left(), rect.top(), half / 2, quarter), DarkChequer);
    painter->fillRect(rect.adjusted(half / 2, quarter, -(rect.width() - half), 0), DarkChequer);
    painter->fillRect(rect.adjusted(half, 0, 0, 0), opaque);
}

void SwatchPainting::paintMark(QPainter *painter, const QRect &rect, const QString &mark)
{
    painter->setPen(Qt::black);
    painter->drawText(rect.translated(1, 1), Qt::AlignCenter, mark);
    painter->setPen(Qt::white);
    painter->drawText(rect.translated(-1, -1), Qt::AlignCenter, mark);
}

void SwatchPainting::paintFocus(QPainter *painter, const QRect &rect, const QColor &highlight)
{
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(Qt::white, 1));
    painter->drawRect(rect.adjusted(1, 1, -2, -2));
    painter->setPen(QPen(highlight, 1));
    painter->drawRect(rect.adjusted(0, 0, -1, -1));
}

QString SwatchPainting::toolTip(const Palette &palette, int index)
{
    const ColourSteps::Levels levels = ColourSteps::nearest(palette.colour(index));
    QString text = translated("Index: %1\nRed %2, Green %3, Blue %4")
                       .arg(index)
                       .arg(levels.red)
                       .arg(levels.green)
                       .arg(levels.blue);
    if (palette.priority(index))
        text += QLatin1Char('\n') + translated("Priority");
    if (palette.transparencyIndex() == index)
        text += QLatin1Char('\n') + translated("Transparent");
    return text;
}

QString SwatchPainting::spoken(const Palette &palette, int index)
{
    return toolTip(palette, index).replace(QLatin1Char('\n'), QStringLiteral(", "));
}
